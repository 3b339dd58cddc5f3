#include "runtime/convert.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <vector>

#include "runtime/ascii.h"
#include "runtime/clock.h"
#include "runtime/error.h"
#include "runtime/format.h"
#include "runtime/regional.h"

namespace nvwm {
namespace {

[[noreturn]] void nullError() { raise(ErrorNumber::kInvalidUseOfNull); }
[[noreturn]] void mismatch(std::string_view what) { raise(ErrorNumber::kTypeMismatch, what); }

// The numeric value of a variant as a double, for the number conversions.
double numberOf(const Variant& v) {
  switch (v.type()) {
    case VarType::kEmpty:
      return 0.0;
    case VarType::kNull:
      nullError();
    case VarType::kBoolean:
      return v.boolValue() ? -1.0 : 0.0;
    case VarType::kInteger:
      return v.integerValue();
    case VarType::kLong:
      return v.longValue();
    case VarType::kSingle:
      return v.singleValue();
    case VarType::kDouble:
      return v.doubleValue();
    case VarType::kCurrency:
      return v.currencyValue().toDouble();
    case VarType::kDate:
      return v.dateValue().serial();
    case VarType::kString: {
      auto n = TryParseNumber(v.stringValue());
      if (!n) mismatch("\"" + v.stringValue() + "\" is not a number");
      return *n;
    }
    case VarType::kError:
      mismatch("missing argument");
    case VarType::kObject:
      mismatch("object where a value is needed");
  }
  mismatch("value");
}

// ---- date text reader ----

struct DateToken {
  enum Kind { kNumber, kWord, kColon, kSeparator } kind;
  std::string text;
  int value = 0;
  int digits = 0;
};

std::vector<DateToken> tokenizeDate(std::string_view s) {
  std::vector<DateToken> out;
  size_t i = 0;
  while (i < s.size()) {
    unsigned char c = static_cast<unsigned char>(s[i]);
    if (std::isdigit(c)) {
      size_t j = i;
      long long value = 0;
      while (j < s.size() && std::isdigit(static_cast<unsigned char>(s[j]))) {
        if (value < 100000) value = value * 10 + (s[j] - '0');
        ++j;
      }
      out.push_back({DateToken::kNumber, std::string(s.substr(i, j - i)), static_cast<int>(value),
                     static_cast<int>(j - i)});
      i = j;
    } else if (std::isalpha(c) || c >= 0x80) {
      size_t j = i;
      while (j < s.size() && (std::isalpha(static_cast<unsigned char>(s[j])) ||
                              static_cast<unsigned char>(s[j]) >= 0x80))
        ++j;
      out.push_back({DateToken::kWord, std::string(s.substr(i, j - i))});
      i = j;
    } else if (c == ':') {
      out.push_back({DateToken::kColon, ":"});
      ++i;
    } else if (c == '/' || c == '-' || c == ',' || c == '.' || std::isspace(c)) {
      if (!std::isspace(c)) out.push_back({DateToken::kSeparator, std::string(1, char(c))});
      ++i;
    } else {
      return {};  // a character no date form uses
    }
  }
  return out;
}

int monthFromWord(std::string_view w) {
  const RegionalSettings& rs = regionalSettings();
  for (int m = 0; m < 12; ++m) {
    if (equalsIgnoringAsciiCase(w, rs.monthNames[m]) ||
        equalsIgnoringAsciiCase(w, rs.monthAbbreviations[m]))
      return m + 1;
  }
  if (equalsIgnoringAsciiCase(w, "Sept")) return 9;
  return 0;
}

bool isDayWord(std::string_view w) {
  const RegionalSettings& rs = regionalSettings();
  for (int d = 0; d < 7; ++d) {
    if (equalsIgnoringAsciiCase(w, rs.dayNames[d]) ||
        equalsIgnoringAsciiCase(w, rs.dayAbbreviations[d]))
      return true;
  }
  return false;
}

int expandYear(const DateToken& t) {
  if (t.digits <= 2) return t.value < 30 ? 2000 + t.value : 1900 + t.value;
  return t.value;
}

bool shortDateIsDayFirst() {
  const std::string& p = regionalSettings().shortDate;
  size_t d = p.find_first_of("dD"), m = p.find_first_of("mM");
  return d != std::string::npos && m != std::string::npos && d < m;
}

bool shortDateIsYearFirst() {
  const std::string& p = regionalSettings().shortDate;
  return !p.empty() && (p[0] == 'y' || p[0] == 'Y');
}

// What the tokens of a date text say, before they are put together.
struct DateTextParts {
  std::vector<DateToken> dateNumbers;     // the numbers that are no part of a time of day
  int monthWord = 0;                      // a month given by name, 1..12; 0 for none
  int hour = -1, minute = 0, second = 0;  // hour -1: no time of day
  int ampm = 0;                           // 1 am, 2 pm
};

struct Ymd {
  int year = 0, month = 0, day = 0;
};

bool isAmWord(std::string_view w) {
  return equalsIgnoringAsciiCase(w, "am") || equalsIgnoringAsciiCase(w, "a") ||
         equalsIgnoringAsciiCase(w, regionalSettings().am);
}

bool isPmWord(std::string_view w) {
  return equalsIgnoringAsciiCase(w, "pm") || equalsIgnoringAsciiCase(w, "p") ||
         equalsIgnoringAsciiCase(w, regionalSettings().pm);
}

// The words that make a number before them an hour ("9 am"): the English ones only.
bool isEnglishAmPmWord(std::string_view w) {
  return equalsIgnoringAsciiCase(w, "am") || equalsIgnoringAsciiCase(w, "pm") ||
         equalsIgnoringAsciiCase(w, "a") || equalsIgnoringAsciiCase(w, "p");
}

// A word: am or pm after an hour, a month name (once), or a day name (read and ignored, as
// the runtime does). False for any other word.
bool readDateWord(std::string_view w, DateTextParts& parts) {
  if (isAmWord(w) || isPmWord(w)) {
    if (parts.hour < 0 || parts.ampm) return false;
    parts.ampm = isAmWord(w) ? 1 : 2;
    return true;
  }
  if (int m = monthFromWord(w)) {
    if (parts.monthWord) return false;
    parts.monthWord = m;
    return true;
  }
  return isDayWord(w);
}

// The number at tokens[i]: a time of day h:mm or h:mm:ss (i moves past it), an hour before
// am/pm, or a number of the date. False for a second time of day or a colon without minutes.
bool readDateNumber(const std::vector<DateToken>& tokens, size_t& i, DateTextParts& parts) {
  const DateToken& t = tokens[i];
  auto kindAt = [&](size_t k) {
    return k < tokens.size() ? tokens[k].kind : DateToken::kSeparator;
  };
  if (kindAt(i + 1) == DateToken::kColon) {
    if (parts.hour >= 0 || kindAt(i + 2) != DateToken::kNumber) return false;
    parts.hour = t.value;
    parts.minute = tokens[i + 2].value;
    i += 2;
    if (kindAt(i + 1) == DateToken::kColon && kindAt(i + 2) == DateToken::kNumber) {
      parts.second = tokens[i + 2].value;
      i += 2;
    }
  } else if (kindAt(i + 1) == DateToken::kWord && parts.hour < 0 &&
             isEnglishAmPmWord(tokens[i + 1].text)) {
    parts.hour = t.value;
  } else {
    parts.dateNumbers.push_back(t);
  }
  return true;
}

// Sorts every token into parts; false when one fits nowhere. Separators only separate.
bool readDateTokens(const std::vector<DateToken>& tokens, DateTextParts& parts) {
  for (size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i].kind == DateToken::kWord && !readDateWord(tokens[i].text, parts)) return false;
    if (tokens[i].kind == DateToken::kNumber && !readDateNumber(tokens, i, parts)) return false;
  }
  return true;
}

