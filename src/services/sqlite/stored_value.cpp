#include "services/sqlite/stored_value.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <limits>

#include "runtime/ascii.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace nvwm::sqlite {
namespace {

std::string upperAscii(std::string_view s) { return toAsciiUpper(s); }

[[noreturn]] void cannotStore(ColumnKind kind, std::string_view text) {
  const char* what = "a value";
  switch (kind) {
    case ColumnKind::kBoolean:
      what = "a yes/no value";
      break;
    case ColumnKind::kDate:
      what = "a date";
      break;
    case ColumnKind::kInteger:
    case ColumnKind::kLong:
    case ColumnKind::kSingle:
    case ColumnKind::kDouble:
    case ColumnKind::kCurrency:
      what = "a number";
      break;
    default:
      break;
  }
  raise(ErrorNumber::kTypeMismatch, "\"" + std::string(text) + "\" is not " + what);
}

StoredValue numberToStored(ColumnKind kind, double n) {
  switch (kind) {
    case ColumnKind::kInteger:
      return static_cast<int64_t>(CInt(Variant(n)));
    case ColumnKind::kLong:
      return static_cast<int64_t>(CLng(Variant(n)));
    case ColumnKind::kCurrency:
      return CCur(Variant(n)).toDouble();
    case ColumnKind::kSingle:
      return static_cast<double>(CSng(Variant(n)));
    default:
      return n;
  }
}

// A whole number stays an integer when the column's kind doesn't say otherwise.
StoredValue anyNumber(double n) {
  if (std::trunc(n) == n && std::fabs(n) < 9.0e15) return static_cast<int64_t>(n);
  return n;
}

}  // namespace

ColumnKind kindFromDeclaredType(const char* declared) {
  if (declared == nullptr || *declared == '\0') return ColumnKind::kAny;
  std::string t = upperAscii(declared);
  if (auto p = t.find('('); p != std::string::npos) t.resize(p);
  while (!t.empty() && t.back() == ' ') t.pop_back();
  if (t == "BOOLEAN" || t == "BOOL" || t == "BIT" || t == "YESNO" || t == "LOGICAL")
    return ColumnKind::kBoolean;
  if (t == "DATE" || t == "TIME" || t == "DATETIME" || t == "TIMESTAMP") return ColumnKind::kDate;
  if (t == "SMALLINT" || t == "SHORT" || t == "TINYINT") return ColumnKind::kInteger;
  if (t.find("INT") != std::string::npos) return ColumnKind::kLong;
  if (t == "FLOAT" || t == "SINGLE" || t == "REAL4") return ColumnKind::kSingle;
  if (t == "REAL" || t == "DOUBLE" || t == "DOUBLE PRECISION" || t == "NUMERIC" || t == "DECIMAL")
    return ColumnKind::kDouble;
  if (t == "CURRENCY" || t == "MONEY") return ColumnKind::kCurrency;
  if (t.find("CHAR") != std::string::npos || t.find("TEXT") != std::string::npos ||
      t.find("CLOB") != std::string::npos || t == "MEMO")
    return ColumnKind::kString;
  return ColumnKind::kAny;
}

StoredValue textToStored(ColumnKind kind, std::string_view text) {
  if (kind == ColumnKind::kString) return std::string(text);
  std::string_view t = trimAsciiBlanks(text);
  if (kind == ColumnKind::kAny) {
    if (auto n = TryParseNumber(t); n && !t.empty()) return anyNumber(*n);
    return std::string(text);
  }
  if (t.empty()) return std::monostate{};
  switch (kind) {
    case ColumnKind::kBoolean: {
      if (equalsIgnoringAsciiCase(t, "True") || equalsIgnoringAsciiCase(t, "Yes") ||
          equalsIgnoringAsciiCase(t, "On"))
        return int64_t{1};
      if (equalsIgnoringAsciiCase(t, "False") || equalsIgnoringAsciiCase(t, "No") ||
          equalsIgnoringAsciiCase(t, "Off"))
        return int64_t{0};
      if (auto n = TryParseNumber(t)) return int64_t{*n != 0.0 ? 1 : 0};
      cannotStore(kind, text);
    }
    case ColumnKind::kDate: {
      if (auto d = TryParseDate(t)) return dateToStoredText(*d);
      if (auto n = TryParseNumber(t)) return dateToStoredText(CDate(Variant(*n)));
      cannotStore(kind, text);
    }
    default: {
      if (equalsIgnoringAsciiCase(t, "True")) return numberToStored(kind, -1.0);
      if (equalsIgnoringAsciiCase(t, "False")) return numberToStored(kind, 0.0);
      auto n = TryParseNumber(t);
      if (!n) cannotStore(kind, text);
      return numberToStored(kind, *n);
    }
  }
}

