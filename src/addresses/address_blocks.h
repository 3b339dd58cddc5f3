// modFormatAddresses: the address record and the blocks of text made from it.
//
// A block holds the lines of an address with no empty line between them, however few of its
// parts are filled, and a Canadian address doesn't name its country. Lines end in "\r\n"; the
// RTF form puts "\par " after each line end.
//
// Common contract of every routine here:
// - A field counts as empty when variantUtility.isNullValue says so (so "" is empty and " " is
//   not); values are trimmed of blanks at both ends as they go into a block, except the contact
//   lines of createAddressWithContactInfo.
// - Each routine pushes its log tag, "Tallowbrook.exe-modFormatAddresses-<routine>". Its handler
//   asks errorClass.errorsAreSuppressed first and, when that says True, leaves without
//   reporting; otherwise the error goes to the error service. Nothing raises to the caller:
//   after an error the result is what it was at that moment ("" at the start).
// - Without errorClass a routine does nothing and returns "".
// - Not thread-safe: one thread, the host's, as the library-wide references are.
#pragma once

#include <cstdint>
#include <string>

namespace nvwm {

// The 13 text fields of an address, in this order. On a contact (or a firm employee) they are
// filled from the columns BusinessName, DisplayName, BusinessAddress, BusinessCity,
// BusinessProvince, BusinessPostalCode, BusinessCountry, BusinessPhone_Main, BusinessPhone_Fax,
// BusinessPhone_Cell and BusinessEmail; on a company from Address, City, Province, PostalCode,
// Country, OfficeNumber and FaxNumber. No routine of this library fills `home` or `webSite`.
struct AddressRecord {
  std::string businessName;
  std::string displayName;
  std::string address;
  std::string city;
  std::string province;
  std::string postalCode;
  std::string country;
  std::string phone;
  std::string fax;
  std::string cell;
  std::string home;
  std::string email;
  std::string webSite;
};

// Sets all 13 fields to "".
void clearAddressFields(AddressRecord& record);

// The address block: business name, display name (only when includeName) and address, each on
// a line of its own; then city, province and postal code on one line ("Kingston, Ontario  K7L
// 1R8", the comma only after a city, two blanks before the postal code only after a city or a
// province); then the country on a line of its own unless its upper case is exactly "CANADA",
// "CA", "CAN" or "CDA" (tested untrimmed: "Canada " is shown). The block ends without a line
// end unless only the first three lines were written. asRTF passes it through convertToRTF.
// The record is not changed (the original takes it and the flags by reference).
std::string createAddress(const AddressRecord& record, bool includeName, bool asRTF);

// createAddress, then, when any of phone, fax, cell, home, webSite, email is filled, a line for
// each that is, in the order "Phone: ", "Fax: ", "Cell: ", "Home: ", "Email: ", "Web Site: ",
// with the value as it stands. In that case only, asRTF converts the whole once more: the
// address lines then end in a doubled "\par " and the contact lines in one. A block without
// contact lines is converted once.
std::string createAddressWithContactInfo(const AddressRecord& record, bool includeName, bool asRTF);

// The block of a contact, or of a firm employee, with its company's address where the contact
// inherits it.
// - employeeID naming a firm employee (validEmployeeID) wins: the employee's row is read, and
//   its company is the firm: companyID becomes getAccountantFirmID when validFirmID(companyID)
//   holds, else -1.
// - Otherwise contactID must name a contact (else ""); its company is companyID when
//   validCompanyID holds, else companyID becomes -1.
// The include flags choose the fields: includeBusinessName the business name; the display name
// always; includeAddress the business name, display name and address lines; includePhones
// phone, fax and cell; includeEmail the email. A person whose InheritCompanyInfo is True (Null
// counts as False) takes the company's address lines, whatever their own are, and the company's
// phone and fax where their own are empty. With neither phones nor email the block comes from
// createAddress, otherwise from createAddressWithContactInfo, both with the name included.
// The result is trimmed of blanks. Not connected: "" and companyID unchanged. A Null column
// fills an empty field.
std::string createBusinessContactAddress(int32_t contactID, bool asRTF, int32_t employeeID,
                                         int32_t& companyID, bool includeAddress,
                                         bool includePhones, bool includeEmail,
                                         bool includeBusinessName);

// Every "\r\n" becomes "\r\n\par ". Nothing else is escaped: a backslash or a brace in the text
// reaches the RTF as it is. (Not the engine's clsInsertFieldsInRTB::convertToRTF, which puts
// the "\par " before the line end.)
std::string convertToRTF(const std::string& text);

}  // namespace nvwm
