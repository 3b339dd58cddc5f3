// The road of a run: the progress dialog, the word processor's calls in their order, the three
// ways of leaving Word, and the sweep of earlier databases behind the dialog.
#include <filesystem>
#include <fstream>

#include "docx/docx_test_support.h"
#include "merge/cls_word_merge_internal.h"
#include "merge_test_support.h"

namespace nvwm::testing {
namespace {

namespace fs = std::filesystem;

class MergeRunTest : public MergeTest {
 protected:
  MergeRunTest() {
    loadPractice();
    merge = newMerge();
    merge->IDList(idList({{Variant(int32_t{2})}, {Variant(int32_t{3})}}));
  }
  std::string linkCall() const {
    return "MailMerge.OpenDataSource(Name=" +
           fs::path(merge->MergeSourceDBLocation()).filename().string() +
           ", ReadOnly=True, LinkToSource=True, Connection=TABLE WordMergeTable)";
  }
  std::unique_ptr<clsWordMerge> merge;
};

TEST_F(MergeRunTest, TheRoadThroughTheDialog) {
  auto form = std::make_shared<Object>();
  merge->MDIForm(form);
  bool dialogUpWhenShown = false;
  auto present = engine.presenter;
  engine.presenter = [&](const std::vector<wordengine::OpenDocumentInfo>& documents) {
    dialogUpWhenShown = !dialogs.empty() && dialogs[0]->isShowing();
    present(documents);
  };
  EXPECT_FALSE(merge->performWordMerge());
  EXPECT_EQ(word->calls, (std::vector<std::string>{
                             "Application.Version", "Documents.Add", "Document.Activate",
                             "Application.Selection", linkCall(), "MailMerge.State",
                             "MailMerge.State", "MailMerge.Execute", "Application.Visible(True)"}));
  ASSERT_EQ(dialogs.size(), 1u);
  EXPECT_EQ(
      dialogs[0]->calls(),
      (std::vector<std::string>{
          "setDialogMessage(Initializing MS Word Merge, please wait ...)", "setProgressStep(10)",
          "setDialogParent(" + debugString(Variant(form)) + ")", "setShowCancel(False)",
          "setShowPercent(False)", "setShowTime(False)", "setAnimate(True)", "setIconId(101)",
          "setTopMost(False)", "showDialog(True)", "StartProgress", "closeDialog"}));
  EXPECT_TRUE(dialogUpWhenShown) << "Word is shown before the dialog closes";
  EXPECT_TRUE(clsWordMergeInternal::wordIsOpen(*merge));
  EXPECT_TRUE(events.events.empty());
  EXPECT_TRUE(refs.errors->errors.empty());
}

TEST_F(MergeRunTest, OnlyARunThroughTheDialogSweepsEarlierDatabases) {
  const std::string old = work.file("Temp/WordMergeSource7.db");
  std::ofstream(old) << "an earlier run's";
  merge->ShowProgess(false);
  merge->performWordMerge();
  EXPECT_TRUE(dialogs.empty());
  EXPECT_TRUE(fs::exists(old)) << "no sweep without the dialog";

  auto second = newMerge();
  second->IDList(idList({{Variant(int32_t{2})}}));
  second->performWordMerge();
  EXPECT_FALSE(fs::exists(old));
  EXPECT_FALSE(fs::exists(merge->MergeSourceDBLocation())) << "the first run's went too";
  EXPECT_TRUE(fs::exists(second->MergeSourceDBLocation())) << "its own stays";
}

TEST_F(MergeRunTest, WhatStaysOpenInWord) {
  const struct {
    openWordMergeType method;
    std::vector<std::string> shownNames;
    int stateReads;
    int executes;
    int closes;
  } cases[] = {
      {openWordMergeType::openTemplateOnly, {"Document1"}, 0, 0, 0},
      {openWordMergeType::openTemplateAndMergeDoc, {"Document1", "Letters1"}, 2, 1, 0},
      {openWordMergeType::openMergeDocOnly, {"Letters1"}, 2, 1, 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.method));
    word->calls.clear();
    shown.clear();
    auto m = newMerge();
    m->ShowProgess(false);
    m->IDList(idList({{Variant(int32_t{2})}}));
    m->openWordMethod(c.method);
    m->performWordMerge();
    std::vector<std::string> names;
    for (const ShownDocument& d : shown) names.push_back(d.name);
    EXPECT_EQ(names, c.shownNames);
    EXPECT_EQ(word->count("MailMerge.State"), c.stateReads);
    EXPECT_EQ(word->count("MailMerge.Execute"), c.executes);
    EXPECT_EQ(word->count("Document.Close(0, 1, False)"), c.closes);
    EXPECT_EQ(word->calls.back(), "Application.Visible(True)");
  }
  // The template alone is shown linked to its data source.
  EXPECT_EQ(shown.size(), 1u);
}

TEST_F(MergeRunTest, TheTemplateOnlyRunLeavesTheMainDocumentLinked) {
  merge->openWordMethod(openWordMergeType::openTemplateOnly);
  merge->performWordMerge();
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(shown[0].mailMergeState, 2);
}

TEST_F(MergeRunTest, AHiddenWordShowsNothing) {
  merge->ShowWordWindow(false);
  merge->performWordMerge();
  EXPECT_EQ(word->calls.back(), "Application.Visible(False)");
  EXPECT_TRUE(shown.empty());
}

TEST_F(MergeRunTest, AMainDocumentIsOpenedAndMergedPerRecord) {
  const std::string letter = work.file("letter.docx");
  writeLetter(letter);
  merge->DocName(letter);
  merge->openWordMethod(openWordMergeType::openMergeDocOnly);
  merge->performWordMerge();
  EXPECT_EQ(word->calls[1], "Documents.Open(letter.docx)");
  EXPECT_EQ(documentText(shownDocument("Letters1").path),
            "Dear Ann,\n"
            "Maple Leaf Bakery Inc., year end March 31, 2026\n"
            "\n"
            "==section==\n"
            "Dear Tyler,\n"
            "Boulangerie Saint-Étienne, year end December 31, 2025\n");
  expectConsistentPackage(shownDocument("Letters1").path);
}

TEST_F(MergeRunTest, ADamagedMainDocumentFailsWithoutAWordAndTheRunGoesOn) {
  const std::string damaged = work.file("damaged.docx");
  std::ofstream(damaged) << "not a zip";
  merge->DocName(damaged);
  merge->performWordMerge();
  EXPECT_TRUE(events.events.empty());
  EXPECT_EQ(mergeTableRows(merge->MergeSourceDBLocation()).size(), 2u) << "the database is built";
  EXPECT_EQ(word->count("MailMerge"), 0) << "no document to link";
  EXPECT_EQ(word->calls.back(), "Application.Visible(True)");
  EXPECT_TRUE(shown.empty());
}

}  // namespace
}  // namespace nvwm::testing