StoredValue toStored(ColumnKind kind, const Variant& value) {
  switch (value.type()) {
    case VarType::kEmpty:
    case VarType::kNull:
      return std::monostate{};
    case VarType::kString:
      return textToStored(kind, value.stringValue());
    case VarType::kBoolean:
      if (kind == ColumnKind::kBoolean) return int64_t{value.boolValue() ? 1 : 0};
      if (kind == ColumnKind::kString) return std::string(value.boolValue() ? "True" : "False");
      return numberToStored(kind == ColumnKind::kAny ? ColumnKind::kLong : kind,
                            value.boolValue() ? -1.0 : 0.0);
    case VarType::kDate:
      if (kind == ColumnKind::kDate || kind == ColumnKind::kAny)
        return dateToStoredText(value.dateValue());
      if (kind == ColumnKind::kString) return CStr(value);
      if (kind == ColumnKind::kBoolean) return int64_t{value.dateValue().serial() != 0.0};
      return numberToStored(kind, value.dateValue().serial());
    case VarType::kObject:
    case VarType::kError:
      raise(ErrorNumber::kTypeMismatch, "not a value a column can hold");
    default:
      break;  // numbers
  }
  double n = CDbl(value);
  switch (kind) {
    case ColumnKind::kBoolean:
      return int64_t{n != 0.0 ? 1 : 0};
    case ColumnKind::kDate:
      return dateToStoredText(CDate(value));
    case ColumnKind::kString:
      return CStr(value);
    case ColumnKind::kAny:
      return value.type() == VarType::kInteger || value.type() == VarType::kLong
                 ? StoredValue(int64_t{CLng(value)})
                 : StoredValue(n);
    default:
      return numberToStored(kind, n);
  }
}

int bindStored(sqlite3_stmt* stmt, int i, const StoredValue& value) {
  if (std::holds_alternative<int64_t>(value))
    return sqlite3_bind_int64(stmt, i, std::get<int64_t>(value));
  if (std::holds_alternative<double>(value))
    return sqlite3_bind_double(stmt, i, std::get<double>(value));
  if (std::holds_alternative<std::string>(value)) {
    const std::string& s = std::get<std::string>(value);
    return sqlite3_bind_text(stmt, i, s.data(), static_cast<int>(s.size()), SQLITE_TRANSIENT);
  }
  return sqlite3_bind_null(stmt, i);
}

std::string dateToStoredText(Date date) {
  DateParts p = date.parts();
  char buf[32];
  std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:%02d", p.year, p.month, p.day, p.hour,
                p.minute, p.second);
  return buf;
}

std::optional<Date> dateFromStoredText(std::string_view s) {
  auto digits = [&](size_t at, size_t n, int& out) {
    if (at + n > s.size()) return false;
    int v = 0;
    for (size_t i = at; i < at + n; ++i) {
      if (s[i] < '0' || s[i] > '9') return false;
      v = v * 10 + (s[i] - '0');
    }
    out = v;
    return true;
  };
  DateParts p;
  if (!(s.size() == 10 || s.size() == 19)) return std::nullopt;
  if (!digits(0, 4, p.year) || s[4] != '-' || !digits(5, 2, p.month) || s[7] != '-' ||
      !digits(8, 2, p.day))
    return std::nullopt;
  if (s.size() == 19) {
    if ((s[10] != ' ' && s[10] != 'T') || !digits(11, 2, p.hour) || s[13] != ':' ||
        !digits(14, 2, p.minute) || s[16] != ':' || !digits(17, 2, p.second))
      return std::nullopt;
  }
  if (p.month < 1 || p.month > 12 || p.day < 1 || p.day > daysInMonth(p.year, p.month) ||
      p.hour > 23 || p.minute > 59 || p.second > 59 || p.year < 100)
    return std::nullopt;
  return Date::fromParts(p);
}

