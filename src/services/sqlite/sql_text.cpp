#include "services/sqlite/sql_text.h"

#include <cctype>
#include <memory>

#include "runtime/ascii.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/regional.h"
#include "services/sqlite/stored_value.h"

namespace nvwm::sqlite {
namespace {

// Jet's # literals are month first in every locale: read them under en-US settings.
class UsRegionalSettings {
 public:
  UsRegionalSettings() : saved_(std::make_shared<RegionalSettings>(regionalSettings())) {
    setRegionalSettings(nullptr);
  }
  ~UsRegionalSettings() { setRegionalSettings(saved_); }

 private:
  std::shared_ptr<const RegionalSettings> saved_;
};

// Index just past a quoted run that starts at i (quote doubled inside = one quote).
size_t skipQuoted(std::string_view s, size_t i, char close) {
  for (size_t j = i + 1; j < s.size(); ++j) {
    if (s[j] == close) {
      if (close != ']' && j + 1 < s.size() && s[j + 1] == close) {
        ++j;
        continue;
      }
      return j + 1;
    }
  }
  return s.size();
}

bool isWordChar(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '$' ||
         static_cast<unsigned char>(c) >= 0x80;
}

// Index just past the blanks and comments that start at i.
size_t skipBlanks(std::string_view s, size_t i) {
  while (i < s.size()) {
    if (std::isspace(static_cast<unsigned char>(s[i]))) {
      ++i;
    } else if (s.compare(i, 2, "--") == 0) {
      size_t end = s.find('\n', i);
      i = end == std::string_view::npos ? s.size() : end + 1;
    } else if (s.compare(i, 2, "/*") == 0) {
      size_t end = s.find("*/", i + 2);
      i = end == std::string_view::npos ? s.size() : end + 2;
    } else {
      break;
    }
  }
  return i;
}

bool sameWord(std::string_view word, std::string_view upper) {
  if (word.size() != upper.size()) return false;
  for (size_t k = 0; k < word.size(); ++k) {
    if (asciiUpper(word[k]) != upper[k]) return false;
  }
  return true;
}

// The top-level tokens of a statement, one at a time: a word, or one other character.
// Quoted runs, comments and parenthesised groups are passed over whole.
class TopLevelTokens {
 public:
  explicit TopLevelTokens(std::string_view s) : s_(s) {}
  // The next word at the top level ("" at the end; a lone punctuation mark gives "").
  std::optional<std::string_view> next() {
    i_ = skipBlanks(s_, i_);
    if (i_ >= s_.size()) return std::nullopt;
    char c = s_[i_];
    if (isWordChar(c)) {
      size_t start = i_;
      while (i_ < s_.size() && isWordChar(s_[i_])) ++i_;
      return s_.substr(start, i_ - start);
    }
    if (c == '\'' || c == '"' || c == '`' || c == '[') {
      i_ = skipQuoted(s_, i_, c == '[' ? ']' : c);
    } else if (c == '(') {
      skipGroup();
    } else {
      ++i_;
    }
    return std::string_view();
  }
  size_t offset() const { return i_; }

 private:
  void skipGroup() {
    // Iterative, so that no nesting depth can exhaust the stack.
    size_t depth = 0;
    while (i_ < s_.size()) {
      i_ = skipBlanks(s_, i_);
      if (i_ >= s_.size()) break;
      char c = s_[i_];
      if (c == '\'' || c == '"' || c == '`' || c == '[') {
        i_ = skipQuoted(s_, i_, c == '[' ? ']' : c);
        continue;
      }
      ++i_;
      if (c == '(') ++depth;
      if (c == ')' && --depth == 0) return;
    }
  }

  std::string_view s_;
  size_t i_ = 0;
};

}  // namespace

SelectShape selectShape(std::string_view sql) {
  SelectShape shape;
  TopLevelTokens tokens(sql);
  auto first = tokens.next();
  if (!first || !sameWord(*first, "SELECT")) return shape;
  shape.select = true;
  shape.afterSelect = tokens.offset();
  auto second = tokens.next();
  shape.distinct = second && (sameWord(*second, "DISTINCT") || sameWord(*second, "DISTINCTROW"));
  bool afterGroup = false;
  for (auto word = second; word; word = tokens.next()) {
    if (afterGroup && sameWord(*word, "BY")) shape.grouped = true;
    afterGroup = sameWord(*word, "GROUP");
  }
  return shape;
}

std::optional<Date> parseJetDateLiteral(std::string_view text) {
  UsRegionalSettings us;
  return TryParseDate(text);
}

std::string translateJetSql(std::string_view sql) {
  std::string out;
  out.reserve(sql.size() + 16);
  size_t i = 0;
  while (i < sql.size()) {
    char c = sql[i];
    if (c == '\'' || c == '"' || c == '[') {
      size_t end = skipQuoted(sql, i, c == '[' ? ']' : c);
      out.append(sql.substr(i, end - i));
      i = end;
    } else if (c == '-' && i + 1 < sql.size() && sql[i + 1] == '-') {
      size_t end = sql.find('\n', i);
      if (end == std::string_view::npos) end = sql.size();
      out.append(sql.substr(i, end - i));
      i = end;
    } else if (c == '#') {
      size_t close = sql.find('#', i + 1);
      if (close == std::string_view::npos)
        raise(ErrorNumber::kDatabaseError, "a date literal has no closing #");
      std::string_view inner = sql.substr(i + 1, close - i - 1);
      auto date = parseJetDateLiteral(inner);
      if (!date)
        raise(ErrorNumber::kDatabaseError, "#" + std::string(inner) + "# is not a date literal");
      out += '\'';
      out += dateToStoredText(*date);
      out += '\'';
      i = close + 1;
    } else {
      out += c;
      ++i;
    }
  }
  return out;
}

bool isBlankSql(std::string_view s) {
  size_t i = 0;
  while (i < s.size()) {
    unsigned char c = static_cast<unsigned char>(s[i]);
    if (std::isspace(c) || c == ';') {
      ++i;
    } else if (c == '-' && i + 1 < s.size() && s[i + 1] == '-') {
      size_t end = s.find('\n', i);
      i = end == std::string_view::npos ? s.size() : end;
    } else if (c == '/' && i + 1 < s.size() && s[i + 1] == '*') {
      size_t end = s.find("*/", i + 2);
      i = end == std::string_view::npos ? s.size() : end + 2;
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace nvwm::sqlite
