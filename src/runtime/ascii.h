// Internal: ASCII-only helpers for the runtime's own keywords ("True", "am", "Short Date",
// SQL type words, member names). User text goes through the Unicode functions of
// runtime/text.h instead. Bytes from 0x80 up are never changed, whatever the C locale is.
#pragma once

#include <cctype>
#include <string>
#include <string_view>

namespace nvwm {

constexpr char asciiLower(char c) { return c >= 'A' && c <= 'Z' ? char(c + ('a' - 'A')) : c; }
constexpr char asciiUpper(char c) { return c >= 'a' && c <= 'z' ? char(c - ('a' - 'A')) : c; }

inline std::string toAsciiLower(std::string_view s) {
  std::string out(s);
  for (char& c : out) c = asciiLower(c);
  return out;
}

inline std::string toAsciiUpper(std::string_view s) {
  std::string out(s);
  for (char& c : out) c = asciiUpper(c);
  return out;
}

inline bool equalsIgnoringAsciiCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    if (asciiLower(a[i]) != asciiLower(b[i])) return false;
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
