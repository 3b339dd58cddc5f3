// The whole command: `nvwordmerge docx-merge` run as its own process on the benchmark letter
// (merge_letter.h) with 1,000, 10,000 and 50,000 records from a CSV file.
//
// Each iteration starts the command and waits for it (wait4), so the figures are the whole
// process's: letters per second of CPU time (user + system, all threads), letters per second of
// wall time, the peak resident memory (ru_maxrss of the child) and the size of the output.
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "merge_letter.h"

extern char** environ;

namespace {

namespace fs = std::filesystem;

struct WorkFolder {
  fs::path path = fs::temp_directory_path() / ("nvwm-whole-merge-" + std::to_string(::getpid()));
  WorkFolder() { fs::create_directories(path); }
  ~WorkFolder() {
    std::error_code ec;
    fs::remove_all(path, ec);
  }
};

const fs::path& workFolder() {
  static WorkFolder folder;
  return folder.path;
}

struct ChildFigures {
  double cpuSeconds = 0;
  double wallSeconds = 0;
  double peakMb = 0;
};

ChildFigures runCommand(std::vector<std::string> args) {
  std::vector<char*> argv;
  for (auto& a : args) argv.push_back(a.data());
  argv.push_back(nullptr);
  auto start = std::chrono::steady_clock::now();
  pid_t pid = 0;
  if (posix_spawn(&pid, argv[0], nullptr, nullptr, argv.data(), environ) != 0) {
    throw std::runtime_error("cannot start " + args[0]);
  }
  int status = 0;
  struct rusage usage {};
  if (wait4(pid, &status, 0, &usage) != pid || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    throw std::runtime_error("the merge failed");
  }
  ChildFigures figures;
  figures.wallSeconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  auto seconds = [](const timeval& t) { return t.tv_sec + t.tv_usec / 1e6; };
  figures.cpuSeconds = seconds(usage.ru_utime) + seconds(usage.ru_stime);
  figures.peakMb = usage.ru_maxrss / 1024.0;
  return figures;
}

void BM_WholeMerge(benchmark::State& state) {
  const int64_t records = state.range(0);
  std::string letter = (workFolder() / "letter.docx").string();
  if (!fs::exists(letter)) nvwm::bench::writeMergeLetter(letter);
  std::string csv = (workFolder() / ("data-" + std::to_string(records) + ".csv")).string();
  if (!fs::exists(csv)) nvwm::bench::writeMergeLetterCsv(csv, records);
  std::string out = (workFolder() / "out.docx").string();
  ChildFigures total;
  double peak = 0;
  for (auto _ : state) {
    ChildFigures f;
    try {
      f = runCommand(
          {NVWM_CLI_PATH, "docx-merge", "--template", letter, "--data", csv, "--out", out});
    } catch (const std::exception& e) {
      state.SkipWithError(e.what());
      return;
    }
    state.SetIterationTime(f.wallSeconds);
    total.cpuSeconds += f.cpuSeconds;
    total.wallSeconds += f.wallSeconds;
    peak = std::max(peak, f.peakMb);
  }
  double runs = static_cast<double>(state.iterations());
  state.counters["letters/s_cpu"] = records * runs / total.cpuSeconds;
  state.counters["letters/s_wall"] = records * runs / total.wallSeconds;
  state.counters["peak_MB"] = peak;
  state.counters["output_MB"] = static_cast<double>(fs::file_size(out)) / (1024.0 * 1024.0);
}
BENCHMARK(BM_WholeMerge)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(50000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
