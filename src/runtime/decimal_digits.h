// Internal: the decimal digits of a number as the runtime shows it, for every number picture
// (Format's patterns, the \# picture of merge fields), so that all of them round alike.
//
// Rounding is half away from zero on the value's 15 significant decimal digits, as the value
// is displayed: 1.005 at two places is "1.01", 0.125 is "0.13", 2.675 is "2.68". Rounding the
// binary value instead would give "1.00" for 1.005, which no user reads as right.
#pragma once

#include <string>

namespace nvwm {

// The digits of v >= 0 rounded at `decimals` places (decimals >= 0): the integer digits
// without leading zeros ("" when the integer part is 0) and exactly `decimals` fraction
// digits. An infinite or NaN value gives "" and zeros. Thread-safe.
void decimalDigits(double v, int decimals, std::string& whole, std::string& fraction);

}  // namespace nvwm
