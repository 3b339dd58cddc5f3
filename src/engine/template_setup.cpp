#include "engine/template_setup.h"

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "catalogue/field_record.h"
#include "engine/placeholder_grammar.h"
#include "host/utilities.h"
#include "practice/lookups.h"
#include "runtime/convert.h"
#include "runtime/format.h"
#include "runtime/text.h"

namespace nvwm::engine {
namespace {

bool holds(const std::string& text, const std::string& placeholder) {
  return InStr(text, placeholder, CompareMode::kText) > 0;
}

bool swapIn(std::string& text, const char* open, const char* close) {
  const std::string company = std::string(open) + "Company Name" + close;
  const std::string contact = std::string(open) + "Contact Display Name" + close;
  if (!holds(text, company) || holds(text, contact)) return false;
  text = Replace(text, company, contact, 1, -1, CompareMode::kText);
  return true;
}

}  // namespace

bool companyNameSwapApplies(bool useContactForMissingCompany, int32_t companyID,
                            int32_t contactID) {
  return useContactForMissingCompany && companyID < 1 && contactID >= 1;
}

void swapCompanyNameForContactName(std::string& text) {
  if (!swapIn(text, kOpenPlain, kClosePlain)) swapIn(text, kOpenEscaped, kCloseEscaped);
}

void buildCatalogueForRecordIDs(clsInsertFieldsInRTB& rtb, const RecordIDs& ids) {
  using namespace list_type;
  auto text = [](int32_t id) { return std::to_string(id); };
  int32_t listType = 0;
  if (validAppointmentID(text(ids.appointmentID))) {
    listType = kAppointmentInfo;
  } else if (validTaskID(text(ids.taskID))) {
    listType = kTaskInfo;
  } else if (validDocketID(text(ids.docketID))) {
    listType = kDocketInfo;
  } else if (validScheduleID(text(ids.scheduleID))) {
    listType = kTaskInfo;
  } else {
    // Both are asked, as the product's Or does.
    const bool company = validCompanyID(text(ids.companyID));
    const bool contact = validContactID(text(ids.contactID));
    if (company || contact) listType = kCompanyContactInfo;
  }
  bool noList = true;
  rtb.createDefaultFieldListStructure(listType, noList, true);
}

std::string dollarsText(const std::string& value) {
  return Format(Variant(value), "$#,##0.00;$-#,##0.00");
}

std::string yesNoText(const std::string& value) { return CBool(Variant(value)) ? "Yes" : "No"; }

std::string durationText(const std::string& value) {
  const float minutes = CSng(Variant(value)) * 60.0f;
  return dateUtility().minutesToDurationText(CLng(Variant(minutes)));
}

}  // namespace nvwm::engine
