// "fields": prints the merge-field catalogue that a build for one list type gives, so that a
// template author can see which names may be typed between « and ».
//
//   nvwordmerge fields --list-type N [--use 1|2|3] [--country C --province P] [--db FILE]
//                      [--date YYYY-MM-DD] [--list-box]
//
// One row per line, tab-separated: key, DatabaseField, DisplayName, Category, FieldType,
// SampleValue, FieldSize (a missing column printed empty). With --list-box: the entries of the
// list box instead, text and ItemData. Without --db the build runs as with no connection (the
// custom fields get their default names). --date stands for today (the tax names change on
// 1 July 2010; samples carry the current year).
#include <cstdio>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "cli/commands.h"
#include "host/references.h"
#include "runtime/clock.h"
#include "runtime/convert.h"
#include "services/folder_locale.h"
#include "services/logging_error_service.h"
#include "services/sqlite/sqlite_database.h"
#include "services/text_controls.h"

namespace nvwm::cli {
namespace {

std::string cell(const Variant& v) { return v.isMissing() || v.isEmpty() ? "" : CStr(v); }

void printCatalogue(IDList& list) {
  for (list.moveFirst(); !list.isAtEnd(); list.moveNext()) {
    std::string line = std::to_string(list.currentKey());
    for (int16_t c = column(FieldColumn::kDatabaseField); c <= column(FieldColumn::kFieldSize);
         ++c) {
      line += '\t' + cell(list.getColumn(c));
    }
    std::cout << line << '\n';
  }
}

struct FieldsOptions {
  int32_t listType = 1;
  int32_t use = 1;
  int32_t country = 1;
  int32_t province = 3;
  std::string db;
  std::string date;
  bool listBox = false;
};

int runFields(const FieldsOptions& o) {
  LibraryReferences& refs = references();
  // Errors go to stderr, so that stdout holds the catalogue alone.
  auto errors = useStderrErrorService("fields");
  refs.LocaleReference = std::make_shared<HostLocale>(o.country, o.province);
  if (!o.date.empty()) {
    std::optional<Date> today = parseIsoDate(o.date);
    if (!today) {
      std::cerr << "fields: --date wants YYYY-MM-DD, got \"" << o.date << "\"\n";
      return 2;
    }
    setClock(std::make_shared<FixedClock>(*today));
  }
  if (!o.db.empty()) {
    auto db = std::make_shared<SqliteDatabase>(o.db);
    if (!db->isConnected()) {
      std::cerr << "fields: cannot open the practice database \"" << o.db << "\"\n";
      return 2;
    }
    refs.DatabaseReference = db;
  }

  clsInsertFieldsInRTB catalogue;
  catalogue.errorClassRTB(errors);
  catalogue.MergeFieldListUse(o.use);
  std::shared_ptr<TextListBox> listBox;
  if (o.listBox) {
    listBox = std::make_shared<TextListBox>();
    catalogue.ListBox(listBox);
  }
  // As a merge opens them: the client sets and the firm's, for this list type.
  catalogue.initializeDataRecordsets(o.listType, false, -1, true, true, true, true, true, -1, -1);
  if (o.listBox) {
    std::cout << listBox->text();
  } else {
    printCatalogue(*catalogue.FieldListStructure());
  }
  return errors->lastError() ? 1 : 0;
}

}  // namespace

void registerFields(CLI::App& app) {
  auto options = std::make_shared<FieldsOptions>();
  auto* cmd = app.add_subcommand("fields", "Prints the merge fields a list type offers");
  cmd->add_option("--list-type", options->listType, "Kind of record (mergeInfo2): 1 to 8")
      ->required();
  cmd->add_option("--use", options->use, "MergeFieldListUse: 1 templates, 2 assignment, 3")
      ->check(CLI::Range(1, 3));
  cmd->add_option("--country", options->country, "The firm's country code (1 Canada)");
  cmd->add_option("--province", options->province, "The firm's province code (3 Ontario)");
  cmd->add_option("--db", options->db, "Practice database file (SQLite)");
  cmd->add_option("--date", options->date, "Today's date, YYYY-MM-DD");
  cmd->add_flag("--list-box", options->listBox, "Print the list box entries and ItemData");
  cmd->callback([options] { setExitCode(runFields(*options)); });
}

}  // namespace nvwm::cli