// Puts am/pm into the hour (12 am is 0) and checks the time of day.
bool settleTimeOfDay(DateTextParts& parts) {
  if (parts.ampm) {
    if (parts.hour < 1 || parts.hour > 12) return false;
    if (parts.ampm == 1 && parts.hour == 12) parts.hour = 0;
    if (parts.ampm == 2 && parts.hour != 12) parts.hour += 12;
  }
  return parts.hour <= 23 && parts.minute <= 59 && parts.second <= 59;
}

// With a month name: "Nov 2026" or "23 Nov" (a number above 31 or of more than two digits is
// the year), or a day and a year in either order.
std::optional<Ymd> dateWithMonthWord(int month, const std::vector<DateToken>& numbers) {
  if (numbers.size() == 1) {
    const DateToken& only = numbers[0];
    if (only.value > 31 || only.digits > 2) return Ymd{only.value, month, 1};
    return Ymd{Today().year(), month, only.value};
  }
  if (numbers.size() == 2) {
    const DateToken& a = numbers[0];
    const DateToken& b = numbers[1];
    if (a.digits > 2 || a.value > 31) return Ymd{expandYear(a), month, b.value};
    return Ymd{expandYear(b), month, a.value};
  }
  return std::nullopt;
}

// Numbers only: yyyy-mm-dd, or two or three numbers in the order of the regional short date,
// the year of today when there is none.
std::optional<Ymd> dateOfNumbers(const std::vector<DateToken>& numbers) {
  size_t n = numbers.size();
  if (n != 2 && n != 3) return std::nullopt;
  const DateToken& a = numbers[0];
  const DateToken& b = numbers[1];
  if (a.digits > 2) {  // yyyy-mm-dd
    if (n != 3) return std::nullopt;
    return Ymd{a.value, b.value, numbers[2].value};
  }
  Ymd ymd;
  if (shortDateIsYearFirst() && n == 3) {
    ymd = {expandYear(a), b.value, numbers[2].value};
  } else if (shortDateIsDayFirst()) {
    ymd = {n == 3 ? expandYear(numbers[2]) : Today().year(), b.value, a.value};
  } else {
    ymd = {n == 3 ? expandYear(numbers[2]) : Today().year(), a.value, b.value};
  }
  // The runtime swaps day and month when the month can't be one.
  if (ymd.month > 12 && ymd.day <= 12) std::swap(ymd.month, ymd.day);
  return ymd;
}

