// Public: Format of the original runtime, for the date, time and number patterns the library
// uses. Names, separators and the named formats come from the thread's RegionalSettings.
//
// Date and time patterns (letters in any case):
//   d dd        day without / with a leading zero      ddd dddd   day name, short / full
//   ddddd       the short date                         dddddd     the long date
//   m mm        month without / with a leading zero    mmm mmmm   month name, short / full
//               (m and mm right after h or hh, literals between allowed, are minutes: "h:mm")
//   y           day of the year   yy  two-digit year   yyyy       the year
//   w ww        weekday (Sunday 1), week of the year (weeks start on Sunday, week 1 holds 1 Jan)
//   q           quarter
//   h hh        hour without / with a leading zero; twelve-hour when an AM/PM marker is present
//   n nn (N)    minutes             s ss               seconds
//   AM/PM am/pm A/P a/p   the marker, printed in the case written ("am/pm" gives "pm");
//   AMPM        the regional markers
//   c           general date        ttttt              the long time
//   / and :     the regional date and time separators
//   "text", \x  literal text; any other character is printed as it is.
// Named: "General Date", "Long Date", "Medium Date", "Short Date", "Long Time", "Medium Time",
// "Short Time" (case ignored).
//
// Number patterns: 0 (a digit, zero when none), # (a digit, nothing when none), . (decimal
// point), , (thousands separators between digit placeholders; before the point or at the end
// it divides by 1000), % (times 100), E+ E- e+ e- (scientific), literals as above. Up to four
// sections split by ";": positive; negative; zero; (null, unused). A negative number printed by
// the first section gets a leading "-"; the negative section prints the number without its
// sign. The section is chosen by the value before rounding, so -0.001 with "0.00" is "-0.00".
// Rounding is half away from zero on the 15 significant digits of the value (1.005 -> "1.01").
// Named: "General Number", "Currency", "Fixed", "Standard", "Percent", "Scientific", "Yes/No",
// "True/False", "On/Off".
//
// Values: Null and Empty give "". A Date takes date patterns; a number, a Boolean (True is -1)
// or Currency takes number patterns; a number with a date pattern is a date serial and a date
// with a number pattern is its serial. A String that reads as a number or a date (CDate's
// forms) is formatted as one; any other text comes back as it is. An empty pattern gives CStr's
// text. Objects and Missing raise 13; a serial outside years 100..9999 under a date pattern
// raises 6. Thread-safe.
#pragma once

#include <string>
#include <string_view>

#include "runtime/date.h"
#include "runtime/variant.h"

namespace nvwm {

std::string Format(const Variant& value, std::string_view pattern = {});

// The two halves of Format, for callers that already hold a date or a number.
std::string formatDate(Date date, std::string_view pattern);
std::string formatNumber(double value, std::string_view pattern);

// The "General Date" text: the short date, the long time, or both; what CStr gives for a date.
std::string generalDateText(Date date);

}  // namespace nvwm
