#include "cli/commands.h"

#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/spdlog.h>

#include "host/references.h"
#include "services/logging_error_service.h"

namespace nvwm::cli {
namespace {
int gExitCode = 0;
}  // namespace

int exitCode() { return gExitCode; }
void setExitCode(int code) { gExitCode = code; }

std::shared_ptr<LoggingErrorService> useStderrErrorService(const std::string& command) {
  auto logger = spdlog::get(command);
  if (!logger) logger = spdlog::stderr_logger_mt(command);
  auto errors = std::make_shared<LoggingErrorService>(logger);
  references().errorClass = errors;
  references().errorClassIsSet = true;
  return errors;
}

void registerCommands(CLI::App& app) {
  registerSelfCheck(app);
  registerSampleDb(app);
  registerSql(app);
  registerDocxMerge(app);
  registerFields(app);
  registerFill(app);
  registerCheck(app);
  registerContact(app);
  registerMerge(app);
}

}  // namespace nvwm::cli
