// Text functions over UTF-8, counting characters. See runtime/utf8.h for the policy on invalid
// UTF-8 and runtime/text.h for the contract.
//
// Case-insensitive search folds both texts (ICU full case folding) and searches the folded
// bytes with an ordinary substring search. Folding may change lengths ("ß" -> "ss", "İ" ->
// "i̇"), so a folded text keeps, per original character, where it starts in the folding and in
// the original; a byte match is accepted only when both of its ends fall on those starts, and
// is mapped back through them. Pure ASCII texts, the common case for RTF, skip the tables: the
// folding is then a lower-casing byte for byte and offsets are positions.
#include "runtime/text.h"

#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>

#include "runtime/ascii.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace nvwm {
namespace {

[[noreturn]] void badArgument(std::string_view what) {
  raise(ErrorNumber::kInvalidProcedureCall, what);
}

// The full case folding of one code point, as UTF-8.
struct Folding {
  std::array<char, 12> bytes{};
  uint8_t size = 0;
};

Folding foldCodePoint(char32_t c) {
  UChar src[2];
  int32_t srcLength = 0;
  U16_APPEND_UNSAFE(src, srcLength, static_cast<UChar32>(c));
  UChar dest[8];
  UErrorCode status = U_ZERO_ERROR;
  int32_t n = u_strFoldCase(dest, 8, src, srcLength, U_FOLD_CASE_DEFAULT, &status);
  Folding f;
  std::string out;
  if (U_FAILURE(status) || n <= 0) {
    utf8::append(out, c);
  } else {
    for (int32_t i = 0; i < n;) {
      UChar32 cp;
      U16_NEXT(dest, i, n, cp);
      utf8::append(out, static_cast<char32_t>(cp));
    }
  }
  if (out.size() > f.bytes.size()) {  // no folding is this long; keep the character
    out.clear();
    utf8::append(out, c);
  }
  std::copy(out.begin(), out.end(), f.bytes.begin());
  f.size = static_cast<uint8_t>(out.size());
  return f;
}

// Foldings of U+0000..U+07FF (Latin, Greek, Cyrillic, Hebrew, Arabic...), made once: these
// are nearly all the non-ASCII letters of the practice's texts.
const std::array<Folding, 0x800>& smallFoldings() {
  static const std::array<Folding, 0x800> table = [] {
    std::array<Folding, 0x800> t;
    for (char32_t c = 0; c < 0x800; ++c) t[c] = foldCodePoint(c);
    return t;
  }();
  return table;
}

void appendFolded(std::string& out, char32_t c) {
  if (c < 0x800) {
    const Folding& f = smallFoldings()[c];
    out.append(f.bytes.data(), f.size);
  } else {
    Folding f = foldCodePoint(c);
    out.append(f.bytes.data(), f.size);
  }
}

// Appends the folding of `s` to `out`. When the tables are given, appends where each character
// of `s` starts in `out` and in the text `s` stands in (at byte `byteBase`); the end entries
// are the caller's.
void foldAppend(std::string_view s, std::string& out, std::vector<uint32_t>* foldedStart,
                std::vector<uint32_t>* byteStart, size_t byteBase) {
  for (size_t i = 0; i < s.size();) {
    if (foldedStart) {
      foldedStart->push_back(static_cast<uint32_t>(out.size()));
      byteStart->push_back(static_cast<uint32_t>(byteBase + i));
    }
    unsigned char b = static_cast<unsigned char>(s[i]);
    if (b < 0x80) {
      out.push_back(asciiLower(static_cast<char>(b)));
      ++i;
      continue;
    }
    size_t n = utf8::sequenceLength(s, i);
    if (n == 0) {
      out.push_back(static_cast<char>(b));  // a bad byte folds to itself
      ++i;
    } else {
      appendFolded(out, utf8::decode(s, i, n));
      i += n;
    }
  }
}

// Folds `s` into `out`. When the tables are given, records where each character starts in
// `out` and in `s`, plus the end of both.
void foldInto(std::string_view s, std::string& out, std::vector<uint32_t>* foldedStart,
              std::vector<uint32_t>* byteStart) {
  out.clear();
  out.reserve(s.size() + s.size() / 8);
  foldAppend(s, out, foldedStart, byteStart, 0);
  if (foldedStart) {
    foldedStart->push_back(static_cast<uint32_t>(out.size()));
    byteStart->push_back(static_cast<uint32_t>(s.size()));
  }
}

// Appends `s` lower-cased, ASCII letters only; other bytes stay. Eight bytes at a time: a
// template is folded in full more often than anything else is.
void lowerAsciiAppend(std::string_view s, std::string& out) {
  constexpr uint64_t kOnes = 0x0101010101010101ULL;
  constexpr uint64_t kHighBits = 0x8080808080808080ULL;
  const size_t at = out.size();
  out.resize(at + s.size());
  char* to = out.data() + at;
  const char* from = s.data();
  size_t i = 0;
  for (; i + 8 <= s.size(); i += 8) {
    uint64_t w;
    std::memcpy(&w, from + i, 8);
    // Per byte, on its low seven bits (no carry crosses into the next byte): the high bit of
    // `fromA` is set at "A" and above, that of `pastZ` above "Z". Bytes of 0x80 and above are
    // left out.
    const uint64_t low = w & ~kHighBits;
    const uint64_t fromA = low + (0x80 - 'A') * kOnes;
    const uint64_t pastZ = low + (0x80 - 'Z' - 1) * kOnes;
    const uint64_t upper = fromA & ~pastZ & ~w & kHighBits;
    w |= upper >> 2;  // 0x80 >> 2 is the 0x20 between the cases
    std::memcpy(to + i, &w, 8);
  }
  for (; i < s.size(); ++i) to[i] = asciiLower(from[i]);
}

void lowerAsciiInto(std::string_view s, std::string& out) {
  out.clear();
  lowerAsciiAppend(s, out);
}

// True when a match of `size` bytes that starts on the character boundary p also ends on one.
bool endsOnBoundary(std::string_view s, size_t p, size_t size) {
  size_t e = p;
  while (e < p + size) e += utf8::charLength(s, e);
  return e == p + size;
}

// The first byte match of `needle` at or after `from` whose ends are character boundaries.
// A well-formed needle can only match on boundaries (UTF-8 synchronises itself), so only a
// needle with bad bytes needs the walk.
size_t findBinary(std::string_view s, std::string_view needle, size_t from, bool needleValid) {
  size_t p = s.find(needle, from);
  if (needleValid) return p;
  size_t cursor = from;
  while (p != std::string_view::npos) {
    while (cursor < p) cursor += utf8::charLength(s, cursor);
    if (cursor == p && endsOnBoundary(s, p, needle.size())) return p;
    p = s.find(needle, p + 1);
  }
  return p;
}

// The last byte match of `needle` that ends at or before s.size(), on character boundaries.
size_t rfindBinary(std::string_view s, std::string_view needle, bool needleValid) {
  size_t p = s.rfind(needle);
  if (needleValid) return p;
  while (p != std::string_view::npos) {
    size_t cursor = 0;
    while (cursor < p) cursor += utf8::charLength(s, cursor);
    if (cursor == p && endsOnBoundary(s, p, needle.size())) return p;
    if (p == 0) break;
    p = s.rfind(needle, p - 1);
  }
  return std::string_view::npos;
}

// A substring search: glibc's memmem, which hashes pairs of bytes to skip ahead. Templates are
// full of the first byte of a placeholder ("\\" in RTF, the lead byte of "«" in UTF-8), which
// is what makes a first-byte scan slow here, and it outruns a Boyer-Moore-Horspool search on
// texts of a few kilobytes.
class Searcher {
 public:
  explicit Searcher(std::string_view needle) : needle_(needle) {}

