// The links between tasks and schedule entries (modDatabaseFunctions): a task for a schedule
// entry, a schedule entry for a task, and the entry following its task.
//
// The link lives in Tasks.ScheduleIDNum. The two creation routines are what the association
// checks (practice/lookups.h) call when a merge reads task or schedule data of a record that
// has no other half yet; addNewScheduleEntryForTaskItem and synchScheduleInfoWithTaskInfo call
// each other, the first only when the entry exists and the second only when it doesn't, so a
// consistent database ends the cycle at once.
//
// Common contract: each routine pushes "Tallowbrook.exe-modDatabaseFunctions-<routine>"; a
// failing step (a Null where the routine reads without a Null test raises 94) goes to the
// error service, and with its "go to the exit" answer the routine stops where it is: a row
// being added is then not written. Services come from the library-wide references. Nothing
// raises to the caller. Not thread-safe; nothing guards against two callers creating the
// same record at once.
#pragma once

#include <cstdint>

namespace nvwm {

// Makes sure the schedule entry has its task and returns the task's ID (-1 without a
// connection or entry). The first task carrying the entry (ScheduleIDNum) is updated, else one
// is added; either way it gets the entry's user (EmployeeAssigned), subject, company (through
// ClientNum), contact, flags and notifyType, the date getPreviousWorkingDay(inHouseDueDate)
// (inHouseDueDate itself unless moveToWorkingDay), a start from the calendar search of
// inHouseDueDate as stored, the end from the estimate (estimatedTime, or for 0 or less the
// user's default for the entry's type), and AppointmentText from createTextByID.
// Kept differences between the two branches: only an existing task gets
// CompanyProjectStepIDNum and NotesFlag False; a new task's notes test is the wrong way round
// (a Null ScheduleNotes is read and raises 94, then NotesFlag True; with text, NotesFlag False
// and no TextBody), so notes never reach a new task. The entry is never changed.
int32_t addNewTaskForScheduleItem(int32_t scheduleID, float estimatedTime, bool moveToWorkingDay);

// Gives the task its schedule entry and returns the entry's ID (0 without a connection or
// task). When the task's entry exists, synchScheduleInfoWithTaskInfo runs instead and its ID
// comes back. Otherwise a "Custom" entry (totalNum 111, scheduleNum 10, individualNum 1; for a
// project step "Project", 113 and the two arguments) is added from the task: client from the
// task's company (else the clientDataID argument), company and contact arguments where valid,
// DueDate the task's date, inHouseDueDate that date plus getInHouseDueDatePeriod (3 days
// earlier by default), CalendarDate its getPreviousWorkingDay, the user's name or "None
// Assigned", notes; then checkToSchedulePopup with the custom type. The link is written to
// Tasks.ScheduleIDNum in both cases. -1 for clientDataID, companyID or contactID means: from
// the task.
int32_t addNewScheduleEntryForTaskItem(int32_t taskID, int32_t clientDataID, int32_t companyID,
                                       int32_t contactID, bool isProjectStep, int32_t scheduleNum,
                                       int32_t individualNum);

// Copies the task onto its schedule entry: EmployeeAssigned, ScheduleName, CalendarDate,
// ClientNum and ContactIDNum (only from a valid company or contact), the flags, the project
// step, the notes and notifyType. Neither the estimate, the times, DueDate nor
// inHouseDueDate change. Without an entry, addNewScheduleEntryForTaskItem makes one. Then the
// task's project step takes the task's user and the entry's closed status. True unless a step
// failed (False then, before the error service is told); True also without a connection or
// task.
// The project step is read from the recordset whose handle number is the task's ID, not from
// the task's own recordset; when no open recordset bears that number the read fails, the
// result is False and the step is left alone.
bool synchScheduleInfoWithTaskInfo(int32_t taskID);

}  // namespace nvwm
