#include "scheduling/holidays.h"

#include <string>

#include "runtime/convert.h"
#include "runtime/datetime_functions.h"
#include "scheduling/routine_steps.h"

namespace nvwm {

using scheduling::database;
using scheduling::dateUtility;
using scheduling::field;
using scheduling::LookupRoutine;

namespace {

constexpr std::string_view kModule = "modHolidayCtrl";
// Both routines of the module push this tag.
constexpr std::string_view kTagRoutine = "isStatutoryHoliday";

}  // namespace

bool isStatutoryHoliday(Date day) {
  LookupRoutine r(kModule, kTagRoutine);
  bool result = false;
  if (!r.connected()) return result;
  std::string dayText;
  r.step([&] { dayText = database().getSQLDateString(day); });
  const Handle h = r.open(
      "SELECT Holidays.HolidayDate, Holidays.HolidayType FROM Holidays WHERE "
      "Holidays.HolidayDate = #" +
      dayText + "# ;");
  if (r.hasRows(h)) {
    while (!r.atEnd(h)) {
      r.step([&] {
        const Variant type = field(h, "HolidayType");
        if (scheduling::variantUtility().isNullValue(type)) {
          result = true;
        } else {
          const int32_t number = CLng(type);
          if (number == 1 || number == 3) result = true;
        }
      });
      if (!r.moveNext(h)) break;  // a walk that can't move on ends
    }
  }
  r.close(h);
  return result;
}

Date getPreviousWorkingDay(Date day) {
  LookupRoutine r(kModule, kTagRoutine);
  bool anotherPass = false;
  do {
    anotherPass = false;
    r.step([&] {
      if (dateUtility().isWeekend(day)) {
        switch (Weekday(day)) {  // 1 Sunday ... 7 Saturday
          case 1:
            day = DateAdd("d", -2, day);
            break;
          case 7:
            day = DateAdd("d", -1, day);
            break;
          default:
            break;
        }
      }
    });
    r.step([&] {
      if (isStatutoryHoliday(day)) {
        // A day that can't go back (before year 100) raises here and ends the walk.
        day = DateAdd("d", -1, day);
        anotherPass = true;
      }
    });
  } while (anotherPass && r.running());
  return day;
}

}  // namespace nvwm
