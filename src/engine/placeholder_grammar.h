// Internal: the words of the template language that the engine's passes share.
//
// A placeholder is a field's DisplayName between two delimiters, "«Company Name»", or a date
// field with its format in round brackets, "«(Task Due Date, mmmm d yyyy)»". The delimiters
// come in two notations, and one template may hold both:
//
//   plain    «  »          as typed, or as a plain string holds them
//   escaped  \'ab  \'bb    as an RTF writer stores the same two characters in 8-bit escapes
//
// The older "<<" and ">>" are no third notation: the province normaliser rewrites them to the
// plain one before any pass looks at a template. Every comparison of placeholder text ignores
// case; the date formats are compared exactly where a pass says so.
#pragma once

#include <array>

namespace nvwm::engine {

inline constexpr const char* kOpenPlain = "«";
inline constexpr const char* kClosePlain = "»";
inline constexpr const char* kOpenEscaped = "\\'ab";
inline constexpr const char* kCloseEscaped = "\\'bb";

// Carriage return and line feed: a line break everywhere in the engine.
inline constexpr const char* kLineBreak = "\r\n";

// The pseudo field that prints today's date; it stands in no catalogue row.
inline constexpr const char* kTodaysDate = "Todays Date";

// One of the date formats a date placeholder may carry.
struct DateFormatRow {
  const char* tail;             // what follows the name in the placeholder, up to ")"
  const char* format;           // the format as the user writes it, and as "Todays Date" prints
  const char* dateFieldFormat;  // the format a catalogue field of type "Date" prints with
};

// The fourteen date formats, in the order in which the passes try them. The sixth row is the
// one asymmetry, kept on purpose: a catalogue date written with ", dd/mm/yy)" prints its month
// as a three-letter name, while "Todays Date" prints two digits.
inline constexpr std::array<DateFormatRow, 14> kDateFormats = {{
    {", dddd, mmmm d yyyy)", "dddd, mmmm d yyyy", "dddd, mmmm d yyyy"},
    {", dddd mmmm d yyyy)", "dddd mmmm d yyyy", "dddd mmmm d yyyy"},
    {", mmmm d, yyyy)", "mmmm d, yyyy", "mmmm d, yyyy"},
    {", mmmm d yyyy)", "mmmm d yyyy", "mmmm d yyyy"},
    {", mmm d yyyy)", "mmm d yyyy", "mmm d yyyy"},
    {", dd/mm/yy)", "dd/mm/yy", "dd/mmm/yy"},
    {", mm/dd/yy)", "mm/dd/yy", "mm/dd/yy"},
    {", d)", "d", "d"},
    {", dddd)", "dddd", "dddd"},
    {", mmmm)", "mmmm", "mmmm"},
    {", mmm)", "mmm", "mmm"},
    {", yyyy)", "yyyy", "yyyy"},
    {", mmmm yyyy)", "mmmm yyyy", "mmmm yyyy"},
    {", mmmm d)", "mmmm d", "mmmm d"},
}};

}  // namespace nvwm::engine
