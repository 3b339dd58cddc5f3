// modPopUpReminders: the pop-up reminders of schedule entries, appointments and tasks, stored as
// rows of Reminders for the program that shows them.
//
// Common contract: each routine pushes "Tallowbrook.exe-modPopUpReminders-<routine>"; a failing
// step goes to the error service and the routine returns what its result holds at that moment
// (a reminder already stored stays as it is). Services come from the library-wide references
// (DatabaseReference, variantUtility, dateUtility). Nothing raises to the caller. Not
// thread-safe.
//
// Lead time words ("5 Min" ... "5 Weeks", see lead_times.cpp) come from the settings of
// ClientSchedulePopups and from a record's ReminderPeriod.
#pragma once

#include <cstdint>
#include <string>

#include "runtime/date.h"

namespace nvwm {

// What a reminder is about (createPopUpReminder, getPopUpReminderText). DO NOT CHANGE THESE
// VALUES: they are stored in Reminders.ReminderType (3, 4, 5; kind 1 stores 0).
enum class ReminderKind : int32_t {
  kOther = 1,          // looks for no older reminder, stored as type 0
  kScheduleEntry = 2,  // stored as a task reminder (5)
  kAppointment = 3,
  kToDo = 4,
  kTask = 5,
};

// For a new schedule entry: when the user the entry is assigned to has asked for pop-ups of
// the remittance type totalNum (101 to 114) for this client (clientDataID >= 0, by its
// company) or contact (contactID >= 0), stores a reminder and returns True.
// - An entry assigned to nobody valid, both IDs negative, or the type's setting off: False.
// - A user and client (or contact) with no ClientSchedulePopups row gain one, with the table's
//   defaults, merely by the check; any other total than 101 to 114 then gives False.
// - The reminder stands at midnight at the start of the day of the entry's task (today when
//   it has none; dueDate plays no part), moved back by the lead time ("1 Day" when the column
//   is empty), worded by getPopUpReminderText. It is stored as a task reminder under
//   CompanyIDNum = the entry's ClientNum (a ClientDataID), with no TaskIDNum, and so every
//   call adds a row.
bool checkToSchedulePopup(int32_t clientDataID, int32_t contactID, int32_t scheduleID,
                          int32_t totalNum, Date dueDate);

// Moves reminderDate and reminderTime back by the lead time of the word, joined as the short
// date and "hh:nn am/pm" and split again as "mmm d, yyyy" and "hh:nn am/pm". When the date
// moved to an earlier day it goes through dateUtility.adjustReminderDate. An unknown word moves
// nothing. Returns "" always.
std::string getPopUpReminderTime(const std::string& leadTimeWord, Date& reminderDate,
                                 Date& reminderTime);

// The text of a reminder:
// - kind 2, a schedule entry: "Your upcoming <ScheduleName> task[ for <company>]" and the
//   schedule text of leadTimeWord (" is due in 1 day");
// - kind 3 or 5, an appointment or task: "Appointment: <Subject>" / "Task: <Subject>" and two
//   line breaks, who it is for (the company, else the contact, else nothing), the record's own
//   ReminderPeriod text (" in 1 day"), " at " and TimeFrom, two line breaks, then
//   "Description: <AppointmentText>". Line breaks are "\r\n".
// "" for any other kind, for an ID that fails its validity test, and without a connection.
std::string getPopUpReminderText(int32_t kind, int32_t recordID, const std::string& leadTimeWord);

// Stores a reminder and returns its ReminderID (-1 without a connection). Kind 2 becomes kind
// 5 for the task of scheduleID. For kinds 3, 4 and 5 the user's reminder of the same record
// and type is replaced (same ReminderID); otherwise a row is added. Writes UserIDNum,
// CompanyIDNum and ContactIDNum when not negative, AppointmentIDNum and TaskIDNum when they
// name a row, ReminderType, ReminderDate (dateUtility.getDateOnly), ReminderTime ("hh:nn
// am/pm") and TextBody.
int32_t createPopUpReminder(int32_t kind, int32_t userID, Date reminderDate, Date reminderTime,
                            const std::string& text, int32_t companyID, int32_t scheduleID,
                            int32_t appointmentID, int32_t toDoID, int32_t contactID,
                            int32_t taskID);

}  // namespace nvwm
