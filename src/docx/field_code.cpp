// The MERGEFIELD instruction and its switches.
//
// Grammar of the instruction, as Word reads the text gathered from w:instr or the w:instrText
// runs of a field:
//
//   instruction := blank* "MERGEFIELD" (blank+ item)* blank*      keyword in any case
//   item        := name | switch
//   name        := token                                         the first non-switch item
//   switch      := "\" letter ( blank* argument )?               \@ \# \* \b \f take one
//                                                                 argument; \m \v none
//   argument    := token
//   token       := '"' ( '\"' | '\\' | any but '"' )* '"'         quotes removed
//                | ( any but blank )+
//
// A switch letter glued to its argument ("\*Upper", "\@"MMMM d"") reads as if separated.
// \* may repeat ("\* Upper \* MERGEFORMAT"). An unknown switch is skipped with its argument.
#include "docx/field_code.h"

#include <unicode/uchar.h>

#include <cmath>
#include <cstdio>

#include "runtime/convert.h"
#include "runtime/decimal_digits.h"
#include "runtime/regional.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

namespace nvwm::docx {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\xA0'; }

struct Token {
  std::string text;
  bool isSwitch = false;  // text is the switch letter
};

// Reads one token at pos (pos on a non-blank).
std::string readToken(std::string_view s, size_t& pos) {
  std::string out;
  if (s[pos] == '"') {
    ++pos;
    while (pos < s.size() && s[pos] != '"') {
      if (s[pos] == '\\' && pos + 1 < s.size() && (s[pos + 1] == '"' || s[pos + 1] == '\\')) ++pos;
      out += s[pos++];
    }
    if (pos < s.size()) ++pos;  // closing quote; an unclosed one runs to the end
    return out;
  }
  while (pos < s.size() && !isBlank(s[pos])) out += s[pos++];
  return out;
}

std::vector<Token> tokenize(std::string_view s) {
  std::vector<Token> tokens;
  size_t pos = 0;
  while (pos < s.size()) {
    if (isBlank(s[pos])) {
      ++pos;
      continue;
    }
    if (s[pos] == '\\' && pos + 1 < s.size()) {
      tokens.push_back({std::string(1, s[pos + 1]), true});
      pos += 2;
      continue;
    }
    tokens.push_back({readToken(s, pos), false});
  }
  return tokens;
}

std::string upperAscii(std::string_view s) {
  std::string out(s);
  for (char& c : out) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return out;
}

// The character at s[i]: its byte length, and its code point when it is well-formed UTF-8.
struct Character {
  size_t size;
  std::optional<char32_t> codePoint;  // nothing for a byte that begins no well-formed sequence
};

Character characterAt(std::string_view s, size_t i) {
  size_t n = utf8::sequenceLength(s, i);
  if (n == 0) return {1, std::nullopt};
  return {n, utf8::decode(s, i, n)};
}

bool isSpace(const Character& c) {
  return c.codePoint && u_isspace(static_cast<UChar32>(*c.codePoint));
}

// The title-case form of a character; a bad byte as it is.
void appendTitleCase(std::string& out, std::string_view s, size_t i, const Character& c) {
  if (c.codePoint) {
    utf8::append(out, static_cast<char32_t>(u_totitle(static_cast<UChar32>(*c.codePoint))));
  } else {
    out += s[i];
  }
}

// Where the first letter at or after i stands (text.size() when there is none): Word's case
// formats pass over leading spaces, punctuation and digits.
size_t firstLetter(std::string_view text, size_t i) {
  while (i < text.size()) {
    Character c = characterAt(text, i);
    if (c.codePoint && u_isalpha(static_cast<UChar32>(*c.codePoint))) return i;
    i += c.size;
  }
  return text.size();
}

std::string twoDigits(int n) {
  char buf[8];
  std::snprintf(buf, sizeof buf, "%02d", n % 100);
  return buf;
}

// Length of the run of character c at pos.
size_t runOf(std::string_view s, size_t pos, char c) {
  size_t n = 0;
  while (pos + n < s.size() && s[pos + n] == c) ++n;
  return n;
}

bool startsWithNoCase(std::string_view s, size_t pos, std::string_view what) {
  if (s.size() - pos < what.size()) return false;
  return upperAscii(s.substr(pos, what.size())) == upperAscii(what);
}

// Groups a string of digits by three with the separator.
std::string groupDigits(const std::string& digits, char separator) {
  std::string out;
  size_t n = digits.size();
  for (size_t i = 0; i < n; ++i) {
    out += digits[i];
    size_t left = n - i - 1;
    if (left > 0 && left % 3 == 0) out += separator;
  }
  return out;
}

}  // namespace

