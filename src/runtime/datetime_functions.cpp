// Date arithmetic on the time line. Dates before day 0 keep a forward-counting time of day
// (see date.cpp), so every computation here goes through whole days since 1899-12-30 plus
// seconds of the day, never through the raw serial.
#include "runtime/datetime_functions.h"

#include <cmath>

#include "runtime/ascii.h"
#include "runtime/error.h"

namespace nvwm {
namespace {

enum class Interval {
  kYear,
  kQuarter,
  kMonth,
  kDayOfYear,
  kDay,
  kWeekday,
  kWeek,
  kHour,
  kMinute,
  kSecond
};

Interval parseInterval(std::string_view text) {
  std::string lower = toAsciiLower(text);
  if (lower == "yyyy") return Interval::kYear;
  if (lower == "q") return Interval::kQuarter;
  if (lower == "m") return Interval::kMonth;
  if (lower == "y") return Interval::kDayOfYear;
  if (lower == "d") return Interval::kDay;
  if (lower == "w") return Interval::kWeekday;
  if (lower == "ww") return Interval::kWeek;
  if (lower == "h") return Interval::kHour;
  if (lower == "n") return Interval::kMinute;
  if (lower == "s") return Interval::kSecond;
  raise(ErrorNumber::kInvalidProcedureCall, "unknown date interval \"" + std::string(text) + "\"");
}

int64_t dayNumber(Date d) {
  using namespace std::chrono;
  return (d.sysDays() - sys_days{year{1899} / December / 30}).count();
}

int64_t secondOfDay(Date d) {
  DateParts p = d.parts();
  return p.hour * 3600 + p.minute * 60 + p.second;
}

// Seconds since 1899-12-30 00:00 on the linear time line.
int64_t linearSeconds(Date d) { return dayNumber(d) * 86400 + secondOfDay(d); }

Date fromLinearSeconds(int64_t seconds) {
  int64_t day = seconds >= 0 ? seconds / 86400 : -((-seconds + 86399) / 86400);
  int64_t rest = seconds - day * 86400;
  double time = static_cast<double>(rest) / 86400.0;
  double whole = static_cast<double>(day);
  double serial = whole < 0 ? whole - time : whole + time;
  if (!(serial >= -657434.0 && serial < 2958466.0)) {
    raise(ErrorNumber::kInvalidProcedureCall, "date out of range");
  }
  return Date(serial);
}

int64_t floorDiv(int64_t a, int64_t b) { return a >= 0 ? a / b : -((-a + b - 1) / b); }

int checkFirstDay(int firstDayOfWeek) {
  if (firstDayOfWeek < 0 || firstDayOfWeek > 7) {
    raise(ErrorNumber::kInvalidProcedureCall, "first day of the week outside 0..7");
  }
  return firstDayOfWeek == 0 ? 1 : firstDayOfWeek;
}

}  // namespace

Date DateAdd(std::string_view interval, double number, Date date) {
  Interval unit = parseInterval(interval);
  if (!std::isfinite(number) || std::fabs(number) > 1e9) {
    raise(ErrorNumber::kInvalidProcedureCall, "date out of range");
  }
  int64_t n = static_cast<int64_t>(std::trunc(number));
  switch (unit) {
    case Interval::kYear:
    case Interval::kQuarter:
    case Interval::kMonth: {
      int64_t months = unit == Interval::kYear ? n * 12 : unit == Interval::kQuarter ? n * 3 : n;
      DateParts p = date.parts();
      int64_t total = int64_t{p.year} * 12 + (p.month - 1) + months;
      int64_t y = floorDiv(total, 12);
      if (y < 100 || y > 9999) raise(ErrorNumber::kInvalidProcedureCall, "date out of range");
      p.year = static_cast<int>(y);
      p.month = static_cast<int>(total - y * 12) + 1;
      p.day = std::min(p.day, daysInMonth(p.year, p.month));
      return Date::fromParts(p);
    }
    case Interval::kDayOfYear:
    case Interval::kDay:
    case Interval::kWeekday:
      return fromLinearSeconds(linearSeconds(date) + n * 86400);
    case Interval::kWeek:
      return fromLinearSeconds(linearSeconds(date) + n * 7 * 86400);
    case Interval::kHour:
      return fromLinearSeconds(linearSeconds(date) + n * 3600);
    case Interval::kMinute:
      return fromLinearSeconds(linearSeconds(date) + n * 60);
    case Interval::kSecond:
      return fromLinearSeconds(linearSeconds(date) + n);
  }
  return date;
}

int64_t DateDiff(std::string_view interval, Date first, Date second, int firstDayOfWeek) {
  Interval unit = parseInterval(interval);
  int firstDay = checkFirstDay(firstDayOfWeek);
  DateParts a = first.parts();
  DateParts b = second.parts();
  switch (unit) {
    case Interval::kYear:
      return b.year - a.year;
    case Interval::kQuarter:
      return (b.year * 4 + (b.month - 1) / 3) - (a.year * 4 + (a.month - 1) / 3);
    case Interval::kMonth:
      return (b.year * 12 + b.month) - (a.year * 12 + a.month);
    case Interval::kDayOfYear:
    case Interval::kDay:
      return dayNumber(second) - dayNumber(first);
    case Interval::kWeekday:
      return (dayNumber(second) - dayNumber(first)) / 7;
    case Interval::kWeek: {
      // Day 0 (1899-12-30) was a Saturday, so day k falls on firstDay when k = firstDay
      // (mod 7): weeks are counted from there.
      auto weekOf = [&](Date d) { return floorDiv(dayNumber(d) - firstDay, 7); };
      return weekOf(second) - weekOf(first);
    }
    case Interval::kHour:
      return floorDiv(linearSeconds(second), 3600) - floorDiv(linearSeconds(first), 3600);
    case Interval::kMinute:
      return floorDiv(linearSeconds(second), 60) - floorDiv(linearSeconds(first), 60);
    case Interval::kSecond:
      return linearSeconds(second) - linearSeconds(first);
  }
  return 0;
}

int Weekday(Date date, int firstDayOfWeek) {
  int firstDay = checkFirstDay(firstDayOfWeek);
  return (date.weekday() - firstDay + 7) % 7 + 1;
}

}  // namespace nvwm
