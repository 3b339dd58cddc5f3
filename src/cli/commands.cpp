#include "cli/commands.h"

#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/spdlog.h>

#include <cstdio>

#include "host/references.h"
#include "runtime/error.h"
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
  registerSchedule(app);
}

std::string oneLine(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '\t':
        out += "\\t";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\\':
        out += "\\\\";
        break;
      default:
        out += c;
    }
  }
  return out;
}

std::optional<Date> parseIsoDate(const std::string& text) {
  int y = 0, m = 0, d = 0;
  char tail = 0;
  if (std::sscanf(text.c_str(), "%d-%d-%d%c", &y, &m, &d, &tail) != 3) return std::nullopt;
  try {
    return Date::fromYmd(y, m, d);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

}  // namespace nvwm::cli
