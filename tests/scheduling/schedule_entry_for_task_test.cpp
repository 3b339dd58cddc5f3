// A task entered by hand gets the schedule entry that shows it.
#include <gtest/gtest.h>

#include "scheduling/task_schedule_links.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::SchedulingFixture;
using testing::storedDate;

// The schedule entry, column by column.
std::string entryRow(SchedulingFixture& f, int32_t id) {
  return f.stored(
      "SELECT coalesce(ClientNum, 'N') || '|' || coalesce(ContactIDNum, 'N') || '|' || "
      "coalesce(Year, 'N') || '|' || coalesce(Class, 'N') || '|' || coalesce(ScheduleName, 'N') "
      "|| '|' || coalesce(DueDate, 'N') || '|' || coalesce(inHouseDueDate, 'N') || '|' || "
      "coalesce(CalendarDate, 'N') || '|' || coalesce(hideInTasks, 'N') || '|' || "
      "coalesce(CompanyProjectStepIDNum, 'N') || '|' || coalesce(EmployeeAssigned, 'N') || '|' "
      "|| coalesce(ScheduleNotes, 'N') || '|' || coalesce(NotesFlag, 'N') || '|' || "
      "coalesce(notifyType, 'N') || '|' || coalesce(totalNum, 'N') || '|' || "
      "coalesce(scheduleNum, 'N') || '|' || coalesce(individualNum, 'N') FROM Schedule WHERE "
      "ScheduleID = " +
      std::to_string(id) + ";");
}

class ScheduleEntryForTaskTest : public ::testing::Test {
 protected:
  void SetUp() override {
    f.addPractice();
    // Friday 27 November 2026.
    f.exec(
        "INSERT INTO Tasks (TaskID, UserIDNum, CompanyIDNum, ContactIDNum, Subject, DateFrom, "
        "hideInTasks, CompanyProjectStepIDNum, TextBody, notifyType) VALUES (30, 7, 5, 12, "
        "'Review books', '" +
        storedDate(2026, 11, 27) + "', 1, -1, 'Bring the binder', 0);");
  }
  std::string link(int32_t taskID = 30) {
    return f.stored("SELECT coalesce(ScheduleIDNum, 'N') FROM Tasks WHERE TaskID = " +
                    std::to_string(taskID) + ";");
  }
  SchedulingFixture f;
};

TEST_F(ScheduleEntryForTaskTest, ACustomEntryIsMadeFromTheTaskAndLinked) {
  const int32_t id = addNewScheduleEntryForTaskItem(30, -1, -1, -1, false, 10, 1);
  ASSERT_GT(id, 0);
  EXPECT_EQ(entryRow(f, id), "9|12|2026|Custom|Review books|" + storedDate(2026, 11, 27) + "|" +
                                 storedDate(2026, 11, 24) + "|" + storedDate(2026, 11, 24) +
                                 "|1|-1|Ann Ledger|Bring the binder|1|0|111|10|1");
  EXPECT_EQ(link(), std::to_string(id));
  EXPECT_TRUE(f.errorNumbers().empty());
  EXPECT_EQ(f.errors().entered.front(),
            "Tallowbrook.exe-modDatabaseFunctions-addNewScheduleEntryForTaskItem");
}

TEST_F(ScheduleEntryForTaskTest, ASecondCallSynchronisesAndMakesNoSecondEntry) {
  const int32_t id = addNewScheduleEntryForTaskItem(30, -1, -1, -1, false, 10, 1);
  f.exec("UPDATE Tasks SET Subject = 'Review the books', DateFrom = '" + storedDate(2026, 12, 2) +
         "' WHERE TaskID = 30;");
  EXPECT_EQ(addNewScheduleEntryForTaskItem(30, -1, -1, -1, false, 10, 1), id);
  EXPECT_EQ(f.count("Schedule"), 1);
  EXPECT_EQ(f.stored("SELECT ScheduleName || '|' || CalendarDate || '|' || DueDate FROM "
                     "Schedule;"),
            "Review the books|" + storedDate(2026, 12, 2) + "|" + storedDate(2026, 11, 27));
  EXPECT_EQ(link(), std::to_string(id));
}

