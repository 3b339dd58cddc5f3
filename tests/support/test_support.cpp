#include "support/test_support.h"

#include <random>

namespace nvwm::testing {

ScopedReferences::ScopedReferences() : saved_(references()) {
  references() = LibraryReferences{};
  errors = std::make_shared<RecordingErrorService>();
  references().errorClass = errors;
  references().errorClassIsSet = true;
}

ScopedReferences::~ScopedReferences() { references() = saved_; }

TempDir::TempDir() {
  std::random_device rd;
  auto base = std::filesystem::temp_directory_path();
  for (;;) {
    path_ = base / ("nvwm-test-" + std::to_string(rd()));
    if (std::filesystem::create_directory(path_)) break;
  }
}

TempDir::~TempDir() {
  std::error_code ec;
  std::filesystem::remove_all(path_, ec);
}

}  // namespace nvwm::testing
