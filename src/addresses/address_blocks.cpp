// The address blocks of modFormatAddresses, built line by line from an AddressRecord.
#include "addresses/address_blocks.h"

#include <array>
#include <utility>

#include "addresses/format_addresses_internal.h"
#include "practice/lookups.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace nvwm {

using addresses::AddressRoutine;
using addresses::isEmptyText;

namespace {

constexpr std::string_view kLineEnd = "\r\n";

// Country words that mean the firm's own country and so are not printed.
bool isCanada(const std::string& country) {
  const std::string upper = UCase(country);
  return upper == "CANADA" || upper == "CA" || upper == "CAN" || upper == "CDA";
}

}  // namespace

namespace addresses {

void AddressRoutine::readText(Handle h, std::string_view field, std::string& out) {
  step([&] { out = textOf(practice::database().getField(h, Variant(field))); });
}

Variant AddressRoutine::readValue(Handle h, std::string_view field) {
  Variant value;
  step([&] { value = practice::database().getField(h, Variant(field)); });
  return value;
}

Person choosePerson(AddressRoutine& r, int32_t contactID, int32_t employeeID) {
  Person person;
  r.step([&] { person.isEmployee = validEmployeeID(std::to_string(employeeID)); });
  if (person.isEmployee) {
    person.found = true;
    person.id = employeeID;
    person.sql =
        "SELECT AccountantEmployeeInfo.* FROM AccountantEmployeeInfo WHERE "
        "AccountantEmployeeInfo.ContactID=" +
        std::to_string(employeeID) + ";";
    return person;
  }
  r.step([&] { person.found = validContactID(std::to_string(contactID)); });
  if (person.found) {
    person.id = contactID;
    person.sql =
        "SELECT Contacts.* FROM Contacts WHERE Contacts.ContactID=" + std::to_string(contactID) +
        ";";
  }
  return person;
}

std::string textOf(const Variant& value) {
  return isEmptyValue(value) ? std::string() : CStr(value);
}

bool isEmptyValue(const Variant& value) { return practice::variantUtility().isNullValue(value); }

bool isEmptyText(const std::string& text) { return isEmptyValue(Variant(text)); }

}  // namespace addresses

void clearAddressFields(AddressRecord& record) {
  AddressRoutine r("clearAddressFields");
  r.step([&] { record = AddressRecord{}; });
}

std::string createAddress(const AddressRecord& record, bool includeName, bool asRTF) {
  AddressRoutine r("createAddress");
  std::string block;
  bool cityLine = false;
  r.step([&] {
    if (!isEmptyText(record.businessName)) block.append(Trim(record.businessName)).append(kLineEnd);
  });
  r.step([&] {
    if (includeName && !isEmptyText(record.displayName))
      block.append(Trim(record.displayName)).append(kLineEnd);
  });
  r.step([&] {
    if (!isEmptyText(record.address)) block.append(Trim(record.address)).append(kLineEnd);
  });
  r.step([&] {
    if (isEmptyText(record.city)) return;
    block.append(Trim(record.city));
    cityLine = true;
  });
  r.step([&] {
    if (isEmptyText(record.province)) return;
    if (cityLine) block.append(", ");
    block.append(Trim(record.province));
    cityLine = true;
  });
  r.step([&] {
    if (isEmptyText(record.postalCode)) return;
    if (cityLine) block.append("  ");
    block.append(Trim(record.postalCode));
  });
  r.step([&] {
    // Compared as stored: "Canada " is another country.
    if (!isEmptyText(record.country) && !isCanada(record.country))
      block.append(kLineEnd).append(Trim(record.country));
  });
  r.step([&] {
    if (asRTF) block = convertToRTF(block);
  });
  return r.running() ? block : std::string();
}

std::string createAddressWithContactInfo(const AddressRecord& record, bool includeName,
                                         bool asRTF) {
  AddressRoutine r("createAddressWithContactInfo");
  std::string block;
  r.step([&] { block = createAddress(record, includeName, asRTF); });
  // In this order, whatever the order of the record's fields.
  const std::array<std::pair<std::string_view, const std::string*>, 6> lines{{
      {"Phone: ", &record.phone},
      {"Fax: ", &record.fax},
      {"Cell: ", &record.cell},
      {"Home: ", &record.home},
      {"Email: ", &record.email},
      {"Web Site: ", &record.webSite},
  }};
  bool anyContactLine = false;
  r.step([&] {
    for (const auto& [label, value] : lines) anyContactLine |= !isEmptyText(*value);
  });
  if (!anyContactLine) return r.running() ? block : std::string();
  for (const auto& [label, value] : lines) {
    r.step([&] {
      if (!isEmptyText(*value)) block.append(kLineEnd).append(label).append(*value);
    });
  }
  // The address part was converted by createAddress already, and is converted again here.
  r.step([&] {
    if (asRTF) block = convertToRTF(block);
  });
  return r.running() ? block : std::string();
}

std::string convertToRTF(const std::string& text) {
  AddressRoutine r("convertToRTF");
  std::string result;
  r.step([&] { result = Replace(text, "\r\n", "\r\n\\par "); });
  return result;
}

}  // namespace nvwm
