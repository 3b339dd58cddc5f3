// The builders of the calendar records: appointment, task and docket (time entry) rows, each
// followed by its custom block. The task list has two groups, the schedule entry and the task
// joined to it, each with its own custom block; the header between them follows the rule of all
// headers, so without headers the two groups run together.
#include "catalogue/cls_insert_fields_in_rtb.h"
#include "catalogue/field_list_rows.h"
#include "host/routine.h"

namespace nvwm {

void clsInsertFieldsInRTB::createAppointmentInfoFieldListStructure(bool& noList) {
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-createAppointmentInfoFieldListStructure",
            errorService());
  ListTarget list{ListBox_.get(), noList};
  addRows(r, list, catalogue::kAppointmentBlock);
  addCustomBlock(r, list, catalogue::kAppointmentCustomBlock);
}

void clsInsertFieldsInRTB::createTaskInfoFieldListStructure(bool& noList) {
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-createTaskInfoFieldListStructure",
            errorService());
  ListTarget list{ListBox_.get(), noList};
  addRows(r, list, catalogue::kTaskScheduleBlock);
  addCustomBlock(r, list, catalogue::kTaskScheduleCustomBlock);
  addHeader(r, list, "[Task Info]", true);
  addRows(r, list, catalogue::kTaskBlock);
  addCustomBlock(r, list, catalogue::kTaskCustomBlock);
}

void clsInsertFieldsInRTB::createDocketInfoFieldListStructure(bool& noList) {
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-createDocketInfoFieldListStructure",
            errorService());
  ListTarget list{ListBox_.get(), noList};
  addRows(r, list, catalogue::kDocketBlock);
  addCustomBlock(r, list, catalogue::kDocketCustomBlock);
}

}  // namespace nvwm
