// Whether a task and a schedule entry are linked: what each check reads, and that it writes
// nothing unless asked to make the missing half.
#include <gtest/gtest.h>

#include "practice/lookups.h"
#include "practice_fixture.h"

namespace nvwm {
namespace {

using testing::PracticeFixture;
using Texts = std::vector<std::string>;

class AssociationChecksTest : public ::testing::Test {
 protected:
  AssociationChecksTest() {
    p.exec(
        "INSERT INTO Schedule (ScheduleID) VALUES (1), (2);"
        "INSERT INTO Tasks (TaskID, ScheduleIDNum) VALUES (10, 1), (11, NULL), (12, 77);");
  }
  PracticeFixture p;
};

TEST_F(AssociationChecksTest, TaskAndItsScheduleEntry) {
  const struct {
    int32_t taskID;
    bool expected;
    Texts sql;
  } cases[] = {
      {10,
       true,
       {"SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE TaskID=10;",
        "SELECT Schedule.ScheduleID FROM Schedule WHERE ScheduleID = 1;"}},
      // A Null schedule number needs an entry; no validation is asked.
      {11, false, {"SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE TaskID=11;"}},
      // A schedule number that names no entry.
      {12,
       false,
       {"SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE TaskID=12;",
        "SELECT Schedule.ScheduleID FROM Schedule WHERE ScheduleID = 77;"}},
      // No such task: not associated, nothing needed.
      {99, false, {"SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE TaskID=99;"}},
      {-1, false, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.taskID);
    p.db().clear();
    EXPECT_EQ(isThisTaskAssociatedWithScheduleEntry(c.taskID, false), c.expected);
    EXPECT_EQ(p.db().sqlSent(), c.sql);
    EXPECT_TRUE(p.db().stillOpen().empty());
  }
  EXPECT_TRUE(p.errorNumbers().empty());
}

TEST_F(AssociationChecksTest, ScheduleEntryAndItsTask) {
  const struct {
    int32_t scheduleID;
    bool expected;
    Texts sql;
  } cases[] = {
      {1,
       true,
       {"SELECT Schedule.ScheduleID FROM Schedule WHERE ScheduleID = 1;",
        "SELECT Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=1;"}},
      {2,
       false,
       {"SELECT Schedule.ScheduleID FROM Schedule WHERE ScheduleID = 2;",
        "SELECT Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=2;"}},
      // An entry that doesn't exist is never looked for among the tasks, although task 12
      // names it.
      {77, false, {"SELECT Schedule.ScheduleID FROM Schedule WHERE ScheduleID = 77;"}},
      {-5, false, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.scheduleID);
    p.db().clear();
    EXPECT_EQ(isThisScheduleEntryAssociatedWithTask(c.scheduleID, false), c.expected);
    EXPECT_EQ(p.db().sqlSent(), c.sql);
  }
}

// Making the missing half is tested with the scheduling routines that make it.
TEST_F(AssociationChecksTest, WithoutCreateIfMissingNothingIsWritten) {
  EXPECT_FALSE(isThisTaskAssociatedWithScheduleEntry(11, false));
  EXPECT_FALSE(isThisTaskAssociatedWithScheduleEntry(12, false));
  EXPECT_FALSE(isThisScheduleEntryAssociatedWithTask(2, false));
  for (const auto& q : p.db().queries) EXPECT_EQ(q.lockType, 1) << q.sql;
}

TEST_F(AssociationChecksTest, NoConnectionAsksNothing) {
  p.db().connected = false;
  EXPECT_FALSE(isThisTaskAssociatedWithScheduleEntry(10, true));
  EXPECT_FALSE(isThisScheduleEntryAssociatedWithTask(1, true));
  EXPECT_TRUE(p.db().queries.empty());
}

TEST_F(AssociationChecksTest, TraceTags) {
  isThisTaskAssociatedWithScheduleEntry(10, false);
  isThisScheduleEntryAssociatedWithTask(1, false);
  const auto& entered = p.errors().entered;
  EXPECT_EQ(entered.front(),
            testing::databaseFunctionsTag("isThisTaskAssociatedWithScheduleEntry"));
  EXPECT_NE(std::find(entered.begin(), entered.end(),
                      testing::databaseFunctionsTag("isThisScheduleEntryAssociatedWithTask")),
            entered.end());
  EXPECT_TRUE(p.errors().stack.empty());
}

}  // namespace
}  // namespace nvwm
