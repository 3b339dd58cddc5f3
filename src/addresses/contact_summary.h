// modFormatAddresses: the contact summaries, complete RTF documents stored in the practice
// database.
//
// A summary is stored for each contact (ContactsNotes.BusinessNotes), for each firm employee
// (AccountantEmployeeInfo.BusinessNotes), and for each company as the summary of its default
// contact or the no-default text (CompaniesNotes.ContactNotes). It is made of fixed RTF pieces
// and the values as they stand: only the notes go through convertToRTF, and no value is escaped
// for RTF.
//
// The error tail, log tags ("Tallowbrook.exe-modFormatAddresses-<routine>") and thread rules are
// those of addresses/address_blocks.h. An error inside saveContactBusinessRTF leaves the
// recordsets it opened open in the database service and returns "".
#pragma once

#include <cstdint>
#include <string>

namespace nvwm {

// Makes the summary of a person, stores it, and returns it; "" when there is no such person or
// no connection (nothing stored then).
// - employeeID naming a firm employee (validEmployeeID) wins over contactID; otherwise contactID
//   must name a contact.
// - Sections, each followed by a blank line when it holds something: names and job; the
//   default-contact line (contacts only: "Yes" when companyID is valid and the contact's link
//   to it is marked default, else "No"); phones and web; the address block
//   (createBusinessContactAddress); SIN ("SSN" when the firm's country code is not 1) and
//   employee type; associated companies (contacts only; one row gives the single-line heading,
//   two or more rows the plural heading, counted over all rows even those without a name); the
//   second address; categories (read by contactID, also for an employee); the custom fields
//   with the labels of CustomAddressFields (a first row is added when the table is empty); the
//   notes.
// - Stored: on the employee's row; for a contact, on its ContactsNotes row, or, when it has
//   none, on a new ContactsNotes row that gets only BusinessNotes (no ContactNum: it stays
//   unattached, and each such save adds another).
// - A contact's summary is then copied to every company whose default contact it is
//   (saveContactBusinessRTFForAllCompanies), unless skipOtherCompanies.
// All recordsets are opened updatable (lock type 3).
std::string saveContactBusinessRTF(int32_t contactID, int32_t employeeID, int32_t companyID,
                                   bool skipOtherCompanies);

// Stores the contact's summary as ContactNotes on the CompaniesNotes row of each company whose
// link to the contact is marked default: the given text for companyID itself, a summary made
// anew for each other company (which doesn't copy further). Links without a company or to a
// company that isn't valid are passed over, as are companies without a CompaniesNotes row.
void saveContactBusinessRTFForAllCompanies(int32_t contactID, int32_t companyID,
                                           const std::string& text);

// Stores the company's ContactNotes on its CompaniesNotes row (nothing without one): the summary
// of contactID (0 or above; which also refreshes that contact's other companies) or, for a
// negative contactID, saveNoDefaultComment. An invalid companyID or no connection: nothing.
void saveCompanyContactRTF(int32_t companyID, int32_t contactID);

// The RTF document that says "No Default Contact Selected." in bold.
std::string saveNoDefaultComment();

}  // namespace nvwm
