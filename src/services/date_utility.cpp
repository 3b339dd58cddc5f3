// The OLE serial is not linear before day 0 (-1.25 is 1899-12-29 06:00), so sums and
// differences go through seconds on the time line: day * 86400 + seconds of the day.
#include "services/date_utility.h"

#include <chrono>
#include <cmath>
#include <cstdlib>

#include "runtime/error.h"

namespace nvwm {
namespace {

constexpr int64_t kSecondsPerDay = 86400;
const std::chrono::sys_days kEpoch{std::chrono::year{1899} / std::chrono::December / 30};

int64_t toSeconds(const Date& d) {
  const DateParts p = d.parts();
  const int64_t day = (d.sysDays() - kEpoch).count();
  return day * kSecondsPerDay + p.hour * 3600 + p.minute * 60 + p.second;
}

Date fromSeconds(int64_t seconds) {
  int64_t day = seconds / kSecondsPerDay;
  int64_t rest = seconds % kSecondsPerDay;
  if (rest < 0) {
    rest += kSecondsPerDay;
    --day;
  }
  Date at = Date::fromSysDays(kEpoch + std::chrono::days{day});
  if (!at.inRange()) raise(ErrorNumber::kInvalidProcedureCall, "date out of range");
  const double time = static_cast<double>(rest) / kSecondsPerDay;
  return Date(day < 0 ? at.serial() - time : at.serial() + time);
}

std::string plural(int64_t n, const char* one, const char* many) {
  return std::to_string(n) + " " + (n == 1 ? one : many);
}

}  // namespace

void StandardDateUtility::setErrorClass(std::shared_ptr<ErrorService> errorClass) {
  errorClass_ = std::move(errorClass);
}

Date StandardDateUtility::getDateOnly(const Date& date) { return date.datePart(); }

bool StandardDateUtility::isWeekend(const Date& date) {
  const int weekday = date.weekday();  // 1 Sunday .. 7 Saturday
  return weekday == 1 || weekday == 7;
}

Date StandardDateUtility::adjustReminderDate(const Date& date) {
  switch (date.weekday()) {
    case 1:
      return fromSeconds(toSeconds(date) - 2 * kSecondsPerDay);
    case 7:
      return fromSeconds(toSeconds(date) - kSecondsPerDay);
    default:
      return date;
  }
}

Date StandardDateUtility::addHoursToTime(const Date& time, double hours) {
  const double seconds = std::round(hours * 3600.0);
  // Beyond this the result leaves years 100..9999 whatever the start.
  if (!std::isfinite(seconds) || std::fabs(seconds) > 4.0e11) {
    raise(ErrorNumber::kInvalidProcedureCall, "hours out of range");
  }
  return fromSeconds(toSeconds(time) + static_cast<int64_t>(seconds));
}

double StandardDateUtility::getHoursBetween(const Date& first, const Date& second) {
  return static_cast<double>(std::llabs(toSeconds(second) - toSeconds(first))) / 3600.0;
}

std::string StandardDateUtility::minutesToDurationText(int32_t minutes) {
  const int64_t size = std::llabs(static_cast<int64_t>(minutes));
  const int64_t hours = size / 60;
  const int64_t rest = size % 60;
  std::string text = minutes < 0 ? "-" : "";
  if (hours > 0) {
    text += plural(hours, "hr", "hrs");
    if (rest > 0) text += " " + std::to_string(rest) + " min";
  } else {
    text += std::to_string(rest) + " min";
  }
  return text;
}

}  // namespace nvwm
