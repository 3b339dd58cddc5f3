// A new schedule entry's pop-up: the user's setting for the client, the lead time, the row.
#include <gtest/gtest.h>

#include <algorithm>

#include "scheduling/popup_reminders.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::day;
using testing::SchedulingFixture;

class CheckToSchedulePopupTest : public ::testing::Test {
 protected:
  void SetUp() override {
    f.addPractice();
    // A GST entry of client 9 (company 5) for Ann, whose task is on Tuesday 24 November.
    f.exec(
        "INSERT INTO Schedule (ScheduleID, ClientNum, ScheduleName, EmployeeAssigned, "
        "totalNum) VALUES (20, 9, 'GST Return', 'Ann Ledger', 101);"
        "INSERT INTO Tasks (TaskID, ScheduleIDNum, DateFrom) VALUES (30, 20, '" +
        testing::storedDate(2026, 11, 24) + "');");
  }
  void setting(const std::string& onOff, const std::string& leadTime) {
    f.exec(
        "INSERT INTO ClientSchedulePopups (UserNum, CompanyIDNum, scheduleGSTPopups, "
        "popupReminderTimeGST) VALUES (7, 5, " +
        onOff + ", " + leadTime + ");");
  }
  std::string reminders() {
    return f.stored(
        "SELECT group_concat(UserIDNum || '|' || CompanyIDNum || '|' || coalesce(TaskIDNum, "
        "'N') || '|' || ReminderType || '|' || ReminderDate || '|' || ReminderTime || '|' || "
        "TextBody, '\n') FROM Reminders;");
  }
  SchedulingFixture f;
};

TEST_F(CheckToSchedulePopupTest, AnOnSettingStoresAReminderBeforeTheTasksDay) {
  setting("1", "'1 Hr'");
  // dueDate plays no part: the day of the task does.
  EXPECT_TRUE(checkToSchedulePopup(9, -1, 20, 101, day(2027, 3, 1)));
  EXPECT_EQ(reminders(),
            "7|9|N|5|2026-11-23 00:00:00|1899-12-30 23:00:00|Your upcoming GST Return task for "
            "Maple Leaf Bakery Inc. is due in 1 hour");
  EXPECT_TRUE(f.errorNumbers().empty());
  EXPECT_EQ(f.errors().entered.front(), "Tallowbrook.exe-modPopUpReminders-checkToSchedulePopup");
}

TEST_F(CheckToSchedulePopupTest, EveryCallAddsARow) {
  setting("1", "'1 Day'");
  EXPECT_TRUE(checkToSchedulePopup(9, -1, 20, 101, day(2026, 11, 27)));
  EXPECT_TRUE(checkToSchedulePopup(9, -1, 20, 101, day(2026, 11, 27)));
  EXPECT_EQ(f.count("Reminders"), 2);
}

TEST_F(CheckToSchedulePopupTest, AnEmptyLeadTimeIsOneDay) {
  setting("1", "''");
  EXPECT_TRUE(checkToSchedulePopup(9, -1, 20, 101, day(2026, 11, 27)));
  EXPECT_EQ(f.stored("SELECT ReminderDate || ' ' || TextBody FROM Reminders;"),
            "2026-11-23 00:00:00 Your upcoming GST Return task for Maple Leaf Bakery Inc. is due "
            "in 1 day");
}

TEST_F(CheckToSchedulePopupTest, AnEntryWithoutATaskCountsFromToday) {
  setting("1", "'1 Day'");
  f.exec("DELETE FROM Tasks;");
  // Today is Wednesday 18 November.
  EXPECT_TRUE(checkToSchedulePopup(9, -1, 20, 101, day(2026, 11, 27)));
  EXPECT_EQ(f.stored("SELECT ReminderDate || ' ' || ReminderTime FROM Reminders;"),
            "2026-11-17 00:00:00 1899-12-30 00:00:00");
}

TEST_F(CheckToSchedulePopupTest, OffMakesNoReminder) {
  setting("0", "'1 Hr'");
  EXPECT_FALSE(checkToSchedulePopup(9, -1, 20, 101, day(2026, 11, 27)));
  EXPECT_EQ(f.count("Reminders"), 0);
}

