// modDatabaseFunctions: the questions the library asks the practice database, one routine each.
//
// Common contract of every routine here:
// - Services come from the library-wide references (host/references.h): DatabaseReference,
//   variantUtility (the Null test) and errorClass (the trace). Nothing is cached; each call is
//   one or two queries, and a recordset lives only within the call.
// - Each routine pushes its own log tag, "Tallowbrook.exe-modDatabaseFunctions-<routine>", and
//   pops it when it leaves. Without errorClass a routine does nothing and returns its default.
// - No connection, a missing record, a Null where the routine tests for one: the default comes
//   back silently. A failing query or conversion (a Null where the routine doesn't test for
//   one: 94; a number out of range: 6; bad SQL) goes to the error service, and the routine
//   returns its result as it was at that moment, usually the default. Nothing raises to the
//   caller.
// - SQL is literal text with IDs in decimal and a final ";"; text values are not escaped.
// - IDs are signed 32-bit; -1 is "no record" as a result. Not thread-safe (one thread, the
//   host's, as the references are).
#pragma once

#include <cstdint>
#include <string>

#include "runtime/date.h"

namespace nvwm {

// ---- ID lookups: one column of the first row; -1 (or "") without a row or a connection ----

// The client record of a company (ClientData.CompanyIDNum); no Null test.
int32_t getClientDataIDFromCompanyID(int32_t companyID);
// Schedule.ClientNum, which holds a ClientDataID; no Null test.
int32_t getClientDataIDFromScheduleID(int32_t scheduleID);
// ClientData.CompanyIDNum; no Null test.
int32_t getCompanyIDFromClientDataID(int32_t clientDataID);
// The company and contact of a docket, task or appointment; a Null gives -1.
int32_t getCompanyIDFromDocketID(int32_t docketID);
int32_t getCompanyIDFromTaskID(int32_t taskID);
int32_t getContactIDFromTaskID(int32_t taskID);
int32_t getContactIDFromDocketID(int32_t docketID);
int32_t getCompanyIDFromAppointmentID(int32_t appointmentID);
int32_t getContactIDFromAppointmentID(int32_t appointmentID);
// Contacts.DisplayName, Companies.CompanyName; "" without a row; no Null test.
std::string getDisplayNameFromContactID(int32_t contactID);
std::string getCompanyNameFromCompanyID(int32_t companyID);
// Tasks.ScheduleIDNum; a Null gives -1; a negative taskID gives -1 with no query.
int32_t getScheduleIDFromTaskID(int32_t taskID);

// ---- Lookups that do more ----

// The company of a schedule item: Schedule.ClientNum, then that client record's CompanyIDNum,
// the second query made while the first recordset is open. No row at either step gives -1; no
// Null test at either step.
int32_t getCompanyIDFromScheduleID(int32_t scheduleID);
// The display name of a firm employee; "None Assigned" without a row or a connection. -1 gives
// "None Assigned" before the database is asked; other negative IDs are queried. No Null test.
std::string getEmployeeAssignedNameFromFirmContactID(int32_t firmContactID);
// The employee (user) ID of a display name, matched whole (case as the database compares); -1
// without a row, so "None Assigned" gives -1. The name goes into the SQL unescaped: one with an
// apostrophe makes the query fail into the error service (result -1).
int32_t getUserIDFromEmployeeAssignedName(const std::string& name);
// Tasks.DateFrom; otherwise today's date (the clock's, date only). A negative taskID gives today
// with no query. No Null test.
Date getTaskDateFromTaskID(int32_t taskID);
// The first row of AccountantFirmInfo (no order asked for); -1 without a row. It does not ask
// isConnected: without a usable database the query fails into the error service. Opens with
// lock type 3.
int32_t getAccountantFirmID();
// The task that carries out a schedule item: Tasks.TaskID, or when Tasks has none,
// archiveTasks.oldTaskID, which names a task no longer in Tasks (check it with validTaskID).
// A negative scheduleID gives -1 with no query; no row in either table gives -1.
int32_t getTaskIDFromScheduleID(int32_t scheduleID);

// ---- Default contact questions ----

// The contact of the company's first link, in recordset order, with a non-Null ContactIDNum
// and DefaultContact True; -1 when none. A Null DefaultContact on a row that is reached raises
// 94 into the error service.
// A read that can write: when the company has links and the result names no existing contact,
// it returns checkForDefaultContact(companyID, True) (practice/default_contacts.h), which marks
// the first link as the default when none is marked, and returns a marked link as it is even
// when its contact no longer exists. A company without links gives -1 and nothing changes.
int32_t getDefaultContactIDFromCompanyID(int32_t companyID);
// True when the company's link to the contact is marked default (first True row wins); False
// otherwise. No Null test: a Null DefaultContact raises 94 into the error service (False).
bool isContactDefaultContact(int32_t companyID, int32_t contactID);

// ---- Existence tests ----
//
// Each takes the ID as text and returns whether the table has that row. Before the query, in
// this order: a connection; the text not Null/empty (isNullValue); numeric by the runtime's
// test; as a 32-bit number (rounded half to even) not negative. Any failing gives False with
// no query. A numeric text too large for 32 bits raises 6 into the error service (False).
// validAppointmentID puts the converted number into the SQL; the other eight put the text as
// it stands ("1e3", " 12", "2.5" reach the SQL unchanged).
bool validAppointmentID(const std::string& appointmentID);
bool validDocketID(const std::string& docketID);
bool validScheduleID(const std::string& scheduleID);
bool validTaskID(const std::string& taskID);
bool validClientID(const std::string& clientID);
bool validCompanyID(const std::string& companyID);
bool validContactID(const std::string& contactID);
bool validFirmID(const std::string& firmID);
bool validEmployeeID(const std::string& employeeID);

// ---- Association checks ----
//
// Whether a task and a schedule entry are linked. The value routines of the template engine ask
// them, with createIfMissing True, before reading task or schedule data.
// These routines read only: creating the missing schedule entry or task when createIfMissing is
// True is not part of them yet, so a missing half gives False and nothing is written.

// True when the task names a schedule entry (Tasks.ScheduleIDNum) that validScheduleID accepts.
// A task with a Null or unknown ScheduleIDNum needs an entry; a task that doesn't exist needs
// none. A negative taskID gives False with no query. With createIfMissing, a needed entry is
// made by addNewScheduleEntryForTaskItem (taskID, -1, -1, -1, False, 10, 1) and the answer is
// True; without it nothing is ever written.
bool isThisTaskAssociatedWithScheduleEntry(int32_t taskID, bool createIfMissing);
// True when a task carries out the schedule entry. A negative ID, or one that validScheduleID
// rejects, gives False and needs nothing. With createIfMissing, an entry with no task gets one
// from addNewTaskForScheduleItem (scheduleID, -1.0, True) and the answer is True.
bool isThisScheduleEntryAssociatedWithTask(int32_t scheduleID, bool createIfMissing);

// ---- Schedule types and estimated times ----

// The SQL of the ScheduleTypes rows of a totalNum and scheduleNum (log tag of
// modRemittanceTypes; the doubled "NumNum" is the routine's name). Touches no database:
//   totalNum >= 100, scheduleNum >= 1: the row of both numbers;
//   totalNum >= 100: the row of totalNum whose ScheduleNum Is Null;
//   totalNum = 0: the whole table;
//   anything else (1 to 99, negative): "".
std::string getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(int32_t totalNum,
                                                                int32_t scheduleNum);
// ScheduleTypes.ScheduleTypeID of the builder's first row; -1 otherwise.
int32_t getScheduleTypeIDFromTotalNumAndScheduleNum(int32_t totalNum, int32_t scheduleNum);
// ScheduleTypes.DefaultEstTime (hours) of the builder's first row; 1.0 otherwise; not clamped.
// The builder's "" (totalNum 1 to 99) is sent as it is and fails into the error service (1.0).
float getDefaultEstTimeFromTotalNumAndScheduleNum(int32_t totalNum, int32_t scheduleNum);
// The user's own estimate for the schedule type (UserBillingScheduleTypeInfo), else the
// firm-wide one; then clamped: below 0 gives 0.083333336 (five minutes), above 24 gives 24.
float getDefaultEstTimeFromUserIDAndTotalNumAndScheduleNum(int32_t userID, int32_t totalNum,
                                                           int32_t scheduleNum);

}  // namespace nvwm
