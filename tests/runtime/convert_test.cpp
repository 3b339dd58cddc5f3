#include "runtime/convert.h"

#include <gtest/gtest.h>

#include <memory>

#include "runtime/clock.h"
#include "runtime/format.h"
#include "support/runtime_assertions.h"

namespace nvwm {
namespace {

TEST(ConvertTest, IntegersRoundHalfToEven) {
  const struct {
    double value;
    int16_t expected;
  } cases[] = {
      {0.5, 0},   {1.5, 2},    {2.5, 2},    {3.5, 4},         {-0.5, 0},          {-1.5, -2},
      {-2.5, -2}, {2.4999, 2}, {2.5001, 3}, {32767.4, 32767}, {-32768.5, -32768},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.value);
    EXPECT_EQ(CInt(Variant(c.value)), c.expected);
    EXPECT_EQ(CLng(Variant(c.value)), c.expected);
    EXPECT_EQ(roundHalfEven(c.value), c.expected);
  }
}

TEST(ConvertTest, CIntAndCLngReadTextsAndTruthValues) {
  const struct {
    Variant value;
    int32_t expected;
  } cases[] = {
      {Variant("32767"), 32767},     {Variant(" 12 "), 12},   {Variant("-2.5"), -2},
      {Variant("1,234"), 1234},      {Variant("$12.50"), 12}, {Variant("(7)"), -7},
      {Variant("&HFF"), 255},        {Variant("&HFFFF"), -1}, {Variant("1e3"), 1000},
      {Variant(true), -1},           {Variant(false), 0},     {Variant(), 0},
      {Variant(Currency{25000}), 2},  // 2.5 in currency units
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(debugString(c.value));
    EXPECT_EQ(CInt(c.value), c.expected);
    EXPECT_EQ(CLng(c.value), c.expected);
  }
}

TEST(ConvertTest, OverflowMismatchAndNullRaiseTheirNumbers) {
  const struct {
    Variant value;
    int cintError;
    int clngError;
  } cases[] = {
      {Variant(int32_t{32768}), 6, 0}, {Variant("32768"), 6, 0},
      {Variant(32767.5), 6, 0},        {Variant(-32769.0), 6, 0},
      {Variant(2147483648.0), 6, 6},   {Variant(-2147483649.0), 6, 6},
      {Variant("abc"), 13, 13},        {Variant(""), 13, 13},
      {Variant("12abc"), 13, 13},      {Variant("«12»"), 13, 13},
      {Variant::missing(), 13, 13},    {Variant::null(), 94, 94},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(debugString(c.value));
    EXPECT_RUNTIME_ERROR(CInt(c.value), c.cintError);
    if (c.clngError != 0) EXPECT_RUNTIME_ERROR(CLng(c.value), c.clngError);
  }
  EXPECT_EQ(CLng(Variant(int32_t{32768})), 32768);
  EXPECT_EQ(CLng(Variant(2147483647.0)), 2147483647);
  EXPECT_RUNTIME_ERROR(CSng(Variant(1e39)), 6);
  EXPECT_RUNTIME_ERROR(CDbl(Variant("1.2.3")), 13);
  EXPECT_RUNTIME_ERROR(CDbl(Variant::null()), 94);
  EXPECT_RUNTIME_ERROR(CCur(Variant(1e16)), 6);
  EXPECT_RUNTIME_ERROR(CStr(Variant::null()), 94);
  EXPECT_RUNTIME_ERROR(CBool(Variant::null()), 94);
}

TEST(ConvertTest, CBoolReadsWordsAndNumbers) {
  const struct {
    Variant value;
    bool expected;
  } cases[] = {
      {Variant("True"), true}, {Variant(" false "), false}, {Variant("TRUE"), true},
      {Variant("0"), false},   {Variant("-1"), true},       {Variant("0.0001"), true},
      {Variant(0.0), false},   {Variant(int16_t{2}), true}, {Variant(), false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(debugString(c.value));
    EXPECT_EQ(CBool(c.value), c.expected);
  }
  EXPECT_RUNTIME_ERROR(CBool(Variant("yes")), 13);
  EXPECT_RUNTIME_ERROR(CBool(Variant("")), 13);
}

TEST(ConvertTest, NumbersFromText) {
  const struct {
    std::string_view text;
    std::optional<double> expected;
  } cases[] = {
      {"1234.5", 1234.5},     {"1,234.50", 1234.5},  {"$12.50", 12.5},      {"$ 12", 12.0},
      {"(12.50)", -12.5},     {"-0.5", -0.5},        {"+3", 3.0},           {"1E-2", 0.01},
      {"2D2", 200.0},         {".5", 0.5},           {"", std::nullopt},    {"-", std::nullopt},
      {"1e", std::nullopt},   {"1 2", std::nullopt}, {"12%", std::nullopt}, {"12 é", std::nullopt},
      {"\xFF", std::nullopt},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(TryParseNumber(c.text), c.expected);
    EXPECT_EQ(IsNumeric(Variant(c.text)), c.expected.has_value());
  }
  EXPECT_DOUBLE_EQ(CSng(Variant("0.1")), 0.1f);
  EXPECT_EQ(CCur(Variant(1.23456)).units, 12346);
  EXPECT_EQ(CCur(Variant("1,250.5")).units, 12505000);
}

TEST(ConvertTest, CStrGivesTheRuntimesText) {
  const struct {
    Variant value;
    std::string expected;
  } cases[] = {
      {Variant(), ""},
      {Variant(true), "True"},
      {Variant(false), "False"},
      {Variant(int16_t{-5}), "-5"},
      {Variant(1.5), "1.5"},
      {Variant(0.1f), "0.1"},
      {Variant(1.0 / 3.0), "0.333333333333333"},
      {Variant(1e15), "1E+15"},
      {Variant(123456789012345.0), "123456789012345"},
      {Variant(-0.0), "0"},
      {Variant(Currency{12345000}), "1234.5"},
      {Variant(Currency{-5}), "-0.0005"},
      {Variant(Currency{9223372036854775807}), "922337203685477.5807"},
      {Variant(Date::fromYmd(2026, 11, 23)), "11/23/2026"},
      {Variant(Date::fromParts({2026, 11, 23, 9, 30, 0})), "11/23/2026 9:30:00 AM"},
      {Variant(Date::fromTime(21, 5, 9)), "9:05:09 PM"},
      {Variant(Date(0.0)), "12:00:00 AM"},
      {Variant("«é» 🦆"), "«é» 🦆"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(debugString(c.value));
    EXPECT_EQ(CStr(c.value), c.expected);
  }
}

TEST(ConvertTest, DatesFromTheFormsTheLibraryWrites) {
  const struct {
    std::string_view text;
    DateParts expected;
  } cases[] = {
      {"11/23/2026", {2026, 11, 23}},
      {"11/23/2026 9:30:00 AM", {2026, 11, 23, 9, 30, 0}},
      {"2026-11-23 09:30:00", {2026, 11, 23, 9, 30, 0}},
      {"November 23, 2026", {2026, 11, 23}},
      {"Nov 23, 2026", {2026, 11, 23}},
      {"nov 23 2026", {2026, 11, 23}},
      {"23/Nov/26", {2026, 11, 23}},
      {"Monday, November 23, 2026", {2026, 11, 23}},
      {"Sept 1, 2026", {2026, 9, 1}},
      {"25/12/2026", {2026, 12, 25}},  // a month of 25 can't be: day and month swap
      {"1/2/30", {1930, 1, 2}},
      {"1/2/29", {2029, 1, 2}},
      {"9:30 am", {1899, 12, 30, 9, 30, 0}},
      {"9:30", {1899, 12, 30, 9, 30, 0}},
      {"12:00 am", {1899, 12, 30, 0, 0, 0}},
      {"12:15 PM", {1899, 12, 30, 12, 15, 0}},
      {"2/29/2024", {2024, 2, 29}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    auto d = TryParseDate(c.text);
    ASSERT_TRUE(d.has_value());
    EXPECT_EQ(*d, Date::fromParts(c.expected));
    EXPECT_EQ(CDate(Variant(c.text)), *d);
    EXPECT_TRUE(IsDate(Variant(c.text)));
  }
}

TEST(ConvertTest, TextsThatAreNoDate) {
  const std::string_view cases[] = {
      "",     "abc",      "2/29/2026",       "13/13/2026",   "1/32/2026",      "25:00",
      "9:60", "13:00 pm", "11/23/2026 at 9", "«11/23/2026»", "Smarch 3, 2026", "1/1/99999",
  };
  for (std::string_view text : cases) {
    SCOPED_TRACE(text);
    EXPECT_FALSE(TryParseDate(text).has_value());
    EXPECT_FALSE(IsDate(Variant(text)));
  }
  EXPECT_RUNTIME_ERROR(CDate(Variant("abc")), 13);
  EXPECT_RUNTIME_ERROR(CDate(Variant::null()), 94);
}

TEST(ConvertTest, CDateTakesNumbersButIsDateDoesNot) {
  EXPECT_EQ(CDate(Variant(46349.5)), Date::fromParts({2026, 11, 23, 12, 0, 0}));
  EXPECT_EQ(CDate(Variant("46349")), Date::fromYmd(2026, 11, 23));
  EXPECT_FALSE(IsDate(Variant(46349.0)));
  EXPECT_TRUE(IsDate(Variant(Date::fromYmd(2026, 11, 23))));
  EXPECT_EQ(TryCDate(Variant(46349.0)), Date::fromYmd(2026, 11, 23));
  EXPECT_FALSE(TryCDate(Variant(1e10)).has_value());
  EXPECT_RUNTIME_ERROR(CDate(Variant(1e10)), 6);
  EXPECT_RUNTIME_ERROR(CDate(Variant("1e10")), 6);
}

TEST(ConvertTest, TheLibrarysOwnTextsReadBack) {
  // The calendar routines strip dates and times by formatting them and reading the text back.
  const Date cases[] = {
      Date::fromParts({2026, 11, 22, 9, 5, 0}),
      Date::fromParts({2026, 3, 5, 0, 0, 0}),
      Date::fromParts({2026, 3, 5, 12, 0, 0}),
      Date::fromParts({2026, 12, 31, 23, 59, 0}),
  };
  for (Date d : cases) {
    SCOPED_TRACE(CStr(Variant(d)));
    EXPECT_EQ(
        CDate(Variant(Format(Variant(d), "Short Date") + " " + Format(Variant(d), "hh:nn am/pm"))),
        d);
    EXPECT_EQ(CDate(Variant(Format(Variant(d), "mmm d, yyyy"))), d.datePart());
    EXPECT_EQ(CDate(Variant(Format(Variant(d), "hh:nn am/pm"))), d.timePart());
    EXPECT_EQ(CDate(Variant(Format(Variant(d), "h:Nn am/pm"))), d.timePart());
    EXPECT_EQ(CDate(Variant(CStr(Variant(d)))), d);
  }
}

TEST(ConvertTest, AMissingYearIsTheClocksYear) {
  setClock(std::make_shared<FixedClock>(Date::fromYmd(2031, 6, 15)));
  EXPECT_EQ(CDate(Variant("11/23")), Date::fromYmd(2031, 11, 23));
  EXPECT_EQ(CDate(Variant("Nov 23")), Date::fromYmd(2031, 11, 23));
  setClock(nullptr);
}

TEST(ConvertTest, IsNumericFollowsTheRuntime) {
  EXPECT_TRUE(IsNumeric(Variant()));
  EXPECT_TRUE(IsNumeric(Variant(true)));
  EXPECT_TRUE(IsNumeric(Variant(" 12 ")));
  EXPECT_FALSE(IsNumeric(Variant::null()));
  EXPECT_FALSE(IsNumeric(Variant(Date::fromYmd(2026, 1, 1))));
  EXPECT_FALSE(IsNumeric(Variant("")));
}

}  // namespace
}  // namespace nvwm
