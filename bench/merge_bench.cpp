// clsWordMerge over synthetic practices of 1,000 and 10,000 client companies, with the full
// catalogue (the company list's fields and the firm's, twice):
//
//   BM_MergeTable  createMergeDatabaseAndQuery alone: the catalogue, the table, one row per
//                  company with every field's value.
//   BM_WholeRun    performWordMerge as a host runs it without the dialog: the table, the word
//                  processor, data/sample-letter.docx linked and merged, the merged .docx saved.
//
// Reports records per second, microseconds per record and the peak resident memory of the
// process (getrusage ru_maxrss only grows: run one size per process to read the peak of that
// size, e.g. --benchmark_filter=BM_WholeRun/10000). Time per record stays flat from 1,000 to
// 10,000 companies when the run is linear.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>

#include "host/references.h"
#include "merge/cls_word_merge.h"
#include "merge/cls_word_merge_internal.h"
#include "practice_generator.h"
#include "services/folder_locale.h"
#include "services/sqlite/sqlite_database.h"
#include "services/word/word_engine.h"

namespace {

namespace fs = std::filesystem;

// Reports nothing; keeps the first error with the routine it happened in.
class SilentErrorService : public nvwm::ErrorService {
 public:
  bool errorsAreSuppressed() override { return false; }
  int32_t getErrorAction() override { return 2; }
  void setError(const nvwm::RuntimeError& error) override {
    if (errors++ == 0) last = error.description() + " in " + (stack.empty() ? "" : stack.back());
  }
  void showError() override {}
  void exitProc() override {
    if (!stack.empty()) stack.pop_back();
  }
  void enterProc(const std::string& tag) override { stack.push_back(tag); }
  int errors = 0;
  std::string last;
  std::vector<std::string> stack;
};

// The firm's custom labels, which the catalogue reads and the generator doesn't write.
constexpr const char* kCustomLabels =
    "INSERT INTO CustomFields (CustomName1, CustomName2, CustomName3, CustomName4, CustomName5) "
    "SELECT 'Referral source', 'Billing contact', 'Fiscal notes', 'Portal login', 'Other' "
    "WHERE NOT EXISTS (SELECT 1 FROM CustomFields);"
    "INSERT INTO CustomAddressFields (ContactLabel1, ContactLabel2, ContactLabel3, "
    "ContactLabel4, ContactLabel5, CompanyLabel1, CompanyLabel2, CompanyLabel3, CompanyLabel4, "
    "CompanyLabel5) SELECT 'Preferred contact', 'Assistant', 'Custom 3', 'Custom 4', 'Custom 5', "
    "'Referral', 'Bank', 'Custom 3', 'Custom 4', 'Custom 5' "
    "WHERE NOT EXISTS (SELECT 1 FROM CustomAddressFields);";

const std::string& practiceOf(int companies) {
  nvwm::bench::PracticeSize size;
  size.companies = companies;
  size.contactsPerCompany = 1;
  const std::string& path = nvwm::bench::cachedPractice("merge", size);
  nvwm::SqliteDatabase(path).execute(kCustomLabels);
  return path;
}

double peakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

// A working folder per run, removed afterwards (the merge database and the letters go there).
struct RunFolder {
  fs::path path;
  explicit RunFolder(int n)
      : path(fs::temp_directory_path() /
             ("nvwm-merge-bench-" + std::to_string(::getpid()) + "-" + std::to_string(n))) {
    fs::create_directories(path);
  }
  ~RunFolder() {
    std::error_code ec;
    fs::remove_all(path, ec);
  }
};

struct Host {
  std::shared_ptr<SilentErrorService> errors = std::make_shared<SilentErrorService>();
  std::shared_ptr<nvwm::SqliteDatabase> database;
  std::shared_ptr<nvwm::IDList> ids;
  std::string lettersPath;

  explicit Host(int companies)
      : database(std::make_shared<nvwm::SqliteDatabase>(practiceOf(companies))) {
    ids = nvwm::factories().createIDList();
    ids->initialize();
    for (int32_t c = 1; c <= companies; ++c) ids->addRow(c - 1, {nvwm::Variant(c)});
    nvwm::wordengine::wordEngineOptions().presenter =
        [this](const std::vector<nvwm::wordengine::OpenDocumentInfo>& documents) {
          for (const auto& d : documents) d.document->SaveAs(nvwm::Variant(lettersPath));
        };
  }

  std::unique_ptr<nvwm::clsWordMerge> merge(const fs::path& folder) {
    auto m = std::make_unique<nvwm::clsWordMerge>();
    m->errorClass(errors);
    m->WorkingFolderReference(std::make_shared<nvwm::XdgWorkingFolder>(folder.string()));
    m->LocaleReference(std::make_shared<nvwm::HostLocale>(1, 3));
    m->DatabaseReference(database);
    m->ListType(nvwm::mergeInfo2::wordMergeCompanyInfo);
    m->IDList(ids);
    m->ShowProgess(false);
    m->DocName(std::string(NVWM_SOURCE_DIR) + "/data/sample-letter.docx");
    m->openWordMethod(nvwm::openWordMergeType::openMergeDocOnly);
    lettersPath = (folder / "letters.docx").string();
    return m;
  }
};

void report(benchmark::State& state, int companies, const Host& host) {
  state.counters["records/s"] =
      benchmark::Counter(companies, benchmark::Counter::kIsIterationInvariantRate);
  state.counters["us/record"] =
      benchmark::Counter(companies * 1e-6, benchmark::Counter::kIsIterationInvariantRate |
                                               benchmark::Counter::kInvert);
  state.counters["peak_MB"] = peakMegabytes();
  if (host.errors->errors > 0)
    state.SkipWithError(("the run failed: " + host.errors->last).c_str());
}

void BM_MergeTable(benchmark::State& state) {
  const int companies = static_cast<int>(state.range(0));
  Host host(companies);
  int run = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto folder = std::make_unique<RunFolder>(++run);
    auto merge = host.merge(folder->path);
    state.ResumeTiming();
    bool built = nvwm::clsWordMergeInternal::createMergeDatabaseAndQuery(*merge);
    state.PauseTiming();
    if (!built) state.SkipWithError("the merge table was not built");
    merge.reset();
    folder.reset();
    state.ResumeTiming();
  }
  report(state, companies, host);
}
BENCHMARK(BM_MergeTable)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_WholeRun(benchmark::State& state) {
  const int companies = static_cast<int>(state.range(0));
  Host host(companies);
  int run = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto folder = std::make_unique<RunFolder>(++run);
    auto merge = host.merge(folder->path);
    state.ResumeTiming();
    merge->performWordMerge();
    state.PauseTiming();
    if (!fs::exists(host.lettersPath)) state.SkipWithError("no merged document was written");
    merge.reset();
    folder.reset();
    state.ResumeTiming();
  }
  report(state, companies, host);
}
BENCHMARK(BM_WholeRun)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
