#include "runtime/date.h"

#include <gtest/gtest.h>

#include "support/runtime_assertions.h"

namespace nvwm {
namespace {

TEST(DateTest, SerialsOfKnownDays) {
  const struct {
    DateParts parts;
    double serial;
  } cases[] = {
      {{1899, 12, 30}, 0.0},
      {{1899, 12, 31}, 1.0},
      {{1900, 1, 1}, 2.0},
      {{2010, 7, 1}, 40360.0},
      {{2026, 11, 23}, 46349.0},
      {{2026, 11, 23, 12, 0, 0}, 46349.5},
      {{1899, 12, 29, 6, 0, 0}, -1.25},  // before day 0 the time still counts forward
      {{2024, 2, 29}, 45351.0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.serial);
    EXPECT_DOUBLE_EQ(Date::fromParts(c.parts).serial(), c.serial);
    DateParts back = Date(c.serial).parts();
    EXPECT_EQ(back.year, c.parts.year);
    EXPECT_EQ(back.month, c.parts.month);
    EXPECT_EQ(back.day, c.parts.day);
    EXPECT_EQ(back.hour, c.parts.hour);
  }
}

TEST(DateTest, InvalidPartsRaise5) {
  EXPECT_RUNTIME_ERROR(Date::fromYmd(2026, 2, 29), 5);
  EXPECT_RUNTIME_ERROR(Date::fromYmd(2026, 13, 1), 5);
  EXPECT_RUNTIME_ERROR(Date::fromYmd(2026, 1, 32), 5);
  EXPECT_RUNTIME_ERROR(Date::fromTime(24, 0, 0), 5);
}

TEST(DateTest, SerialRollsMonthsAndDaysOver) {
  EXPECT_EQ(Date::serial(2026, 13, 1), Date::fromYmd(2027, 1, 1));
  EXPECT_EQ(Date::serial(2026, 3, 0), Date::fromYmd(2026, 2, 28));
  EXPECT_EQ(Date::serial(2026, 0, 1), Date::fromYmd(2025, 12, 1));
}

TEST(DateTest, WeekdayCountsFromSunday) {
  EXPECT_EQ(Date::fromYmd(2026, 11, 22).weekday(), 1);  // Sunday
  EXPECT_EQ(Date::fromYmd(2026, 11, 28).weekday(), 7);  // Saturday
}

TEST(DateTest, AddDaysKeepsTheTimeAcrossDayZero) {
  Date d = Date::fromParts({1899, 12, 30, 6, 0, 0});
  Date earlier = d.addDays(-1);
  EXPECT_DOUBLE_EQ(earlier.serial(), -1.25);
  EXPECT_EQ(earlier.addDays(1), d);
}

}  // namespace
}  // namespace nvwm
