// The ID lookups of modDatabaseFunctions: the join paths of the practice tables.
//
// The plain ones are rows of data on the one shape (practice/lookup_shape.h); the ones that
// do more are written out with its steps below the table.
#include "practice/lookups.h"

#include "practice/default_contacts.h"
#include "practice/lookup_shape.h"
#include "practice/lookups_internal.h"
#include "runtime/clock.h"

namespace nvwm {

using practice::FieldLookup;
using practice::IdLookupRow;
using practice::lookupByID;
using practice::lookupFirstRow;
using practice::LookupRoutine;
using practice::NullTest;

namespace {

constexpr NullTest kNotTested = NullTest::kNotTested;
constexpr NullTest kTested = NullTest::kTested;

constexpr std::string_view kScheduleByID =
    "SELECT Schedule.ScheduleID, Schedule.ClientNum FROM Schedule WHERE ScheduleID=";
constexpr std::string_view kClientDataByID =
    "SELECT ClientData.ClientDataID, ClientData.CompanyIDNum FROM ClientData WHERE "
    "ClientDataID=";

// clang-format off
constexpr IdLookupRow<int32_t> kClientDataIDFromCompanyID{
    "getClientDataIDFromCompanyID",
    "SELECT ClientData.ClientDataID, ClientData.CompanyIDNum FROM ClientData WHERE CompanyIDNum=",
    "ClientDataID", kNotTested, -1};
constexpr IdLookupRow<int32_t> kClientDataIDFromScheduleID{
    "getClientDataIDFromScheduleID", kScheduleByID, "ClientNum", kNotTested, -1};
constexpr IdLookupRow<int32_t> kCompanyIDFromClientDataID{
    "getCompanyIDFromClientDataID", kClientDataByID, "CompanyIDNum", kNotTested, -1};
constexpr IdLookupRow<int32_t> kCompanyIDFromDocketID{
    "getCompanyIDFromDocketID",
    "SELECT Dockets.DocketID, Dockets.CompanyIDNum FROM Dockets WHERE DocketID=",
    "CompanyIDNum", kTested, -1};
constexpr IdLookupRow<int32_t> kCompanyIDFromTaskID{
    "getCompanyIDFromTaskID",
    "SELECT Tasks.TaskID, Tasks.CompanyIDNum FROM Tasks WHERE TaskID=",
    "CompanyIDNum", kTested, -1};
constexpr IdLookupRow<int32_t> kContactIDFromTaskID{
    "getContactIDFromTaskID",
    "SELECT Tasks.TaskID, Tasks.ContactIDNum FROM Tasks WHERE TaskID=",
    "ContactIDNum", kTested, -1};
constexpr IdLookupRow<int32_t> kContactIDFromDocketID{
    "getContactIDFromDocketID",
    "SELECT Dockets.DocketID, Dockets.ContactIDNum FROM Dockets WHERE DocketID=",
    "ContactIDNum", kTested, -1};
constexpr IdLookupRow<int32_t> kCompanyIDFromAppointmentID{
    "getCompanyIDFromAppointmentID",
    "SELECT Appointments.AppointmentID, Appointments.CompanyIDNum FROM Appointments WHERE AppointmentID=",
    "CompanyIDNum", kTested, -1};
constexpr IdLookupRow<int32_t> kContactIDFromAppointmentID{
    "getContactIDFromAppointmentID",
    "SELECT Appointments.AppointmentID, Appointments.ContactIDNum FROM Appointments WHERE AppointmentID=",
    "ContactIDNum", kTested, -1};
constexpr IdLookupRow<std::string_view> kDisplayNameFromContactID{
    "getDisplayNameFromContactID",
    "SELECT Contacts.ContactID, Contacts.DisplayName FROM Contacts WHERE ContactID=",
    "DisplayName", kNotTested, ""};
constexpr IdLookupRow<std::string_view> kCompanyNameFromCompanyID{
    "getCompanyNameFromCompanyID",
    "SELECT Companies.CompanyID, Companies.CompanyName FROM Companies WHERE CompanyID=",
    "CompanyName", kNotTested, ""};
constexpr IdLookupRow<int32_t> kScheduleIDFromTaskID{
    "getScheduleIDFromTaskID",
    "SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE TaskID=",
    "ScheduleIDNum", kTested, -1, /*refusesNegativeID=*/true};
// clang-format on

}  // namespace

int32_t getClientDataIDFromCompanyID(int32_t companyID) {
  return lookupByID<int32_t>(kClientDataIDFromCompanyID, companyID);
}
int32_t getClientDataIDFromScheduleID(int32_t scheduleID) {
  return lookupByID<int32_t>(kClientDataIDFromScheduleID, scheduleID);
}
int32_t getCompanyIDFromClientDataID(int32_t clientDataID) {
  return lookupByID<int32_t>(kCompanyIDFromClientDataID, clientDataID);
}
int32_t getCompanyIDFromDocketID(int32_t docketID) {
  return lookupByID<int32_t>(kCompanyIDFromDocketID, docketID);
}
int32_t getCompanyIDFromTaskID(int32_t taskID) {
  return lookupByID<int32_t>(kCompanyIDFromTaskID, taskID);
}
int32_t getContactIDFromTaskID(int32_t taskID) {
  return lookupByID<int32_t>(kContactIDFromTaskID, taskID);
}
int32_t getContactIDFromDocketID(int32_t docketID) {
  return lookupByID<int32_t>(kContactIDFromDocketID, docketID);
}
int32_t getCompanyIDFromAppointmentID(int32_t appointmentID) {
  return lookupByID<int32_t>(kCompanyIDFromAppointmentID, appointmentID);
}
int32_t getContactIDFromAppointmentID(int32_t appointmentID) {
  return lookupByID<int32_t>(kContactIDFromAppointmentID, appointmentID);
}
std::string getDisplayNameFromContactID(int32_t contactID) {
  return lookupByID<std::string>(kDisplayNameFromContactID, contactID);
}
std::string getCompanyNameFromCompanyID(int32_t companyID) {
  return lookupByID<std::string>(kCompanyNameFromCompanyID, companyID);
}
int32_t getScheduleIDFromTaskID(int32_t taskID) {
  return lookupByID<int32_t>(kScheduleIDFromTaskID, taskID);
}

int32_t getCompanyIDFromScheduleID(int32_t scheduleID) {
  LookupRoutine r("getCompanyIDFromScheduleID");
  int32_t result = -1;
  if (!r.connected()) return result;
  // The schedule item's recordset stays open while its client record is read; the inner one
  // is closed first.
  r.withFirstRow(std::string(kScheduleByID) + std::to_string(scheduleID) + ";", [&](Handle h) {
    int32_t clientDataID = 0;
    r.readField(h, "ClientNum", kNotTested, clientDataID);
    if (!r.running()) return;
    r.withFirstRow(std::string(kClientDataByID) + std::to_string(clientDataID) + ";",
                   [&](Handle inner) { r.readField(inner, "CompanyIDNum", kNotTested, result); });
  });
  return result;
}

std::string getEmployeeAssignedNameFromFirmContactID(int32_t firmContactID) {
  LookupRoutine r("getEmployeeAssignedNameFromFirmContactID");
  std::string result = "None Assigned";
  // Only -1 is "nobody" here; other negative IDs are asked for, and find nobody.
  if (firmContactID == -1) return result;
  if (!r.connected()) return result;
  const std::string sql =
      std::string(
          "SELECT AccountantEmployeeInfo.ContactID, AccountantEmployeeInfo.DisplayName FROM "
          "AccountantEmployeeInfo") +
      " WHERE ContactID = " + std::to_string(firmContactID) +
      " ORDER BY AccountantEmployeeInfo.DisplayName;";
  r.withFirstRow(sql, [&](Handle h) { r.readField(h, "DisplayName", kNotTested, result); });
  return result;
}

int32_t getUserIDFromEmployeeAssignedName(const std::string& name) {
  // The name is not escaped: an apostrophe breaks the SQL, and the failure is the error tail's.
  return lookupFirstRow<int32_t>({"getUserIDFromEmployeeAssignedName", "ContactID"}, -1, [&] {
    return std::string(
               "SELECT DISTINCT AccountantEmployeeInfo.DisplayName, "
               "AccountantEmployeeInfo.ContactID ") +
           "FROM AccountantEmployeeInfo" + " WHERE DisplayName = '" + name + "'" +
           " ORDER BY AccountantEmployeeInfo.DisplayName;";
  });
}

Date getTaskDateFromTaskID(int32_t taskID) {
  LookupRoutine r("getTaskDateFromTaskID");
  Date result;
  r.step([&] { result = Today(); });
  if (!r.connected()) return result;
  if (taskID < 0) {
    r.step([&] { result = Today(); });
    return result;
  }
  r.withFirstRow("SELECT Tasks.TaskID, Tasks.DateFrom FROM Tasks WHERE TaskID = " +
                     std::to_string(taskID) + ";",
                 [&](Handle h) { r.readField(h, "DateFrom", kNotTested, result); });
  return result;
}

int32_t getAccountantFirmID() {
  // The one lookup that doesn't ask isConnected, and the one opened for writing.
  return lookupFirstRow<int32_t>(
      {.routine = "getAccountantFirmID",
       .field = "CompanyID",
       .nullTest = kNotTested,
       .asksConnection = false,
       .lockType = kLockOptimistic},
      -1,
      [] { return std::string("SELECT AccountantFirmInfo.CompanyID From AccountantFirmInfo;"); });
}

int32_t getTaskIDFromScheduleID(int32_t scheduleID) {
  LookupRoutine r("getTaskIDFromScheduleID");
  int32_t result = -1;
  if (!r.connected() || scheduleID < 0) return result;
  const std::string id = std::to_string(scheduleID) + ";";
  const bool live = r.withFirstRow(
      "SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=" + id,
      [&](Handle h) { r.readField(h, "TaskID", kNotTested, result); });
  if (live || !r.running()) return result;
  // The task may have been archived since; its old ID still names it.
  r.withFirstRow(
      "SELECT archiveTasks.oldTaskID, archiveTasks.ScheduleIDNum FROM archiveTasks WHERE "
      "ScheduleIDNum=" +
          id,
      [&](Handle h) { r.readField(h, "oldTaskID", kNotTested, result); });
  return result;
}

// ---- Default contact questions ----

int32_t getDefaultContactIDFromCompanyID(int32_t companyID) {
  LookupRoutine r("getDefaultContactIDFromCompanyID");
  const practice::DefaultContactLinks links = practice::readDefaultContactLinks(r, companyID);
  int32_t result = links.contactID;
  if (!links.companyHasLinks || !r.running()) return result;
  // Links but no usable default: the read repairs the company's links and returns the contact
  // that the repair chose (or the marked one, when it names a contact that no longer exists).
  bool usable = false;
  r.step([&] { usable = validContactID(std::to_string(result)); });
  if (!usable) r.step([&] { result = checkForDefaultContact(companyID, true); });
  return result;
}

bool isContactDefaultContact(int32_t companyID, int32_t contactID) {
  LookupRoutine r("isContactDefaultContact");
  bool result = false;
  if (!r.connected()) return result;
  const std::string sql =
      "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, ContactLinks.DefaultContact "
      "FROM ContactLinks WHERE CompanyNum=" +
      std::to_string(companyID) + " AND ContactLinks.ContactIDNum = " + std::to_string(contactID) +
      ";";
  const Handle h = r.open(sql);
  while (!r.atEnd(h)) {
    bool isDefault = false;
    r.readField(h, "DefaultContact", kNotTested, isDefault);
    if (isDefault) {
      result = true;
      break;
    }
    if (!r.moveNext(h)) break;
  }
  r.close(h);
  return result;
}

namespace practice {

DefaultContactLinks readDefaultContactLinks(LookupRoutine& r, int32_t companyID) {
  DefaultContactLinks links;
  if (!r.connected()) return links;
  const Handle h = r.open(
      "SELECT ContactLinks.CompanyNum, ContactLinks.ContactIDNum, ContactLinks.DefaultContact "
      "FROM ContactLinks WHERE ContactLinks.CompanyNum = " +
      std::to_string(companyID) + ";");
  if (r.hasRows(h)) {
    links.companyHasLinks = true;
    while (!r.atEnd(h)) {
      bool found = false;
      r.step([&] {
        const Variant contact = database().getField(h, Variant("ContactIDNum"));
        if (variantUtility().isNullValue(contact)) return;
        if (!CBool(database().getField(h, Variant("DefaultContact")))) return;
        links.contactID = CLng(database().getField(h, Variant("ContactIDNum")));
        found = true;
      });
      if (found || !r.moveNext(h)) break;
    }
  }
  r.close(h);
  return links;
}

}  // namespace practice

}  // namespace nvwm
