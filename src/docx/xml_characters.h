// Internal: the characters that XML 1.0 allows (its Char production): a part holding any other,
// written as it is or as a character reference, can't be opened by a word processor.
#pragma once

#include <optional>
#include <string_view>

namespace nvwm::docx {

struct ForbiddenCharacter {
  char32_t codePoint = 0;
  size_t offset = 0;  // the byte of the part where it stands
};

// The first character of the XML text that XML 1.0 forbids: a control character other than
// tab, line feed and carriage return, U+FFFE, U+FFFF, or a reference (&#1; &#xFFFF;) to one of
// those, to a surrogate or beyond U+10FFFF. Nothing when there is none.
std::optional<ForbiddenCharacter> findForbiddenCharacter(std::string_view xml);

}  // namespace nvwm::docx