// The calendar date a text names. REQUIRES: a month name or at least one date number.
std::optional<Ymd> calendarDateOf(const DateTextParts& parts) {
  if (parts.monthWord) return dateWithMonthWord(parts.monthWord, parts.dateNumbers);
  return dateOfNumbers(parts.dateNumbers);
}

// A number as a date: 6 outside 100-01-01 .. 9999-12-31 23:59:59.
Date dateFromSerial(double d) {
  if (!(d >= -657434.0 && d < 2958466.0))
    raise(ErrorNumber::kOverflow, "not in the range of dates");
  return Date(d);
}

}  // namespace

double roundHalfEven(double x) {
  double r = std::nearbyint(x);  // default rounding mode: to nearest, ties to even
  return r;
}

std::string doubleToText(double x) {
  if (x == 0) return "0";
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.15G", x);
  return buf;
}

std::string singleToText(float x) {
  if (x == 0) return "0";
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.7G", static_cast<double>(x));
  return buf;
}

std::optional<double> TryParseNumber(std::string_view text) {
  const RegionalSettings& rs = regionalSettings();
  std::string_view s = trimAsciiBlanks(text);
  if (s.empty()) return std::nullopt;
  if (s.size() > 2 && s[0] == '&' && (s[1] == 'H' || s[1] == 'h')) {
    long long v = 0;
    for (char c : s.substr(2)) {
      int d = std::isdigit(static_cast<unsigned char>(c)) ? c - '0'
              : (c >= 'a' && c <= 'f')                    ? c - 'a' + 10
              : (c >= 'A' && c <= 'F')                    ? c - 'A' + 10
                                                          : -1;
      if (d < 0 || v > (1LL << 40)) return std::nullopt;
      v = v * 16 + d;
    }
    // &H literals are 16-bit below &H10000 and 32-bit above, sign-extended as the runtime does.
    if (s.size() - 2 <= 4 && v > 0x7FFF)
      v -= 0x10000;
    else if (v > 0x7FFFFFFF && v <= 0xFFFFFFFFLL)
      v -= 0x100000000LL;
    return static_cast<double>(v);
  }
  std::string clean;
  bool negative = false, sawSign = false, sawDigit = false, sawPoint = false, sawCurrency = false;
  bool inExponent = false;
  for (size_t i = 0; i < s.size(); ++i) {
    char c = s[i];
    if (!rs.currencySymbol.empty() && s.substr(i, rs.currencySymbol.size()) == rs.currencySymbol &&
        !sawCurrency && !inExponent) {
      sawCurrency = true;
      i += rs.currencySymbol.size() - 1;
    } else if ((c == '-' || c == '+') && !sawSign && !sawDigit && !sawPoint) {
      sawSign = true;
      negative = c == '-';
    } else if (c == '(' && i == 0 && s.back() == ')') {
      negative = true;  // accounting negative "(12.50)"
      s.remove_suffix(1);
    } else if (std::isdigit(static_cast<unsigned char>(c))) {
      sawDigit = true;
      clean += c;
    } else if (c == rs.thousandsSeparator && sawDigit && !sawPoint && !inExponent) {
      // thousands separator: skipped
    } else if (c == rs.decimalSeparator && !sawPoint && !inExponent) {
      sawPoint = true;
      clean += '.';
    } else if ((c == 'e' || c == 'E' || c == 'd' || c == 'D') && sawDigit && !inExponent) {
      inExponent = true;
      clean += 'e';
      if (i + 1 < s.size() && (s[i + 1] == '+' || s[i + 1] == '-')) clean += s[++i];
      if (i + 1 >= s.size() || !std::isdigit(static_cast<unsigned char>(s[i + 1])))
        return std::nullopt;
    } else if (std::isspace(static_cast<unsigned char>(c)) && (sawCurrency || sawSign) &&
               !sawDigit) {
      // "$ 12" and "- 12"
    } else {
      return std::nullopt;
    }
  }
  if (!sawDigit) return std::nullopt;
  char* end = nullptr;
  double v = std::strtod(clean.c_str(), &end);
  if (end == nullptr || *end != '\0' || !std::isfinite(v)) return std::nullopt;
  return negative ? -v : v;
}

