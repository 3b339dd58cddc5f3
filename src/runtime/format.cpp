// Format: a pattern is read into pieces (literals and placeholders), then the pieces are
// printed for one value. Date patterns and number patterns are two small languages that share
// only their literal rules: "quoted text", \x, and any character that is no placeholder.
//
// Number digits come from decimalDigits (runtime/decimal_digits.h): the value's 15 significant
// decimal digits, rounded half away from zero there.
#include "runtime/format.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "runtime/ascii.h"
#include "runtime/convert.h"
#include "runtime/decimal_digits.h"
#include "runtime/error.h"
#include "runtime/regional.h"
#include "runtime/utf8.h"

namespace nvwm {
namespace {

bool startsWithNoCase(std::string_view s, size_t i, std::string_view prefix) {
  return s.size() - i >= prefix.size() &&
         equalsIgnoringAsciiCase(s.substr(i, prefix.size()), prefix);
}

void appendNumber(std::string& out, int value, int width) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "%0*d", width, value);
  out += buf;
}

// Reads a literal at p[i] if there is one ("text" or \x) and moves i past it.
bool readQuotedOrEscaped(std::string_view p, size_t& i, std::string& literal) {
  if (p[i] == '"') {
    size_t end = p.find('"', i + 1);
    if (end == std::string_view::npos) end = p.size();  // an open quote runs to the end
    literal.append(p.substr(i + 1, end - i - 1));
    i = std::min(end + 1, p.size());
    return true;
  }
  if (p[i] == '\\') {
    if (i + 1 < p.size()) {
      size_t n = utf8::charLength(p, i + 1);
      literal.append(p.substr(i + 1, n));
      i += 1 + n;
    } else {
      ++i;  // a lone backslash at the end prints nothing
    }
    return true;
  }
  return false;
}

// ---- named formats ----

enum class Named { kNone, kDate, kNumber, kTruth };

struct NamedFormat {
  std::string_view name;
  Named kind;
};

constexpr NamedFormat kNamedFormats[] = {
    {"General Date", Named::kDate}, {"Long Date", Named::kDate},
    {"Medium Date", Named::kDate},  {"Short Date", Named::kDate},
    {"Long Time", Named::kDate},    {"Medium Time", Named::kDate},
    {"Short Time", Named::kDate},   {"General Number", Named::kNumber},
    {"Currency", Named::kNumber},   {"Fixed", Named::kNumber},
    {"Standard", Named::kNumber},   {"Percent", Named::kNumber},
    {"Scientific", Named::kNumber}, {"Yes/No", Named::kTruth},
    {"True/False", Named::kTruth},  {"On/Off", Named::kTruth},
};

Named namedKind(std::string_view pattern) {
  for (const auto& f : kNamedFormats) {
    if (equalsIgnoringAsciiCase(pattern, f.name)) return f.kind;
  }
  return Named::kNone;
}

// The pattern that a named date format stands for; "" for General Date (handled apart).
std::string_view namedDatePattern(std::string_view name) {
  const RegionalSettings& rs = regionalSettings();
  if (equalsIgnoringAsciiCase(name, "Long Date")) return rs.longDate;
  if (equalsIgnoringAsciiCase(name, "Medium Date")) return rs.mediumDate;
  if (equalsIgnoringAsciiCase(name, "Short Date")) return rs.shortDate;
  if (equalsIgnoringAsciiCase(name, "Long Time")) return rs.longTime;
  if (equalsIgnoringAsciiCase(name, "Medium Time")) return rs.mediumTime;
  if (equalsIgnoringAsciiCase(name, "Short Time")) return rs.shortTime;
  return {};
}

std::string_view namedNumberPattern(std::string_view name) {
  if (equalsIgnoringAsciiCase(name, "Currency")) return regionalSettings().currencyFormat;
  if (equalsIgnoringAsciiCase(name, "Fixed")) return "0.00";
  if (equalsIgnoringAsciiCase(name, "Standard")) return "#,##0.00";
  if (equalsIgnoringAsciiCase(name, "Percent")) return "0.00%";
  if (equalsIgnoringAsciiCase(name, "Scientific")) return "0.00E+00";
  return {};
}

// What a pattern without a name holds, outside literals: date placeholders, digit ones.
struct PatternShape {
  bool date = false;
  bool digits = false;
};

