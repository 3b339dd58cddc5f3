// Case-insensitive search and replace-all of a placeholder in a 5 KB template, as the template
// engine does per fill: the one-shot functions (InStr/Replace in text mode, folding the text
// per call) against the fold-once path (FoldedText). Two texts: RTF, where "«" and "»" are the
// ASCII escapes \'ab and \'bb, and plain UTF-8 with accented text and real «».
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "runtime/text.h"

namespace nvwm {
namespace {

std::string makeTemplate(bool rtf, size_t size) {
  const std::string open = rtf ? "\\'ab" : "«";
  const std::string close = rtf ? "\\'bb" : "»";
  const std::string body = rtf ? "\\pard\\plain\\f0\\fs20 Dear " : "Chère société, dear ";
  std::string text = rtf ? "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}" : "";
  int i = 0;
  while (text.size() < size) {
    text += body;
    text += open + (i % 3 == 0 ? "Company Name" : "Contact First Name") + close;
    text += ", thank you for the documents of ";
    text += open + "(Year End Date, mmmm d yyyy)" + close;
    text += rtf ? ".\\par\n" : ". Réf. « interne ».\n";
    ++i;
  }
  if (rtf) text += "}";
  return text;
}

// 200 display names as a catalogue holds them: most don't occur in a given template.
std::vector<std::string> makeNeedles(bool rtf) {
  const std::string open = rtf ? "\\'ab" : "«";
  const std::string close = rtf ? "\\'bb" : "»";
  std::vector<std::string> needles;
  for (int i = 0; i < 198; ++i)
    needles.push_back(open + "Custom Field " + std::to_string(i) + close);
  needles.push_back(open + "COMPANY NAME" + close);
  needles.push_back(open + "contact first name" + close);
  return needles;
}

std::string needleFor(bool rtf) { return rtf ? "\\'abCOMPANY NAME\\'bb" : "«COMPANY NAME»"; }

void BM_InStrOneShot(benchmark::State& state) {
  bool rtf = state.range(0) != 0;
  std::string text = makeTemplate(rtf, 5000);
  std::string needle = needleFor(rtf);
  for (auto _ : state) benchmark::DoNotOptimize(InStr(1, text, needle, CompareMode::kText));
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}

void BM_ReplaceOneShot(benchmark::State& state) {
  bool rtf = state.range(0) != 0;
  std::string text = makeTemplate(rtf, 5000);
  std::string needle = needleFor(rtf);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        Replace(text, needle, "Acme Accounting Ltd.", 1, -1, CompareMode::kText));
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}

void BM_FoldedTextFind(benchmark::State& state) {
  bool rtf = state.range(0) != 0;
  FoldedText folded{makeTemplate(rtf, 5000)};
  std::string needle = needleFor(rtf);
  for (auto _ : state) benchmark::DoNotOptimize(folded.find(needle));
}

void BM_FoldedTextFindMissing(benchmark::State& state) {
  bool rtf = state.range(0) != 0;
  FoldedText folded{makeTemplate(rtf, 5000)};
  std::string needle = makeNeedles(rtf)[7];
  for (auto _ : state) benchmark::DoNotOptimize(folded.find(needle));
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * folded.text().size()));
}

void BM_FoldedTextFoldAndReplaceAll(benchmark::State& state) {
  bool rtf = state.range(0) != 0;
  std::string text = makeTemplate(rtf, 5000);
  std::string needle = needleFor(rtf);
  for (auto _ : state) {
    FoldedText folded{text};
    benchmark::DoNotOptimize(folded.replaceAll(needle, "Acme Accounting Ltd."));
  }
}

// One template fill's searches: every catalogue name looked for, the two that occur replaced.
void BM_FillOneShot(benchmark::State& state) {
  bool rtf = state.range(0) != 0;
  const std::string original = makeTemplate(rtf, 5000);
  std::vector<std::string> needles = makeNeedles(rtf);
  for (auto _ : state) {
    std::string text = original;
    for (const std::string& needle : needles) {
      if (InStr(1, text, needle, CompareMode::kText) > 0) {
        text = Replace(text, needle, "Acme", 1, -1, CompareMode::kText);
      }
    }
    benchmark::DoNotOptimize(text);
  }
}

void BM_FillFoldOnce(benchmark::State& state) {
  bool rtf = state.range(0) != 0;
  const std::string original = makeTemplate(rtf, 5000);
  std::vector<std::string> needles = makeNeedles(rtf);
  for (auto _ : state) {
    FoldedText folded{original};
    for (const std::string& needle : needles) folded.replaceAll(needle, "Acme");
    benchmark::DoNotOptimize(folded.text());
  }
}

void BM_FillFoldOnceIndexed(benchmark::State& state) {
  bool rtf = state.range(0) != 0;
  const std::string original = makeTemplate(rtf, 5000);
  std::vector<std::string> needles = makeNeedles(rtf);
  for (auto _ : state) {
    FoldedText folded{original};
    folded.indexDelimited(rtf ? "\\'ab" : "«", rtf ? "\\'bb" : "»");
    for (const std::string& needle : needles) folded.replaceAll(needle, "Acme");
    benchmark::DoNotOptimize(folded.text());
  }
}

// Argument 1: RTF (ASCII escapes); 0: plain UTF-8 text.
BENCHMARK(BM_InStrOneShot)->Arg(1)->Arg(0);
BENCHMARK(BM_ReplaceOneShot)->Arg(1)->Arg(0);
BENCHMARK(BM_FoldedTextFind)->Arg(1)->Arg(0);
BENCHMARK(BM_FoldedTextFindMissing)->Arg(1)->Arg(0);
BENCHMARK(BM_FoldedTextFoldAndReplaceAll)->Arg(1)->Arg(0);
BENCHMARK(BM_FillOneShot)->Arg(1)->Arg(0);
BENCHMARK(BM_FillFoldOnce)->Arg(1)->Arg(0);
BENCHMARK(BM_FillFoldOnceIndexed)->Arg(1)->Arg(0);

}  // namespace
}  // namespace nvwm

BENCHMARK_MAIN();
