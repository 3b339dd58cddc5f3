// Public: the text functions of the original runtime over UTF-8 text.
//
// Positions and lengths count characters (code points) from 1, as the original did: "«" is one
// character, "🦆" is one character. The RTF escape "\'ab" is four plain ASCII characters; the
// runtime never decodes RTF. Invalid UTF-8 follows the policy written in runtime/utf8.h: each
// bad byte is one character and is kept as it is.
//
// Compare mode 1 (text) ignores case by Unicode full case folding (ICU), so "SOCIÉTÉ" matches
// "Société" and "STRASSE" matches "Straße". No normalisation is done: a precomposed "é" and an
// "e" followed by a combining accent are different texts. A match never begins or ends inside
// a character, nor inside the folding of one character (the "s" alone doesn't match in "ß").
//
// Arguments out of range raise 5 (invalid procedure call), as the original did. All functions
// are pure and thread-safe; results are new strings owned by the caller.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace nvwm {

// The compare argument of InStr, InStrRev, Replace, Split and StrComp. DO NOT CHANGE THESE
// VALUES: they are the original's vbBinaryCompare and vbTextCompare.
enum class CompareMode : int {
  kBinary = 0,  // byte for byte (code point order)
  kText = 1,    // ignoring case (Unicode case folding)
};

// The number of characters.
int32_t Len(std::string_view s);
// The first n characters (the whole text when shorter). n < 0 raises 5.
std::string Left(std::string_view s, int32_t n);
// The last n characters (the whole text when shorter). n < 0 raises 5.
std::string Right(std::string_view s, int32_t n);
// From character `start` to the end. start < 1 raises 5; past the end gives "".
std::string Mid(std::string_view s, int32_t start);
// `length` characters from character `start`. start < 1 or length < 0 raises 5.
std::string Mid(std::string_view s, int32_t start, int32_t length);

// The position of the first `find` in `s` at or after character `start`, or 0.
// start < 1 raises 5. An empty `s` gives 0; an empty `find` gives start (0 when start is past
// the end of `s`); a start past the end gives 0.
int32_t InStr(int32_t start, std::string_view s, std::string_view find,
              CompareMode mode = CompareMode::kBinary);
inline int32_t InStr(std::string_view s, std::string_view find,
                     CompareMode mode = CompareMode::kBinary) {
  return InStr(1, s, find, mode);
}
// The position of the last `find` that lies wholly within the first `start` characters of `s`,
// or 0. start -1 means the whole text; 0 or below -1 raises 5. An empty `find` gives start
// (the length for -1); a start past the end gives 0.
int32_t InStrRev(std::string_view s, std::string_view find, int32_t start = -1,
                 CompareMode mode = CompareMode::kBinary);

// Take away blanks (U+0020 only, as the original: tabs and line breaks stay).
std::string Trim(std::string_view s);
std::string LTrim(std::string_view s);
std::string RTrim(std::string_view s);

// Upper and lower case by Unicode's full mappings (root locale): "ß" becomes "SS".
std::string UCase(std::string_view s);
std::string LCase(std::string_view s);

// Replaces `find` by `replaceWith`, left to right and without overlap, at most `count` times
// (-1: all). As in the original, the result begins at character `start`: the characters
// before it are dropped. start < 1 or count < -1 raises 5. An empty `expression` gives ""; an
// empty `find` or a count of 0 gives the text from `start` unchanged.
std::string Replace(std::string_view expression, std::string_view find,
                    std::string_view replaceWith, int32_t start = 1, int32_t count = -1,
                    CompareMode mode = CompareMode::kBinary);

// Splits at each `delimiter`. At most `limit` pieces (-1: all); the last one keeps the rest
// of the text, delimiters included. An empty `expression` or a limit of 0 gives no piece; an
// empty delimiter gives the whole text as one piece. limit < -1 raises 5.
std::vector<std::string> Split(std::string_view expression, std::string_view delimiter = " ",
                               int32_t limit = -1, CompareMode mode = CompareMode::kBinary);

// -1, 0 or 1 as a sorts before, equal to or after b. Binary compares code points (bad bytes
// by their value); text compares the case-folded texts the same way.
int StrComp(std::string_view a, std::string_view b, CompareMode mode = CompareMode::kBinary);

// n blanks. n < 0 raises 5.
std::string Space(int32_t n);

// The case folding used by compare mode 1: for comparing keys folded once (a hash map of
// names, for example). Bad bytes are kept.
std::string foldCase(std::string_view s);
// The same folding, appended to `out`: for many keys folded into one buffer.
void foldCaseAppend(std::string_view s, std::string& out);

