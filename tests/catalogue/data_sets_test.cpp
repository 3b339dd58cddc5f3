// initializeDataRecordsets: which data sets it opens, with which SQL, and what it closes.
#include <gtest/gtest.h>

#include "catalogue_test_support.h"
#include "practice/client_list_sql.h"

namespace nvwm::testing {
namespace {

constexpr const char* kSchedule =
    "SELECT Schedule.*, Tasks.TaskID, Tasks.EstimatedTime, Tasks.Subject, Tasks.DateFrom, "
    "Tasks.TimeFrom, Tasks.TimeTo, Tasks.AppointmentText, Tasks.TextBody, Tasks.Custom1 AS "
    "TaskCustom1, Tasks.Custom2 AS TaskCustom2, Tasks.Custom3 AS TaskCustom3, Tasks.Custom4 AS "
    "TaskCustom4, Tasks.Custom5 AS TaskCustom5 FROM Schedule INNER JOIN Tasks ON "
    "Schedule.ScheduleID = Tasks.ScheduleIDNum";
constexpr const char* kAllSoftware =
    "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True;";

struct Flags {
  int32_t listType = 1;
  bool openAll = false;
  int32_t recordID = -1;
  bool mainClient = false, companies = false, contacts = false, firm = false, employee = false;
  int32_t companyID = -1;
  int32_t contactID = -1;
};

class DataSetsTest : public ::testing::Test {
 protected:
  DataSetsTest() { references().DatabaseReference = db; }
  void open(clsInsertFieldsInRTB& catalogue, const Flags& f) {
    catalogue.initializeDataRecordsets(f.listType, f.openAll, f.recordID, f.mainClient, f.companies,
                                       f.contacts, f.firm, f.employee, f.companyID, f.contactID);
  }
  // The data sets' SQL, without the label queries of the custom blocks.
  std::vector<std::string> dataSetSQL() const {
    std::vector<std::string> sql;
    for (const std::string& s : db->sqlSent()) {
      if (s.rfind("SELECT Custom", 0) != 0) sql.push_back(s);
    }
    return sql;
  }

