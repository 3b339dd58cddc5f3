// SqliteDatabase: the practice database service on SQLite.
//
// Model: openRecordset runs the statement once and keeps every row, typed by declared type
// (a keyset snapshot, as the library asks for). A recordset opened with lock type 3 also keeps
// the rowid of each base table of each row (services/sqlite/rowid_plan.h), so that a write goes
// straight to the table row and then into the snapshot. A recordset opened with lock type 1
// runs only statements that SQLite says read (sqlite3_stmt_readonly) and return rows.
#include "services/sqlite/sqlite_database.h"

#include <sqlite3.h>

#include <algorithm>
#include <cctype>
#include <cstdio>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "services/sqlite/ado_filter.h"
#include "services/sqlite/recordset.h"
#include "services/sqlite/rowid_plan.h"
#include "services/sqlite/sql_text.h"
#include "services/sqlite/statement.h"
#include "services/sqlite/stored_value.h"

namespace nvwm {

using sqlite::Column;
using sqlite::ColumnKind;
using sqlite::fail;
using sqlite::quoteIdentifier;
using sqlite::Recordset;
using sqlite::Statement;
using sqlite::StoredValue;
using sqlite::TableInfo;
using sqlite::tableInfo;

namespace {

constexpr int32_t kPositionEof = -3;

// A default as the schema writes it ('1 Day', 0) in its stored form.
StoredValue defaultValue(ColumnKind kind, std::string_view text) {
  if (text.size() >= 2 && text.front() == '\'' && text.back() == '\'') {
    std::string unquoted;
    for (size_t i = 1; i + 1 < text.size(); ++i) {
      unquoted += text[i];
      if (text[i] == '\'') ++i;
    }
    return kind == ColumnKind::kString ? StoredValue(unquoted)
                                       : sqlite::textToStored(kind, unquoted);
  }
  if (auto n = TryParseNumber(text)) return sqlite::toStored(kind, Variant(*n));
  return std::monostate{};
}

}  // namespace

SqliteDatabase::SqliteDatabase(const std::string& path, bool readOnly) : path_(path) {
  if (readOnly ||
      sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
    sqlite3_close(db_);
    db_ = nullptr;
    if (sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
      sqlite3_close(db_);
      db_ = nullptr;
      return;
    }
  }
  // SQLite reads the file lazily: a text file or an unreadable one shows up at the first query.
  sqlite3_stmt* probe = nullptr;
  if (sqlite3_prepare_v2(db_, "SELECT count(*) FROM sqlite_master", -1, &probe, nullptr) ==
          SQLITE_OK &&
      sqlite3_step(probe) == SQLITE_ROW) {
    connected_ = true;
  }
  sqlite3_finalize(probe);
  if (!connected_) {
    sqlite3_close(db_);
    db_ = nullptr;
    return;
  }
  sqlite3_busy_timeout(db_, 5000);
}

SqliteDatabase::~SqliteDatabase() {
  open_.clear();
  sqlite3_close(db_);
}

bool SqliteDatabase::isConnected() { return connected_; }

void SqliteDatabase::requireConnection() const {
  if (!connected_) fail("the practice database \"" + path_ + "\" is not open");
}

Recordset& SqliteDatabase::recordset(Handle h) {
  auto it = open_.find(h);
  if (it == open_.end()) fail("no open recordset has the handle " + std::to_string(h));
  return *it->second;
}

Recordset& SqliteDatabase::writableRecordset(Handle h, const char* operation) {
  Recordset& rs = recordset(h);
  if (rs.readOnly) fail(std::string(operation) + ": the recordset is read-only (lock type 1)");
  return rs;
}

Handle SqliteDatabase::keep(std::unique_ptr<Recordset> rs) {
  Handle h = nextHandle_++;
  open_.emplace(h, std::move(rs));
  return h;
}

void SqliteDatabase::execute(const std::string& sql) {
  requireConnection();
  char* message = nullptr;
  if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
    std::string text = message ? message : sqlite3_errmsg(db_);
    sqlite3_free(message);
    fail(text);
  }
}

