// Internal: ASCII-only helpers for the runtime's own keywords ("True", "am", "Short Date",
// SQL type words). User text goes through the Unicode functions of runtime/text.h instead.
#pragma once

#include <cctype>
#include <string_view>

namespace nvwm {

inline bool equalsIgnoringAsciiCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    if (std::tolower(static_cast<unsigned char>(a[i])) !=
        std::tolower(static_cast<unsigned char>(b[i])))
      return false;
  }
  return true;
}

// Without the blanks (space, tab, line ends) at both ends.
inline std::string_view trimAsciiBlanks(std::string_view s) {
  while (!s.empty() && std::isspace(static_cast<unsigned char>(s.front()))) s.remove_prefix(1);
  while (!s.empty() && std::isspace(static_cast<unsigned char>(s.back()))) s.remove_suffix(1);
  return s;
}

}  // namespace nvwm
