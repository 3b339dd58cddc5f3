#include "runtime/datetime_functions.h"

#include <gtest/gtest.h>

#include "support/runtime_assertions.h"

namespace nvwm {
namespace {

Date at(int y, int m, int d, int h = 0, int n = 0, int s = 0) {
  return Date::fromParts({y, m, d, h, n, s});
}

TEST(DateTimeFunctionsTest, DateAddByInterval) {
  const struct {
    std::string_view interval;
    double number;
    Date from, expected;
  } cases[] = {
      {"d", 1, at(2026, 11, 23, 9, 30), at(2026, 11, 24, 9, 30)},
      {"d", -1, at(2026, 3, 1), at(2026, 2, 28)},
      {"d", 1.9, at(2026, 3, 1), at(2026, 3, 2)},  // the fraction is dropped
      {"ww", -2, at(2026, 11, 23), at(2026, 11, 9)},
      {"h", -1, at(2026, 11, 24), at(2026, 11, 23, 23, 0)},  // "1 Hr" before midnight
      {"H", 12, at(2026, 11, 23, 18, 0), at(2026, 11, 24, 6, 0)},
      {"n", 90, at(2026, 11, 23, 9, 0), at(2026, 11, 23, 10, 30)},
      {"s", -1, at(2026, 1, 1), at(2025, 12, 31, 23, 59, 59)},
      {"m", 1, at(2026, 1, 31), at(2026, 2, 28)},  // the month's last day
      {"m", 1, at(2024, 1, 31), at(2024, 2, 29)},
      {"q", 1, at(2026, 11, 30, 8, 0), at(2027, 2, 28, 8, 0)},
      {"yyyy", -1, at(2024, 2, 29), at(2023, 2, 28)},
      {"d", -1, at(1899, 12, 30, 6, 0), at(1899, 12, 29, 6, 0)},  // across day 0
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.interval) + " " + std::to_string(c.number));
    EXPECT_EQ(DateAdd(c.interval, c.number, c.from), c.expected);
  }
  EXPECT_RUNTIME_ERROR(DateAdd("x", 1, at(2026, 1, 1)), 5);
  EXPECT_RUNTIME_ERROR(DateAdd("yyyy", 8000, at(2026, 1, 1)), 5);
}

TEST(DateTimeFunctionsTest, DateDiffCountsBoundariesCrossed) {
  const struct {
    std::string_view interval;
    Date first, second;
    int64_t expected;
  } cases[] = {
      {"n", Date::fromTime(9, 0, 0), Date::fromTime(10, 30, 0), 90},
      {"n", Date::fromTime(10, 30, 0), Date::fromTime(9, 0, 0), -90},
      {"n", Date::fromTime(9, 59, 59), Date::fromTime(10, 0, 0), 1},
      {"n", Date::fromTime(23, 0, 0), Date::fromTime(1, 0, 0), -1320},  // day-less times
      {"h", Date::fromTime(9, 59, 0), Date::fromTime(10, 0, 0), 1},
      {"d", at(2026, 11, 23, 23, 0), at(2026, 11, 24, 1, 0), 1},
      {"d", at(2026, 11, 24), at(2026, 11, 23), -1},
      {"w", at(2026, 11, 1), at(2026, 11, 14), 1},
      {"ww", at(2026, 11, 21), at(2026, 11, 22), 1},  // Saturday to Sunday
      {"ww", at(2026, 11, 22), at(2026, 11, 28), 0},
      {"m", at(2026, 1, 31), at(2026, 2, 1), 1},
      {"yyyy", at(2026, 12, 31), at(2027, 1, 1), 1},
      {"q", at(2026, 3, 31), at(2026, 4, 1), 1},
      {"s", at(1899, 12, 29, 23, 59, 59), at(1899, 12, 30), 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.interval) + " " + std::to_string(c.first.serial()));
    EXPECT_EQ(DateDiff(c.interval, c.first, c.second), c.expected);
  }
  EXPECT_EQ(DateDiff("ww", at(2026, 11, 22), at(2026, 11, 23), 2), 1);  // weeks from Monday
  EXPECT_RUNTIME_ERROR(DateDiff("ww", at(2026, 1, 1), at(2026, 2, 1), 8), 5);
}

TEST(DateTimeFunctionsTest, WeekdayFromAChosenFirstDay) {
  const Date sunday = at(2026, 11, 22);
  const Date saturday = at(2026, 11, 28);
  EXPECT_EQ(Weekday(sunday), 1);
  EXPECT_EQ(Weekday(saturday), 7);
  EXPECT_EQ(Weekday(sunday, 0), 1);
  EXPECT_EQ(Weekday(sunday, 2), 7);  // Monday first
  EXPECT_EQ(Weekday(saturday, 7), 1);
  EXPECT_EQ(Weekday(at(1899, 12, 29)), 6);  // before day 0: a Friday
  EXPECT_RUNTIME_ERROR(Weekday(sunday, 8), 5);
}

}  // namespace
}  // namespace nvwm
