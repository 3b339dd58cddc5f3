// The subcommands of the nvwordmerge program. Each command file registers itself here.
#pragma once

#include <CLI/CLI.hpp>

namespace nvwm::cli {

// Adds every subcommand to the app.
void registerCommands(CLI::App& app);
// The exit code the command that ran has set (0 when none ran).
int exitCode();
void setExitCode(int code);

// One function per command file.
void registerSelfCheck(CLI::App& app);
void registerSampleDb(CLI::App& app);
void registerSql(CLI::App& app);
void registerDocxMerge(CLI::App& app);
void registerFields(CLI::App& app);
void registerMerge(CLI::App& app);

}  // namespace nvwm::cli