bool MergeFieldCode::charFormat() const {
  for (const auto& f : formats) {
    if (upperAscii(f) == "CHARFORMAT") return true;
  }
  return false;
}

std::string_view fieldName(std::string_view instruction) {
  size_t pos = 0;
  while (pos < instruction.size() && isBlank(instruction[pos])) ++pos;
  size_t end = pos;
  while (end < instruction.size() && !isBlank(instruction[end]) && instruction[end] != '\\' &&
         instruction[end] != '"') {
    ++end;
  }
  return instruction.substr(pos, end - pos);
}

std::string fieldKeyword(std::string_view instruction) {
  return upperAscii(fieldName(instruction));
}

namespace {

// A field of the keyword with a name (takesName) or without, and the common switches.
std::optional<MergeFieldCode> parseSwitchedField(std::string_view instruction,
                                                 std::string_view keyword, bool takesName) {
  std::vector<Token> tokens = tokenize(instruction);
  if (tokens.empty() || tokens[0].isSwitch || upperAscii(tokens[0].text) != keyword) {
    return std::nullopt;
  }
  MergeFieldCode code;
  bool haveName = false;
  for (size_t i = 1; i < tokens.size(); ++i) {
    const Token& t = tokens[i];
    if (!t.isSwitch) {
      if (takesName && !haveName) {
        code.name = t.text;
        haveName = true;
      }
      continue;  // a stray word after the name is ignored, as Word does
    }
    char letter = t.text[0];
    // A switch that takes an argument and has none spoils the field, as in Word.
    auto argument = [&]() -> std::string {
      if (i + 1 < tokens.size() && !tokens[i + 1].isSwitch) return tokens[++i].text;
      code.argumentMissing = true;
      return {};
    };
    switch (letter) {
      case '@':
        code.datePicture = argument();
        break;
      case '#':
        code.numericPicture = argument();
        break;
      case '*':
        code.formats.push_back(argument());
        break;
      case 'b':
      case 'B':
        code.textBefore = argument();
        break;
      case 'f':
      case 'F':
        code.textAfter = argument();
        break;
      case 'm':
      case 'M':
        code.mapped = true;
        break;
      case 'v':
      case 'V':
        code.vertical = true;
        break;
      default:
        if (i + 1 < tokens.size() && !tokens[i + 1].isSwitch) ++i;
        break;
    }
  }
  if (takesName && (!haveName || code.name.empty())) return std::nullopt;
  return code;
}

}  // namespace

std::optional<MergeFieldCode> parseMergeField(std::string_view instruction) {
  return parseSwitchedField(instruction, "MERGEFIELD", true);
}

std::optional<MergeFieldCode> parseNamedField(std::string_view instruction,
                                              std::string_view keyword) {
  return parseSwitchedField(instruction, keyword, true);
}

std::optional<MergeFieldCode> parseCounterField(std::string_view instruction,
                                                std::string_view keyword) {
  return parseSwitchedField(instruction, keyword, false);
}

std::string fieldArgumentText(std::string_view value, bool wrap) {
  std::string out;
  if (wrap) out += '"';
  for (char c : value) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  if (wrap) out += '"';
  return out;
}

std::string plainValueText(const Variant& value) {
  if (value.isNull() || value.isEmpty() || value.isMissing()) return {};
  if (value.isString()) return value.stringValue();
  if (value.isObject()) return {};
  return CStr(value);
}

std::string formatMergeValue(const MergeFieldCode& code, const Variant& value) {
  if (code.argumentMissing) return std::string(kSwitchArgumentMissingText);
  std::string text;
  bool done = false;
  if (code.datePicture) {
    std::optional<Date> date;
    if (value.isDate()) {
      date = value.dateValue();
    } else if (value.isString()) {
      date = TryParseDate(value.stringValue());
    }
    if (date) {
      text = formatWordDate(*date, *code.datePicture);
      done = true;
    }
  }
  if (!done && code.numericPicture) {
    std::optional<double> number;
    if (value.isNumber()) {
      number = CDbl(value);
    } else if (value.isString()) {
      number = TryParseNumber(value.stringValue());
    }
    if (number) {
      text = formatWordNumber(*number, *code.numericPicture);
      done = true;
    }
  }
  if (!done) text = plainValueText(value);
  for (const auto& format : code.formats) {
    std::string f = upperAscii(format);
    if (f == "UPPER")
      text = UCase(text);
    else if (f == "LOWER")
      text = LCase(text);
    else if (f == "CAPS")
      text = capsText(text);
    else if (f == "FIRSTCAP")
      text = firstCapText(text);
    // MERGEFORMAT and CHARFORMAT choose formatting, not text; others are ignored.
  }
  if (!text.empty()) {
    if (code.textBefore) text = *code.textBefore + text;
    if (code.textAfter) text += *code.textAfter;
  }
  return text;
}

