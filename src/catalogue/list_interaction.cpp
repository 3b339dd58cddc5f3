// From a list entry's ItemData to the text that belongs in a template, and the insertion of
// that text, or of today's date field, at the caret of the rich-text control.
//
// A merge field stands between the single characters « and ». A "Date" row (in any case)
// carries its output format inside the field, "(Display Name, mmmm d yyyy)", which the user may
// edit in the template; every other row is its display name. Today's date is a field of its own
// form, "(Todays Date, <format>)", without an apostrophe on purpose: the word is part of the form.
#include "catalogue/cls_insert_fields_in_rtb.h"
#include "engine/placeholder_grammar.h"
#include "host/references.h"
#include "host/routine.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace nvwm {
namespace {

constexpr const char* kOpen = "«";
constexpr const char* kClose = "»";
constexpr const char* kDateFieldFormat = ", mmmm d yyyy)";

// The date formats a host offers by number, 1 to 14: those of the template language, in order.
std::string currentDateFormat(int32_t dateFormat) {
  if (dateFormat < 1 || dateFormat > static_cast<int32_t>(engine::kDateFormats.size())) return "";
  return engine::kDateFormats[dateFormat - 1].format;
}

bool isDateRow(IDList& list) {
  return UCase(CStr(list.getColumn(column(FieldColumn::kFieldType)))) == "DATE";
}

}  // namespace

std::string clsInsertFieldsInRTB::getDBFieldFromListItem(int32_t listItem) {
  std::string result;
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-getDBFieldFromListItem", errorService());
  r.step([&] {
    if (listItem < 0) r.exit();
  });
  // A key the table doesn't hold isn't tested for: the columns of whatever row stands current
  // are read all the same.
  r.step([&] { FieldListStructure_->moveToKey(listItem); });
  r.step([&] {
    IDList& list = *FieldListStructure_;
    if (isDateRow(list)) {
      result = "(" + CStr(list.getColumn(column(FieldColumn::kDisplayName))) + kDateFieldFormat;
    } else {
      result = CStr(list.getColumn(column(FieldColumn::kDatabaseField)));
    }
  });
  return result;
}

std::string clsInsertFieldsInRTB::parseListItem(int32_t listItem, bool addBrackets) {
  std::string result;
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-parseListItem", errorService());
  // Headers, separators and "Not Assigned" carry -1 and give nothing.
  r.step([&] {
    if (listItem < 0) r.exit();
  });
  r.step([&] {
    if (addBrackets) result = kOpen;
  });
  r.step([&] { FieldListStructure_->moveToKey(listItem); });
  r.step([&] {
    IDList& list = *FieldListStructure_;
    std::string name = CStr(list.getColumn(column(FieldColumn::kDisplayName)));
    result += isDateRow(list) ? "(" + name + kDateFieldFormat : name;
  });
  r.step([&] {
    if (addBrackets) result += kClose;
  });
  return result;
}

Variant clsInsertFieldsInRTB::onListClick(int32_t listItem) {
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-onListClick", errorService());
  int32_t position = 1;
  std::string text;
  r.step([&] { position = caretPosition(); });
  r.step([&] { text = parseListItem(listItem, true); });
  r.step([&] {
    if (!text.empty()) insertIntoRTB(text, position);
  });
  return Variant();
}

std::string clsInsertFieldsInRTB::insertCurrentDateMergeField(int32_t dateFormat,
                                                              bool addBrackets) {
  std::string result;
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-insertCurrentDateMergeField", errorService());
  std::string format;
  r.step([&] { format = currentDateFormat(dateFormat); });
  r.step([&] {
    if (addBrackets) result = kOpen;
  });
  r.step([&] { result += "(Todays Date, " + format + ")"; });
  r.step([&] {
    if (addBrackets) result += kClose;
  });
  return result;
}

Variant clsInsertFieldsInRTB::InsertCurrentDate(int32_t dateFormat) {
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-insertCurrentDate", errorService());
  int32_t position = 1;
  std::string text;
  r.step([&] { position = caretPosition(); });
  r.step([&] { text = currentDateFormat(dateFormat); });
  // The brackets are always there.
  r.step([&] { text = std::string(kOpen) + "(Todays Date, " + text + ")" + kClose; });
  r.step([&] { insertIntoRTB(text, position); });
  return Variant();
}

int32_t clsInsertFieldsInRTB::caretPosition() {
  if (RTB_ == nullptr) raise(ErrorNumber::kObjectVariableNotSet, "RTB");
  Variant selStart = RTB_->invoke("SelStart");
  // 0, the very start of the text, is a number like any other; only a non-number gives 1.
  if (selStart.isNull() || !IsNumeric(selStart)) return 1;
  return CLng(selStart);
}

void clsInsertFieldsInRTB::insertIntoRTB(const std::string& text, int32_t position) {
  if (RTB_ == nullptr) raise(ErrorNumber::kObjectVariableNotSet, "RTB");
  auto& create = factories().createRTBTextInserter;
  std::shared_ptr<RTBTextInserter> inserter = create ? create() : nullptr;
  if (inserter == nullptr) raise(ErrorNumber::kObjectVariableNotSet, "RTBTextInserter");
  inserter->insertTextAt(*RTB_, text, position);
}

}  // namespace nvwm
