// Internal: the instruction of a MERGEFIELD and the formatting its switches ask for.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/date.h"
#include "runtime/variant.h"

namespace nvwm::docx {

// A parsed MERGEFIELD instruction.
struct MergeFieldCode {
  std::string name;                           // as written, quotes removed
  std::optional<std::string> datePicture;     // \@
  std::optional<std::string> numericPicture;  // \#
  std::vector<std::string> formats;           // every \* argument, in order
  std::optional<std::string> textBefore;      // \b
  std::optional<std::string> textAfter;       // \f
  bool mapped = false;                        // \m (accepted; names are taken as written)
  bool vertical = false;                      // \v (accepted; no effect on the text)

  // True when \* CHARFORMAT asks for the formatting of the field name instead of the result.
  bool charFormat() const;
};

// The first word of a field instruction, upper-cased ASCII ("MERGEFIELD", "PAGE", "IF"...);
// empty for a blank instruction.
std::string fieldKeyword(std::string_view instruction);

// Parses a MERGEFIELD instruction. Nothing when the instruction is another field or has no
// name. Unknown switches are skipped with their argument.
std::optional<MergeFieldCode> parseMergeField(std::string_view instruction);
// Parses a field without a name whose value is a number the merge counts (MERGEREC, MERGESEQ:
// the keyword, upper-case): its switches, with an empty name. Nothing for another field.
std::optional<MergeFieldCode> parseCounterField(std::string_view instruction,
                                                std::string_view keyword);

// The text of a merged value: the switches applied to the value as Word applies them
// (\# or \@ first, then \*, then \b and \f around a non-empty result).
std::string formatMergeValue(const MergeFieldCode& code, const Variant& value);

// The text of a value without switches: strings as they are, numbers in the runtime's shortest
// form, dates as the short date (with the time when there is one), Null and Empty as "".
std::string plainValueText(const Variant& value);

// Word's date-time picture: d dd ddd dddd, M MM MMM MMMM (upper-case M is the month), y yy
// yyyy, h hh (12-hour), H HH (24-hour), m mm (lower-case m is the minute), s ss, am/pm AM/PM,
// 'quoted text'; any other character stands for itself. Names from the regional settings.
std::string formatWordDate(Date date, std::string_view picture);

// Word's numeric picture: 0 (digit or 0), # (digit or nothing: current Word shows "$15" for
// 15 in "$###", not the "$ 15" of old manuals), x (drops digits on its left),
// . and , (decimal point, grouping), - and + (sign), "positive;negative;zero" sections,
// 'quoted text'; any other character stands for itself. Digits are rounded half away from zero
// as the value is displayed, as Format rounds them (runtime/decimal_digits.h): 1.005 in "0.00"
// is "1.01".
std::string formatWordNumber(double value, std::string_view picture);

// The \* case formats Caps (each word's first letter up, the rest of it down) and FirstCap (the
// first letter up). Upper and Lower are the runtime's UCase and LCase. Bytes that are not
// UTF-8 stay as they are (runtime/utf8.h).
std::string capsText(std::string_view text);
std::string firstCapText(std::string_view text);

}  // namespace nvwm::docx
