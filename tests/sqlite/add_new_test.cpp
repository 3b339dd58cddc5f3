// addNewRecord / setNewField / updateRecord, write-through and read-only recordsets.
#include <gtest/gtest.h>

#include "support/practice_db.h"

namespace nvwm {
namespace {

using testing::PracticeDb;

TEST(AddNewTest, AutoNumberIsReadableBeforeUpdateAndIsTheStoredKey) {
  PracticeDb db;
  db.exec("INSERT INTO Reminders (ReminderID, UserIDNum) VALUES (41, 1);");
  auto svc = db.service();
  Handle h =
      svc->openRecordset("SELECT Reminders.* FROM Reminders;", kCursorKeyset, kLockOptimistic);
  svc->addNewRecord(h);
  Variant key = svc->getField(h, "ReminderID");
  EXPECT_EQ(key, Variant(int32_t{42}));
  svc->setNewField(h, "UserIDNum", Variant(int32_t{3}));
  svc->setNewField(h, "ReminderDate", Variant("11/23/2026"));
  svc->setNewField(h, "ReminderTime", Variant("09:05 am"));
  svc->updateRecord(h);
  EXPECT_EQ(db.stored("SELECT UserIDNum FROM Reminders WHERE ReminderID = 42"), "3");
  EXPECT_EQ(db.stored("SELECT ReminderDate FROM Reminders WHERE ReminderID = 42"),
            "2026-11-23 00:00:00");
  EXPECT_EQ(db.stored("SELECT ReminderTime FROM Reminders WHERE ReminderID = 42"),
            "1899-12-30 09:05:00");
  // The new row stays current after updateRecord.
  EXPECT_EQ(svc->getField(h, "ReminderID"), key);
  EXPECT_EQ(svc->getField(h, "ReminderDate"), Variant(Date::fromYmd(2026, 11, 23)));
  EXPECT_EQ(svc->getRecordCount(h), 2);
}

TEST(AddNewTest, AbandonedNewRowBurnsItsNumber) {
  PracticeDb db;
  auto svc = db.service();
  Handle h = svc->openRecordset("SELECT Tasks.* FROM Tasks", kCursorKeyset, kLockOptimistic);
  svc->addNewRecord(h);
  EXPECT_EQ(svc->getField(h, "TaskID"), Variant(int32_t{1}));
  svc->hasRecords(h);  // moves away: the new row is dropped
  svc->addNewRecord(h);
  EXPECT_EQ(svc->getField(h, "TaskID"), Variant(int32_t{2}));
  svc->updateRecord(h);
  db.exec("INSERT INTO Tasks (Subject) VALUES ('plain insert');");
  EXPECT_EQ(db.stored("SELECT max(TaskID) FROM Tasks"), "3");
  EXPECT_EQ(db.stored("SELECT count(*) FROM Tasks"), "2");
}

TEST(AddNewTest, NewRowShowsTableDefaults) {
  PracticeDb db;
  auto svc = db.service();
  Handle h = svc->openRecordset("SELECT ClientSchedulePopups.* FROM ClientSchedulePopups",
                                kCursorKeyset, kLockOptimistic);
  svc->addNewRecord(h);
  EXPECT_EQ(svc->getField(h, "scheduleGSTPopups"), Variant(false));
  EXPECT_EQ(svc->getField(h, "popupReminderTimeGST"), Variant("1 Day"));
  svc->setNewField(h, "UserNum", Variant(int32_t{5}));
  svc->updateRecord(h);
  EXPECT_EQ(db.stored("SELECT popupReminderTimeWSIB FROM ClientSchedulePopups WHERE UserNum=5"),
            "1 Day");
}

TEST(AddNewTest, GivenKeyTableTakesTheWritersKey) {
  PracticeDb db;
  auto svc = db.service();
  Handle h = svc->openRecordset("SELECT UserCalendarSettings.* FROM UserCalendarSettings",
                                kCursorKeyset, kLockOptimistic);
  svc->addNewRecord(h);
  EXPECT_TRUE(svc->getField(h, "UserIDNum").isNull());
  svc->setNewField(h, "UserIDNum", Variant(int32_t{12}));
  svc->updateRecord(h);
  EXPECT_EQ(db.stored("SELECT UserIDNum FROM UserCalendarSettings"), "12");
  EXPECT_EQ(svc->getField(h, "UserIDNum"), Variant(int32_t{12}));
}

TEST(AddNewTest, AutoNumberColumnCannotBeSet) {
  PracticeDb db;
  auto svc = db.service();
  Handle h = svc->openRecordset("SELECT Schedule.* FROM Schedule", kCursorKeyset, kLockOptimistic);
  svc->addNewRecord(h);
  EXPECT_RUNTIME_ERROR(svc->setNewField(h, "ScheduleID", Variant(int32_t{99})), 3001);
}

TEST(AddNewTest, JoinCannotAddRows) {
  PracticeDb db;
  auto svc = db.service();
  Handle h = svc->openRecordset(
      "SELECT Companies.CompanyName, ClientData.ClientDataID FROM Companies INNER JOIN ClientData "
      "ON Companies.CompanyID = ClientData.CompanyIDNum",
      kCursorKeyset, kLockOptimistic);
  EXPECT_RUNTIME_ERROR(svc->addNewRecord(h), 3001);
}

TEST(WriteThroughTest, SetFieldReachesTheRowWithoutTheKeyInTheSelectList) {
  PracticeDb db;
  db.exec(
      "INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact) VALUES "
      "(1, 10, 1), (1, 11, 0), (2, 10, 0);");
  auto svc = db.service();
  Handle h = svc->openRecordset(
      "SELECT ContactLinks.ContactIDNum, ContactLinks.DefaultContact FROM ContactLinks WHERE "
      "CompanyNum=1;",
      kCursorKeyset, kLockOptimistic);
  while (!svc->isEOF(h)) {
    svc->setField(h, "DefaultContact",
                  svc->getField(h, "ContactIDNum") == Variant(int32_t{11}) ? "True" : "False");
    svc->moveNext(h);
  }
  EXPECT_EQ(db.stored("SELECT group_concat(DefaultContact) FROM (SELECT DefaultContact FROM "
                      "ContactLinks ORDER BY rowid)"),
            "0,1,0");
}

TEST(WriteThroughTest, JoinWritesEachColumnToItsOwnTable) {
  PracticeDb db;
  db.exec(
      "INSERT INTO Companies (CompanyID, CompanyName) VALUES (5, 'Old');"
      "INSERT INTO CompaniesNotes (CompanyNum, ContactNotes) VALUES (5, 'x');");
  auto svc = db.service();
  Handle h = svc->openRecordset(
      "SELECT Companies.CompanyName, CompaniesNotes.ContactNotes FROM Companies INNER JOIN "
      "CompaniesNotes ON Companies.CompanyID = CompaniesNotes.CompanyNum",
      kCursorKeyset, kLockOptimistic);
  svc->setField(h, "CompanyName", "New");
  svc->setField(h, "ContactNotes", "{\\rtf1 summary}");
  EXPECT_EQ(db.stored("SELECT CompanyName FROM Companies"), "New");
  EXPECT_EQ(db.stored("SELECT ContactNotes FROM CompaniesNotes"), "{\\rtf1 summary}");
}

TEST(ReadOnlyTest, EveryWriteRaisesOnLockTypeOne) {
  PracticeDb db;
  db.exec("INSERT INTO Companies (CompanyName) VALUES ('Maple');");
  auto svc = db.service();
  Handle h = svc->openRecordset("SELECT Companies.* FROM Companies", kCursorKeyset, kLockReadOnly);
  EXPECT_RUNTIME_ERROR(svc->setField(h, "CompanyName", "x"), 3001);
  EXPECT_RUNTIME_ERROR(svc->addNewRecord(h), 3001);
  EXPECT_RUNTIME_ERROR(svc->setNewField(h, "CompanyName", Variant("x")), 3001);
  EXPECT_RUNTIME_ERROR(svc->updateRecord(h), 3001);
  EXPECT_EQ(db.stored("SELECT CompanyName FROM Companies"), "Maple");
}

}  // namespace
}  // namespace nvwm