TEST_F(CheckToSchedulePopupTest, TheCheckGivesAUserAndClientASettingsRow) {
  for (int32_t total : {101, 100, 115}) {
    SCOPED_TRACE(total);
    EXPECT_FALSE(checkToSchedulePopup(9, -1, 20, total, day(2026, 11, 27)));
  }
  EXPECT_EQ(f.count("ClientSchedulePopups"), 1);
  EXPECT_EQ(f.stored("SELECT UserNum || '|' || CompanyIDNum || '|' || coalesce(ContactIDNum, "
                     "'N') || '|' || scheduleGSTPopups || '|' || popupReminderTimeGST FROM "
                     "ClientSchedulePopups;"),
            "7|5|N|0|1 Day");
  EXPECT_EQ(f.count("Reminders"), 0);
}

TEST_F(CheckToSchedulePopupTest, TotalsOutsideTheTypesMakeNoReminderEvenWhenAllIsOn) {
  setting("1", "'1 Hr'");
  f.exec(
      "UPDATE ClientSchedulePopups SET scheduleBookkeepingPopups = 1, "
      "popupReminderTimeBookkeeping = '2 Hr';");
  EXPECT_FALSE(checkToSchedulePopup(9, -1, 20, 115, day(2026, 11, 27)));
  EXPECT_FALSE(checkToSchedulePopup(9, -1, 20, 100, day(2026, 11, 27)));
  EXPECT_FALSE(checkToSchedulePopup(9, -1, 20, 113, day(2026, 11, 27)));
  EXPECT_TRUE(checkToSchedulePopup(9, -1, 20, 114, day(2026, 11, 27)));
  EXPECT_EQ(f.stored("SELECT ReminderTime FROM Reminders;"), "1899-12-30 22:00:00");
}

TEST_F(CheckToSchedulePopupTest, AContactRowWhenThereIsNoClient) {
  f.exec(
      "INSERT INTO ClientSchedulePopups (UserNum, ContactIDNum, scheduleGSTPopups, "
      "popupReminderTimeGST) VALUES (7, 12, 1, '3 Hr');");
  EXPECT_TRUE(checkToSchedulePopup(-1, 12, 20, 101, day(2026, 11, 27)));
  EXPECT_EQ(f.stored("SELECT ReminderTime FROM Reminders;"), "1899-12-30 21:00:00");
  const auto sent = f.db().sqlSent();
  EXPECT_NE(std::find(sent.begin(), sent.end(),
                      "SELECT ClientSchedulePopups.* From ClientSchedulePopups WHERE "
                      "ClientSchedulePopups.ContactIDNum = 12 AND ClientSchedulePopups.UserNum = "
                      "7;"),
            sent.end());
  // A contact with no row gains one.
  EXPECT_FALSE(checkToSchedulePopup(-1, 13, 20, 101, day(2026, 11, 27)));
  EXPECT_EQ(f.stored("SELECT count(*) FROM ClientSchedulePopups WHERE ContactIDNum = 13 AND "
                     "UserNum = 7 AND CompanyIDNum IS NULL;"),
            "1");
}

TEST_F(CheckToSchedulePopupTest, NoUserNoClientNoConnectionNoPopup) {
  setting("1", "'1 Hr'");
  EXPECT_FALSE(checkToSchedulePopup(-1, -1, 20, 101, day(2026, 11, 27)));
  f.exec("UPDATE Schedule SET EmployeeAssigned = 'None Assigned';");
  EXPECT_FALSE(checkToSchedulePopup(9, -1, 20, 101, day(2026, 11, 27)));
  EXPECT_FALSE(checkToSchedulePopup(9, -1, 21, 101, day(2026, 11, 27)));  // no such entry
  f.db().connected = false;
  EXPECT_FALSE(checkToSchedulePopup(9, -1, 20, 101, day(2026, 11, 27)));
  EXPECT_EQ(f.count("Reminders"), 0);
  EXPECT_EQ(f.count("ClientSchedulePopups"), 1);
  EXPECT_TRUE(f.errorNumbers().empty());
}

TEST_F(CheckToSchedulePopupTest, ANullOnOffColumnGoesToTheErrorService) {
  setting("NULL", "'1 Hr'");
  EXPECT_FALSE(checkToSchedulePopup(9, -1, 20, 101, day(2026, 11, 27)));
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{94});
  EXPECT_EQ(f.count("Reminders"), 0);
}

}  // namespace
}  // namespace nvwm
