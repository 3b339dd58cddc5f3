// getDataDateField: a date or time of the practice database as formatted text, and
// getTimeDurationFieldValue, the span between two times as text.
//
// The record is found exactly as getDataField finds it (engine/data_sets.h); what differs is
// the value: the column is printed with the caller's date format when it holds a date, and
// gives "" when it doesn't. None of getDataField's computed fields exist here. "Todays Date"
// is the pseudo field of every template; it has no catalogue row, and without a connection it
// prints only in a preview (useSampleData), since its test stands behind the connection test.
#include <cstdlib>
#include <string>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "engine/data_sets.h"
#include "host/utilities.h"
#include "runtime/clock.h"
#include "runtime/convert.h"
#include "runtime/datetime_functions.h"
#include "runtime/format.h"
#include "runtime/text.h"

namespace nvwm {

std::string clsInsertFieldsInRTB::getDataDateField(std::string displayName, std::string format,
                                                   int32_t& companyID, int32_t& contactID,
                                                   int32_t& scheduleID, int32_t& firmID,
                                                   int32_t& appointmentID, int32_t& docketID,
                                                   int32_t& taskID, bool& useSampleData,
                                                   bool& isRTF) {
  Routine r(engine::routineTag("getDataDateField"), errorService());
  std::string value;
  IDList& list = *FieldListStructure_;
  const int16_t kName = column(FieldColumn::kDisplayName);
  const bool todaysDate = UCase(displayName) == "TODAYS DATE";

  if (useSampleData) {
    r.step([&] {
      if (todaysDate) {
        value = formatDate(Today(), format);
      } else if (list.findRow(kName, Variant(displayName)) >= 0) {
        // A sample that isn't a date raises 13 here.
        value = formatDate(CDate(list.getColumn(column(FieldColumn::kSampleValue))), format);
      }
    });
  } else {
    bool connected = false;
    r.step([&] { connected = engine::databaseConnected(); });
    if (connected && todaysDate) {
      r.step([&] { value = formatDate(Today(), format); });
    } else if (connected) {
      bool rowFound = false;
      std::string databaseField, category;
      r.step(
          [&] { rowFound = engine::findCatalogueRow(list, displayName, databaseField, category); });
      if (rowFound && r.running()) {
        const engine::RecordIDs ids{companyID,     contactID, scheduleID, firmID,
                                    appointmentID, docketID,  taskID};
        engine::DataSets sets = dataSets();
        const engine::FieldRecord record = engine::findFieldRecord(r, sets, category, ids);
        if (record.found) {
          DatabaseService& db = engine::database();
          const Variant name(databaseField);
          bool isDate = false;
          r.step([&] { isDate = IsDate(db.getField(record.readFrom, name)); });
          r.step([&] {
            if (isDate) value = formatDate(CDate(db.getField(record.readFrom, name)), format);
          });
        }
      }
    }
  }

  r.step([&] {
    if (engine::isNullValue(Variant(value))) {
      value.clear();
    } else if (isRTF) {
      value = convertToRTF(value);
    }
  });
  return value;
}

std::string clsInsertFieldsInRTB::getTimeDurationFieldValue(Variant& from, Variant& to) {
  Routine r(engine::routineTag("getTimeDurationFieldValue"), errorService());
  std::string text;
  int32_t minutes = 0;
  // Minute boundaries crossed, whichever of the two comes first.
  r.step([&] {
    minutes = CLng(static_cast<double>(std::llabs(DateDiff("n", CDate(from), CDate(to)))));
  });
  r.step([&] { text = engine::dateUtility().minutesToDurationText(minutes); });
  return text;
}

}  // namespace nvwm
