// modHolidayCtrl: statutory holidays and the walk back to a working day.
//
// Holidays are rows of the Holidays table, kept elsewhere; no date rule and no province
// enters here. Both routines push the one log tag "Tallowbrook.exe-modHolidayCtrl-
// isStatutoryHoliday" (getPreviousWorkingDay keeps the first's tag). Nothing raises to the
// caller: a failing step goes to the error service. Not thread-safe.
#pragma once

#include "runtime/date.h"

namespace nvwm {

// True when a Holidays row of that date has HolidayType Null, 1 or 3 (all rows are walked);
// types 2 and 4 up are holidays but not statutory ones. False without a connection.
bool isStatutoryHoliday(Date day);

// The day itself when it is a working day, otherwise the nearest earlier one: a Sunday goes
// back 2 days and a Saturday 1 (dateUtility.isWeekend), then a statutory holiday goes back 1
// day and the walk starts again. So a Monday holiday gives the Friday before, and a holiday on
// a weekend is seen only after the weekend move. Without a connection only weekends move.
Date getPreviousWorkingDay(Date day);

}  // namespace nvwm
