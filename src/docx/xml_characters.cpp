// The characters XML 1.0 allows, checked over a part's bytes in one pass.
#include "docx/xml_characters.h"

#include <algorithm>

namespace nvwm::docx {
namespace {

bool allowed(char32_t c) {
  if (c < 0x20) return c == 0x09 || c == 0x0A || c == 0x0D;
  if (c >= 0xD800 && c <= 0xDFFF) return false;
  return c != 0xFFFE && c != 0xFFFF && c <= 0x10FFFF;
}

int digitValue(char c, int base) {
  if (c >= '0' && c <= '9') return c - '0';
  if (base == 16 && c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (base == 16 && c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// The code point of the character reference at xml[i] ("&#...;"), when it is one.
std::optional<char32_t> referenceAt(std::string_view xml, size_t i) {
  size_t p = i + 2;
  int base = 10;
  if (p < xml.size() && (xml[p] == 'x' || xml[p] == 'X')) {
    base = 16;
    ++p;
  }
  char32_t value = 0;
  size_t digits = 0;
  for (; p < xml.size() && xml[p] != ';'; ++p, ++digits) {
    int d = digitValue(xml[p], base);
    if (d < 0) return std::nullopt;
    // Anything beyond the last code point reads as U+110000.
    value = std::min<char32_t>(value * base + static_cast<char32_t>(d), 0x110000);
  }
  if (digits == 0 || p >= xml.size()) return std::nullopt;
  return value;
}

}  // namespace

std::optional<ForbiddenCharacter> findForbiddenCharacter(std::string_view xml) {
  for (size_t i = 0; i < xml.size(); ++i) {
    auto c = static_cast<unsigned char>(xml[i]);
    if (c < 0x20 && !allowed(c)) return ForbiddenCharacter{c, i};
    // U+FFFE and U+FFFF are EF BF BE and EF BF BF.
    if (c == 0xEF && i + 2 < xml.size() && static_cast<unsigned char>(xml[i + 1]) == 0xBF &&
        (static_cast<unsigned char>(xml[i + 2]) & 0xFE) == 0xBE) {
      return ForbiddenCharacter{
          static_cast<char32_t>(0xFFFE + (static_cast<unsigned char>(xml[i + 2]) - 0xBE)), i};
    }
    if (c == '&' && i + 1 < xml.size() && xml[i + 1] == '#') {
      std::optional<char32_t> referenced = referenceAt(xml, i);
      if (referenced && !allowed(*referenced)) return ForbiddenCharacter{*referenced, i};
    }
  }
  return std::nullopt;
}

}  // namespace nvwm::docx
