// Internal: how a value of each declared column type is stored in the practice database and
// read back as a Variant.
//
// One stored form per kind, so that SQL comparisons written by the library (`= True`,
// `= #11/23/2026#`) find what was written as text ("True", "11/23/2026"):
//   Boolean  1 / 0                       Date  text 'YYYY-MM-DD HH:MM:SS' (a time on 1899-12-30)
//   Long, Integer  integer               Single, Double, Currency  real
//   String   text as given
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "runtime/date.h"
#include "runtime/variant.h"

namespace nvwm::sqlite {

// What a column holds, from its declared type. kAny: an expression or an undeclared column,
// read by SQLite's storage class.
enum class ColumnKind {
  kAny,
  kBoolean,
  kInteger,
  kLong,
  kSingle,
  kDouble,
  kCurrency,
  kDate,
  kString
};

// The kind of a declared type ("TEXT(50)", "BOOLEAN", "DATE", "INTEGER", ...); nullptr or ""
// gives kAny.
ColumnKind kindFromDeclaredType(const char* declared);

// A value in its stored form, ready to bind: Null, an integer, a real or a text.
using StoredValue = std::variant<std::monostate, int64_t, double, std::string>;

// Converts a value as the library writes it (text through setField, any Variant through
// setNewField) to the column's stored form. "" and Null store Null (Empty too). Raises 13 for
// a value that the kind can't hold ("abc" in a date column).
StoredValue toStored(ColumnKind kind, const Variant& value);
// Text as setField receives it: the same as toStored on a String.
StoredValue textToStored(ColumnKind kind, std::string_view text);

// Binds a stored value to parameter i (1-based) of a statement.
int bindStored(sqlite3_stmt* stmt, int i, const StoredValue& value);

// The Variant a stored value reads back as in a column of the kind.
Variant storedToVariant(ColumnKind kind, const StoredValue& value);
// Column i of the statement's current row as stored.
StoredValue readStored(sqlite3_stmt* stmt, int i);
// Reads column i of the statement's current row as the kind says. A stored class that doesn't
// fit the kind (a text in an INTEGER column) comes back as it is stored, as text or number.
Variant readColumn(sqlite3_stmt* stmt, int i, ColumnKind kind);

// The stored text of a date: 'YYYY-MM-DD HH:MM:SS'.
std::string dateToStoredText(Date date);
// Reads 'YYYY-MM-DD HH:MM:SS' or 'YYYY-MM-DD'; nothing for any other text.
std::optional<Date> dateFromStoredText(std::string_view text);

}  // namespace nvwm::sqlite
