#include "services/sqlite/recordset.h"

#include <cmath>
#include <functional>
#include <limits>

#include "runtime/ascii.h"
#include "runtime/convert.h"

namespace nvwm::sqlite {

std::string foldAscii(std::string_view s) { return toAsciiLower(s); }

size_t ValueKeyHash::operator()(const ValueKey& k) const noexcept {
  if (k.tag == ValueKey::kText) return std::hash<std::string>{}(k.text);
  return std::hash<double>{}(k.number) ^ (static_cast<size_t>(k.tag) << 1);
}

std::optional<ValueKey> keyOf(const Variant& v) {
  ValueKey k;
  switch (v.type()) {
    case VarType::kEmpty:
    case VarType::kNull:
    case VarType::kError:
    case VarType::kObject:
      return std::nullopt;
    case VarType::kString:
      k.tag = ValueKey::kText;
      k.text = foldAscii(v.stringValue());
      return k;
    case VarType::kDate:
      // Stored dates are whole seconds; a computed one may be off by a rounding error.
      k.tag = ValueKey::kDate;
      k.number = std::round(v.dateValue().serial() * 86400.0);
      return k;
    default:
      k.number = CDbl(v);
      if (k.number == 0.0) k.number = 0.0;  // -0 and 0 are one key
      return k;
  }
}

Variant coerceToKind(const Variant& v, ColumnKind kind) {
  if (v.isNull() || v.isEmpty()) return v;
  switch (kind) {
    case ColumnKind::kString:
      if (!v.isString()) return Variant(CStr(v));
      return v;
    case ColumnKind::kDate:
      if (auto d = TryCDate(v)) return Variant(*d);
      return v;
    case ColumnKind::kSingle:
      if (auto n = TryCDbl(v); n && std::fabs(*n) <= std::numeric_limits<float>::max())
        return Variant(static_cast<float>(*n));
      return v;
    case ColumnKind::kBoolean:
    case ColumnKind::kInteger:
    case ColumnKind::kLong:
    case ColumnKind::kDouble:
    case ColumnKind::kCurrency:
      if (v.isString()) {
        if (auto n = TryParseNumber(v.stringValue())) return Variant(*n);
        return v;
      }
      if (v.isDate()) return Variant(v.dateValue().serial());
      return v;
    case ColumnKind::kAny:
      return v;
  }
  return v;
}

int Recordset::find(std::string_view name) const {
  auto it = byName.find(foldAscii(name));
  return it == byName.end() ? -1 : it->second;
}

void Recordset::nameColumns() {
  std::unordered_map<std::string, int> count;
  for (const Column& c : columns) ++count[foldAscii(c.name)];
  for (Column& c : columns) {
    if (count[foldAscii(c.name)] > 1 && !c.table.empty()) c.name = c.table + "." + c.origin;
  }
  byName.clear();
  for (size_t i = 0; i < columns.size(); ++i) {
    std::string folded = foldAscii(columns[i].name);
    // A bare name left repeated (two expressions with one AS name) is not found, as Jet's
    // own lookups would not know which one was meant.
    if (count[folded] > 1 && columns[i].table.empty()) continue;
    byName.emplace(std::move(folded), static_cast<int>(i));
  }
}

}  // namespace nvwm::sqlite
