// parseRTBComment: fills a template's placeholders from the practice database.
//
// The pass is driven by the catalogue, not by the template. After the province normaliser and
// the company-name swap, it walks the catalogue rows in key order, twice: first with the plain
// delimiters « », then with the escaped ones \'ab \'bb. Each sweep first tries the fourteen
// date forms of "Todays Date", then for each row the forms its FieldType allows:
//
//   "Date"               the fourteen "«(Name, format)»" forms; the bare «Name» isn't filled
//   "Time(h:Nn am/pm)"   «Name», the time printed "h:Nn am/pm"
//   "Dollars"            «Name», "$#,##0.00;$-#,##0.00"
//   "Yes/No"             «Name», "Yes" or "No"
//   "Time(hrs/Min)"      «Name», hours as a duration text. Compared exactly, so the
//                        catalogue's "Time(hrs/min)" rows fall to the next line and print the
//                        stored number (getMergeDataField compares in upper case and formats)
//   anything else        «Name», the value as it comes
//
// A placeholder is looked for as a whole, ignoring case, and its value is read only when it
// stands in the text; replaceText then replaces every occurrence. Later rows see the text the
// earlier ones left, so a value that holds a placeholder is filled in turn. What is left at the
// end is blanked.
//
// Performance: the text's placeholders are indexed once (engine/placeholder_index.h), so
// asking for one that isn't there is a hash look-up, not a search: the walk costs a look-up
// per row (the fourteen date forms only for a date name the text holds), and the index is
// rebuilt, by one scan of the text, only after a placeholder was actually filled.
//
// A first call on an empty catalogue builds the catalogue for the IDs and returns the text
// unfilled and unblanked: the row count is read once, before the build.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "catalogue/field_record.h"
#include "engine/data_sets.h"
#include "engine/placeholder_grammar.h"
#include "engine/placeholder_index.h"
#include "engine/template_setup.h"
#include "runtime/text.h"

namespace nvwm {
namespace {

// The one FieldType the pass compares with a capital M; no catalogue row is stored so.
constexpr const char* kDurationTypeAsTested = "Time(hrs/Min)";
constexpr const char* kClockTimeFormat = "h:Nn am/pm";

// How the pass fills a row, by its FieldType.
enum class Fill : uint8_t { kDateForms, kClockTime, kDollars, kYesNo, kDuration, kAsItComes };

Fill fillOf(std::string_view fieldType) {
  if (fieldType == kFieldTypeDate) return Fill::kDateForms;
  if (fieldType == kFieldTypeClockTime) return Fill::kClockTime;
  if (fieldType == kFieldTypeDollars) return Fill::kDollars;
  if (fieldType == kFieldTypeYesNo) return Fill::kYesNo;
  if (fieldType == kDurationTypeAsTested) return Fill::kDuration;
  return Fill::kAsItComes;
}

// The catalogue rows in key order, read once for both sweeps (the pass doesn't change the
// catalogue). Names and their foldings stand one after the other in one buffer.
class CatalogueRows {
 public:
  struct Row {
    uint32_t name, nameLength, folded, foldedLength;
    Fill fill;
  };
  void add(std::string_view displayName, std::string_view fieldType) {
    Row row{};
    row.name = static_cast<uint32_t>(text_.size());
    row.nameLength = static_cast<uint32_t>(displayName.size());
    text_.append(displayName);
    row.folded = static_cast<uint32_t>(text_.size());
    foldCaseAppend(displayName, text_);
    row.foldedLength = static_cast<uint32_t>(text_.size() - row.folded);
    row.fill = fillOf(fieldType);
    rows_.push_back(row);
  }
  const std::vector<Row>& rows() const { return rows_; }
  std::string_view name(const Row& row) const {
    return std::string_view(text_).substr(row.name, row.nameLength);
  }
  std::string_view folded(const Row& row) const {
    return std::string_view(text_).substr(row.folded, row.foldedLength);
  }
  void reserve(size_t rows) {
    rows_.reserve(rows);
    text_.reserve(rows * 48);
  }

