// The commands on the word processor of a run: nothing before a usable run, their effect after
// one, and the events of SaveDocAsAndClose.
#include <filesystem>
#include <fstream>

#include "docx/docx_test_support.h"
#include "merge/cls_word_merge_internal.h"
#include "merge_test_support.h"

namespace nvwm::testing {
namespace {

namespace fs = std::filesystem;

class WordCommandsTest : public MergeTest {
 protected:
  WordCommandsTest() {
    loadPractice();
    merge = newMerge();
    merge->ShowProgess(false);
    merge->ShowWordWindow(false);
    merge->IDList(idList({{Variant(int32_t{2})}}));
    fs::create_directories(saved);
    victim = work.file("victim.txt");
    std::ofstream(victim) << "to delete";
  }
  // Every command once.
  void giveEveryCommand() {
    merge->OpenNewDoc();
    merge->InsertCurrentDate();
    merge->printDoc();
    std::string path = saved.string() + "/";
    std::string name = "letter";
    merge->SaveDocAsAndClose(path, name);
    merge->DeleteDoc(victim);
  }
  std::unique_ptr<clsWordMerge> merge;
  fs::path saved = work.path() / "saved";
  std::string victim;
};

TEST_F(WordCommandsTest, BeforeARunNothingHappens) {
  giveEveryCommand();
  EXPECT_TRUE(word->calls.empty());
  EXPECT_TRUE(events.events.empty());
  EXPECT_TRUE(fs::exists(victim));
  EXPECT_TRUE(fs::is_empty(saved));
}

TEST_F(WordCommandsTest, AfterARunThatFoundNoWordNothingHappens) {
  engine.failToStart = true;
  merge->performWordMerge();
  events.events.clear();
  giveEveryCommand();
  EXPECT_TRUE(word->calls.empty());
  EXPECT_TRUE(events.events.empty());
  EXPECT_TRUE(fs::exists(victim));
}

TEST_F(WordCommandsTest, AfterARunEachCommandWorksOnTheRunsWord) {
  merge->performWordMerge();
  word->calls.clear();
  merge->OpenNewDoc();
  EXPECT_EQ(word->calls, (std::vector<std::string>{"Documents.Add", "Document.Activate",
                                                   "Application.Selection"}));
  merge->InsertCurrentDate();
  EXPECT_EQ(word->calls.back(), "Selection.InsertDateTime(dddd, MMMM dd, yyyy, False)");
  merge->printDoc();
  EXPECT_EQ(word->calls.back(), "Document.PrintOut");
  std::string path = saved.string() + "/";
  std::string name = "letter";
  merge->SaveDocAsAndClose(path, name);
  EXPECT_EQ(merge->DocName(), saved.string() + "/letter.doc");
  EXPECT_EQ(events.events, std::vector<std::string>{"DocumentSaved"});
  // The new document, with today's date typed in as text.
  EXPECT_EQ(dumpBody(*loadPart(merge->DocName(), "word/document.xml")),
            "Monday, November 23, 2026\n");
  merge->DeleteDoc(victim);
  EXPECT_FALSE(fs::exists(victim));
  EXPECT_TRUE(refs.errors->errors.empty());
}

TEST_F(WordCommandsTest, SavingTheClosedMainDocumentTellsWhyNot) {
  merge->openWordMethod(openWordMergeType::openMergeDocOnly);
  merge->performWordMerge();
  std::string path = saved.string() + "/";
  std::string name = "letter";
  merge->SaveDocAsAndClose(path, name);
  ASSERT_EQ(events.events.size(), 1u);
  EXPECT_EQ(events.events[0].rfind("DocumentNotSaved(5825, ", 0), 0u) << events.events[0];
  EXPECT_FALSE(fs::exists(saved / "letter.doc"));
}

TEST_F(WordCommandsTest, SavingIntoAFolderThatIsNotThereDoesNothingAndLeavesTheTrace) {
  merge->performWordMerge();
  const size_t depth = refs.errors->stack.size();
  std::string path = work.file("no-such-folder/");
  std::string name = "letter";
  merge->SaveDocAsAndClose(path, name);
  EXPECT_TRUE(events.events.empty());
  ASSERT_EQ(refs.errors->stack.size(), depth + 1) << "the product leaves without exitProc";
  EXPECT_EQ(refs.errors->stack.back(), "TallowbrookPad.exe-clsWordmerge-SaveDocAsAndClose");
}

TEST_F(WordCommandsTest, APathWithoutSeparatorSavesBesideTheFolder) {
  merge->performWordMerge();
  std::string path = saved.string();
  std::string name = "letter";
  merge->SaveDocAsAndClose(path, name);
  EXPECT_TRUE(fs::exists(work.path() / "savedletter.doc"));
  EXPECT_EQ(events.events, std::vector<std::string>{"DocumentSaved"});
}

TEST_F(WordCommandsTest, DeleteDocTakesFilesOnly) {
  merge->performWordMerge();
  std::string folder = saved.string();
  merge->DeleteDoc(folder);
  EXPECT_TRUE(fs::exists(saved)) << "a folder is not deleted";
  ASSERT_EQ(refs.errors->errors.size(), 1u);
  EXPECT_EQ(refs.errors->errors[0].number(), 53);
  std::string missing = work.file("missing.txt");
  merge->DeleteDoc(missing);
  EXPECT_EQ(refs.errors->errors.size(), 1u) << "a missing file: nothing";
}

}  // namespace
}  // namespace nvwm::testing
