// The practice database service: opening recordsets, findRecord, getField.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <map>
#include <memory>

#include "practice_generator.h"
#include "services/sqlite/sqlite_database.h"

namespace {

using nvwm::Handle;
using nvwm::SqliteDatabase;
using nvwm::Variant;

// One synthetic practice per company count, made once per run of the program.
const std::string& practiceOf(int companies) {
  nvwm::bench::PracticeSize size;
  size.companies = companies;
  size.contactsPerCompany = 1;
  return nvwm::bench::cachedPractice("practice", size);
}

void BM_OpenRecordset(benchmark::State& state) {
  SqliteDatabase db(practiceOf(static_cast<int>(state.range(0))));
  for (auto _ : state) {
    Handle h = db.openRecordset("SELECT Companies.* FROM Companies;", nvwm::kCursorKeyset,
                                nvwm::kLockReadOnly);
    benchmark::DoNotOptimize(h);
    db.closeRecordset(h);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_OpenRecordset)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_OpenRecordsetUpdatable(benchmark::State& state) {
  SqliteDatabase db(practiceOf(static_cast<int>(state.range(0))));
  for (auto _ : state) {
    Handle h = db.openRecordset("SELECT Companies.* FROM Companies;", nvwm::kCursorKeyset,
                                nvwm::kLockOptimistic);
    db.closeRecordset(h);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_OpenRecordsetUpdatable)->Arg(10000)->Unit(benchmark::kMillisecond);

// 10,000 finds by key on a recordset of N rows, after the first find has built the index:
// the cost per find must not grow with N.
void BM_FindRecord10000(benchmark::State& state) {
  int rows = static_cast<int>(state.range(0));
  SqliteDatabase db(practiceOf(rows));
  Handle h = db.openRecordset("SELECT Companies.* FROM Companies;", nvwm::kCursorKeyset,
                              nvwm::kLockReadOnly);
  db.findRecord(h, "CompanyID", Variant(int32_t{1}));
  for (auto _ : state) {
    for (int32_t i = 0; i < 10000; ++i) {
      bool found = db.findRecord(h, "CompanyID", Variant(1 + (i * 7919) % rows));
      benchmark::DoNotOptimize(found);
    }
  }
  state.SetItemsProcessed(state.iterations() * 10000);
}
BENCHMARK(BM_FindRecord10000)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

// The same by a text column given as the library gives IDs, as text.
void BM_FindRecordByText10000(benchmark::State& state) {
  int rows = static_cast<int>(state.range(0));
  SqliteDatabase db(practiceOf(rows));
  Handle h = db.openRecordset("SELECT Companies.* FROM Companies;", nvwm::kCursorKeyset,
                              nvwm::kLockReadOnly);
  db.findRecord(h, "CompanyName", Variant("x"));
  std::vector<Variant> names;
  for (int32_t i = 0; i < 10000; ++i)
    names.emplace_back("client company " + std::to_string(1 + (i * 7919) % rows));
  for (auto _ : state) {
    for (const Variant& name : names)
      benchmark::DoNotOptimize(db.findRecord(h, "CompanyName", name));
  }
  state.SetItemsProcessed(state.iterations() * 10000);
}
BENCHMARK(BM_FindRecordByText10000)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

// The first find of a column builds its index: paid once per recordset and column.
void BM_FindRecordFirstCall(benchmark::State& state) {
  int rows = static_cast<int>(state.range(0));
  SqliteDatabase db(practiceOf(rows));
  for (auto _ : state) {
    state.PauseTiming();
    Handle h = db.openRecordset("SELECT Companies.* FROM Companies;", nvwm::kCursorKeyset,
                                nvwm::kLockReadOnly);
    state.ResumeTiming();
    benchmark::DoNotOptimize(db.findRecord(h, "CompanyID", Variant(int32_t{rows / 2})));
    state.PauseTiming();
    db.closeRecordset(h);
    state.ResumeTiming();
  }
}
BENCHMARK(BM_FindRecordFirstCall)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

// Reading five fields by name on every row of a 10,000-row recordset.
void BM_GetField(benchmark::State& state) {
  SqliteDatabase db(practiceOf(10000));
  Handle h = db.openRecordset("SELECT Companies.* FROM Companies;", nvwm::kCursorKeyset,
                              nvwm::kLockReadOnly);
  const Variant names[] = {Variant("CompanyID"), Variant("CompanyName"), Variant("City"),
                           Variant("postalcode"), Variant("OfficeNumber")};
  int64_t reads = 0;
  for (auto _ : state) {
    for (db.hasRecords(h); !db.isEOF(h); db.moveNext(h)) {
      for (const Variant& name : names) {
        benchmark::DoNotOptimize(db.getField(h, name));
        ++reads;
      }
    }
  }
  state.SetItemsProcessed(reads);
}
BENCHMARK(BM_GetField)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
