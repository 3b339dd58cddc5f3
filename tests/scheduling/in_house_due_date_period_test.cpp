// How many days before a due date the in-house due date lies.
#include <gtest/gtest.h>

#include "scheduling/notification_periods.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::SchedulingFixture;

TEST(ParseInHouseDueDatePeriodTest, NumbersWithinAYearStandOthersAreReplaced) {
  const struct {
    const char* text;
    int16_t expected;
  } cases[] = {
      {"abc", 3},   {"", 3},      {"400", 3},    {"-400", -3},       {"-365", -365},
      {"365", 365}, {"366", 3},   {"-366", -3},  {"0", 0},           {"5", 5},
      {"-3", -3},   {"2.5", 2},   {"3.5", 4},    {" 7 ", 7},         {"1e3", 3},
      {"32767", 3}, {"32768", 0}, {"-40000", 0}, {"99999999999", 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(scheduling::parseInHouseDueDatePeriod(c.text), c.expected);
  }
}

TEST(InHouseDueDatePeriodTest, ReadsTheTypeRowAndMakesItNegativeUnlessAskedNotTo) {
  const struct {
    const char* name;
    const char* stored;  // InHouseDueDatePeriod of the row of 111; nullptr: no row
    bool keepSign;
    int16_t expected;
  } cases[] = {
      {"no row", nullptr, false, -3},
      {"no row, sign kept", nullptr, true, 3},
      {"positive", "5", false, -5},
      {"positive, sign kept", "5", true, 5},
      {"negative", "-7", false, -7},
      {"negative, sign kept", "-7", true, -7},
      {"zero", "0", false, 0},
      {"Null", "NULL", false, -3},
      {"not a number", "'abc'", false, -3},
      {"beyond a year", "500", true, 3},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    SchedulingFixture f;
    if (c.stored) {
      f.exec(std::string("INSERT INTO ScheduleTypes (TotalNum, ScheduleNum, InHouseDueDatePeriod) "
                         "VALUES (111, NULL, ") +
             c.stored + ");");
    }
    f.exec(
        "INSERT INTO ScheduleTypes (TotalNum, ScheduleNum, InHouseDueDatePeriod) VALUES "
        "(111, 2, 9);");
    EXPECT_EQ(getInHouseDueDatePeriod(111, -1, c.keepSign), c.expected);
    EXPECT_TRUE(f.errorNumbers().empty());
  }
}

TEST(InHouseDueDatePeriodTest, AScheduleNumPicksItsOwnRow) {
  SchedulingFixture f;
  f.exec(
      "INSERT INTO ScheduleTypes (TotalNum, ScheduleNum, InHouseDueDatePeriod) VALUES "
      "(113, NULL, 4), (113, 2, 9);");
  EXPECT_EQ(getInHouseDueDatePeriod(113, 2, true), 9);
  EXPECT_EQ(getInHouseDueDatePeriod(113, -1, true), 4);
  EXPECT_EQ(f.db().sqlSent(),
            (std::vector<std::string>{
                "SELECT ScheduleTypes.* FROM ScheduleTypes WHERE ScheduleTypes.TotalNum=113 AND "
                "ScheduleTypes.ScheduleNum=2;",
                "SELECT ScheduleTypes.* FROM ScheduleTypes WHERE ScheduleTypes.TotalNum=113 AND "
                "ScheduleTypes.ScheduleNum Is Null;"}));
  EXPECT_EQ(f.errors().entered.front(),
            "Tallowbrook.exe-modNotifiationPeriods-getInHouseDueDatePeriod");
}

TEST(InHouseDueDatePeriodTest, NotConnectedGivesMinusThree) {
  SchedulingFixture f;
  f.db().connected = false;
  EXPECT_EQ(getInHouseDueDatePeriod(111, -1, false), -3);
  EXPECT_TRUE(f.db().queries.empty());
}

}  // namespace
}  // namespace nvwm
