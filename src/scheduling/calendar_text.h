// modApptCtrl: the display text stored with a calendar record (Tasks.AppointmentText).
#pragma once

#include <cstdint>
#include <string>

namespace nvwm {

// The calendar text of an appointment (kind 0), task (1) or time entry (2) for the user, made
// through a new clsInsertFieldsInRTB on errorClass: the record's company and contact (the
// company's default contact when the record's contact isn't valid, which may repair that
// company's links), its data sets, then createDisplayTextByID with the record's ID in the
// appointment's place, no sample data, plain text, the contact standing in for a missing
// company. "" for any other kind. Log tag "Tallowbrook.exe-modApptCtrl-createTextByID"; a
// failing step goes to the error service and "" comes back. Not thread-safe.
std::string createTextByID(int32_t kind, int32_t recordID, int32_t userID);

}  // namespace nvwm
