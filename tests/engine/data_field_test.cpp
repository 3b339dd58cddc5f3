// getDataField: the text of a field for the record the IDs name, by category; samples, no
// connection, RTF.
#include <gtest/gtest.h>

#include "engine/engine_test_support.h"
#include "engine/values_test_support.h"

namespace nvwm::testing {
namespace {

class DataFieldTest : public ValuesTest {};

TEST_F(DataFieldTest, EveryCategoryFromThePractice) {
  for (const TableRow& row : readTable("data_field_values.tsv", 10)) {
    SCOPED_TRACE("data_field_values.tsv:" + std::to_string(row.line) + " " + row.cells[1]);
    auto rtb = openedCatalogue(std::stoi(row.cells[0]));
    EXPECT_EQ(field(*rtb, row.cells[1], idsFrom(row.cells, 2)), row.cells[9]);
  }
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{}) << errorLog();
}

TEST_F(DataFieldTest, SampleValuesWithoutAsking) {
  db->connected = false;
  auto rtb = closedCatalogue(list_type::kCompanyInfo);
  const RecordIDs none;
  EXPECT_EQ(field(*rtb, "Company Name", none, true), "ABC Consulting");
  EXPECT_EQ(field(*rtb, "CONTACT & SPOUSE NAME", none, true), "John & Jane Smith");
  // Built without a connection, the first custom row has no sample in its column.
  EXPECT_EQ(field(*rtb, "Company Custom Field 1", none, true), "");
  EXPECT_EQ(field(*rtb, "No Such Field", none, true), "");
  EXPECT_TRUE(db->queries.empty());
}

TEST_F(DataFieldTest, NoConnectionGivesNothingAndAsksNothing) {
  auto rtb = closedCatalogue(list_type::kCompanyInfo);
  db->connected = false;
  EXPECT_EQ(field(*rtb, "Company Name", {2, 101, -1, 1, -1, -1, -1}), "");
  EXPECT_EQ(field(*rtb, "Contact & Spouse Name", {2, 101, -1, 1, -1, -1, -1}), "");
  EXPECT_TRUE(db->queries.empty());
  EXPECT_TRUE(errorNumbers().empty()) << errorLog();
}

TEST_F(DataFieldTest, EmptyDatabaseReferenceCountsAsNotConnected) {
  auto rtb = closedCatalogue(list_type::kCompanyInfo);
  references().DatabaseReference.reset();
  EXPECT_EQ(field(*rtb, "Company Name", {2, -1, -1, -1, -1, -1, -1}), "");
  EXPECT_TRUE(errorNumbers().empty()) << errorLog();
}

TEST_F(DataFieldTest, RtfValuesBreakLinesWithPar) {
  auto rtb = openedCatalogue(list_type::kCompanyInfo);
  const RecordIDs ann{2, 101, -1, -1, -1, -1, -1};
  EXPECT_EQ(field(*rtb, "Contact Home Address", ann, false, true), "113 Elm Grove\\par \r\nApt 4");
  EXPECT_EQ(field(*rtb, "Contact Home Address", ann, false, false), "113 Elm Grove\r\nApt 4");
  EXPECT_EQ(field(*rtb, "Contact First Name", ann, false, true), "Ann");
  EXPECT_EQ(field(*rtb, "Contact Anniversary", ann, false, true), "");
  // A sample goes through the same conversion.
  EXPECT_EQ(field(*rtb, "Company Name", ann, true, true), "ABC Consulting");
}

TEST_F(DataFieldTest, RtfRunsOnWithCommasWithoutWordWrap) {
  auto rtb = openedCatalogue(list_type::kCompanyInfo);
  rtb->UseWordWrap(false);
  EXPECT_EQ(field(*rtb, "Contact Home Address", {2, 101, -1, -1, -1, -1, -1}, false, true),
            "113 Elm Grove, \r\nApt 4");
}

TEST_F(DataFieldTest, TimeEntryDurationIsReadFromTheAppointmentDataSet) {
  // The task and time entry lines read TimeFrom and TimeTo of AppointmentsRST, wherever it
  // stands: here on appointment 1 after an appointment field was read.
  auto rtb = openedCatalogue(list_type::kDocketInfo);
  EXPECT_EQ(field(*rtb, "Time Entry Name", {-1, -1, -1, -1, -1, 1, -1}), "Bookkeeping");
  EXPECT_EQ(field(*rtb, "Time Duration", {-1, -1, -1, -1, -1, 1, -1}), "");
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{3001})
      << errorLog();  // AppointmentsRST isn't open

