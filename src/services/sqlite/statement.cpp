#include "services/sqlite/statement.h"

#include <sqlite3.h>

#include <string>

#include "runtime/error.h"
#include "services/sqlite/sql_text.h"

namespace nvwm::sqlite {

void fail(std::string_view detail) { raise(ErrorNumber::kDatabaseError, detail); }

void failSqlite(sqlite3* db) {
  if (!db) fail("no database");
  int code = sqlite3_errcode(db) & 0xff;
  if (code == SQLITE_CORRUPT || code == SQLITE_NOTADB)
    fail(std::string("the database file is damaged (") + sqlite3_errmsg(db) + ")");
  fail(sqlite3_errmsg(db));
}

namespace {

// sqlite3_prepare takes the length as an int; a longer text must not wrap around.
bool tooLong(std::string_view sql) { return sql.size() > 1'000'000'000; }

}  // namespace

Statement::~Statement() { reset(); }

void Statement::reset() {
  sqlite3_finalize(stmt_);
  stmt_ = nullptr;
}

void Statement::prepare(sqlite3* db, std::string_view sql, std::string_view* tail) {
  reset();
  if (tooLong(sql)) fail("the SQL text is too long");
  const char* rest = nullptr;
  if (sqlite3_prepare_v2(db, sql.data(), static_cast<int>(sql.size()), &stmt_, &rest) != SQLITE_OK)
    failSqlite(db);
  if (tail) *tail = std::string_view(rest, sql.data() + sql.size() - rest);
}

bool Statement::tryPrepare(sqlite3* db, std::string_view sql) {
  reset();
  return !tooLong(sql) &&
         sqlite3_prepare_v2(db, sql.data(), static_cast<int>(sql.size()), &stmt_, nullptr) ==
             SQLITE_OK &&
         stmt_ != nullptr;
}

int Statement::step(sqlite3* db) {
  int rc = sqlite3_step(stmt_);
  if (rc != SQLITE_ROW && rc != SQLITE_DONE) failSqlite(db);
  return rc;
}

std::string prepareOne(sqlite3* db, std::string_view jetSql, Statement& st) {
  if (isBlankSql(jetSql)) fail("the SQL text is empty");
  std::string text = translateJetSql(jetSql);
  std::string_view tail;
  st.prepare(db, text, &tail);
  if (st.get() == nullptr) fail("the SQL text is empty");
  if (!isBlankSql(tail)) fail("only one SQL statement may be sent at a time");
  return text;
}

void requireQuery(sqlite3_stmt* s, std::string_view sql) {
  std::string quoted = "\"" + std::string(sql) + "\"";
  if (!sqlite3_stmt_readonly(s)) {
    fail("a read-only recordset (lock type 1) can't run " + quoted +
         ": it would change the database");
  }
  if (sqlite3_column_count(s) == 0) {
    fail("a read-only recordset (lock type 1) can't run " + quoted + ": it is not a query");
  }
}

}  // namespace nvwm::sqlite