std::optional<Date> TryParseDate(std::string_view text) {
  std::vector<DateToken> tokens = tokenizeDate(trimAsciiBlanks(text));
  if (tokens.empty()) return std::nullopt;
  DateTextParts parts;
  if (!readDateTokens(tokens, parts) || !settleTimeOfDay(parts)) return std::nullopt;
  bool hasDate = parts.monthWord != 0 || !parts.dateNumbers.empty();
  if (!hasDate && parts.hour < 0) return std::nullopt;
  std::optional<Ymd> ymd = hasDate ? calendarDateOf(parts) : Ymd{};
  if (!ymd) return std::nullopt;
  try {
    Date date = hasDate ? Date::fromYmd(ymd->year, ymd->month, ymd->day) : Date(0.0);
    if (parts.hour < 0) return date;
    double t = (parts.hour * 3600.0 + parts.minute * 60.0 + parts.second) / 86400.0;
    return Date(date.serial() < 0 ? date.serial() - t : date.serial() + t);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

bool CBool(const Variant& v) {
  switch (v.type()) {
    case VarType::kBoolean:
      return v.boolValue();
    case VarType::kString: {
      std::string_view s = trimAsciiBlanks(v.stringValue());
      if (equalsIgnoringAsciiCase(s, "True")) return true;
      if (equalsIgnoringAsciiCase(s, "False")) return false;
      auto n = TryParseNumber(s);
      if (!n) mismatch("\"" + v.stringValue() + "\" is not a truth value");
      return *n != 0;
    }
    default:
      return numberOf(v) != 0;
  }
}

int16_t CInt(const Variant& v) {
  double r = roundHalfEven(numberOf(v));
  if (r < -32768.0 || r > 32767.0 || std::isnan(r)) raise(ErrorNumber::kOverflow);
  return static_cast<int16_t>(r);
}

int32_t CLng(const Variant& v) {
  double r = roundHalfEven(numberOf(v));
  if (r < -2147483648.0 || r > 2147483647.0 || std::isnan(r)) raise(ErrorNumber::kOverflow);
  return static_cast<int32_t>(r);
}

float CSng(const Variant& v) {
  double d = numberOf(v);
  if (std::fabs(d) > std::numeric_limits<float>::max()) raise(ErrorNumber::kOverflow);
  return static_cast<float>(d);
}

double CDbl(const Variant& v) { return numberOf(v); }

Currency CCur(const Variant& v) {
  if (v.type() == VarType::kCurrency) return v.currencyValue();
  double units = roundHalfEven(numberOf(v) * 10000.0);
  if (!(std::fabs(units) <= 9.2e18)) raise(ErrorNumber::kOverflow);  // NaN too
  return Currency{static_cast<int64_t>(units)};
}

std::string CStr(const Variant& v) {
  switch (v.type()) {
    case VarType::kEmpty:
      return "";
    case VarType::kNull:
      nullError();
    case VarType::kBoolean:
      return v.boolValue() ? "True" : "False";
    case VarType::kInteger:
      return std::to_string(v.integerValue());
    case VarType::kLong:
      return std::to_string(v.longValue());
    case VarType::kSingle:
      return singleToText(v.singleValue());
    case VarType::kDouble:
      return doubleToText(v.doubleValue());
    case VarType::kCurrency: {
      // In whole units: a double can't hold every amount of 19 digits.
      int64_t units = v.currencyValue().units;
      uint64_t magnitude =
          units < 0 ? uint64_t(0) - static_cast<uint64_t>(units) : static_cast<uint64_t>(units);
      std::string s = (units < 0 ? "-" : "") + std::to_string(magnitude / 10000);
      if (uint64_t fraction = magnitude % 10000) {
        char buf[8];
        std::snprintf(buf, sizeof buf, ".%04u", static_cast<unsigned>(fraction));
        s += buf;
        while (s.back() == '0') s.pop_back();
      }
      return s;
    }
    case VarType::kDate:
      return generalDateText(v.dateValue());
    case VarType::kString:
      return v.stringValue();
    case VarType::kError:
      mismatch("missing argument");
    case VarType::kObject:
      mismatch("object where text is needed");
  }
  return "";
}

Date CDate(const Variant& v) {
  switch (v.type()) {
    case VarType::kDate:
      return v.dateValue();
    case VarType::kString: {
      if (auto d = TryParseDate(v.stringValue())) return *d;
      auto n = TryParseNumber(v.stringValue());
      if (!n) mismatch("\"" + v.stringValue() + "\" is not a date");
      return dateFromSerial(*n);
    }
    default:
      return dateFromSerial(numberOf(v));
  }
}

std::optional<double> TryCDbl(const Variant& v) {
  try {
    return CDbl(v);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

std::optional<Date> TryCDate(const Variant& v) {
  try {
    return CDate(v);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

// Only dates and texts in a date form: a number is no date here even though CDate takes it.
bool IsDate(const Variant& v) {
  if (v.isDate()) return true;
  return v.isString() && TryParseDate(v.stringValue()).has_value();
}

bool IsNumeric(const Variant& v) {
  switch (v.type()) {
    case VarType::kEmpty:
    case VarType::kBoolean:
    case VarType::kInteger:
    case VarType::kLong:
    case VarType::kSingle:
    case VarType::kDouble:
    case VarType::kCurrency:
      return true;
    case VarType::kString:
      return TryParseNumber(v.stringValue()).has_value();
    default:
      return false;
  }
}

bool IsNull(const Variant& v) { return v.isNull(); }
bool IsEmpty(const Variant& v) { return v.isEmpty(); }

}  // namespace nvwm
