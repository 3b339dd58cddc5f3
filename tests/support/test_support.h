// Helpers shared by the tests: error assertions, a recording error service, temporary folders.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "host/error_service.h"
#include "host/references.h"
#include "runtime/error.h"

// Asserts that a statement raises a RuntimeError with the given number.
#define EXPECT_RUNTIME_ERROR(statement, expectedNumber)                                    \
  do {                                                                                     \
    try {                                                                                  \
      statement;                                                                           \
      ADD_FAILURE() << #statement " raised nothing; expected error " << (expectedNumber);  \
    } catch (const ::nvwm::RuntimeError& e_) {                                             \
      EXPECT_EQ(e_.number(), static_cast<int32_t>(expectedNumber)) << e_.description();    \
    }                                                                                      \
  } while (0)

namespace nvwm::testing {

// An error service that records what the library told it and answers a set action.
class RecordingErrorService : public ErrorService {
 public:
  int32_t action = 2;
  bool suppressed = false;
  std::vector<std::string> stack;     // the live trace stack
  std::vector<std::string> entered;   // every tag pushed, in order
  std::vector<RuntimeError> errors;   // every error set
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

// A folder under the system's temporary folder, removed with everything in it at the end.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  const std::filesystem::path& path() const { return path_; }
  std::string file(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

// What a run of a program gave: its exit code (-1 when it didn't exit normally), standard
// output and standard error, kept apart.
struct ProgramRun {
  int exitCode = -1;
  std::string out;
  std::string err;
};

// Runs the program with the arguments (already quoted for the shell), standard input from
// stdinFile when one is given. Standard error goes through a file in scratch.
ProgramRun runProgram(const std::string& program, const std::string& args, const TempDir& scratch,
                      const std::string& stdinFile = "");

}  // namespace nvwm::testing
