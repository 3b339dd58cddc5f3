#include "runtime/clock.h"

#include <chrono>
#include <ctime>

namespace nvwm {
namespace {

thread_local std::shared_ptr<Clock> tClock;

}  // namespace

Date SystemClock::now() const {
  std::time_t t = std::time(nullptr);
  std::tm local{};
  localtime_r(&t, &local);
  return Date::fromParts({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                          local.tm_min, local.tm_sec == 60 ? 59 : local.tm_sec});
}

void setClock(std::shared_ptr<Clock> clock) { tClock = std::move(clock); }

Date Now() {
  if (tClock) return tClock->now();
  return SystemClock().now();
}

Date Today() { return Now().datePart(); }

Date TimeOfDay() { return Now().timePart(); }

}  // namespace nvwm
