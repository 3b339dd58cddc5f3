// The search for a free time in one user's working day.
#include "scheduling/calendar_search.h"

#include <gtest/gtest.h>

#include "runtime/format.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::at;
using testing::day;
using testing::SchedulingFixture;

constexpr int32_t kUser = 7;
const Date kMonday = day(2026, 11, 23);

struct Entry {
  int fromHour, fromMinute, toHour, toMinute;
};

// Stores the user's tasks of the Monday, in the order given (the search orders them itself).
void addTasks(SchedulingFixture& f, const std::vector<Entry>& entries,
              const std::string& table = "Tasks") {
  for (const Entry& e : entries) {
    f.exec("INSERT INTO " + table + " (UserIDNum, DateFrom, TimeFrom, TimeTo) VALUES (7, '" +
           testing::storedDate(2026, 11, 23) + "', '" +
           testing::storedTime(e.fromHour, e.fromMinute) + "', '" +
           testing::storedTime(e.toHour, e.toMinute) + "');");
  }
}

std::string timeText(Date t) { return formatDate(t, "h:nn am/pm"); }

TEST(CalendarSearchTest, FindsTheFirstStretchLongEnoughOrTheFirstGap) {
  const struct {
    const char* name;
    std::vector<Entry> entries;
    float estimate;
    const char* expected;
  } cases[] = {
      {"empty day, a whole working day", {}, 8.0f, "9:00 am"},
      {"touching entries leave no gap", {{9, 0, 10, 0}, {10, 0, 11, 0}}, 1.0f, "11:00 am"},
      {"the gap after the first entry", {{9, 30, 10, 0}, {13, 0, 14, 0}}, 2.0f, "10:00 am"},
      {"the gap before the first entry", {{9, 30, 10, 0}, {13, 0, 14, 0}}, 0.25f, "9:00 am"},
      {"a gap exactly as long as the estimate", {{9, 0, 10, 0}, {11, 0, 12, 0}}, 1.0f, "10:00 am"},
      {"no stretch long enough: the first gap",
       {{9, 30, 10, 0}, {10, 15, 16, 45}},
       1.0f,
       "9:00 am"},
      {"the first gap when it opens later", {{9, 0, 10, 0}, {10, 30, 16, 45}}, 1.0f, "10:00 am"},
      {"an entry 9 to 5 is not seen", {{9, 0, 17, 0}}, 1.0f, "9:00 am"},
      {"an entry ending after 5 pm is not seen, though it starts at noon",
       {{12, 0, 17, 30}},
       7.5f,
       "9:00 am"},
      {"an entry ending at exactly 9:00 am is not seen", {{8, 0, 9, 0}}, 8.0f, "9:00 am"},
      {"an entry ending at 9:01 am moves the booked end", {{8, 0, 9, 1}}, 1.0f, "9:01 am"},
      {"entries are taken by their end time", {{14, 0, 15, 0}, {9, 0, 12, 0}}, 2.0f, "12:00 pm"},
      {"overlapping entries", {{9, 0, 11, 0}, {10, 0, 11, 30}, {13, 0, 14, 0}}, 1.5f, "11:30 am"},
      {"the time left to 5 pm", {{9, 0, 15, 0}}, 2.0f, "3:00 pm"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    SchedulingFixture f;
    addTasks(f, c.entries);
    const Date best = getBestTimeInCalendarForSpecificDayAndUser(1, kUser, kMonday, c.estimate);
    EXPECT_EQ(timeText(best), c.expected);
    EXPECT_EQ(best.serial(), best.timePart().serial()) << "a time of day alone";
    EXPECT_TRUE(f.random().reseeds.empty()) << "no random hour drawn";
    EXPECT_TRUE(f.errorNumbers().empty());
  }
}

TEST(CalendarSearchTest, OtherUsersDaysAndKindsOfEntryAreNotWeighed) {
  SchedulingFixture f;
  f.exec("INSERT INTO Tasks (UserIDNum, DateFrom, TimeFrom, TimeTo) VALUES (8, '" +
         testing::storedDate(2026, 11, 23) + "', '1899-12-30 09:00:00', '1899-12-30 12:00:00');");
  f.exec("INSERT INTO Tasks (UserIDNum, DateFrom, TimeFrom, TimeTo) VALUES (7, '" +
         testing::storedDate(2026, 11, 24) + "', '1899-12-30 09:00:00', '1899-12-30 12:00:00');");
  addTasks(f, {{9, 0, 13, 0}}, "Appointments");
  addTasks(f, {{9, 0, 14, 0}}, "Dockets");
  EXPECT_EQ(timeText(getBestTimeInCalendarForSpecificDayAndUser(1, kUser, kMonday, 1.0f)),
            "9:00 am");
  EXPECT_EQ(timeText(getBestTimeInCalendarForSpecificDayAndUser(0, kUser, kMonday, 1.0f)),
            "1:00 pm");
  EXPECT_EQ(timeText(getBestTimeInCalendarForSpecificDayAndUser(2, kUser, kMonday, 1.0f)),
            "2:00 pm");
}

TEST(CalendarSearchTest, SendsTheQueryOfEachKind) {
  SchedulingFixture f;
  for (int32_t kind : {0, 1, 2}) getBestTimeInCalendarForSpecificDayAndUser(kind, 7, kMonday, 1);
  EXPECT_EQ(f.db().sqlSent(),
            (std::vector<std::string>{
                "SELECT Appointments.UserIDNum, Appointments.DateFrom, Appointments.TimeFrom, "
                "Appointments.TimeTo FROM Appointments WHERE Appointments.UserIDNum = 7 AND "
                "Appointments.DateFrom = #11/23/2026# ORDER BY Appointments.TimeTo;",
                "SELECT Tasks.UserIDNum, Tasks.DateFrom, Tasks.TimeFrom, Tasks.TimeTo FROM Tasks "
                "WHERE UserIDNum = 7 AND DateFrom = #11/23/2026# ORDER BY Tasks.TimeTo;",
                "SELECT Dockets.UserIDNum, Dockets.DateFrom, Dockets.TimeFrom, Dockets.TimeTo "
                "FROM Dockets WHERE Dockets.UserIDNum = 7 AND Dockets.DateFrom = #11/23/2026# "
                "ORDER BY Dockets.TimeTo;",
            }));
  for (const auto& q : f.db().queries) EXPECT_EQ(q.lockType, 1);
  EXPECT_TRUE(f.db().stillOpen().empty());
  EXPECT_EQ(f.errors().entered.front(),
            "Tallowbrook.exe-modDatabaseFunctions-getBestTimeInCalendarForSpecificDayAndUser");
}

TEST(CalendarSearchTest, WithoutAConnectionTheDayCountsAsEmpty) {
  SchedulingFixture f;
  addTasks(f, {{9, 0, 16, 0}});
  f.db().connected = false;
  EXPECT_EQ(timeText(getBestTimeInCalendarForSpecificDayAndUser(1, kUser, kMonday, 8.0f)),
            "9:00 am");
  f.random().draws = {0.5f};
  EXPECT_EQ(timeText(getBestTimeInCalendarForSpecificDayAndUser(1, kUser, kMonday, 8.5f)),
            "5:00 pm");
  EXPECT_TRUE(f.db().queries.empty());
}

TEST(CalendarSearchTest, AFailingReadReturnsNineOClock) {
  SchedulingFixture f;
  f.exec("INSERT INTO Tasks (UserIDNum, DateFrom, TimeFrom, TimeTo) VALUES (7, '" +
         testing::storedDate(2026, 11, 23) + "', NULL, '1899-12-30 12:00:00');");
  addTasks(f, {{12, 0, 16, 0}});
  EXPECT_EQ(timeText(getBestTimeInCalendarForSpecificDayAndUser(1, kUser, kMonday, 1.0f)),
            "9:00 am");
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{13});
}

TEST(CalendarSearchTest, AnUnknownKindGoesToTheErrorServiceAndGivesNineOClock) {
  SchedulingFixture f;
  EXPECT_EQ(timeText(getBestTimeInCalendarForSpecificDayAndUser(3, kUser, kMonday, 1.0f)),
            "9:00 am");
  EXPECT_EQ(f.errorNumbers().size(), 1u);
}

}  // namespace
}  // namespace nvwm
