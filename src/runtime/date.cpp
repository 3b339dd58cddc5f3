// The OLE automation date model.
//
// A date is a double: the whole part counts days from 1899-12-30 (day 0), the fraction is the
// time of day. Before day 0 the whole part still counts days backwards, but the fraction keeps
// counting forwards from midnight: -1.25 is 1899-12-29 06:00, not 1899-12-28 18:00. So the
// time of day is always |fraction| and the day is trunc(serial). A time alone is stored on day 0.
// The calendar is the proleptic Gregorian one; the valid range is 100-01-01 .. 9999-12-31.
// Parts are rounded to the nearest second, as the original runtime shows them. A serial outside
// that range (a number read from a file, 1e300, NaN) has no parts: converting it to a day count
// would be undefined, so parts() raises 6 as the original's conversions do.
#include "runtime/date.h"

#include <cmath>
#include <cstdint>

#include "runtime/error.h"

namespace nvwm {
namespace {

using namespace std::chrono;

constexpr sys_days kEpoch = sys_days{year{1899} / December / 30};

bool validYear(int y) { return y >= 100 && y <= 9999; }

sys_days toSysDays(int y, int m, int d) {
  return sys_days{std::chrono::year{y} / std::chrono::month{static_cast<unsigned>(m)} /
                  std::chrono::day{static_cast<unsigned>(d)}};
}

}  // namespace

int daysInMonth(int y, int m) {
  if (m < 1 || m > 12) return 0;
  return static_cast<int>(
      static_cast<unsigned>((year{y} / month{static_cast<unsigned>(m)} / last).day()));
}

Date Date::fromSysDays(sys_days days) { return Date(static_cast<double>((days - kEpoch).count())); }

Date Date::fromParts(const DateParts& p) {
  if (!validYear(p.year) || p.month < 1 || p.month > 12 || p.day < 1 ||
      p.day > daysInMonth(p.year, p.month) || p.hour < 0 || p.hour > 23 || p.minute < 0 ||
      p.minute > 59 || p.second < 0 || p.second > 59) {
    raise(ErrorNumber::kInvalidProcedureCall, "date or time out of range");
  }
  double day = fromSysDays(toSysDays(p.year, p.month, p.day)).serial();
  double time = (p.hour * 3600.0 + p.minute * 60.0 + p.second) / 86400.0;
  return Date(day < 0 ? day - time : day + time);
}

Date Date::serial(int y, int m, int d) {
  // Months roll into years, then days roll from the first of that month. Counted in 64 bits:
  // the arguments may be anything an int holds.
  int64_t months = int64_t{y} * 12 + (int64_t{m} - 1);
  int64_t yy = months >= 0 ? months / 12 : (months - 11) / 12;
  int mm = static_cast<int>(months - yy * 12) + 1;
  if (yy < 100 || yy > 9999) raise(ErrorNumber::kInvalidProcedureCall, "year out of range");
  sys_days first = toSysDays(static_cast<int>(yy), mm, 1);
  Date result = fromSysDays(first + days{int64_t{d} - 1});
  if (!result.inRange() || !validYear(result.year()))
    raise(ErrorNumber::kInvalidProcedureCall, "date out of range");
  return result;
}

DateParts Date::parts() const {
  if (!inRange()) raise(ErrorNumber::kOverflow, "the number is outside the range of dates");
  double whole = std::trunc(serial_);
  long long secs = std::llround(std::fabs(serial_ - whole) * 86400.0);
  if (secs >= 86400) {  // rounding reached the next midnight
    secs -= 86400;
    whole += serial_ < 0 ? -1 : 1;
  }
  year_month_day ymd{kEpoch + days{static_cast<long long>(whole)}};
  DateParts p;
  p.year = static_cast<int>(ymd.year());
  p.month = static_cast<int>(static_cast<unsigned>(ymd.month()));
  p.day = static_cast<int>(static_cast<unsigned>(ymd.day()));
  p.hour = static_cast<int>(secs / 3600);
  p.minute = static_cast<int>(secs / 60 % 60);
  p.second = static_cast<int>(secs % 60);
  return p;
}

year_month_day Date::ymd() const { return year_month_day{sysDays()}; }

sys_days Date::sysDays() const {
  DateParts p = parts();
  return toSysDays(p.year, p.month, p.day);
}

int Date::weekday() const {
  return static_cast<int>(std::chrono::weekday{sysDays()}.c_encoding()) + 1;
}

Date Date::datePart() const { return fromSysDays(sysDays()); }

Date Date::timePart() const {
  DateParts p = parts();
  return Date((p.hour * 3600.0 + p.minute * 60.0 + p.second) / 86400.0);
}

bool Date::hasTime() const { return serial_ != std::trunc(serial_); }

Date Date::addDays(double n) const {
  // Work on the linear time line so that negative serials keep their time of day.
  double day = static_cast<double>((sysDays() - kEpoch).count());
  double time = timePart().serial();
  double linear = day + time + n;
  double newDay = std::floor(linear);
  double newTime = linear - newDay;
  return Date(newDay < 0 ? newDay - newTime : newDay + newTime);
}

Date Date::addMinutes(double minutes) const { return addDays(minutes / 1440.0); }

}  // namespace nvwm