  // A second build adds the appointment rows after the time entry rows, whose "Time Duration"
  // is still the one found by name.
  bool noList = true;
  rtb->createDefaultFieldListStructure(list_type::kAppointmentInfo, noList, true);
  EXPECT_EQ(field(*rtb, "Appointment Name", {-1, -1, -1, -1, 1, -1, -1}), "Year-end review");
  // The time entry's own times span 31 minutes; the appointment's 90.
  EXPECT_EQ(field(*rtb, "Time Duration", {-1, -1, -1, -1, -1, 1, -1}), "1 hr 30 min");
}

TEST_F(DataFieldTest, ScheduleEntryHasNoDurationField) {
  // Without a task the schedule line reads a column "TimeDuration", which the join hasn't.
  auto rtb = openedCatalogue(list_type::kTaskInfo);
  EXPECT_EQ(field(*rtb, "Time Duration", {-1, -1, 1, -1, -1, -1, -1}), "");
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{3001}) << errorLog();
}

TEST_F(DataFieldTest, SoftwareOfAContactIsSearchedForAmongTheCompanies) {
  // Without a company the search runs on CompaniesRST by "ContactIDNum", a column companies
  // don't have: the product's pairing, kept, ends in the error service.
  auto rtb = openedCatalogue(list_type::kCompanyInfo);
  EXPECT_EQ(field(*rtb, "Software Name", {-1, 102, -1, -1, -1, -1, -1}), "");
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{3001}) << errorLog();
}

TEST_F(DataFieldTest, InheritingContactNeedsTheCompanyDataSetOpen) {
  // The contact line searches CompaniesRST as it stands; on a catalogue with no data set open
  // that is no data set at all.
  auto rtb = closedCatalogue(list_type::kCompanyInfo);
  EXPECT_EQ(field(*rtb, "Contact Business Phone", {2, 101, -1, -1, -1, -1, -1}), "");
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{3001}) << errorLog();
  // Once a company field has opened it, the same call inherits.
  EXPECT_EQ(field(*rtb, "Company Name", {2, 101, -1, -1, -1, -1, -1}), "Maple Leaf Bakery Inc.");
  EXPECT_EQ(field(*rtb, "Contact Business Phone", {2, 101, -1, -1, -1, -1, -1}), "(613) 555-1000");
}

TEST_F(DataFieldTest, NullInheritFlagWithACompanyEndsInTheErrorService) {
  auto rtb = openedCatalogue(list_type::kCompanyInfo);
  env.refs.errors->action = 2;
  practice.exec("UPDATE Contacts SET InheritCompanyInfo = NULL WHERE ContactID = 101;");
  EXPECT_EQ(field(*rtb, "Contact First Name", {2, 101, -1, -1, -1, -1, -1}), "");
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{94}) << errorLog();
  // Without a company the flag isn't converted.
  EXPECT_EQ(field(*rtb, "Contact First Name", {-1, 101, -1, -1, -1, -1, -1}), "Ann");
}

TEST_F(DataFieldTest, ErrorServiceSaysResumeNext) {
  auto rtb = openedCatalogue(list_type::kCompanyInfo);
  env.refs.errors->action = 1;
  practice.exec("UPDATE Contacts SET InheritCompanyInfo = NULL WHERE ContactID = 101;");
  // The conversion fails and is passed over: the contact's own column is read.
  EXPECT_EQ(field(*rtb, "Contact Business Address", {2, 101, -1, -1, -1, -1, -1}), "1 Own Road");
  EXPECT_EQ(errorNumbers(), std::vector<int32_t>{94}) << errorLog();
}

}  // namespace
}  // namespace nvwm::testing
