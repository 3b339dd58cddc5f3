// Values read back by declared type, and text written through setField/setNewField stored in
// the column's one form.
#include <gtest/gtest.h>

#include "runtime/convert.h"
#include "support/practice_db.h"

namespace nvwm {
namespace {

using testing::PracticeDb;

TEST(TypedValuesTest, ReadsByDeclaredType) {
  PracticeDb db;
  db.exec(
      "INSERT INTO Dockets (DocketID, UserIDNum, Subject, DateFrom, TimeFrom, Invoiced, "
      "TotalTimeReal, TotalAmountReal, DescriptionClient) VALUES (7, 3, 'Year-end review', "
      "'2026-11-23 00:00:00', '1899-12-30 09:30:00', 1, 2.5, 123.45, NULL);"
      "INSERT INTO Holidays (HolidayDate, HolidayType) VALUES ('2026-12-25 00:00:00', 1);");
  auto svc = db.service();
  Handle h = svc->openRecordset("SELECT Dockets.* FROM Dockets;", kCursorKeyset, kLockReadOnly);
  EXPECT_EQ(svc->getField(h, "DocketID"), Variant(int32_t{7}));
  EXPECT_EQ(svc->getField(h, "Subject"), Variant("Year-end review"));
  EXPECT_EQ(svc->getField(h, "DateFrom"), Variant(Date::fromYmd(2026, 11, 23)));
  EXPECT_EQ(svc->getField(h, "TimeFrom"), Variant(Date::fromTime(9, 30, 0)));
  EXPECT_EQ(svc->getField(h, "Invoiced"), Variant(true));
  EXPECT_EQ(svc->getField(h, "DocketLocked"), Variant(false));  // the schema's default
  EXPECT_EQ(svc->getField(h, "TotalTimeReal"), Variant(2.5f));
  EXPECT_EQ(svc->getField(h, "TotalAmountReal"), Variant(Currency{1234500}));
  EXPECT_TRUE(svc->getField(h, "DescriptionClient").isNull());
  EXPECT_TRUE(svc->getField(h, "TimeTo").isNull());
  Handle hol = svc->openRecordset("SELECT * FROM Holidays", kCursorKeyset, kLockReadOnly);
  EXPECT_EQ(svc->getField(hol, "HolidayType"), Variant(int16_t{1}));
}

TEST(TypedValuesTest, ExpressionsReadByStoredClass) {
  PracticeDb db;
  db.exec("INSERT INTO Companies (CompanyName) VALUES ('A'), ('B');");
  auto svc = db.service();
  Handle h =
      svc->openRecordset("SELECT Count(*) AS Total, 'x' AS Letter, 1.5 AS Half FROM Companies",
                         kCursorKeyset, kLockReadOnly);
  EXPECT_EQ(svc->getField(h, "Total"), Variant(int32_t{2}));
  EXPECT_EQ(svc->getField(h, "Letter"), Variant("x"));
  EXPECT_EQ(svc->getField(h, "Half"), Variant(1.5));
}

TEST(TypedValuesTest, StoredValueThatDoesNotFitItsTypeComesBackAsStored) {
  PracticeDb db;
  db.exec(
      "INSERT INTO ScheduleTypes (TotalNum, InHouseDueDatePeriod) VALUES (101, 'abc');"
      "INSERT INTO Reminders (ReminderDate) VALUES ('someday');");
  auto svc = db.service();
  Handle h = svc->openRecordset("SELECT * FROM ScheduleTypes", kCursorKeyset, kLockReadOnly);
  EXPECT_EQ(svc->getField(h, "InHouseDueDatePeriod"), Variant("abc"));
  Handle r = svc->openRecordset("SELECT * FROM Reminders", kCursorKeyset, kLockReadOnly);
  EXPECT_EQ(svc->getField(r, "ReminderDate"), Variant("someday"));
}

// One row per declared kind: the text the library writes, the stored form, the value read.
TEST(TypedValuesTest, SetFieldStoresTheColumnsOneForm) {
  const struct {
    const char* column;
    const char* text;
    const char* stored;
    Variant read;
  } cases[] = {
      {"Closed", "True", "1", Variant(true)},
      {"Closed", "False", "0", Variant(false)},
      {"Closed", "Yes", "1", Variant(true)},
      {"Closed", "-1", "1", Variant(true)},
      {"Closed", "0", "0", Variant(false)},
      {"Closed", "", "NULL", Variant::null()},
      {"DueDate", "11/23/2026", "2026-11-23 00:00:00", Variant(Date::fromYmd(2026, 11, 23))},
      {"DueDate", "2026-02-28", "2026-02-28 00:00:00", Variant(Date::fromYmd(2026, 2, 28))},
      {"DueDate", "November 23, 2026", "2026-11-23 00:00:00", Variant(Date::fromYmd(2026, 11, 23))},
      {"DueDate", "", "NULL", Variant::null()},
      {"totalNum", "105", "105", Variant(int32_t{105})},
      {"totalNum", "2.5", "2", Variant(int32_t{2})},  // CLng rounds half to even
      {"Amount", "$123.50", "$123.50", Variant("$123.50")},
      {"ScheduleName", "Année «fiscale» 🦆", "Année «fiscale» 🦆",
       Variant("Année «fiscale» 🦆")},
  };
  PracticeDb db;
  db.exec("INSERT INTO Schedule (ScheduleID, ClientNum) VALUES (1, 1);");
  auto svc = db.service();
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.column) + " <- \"" + c.text + "\"");
    Handle h = svc->openRecordset("SELECT Schedule.* FROM Schedule WHERE ScheduleID=1",
                                  kCursorKeyset, kLockOptimistic);
    svc->setField(h, c.column, c.text);
    EXPECT_EQ(svc->getField(h, c.column), c.read);
    EXPECT_EQ(db.stored(std::string("SELECT ") + c.column + " FROM Schedule"), c.stored);
    svc->closeRecordset(h);
    Handle again =
        svc->openRecordset("SELECT Schedule.* FROM Schedule", kCursorKeyset, kLockReadOnly);
    EXPECT_EQ(svc->getField(again, c.column), c.read);
    svc->closeRecordset(again);
  }
}

