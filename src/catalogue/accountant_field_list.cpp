// createAccountantFieldListStructure: the firm's own rows, for a template's letterhead. They go
// to ListBox2, never to ListBox. Every default build adds them without a list (so that they can
// be found by name); a caller that wants ListBox2 filled calls this itself.
#include "catalogue/cls_insert_fields_in_rtb.h"
#include "catalogue/field_list_rows.h"
#include "host/routine.h"

namespace nvwm {

void clsInsertFieldsInRTB::createAccountantFieldListStructure(bool& noList, bool clearList) {
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-createAccountantFieldListStructure",
            errorService());
  // A False is not written back: a True that came in stays True.
  r.step([&] {
    if (ListBox2_ == nullptr) noList = true;
  });
  ListTarget list{ListBox2_.get(), noList};
  r.step([&] {
    if (!noList && clearList) ListBox2_->invoke("Clear");
  });
  r.step([&] {
    if (noList) return;
    // Not subject to ShowListCategoryHeaders.
    addListEntry(*ListBox2_, "Insert your Letterhead", -1);
  });
  addRows(r, list, catalogue::kAccountantBlock);
  addCustomBlock(r, list, catalogue::kAccountantCustomBlock);
  if (!noList) refreshList(r, *ListBox2_);
}

}  // namespace nvwm