 private:
  std::string text_;
  std::vector<Row> rows_;
};

}  // namespace

std::string clsInsertFieldsInRTB::parseRTBComment(std::string templateText, int32_t& companyID,
                                                  int32_t& contactID, int32_t& scheduleID,
                                                  int32_t& firmID, int32_t& appointmentID,
                                                  int32_t& docketID, int32_t& taskID,
                                                  bool& useSampleData, bool& isRTF,
                                                  bool& useContactForMissingCompany) {
  Routine r(engine::routineTag("parseRTBComment"), errorService());
  std::string work;
  r.step([&] { work = convertProvinceFields(std::move(templateText)); });
  r.step([&] {
    if (engine::companyNameSwapApplies(useContactForMissingCompany, companyID, contactID)) {
      engine::swapCompanyNameForContactName(work);
    }
  });

  int32_t rowCount = 0;
  r.step([&] { rowCount = FieldListStructure_->getRowCount(); });
  if (rowCount < 1) {
    r.step([&] {
      engine::buildCatalogueForRecordIDs(
          *this, {companyID, contactID, scheduleID, firmID, appointmentID, docketID, taskID});
    });
    return work;
  }

  CatalogueRows rows;
  r.step([&] {
    IDList& list = *FieldListStructure_;
    rows.reserve(static_cast<size_t>(rowCount));
    auto text = [](const Variant& v) {
      return v.isString() ? std::string_view(v.stringValue()) : std::string_view();
    };
    for (int32_t key = 1; key <= rowCount; ++key) {
      if (!list.moveToKey(key)) continue;
      const Variant name = list.getColumn(column(FieldColumn::kDisplayName));
      const Variant type = list.getColumn(column(FieldColumn::kFieldType));
      if (name.isString() && type.isString()) {
        rows.add(text(name), text(type));
      } else {
        rows.add(engine::plainText(name), engine::plainText(type));
      }
    }
  });

  // Folded once for the whole walk: each replacement keeps the folding up to date.
  FoldedText folded(std::move(work));
  engine::PlaceholderIndex index(folded.text());
  std::string placeholder;
  std::string key;  // the folded text between the delimiters of `placeholder`
  // Fills `placeholder`, which the text holds: the value is asked for only now.
  auto fill = [&](engine::DelimiterForm form, auto&& valueOf) {
    std::string value;
    r.step([&] { value = valueOf(); });
    bool failed = true;
    r.step([&] { failed = replaceFoldedText(folded, placeholder, value, isRTF); });
    r.step([&] {
      if (failed || !index.replaced(form, key, value)) index.rebuild(folded.text());
    });
  };
  auto dataField = [&](std::string name) {
    return getDataField(name, companyID, contactID, scheduleID, firmID, appointmentID, docketID,
                        taskID, useSampleData, isRTF);
  };
  auto dateField = [&](const std::string& name, const char* format) {
    return getDataDateField(name, format, companyID, contactID, scheduleID, firmID, appointmentID,
                            docketID, taskID, useSampleData, isRTF);
  };

  const std::string todaysDate = engine::kTodaysDate;
  const std::string foldedTodaysDate = foldCase(todaysDate);
  // The date forms of a name, in the order of the table, each filled when the text holds it.
  auto fillDateForms = [&](engine::DelimiterForm form, const char* open, const char* close,
                           std::string_view nameView, std::string_view foldedName, bool todays) {
    if (!index.holdsDateOf(form, foldedName)) return;
    const std::string name(nameView);
    for (const engine::DateFormatRow& row : engine::kDateFormats) {
      if (!r.running()) return;
      key.assign("(").append(foldedName).append(row.tail);
      if (!index.holds(form, key)) continue;
      placeholder.assign(open).append("(").append(name).append(row.tail).append(close);
      fill(form, [&] { return dateField(name, todays ? row.format : row.dateFieldFormat); });
    }
  };

  struct Sweep {
    engine::DelimiterForm form;
    const char* open;
    const char* close;
  };
  for (const Sweep& sweep :
       {Sweep{engine::DelimiterForm::kPlain, engine::kOpenPlain, engine::kClosePlain},
        Sweep{engine::DelimiterForm::kEscaped, engine::kOpenEscaped, engine::kCloseEscaped}}) {
    fillDateForms(sweep.form, sweep.open, sweep.close, todaysDate, foldedTodaysDate, true);
    for (const CatalogueRows::Row& row : rows.rows()) {
      if (!r.running() || index.empty(sweep.form)) break;
      if (row.fill == Fill::kDateForms) {
        fillDateForms(sweep.form, sweep.open, sweep.close, rows.name(row), rows.folded(row), false);
        continue;
      }
      key.assign(rows.folded(row));
      if (!index.holds(sweep.form, key)) continue;
      const std::string name(rows.name(row));
      placeholder.assign(sweep.open).append(name).append(sweep.close);
      switch (row.fill) {
        case Fill::kClockTime:
          fill(sweep.form, [&] { return dateField(name, kClockTimeFormat); });
          break;
        case Fill::kDollars:
          fill(sweep.form, [&] { return engine::dollarsText(dataField(name)); });
          break;
        case Fill::kYesNo:
          fill(sweep.form, [&] { return engine::yesNoText(dataField(name)); });
          break;
        case Fill::kDuration:
          fill(sweep.form, [&] { return engine::durationText(dataField(name)); });
          break;
        default:
          fill(sweep.form, [&] { return dataField(name); });
      }
    }
  }

  work = folded.release();
  r.step([&] { replaceUnfoundMergeFieldsWithBlanks(work); });
  return work;
}

}  // namespace nvwm
