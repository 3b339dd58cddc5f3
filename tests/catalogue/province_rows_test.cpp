// The tax and payroll rows that follow the firm's province and the date.
#include <gtest/gtest.h>

#include "catalogue_test_support.h"
#include "runtime/convert.h"

namespace nvwm::testing {
namespace {

// The display names of the accounting rows (from "Business Number" to the custom block).
std::vector<std::string> accountingNames(clsInsertFieldsInRTB& catalogue) {
  std::vector<std::string> names;
  bool in = false;
  for (const std::string& name : displayNames(*catalogue.FieldListStructure())) {
    if (name == "Business Number") in = true;
    if (name == "Custom Field 1") break;
    if (in) names.push_back(name);
  }
  return names;
}

std::vector<std::string> rowsFor(int32_t province, Date today) {
  CatalogueEnvironment env(today);
  env.locale->setProvinceCode(province);
  return accountingNames(*env.build(1));
}

TEST(ProvinceRowsTest, TaxBoardAndShortNamesByProvince) {
  const Date after = Date::fromYmd(2026, 3, 15);
  const struct {
    int32_t province;
    const char* tax1;
    const char* tax2;
    const char* board;
    const char* shortName;
  } cases[] = {
      {0, "GST", "PST", "WCB", "Alberta"},  {1, "HST", "PST", "WCB", "BC"},
      {2, "GST", "PST", "WCB", "Manitoba"}, {3, "HST", "PST", "WSIB", "ON"},
      {4, "GST", "PST", "WCB", "Sask."},    {5, "GST", "PST", "WSIB", "ON"},
      {6, "GST", "PST", "WSIB", "ON"},      {7, "GST", "PST", "WSIB", "ON"},
      {8, "GST", "QST", "CSST", "Que."},    {9, "HST", "PST", "WCB", "N.S."},
      {10, "HST", "PST", "WHSCC", "N.B."},  {11, "HST", "PST", "WHSCC", "Nfld."},
      {12, "GST", "PST", "WCB", "P.E.I."},  {42, "GST", "PST", "WSIB", "ON"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.province);
    std::string t1 = c.tax1, t2 = c.tax2, b = c.board, s = c.shortName;
    std::vector<std::string> expected = {"Business Number",      "RC59 Permission Level",
                                         "RC59 Form Status",     t1 + " Number",
                                         t1 + " Filing Method",  t2 + " Number",
                                         "Payroll Number",       "Payroll Registered As",
                                         "Year End Date",        "Federal Corp. Tax Number",
                                         s + " Corp. Tax Number"};
    if (c.province == 8) expected.push_back("Quebec ID Number");
    if (c.province == 3) expected.push_back("ON Corp. MCBS Number");
    expected.insert(expected.end(), {"Incorporation Date", "Charitable Number"});
    expected.push_back(c.province == 8 ? "NEQ Number" : b + " Number");
    if (c.province == 3) expected.push_back(b + " Firm Number");
    expected.insert(expected.end(),
                    {b + " Premium Rate", b + " Coverage", "EHT Number", "EHT Premium Rate",
                     "Name Renewal Date", "Law Society Member Number"});
    EXPECT_EQ(rowsFor(c.province, after), expected);
  }
}

TEST(ProvinceRowsTest, HarmonizedTaxFromFirstOfJuly2010) {
  const struct {
    int32_t province;
    Date today;
    const char* taxRow;
  } cases[] = {
      {3, Date::fromYmd(2010, 6, 30), "GST Number"},
      {3, Date::fromYmd(2010, 7, 1), "HST Number"},
      {1, Date::fromYmd(2010, 6, 30), "GST Number"},
      {1, Date::fromYmd(2010, 7, 1), "HST Number"},
      {3, Date(Date::fromYmd(2010, 6, 30).serial() + 0.999), "GST Number"},  // late evening
      {9, Date::fromYmd(2009, 1, 1), "HST Number"},
      {0, Date::fromYmd(2030, 1, 1), "GST Number"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.province) + " on " + std::to_string(c.today.serial()));
    std::vector<std::string> rows = rowsFor(c.province, c.today);
    ASSERT_GT(rows.size(), 3u);
    EXPECT_EQ(rows[3], c.taxRow);
  }
}

TEST(ProvinceRowsTest, TaxRowKeepsItsDatabaseFieldWhenItsNameChanges) {
  for (Date today : {Date::fromYmd(2010, 6, 30), Date::fromYmd(2010, 7, 1)}) {
    CatalogueEnvironment env(today);
    auto catalogue = env.build(1);
    IDList& list = *catalogue->FieldListStructure();
    int32_t key = list.findRow(1, Variant("GSTNumber"));
    ASSERT_GT(key, 0);
    list.moveToKey(key);
    EXPECT_EQ(CStr(list.getColumn(2)), today.day() == 1 ? "HST Number" : "GST Number");
  }
}

}  // namespace
}  // namespace nvwm::testing
