// Which records a run takes: the ID list or the filtered recordset, and the recordset kept for
// the filter.
#include "merge/cls_word_merge_internal.h"
#include "merge_test_support.h"
#include "support/recording_database.h"

namespace nvwm::testing {
namespace {

class RecordSelectionTest : public MergeTest {
 protected:
  RecordSelectionTest() {
    loadPractice();
    database = std::make_shared<RecordingDatabase>(practice.service());
    merge = newMerge();
    merge->DatabaseReference(database);
  }
  std::shared_ptr<RecordingDatabase> database;
  std::unique_ptr<clsWordMerge> merge;
};

TEST_F(RecordSelectionTest, TheKindAndTheListDecideBetweenIDsAndFilter) {
  const struct {
    mergeInfo2 type;
    bool withIDs;
    bool expected;
  } cases[] = {
      {mergeInfo2::wordMergeCompanyInfo, false, true},
      {mergeInfo2::wordMergeCompanyContactInfo, false, true},
      {mergeInfo2::wordMergeContactInfo, false, true},
      {mergeInfo2::wordMergeRemittanceInfo, false, false},
      {mergeInfo2::wordMergeRemittanceInfo, true, true},
      {mergeInfo2::wordMergeAppointmentInfo, false, false},
      {mergeInfo2::wordMergeAppointmentInfo, true, true},
      {mergeInfo2::wordMergeDocketinfo, true, false},  // dockets always go by filter
      {mergeInfo2::wordMergeNoMergeInfo, true, false},
      {mergeInfo2::wordMergeTaskInfo, true, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.type) * 10 + c.withIDs);
    clsWordMerge m;
    m.ListType(c.type);
    if (c.withIDs) m.IDList(idList({{Variant(int32_t{1})}}));
    EXPECT_EQ(clsWordMergeInternal::useIDListValues(m), c.expected);
  }
}

TEST_F(RecordSelectionTest, EachFilterableKindOpensItsTableAndFiltersIt) {
  const struct {
    mergeInfo2 type;
    const char* filter;
    const char* sql;
    int rows;
  } cases[] = {
      {mergeInfo2::wordMergeRemittanceInfo, "Class = 'Payroll'",
       "SELECT ClientData.ClientDataID, ClientData.ShowThisClient, Companies.CompanyName, "
       "Companies.OfficeNumber, Companies.FaxNumber, Companies.Email, "
       "Companies.DefaultContactName, Companies.DefaultContactPhoneNumber, "
       "Companies.DefaultContactFaxNumber, Companies.DefaultContactEmail, Schedule.* FROM "
       "(ClientData INNER JOIN Companies ON ClientData.CompanyIDNum = Companies.CompanyID) "
       "INNER JOIN Schedule ON ClientData.ClientDataID = Schedule.ClientNum WHERE "
       "ClientData.ShowThisClient = True;",
       2},
      {mergeInfo2::wordMergeAppointmentInfo, "DateFrom >= #4/3/2026#",
       "SELECT Appointments.* FROM Appointments ORDER BY Appointments.DateFrom, "
       "Appointments.TimeFrom;",
       1},
      {mergeInfo2::wordMergeDocketinfo, "TotalAmountReal > $100",
       "SELECT Dockets.* FROM Dockets ORDER BY Dockets.DateFrom, Dockets.TimeFrom;", 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.filter);
    database->clear();
    merge->ListType(c.type);
    merge->SQLFilter(c.filter);
    ASSERT_EQ(database->sqlSent(), std::vector<std::string>{c.sql});
    EXPECT_EQ(database->queries[0].lockType, 1);
    const Handle filtered = clsWordMergeInternal::filteredRecordsetHandle(*merge);
    EXPECT_EQ(database->getRecordCount(filtered), c.rows);
  }
}

TEST_F(RecordSelectionTest, ANewFilterClosesTheOldPairFirst) {
  merge->ListType(mergeInfo2::wordMergeDocketinfo);
  merge->SQLFilter("DocketID = 1");
  const Handle base = clsWordMergeInternal::baseRecordsetHandle(*merge);
  const Handle filtered = clsWordMergeInternal::filteredRecordsetHandle(*merge);
  database->clear();
  merge->SQLFilter("DocketID = 2");
  ASSERT_GE(database->events.size(), 3u);
  EXPECT_EQ(database->events[0], "close " + std::to_string(filtered));
  EXPECT_EQ(database->events[1], "close " + std::to_string(base));
}

TEST_F(RecordSelectionTest, AFilterPutForAKindWithoutATableOpensNothing) {
  merge->ListType(mergeInfo2::wordMergeDocketinfo);
  merge->SQLFilter("DocketID = 1");
  const Handle stale = clsWordMergeInternal::filteredRecordsetHandle(*merge);
  merge->ListType(mergeInfo2::wordMergeCompanyInfo);
  database->clear();
  merge->SQLFilter("CompanyID = 2");
  EXPECT_TRUE(database->sqlSent().empty());
  EXPECT_EQ(clsWordMergeInternal::filteredRecordsetHandle(*merge), stale) << "the old number stays";
}

TEST_F(RecordSelectionTest, AnEmptyFilterLeavesNoRecordsetAndTheUnableMessage) {
  merge->ListType(mergeInfo2::wordMergeRemittanceInfo);
  merge->SQLFilter("");
  EXPECT_EQ(clsWordMergeInternal::filteredRecordsetHandle(*merge), -1);
  EXPECT_FALSE(clsWordMergeInternal::connectToRemittRST(*merge));
  bool show = true;
  EXPECT_FALSE(clsWordMergeInternal::isRemittRSTConnected(*merge, show));
  EXPECT_EQ(events.mergeFailed(),
            std::vector<std::string>{"Tallowbrook Pad was unable to open the required items for "
                                     "merge.  Please try again."});
}

TEST_F(RecordSelectionTest, AFilterMatchingNothingSaysSoOnce) {
  merge->ListType(mergeInfo2::wordMergeAppointmentInfo);
  merge->SQLFilter("Subject = 'Nobody booked this'");
  bool show = true;
  EXPECT_FALSE(clsWordMergeInternal::isRemittRSTConnected(*merge, show));
  EXPECT_FALSE(show) << "the message is given once";
  EXPECT_EQ(events.mergeFailed(),
            std::vector<std::string>{"There are no items that match the search criteria you have "
                                     "indicated.  Please try again."});
}

TEST_F(RecordSelectionTest, RowsMakeTheRecordsetConnectedWithoutAWord) {
  merge->ListType(mergeInfo2::wordMergeAppointmentInfo);
  merge->SQLFilter("Subject = 'Year-end review'");
  bool show = true;
  EXPECT_TRUE(clsWordMergeInternal::isRemittRSTConnected(*merge, show));
  EXPECT_TRUE(events.events.empty());
}

TEST_F(RecordSelectionTest, WithoutAConnectionTheUnableMessageComes) {
  merge->ListType(mergeInfo2::wordMergeAppointmentInfo);
  database->connected = false;
  EXPECT_FALSE(clsWordMergeInternal::connectToRemittRST(*merge));
  bool show = true;
  EXPECT_FALSE(clsWordMergeInternal::isRemittRSTConnected(*merge, show));
  EXPECT_TRUE(database->sqlSent().empty());
  EXPECT_EQ(events.mergeFailed(),
            std::vector<std::string>{"Tallowbrook Pad was unable to open the required items for "
                                     "merge.  Please try again."});
}

}  // namespace
}  // namespace nvwm::testing
