// Internal: a prepared SQLite statement that finalizes itself, and the SQLite service's one way
// to fail (RuntimeError 3001 with SQLite's message).
#pragma once

#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace nvwm::sqlite {

// Raises 3001 with the detail.
[[noreturn]] void fail(std::string_view detail);
// Raises 3001 with the connection's last message.
[[noreturn]] void failSqlite(sqlite3* db);

// One prepared statement, finalized on scope exit or when another is prepared in its place.
class Statement {
 public:
  Statement() = default;
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  // Prepares the first statement of sql; the text after it goes to tail. Raises 3001 with
  // SQLite's message. get() is null when sql holds no statement (blanks, comments).
  void prepare(sqlite3* db, std::string_view sql, std::string_view* tail = nullptr);
  // As prepare, but a failure gives false (and get() null).
  bool tryPrepare(sqlite3* db, std::string_view sql);
  // SQLITE_ROW or SQLITE_DONE; anything else raises 3001.
  int step(sqlite3* db);
  sqlite3_stmt* get() const { return stmt_; }

 private:
  void reset();

  sqlite3_stmt* stmt_ = nullptr;
};

// Translates a Jet SQL text (sql_text.h) and prepares its one statement into st; returns the
// text SQLite runs. Raises 3001 for an empty text, SQL that SQLite refuses, or a second
// statement after the first (which is then never run).
std::string prepareOne(sqlite3* db, std::string_view jetSql, Statement& st);

// Raises 3001 unless the prepared statement only reads and gives rows: what a read-only
// recordset may run. Nothing that writes (DROP, UPDATE...), nor a statement without rows
// (ATTACH makes files, BEGIN holds locks). sql is the text as the caller sent it.
void requireQuery(sqlite3_stmt* s, std::string_view sql);

}  // namespace nvwm::sqlite
