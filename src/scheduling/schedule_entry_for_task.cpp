// addNewScheduleEntryForTaskItem: a task entered by hand gets the schedule entry that shows it.
//
// Both recordsets (the task, updatable, and its entry) stay open across the routine; the
// synchronisation it may hand over to opens its own on the same rows meanwhile.
#include <string>

#include "practice/lookups.h"
#include "runtime/convert.h"
#include "runtime/datetime_functions.h"
#include "scheduling/holidays.h"
#include "scheduling/notification_periods.h"
#include "scheduling/popup_reminders.h"
#include "scheduling/routine_steps.h"
#include "scheduling/task_schedule_links.h"

namespace nvwm {

using scheduling::database;
using scheduling::field;
using scheduling::fieldIsNull;
using scheduling::idText;
using scheduling::LookupRoutine;
using scheduling::textOf;

namespace {

// The remittance types of the two kinds of entry made here.
constexpr int32_t kCustomTotal = 111;
constexpr int32_t kProjectTotal = 113;
constexpr int32_t kCustomScheduleNum = 10;
constexpr int32_t kCustomIndividualNum = 1;

}  // namespace

int32_t addNewScheduleEntryForTaskItem(int32_t taskID, int32_t clientDataID, int32_t companyID,
                                       int32_t contactID, bool isProjectStep, int32_t scheduleNum,
                                       int32_t individualNum) {
  LookupRoutine r("addNewScheduleEntryForTaskItem");
  int32_t scheduleID = 0;  // no -1 default here, unlike the lookups
  if (!r.connected()) return scheduleID;
  const Handle task =
      r.open("SELECT Tasks.* FROM Tasks WHERE TaskID=" + idText(taskID) + ";", kLockOptimistic);
  if (!r.hasRows(task)) {
    r.close(task);
    return scheduleID;
  }
  r.step([&] { scheduleID = getScheduleIDFromTaskID(taskID); });
  const Handle schedule =
      r.open("SELECT Schedule.* FROM Schedule WHERE ScheduleID=" + idText(scheduleID) + ";",
             kLockOptimistic);

  if (r.hasRows(schedule)) {
    r.step([&] { synchScheduleInfoWithTaskInfo(taskID); });
  } else if (r.running()) {
    // The client: the task's company decides when it has one, -1 included.
    int32_t client = -1;
    int32_t company = -1;
    int32_t contact = -1;
    r.step([&] {
      if (validClientID(idText(clientDataID))) client = clientDataID;
    });
    r.step([&] {
      if (!fieldIsNull(task, "CompanyIDNum")) {
        company = CLng(field(task, "CompanyIDNum"));
        client = getClientDataIDFromCompanyID(company);
      } else {
        company = -1;
      }
    });
    r.step([&] {
      if (!fieldIsNull(task, "ContactIDNum")) contact = CLng(field(task, "ContactIDNum"));
    });
    // A valid company argument overrides the task's company; a client already valid stays.
    r.step([&] {
      if (!validCompanyID(idText(companyID))) return;
      company = companyID;
      if (!validClientID(idText(client))) {
        const int32_t companysClient = getClientDataIDFromCompanyID(company);
        if (validClientID(idText(companysClient))) client = companysClient;
      }
    });
    r.step([&] {
      if (validContactID(idText(contactID))) contact = contactID;
    });
    int16_t period = 0;
    r.step([&] {
      period = getInHouseDueDatePeriod(isProjectStep ? kProjectTotal : kCustomTotal, -1, false);
    });

    auto set = [&](const char* column, const std::string& value) {
      r.step([&] { database().setNewField(schedule, column, Variant(value)); });
    };
    r.step([&] { database().addNewRecord(schedule); });
    set("ClientNum", idText(client));
    set("ContactIDNum", idText(contact));
    r.step([&] {
      database().setNewField(schedule, "Year",
                             Variant(std::to_string(CDate(field(task, "DateFrom")).year())));
    });
    set("Class", isProjectStep ? "Project" : "Custom");
    r.step([&] {
      database().setNewField(schedule, "scheduleName", Variant(CStr(field(task, "Subject"))));
    });
    Date dueDate;
    Date inHouseDueDate;
    r.step([&] { dueDate = CDate(field(task, "DateFrom")); });
    set("DueDate", CStr(Variant(dueDate)));
    // The period is 0 or negative: the in-house date lies that many days earlier.
    r.step([&] { inHouseDueDate = DateAdd("d", period, dueDate); });
    set("inHouseDueDate", CStr(Variant(inHouseDueDate)));
    r.step([&] {
      database().setNewField(schedule, "CalendarDate",
                             Variant(CStr(Variant(getPreviousWorkingDay(inHouseDueDate)))));
    });
    r.step([&] {
      database().setNewField(schedule, "hideInTasks",
                             Variant(scheduling::booleanText(CBool(field(task, "hideInTasks")))));
    });
    r.step([&] {
      database().setNewField(schedule, "CompanyProjectStepIDNum",
                             Variant(idText(CLng(field(task, "CompanyProjectStepIDNum")))));
    });
    r.step([&] {
      const Variant user = field(task, "UserIDNum");
      std::string name = "None Assigned";
      if (!scheduling::variantUtility().isNullValue(user) && validEmployeeID(textOf(user)))
        name = getEmployeeAssignedNameFromFirmContactID(CLng(user));
      database().setNewField(schedule, "EmployeeAssigned", Variant(name));
    });
    r.step([&] {
      if (!fieldIsNull(task, "TextBody")) {
        database().setNewField(schedule, "ScheduleNotes", Variant(textOf(field(task, "TextBody"))));
        database().setNewField(schedule, "NotesFlag", Variant(scheduling::booleanText(true)));
      } else {
        database().setNewField(schedule, "NotesFlag", Variant(scheduling::booleanText(false)));
      }
    });
    r.step([&] {
      database().setNewField(schedule, "notifyType",
                             Variant(idText(CLng(field(task, "notifyType")))));
    });
    if (isProjectStep) {
      set("totalNum", idText(kProjectTotal));
      set("scheduleNum", idText(scheduleNum));
      set("individualNum", idText(individualNum));
    } else {
      set("totalNum", idText(kCustomTotal));
      set("scheduleNum", idText(kCustomScheduleNum));
      set("individualNum", idText(kCustomIndividualNum));
    }
    r.readField(schedule, "ScheduleID", practice::NullTest::kNotTested, scheduleID);
    r.step([&] { database().updateRecord(schedule); });
    r.close(schedule);
    // Always the custom type's pop-up setting, also for a project step.
    r.step([&] { checkToSchedulePopup(client, -1, scheduleID, kCustomTotal, dueDate); });
  }
  r.close(schedule);  // already closed after a new entry; closing again is harmless
  r.step([&] { database().setField(task, "ScheduleIDNum", idText(scheduleID)); });
  r.close(task);
  return scheduleID;
}

}  // namespace nvwm