PatternShape shapeOf(std::string_view p) {
  PatternShape shape;
  std::string ignored;
  for (size_t i = 0; i < p.size();) {
    if (readQuotedOrEscaped(p, i, ignored)) continue;
    char c = asciiLower(p[i]);
    if (c == '0' || c == '#') shape.digits = true;
    if ((c != 0 && std::strchr("dmyhnswqc", c) != nullptr) || startsWithNoCase(p, i, "a/p") ||
        startsWithNoCase(p, i, "am/pm") || startsWithNoCase(p, i, "ttttt")) {
      shape.date = true;
    }
    ++i;
  }
  return shape;
}

// ---- dates ----

enum class DateKind {
  kLiteral,
  kDay,
  kWeekday,
  kWeek,
  kMonth,
  kQuarter,
  kDayOfYear,
  kYear,
  kHour,
  kMinute,
  kSecond,
  kMarker,
  kRegionalMarker,
  kGeneral,
  kLongTime,
  kDateSeparator,
  kTimeSeparator,
};

struct DatePiece {
  DateKind kind;
  int width = 0;     // letters in the placeholder (d=1 ... dddddd=6; yy=2, yyyy=4)
  std::string text;  // a literal, or a marker as written ("am/pm", "A/P")
};

std::vector<DatePiece> parseDatePattern(std::string_view p) {
  std::vector<DatePiece> pieces;
  auto literal = [&](std::string_view text) {
    if (!pieces.empty() && pieces.back().kind == DateKind::kLiteral) {
      pieces.back().text += text;
    } else {
      pieces.push_back({DateKind::kLiteral, 0, std::string(text)});
    }
  };
  for (size_t i = 0; i < p.size();) {
    std::string quoted;
    if (readQuotedOrEscaped(p, i, quoted)) {
      literal(quoted);
      continue;
    }
    if (startsWithNoCase(p, i, "am/pm") || startsWithNoCase(p, i, "a/p")) {
      size_t n = p[i + 1] == '/' ? 3 : 5;
      pieces.push_back({DateKind::kMarker, 0, std::string(p.substr(i, n))});
      i += n;
      continue;
    }
    if (startsWithNoCase(p, i, "ampm")) {
      pieces.push_back({DateKind::kRegionalMarker, 0, {}});
      i += 4;
      continue;
    }
    char c = asciiLower(p[i]);
    size_t run = 1;
    while (i + run < p.size() && asciiLower(p[i + run]) == c) ++run;
    auto take = [&](DateKind kind, size_t width) {
      pieces.push_back({kind, static_cast<int>(width), {}});
      i += width;
    };
    switch (c) {
      case 'd':
        take(DateKind::kDay, std::min<size_t>(run, 6));
        break;
      case 'w':
        take(run >= 2 ? DateKind::kWeek : DateKind::kWeekday, std::min<size_t>(run, 2));
        break;
      case 'm':
        take(DateKind::kMonth, std::min<size_t>(run, 4));
        break;
      case 'q':
        take(DateKind::kQuarter, 1);
        break;
      case 'y':
        if (run >= 4)
          take(DateKind::kYear, 4);
        else if (run >= 2)
          take(DateKind::kYear, 2);
        else
          take(DateKind::kDayOfYear, 1);
        break;
      case 'h':
        take(DateKind::kHour, std::min<size_t>(run, 2));
        break;
      case 'n':
        take(DateKind::kMinute, std::min<size_t>(run, 2));
        break;
      case 's':
        take(DateKind::kSecond, std::min<size_t>(run, 2));
        break;
      case 'c':
        take(DateKind::kGeneral, 1);
        break;
      case 't':
        if (run >= 5) {
          take(DateKind::kLongTime, 5);
        } else {
          literal(p.substr(i, run));
          i += run;
        }
        break;
      case '/':
        take(DateKind::kDateSeparator, 1);
        break;
      case ':':
        take(DateKind::kTimeSeparator, 1);
        break;
      default: {
        size_t n = utf8::charLength(p, i);
        literal(p.substr(i, n));
        i += n;
      }
    }
  }
  return pieces;
}

int dayOfYear(const DateParts& parts) {
  using namespace std::chrono;
  sys_days day{year{parts.year} / month{static_cast<unsigned>(parts.month)} /
               std::chrono::day{static_cast<unsigned>(parts.day)}};
  sys_days first{year{parts.year} / January / 1};
  return static_cast<int>((day - first).count()) + 1;
}

void checkDateRange(double serial) {
  // 100-01-01 .. 9999-12-31 23:59:59
  if (!(serial >= -657434.0 && serial < 2958466.0)) {
    raise(ErrorNumber::kOverflow, "the number is outside the range of dates");
  }
}

