// The shared ways in which every field list adds to the catalogue and to a list box: a field
// row, a header, a block of rows from its table, a custom block from its line of the
// custom-block tables. Each statement is one step of the calling builder's routine, so that an
// error service answering "resume next" goes on with the following statement.
//
// The list control is driven late bound: "AddItem" (text), "NewIndex" (read), "ItemData" (put
// at an index), "Refresh", "Clear". Headers and separators carry ItemData -1 and have no row.
//
// The firm's country (and, for the accounting rows, its province) is read once per block, and
// the words that follow them are chosen afresh at each build.
#include <string>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "catalogue/field_list_rows.h"
#include "catalogue/province_words.h"
#include "host/references.h"
#include "host/routine.h"
#include "runtime/clock.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/format.h"

namespace nvwm {

using catalogue::CustomBlockSpec;
using catalogue::FieldBlockSpec;
using catalogue::FieldRowSpec;
using catalogue::Only;
using catalogue::Sample;

namespace {

constexpr int16_t kCustomFieldSize = 255;
constexpr int kCustomRows = 5;

LocaleService& locale() {
  return requireReference(references().LocaleReference, "LocaleReference");
}

DatabaseService* connectedDatabase() {
  DatabaseService* db = references().DatabaseReference.get();
  return db != nullptr && db->isConnected() ? db : nullptr;
}

std::string sampleText(const Sample& sample) {
  constexpr const char* kSampleDateFormat = "mmm d, yyyy";
  switch (sample.kind) {
    case Sample::Kind::kText:
      return sample.text;
    case Sample::Kind::kTextThenYear:
      return sample.text + std::to_string(Today().year());
    case Sample::Kind::kDateThisYear:
      return Format(Variant(Date::fromYmd(Today().year(), sample.month, sample.day)),
                    kSampleDateFormat);
    case Sample::Kind::kFixedDate:
      return Format(Variant(Date::fromYmd(sample.year, sample.month, sample.day)),
                    kSampleDateFormat);
    case Sample::Kind::kYear:
      return std::to_string(Today().year());
  }
  return "";
}

// What a row's condition is tested against; read once per block.
struct Conditions {
  int32_t country = 1;
  int32_t province = 3;
  bool use2 = false;
  bool needsProvince = false;
};

bool offered(Only only, const Conditions& c) {
  switch (only) {
    case Only::kAlways:
      return true;
    case Only::kUse2:
      return c.use2;
    case Only::kNotUse2:
      return !c.use2;
    case Only::kCountry1:
      return c.country == 1;
    case Only::kCountry1NotUse2:
      return c.country == 1 && !c.use2;
    case Only::kOtherCountry:
      return c.country != 1;
    case Only::kProvince3:
      return c.province == 3;
    case Only::kProvince8:
      return c.province == 8;
    case Only::kProvinceNot8:
      return c.province != 8;
  }
  return false;
}

void replaceAll(std::string& text, std::string_view word, const std::string& by) {
  for (size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + by.size())) {
    text.replace(at, word.size(), by);
  }
}

std::string displayName(const char* pattern, const catalogue::ProvinceWords* words) {
  std::string name = pattern;
  if (words == nullptr || name.find('{') == std::string::npos) return name;
  replaceAll(name, "{TAX1}", words->firstTax);
  replaceAll(name, "{TAX2}", words->secondTax);
  replaceAll(name, "{BOARD}", words->board);
  replaceAll(name, "{SHORT}", words->shortName);
  return name;
}

bool usesProvinceWords(const FieldBlockSpec& block) {
  for (const FieldRowSpec& row : block.rows) {
    if (std::string_view(row.displayName).find('{') != std::string_view::npos) return true;
    if (row.only == Only::kProvince3 || row.only == Only::kProvince8 ||
        row.only == Only::kProvinceNot8) {
      return true;
    }
  }
  return false;
}

}  // namespace

void clsInsertFieldsInRTB::addListEntry(LateBoundObject& list, const std::string& text,
                                        int32_t itemData) {
  const Variant item[] = {Variant(text)};
  list.invoke("AddItem", item);
  const Variant index[] = {list.invoke("NewIndex")};
  list.put("ItemData", index, Variant(itemData));
}

void clsInsertFieldsInRTB::addFieldRow(Routine& r, const ListTarget& list,
                                       const IDList::Row& columns, const std::string& listText) {
  r.step([&] {
    if (FieldCounter_ == INT32_MAX) raise(ErrorNumber::kOverflow, "FieldCounter");
    ++FieldCounter_;
  });
  r.step([&] { FieldListStructure_->addRow(FieldCounter_, columns); });
  r.step([&] {
    if (list.noList) return;
    if (list.control == nullptr) raise(ErrorNumber::kObjectVariableNotSet, "list box");
    addListEntry(*list.control, listText, FieldCounter_);
  });
}