// One match of a needle in a FoldedText: the character position (from 1) and the bytes of the
// original text that matched.
struct TextMatch {
  int32_t position = 0;
  int32_t endPosition = 0;  // the character right after the match
  size_t byteBegin = 0;
  size_t byteEnd = 0;
};

// A text folded once for many case-insensitive searches: the template engine looks for every
// placeholder of the catalogue in the same text, so folding the text per search would fold it
// hundreds of times. Holds its own copy of the text. Searching is as InStr in compare mode 1.
// Not thread-safe for writing (replaceAll); const members may be shared.
//
// A fill, typically:
//   FoldedText text(std::move(templateText));
//   text.indexDelimited("«", "»");
//   text.indexDelimited("\\'ab", "\\'bb");
//   for (each catalogue row) if (text.contains(placeholder)) text.replaceAll(placeholder, value);
class FoldedText {
 public:
  FoldedText() : FoldedText(std::string()) {}
  explicit FoldedText(std::string text);

  // The original text, with the replacements made so far.
  const std::string& text() const { return text_; }
  // Characters of the original text.
  int32_t length() const;

  // The first match at or after character `start` (from 1), or nothing. An empty needle
  // matches nothing here. start < 1 raises 5.
  std::optional<TextMatch> match(std::string_view needle, int32_t start = 1) const;
  // The last match in the text, or nothing.
  std::optional<TextMatch> matchLast(std::string_view needle) const;
  // Position of the first match at or after `start`, or 0, as InStr(start, text, needle, 1).
  int32_t find(std::string_view needle, int32_t start = 1) const;
  bool contains(std::string_view needle) const { return find(needle) > 0; }

  // Replaces every match of `needle` at or after character `start` (at most maxCount; -1: all),
  // left to right and without overlap, by `replacement` (taken as it is, never searched again).
  // The text before `start` is kept. Returns the number of replacements; the text and its
  // folding are updated, and positions of earlier matches go stale. An empty needle replaces
  // nothing. start < 1 raises 5.
  int32_t replaceAll(std::string_view needle, std::string_view replacement, int32_t maxCount = -1,
                     int32_t start = 1);

  // Indexes every span that runs from an `open` delimiter to the first `close` after it, both
  // included ("«Company Name»"), so that looking for a needle of that form that isn't in the
  // text is a hash lookup instead of a scan: a template holds a few placeholders and the
  // catalogue asks for hundreds. Results are the same with or without the index; it follows
  // replacements. Other needles are searched as before. Delimiters are whole characters or
  // runs of them ("«", "\'ab"); several pairs may be indexed. Empty delimiters are ignored.
  void indexDelimited(std::string_view open, std::string_view close);

  // Indexes which pairs of adjacent folded bytes the text holds, so that a needle with a pair
  // the text lacks is turned down without a scan: for a long list of replacements of which few
  // apply. Results are the same with or without it; it follows replacements.
  void indexPairs();

  // Gives up the text, with the replacements made, leaving this empty.
  std::string release();

 private:
  struct DelimitedIndex {
    std::string open, close;           // folded
    std::unordered_set<size_t> spans;  // hashes of the folded spans
  };

  void fold();
  void buildPairs();
  void buildIndex(DelimitedIndex& index) const;
  // False only when the folded needle certainly doesn't occur.
  bool mayOccur(std::string_view foldedNeedle) const;
  // True when folded offset `at` starts a character (or is the end).
  bool isBoundary(size_t at) const;
  TextMatch toMatch(size_t foldedBegin, size_t foldedEnd) const;
  // The character (from 0) that starts at folded offset `foldedOffset`, a boundary.
  size_t characterAt(size_t foldedOffset) const;
  // Replaces characters [first, last) of each hit, in order and without overlap, and brings
  // the folding and the tables up to date without folding the whole text again. False when
  // it had to fold it all the same (the indexes are then rebuilt too).
  bool splice(const std::vector<std::pair<size_t, size_t>>& hits, std::string_view replacement);

  std::string text_;
  std::string folded_;
  // True when the text is all ASCII: folded offsets are then byte offsets and character
  // positions, and the two tables below stay empty.
  bool ascii_ = true;
  // True when the text is well-formed UTF-8 (ASCII is).
  bool valid_ = true;
  // For character i (from 0), where it starts in folded_ and in text_; one more entry for the
  // end. Both strictly increasing.
  std::vector<uint32_t> foldedStart_;
  std::vector<uint32_t> byteStart_;
  std::vector<DelimitedIndex> indexes_;
  // One bit per pair of folded bytes present, when indexPairs asked for it; else empty.
  static constexpr size_t kPairWords = 65536 / 64;
  std::vector<uint64_t> pairs_;
  // The text and folding before the last replacement: their buffers are reused by the next.
  std::string spareText_, spareFolded_;
};

}  // namespace nvwm
