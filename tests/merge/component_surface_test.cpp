// clsWordMerge's surface: what construction leaves, the service and option properties, the ID
// properties and their quirks, and what the end of an instance does.
#include <filesystem>
#include <fstream>

#include "merge/cls_word_merge_internal.h"
#include "merge_test_support.h"
#include "services/file_utility.h"
#include "services/folder_locale.h"
#include "services/variant_utility.h"
#include "support/recording_database.h"

namespace nvwm::testing {
namespace {

using SurfaceTest = MergeTest;

TEST_F(SurfaceTest, ANewInstanceHasTheDefaultsOfItsRecord) {
  references().fileUtility.reset();
  references().WorkingFolderReference.reset();
  clsWordMerge merge;
  EXPECT_FALSE(merge.FailedToInitializeFlag());
  EXPECT_TRUE(merge.ShowWordWindow());
  EXPECT_TRUE(merge.ShowProgess());
  EXPECT_TRUE(merge.NewDocument());
  EXPECT_EQ(merge.ListType(), mergeInfo2::wordMergeCompanyInfo);
  EXPECT_EQ(merge.openWordMethod(), openWordMergeType::openTemplateAndMergeDoc);
  EXPECT_EQ(merge.DocName(), "");
  EXPECT_EQ(merge.SQLFilter(), "");
  EXPECT_EQ(merge.MergeSourceDBLocation(), "") << "no path before WorkingFolderReference";
  EXPECT_EQ(clsWordMergeInternal::baseRecordsetHandle(merge), -1);
  EXPECT_EQ(clsWordMergeInternal::filteredRecordsetHandle(merge), -1);
  EXPECT_FALSE(clsWordMergeInternal::wordIsOpen(merge));
  // The library-wide utilities and a default working folder are made by the instance.
  EXPECT_NE(dynamic_cast<PosixFileUtility*>(references().fileUtility.get()), nullptr);
  EXPECT_NE(dynamic_cast<XdgWorkingFolder*>(references().WorkingFolderReference.get()), nullptr);
  EXPECT_NE(references().variantUtility, nullptr);
  EXPECT_NE(references().dateUtility, nullptr);
}

TEST_F(SurfaceTest, ErrorClassGoesToTheUtilitiesToo) {
  struct Utility : StandardVariantUtility {
    void setErrorClass(std::shared_ptr<ErrorService> errors) override { given = errors; }
    std::shared_ptr<ErrorService> given;
  };
  auto utility = std::make_shared<Utility>();
  factories().createVariantUtility = [utility] { return utility; };
  clsWordMerge merge;
  references().errorClassIsSet = false;
  merge.errorClass(refs.errors);
  EXPECT_EQ(utility->given, refs.errors);
  EXPECT_EQ(references().errorClass, refs.errors);
  EXPECT_TRUE(references().errorClassIsSet);
}

TEST_F(SurfaceTest, WorkingFolderFixesTheMergeDatabasePathAndMakesTheTempFolder) {
  auto merge = newMerge();
  EXPECT_EQ(merge->MergeSourceDBLocation(), work.file("Temp/WordMergeSource1.db"));
  EXPECT_TRUE(std::filesystem::is_directory(work.path() / "Temp"));
  // A name in use is not given again.
  std::ofstream(work.file("Temp/WordMergeSource1.db")) << "x";
  merge->WorkingFolderReference(std::make_shared<XdgWorkingFolder>(work.path().string()));
  EXPECT_EQ(merge->MergeSourceDBLocation(), work.file("Temp/WordMergeSource2.db"));
}

TEST_F(SurfaceTest, AWorkingFolderThatFailsLeavesThePathAsItWas) {
  struct Failing : WorkingFolderService {
    std::string getWorkingFolder() override { raise(ErrorNumber::kPathNotFound, "no home"); }
  };
  clsWordMerge merge(&events);
  merge.WorkingFolderReference(std::make_shared<Failing>());
  EXPECT_EQ(merge.MergeSourceDBLocation(), "");
  EXPECT_TRUE(refs.errors->errors.empty()) << "silently";
  EXPECT_TRUE(events.events.empty());
}

TEST_F(SurfaceTest, AnEmptyDatabaseReferenceRaisesMergeFailedAndSetsTheFlag) {
  clsWordMerge merge(&events);
  merge.DatabaseReference(nullptr);
  EXPECT_TRUE(merge.FailedToInitializeFlag());
  EXPECT_EQ(events.events,
            std::vector<std::string>{"MergeFailed(-1, The outlook synchronization was not able to "
                                     "access the companies database and needs to close.)"});
  merge.DatabaseReference(practice.service());
  EXPECT_FALSE(merge.FailedToInitializeFlag());
  EXPECT_EQ(events.events.size(), 1u);
}

TEST_F(SurfaceTest, DocNameOfAMissingFileSilentlyMeansANewDocument) {
  auto merge = newMerge();
  const std::string letter = work.file("letter.docx");
  writeLetter(letter);
  merge->DocName(letter);
  EXPECT_EQ(merge->DocName(), letter);
  EXPECT_FALSE(merge->NewDocument());
  merge->DocName(work.file("no-such-letter.docx"));
  EXPECT_EQ(merge->DocName(), "");
  EXPECT_TRUE(merge->NewDocument());
  EXPECT_TRUE(events.events.empty());
  // NewDocument put after DocName overrides what DocName decided.
  merge->DocName(letter);
  merge->NewDocument(true);
  EXPECT_TRUE(merge->NewDocument());
  EXPECT_EQ(merge->DocName(), letter);
}

TEST_F(SurfaceTest, OptionsAreKept) {
  auto merge = newMerge();
  merge->ShowWordWindow(false);
  merge->ShowProgess(false);
  merge->ListType(mergeInfo2::wordMergeDocketinfo);
  merge->openWordMethod(openWordMergeType::openMergeDocOnly);
  EXPECT_FALSE(merge->ShowWordWindow());
  EXPECT_FALSE(merge->ShowProgess());
  EXPECT_EQ(merge->ListType(), mergeInfo2::wordMergeDocketinfo);
  EXPECT_EQ(merge->openWordMethod(), openWordMergeType::openMergeDocOnly);
}

TEST_F(SurfaceTest, SQLFilterOpensTheRecordsetOfTheKindSetAtThatMoment) {
  loadPractice();
  auto recording = std::make_shared<RecordingDatabase>(practice.service());
  auto merge = newMerge();
  merge->DatabaseReference(recording);
  merge->ListType(mergeInfo2::wordMergeAppointmentInfo);
  merge->SQLFilter("Subject = 'Year-end review'");
  EXPECT_EQ(merge->SQLFilter(), "Subject = 'Year-end review'");
  EXPECT_EQ(recording->sqlSent(),
            std::vector<std::string>{"SELECT Appointments.* FROM Appointments ORDER BY "
                                     "Appointments.DateFrom, Appointments.TimeFrom;"});
  EXPECT_GE(clsWordMergeInternal::filteredRecordsetHandle(*merge), 0);
}

TEST_F(SurfaceTest, IDListArrayAddsRowsFromKeyZeroWithoutClearing) {
  loadPractice();
  auto merge = newMerge();
  merge->ShowProgess(false);
  merge->ListType(mergeInfo2::wordMergeAppointmentInfo);
  const std::vector<Variant> first = {Variant(int32_t{1}), Variant("2")};
  merge->IDListArray(first);
  const std::vector<Variant> second = {Variant(int32_t{1})};
  merge->IDListArray(second);
  // The list can't be read back; the run shows the three rows, in order.
  merge->performWordMerge();
  auto rows = mergeTableRows(merge->MergeSourceDBLocation());
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0]["Company Name"], "Maple Leaf Bakery Inc.");
  EXPECT_EQ(rows[1]["Company Name"], "Boulangerie Saint-Étienne");
  EXPECT_EQ(rows[2]["Company Name"], "Maple Leaf Bakery Inc.");
}