  size_t find(std::string_view hay, size_t from) const {
    if (from > hay.size()) return std::string_view::npos;
    if (needle_.empty()) return from;
    const void* at = memmem(hay.data() + from, hay.size() - from, needle_.data(), needle_.size());
    return at == nullptr ? std::string_view::npos
                         : static_cast<size_t>(static_cast<const char*>(at) - hay.data());
  }
  size_t size() const { return needle_.size(); }

 private:
  std::string_view needle_;
};

int32_t toPosition(size_t chars) { return static_cast<int32_t>(chars); }

int sign(int c) { return c < 0 ? -1 : c > 0 ? 1 : 0; }

// UCase and LCase: ASCII by table, valid runs through ICU, bad bytes as they are.
template <class Map>
std::string mapCase(std::string_view s, char (*asciiMap)(char), Map map) {
  std::string out;
  if (utf8::isAscii(s)) {
    out.resize(s.size());
    std::transform(s.begin(), s.end(), out.begin(), asciiMap);
    return out;
  }
  out.reserve(s.size());
  size_t runStart = 0;
  auto flush = [&](size_t end) {
    if (end > runStart) {
      icu::UnicodeString u = icu::UnicodeString::fromUTF8(
          icu::StringPiece(s.data() + runStart, static_cast<int32_t>(end - runStart)));
      map(u);
      u.toUTF8String(out);
    }
  };
  for (size_t i = 0; i < s.size();) {
    size_t n = utf8::sequenceLength(s, i);
    if (n == 0) {
      flush(i);
      out.push_back(s[i]);
      runStart = ++i;
    } else {
      i += n;
    }
  }
  flush(s.size());
  return out;
}

}  // namespace

