#include "services/logging_error_service.h"

#include <spdlog/spdlog.h>

namespace nvwm {

LoggingErrorService::LoggingErrorService() : LoggingErrorService(spdlog::default_logger()) {}

LoggingErrorService::LoggingErrorService(std::shared_ptr<spdlog::logger> logger)
    : logger_(std::move(logger)) {}

void LoggingErrorService::setError(const RuntimeError& error) { error_ = error; }

void LoggingErrorService::showError() {
  if (!error_ || !logger_) return;
  std::string trace;
  for (const std::string& tag : stack_) {
    if (!trace.empty()) trace += " > ";
    trace += tag;
  }
  logger_->error("error {} \"{}\" in {}", error_->number(), error_->description(),
                 trace.empty() ? std::string("(no routine)") : trace);
}

void LoggingErrorService::exitProc() {
  if (!stack_.empty()) stack_.pop_back();
}

void LoggingErrorService::enterProc(const std::string& logTag) { stack_.push_back(logTag); }

}  // namespace nvwm