TEST(TypedValuesTest, TimeAndSingleWrittenAsText) {
  PracticeDb db;
  db.exec("INSERT INTO Tasks (TaskID) VALUES (1);");
  auto svc = db.service();
  Handle h = svc->openRecordset("SELECT Tasks.* FROM Tasks", kCursorKeyset, kLockOptimistic);
  svc->setField(h, "TimeFrom", "9:30 am");
  svc->setField(h, "TimeTo", "02:15 PM");
  svc->setField(h, "EstimatedTime", "2.5");
  EXPECT_EQ(db.stored("SELECT TimeFrom FROM Tasks"), "1899-12-30 09:30:00");
  EXPECT_EQ(db.stored("SELECT TimeTo FROM Tasks"), "1899-12-30 14:15:00");
  EXPECT_EQ(db.stored("SELECT typeof(EstimatedTime) FROM Tasks"), "real");
  EXPECT_EQ(svc->getField(h, "EstimatedTime"), Variant(2.5f));
}

TEST(TypedValuesTest, ValueAColumnCannotHoldRaises13) {
  PracticeDb db;
  db.exec("INSERT INTO Schedule (ScheduleID) VALUES (1);");
  auto svc = db.service();
  Handle h = svc->openRecordset("SELECT Schedule.* FROM Schedule", kCursorKeyset, kLockOptimistic);
  EXPECT_RUNTIME_ERROR(svc->setField(h, "DueDate", "next Tuesday"), 13);
  EXPECT_RUNTIME_ERROR(svc->setField(h, "Closed", "maybe"), 13);
  EXPECT_RUNTIME_ERROR(svc->setField(h, "totalNum", "abc"), 13);
  EXPECT_EQ(db.stored("SELECT DueDate FROM Schedule"), "NULL");
}

TEST(TypedValuesTest, TrueWrittenAsTextIsFoundByEqualsTrue) {
  PracticeDb db;
  db.exec("INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact) VALUES (4, 9, 0);");
  auto svc = db.service();
  Handle h =
      svc->openRecordset("SELECT ContactLinks.DefaultContact FROM ContactLinks WHERE CompanyNum=4",
                         kCursorKeyset, kLockOptimistic);
  svc->setField(h, "DefaultContact", "True");
  Handle found = svc->openRecordset(
      "SELECT ContactLinks.* FROM ContactLinks WHERE ContactLinks.DefaultContact = True;",
      kCursorKeyset, kLockReadOnly);
  ASSERT_FALSE(svc->isEOF(found));
  EXPECT_EQ(svc->getField(found, "ContactIDNum"), Variant(int32_t{9}));
}

TEST(TypedValuesTest, TimeWrittenAsTextComparesEqualToJetTimeLiteral) {
  PracticeDb db;
  db.exec("INSERT INTO Appointments (AppointmentID, UserIDNum) VALUES (1, 1);");
  auto svc = db.service();
  Handle h =
      svc->openRecordset("SELECT Appointments.* FROM Appointments", kCursorKeyset, kLockOptimistic);
  svc->setField(h, "TimeFrom", "9:30 am");
  svc->setField(h, "DateFrom", "11/23/2026");
  Handle found = svc->openRecordset(
      "SELECT * FROM Appointments WHERE TimeFrom = #9:30 AM# AND DateFrom = #11/23/2026#",
      kCursorKeyset, kLockReadOnly);
  EXPECT_EQ(svc->getRecordCount(found), 1);
}

}  // namespace
}  // namespace nvwm
