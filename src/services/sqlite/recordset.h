// Internal: a recordset kept by SqliteDatabase, and the index findRecord builds.
//
// A recordset is a snapshot: the rows the statement gave at openRecordset, typed, in one flat
// array (row-major). An updatable recordset also keeps, per row, the rowid of each base table
// it reads, so that a write reaches the row it came from.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "runtime/variant.h"
#include "services/sqlite/stored_value.h"

namespace nvwm::sqlite {

struct Column {
  std::string name;    // the name getField takes
  std::string table;   // origin table; "" for an expression
  std::string origin;  // origin column
  ColumnKind kind = ColumnKind::kAny;
  int tableIndex = -1;  // into Recordset::tables; -1 when it can't be written
};

// A value as findRecord and the filter compare it: numbers (booleans, dates as their serial
// to the second) by value, text folded to lower case (ASCII, as the database's NOCASE).
struct ValueKey {
  enum Tag : uint8_t { kNumber, kDate, kText } tag = kNumber;
  double number = 0;
  std::string text;
  friend bool operator==(const ValueKey&, const ValueKey&) = default;
};
struct ValueKeyHash {
  size_t operator()(const ValueKey& k) const noexcept;
};
// Nothing for Null and Empty.
std::optional<ValueKey> keyOf(const Variant& v);
// The value as the column's kind would hold it ("12" in a Long column is 12); unchanged when
// it can't be converted.
Variant coerceToKind(const Variant& v, ColumnKind kind);

// A row being added: cells as getField shows them, and the values to insert.
struct NewRow {
  std::vector<Variant> cells;
  std::vector<std::pair<std::string, StoredValue>> values;  // column of the table -> value
  std::optional<int64_t> key;                               // a reserved AutoNumber
};

struct Recordset {
  std::vector<Column> columns;
  std::unordered_map<std::string, int> byName;  // folded name -> column
  std::vector<std::string> tables;              // base tables whose rowid each row keeps
  std::deque<Variant> cells;                    // rows x columns (chunked: no copying as it grows)
  std::vector<int64_t> rowids;                  // rows x tables (empty when not updatable)
  size_t rowCount = 0;
  size_t cursor = 0;
  bool readOnly = true;
  std::optional<NewRow> pending;
  // column -> value -> first row with it; built by the first findRecord of the column.
  std::unordered_map<int, std::unordered_map<ValueKey, size_t, ValueKeyHash>> indexes;

  size_t width() const { return columns.size(); }
  bool eof() const { return cursor >= rowCount; }
  const Variant& cell(size_t row, int column) const { return cells[row * width() + column]; }
  Variant& cell(size_t row, int column) { return cells[row * width() + column]; }
  // The column of a name (case-insensitive); -1 when not found.
  int find(std::string_view name) const;
  void nameColumns();
};

std::string foldAscii(std::string_view s);

}  // namespace nvwm::sqlite
