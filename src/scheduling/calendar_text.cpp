#include "scheduling/calendar_text.h"

#include <memory>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "catalogue/field_record.h"
#include "host/references.h"
#include "practice/lookups.h"
#include "scheduling/calendar_search.h"
#include "scheduling/routine_steps.h"

namespace nvwm {

using scheduling::idText;
using scheduling::LookupRoutine;

std::string createTextByID(int32_t kind, int32_t recordID, int32_t userID) {
  LookupRoutine r("modApptCtrl", "createTextByID");
  std::string text;
  std::unique_ptr<clsInsertFieldsInRTB> fields;
  r.step([&] {
    fields = std::make_unique<clsInsertFieldsInRTB>();
    fields->errorClassRTB(references().errorClass);
  });
  int32_t company = -1;
  int32_t contact = -1;
  int32_t listType = -1;
  r.step([&] {
    switch (static_cast<CalendarKind>(kind)) {
      case CalendarKind::kAppointments:
        company = getCompanyIDFromAppointmentID(recordID);
        contact = getContactIDFromAppointmentID(recordID);
        listType = list_type::kAppointmentInfo;
        break;
      case CalendarKind::kDockets:
        company = getCompanyIDFromDocketID(recordID);
        contact = getContactIDFromDocketID(recordID);
        listType = list_type::kDocketInfo;
        break;
      case CalendarKind::kTasks:
        company = getCompanyIDFromTaskID(recordID);
        contact = getContactIDFromTaskID(recordID);
        listType = list_type::kTaskInfo;
        break;
    }
  });
  if (listType < 0 || !fields) return text;
  r.step([&] {
    if (!validContactID(idText(contact))) contact = getDefaultContactIDFromCompanyID(company);
  });
  r.step([&] {
    fields->initializeDataRecordsets(listType, false, recordID, false, true, true, true, true,
                                     company, contact);
  });
  r.step([&] {
    int32_t user = userID;
    bool useSampleData = false;
    bool isRTF = false;
    bool useContactForMissingCompany = true;
    text = fields->createDisplayTextByID(user, company, contact, recordID, -1, -1, useSampleData,
                                         isRTF, useContactForMissingCompany);
  });
  return text;
}

}  // namespace nvwm
