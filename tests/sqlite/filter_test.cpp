// filterRecordset with ADO filter text: a second recordset in the base's order.
#include <gtest/gtest.h>

#include "support/practice_db.h"

namespace nvwm {
namespace {

using testing::PracticeDb;

class FilterTest : public ::testing::Test {
 protected:
  void SetUp() override {
    db.exec(
        "INSERT INTO Schedule (ScheduleID, ClientNum, ScheduleName, EmployeeAssigned, DueDate, "
        "Class, totalNum, PersonCompleted, Closed) VALUES "
        "(1, 1, '1st Quarter GST', 'O''Malley', '2026-01-31 00:00:00', 'Custom', 111, NULL, 0),"
        "(2, 1, 'Payroll remittance', 'Ann Lee', '2025-12-15 00:00:00', 'Payroll', 103, 'Ann', 1),"
        "(3, 2, 'Year end', 'None Assigned', '2026-03-31 00:00:00', 'Project', 104, NULL, 0),"
        "(4, 2, 'GST annual', 'Ann Lee', '2026-06-30 00:00:00', 'Custom', 101, NULL, 1);"
        "INSERT INTO Dockets (DocketID, DateFrom, TimeFrom, TotalAmountReal) VALUES "
        "(1, '2026-11-23 00:00:00', '1899-12-30 09:00:00', 12.5),"
        "(2, '2026-11-23 00:00:00', '1899-12-30 15:00:00', 45),"
        "(3, '2026-11-24 00:00:00', '1899-12-30 08:00:00', 20);");
    svc = db.service();
    base = svc->openRecordset("SELECT Schedule.* FROM Schedule ORDER BY DueDate DESC",
                              kCursorKeyset, kLockReadOnly);
  }
  std::vector<int32_t> ids(Handle h, const char* key = "ScheduleID") {
    std::vector<int32_t> out;
    for (svc->hasRecords(h); !svc->isEOF(h); svc->moveNext(h))
      out.push_back(svc->getField(h, key).longValue());
    return out;
  }
  PracticeDb db;
  std::shared_ptr<SqliteDatabase> svc;
  Handle base = kNoHandle;
};

TEST_F(FilterTest, KeepsTheBasesOrder) {
  const struct {
    const char* filter;
    std::vector<int32_t> ids;
  } cases[] = {
      {"DueDate >= #01/01/2026# AND Class = 'Custom'", {4, 1}},
      {"class = 'custom'", {4, 1}},
      {"ScheduleName LIKE '1st*'", {1}},
      {"ScheduleName LIKE '*GST*'", {4, 1}},
      {"ScheduleName LIKE '%gst%'", {4, 1}},
      {"EmployeeAssigned = 'O''Malley'", {1}},
      {"Closed = True", {4, 2}},
      {"Closed = False", {3, 1}},
      {"PersonCompleted = Null AND totalNum >= 101 AND totalNum <= 111", {4, 3, 1}},
      {"PersonCompleted <> Null", {2}},
      {"PersonCompleted IS NULL AND totalNum > 103", {3, 1}},
      {"[Class] = 'Custom' OR [Class] = 'Payroll'", {4, 1, 2}},
      {"(Class = 'Custom' AND totalNum = 111) OR (Class = 'Project' AND totalNum = 104)", {3, 1}},
      {"totalNum = $103", {2}},
      {"totalNum < 1.04E2", {4, 2}},
      {"DueDate < #2026-01-01#", {2}},
      {"ScheduleName = 'nothing like it'", {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.filter);
    Handle f = svc->filterRecordset(base, c.filter);
    EXPECT_EQ(ids(f), c.ids);
    svc->closeRecordset(f);
  }
}

TEST_F(FilterTest, FirstRecordsetStaysOpenAndUnmoved) {
  svc->moveNext(base);
  Handle f = svc->filterRecordset(base, "Class = 'Custom'");
  EXPECT_NE(f, base);
  EXPECT_TRUE(svc->isRecordsetOpen(base));
  EXPECT_EQ(svc->getRecordPosition(base), 2);
  EXPECT_EQ(svc->getRecordPosition(f), 1);
  svc->closeRecordset(f);
  EXPECT_TRUE(svc->isRecordsetOpen(base));
}

TEST_F(FilterTest, DatesTimesAndMoney) {
  Handle d = svc->openRecordset("SELECT Dockets.* FROM Dockets ORDER BY DateFrom, TimeFrom",
                                kCursorKeyset, kLockReadOnly);
  const struct {
    const char* filter;
    std::vector<int32_t> ids;
  } cases[] = {
      {"DateFrom = #11/23/2026#", {1, 2}},
      {"DateFrom >= #2026-11-01# AND TimeFrom >= #9:00 AM#", {1, 2}},
      {"TotalAmountReal > $20.00", {2}},
      {"DateFrom = #11/23/2026 12:00:00 AM# AND TotalAmountReal <= 1.25E1", {1}},
      {"TimeFrom < #9:00 AM#", {3}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.filter);
    EXPECT_EQ(ids(svc->filterRecordset(d, c.filter), "DocketID"), c.ids);
  }
}

TEST_F(FilterTest, BadFilterRaises) {
  for (const char* filter :
       {"", "NoSuchField = 1", "Class = 'Custom", "Class 'Custom'", "(Class = 'Custom'",
        "Class = ", "Class = 'Custom' AND", "DueDate = #31/31/2026#", "Class > Null"}) {
    SCOPED_TRACE(filter);
    EXPECT_RUNTIME_ERROR(svc->filterRecordset(base, filter), 3001);
  }
}

TEST_F(FilterTest, FilteredUpdatableRecordsetWritesThrough) {
  Handle w = svc->openRecordset("SELECT Schedule.* FROM Schedule", kCursorKeyset, kLockOptimistic);
  Handle f = svc->filterRecordset(w, "ScheduleID = 3");
  svc->setField(f, "PersonCompleted", "Ann");
  EXPECT_EQ(db.stored("SELECT PersonCompleted FROM Schedule WHERE ScheduleID = 3"), "Ann");
  Handle r = svc->filterRecordset(base, "ScheduleID = 3");
  EXPECT_RUNTIME_ERROR(svc->setField(r, "PersonCompleted", "Bob"), 3001);
}

}  // namespace
}  // namespace nvwm
