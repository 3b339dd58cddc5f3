// The address block of a contact or a firm employee, read from the practice database.
//
// The person's row and the company's row are read with the same column names on both sides of
// each pair of tables: Contacts / Companies for a client's contact, AccountantEmployeeInfo /
// AccountantFirmInfo for the firm's own people.
#include <string>

#include "addresses/address_blocks.h"
#include "addresses/format_addresses_internal.h"
#include "practice/lookups.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace nvwm {

using addresses::AddressRoutine;
using addresses::isEmptyText;
using addresses::isEmptyValue;

namespace {

// The person's address columns, then the company's that replace them on inheritance.
void readAddressLines(AddressRoutine& r, Handle h, AddressRecord& record, bool company) {
  r.readText(h, company ? "Address" : "BusinessAddress", record.address);
  r.readText(h, company ? "City" : "BusinessCity", record.city);
  r.readText(h, company ? "Province" : "BusinessProvince", record.province);
  r.readText(h, company ? "PostalCode" : "BusinessPostalCode", record.postalCode);
  r.readText(h, company ? "Country" : "BusinessCountry", record.country);
}

}  // namespace

std::string createBusinessContactAddress(int32_t contactID, bool asRTF, int32_t employeeID,
                                         int32_t& companyID, bool includeAddress,
                                         bool includePhones, bool includeEmail,
                                         bool includeBusinessName) {
  AddressRoutine r("createBusinessContactAddress");
  AddressRecord record;
  std::string result;
  r.step([&] { clearAddressFields(record); });
  if (!r.connected()) return result;

  const addresses::Person person = addresses::choosePerson(r, contactID, employeeID);
  if (!person.found) return result;
  std::string companySql;
  bool companyKnown = false;
  if (person.isEmployee) {
    r.step([&] {
      if (!validFirmID(std::to_string(companyID))) {
        companyID = -1;
        return;
      }
      // The firm's people belong to the (first) firm, whichever firm ID was given.
      companyID = getAccountantFirmID();
      companyKnown = true;
      companySql =
          "SELECT AccountantFirmInfo.* FROM AccountantFirmInfo WHERE "
          "AccountantFirmInfo.CompanyID=" +
          std::to_string(companyID) + ";";
    });
  } else {
    r.step([&] {
      if (!validCompanyID(std::to_string(companyID))) {
        companyID = -1;
        return;
      }
      companyKnown = true;
      companySql = "SELECT Companies.* FROM Companies WHERE Companies.CompanyID=" +
                   std::to_string(companyID) + ";";
    });
  }
  const Handle main = r.open(person.sql);
  const Handle company = companyKnown ? r.open(companySql) : kNoHandle;

  if (r.hasRows(main)) {
    if (includeBusinessName) r.readText(main, "BusinessName", record.businessName);
    r.readText(main, "DisplayName", record.displayName);
    if (includeAddress) {
      r.readText(main, "BusinessName", record.businessName);
      r.readText(main, "DisplayName", record.displayName);
      readAddressLines(r, main, record, false);
    }
    if (includePhones) {
      r.readText(main, "BusinessPhone_Main", record.phone);
      r.readText(main, "BusinessPhone_Fax", record.fax);
      r.readText(main, "BusinessPhone_Cell", record.cell);
    }
    if (includeEmail) r.readText(main, "BusinessEmail", record.email);

    bool inherits = false;
    r.step([&] {
      const Variant flag = practice::database().getField(main, Variant("InheritCompanyInfo"));
      inherits = !isEmptyValue(flag) && CBool(flag);
    });
    if (inherits && companyKnown && r.hasRows(company)) {
      if (includeAddress) readAddressLines(r, company, record, true);
      if (includePhones) {
        // Only where the person has none of their own.
        bool noPhone = false;
        bool noFax = false;
        r.step([&] { noPhone = isEmptyText(record.phone); });
        if (noPhone) r.readText(company, "OfficeNumber", record.phone);
        r.step([&] { noFax = isEmptyText(record.fax); });
        if (noFax) r.readText(company, "FaxNumber", record.fax);
      }
    }
    r.step([&] {
      result = !includePhones && !includeEmail ? createAddress(record, true, asRTF)
                                               : createAddressWithContactInfo(record, true, asRTF);
    });
  }
  // The company recordset stands exactly when the company ID survived the validation above.
  if (companyID > -1) r.close(company);
  r.close(main);
  return Trim(result);
}

}  // namespace nvwm
