#include "scheduling/project_steps.h"

#include <string>

#include "host/references.h"
#include "runtime/clock.h"
#include "runtime/convert.h"
#include "scheduling/routine_steps.h"

namespace nvwm {

using scheduling::database;
using scheduling::idText;
using scheduling::LookupRoutine;

namespace {

constexpr std::string_view kModule = "modProjectsSetupCtrl";
constexpr int32_t kDefaultPointer = 0;

void resetMousePointer(const RuntimeError&) {
  if (MessagePump* pump = references().messagePump.get()) pump->setMousePointer(kDefaultPointer);
}

// Runs write(handle) on each row of the step, opened updatable.
template <class Write>
void updateStepRows(LookupRoutine& r, const std::string& select, int32_t stepID, Write&& write) {
  if (!r.connected()) return;
  const Handle h =
      r.open(select + "WHERE CompanyProjectSteps.CompanyProjectStepID=" + idText(stepID) + ";",
             kLockOptimistic);
  while (!r.atEnd(h)) {
    write(h);
    if (!r.moveNext(h)) break;  // a walk that can't move on ends
  }
  r.close(h);
}

}  // namespace

void changeEmployeeAssignedInCompanyProjectStepID(int32_t stepID, int32_t userID) {
  LookupRoutine r(kModule, "changeEmployeeAssignedInCompanyProjectStepID", resetMousePointer);
  updateStepRows(r,
                 "SELECT CompanyProjectSteps.CompanyProjectStepID, CompanyProjectSteps.StepUserID "
                 "FROM CompanyProjectSteps ",
                 stepID, [&](Handle h) {
                   r.step([&] { database().setField(h, "StepUserID", idText(userID)); });
                 });
}

void changeClosedStatusInCompanyProjectStepID(int32_t stepID, bool closed, int32_t userID) {
  LookupRoutine r(kModule, "changeClosedStatusInCompanyProjectStepID", resetMousePointer);
  updateStepRows(
      r,
      "SELECT CompanyProjectSteps.CompanyProjectStepID, CompanyProjectSteps.Closed, "
      "CompanyProjectSteps.PersonCompletedUserIDNum, "
      "CompanyProjectSteps.DateCompleted FROM CompanyProjectSteps ",
      stepID, [&](Handle h) {
        r.step([&] { database().setField(h, "Closed", scheduling::booleanText(closed)); });
        r.step([&] { database().setField(h, "PersonCompletedUserIDNum", idText(userID)); });
        r.step([&] { database().setField(h, "DateCompleted", CStr(Variant(Today()))); });
      });
}

}  // namespace nvwm
