// createCompanyInfoFieldListStructure: the client company's rows and its custom block.
#include "catalogue/cls_insert_fields_in_rtb.h"
#include "catalogue/field_list_rows.h"
#include "host/routine.h"

namespace nvwm {

void clsInsertFieldsInRTB::createCompanyInfoFieldListStructure(bool& noList) {
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-createCompanyInfoFieldListStructure",
            errorService());
  ListTarget list{ListBox_.get(), noList};
  addRows(r, list, catalogue::kCompanyBlock);
  addCustomBlock(r, list, catalogue::kCompanyCustomBlock);
}

}  // namespace nvwm
