// Public: the random numbers of the calendar search (Randomize and Rnd of the original).
//
// The search reseeds the source from the clock at each call and then draws once, so a host or
// a test that freezes the clock (runtime/clock.h) gets the same draw each time; a test may also
// install a source of its own. One source per thread; not thread-safe.
#pragma once

#include <memory>
#include <random>

#include "runtime/date.h"

namespace nvwm {

class RandomSource {
 public:
  virtual ~RandomSource() = default;
  // Randomize: seeds anew from the clock's value.
  virtual void reseed(Date now) = 0;
  // Rnd: a uniform single float with 0 <= r < 1.
  virtual float draw() = 0;
};

// The default: a Mersenne twister seeded from the clock's value. Two calls within the same
// second of the system clock draw the same number, as two calls within one tick of the
// original's timer did.
class ClockSeededRandom : public RandomSource {
 public:
  void reseed(Date now) override;
  float draw() override;

 private:
  std::mt19937 engine_;
};

// The calling thread's source; the default until one is set.
RandomSource& randomSource();
// Replaces the calling thread's source; nullptr goes back to the default.
void setRandomSource(std::shared_ptr<RandomSource> source);

}  // namespace nvwm
