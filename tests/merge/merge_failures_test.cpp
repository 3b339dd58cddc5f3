// Each MergeFailed of a run, in the product's words, and what the run leaves behind it.
#include <filesystem>

#include "merge/cls_word_merge_internal.h"
#include "merge_test_support.h"
#include "support/recording_database.h"

namespace nvwm::testing {
namespace {

namespace fs = std::filesystem;

class MergeFailuresTest : public MergeTest {
 protected:
  MergeFailuresTest() {
    loadPractice();
    merge = newMerge();
    merge->ShowProgess(false);
    merge->IDList(idList({{Variant(int32_t{2})}}));
  }
  std::unique_ptr<clsWordMerge> merge;
};

TEST_F(MergeFailuresTest, NoWordToStart) {
  engine.failToStart = true;
  merge->performWordMerge();
  EXPECT_EQ(events.mergeFailed(),
            std::vector<std::string>{"Tallowbrook was unable to open an intance of Microsoft Word. "
                                     " Make sure you have Microsoft Word 2000 or higher installed "
                                     "on this computer."});
  EXPECT_FALSE(clsWordMergeInternal::wordIsOpen(*merge));
  EXPECT_FALSE(fs::exists(merge->MergeSourceDBLocation()));
}

TEST_F(MergeFailuresTest, WordOlderThanVersionNine) {
  const struct {
    const char* version;
    bool refused;
  } cases[] = {{"8.0", true}, {"9.0", false}, {"16.0", false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.version);
    events.events.clear();
    word->calls.clear();
    engine.version = c.version;
    auto m = newMerge();
    m->ShowProgess(false);
    m->performWordMerge();
    if (c.refused) {
      EXPECT_EQ(events.mergeFailed(),
                std::vector<std::string>{
                    "Tallowbrook is only compatible with Microsoft Word 2000 or higher"});
      EXPECT_EQ(word->calls, std::vector<std::string>{"Application.Version"});
      EXPECT_FALSE(clsWordMergeInternal::wordIsOpen(*m));
      EXPECT_NE(clsWordMergeInternal::wordApplication(*m), nullptr) << "still referenced";
    } else {
      EXPECT_TRUE(events.events.empty());
      EXPECT_TRUE(clsWordMergeInternal::wordIsOpen(*m));
    }
  }
}

TEST_F(MergeFailuresTest, TheMainDocumentHasGone) {
  const std::string letter = work.file("letter.docx");
  writeLetter(letter);
  merge->DocName(letter);
  fs::remove(letter);
  merge->performWordMerge();
  EXPECT_EQ(events.mergeFailed(),
            std::vector<std::string>{"Tallowbrook could not find the specified merge document."});
  EXPECT_EQ(word->calls, std::vector<std::string>{"Application.Version"});
  EXPECT_TRUE(clsWordMergeInternal::wordIsOpen(*merge)) << "Word stands, hidden";
}

TEST_F(MergeFailuresTest, ASecondRunFindsItsDatabaseThere) {
  merge->performWordMerge();
  ASSERT_TRUE(events.events.empty());
  merge->performWordMerge();
  EXPECT_EQ(
      events.mergeFailed(),
      std::vector<std::string>{"Tallowbrook could not link to the client information properly."});
  ASSERT_FALSE(refs.errors->errors.empty());
  EXPECT_EQ(refs.errors->errors[0].number(), 3204) << refs.errors->errors[0].description();
  EXPECT_EQ(applications.size(), 2u) << "a new Word, hidden";
  EXPECT_EQ(word->calls.back(), "Application.Selection") << "neither linked nor shown";
}

TEST_F(MergeFailuresTest, AFilterMatchingNothingLeavesAnEmptyMerge) {
  merge->ListType(mergeInfo2::wordMergeDocketinfo);
  merge->SQLFilter("Subject = 'No such entry'");
  merge->performWordMerge();
  EXPECT_EQ(events.mergeFailed(),
            std::vector<std::string>{"There are no items that match the search criteria you have "
                                     "indicated.  Please try again."});
  EXPECT_TRUE(mergeTableRows(merge->MergeSourceDBLocation()).empty());
  EXPECT_EQ(word->count("MailMerge.Execute"), 1) << "the run goes on";
}

TEST_F(MergeFailuresTest, NoConnectionToThePractice) {
  auto database = std::make_shared<RecordingDatabase>(practice.service());
  database->connected = false;
  merge->DatabaseReference(database);
  merge->ListType(mergeInfo2::wordMergeRemittanceInfo);
  merge->IDList(idList({}));
  merge->performWordMerge();
  EXPECT_EQ(events.mergeFailed(),
            std::vector<std::string>{"Tallowbrook Pad was unable to open the required items for "
                                     "merge.  Please try again."});
  EXPECT_TRUE(database->sqlSent().empty());
}

// An error service that fails when the run driver enters it: the one way to its handler.
class FailingAtStart : public RecordingErrorService {
 public:
  explicit FailingAtStart(int32_t number) : number_(number) {}
  void enterProc(const std::string& tag) override {
    RecordingErrorService::enterProc(tag);
    if (tag == "TallowbrookPad.exe-clsWordmerge-startWordMerge") raiseWith(number_, "at start");
  }

 private:
  int32_t number_;
};

TEST_F(MergeFailuresTest, TheHandlerOfTheRunDriverNamesTheCause) {
  const struct {
    int32_t number;
    const char* message;
  } cases[] = {
      {5843,
       "You have a Microsoft Word document open.  You must close all instances of Microsoft Word "
       "before running the Word Merge Wizard."},
      {91,
       "Tallowbrook had trouble exporting the address information to Microsoft Word.  You must "
       "have Microsoft Word version 2000 or higher properly installed on your computer"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.number);
    events.events.clear();
    auto errors = std::make_shared<FailingAtStart>(c.number);
    merge->errorClass(errors);
    merge->performWordMerge();
    EXPECT_EQ(events.mergeFailed(), std::vector<std::string>{c.message});
    EXPECT_FALSE(clsWordMergeInternal::wordIsOpen(*merge));
    ASSERT_EQ(errors->errors.size(), 1u);
    EXPECT_EQ(errors->errors[0].number(), c.number);
  }
}

}  // namespace
}  // namespace nvwm::testing
