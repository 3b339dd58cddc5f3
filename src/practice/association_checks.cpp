// The association checks of modDatabaseFunctions: is this task linked to a live schedule entry,
// is this schedule entry carried out by a task? And, when asked, the missing half is made.
//
// Each answers from one query; the task's check also asks validScheduleID while its recordset
// is open. A task with a Null or unknown ScheduleIDNum, and a valid schedule entry with no
// task, are the cases where the missing half is made when createIfMissing is True, after the
// recordset is closed (scheduling/task_schedule_links.h); the check then answers True.
#include "practice/lookup_shape.h"
#include "practice/lookups.h"
#include "scheduling/task_schedule_links.h"

namespace nvwm {

using practice::LookupRoutine;

bool isThisTaskAssociatedWithScheduleEntry(int32_t taskID, bool createIfMissing) {
  LookupRoutine r("isThisTaskAssociatedWithScheduleEntry");
  bool result = false;
  if (taskID < 0 || !r.connected()) return result;
  bool entryNeeded = false;
  r.withFirstRow("SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE TaskID=" +
                     std::to_string(taskID) + ";",
                 [&](Handle h) {
                   r.step([&] {
                     Variant entry = practice::database().getField(h, Variant("ScheduleIDNum"));
                     if (!practice::variantUtility().isNullValue(entry)) {
                       result = validScheduleID(CStr(entry));
                     }
                     entryNeeded = !result;
                   });
                 });
  // A task that doesn't exist needs nothing.
  if (createIfMissing && entryNeeded) {
    r.step([&] {
      addNewScheduleEntryForTaskItem(taskID, -1, -1, -1, false, 10, 1);
      result = true;
    });
  }
  return result;
}

bool isThisScheduleEntryAssociatedWithTask(int32_t scheduleID, bool createIfMissing) {
  LookupRoutine r("isThisScheduleEntryAssociatedWithTask");
  bool result = false;
  if (scheduleID < 0 || !r.connected()) return result;
  bool valid = false;
  r.step([&] { valid = validScheduleID(std::to_string(scheduleID)); });
  if (!valid || !r.running()) return result;
  result = r.withFirstRow("SELECT Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=" +
                              std::to_string(scheduleID) + ";",
                          [](Handle) {});
  const bool taskNeeded = !result && r.running();
  if (createIfMissing && taskNeeded) {
    r.step([&] {
      addNewTaskForScheduleItem(scheduleID, -1.0f, true);
      result = true;
    });
  }
  return result;
}

}  // namespace nvwm
