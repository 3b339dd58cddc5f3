#include "services/sqlite/practice_schema.h"

#include <sqlite3.h>

#include <filesystem>

#include "runtime/error.h"

namespace nvwm {

std::string_view embeddedSchemaSql();  // generated from data/schema.sql

std::string_view practiceSchemaSql() { return embeddedSchemaSql(); }

void createPracticeDatabase(const std::string& path) {
  std::error_code ec;
  if (std::filesystem::exists(path, ec)) raise(ErrorNumber::kFileAlreadyExists, path);
  sqlite3* db = nullptr;
  int rc = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  // One transaction: one write to disk instead of one per table.
  std::string schema = "BEGIN;\n" + std::string(practiceSchemaSql()) + "\nCOMMIT;\n";
  char* message = nullptr;
  if (rc == SQLITE_OK) rc = sqlite3_exec(db, schema.c_str(), nullptr, nullptr, &message);
  if (rc != SQLITE_OK) {
    std::string text = message ? message : (db ? sqlite3_errmsg(db) : "out of memory");
    sqlite3_free(message);
    sqlite3_close(db);
    std::filesystem::remove(path, ec);
    raise(ErrorNumber::kDatabaseError, path + ": " + text);
  }
  sqlite3_close(db);
}

}  // namespace nvwm
