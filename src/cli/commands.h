// The subcommands of the nvwordmerge program. Each command file registers itself here.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "runtime/date.h"

namespace nvwm {
class LoggingErrorService;
}

namespace nvwm::cli {

// Adds every subcommand to the app.
void registerCommands(CLI::App& app);
// The exit code the command that ran has set (0 when none ran).
int exitCode();
void setExitCode(int code);

// Installs as errorClass an error service that logs to standard error under the command's name,
// so that standard output holds the command's own output alone. Returns it.
std::shared_ptr<LoggingErrorService> useStderrErrorService(const std::string& command);

// One function per command file.
void registerSelfCheck(CLI::App& app);
void registerSampleDb(CLI::App& app);
void registerSql(CLI::App& app);
void registerDocxMerge(CLI::App& app);
void registerFields(CLI::App& app);
void registerFill(CLI::App& app);
void registerCheck(CLI::App& app);
void registerContact(CLI::App& app);
void registerMerge(CLI::App& app);
void registerSchedule(CLI::App& app);

// The text with a tab, a line break or a backslash written \t, \n, \r or \\, so that it
// stays on one line of output.
std::string oneLine(const std::string& text);
// A date given as YYYY-MM-DD; nothing for any other text or a day that doesn't exist.
std::optional<Date> parseIsoDate(const std::string& text);

}  // namespace nvwm::cli
