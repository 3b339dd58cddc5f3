#include "runtime/decimal_digits.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace nvwm {

void decimalDigits(double v, int decimals, std::string& whole, std::string& fraction) {
  whole.clear();
  fraction.assign(static_cast<size_t>(decimals), '0');
  if (v == 0 || !std::isfinite(v)) return;
  char buf[48];
  std::snprintf(buf, sizeof buf, "%.14e", v);  // d.dddddddddddddde+XX
  std::string digits;
  digits += buf[0];
  digits.append(buf + 2, 14);
  int point = std::atoi(std::strchr(buf, 'e') + 1) + 1;  // digits before the decimal point
  int keep = point + decimals;
  if (keep < 0) return;
  if (keep < static_cast<int>(digits.size())) {
    bool up = digits[keep] >= '5';
    digits.resize(static_cast<size_t>(keep));
    if (up) {
      int k = keep - 1;
      while (k >= 0 && digits[k] == '9') digits[k--] = '0';
      if (k < 0) {
        digits.insert(digits.begin(), '1');
        ++point;
      } else {
        ++digits[k];
      }
    }
  }
  auto digitAt = [&](int index) {
    return index >= 0 && index < static_cast<int>(digits.size()) ? digits[index] : '0';
  };
  for (int i = 0; i < point; ++i) whole += digitAt(i);
  size_t nonZero = whole.find_first_not_of('0');
  whole.erase(0, nonZero == std::string::npos ? whole.size() : nonZero);
  for (int j = 0; j < decimals; ++j) fraction[j] = digitAt(point + j);
}

}  // namespace nvwm
