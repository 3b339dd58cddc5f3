// Helpers of the tests from the host layer up: a recording error service and fresh library
// references per test, with the assertions and temporary folders of the lower layers.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "host/error_service.h"
#include "host/references.h"
#include "runtime/error.h"
#include "support/runtime_assertions.h"
#include "support/temp_dir.h"

namespace nvwm::testing {

// An error service that records what the library told it and answers a set action.
class RecordingErrorService : public ErrorService {
 public:
  int32_t action = 2;
  bool suppressed = false;
  std::vector<std::string> stack;    // the live trace stack
  std::vector<std::string> entered;  // every tag pushed, in order
  std::vector<RuntimeError> errors;  // every error set
  // The trace stack at each showError.
  std::vector<std::vector<std::string>> shownWithStack;

  bool errorsAreSuppressed() override { return suppressed; }
  int32_t getErrorAction() override { return action; }
  void setError(const RuntimeError& error) override { errors.push_back(error); }
  void showError() override { shownWithStack.push_back(stack); }
  void exitProc() override {
    if (!stack.empty()) stack.pop_back();
  }
  void enterProc(const std::string& logTag) override {
    stack.push_back(logTag);
    entered.push_back(logTag);
  }
};

// Installs fresh library-wide references for one test and restores the old ones after.
class ScopedReferences {
 public:
  ScopedReferences();
  ~ScopedReferences();
  // A recording error service, installed as errorClass.
  std::shared_ptr<RecordingErrorService> errors;

 private:
  LibraryReferences saved_;
};

}  // namespace nvwm::testing
