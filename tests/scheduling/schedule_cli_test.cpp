// "nvwordmerge schedule", run as a user would run it on a practice database file.
#include <gtest/gtest.h>

#include "catalogue/catalogue_test_support.h"
#include "support/practice_db.h"
#include "support/program_run.h"
#include "support/test_support.h"

namespace nvwm {
namespace {

using testing::PracticeDb;
using testing::ProgramRun;
using testing::TempDir;

std::string date(int y, int m, int d) {
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d 00:00:00", y, m, d);
  return text;
}

// Item 20 (no task) for Ann, due in house on Friday 20 November 2026; task 30 without an entry
// on Friday the 27th; Ann's pop-ups for GST returns of Maple Leaf Bakery one hour ahead.
class ScheduleCliTest : public ::testing::Test {
 protected:
  void SetUp() override {
    addUntouchedLabels(practice);
    practice.exec(
        "INSERT INTO AccountantEmployeeInfo (ContactID, DisplayName) VALUES (7, 'Ann Ledger');"
        "INSERT INTO Companies (CompanyID, CompanyName) VALUES (5, 'Maple Leaf Bakery Inc.');"
        "INSERT INTO ClientData (ClientDataID, CompanyIDNum) VALUES (9, 5);"
        "INSERT INTO ScheduleTypes (ScheduleTypeID, TotalNum, DefaultEstTime) VALUES (1, 101, "
        "1.5);"
        "INSERT INTO Schedule (ScheduleID, ClientNum, ScheduleName, EmployeeAssigned, DueDate, "
        "inHouseDueDate, totalNum, scheduleNum, CompanyProjectStepIDNum, ScheduleNotes) VALUES "
        "(20, 9, 'GST Return', 'Ann Ledger', '" +
        date(2026, 11, 23) + "', '" + date(2026, 11, 20) +
        "', 101, 0, -1, 'Call first');"
        "INSERT INTO Tasks (TaskID, UserIDNum, CompanyIDNum, Subject, DateFrom, hideInTasks, "
        "CompanyProjectStepIDNum, notifyType) VALUES (30, 7, 5, 'Review books', '" +
        date(2026, 11, 27) +
        "', 0, -1, 0);"
        "INSERT INTO ClientSchedulePopups (UserNum, CompanyIDNum, scheduleGSTPopups, "
        "popupReminderTimeGST) VALUES (7, 5, 1, '1 Hr');");
  }
  ProgramRun schedule(const std::string& args) {
    return testing::runProgram(NVWM_CLI, "schedule --db '" + practice.path() + "' " + args);
  }
  PracticeDb practice;
  TempDir scratch;
};

TEST_F(ScheduleCliTest, TaskForAddsThenUpdatesTheTask) {
  ProgramRun r = schedule("task-for 20");
  EXPECT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out,
            "task 31 added for schedule entry 20\n"
            "date 11/20/2026\n"
            "time 9:00 am to 10:30 am\n"
            "estimate 1.5 hours\n"
            "text GST Return for Maple Leaf Bakery Inc.\\r\\n9:00 am to 10:30 am\n");
  r = schedule("task-for 20");
  EXPECT_EQ(r.exitCode, 0) << r.err;
  // The search now sees the task itself, and moves it on.
  EXPECT_EQ(r.out.substr(0, r.out.find('\n', r.out.find("time"))),
            "task 31 updated for schedule entry 20\ndate 11/20/2026\ntime 10:30 am to 12:00 pm");
  EXPECT_EQ(practice.stored("SELECT count(*) FROM Tasks WHERE ScheduleIDNum = 20;"), "1");
}

TEST_F(ScheduleCliTest, AnErrorEndsTheRoutineUnlessToldToGoOn) {
  practice.exec("UPDATE Schedule SET ScheduleNotes = NULL;");
  ProgramRun r = schedule("task-for 20");
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, "schedule entry 20: no task made\n");
  EXPECT_NE(r.err.find("error 94"), std::string::npos) << r.err;
  r = schedule("--go-on task-for 20");
  EXPECT_EQ(r.exitCode, 1);
  // The row the first run began and abandoned has burnt its number.
  EXPECT_EQ(r.out.substr(0, r.out.find('\n')), "task 32 added for schedule entry 20");
  EXPECT_EQ(practice.stored("SELECT NotesFlag FROM Tasks WHERE ScheduleIDNum = 20;"), "1");
}

TEST_F(ScheduleCliTest, EntryForAddsThenSynchronisesTheEntry) {
  ProgramRun r = schedule("--today 2026-11-18 entry-for 30");
  EXPECT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out,
            "schedule entry 21 added for task 30\n"
            "due 11/27/2026\n"
            "in-house due 11/24/2026\n"
            "calendar 11/24/2026\n"
            "assigned Ann Ledger\n"
            "reminders added 0\n");
  r = schedule("entry-for 30");
  EXPECT_EQ(r.out.substr(0, r.out.find('\n')), "schedule entry 21 synchronised for task 30");
  EXPECT_EQ(practice.stored("SELECT count(*) FROM Schedule;"), "2");
}

TEST_F(ScheduleCliTest, BestTimePrintsTheFreeTime) {
  practice.exec("INSERT INTO Tasks (UserIDNum, DateFrom, TimeFrom, TimeTo) VALUES (7, '" +
                date(2026, 11, 20) + "', '1899-12-30 09:00:00', '1899-12-30 12:00:00');");
  ProgramRun r = schedule("best-time --user 7 --date 2026-11-20 --hours 2");
  EXPECT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out, "12:00 pm\n");
  EXPECT_EQ(schedule("best-time --user 7 --date 2026-11-20 --hours 2 --kind 0").out, "9:00 am\n");
}

TEST_F(ScheduleCliTest, RemindersStoresOneForEachEntryWhoseSettingIsOn) {
  practice.exec("INSERT INTO Tasks (TaskID, ScheduleIDNum, DateFrom) VALUES (40, 20, '" +
                date(2026, 11, 24) + "');");
  ProgramRun r = schedule("--today 2026-11-18 reminders --user 7");
  EXPECT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out,
            "reminder 1 for schedule entry 20: 11/23/2026 11:00 pm: Your upcoming GST Return task "
            "for Maple Leaf Bakery Inc. is due in 1 hour\n"
            "1 reminders added for 1 schedule entries of Ann Ledger\n");
}

TEST_F(ScheduleCliTest, BadInputGivesAMessageAndExitTwo) {
  const struct {
    std::string args;
    const char* message;
  } cases[] = {
      {"best-time --user 7 --date 2026-02-30 --hours 1", "--date wants YYYY-MM-DD"},
      {"--today tomorrow task-for 20", "--today wants YYYY-MM-DD"},
      {"reminders --user 99", "99 is no employee of the firm"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args);
    ProgramRun r = schedule(c.args);
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
  }
  ProgramRun r =
      testing::runProgram(NVWM_CLI, "schedule --db '" + scratch.file("none.db") + "' task-for 20");
  EXPECT_EQ(r.exitCode, 2);
  EXPECT_NE(r.err.find("cannot open the practice database"), std::string::npos) << r.err;
  EXPECT_NE(testing::runProgram(NVWM_CLI, "schedule --db x").exitCode, 0);
}

}  // namespace
}  // namespace nvwm
