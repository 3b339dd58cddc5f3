// A schedule item gets the task that carries it out.
#include <gtest/gtest.h>

#include "scheduling/task_schedule_links.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::SchedulingFixture;
using testing::storedDate;
using testing::storedTime;

std::string taskRow(SchedulingFixture& f, int32_t id) {
  return f.stored(
      "SELECT coalesce(UserIDNum, 'N') || '|' || coalesce(ScheduleIDNum, 'N') || '|' || "
      "coalesce(EstimatedTime, 'N') || '|' || coalesce(CompanyIDNum, 'N') || '|' || "
      "coalesce(ContactIDNum, 'N') || '|' || coalesce(Subject, 'N') || '|' || coalesce(DateFrom, "
      "'N') || '|' || coalesce(TimeFrom, 'N') || '|' || coalesce(TimeTo, 'N') || '|' || "
      "coalesce(hideInTasks, 'N') || '|' || coalesce(RecurAnnually, 'N') || '|' || "
      "coalesce(CompanyProjectStepIDNum, 'N') || '|' || coalesce(TextBody, 'N') || '|' || "
      "coalesce(NotesFlag, 'N') || '|' || coalesce(notifyType, 'N') || '|' || "
      "coalesce(ClientNotifiedFlag, 'N') FROM Tasks WHERE TaskID = " +
      std::to_string(id) + ";");
}

// Item 20: a GST return of client 9 (company 5) for Ann, due in house on Saturday
// 21 November 2026. Ann's own estimate for GST returns is 1.5 hours, the firm's 2.
class TaskForScheduleItemTest : public ::testing::Test {
 protected:
  void SetUp() override {
    f.addPractice();
    f.exec(
        "INSERT INTO ScheduleTypes (ScheduleTypeID, TotalNum, ScheduleNum, DefaultEstTime) "
        "VALUES (1, 101, NULL, 2.0);"
        "INSERT INTO UserBillingScheduleTypeInfo (UserIDNum, ScheduleTypeNum, DefaultEstTime) "
        "VALUES (7, 1, 1.5);"
        "INSERT INTO Schedule (ScheduleID, ClientNum, ContactIDNum, ScheduleName, "
        "EmployeeAssigned, inHouseDueDate, totalNum, scheduleNum, hideInTasks, RecurAnnually, "
        "CompanyProjectStepIDNum, notifyType, ScheduleNotes) VALUES (20, 9, 12, 'GST Return', "
        "'Ann Ledger', '" +
        storedDate(2026, 11, 21) + "', 101, 0, 1, 0, 4, 2, 'Call first');");
  }
  // Every column of the item, as stored.
  std::string itemRow() {
    return f.stored(
        "SELECT ClientNum || ContactIDNum || ScheduleName || EmployeeAssigned || inHouseDueDate "
        "|| quote(CalendarDate) || quote(DueDate) || totalNum || scheduleNum || hideInTasks || "
        "RecurAnnually || CompanyProjectStepIDNum || notifyType || ScheduleNotes || NotesFlag || "
        "Closed FROM Schedule WHERE ScheduleID = 20;");
  }
  SchedulingFixture f;
};

TEST_F(TaskForScheduleItemTest, ANewTaskOnThePreviousWorkingDayAtTheFirstFreeTime) {
  const int32_t id = addNewTaskForScheduleItem(20, -1.0f, true);
  ASSERT_GT(id, 0);
  EXPECT_EQ(taskRow(f, id), "7|20|1.5|5|12|GST Return|" + storedDate(2026, 11, 20) + "|" +
                                storedTime(9, 0) + "|" + storedTime(10, 30) + "|1|0|N|N|0|2|1");
  EXPECT_TRUE(f.errorNumbers().empty()) << f.describeErrors();
  EXPECT_EQ(f.errors().entered.front(),
            "Tallowbrook.exe-modDatabaseFunctions-addNewTaskForScheduleItem");
  // The calendar text of Ann's default task template.
  EXPECT_EQ(
      f.stored("SELECT AppointmentText FROM Tasks WHERE TaskID = " + std::to_string(id) + ";"),
      "GST Return for Maple Leaf Bakery Inc.\r\n9:00 am to 10:30 am");
}

