// nvwordmerge: runs the library's jobs from the command line.
#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/commands.h"

int main(int argc, char** argv) {
  CLI::App app{"nvwordmerge: fills letter templates and runs mail merges from a practice database"};
  app.set_version_flag("--version", std::string("nvwordmerge ") + NVWM_VERSION);
  app.require_subcommand(0, 1);
  nvwm::cli::registerCommands(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    return app.exit(e);
  }
  if (app.get_subcommands().empty()) {
    std::cout << app.help();
    return 0;
  }
  return nvwm::cli::exitCode();
}
