// "merge": the library's main job. Drives clsWordMerge as a host does and writes the documents
// the word processor is left with.
//
//   nvwordmerge merge [--db FILE] --list-type company|company-contact|contact|remittance|
//                     appointment|docket|task [--ids 1,2,3 | --filter "ADO filter"]
//                     [--template MAIN.docx] [--open template|both|merged] [--out OUT.docx]
//                     [--main-out MAIN-OUT.docx] [--country C --province P]
//                     [--working-folder DIR]
//
// Records: --ids gives IDList (an ID per row in column 1; "company:contact" puts the contact in
// column 2), --filter gives SQLFilter (remittances, appointments, dockets). With neither, the
// company and contact kinds take the practice's active clients that are shown, in name order,
// leaving out (with a note) a client that has no default contact to address.
//
// Without --db the built-in sample practice is written to a temporary file and used. Without
// --template the records are merged into a new blank document, as the library does. --open says
// what stays open (default: merged, the letters alone). With --out the merged document is
// written there (for --open template, the main document linked to its data source); with
// --open both the main document goes to --main-out, or beside --out as "<name>-main.docx".
// Without --out the engine's presenter saves the documents in its output folder and names them.
//
// MergeFailed messages go to standard error and make the exit status 1; so does a run that
// leaves no document to write. A progress line is shown while standard error is a terminal.
#include <spdlog/sinks/stdout_sinks.h>
#include <spdlog/spdlog.h>
#include <unistd.h>

#include <charconv>
#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "host/references.h"
#include "merge/cls_word_merge.h"
#include "practice/client_list_sql.h"
#include "practice/lookups.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "services/folder_locale.h"
#include "services/logging_error_service.h"
#include "services/message_services.h"
#include "services/sqlite/sample_practice.h"
#include "services/sqlite/sqlite_database.h"
#include "services/terminal_progress_dialog.h"
#include "services/word/word_engine.h"

namespace nvwm::cli {
namespace {

namespace fs = std::filesystem;

struct MergeOptions {
  std::string db;
  std::string listType;
  std::string ids;
  std::string filter;
  std::string templatePath;
  std::string open = "merged";
  std::string out;
  std::string mainOut;
  std::string workingFolder;
  int32_t country = 1;
  int32_t province = 3;
};

const std::map<std::string, mergeInfo2> kListTypes = {
    {"company", mergeInfo2::wordMergeCompanyInfo},
    {"company-contact", mergeInfo2::wordMergeCompanyContactInfo},
    {"contact", mergeInfo2::wordMergeContactInfo},
    {"remittance", mergeInfo2::wordMergeRemittanceInfo},
    {"appointment", mergeInfo2::wordMergeAppointmentInfo},
    {"docket", mergeInfo2::wordMergeDocketinfo},
    {"task", mergeInfo2::wordMergeTaskInfo},
};

const std::map<std::string, openWordMergeType> kOpenMethods = {
    {"template", openWordMergeType::openTemplateOnly},
    {"both", openWordMergeType::openTemplateAndMergeDoc},
    {"merged", openWordMergeType::openMergeDocOnly},
};

// Prints MergeFailed as it comes and remembers that one came.
class TerminalEvents : public clsWordMergeEvents {
 public:
  void MergeFailed(int16_t& /*errNum*/, std::string& msgWhy) override {
    std::cerr << "nvwordmerge merge: " << msgWhy << "\n";
    failed = true;
  }
  bool failed = false;
};

// A stream that writes nowhere: the progress line when standard error is no terminal.
class NullBuffer : public std::streambuf {
 protected:
  int overflow(int c) override { return c; }
};

// "1,2,3" or "2:101,3:103": one row per item, column 1 the ID, column 2 the contact.
std::optional<std::vector<std::pair<int32_t, std::optional<int32_t>>>> parseIds(
    const std::string& text) {
  auto number = [](std::string_view s) -> std::optional<int32_t> {
    int32_t value = 0;
    auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), value);
    if (ec != std::errc() || end != s.data() + s.size() || s.empty()) return std::nullopt;
    return value;
  };
  std::vector<std::pair<int32_t, std::optional<int32_t>>> rows;
  std::stringstream items(text);
  std::string item;
  while (std::getline(items, item, ',')) {
    size_t colon = item.find(':');
    auto id = number(std::string_view(item).substr(0, colon));
    if (!id) return std::nullopt;
    std::optional<int32_t> contact;
    if (colon != std::string::npos) {
      contact = number(std::string_view(item).substr(colon + 1));
      if (!contact) return std::nullopt;
    }
    rows.emplace_back(*id, contact);
  }
  if (rows.empty()) return std::nullopt;
  return rows;
}