namespace {

// The columns of a prepared statement: names, origins, kinds.
void describeColumns(sqlite3_stmt* s, Recordset& rs) {
  int n = sqlite3_column_count(s);
  rs.columns.resize(n);
  for (int i = 0; i < n; ++i) {
    Column& c = rs.columns[i];
    const char* name = sqlite3_column_name(s, i);
    const char* table = sqlite3_column_table_name(s, i);
    const char* origin = sqlite3_column_origin_name(s, i);
    c.name = name ? name : "";
    c.table = table ? table : "";
    c.origin = origin ? origin : "";
    c.kind = sqlite::kindFromDeclaredType(sqlite3_column_decltype(s, i));
    // SQLite names a repeat in a subquery "Name:1": the column's own name is wanted.
    if (!c.origin.empty() && c.name.size() > c.origin.size() &&
        sqlite::foldAscii(c.name.substr(0, c.origin.size() + 1)) ==
            sqlite::foldAscii(c.origin + ":") &&
        std::all_of(c.name.begin() + c.origin.size() + 1, c.name.end(),
                    [](unsigned char ch) { return std::isdigit(ch); })) {
      c.name = c.origin;
    }
  }
  rs.nameColumns();
}

// Runs the statement and keeps every row, with the rowids the plan says where to find.
void readRows(sqlite3* db, Statement& st, const sqlite::RowidPlan& plan, Recordset& rs) {
  sqlite3_stmt* s = st.get();
  int n = static_cast<int>(rs.width());
  while (st.step(db) == SQLITE_ROW) {
    for (int source : plan.source)
      rs.rowids.push_back(source < 0 ? 0 : sqlite3_column_int64(s, source));
    for (int i = 0; i < n; ++i)
      rs.cells.push_back(sqlite::readColumn(s, plan.hidden + i, rs.columns[i].kind));
    ++rs.rowCount;
  }
}

}  // namespace

Handle SqliteDatabase::openRecordset(const std::string& sql, int32_t /*cursorType*/,
                                     int32_t lockType, bool, const std::string&, bool) {
  requireConnection();
  if (lockType != kLockReadOnly && lockType != kLockOptimistic)
    fail("lock type " + std::to_string(lockType) + " is not supported");
  Statement st;
  std::string text = sqlite::prepareOne(db_, sql, st);
  auto rs = std::make_unique<Recordset>();
  rs->readOnly = lockType == kLockReadOnly;
  if (rs->readOnly) sqlite::requireQuery(st.get(), sql);
  describeColumns(st.get(), *rs);
  sqlite::RowidPlan plan;
  if (!rs->readOnly) plan = sqlite::planRowids(db_, text, st, *rs);
  readRows(db_, st, plan, *rs);
  return keep(std::move(rs));
}

void SqliteDatabase::closeRecordset(Handle h) { open_.erase(h); }

bool SqliteDatabase::isRecordsetOpen(Handle h) { return open_.count(h) != 0; }

int32_t SqliteDatabase::getRecordCount(Handle h) {
  Recordset& rs = recordset(h);
  rs.pending.reset();
  rs.cursor = 0;
  return static_cast<int32_t>(rs.rowCount);
}

bool SqliteDatabase::isEmptyRecordset(Handle h) { return recordset(h).rowCount == 0; }

bool SqliteDatabase::isEOF(Handle h) {
  Recordset& rs = recordset(h);
  return !rs.pending && rs.eof();
}

bool SqliteDatabase::hasRecords(Handle h) {
  Recordset& rs = recordset(h);
  rs.pending.reset();
  rs.cursor = 0;
  return rs.rowCount > 0;
}

void SqliteDatabase::moveNext(Handle h) {
  Recordset& rs = recordset(h);
  rs.pending.reset();
  if (rs.eof()) fail("moveNext: the recordset is already past its last row");
  ++rs.cursor;
}

int32_t SqliteDatabase::getRecordPosition(Handle h) {
  Recordset& rs = recordset(h);
  return rs.eof() ? kPositionEof : static_cast<int32_t>(rs.cursor + 1);
}

