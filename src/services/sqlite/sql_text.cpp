#include "services/sqlite/sql_text.h"

#include <cctype>
#include <memory>

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

}  // namespace

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
