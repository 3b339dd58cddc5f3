#include "scheduling/random_source.h"

#include <bit>
#include <cstdint>

namespace nvwm {
namespace {

thread_local std::shared_ptr<RandomSource> tSource;

}  // namespace

void ClockSeededRandom::reseed(Date now) {
  const auto bits = std::bit_cast<uint64_t>(now.serial());
  std::seed_seq seed{static_cast<uint32_t>(bits), static_cast<uint32_t>(bits >> 32)};
  engine_.seed(seed);
}

float ClockSeededRandom::draw() {
  // 24 random bits make every float of [0, 1) that a step of 2^-24 reaches; never 1.
  return static_cast<float>(engine_() >> 8) * (1.0f / 16777216.0f);
}

RandomSource& randomSource() {
  if (!tSource) tSource = std::make_shared<ClockSeededRandom>();
  return *tSource;
}

void setRandomSource(std::shared_ptr<RandomSource> source) { tSource = std::move(source); }

}  // namespace nvwm
