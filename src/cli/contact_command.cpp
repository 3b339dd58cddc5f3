// "contact": a contact's address block and summary, and the upkeep of a company's default
// contact, run as the library runs them.
//
//   nvwordmerge contact [--db FILE] summary CONTACT-ID [--company ID]
//   nvwordmerge contact [--db FILE] address CONTACT-ID [--company ID]
//   nvwordmerge contact [--db FILE] set-default CONTACT-ID --company ID
//   nvwordmerge contact [--db FILE] check-default COMPANY-ID [--repair]
//
// summary prints the contact's summary RTF as stored (and stores it, as the library does: on
// the contact's notes and on each company whose default contact they are). address prints the
// block with the business name, name, address, phones and email, one line per line. set-default
// and check-default do the maintenance and print what changed in the practice database, one
// line per changed value: links, the company's copies of the default contact, the stored
// summaries, the schedule items' custom values.
//
// Without --db the command runs on a fresh copy of the sample practice, thrown away afterwards.
// The sample's lookup-type custom field holds an expression, which the lookup refresh that
// follows every change of default refuses (error 13, reported on stderr, exit code 1).
// Errors the library reports go to stderr. Exit codes: 0 done; 1 the library reported an error,
// or the contact is unknown; 2 the database can't be opened.
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "addresses/address_blocks.h"
#include "addresses/contact_summary.h"
#include "cli/commands.h"
#include "cli/sample_practice_file.h"
#include "host/references.h"
#include "practice/default_contacts.h"
#include "practice/lookups.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"
#include "services/folder_locale.h"
#include "services/logging_error_service.h"
#include "services/sqlite/sqlite_database.h"

