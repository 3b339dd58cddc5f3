// "self-check": a short run over the runtime that proves the build works on this machine.
#include <iostream>

#include "cli/commands.h"
#include "runtime/clock.h"
#include "runtime/convert.h"

namespace nvwm::cli {

void registerSelfCheck(CLI::App& app) {
  auto* cmd = app.add_subcommand("self-check", "Checks that the library works on this machine");
  cmd->callback([] {
    Date today = Today();
    std::cout << "today: " << CStr(today) << "\n";
    std::cout << "CLng(\"2.5\") = " << CLng(Variant("2.5")) << "\n";
    std::cout << "self-check passed\n";
    setExitCode(0);
  });
}

}  // namespace nvwm::cli
