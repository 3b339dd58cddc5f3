// Internal: how an updatable recordset finds the table row behind each of its rows.
//
// Each base table a recordset reads (the table SQLite names as a column's origin) gets its
// rowid from the select list's INTEGER PRIMARY KEY column of that table when there is one.
// Otherwise a hidden `"Table".rowid` column is put in front of the select list, but only when
// each result row is one row of each table, and only when SQLite agrees:
//   - the statement is a plain SELECT, neither DISTINCT (a rowid would make every row
//     distinct) nor grouped (a group has many rows), as its top-level tokens show;
//   - SQLite prepares the keyed text (a compound SELECT fails there: its arms no longer have
//     the same number of columns) and names each new column as the rowid of its table, with
//     the original columns after them unchanged.
// A table whose rowid can't be found is left unwritable: its columns get tableIndex -1.
#pragma once

#include <string_view>
#include <vector>

#include "services/sqlite/recordset.h"
#include "services/sqlite/statement.h"

namespace nvwm::sqlite {

struct RowidPlan {
  // Per table of Recordset::tables: the statement column holding its rowid, or -1.
  std::vector<int> source;
  // Hidden rowid columns in front of the select list; the recordset's columns follow them.
  int hidden = 0;
};

// Fills rs.tables and each column's tableIndex from the columns' origins, then plans where
// each table's rowid comes from. st holds the prepared statement of sql; it is replaced by the
// keyed statement when hidden columns are added. Raises 3001 when SQLite fails.
RowidPlan planRowids(sqlite3* db, std::string_view sql, Statement& st, Recordset& rs);

// The table's INTEGER PRIMARY KEY column ("" when it has none, or a key of several columns),
// whether it is an AutoNumber, and the defaults of its columns.
struct TableInfo {
  std::string key;
  bool autoNumber = false;
  std::vector<std::pair<std::string, std::string>> defaults;  // column -> default text
};
TableInfo tableInfo(sqlite3* db, const std::string& table);

std::string quoteIdentifier(std::string_view name);

}  // namespace nvwm::sqlite
