#include <gtest/gtest.h>

#include <memory>

#include "runtime/format.h"
#include "runtime/regional.h"
#include "support/runtime_assertions.h"

namespace nvwm {
namespace {

// Sunday 22 November 2026, 9:05:07 in the morning.
const Date kSunday = Date::fromParts({2026, 11, 22, 9, 5, 7});
// Thursday 5 March 2026: a single-digit day and month, at midnight and at noon.
const Date kMidnight = Date::fromYmd(2026, 3, 5);
const Date kNoon = Date::fromParts({2026, 3, 5, 12, 0, 0});
// Monday 23 November 2026, 5:45:30 in the afternoon.
const Date kEvening = Date::fromParts({2026, 11, 23, 17, 45, 30});
// A time of day alone (day 0).
const Date kTimeOnly = Date::fromTime(9, 30, 0);

struct Case {
  Date date;
  std::string_view pattern;
  std::string expected;
};

void expectAll(const Case* begin, const Case* end) {
  for (const Case* c = begin; c != end; ++c) {
    SCOPED_TRACE(std::string(c->pattern) + " on " + std::to_string(c->date.serial()));
    EXPECT_EQ(Format(Variant(c->date), c->pattern), c->expected);
  }
}

TEST(FormatDateTest, DayMonthAndYearPlaceholders) {
  const Case cases[] = {
      {kSunday, "d", "22"},
      {kSunday, "dd", "22"},
      {kSunday, "ddd", "Sun"},
      {kSunday, "dddd", "Sunday"},
      {kSunday, "m", "11"},
      {kSunday, "mm", "11"},
      {kSunday, "mmm", "Nov"},
      {kSunday, "mmmm", "November"},
      {kSunday, "yy", "26"},
      {kSunday, "yyyy", "2026"},
      {kMidnight, "d", "5"},
      {kMidnight, "dd", "05"},
      {kMidnight, "m", "3"},
      {kMidnight, "mm", "03"},
      {kMidnight, "ddd", "Thu"},
      {kMidnight, "dddd", "Thursday"},
      {kMidnight, "y", "64"},
      {kMidnight, "q", "1"},
      {kSunday, "w", "1"},
      {kEvening, "w", "2"},
      {Date::fromYmd(2026, 1, 3), "ww", "1"},  // 1 January 2026 is a Thursday
      {Date::fromYmd(2026, 1, 4), "ww", "2"},  // weeks start on Sunday
      {Date::fromYmd(2005, 1, 1), "yy", "05"},
      {kSunday, "MMMM DD, YYYY", "November 22, 2026"},  // placeholders ignore case
  };
  expectAll(std::begin(cases), std::end(cases));
}

TEST(FormatDateTest, TheLibrarysDatePatterns) {
  const Case cases[] = {
      {kSunday, "dd/mmm/yy", "22/Nov/26"},
      {kMidnight, "dd/mmm/yy", "05/Mar/26"},
      {kSunday, "mmm d, yyyy", "Nov 22, 2026"},
      {kMidnight, "mmm d, yyyy", "Mar 5, 2026"},
      {kSunday, "dddd, mmmm d yyyy", "Sunday, November 22 2026"},
      {kSunday, "dddd mmmm d yyyy", "Sunday November 22 2026"},
      {kMidnight, "mmmm d, yyyy", "March 5, 2026"},
      {kMidnight, "mmmm d yyyy", "March 5 2026"},
      {kMidnight, "mmm d yyyy", "Mar 5 2026"},
      {kMidnight, "dd/mm/yy", "05/03/26"},
      {kMidnight, "mm/dd/yy", "03/05/26"},
      {kMidnight, "mmmm yyyy", "March 2026"},
      {kMidnight, "mmmm d", "March 5"},
      {kSunday, "dddd, MMMM dd, yyyy", "Sunday, November 22, 2026"},
  };
  expectAll(std::begin(cases), std::end(cases));
}

TEST(FormatDateTest, TimePlaceholdersAndMarkers) {
  const Case cases[] = {
      {kSunday, "h", "9"},
      {kSunday, "hh", "09"},
      {kSunday, "n", "5"},
      {kSunday, "nn", "05"},
      {kSunday, "N", "5"},
      {kSunday, "s", "7"},
      {kSunday, "ss", "07"},
      {kEvening, "h", "17"},
      {kSunday, "h:Nn am/pm", "9:05 am"},
      {kSunday, "hh:nn am/pm", "09:05 am"},
      {kEvening, "h:Nn am/pm", "5:45 pm"},
      {kEvening, "hh:nn am/pm", "05:45 pm"},
      {kEvening, "h:nn AM/PM", "5:45 PM"},
      {kEvening, "h:nn a/p", "5:45 p"},
      {kSunday, "h:nn A/P", "9:05 A"},
      {kEvening, "h:nn ampm", "5:45 PM"},
      {kMidnight, "h:Nn am/pm", "12:00 am"},
      {kMidnight, "hh:nn am/pm", "12:00 am"},
      {kMidnight, "hh:nn", "00:00"},
      {kNoon, "h:Nn am/pm", "12:00 pm"},
      {kNoon, "hh:nn AM/PM", "12:00 PM"},
      {kTimeOnly, "h:Nn am/pm", "9:30 am"},
      {kTimeOnly, "mmm d, yyyy", "Dec 30, 1899"},
      {kEvening, "ttttt", "5:45:30 PM"},
  };
  expectAll(std::begin(cases), std::end(cases));
}

TEST(FormatDateTest, MinutesAfterHourNotMonth) {
  const Case cases[] = {
      {kEvening, "hh:mm", "17:45"},       {kEvening, "h:mm:ss", "17:45:30"},
      {kEvening, "h:m", "17:45"},         {kEvening, "mm/dd/yyyy hh:mm", "11/23/2026 17:45"},
      {kEvening, "mm:ss", "11:30"},        // not after an hour: the month
      {kEvening, "hh \\h mm", "17 h 45"},  // literals between keep the rule
      {kEvening, "hh:nn mm", "17:45 11"},  // another placeholder ends it
      {kEvening, "h:mmm", "17:Nov"},       // mmm is always the month's name
  };
  expectAll(std::begin(cases), std::end(cases));
}

TEST(FormatDateTest, NamedFormats) {
  const Case cases[] = {
      {kMidnight, "Short Date", "3/5/2026"},
      {kSunday, "Short Date", "11/22/2026"},
      {kMidnight, "Long Date", "Thursday, March 5, 2026"},
      {kMidnight, "Medium Date", "05-Mar-26"},
      {kMidnight, "General Date", "3/5/2026"},
      {kNoon, "General Date", "3/5/2026 12:00:00 PM"},
      {kTimeOnly, "General Date", "9:30:00 AM"},
      {Date(0.0), "General Date", "12:00:00 AM"},
      {kEvening, "Long Time", "5:45:30 PM"},
      {kEvening, "Medium Time", "05:45 PM"},
      {kEvening, "Short Time", "17:45"},
      {kNoon, "Short Time", "12:00"},
      {kMidnight, "short date", "3/5/2026"},
      {kSunday, "ddddd", "11/22/2026"},
      {kSunday, "dddddd", "Sunday, November 22, 2026"},
      {kNoon, "c", "3/5/2026 12:00:00 PM"},
  };
  expectAll(std::begin(cases), std::end(cases));
}

TEST(FormatDateTest, LiteralsQuotesAndEscapes) {
  const Case cases[] = {
      {kSunday, "\"Due\" mmm d", "Due Nov 22"},
      {kSunday, "\\d\\a\\y d", "day 22"},
      {kSunday, "yyyy-mm-dd", "2026-11-22"},
      {kSunday, "(d) «mmmm» 🦆", "(22) «November» 🦆"},
      {kSunday, "\"open quote d", "open quote d"},
      {kSunday, "", "11/22/2026 9:05:07 AM"},
  };
  expectAll(std::begin(cases), std::end(cases));
}

TEST(FormatDateTest, NamesComeFromRegionalSettings) {
  auto french = std::make_shared<RegionalSettings>();
  french->monthNames[10] = "novembre";
  french->dayNames[0] = "dimanche";
  french->shortDate = "dd/mm/yyyy";
  setRegionalSettings(french);
  EXPECT_EQ(Format(Variant(kSunday), "dddd d mmmm"), "dimanche 22 novembre");
  EXPECT_EQ(Format(Variant(kSunday), "Short Date"), "22/11/2026");
  setRegionalSettings(nullptr);
  EXPECT_EQ(Format(Variant(kSunday), "Short Date"), "11/22/2026");
}

TEST(FormatDateTest, NumbersAndTextsReadAsDates) {
  EXPECT_EQ(Format(Variant(kSunday.datePart().serial()), "mmm d, yyyy"), "Nov 22, 2026");
  EXPECT_EQ(Format(Variant("11/22/2026"), "dddd"), "Sunday");
  EXPECT_EQ(Format(Variant("2026-11-23 17:45:30"), "hh:nn am/pm"), "05:45 pm");
  EXPECT_EQ(Format(Variant("9:30 am"), "h:Nn am/pm"), "9:30 am");
  EXPECT_EQ(Format(Variant("not a date"), "mmm d, yyyy"), "not a date");
  EXPECT_EQ(Format(Variant::null(), "mmm d, yyyy"), "");
  EXPECT_EQ(Format(Variant(), "Short Date"), "");
  EXPECT_RUNTIME_ERROR(Format(Variant(1e10), "yyyy"), 6);
}

}  // namespace
}  // namespace nvwm