TEST_F(ScheduleEntryForTaskTest, TheInHouseDueDateAndTheCalendarDate) {
  const struct {
    const char* name;
    std::string dateFrom;
    const char* period;  // InHouseDueDatePeriod of the custom type; nullptr: no row
    std::string inHouse;
    std::string calendar;
  } cases[] = {
      {"Friday, three days before", storedDate(2026, 11, 27), nullptr, storedDate(2026, 11, 24),
       storedDate(2026, 11, 24)},
      {"landing on a Sunday", storedDate(2026, 11, 25), nullptr, storedDate(2026, 11, 22),
       storedDate(2026, 11, 20)},
      {"a period of the type, made negative", storedDate(2026, 11, 27), "5",
       storedDate(2026, 11, 22), storedDate(2026, 11, 20)},
      {"a period of 0", storedDate(2026, 11, 28), "0", storedDate(2026, 11, 28),
       storedDate(2026, 11, 27)},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    SchedulingFixture g;
    g.addPractice();
    if (c.period) {
      g.exec(std::string("INSERT INTO ScheduleTypes (TotalNum, InHouseDueDatePeriod) VALUES "
                         "(111, ") +
             c.period + ");");
    }
    g.exec(
        "INSERT INTO Tasks (TaskID, Subject, DateFrom, hideInTasks, CompanyProjectStepIDNum, "
        "notifyType) VALUES (30, 'Review', '" +
        c.dateFrom + "', 0, -1, 0);");
    const int32_t id = addNewScheduleEntryForTaskItem(30, -1, -1, -1, false, 10, 1);
    EXPECT_EQ(g.stored("SELECT inHouseDueDate || '|' || CalendarDate FROM Schedule WHERE "
                       "ScheduleID = " +
                       std::to_string(id) + ";"),
              c.inHouse + "|" + c.calendar);
  }
}

