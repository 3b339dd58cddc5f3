// nvwordmerge: runs the library's jobs from the command line.
//
// Exit codes: 0 done; 1 the job failed with a reported error (one line on stderr); 2 anything
// else that went wrong (memory, an unexpected exception): also one line on stderr, never an
// abort. Command-line mistakes exit with CLI11's codes and its message.
#include <CLI/CLI.hpp>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

#include "cli/commands.h"
#include "runtime/error.h"

namespace {

constexpr int kUnexpected = 2;

[[noreturn]] void exitWith(const std::string& why) {
  std::cout.flush();
  std::cerr << "nvwordmerge: " << why << std::endl;
  std::_Exit(kUnexpected);
}

// An exception that escapes where none may (a destructor, a noexcept function) ends here
// instead of in abort().
[[noreturn]] void onTerminate() {
  try {
    if (std::exception_ptr e = std::current_exception()) std::rethrow_exception(e);
  } catch (const std::exception& e) {
    exitWith(std::string("unexpected error: ") + e.what());
  } catch (...) {
  }
  exitWith("unexpected error");
}

}  // namespace

int main(int argc, char** argv) {
  std::set_terminate(onTerminate);
  CLI::App app{"nvwordmerge: fills letter templates and runs mail merges from a practice database"};
  app.set_version_flag("--version", std::string("nvwordmerge ") + NVWM_VERSION);
  app.require_subcommand(0, 1);
  nvwm::cli::registerCommands(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    return app.exit(e);
  } catch (const nvwm::RuntimeError& e) {
    exitWith(e.description());
  } catch (const std::bad_alloc&) {
    exitWith("out of memory");
  } catch (const std::exception& e) {
    exitWith(std::string("unexpected error: ") + e.what());
  } catch (...) {
    exitWith("unexpected error");
  }
  if (app.get_subcommands().empty()) {
    std::cout << app.help();
    return 0;
  }
  return nvwm::cli::exitCode();
}
