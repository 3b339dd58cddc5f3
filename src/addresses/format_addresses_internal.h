// Internal: what the routines of modFormatAddresses share.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "practice/lookup_shape.h"

namespace nvwm::addresses {

inline constexpr std::string_view kFormatAddresses = "modFormatAddresses";

// The two pieces every summary starts with, and its end. A line of a summary ends in
// kSummaryLineEnd; a blank line between sections is one more.
inline constexpr std::string_view kSummaryHeader =
    R"({\rtf1\ansi\ansicpg1252\deff0\deflang4105{\fonttbl{\f0\fswiss\fcharset0 Arial;}})";
inline constexpr std::string_view kSummaryViewKind = R"(\viewkind4\uc1\pard\f0\fs16)";
inline constexpr std::string_view kSummaryLineEnd = "\\par\r\n";
inline constexpr std::string_view kSummaryEnd = "}";

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

// The person a block or a summary is about: a firm employee when employeeID names one
// (validEmployeeID), else the contact when contactID names one (validContactID), else nobody.
struct Person {
  bool found = false;
  bool isEmployee = false;
  int32_t id = -1;
  std::string
      sql;  // the person's row: "SELECT AccountantEmployeeInfo.* ..." or "SELECT Contacts.* ..."
};
// The two tests are steps of r; the contact is asked for only when the employee isn't there.
Person choosePerson(AddressRoutine& r, int32_t contactID, int32_t employeeID);

// The text of a value read from the database: "" for an empty one (isNullValue), as text joins
// it.
std::string textOf(const Variant& value);
// Whether variantUtility calls the value empty.
bool isEmptyValue(const Variant& value);
bool isEmptyText(const std::string& text);

}  // namespace nvwm::addresses
