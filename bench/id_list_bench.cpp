// The catalogue's look-ups: a merge of N records asks findRow by display name once per field
// per record, and the parse pass walks the keys with moveToKey.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "services/id_list.h"

namespace nvwm {
namespace {

std::vector<std::string> displayNames(int rows) {
  std::vector<std::string> names;
  for (int i = 0; i < rows; ++i) {
    names.push_back("Contact Société Field " + std::to_string(i));
  }
  return names;
}

void fill(IndexedIDList& list, const std::vector<std::string>& names) {
  list.initialize();
  int32_t key = 0;
  for (const std::string& name : names) {
    list.addRow(++key, {Variant("Db" + std::to_string(key)), Variant(name), Variant("ContactInfo"),
                        Variant("Text"), Variant("Sample"), Variant(int32_t{255})});
  }
}

// Every field of a catalogue looked up by name in upper case, as templates often write them.
void BM_FindRowByDisplayName(benchmark::State& state) {
  const auto names = displayNames(static_cast<int>(state.range(0)));
  std::vector<Variant> queries;
  const std::string prefix = "Contact Société";
  for (const std::string& name : names) {
    queries.emplace_back("CONTACT SOCIÉTÉ" + name.substr(prefix.size()));
  }
  IndexedIDList list;
  fill(list, names);
  for (const Variant& q : queries) {
    if (list.findRow(2, q) < 0) state.SkipWithError("a query found nothing");
  }
  for (auto _ : state) {
    for (const Variant& q : queries) benchmark::DoNotOptimize(list.findRow(2, q));
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(queries.size()));
}
BENCHMARK(BM_FindRowByDisplayName)->Arg(300)->Arg(3000);

// A fresh list per iteration: includes building the column's index on the first search.
void BM_FirstFindRowOnAFreshCatalogue(benchmark::State& state) {
  const auto names = displayNames(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    IndexedIDList list;
    fill(list, names);
    benchmark::DoNotOptimize(list.findRow(2, Variant(names.back())));
  }
}
BENCHMARK(BM_FirstFindRowOnAFreshCatalogue)->Arg(300);

void BM_MoveToKeyWalk(benchmark::State& state) {
  const auto names = displayNames(static_cast<int>(state.range(0)));
  IndexedIDList list;
  fill(list, names);
  const auto rows = static_cast<int32_t>(names.size());
  for (auto _ : state) {
    for (int32_t key = 1; key <= rows; ++key) {
      list.moveToKey(key);
      benchmark::DoNotOptimize(list.getColumn(2));
    }
  }
  state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(BM_MoveToKeyWalk)->Arg(300);

}  // namespace
}  // namespace nvwm

BENCHMARK_MAIN();