// ---- functions ----

int32_t Len(std::string_view s) {
  return toPosition(utf8::isAscii(s) ? s.size() : utf8::countChars(s));
}

std::string Left(std::string_view s, int32_t n) {
  if (n < 0) badArgument("Left with a negative length");
  return std::string(s.substr(0, utf8::advanceChars(s, 0, static_cast<size_t>(n))));
}

std::string Right(std::string_view s, int32_t n) {
  if (n < 0) badArgument("Right with a negative length");
  size_t total = utf8::countChars(s);
  if (static_cast<size_t>(n) >= total) return std::string(s);
  return std::string(s.substr(utf8::advanceChars(s, 0, total - static_cast<size_t>(n))));
}

std::string Mid(std::string_view s, int32_t start) {
  if (start < 1) badArgument("Mid with a start below 1");
  return std::string(s.substr(utf8::advanceChars(s, 0, static_cast<size_t>(start) - 1)));
}

std::string Mid(std::string_view s, int32_t start, int32_t length) {
  if (start < 1) badArgument("Mid with a start below 1");
  if (length < 0) badArgument("Mid with a negative length");
  size_t from = utf8::advanceChars(s, 0, static_cast<size_t>(start) - 1);
  size_t to = utf8::advanceChars(s, from, static_cast<size_t>(length));
  return std::string(s.substr(from, to - from));
}

int32_t InStr(int32_t start, std::string_view s, std::string_view find, CompareMode mode) {
  if (start < 1) badArgument("InStr with a start below 1");
  if (s.empty()) return 0;
  size_t from = utf8::advanceChars(s, 0, static_cast<size_t>(start) - 1);
  if (from >= s.size()) return 0;
  if (find.empty()) return start;
  std::string_view rest = s.substr(from);
  if (mode == CompareMode::kBinary) {
    size_t p = findBinary(rest, find, 0, utf8::isValid(find));
    if (p == std::string_view::npos) return 0;
    return start + toPosition(utf8::countChars(rest.substr(0, p)));
  }
  if (utf8::isAscii(rest) && utf8::isAscii(find)) {
    // One-shot ASCII search: lower both into reused buffers, then an ordinary search.
    thread_local std::string hay, needle;
    lowerAsciiInto(rest, hay);
    lowerAsciiInto(find, needle);
    size_t p = Searcher(needle).find(hay, 0);
    return p == std::string::npos ? 0 : start + toPosition(p);
  }
  FoldedText folded{std::string(rest)};
  int32_t p = folded.find(find);
  return p == 0 ? 0 : start - 1 + p;
}

