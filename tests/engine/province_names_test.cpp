// getAbbreviatedProvince and getFullProvinceString over tests/engine/data/province_names.tsv.
#include <gtest/gtest.h>

#include "engine/engine_test_support.h"

namespace nvwm::testing {
namespace {

class ProvinceNamesTest : public EngineTest {};

TEST_F(ProvinceNamesTest, ShortFormAndFullNameOfEveryWord) {
  std::vector<TableRow> rows = readTable("province_names.tsv", 3);
  EXPECT_GE(rows.size(), 50u);
  for (const TableRow& row : rows) {
    std::string province = row.cells[0];
    SCOPED_TRACE("province_names.tsv:" + std::to_string(row.line) + " \"" + province + "\"");
    EXPECT_EQ(rtb->getAbbreviatedProvince(province), row.cells[1]);
    EXPECT_EQ(rtb->getFullProvinceString(province), row.cells[2]);
    EXPECT_EQ(province, row.cells[0]);  // the argument is left alone
  }
  EXPECT_TRUE(env.refs.errors->errors.empty());
}

TEST_F(ProvinceNamesTest, InvalidUtf8ComesBackUnchanged) {
  std::string province = "ON\xff";
  EXPECT_EQ(rtb->getAbbreviatedProvince(province), "ON\xff");
  EXPECT_EQ(rtb->getFullProvinceString(province), "ON\xff");
}

}  // namespace
}  // namespace nvwm::testing
