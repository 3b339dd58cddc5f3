// Helpers of the catalogue tests: a database of label tables, controls that record the calls made
// on them by member name, and dumps of the catalogue's rows.
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

// A connected database of label tables only: each SQL text the test registers gives its rows;
// any other text opens an empty recordset. Handles count from 1; closing is recorded by the
// RecordingDatabase around it.
class FakeLabelDatabase : public DatabaseService {
 public:
  using Row = std::map<std::string, Variant>;
  bool connected = true;
  std::map<std::string, std::vector<Row>> tables;  // by SQL text
  // One row in "CustomFields" and "CustomAddressFields" whose labels nobody has touched
  // ("Custom 1" to "Custom 5" in every label column).
  void addUntouchedLabels();

  int32_t getRecordCount(Handle h) override { return static_cast<int32_t>(rows(h).size()); }
  bool isEmptyRecordset(Handle h) override { return rows(h).empty(); }
  bool isRecordsetOpen(Handle h) override { return open_.count(h) > 0; }
  bool isEOF(Handle h) override { return rows(h).empty(); }
  bool isConnected() override { return connected; }
  Handle openRecordset(const std::string& sql, int32_t, int32_t, bool, const std::string&,
                       bool) override;
  void closeRecordset(Handle h) override { open_.erase(h); }
  int32_t getRecordPosition(Handle) override { return 0; }
  int32_t setRecordPosition(Handle, int32_t) override { return 0; }
  bool hasRecords(Handle h) override { return !rows(h).empty(); }
  void moveNext(Handle) override {}
  Variant getField(Handle h, const Variant& name) override;
  void setField(Handle, const std::string&, const std::string&, const std::string&, bool) override {
    raise(ErrorNumber::kDatabaseError, "read-only");
  }
  void addNewRecord(Handle) override { raise(ErrorNumber::kDatabaseError, "read-only"); }
  void setNewField(Handle, const std::string&, const Variant&) override {
    raise(ErrorNumber::kDatabaseError, "read-only");
  }
  void updateRecord(Handle) override { raise(ErrorNumber::kDatabaseError, "read-only"); }
  bool findRecord(Handle, const std::string&, const Variant&) override { return false; }
  Handle filterRecordset(Handle, const std::string&) override {
    raise(ErrorNumber::kDatabaseError, "not here");
  }
  std::string getSQLDateString(const Date&) override { return ""; }

 private:
  const std::vector<Row>& rows(Handle h);
  std::map<Handle, std::string> open_;
  Handle next_ = 1;
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
