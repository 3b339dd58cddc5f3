// When a reminder fires: the lead time taken off the date and time it is given.
#include <gtest/gtest.h>

#include "runtime/format.h"
#include "scheduling/popup_reminders.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::at;
using testing::day;
using testing::SchedulingFixture;

std::string shown(Date d, Date t) {
  return formatDate(d, "ddd mmm d yyyy") + " " + formatDate(t, "h:nn am/pm");
}

TEST(PopUpReminderTimeTest, TakesTheLeadTimeOffAndMovesWeekendDaysToFriday) {
  const Date tuesday = day(2026, 11, 24);
  const Date monday = day(2026, 11, 23);
  const struct {
    const char* word;
    Date date;
    Date time;
    const char* expected;
  } cases[] = {
      {"5 Min", tuesday, at(0, 0), "Mon Nov 23 2026 11:55 pm"},
      {"30 Min", tuesday, at(9, 0), "Tue Nov 24 2026 8:30 am"},
      {"1 Hr", tuesday, at(0, 0), "Mon Nov 23 2026 11:00 pm"},
      {"12 Hr", tuesday, at(15, 0), "Tue Nov 24 2026 3:00 am"},
      {"1 Day", tuesday, at(0, 0), "Mon Nov 23 2026 12:00 am"},
      {"1 Day", monday, at(0, 0), "Fri Nov 20 2026 12:00 am"},
      {"2 Days", tuesday, at(0, 0), "Fri Nov 20 2026 12:00 am"},
      {"3 Days", tuesday, at(0, 0), "Fri Nov 20 2026 12:00 am"},
      {"5 Days", tuesday, at(0, 0), "Thu Nov 19 2026 12:00 am"},
      {"1 Week", tuesday, at(0, 0), "Tue Nov 17 2026 12:00 am"},
      {"10 Days", tuesday, at(0, 0), "Fri Nov 13 2026 12:00 am"},
      {"2 Weeks", tuesday, at(0, 0), "Tue Nov 10 2026 12:00 am"},
      {"5 Weeks", tuesday, at(0, 0), "Tue Oct 20 2026 12:00 am"},
      {"1 Hr", day(2026, 11, 22), at(0, 0), "Fri Nov 20 2026 11:00 pm"},
      {"1 Hr", day(2026, 11, 21), at(15, 0), "Sat Nov 21 2026 2:00 pm"},
      {"7 Hr", tuesday, at(9, 0), "Tue Nov 24 2026 9:00 am"},
      {"1 day", tuesday, at(9, 0), "Tue Nov 24 2026 9:00 am"},
      {"", tuesday, at(9, 0), "Tue Nov 24 2026 9:00 am"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.word) + " before " + shown(c.date, c.time));
    SchedulingFixture f;
    Date date = c.date;
    Date time = c.time;
    EXPECT_EQ(getPopUpReminderTime(c.word, date, time), "");
    EXPECT_EQ(shown(date, time), c.expected);
    EXPECT_EQ(date, date.datePart());
    EXPECT_EQ(time, time.timePart());
    EXPECT_TRUE(f.errorNumbers().empty());
  }
}

}  // namespace
}  // namespace nvwm
