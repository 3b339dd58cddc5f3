// synchScheduleInfoWithTaskInfo: a changed task carries its changes to its schedule entry and
// on to the project step it belongs to.
#include <string>

#include "practice/lookups.h"
#include "runtime/convert.h"
#include "scheduling/project_steps.h"
#include "scheduling/routine_steps.h"
#include "scheduling/task_schedule_links.h"

namespace nvwm {

using scheduling::database;
using scheduling::field;
using scheduling::fieldIsNull;
using scheduling::idText;
using scheduling::LookupRoutine;
using scheduling::textOf;

bool synchScheduleInfoWithTaskInfo(int32_t taskID) {
  bool result = true;
  LookupRoutine r("modDatabaseFunctions", "synchScheduleInfoWithTaskInfo",
                  [&](const RuntimeError&) { result = false; });
  int32_t userID = -1;
  int32_t stepID = -1;
  if (!r.connected()) return result;
  const Handle task = r.open("SELECT Tasks.* FROM Tasks WHERE TaskID=" + idText(taskID) + ";");
  if (!r.hasRows(task)) {
    r.close(task);
    return result;
  }
  int32_t scheduleID = -1;
  r.step([&] { scheduleID = getScheduleIDFromTaskID(taskID); });
  r.step([&] { userID = CLng(field(task, "UserIDNum")); });

  const Handle schedule =
      r.open("SELECT Schedule.* FROM Schedule WHERE ScheduleID=" + idText(scheduleID) + ";",
             kLockOptimistic);
  bool closed = false;
  if (r.hasRows(schedule)) {
    auto set = [&](const char* column, const std::string& value) {
      database().setField(schedule, column, value);
    };
    r.step([&] { set("EmployeeAssigned", getEmployeeAssignedNameFromFirmContactID(userID)); });
    r.step([&] {
      if (!fieldIsNull(task, "Subject")) set("ScheduleName", textOf(field(task, "Subject")));
    });
    r.step([&] {
      if (!fieldIsNull(task, "DateFrom")) set("CalendarDate", textOf(field(task, "DateFrom")));
    });
    // A company or contact that is gone leaves the entry's own.
    r.step([&] {
      const Variant company = field(task, "CompanyIDNum");
      if (validCompanyID(textOf(company)))
        set("ClientNum", idText(getClientDataIDFromCompanyID(CLng(company))));
    });
    r.step([&] {
      const Variant contact = field(task, "ContactIDNum");
      if (validContactID(textOf(contact))) set("ContactIDNum", textOf(contact));
    });
    r.step([&] { set("hideInTasks", textOf(field(task, "hideInTasks"))); });
    r.step([&] { set("RecurAnnually", textOf(field(task, "RecurAnnually"))); });
    r.step([&] { set("CompanyProjectStepIDNum", textOf(field(task, "CompanyProjectStepIDNum"))); });
    r.step([&] {
      if (!fieldIsNull(task, "TextBody")) {
        set("ScheduleNotes", textOf(field(task, "TextBody")));
        set("NotesFlag", scheduling::booleanText(true));
      } else {
        set("NotesFlag", scheduling::booleanText(false));
      }
    });
    r.step([&] { set("notifyType", textOf(field(task, "notifyType"))); });
    r.step([&] { closed = CBool(field(schedule, "Closed")); });
  } else {
    r.step([&] { addNewScheduleEntryForTaskItem(taskID, -1, -1, -1, false, 10, 1); });
  }
  r.close(schedule);

  r.step([&] {
    // The task's ID stands where the task recordset's handle belongs.
    const Variant step =
        database().getField(static_cast<Handle>(taskID), Variant("CompanyProjectStepIDNum"));
    if (scheduling::variantUtility().isNullValue(step) || CLng(step) < 0) return;
    stepID = CLng(step);
    changeEmployeeAssignedInCompanyProjectStepID(stepID, userID);
    changeClosedStatusInCompanyProjectStepID(stepID, closed, userID);
  });
  r.close(task);
  return result;
}

}  // namespace nvwm