// The active clients that are shown, in name order, each with its default contact; a client
// without one is named on standard error and left out.
std::vector<std::pair<int32_t, std::optional<int32_t>>> activeClients(DatabaseService& db) {
  std::vector<std::pair<int32_t, std::optional<int32_t>>> rows;
  std::vector<std::string> leftOut;
  const std::string sql = getMainBusinessSQLString(true, 1);
  if (sql.empty()) return rows;
  Handle h = db.openRecordset(sql, kCursorKeyset, kLockReadOnly);
  for (; !db.isEOF(h); db.moveNext(h)) {
    const int32_t company = CLng(db.getField(h, Variant("CompanyID")));
    const int32_t contact = getDefaultContactIDFromCompanyID(company);
    if (contact < 0) {
      leftOut.push_back(CStr(db.getField(h, Variant("CompanyName"))));
    } else {
      rows.emplace_back(company, contact);
    }
  }
  db.closeRecordset(h);
  for (const std::string& name : leftOut) {
    std::cerr << "nvwordmerge merge: left out " << name << ": no default contact to address\n";
  }
  return rows;
}

// Saves the documents the word processor shows: the main document (still linked to its data
// source) and the merged one, where the options say.
wordengine::DocumentPresenter outputPresenter(const MergeOptions& o,
                                              std::vector<std::string>& written) {
  return [&o, &written](const std::vector<wordengine::OpenDocumentInfo>& documents) {
    for (const wordengine::OpenDocumentInfo& info : documents) {
      const bool isMain = info.document->MailMerge()->State() != 0;
      std::string target;
      if (o.open == "template") {
        if (isMain) target = o.out;
      } else if (!isMain) {
        target = o.out;
      } else if (o.open == "both") {
        target =
            o.mainOut.empty()
                ? (fs::path(o.out).parent_path() / (fs::path(o.out).stem().string() + "-main.docx"))
                      .string()
                : o.mainOut;
      }
      if (target.empty()) continue;
      info.document->SaveAs(Variant(target));
      written.push_back(target);
    }
  };
}