std::string formatWordDate(Date date, std::string_view p) {
  const RegionalSettings& rs = regionalSettings();
  DateParts d = date.parts();
  int weekday = date.weekday();  // 1 = Sunday
  std::string out;
  size_t i = 0;
  while (i < p.size()) {
    char c = p[i];
    if (c == '\'') {
      size_t close = p.find('\'', i + 1);
      if (close == std::string_view::npos) close = p.size();
      out += p.substr(i + 1, close - i - 1);
      i = close + 1;
      continue;
    }
    if (startsWithNoCase(p, i, "am/pm")) {
      // Word shows the mark in capitals however the picture spells it.
      out += UCase(d.hour < 12 ? rs.am : rs.pm);
      i += 5;
      continue;
    }
    size_t n = runOf(p, i, c);
    switch (c) {
      case 'd':
      case 'D':
        n = runOf(p, i, c);
        if (n == 1)
          out += std::to_string(d.day);
        else if (n == 2)
          out += twoDigits(d.day);
        else if (n == 3)
          out += rs.dayAbbreviations[weekday - 1];
        else
          out += rs.dayNames[weekday - 1];
        break;
      case 'M':
        if (n == 1)
          out += std::to_string(d.month);
        else if (n == 2)
          out += twoDigits(d.month);
        else if (n == 3)
          out += rs.monthAbbreviations[d.month - 1];
        else
          out += rs.monthNames[d.month - 1];
        break;
      case 'y':
      case 'Y':
        if (n <= 2)
          out += twoDigits(d.year);
        else
          out += std::to_string(d.year);
        break;
      case 'h': {
        int h12 = d.hour % 12 == 0 ? 12 : d.hour % 12;
        out += n == 1 ? std::to_string(h12) : twoDigits(h12);
        break;
      }
      case 'H':
        out += n == 1 ? std::to_string(d.hour) : twoDigits(d.hour);
        break;
      case 'm':
        out += n == 1 ? std::to_string(d.minute) : twoDigits(d.minute);
        break;
      case 's':
      case 'S':
        out += n == 1 ? std::to_string(d.second) : twoDigits(d.second);
        break;
      default:
        out.append(n, c);
        break;
    }
    i += n;
  }
  return out;
}