TEST_F(TaskForScheduleItemTest, TheCalendarTextFollowsTheTaskWhenItMoves) {
  f.exec(
      "INSERT INTO UserCalendarSettings (UserIDNum, TemplateTask) VALUES (7, "
      "'«Task Start Time»-«Task End Time» «Task Subject»');");
  const int32_t id = addNewTaskForScheduleItem(20, 1.0f, true);
  const std::string text =
      "SELECT AppointmentText FROM Tasks WHERE TaskID = " + std::to_string(id) + ";";
  EXPECT_EQ(f.stored(text), "9:00 am-10:00 am GST Return");
  EXPECT_EQ(addNewTaskForScheduleItem(20, 2.0f, true), id);
  EXPECT_EQ(f.stored(text), "9:00 am-11:00 am GST Return");
  EXPECT_TRUE(f.errorNumbers().empty()) << f.describeErrors();
}

TEST_F(TaskForScheduleItemTest, TheDateMovesOnlyWhenAsked) {
  const int32_t id = addNewTaskForScheduleItem(20, -1.0f, false);
  EXPECT_EQ(f.stored("SELECT DateFrom FROM Tasks WHERE TaskID = " + std::to_string(id) + ";"),
            storedDate(2026, 11, 21));
}

TEST_F(TaskForScheduleItemTest, AGivenEstimateIsWrittenWhateverTheDefaultsSay) {
  const int32_t id = addNewTaskForScheduleItem(20, 2.5f, true);
  EXPECT_EQ(f.stored("SELECT EstimatedTime || '|' || TimeTo FROM Tasks WHERE TaskID = " +
                     std::to_string(id) + ";"),
            "2.5|" + storedTime(11, 30));
}

TEST_F(TaskForScheduleItemTest, TheSearchRunsOnTheInHouseDateAsStored) {
  // Ann is busy on the Saturday morning, free on the Friday: the task lands on the Friday at
  // the Saturday's free time.
  f.exec("INSERT INTO Tasks (UserIDNum, DateFrom, TimeFrom, TimeTo) VALUES (7, '" +
         storedDate(2026, 11, 21) + "', '" + storedTime(9, 0) + "', '" + storedTime(12, 0) + "');");
  const int32_t id = addNewTaskForScheduleItem(20, 1.0f, true);
  EXPECT_EQ(f.stored("SELECT DateFrom || '|' || TimeFrom || '|' || TimeTo FROM Tasks WHERE "
                     "TaskID = " +
                     std::to_string(id) + ";"),
            storedDate(2026, 11, 20) + "|" + storedTime(12, 0) + "|" + storedTime(13, 0));
}

TEST_F(TaskForScheduleItemTest, ALongEstimateEndsAtMidnightAndTheTimesAreTurnedAround) {
  // The empty day holds no 9 hours: the hour is drawn, and a draw of 0 gives 9:00 am.
  const int32_t id = addNewTaskForScheduleItem(20, 9.0f, true);
  EXPECT_EQ(f.stored("SELECT TimeFrom || '|' || TimeTo FROM Tasks WHERE TaskID = " +
                     std::to_string(id) + ";"),
            storedTime(0, 0) + "|" + storedTime(9, 0));
}

TEST_F(TaskForScheduleItemTest, ASecondRunUpdatesTheSameTaskAndMovesIt) {
  const int32_t id = addNewTaskForScheduleItem(20, -1.0f, true);
  f.exec("UPDATE Tasks SET TextBody = 'kept', NotesFlag = 1 WHERE TaskID = " + std::to_string(id) +
         ";"
         "UPDATE Schedule SET inHouseDueDate = '" +
         storedDate(2026, 12, 2) + "', ScheduleNotes = NULL;");
  EXPECT_EQ(addNewTaskForScheduleItem(20, -1.0f, true), id);
  EXPECT_EQ(f.count("Tasks"), 1);
  // The project step is written now; the notes flag is cleared and the notes left as they are.
  EXPECT_EQ(taskRow(f, id), "7|20|1.5|5|12|GST Return|" + storedDate(2026, 12, 2) + "|" +
                                storedTime(9, 0) + "|" + storedTime(10, 30) + "|1|0|4|kept|0|2|1");
  EXPECT_TRUE(f.errorNumbers().empty()) << f.describeErrors();
}

TEST_F(TaskForScheduleItemTest, TheItemIsNeverChanged) {
  const std::string before = itemRow();
  addNewTaskForScheduleItem(20, -1.0f, true);
  addNewTaskForScheduleItem(20, -1.0f, true);
  EXPECT_EQ(itemRow(), before);
}

