// Runs a built program as a user would, for the command-line tests.
#pragma once

#include <string>

namespace nvwm::testing {

struct ProgramRun {
  int exitCode = -1;  // -1 when the program didn't exit normally
  std::string out;    // standard output
  std::string err;    // standard error
};

// Runs `program` with `args` (already quoted for the shell) and collects its output.
ProgramRun runProgram(const std::string& program, const std::string& args);

}  // namespace nvwm::testing
