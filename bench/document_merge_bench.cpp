// Form-letter merge of N records of 30 fields into one .docx: the whole road of the command
// line (read the main document, read the SQLite table, merge, write the .docx).
//
// Reports records per second, microseconds per record and the peak resident memory of the
// process (getrusage ru_maxrss, which only grows: run one size per process to read the peak of
// that size, e.g. --benchmark_filter=.../10000). Time per record stays flat from 1,000 to
// 10,000 records when the merge is linear.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "docx/package.h"
#include "services/word/word_engine.h"

namespace {

namespace fs = std::filesystem;
constexpr int kFields = 30;

// A temporary folder for the run, removed at exit.
struct WorkFolder {
  fs::path path = fs::temp_directory_path() / ("nvwm-merge-bench-" + std::to_string(::getpid()));
  WorkFolder() { fs::create_directories(path); }
  ~WorkFolder() {
    std::error_code ec;
    fs::remove_all(path, ec);
  }
};

fs::path workFolder() {
  static WorkFolder folder;
  return folder.path;
}

std::string fieldName(int i) { return "Field " + std::to_string(i + 1); }

// A letter with 30 fields: simple and complex ones, some with switches, one in a table.
std::string writeMainDocument() {
  std::string body;
  for (int i = 0; i < kFields; ++i) {
    std::string instr = " MERGEFIELD \"" + fieldName(i) + "\" ";
    if (i % 5 == 1) instr += "\\* Upper ";
    if (i % 2 == 0) {
      std::string escaped;
      for (char c : instr) escaped += c == '"' ? std::string("&quot;") : std::string(1, c);
      body += "<w:p><w:r><w:t xml:space=\"preserve\">Label " + std::to_string(i) +
              ": </w:t></w:r><w:fldSimple w:instr=\"" + escaped +
              "\"><w:r><w:rPr><w:b/></w:rPr><w:t>«x»</w:t></w:r></w:fldSimple></w:p>";
    } else {
      body += "<w:p><w:r><w:t xml:space=\"preserve\">Label " + std::to_string(i) +
              ": </w:t></w:r><w:r><w:fldChar w:fldCharType=\"begin\"/></w:r>"
              "<w:r><w:instrText xml:space=\"preserve\">" +
              instr.substr(0, 8) + "</w:instrText></w:r><w:r><w:instrText xml:space=\"preserve\">" +
              instr.substr(8) +
              "</w:instrText></w:r><w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>"
              "<w:r><w:rPr><w:i/></w:rPr><w:t>«x»</w:t></w:r><w:r><w:fldChar "
              "w:fldCharType=\"end\"/></w:r></w:p>";
    }
  }
  auto package = nvwm::docx::Package::blank();
  std::string doc = package->bytes("word/document.xml");
  doc.insert(doc.find("<w:body>") + 8, body);
  package->setBytes("word/document.xml", doc);
  std::string path = (workFolder() / "main.docx").string();
  package->save(path);
  return path;
}

std::string writeSource(int64_t records) {
  std::string path = (workFolder() / ("source-" + std::to_string(records) + ".db")).string();
  if (fs::exists(path)) return path;
  sqlite3* db = nullptr;
  sqlite3_open(path.c_str(), &db);
  std::string create = "CREATE TABLE WordMergeTable (";
  std::string insert = "INSERT INTO WordMergeTable VALUES (";
  for (int i = 0; i < kFields; ++i) {
    create += (i ? ", \"" : "\"") + fieldName(i) + "\" TEXT";
    insert += i ? ", ?" : "?";
  }
  sqlite3_exec(db, (create + ")").c_str(), nullptr, nullptr, nullptr);
  sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
  sqlite3_stmt* stmt = nullptr;
  sqlite3_prepare_v2(db, (insert + ")").c_str(), -1, &stmt, nullptr);
  for (int64_t r = 0; r < records; ++r) {
    for (int i = 0; i < kFields; ++i) {
      std::string value = "value " + std::to_string(r) + "-" + std::to_string(i) + " Société";
      sqlite3_bind_text(stmt, i + 1, value.c_str(), -1, SQLITE_TRANSIENT);
    }
    sqlite3_step(stmt);
    sqlite3_reset(stmt);
  }
  sqlite3_finalize(stmt);
  sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
  sqlite3_close(db);
  return path;
}

void BM_DocxMerge(benchmark::State& state) {
  const int64_t records = state.range(0);
  std::string main = writeMainDocument();
  std::string source = writeSource(records);
  std::string out = (workFolder() / "merged.docx").string();
  for (auto _ : state) {
    size_t merged = nvwm::wordengine::mergeFiles(main, source, "WordMergeTable", out);
    benchmark::DoNotOptimize(merged);
  }
  struct rusage usage {};
  getrusage(RUSAGE_SELF, &usage);
  state.counters["records/s"] = benchmark::Counter(static_cast<double>(records),
                                                   benchmark::Counter::kIsIterationInvariantRate);
  state.counters["us/record"] = benchmark::Counter(
      static_cast<double>(records) / 1e6,
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.counters["peak_rss_MB"] = static_cast<double>(usage.ru_maxrss) / 1024.0;
  state.counters["output_MB"] = static_cast<double>(fs::file_size(out)) / (1024.0 * 1024.0);
}
BENCHMARK(BM_DocxMerge)
    ->Arg(1000)
    ->Arg(2500)
    ->Arg(5000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
