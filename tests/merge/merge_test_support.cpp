#include "merge_test_support.h"

#include <sqlite3.h>

#include <filesystem>
#include <fstream>

#include "docx/docx_test_support.h"
#include "runtime/clock.h"
#include "services/folder_locale.h"
#include "services/message_services.h"

namespace nvwm::testing {

void RecordingEvents::MergeFailed(int16_t& errNum, std::string& msgWhy) {
  events.push_back("MergeFailed(" + std::to_string(errNum) + ", " + msgWhy + ")");
}

void RecordingEvents::DocumentNotSaved(int16_t& errNum, std::string& msgWhy) {
  events.push_back("DocumentNotSaved(" + std::to_string(errNum) + ", " + msgWhy + ")");
}

std::vector<std::string> RecordingEvents::mergeFailed() const {
  std::vector<std::string> texts;
  const std::string prefix = "MergeFailed(-1, ";
  for (const std::string& e : events) {
    if (e.rfind(prefix, 0) == 0)
      texts.push_back(e.substr(prefix.size(), e.size() - prefix.size() - 1));
  }
  return texts;
}

MergeTest::MergeTest() : savedFactories_(factories()) {
  setClock(std::make_shared<FixedClock>(Date::fromYmd(2026, 11, 23)));
  references().messagePump = pump;
  engine.printCommand = {"/bin/true"};
  engine.presenter = [this](const std::vector<wordengine::OpenDocumentInfo>& documents) {
    for (const wordengine::OpenDocumentInfo& info : documents) {
      std::string path = info.path;
      if (path.empty()) {
        std::filesystem::create_directories(work.path() / "shown");
        path = work.file("shown/" + info.name + ".docx");
        info.document->SaveAs(Variant(path));
      }
      shown.push_back({info.name, path, info.document->MailMerge()->State()});
    }
  };
  ServiceFactories& f = factories();
  f.createWordApplication = [this] {
    auto app = wordengine::createWordApplication(engine);
    applications.push_back(app);
    return recordingWord(app, word);
  };
  f.createProgressDialog = [this] {
    auto dialog = std::make_shared<TerminalProgressDialog>(dialogOutput, false);
    dialogs.push_back(dialog);
    return dialog;
  };
}

MergeTest::~MergeTest() {
  factories() = savedFactories_;
  setClock(nullptr);
}

void MergeTest::loadPractice() {
  std::ifstream in(std::string(NVWM_SOURCE_DIR) + "/tests/merge/data/merge_practice.sql");
  ASSERT_TRUE(in) << "the merge tests' practice is missing";
  std::stringstream sql;
  sql << in.rdbuf();
  // One transaction: a commit per statement would wait for the disk each time.
  practice.exec("BEGIN;\n" + sql.str() + "\nCOMMIT;");
}

std::unique_ptr<clsWordMerge> MergeTest::newMerge() {
  auto merge = std::make_unique<clsWordMerge>(&events);
  merge->errorClass(refs.errors);
  merge->MsgboxClass(std::make_shared<RecordingMessageService>());
  merge->WorkingFolderReference(std::make_shared<XdgWorkingFolder>(work.path().string()));
  merge->LocaleReference(std::make_shared<HostLocale>(1, 3));
  merge->DatabaseReference(practice.service());
  return merge;
}

const ShownDocument& MergeTest::shownDocument(const std::string& name) const {
  for (const ShownDocument& d : shown) {
    if (d.name == name) return d;
  }
  ADD_FAILURE() << "no document \"" << name << "\" was shown";
  static const ShownDocument none{};
  return none;
}

std::shared_ptr<IDList> MergeTest::idList(const std::vector<std::vector<Variant>>& rows) const {
  auto list = factories().createIDList();
  list->initialize();
  int32_t key = 0;
  for (const auto& row : rows) list->addRow(key++, row);
  return list;
}

namespace {

struct Database {
  explicit Database(const std::string& path) {
    if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
      ADD_FAILURE() << "can't open " << path;
    }
  }
  ~Database() { sqlite3_close(db); }
  sqlite3* db = nullptr;
};

std::string columnText(sqlite3_stmt* s, int i) {
  if (sqlite3_column_type(s, i) == SQLITE_NULL) return "NULL";
  return reinterpret_cast<const char*>(sqlite3_column_text(s, i));
}

}  // namespace

std::vector<TableColumn> mergeTableColumns(const std::string& database) {
  Database d(database);
  std::vector<TableColumn> columns;
  sqlite3_stmt* s = nullptr;
  sqlite3_prepare_v2(d.db,
                     "SELECT name, type, \"notnull\" FROM pragma_table_info('WordMergeTable');", -1,
                     &s, nullptr);
  while (s && sqlite3_step(s) == SQLITE_ROW) {
    columns.push_back({columnText(s, 0), columnText(s, 1), sqlite3_column_int(s, 2) == 0});
  }
  sqlite3_finalize(s);
  return columns;
}

std::vector<std::map<std::string, std::string>> mergeTableRows(const std::string& database) {
  Database d(database);
  std::vector<std::map<std::string, std::string>> rows;
  sqlite3_stmt* s = nullptr;
  if (sqlite3_prepare_v2(d.db, "SELECT * FROM WordMergeTable;", -1, &s, nullptr) != SQLITE_OK) {
    ADD_FAILURE() << "no merge table in " << database;
    return rows;
  }
  while (sqlite3_step(s) == SQLITE_ROW) {
    std::map<std::string, std::string> row;
    for (int i = 0; i < sqlite3_column_count(s); ++i)
      row[sqlite3_column_name(s, i)] = columnText(s, i);
    rows.push_back(std::move(row));
  }
  sqlite3_finalize(s);
  return rows;
}

std::string documentText(const std::string& docxPath) {
  auto xml = loadPart(docxPath, "word/document.xml");
  return xml ? dumpBody(*xml) : "";
}

void writeLetter(const std::string& path) {
  writeDocxBody(para(run("Dear ") + simpleField(" MERGEFIELD \"Contact First Name\" ") + run(",")) +
                    para(simpleField(" MERGEFIELD \"Company Name\" ") + run(", year end ") +
                         simpleField(" MERGEFIELD \"Year End Date\" \\@ \"MMMM d, yyyy\" ")),
                path);
}

}  // namespace nvwm::testing
