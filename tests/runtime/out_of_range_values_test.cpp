// Values no calendar or digit string can show: serials outside the OLE date range, NaN and the
// infinities. They raise Overflow (6), never a made-up date or number.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "runtime/convert.h"
#include "runtime/date.h"
#include "runtime/format.h"
#include "support/runtime_assertions.h"

namespace nvwm {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// This was "30 December 1899": Date::parts turned 1e300 into a day count with undefined
// behaviour.
TEST(OutOfRangeValuesTest, SerialsOutsideTheDateRangeHaveNoParts) {
  const double cases[] = {1e300, -1e300, kNaN, kInf, -kInf, 2958466.0, -657435.0, 1e10};
  for (double serial : cases) {
    SCOPED_TRACE(serial);
    EXPECT_RUNTIME_ERROR(Date(serial).parts(), 6);
    EXPECT_RUNTIME_ERROR(Date(serial).weekday(), 6);
    EXPECT_RUNTIME_ERROR(Date(serial).datePart(), 6);
    EXPECT_FALSE(Date(serial).inRange());
  }
}

TEST(OutOfRangeValuesTest, TheEndsOfTheRangeStillHaveParts) {
  DateParts first = Date(-657434.0).parts();
  EXPECT_EQ(first.year, 100);
  EXPECT_EQ(first.month, 1);
  EXPECT_EQ(first.day, 1);
  DateParts last = Date(2958465.99998).parts();
  EXPECT_EQ(last.year, 9999);
  EXPECT_EQ(last.month, 12);
  EXPECT_EQ(last.day, 31);
  EXPECT_EQ(last.hour, 23);
}

TEST(OutOfRangeValuesTest, DateSerialOfExtremeArgumentsRaises5) {
  const struct {
    int y, m, d;
  } cases[] = {
      {INT_MAX, INT_MAX, INT_MAX}, {INT_MIN, INT_MIN, INT_MIN}, {2026, 1, INT_MAX},
      {2026, 1, INT_MIN},          {2026, INT_MAX, 1},          {9999, 12, 32},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.y << "/" << c.m << "/" << c.d);
    EXPECT_RUNTIME_ERROR(Date::serial(c.y, c.m, c.d), 5);
  }
}

TEST(OutOfRangeValuesTest, FormatOfNonFiniteNumbersRaises6) {
  const struct {
    double value;
    const char* pattern;
  } cases[] = {
      {kNaN, "0.00"},     {kInf, "#,##0"},       {-kInf, "$#,##0.00;$-#,##0.00"},
      {kNaN, "0.00E+00"}, {kInf, "Currency"},    {kNaN, "General Number"},
      {1e308, "0%"},      {kNaN, "d mmmm yyyy"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.value << " " << c.pattern);
    EXPECT_RUNTIME_ERROR(Format(Variant(c.value), c.pattern), 6);
  }
  EXPECT_RUNTIME_ERROR(formatNumber(kInf, ""), 6);
  EXPECT_RUNTIME_ERROR(Format(Variant(Date(1e300)), "d mmmm yyyy"), 6);
}

TEST(OutOfRangeValuesTest, TheSmallestDoubleStillHasAnExponent) {
  EXPECT_EQ(Format(Variant(5e-324), "0.00E+00"), "4.94E-324");
  EXPECT_EQ(Format(Variant(-5e-324), "0.00E+00"), "-4.94E-324");
}

TEST(OutOfRangeValuesTest, CurrencyOfNaNRaises6) {
  EXPECT_RUNTIME_ERROR(CCur(Variant(kNaN)), 6);
  EXPECT_RUNTIME_ERROR(CCur(Variant(kInf)), 6);
}

}  // namespace
}  // namespace nvwm
