#include "docx/conditional_fields.h"

#include "runtime/convert.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

namespace nvwm::docx {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// Words as they are read.
class WordSplitter {
 public:
  void text(std::string_view text, const std::string& runProperties) {
    for (size_t i = 0; i < text.size(); ++i) {
      char c = text[i];
      if (!open_) {
        if (isBlank(c)) continue;
        start(c == '"');
        if (c == '"') continue;
      } else if (!quoted_ && isBlank(c)) {
        close();
        continue;
      } else if (quoted_ && c == '\\' && i + 1 < text.size() &&
                 (text[i + 1] == '"' || text[i + 1] == '\\')) {
        c = text[++i];
      } else if (quoted_ && c == '"') {
        close();
        continue;
      } else if (!quoted_ && c == '"') {
        close();
        start(true);
        continue;
      }
      append(c, runProperties);
    }
  }

  void nested(int32_t id) {
    if (!open_) start(false);
    InstructionPart part;
    part.nested = id;
    words_.back().parts.push_back(std::move(part));
  }

  std::vector<InstructionWord> finish() {
    close();
    return std::move(words_);
  }

 private:
  void start(bool quoted) {
    words_.emplace_back().quoted = quoted;
    open_ = true;
    quoted_ = quoted;
  }
  void close() { open_ = false; }
  void append(char c, const std::string& runProperties) {
    auto& parts = words_.back().parts;
    if (parts.empty() || parts.back().nested >= 0 || parts.back().runProperties != runProperties) {
      InstructionPart part;
      part.runProperties = runProperties;
      parts.push_back(std::move(part));
    }
    parts.back().text += c;
  }

  std::vector<InstructionWord> words_;
  bool open_ = false;
  bool quoted_ = false;
};

// Whether text matches a pattern of ? and * over whole characters.
bool matchesWildcards(std::string_view text, std::string_view pattern) {
  size_t t = 0, p = 0;
  size_t starP = std::string_view::npos, starT = 0;  // the last * seen, and where it matched
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      starP = p++;
      starT = t;
      continue;
    }
    size_t tn = utf8::charLength(text, t);
    if (p < pattern.size()) {
      size_t pn = utf8::charLength(pattern, p);
      if (pattern[p] == '?' || text.substr(t, tn) == pattern.substr(p, pn)) {
        t += tn;
        p += pn;
        continue;
      }
    }
    if (starP == std::string_view::npos) return false;
    // The last * takes one more character.
    p = starP + 1;
    starT += utf8::charLength(text, starT);
    t = starT;
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

template <class T>
bool holds(Comparison comparison, const T& a, const T& b) {
  switch (comparison) {
    case Comparison::kEqual:
      return a == b;
    case Comparison::kNotEqual:
      return a != b;
    case Comparison::kLess:
      return a < b;
    case Comparison::kGreater:
      return a > b;
    case Comparison::kLessOrEqual:
      return a <= b;
    case Comparison::kGreaterOrEqual:
      return a >= b;
  }
  return false;
}

}  // namespace

std::optional<std::string> InstructionWord::plainText() const {
  std::string out;
  for (const InstructionPart& p : parts) {
    if (p.nested >= 0) return std::nullopt;
    out += p.text;
  }
  return out;
}

std::vector<InstructionWord> splitInstruction(const std::vector<InstructionPart>& parts) {
  WordSplitter splitter;
  for (const InstructionPart& p : parts) {
    if (p.nested >= 0)
      splitter.nested(p.nested);
    else
      splitter.text(p.text, p.runProperties);
  }
  return splitter.finish();
}

std::optional<Comparison> comparisonOf(const InstructionWord& word) {
  if (word.quoted) return std::nullopt;
  std::optional<std::string> text = word.plainText();
  if (!text) return std::nullopt;
  if (*text == "=") return Comparison::kEqual;
  if (*text == "<>") return Comparison::kNotEqual;
  if (*text == "<") return Comparison::kLess;
  if (*text == ">") return Comparison::kGreater;
  if (*text == "<=") return Comparison::kLessOrEqual;
  if (*text == ">=") return Comparison::kGreaterOrEqual;
  return std::nullopt;
}

bool compareTexts(Comparison comparison, std::string_view left, std::string_view right,
                  bool wildcards) {
  std::optional<double> a = TryParseNumber(left), b = TryParseNumber(right);
  if (a && b) return holds(comparison, *a, *b);
  bool equality = comparison == Comparison::kEqual || comparison == Comparison::kNotEqual;
  if (equality && wildcards && right.find_first_of("?*") != std::string_view::npos) {
    return matchesWildcards(left, right) == (comparison == Comparison::kEqual);
  }
  return holds(comparison, StrComp(left, right, CompareMode::kBinary), 0);
}

}  // namespace nvwm::docx
