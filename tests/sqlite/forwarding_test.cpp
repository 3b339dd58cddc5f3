// The forwarding wrapper and the failing double that other tests use.
#include <gtest/gtest.h>

#include "support/practice_db.h"

namespace nvwm {
namespace {

using testing::FailingDatabaseService;
using testing::PracticeDb;

TEST(FailingDatabaseServiceTest, FailsTheNthCallOfAnOperationOnly) {
  PracticeDb db;
  db.exec("INSERT INTO Companies (CompanyName) VALUES ('A'), ('B'), ('C');");
  FailingDatabaseService svc(db.service(), "moveNext", 2);
  Handle h = svc.openRecordset("SELECT * FROM Companies ORDER BY CompanyName", kCursorKeyset,
                               kLockReadOnly);
  svc.moveNext(h);
  EXPECT_RUNTIME_ERROR(svc.moveNext(h), 3001);
  EXPECT_EQ(svc.getField(h, "CompanyName"), Variant("B"));  // the failed call did nothing
  svc.moveNext(h);
  EXPECT_EQ(svc.getField(h, "CompanyName"), Variant("C"));
  EXPECT_EQ(svc.calls(), 3);
}

TEST(FailingDatabaseServiceTest, EmptyNameCountsEveryCall) {
  PracticeDb db;
  FailingDatabaseService svc(db.service(), "", 2);
  EXPECT_TRUE(svc.isConnected());
  EXPECT_RUNTIME_ERROR(svc.isConnected(), 3001);
  EXPECT_EQ(svc.getSQLDateString(Date::fromYmd(2026, 11, 23)), "11/23/2026");
}

}  // namespace
}  // namespace nvwm
