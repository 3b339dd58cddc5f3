// Internal: what the routines of modFormatAddresses share.
#pragma once

#include <string>
#include <string_view>

#include "practice/lookup_shape.h"

namespace nvwm::addresses {

inline constexpr std::string_view kFormatAddresses = "modFormatAddresses";

// A routine of this module: "Tallowbrook.exe-modFormatAddresses-<name>", with the module's
// error tail (errorsAreSuppressed asked first).
class AddressRoutine : public practice::LookupRoutine {
 public:
  explicit AddressRoutine(std::string_view routineName)
      : practice::LookupRoutine(kFormatAddresses, routineName) {
    askSuppressionFirst();
  }

  // The column of the current row as text, as a step: "" when isNullValue says it is empty.
  // `out` is left as it was when the step fails.
  void readText(Handle h, std::string_view field, std::string& out);
  // The column's value, as a step; Empty when the step fails.
  Variant readValue(Handle h, std::string_view field);
};

// The text of a value read from the database: "" for an empty one (isNullValue), as text joins
// it.
std::string textOf(const Variant& value);
// Whether variantUtility calls the value empty.
bool isEmptyValue(const Variant& value);
bool isEmptyText(const std::string& text);

}  // namespace nvwm::addresses
