// The record finding shared by getDataField, getDataDateField and getContactAndSpouseName.
//
// Every data set is read-only (cursor 1, lock 1). A handle is stored only once the service has
// returned it, so a failed open leaves the earlier number in place.
#include "engine/data_sets.h"

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "catalogue/field_record.h"
#include "host/references.h"
#include "practice/client_list_sql.h"
#include "practice/lookup_shape.h"
#include "practice/lookups.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace nvwm {

engine::DataSets clsInsertFieldsInRTB::dataSets() {
  return {CompaniesRST_,    ContactsRST_,     AccountantFirmRST_, MainClientRST_,
          SoftwareInfoRST_, AppointmentsRST_, ScheduleTasksRST_,  DocketsRST_,
          CompanyID_,       ContactID_,       RecordID_};
}

namespace engine {
namespace {

constexpr const char* kScheduleTasksSql =
    "SELECT Schedule.*, Tasks.TaskID, Tasks.EstimatedTime, Tasks.Subject, Tasks.DateFrom, "
    "Tasks.TimeFrom, Tasks.TimeTo, Tasks.AppointmentText, Tasks.TextBody, Tasks.Custom1 AS "
    "TaskCustom1, Tasks.Custom2 AS TaskCustom2, Tasks.Custom3 AS TaskCustom3, Tasks.Custom4 AS "
    "TaskCustom4, Tasks.Custom5 AS TaskCustom5 FROM Schedule INNER JOIN Tasks ON "
    "Schedule.ScheduleID = Tasks.ScheduleIDNum;";

// One kind of record of the data set step.
struct DataSetStep {
  const char* filteredSql;  // followed by the ID and ";"
  const char* unfilteredSql;
  const char* keyColumn;
  bool (*validator)(const std::string&);
};

// clang-format off
constexpr DataSetStep kContacts{
    "SELECT Contacts.* From Contacts WHERE Contacts.ContactID=",
    "SELECT Contacts.* From Contacts;", "ContactID", validContactID};
constexpr DataSetStep kCompanies{
    "SELECT Companies.* From Companies WHERE Companies.CompanyID=",
    "SELECT Companies.* From Companies;", "CompanyID", validCompanyID};
constexpr DataSetStep kAppointments{
    "SELECT Appointments.* From Appointments WHERE Appointments.appointmentid=",
    "SELECT Appointments.* From Appointments;", "AppointmentID", validAppointmentID};
constexpr DataSetStep kCompanySoftware{
    "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND "
    "SoftwareInfo.CompanyIDNum=",
    "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True;",
    "CompanyID", validCompanyID};
constexpr DataSetStep kContactSoftware{
    "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND "
    "SoftwareInfo.ContactIDNum=",
    "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True;",
    "ContactIDNum", validContactID};
// clang-format on

Handle openReadOnly(const std::string& sql) {
  return database().openRecordset(sql, kCursorKeyset, kLockReadOnly, true, "", true);
}

void openIfClosed(Routine& r, Handle& handle, const std::string& sql) {
  r.step([&] {
    if (!database().isRecordsetOpen(handle)) handle = openReadOnly(sql);
  });
}

bool find(Routine& r, const Handle& handle, const char* keyColumn, int32_t id) {
  bool found = false;
  r.step([&] { found = database().findRecord(handle, keyColumn, Variant(std::to_string(id))); });
  return found && r.running();
}

// The data set step. `searchOn` is normally `handle` itself; the software of a contact is
// searched for on CompaniesRST, a pairing the product has always had.
bool positionDataSet(Routine& r, const DataSetStep& step, int32_t id, int32_t& remembered,
                     Handle& handle, const Handle& searchOn, bool negativeStops) {
  if (negativeStops && id < 0) return false;
  const std::string idText = std::to_string(id);
  bool refilter = false;
  r.step([&] { refilter = id >= 0 && id != remembered && step.validator(idText); });
  if (refilter) {
    r.step([&] { remembered = id; });
    r.step([&] {
      if (database().isRecordsetOpen(handle)) database().closeRecordset(handle);
    });
    r.step([&] { handle = openReadOnly(step.filteredSql + idText + ";"); });
  }
  openIfClosed(r, handle, step.unfilteredSql);
  return find(r, searchOn, step.keyColumn, id);
}

// Tasks and schedule entries: the joined data set, searched; when the record isn't there, the
// association check may create the missing half, and the data set is read again.
bool positionOnScheduleTask(Routine& r, Handle& handle, const char* keyColumn, int32_t id,
                            bool (*checkAssociation)(int32_t, bool)) {
  openIfClosed(r, handle, kScheduleTasksSql);
  if (find(r, handle, keyColumn, id)) return true;
  if (!r.running()) return false;
  r.step([&] { database().closeRecordset(handle); });
  r.step([&] { checkAssociation(id, true); });
  r.step([&] { handle = openReadOnly(kScheduleTasksSql); });
  return find(r, handle, keyColumn, id);
}

// The handle is read only once the search has run: the search may have reopened it.
FieldRecord foundIn(bool found, const Handle& readFrom) {
  return found ? FieldRecord{true, readFrom} : FieldRecord{};
}

}  // namespace

bool positionOnContact(Routine& r, DataSets& sets, int32_t contactID, bool negativeStops) {
  return positionDataSet(r, kContacts, contactID, sets.contactID, sets.contacts, sets.contacts,
                         negativeStops);
}

FieldRecord findFieldRecord(Routine& r, DataSets& sets, std::string_view category,
                            const RecordIDs& ids) {
  if (category == kCategoryContact) {
    return foundIn(positionOnContact(r, sets, ids.contactID, true), sets.contacts);
  }
  if (category == kCategoryCompany) {
    return foundIn(positionDataSet(r, kCompanies, ids.companyID, sets.companyID, sets.companies,
                                   sets.companies, true),
                   sets.companies);
  }
  if (category == kCategoryClient) {
    if (ids.companyID < 0) return {};
    r.step([&] {
      if (!database().isRecordsetOpen(sets.mainClient)) {
        sets.mainClient = openReadOnly(getMainBusinessSQLString(false, 3));
      }
    });
    return foundIn(find(r, sets.mainClient, "CompanyID", ids.companyID), sets.mainClient);
  }
  if (category == kCategorySoftware) {
    if (ids.companyID >= 0) {
      return foundIn(positionDataSet(r, kCompanySoftware, ids.companyID, sets.companyID,
                                     sets.software, sets.software, true),
                     sets.software);
    }
    if (ids.contactID >= 0) {
      return foundIn(positionDataSet(r, kContactSoftware, ids.contactID, sets.contactID,
                                     sets.software, sets.companies, true),
                     sets.software);
    }
    return {};
  }
  if (category == kCategoryFirm) {
    if (ids.firmID < 0) return {};
    openIfClosed(r, sets.firm, "SELECT AccountantFirmInfo.* From AccountantFirmInfo;");
    return foundIn(find(r, sets.firm, "CompanyID", ids.firmID), sets.firm);
  }
  if (category == kCategoryAppoint) {
    return foundIn(positionDataSet(r, kAppointments, ids.appointmentID, sets.recordID,
                                   sets.appointments, sets.appointments, true),
                   sets.appointments);
  }
  if (category == kCategoryTask) {
    if (ids.taskID >= 0) {
      return foundIn(positionOnScheduleTask(r, sets.scheduleTasks, "TaskID", ids.taskID,
                                            isThisTaskAssociatedWithScheduleEntry),
                     sets.scheduleTasks);
    }
    if (ids.scheduleID >= 0) {
      return foundIn(positionOnScheduleTask(r, sets.scheduleTasks, "ScheduleID", ids.scheduleID,
                                            isThisScheduleEntryAssociatedWithTask),
                     sets.scheduleTasks);
    }
    return {};
  }
  if (category == kCategoryDocket) {
    if (ids.docketID < 0) return {};
    openIfClosed(r, sets.dockets, "SELECT Dockets.* From Dockets;");
    return foundIn(find(r, sets.dockets, "DocketID", ids.docketID), sets.dockets);
  }
  return {};
}

bool findCatalogueRow(IDList& list, const std::string& displayName, std::string& databaseField,
                      std::string& category) {
  if (list.findRow(column(FieldColumn::kDisplayName), Variant(displayName)) < 0) return false;
  databaseField = CStr(list.getColumn(column(FieldColumn::kDatabaseField)));
  category = CStr(list.getColumn(column(FieldColumn::kCategory)));
  return true;
}

bool databaseConnected() {
  DatabaseService* db = references().DatabaseReference.get();
  return db != nullptr && db->isConnected();
}

DatabaseService& database() { return practice::database(); }

DateUtility& dateUtility() {
  DateUtility* utility = references().dateUtility.get();
  if (utility == nullptr) raise(ErrorNumber::kObjectVariableNotSet, "dateUtility");
  return *utility;
}

bool isNullValue(const Variant& value) { return practice::variantUtility().isNullValue(value); }

std::string plainText(const Variant& value) {
  if (value.isNull() || value.isEmpty() || value.isMissing() || value.isObject()) return "";
  return CStr(value);
}

std::string routineTag(std::string_view routine) {
  return std::string("Tallowbrook.exe-clsInsertFieldsInRTB-").append(routine);
}

}  // namespace engine
}  // namespace nvwm