int32_t SqliteDatabase::setRecordPosition(Handle h, int32_t position) {
  Recordset& rs = recordset(h);
  if (position < 1 || static_cast<size_t>(position) > rs.rowCount) return 1;
  rs.pending.reset();
  rs.cursor = static_cast<size_t>(position) - 1;
  return 0;
}

namespace {

int columnOf(const Recordset& rs, const Variant& name) {
  if (name.isNumber()) {
    int32_t i = CLng(name);
    if (i >= 0 && static_cast<size_t>(i) < rs.width()) return i;
    fail("no column " + std::to_string(i) + " in the recordset (item not found)");
  }
  std::string text = name.isString() ? name.stringValue() : CStr(name);
  int i = rs.find(text);
  if (i < 0) fail("item not found in this collection: \"" + text + "\"");
  return i;
}

void requireRow(const Recordset& rs, const char* operation) {
  if (rs.eof())
    fail(std::string(operation) + ": there is no current row (the recordset is past its end)");
}

}  // namespace

Variant SqliteDatabase::getField(Handle h, const Variant& fieldName) {
  Recordset& rs = recordset(h);
  int c = columnOf(rs, fieldName);
  if (rs.pending) return rs.pending->cells[c];
  requireRow(rs, "getField");
  return rs.cell(rs.cursor, c);
}

std::vector<std::string> SqliteDatabase::fieldNames(Handle h) {
  Recordset& rs = recordset(h);
  std::vector<std::string> names;
  for (const Column& c : rs.columns) names.push_back(c.name);
  return names;
}

namespace {

// Sets a column of the new row: its cell and the value to insert.
void setPending(Recordset& rs, int c, StoredValue value) {
  const Column& col = rs.columns[c];
  Variant shown = sqlite::storedToVariant(col.kind, value);
  for (size_t i = 0; i < rs.width(); ++i) {
    if (rs.columns[i].table == col.table &&
        sqlite::foldAscii(rs.columns[i].origin) == sqlite::foldAscii(col.origin))
      rs.pending->cells[i] = shown;
  }
  auto& values = rs.pending->values;
  auto it = std::find_if(values.begin(), values.end(),
                         [&](const auto& v) { return v.first == col.origin; });
  if (it != values.end()) {
    it->second = std::move(value);
  } else {
    values.emplace_back(col.origin, std::move(value));
  }
}

}  // namespace

void SqliteDatabase::setField(Handle h, const std::string& fieldName, const std::string& value,
                              const std::string&, bool) {
  Recordset& rs = writableRecordset(h, "setField");
  int c = columnOf(rs, Variant(fieldName));
  const Column& col = rs.columns[c];
  if (col.tableIndex < 0) fail("setField: the column \"" + fieldName + "\" can't be written");
  StoredValue stored = sqlite::textToStored(col.kind, value);
  if (rs.pending) {
    setPending(rs, c, std::move(stored));
    return;
  }
  requireRow(rs, "setField");
  int64_t rowid = rs.rowids[rs.cursor * rs.tables.size() + col.tableIndex];
  Statement st;
  st.prepare(db_, "UPDATE " + quoteIdentifier(col.table) + " SET " + quoteIdentifier(col.origin) +
                      " = ?1 WHERE rowid = ?2");
  sqlite::bindStored(st.get(), 1, stored);
  sqlite3_bind_int64(st.get(), 2, rowid);
  st.step(db_);
  // The same column may stand in the select list twice.
  Variant shown = sqlite::storedToVariant(col.kind, stored);
  for (size_t i = 0; i < rs.width(); ++i) {
    const Column& other = rs.columns[i];
    if (other.tableIndex == col.tableIndex &&
        sqlite::foldAscii(other.origin) == sqlite::foldAscii(col.origin)) {
      rs.cell(rs.cursor, static_cast<int>(i)) = shown;
      rs.indexes.erase(static_cast<int>(i));
    }
  }
}