TEST_F(ScheduleEntryForTaskTest, TheClientComesFromTheTasksCompanyBeforeTheArguments) {
  const struct {
    const char* name;
    const char* taskCompany;
    int32_t clientArg, companyArg;
    const char* expectedClient;
  } cases[] = {
      {"the task's company wins over a client argument", "5", 10, -1, "9"},
      {"no company on the task keeps the client argument", "NULL", 10, -1, "10"},
      {"a company without a client record gives -1, argument or not", "7", 10, -1, "-1"},
      {"a company argument brings its client when none is valid", "NULL", -1, 6, "10"},
      {"a client already valid stays", "5", -1, 6, "9"},
      {"the company argument repairs a company without a client", "7", -1, 6, "10"},
      {"an unknown company argument is ignored", "NULL", 9, 99, "9"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    SchedulingFixture g;
    g.addPractice();
    g.exec("INSERT INTO Companies (CompanyID, CompanyName) VALUES (7, 'Birch Consulting');");
    g.exec(std::string("INSERT INTO Tasks (TaskID, CompanyIDNum, Subject, DateFrom, hideInTasks, "
                       "CompanyProjectStepIDNum, notifyType) VALUES (30, ") +
           c.taskCompany + ", 'Review', '" + storedDate(2026, 11, 27) + "', 0, -1, 0);");
    const int32_t id =
        addNewScheduleEntryForTaskItem(30, c.clientArg, c.companyArg, -1, false, 10, 1);
    EXPECT_EQ(
        g.stored("SELECT ClientNum FROM Schedule WHERE ScheduleID = " + std::to_string(id) + ";"),
        c.expectedClient);
  }
}

TEST_F(ScheduleEntryForTaskTest, AValidContactArgumentReplacesTheTasksContact) {
  f.exec("INSERT INTO Contacts (ContactID, DisplayName) VALUES (13, 'Lee Baker');");
  const int32_t id = addNewScheduleEntryForTaskItem(30, -1, -1, 13, false, 10, 1);
  EXPECT_EQ(
      f.stored("SELECT ContactIDNum FROM Schedule WHERE ScheduleID = " + std::to_string(id) + ";"),
      "13");
}

TEST_F(ScheduleEntryForTaskTest, AProjectStepIsAProjectEntryWithTheGivenNumbers) {
  f.exec("INSERT INTO ScheduleTypes (TotalNum, InHouseDueDatePeriod) VALUES (113, 1), (111, 7);");
  const int32_t id = addNewScheduleEntryForTaskItem(30, -1, -1, -1, true, 4, 2);
  EXPECT_EQ(f.stored("SELECT Class || '|' || totalNum || '|' || scheduleNum || '|' || "
                     "individualNum || '|' || inHouseDueDate FROM Schedule WHERE ScheduleID = " +
                     std::to_string(id) + ";"),
            "Project|113|4|2|" + storedDate(2026, 11, 26));
  // The custom entry ignores the two numbers.
  SchedulingFixture g;
  g.exec(
      "INSERT INTO Tasks (TaskID, Subject, DateFrom, hideInTasks, CompanyProjectStepIDNum, "
      "notifyType) VALUES (30, 'Review', '" +
      storedDate(2026, 11, 27) + "', 0, -1, 0);");
  const int32_t custom = addNewScheduleEntryForTaskItem(30, -1, -1, -1, false, 4, 2);
  EXPECT_EQ(g.stored("SELECT Class || '|' || scheduleNum || '|' || individualNum FROM Schedule "
                     "WHERE ScheduleID = " +
                     std::to_string(custom) + ";"),
            "Custom|10|1");
}

TEST_F(ScheduleEntryForTaskTest, NobodyAssignedAndNoNotes) {
  f.exec(
      "UPDATE Tasks SET UserIDNum = NULL, TextBody = NULL;"
      "INSERT INTO Tasks (TaskID, UserIDNum, Subject, DateFrom, hideInTasks, "
      "CompanyProjectStepIDNum, notifyType) VALUES (31, 99, 'Other', '" +
      storedDate(2026, 11, 27) + "', 0, -1, 0);");
  const int32_t a = addNewScheduleEntryForTaskItem(30, -1, -1, -1, false, 10, 1);
  const int32_t b = addNewScheduleEntryForTaskItem(31, -1, -1, -1, false, 10, 1);
  EXPECT_EQ(f.stored("SELECT EmployeeAssigned || '|' || coalesce(ScheduleNotes, 'N') || '|' || "
                     "NotesFlag FROM Schedule WHERE ScheduleID = " +
                     std::to_string(a) + ";"),
            "None Assigned|N|0");
  EXPECT_EQ(f.stored("SELECT EmployeeAssigned FROM Schedule WHERE ScheduleID = " +
                     std::to_string(b) + ";"),
            "None Assigned");
}

TEST_F(ScheduleEntryForTaskTest, ALinkThatPointsNowhereIsRewritten) {
  f.exec("UPDATE Tasks SET ScheduleIDNum = 77;");
  const int32_t id = addNewScheduleEntryForTaskItem(30, -1, -1, -1, false, 10, 1);
  EXPECT_NE(id, 77);
  EXPECT_EQ(link(), std::to_string(id));
  EXPECT_EQ(f.count("Schedule"), 1);
}

TEST_F(ScheduleEntryForTaskTest, NoTaskOrNoConnectionGivesZero) {
  EXPECT_EQ(addNewScheduleEntryForTaskItem(31, -1, -1, -1, false, 10, 1), 0);
  f.db().connected = false;
  EXPECT_EQ(addNewScheduleEntryForTaskItem(30, -1, -1, -1, false, 10, 1), 0);
  EXPECT_EQ(f.count("Schedule"), 0);
  EXPECT_EQ(link(), "N");
}

TEST_F(ScheduleEntryForTaskTest, ANullReadWithoutATestLeavesTheEntryUnwritten) {
  for (const char* column :
       {"Subject", "DateFrom", "hideInTasks", "CompanyProjectStepIDNum", "notifyType"}) {
    SCOPED_TRACE(column);
    SchedulingFixture g;
    g.exec(
        "INSERT INTO Tasks (TaskID, Subject, DateFrom, hideInTasks, CompanyProjectStepIDNum, "
        "notifyType) VALUES (30, 'Review', '" +
        storedDate(2026, 11, 27) + "', 0, -1, 0);");
    g.exec(std::string("UPDATE Tasks SET ") + column + " = NULL;");
    addNewScheduleEntryForTaskItem(30, -1, -1, -1, false, 10, 1);
    EXPECT_EQ(g.errorNumbers(), std::vector<int32_t>{94});
    EXPECT_EQ(g.count("Schedule"), 0);
  }
}

TEST_F(ScheduleEntryForTaskTest, TheNewEntryRaisesTheCustomPopUp) {
  f.exec(
      "INSERT INTO ClientSchedulePopups (UserNum, CompanyIDNum, scheduleCustomPopups, "
      "popupReminderTimeCustom) VALUES (7, 5, 1, '2 Days');");
  const int32_t id = addNewScheduleEntryForTaskItem(30, -1, -1, -1, false, 10, 1);
  // The check runs before the task is linked to the new entry, so it finds no task and
  // counts from today, Wednesday the 18th: two days before is Monday.
  EXPECT_EQ(f.stored("SELECT CompanyIDNum || '|' || ReminderDate || '|' || TextBody FROM "
                     "Reminders;"),
            "9|" + storedDate(2026, 11, 16) +
                "|Your upcoming Review books task for Maple Leaf Bakery Inc. is due in 2 days");
  // A project step consults the custom setting too.
  f.exec(
      "UPDATE ClientSchedulePopups SET scheduleCustomPopups = 0, scheduleProjectsPopups = 1;"
      "INSERT INTO Tasks (TaskID, UserIDNum, CompanyIDNum, Subject, DateFrom, hideInTasks, "
      "CompanyProjectStepIDNum, notifyType) VALUES (31, 7, 5, 'Step', '" +
      storedDate(2026, 11, 27) + "', 0, 3, 0);");
  addNewScheduleEntryForTaskItem(31, -1, -1, -1, true, 1, 1);
  EXPECT_EQ(f.count("Reminders"), 1);
  EXPECT_GT(id, 0);
}

}  // namespace
}  // namespace nvwm
