#include "cli/commands.h"

namespace nvwm::cli {
namespace {
int gExitCode = 0;
}  // namespace

int exitCode() { return gExitCode; }
void setExitCode(int code) { gExitCode = code; }

void registerCommands(CLI::App& app) {
  registerSelfCheck(app);
  registerSampleDb(app);
  registerSql(app);
  registerDocxMerge(app);
  registerFields(app);
  registerMerge(app);
}

}  // namespace nvwm::cli
