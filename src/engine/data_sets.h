// Internal: how the value routines of clsInsertFieldsInRTB find the record of a field.
//
// A field row names its data set by Category. The class keeps one open data set per kind of
// record between calls, and three remembered IDs:
//
//   Category       data set        remembered   refiltered on a new ID
//   ContactInfo    ContactsRST     ContactID    yes (validContactID)
//   CompanyInfo    CompaniesRST    CompanyID    yes (validCompanyID)
//   AppointInfo    AppointmentsRST RecordID     yes (validAppointmentID)
//   SoftwareInfo   SoftwareInfoRST CompanyID or ContactID, shared with the two above
//   ClientInfo, FirmInfo, TaskInfo, DocketInfo: opened whole once and searched
//
// "The data set step" of the refiltering kinds:
//   1. a negative ID stops (no record);
//   2. an ID other than the remembered one that the validator accepts becomes the remembered
//      one, and the data set is closed and reopened filtered on it;
//   3. a data set that isn't open is opened unfiltered;
//   4. findRecord on the key column with the ID as text.
// A rejected ID leaves the remembered ID and the data set as they were. Each statement is a
// step of the calling routine, so a failing one goes to that routine's handler.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/database_service.h"
#include "host/routine.h"
#include "runtime/variant.h"

namespace nvwm {
class DateUtility;
class IDList;
}  // namespace nvwm

namespace nvwm::engine {

// The seven record IDs, in the order they always travel. Below 0: the record is absent.
struct RecordIDs {
  int32_t companyID = -1;
  int32_t contactID = -1;
  int32_t scheduleID = -1;
  int32_t firmID = -1;
  int32_t appointmentID = -1;
  int32_t docketID = -1;
  int32_t taskID = -1;
};

// The class's data-set handles and remembered IDs, borrowed from one clsInsertFieldsInRTB for
// the length of one call.
struct DataSets {
  Handle& companies;
  Handle& contacts;
  Handle& firm;
  Handle& mainClient;
  Handle& software;
  Handle& appointments;
  Handle& scheduleTasks;
  Handle& dockets;
  int32_t& companyID;
  int32_t& contactID;
  int32_t& recordID;
};

// Where a field's value stands once its record was found.
struct FieldRecord {
  bool found = false;
  // The data set to read the field from. For "SoftwareInfo" without a company this is
  // SoftwareInfoRST although the search ran on CompaniesRST.
  Handle readFrom = kNoHandle;
};

// Finds the record of the category for the IDs, as steps of r: the data set step for contacts,
// companies, appointments and software, the whole data sets for the others, and for tasks and
// schedule entries a second try after the association check (which may create the missing
// half). An unknown category, a negative ID or a record not found gives found False.
FieldRecord findFieldRecord(Routine& r, DataSets& sets, std::string_view category,
                            const RecordIDs& ids);

// The data set step on ContactsRST. With negativeStops False a negative ID goes on to the
// unfiltered open and the search, which then fails. True when the contact was found.
bool positionOnContact(Routine& r, DataSets& sets, int32_t contactID, bool negativeStops);

// The services the value routines read. An empty DatabaseReference counts as not connected;
// the others raise 91 when empty, as a call on Nothing does.
// The catalogue row whose DisplayName is displayName: its DatabaseField and Category. False,
// with both left alone, when the catalogue has no such row.
bool findCatalogueRow(IDList& list, const std::string& displayName, std::string& databaseField,
                      std::string& category);

bool databaseConnected();
DatabaseService& database();
DateUtility& dateUtility();
// isNullValue of the library-wide variantUtility.
bool isNullValue(const Variant& value);
// A value as the text a routine hands back: "" for Null, Empty and Missing, else CStr's text.
// Never raises (an object gives "").
std::string plainText(const Variant& value);

// The log tag of a routine of clsInsertFieldsInRTB.
std::string routineTag(std::string_view routine);

}  // namespace nvwm::engine