Variant storedToVariant(ColumnKind kind, const StoredValue& value) {
  auto asLong = [](int64_t v) -> Variant {
    if (v < std::numeric_limits<int32_t>::min() || v > std::numeric_limits<int32_t>::max())
      return Variant(static_cast<double>(v));
    return Variant(static_cast<int32_t>(v));
  };
  if (std::holds_alternative<std::monostate>(value)) return Variant::null();
  if (const std::string* text = std::get_if<std::string>(&value)) {
    if (kind == ColumnKind::kDate) {
      if (auto d = dateFromStoredText(*text)) return Variant(*d);
    }
    return Variant(*text);
  }
  bool isInt = std::holds_alternative<int64_t>(value);
  double n = isInt ? static_cast<double>(std::get<int64_t>(value)) : std::get<double>(value);
  switch (kind) {
    case ColumnKind::kString:
      return Variant(CStr(isInt ? asLong(std::get<int64_t>(value)) : Variant(n)));
    case ColumnKind::kBoolean:
      return Variant(n != 0.0);
    case ColumnKind::kDate:
      return Variant(Date(n));
    case ColumnKind::kInteger:
      if (isInt && n >= INT16_MIN && n <= INT16_MAX) return Variant(static_cast<int16_t>(n));
      break;
    case ColumnKind::kLong:
      if (isInt) return asLong(std::get<int64_t>(value));
      break;
    case ColumnKind::kSingle:
      // A stored number beyond a Single's range comes back whole, as a Double.
      if (std::fabs(n) <= std::numeric_limits<float>::max()) return Variant(static_cast<float>(n));
      return Variant(n);
    case ColumnKind::kDouble:
      return Variant(n);
    case ColumnKind::kCurrency:
      return Variant(CCur(Variant(n)));
    case ColumnKind::kAny:
      break;
  }
  return isInt ? asLong(std::get<int64_t>(value)) : Variant(n);
}

StoredValue readStored(sqlite3_stmt* stmt, int i) {
  switch (sqlite3_column_type(stmt, i)) {
    case SQLITE_NULL:
      return std::monostate{};
    case SQLITE_INTEGER:
      return static_cast<int64_t>(sqlite3_column_int64(stmt, i));
    case SQLITE_FLOAT:
      return sqlite3_column_double(stmt, i);
    default: {
      const unsigned char* t = sqlite3_column_text(stmt, i);
      return std::string(reinterpret_cast<const char*>(t), sqlite3_column_bytes(stmt, i));
    }
  }
}

Variant readColumn(sqlite3_stmt* stmt, int i, ColumnKind kind) {
  int type = sqlite3_column_type(stmt, i);
  if (type == SQLITE_NULL) return Variant::null();
  if (type == SQLITE_INTEGER && (kind == ColumnKind::kLong || kind == ColumnKind::kAny)) {
    int64_t v = sqlite3_column_int64(stmt, i);
    if (v >= std::numeric_limits<int32_t>::min() && v <= std::numeric_limits<int32_t>::max())
      return Variant(static_cast<int32_t>(v));
  }
  if (type == SQLITE_TEXT && kind == ColumnKind::kString) {
    const unsigned char* t = sqlite3_column_text(stmt, i);
    return Variant(std::string(reinterpret_cast<const char*>(t), sqlite3_column_bytes(stmt, i)));
  }
  return storedToVariant(kind, readStored(stmt, i));
}

}  // namespace nvwm::sqlite
