// Public: the one exception type for run-time errors, with the numbers of the original runtime.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace nvwm {

// Error numbers of the original runtime. DO NOT CHANGE THESE VALUES: hosts, error services and
// logs see them, and the library's own handlers branch on some of them (5843 from the word
// processor, for example).
enum class ErrorNumber : int32_t {
  kInvalidProcedureCall = 5,
  kOverflow = 6,
  kOutOfMemory = 7,
  kSubscriptOutOfRange = 9,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kFileNotFound = 53,
  kFileAlreadyOpen = 55,
  kFileAlreadyExists = 58,
  kPermissionDenied = 70,
  kPathNotFound = 76,
  kInternalError = 51,
  kObjectRequired = 424,
  kNoSuchMember = 438,
  kObjectVariableNotSet = 91,
  kInvalidUseOfNull = 94,
  kApplicationDefined = 1004,
  // Service failures: the database, the document engine and the merge source.
  kDatabaseError = 3001,
  kDocumentError = 4198,
  kWordDocumentOpen = 5843,
};

// The default description of an error number, as the original runtime words it.
std::string_view defaultDescription(int32_t number);

// A run-time error: a number and a description. Every failure inside the library and its
// stand-ins is raised as one of these; the routine shape hands it to the error service.
class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(int32_t number, std::string description);
  RuntimeError(ErrorNumber number, std::string description);

  int32_t number() const noexcept { return number_; }
  const std::string& description() const noexcept { return description_; }

 private:
  int32_t number_;
  std::string description_;
};

// Raises a RuntimeError with the number and its default description, followed by ": detail"
// when a detail is given. The one way the library raises.
[[noreturn]] void raise(ErrorNumber number, std::string_view detail = {});
// Raises a RuntimeError with a number and a description of the caller's own.
[[noreturn]] void raiseWith(int32_t number, std::string description);

}  // namespace nvwm
