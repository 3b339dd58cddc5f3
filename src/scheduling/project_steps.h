// modProjectsSetupCtrl: what a task carries over to the project step it belongs to
// (CompanyProjectSteps).
//
// Both routines do nothing without a connection or for a step ID with no row. A failing step
// sets the screen's mouse pointer back to the default (0, through the library-wide
// messagePump when there is one) and then goes to the error service. Nothing raises to the
// caller. Not thread-safe.
#pragma once

#include <cstdint>

namespace nvwm {

// StepUserID := userID on the step's rows. Log tag
// "Tallowbrook.exe-modProjectsSetupCtrl-changeEmployeeAssignedInCompanyProjectStepID".
void changeEmployeeAssignedInCompanyProjectStepID(int32_t stepID, int32_t userID);

// Closed := closed, PersonCompletedUserIDNum := userID and DateCompleted := today on the step's
// rows: all three whatever closed says, so an open or reopened step still gets a completion
// person and date. Log tag
// "Tallowbrook.exe-modProjectsSetupCtrl-changeClosedStatusInCompanyProjectStepID".
void changeClosedStatusInCompanyProjectStepID(int32_t stepID, bool closed, int32_t userID);

}  // namespace nvwm
