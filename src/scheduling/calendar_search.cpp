// The search walks the user's entries of one day in order of their end time and keeps three
// times of day: bestTime (the answer), previousEnd (the end of what is booked so far) and
// firstGapStart (the start of the first gap of any length; 6:00 am until one is seen). All
// comparisons of hours are in single precision, as the estimates are.
#include "scheduling/calendar_search.h"

#include <cmath>
#include <string>

#include "runtime/clock.h"
#include "runtime/convert.h"
#include "runtime/format.h"
#include "scheduling/random_source.h"
#include "scheduling/routine_steps.h"

namespace nvwm {

using scheduling::database;
using scheduling::dateUtility;
using scheduling::field;
using scheduling::LookupRoutine;

namespace {

constexpr Date kWorkingDayStart{0.375};             // 9:00 am
constexpr Date kWorkingDayEnd{0.7083333333333334};  // 5:00 pm
constexpr Date kNoGapSeen{0.25};                    // 6:00 am

std::string calendarSql(int32_t calendarKind, int32_t userID, const std::string& day) {
  const std::string user = std::to_string(userID);
  switch (static_cast<CalendarKind>(calendarKind)) {
    case CalendarKind::kAppointments:
      return "SELECT Appointments.UserIDNum, Appointments.DateFrom, Appointments.TimeFrom, "
             "Appointments.TimeTo FROM Appointments WHERE Appointments.UserIDNum = " +
             user + " AND Appointments.DateFrom = #" + day + "# ORDER BY Appointments.TimeTo;";
    case CalendarKind::kTasks:
      return "SELECT Tasks.UserIDNum, Tasks.DateFrom, Tasks.TimeFrom, Tasks.TimeTo FROM Tasks "
             "WHERE UserIDNum = " +
             user + " AND DateFrom = #" + day + "# ORDER BY Tasks.TimeTo;";
    case CalendarKind::kDockets:
      return "SELECT Dockets.UserIDNum, Dockets.DateFrom, Dockets.TimeFrom, Dockets.TimeTo FROM "
             "Dockets WHERE Dockets.UserIDNum = " +
             user + " AND Dockets.DateFrom = #" + day + "# ORDER BY Dockets.TimeTo;";
  }
  return "";  // no table: the open fails into the error service
}

float hoursBetween(Date first, Date second) {
  return static_cast<float>(dateUtility().getHoursBetween(first, second));
}

// The text of the drawn hour, read back as a time. Hours past 5 pm (the multiplier is 17
// where 9 would do) all become 1:00 pm.
Date randomHour() {
  randomSource().reseed(Now());
  const float r = randomSource().draw();
  const int hour = static_cast<int>(std::floor(17.0f * r + 9.0f));
  std::string text;
  if (hour >= 9 && hour <= 11) {
    text = std::to_string(hour) + ":00 am";
  } else if (hour == 12) {
    text = "12:00 pm";
  } else if (hour >= 13 && hour <= 17) {
    text = std::to_string(hour - 12) + ":00 pm";
  } else {
    text = "1:00 pm";
  }
  return CDate(Variant(text));
}

}  // namespace

Date getBestTimeInCalendarForSpecificDayAndUser(int32_t calendarKind, int32_t userID, Date day,
                                                float estimatedTime) {
  LookupRoutine r("getBestTimeInCalendarForSpecificDayAndUser");
  Date bestTime = kWorkingDayStart;
  Date previousEnd = kWorkingDayStart;
  Date firstGapStart = kNoGapSeen;
  bool found = false;

  if (r.connected()) {
    std::string dayText;
    r.step([&] { dayText = database().getSQLDateString(day); });
    const Handle h = r.open(calendarSql(calendarKind, userID, dayText));
    if (r.hasRows(h)) {
      while (!r.atEnd(h)) {
        Date timeFrom;
        Date timeTo;
        r.step([&] { timeFrom = scheduling::timeOfDayThroughText(field(h, "TimeFrom")); });
        r.step([&] { timeTo = scheduling::timeOfDayThroughText(field(h, "TimeTo")); });
        // An entry that ends at or after 5:00 pm is not seen, even when it starts at noon.
        const bool seen = timeTo > kWorkingDayStart && timeTo < kWorkingDayEnd;
        if (seen) {
          r.step([&] {
            if (firstGapStart < kWorkingDayStart && hoursBetween(timeFrom, previousEnd) > 0.0f)
              firstGapStart = scheduling::throughText(previousEnd, "hh:nn am/pm");
          });
          if (timeFrom <= previousEnd) {
            previousEnd = timeTo;
          } else {
            float gap = 0.0f;
            r.step([&] { gap = hoursBetween(timeFrom, previousEnd); });
            if (gap >= estimatedTime) {
              found = true;
              bestTime = previousEnd;
              break;
            }
            previousEnd = timeTo;
          }
        }
        if (!r.moveNext(h)) break;  // a walk that can't move on ends
      }
    }
    r.close(h);
  }

  r.step([&] {
    if (!found && hoursBetween(previousEnd, kWorkingDayEnd) >= estimatedTime) {
      found = true;
      bestTime = previousEnd;
    }
  });
  r.step([&] {
    if (!found && firstGapStart >= kWorkingDayStart) {
      // No stretch is long enough: the work goes into the first gap, too short as it is.
      found = true;
      bestTime = firstGapStart;
    }
  });
  r.step([&] {
    if (!found) bestTime = randomHour();
  });
  return bestTime;
}

Date determineEndTimeFromEstimatedTime(Date startTime, float estimatedTime) {
  LookupRoutine r("determineEndTimeFromEstimatedTime");
  Date result = startTime;
  if (estimatedTime <= 0.0f) return result;
  r.step([&] {
    const std::string today = formatDate(Today(), "Short Date");
    const Date startToday = CDate(Variant(today + " " + formatDate(startTime, "h:nn am/pm")));
    const Date midnightToday = CDate(Variant(today + " 12:00 am"));
    // Measured from the midnight before the start, not the one after it.
    const float hoursToStart =
        static_cast<float>(std::fabs(dateUtility().getHoursBetween(midnightToday, startToday)));
    result = hoursToStart <= estimatedTime ? CDate(Variant("12:00 am"))
                                           : dateUtility().addHoursToTime(startTime, estimatedTime);
  });
  return result;
}

void verifyStartAndEndTime(Date& startTime, Date& endTime) {
  LookupRoutine r("verifyStartAndEndTime");
  r.step([&] {
    if (startTime > endTime) std::swap(startTime, endTime);
  });
}

}  // namespace nvwm
