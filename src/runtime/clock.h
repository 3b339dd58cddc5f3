// Public: the one clock of the library. "Today" and "now" come from here, so that a host or a
// test can freeze time (the tax names change on 1 July 2010; "Todays Date" prints today).
#pragma once

#include <memory>

#include "runtime/date.h"

namespace nvwm {

class Clock {
 public:
  virtual ~Clock() = default;
  // The local date and time.
  virtual Date now() const = 0;
};

// The system's local time.
class SystemClock : public Clock {
 public:
  Date now() const override;
};

// Always gives the date it was set to. For tests and for a host that pins a date.
class FixedClock : public Clock {
 public:
  explicit FixedClock(Date at) : at_(at) {}
  Date now() const override { return at_; }
  void set(Date at) { at_ = at; }

 private:
  Date at_;
};

// Replaces the clock of the calling thread; nullptr goes back to the system clock.
void setClock(std::shared_ptr<Clock> clock);
// Now(), Date() and Time() of the original runtime.
Date Now();
Date Today();
Date TimeOfDay();

}  // namespace nvwm
