#include "services/variant_utility.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

namespace nvwm {

void StandardVariantUtility::setErrorClass(std::shared_ptr<ErrorService> errorClass) {
  errorClass_ = std::move(errorClass);
}

bool StandardVariantUtility::isNullValue(const Variant& value) {
  if (value.isNull() || value.isEmpty() || value.isMissing()) return true;
  if (value.isString()) return value.stringValue().empty();
  if (value.isObject()) return value.objectValue() == nullptr;
  return false;
}

std::string StandardVariantUtility::cleanFieldName(const std::string& title) {
  std::string out;
  out.reserve(title.size());
  const auto* s = reinterpret_cast<const uint8_t*>(title.data());
  const int32_t length = static_cast<int32_t>(title.size());
  int32_t i = 0;
  while (i < length) {
    const int32_t start = i;
    UChar32 c;
    U8_NEXT(s, i, length, c);
    if (c < 0 || u_charType(c) == U_CONTROL_CHAR) continue;
    switch (c) {
      case '.':
      case '!':
      case '`':
      case '[':
      case ']':
      case '"':
      case '\\':
        continue;
      default:
        out.append(title, static_cast<size_t>(start), static_cast<size_t>(i - start));
    }
  }
  const size_t first = out.find_first_not_of(' ');
  if (first == std::string::npos) return "Field";
  const size_t last = out.find_last_not_of(' ');
  return out.substr(first, last - first + 1);
}

}  // namespace nvwm
