// Field name translation: between the DisplayName a user types, the DatabaseField of the data
// sets, and the escaped form of a placeholder in RTF.
//
// The catalogue is searched with the IDList's findRow, which ignores case; a name is never
// trimmed. Not found is no failure: the name comes back as it was given.
#include "catalogue/cls_insert_fields_in_rtb.h"
#include "engine/placeholder_grammar.h"
#include "engine/text_rules.h"
#include "host/routine.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace nvwm {

namespace engine {

std::string toEscapedDelimiters(std::string_view text) {
  std::string escaped = Replace(text, kOpenPlain, kOpenEscaped, 1, -1, CompareMode::kText);
  return Replace(escaped, kClosePlain, kCloseEscaped, 1, -1, CompareMode::kText);
}

}  // namespace engine

namespace {

// Column `give` of the first row whose column `find` holds the value, or the value itself.
std::string otherColumn(IDList& list, FieldColumn find, FieldColumn give,
                        const std::string& value) {
  if (list.findRow(column(find), value) < 0) return value;
  return CStr(list.getColumn(column(give)));
}

}  // namespace

std::string clsInsertFieldsInRTB::convertFieldName(std::string text) {
  std::string result;
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-convertFieldName", errorService());
  r.step([&] { result = engine::toEscapedDelimiters(text); });
  return result;
}

bool clsInsertFieldsInRTB::testStr(std::string& name) {
  bool valid = false;
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-testStr", errorService());
  r.step([&] {
    // The pseudo field has no row: it is filled by the parse pass itself.
    if (UCase(name) == UCase(engine::kTodaysDate)) {
      valid = true;
      r.exit();
    }
  });
  r.step(
      [&] { valid = FieldListStructure_->findRow(column(FieldColumn::kDisplayName), name) >= 0; });
  return valid;
}

std::string clsInsertFieldsInRTB::getDBFieldFromEnglishField(std::string& displayName) {
  std::string result = displayName;
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-getDBFieldFromEnglishField", errorService());
  r.step([&] {
    result = otherColumn(*FieldListStructure_, FieldColumn::kDisplayName,
                         FieldColumn::kDatabaseField, displayName);
  });
  return result;
}

// When several rows share a DatabaseField, as the catalogue's families do, the first added wins.
std::string clsInsertFieldsInRTB::getEnglishFieldFromDBField(std::string& databaseField) {
  std::string result = databaseField;
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-getEnglishFieldFromDBField", errorService());
  r.step([&] {
    result = otherColumn(*FieldListStructure_, FieldColumn::kDatabaseField,
                         FieldColumn::kDisplayName, databaseField);
  });
  return result;
}

}  // namespace nvwm
