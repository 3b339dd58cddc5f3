#include "support/program_run.h"

#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "support/test_support.h"

namespace nvwm::testing {

ProgramRun runProgram(const std::string& program, const std::string& args) {
  ProgramRun r;
  TempDir dir;
  const std::string errFile = dir.file("stderr.txt");
  const std::string command = "'" + program + "' " + args + " 2>'" + errFile + "'";
  FILE* p = popen(command.c_str(), "r");
  if (!p) return r;
  char buf[4096];
  size_t n;
  while ((n = fread(buf, 1, sizeof buf, p)) > 0) r.out.append(buf, n);
  const int status = pclose(p);
  r.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  std::ifstream in(errFile, std::ios::binary);
  std::ostringstream err;
  err << in.rdbuf();
  r.err = err.str();
  return r;
}

}  // namespace nvwm::testing
