// Public: the error and trace service (errorClass) that a host hands the library.
#pragma once

#include <cstdint>
#include <string>

#include "runtime/error.h"

namespace nvwm {

// What a routine does after its handler has reported an error. DO NOT CHANGE THESE VALUES:
// error services answer them as numbers.
enum class ErrorAction : int32_t {
  kResumeNext = 1,  // go on with the step after the one that failed
  kExit = 2,        // go to the routine's exit
  kEnd = 3,         // end of program: a component does not end its host, so this acts as kExit
};

// Keeps the trace stack of routine log tags and decides what a run-time error does next.
// Every member may raise RuntimeError; the routine shape treats such a failure as the end of
// the routine. Not thread-safe: one per thread, as the library-wide references are.
class ErrorService {
 public:
  virtual ~ErrorService() = default;
  // Asked first by the handlers of the address routines: True means leave without reporting.
  virtual bool errorsAreSuppressed() = 0;
  // 1, 2 or 3 (see ErrorAction); any other value acts as 2.
  virtual int32_t getErrorAction() = 0;
  // Records the current error.
  virtual void setError(const RuntimeError& error) = 0;
  // Reports the recorded error to the user and the log, with the trace stack.
  virtual void showError() = 0;
  // Pops the tag pushed by enterProc.
  virtual void exitProc() = 0;
  // Pushes a routine's log tag, "Program.exe-module-routine".
  virtual void enterProc(const std::string& logTag) = 0;
};

}  // namespace nvwm