void SqliteDatabase::addNewRecord(Handle h) {
  Recordset& rs = writableRecordset(h, "addNewRecord");
  if (rs.tables.size() != 1)
    fail("addNewRecord: the recordset must read exactly one table to add a row to");
  const std::string& table = rs.tables[0];
  TableInfo info = tableInfo(db_, table);
  rs.pending.emplace();
  rs.pending->cells.assign(rs.width(), Variant::null());
  for (const auto& [column, text] : info.defaults) {
    for (size_t i = 0; i < rs.width(); ++i) {
      const Column& c = rs.columns[i];
      if (sqlite::foldAscii(c.origin) == sqlite::foldAscii(column))
        rs.pending->cells[i] = sqlite::storedToVariant(c.kind, defaultValue(c.kind, text));
    }
  }
  if (!info.autoNumber) return;

  // Jet hands out the AutoNumber at AddNew; reserve it in sqlite_sequence now, as SQLite
  // would at the insert, so that other connections don't take it meanwhile.
  execute("SAVEPOINT nvwm_reserve_key");
  try {
    Statement st;
    st.prepare(db_,
               "INSERT INTO sqlite_sequence(name, seq) SELECT ?1, 0 WHERE NOT EXISTS "
               "(SELECT 1 FROM sqlite_sequence WHERE name = ?1)");
    sqlite3_bind_text(st.get(), 1, table.c_str(), -1, SQLITE_TRANSIENT);
    st.step(db_);
    st.prepare(db_, "UPDATE sqlite_sequence SET seq = max(seq, (SELECT coalesce(max(" +
                        quoteIdentifier(info.key) + "), 0) FROM " + quoteIdentifier(table) +
                        ")) + 1 WHERE name = ?1 RETURNING seq");
    sqlite3_bind_text(st.get(), 1, table.c_str(), -1, SQLITE_TRANSIENT);
    if (st.step(db_) != SQLITE_ROW) fail("addNewRecord: no AutoNumber could be reserved");
    rs.pending->key = sqlite3_column_int64(st.get(), 0);
    st.step(db_);
    execute("RELEASE nvwm_reserve_key");
  } catch (...) {
    sqlite3_exec(db_, "ROLLBACK TO nvwm_reserve_key; RELEASE nvwm_reserve_key", nullptr, nullptr,
                 nullptr);
    rs.pending.reset();
    throw;
  }
  Variant key(static_cast<int32_t>(*rs.pending->key));
  for (size_t i = 0; i < rs.width(); ++i) {
    if (sqlite::foldAscii(rs.columns[i].origin) == sqlite::foldAscii(info.key))
      rs.pending->cells[i] = key;
  }
  rs.pending->values.emplace_back(info.key, *rs.pending->key);
}

void SqliteDatabase::setNewField(Handle h, const std::string& fieldName, const Variant& value) {
  Recordset& rs = writableRecordset(h, "setNewField");
  int c = columnOf(rs, Variant(fieldName));
  const Column& col = rs.columns[c];
  if (!rs.pending) {
    setField(h, fieldName, value.isNull() || value.isEmpty() ? std::string() : CStr(value));
    return;
  }
  if (col.tableIndex < 0) fail("setNewField: the column \"" + fieldName + "\" can't be written");
  if (rs.pending->key &&
      sqlite::foldAscii(col.origin) == sqlite::foldAscii(rs.pending->values.front().first))
    fail("setNewField: the AutoNumber column \"" + fieldName + "\" can't be written");
  setPending(rs, c, sqlite::toStored(col.kind, value));
}

