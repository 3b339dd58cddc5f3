// "sample-db PATH": writes the sample practice database.
#include <iostream>

#include "cli/commands.h"
#include "runtime/error.h"
#include "services/sqlite/sample_practice.h"

namespace nvwm::cli {

void registerSampleDb(CLI::App& app) {
  auto* cmd = app.add_subcommand(
      "sample-db", "Writes a sample practice database (a made-up Ontario accounting firm)");
  auto path = std::make_shared<std::string>();
  cmd->add_option("path", *path, "The database file to create (must not exist)")->required();
  cmd->callback([path] {
    try {
      writeSamplePractice(*path);
      std::cout << "sample practice written to " << *path << "\n";
      setExitCode(0);
    } catch (const RuntimeError& e) {
      std::cerr << "nvwordmerge sample-db: " << e.description() << "\n";
      setExitCode(1);
    }
  });
}

}  // namespace nvwm::cli