void clsInsertFieldsInRTB::addHeader(Routine& r, const ListTarget& list, const char* header,
                                     bool withSeparator) {
  r.step([&] {
    if (list.noList || !ShowListCategoryHeaders_) return;
    if (list.control == nullptr) raise(ErrorNumber::kObjectVariableNotSet, "list box");
    if (withSeparator) addListEntry(*list.control, "", -1);
    addListEntry(*list.control, header, -1);
  });
}

void clsInsertFieldsInRTB::addRows(Routine& r, const ListTarget& list,
                                   const FieldBlockSpec& block) {
  Conditions c;
  catalogue::ProvinceWords words;
  bool withWords = usesProvinceWords(block);
  r.step([&] {
    c.use2 = MergeFieldListUse_ == kListUseAssignment;
    c.country = locale().getCountryCode();
  });
  if (withWords) {
    r.step([&] {
      c.province = locale().getProvinceCode();
      words = catalogue::provinceWords(c.province, Today());
    });
  }
  for (const FieldRowSpec& row : block.rows) {
    if (!r.running()) return;
    if (!offered(row.only, c)) continue;
    std::string name = displayName(row.displayName, withWords ? &words : nullptr);
    std::string sample;
    r.step([&] { sample = sampleText(row.sample); });
    IDList::Row columns = {Variant(row.databaseField), Variant(name), Variant(block.category),
                           Variant(row.fieldType), Variant(sample)};
    if (row.fieldSize != catalogue::kSizeAbsent) columns.emplace_back(row.fieldSize);
    addFieldRow(r, list, columns, row.listText != nullptr ? row.listText : name);
  }
}

void clsInsertFieldsInRTB::addCustomBlock(Routine& r, const ListTarget& list,
                                          const CustomBlockSpec& block) {
  auto numbered = [](const char* stem, int n) { return std::string(stem) + std::to_string(n); };
  auto row = [&](int n, const std::string& display) {
    return IDList::Row{Variant(numbered(block.databaseFieldStem, n)),
                       Variant(display),
                       Variant(block.category),
                       Variant(kFieldTypeText),
                       Variant(numbered(block.sampleStem, n)),
                       Variant(kCustomFieldSize)};
  };

  DatabaseService* db = nullptr;
  r.step([&] { db = connectedDatabase(); });
  if (!r.running()) return;

  if (db == nullptr) {
    // The default rows. The first one has a gap kept from the product: column 5 missing, the
    // sample in column 6 and the size in column 7, so its preview finds no sample.
    for (int n = 1; n <= kCustomRows && r.running(); ++n) {
      std::string display = block.displayPrefix + numbered(block.defaultTextStem, n);
      IDList::Row columns = row(n, display);
      if (n == 1) {
        columns[4] = Variant::missing();
        columns.resize(5);
        columns.emplace_back(numbered(block.sampleStem, n));
        columns.emplace_back(kCustomFieldSize);
      }
      if (n == kCustomRows && block.fifthDefaultStoredName != nullptr) {
        columns[1] = Variant(block.fifthDefaultStoredName);  // the list still shows `display`
      }
      addFieldRow(r, list, columns, display);
    }
    return;
  }

  Handle labels = kNoHandle;
  bool hasLabels = true;
  r.step([&] {
    labels = db->openRecordset(block.labelQuery, kCursorKeyset, kLockReadOnly, true, "", true);
  });
  if (block.testHasRecords) r.step([&] { hasLabels = db->hasRecords(labels); });
  if (hasLabels) {
    for (int n = 1; n <= kCustomRows && r.running(); ++n) {
      std::string label;
      r.step(
          [&] { label = CStr(db->getField(labels, Variant(numbered(block.labelColumnStem, n)))); });
      r.step([&] {
        if (!label.empty() && label.back() == ':') label.pop_back();
      });
      r.step([&] {
        // The label nobody has touched falls back to the default text.
        if (label == numbered("Custom ", n)) label = numbered(block.defaultTextStem, n);
      });
      std::string display = block.displayPrefix + label;
      addFieldRow(r, list, row(n, display), display);
    }
  }
  r.step([&] { db->closeRecordset(labels); });
}

void clsInsertFieldsInRTB::refreshList(Routine& r, LateBoundObject& control) {
  r.step([&] { control.invoke("Refresh"); });
  r.step([&] {
    if (MessagePump* pump = references().messagePump.get()) {
      pump->processPendingMessages();
      pump->processPendingMessages();
    }
  });
}

}  // namespace nvwm
