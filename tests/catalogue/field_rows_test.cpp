// The rows of the catalogue beyond the golden lists (data/fields-*.tsv): the samples that
// carry the year of the clock, and the repeated display name that findRow meets first.
#include <gtest/gtest.h>

#include "catalogue_test_support.h"

namespace nvwm::testing {
namespace {

// The first row with that display name.
const DumpedRow* findRow(const std::vector<DumpedRow>& rows, const std::string& name) {
  for (const DumpedRow& row : rows) {
    if (row.columns[1] == name) return &row;
  }
  return nullptr;
}

TEST(FieldRowsTest, SecondTaskCalendarDateStandsBehindTheFirst) {
  CatalogueEnvironment env;
  auto catalogue = env.build(8);
  std::vector<std::string> fields;
  for (const DumpedRow& row : dumpRows(*catalogue->FieldListStructure())) {
    if (row.columns[1] == "Task Calendar Date") fields.push_back(row.columns[0]);
  }
  EXPECT_EQ(fields, (std::vector<std::string>{"CalendarDate", "DateFrom"}));
  EXPECT_EQ(catalogue->FieldListStructure()->findRow(2, Variant("Task Calendar Date")), 4);
}

TEST(FieldRowsTest, SamplesFollowTheYearOfTheClock) {
  CatalogueEnvironment env(Date::fromYmd(2031, 1, 2));
  auto catalogue = env.build(8);
  std::vector<DumpedRow> rows = dumpRows(*catalogue->FieldListStructure());
  EXPECT_EQ(findRow(rows, "Task Year")->columns[4], "2031");
  EXPECT_EQ(findRow(rows, "Task Due Date")->columns[4], "Jan 31, 2031");
  EXPECT_EQ(findRow(rows, "Year End Date")->columns[4], "03/31/2031");
}

}  // namespace
}  // namespace nvwm::testing
