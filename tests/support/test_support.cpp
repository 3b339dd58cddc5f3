#include "support/test_support.h"

namespace nvwm::testing {

ScopedReferences::ScopedReferences() : saved_(references()) {
  references() = LibraryReferences{};
  errors = std::make_shared<RecordingErrorService>();
  references().errorClass = errors;
  references().errorClassIsSet = true;
}

ScopedReferences::~ScopedReferences() { references() = saved_; }

}  // namespace nvwm::testing