namespace nvwm::cli {
namespace {

struct ContactOptions {
  std::string db;
  int32_t id = -1;
  int32_t companyID = -1;
  bool repair = false;
};

// ---- What changed --------------------------------------------------------------------------

// The values the maintenance can write, each under "<table> <key columns>" and its column.
struct Watched {
  const char* table;
  const char* sql;
  int keyColumns;  // the first columns name the row
};
constexpr Watched kWatched[] = {
    {"ContactLinks",
     "SELECT rowid AS LinkRow, CompanyNum, ContactIDNum, DefaultContact FROM ContactLinks WHERE "
     "CompanyNum Is Not Null;",
     3},
    {"Companies",
     "SELECT CompanyID, DefaultContactName, DefaultContactPhoneNumber, DefaultContactFaxNumber, "
     "DefaultContactEmail FROM Companies;",
     1},
    {"CompaniesNotes", "SELECT rowid AS NotesRow, CompanyNum, ContactNotes FROM CompaniesNotes;",
     2},
    {"ContactsNotes", "SELECT rowid AS NotesRow, ContactNum, BusinessNotes FROM ContactsNotes;", 2},
    {"Schedule", "SELECT ScheduleID, Custom1, Custom2, Custom3, Custom4, Custom5 FROM Schedule;",
     1},
    {"CustomAddressFields", "SELECT rowid AS LabelRow FROM CustomAddressFields;", 1},
};

// Row name -> its watched columns in order, each (column, value; nullopt for Null).
using Row = std::vector<std::pair<std::string, std::optional<std::string>>>;
using Snapshot = std::map<std::string, Row>;

Snapshot takeSnapshot(SqliteDatabase& db) {
  Snapshot snapshot;
  for (const Watched& w : kWatched) {
    const Handle h = db.openRecordset(w.sql, kCursorKeyset, kLockReadOnly);
    const std::vector<std::string> names = db.fieldNames(h);
    for (; !db.isEOF(h); db.moveNext(h)) {
      std::string key = w.table;
      Row row;
      for (size_t i = 0; i < names.size(); ++i) {
        const Variant v = db.getField(h, Variant(static_cast<int32_t>(i)));
        const std::optional<std::string> text =
            v.isNull() || v.isEmpty() ? std::nullopt : std::optional(CStr(v));
        if (static_cast<int>(i) < w.keyColumns) {
          key += (i == 0 ? " " : ", ") + names[i] + " " + text.value_or("Null");
        } else {
          row.emplace_back(names[i], text);
        }
      }
      snapshot[key] = std::move(row);
    }
    db.closeRecordset(h);
  }
  return snapshot;
}

// A value as a line shows it: short texts quoted, summaries and other long texts by size.
std::string shown(const std::optional<std::string>& value) {
  if (!value) return "Null";
  if (value->size() > 60 || value->find_first_of("\r\n") != std::string::npos) {
    return std::string(value->rfind("{\\rtf", 0) == 0 ? "an RTF document" : "a text") + " of " +
           std::to_string(Len(*value)) + " characters";
  }
  return "\"" + *value + "\"";
}

// Prints one line per changed value; returns how many.
int printChanges(const Snapshot& before, const Snapshot& after) {
  int changes = 0;
  for (const auto& [key, row] : after) {
    const auto old = before.find(key);
    if (old == before.end()) {
      std::cout << key << ": new row\n";
      ++changes;
      for (const auto& [column, value] : row) {
        if (value) std::cout << key << ": " << column << " " << shown(value) << "\n";
      }
      continue;
    }
    for (size_t i = 0; i < row.size(); ++i) {
      if (row[i].second == old->second[i].second) continue;
      ++changes;
      std::cout << key << ": " << row[i].first << " " << shown(old->second[i].second) << " -> "
                << shown(row[i].second) << "\n";
    }
  }
  for (const auto& [key, row] : before) {
    if (after.count(key) == 0) {
      std::cout << key << ": removed\n";
      ++changes;
    }
  }
  if (changes == 0) std::cout << "nothing changed\n";
  return changes;
}

// ---- The commands --------------------------------------------------------------------------

enum class Job { kSummary, kAddress, kSetDefault, kCheckDefault };

int runContact(Job job, const ContactOptions& o) {
  std::unique_ptr<SamplePracticeFile> sample;
  std::string path = o.db;
  if (path.empty()) {
    try {
      sample = std::make_unique<SamplePracticeFile>("contact");
    } catch (const std::exception& e) {
      std::cerr << "nvwordmerge contact: cannot write the sample practice: " << e.what() << "\n";
      return 2;
    }
    path = sample->path();
  }
  auto db = std::make_shared<SqliteDatabase>(path);
  if (!db->isConnected()) {
    std::cerr << "nvwordmerge contact: cannot open the practice database \"" << path << "\"\n";
    return 2;
  }

  LibraryReferences& refs = references();
  const auto errors = useStderrErrorService("contact");
  refs.DatabaseReference = db;
  if (!refs.LocaleReference) refs.LocaleReference = std::make_shared<HostLocale>();
  if (!refs.variantUtility) refs.variantUtility = factories().createVariantUtility();

  const auto unknownContact = [&] {
    if (validContactID(std::to_string(o.id))) return false;
    std::cerr << "nvwordmerge contact: no contact " << o.id << " in the practice database\n";
    return true;
  };
  try {
    switch (job) {
      case Job::kSummary: {
        if (unknownContact()) return 1;
        std::cout << saveContactBusinessRTF(o.id, -1, o.companyID, false);
        break;
      }
      case Job::kAddress: {
        if (unknownContact()) return 1;
        int32_t companyID = o.companyID;
        const std::string block =
            createBusinessContactAddress(o.id, false, -1, companyID, true, true, true, true);
        std::string lines = Replace(block, "\r\n", "\n");
        if (!lines.empty() && lines.back() != '\n') lines += '\n';
        std::cout << lines;
        break;
      }
      case Job::kSetDefault: {
        const Snapshot before = takeSnapshot(*db);
        setContactAsDefault(o.id, o.companyID, false);
        std::cout << "contact " << o.id << " set as the default contact of company " << o.companyID
                  << "\n";
        printChanges(before, takeSnapshot(*db));
        break;
      }
      case Job::kCheckDefault: {
        const Snapshot before = takeSnapshot(*db);
        const int32_t contactID = checkForDefaultContact(o.id, o.repair);
        std::cout << "default contact of company " << o.id << ": " << contactID;
        if (contactID >= 0) std::cout << " (" << getDisplayNameFromContactID(contactID) << ")";
        std::cout << "\n";
        printChanges(before, takeSnapshot(*db));
        break;
      }
    }
  } catch (const RuntimeError& e) {
    // Only the tool's own reading of the database can raise; the library doesn't.
    std::cerr << "nvwordmerge contact: " << e.description() << "\n";
    return 1;
  }
  return errors->lastError() ? 1 : 0;
}

}  // namespace

void registerContact(CLI::App& app) {
  auto* contact = app.add_subcommand(
      "contact", "A contact's address block and summary; a company's default contact");
  contact->require_subcommand(1);
  auto options = std::make_shared<ContactOptions>();
  contact->add_option("--db", options->db,
                      "Practice database file (SQLite); without it, a copy of the sample");

  auto* summary = contact->add_subcommand(
      "summary", "Prints the contact's summary RTF (and stores it, as the library does)");
  summary->add_option("contact-id", options->id, "The contact")->required();
  summary->add_option("--company", options->companyID, "The company of the default-contact line");
  summary->callback([options] { setExitCode(runContact(Job::kSummary, *options)); });

  auto* address = contact->add_subcommand("address", "Prints the contact's address block");
  address->add_option("contact-id", options->id, "The contact")->required();
  address->add_option("--company", options->companyID,
                      "The company whose address a contact that inherits it takes");
  address->callback([options] { setExitCode(runContact(Job::kAddress, *options)); });

  auto* setDefault = contact->add_subcommand(
      "set-default", "Makes the contact the company's default and prints what changed");
  setDefault->add_option("contact-id", options->id, "The contact")->required();
  setDefault->add_option("--company", options->companyID, "The company")->required();
  setDefault->callback([options] { setExitCode(runContact(Job::kSetDefault, *options)); });

  auto* checkDefault = contact->add_subcommand(
      "check-default", "Prints the company's default contact and what the check changed");
  checkDefault->add_option("company-id", options->id, "The company")->required();
  checkDefault->add_flag("--repair", options->repair,
                         "Make the first link the default when none is marked");
  checkDefault->callback([options] { setExitCode(runContact(Job::kCheckDefault, *options)); });
}

}  // namespace nvwm::cli