int32_t InStrRev(std::string_view s, std::string_view find, int32_t start, CompareMode mode) {
  if (start == 0 || start < -1) badArgument("InStrRev with a start of 0 or below -1");
  if (s.empty()) return 0;
  int32_t length = Len(s);
  if (start == -1) start = length;
  if (start > length) return 0;
  if (find.empty()) return start;
  std::string_view prefix = s.substr(0, utf8::advanceChars(s, 0, static_cast<size_t>(start)));
  if (mode == CompareMode::kBinary) {
    size_t p = rfindBinary(prefix, find, utf8::isValid(find));
    if (p == std::string_view::npos) return 0;
    return 1 + toPosition(utf8::countChars(prefix.substr(0, p)));
  }
  FoldedText folded{std::string(prefix)};
  auto m = folded.matchLast(find);
  return m ? m->position : 0;
}

std::string LTrim(std::string_view s) {
  size_t i = s.find_first_not_of(' ');
  return i == std::string_view::npos ? std::string() : std::string(s.substr(i));
}

std::string RTrim(std::string_view s) {
  size_t i = s.find_last_not_of(' ');
  return i == std::string_view::npos ? std::string() : std::string(s.substr(0, i + 1));
}

std::string Trim(std::string_view s) {
  size_t b = s.find_first_not_of(' ');
  if (b == std::string_view::npos) return std::string();
  size_t e = s.find_last_not_of(' ');
  return std::string(s.substr(b, e - b + 1));
}

std::string UCase(std::string_view s) {
  return mapCase(s, asciiUpper, [](icu::UnicodeString& u) { u.toUpper(icu::Locale::getRoot()); });
}

std::string LCase(std::string_view s) {
  return mapCase(s, asciiLower, [](icu::UnicodeString& u) { u.toLower(icu::Locale::getRoot()); });
}

std::string Replace(std::string_view expression, std::string_view find,
                    std::string_view replaceWith, int32_t start, int32_t count, CompareMode mode) {
  if (start < 1) badArgument("Replace with a start below 1");
  if (count < -1) badArgument("Replace with a count below -1");
  if (expression.empty()) return std::string();
  size_t from = utf8::advanceChars(expression, 0, static_cast<size_t>(start) - 1);
  std::string_view rest = expression.substr(from);
  if (find.empty() || count == 0) return std::string(rest);
  if (mode == CompareMode::kText) {
    FoldedText folded{std::string(rest)};
    folded.replaceAll(find, replaceWith, count);
    return folded.text();
  }
  bool valid = utf8::isValid(find);
  std::string out;
  out.reserve(rest.size());
  size_t copied = 0;
  for (int32_t done = 0; count < 0 || done < count; ++done) {
    size_t p = findBinary(rest, find, copied, valid);
    if (p == std::string_view::npos) break;
    out.append(rest.substr(copied, p - copied));
    out.append(replaceWith);
    copied = p + find.size();
  }
  out.append(rest.substr(copied));
  return out;
}

std::vector<std::string> Split(std::string_view expression, std::string_view delimiter,
                               int32_t limit, CompareMode mode) {
  if (limit < -1) badArgument("Split with a limit below -1");
  std::vector<std::string> pieces;
  if (expression.empty() || limit == 0) return pieces;
  if (delimiter.empty() || limit == 1) {
    pieces.emplace_back(expression);
    return pieces;
  }
  auto more = [&] { return limit < 0 || pieces.size() + 1 < static_cast<size_t>(limit); };
  size_t copied = 0;
  if (mode == CompareMode::kText) {
    FoldedText folded{std::string(expression)};
    int32_t next = 1;
    while (more()) {
      auto m = folded.match(delimiter, next);
      if (!m) break;
      pieces.emplace_back(expression.substr(copied, m->byteBegin - copied));
      copied = m->byteEnd;
      next = m->endPosition;
    }
  } else {
    bool valid = utf8::isValid(delimiter);
    while (more()) {
      size_t p = findBinary(expression, delimiter, copied, valid);
      if (p == std::string_view::npos) break;
      pieces.emplace_back(expression.substr(copied, p - copied));
      copied = p + delimiter.size();
    }
  }
  pieces.emplace_back(expression.substr(copied));
  return pieces;
}

int StrComp(std::string_view a, std::string_view b, CompareMode mode) {
  if (mode == CompareMode::kBinary) return sign(a.compare(b));
  return sign(std::string_view(foldCase(a)).compare(foldCase(b)));
}