std::string formatWordNumber(double value, std::string_view picture) {
  const RegionalSettings& rs = regionalSettings();
  // Sections: positive;negative;zero. A quoted ';' does not split.
  std::vector<std::string> sections(1);
  bool quoted = false;
  for (char c : picture) {
    if (c == '\'') quoted = !quoted;
    if (c == ';' && !quoted) {
      sections.emplace_back();
      continue;
    }
    sections.back() += c;
  }
  std::string section = sections[0];
  bool explicitNegative = false;
  if (value < 0 && sections.size() >= 2) {
    section = sections[1];
    explicitNegative = true;
  } else if (value == 0 && sections.size() >= 3) {
    section = sections[2];
  }
  // Layout of the chosen section.
  size_t firstPlace = std::string::npos, lastPlace = std::string::npos, point = std::string::npos;
  int intPlaces = 0, decPlaces = 0;
  bool grouping = false, hasSignChar = false;
  quoted = false;
  for (size_t i = 0; i < section.size(); ++i) {
    char c = section[i];
    if (c == '\'') quoted = !quoted;
    if (quoted) continue;
    bool place = c == '0' || c == '#' || c == 'x';
    if (place) {
      if (firstPlace == std::string::npos) firstPlace = i;
      lastPlace = i;
      (point == std::string::npos ? intPlaces : decPlaces)++;
    } else if (c == '.' && point == std::string::npos && firstPlace != std::string::npos) {
      point = i;
      lastPlace = i;
    } else if (c == '.' && firstPlace == std::string::npos && i + 1 < section.size() &&
               (section[i + 1] == '0' || section[i + 1] == '#' || section[i + 1] == 'x')) {
      point = i;
      firstPlace = i;
      lastPlace = i;
    } else if (c == ',' && firstPlace != std::string::npos && point == std::string::npos) {
      grouping = true;
    } else if (c == '-' || c == '+') {
      hasSignChar = true;
    }
  }
  auto literal = [&](std::string_view part, bool negative, bool zero) {
    std::string out;
    bool q = false;
    for (char c : part) {
      if (c == '\'') {
        q = !q;
        continue;
      }
      if (!q && c == '-')
        out += negative ? "-" : " ";
      else if (!q && c == '+')
        out += negative ? "-" : zero ? " " : "+";
      else
        out += c;
    }
    return out;
  };
  if (firstPlace == std::string::npos) return literal(section, value < 0, value == 0);

  // Digits rounded as the value is displayed, the same as Format's (1.005 -> "1.01").
  std::string intDigits, decDigits;
  decimalDigits(std::fabs(value), decPlaces, intDigits, decDigits);
  bool roundsToZero = intDigits.empty() && decDigits.find_first_not_of('0') == std::string::npos;

  // Integer part: placeholders from the right take the digits; x drops what is left of it.
  std::string integerPart;
  {
    std::string placeholders;
    for (size_t i = firstPlace; i <= lastPlace && (point == std::string::npos || i < point); ++i) {
      char c = section[i];
      if (c == '0' || c == '#' || c == 'x') placeholders += c;
    }
    size_t xAt = placeholders.find('x');
    if (xAt != std::string::npos) {
      size_t keep = placeholders.size() - xAt;
      if (intDigits.size() > keep) intDigits = intDigits.substr(intDigits.size() - keep);
    }
    std::string filled;
    int pi = static_cast<int>(placeholders.size()) - 1;
    int di = static_cast<int>(intDigits.size()) - 1;
    for (; pi >= 0 && di >= 0; --pi, --di) filled.insert(filled.begin(), intDigits[di]);
    if (di >= 0) filled.insert(0, intDigits.substr(0, di + 1));  // more digits than places
    // A 0 without a digit shows 0; a # shows a space ("$###" of 15 is "$ 15"), and a
    // separator between such places is left out.
    size_t blanks = 0;
    for (; pi >= 0; --pi) {
      if (placeholders[pi] == '0')
        filled.insert(filled.begin(), '0');
      else if (placeholders[pi] == '#')
        ++blanks;
    }
    integerPart =
        std::string(blanks, ' ') + (grouping ? groupDigits(filled, rs.thousandsSeparator) : filled);
  }
  std::string decimalPart;
  if (point != std::string::npos) {
    decimalPart += rs.decimalSeparator;
    decimalPart += decDigits;
  }
  bool negative = value < 0 && !roundsToZero;
  std::string sign = negative && !explicitNegative && !hasSignChar ? "-" : "";
  return sign + literal(std::string_view(section).substr(0, firstPlace), negative, value == 0) +
         integerPart + decimalPart +
         literal(std::string_view(section).substr(lastPlace + 1), negative, value == 0);
}

std::string capsText(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  size_t i = 0;
  while (i < text.size()) {
    Character c = characterAt(text, i);
    if (isSpace(c)) {
      out.append(text.substr(i, c.size));
      i += c.size;
      continue;
    }
    // A word: what leads up to its first letter as it is ("(mary" -> "(Mary"), that letter
    // up, the rest down.
    size_t end = i;
    while (end < text.size()) {
      Character next = characterAt(text, end);
      if (isSpace(next)) break;
      end += next.size;
    }
    size_t letter = firstLetter(text.substr(0, end), i);
    if (letter == end) {
      out += LCase(text.substr(i, end - i));
    } else {
      out.append(text.substr(i, letter - i));
      Character first = characterAt(text, letter);
      appendTitleCase(out, text, letter, first);
      out += LCase(text.substr(letter + first.size, end - letter - first.size));
    }
    i = end;
  }
  return out;
}

std::string firstCapText(std::string_view text) {
  size_t letter = firstLetter(text, 0);
  if (letter == text.size()) return std::string(text);
  std::string out(text.substr(0, letter));
  Character c = characterAt(text, letter);
  appendTitleCase(out, text, letter, c);
  out.append(text.substr(letter + c.size));
  return out;
}

}  // namespace nvwm::docx
