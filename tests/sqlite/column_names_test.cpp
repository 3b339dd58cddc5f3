// The names a recordset's columns answer to.
#include <gtest/gtest.h>

#include "support/practice_db.h"

namespace nvwm {
namespace {

using testing::PracticeDb;

class ColumnNamesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    db.exec(
        "INSERT INTO Tasks (TaskID, Subject, Custom1, ScheduleIDNum) VALUES (5, 'Task', 'tc', 9);"
        "INSERT INTO Schedule (ScheduleID, Custom1, ScheduleName) VALUES (9, 'sc', 'GST');");
    svc = db.service();
  }
  std::vector<std::string> names(const std::string& sql) {
    return svc->fieldNames(svc->openRecordset(sql, kCursorKeyset, kLockReadOnly));
  }
  PracticeDb db;
  std::shared_ptr<SqliteDatabase> svc;
};

TEST_F(ColumnNamesTest, AsNameOrOriginName) {
  EXPECT_EQ(names("SELECT Tasks.Subject, Tasks.Custom1 AS TaskCustom1, Count(*) AS n FROM Tasks"),
            (std::vector<std::string>{"Subject", "TaskCustom1", "n"}));
}

TEST_F(ColumnNamesTest, RepeatedNameBecomesTableDotColumnEverywhere) {
  Handle h = svc->openRecordset(
      "SELECT Schedule.*, Tasks.* FROM Schedule INNER JOIN Tasks ON Schedule.ScheduleID = "
      "Tasks.ScheduleIDNum",
      kCursorKeyset, kLockReadOnly);
  EXPECT_EQ(svc->getField(h, "Schedule.Custom1"), Variant("sc"));
  EXPECT_EQ(svc->getField(h, "tasks.custom1"), Variant("tc"));
  EXPECT_EQ(svc->getField(h, "ScheduleName"), Variant("GST"));  // not repeated: bare name
  EXPECT_RUNTIME_ERROR(svc->getField(h, "Custom1"), 3001);
  EXPECT_RUNTIME_ERROR(svc->findRecord(h, "Custom1", Variant("sc")), 3001);
}

TEST_F(ColumnNamesTest, RepeatedNameInsideASubqueryKeepsItsOwnName) {
  // SQLite would call the second one "Custom1:1".
  Handle h = svc->openRecordset(
      "SELECT * FROM (SELECT Schedule.Custom1, Tasks.Custom1 FROM Schedule INNER JOIN Tasks ON "
      "Schedule.ScheduleID = Tasks.ScheduleIDNum)",
      kCursorKeyset, kLockReadOnly);
  EXPECT_EQ(svc->getField(h, "Schedule.Custom1"), Variant("sc"));
  EXPECT_EQ(svc->getField(h, "Tasks.Custom1"), Variant("tc"));
}

}  // namespace
}  // namespace nvwm
