// Which rows each list type gives, in order, in Canada (Ontario) and in the United States.
#include <gtest/gtest.h>

#include "catalogue_test_support.h"
#include "expected_field_names.h"

namespace nvwm::testing {
namespace {

using namespace expected;

Names expectedFor(int32_t listType, bool ca, bool use2 = false) {
  Names clientSide = join({contactName(use2), accountingAndSoftware(ca), contactDetail(ca, use2)});
  switch (listType) {
    case 1:
    case 2:
      return join({company(ca, use2), clientSide, firm(ca)});
    case 3:
      return join({contactName(use2), contactDetail(ca, use2), company(ca, use2), firm(ca)});
    case 5:
      return join({kAppointment, calendarCustom("Custom Appt Field "), company(ca, use2),
                   clientSide, firm(ca)});
    case 6:
      return join({kDocket, calendarCustom("Custom Time Entry Field "), company(ca, use2),
                   clientSide, firm(ca)});
    case 8:
      return join({kTaskSchedule, calendarCustom("Custom Task Field "), kTask,
                   calendarCustom("Custom Task Field "), company(ca, use2), clientSide, firm(ca)});
    default:
      return firm(ca);
  }
}

TEST(FieldListByListTypeTest, DisplayNamesInOrderOfAdding) {
  const struct {
    int32_t listType;
    int32_t country;
  } cases[] = {{1, 1}, {2, 1}, {3, 1}, {5, 1}, {6, 1}, {8, 1},
               {1, 2}, {2, 2}, {3, 2}, {5, 2}, {6, 2}, {8, 2}};
  for (const auto& c : cases) {
    SCOPED_TRACE("list type " + std::to_string(c.listType) + ", country " +
                 std::to_string(c.country));
    CatalogueEnvironment env;
    env.locale->setCountryCode(c.country);
    env.locale->setProvinceCode(3);
    auto catalogue = env.build(c.listType);
    EXPECT_EQ(displayNames(*catalogue->FieldListStructure()),
              expectedFor(c.listType, c.country == 1));
    EXPECT_TRUE(env.refs.errors->errors.empty());
  }
}

TEST(FieldListByListTypeTest, ListTypesWithoutClientRowsHoldOnlyTheFirmRows) {
  for (int32_t listType : {4, 7, -1, 0, 9}) {
    SCOPED_TRACE(listType);
    CatalogueEnvironment env;
    auto catalogue = env.build(listType);
    EXPECT_EQ(displayNames(*catalogue->FieldListStructure()), firm(true));
  }
}

TEST(FieldListByListTypeTest, AssignmentListSplitsAddressesAndDropsAbbreviations) {
  for (int32_t country : {1, 2}) {
    SCOPED_TRACE(country);
    CatalogueEnvironment env;
    env.locale->setCountryCode(country);
    auto catalogue = env.build(1, 2);
    EXPECT_EQ(displayNames(*catalogue->FieldListStructure()), expectedFor(1, country == 1, true));
  }
}

TEST(FieldListByListTypeTest, KeysRunFromOneInOrderOfAdding) {
  CatalogueEnvironment env;
  auto catalogue = env.build(1);
  std::vector<DumpedRow> rows = dumpRows(*catalogue->FieldListStructure());
  for (size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(rows[i].key, static_cast<int32_t>(i + 1));
}

TEST(FieldListByListTypeTest, TaskListOffersCustomOneOfBothGroups) {
  CatalogueEnvironment env;
  auto catalogue = env.build(8);
  std::vector<std::string> custom1;
  for (const DumpedRow& row : dumpRows(*catalogue->FieldListStructure())) {
    if (row.columns[1] == "Custom Task Field 1")
      custom1.push_back(row.columns[0] + "/" + row.columns[2]);
  }
  EXPECT_EQ(custom1, (Names{"Custom1/TaskInfo", "TaskCustom1/TaskInfo"}));
}

}  // namespace
}  // namespace nvwm::testing
