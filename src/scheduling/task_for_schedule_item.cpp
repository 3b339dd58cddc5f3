// addNewTaskForScheduleItem: a schedule item gets the task that carries it out, at a time the
// calendar search finds in the assigned user's day.
//
// The item is opened read-only and never changed; the link is the task's ScheduleIDNum. Each
// run does the date, the times and the search again, so a task can move.
#include <string>

#include "practice/lookups.h"
#include "runtime/convert.h"
#include "runtime/format.h"
#include "scheduling/calendar_search.h"
#include "scheduling/calendar_text.h"
#include "scheduling/holidays.h"
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

constexpr const char* kTimePattern = "h:nn am/pm";

// What the item gives its task, worked out as the steps go.
struct TaskValues {
  int32_t userID = -1;
  Date inHouseDueDate;
  float estimate = 0.0f;
  Date bestTime;
  std::string company;
  std::string contact;
  std::string subject;
  std::string dateFrom;
  std::string timeFrom;
  std::string timeTo;
  std::string hideInTasks;
  std::string recurAnnually;
  std::string notifyType;
  std::string clientNotified;
};

}  // namespace

int32_t addNewTaskForScheduleItem(int32_t scheduleID, float estimatedTime, bool moveToWorkingDay) {
  LookupRoutine r("addNewTaskForScheduleItem");
  int32_t taskID = -1;
  if (!r.connected()) return taskID;
  const Handle item =
      r.open("SELECT Schedule.* FROM Schedule WHERE ScheduleID=" + idText(scheduleID) + ";");
  if (!r.hasRows(item)) {
    r.close(item);
    return taskID;
  }
  TaskValues v;
  // "None Assigned" finds nobody: the search and the task go on with user -1.
  r.step(
      [&] { v.userID = getUserIDFromEmployeeAssignedName(CStr(field(item, "EmployeeAssigned"))); });
  r.step([&] { v.inHouseDueDate = CDate(field(item, "inHouseDueDate")); });
  r.step([&] {
    v.estimate = estimatedTime;
    if (estimatedTime <= 0.0f) {
      v.estimate = getDefaultEstTimeFromUserIDAndTotalNumAndScheduleNum(
          v.userID, CLng(field(item, "totalNum")), CLng(field(item, "scheduleNum")));
    }
  });
  // The search runs on the in-house due date as stored, though the task's date may move.
  r.step([&] {
    v.bestTime = getBestTimeInCalendarForSpecificDayAndUser(
        static_cast<int32_t>(CalendarKind::kTasks), v.userID, v.inHouseDueDate, v.estimate);
  });

  // The values both branches write, each read as its own statement.
  r.step([&] {
    v.company = fieldIsNull(item, "ClientNum")
                    ? "-1"
                    : idText(getCompanyIDFromClientDataID(CLng(field(item, "ClientNum"))));
  });
  r.step([&] {
    v.contact = fieldIsNull(item, "ContactIDNum") ? "-1" : textOf(field(item, "ContactIDNum"));
  });
  r.step([&] { v.subject = CStr(field(item, "ScheduleName")); });
  r.step([&] {
    const Date day = moveToWorkingDay ? getPreviousWorkingDay(v.inHouseDueDate) : v.inHouseDueDate;
    v.dateFrom = CStr(Variant(day));
  });
  r.step([&] {
    Date start = CDate(Variant(formatDate(v.bestTime, kTimePattern)));
    Date end = determineEndTimeFromEstimatedTime(start, v.estimate);
    verifyStartAndEndTime(start, end);
    v.timeFrom = formatDate(start, kTimePattern);
    v.timeTo = formatDate(end, kTimePattern);
  });
  r.step([&] { v.hideInTasks = scheduling::booleanText(CBool(field(item, "hideInTasks"))); });
  r.step([&] { v.recurAnnually = scheduling::booleanText(CBool(field(item, "RecurAnnually"))); });
  r.step([&] { v.notifyType = textOf(field(item, "notifyType")); });
  r.step([&] {
    const Variant notify = field(item, "notifyType");
    v.clientNotified = scheduling::booleanText(!scheduling::variantUtility().isNullValue(notify) &&
                                               CLng(notify) >= 1);
  });

  const Handle task = r.open(
      "SELECT Tasks.* FROM Tasks WHERE ScheduleIDNum=" + idText(scheduleID) + ";", kLockOptimistic);
  if (r.hasRows(task)) {
    // The first task carrying the item is updated in place.
    auto set = [&](const char* column, const std::string& value) {
      r.step([&] { database().setField(task, column, value); });
    };
    r.readField(task, "TaskID", practice::NullTest::kNotTested, taskID);
    set("UserIDNum", idText(v.userID));
    set("ScheduleIDNum", idText(scheduleID));
    set("EstimatedTime", singleToText(v.estimate));
    set("CompanyIDNum", v.company);
    set("ContactIDNum", v.contact);
    set("Subject", v.subject);
    set("DateFrom", v.dateFrom);
    set("TimeFrom", v.timeFrom);
    set("TimeTo", v.timeTo);
    set("hideInTasks", v.hideInTasks);
    set("RecurAnnually", v.recurAnnually);
    r.step([&] {
      database().setField(task, "CompanyProjectStepIDNum",
                          idText(CLng(field(item, "CompanyProjectStepIDNum"))));
    });
    set("NotesFlag", scheduling::booleanText(false));
    set("notifyType", v.notifyType);
    set("ClientNotifiedFlag", v.clientNotified);
    r.step([&] {
      database().setField(
          task, "AppointmentText",
          createTextByID(static_cast<int32_t>(CalendarKind::kTasks), taskID, v.userID));
    });
    r.close(task);
  } else if (r.running()) {
    auto set = [&](const char* column, const std::string& value) {
      r.step([&] { database().setNewField(task, column, Variant(value)); });
    };
    r.step([&] { database().addNewRecord(task); });
    set("UserIDNum", idText(v.userID));
    set("ScheduleIDNum", idText(scheduleID));
    set("CompanyIDNum", v.company);
    set("ContactIDNum", v.contact);
    set("Subject", v.subject);
    set("DateFrom", v.dateFrom);
    set("EstimatedTime", singleToText(v.estimate));
    set("TimeFrom", v.timeFrom);
    set("TimeTo", v.timeTo);
    set("hideInTasks", v.hideInTasks);
    set("RecurAnnually", v.recurAnnually);
    // The one test of this routine that reads the wrong way round: a Null ScheduleNotes is
    // read (and raises), text is not. Notes never reach a new task.
    bool notesNull = false;
    r.step([&] { notesNull = fieldIsNull(item, "ScheduleNotes"); });
    if (notesNull) {
      r.step([&] {
        database().setNewField(task, "TextBody", Variant(CStr(field(item, "ScheduleNotes"))));
      });
      set("NotesFlag", scheduling::booleanText(true));
    } else {
      set("NotesFlag", scheduling::booleanText(false));
    }
    set("notifyType", v.notifyType);
    set("ClientNotifiedFlag", v.clientNotified);
    r.step([&] { database().updateRecord(task); });
    r.readField(task, "TaskID", practice::NullTest::kNotTested, taskID);
    r.close(task);
    std::string text;
    r.step([&] {
      text = createTextByID(static_cast<int32_t>(CalendarKind::kTasks), taskID, v.userID);
    });
    r.withFirstRow(
        "SELECT Tasks.TaskID, Tasks.AppointmentText FROM Tasks WHERE TaskID=" + idText(taskID) +
            ";",
        [&](Handle h) { r.step([&] { database().setField(h, "AppointmentText", text); }); },
        kLockOptimistic);
  }
  r.close(item);
  return taskID;
}

}  // namespace nvwm
