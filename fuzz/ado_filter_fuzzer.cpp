// ADO filter text of any kind against a recordset of every column kind: a filtered set of rows
// or error 3001, never a crash, however deep or long the filter.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "runtime/error.h"
#include "services/sqlite/ado_filter.h"
#include "services/sqlite/recordset.h"

using namespace nvwm;
using namespace nvwm::sqlite;

namespace {

Recordset makeRecordset() {
  Recordset rs;
  const struct {
    const char* name;
    ColumnKind kind;
  } columns[] = {
      {"Name", ColumnKind::kString},    {"Count", ColumnKind::kLong},
      {"Small", ColumnKind::kInteger},  {"Amount", ColumnKind::kDouble},
      {"Hours", ColumnKind::kSingle},   {"Fee", ColumnKind::kCurrency},
      {"Due", ColumnKind::kDate},       {"Closed", ColumnKind::kBoolean},
      {"Notes Text", ColumnKind::kAny},
  };
  for (const auto& c : columns) {
    Column column;
    column.name = c.name;
    column.origin = c.name;
    column.table = "T";
    column.kind = c.kind;
    rs.columns.push_back(column);
  }
  rs.nameColumns();
  const Variant rows[][9] = {
      {Variant("O'Malley & Sons"), Variant(int32_t{3}), Variant(int16_t{-2}), Variant(12.5),
       Variant(1.5f), Variant(Currency{125000}), Variant(Date(46349.5)), Variant(true),
       Variant("{\\rtf1 x}")},
      {Variant("Société Générale"), Variant(int32_t{-7}), Variant(int16_t{0}), Variant(-0.0),
       Variant(0.25f), Variant(Currency{0}), Variant(Date(-1.25)), Variant(false),
       Variant(int32_t{5})},
      {Variant::null(), Variant::null(), Variant::null(), Variant::null(), Variant::null(),
       Variant::null(), Variant::null(), Variant::null(), Variant::null()},
  };
  for (const auto& row : rows) {
    for (const Variant& v : row) rs.cells.push_back(v);
    ++rs.rowCount;
  }
  return rs;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const Recordset rs = makeRecordset();
  try {
    AdoFilter filter =
        AdoFilter::parse(std::string_view(reinterpret_cast<const char*>(data), size), rs);
    for (size_t r = 0; r < rs.rowCount; ++r) (void)filter.matches(rs, r);
  } catch (const RuntimeError&) {
  }
  return 0;
}
