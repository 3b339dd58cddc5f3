#include "engine/placeholder_index.h"

#include "engine/placeholder_grammar.h"
#include "runtime/text.h"

namespace nvwm::engine {
namespace {

char lowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

// The byte offset of the first `delimiter` at or after `from`, or npos. ASCII letters match
// either case; other bytes match exactly. The search runs on the delimiter's second byte, which
// is rare in a template ("'" of "\'ab", the 0xAB of "«"), where the first ("\\" of every RTF
// control word) is common.
size_t findDelimiter(std::string_view text, std::string_view delimiter, size_t from) {
  const char second = delimiter[1];
  for (size_t at = text.find(second, from + 1); at != std::string_view::npos;
       at = text.find(second, at + 1)) {
    const size_t begin = at - 1;
    if (text.size() - begin < delimiter.size()) return std::string_view::npos;
    size_t i = 0;
    while (i < delimiter.size() && lowerAscii(text[begin + i]) == lowerAscii(delimiter[i])) ++i;
    if (i == delimiter.size()) return begin;
  }
  return std::string_view::npos;
}

// Bytes that delimiters are made of, beyond letters: a text without them can't make one.
bool holdsDelimiterBytes(std::string_view s) {
  for (char c : s) {
    const auto b = static_cast<unsigned char>(c);
    if (b == 0xAB || b == 0xBB || b == 0xC2 || c == '\\' || c == '\'') return true;
  }
  return false;
}

// Whether the bytes before `at` end in a piece of an escaped delimiter: "\", "\'", "\'a" or
// "\'b" (either case).
bool followsEscapePiece(std::string_view text, size_t at) {
  if (at >= 1 && text[at - 1] == '\\') return true;
  if (at >= 2 && text[at - 2] == '\\' && text[at - 1] == '\'') return true;
  if (at >= 3 && text[at - 3] == '\\' && text[at - 2] == '\'') {
    const char c = lowerAscii(text[at - 1]);
    return c == 'a' || c == 'b';
  }
  return false;
}

bool isAscii(std::string_view s) {
  for (char c : s) {
    if (static_cast<unsigned char>(c) >= 0x80) return false;
  }
  return true;
}

}  // namespace

void PlaceholderIndex::rebuild(std::string_view text) {
  folded_.clear();
  pieces_.clear();
  fragile_ = false;
  scan(text, DelimiterForm::kPlain);
  scan(text, DelimiterForm::kEscaped);
  // The views are taken once the buffer has stopped growing.
  for (size_t i = 0; i < 2; ++i) {
    spans_[i].clear();
    dateNames_[i].clear();
  }
  const std::string_view folded = folded_;
  for (const Piece& p : pieces_) {
    (p.dateName ? dateNames_ : spans_)[p.form].insert(folded.substr(p.offset, p.length));
  }
}

bool PlaceholderIndex::replaced(DelimiterForm form, std::string_view foldedInner,
                                std::string_view value) {
  if (fragile_ || holdsDelimiterBytes(value)) return false;
  // Date names stay: they only tell which names are worth trying.
  spans_[index(form)].erase(foldedInner);
  return true;
}

void PlaceholderIndex::scan(std::string_view text, DelimiterForm form) {
  const bool plain = form == DelimiterForm::kPlain;
  const std::string_view open = plain ? kOpenPlain : kOpenEscaped;
  const std::string_view close = plain ? kClosePlain : kCloseEscaped;
  for (size_t at = findDelimiter(text, open, 0); at != std::string_view::npos;
       at = findDelimiter(text, open, at + 1)) {
    const size_t innerBegin = at + open.size();
    const size_t end = findDelimiter(text, close, innerBegin);
    if (end == std::string_view::npos) break;
    const std::string_view inner = text.substr(innerBegin, end - innerBegin);
    if (holdsDelimiterBytes(inner) || followsEscapePiece(text, at)) fragile_ = true;
    const size_t offset = folded_.size();
    if (isAscii(inner)) {
      for (char c : inner) folded_ += lowerAscii(c);
    } else {
      folded_ += foldCase(inner);
    }
    const size_t length = folded_.size() - offset;
    pieces_.push_back({index(form), offset, length, false});
    const std::string_view span = std::string_view(folded_).substr(offset, length);
    if (span.size() > 1 && span.front() == '(') {
      // The date tails are lower-case ASCII, so folding leaves them as they are.
      for (const DateFormatRow& row : kDateFormats) {
        const std::string_view tail = row.tail;
        if (span.size() > tail.size() && span.substr(span.size() - tail.size()) == tail) {
          pieces_.push_back({index(form), offset + 1, length - 1 - tail.size(), true});
        }
      }
    }
  }
}

}  // namespace nvwm::engine