void SqliteDatabase::updateRecord(Handle h) {
  Recordset& rs = writableRecordset(h, "updateRecord");
  if (!rs.pending) return;
  const std::string& table = rs.tables[0];
  std::string sql = "INSERT INTO " + quoteIdentifier(table);
  const auto& values = rs.pending->values;
  if (values.empty()) {
    sql += " DEFAULT VALUES";
  } else {
    std::string names, marks;
    for (size_t i = 0; i < values.size(); ++i) {
      names += (i ? ", " : "") + quoteIdentifier(values[i].first);
      marks += (i ? ", ?" : "?") + std::to_string(i + 1);
    }
    sql += " (" + names + ") VALUES (" + marks + ")";
  }
  Statement st;
  st.prepare(db_, sql);
  for (size_t i = 0; i < values.size(); ++i)
    sqlite::bindStored(st.get(), static_cast<int>(i + 1), values[i].second);
  st.step(db_);
  int64_t rowid = sqlite3_last_insert_rowid(db_);

  // The new row as the table holds it (defaults, generated columns), in the snapshot.
  std::vector<Variant> row = rs.pending->cells;
  st.prepare(db_, "SELECT * FROM " + quoteIdentifier(table) + " WHERE rowid = ?1");
  sqlite3_bind_int64(st.get(), 1, rowid);
  if (st.step(db_) == SQLITE_ROW) {
    for (int j = 0; j < sqlite3_column_count(st.get()); ++j) {
      std::string name = sqlite::foldAscii(sqlite3_column_name(st.get(), j));
      for (size_t i = 0; i < rs.width(); ++i) {
        if (rs.columns[i].tableIndex == 0 && sqlite::foldAscii(rs.columns[i].origin) == name)
          row[i] = sqlite::readColumn(st.get(), j, rs.columns[i].kind);
      }
    }
  }
  rs.pending.reset();
  rs.cells.insert(rs.cells.end(), row.begin(), row.end());
  rs.rowids.push_back(rowid);
  rs.cursor = rs.rowCount++;
  for (auto& [column, index] : rs.indexes) {
    if (auto key = sqlite::keyOf(row[column])) index.emplace(std::move(*key), rs.cursor);
  }
}

bool SqliteDatabase::findRecord(Handle h, const std::string& fieldName, const Variant& value) {
  Recordset& rs = recordset(h);
  int c = columnOf(rs, Variant(fieldName));
  rs.pending.reset();
  auto found = rs.indexes.find(c);
  if (found == rs.indexes.end()) {
    auto& index = rs.indexes[c];
    index.reserve(rs.rowCount);
    for (size_t r = 0; r < rs.rowCount; ++r) {
      if (auto key = sqlite::keyOf(rs.cell(r, c))) index.emplace(std::move(*key), r);
    }
    found = rs.indexes.find(c);
  }
  auto key = sqlite::keyOf(sqlite::coerceToKind(value, rs.columns[c].kind));
  if (key) {
    auto it = found->second.find(*key);
    if (it != found->second.end()) {
      rs.cursor = it->second;
      return true;
    }
  }
  rs.cursor = rs.rowCount;
  return false;
}

Handle SqliteDatabase::filterRecordset(Handle h, const std::string& filter) {
  Recordset& base = recordset(h);
  sqlite::AdoFilter condition = sqlite::AdoFilter::parse(filter, base);
  auto rs = std::make_unique<Recordset>();
  rs->columns = base.columns;
  rs->byName = base.byName;
  rs->tables = base.tables;
  rs->readOnly = base.readOnly;
  size_t tables = base.tables.size();
  for (size_t r = 0; r < base.rowCount; ++r) {
    if (!condition.matches(base, r)) continue;
    auto from = base.cells.begin() + static_cast<std::ptrdiff_t>(r * base.width());
    rs->cells.insert(rs->cells.end(), from, from + static_cast<std::ptrdiff_t>(base.width()));
    if (!base.rowids.empty()) {
      auto ids = base.rowids.begin() + static_cast<std::ptrdiff_t>(r * tables);
      rs->rowids.insert(rs->rowids.end(), ids, ids + static_cast<std::ptrdiff_t>(tables));
    }
    ++rs->rowCount;
  }
  return keep(std::move(rs));
}

std::string SqliteDatabase::getSQLDateString(const Date& date) {
  DateParts p = date.parts();
  char buf[32];
  std::snprintf(buf, sizeof buf, "%d/%d/%d", p.month, p.day, p.year);
  return buf;
}

}  // namespace nvwm
