// The words of a reminder.
#include <gtest/gtest.h>

#include "scheduling/popup_reminders.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::SchedulingFixture;

TEST(PopUpReminderTextTest, ScheduleEntryNamesTheClientAndTheLeadTime) {
  const struct {
    const char* clientNum;
    const char* word;
    const char* expected;
  } cases[] = {
      {"9", "1 Hr", "Your upcoming GST Return task for Maple Leaf Bakery Inc. is due in 1 hour"},
      {"9", "5 Weeks",
       "Your upcoming GST Return task for Maple Leaf Bakery Inc. is due in 5 weeks"},
      {"NULL", "1 Day", "Your upcoming GST Return task is due in 1 day"},
      {"44", "2 Days", "Your upcoming GST Return task is due in 2 days"},
      {"9", "Soon", "Your upcoming GST Return task for Maple Leaf Bakery Inc."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.expected);
    SchedulingFixture f;
    f.addPractice();
    f.exec(std::string("INSERT INTO Schedule (ScheduleID, ClientNum, ScheduleName) VALUES (20, ") +
           c.clientNum + ", 'GST Return');");
    EXPECT_EQ(getPopUpReminderText(2, 20, c.word), c.expected);
    EXPECT_TRUE(f.errorNumbers().empty());
  }
}

TEST(PopUpReminderTextTest, ScheduleEntrySendsItsQueryWithTwoBlanksBeforeFrom) {
  SchedulingFixture f;
  f.exec("INSERT INTO Schedule (ScheduleID, ScheduleName) VALUES (20, 'GST Return');");
  getPopUpReminderText(2, 20, "1 Hr");
  ASSERT_EQ(f.db().sqlSent().size(), 2u);
  EXPECT_EQ(f.db().sqlSent()[1],
            "SELECT Schedule.ScheduleID, Schedule.ClientNum, Schedule.ScheduleName  FROM Schedule "
            "WHERE ScheduleID=20;");
}

struct RecordCase {
  const char* name;
  const char* values;  // Subject, CompanyIDNum, ContactIDNum, ReminderPeriod, TimeFrom, Text
  const char* expected;
};

TEST(PopUpReminderTextTest, TaskSaysWhatForWhomAndWhen) {
  const RecordCase cases[] = {
      {"everything", "'Prepare return', 5, 12, '15 Min', '1899-12-30 09:30:00', 'Bring the binder'",
       "Task: Prepare return\r\n\r\nYour task for Maple Leaf Bakery Inc. in 15 minutes at "
       "9:30:00 AM\r\n\r\nDescription: Bring the binder"},
      {"the contact when the company is gone",
       "'Call back', 77, 12, '1 Hr', '1899-12-30 14:00:00', NULL",
       "Task: Call back\r\n\r\nYour task for Sam Baker in 1 hour at 2:00:00 PM\r\n\r\n"},
      {"nobody, no subject, a word the task text doesn't know",
       "NULL, NULL, NULL, '5 Days', '1899-12-30 08:00:00', NULL",
       "Your task is due at 8:00:00 AM\r\n\r\n"},
      {"no lead time", "'File', 5, NULL, NULL, '1899-12-30 08:00:00', ''",
       "Task: File\r\n\r\nYour task for Maple Leaf Bakery Inc. at 8:00:00 AM\r\n\r\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    SchedulingFixture f;
    f.addPractice();
    f.exec(std::string("INSERT INTO Tasks (TaskID, Subject, CompanyIDNum, ContactIDNum, "
                       "ReminderPeriod, TimeFrom, AppointmentText) VALUES (30, ") +
           c.values + ");");
    // The record's own ReminderPeriod counts, not the word of the call.
    EXPECT_EQ(getPopUpReminderText(5, 30, "2 Weeks"), c.expected);
    EXPECT_TRUE(f.errorNumbers().empty());
  }
}

TEST(PopUpReminderTextTest, AppointmentHasItsOwnWords) {
  SchedulingFixture f;
  f.addPractice();
  f.exec(
      "INSERT INTO Appointments (AppointmentID, Subject, CompanyIDNum, ContactIDNum, "
      "ReminderPeriod, TimeFrom, AppointmentText) VALUES (40, 'Year-end meeting', 6, NULL, "
      "'1 Week', '1899-12-30 10:00:00', 'Boardroom'), (41, NULL, NULL, NULL, '10 Days', "
      "'1899-12-30 10:00:00', NULL);");
  EXPECT_EQ(getPopUpReminderText(3, 40, ""),
            "Appointment: Year-end meeting\r\n\r\nYou have an appointment with Cedar Books in 1 "
            "week at 10:00:00 AM\r\n\r\nDescription: Boardroom");
  EXPECT_EQ(getPopUpReminderText(3, 41, ""), "You have an appointment at 10:00:00 AM\r\n\r\n");
}

TEST(PopUpReminderTextTest, OtherKindsMissingRecordsAndNoConnectionGiveNothing) {
  SchedulingFixture f;
  f.addPractice();
  f.exec(
      "INSERT INTO Tasks (TaskID, Subject, TimeFrom) VALUES (30, 'File', "
      "'1899-12-30 08:00:00');");
  f.exec("INSERT INTO Schedule (ScheduleID, ScheduleName) VALUES (20, 'GST Return');");
  EXPECT_EQ(getPopUpReminderText(1, 30, "1 Hr"), "");
  EXPECT_EQ(getPopUpReminderText(4, 30, "1 Hr"), "");
  EXPECT_EQ(getPopUpReminderText(5, 31, "1 Hr"), "");
  EXPECT_EQ(getPopUpReminderText(3, 30, "1 Hr"), "");
  EXPECT_EQ(getPopUpReminderText(2, 21, "1 Hr"), "");
  EXPECT_EQ(getPopUpReminderText(2, -1, "1 Hr"), "");
  f.db().connected = false;
  EXPECT_EQ(getPopUpReminderText(5, 30, "1 Hr"), "");
  EXPECT_TRUE(f.errorNumbers().empty());
}

}  // namespace
}  // namespace nvwm