int runMerge(const MergeOptions& o) {
  auto logger = spdlog::get("merge");
  if (!logger) logger = spdlog::stderr_logger_mt("merge");
  auto errors = std::make_shared<LoggingErrorService>(logger);

  const mergeInfo2 listType = kListTypes.at(o.listType);
  std::optional<std::vector<std::pair<int32_t, std::optional<int32_t>>>> ids;
  if (!o.ids.empty()) {
    ids = parseIds(o.ids);
    if (!ids) {
      std::cerr << "nvwordmerge merge: --ids wants numbers separated by commas (1,2,3 or "
                   "company:contact), got \""
                << o.ids << "\"\n";
      return 2;
    }
  }
  if (!o.templatePath.empty() && !fs::is_regular_file(o.templatePath)) {
    std::cerr << "nvwordmerge merge: no template at \"" << o.templatePath << "\"\n";
    return 2;
  }

  // The practice: the file given, or the sample written for this run.
  std::string dbPath = o.db;
  std::optional<fs::path> sampleFolder;
  if (dbPath.empty()) {
    sampleFolder = fs::temp_directory_path() / ("nvwordmerge-sample-" + std::to_string(::getpid()));
    fs::create_directories(*sampleFolder);
    dbPath = (*sampleFolder / "sample-practice.db").string();
    writeSamplePractice(dbPath);
  }
  struct RemoveSample {
    std::optional<fs::path>& folder;
    ~RemoveSample() {
      std::error_code ec;
      if (folder) fs::remove_all(*folder, ec);
    }
  } removeSample{sampleFolder};
  auto db = std::make_shared<SqliteDatabase>(dbPath);
  if (!db->isConnected()) {
    std::cerr << "nvwordmerge merge: cannot open the practice database \"" << dbPath << "\"\n";
    return 2;
  }

  // What the word processor is left with goes where the options say.
  std::vector<std::string> written;
  wordengine::WordEngineOptions& engine = wordengine::wordEngineOptions();
  if (!o.out.empty()) engine.presenter = outputPresenter(o, written);
  struct ResetPresenter {
    wordengine::WordEngineOptions& engine;
    ~ResetPresenter() { engine.presenter = nullptr; }
  } resetPresenter{engine};
  // The progress line, only on a terminal.
  static NullBuffer nowhere;
  static std::ostream silent(&nowhere);
  const bool terminal = ::isatty(STDERR_FILENO) != 0;
  factories().createProgressDialog = [terminal]() -> std::shared_ptr<ProgressDialog> {
    if (terminal) return std::make_shared<TerminalProgressDialog>(std::cerr, true);
    return std::make_shared<TerminalProgressDialog>(silent, false);
  };

  TerminalEvents events;
  clsWordMerge merge(&events);
  merge.errorClass(errors);
  merge.MsgboxClass(std::make_shared<TerminalMessageService>());
  merge.WorkingFolderReference(std::make_shared<XdgWorkingFolder>(o.workingFolder));
  merge.LocaleReference(std::make_shared<HostLocale>(o.country, o.province));
  merge.DatabaseReference(db);
  merge.ListType(listType);

  const bool clientKind = listType == mergeInfo2::wordMergeCompanyInfo ||
                          listType == mergeInfo2::wordMergeCompanyContactInfo ||
                          listType == mergeInfo2::wordMergeContactInfo;
  if (!ids && o.filter.empty() && clientKind) ids = activeClients(*db);
  if (ids) {
    auto list = factories().createIDList();
    list->initialize();
    int32_t key = 0;
    for (const auto& [id, contact] : *ids) {
      IDList::Row row{Variant(id)};
      if (contact) row.push_back(Variant(*contact));
      list->addRow(key++, row);
    }
    merge.IDList(list);
  }
  if (!o.filter.empty()) merge.SQLFilter(o.filter);
  if (!o.templatePath.empty()) merge.DocName(o.templatePath);
  merge.openWordMethod(kOpenMethods.at(o.open));
  merge.performWordMerge();

  std::cerr << std::flush;
  for (const std::string& path : written) std::cout << "wrote " << path << "\n";
  std::cout << "merge source: " << merge.MergeSourceDBLocation() << "\n";
  if (!o.out.empty() && written.empty()) {
    std::cerr << "nvwordmerge merge: the run left no document to write to " << o.out << "\n";
    return 1;
  }
  return events.failed ? 1 : 0;
}

}  // namespace

void registerMerge(CLI::App& app) {
  auto options = std::make_shared<MergeOptions>();
  auto* cmd = app.add_subcommand(
      "merge", "Merges practice records into a Word document, as a host's merge does");
  std::vector<std::string> kinds, methods;
  for (const auto& [name, value] : kListTypes) kinds.push_back(name);
  for (const auto& [name, value] : kOpenMethods) methods.push_back(name);
  cmd->add_option("--db", options->db, "Practice database file (default: the sample practice)");
  cmd->add_option("--list-type", options->listType, "Kind of record")
      ->required()
      ->check(CLI::IsMember(kinds));
  auto* idsOption =
      cmd->add_option("--ids", options->ids, "IDs to merge: 1,2,3 (or company:contact pairs)");
  cmd->add_option("--filter", options->filter, "ADO filter on remittances, appointments or dockets")
      ->excludes(idsOption);
  cmd->add_option("--template", options->templatePath, "The main document (.docx)");
  cmd->add_option("--open", options->open, "What stays open: template, both or merged")
      ->check(CLI::IsMember(methods));
  cmd->add_option("--out", options->out, "Where the merged document is written");
  cmd->add_option("--main-out", options->mainOut,
                  "Where the main document is written with --open both");
  cmd->add_option("--country", options->country, "The firm's country code (1 Canada)");
  cmd->add_option("--province", options->province, "The firm's province code (3 Ontario)");
  cmd->add_option("--working-folder", options->workingFolder,
                  "The folder whose Temp folder takes the merge source (default: XDG data)");
  cmd->callback([options] {
    try {
      setExitCode(runMerge(*options));
    } catch (const RuntimeError& e) {
      std::cerr << "nvwordmerge merge: " << e.description() << "\n";
      setExitCode(1);
    }
  });
}

}  // namespace nvwm::cli