// The marker half that applies: "am/pm" -> "am" or "pm", "A/P" -> "A" or "P".
std::string_view markerHalf(std::string_view marker, bool pm) {
  size_t slash = marker.find('/');
  return pm ? marker.substr(slash + 1) : marker.substr(0, slash);
}

std::string formatDatePattern(Date date, std::string_view pattern) {
  checkDateRange(date.serial());
  const RegionalSettings& rs = regionalSettings();
  std::vector<DatePiece> pieces = parseDatePattern(pattern);
  bool twelveHour = std::any_of(pieces.begin(), pieces.end(), [](const DatePiece& piece) {
    return piece.kind == DateKind::kMarker || piece.kind == DateKind::kRegionalMarker;
  });
  DateParts p = date.parts();
  int weekday = Date::fromYmd(p.year, p.month, p.day).weekday();
  std::string out;
  bool afterHour = false;  // m and mm right after h or hh are minutes
  for (const DatePiece& piece : pieces) {
    bool wasAfterHour = afterHour;
    afterHour = false;
    switch (piece.kind) {
      case DateKind::kLiteral:
        out += piece.text;
        afterHour = wasAfterHour;
        break;
      case DateKind::kDateSeparator:
        out += rs.dateSeparator;
        afterHour = wasAfterHour;
        break;
      case DateKind::kTimeSeparator:
        out += rs.timeSeparator;
        afterHour = wasAfterHour;
        break;
      case DateKind::kDay:
        switch (piece.width) {
          case 1:
          case 2:
            appendNumber(out, p.day, piece.width);
            break;
          case 3:
            out += rs.dayAbbreviations[weekday - 1];
            break;
          case 4:
            out += rs.dayNames[weekday - 1];
            break;
          case 5:
            out += formatDatePattern(date, rs.shortDate);
            break;
          default:
            out += formatDatePattern(date, rs.longDate);
            break;
        }
        break;
      case DateKind::kWeekday:
        appendNumber(out, weekday, 1);
        break;
      case DateKind::kWeek: {
        int jan1 = Date::fromYmd(p.year, 1, 1).weekday();
        appendNumber(out, (dayOfYear(p) - 1 + jan1 - 1) / 7 + 1, 1);
        break;
      }
      case DateKind::kMonth:
        if (piece.width <= 2 && wasAfterHour) {
          appendNumber(out, p.minute, piece.width);
        } else if (piece.width <= 2) {
          appendNumber(out, p.month, piece.width);
        } else if (piece.width == 3) {
          out += rs.monthAbbreviations[p.month - 1];
        } else {
          out += rs.monthNames[p.month - 1];
        }
        break;
      case DateKind::kQuarter:
        appendNumber(out, (p.month - 1) / 3 + 1, 1);
        break;
      case DateKind::kDayOfYear:
        appendNumber(out, dayOfYear(p), 1);
        break;
      case DateKind::kYear:
        if (piece.width == 2)
          appendNumber(out, p.year % 100, 2);
        else
          appendNumber(out, p.year, 1);
        break;
      case DateKind::kHour: {
        int hour = p.hour;
        if (twelveHour) hour = hour % 12 == 0 ? 12 : hour % 12;
        appendNumber(out, hour, piece.width);
        afterHour = true;
        break;
      }
      case DateKind::kMinute:
        appendNumber(out, p.minute, piece.width);
        break;
      case DateKind::kSecond:
        appendNumber(out, p.second, piece.width);
        break;
      case DateKind::kMarker:
        out += markerHalf(piece.text, p.hour >= 12);
        break;
      case DateKind::kRegionalMarker:
        out += p.hour >= 12 ? rs.pm : rs.am;
        break;
      case DateKind::kGeneral:
        out += generalDateText(date);
        break;
      case DateKind::kLongTime:
        out += formatDatePattern(date, rs.longTime);
        break;
    }
  }
  return out;
}

// ---- numbers ----

// NaN and the infinities have no digits to print: the original's Overflow.
void requireFinite(double v) {
  if (!std::isfinite(v)) raise(ErrorNumber::kOverflow, "the number can't be shown");
}

// v / 10^e without passing through 0 or infinity on the way: 10^-324 is 0 in a double, yet
// 5e-324 / 10^-324 is 5.
double divideByPowerOf10(double v, int e) {
  for (; e > 300; e -= 300) v /= 1e300;
  for (; e < -300; e += 300) v *= 1e300;
  return v / std::pow(10.0, e);
}

