// Helpers of the catalogue tests: a practice database with label rows, controls that record the
// calls made on them by member name, and dumps of the catalogue's rows.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "host/controls.h"
#include "host/database_service.h"
#include "host/folder_service.h"
#include "runtime/clock.h"
#include "services/folder_locale.h"
#include "services/text_controls.h"
#include "support/practice_db.h"
#include "support/recording_database.h"
#include "support/test_support.h"

namespace nvwm::testing {

// A practice database (PracticeDb) whose label tables hold one row each that nobody has
// touched ("Custom 1" to "Custom 5" in every label column of "CustomFields" and
// "CustomAddressFields"), seen through a RecordingDatabase (db), which the test installs.
class LabelDatabase {
 public:
  LabelDatabase();
  // Sets one label column of a label table's row: text, or Null.
  void setLabel(const std::string& table, const std::string& column, const Variant& value);
  // Back to one untouched row in each label table.
  void resetLabels();
  PracticeDb practice;
  std::shared_ptr<RecordingDatabase> db;
};

// Inserts into a practice database one row in "CustomFields" and "CustomAddressFields" whose
// labels nobody has touched ("Custom 1" to "Custom 5" in every label column).
void addUntouchedLabels(PracticeDb& practice);

// The entries of a text-backed list box, comparable.
struct ListEntry {
  std::string text;
  int32_t itemData = 0;
  friend bool operator==(const ListEntry&, const ListEntry&) = default;
  friend std::ostream& operator<<(std::ostream& os, const ListEntry& e) {
    return os << e.itemData << " \"" << e.text << "\"";
  }
};
std::vector<ListEntry> entriesOf(const TextListBox& list);

// A rich-text control whose "SelStart" is set by the test.
class CaretOnlyRTB : public LateBoundObject {
 public:
  Variant selStart = Variant(int32_t{0});
  Variant invoke(std::string_view member, std::span<const Variant>) override;
  void put(std::string_view, std::span<const Variant>, const Variant&) override {}
};

// Records every insertion handed to any RTBTextInserter made through factories().
struct InsertionLog {
  struct Insertion {
    std::string text;
    int32_t position;
  };
  std::vector<Insertion> insertions;
  int inserterCount = 0;
};
// Installs, for the calling thread, an RTBTextInserter factory whose inserters write to log.
// CatalogueEnvironment puts the default factories back at its end.
void installRecordingInserter(std::shared_ptr<InsertionLog> log);

// One catalogue row as text, a missing column as "<missing>".
struct DumpedRow {
  int32_t key;
  std::vector<std::string> columns;  // columns 1..7 (7 only matters for the gap row)
};
std::vector<DumpedRow> dumpRows(IDList& list);
std::vector<std::string> displayNames(IDList& list);

// The display names of a golden field list, tests/catalogue/data/<name>.tsv (the output of
// `nvwordmerge fields`, which the fields_list_type_N tests check): "fields-1-canada" is the list
// of list type 1 in Ontario, "fields-4-canada" the firm's rows alone.
std::vector<std::string> goldenDisplayNames(const std::string& name);

// The environment of a catalogue build: fresh references with a recording error service, a
// host-set locale, a clock fixed on a date, and the default factories.
class CatalogueEnvironment {
 public:
  explicit CatalogueEnvironment(Date today = Date::fromYmd(2026, 3, 15));
  ~CatalogueEnvironment();
  ScopedReferences refs;
  std::shared_ptr<HostLocale> locale = std::make_shared<HostLocale>();
  std::shared_ptr<FixedClock> clock;
  // A catalogue object with errorClassRTB set to the recording error service.
  std::unique_ptr<clsInsertFieldsInRTB> makeCatalogue() const;
  // Builds listType on a new object; no list box. Returns the object.
  std::unique_ptr<clsInsertFieldsInRTB> build(int32_t listType, int32_t use = 1) const;
};

}  // namespace nvwm::testing
