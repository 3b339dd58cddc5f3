#include "services/text_fold.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace nvwm::services {

std::string foldCase(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  const auto* s = reinterpret_cast<const uint8_t*>(text.data());
  const int32_t length = static_cast<int32_t>(text.size());
  int32_t i = 0;
  while (i < length) {
    if (s[i] < 0x80) {
      char c = static_cast<char>(s[i++]);
      out.push_back(c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c);
      continue;
    }
    UChar32 c;
    U8_NEXT(s, i, length, c);
    if (c < 0) c = 0xFFFD;
    c = u_foldCase(c, U_FOLD_CASE_DEFAULT);
    uint8_t buffer[U8_MAX_LENGTH];
    int32_t n = 0;
    U8_APPEND_UNSAFE(buffer, n, c);
    out.append(reinterpret_cast<const char*>(buffer), static_cast<size_t>(n));
  }
  return out;
}

}  // namespace nvwm::services