enum class NumberKind { kLiteral, kDigit, kPoint, kComma, kExponent };

struct NumberPiece {
  NumberKind kind;
  char placeholder = 0;  // '0' or '#' for a digit; 'E' or 'e' for the exponent
  bool plus = false;     // exponent written E+ (sign always shown)
  int expMinDigits = 0;  // exponent digits written as 0
  std::string text;      // literal
};

struct NumberSection {
  std::vector<NumberPiece> pieces;
  bool percent = false;
  bool grouping = false;
  int scaleThousands = 0;
};

NumberSection parseNumberSection(std::string_view p) {
  NumberSection section;
  auto& pieces = section.pieces;
  auto literal = [&](std::string_view text) {
    if (!pieces.empty() && pieces.back().kind == NumberKind::kLiteral) {
      pieces.back().text += text;
    } else {
      pieces.push_back({NumberKind::kLiteral, 0, false, 0, std::string(text)});
    }
  };
  bool seenPoint = false;
  for (size_t i = 0; i < p.size();) {
    std::string quoted;
    if (readQuotedOrEscaped(p, i, quoted)) {
      literal(quoted);
      continue;
    }
    char c = p[i];
    if (c == '0' || c == '#') {
      pieces.push_back({NumberKind::kDigit, c, false, 0, {}});
      ++i;
    } else if (c == '.' && !seenPoint) {
      seenPoint = true;
      pieces.push_back({NumberKind::kPoint, 0, false, 0, {}});
      ++i;
    } else if (c == ',') {
      pieces.push_back({NumberKind::kComma, 0, false, 0, {}});
      ++i;
    } else if (c == '%') {
      section.percent = true;
      literal("%");
      ++i;
    } else if ((c == 'E' || c == 'e') && i + 2 < p.size() && (p[i + 1] == '+' || p[i + 1] == '-') &&
               (p[i + 2] == '0' || p[i + 2] == '#')) {
      NumberPiece e{NumberKind::kExponent, c, p[i + 1] == '+', 0, {}};
      i += 2;
      while (i < p.size() && (p[i] == '0' || p[i] == '#')) {
        if (p[i] == '0') ++e.expMinDigits;
        ++i;
      }
      pieces.push_back(e);
    } else {
      size_t n = utf8::charLength(p, i);
      literal(p.substr(i, n));
      i += n;
    }
  }
  // A comma between digit placeholders of the whole part turns on grouping; commas that end
  // the whole part divide by 1000 each; any other comma is printed. What follows each piece
  // is found in one pass from the end, so a pattern of many commas stays linear.
  std::vector<size_t> nextNonComma(pieces.size() + 1, pieces.size());
  std::vector<bool> digitAheadInWhole(pieces.size() + 1, false);
  for (size_t k = pieces.size(); k-- > 0;) {
    const NumberPiece& piece = pieces[k];
    nextNonComma[k] = piece.kind == NumberKind::kComma ? nextNonComma[k + 1] : k;
    bool endsWhole = piece.kind == NumberKind::kPoint || piece.kind == NumberKind::kExponent;
    digitAheadInWhole[k] =
        !endsWhole && (piece.kind == NumberKind::kDigit || digitAheadInWhole[k + 1]);
  }
  std::vector<NumberPiece> resolved;
  bool inWhole = true;
  bool digitBefore = false;
  for (size_t k = 0; k < pieces.size(); ++k) {
    const NumberPiece& piece = pieces[k];
    if (piece.kind == NumberKind::kPoint || piece.kind == NumberKind::kExponent) inWhole = false;
    if (piece.kind == NumberKind::kDigit && inWhole) digitBefore = true;
    if (piece.kind != NumberKind::kComma) {
      resolved.push_back(piece);
      continue;
    }
    size_t next = nextNonComma[k];
    if (inWhole && digitBefore && next < pieces.size() && pieces[next].kind == NumberKind::kDigit) {
      section.grouping = true;
    } else if (inWhole && digitBefore && !digitAheadInWhole[next]) {
      ++section.scaleThousands;
    } else {
      resolved.push_back({NumberKind::kLiteral, 0, false, 0, ","});
    }
  }
  pieces = std::move(resolved);
  return section;
}

