// createDefaultFieldListStructure: rebuilds the whole catalogue for one list type.
//
// Which blocks a list type gets, in order of adding:
//   5, 8, 6   the appointment, task or docket rows, at the top
//   1 2 5 6 8 "[Company Address Info]" and the company rows (a separator only with 5 and 8)
//   1 5 6 8   "[Default Contact Name]";  2, 3 "[Contact Name]"; then the contact name rows
//   1 2 5 6 8 accounting (by country), client custom block, software
//   1 2 3 5 6 8  "[More Contact Info]", contact details, contact custom block
//   3         "[Company Info]" and the company rows, last
// 4, 7 and any number outside 1..8 (-1 among them) get none of them: only the firm's rows,
// which every build adds at the end without touching a list.
#include "catalogue/cls_insert_fields_in_rtb.h"
#include "catalogue/field_list_rows.h"
#include "host/references.h"
#include "host/routine.h"
#include "runtime/error.h"

namespace nvwm {
namespace {

bool isOneOf(int32_t value, std::initializer_list<int32_t> values) {
  for (int32_t v : values) {
    if (v == value) return true;
  }
  return false;
}

}  // namespace

void clsInsertFieldsInRTB::createDefaultFieldListStructure(int32_t listType, bool& noList,
                                                           bool clearList) {
  using namespace list_type;
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-createDefaultFieldListStructure", errorService());
  r.step([&] { noList = ListBox_ == nullptr; });
  r.step([&] {
    FieldListStructure_->initialize();
    FieldCounter_ = 0;
  });
  ListTarget list{ListBox_.get(), noList};
  r.step([&] {
    if (!noList && clearList) ListBox_->invoke("Clear");
  });
  r.step([&] {
    if (!noList && MergeFieldListUse_ == kListUseAssignment) {
      addListEntry(*ListBox_, "Not Assigned", -1);
    }
  });

  // The record the merge is about stands at the top of its list.
  if (listType == kAppointmentInfo) {
    addHeader(r, list, "[Appointment Info]", false);
    r.step([&] { createAppointmentInfoFieldListStructure(noList); });
  } else if (listType == kTaskInfo) {
    addHeader(r, list, "[Task Info]", false);
    r.step([&] { createTaskInfoFieldListStructure(noList); });
  } else if (listType == kDocketInfo) {
    addHeader(r, list, "[Time Entry Info]", false);
    r.step([&] { createDocketInfoFieldListStructure(noList); });
  }

  if (isOneOf(listType,
              {kCompanyInfo, kCompanyContactInfo, kAppointmentInfo, kDocketInfo, kTaskInfo})) {
    // No separator after the time entry rows: as chosen by the product.
    addHeader(r, list, "[Company Address Info]", isOneOf(listType, {kAppointmentInfo, kTaskInfo}));
    r.step([&] { createCompanyInfoFieldListStructure(noList); });
  }

  if (isOneOf(listType, {kCompanyInfo, kAppointmentInfo, kDocketInfo, kTaskInfo})) {
    addHeader(r, list, "[Default Contact Name]", true);
  } else if (isOneOf(listType, {kCompanyContactInfo, kContactInfo})) {
    addHeader(r, list, "[Contact Name]", true);
  }

  bool clientKinds = isOneOf(listType, {kCompanyInfo, kCompanyContactInfo, kContactInfo,
                                        kAppointmentInfo, kDocketInfo, kTaskInfo});
  if (clientKinds) addRows(r, list, catalogue::kContactNameBlock);

  if (clientKinds && listType != kContactInfo) {
    addHeader(r, list, "[Company Accounting Info]", true);
    int32_t country = 1;
    r.step([&] {
      country = requireReference(references().LocaleReference, "LocaleReference").getCountryCode();
    });
    addRows(
        r, list,
        country == 1 ? catalogue::kAccountingCanadaBlock : catalogue::kAccountingOtherCountryBlock);
    addCustomBlock(r, list, catalogue::kClientCustomBlock);
    addHeader(r, list, "[Company Software Info]", true);
    addRows(r, list, catalogue::kSoftwareBlock);
  }

  if (clientKinds) {
    addHeader(r, list, "[More Contact Info]", true);
    addRows(r, list, catalogue::kContactDetailBlock);
    addCustomBlock(r, list, catalogue::kContactCustomBlock);
  }

  if (listType == kContactInfo) {
    addHeader(r, list, "[Company Info]", true);
    r.step([&] { createCompanyInfoFieldListStructure(noList); });
  }

  if (!noList) refreshList(r, *ListBox_);

  // The firm's rows are in every table, and never reach ListBox2 from here.
  r.step([&] {
    bool firmNoList = true;
    createAccountantFieldListStructure(firmNoList, false);
  });
}

}  // namespace nvwm
