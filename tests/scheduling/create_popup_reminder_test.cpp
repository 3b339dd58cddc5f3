// Storing a reminder: replaced for the same record, added otherwise.
#include <gtest/gtest.h>

#include <algorithm>

#include "scheduling/popup_reminders.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::at;
using testing::day;
using testing::SchedulingFixture;

// The stored reminder, column by column: "UserIDNum|CompanyIDNum|...|TextBody".
std::string reminderRow(SchedulingFixture& f, int32_t id) {
  return f.stored(
      "SELECT coalesce(UserIDNum, 'N') || '|' || coalesce(CompanyIDNum, 'N') || '|' || "
      "coalesce(ContactIDNum, 'N') || '|' || coalesce(AppointmentIDNum, 'N') || '|' || "
      "coalesce(ToDoIDNum, 'N') || '|' || coalesce(TaskIDNum, 'N') || '|' || "
      "coalesce(ReminderType, 'N') || '|' || coalesce(ReminderDate, 'N') || '|' || "
      "coalesce(ReminderTime, 'N') || '|' || coalesce(TextBody, 'N') FROM Reminders WHERE "
      "ReminderID = " +
      std::to_string(id) + ";");
}

class CreatePopUpReminderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    f.addPractice();
    f.exec(
        "INSERT INTO Tasks (TaskID, ScheduleIDNum, CompanyIDNum, ContactIDNum) VALUES "
        "(30, 20, 5, 12);"
        "INSERT INTO Appointments (AppointmentID) VALUES (40);");
  }
  SchedulingFixture f;
};

TEST_F(CreatePopUpReminderTest, ATaskReminderCalledTwiceReplacesTheFirst) {
  const int32_t first =
      createPopUpReminder(5, 7, day(2026, 11, 23), at(23, 0), "First", -1, -1, -1, -1, -1, 30);
  EXPECT_GT(first, 0);
  EXPECT_EQ(reminderRow(f, first), "7|N|N|N|N|30|5|2026-11-23 00:00:00|1899-12-30 23:00:00|First");
  const int32_t second =
      createPopUpReminder(5, 7, day(2026, 11, 20), at(8, 30), "Second", -1, -1, -1, -1, -1, 30);
  EXPECT_EQ(second, first);
  EXPECT_EQ(f.count("Reminders"), 1);
  EXPECT_EQ(reminderRow(f, first), "7|N|N|N|N|30|5|2026-11-20 00:00:00|1899-12-30 08:30:00|Second");
  // Another user's reminder of the same task is another row.
  EXPECT_NE(createPopUpReminder(5, 8, day(2026, 11, 20), at(8, 30), "Bo", -1, -1, -1, -1, -1, 30),
            first);
  EXPECT_EQ(f.count("Reminders"), 2);
  EXPECT_TRUE(f.errorNumbers().empty());
}

TEST_F(CreatePopUpReminderTest, AScheduleEntryReminderIsStoredForItsTask) {
  const int32_t id =
      createPopUpReminder(2, 7, day(2026, 11, 23), at(0, 0), "Entry", -1, 20, -1, -1, -1, -1);
  EXPECT_EQ(reminderRow(f, id), "7|N|N|N|N|30|5|2026-11-23 00:00:00|1899-12-30 00:00:00|Entry");
  EXPECT_EQ(createPopUpReminder(2, 7, day(2026, 11, 24), at(0, 0), "Again", -1, 20, -1, -1, -1, -1),
            id);
}

TEST_F(CreatePopUpReminderTest, KindOneAndATaskWithoutAnIDAlwaysAddARow) {
  const int32_t a =
      createPopUpReminder(1, 7, day(2026, 11, 23), at(9, 0), "One", 5, -1, -1, -1, 12, -1);
  const int32_t b =
      createPopUpReminder(1, 7, day(2026, 11, 23), at(9, 0), "One", 5, -1, -1, -1, 12, -1);
  EXPECT_NE(a, b);
  EXPECT_EQ(reminderRow(f, a), "7|5|12|N|N|N|0|2026-11-23 00:00:00|1899-12-30 09:00:00|One");
  const int32_t c =
      createPopUpReminder(5, 7, day(2026, 11, 23), at(9, 0), "T", 9, -1, -1, -1, -1, -1);
  const int32_t d =
      createPopUpReminder(5, 7, day(2026, 11, 23), at(9, 0), "T", 9, -1, -1, -1, -1, -1);
  EXPECT_NE(c, d);
  EXPECT_EQ(f.count("Reminders"), 4);
}

TEST_F(CreatePopUpReminderTest, IDsAreWrittenOnlyWhenTheyNameSomething) {
  // Appointment 41 and task 31 don't exist: left out; the company and contact are written as
  // given, whatever they name.
  const int32_t id =
      createPopUpReminder(3, 7, day(2026, 11, 23), at(9, 0), "Appt", 55, -1, 41, -1, 66, 31);
  EXPECT_EQ(reminderRow(f, id), "7|55|66|N|N|N|3|2026-11-23 00:00:00|1899-12-30 09:00:00|Appt");
  const int32_t appt =
      createPopUpReminder(3, 7, day(2026, 11, 23), at(9, 0), "Appt", -1, -1, 40, -1, -1, 30);
  EXPECT_EQ(reminderRow(f, appt), "7|N|N|40|N|30|3|2026-11-23 00:00:00|1899-12-30 09:00:00|Appt");
  EXPECT_EQ(createPopUpReminder(3, 7, day(2026, 11, 24), at(9, 0), "Moved", -1, -1, 40, -1, -1, -1),
            appt);
  // The replacement writes the company and contact given to it, as a new row would.
  EXPECT_EQ(createPopUpReminder(3, 7, day(2026, 11, 24), at(9, 0), "Moved", 5, -1, 40, -1, 12, -1),
            appt);
  EXPECT_EQ(reminderRow(f, appt), "7|5|12|40|N|30|3|2026-11-24 00:00:00|1899-12-30 09:00:00|Moved");
}

TEST_F(CreatePopUpReminderTest, TheRecordsCompanyAndContactAreLookedUpButKeptOut) {
  createPopUpReminder(5, 7, day(2026, 11, 23), at(9, 0), "T", -1, -1, -1, -1, -1, 30);
  const auto sent = f.db().sqlSent();
  EXPECT_NE(std::find(sent.begin(), sent.end(),
                      "SELECT Tasks.TaskID, Tasks.CompanyIDNum FROM Tasks WHERE TaskID=30;"),
            sent.end());
  EXPECT_NE(std::find(sent.begin(), sent.end(),
                      "SELECT Tasks.TaskID, Tasks.ContactIDNum FROM Tasks WHERE TaskID=30;"),
            sent.end());
  EXPECT_EQ(f.stored("SELECT coalesce(CompanyIDNum, 'N') || coalesce(ContactIDNum, 'N') FROM "
                     "Reminders;"),
            "NN");
  EXPECT_EQ(sent.front(),
            "SELECT Reminders.ReminderID, Reminders.UserIDNum, Reminders.TaskIDNum, "
            "Reminders.ReminderType FROM Reminders WHERE UserIDNum = 7 AND TaskIDNum = 30 AND "
            "ReminderType = 5;");
}

TEST_F(CreatePopUpReminderTest, NotConnectedStoresNothing) {
  f.db().connected = false;
  EXPECT_EQ(createPopUpReminder(5, 7, day(2026, 11, 23), at(9, 0), "T", -1, -1, -1, -1, -1, 30),
            -1);
  EXPECT_EQ(f.count("Reminders"), 0);
}

}  // namespace
}  // namespace nvwm
