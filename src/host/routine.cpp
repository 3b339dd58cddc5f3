#include "host/routine.h"

#include "host/references.h"

namespace nvwm {

Routine::Routine(std::string_view logTag, ExtraHandlerSteps extra) : extra_(std::move(extra)) {
  step([&] {
    requireReference(references().errorClass, "errorClass").enterProc(std::string(logTag));
  });
}

Routine::Routine(std::string_view logTag, OwnErrorService errors, ExtraHandlerSteps extra)
    : extra_(std::move(extra)), ownService_(true), errors_(errors.service) {
  if (errors_ == nullptr) return;
  step([&] { errors_->enterProc(std::string(logTag)); });
}

ErrorService* Routine::service() const {
  return ownService_ ? errors_ : references().errorClass.get();
}

Routine::~Routine() {
  // The exit label: errors are skipped from here on.
  if (skipExitProc_) return;
  try {
    if (ErrorService* errors = service()) errors->exitProc();
  } catch (...) {
  }
}

void Routine::handle(const RuntimeError& error) {
  lastError_ = error;
  if (skipping_) return;  // passed over: the next step runs
  running_ = false;
  try {
    ErrorService* errors = service();
    if (askSuppression_ && errors != nullptr && errors->errorsAreSuppressed()) return;
    if (extra_) extra_(error);
    if (errors == nullptr) return;
    errors->setError(error);
    errors->showError();
    int32_t action = errors->getErrorAction();
    if (action == static_cast<int32_t>(ErrorAction::kResumeNext)) running_ = true;
    // kEnd calls the end-of-program routine, which is empty in a component: acts as kExit.
  } catch (...) {
    // An error inside the handler ends the routine.
    running_ = false;
  }
}

}  // namespace nvwm
