// Public: the default error service: keeps the trace stack and logs through spdlog.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/error_service.h"

namespace spdlog {
class logger;
}

namespace nvwm {

// The trace stack holds the log tags of the routines entered and not yet left, the oldest
// first. showError writes one line at error level to the logger:
//   error 13 "Type mismatch" in Tallowbrook.exe-modA-outer > Tallowbrook.exe-modB-inner
// and nothing when no error was set. The recorded error stays until the next setError.
// getErrorAction answers the set action (2, go to the exit, until set) and errorsAreSuppressed
// the set flag (False until set). exitProc on an empty stack does nothing. No member raises.
// Not thread-safe: one per thread, as the library-wide references are.
class LoggingErrorService : public ErrorService {
 public:
  // Logs to spdlog's default logger.
  LoggingErrorService();
  explicit LoggingErrorService(std::shared_ptr<spdlog::logger> logger);

  bool errorsAreSuppressed() override { return suppressed_; }
  int32_t getErrorAction() override { return action_; }
  void setError(const RuntimeError& error) override;
  void showError() override;
  void exitProc() override;
  void enterProc(const std::string& logTag) override;

  void setErrorAction(int32_t action) { action_ = action; }
  void setErrorsAreSuppressed(bool suppressed) { suppressed_ = suppressed; }
  const std::vector<std::string>& traceStack() const { return stack_; }
  // The error recorded by the last setError, if any.
  const std::optional<RuntimeError>& lastError() const { return error_; }

 private:
  std::shared_ptr<spdlog::logger> logger_;
  std::vector<std::string> stack_;
  std::optional<RuntimeError> error_;
  int32_t action_ = static_cast<int32_t>(ErrorAction::kExit);
  bool suppressed_ = false;
};

}  // namespace nvwm
