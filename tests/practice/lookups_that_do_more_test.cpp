// The lookups that do more than read one column: two-step joins, guards on the ID, the firm
// look-up that doesn't ask for a connection, the archive, the employee names.
#include <gtest/gtest.h>

#include "practice/lookups.h"
#include "practice_fixture.h"
#include "runtime/clock.h"

namespace nvwm {
namespace {

using testing::PracticeFixture;

const std::string kScheduleSql =
    "SELECT Schedule.ScheduleID, Schedule.ClientNum FROM Schedule WHERE ScheduleID=";
const std::string kClientSql =
    "SELECT ClientData.ClientDataID, ClientData.CompanyIDNum FROM ClientData WHERE ClientDataID=";

TEST(CompanyIDFromScheduleIDTest, FollowsTheClientRecordWhileTheScheduleIsOpen) {
  PracticeFixture f;
  f.exec("INSERT INTO Schedule (ScheduleID, ClientNum) VALUES (7, 42);");
  f.exec("INSERT INTO ClientData (ClientDataID, CompanyIDNum) VALUES (42, 9);");
  EXPECT_EQ(getCompanyIDFromScheduleID(7), 9);
  EXPECT_EQ(f.db().sqlSent(), (std::vector<std::string>{kScheduleSql + "7;", kClientSql + "42;"}));
  // Both closed, the inner one first.
  ASSERT_EQ(f.db().opened.size(), 2u);
  EXPECT_EQ(f.db().closed, (std::vector<int32_t>{f.db().opened[1], f.db().opened[0]}));
}

TEST(CompanyIDFromScheduleIDTest, NoRowAtEitherStepOrANullGivesMinusOne) {
  const struct {
    const char* name;
    std::vector<std::string> rows;
    std::vector<int32_t> errors;
  } cases[] = {
      {"no schedule item", {}, {}},
      {"no client record", {"INSERT INTO Schedule (ScheduleID, ClientNum) VALUES (7, 42);"}, {}},
      {"Null ClientNum is not tested",
       {"INSERT INTO Schedule (ScheduleID, ClientNum) VALUES (7, NULL);"},
       {94}},
      {"Null CompanyIDNum is not tested",
       {"INSERT INTO Schedule (ScheduleID, ClientNum) VALUES (7, 42);",
        "INSERT INTO ClientData (ClientDataID, CompanyIDNum) VALUES (42, NULL);"},
       {94}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PracticeFixture f;
    for (const auto& row : c.rows) f.exec(row);
    EXPECT_EQ(getCompanyIDFromScheduleID(7), -1);
    EXPECT_EQ(f.errorNumbers(), c.errors);
  }
  PracticeFixture f;
  f.db().connected = false;
  EXPECT_EQ(getCompanyIDFromScheduleID(7), -1);
  EXPECT_TRUE(f.db().queries.empty());
}

TEST(EmployeeAssignedNameTest, MinusOneIsNoneAssignedBeforeTheDatabaseIsAsked) {
  PracticeFixture f;
  f.db().connected = false;
  EXPECT_EQ(getEmployeeAssignedNameFromFirmContactID(-1), "None Assigned");
  EXPECT_EQ(f.db().isConnectedCalls, 0);
  references().DatabaseReference = nullptr;
  EXPECT_EQ(getEmployeeAssignedNameFromFirmContactID(-1), "None Assigned");
  EXPECT_TRUE(f.errorNumbers().empty());
}

TEST(EmployeeAssignedNameTest, OtherNegativeIDsAreQueriedAndFindNobody) {
  PracticeFixture f;
  f.exec(
      "INSERT INTO AccountantEmployeeInfo (ContactID, DisplayName) VALUES (3, 'Ms. Accountant');");
  EXPECT_EQ(getEmployeeAssignedNameFromFirmContactID(-2), "None Assigned");
  EXPECT_EQ(getEmployeeAssignedNameFromFirmContactID(3), "Ms. Accountant");
  EXPECT_EQ(f.db().sqlSent(),
            (std::vector<std::string>{
                "SELECT AccountantEmployeeInfo.ContactID, AccountantEmployeeInfo.DisplayName FROM "
                "AccountantEmployeeInfo WHERE ContactID = -2 ORDER BY "
                "AccountantEmployeeInfo.DisplayName;",
                "SELECT AccountantEmployeeInfo.ContactID, AccountantEmployeeInfo.DisplayName FROM "
                "AccountantEmployeeInfo WHERE ContactID = 3 ORDER BY "
                "AccountantEmployeeInfo.DisplayName;"}));
}

TEST(EmployeeAssignedNameTest, NullNameIsNotTestedAndNoConnectionIsNoneAssigned) {
  PracticeFixture f;
  f.exec("INSERT INTO AccountantEmployeeInfo (ContactID, DisplayName) VALUES (3, NULL);");
  EXPECT_EQ(getEmployeeAssignedNameFromFirmContactID(3), "None Assigned");
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{94});
  f.db().connected = false;
  f.db().clear();
  EXPECT_EQ(getEmployeeAssignedNameFromFirmContactID(3), "None Assigned");
  EXPECT_TRUE(f.db().queries.empty());
}

TEST(UserIDFromEmployeeAssignedNameTest, MatchesTheWholeNameUnescaped) {
  const struct {
    const char* name;
    int32_t expected;
    std::vector<int32_t> errors;
  } cases[] = {
      {"Ms. Accountant", 3, {}},
      {"Ms.", -1, {}},
      {"None Assigned", -1, {}},
      {"O'Brien", -1, {3001}},  // the apostrophe ends the text: the SQL fails
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PracticeFixture f;
    f.exec(
        "INSERT INTO AccountantEmployeeInfo (ContactID, DisplayName) VALUES (3, 'Ms. Accountant'), "
        "(4, 'O''Brien');");
    EXPECT_EQ(getUserIDFromEmployeeAssignedName(c.name), c.expected);
    EXPECT_EQ(
        f.db().sqlSent(),
        std::vector<std::string>{
            "SELECT DISTINCT AccountantEmployeeInfo.DisplayName, "
            "AccountantEmployeeInfo.ContactID FROM AccountantEmployeeInfo WHERE DisplayName = '" +
            std::string(c.name) + "' ORDER BY AccountantEmployeeInfo.DisplayName;"});
    EXPECT_EQ(f.errorNumbers().size(), c.errors.size());
  }
}

class TaskDateTest : public ::testing::Test {
 protected:
  void SetUp() override {
    setClock(std::make_shared<FixedClock>(Date::fromYmd(2026, 11, 23).addMinutes(610)));
  }
  void TearDown() override { setClock(nullptr); }
  const Date today = Date::fromYmd(2026, 11, 23);
};

TEST_F(TaskDateTest, ReadsDateFromOrGivesToday) {
  const struct {
    const char* name;
    const char* row;
    int32_t taskID;
    Date expected;
    size_t queries;
    std::vector<int32_t> errors;
  } cases[] = {
      {"found",
       "INSERT INTO Tasks (TaskID, DateFrom) VALUES (7, '2026-03-04 00:00:00');",
       7,
       Date::fromYmd(2026, 3, 4),
       1,
       {}},
      {"no row", "", 8, today, 1, {}},
      {"negative ID, no query", "", -1, today, 0, {}},
      {"Null DateFrom is not tested",
       "INSERT INTO Tasks (TaskID, DateFrom) VALUES (7, NULL);",
       7,
       today,
       1,
       {94}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PracticeFixture f;
    if (*c.row) f.exec(c.row);
    EXPECT_EQ(getTaskDateFromTaskID(c.taskID), c.expected);
    EXPECT_EQ(f.db().queries.size(), c.queries);
    EXPECT_EQ(f.errorNumbers(), c.errors);
  }
  PracticeFixture f;
  EXPECT_EQ(getTaskDateFromTaskID(7), today);
  EXPECT_EQ(
      f.db().sqlSent(),
      std::vector<std::string>{"SELECT Tasks.TaskID, Tasks.DateFrom FROM Tasks WHERE TaskID = 7;"});
  f.db().connected = false;
  f.db().clear();
  EXPECT_EQ(getTaskDateFromTaskID(7), today);
  EXPECT_TRUE(f.db().queries.empty());
}

TEST(AccountantFirmIDTest, NeverAsksForTheConnectionAndOpensForWriting) {
  PracticeFixture f;
  f.exec("INSERT INTO AccountantFirmInfo (CompanyID) VALUES (5);");
  f.db().connected = false;  // not asked: the firm is read all the same
  EXPECT_EQ(getAccountantFirmID(), 5);
  EXPECT_EQ(f.db().isConnectedCalls, 0);
  ASSERT_EQ(f.db().queries.size(), 1u);
  EXPECT_EQ(f.db().queries[0].sql, "SELECT AccountantFirmInfo.CompanyID From AccountantFirmInfo;");
  EXPECT_EQ(f.db().queries[0].lockType, 3);
  EXPECT_TRUE(f.db().stillOpen().empty());
}

TEST(AccountantFirmIDTest, NoFirmGivesMinusOne) {
  PracticeFixture f;
  EXPECT_EQ(getAccountantFirmID(), -1);
  EXPECT_TRUE(f.errorNumbers().empty());
}

TEST(TaskIDFromScheduleIDTest, LiveTaskFirstThenTheArchive) {
  const std::string live =
      "SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=7;";
  const std::string archive =
      "SELECT archiveTasks.oldTaskID, archiveTasks.ScheduleIDNum FROM archiveTasks WHERE "
      "ScheduleIDNum=7;";
  const struct {
    const char* name;
    std::vector<std::string> rows;
    int32_t expected;
    std::vector<std::string> sql;
    std::vector<int32_t> errors;
  } cases[] = {
      {"live only", {"INSERT INTO Tasks (TaskID, ScheduleIDNum) VALUES (30, 7);"}, 30, {live}, {}},
      {"archived only",
       {"INSERT INTO archiveTasks (oldTaskID, ScheduleIDNum) VALUES (20, 7);"},
       20,
       {live, archive},
       {}},
      {"both: the live one",
       {"INSERT INTO Tasks (TaskID, ScheduleIDNum) VALUES (30, 7);",
        "INSERT INTO archiveTasks (oldTaskID, ScheduleIDNum) VALUES (20, 7);"},
       30,
       {live},
       {}},
      {"neither", {}, -1, {live, archive}, {}},
      {"archived with a Null old ID",
       {"INSERT INTO archiveTasks (oldTaskID, ScheduleIDNum) VALUES (NULL, 7);"},
       -1,
       {live, archive},
       {94}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PracticeFixture f;
    for (const auto& row : c.rows) f.exec(row);
    EXPECT_EQ(getTaskIDFromScheduleID(7), c.expected);
    EXPECT_EQ(f.db().sqlSent(), c.sql);
    EXPECT_EQ(f.errorNumbers(), c.errors);
    if (c.errors.empty()) {
      EXPECT_TRUE(f.db().stillOpen().empty());
    }
  }
}

TEST(TaskIDFromScheduleIDTest, NegativeIDOrNoConnectionSendsNothing) {
  PracticeFixture f;
  f.exec("INSERT INTO Tasks (TaskID, ScheduleIDNum) VALUES (30, -1);");
  EXPECT_EQ(getTaskIDFromScheduleID(-1), -1);
  f.db().connected = false;
  EXPECT_EQ(getTaskIDFromScheduleID(7), -1);
  EXPECT_TRUE(f.db().queries.empty());
}

}  // namespace
}  // namespace nvwm
