#include "services/sqlite/rowid_plan.h"

#include <sqlite3.h>

#include <algorithm>
#include <string>

#include "services/sqlite/sql_text.h"

namespace nvwm::sqlite {
namespace {

// Gives each column the index of its origin table, adding the tables as they come.
void collectTables(Recordset& rs) {
  for (Column& c : rs.columns) {
    if (c.table.empty()) continue;
    auto it = std::find(rs.tables.begin(), rs.tables.end(), c.table);
    c.tableIndex = static_cast<int>(it - rs.tables.begin());
    if (it == rs.tables.end()) rs.tables.push_back(c.table);
  }
}

// The select-list column that holds the table's INTEGER PRIMARY KEY, or -1.
int keyColumn(sqlite3* db, const Recordset& rs, const std::string& table) {
  std::string key = foldAscii(tableInfo(db, table).key);
  if (key.empty()) return -1;
  for (size_t i = 0; i < rs.columns.size(); ++i) {
    if (rs.columns[i].table == table && foldAscii(rs.columns[i].origin) == key)
      return static_cast<int>(i);
  }
  return -1;
}

// The SQL with `"Table".rowid` of each table put in front of the select list; "" when each
// result row is not one row of each table.
std::string keyedSql(std::string_view sql, const std::vector<std::string>& tables) {
  SelectShape shape = selectShape(sql);
  if (!shape.select || shape.distinct || shape.grouped) return "";
  std::string out(sql.substr(0, shape.afterSelect));
  for (const std::string& t : tables) out += " " + quoteIdentifier(t) + ".rowid,";
  out.append(sql.substr(shape.afterSelect));
  return out;
}

std::string_view text(const char* s) { return s ? std::string_view(s) : std::string_view(); }

// True when the keyed statement has the hidden rowid columns SQLite was asked for, in front
// of the original ones: each one a column of its table (SQLite names the origin "rowid", or the
// key column that the rowid is an alias of).
bool keyedAsAsked(sqlite3_stmt* keyed, const std::vector<std::string>& tables,
                  const Recordset& rs) {
  int hidden = static_cast<int>(tables.size());
  if (sqlite3_column_count(keyed) != hidden + static_cast<int>(rs.columns.size())) return false;
  for (int i = 0; i < hidden; ++i) {
    if (text(sqlite3_column_table_name(keyed, i)) != tables[i] ||
        text(sqlite3_column_origin_name(keyed, i)).empty())
      return false;
  }
  for (size_t i = 0; i < rs.columns.size(); ++i) {
    int k = hidden + static_cast<int>(i);
    if (text(sqlite3_column_table_name(keyed, k)) != rs.columns[i].table ||
        text(sqlite3_column_origin_name(keyed, k)) != rs.columns[i].origin)
      return false;
  }
  return true;
}

}  // namespace

std::string quoteIdentifier(std::string_view name) {
  std::string out = "\"";
  for (char c : name) {
    out += c;
    if (c == '"') out += '"';
  }
  return out + "\"";
}

TableInfo tableInfo(sqlite3* db, const std::string& table) {
  TableInfo info;
  Statement st;
  st.prepare(db, "SELECT name, type, dflt_value, pk FROM pragma_table_info(?1)");
  sqlite3_bind_text(st.get(), 1, table.c_str(), -1, SQLITE_TRANSIENT);
  int keyColumns = 0;
  while (st.step(db) == SQLITE_ROW) {
    std::string name(text(reinterpret_cast<const char*>(sqlite3_column_text(st.get(), 0))));
    const char* type = reinterpret_cast<const char*>(sqlite3_column_text(st.get(), 1));
    if (sqlite3_column_int(st.get(), 3) > 0) {
      ++keyColumns;
      if (type && foldAscii(type) == "integer") info.key = name;
    }
    if (sqlite3_column_type(st.get(), 2) != SQLITE_NULL)
      info.defaults.emplace_back(name,
                                 reinterpret_cast<const char*>(sqlite3_column_text(st.get(), 2)));
  }
  if (keyColumns != 1) info.key.clear();
  if (!info.key.empty()) {
    int autoinc = 0;
    sqlite3_table_column_metadata(db, nullptr, table.c_str(), info.key.c_str(), nullptr, nullptr,
                                  nullptr, nullptr, &autoinc);
    info.autoNumber = autoinc != 0;
  }
  return info;
}

RowidPlan planRowids(sqlite3* db, std::string_view sql, Statement& st, Recordset& rs) {
  collectTables(rs);
  RowidPlan plan;
  std::vector<std::string> unkeyed;
  for (const std::string& table : rs.tables) {
    plan.source.push_back(keyColumn(db, rs, table));
    if (plan.source.back() < 0) unkeyed.push_back(table);
  }
  if (unkeyed.empty()) return plan;

  std::string keyed = keyedSql(sql, unkeyed);
  if (!keyed.empty() && st.tryPrepare(db, keyed) && keyedAsAsked(st.get(), unkeyed, rs)) {
    plan.hidden = static_cast<int>(unkeyed.size());
    size_t next = 0;
    for (int& source : plan.source) source = source >= 0 ? source + plan.hidden : int(next++);
    return plan;
  }
  // No hidden columns: the tables without a key column in the list can't be written.
  st.prepare(db, sql);
  for (size_t t = 0; t < rs.tables.size(); ++t) {
    if (plan.source[t] >= 0) continue;
    for (Column& c : rs.columns) {
      if (c.tableIndex == static_cast<int>(t)) c.tableIndex = -1;
    }
  }
  return plan;
}

}  // namespace nvwm::sqlite