std::string printNumberSection(double v, const NumberSection& section) {
  const RegionalSettings& rs = regionalSettings();
  if (section.percent) v *= 100.0;
  for (int i = 0; i < section.scaleThousands; ++i) v /= 1000.0;
  requireFinite(v);  // 1e308 with "0%" is no number either

  int wholeCount = 0, fractionCount = 0, minWhole = 0, minFraction = 0;
  bool pastPoint = false;
  const NumberPiece* exponent = nullptr;
  for (const NumberPiece& piece : section.pieces) {
    if (piece.kind == NumberKind::kPoint) pastPoint = true;
    if (piece.kind == NumberKind::kExponent) {
      exponent = &piece;
      break;  // placeholders after the exponent belong to it
    }
    if (piece.kind != NumberKind::kDigit) continue;
    if (!pastPoint) {
      ++wholeCount;
      if (piece.placeholder == '0' || minWhole > 0) ++minWhole;
    } else {
      ++fractionCount;
      if (piece.placeholder == '0') minFraction = fractionCount;
    }
  }

  std::string whole, fraction;
  int exp10 = 0;
  if (exponent != nullptr && v != 0) {
    int lead = std::max(wholeCount, 1);
    exp10 = static_cast<int>(std::floor(std::log10(v))) - (lead - 1);
    decimalDigits(divideByPowerOf10(v, exp10), fractionCount, whole, fraction);
    if (static_cast<int>(whole.size()) > lead) {  // 9.995 rounded up to 10.00
      ++exp10;
      decimalDigits(divideByPowerOf10(v, exp10), fractionCount, whole, fraction);
    }
  } else {
    decimalDigits(v, fractionCount, whole, fraction);
  }
  if (static_cast<int>(whole.size()) < minWhole) whole.insert(0, minWhole - whole.size(), '0');
  int fractionShown = fractionCount;
  while (fractionShown > minFraction && fraction[fractionShown - 1] == '0') --fractionShown;

  // The leftmost whole placeholder takes every digit that the others leave.
  size_t firstWholeTake = wholeCount > 0 && whole.size() > static_cast<size_t>(wholeCount - 1)
                              ? whole.size() - (wholeCount - 1)
                              : 0;
  std::string out;
  size_t wholeEmitted = 0;
  auto emitWhole = [&](size_t n) {
    for (size_t k = 0; k < n && wholeEmitted < whole.size(); ++k) {
      out += whole[wholeEmitted++];
      size_t right = whole.size() - wholeEmitted;
      if (section.grouping && right > 0 && right % 3 == 0) out += rs.thousandsSeparator;
    }
  };
  int wholeSeen = 0, fractionSeen = 0;
  pastPoint = false;
  for (const NumberPiece& piece : section.pieces) {
    switch (piece.kind) {
      case NumberKind::kLiteral:
        out += piece.text;
        break;
      case NumberKind::kComma:
        break;
      case NumberKind::kDigit:
        if (!pastPoint) {
          // Placeholders right of the digits we have print nothing ('#') or were padded ('0').
          size_t pending = whole.size() - wholeEmitted;
          size_t placeholdersLeft = static_cast<size_t>(wholeCount - wholeSeen);
          emitWhole(wholeSeen == 0 ? firstWholeTake : (pending >= placeholdersLeft ? 1 : 0));
          ++wholeSeen;
        } else {
          if (fractionSeen < fractionShown) out += fraction[fractionSeen];
          ++fractionSeen;
        }
        break;
      case NumberKind::kPoint:
        if (wholeCount == 0) emitWhole(whole.size());  // ".00" still shows the whole part
        out += rs.decimalSeparator;
        pastPoint = true;
        break;
      case NumberKind::kExponent: {
        out += piece.placeholder;
        if (exp10 < 0)
          out += '-';
        else if (piece.plus)
          out += '+';
        appendNumber(out, std::abs(exp10), std::max(piece.expMinDigits, 1));
        break;
      }
    }
  }
  return out;
}

// Splits at ";" outside literals.
std::vector<std::string_view> splitSections(std::string_view p) {
  std::vector<std::string_view> sections;
  size_t start = 0;
  std::string ignored;
  for (size_t i = 0; i < p.size();) {
    if (readQuotedOrEscaped(p, i, ignored)) continue;
    if (p[i] == ';') {
      sections.push_back(p.substr(start, i - start));
      start = i + 1;
    }
    ++i;
  }
  sections.push_back(p.substr(start));
  return sections;
}

