// The association checks of modDatabaseFunctions: is this task linked to a live schedule entry,
// is this schedule entry carried out by a task?
//
// Each answers from one query; the task's check also asks validScheduleID while its recordset
// is open. A task with a Null or unknown ScheduleIDNum, and a valid schedule entry with no
// task, are the cases where the missing half is to be made when createIfMissing is True; making
// it belongs to the scheduling routines and is not joined here yet (see practice/lookups.h).
#include "practice/lookup_shape.h"
#include "practice/lookups.h"

namespace nvwm {

using practice::LookupRoutine;

bool isThisTaskAssociatedWithScheduleEntry(int32_t taskID, [[maybe_unused]] bool createIfMissing) {
  LookupRoutine r("isThisTaskAssociatedWithScheduleEntry");
  bool result = false;
  if (taskID < 0 || !r.connected()) return result;
  r.withFirstRow("SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE TaskID=" +
                     std::to_string(taskID) + ";",
                 [&](Handle h) {
                   r.step([&] {
                     Variant entry = practice::database().getField(h, Variant("ScheduleIDNum"));
                     if (!practice::variantUtility().isNullValue(entry)) {
                       result = validScheduleID(CStr(entry));
                     }
                   });
                 });
  return result;
}

bool isThisScheduleEntryAssociatedWithTask(int32_t scheduleID,
                                           [[maybe_unused]] bool createIfMissing) {
  LookupRoutine r("isThisScheduleEntryAssociatedWithTask");
  bool result = false;
  if (scheduleID < 0 || !r.connected()) return result;
  bool valid = false;
  r.step([&] { valid = validScheduleID(std::to_string(scheduleID)); });
  if (!valid || !r.running()) return result;
  result = r.withFirstRow("SELECT Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=" +
                              std::to_string(scheduleID) + ";",
                          [](Handle) {});
  return result;
}

}  // namespace nvwm
