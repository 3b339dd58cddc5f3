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
  bool argumentMissing = false;  // a switch that takes an argument (\@ \# \* \b \f) has none

  // True when \* CHARFORMAT asks for the formatting of the field name instead of the result.
  bool charFormat() const;
};

// The first word of a field instruction, upper-cased ASCII ("MERGEFIELD", "PAGE", "IF"...);
// empty for a blank instruction.
std::string fieldKeyword(std::string_view instruction);

// Parses a MERGEFIELD instruction. Nothing when the instruction is another field or has no
// name. Unknown switches are skipped with their argument.
std::optional<MergeFieldCode> parseMergeField(std::string_view instruction);
// Parses a field of the keyword (upper-case) that takes a name, as MERGEFIELD does (REF).
std::optional<MergeFieldCode> parseNamedField(std::string_view instruction,
                                              std::string_view keyword);
// The first word of an instruction as written (a bare bookmark name: "{ Greeting }").
std::string_view fieldName(std::string_view instruction);
// Parses a field without a name whose value is a number the merge counts (MERGEREC, MERGESEQ:
// the keyword, upper-case): its switches, with an empty name. Nothing for another field.
std::optional<MergeFieldCode> parseCounterField(std::string_view instruction,
                                                std::string_view keyword);

// What Word shows for a field with a switch that lacks its argument.
inline constexpr std::string_view kSwitchArgumentMissingText =
    "Error! Switch argument not specified.";

// A value written as an argument of a field instruction: " and \ escaped with \, and in
// quotes of its own when wrap is set ("Lee \"Jr\" & Co").
std::string fieldArgumentText(std::string_view value, bool wrap);

// The text of a merged value: the switches applied to the value as Word applies them
// (\# or \@ first, then \*, then \b and \f around a non-empty result).
// A switch without its argument gives kSwitchArgumentMissingText.
std::string formatMergeValue(const MergeFieldCode& code, const Variant& value);

// The text of a value without switches: strings as they are, numbers in the runtime's shortest
// form, dates as the short date (with the time when there is one), Null and Empty as "".
std::string plainValueText(const Variant& value);

// Word's date-time picture: d dd ddd dddd, M MM MMM MMMM (upper-case M is the month), y yy
// yyyy, h hh (12-hour), H HH (24-hour), m mm (lower-case m is the minute), s ss, am/pm AM/PM (the
// mark in capitals whichever is written),
// 'quoted text'; any other character stands for itself. Names from the regional settings.
std::string formatWordDate(Date date, std::string_view picture);

// Word's numeric picture: 0 (a digit, 0 where there is none), # (a digit, a space where there
// is none: "$###" of 15 is "$ 15"), x (drops the digits on its left; on the right of the point
// it rounds there), . and , (decimal point, grouping), - and + (sign), "positive;negative;zero"
// sections, 'quoted text'; any other character stands for itself. Digits are rounded half away
// from zero as the value is displayed, as Format rounds them (runtime/decimal_digits.h): 1.005
// in "0.00" is "1.01".
std::string formatWordNumber(double value, std::string_view picture);

// The \* case formats Caps (each word's first letter up, the rest of it down) and FirstCap (the
// first letter up); the first letter is the first one after any leading punctuation ("(mary").
// Upper and Lower are the runtime's UCase and LCase. Bytes that are not UTF-8 stay as they are
// (runtime/utf8.h).
std::string capsText(std::string_view text);
std::string firstCapText(std::string_view text);

}  // namespace nvwm::docx
