// The practice lookups as a merge uses them: one small query per call, on practices of
// growing size (the indexed WHERE columns should keep a call's cost flat).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "host/references.h"
#include "practice/lookups.h"
#include "practice_generator.h"
#include "services/sqlite/sqlite_database.h"

namespace {

// Keeps the trace and reports nothing: the lookups here don't fail.
class SilentErrorService : public nvwm::ErrorService {
 public:
  bool errorsAreSuppressed() override { return false; }
  int32_t getErrorAction() override { return 2; }
  void setError(const nvwm::RuntimeError&) override {}
  void showError() override {}
  void exitProc() override {}
  void enterProc(const std::string&) override {}
};

const std::string& practiceOf(int companies) {
  nvwm::bench::PracticeSize size;
  size.companies = companies;
  size.contactsPerCompany = 3;
  size.scheduleItemsPerClient = 2;
  size.tasksPerClient = 1;
  return nvwm::bench::cachedPractice("lookups", size);
}

void installReferences(int companies) {
  nvwm::references().errorClass = std::make_shared<SilentErrorService>();
  nvwm::references().variantUtility = nvwm::factories().createVariantUtility();
  nvwm::references().DatabaseReference =
      std::make_shared<nvwm::SqliteDatabase>(practiceOf(companies));
}

void BM_GetCompanyIDFromScheduleID(benchmark::State& state) {
  const int companies = static_cast<int>(state.range(0));
  installReferences(companies);
  int32_t id = 1;
  for (auto _ : state) {
    benchmark::DoNotOptimize(nvwm::getCompanyIDFromScheduleID(id));
    id = id % (companies * 2) + 1;
  }
}
BENCHMARK(BM_GetCompanyIDFromScheduleID)->Arg(1000)->Arg(20000)->Unit(benchmark::kMicrosecond);

void BM_GetDefaultContactIDFromCompanyID(benchmark::State& state) {
  const int companies = static_cast<int>(state.range(0));
  installReferences(companies);
  int32_t id = 1;
  for (auto _ : state) {
    benchmark::DoNotOptimize(nvwm::getDefaultContactIDFromCompanyID(id));
    id = id % companies + 1;
  }
}
BENCHMARK(BM_GetDefaultContactIDFromCompanyID)
    ->Arg(1000)
    ->Arg(20000)
    ->Unit(benchmark::kMicrosecond);

void BM_ValidContactID(benchmark::State& state) {
  const int companies = static_cast<int>(state.range(0));
  installReferences(companies);
  int32_t id = 1;
  for (auto _ : state) {
    benchmark::DoNotOptimize(nvwm::validContactID(std::to_string(id)));
    id = id % companies + 1;
  }
}
BENCHMARK(BM_ValidContactID)->Arg(1000)->Arg(20000)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
