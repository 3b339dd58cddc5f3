// Public: the date helpers (host/utilities.h DateUtility).
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/utilities.h"

namespace nvwm {

// Arithmetic runs on the time line, not on the raw OLE serial, so dates before 1899-12-30 keep
// their time of day; results are rounded to the second, as dates are shown. A result outside
// years 100..9999 raises 5. Thread-safe apart from setErrorClass.
class StandardDateUtility : public DateUtility {
 public:
  // Kept for the contract; the helpers raise to their caller instead.
  void setErrorClass(std::shared_ptr<ErrorService> errorClass) override;
  // The date at midnight: the time of day is dropped. A time alone gives 1899-12-30.
  Date getDateOnly(const Date& date) override;
  // True for a Saturday or a Sunday (a time alone stands on Saturday 1899-12-30).
  bool isWeekend(const Date& date) override;
  // A reminder that a lead time moved onto a weekend goes back to the Friday before, so that it
  // comes up on a working day ahead of the due day: Saturday and Sunday give Friday, a working
  // day stays. The time of day is kept. (A "1 Day" reminder of a Monday task lands on Friday.)
  Date adjustReminderDate(const Date& date) override;
  // The time plus the hours (negative hours go back), to the nearest second; may cross days.
  Date addHoursToTime(const Date& time, double hours) override;
  // |second - first| in hours, to the nearest second; never negative.
  double getHoursBetween(const Date& first, const Date& second) override;
  // The duration in hours and minutes: "0 min", "31 min", "1 hr", "1 hr 30 min", "2 hrs",
  // "2 hrs 5 min", "25 hrs". "hr" takes an "s" from 2 hours; "min" never changes. A negative
  // number of minutes is written as its size after a "-": -90 gives "-1 hr 30 min".
  std::string minutesToDurationText(int32_t minutes) override;

 private:
  std::shared_ptr<ErrorService> errorClass_;
};

}  // namespace nvwm
