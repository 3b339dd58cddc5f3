// Statutory holidays and the walk back to the last working day.
#include "scheduling/holidays.h"

#include <gtest/gtest.h>

#include "runtime/format.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::day;
using testing::SchedulingFixture;

void addHoliday(SchedulingFixture& f, int y, int m, int d, const char* type) {
  f.exec("INSERT INTO Holidays (HolidayDate, HolidayType) VALUES ('" +
         testing::storedDate(y, m, d) + "', " + type + ");");
}

std::string dayText(Date d) { return formatDate(d, "ddd mmm d yyyy"); }

TEST(StatutoryHolidayTest, NullOneAndThreeAreStatutoryOthersAreNot) {
  const struct {
    std::vector<const char*> types;
    bool expected;
  } cases[] = {
      {{}, false},    {{"NULL"}, true}, {{"1"}, true},      {{"3"}, true},      {{"2"}, false},
      {{"4"}, false}, {{"0"}, false},   {{"2", "1"}, true}, {{"1", "2"}, true}, {{"2", "2"}, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(::testing::PrintToString(c.types));
    SchedulingFixture f;
    for (const char* type : c.types) addHoliday(f, 2026, 7, 1, type);
    addHoliday(f, 2026, 7, 2, "1");  // another day
    EXPECT_EQ(isStatutoryHoliday(day(2026, 7, 1)), c.expected);
    EXPECT_EQ(f.db().sqlSent(),
              std::vector<std::string>{
                  "SELECT Holidays.HolidayDate, Holidays.HolidayType FROM Holidays WHERE "
                  "Holidays.HolidayDate = #7/1/2026# ;"});
    EXPECT_TRUE(f.db().stillOpen().empty());
  }
}

// This was a hang: with an error service that says "go on", a walk whose moveNext kept
// failing stood on its first row for ever.
TEST(StatutoryHolidayTest, AWalkThatCannotMoveOnEnds) {
  SchedulingFixture f;
  addHoliday(f, 2026, 7, 1, "2");
  addHoliday(f, 2026, 7, 1, "1");
  f.errors().action = 1;
  references().DatabaseReference =
      std::make_shared<testing::FailingDatabaseService>(f.dbService(), "moveNext", 1);
  EXPECT_FALSE(isStatutoryHoliday(day(2026, 7, 1)));
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{3001});
}

TEST(StatutoryHolidayTest, NotConnectedIsNoHoliday) {
  SchedulingFixture f;
  addHoliday(f, 2026, 7, 1, "1");
  f.db().connected = false;
  EXPECT_FALSE(isStatutoryHoliday(day(2026, 7, 1)));
  EXPECT_TRUE(f.db().queries.empty());
}

TEST(PreviousWorkingDayTest, WalksBackOverWeekendsAndStatutoryHolidays) {
  const struct {
    const char* name;
    std::vector<Date> holidays;
    Date from;
    Date expected;
  } cases[] = {
      {"a working day stays", {}, day(2026, 11, 18), day(2026, 11, 18)},
      {"Saturday gives Friday", {}, day(2026, 11, 21), day(2026, 11, 20)},
      {"Sunday gives Friday", {}, day(2026, 11, 22), day(2026, 11, 20)},
      {"a Monday holiday gives the Friday before",
       {day(2026, 11, 23)},
       day(2026, 11, 23),
       day(2026, 11, 20)},
      {"a Friday holiday gives Thursday",
       {day(2026, 11, 20)},
       day(2026, 11, 20),
       day(2026, 11, 19)},
      {"a Sunday with a holiday on the Friday before gives Thursday",
       {day(2026, 11, 20)},
       day(2026, 11, 22),
       day(2026, 11, 19)},
      {"a holiday on a Saturday is never seen",
       {day(2026, 11, 21)},
       day(2026, 11, 21),
       day(2026, 11, 20)},
      {"Christmas and Boxing Day on Friday and Monday",
       {day(2026, 12, 25), day(2026, 12, 28)},
       day(2026, 12, 28),
       day(2026, 12, 24)},
      {"a holiday on a weekday walks back through the weekend",
       {day(2026, 11, 16), day(2026, 11, 13)},
       day(2026, 11, 16),
       day(2026, 11, 12)},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    SchedulingFixture f;
    for (Date h : c.holidays) addHoliday(f, h.year(), h.month(), h.day(), "1");
    EXPECT_EQ(dayText(getPreviousWorkingDay(c.from)), dayText(c.expected));
    EXPECT_TRUE(f.errorNumbers().empty());
  }
}

TEST(PreviousWorkingDayTest, NonStatutoryHolidaysAreWorkingDays) {
  SchedulingFixture f;
  addHoliday(f, 2026, 11, 20, "2");
  EXPECT_EQ(dayText(getPreviousWorkingDay(day(2026, 11, 22))), dayText(day(2026, 11, 20)));
}

TEST(PreviousWorkingDayTest, WithoutAConnectionOnlyWeekendsMove) {
  SchedulingFixture f;
  addHoliday(f, 2026, 11, 20, "1");
  f.db().connected = false;
  EXPECT_EQ(dayText(getPreviousWorkingDay(day(2026, 11, 22))), dayText(day(2026, 11, 20)));
  EXPECT_EQ(dayText(getPreviousWorkingDay(day(2026, 11, 20))), dayText(day(2026, 11, 20)));
}

TEST(PreviousWorkingDayTest, BothRoutinesPushTheHolidayTag) {
  SchedulingFixture f;
  getPreviousWorkingDay(day(2026, 11, 20));
  EXPECT_EQ(f.errors().entered,
            (std::vector<std::string>{"Tallowbrook.exe-modHolidayCtrl-isStatutoryHoliday",
                                      "Tallowbrook.exe-modHolidayCtrl-isStatutoryHoliday"}));
}

TEST(PreviousWorkingDayTest, ARunOfHolidaysToTheFirstDayOfTheCalendarEnds) {
  SchedulingFixture f;
  f.exec(
      "WITH RECURSIVE d(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM d WHERE n < 9) "
      "INSERT INTO Holidays (HolidayDate, HolidayType) "
      "SELECT printf('0100-01-%02d 00:00:00', n + 1), 1 FROM d;");
  const Date result = getPreviousWorkingDay(day(100, 1, 10));
  EXPECT_EQ(result.year(), 100);
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{5});
}

}  // namespace
}  // namespace nvwm
