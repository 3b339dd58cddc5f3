// Public: the OLE automation date that the original runtime and the practice database use.
#pragma once

#include <chrono>
#include <cstdint>

namespace nvwm {

// Broken-down date and time. Months and days count from 1.
struct DateParts {
  int year = 1899;
  int month = 12;
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

// A date and time as the OLE automation date: days since 1899-12-30 as a double; a time of day
// alone is the fraction with a zero whole part. Valid from year 100 to year 9999.
// Value type; thread-safe as any double.
class Date {
 public:
  // The serials of 100-01-01 00:00:00 and of the day after 9999-12-31.
  static constexpr double kMinSerial = -657434.0;
  static constexpr double kMaxSerialEnd = 2958466.0;

  constexpr Date() = default;
  constexpr explicit Date(double serial) : serial_(serial) {}

  // Raises 5 for a date outside years 100..9999 or an invalid month/day/time (no rolling over).
  static Date fromParts(const DateParts& parts);
  static Date fromYmd(int year, int month, int day) { return fromParts({year, month, day}); }
  static Date fromTime(int hour, int minute, int second) {
    return fromParts({1899, 12, 30, hour, minute, second});
  }
  // Like DateSerial of the original: months and days outside their range roll over.
  static Date serial(int year, int month, int day);
  static Date fromSysDays(std::chrono::sys_days days);

  constexpr double serial() const { return serial_; }
  // True for a serial of years 100..9999 (-657434 up to but not including 2958466); false
  // for anything else, NaN and the infinities included.
  constexpr bool inRange() const { return serial_ >= kMinSerial && serial_ < kMaxSerialEnd; }
  // Whole and fraction, rounded to the second. Raises 6 (overflow) when !inRange(): there is
  // no calendar date to give. Every member below that reads the calendar raises the same.
  DateParts parts() const;
  std::chrono::year_month_day ymd() const;
  std::chrono::sys_days sysDays() const;

  int year() const { return parts().year; }
  int month() const { return parts().month; }
  int day() const { return parts().day; }
  int hour() const { return parts().hour; }
  int minute() const { return parts().minute; }
  int second() const { return parts().second; }
  // 1 = Sunday ... 7 = Saturday, as Weekday() with the default first day.
  int weekday() const;

  // The date part alone (time 00:00:00), and the time part alone (on 1899-12-30).
  Date datePart() const;
  Date timePart() const;
  bool hasTime() const;

  Date addDays(double days) const;
  Date addMinutes(double minutes) const;

  friend constexpr bool operator==(Date a, Date b) { return a.serial_ == b.serial_; }
  friend constexpr auto operator<=>(Date a, Date b) { return a.serial_ <=> b.serial_; }

 private:
  double serial_ = 0.0;
};

// The number of days of a month; 0 for a month outside 1..12.
int daysInMonth(int year, int month);

}  // namespace nvwm
