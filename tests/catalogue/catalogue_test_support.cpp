#include "catalogue_test_support.h"

#include "host/references.h"
#include "services/default_factories.h"
#include "runtime/convert.h"

namespace nvwm::testing {

void FakeLabelDatabase::addUntouchedLabels() {
  Row fields, addressFields;
  for (int n = 1; n <= 5; ++n) {
    std::string label = "Custom " + std::to_string(n);
    for (const char* stem : {"CustomName", "ApptCustomName", "RemittanceLabel", "TaskCustomName",
                             "DocketCustomName"}) {
      fields[stem + std::to_string(n)] = Variant(label);
    }
    for (const char* stem : {"ContactLabel", "CompanyLabel"}) {
      addressFields[stem + std::to_string(n)] = Variant(label);
    }
  }
  tables["SELECT CustomFields.* FROM CustomFields;"] = {fields};
  tables["SELECT CustomAddressFields.* FROM CustomAddressFields;"] = {addressFields};
}

Handle FakeLabelDatabase::openRecordset(const std::string& sql, int32_t, int32_t, bool,
                                        const std::string&, bool) {
  Handle h = next_++;
  open_[h] = sql;
  return h;
}

const std::vector<FakeLabelDatabase::Row>& FakeLabelDatabase::rows(Handle h) {
  static const std::vector<Row> kNone;
  auto o = open_.find(h);
  if (o == open_.end()) raise(ErrorNumber::kDatabaseError, "recordset not open");
  auto t = tables.find(o->second);
  return t == tables.end() ? kNone : t->second;
}

Variant FakeLabelDatabase::getField(Handle h, const Variant& name) {
  const std::vector<Row>& r = rows(h);
  if (r.empty()) raise(ErrorNumber::kDatabaseError, "no current record");
  auto cell = r.front().find(CStr(name));
  if (cell == r.front().end()) raise(ErrorNumber::kDatabaseError, "item not found");
  return cell->second;
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
