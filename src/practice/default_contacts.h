// modDatabaseFunctions: the upkeep of each company's default contact.
//
// A company may have many linked contacts (ContactLinks); exactly one should be marked as its
// default. These routines keep that true, keep the four copies of the default contact's details
// on the company row (Companies.DefaultContactName, ...PhoneNumber, ...FaxNumber, ...Email),
// rebuild the stored contact summaries (addresses/contact_summary.h) and refresh the lookup-type
// custom values of the company's schedule items.
//
// A read can write here: getDefaultContactIDFromCompanyID (practice/lookups.h) calls
// checkForDefaultContact with repair when a company has links but no usable default. The cycle
// getDefaultContactIDFromCompanyID -> checkForDefaultContact -> setContactAsDefault /
// setNoContactAsDefault -> updateDefaultContactInfo -> getDefaultContactIDFromCompanyID ends
// because on the way back a link stands marked, and checkForDefaultContact returns a marked link
// without repairing; a company without links is never repaired. Where the marking can't be
// written (a read-only database with an error service that says "go on"), a repair of a company
// already under repair on this thread is not started again, so the cycle ends all the same.
//
// Common contract: log tags "Tallowbrook.exe-modDatabaseFunctions-<routine>"; without a
// connection nothing is read or written; a Null DefaultContact or ContactIDNum where a routine
// reads one, and a Null in a contact column copied to the company, raise 94 into the error
// service. No transaction: a failure part way leaves what was written. Nothing raises to the
// caller. Not thread-safe.
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace nvwm {

// The company's default contact: the first link, in recordset order, marked default (its
// ContactIDNum, whether or not that contact still exists). With no link marked and repair True,
// the first link becomes the default (setContactAsDefault) and its contact is returned; with
// repair False nothing changes and -1 comes back. A company without links gets
// setNoContactAsDefault and -1. Not connected: -1.
int32_t checkForDefaultContact(int32_t companyID, bool repair);

// Marks contactID's link as the company's default and every other link of the company as not
// ("True" / "False"; a contact without a link leaves them all "False"). Unless skipSummaries, for
// each link row the contact's summary and the company's are rebuilt, each time with the new
// default contact. Then, with or without links, updateDefaultContactInfo(companyID) and
// changeDefaultContactChangeLookupFieldValue(contactID). The library's own callers pass
// skipSummaries False. The result is Empty.
Variant setContactAsDefault(int32_t contactID, int32_t companyID, bool skipSummaries);

// The company has no default contact: its copies are updated (cleared, when it has no link) and,
// unless skipSummaries, its summary becomes the no-default text. The result is Empty.
Variant setNoContactAsDefault(int32_t companyID, bool skipSummaries);

// Copies the default contact's DisplayName, BusinessPhone_Main, BusinessPhone_Fax and
// BusinessEmail onto the company row, or "" into all four when the default (as
// getDefaultContactIDFromCompanyID gives it, which may repair) is not a contact that exists.
// The result is Empty.
Variant updateDefaultContactInfo(int32_t companyID);

// Refreshes the lookup-type custom values (CustomFields type 3) on the schedule items of every
// company whose default contact this contact is, through a catalogue of its own
// (clsInsertFieldsInRTB, list use 3). The custom field's text is held as a boolean, as the
// stored definitions have always been read: a text that is neither a boolean word nor a number
// raises 13 into the error service. The mouse pointer shows the hourglass meanwhile and is set
// back to 0 on every way out.
void changeDefaultContactChangeLookupFieldValue(int32_t contactID);

}  // namespace nvwm
