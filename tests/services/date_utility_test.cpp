#include "services/date_utility.h"

#include <gtest/gtest.h>

#include "runtime/convert.h"
#include "support/test_support.h"

namespace nvwm {
namespace {

Date at(int y, int mo, int d, int h = 0, int mi = 0, int s = 0) {
  return Date::fromParts({y, mo, d, h, mi, s});
}

TEST(DateUtilityTest, MinutesToDurationText) {
  StandardDateUtility utility;
  const struct {
    int32_t minutes;
    const char* text;
  } cases[] = {
      {0, "0 min"},
      {1, "1 min"},
      {31, "31 min"},
      {59, "59 min"},
      {60, "1 hr"},
      {61, "1 hr 1 min"},
      {90, "1 hr 30 min"},
      {120, "2 hrs"},
      {125, "2 hrs 5 min"},
      {1500, "25 hrs"},
      {-90, "-1 hr 30 min"},
      {-5, "-5 min"},
      {INT32_MIN, "-35791394 hrs 8 min"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.minutes);
    EXPECT_EQ(utility.minutesToDurationText(c.minutes), c.text);
  }
}

TEST(DateUtilityTest, IsWeekendAndAdjustReminderDateGoBackToFriday) {
  StandardDateUtility utility;
  const struct {
    Date date;
    bool weekend;
    Date adjusted;
  } cases[] = {
      {at(2026, 11, 21), true, at(2026, 11, 20)},                 // Saturday
      {at(2026, 11, 22), true, at(2026, 11, 20)},                 // Sunday
      {at(2026, 11, 22, 23, 0), true, at(2026, 11, 20, 23, 0)},   // time kept
      {at(2026, 11, 23, 23, 0), false, at(2026, 11, 23, 23, 0)},  // Monday stays
      {at(2026, 11, 20), false, at(2026, 11, 20)},                // Friday stays
      {at(2028, 1, 1), true, at(2027, 12, 31)},                   // across a year
      {at(2026, 3, 1), true, at(2026, 2, 27)},                    // across a month
      {Date(), true, at(1899, 12, 29)},                           // 1899-12-30 was a Saturday
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(CStr(Variant(c.date)));
    EXPECT_EQ(utility.isWeekend(c.date), c.weekend);
    EXPECT_EQ(utility.adjustReminderDate(c.date), c.adjusted);
  }
}

TEST(DateUtilityTest, GetDateOnlyDropsTheTime) {
  StandardDateUtility utility;
  EXPECT_EQ(utility.getDateOnly(at(2026, 11, 23, 23, 59, 59)), at(2026, 11, 23));
  EXPECT_EQ(utility.getDateOnly(at(2026, 11, 23)), at(2026, 11, 23));
  EXPECT_EQ(utility.getDateOnly(Date::fromTime(9, 30, 0)), Date());
  EXPECT_EQ(utility.getDateOnly(at(1899, 12, 29, 6, 0)), at(1899, 12, 29));  // serial -1.25
}

TEST(DateUtilityTest, AddHoursToTime) {
  StandardDateUtility utility;
  const struct {
    Date time;
    double hours;
    Date expected;
  } cases[] = {
      {Date::fromTime(9, 0, 0), 1.5, Date::fromTime(10, 30, 0)},
      {Date::fromTime(9, 0, 0), 0.0, Date::fromTime(9, 0, 0)},
      {Date::fromTime(9, 0, 0), -0.25, Date::fromTime(8, 45, 0)},
      {at(2026, 11, 23, 23, 0), 2.0, at(2026, 11, 24, 1, 0)},
      {at(2026, 11, 23, 9, 0), static_cast<double>(1.3f), at(2026, 11, 23, 10, 18)},
      {at(1899, 12, 29, 6, 0), 1.0, at(1899, 12, 29, 7, 0)},  // before day 0
      {at(1899, 12, 29, 23, 0), 2.0, at(1899, 12, 30, 1, 0)},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(CStr(Variant(c.time)) + " + " + std::to_string(c.hours));
    EXPECT_EQ(utility.addHoursToTime(c.time, c.hours), c.expected);
  }
  EXPECT_RUNTIME_ERROR(utility.addHoursToTime(at(9999, 12, 31), 48.0), 5);
}

TEST(DateUtilityTest, GetHoursBetweenIsNeverNegative) {
  StandardDateUtility utility;
  const struct {
    Date first;
    Date second;
    double hours;
  } cases[] = {
      {Date::fromTime(9, 0, 0), Date::fromTime(10, 30, 0), 1.5},
      {Date::fromTime(10, 30, 0), Date::fromTime(9, 0, 0), 1.5},
      {Date::fromTime(9, 0, 0), Date::fromTime(9, 0, 0), 0.0},
      {at(2026, 11, 23, 22, 0), at(2026, 11, 24, 1, 0), 3.0},
      {at(1899, 12, 29, 18, 0), at(1899, 12, 30, 6, 0), 12.0},  // across day 0
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(CStr(Variant(c.first)) + " / " + CStr(Variant(c.second)));
    EXPECT_DOUBLE_EQ(utility.getHoursBetween(c.first, c.second), c.hours);
  }
}

}  // namespace
}  // namespace nvwm