TEST_F(TaskForScheduleItemTest, OfSeveralTasksOfTheItemTheFirstIsUpdated) {
  f.exec(
      "INSERT INTO Tasks (TaskID, ScheduleIDNum, Subject) VALUES (40, 20, 'a'), (41, 20, "
      "'b');");
  EXPECT_EQ(addNewTaskForScheduleItem(20, -1.0f, true), 40);
  EXPECT_EQ(f.stored("SELECT Subject FROM Tasks WHERE TaskID = 41;"), "b");
}

TEST_F(TaskForScheduleItemTest, NoClientNoContactAndTheNotifyFlag) {
  const struct {
    const char* clientNum;
    const char* contact;
    const char* notifyType;
    std::string expected;  // CompanyIDNum|ContactIDNum|notifyType|ClientNotifiedFlag
  } cases[] = {
      {"NULL", "NULL", "NULL", "-1|-1|N|0"}, {"9", "12", "0", "5|12|0|0"},
      {"9", "12", "1", "5|12|1|1"},          {"10", "NULL", "2", "6|-1|2|1"},
      {"44", "12", "1", "-1|12|1|1"},  // a client record that doesn't exist
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.clientNum) + " " + c.contact + " " + c.notifyType);
    f.exec(std::string("DELETE FROM Tasks; UPDATE Schedule SET ClientNum = ") + c.clientNum +
           ", ContactIDNum = " + c.contact + ", notifyType = " + c.notifyType + ";");
    const int32_t id = addNewTaskForScheduleItem(20, -1.0f, true);
    EXPECT_EQ(f.stored("SELECT CompanyIDNum || '|' || ContactIDNum || '|' || "
                       "coalesce(notifyType, 'N') || '|' || ClientNotifiedFlag FROM Tasks WHERE "
                       "TaskID = " +
                       std::to_string(id) + ";"),
              c.expected);
  }
}

TEST_F(TaskForScheduleItemTest, NotesNeverReachANewTask) {
  // With text: the flag is False and TextBody stays empty.
  int32_t id = addNewTaskForScheduleItem(20, -1.0f, true);
  EXPECT_EQ(f.stored("SELECT coalesce(TextBody, 'N') || '|' || NotesFlag FROM Tasks WHERE "
                     "TaskID = " +
                     std::to_string(id) + ";"),
            "N|0");
  EXPECT_TRUE(f.errorNumbers().empty()) << f.describeErrors();

  // Null: the Null is read, raises, and the routine goes on (as the error service answers)
  // to set the flag.
  f.exec("DELETE FROM Tasks; UPDATE Schedule SET ScheduleNotes = NULL;");
  f.errors().action = 1;
  id = addNewTaskForScheduleItem(20, -1.0f, true);
  EXPECT_EQ(f.stored("SELECT coalesce(TextBody, 'N') || '|' || NotesFlag FROM Tasks WHERE "
                     "TaskID = " +
                     std::to_string(id) + ";"),
            "N|1");
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{94});
}

TEST_F(TaskForScheduleItemTest, NullNotesAndAnErrorServiceThatLeavesMakeNoTask) {
  f.exec("UPDATE Schedule SET ScheduleNotes = NULL;");
  EXPECT_EQ(addNewTaskForScheduleItem(20, -1.0f, true), -1);
  EXPECT_EQ(f.count("Tasks"), 0);
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{94});
}

TEST_F(TaskForScheduleItemTest, NoneAssignedGivesATaskOfNobody) {
  f.exec("UPDATE Schedule SET EmployeeAssigned = 'None Assigned';");
  const int32_t id = addNewTaskForScheduleItem(20, 1.0f, true);
  EXPECT_EQ(f.stored("SELECT UserIDNum FROM Tasks WHERE TaskID = " + std::to_string(id) + ";"),
            "-1");
}

TEST_F(TaskForScheduleItemTest, NoItemNoConnectionOrANullNameMakeNothing) {
  EXPECT_EQ(addNewTaskForScheduleItem(21, -1.0f, true), -1);
  f.db().connected = false;
  EXPECT_EQ(addNewTaskForScheduleItem(20, -1.0f, true), -1);
  EXPECT_EQ(f.count("Tasks"), 0);
  EXPECT_TRUE(f.errorNumbers().empty()) << f.describeErrors();
  f.db().connected = true;
  f.exec("UPDATE Schedule SET ScheduleName = NULL;");
  EXPECT_EQ(addNewTaskForScheduleItem(20, -1.0f, true), -1);
  EXPECT_EQ(f.count("Tasks"), 0);
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{94});
}

}  // namespace
}  // namespace nvwm
