// Compiling and merging one main document part that holds N merge fields, N from 10,000 to
// 100,000: simple and complex fields, some with switches, some alone on their line (blank-line
// groups), and, in the second series, bookmarks whose ids are renumbered per record. One record
// is merged, so the time is the compile of the part plus one pass over it.
//
// Reports nanoseconds of CPU time per field (CPU time: the machines running it are shared); it
// stays flat from 10,000 to 100,000 fields when compiling is linear in the size of the part.
#include <benchmark/benchmark.h>

#include <string>

#include "docx/data_source.h"
#include "docx/mail_merge.h"
#include "docx/package.h"

namespace {

constexpr int kColumns = 20;

std::string columnName(int i) { return "Field" + std::to_string(i % kColumns); }

std::unique_ptr<nvwm::docx::Package> mainDocument(int64_t fields, bool bookmarks) {
  std::string body;
  body.reserve(static_cast<size_t>(fields) * 300);
  for (int64_t i = 0; i < fields; ++i) {
    std::string name = columnName(static_cast<int>(i));
    switch (i % 4) {
      case 0:  // a label and a simple field
        body +=
            "<w:p><w:r><w:t xml:space=\"preserve\">Label: </w:t></w:r><w:fldSimple "
            "w:instr=\" MERGEFIELD " +
            name + " \"><w:r><w:rPr><w:b/></w:rPr><w:t>x</w:t></w:r></w:fldSimple></w:p>";
        break;
      case 1:  // a complex field cut over two runs, with a switch
        body +=
            "<w:p><w:r><w:fldChar w:fldCharType=\"begin\"/></w:r><w:r><w:instrText> MERGE"
            "</w:instrText></w:r><w:r><w:instrText>FIELD " +
            name +
            " \\* Upper </w:instrText></w:r><w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>"
            "<w:r><w:rPr><w:i/></w:rPr><w:t>x</w:t></w:r><w:r><w:fldChar "
            "w:fldCharType=\"end\"/></w:r></w:p>";
        break;
      case 2:  // a field alone on its line: a blank-line group
        body += "<w:p><w:fldSimple w:instr=\" MERGEFIELD " + name +
                " \"><w:r><w:t>x</w:t></w:r></w:fldSimple></w:p>";
        break;
      default:  // a bookmark around a field: ids renumbered per record
        if (!bookmarks) {
          body += "<w:p><w:fldSimple w:instr=\" MERGEFIELD " + name +
                  " \\# 0.00\"><w:r><w:t>x</w:t></w:r></w:fldSimple></w:p>";
          break;
        }
        body += "<w:p><w:bookmarkStart w:id=\"" + std::to_string(i) + "\" w:name=\"b" +
                std::to_string(i) + "\"/><w:fldSimple w:instr=\" MERGEFIELD " + name +
                " \\# 0.00\"><w:r><w:t>x</w:t></w:r></w:fldSimple><w:bookmarkEnd w:id=\"" +
                std::to_string(i) + "\"/></w:p>";
        break;
    }
  }
  auto package = nvwm::docx::Package::blank();
  std::string doc = package->bytes("word/document.xml");
  doc.insert(doc.find("<w:body>") + 8, body);
  package->setBytes("word/document.xml", doc);
  return package;
}

nvwm::docx::MergeData oneRecord() {
  std::vector<std::string> columns;
  std::vector<nvwm::Variant> row;
  for (int i = 0; i < kColumns; ++i) {
    columns.push_back(columnName(i));
    row.emplace_back(i % 2 ? nvwm::Variant("value " + std::to_string(i)) : nvwm::Variant(i * 1.5));
  }
  return nvwm::docx::MergeData(columns, {row});
}

void BM_CompileAndMergeFields(benchmark::State& state) {
  const int64_t fields = state.range(0);
  auto main = mainDocument(fields, state.range(1) != 0);
  nvwm::docx::MergeData data = oneRecord();
  size_t bytes = 0;
  for (auto _ : state) {
    auto merged = nvwm::docx::mergeDocument(*main, data);
    bytes = merged->bytes(merged->mainPart()).size();
    benchmark::DoNotOptimize(bytes);
  }
  state.counters["ns/field"] = benchmark::Counter(
      static_cast<double>(fields) / 1e9,
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.counters["output_MB"] = static_cast<double>(bytes) / (1024.0 * 1024.0);
}
BENCHMARK(BM_CompileAndMergeFields)
    ->ArgNames({"fields", "bookmarks"})
    ->ArgsProduct({{10000, 50000, 100000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
