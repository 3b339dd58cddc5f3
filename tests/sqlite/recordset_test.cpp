// Opening, walking and closing recordsets; handles.
#include <gtest/gtest.h>

#include "support/practice_db.h"

namespace nvwm {
namespace {

using testing::PracticeDb;

class RecordsetTest : public ::testing::Test {
 protected:
  void SetUp() override {
    db.exec(
        "INSERT INTO Companies (CompanyID, CompanyName, City) VALUES "
        "(1, 'Maple Leaf Bakery', 'Guelph'), (2, 'Northern Pines Ltd.', 'Sudbury'), "
        "(3, 'Lakeshore Dental', 'Oakville');");
    svc = db.service();
  }
  Handle open(const std::string& sql, int32_t lock = kLockReadOnly) {
    return svc->openRecordset(sql, kCursorKeyset, lock, true, "", true);
  }
  PracticeDb db;
  std::shared_ptr<SqliteDatabase> svc;
};

TEST_F(RecordsetTest, StartsOnFirstRowAndWalksToEnd) {
  Handle h = open("SELECT Companies.* FROM Companies ORDER BY CompanyName;");
  std::vector<std::string> names;
  while (!svc->isEOF(h)) {
    names.push_back(svc->getField(h, "CompanyName").stringValue());
    svc->moveNext(h);
  }
  EXPECT_EQ(names, (std::vector<std::string>{"Lakeshore Dental", "Maple Leaf Bakery",
                                             "Northern Pines Ltd."}));
  EXPECT_RUNTIME_ERROR(svc->moveNext(h), 3001);
  EXPECT_RUNTIME_ERROR(svc->getField(h, "CompanyName"), 3001);
}

TEST_F(RecordsetTest, RecordCountLeavesFirstRowCurrent) {
  Handle h = open("SELECT * FROM Companies ORDER BY CompanyID");
  svc->moveNext(h);
  svc->moveNext(h);
  EXPECT_EQ(svc->getRecordCount(h), 3);
  EXPECT_EQ(svc->getField(h, "CompanyID"), Variant(int32_t{1}));
}

TEST_F(RecordsetTest, HasRecordsRewindsAfterWalkToEnd) {
  Handle h = open("SELECT * FROM Companies ORDER BY CompanyID");
  while (!svc->isEOF(h)) svc->moveNext(h);
  EXPECT_TRUE(svc->hasRecords(h));
  EXPECT_FALSE(svc->isEOF(h));
  EXPECT_EQ(svc->getField(h, "CompanyID"), Variant(int32_t{1}));
}

TEST_F(RecordsetTest, EmptyRecordset) {
  Handle h = open("SELECT * FROM Companies WHERE CompanyID = 99");
  EXPECT_TRUE(svc->isEmptyRecordset(h));
  EXPECT_TRUE(svc->isEOF(h));
  EXPECT_FALSE(svc->hasRecords(h));
  EXPECT_EQ(svc->getRecordCount(h), 0);
  EXPECT_EQ(svc->getRecordPosition(h), -3);
}

TEST_F(RecordsetTest, HandlesAreNeverReused) {
  Handle a = open("SELECT * FROM Companies");
  svc->closeRecordset(a);
  EXPECT_FALSE(svc->isRecordsetOpen(a));
  Handle b = open("SELECT * FROM Companies");
  EXPECT_NE(a, b);
  EXPECT_TRUE(svc->isRecordsetOpen(b));
  EXPECT_RUNTIME_ERROR(svc->getField(a, "CompanyID"), 3001);
  EXPECT_RUNTIME_ERROR(svc->isEOF(a), 3001);
}

TEST_F(RecordsetTest, ClosingAnUnknownHandleIsPassedOver) {
  svc->closeRecordset(kNoHandle);
  svc->closeRecordset(12345);
  EXPECT_FALSE(svc->isRecordsetOpen(kNoHandle));
  EXPECT_FALSE(svc->isRecordsetOpen(0));
}

TEST_F(RecordsetTest, PositionRoundTrip) {
  Handle h = open("SELECT * FROM Companies ORDER BY CompanyID");
  svc->moveNext(h);
  int32_t pos = svc->getRecordPosition(h);
  EXPECT_EQ(pos, 2);
  svc->moveNext(h);
  svc->moveNext(h);
  EXPECT_EQ(svc->setRecordPosition(h, pos), 0);
  EXPECT_EQ(svc->getField(h, "CompanyID"), Variant(int32_t{2}));
  EXPECT_NE(svc->setRecordPosition(h, 4), 0);
  EXPECT_NE(svc->setRecordPosition(h, -3), 0);
  EXPECT_EQ(svc->getField(h, "CompanyID"), Variant(int32_t{2}));
}

TEST_F(RecordsetTest, FieldNamesIgnoreCaseAndUnknownNameRaises) {
  Handle h = open("SELECT Companies.* FROM Companies WHERE CompanyID = 2");
  EXPECT_EQ(svc->getField(h, "companyNAME"), Variant("Northern Pines Ltd."));
  EXPECT_EQ(svc->getField(h, Variant(int32_t{1})), Variant("Northern Pines Ltd."));
  EXPECT_RUNTIME_ERROR(svc->getField(h, "CompanyNam"), 3001);
}

TEST_F(RecordsetTest, RecordsetIsASnapshot) {
  Handle h = open("SELECT * FROM Companies ORDER BY CompanyID");
  db.exec("DELETE FROM Companies; INSERT INTO Companies (CompanyName) VALUES ('Later');");
  EXPECT_EQ(svc->getRecordCount(h), 3);
  EXPECT_EQ(svc->getField(h, "CompanyName"), Variant("Maple Leaf Bakery"));
}

}  // namespace
}  // namespace nvwm
