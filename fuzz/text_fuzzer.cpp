// The case-insensitive search and replace of the runtime on arbitrary bytes (invalid UTF-8,
// foldings that change lengths), with its promises checked as it goes: InStr in text mode and
// FoldedText agree, an index of «...» spans changes no result, and a match folds to the needle.
#include <cstddef>
#include <cstdint>
#include <optional>

#include "fuzz/inputs/fuzz_input.h"
#include "runtime/error.h"
#include "runtime/text.h"

using namespace nvwm;
using namespace nvwm::fuzzing;

namespace {

void require(bool promise) {
  if (!promise) __builtin_trap();
}

void searchAndReplace(std::string_view text, std::string_view needle, std::string_view replacement,
                      int32_t start, int32_t count) {
  FoldedText plain{std::string(text)};
  FoldedText indexed{std::string(text)};
  indexed.indexDelimited("\xC2\xAB", "\xC2\xBB");  // « »
  indexed.indexDelimited("\\'ab", "\\'bb");

  int32_t position = InStr(start, text, needle, CompareMode::kText);
  if (!needle.empty()) {
    require(plain.find(needle, start) == position);
    require(indexed.find(needle, start) == position);
    std::optional<TextMatch> m = plain.match(needle, start);
    require(m.has_value() == (position > 0));
    if (m) {
      require(m->position == position);
      require(foldCase(text.substr(m->byteBegin, m->byteEnd - m->byteBegin)) == foldCase(needle));
    }
  }
  (void)InStrRev(text, needle, -1, CompareMode::kText);
  (void)Split(text, needle, count, CompareMode::kText);
  (void)StrComp(text, needle, CompareMode::kText);
  std::string replaced = Replace(text, needle, replacement, start, count, CompareMode::kText);
  (void)replaced;
  int32_t a = plain.replaceAll(needle, replacement, count);
  int32_t b = indexed.replaceAll(needle, replacement, count);
  require(a == b);
  require(plain.text() == indexed.text());
  (void)UCase(text);
  (void)LCase(text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  uint8_t options = take<uint8_t>(bytes);
  auto pieces = splitAtNul(bytes, 3);
  int32_t start = 1 + (options & 7);
  int32_t count = static_cast<int32_t>((options >> 3) & 7) - 1;
  try {
    searchAndReplace(pieces[0], pieces[1], pieces[2], start, count);
  } catch (const RuntimeError&) {
  }
  return 0;
}
