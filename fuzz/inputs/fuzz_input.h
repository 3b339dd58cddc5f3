// How the fuzz targets that take more than one argument read them from one byte string, and
// how the corpus generator writes them. Every byte string decodes to some arguments, so the
// fuzzer never wastes an input on a format error.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace nvwm::fuzzing {

// Splits at NUL bytes into at most `count` pieces; missing pieces are empty.
inline std::vector<std::string_view> splitAtNul(std::string_view bytes, size_t count) {
  std::vector<std::string_view> pieces;
  while (pieces.size() + 1 < count) {
    size_t nul = bytes.find('\0');
    if (nul == std::string_view::npos) break;
    pieces.push_back(bytes.substr(0, nul));
    bytes.remove_prefix(nul + 1);
  }
  pieces.push_back(bytes);
  pieces.resize(count);
  return pieces;
}

// Reads a fixed-size value from the front of bytes (zeros past the end) and drops it.
template <class T>
T take(std::string_view& bytes) {
  T value{};
  size_t n = bytes.size() < sizeof(T) ? bytes.size() : sizeof(T);
  std::memcpy(&value, bytes.data(), n);
  bytes.remove_prefix(n);
  return value;
}

template <class T>
std::string bytesOf(T value) {
  return std::string(reinterpret_cast<const char*>(&value), sizeof(T));
}

// Format's input: a kind byte, the value, then the pattern.
//   kind % 8: 0 Double (8 raw bytes), 1 Date (serial, 8 raw bytes), 2 String (up to a NUL),
//   3 Long (4 bytes), 4 Boolean (1 byte), 5 Single (4 bytes), 6 Currency (8 bytes: units),
//   7 Null.
enum class FormatKind : uint8_t {
  kDouble,
  kDate,
  kString,
  kLong,
  kBoolean,
  kSingle,
  kCurrency,
  kNull,
};

inline std::string formatInput(FormatKind kind, std::string value, std::string_view pattern) {
  std::string out(1, static_cast<char>(kind));
  out += value;
  if (kind == FormatKind::kString) out += '\0';
  out += pattern;
  return out;
}

// The text functions' input: a byte of options, then text, needle and replacement split at
// NUL bytes. Options: bits 0-2 the start position (1 + value), bits 3-5 the count (value - 1,
// so -1 is "all").
inline std::string textInput(uint8_t options, std::string_view text, std::string_view needle,
                             std::string_view replacement) {
  std::string out(1, static_cast<char>(options));
  out += text;
  out += '\0';
  out += needle;
  out += '\0';
  out += replacement;
  return out;
}

}  // namespace nvwm::fuzzing
