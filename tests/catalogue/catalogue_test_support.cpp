#include "catalogue_test_support.h"

#include <sstream>

#include "host/references.h"
#include "runtime/convert.h"
#include "services/default_factories.h"
#include "support/test_data.h"

namespace nvwm::testing {

LabelDatabase::LabelDatabase() : db(std::make_shared<RecordingDatabase>(practice.service())) {
  resetLabels();
}

void LabelDatabase::resetLabels() {
  std::string fields, addressFields;
  for (int n = 1; n <= 5; ++n) {
    std::string label = ", 'Custom " + std::to_string(n) + "'";
    fields += label + label + label + label + label;
    addressFields += label + label;
  }
  std::string fieldColumns, addressColumns;
  for (int n = 1; n <= 5; ++n) {
    for (const char* stem : {"CustomName", "ApptCustomName", "RemittanceLabel", "TaskCustomName",
                             "DocketCustomName"}) {
      fieldColumns += std::string(", ") + stem + std::to_string(n);
    }
    for (const char* stem : {"ContactLabel", "CompanyLabel"}) {
      addressColumns += std::string(", ") + stem + std::to_string(n);
    }
  }
  practice.exec("DELETE FROM CustomFields; DELETE FROM CustomAddressFields;");
  practice.exec("INSERT INTO CustomFields (" + fieldColumns.substr(2) + ") VALUES (" +
                fields.substr(2) + ");");
  practice.exec("INSERT INTO CustomAddressFields (" + addressColumns.substr(2) + ") VALUES (" +
                addressFields.substr(2) + ");");
}

void LabelDatabase::setLabel(const std::string& table, const std::string& column,
                             const Variant& value) {
  std::string literal = "NULL";
  if (!value.isNull()) {
    literal = "'";
    for (char c : CStr(value)) literal += c == '\'' ? std::string("''") : std::string(1, c);
    literal += "'";
  }
  practice.exec("UPDATE " + table + " SET " + column + " = " + literal + ";");
}

void addUntouchedLabels(PracticeDb& practice) {
  std::string columns, values;
  auto add = [&](const char* stem, int n) {
    columns += std::string(columns.empty() ? "" : ", ") + stem + std::to_string(n);
    values += std::string(values.empty() ? "" : ", ") + "'Custom " + std::to_string(n) + "'";
  };
  for (const char* stem :
       {"CustomName", "ApptCustomName", "RemittanceLabel", "TaskCustomName", "DocketCustomName"}) {
    for (int n = 1; n <= 5; ++n) add(stem, n);
  }
  practice.exec("INSERT INTO CustomFields (" + columns + ") VALUES (" + values + ");");
  columns.clear();
  values.clear();
  for (const char* stem : {"ContactLabel", "CompanyLabel"}) {
    for (int n = 1; n <= 5; ++n) add(stem, n);
  }
  practice.exec("INSERT INTO CustomAddressFields (" + columns + ") VALUES (" + values + ");");
}

std::vector<ListEntry> entriesOf(const TextListBox& list) {
  std::vector<ListEntry> entries;
  for (const TextListBox::Entry& e : list.entries()) entries.push_back({e.text, e.itemData});
  return entries;
}

Variant CaretOnlyRTB::invoke(std::string_view member, std::span<const Variant>) {
  if (member != "SelStart") raise(ErrorNumber::kNoSuchMember, std::string(member));
  return selStart;
}

namespace {
class RecordingInserter : public RTBTextInserter {
 public:
  explicit RecordingInserter(std::shared_ptr<InsertionLog> log) : log_(std::move(log)) {}
  void insertTextAt(LateBoundObject&, const std::string& text, int32_t position) override {
    log_->insertions.push_back({text, position});
  }

 private:
  std::shared_ptr<InsertionLog> log_;
};
}  // namespace

void installRecordingInserter(std::shared_ptr<InsertionLog> log) {
  factories().createRTBTextInserter = [log]() -> std::shared_ptr<RTBTextInserter> {
    ++log->inserterCount;
    return std::make_shared<RecordingInserter>(log);
  };
}

std::vector<DumpedRow> dumpRows(IDList& list) {
  std::vector<DumpedRow> rows;
  for (list.moveFirst(); !list.isAtEnd(); list.moveNext()) {
    DumpedRow row{list.currentKey(), {}};
    for (int16_t c = 1; c <= 7; ++c) {
      Variant v = list.getColumn(c);
      row.columns.push_back(v.isMissing() ? "<missing>" : CStr(v));
    }
    rows.push_back(row);
  }
  return rows;
}

std::vector<std::string> displayNames(IDList& list) {
  std::vector<std::string> names;
  for (const DumpedRow& row : dumpRows(list)) names.push_back(row.columns[1]);
  return names;
}

std::vector<std::string> goldenDisplayNames(const std::string& name) {
  std::istringstream in(readTestData("tests/catalogue/data/" + name + ".tsv"));
  std::vector<std::string> names;
  for (std::string line; std::getline(in, line);) {
    // key, DatabaseField, DisplayName, ...
    size_t first = line.find('\t');
    size_t second = line.find('\t', first + 1);
    size_t third = line.find('\t', second + 1);
    names.push_back(line.substr(second + 1, third - second - 1));
  }
  return names;
}

CatalogueEnvironment::CatalogueEnvironment(Date today)
    : clock(std::make_shared<FixedClock>(today)) {
  refs.errors->action = 2;
  references().LocaleReference = locale;
  setClock(clock);
  factories() = makeDefaultServiceFactories();
}

CatalogueEnvironment::~CatalogueEnvironment() {
  setClock(nullptr);
  factories() = makeDefaultServiceFactories();
}

std::unique_ptr<clsInsertFieldsInRTB> CatalogueEnvironment::makeCatalogue() const {
  auto catalogue = std::make_unique<clsInsertFieldsInRTB>();
  catalogue->errorClassRTB(refs.errors);
  return catalogue;
}

std::unique_ptr<clsInsertFieldsInRTB> CatalogueEnvironment::build(int32_t listType,
                                                                  int32_t use) const {
  auto catalogue = makeCatalogue();
  catalogue->MergeFieldListUse(use);
  bool noList = false;
  catalogue->createDefaultFieldListStructure(listType, noList, true);
  return catalogue;
}

}  // namespace nvwm::testing
