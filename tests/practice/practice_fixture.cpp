#include "practice_fixture.h"

namespace nvwm::testing {

PracticeFixture::PracticeFixture() : db_(std::make_shared<RecordingDatabase>(practice_.service())) {
  references().DatabaseReference = db_;
  references().variantUtility = factories().createVariantUtility();
}

void PracticeFixture::exec(const std::string& sql) { practice_.exec(sql); }

std::string PracticeFixture::stored(const std::string& sql) { return practice_.stored(sql); }

std::vector<int32_t> PracticeFixture::errorNumbers() const {
  std::vector<int32_t> numbers;
  for (const RuntimeError& e : refs_.errors->errors) numbers.push_back(e.number());
  return numbers;
}

}  // namespace nvwm::testing
