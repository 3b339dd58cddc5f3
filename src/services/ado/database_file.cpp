#include "services/ado/database_file.h"

#include <sqlite3.h>

#include <filesystem>

#include "runtime/ascii.h"
#include "runtime/error.h"
#include "services/ado/ado_errors.h"

namespace nvwm::ado {
namespace {

namespace fs = std::filesystem;

}  // namespace

ConnectionString parseConnectionString(std::string_view text) {
  ConnectionString result;
  size_t pos = 0;
  while (pos < text.size()) {
    size_t eq = text.find('=', pos);
    if (eq == std::string_view::npos) break;
    std::string_view key = trimAsciiBlanks(text.substr(pos, eq - pos));
    size_t at = eq + 1;
    while (at < text.size() && text[at] == ' ') ++at;
    std::string value;
    if (at < text.size() && (text[at] == '"' || text[at] == '\'')) {
      const char quote = text[at];
      size_t close = text.find(quote, at + 1);
      if (close == std::string_view::npos) close = text.size();
      value = std::string(text.substr(at + 1, close - at - 1));
      at = close + 1;
      size_t semi = text.find(';', at);
      pos = semi == std::string_view::npos ? text.size() : semi + 1;
    } else {
      size_t semi = text.find(';', at);
      size_t end = semi == std::string_view::npos ? text.size() : semi;
      value = std::string(trimAsciiBlanks(text.substr(at, end - at)));
      pos = end + 1;
    }
    if (equalsIgnoringAsciiCase(key, "Data Source")) {
      result.dataSource = value;
    } else if (equalsIgnoringAsciiCase(key, "Jet OLEDB:Database Password")) {
      result.databasePassword = value;
    }
  }
  return result;
}

void StatementFinalizer::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

std::string quoteIdentifier(std::string_view name) {
  std::string quoted = "\"";
  for (char c : name) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  quoted += '"';
  return quoted;
}

void DatabaseFile::create(const std::string& path) {
  std::error_code ec;
  if (path.empty()) raise(AdoError::kNotValidPath, "no Data Source was given");
  if (fs::exists(fs::symlink_status(path, ec))) raise(AdoError::kDatabaseExists, path);
  fs::path folder = fs::path(path).parent_path();
  if (!folder.empty() && !fs::is_directory(folder, ec)) {
    raise(AdoError::kNotValidPath, "'" + folder.string() + "' is not a folder that exists");
  }
  sqlite3* db = nullptr;
  // EXCLUSIVE creation is not offered by SQLite; the test above and the header write below
  // leave a window only for another process racing for the same new name.
  int rc = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  std::string message = db ? sqlite3_errmsg(db) : sqlite3_errstr(rc);
  // Writing the header makes the file a database at once, so that it is there for the next
  // unique name and for a connection opened on it.
  if (rc == SQLITE_OK) {
    rc = sqlite3_exec(db, "PRAGMA user_version = 1;", nullptr, nullptr, nullptr);
    if (rc != SQLITE_OK) message = sqlite3_errmsg(db);
  }
  sqlite3_close(db);
  if (rc != SQLITE_OK) {
    fs::remove(path, ec);
    nvwm::raise(ErrorNumber::kDatabaseError,
                "can't create the database '" + path + "': " + message);
  }
}

std::shared_ptr<DatabaseFile> DatabaseFile::open(const std::string& path, bool readOnly) {
  std::error_code ec;
  if (path.empty() || !fs::is_regular_file(path, ec)) {
    raise(AdoError::kNotFound, "'" + path + "'");
  }
  sqlite3* db = nullptr;
  int flags = readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
  int rc = sqlite3_open_v2(path.c_str(), &db, flags, nullptr);
  auto file = std::shared_ptr<DatabaseFile>(new DatabaseFile(db, path));
  if (rc != SQLITE_OK) file->fail("can't open '" + path + "'");
  // SQLite reads the header lazily: ask for the schema to know the file is a database.
  if (sqlite3_exec(db, "SELECT count(*) FROM sqlite_master;", nullptr, nullptr, nullptr) !=
      SQLITE_OK) {
    raise(AdoError::kUnrecognizedFormat, "'" + path + "'");
  }
  return file;
}

DatabaseFile::~DatabaseFile() {
  if (db_ && !sqlite3_get_autocommit(db_)) sqlite3_exec(db_, "COMMIT;", nullptr, nullptr, nullptr);
  sqlite3_close_v2(db_);
}

void DatabaseFile::fail(std::string_view what) const {
  std::string text(what);
  if (db_) {
    text += ": ";
    text += sqlite3_errmsg(db_);
  }
  nvwm::raise(ErrorNumber::kDatabaseError, text);
}

void DatabaseFile::execute(const std::string& sql) {
  if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) fail(sql);
}

Statement DatabaseFile::prepare(std::string_view sql) {
  sqlite3_stmt* raw = nullptr;
  const char* tail = nullptr;
  if (sqlite3_prepare_v2(db_, sql.data(), static_cast<int>(sql.size()), &raw, &tail) != SQLITE_OK) {
    fail(sql);
  }
  Statement statement(raw);
  if (!statement)
    raise(AdoError::kInvalidArgument, "no SQL statement in \"" + std::string(sql) + "\"");
  std::string_view rest(tail, sql.data() + sql.size() - tail);
  if (!trimAsciiBlanks(rest).empty()) {
    nvwm::raise(ErrorNumber::kDatabaseError,
                "one statement at a time: \"" + std::string(trimAsciiBlanks(rest)) + "\" follows");
  }
  return statement;
}

void DatabaseFile::beginWrites() {
  if (writers_++ == 0 && sqlite3_get_autocommit(db_)) execute("BEGIN;");
}

void DatabaseFile::endWrites() {
  if (writers_ == 0) return;
  if (--writers_ == 0 && !sqlite3_get_autocommit(db_)) execute("COMMIT;");
}

}  // namespace nvwm::ado
