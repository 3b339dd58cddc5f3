// Internal: UTF-8 decoding shared by the text functions and Format.
//
// Notes on invalid UTF-8 (the policy of every text function of the runtime):
// - A character is a well-formed UTF-8 sequence as Unicode's table 3-7 defines it: no overlong
//   forms, no surrogates (U+D800..U+DFFF), nothing above U+10FFFF.
// - Every byte that does not begin a well-formed sequence is one character on its own: a stray
//   continuation byte, a lead byte whose sequence is cut short, 0xC0, 0xC1, 0xF5..0xFF. So a
//   truncated "\xE2\x82" counts as two characters, never as one and never as none.
// - Bad bytes are kept exactly as they are: Left, Mid, Replace, Split, UCase... copy them through
//   unchanged, so a text in another encoding survives a round trip through the runtime.
// - Case-insensitive comparison folds valid characters only; a bad byte matches the same byte
//   and nothing else. A match never starts or ends inside a character.
// - Bad bytes never reach ICU: case mapping converts only the valid runs between them, so no
//   U+FFFD is ever made up.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace nvwm::utf8 {

// The length of the well-formed sequence that starts at s[i], or 0 when s[i] starts none.
// REQUIRES: i < s.size().
inline size_t sequenceLength(std::string_view s, size_t i) {
  const auto* p = reinterpret_cast<const unsigned char*>(s.data()) + i;
  size_t avail = s.size() - i;
  unsigned char b0 = p[0];
  if (b0 < 0x80) return 1;
  auto cont = [&](size_t k, unsigned char lo = 0x80, unsigned char hi = 0xBF) {
    return k < avail && p[k] >= lo && p[k] <= hi;
  };
  if (b0 >= 0xC2 && b0 <= 0xDF) return cont(1) ? 2 : 0;
  if (b0 == 0xE0) return cont(1, 0xA0) && cont(2) ? 3 : 0;
  if ((b0 >= 0xE1 && b0 <= 0xEC) || b0 == 0xEE || b0 == 0xEF) return cont(1) && cont(2) ? 3 : 0;
  if (b0 == 0xED) return cont(1, 0x80, 0x9F) && cont(2) ? 3 : 0;
  if (b0 == 0xF0) return cont(1, 0x90) && cont(2) && cont(3) ? 4 : 0;
  if (b0 >= 0xF1 && b0 <= 0xF3) return cont(1) && cont(2) && cont(3) ? 4 : 0;
  if (b0 == 0xF4) return cont(1, 0x80, 0x8F) && cont(2) && cont(3) ? 4 : 0;
  return 0;
}

// The number of bytes of the character at s[i]: the sequence, or 1 for a bad byte.
inline size_t charLength(std::string_view s, size_t i) {
  size_t n = sequenceLength(s, i);
  return n == 0 ? 1 : n;
}

// The code point of the well-formed sequence of length n at s[i].
inline char32_t decode(std::string_view s, size_t i, size_t n) {
  const auto* p = reinterpret_cast<const unsigned char*>(s.data()) + i;
  switch (n) {
    case 1:
      return p[0];
    case 2:
      return (char32_t(p[0] & 0x1F) << 6) | (p[1] & 0x3F);
    case 3:
      return (char32_t(p[0] & 0x0F) << 12) | (char32_t(p[1] & 0x3F) << 6) | (p[2] & 0x3F);
    default:
      return (char32_t(p[0] & 0x07) << 18) | (char32_t(p[1] & 0x3F) << 12) |
             (char32_t(p[2] & 0x3F) << 6) | (p[3] & 0x3F);
  }
}

// Appends the UTF-8 form of a code point.
template <class String>
void append(String& out, char32_t c) {
  if (c < 0x80) {
    out.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (c >> 6)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  } else if (c < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (c >> 12)));
    out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xF0 | (c >> 18)));
    out.push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  }
}

// True when every byte is below 0x80. Eight bytes at a time.
inline bool isAscii(std::string_view s) {
  size_t i = 0;
  for (; i + 8 <= s.size(); i += 8) {
    uint64_t w;
    std::memcpy(&w, s.data() + i, 8);
    if (w & 0x8080808080808080ULL) return false;
  }
  for (; i < s.size(); ++i) {
    if (static_cast<unsigned char>(s[i]) >= 0x80) return false;
  }
  return true;
}

// The offset of the first byte that starts no well-formed sequence; npos when there is none.
inline size_t firstInvalid(std::string_view s) {
  for (size_t i = 0; i < s.size();) {
    size_t n = sequenceLength(s, i);
    if (n == 0) return i;
    i += n;
  }
  return std::string_view::npos;
}

// True when the whole text is well-formed UTF-8.
inline bool isValid(std::string_view s) { return firstInvalid(s) == std::string_view::npos; }

// The number of characters (bad bytes count one each).
inline size_t countChars(std::string_view s) {
  size_t count = 0;
  for (size_t i = 0; i < s.size(); ++count) {
    unsigned char b = static_cast<unsigned char>(s[i]);
    i += b < 0x80 ? 1 : charLength(s, i);
  }
  return count;
}

// The byte offset of character `chars` (0-based), counting from byte `from`; s.size() when the
// text is shorter.
inline size_t advanceChars(std::string_view s, size_t from, size_t chars) {
  size_t i = from;
  while (chars > 0 && i < s.size()) {
    unsigned char b = static_cast<unsigned char>(s[i]);
    i += b < 0x80 ? 1 : charLength(s, i);
    --chars;
  }
  return i;
}

}  // namespace nvwm::utf8
