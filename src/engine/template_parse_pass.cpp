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
// Performance: the text is folded once and its delimited spans are hashed (FoldedText), so
// asking for a placeholder that isn't there is a hash probe, not a search: a fill costs one
// probe per row and form, and a fold of the text per placeholder actually filled.
//
// A first call on an empty catalogue builds the catalogue for the IDs and returns the text
// unfilled and unblanked: the row count is read once, before the build.
#include <string>
#include <vector>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "catalogue/field_record.h"
#include "engine/data_sets.h"
#include "engine/placeholder_grammar.h"
#include "engine/template_setup.h"
#include "runtime/text.h"

namespace nvwm {
namespace {

// The one FieldType the pass compares with a capital M; no catalogue row is stored so.
constexpr const char* kDurationTypeAsTested = "Time(hrs/Min)";
constexpr const char* kClockTimeFormat = "h:Nn am/pm";

// The work text's placeholders, indexed for the catalogue walk. Reindexed after each change.
class PlaceholderIndex {
 public:
  explicit PlaceholderIndex(const std::string& text) { reindex(text); }
  bool holds(std::string_view placeholder) const { return folded_.contains(placeholder); }
  void reindex(const std::string& text) {
    folded_ = FoldedText(text);
    folded_.indexDelimited(engine::kOpenPlain, engine::kClosePlain);
    folded_.indexDelimited(engine::kOpenEscaped, engine::kCloseEscaped);
  }

 private:
  FoldedText folded_;
};

struct CatalogueRow {
  std::string displayName;
  std::string fieldType;
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

  // The rows in key order; the pass doesn't change the catalogue, so both sweeps share them.
  std::vector<CatalogueRow> rows;
  r.step([&] {
    IDList& list = *FieldListStructure_;
    rows.reserve(static_cast<size_t>(rowCount));
    for (int32_t key = 1; key <= rowCount; ++key) {
      if (!list.moveToKey(key)) continue;
      rows.push_back({engine::plainText(list.getColumn(column(FieldColumn::kDisplayName))),
                      engine::plainText(list.getColumn(column(FieldColumn::kFieldType)))});
    }
  });

  PlaceholderIndex index(work);
  std::string placeholder;
  // Fills one placeholder when the text holds it: the value is asked for only then.
  auto fill = [&](auto&& valueOf) {
    bool hit = false;
    r.step([&] { hit = index.holds(placeholder); });
    if (!hit) return;
    std::string value;
    r.step([&] { value = valueOf(); });
    r.step([&] { replaceText(work, placeholder, value, isRTF); });
    r.step([&] { index.reindex(work); });
  };
  auto dataField = [&](std::string name) {
    return getDataField(name, companyID, contactID, scheduleID, firmID, appointmentID, docketID,
                        taskID, useSampleData, isRTF);
  };
  auto dateField = [&](const std::string& name, const char* format) {
    return getDataDateField(name, format, companyID, contactID, scheduleID, firmID, appointmentID,
                            docketID, taskID, useSampleData, isRTF);
  };

  const char* const delimiters[2][2] = {{engine::kOpenPlain, engine::kClosePlain},
                                        {engine::kOpenEscaped, engine::kCloseEscaped}};
  for (const auto& [open, close] : delimiters) {
    for (const engine::DateFormatRow& form : engine::kDateFormats) {
      if (!r.running()) break;
      placeholder.assign(open)
          .append("(")
          .append(engine::kTodaysDate)
          .append(form.tail)
          .append(close);
      fill([&] { return dateField(engine::kTodaysDate, form.format); });
    }
    for (const CatalogueRow& row : rows) {
      if (!r.running()) break;
      const std::string& name = row.displayName;
      const std::string& type = row.fieldType;
      if (type == kFieldTypeDate) {
        for (const engine::DateFormatRow& form : engine::kDateFormats) {
          placeholder.assign(open).append("(").append(name).append(form.tail).append(close);
          fill([&] { return dateField(name, form.dateFieldFormat); });
        }
        continue;
      }
      placeholder.assign(open).append(name).append(close);
      if (type == kFieldTypeClockTime) {
        fill([&] { return dateField(name, kClockTimeFormat); });
      } else if (type == kFieldTypeDollars) {
        fill([&] { return engine::dollarsText(dataField(name)); });
      } else if (type == kFieldTypeYesNo) {
        fill([&] { return engine::yesNoText(dataField(name)); });
      } else if (type == kDurationTypeAsTested) {
        fill([&] { return engine::durationText(dataField(name)); });
      } else {
        fill([&] { return dataField(name); });
      }
    }
  }

  r.step([&] { replaceUnfoundMergeFieldsWithBlanks(work); });
  return work;
}

}  // namespace nvwm