std::string Space(int32_t n) {
  if (n < 0) badArgument("Space with a negative count");
  return std::string(static_cast<size_t>(n), ' ');
}

std::string foldCase(std::string_view s) {
  std::string out;
  foldCaseAppend(s, out);
  return out;
}

void foldCaseAppend(std::string_view s, std::string& out) {
  if (utf8::isAscii(s)) {
    lowerAsciiAppend(s, out);
  } else {
    foldAppend(s, out, nullptr, nullptr, 0);
  }
}

// ---- FoldedText ----

FoldedText::FoldedText(std::string text) : text_(std::move(text)) { fold(); }

void FoldedText::fold() {
  foldedStart_.clear();
  byteStart_.clear();
  ascii_ = utf8::isAscii(text_);
  valid_ = ascii_ || utf8::isValid(text_);
  if (ascii_) {
    lowerAsciiInto(text_, folded_);
  } else {
    foldedStart_.reserve(text_.size() + 1);
    byteStart_.reserve(text_.size() + 1);
    foldInto(text_, folded_, &foldedStart_, &byteStart_);
  }
  for (DelimitedIndex& index : indexes_) buildIndex(index);
  buildPairs();
}

void FoldedText::indexDelimited(std::string_view open, std::string_view close) {
  if (open.empty() || close.empty()) return;
  DelimitedIndex index{foldCase(open), foldCase(close), {}};
  buildIndex(index);
  indexes_.push_back(std::move(index));
}

int32_t FoldedText::length() const {
  return toPosition(ascii_ ? text_.size() : byteStart_.size() - 1);
}

bool FoldedText::isBoundary(size_t at) const {
  return ascii_ || std::binary_search(foldedStart_.begin(), foldedStart_.end(), at);
}

namespace {

// The first match at or after folded offset `from` that begins and ends on characters.
template <class IsBoundary>
bool findFolded(std::string_view folded, const Searcher& searcher, size_t from,
                IsBoundary isBoundary, size_t& begin, size_t& end) {
  for (size_t p = searcher.find(folded, from); p != std::string_view::npos;
       p = searcher.find(folded, p + 1)) {
    if (isBoundary(p) && isBoundary(p + searcher.size())) {
      begin = p;
      end = p + searcher.size();
      return true;
    }
  }
  return false;
}

}  // namespace

TextMatch FoldedText::toMatch(size_t foldedBegin, size_t foldedEnd) const {
  TextMatch m;
  if (ascii_) {
    m.position = toPosition(foldedBegin + 1);
    m.endPosition = toPosition(foldedEnd + 1);
    m.byteBegin = foldedBegin;
    m.byteEnd = foldedEnd;
    return m;
  }
  size_t first = std::lower_bound(foldedStart_.begin(), foldedStart_.end(), foldedBegin) -
                 foldedStart_.begin();
  size_t last =
      std::lower_bound(foldedStart_.begin(), foldedStart_.end(), foldedEnd) - foldedStart_.begin();
  m.position = toPosition(first + 1);
  m.endPosition = toPosition(last + 1);
  m.byteBegin = byteStart_[first];
  m.byteEnd = byteStart_[last];
  return m;
}

void FoldedText::buildIndex(DelimitedIndex& index) const {
  index.spans.clear();
  Searcher open(index.open), close(index.close);
  auto boundary = [this](size_t at) { return isBoundary(at); };
  std::string_view folded = folded_;
  size_t openBegin, openEnd, closeBegin, closeEnd;
  for (size_t from = 0; findFolded(folded, open, from, boundary, openBegin, openEnd);
       from = openBegin + 1) {
    // Every opening delimiter starts a span, also one inside another span ("««Name»").
    if (!findFolded(folded, close, openEnd, boundary, closeBegin, closeEnd)) break;
    index.spans.insert(
        std::hash<std::string_view>{}(folded.substr(openBegin, closeEnd - openBegin)));
  }
}

