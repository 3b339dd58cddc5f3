// Filters of any size and nesting: a bounded depth of parentheses, chains of any length.
#include <gtest/gtest.h>

#include <string>

#include "services/sqlite/ado_filter.h"
#include "support/practice_db.h"

namespace nvwm {
namespace {

using testing::PracticeDb;

class FilterNestingTest : public ::testing::Test {
 protected:
  void SetUp() override {
    db.exec(
        "INSERT INTO Companies (CompanyID, CompanyName, City) VALUES "
        "(1, 'Maple Leaf Bakery', 'Guelph'), (2, 'Northern Pines Ltd.', 'Sudbury');");
    svc = db.service();
    base = svc->openRecordset("SELECT CompanyID, City FROM Companies ORDER BY CompanyID",
                              kCursorKeyset, kLockReadOnly);
  }
  int32_t count(const std::string& filter) {
    return svc->getRecordCount(svc->filterRecordset(base, filter));
  }
  static std::string nested(int depth, const std::string& clause) {
    return std::string(depth, '(') + clause + std::string(depth, ')');
  }
  PracticeDb db;
  std::shared_ptr<SqliteDatabase> svc;
  Handle base = kNoHandle;
};

// This was a stack overflow: 3,249 "(" recursed once each until the stack ran out.
TEST_F(FilterNestingTest, DeepParenthesesRaise3001) {
  for (int depth : {sqlite::kMaxFilterNesting + 1, 3249, 200000}) {
    SCOPED_TRACE(depth);
    EXPECT_RUNTIME_ERROR(count(std::string(depth, '(')), 3001);
    EXPECT_RUNTIME_ERROR(count(nested(depth, "City = 'Guelph'")), 3001);
  }
  try {
    count(nested(sqlite::kMaxFilterNesting + 1, "City = 'Guelph'"));
  } catch (const RuntimeError& e) {
    EXPECT_NE(e.description().find("nested more than 256 deep"), std::string::npos)
        << e.description();
  }
}

TEST_F(FilterNestingTest, NestingUpToTheLimitIsRead) {
  EXPECT_EQ(count(nested(sqlite::kMaxFilterNesting, "City = 'Guelph'")), 1);
  // Depth counts open parentheses, not their total: many shallow groups are fine.
  std::string groups = "(City = 'Guelph')";
  for (int i = 0; i < 1000; ++i) groups += " OR (City = 'Sudbury')";
  EXPECT_EQ(count(groups), 2);
}

// A chain of clauses used to build one tree level per AND, and evaluating and freeing it
// recursed as deep.
TEST_F(FilterNestingTest, LongChainsOfClausesAreFlat) {
  std::string chain = "CompanyID = 1";
  for (int i = 0; i < 200000; ++i) chain += " AND City = 'Guelph'";
  EXPECT_EQ(count(chain), 1);
  std::string either = "CompanyID = 9";
  for (int i = 0; i < 200000; ++i) either += " OR CompanyID = 9";
  EXPECT_EQ(count(either + " OR CompanyID = 2"), 1);
}

}  // namespace
}  // namespace nvwm
