// Internal: the SQLite file that the ADO objects share, and the connection strings that name it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace nvwm::ado {

// The parts of a connection string the objects use. Keys are matched without regard to case
// and blanks around them; a value may be quoted ('...' or "...").
struct ConnectionString {
  std::string dataSource;        // "Data Source"
  std::string databasePassword;  // "Jet OLEDB:Database Password"
};
ConnectionString parseConnectionString(std::string_view text);

// A prepared statement, finalized when it goes.
struct StatementFinalizer {
  void operator()(sqlite3_stmt* statement) const;
};
using Statement = std::unique_ptr<sqlite3_stmt, StatementFinalizer>;

// One open SQLite file. Not thread-safe.
class DatabaseFile {
 public:
  // Makes a new database file. Raises 3204 when the path exists, 3044 when its folder doesn't,
  // 3001 when SQLite can't write it.
  static void create(const std::string& path);
  // Opens an existing file. Raises 3024 when it is missing, 3343 when it is no SQLite database.
  static std::shared_ptr<DatabaseFile> open(const std::string& path, bool readOnly);

  // Commits a transaction still open (see beginWrites) and closes the file.
  ~DatabaseFile();
  DatabaseFile(const DatabaseFile&) = delete;
  DatabaseFile& operator=(const DatabaseFile&) = delete;

  sqlite3* handle() const { return db_; }
  const std::string& path() const { return path_; }

  // Runs SQL without rows. Raises 3001 with SQLite's message.
  void execute(const std::string& sql);
  // Prepares one statement; a second one behind it raises 3001.
  Statement prepare(std::string_view sql);
  // Starts a transaction for a run of writes unless one is open; each call is matched by
  // endWrites, and the last endWrites commits.
  void beginWrites();
  void endWrites();
  // Raises 3001 with SQLite's last message.
  [[noreturn]] void fail(std::string_view what) const;

 private:
  DatabaseFile(sqlite3* db, std::string path) : db_(db), path_(std::move(path)) {}

  sqlite3* db_;
  std::string path_;
  int writers_ = 0;
};

// "name" with any quote in it doubled, for SQL.
std::string quoteIdentifier(std::string_view name);

}  // namespace nvwm::ado
