// A changed task carries its changes to its schedule entry and project step.
#include <gtest/gtest.h>

#include "scheduling/task_schedule_links.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::SchedulingFixture;
using testing::storedDate;

std::string entryRow(SchedulingFixture& f) {
  return f.stored(
      "SELECT coalesce(EmployeeAssigned, 'N') || '|' || coalesce(ScheduleName, 'N') || '|' || "
      "coalesce(CalendarDate, 'N') || '|' || coalesce(ClientNum, 'N') || '|' || "
      "coalesce(ContactIDNum, 'N') || '|' || coalesce(hideInTasks, 'N') || '|' || "
      "coalesce(RecurAnnually, 'N') || '|' || coalesce(CompanyProjectStepIDNum, 'N') || '|' || "
      "coalesce(ScheduleNotes, 'N') || '|' || coalesce(NotesFlag, 'N') || '|' || "
      "coalesce(notifyType, 'N') || '|' || coalesce(DueDate, 'N') || '|' || "
      "coalesce(inHouseDueDate, 'N') FROM Schedule WHERE ScheduleID = 20;");
}

std::string stepRow(SchedulingFixture& f) {
  return f.stored(
      "SELECT coalesce(StepUserID, 'N') || '|' || coalesce(Closed, 'N') || '|' || "
      "coalesce(PersonCompletedUserIDNum, 'N') || '|' || coalesce(DateCompleted, 'N') FROM "
      "CompanyProjectSteps WHERE CompanyProjectStepID = 4;");
}

// Task 1 carries entry 20. The task's number is also the handle its own recordset gets on a
// fresh connection, so the project step read that goes by the task's number reaches it.
class ScheduleTaskSyncTest : public ::testing::Test {
 protected:
  void SetUp() override {
    f.addPractice();
    f.exec(
        "INSERT INTO Schedule (ScheduleID, ClientNum, ContactIDNum, ScheduleName, "
        "EmployeeAssigned, DueDate, inHouseDueDate, CalendarDate, ScheduleNotes, NotesFlag, "
        "Closed, notifyType) VALUES (20, 10, NULL, 'Old name', 'Bo Tally', '" +
        storedDate(2026, 11, 30) + "', '" + storedDate(2026, 11, 27) + "', '" +
        storedDate(2026, 11, 27) +
        "', 'Old notes', 1, 1, 0);"
        "INSERT INTO Tasks (TaskID, ScheduleIDNum, UserIDNum, CompanyIDNum, ContactIDNum, "
        "Subject, DateFrom, hideInTasks, RecurAnnually, CompanyProjectStepIDNum, TextBody, "
        "notifyType, EstimatedTime) VALUES (1, 20, 7, 5, 12, 'GST Return', '" +
        storedDate(2026, 11, 25) +
        "', 1, 1, 4, 'New notes', 2, 3.5);"
        "INSERT INTO CompanyProjectSteps (CompanyProjectStepID, StepUserID, Closed) VALUES "
        "(4, 8, 0);");
  }
  SchedulingFixture f;
};

TEST_F(ScheduleTaskSyncTest, TheEntryFollowsItsTaskAndTheStepTakesUserAndClosedStatus) {
  EXPECT_TRUE(synchScheduleInfoWithTaskInfo(1));
  EXPECT_EQ(entryRow(f), "Ann Ledger|GST Return|" + storedDate(2026, 11, 25) +
                             "|9|12|1|1|4|New notes|1|2|" + storedDate(2026, 11, 30) + "|" +
                             storedDate(2026, 11, 27));
  EXPECT_EQ(stepRow(f), "7|1|7|" + storedDate(2026, 11, 18));
  EXPECT_TRUE(f.errorNumbers().empty());
  EXPECT_EQ(f.errors().entered.front(),
            "Tallowbrook.exe-modDatabaseFunctions-synchScheduleInfoWithTaskInfo");
}

TEST_F(ScheduleTaskSyncTest, NullsAndGoneRecordsLeaveTheEntrysOwnValues) {
  f.exec(
      "UPDATE Tasks SET Subject = NULL, DateFrom = NULL, CompanyIDNum = 77, "
      "ContactIDNum = 78, TextBody = NULL;");
  EXPECT_TRUE(synchScheduleInfoWithTaskInfo(1));
  EXPECT_EQ(entryRow(f), "Ann Ledger|Old name|" + storedDate(2026, 11, 27) +
                             "|10|N|1|1|4|Old notes|0|2|" + storedDate(2026, 11, 30) + "|" +
                             storedDate(2026, 11, 27));
}

TEST_F(ScheduleTaskSyncTest, WithoutAnEntryOneIsMadeAndTheStepIsStillUpdatedAsOpen) {
  f.exec("DELETE FROM Schedule; UPDATE CompanyProjectSteps SET Closed = 1;");
  EXPECT_TRUE(synchScheduleInfoWithTaskInfo(1));
  EXPECT_EQ(f.count("Schedule"), 1);
  EXPECT_EQ(f.stored("SELECT ScheduleIDNum = (SELECT ScheduleID FROM Schedule) FROM Tasks;"), "1");
  EXPECT_EQ(stepRow(f), "7|0|7|" + storedDate(2026, 11, 18));
}

TEST_F(ScheduleTaskSyncTest, TheStepReadGoesByTheTasksNumberAndFailsWhenNoRecordsetHasIt) {
  // Task 30 is read from a recordset numbered 30, which isn't open: the entry is synchronised,
  // the step is left alone and the routine says False.
  f.exec("UPDATE Tasks SET TaskID = 30;");
  EXPECT_FALSE(synchScheduleInfoWithTaskInfo(30));
  EXPECT_EQ(f.stored("SELECT ScheduleName FROM Schedule;"), "GST Return");
  EXPECT_EQ(stepRow(f), "8|0|N|N");
  EXPECT_EQ(f.errorNumbers().size(), 1u);
}

TEST_F(ScheduleTaskSyncTest, NullUserOrClosedGoesToTheErrorServiceAndSaysFalse) {
  f.exec("UPDATE Tasks SET UserIDNum = NULL;");
  EXPECT_FALSE(synchScheduleInfoWithTaskInfo(1));
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{94});
  EXPECT_EQ(f.stored("SELECT ScheduleName FROM Schedule;"), "Old name");

  SchedulingFixture g;
  g.addPractice();
  g.exec(
      "INSERT INTO Schedule (ScheduleID, Closed) VALUES (20, NULL);"
      "INSERT INTO Tasks (TaskID, ScheduleIDNum, UserIDNum, Subject) VALUES (1, 20, 7, 'X');");
  EXPECT_FALSE(synchScheduleInfoWithTaskInfo(1));
  EXPECT_EQ(g.errorNumbers(), std::vector<int32_t>{94});
  EXPECT_EQ(g.stored("SELECT ScheduleName FROM Schedule;"), "X");
}

TEST_F(ScheduleTaskSyncTest, NoTaskOrNoConnectionIsNoFailure) {
  EXPECT_TRUE(synchScheduleInfoWithTaskInfo(2));
  f.db().connected = false;
  EXPECT_TRUE(synchScheduleInfoWithTaskInfo(1));
  EXPECT_EQ(f.stored("SELECT ScheduleName FROM Schedule;"), "Old name");
  EXPECT_TRUE(f.errorNumbers().empty());
}

}  // namespace
}  // namespace nvwm
