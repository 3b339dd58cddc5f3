// findRecord: the first row with the value, compared in the column's kind.
#include <gtest/gtest.h>

#include "runtime/convert.h"
#include "support/practice_db.h"

namespace nvwm {
namespace {

using testing::PracticeDb;

class FindRecordTest : public ::testing::Test {
 protected:
  void SetUp() override {
    db.exec(
        "INSERT INTO Companies (CompanyID, CompanyName, City) VALUES "
        "(3, 'Maple Leaf Bakery', 'Guelph'), (1, 'Northern Pines', 'Sudbury'), "
        "(2, 'Lakeshore Dental', 'Guelph'), (4, NULL, NULL);"
        "INSERT INTO Schedule (ScheduleID, DueDate, Closed) VALUES "
        "(1, '2026-11-23 00:00:00', 0), (2, '2026-12-31 00:00:00', 1);");
    svc = db.service();
    h = svc->openRecordset("SELECT Companies.* FROM Companies ORDER BY CompanyName DESC",
                           kCursorKeyset, kLockReadOnly);
  }
  PracticeDb db;
  std::shared_ptr<SqliteDatabase> svc;
  Handle h = kNoHandle;
};

TEST_F(FindRecordTest, FindsByValueInTheColumnsKind) {
  const struct {
    const char* column;
    Variant value;
    bool found;
    int32_t id;
  } cases[] = {
      {"CompanyID", Variant(int32_t{2}), true, 2},
      {"CompanyID", Variant("2"), true, 2},  // an ID given as text, as the lookups pass it
      {"CompanyID", Variant(2.0), true, 2},
      {"companyid", Variant(int16_t{4}), true, 4},
      {"CompanyID", Variant(int32_t{9}), false, 0},
      {"CompanyID", Variant("abc"), false, 0},
      {"CompanyName", Variant("lakeshore dental"), true, 2},
      {"City", Variant("Guelph"), true, 3},  // the first row in the recordset's order
      {"City", Variant::null(), false, 0},
      {"CompanyName", Variant("Lakeshore"), false, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.column) + " = " + (c.value.isNull() ? "Null" : CStr(c.value)));
    EXPECT_EQ(svc->findRecord(h, c.column, c.value), c.found);
    EXPECT_EQ(svc->isEOF(h), !c.found);
    if (c.found) {
      EXPECT_EQ(svc->getField(h, "CompanyID"), Variant(c.id));
    }
  }
}

TEST_F(FindRecordTest, DatesAndBooleans) {
  Handle s = svc->openRecordset("SELECT * FROM Schedule", kCursorKeyset, kLockReadOnly);
  EXPECT_TRUE(svc->findRecord(s, "DueDate", Variant(Date::fromYmd(2026, 12, 31))));
  EXPECT_EQ(svc->getField(s, "ScheduleID"), Variant(int32_t{2}));
  EXPECT_TRUE(svc->findRecord(s, "DueDate", Variant("11/23/2026")));
  EXPECT_EQ(svc->getField(s, "ScheduleID"), Variant(int32_t{1}));
  EXPECT_TRUE(svc->findRecord(s, "Closed", Variant(true)));
  EXPECT_EQ(svc->getField(s, "ScheduleID"), Variant(int32_t{2}));
}

TEST_F(FindRecordTest, UnknownColumnRaises) {
  EXPECT_RUNTIME_ERROR(svc->findRecord(h, "CompanyNumber", Variant(int32_t{1})), 3001);
}

TEST_F(FindRecordTest, IndexFollowsWritesAndNewRows) {
  Handle w =
      svc->openRecordset("SELECT Companies.* FROM Companies", kCursorKeyset, kLockOptimistic);
  ASSERT_TRUE(svc->findRecord(w, "CompanyName", Variant("Northern Pines")));
  svc->setField(w, "CompanyName", "Southern Pines");
  EXPECT_FALSE(svc->findRecord(w, "CompanyName", Variant("Northern Pines")));
  EXPECT_TRUE(svc->findRecord(w, "CompanyName", Variant("Southern Pines")));
  svc->addNewRecord(w);
  svc->setNewField(w, "CompanyName", Variant("Added Later Inc."));
  svc->updateRecord(w);
  Variant id = svc->getField(w, "CompanyID");
  svc->hasRecords(w);
  EXPECT_TRUE(svc->findRecord(w, "CompanyName", Variant("Added Later Inc.")));
  EXPECT_EQ(svc->getField(w, "CompanyID"), id);
}

}  // namespace
}  // namespace nvwm
