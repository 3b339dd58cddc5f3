// Public: date arithmetic of the original runtime (DateAdd, DateDiff, Weekday) for the
// calendar and reminder routines: lead times are subtracted with DateAdd, durations are
// counted with DateDiff("n", ...), working days are found with Weekday.
#pragma once

#include <cstdint>
#include <string_view>

#include "runtime/date.h"

namespace nvwm {

// Intervals, as the original spells them: "yyyy" year, "q" quarter, "m" month, "y" day of
// year, "d" day, "w" weekday, "ww" week, "h" hour, "n" minute, "s" second. Case is ignored;
// any other text raises 5.
//
// Adds `number` intervals (its fraction dropped). Years, quarters and months keep the day when
// the month has it and take the month's last day otherwise (31 January + 1 month = 28 or 29
// February); the time of day stays. A result outside years 100..9999 raises 5.
Date DateAdd(std::string_view interval, double number, Date date);

// The number of interval boundaries crossed from `first` to `second` (negative when `second`
// is earlier): DateDiff("n", 9:59:59, 10:00:00) is 1, DateDiff("d", 23:00, 1:00 next day) is
// 1. "w" counts whole weeks of days; "ww" counts the `firstDayOfWeek`s crossed (1 Sunday ...
// 7 Saturday; 0 means Sunday). Times are taken to the second.
int64_t DateDiff(std::string_view interval, Date first, Date second, int firstDayOfWeek = 1);

// The day of the week, 1..7, counting from `firstDayOfWeek` (1 Sunday ... 7 Saturday; 0
// means Sunday). Outside 0..7 raises 5.
int Weekday(Date date, int firstDayOfWeek = 1);

}  // namespace nvwm