TEST_F(SurfaceTest, IDListArrayOfOneNumberAddsOneRow) {
  loadPractice();
  auto merge = newMerge();
  merge->ShowProgess(false);
  merge->ListType(mergeInfo2::wordMergeAppointmentInfo);
  merge->IDListArray(Variant("abc"));      // not numeric: nothing
  merge->IDListArray(Variant::missing());  // missing: nothing
  merge->IDListArray(Variant(int32_t{2}));
  merge->performWordMerge();
  auto rows = mergeTableRows(merge->MergeSourceDBLocation());
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0]["Company Name"], "Boulangerie Saint-Étienne");
  EXPECT_TRUE(events.events.empty());
}

TEST_F(SurfaceTest, IDListArrayRefusesIDsBeyondSixteenBits) {
  auto merge = newMerge();
  const std::vector<Variant> ids = {Variant(int32_t{32767}), Variant(int32_t{32768})};
  EXPECT_RUNTIME_ERROR(merge->IDListArray(ids), 6);
  EXPECT_RUNTIME_ERROR(merge->IDListArray(Variant(int32_t{40000})), 6);
}

TEST_F(SurfaceTest, IDListIsCopiedAndCanNotBeReadBack) {
  loadPractice();
  auto merge = newMerge();
  merge->ShowProgess(false);
  auto hostList = idList({{Variant(int32_t{2})}});
  merge->IDList(hostList);
  hostList->addRow(1, {Variant(int32_t{3})});  // the instance holds its own copy
  EXPECT_RUNTIME_ERROR(merge->IDList(), 91);
  merge->performWordMerge();
  auto rows = mergeTableRows(merge->MergeSourceDBLocation());
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0]["Company Name"], "Maple Leaf Bakery Inc.");
}

TEST_F(SurfaceTest, TheEndOfAnInstanceClosesTheFilterRecordsetsAndLeavesWordRunning) {
  loadPractice();
  auto recording = std::make_shared<RecordingDatabase>(practice.service());
  auto merge = newMerge();
  merge->DatabaseReference(recording);
  merge->ListType(mergeInfo2::wordMergeDocketinfo);
  merge->SQLFilter("Subject = 'Bookkeeping'");
  merge->performWordMerge();
  ASSERT_EQ(applications.size(), 1u);
  const Handle base = clsWordMergeInternal::baseRecordsetHandle(*merge);
  const Handle filtered = clsWordMergeInternal::filteredRecordsetHandle(*merge);
  recording->clear();
  merge.reset();
  EXPECT_EQ(recording->closed, (std::vector<Handle>{filtered, base}));
  // Not quit: the word processor still answers.
  EXPECT_NO_THROW(applications[0]->Version());
  EXPECT_EQ(word->count("Application.Quit"), 0);
}

TEST_F(SurfaceTest, EventsThatAreNeverRaisedStayQuietThroughARun) {
  loadPractice();
  auto merge = newMerge();
  merge->IDList(idList({{Variant(int32_t{2})}}));
  merge->performWordMerge();
  EXPECT_TRUE(events.events.empty()) << "a successful run is told by nothing";
}

}  // namespace
}  // namespace nvwm::testing