std::string formatNumberPattern(double v, std::string_view pattern) {
  std::vector<std::string_view> sections = splitSections(pattern);
  std::string_view chosen = sections[0];
  bool printSign = false;
  if (v < 0) {
    if (sections.size() >= 2 && !sections[1].empty()) {
      chosen = sections[1];
    } else {
      printSign = true;
    }
  } else if (v == 0 && sections.size() >= 3 && !sections[2].empty()) {
    chosen = sections[2];
  }
  std::string text = printNumberSection(std::fabs(v), parseNumberSection(chosen));
  return printSign ? "-" + text : text;
}

std::optional<bool> truthOf(const Variant& value) {
  if (value.isBoolean()) return value.boolValue();
  if (value.isNumber() || value.isDate()) return CDbl(value) != 0;
  if (value.isString()) {
    std::string_view s = value.stringValue();
    if (equalsIgnoringAsciiCase(s, "True")) return true;
    if (equalsIgnoringAsciiCase(s, "False")) return false;
    if (auto n = TryParseNumber(s)) return *n != 0;
  }
  return std::nullopt;
}

std::string formatTruth(const Variant& value, std::string_view pattern) {
  std::optional<bool> truth = truthOf(value);
  if (!truth) return CStr(value);
  if (equalsIgnoringAsciiCase(pattern, "Yes/No")) return *truth ? "Yes" : "No";
  if (equalsIgnoringAsciiCase(pattern, "On/Off")) return *truth ? "On" : "Off";
  return *truth ? "True" : "False";
}

}  // namespace

std::string generalDateText(Date date) {
  checkDateRange(date.serial());
  const RegionalSettings& rs = regionalSettings();
  DateParts p = date.parts();
  bool hasDay = std::trunc(date.serial()) != 0;
  bool hasTime = p.hour != 0 || p.minute != 0 || p.second != 0;
  std::string out;
  if (hasDay) out = formatDatePattern(date, rs.shortDate);
  if (hasTime || !hasDay) {
    if (!out.empty()) out += ' ';
    out += formatDatePattern(date, rs.longTime);
  }
  return out;
}

std::string formatDate(Date date, std::string_view pattern) {
  if (pattern.empty() || equalsIgnoringAsciiCase(pattern, "General Date"))
    return generalDateText(date);
  std::string_view named = namedDatePattern(pattern);
  return formatDatePattern(date, named.empty() ? pattern : named);
}

std::string formatNumber(double value, std::string_view pattern) {
  requireFinite(value);
  if (pattern.empty() || equalsIgnoringAsciiCase(pattern, "General Number"))
    return doubleToText(value);
  std::string_view named = namedNumberPattern(pattern);
  return formatNumberPattern(value, named.empty() ? pattern : named);
}

std::string Format(const Variant& value, std::string_view pattern) {
  if (value.isNull() || value.isEmpty()) return "";
  if (value.isMissing() || value.isObject()) {
    raise(ErrorNumber::kTypeMismatch, "Format needs a value");
  }
  if (pattern.empty()) return CStr(value);

  Named named = namedKind(pattern);
  if (named == Named::kTruth) return formatTruth(value, pattern);
  PatternShape shape = named == Named::kNone ? shapeOf(pattern) : PatternShape{};
  bool datePattern = named == Named::kDate || (named == Named::kNone && !shape.digits);
  bool numberPattern = named == Named::kNumber || (named == Named::kNone && shape.digits);

  if (value.isDate()) {
    return numberPattern ? formatNumber(value.dateValue().serial(), pattern)
                         : formatDate(value.dateValue(), pattern);
  }
  if (value.isString()) {
    const std::string& text = value.stringValue();
    if (numberPattern) {
      if (auto n = TryParseNumber(text)) return formatNumber(*n, pattern);
      if (auto d = TryParseDate(text)) return formatNumber(d->serial(), pattern);
      return text;
    }
    // A date pattern, or one of literals only.
    if (named == Named::kNone && !shape.date) return text;
    if (auto d = TryParseDate(text)) return formatDate(*d, pattern);
    if (auto n = TryParseNumber(text)) return formatDate(Date(*n), pattern);
    return text;
  }
  // Numbers and Booleans.
  // A Single is taken at its own 7 digits, so 2.675! prints "2.68" and not "2.67" from
  // 2.67499995...
  double number = value.type() == VarType::kSingle
                      ? std::strtod(singleToText(value.singleValue()).c_str(), nullptr)
                      : CDbl(value);
  if (datePattern && (named == Named::kDate || shape.date))
    return formatDate(Date(number), pattern);
  return formatNumber(number, pattern);
}

}  // namespace nvwm