namespace {

// The folding of a needle, in a buffer kept for the thread: the folding is needed only for the
// one search that asked for it, and a rule list asks for dozens in a row.
std::string_view foldNeedle(std::string_view needle) {
  thread_local std::string folded;
  folded.clear();
  foldCaseAppend(needle, folded);
  return folded;
}

size_t pairOf(char first, char second) {
  return static_cast<size_t>(static_cast<unsigned char>(first)) << 8 |
         static_cast<unsigned char>(second);
}

}  // namespace

void FoldedText::indexPairs() {
  pairs_.assign(kPairWords, 0);
  buildPairs();
}

void FoldedText::buildPairs() {
  if (pairs_.empty()) return;
  std::fill(pairs_.begin(), pairs_.end(), 0);
  for (size_t i = 1; i < folded_.size(); ++i) {
    const size_t pair = pairOf(folded_[i - 1], folded_[i]);
    pairs_[pair / 64] |= uint64_t{1} << (pair % 64);
  }
}

bool FoldedText::mayOccur(std::string_view needle) const {
  if (!pairs_.empty()) {
    for (size_t i = 1; i < needle.size(); ++i) {
      const size_t pair = pairOf(needle[i - 1], needle[i]);
      if ((pairs_[pair / 64] & (uint64_t{1} << (pair % 64))) == 0) return false;
    }
  }
  for (const DelimitedIndex& index : indexes_) {
    std::string_view open = index.open, close = index.close;
    // Only a needle that is one whole span: open, a name without `close`, close.
    if (needle.size() >= open.size() + close.size() && needle.substr(0, open.size()) == open &&
        needle.find(close, open.size()) == needle.size() - close.size()) {
      return index.spans.count(std::hash<std::string_view>{}(needle)) > 0;
    }
  }
  return true;
}

std::optional<TextMatch> FoldedText::match(std::string_view needle, int32_t start) const {
  if (start < 1) badArgument("search with a start below 1");
  if (needle.empty() || start > length()) return std::nullopt;
  size_t from = ascii_ ? static_cast<size_t>(start) - 1 : foldedStart_[start - 1];
  std::string_view foldedNeedle = foldNeedle(needle);
  if (!mayOccur(foldedNeedle)) return std::nullopt;
  Searcher searcher(foldedNeedle);
  size_t begin, end;
  auto boundary = [this](size_t at) { return isBoundary(at); };
  if (!findFolded(folded_, searcher, from, boundary, begin, end)) return std::nullopt;
  return toMatch(begin, end);
}

std::optional<TextMatch> FoldedText::matchLast(std::string_view needle) const {
  if (needle.empty()) return std::nullopt;
  std::string_view foldedNeedle = foldNeedle(needle);
  if (!mayOccur(foldedNeedle)) return std::nullopt;
  std::string_view hay = folded_;
  for (size_t p = hay.rfind(foldedNeedle); p != std::string_view::npos;
       p = p == 0 ? std::string_view::npos : hay.rfind(foldedNeedle, p - 1)) {
    size_t e = p + foldedNeedle.size();
    if (isBoundary(p) && isBoundary(e)) {
      return toMatch(p, e);
    }
  }
  return std::nullopt;
}

int32_t FoldedText::find(std::string_view needle, int32_t start) const {
  auto m = match(needle, start);
  return m ? m->position : 0;
}

int32_t FoldedText::replaceAll(std::string_view needle, std::string_view replacement,
                               int32_t maxCount, int32_t start) {
  if (start < 1) badArgument("replace with a start below 1");
  if (needle.empty() || maxCount == 0 || start > length()) return 0;
  std::string_view foldedNeedle = foldNeedle(needle);
  if (!mayOccur(foldedNeedle)) return 0;
  Searcher searcher(foldedNeedle);
  auto boundary = [this](size_t at) { return isBoundary(at); };
  // The matches, as characters of the text: [first, last).
  std::vector<std::pair<size_t, size_t>> hits;
  size_t from = ascii_ ? static_cast<size_t>(start) - 1 : foldedStart_[start - 1];
  size_t begin, end;
  while ((maxCount < 0 || hits.size() < static_cast<size_t>(maxCount)) &&
         findFolded(folded_, searcher, from, boundary, begin, end)) {
    hits.emplace_back(characterAt(begin), characterAt(end));
    from = end;
  }
  if (hits.empty()) return 0;
  if (splice(hits, replacement)) {
    for (DelimitedIndex& index : indexes_) buildIndex(index);
    buildPairs();
  }
  return static_cast<int32_t>(hits.size());
}

