#include "runtime/error.h"

namespace nvwm {

std::string_view defaultDescription(int32_t number) {
  // clang-format off
  switch (number) {
    case 5: return "Invalid procedure call or argument";
    case 6: return "Overflow";
    case 7: return "Out of memory";
    case 9: return "Subscript out of range";
    case 11: return "Division by zero";
    case 13: return "Type mismatch";
    case 53: return "File not found";
    case 55: return "File already open";
    case 58: return "File already exists";
    case 70: return "Permission denied";
    case 76: return "Path not found";
    case 91: return "Object variable or With block variable not set";
    case 94: return "Invalid use of Null";
    case 51: return "Internal error";
    case 424: return "Object required";
    case 438: return "Object doesn't support this property or method";
    case 1004: return "Application-defined or object-defined error";
    case 3001: return "Database error";
    case 4198: return "Command failed";
    case 5843: return "A document is open in the word processor";
    default: return "Application-defined or object-defined error";
  }
  // clang-format on
}

RuntimeError::RuntimeError(int32_t number, std::string description)
    : std::runtime_error(description), number_(number), description_(std::move(description)) {}

RuntimeError::RuntimeError(ErrorNumber number, std::string description)
    : RuntimeError(static_cast<int32_t>(number), std::move(description)) {}

void raise(ErrorNumber number, std::string_view detail) {
  std::string text(defaultDescription(static_cast<int32_t>(number)));
  if (!detail.empty()) {
    text += ": ";
    text += detail;
  }
  throw RuntimeError(number, std::move(text));
}

void raiseWith(int32_t number, std::string description) {
  throw RuntimeError(number, std::move(description));
}

}  // namespace nvwm
