// What the merge tests share: a host's services around a clsWordMerge, the practice of the
// tests, a word processor that logs its calls, and readers of the merge table and of the
// documents a run leaves.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "host/references.h"
#include "merge/cls_word_merge.h"
#include "recording_word.h"
#include "services/message_pumps.h"
#include "services/terminal_progress_dialog.h"
#include "services/word/word_engine.h"
#include "support/practice_db.h"
#include "support/test_support.h"

namespace nvwm::testing {

// Every event, in order: "MergeFailed(-1, <text>)", "DocumentSaved", "DocumentNotSaved(<n>,
// <text>)", and the names of the events never raised should one come.
class RecordingEvents : public clsWordMergeEvents {
 public:
  void ExitProgram() override { events.push_back("ExitProgram"); }
  void MergeComplete() override { events.push_back("MergeComplete"); }
  void MergeFailed(int16_t& errNum, std::string& msgWhy) override;
  void DocumentSaved() override { events.push_back("DocumentSaved"); }
  void DocumentNotSaved(int16_t& errNum, std::string& msgWhy) override;
  void MessageSent() override { events.push_back("MessageSent"); }
  void MessageNotSent(int16_t&, std::string&) override { events.push_back("MessageNotSent"); }
  void UnknownError(int16_t&, std::string&) override { events.push_back("UnknownError"); }

  // The texts of the MergeFailed events.
  std::vector<std::string> mergeFailed() const;

  std::vector<std::string> events;
};

// A document the word processor showed at the end of a run: its name and the file it is in
// (saved into the test's folder when it had none).
struct ShownDocument {
  std::string name;
  std::string path;
  int32_t mailMergeState = 0;
};

class MergeTest : public ::testing::Test {
 protected:
  MergeTest();
  ~MergeTest() override;

  // The practice of tests/merge/data/merge_practice.sql.
  void loadPractice();
  // A merge with its services put as a host puts them: errorClass, MsgboxClass,
  // WorkingFolderReference (the test's folder), LocaleReference (Ontario), DatabaseReference.
  std::unique_ptr<clsWordMerge> newMerge();
  // The document shown with this name ("Letters1", "Document1"); fails the test without one.
  const ShownDocument& shownDocument(const std::string& name) const;
  // An ID list of the given rows (column 1, and column 2 when given).
  std::shared_ptr<IDList> idList(const std::vector<std::vector<Variant>>& rows) const;

  ScopedReferences refs;
  TempDir work;
  PracticeDb practice;
  RecordingEvents events;
  std::shared_ptr<WordCallLog> word = std::make_shared<WordCallLog>();
  // Options of the next word processor made; failToStart makes its creation fail.
  wordengine::WordEngineOptions engine;
  // Every word processor made, unwrapped.
  std::vector<std::shared_ptr<nvwm::word::Application>> applications;
  std::ostringstream dialogOutput;
  std::vector<std::shared_ptr<TerminalProgressDialog>> dialogs;
  std::vector<ShownDocument> shown;
  std::shared_ptr<CountingMessagePump> pump = std::make_shared<CountingMessagePump>();

 private:
  ServiceFactories savedFactories_;
};

// A column of the merge table: its name, declared type and whether it takes Null.
struct TableColumn {
  std::string name;
  std::string type;
  bool nullable;
};
std::vector<TableColumn> mergeTableColumns(const std::string& database);
// The rows of WordMergeTable, each column's stored text by name ("NULL" for Null).
std::vector<std::map<std::string, std::string>> mergeTableRows(const std::string& database);
// A .docx body as text, a line per paragraph ("==section==" after each letter).
std::string documentText(const std::string& docxPath);
// The letter of the tests: a few fields of the company list in paragraphs.
void writeLetter(const std::string& path);

}  // namespace nvwm::testing