  CatalogueEnvironment env;
  LabelDatabase labels;
  std::shared_ptr<RecordingDatabase> db = labels.db;
};

TEST_F(DataSetsTest, OpensWhatTheFlagsAskFor) {
  const std::string clientList = getMainBusinessSQLString(false, 3);
  const struct {
    const char* name;
    Flags flags;
    std::vector<std::string> sql;
  } cases[] = {
      {"nothing asked", {.listType = 3}, {}},
      {"client list", {.mainClient = true}, {clientList, kAllSoftware}},
      {"companies, company 0 is a real ID",
       {.companies = true, .companyID = 0},
       {"SELECT Companies.* From Companies WHERE Companies.companyID=0;",
        "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND "
        "SoftwareInfo.CompanyIDNum=0;"}},
      {"all companies", {.companies = true}, {"SELECT Companies.* From Companies;", kAllSoftware}},
      {"contacts of one contact",
       {.contacts = true, .contactID = 7},
       {"SELECT Contacts.* From Contacts WHERE Contacts.ContactID=7;",
        "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND "
        "SoftwareInfo.ContactIDNum=7;"}},
      {"company ID wins over contact ID for the software",
       {.contacts = true, .companyID = 2, .contactID = 7},
       {"SELECT Contacts.* From Contacts WHERE Contacts.ContactID=7;",
        "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND "
        "SoftwareInfo.CompanyIDNum=2;"}},
      {"firm", {.firm = true}, {"SELECT AccountantFirmInfo.* From AccountantFirmInfo;"}},
      {"employees",
       {.employee = true},
       {"SELECT AccountantEmployeeInfo.* From AccountantEmployeeInfo;"}},
      {"one appointment",
       {.listType = 5, .recordID = 12},
       {"SELECT Appointments.* From Appointments WHERE Appointments.AppointmentID=12;"}},
      {"all appointments", {.listType = 5}, {"SELECT Appointments.* From Appointments;"}},
      {"one docket",
       {.listType = 6, .recordID = 0},
       {"SELECT Dockets.* From Dockets WHERE Dockets.DocketID=0;"}},
      {"all dockets", {.listType = 6}, {"SELECT Dockets.* From Dockets;"}},
      {"one task",
       {.listType = 8, .recordID = 4},
       {std::string(kSchedule) + " WHERE Tasks.TaskID=4;"}},
      {"all tasks", {.listType = 8}, {std::string(kSchedule) + ";"}},
      {"everything: the calendar sets unfiltered",
       {.listType = 8, .openAll = true, .recordID = 4, .companyID = 2, .contactID = 3},
       {clientList, "SELECT Companies.* From Companies WHERE Companies.companyID=2;",
        "SELECT Contacts.* From Contacts WHERE Contacts.ContactID=3;",
        "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND "
        "SoftwareInfo.CompanyIDNum=2;",
        "SELECT AccountantFirmInfo.* From AccountantFirmInfo;",
        "SELECT AccountantEmployeeInfo.* From AccountantEmployeeInfo;",
        "SELECT Appointments.* From Appointments;", "SELECT Dockets.* From Dockets;",
        std::string(kSchedule) + ";"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    db->clear();
    auto catalogue = env.makeCatalogue();
    open(*catalogue, c.flags);
    EXPECT_EQ(dataSetSQL(), c.sql);
    EXPECT_FALSE(catalogue->FieldListStructure()->isEmpty());
    EXPECT_TRUE(env.refs.errors->errors.empty());
  }
}

TEST_F(DataSetsTest, BuildsTheCatalogueForTheListTypeEvenWithoutAFlag) {
  auto catalogue = env.makeCatalogue();
  open(*catalogue, {.listType = 3});
  EXPECT_EQ(displayNames(*catalogue->FieldListStructure()), goldenDisplayNames("fields-3-canada"));
}

TEST_F(DataSetsTest, ReopeningClosesTheEarlierSetsFirstInOrder) {
  auto catalogue = env.makeCatalogue();
  open(*catalogue, {.listType = 8, .openAll = true});
  // Handles in order of opening: client list 1, companies 2, contacts 3, software 4, firm 5,
  // employees 6, appointments 7, dockets 8, schedule 9 (then the label queries).
  ASSERT_GE(db->opened.size(), 9u);
  EXPECT_EQ(std::vector<Handle>(db->opened.begin(), db->opened.begin() + 9),
            (std::vector<Handle>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
  db->events.clear();
  open(*catalogue, {.listType = 1, .companies = true, .companyID = 5});
  const std::vector<std::string> first = {"close 2",
                                          "close 3",
                                          "close 1",
                                          "close 4",
                                          "close 7",
                                          "close 8",
                                          "close 9",
                                          "close 5",
                                          "close 6",
                                          "open SELECT Companies.* From Companies WHERE "
                                          "Companies.companyID=5;"};
  ASSERT_GE(db->events.size(), first.size());
  EXPECT_EQ(std::vector<std::string>(db->events.begin(), db->events.begin() + first.size()), first);
}

TEST_F(DataSetsTest, ClosedHandlesAreNotClosedAgain) {
  auto catalogue = env.makeCatalogue();
  open(*catalogue, {.firm = true});
  open(*catalogue, {});
  db->closed.clear();
  open(*catalogue, {});
  // Only the label queries of the build are closed: the firm's set was closed already.
  for (Handle h : db->closed) EXPECT_GT(h, 1);
}

TEST_F(DataSetsTest, WithoutConnectionNothingIsOpenedAndTheCatalogueStands) {
  db->connected = false;
  auto catalogue = env.makeCatalogue();
  open(*catalogue, {.listType = 1, .openAll = true});
  EXPECT_TRUE(db->queries.empty());
  EXPECT_TRUE(db->closed.empty());
  EXPECT_EQ(displayNames(*catalogue->FieldListStructure()), goldenDisplayNames("fields-1-canada"));
}

TEST_F(DataSetsTest, EmptyDatabaseReferenceCountsAsNotConnected) {
  references().DatabaseReference = nullptr;
  auto catalogue = env.makeCatalogue();
  open(*catalogue, {.listType = 3, .openAll = true});
  EXPECT_TRUE(env.refs.errors->errors.empty());
  EXPECT_FALSE(catalogue->FieldListStructure()->isEmpty());
}

TEST_F(DataSetsTest, DestructionClosesTheOpenSets) {
  {
    auto catalogue = env.makeCatalogue();
    open(*catalogue, {.firm = true, .employee = true});
    db->closed.clear();
  }
  EXPECT_EQ(db->closed, (std::vector<Handle>{1, 2}));
}

TEST_F(DataSetsTest, EntersAndLeavesItsErrorServiceWithItsTag) {
  auto catalogue = env.makeCatalogue();
  open(*catalogue, {.listType = 3});
  const auto& entered = env.refs.errors->entered;
  ASSERT_GE(entered.size(), 2u);
  EXPECT_EQ(entered[0], "Tallowbrook.exe-clsInsertFieldsInRTB-initializeDataRecordsets");
  EXPECT_EQ(entered[1], "Tallowbrook.exe-clsInsertFieldsInRTB-createDefaultFieldListStructure");
  EXPECT_TRUE(env.refs.errors->stack.empty());
}

TEST_F(DataSetsTest, WithoutErrorServiceTheRoutinesStillRun) {
  auto catalogue = std::make_unique<clsInsertFieldsInRTB>();
  open(*catalogue, {.listType = 3, .firm = true});
  EXPECT_EQ(db->queries.front().sql, "SELECT AccountantFirmInfo.* From AccountantFirmInfo;");
  EXPECT_FALSE(catalogue->FieldListStructure()->isEmpty());
  EXPECT_TRUE(env.refs.errors->entered.empty());
}

// The merge builds the catalogue twice on one object: list type 1, then -1. The rows of the
// first build must survive the second, which adds only the firm's rows.
TEST_F(DataSetsTest, SecondBuildWithMinusOneKeepsTheClientRows) {
  auto catalogue = env.makeCatalogue();
  open(*catalogue, {.listType = 1,
                    .recordID = -1,
                    .mainClient = true,
                    .companies = true,
                    .contacts = true,
                    .firm = true,
                    .employee = true});
  std::vector<std::string> first = displayNames(*catalogue->FieldListStructure());
  bool noList = false;
  catalogue->createDefaultFieldListStructure(-1, noList, true);
  std::vector<std::string> firmRows = goldenDisplayNames("fields-4-canada");
  first.insert(first.end(), firmRows.begin(), firmRows.end());
  EXPECT_EQ(displayNames(*catalogue->FieldListStructure()), first);
  EXPECT_EQ(catalogue->FieldListStructure()->findRow(2, Variant("Company Name")), 1);
}

}  // namespace
}  // namespace nvwm::testing
