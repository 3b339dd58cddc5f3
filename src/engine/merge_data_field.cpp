// getMergeDataField: the value of one placeholder expression without a template around it.
//
// An expression is a placeholder ("«Company Name»", "«(Task Due Date, mmmm d yyyy)»") or what
// stands between its delimiters ("Company Name", "(Task Due Date, mmmm d yyyy)"). It is taken
// apart, not matched: with a round bracket anywhere it is formatted, and the first comma splits
// the name from the format, which may be any format at all.
//
// FieldType is compared in upper case here, so the catalogue's "Time(hrs/min)" rows are
// formatted, unlike in the parse pass. On the middle four lines of the type table the value
// routine is called with an empty name, as the product always has: a time or dollar field gives
// "", and a Yes/No or duration field raises the conversion error. Only "Date" fields and plain
// fields give data. After an error the result is the work text as it stood.
#include <string>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "catalogue/field_record.h"
#include "engine/data_sets.h"
#include "engine/placeholder_grammar.h"
#include "engine/template_setup.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace nvwm {

std::string clsInsertFieldsInRTB::getMergeDataField(std::string expression, int32_t companyID,
                                                    int32_t contactID, int32_t scheduleID,
                                                    int32_t firmID, int32_t appointmentID,
                                                    int32_t docketID, int32_t taskID,
                                                    bool& useSampleData, bool& isRTF,
                                                    bool& useContactForMissingCompany) {
  Routine r(engine::routineTag("getMergeDataField"), errorService());
  std::string work;
  bool isNull = false;
  r.step([&] { isNull = engine::isNullValue(Variant(expression)); });
  if (isNull || !r.running()) return work;

  r.step([&] { work = convertProvinceFields(expression); });
  r.step([&] {
    if (engine::companyNameSwapApplies(useContactForMissingCompany, companyID, contactID)) {
      engine::swapCompanyNameForContactName(work);
    }
  });
  r.step([&] {
    for (const char* delimiter :
         {engine::kOpenPlain, engine::kOpenEscaped, engine::kClosePlain, engine::kCloseEscaped}) {
      work = Replace(work, delimiter, "", 1, -1, CompareMode::kText);
    }
  });

  auto dataField = [&](std::string name) {
    return getDataField(name, companyID, contactID, scheduleID, firmID, appointmentID, docketID,
                        taskID, useSampleData, isRTF);
  };
  auto dateField = [&](const std::string& name, const std::string& format) {
    return getDataDateField(name, format, companyID, contactID, scheduleID, firmID, appointmentID,
                            docketID, taskID, useSampleData, isRTF);
  };
  IDList& list = *FieldListStructure_;

  const bool formatted = work.find('(') != std::string::npos || work.find(')') != std::string::npos;
  std::string fieldName, format;
  if (formatted) {
    r.step([&] {
      work = Replace(Replace(work, "(", ""), ")", "");
      const size_t comma = work.find(',');
      if (comma != std::string::npos) {
        fieldName = Trim(std::string_view(work).substr(0, comma));
        format = Trim(std::string_view(work).substr(comma + 1));
      }
    });
    bool noName = false;
    r.step([&] { noName = engine::isNullValue(Variant(fieldName)); });
    if (noName) return "";
    if (r.running() && UCase(fieldName) == "TODAYS DATE") {
      r.step([&] { work = dateField(engine::kTodaysDate, format); });
      return work;
    }
    r.step([&] {
      if (list.getRowCount() < 1) {
        engine::buildCatalogueForRecordIDs(
            *this, {companyID, contactID, scheduleID, firmID, appointmentID, docketID, taskID});
      }
    });
  } else {
    fieldName = work;
    // The bare "Todays Date" takes the long form; a catalogue date below the short one.
    format = "mmm d yyyy";
    if (r.running() && UCase(work) == "TODAYS DATE") {
      r.step([&] { work = dateField(engine::kTodaysDate, "mmmm d yyyy"); });
      return work;
    }
  }

  bool found = false;
  std::string upperType;
  r.step([&] {
    found = list.findRow(column(FieldColumn::kDisplayName), Variant(fieldName)) >= 0;
    if (found)
      upperType = UCase(engine::plainText(list.getColumn(column(FieldColumn::kFieldType))));
  });
  if (!r.running()) return work;
  if (!found) return "";

  r.step([&] {
    if (upperType == UCase(kFieldTypeDate)) {
      work = dateField(fieldName, format);
    } else if (upperType == UCase(kFieldTypeClockTime)) {
      work = dateField("", "h:Nn am/pm");
    } else if (upperType == UCase(kFieldTypeDollars)) {
      work = engine::dollarsText(dataField(""));
    } else if (upperType == UCase(kFieldTypeYesNo)) {
      work = engine::yesNoText(dataField(""));
    } else if (upperType == UCase(kFieldTypeDuration)) {
      work = engine::durationText(dataField(""));
    } else {
      work = dataField(fieldName);
    }
  });
  return work;
}

}  // namespace nvwm
