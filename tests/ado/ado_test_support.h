// What the tests of the ADO objects over SQLite share: a new database file with a table
// described through ADOX, and a reader of what the file holds.
#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

#include "services/ado/sqlite_ado.h"
#include "support/test_support.h"

namespace nvwm::testing {

inline std::string connectionTo(const std::string& path) {
  return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path + ";";
}

// Runs a query on the file through a connection of its own: each row's columns as text, "NULL"
// for Null.
inline std::vector<std::vector<std::string>> query(const std::string& path,
                                                   const std::string& sql) {
  std::vector<std::vector<std::string>> rows;
  sqlite3* db = nullptr;
  sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
  sqlite3_stmt* s = nullptr;
  if (sqlite3_prepare_v2(db, sql.c_str(), -1, &s, nullptr) != SQLITE_OK) {
    ADD_FAILURE() << sqlite3_errmsg(db) << " in " << sql;
  }
  while (s && sqlite3_step(s) == SQLITE_ROW) {
    std::vector<std::string> row;
    for (int i = 0; i < sqlite3_column_count(s); ++i) {
      row.push_back(sqlite3_column_type(s, i) == SQLITE_NULL
                        ? "NULL"
                        : reinterpret_cast<const char*>(sqlite3_column_text(s, i)));
    }
    rows.push_back(row);
  }
  sqlite3_finalize(s);
  sqlite3_close(db);
  return rows;
}

}  // namespace nvwm::testing
