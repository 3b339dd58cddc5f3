#include "support/test_support.h"

#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <random>
#include <sstream>

namespace nvwm::testing {

ScopedReferences::ScopedReferences() : saved_(references()) {
  references() = LibraryReferences{};
  errors = std::make_shared<RecordingErrorService>();
  references().errorClass = errors;
  references().errorClassIsSet = true;
}

ScopedReferences::~ScopedReferences() { references() = saved_; }

TempDir::TempDir() {
  std::random_device rd;
  auto base = std::filesystem::temp_directory_path();
  for (;;) {
    path_ = base / ("nvwm-test-" + std::to_string(rd()));
    if (std::filesystem::create_directory(path_)) break;
  }
}

TempDir::~TempDir() {
  std::error_code ec;
  std::filesystem::remove_all(path_, ec);
}

ProgramRun runProgram(const std::string& program, const std::string& args, const TempDir& scratch,
                      const std::string& stdinFile) {
  const std::string errFile = scratch.file("program-stderr.txt");
  std::string command = "'" + program + "' " + args + " 2>'" + errFile + "'";
  if (!stdinFile.empty()) command += " <'" + stdinFile + "'";
  ProgramRun run;
  FILE* p = popen(command.c_str(), "r");
  if (p == nullptr) return run;
  char buffer[4096];
  for (size_t n; (n = fread(buffer, 1, sizeof buffer, p)) > 0;) run.out.append(buffer, n);
  const int status = pclose(p);
  run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  std::ostringstream err;
  err << std::ifstream(errFile).rdbuf();
  run.err = err.str();
  return run;
}

}  // namespace nvwm::testing
