// Public: the shape of every routine of substance.
//
// A routine enters the error service with its log tag, runs its body as explicit steps, and
// leaves the error service at its exit. A RuntimeError in a step goes to the handler:
//   1. the routine's extra handler steps, if it has any (set a result, raise an event...);
//   2. with an error service: setError, showError, then getErrorAction:
//      1 goes on with the next step; 2, 3 and anything else go to the exit
//      (3 would end the program, which a component must not do to its host: it acts as 2);
//   3. without an error service: straight to the exit.
// Without an error service the routine fails at enterProc, so it does nothing and reports
// nothing. In "skip errors" mode a failing step is passed over without the handler, as the exit
// itself does (exitProc's own failure is passed over).
//
//   int32_t lookupSomething(int32_t id) {
//     int32_t result = -1;
//     Routine r("Tallowbrook.exe-modDatabaseFunctions-lookupSomething");
//     r.step([&] { ...first statement... });
//     r.step([&] { ...second statement... });
//     return result;
//   }
//
// Not thread-safe; a Routine lives on the stack of one call.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "runtime/error.h"

namespace nvwm {
class ErrorService;
}

namespace nvwm {

class Routine {
 public:
  using ExtraHandlerSteps = std::function<void(const RuntimeError&)>;

  explicit Routine(std::string_view logTag) : Routine(logTag, nullptr) {}
  // extra runs first in the handler, also when the error service is missing.
  Routine(std::string_view logTag, ExtraHandlerSteps extra);
  // The error service of an object that holds its own (clsInsertFieldsInRTB's errorClassRTB)
  // instead of the library-wide errorClass. `service` may be null and must outlive the routine.
  struct OwnErrorService {
    ErrorService* service;
  };
  // A routine on an object's own error service. It enters and leaves that service only while
  // one is given: with none the body runs all the same, and an error in a step goes straight
  // to the exit, as with an empty errorClass.
  Routine(std::string_view logTag, OwnErrorService errors, ExtraHandlerSteps extra = nullptr);
  // The exit label: errors skipped, exitProc.
  ~Routine();
  Routine(const Routine&) = delete;
  Routine& operator=(const Routine&) = delete;

  // Runs one step when the routine is still in its body. Returns whether it still is after the
  // step (False once the handler sent it to the exit).
  template <class Step>
  bool step(Step&& body) {
    if (!running_) return false;
    try {
      std::forward<Step>(body)();
    } catch (const RuntimeError& e) {
      handle(e);
    } catch (const std::bad_alloc&) {
      handle(RuntimeError(ErrorNumber::kOutOfMemory, "Out of memory"));
    } catch (const std::exception& e) {
      handle(RuntimeError(ErrorNumber::kInternalError, e.what()));
    }
    return running_;
  }

  // True while the body runs; False once the routine went to its exit.
  bool running() const { return running_; }
  explicit operator bool() const { return running_; }
  // From here on a failing step is passed over without the handler. Never set back.
  void skipErrors() { skipping_ = true; }
  // The handler asks errorsAreSuppressed first; True leaves without reporting.
  void askSuppressionFirst() { askSuppression_ = true; }
  // Go to the exit now, as the body's own "exit" statement.
  void exit() { running_ = false; }
  // Leave now without exitProc: the routine's tag stays on the trace stack, as it does for a
  // routine whose body returns before its exit label.
  void leaveWithoutExitProc() {
    running_ = false;
    skipExitProc_ = true;
  }
  // The last error that reached the handler or was skipped (number 0 when none).
  const RuntimeError& lastError() const { return lastError_; }

 private:
  void handle(const RuntimeError& error);
  // The error service this routine reports to (may be null).
  ErrorService* service() const;

  ExtraHandlerSteps extra_;
  bool ownService_ = false;  // True: errors_ is the service, not the library-wide errorClass
  ErrorService* errors_ = nullptr;
  bool running_ = true;
  bool skipping_ = false;
  bool askSuppression_ = false;
  bool skipExitProc_ = false;
  RuntimeError lastError_{0, ""};
};

}  // namespace nvwm