size_t FoldedText::characterAt(size_t foldedOffset) const {
  if (ascii_) return foldedOffset;
  return std::lower_bound(foldedStart_.begin(), foldedStart_.end(), foldedOffset) -
         foldedStart_.begin();
}

bool FoldedText::splice(const std::vector<std::pair<size_t, size_t>>& hits,
                        std::string_view replacement) {
  auto byteOf = [this](size_t character) { return ascii_ ? character : byteStart_[character]; };
  auto foldedOf = [this](size_t character) { return ascii_ ? character : foldedStart_[character]; };
  // Built in the buffers of the text before, kept for the next replacement.
  std::string& text = spareText_;
  text.clear();
  size_t copied = 0;  // characters of the old text handled
  for (const auto& [first, last] : hits) {
    text.append(text_, byteOf(copied), byteOf(first) - byteOf(copied));
    text.append(replacement);
    copied = last;
  }
  text.append(text_, byteOf(copied), std::string::npos);
  // Well-formed pieces joined stay the same characters, so the folding is the pieces' foldings
  // joined. A bad byte at a seam could join its neighbour into a new character: fold again.
  if (!valid_ || !utf8::isValid(replacement)) {
    text_.swap(text);
    fold();
    return false;
  }
  const bool ascii = ascii_ && utf8::isAscii(replacement);
  std::string foldedReplacement;
  std::vector<uint32_t> replacementFolded, replacementBytes;  // per character, from 0
  if (ascii) {
    lowerAsciiInto(replacement, foldedReplacement);
  } else {
    foldAppend(replacement, foldedReplacement, &replacementFolded, &replacementBytes, 0);
  }
  std::string& folded = spareFolded_;
  folded.clear();
  std::vector<uint32_t> foldedStart, byteStart;
  if (!ascii) {
    const size_t characters = (ascii_ ? text_.size() : byteStart_.size() - 1) + 1 +
                              hits.size() * replacementFolded.size();
    foldedStart.reserve(characters);
    byteStart.reserve(characters);
  }
  size_t bytes = 0;  // bytes of the new text laid out so far
  // Characters [from, to) of the old text.
  auto appendOld = [&](size_t from, size_t to) {
    if (!ascii) {
      for (size_t k = from; k < to; ++k) {
        foldedStart.push_back(static_cast<uint32_t>(folded.size() + foldedOf(k) - foldedOf(from)));
        byteStart.push_back(static_cast<uint32_t>(bytes + byteOf(k) - byteOf(from)));
      }
    }
    folded.append(folded_, foldedOf(from), foldedOf(to) - foldedOf(from));
    bytes += byteOf(to) - byteOf(from);
  };
  auto appendReplacement = [&] {
    if (!ascii) {
      for (size_t k = 0; k < replacementFolded.size(); ++k) {
        foldedStart.push_back(static_cast<uint32_t>(folded.size() + replacementFolded[k]));
        byteStart.push_back(static_cast<uint32_t>(bytes + replacementBytes[k]));
      }
    }
    folded.append(foldedReplacement);
    bytes += replacement.size();
  };
  copied = 0;
  for (const auto& [first, last] : hits) {
    appendOld(copied, first);
    appendReplacement();
    copied = last;
  }
  appendOld(copied, ascii_ ? text_.size() : byteStart_.size() - 1);
  text_.swap(text);
  folded_.swap(folded);
  ascii_ = ascii;
  if (!ascii) {
    foldedStart.push_back(static_cast<uint32_t>(folded_.size()));
    byteStart.push_back(static_cast<uint32_t>(text_.size()));
  }
  foldedStart_ = std::move(foldedStart);
  byteStart_ = std::move(byteStart);
  return true;
}

std::string FoldedText::release() {
  std::string text = std::move(text_);
  *this = FoldedText();
  return text;
}

}  // namespace nvwm
