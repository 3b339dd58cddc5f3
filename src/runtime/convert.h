// Public: conversions of the original runtime, with its rules and error numbers.
//
// Common rules: Null where a value is needed raises 94; a text that is not a number raises 13;
// a number out of the target's range raises 6; Empty converts to 0, "" or False; True becomes
// -1 as a number. Integer conversions round half to even (2.5 -> 2, 3.5 -> 4).
// Texts are read with the thread's regional settings (runtime/regional.h).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/variant.h"

namespace nvwm {

bool CBool(const Variant& v);
int16_t CInt(const Variant& v);
int32_t CLng(const Variant& v);
float CSng(const Variant& v);
double CDbl(const Variant& v);
Currency CCur(const Variant& v);
// Numbers in the shortest form (15 significant digits for a Double, 7 for a Single), booleans
// as "True"/"False", dates as the short date with the time when there is one.
std::string CStr(const Variant& v);
Date CDate(const Variant& v);

// Twins that give nothing where the throwing form would raise (13, 94 for Null, 6).
std::optional<double> TryCDbl(const Variant& v);
std::optional<Date> TryCDate(const Variant& v);
// Reads the date and time forms this library writes and stores: "11/23/2026", "11/23/2026
// 9:30:00 AM", "2026-11-23 09:30:00", "9:30 am", "9:30", "November 23, 2026", "Nov 23, 2026",
// "23/Nov/26", "Monday, November 23, 2026". Two-digit years 00-29 are 2000s, 30-99 1900s.
std::optional<Date> TryParseDate(std::string_view text);
// Reads a number: blanks around, a sign, thousands separators, one currency symbol, a decimal
// point, an exponent ("1e3"), "&H" hex. Nothing else.
std::optional<double> TryParseNumber(std::string_view text);

// True for a Date and for a text in one of TryParseDate's forms; False for numbers, even
// though CDate takes them, as the original.
bool IsDate(const Variant& v);
bool IsNumeric(const Variant& v);
bool IsNull(const Variant& v);
bool IsEmpty(const Variant& v);

// Rounds half to even, as the runtime's integer conversions and Round() do.
double roundHalfEven(double x);

// Numbers as text in the runtime's shortest form.
std::string doubleToText(double x);
std::string singleToText(float x);

}  // namespace nvwm
