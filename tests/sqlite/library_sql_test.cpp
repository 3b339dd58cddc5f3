// Every SQL text the library sends to the practice database, completed with an ID or a date,
// runs on the schema through the service and finds the rows seeded for it. The client lists,
// built by their routine, are tested with it (tests/practice/client_list_sql_test.cpp).
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "services/sqlite/recordset.h"
#include "support/practice_db.h"
#include "support/test_data.h"

namespace nvwm {
namespace {

using testing::PracticeDb;

// The library's SQL texts, and the rows they find.
std::vector<std::string> libraryTexts() {
  std::vector<std::string> texts;
  std::istringstream lines(testing::readTestData("tests/sqlite/data/library-sql.txt"));
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty() && line[0] != '#') texts.push_back(line);
  }
  return texts;
}

class LibrarySqlTest : public ::testing::Test {
 protected:
  void SetUp() override {
    db.exec(testing::readTestData("tests/sqlite/data/library-sql-seed.sql"));
  }
  PracticeDb db;
  std::vector<std::string> texts = libraryTexts();
};

TEST_F(LibrarySqlTest, EveryTextRunsAndFindsItsRows) {
  auto svc = db.service();
  for (const std::string& sql : texts) {
    SCOPED_TRACE(sql);
    try {
      Handle h = svc->openRecordset(sql, kCursorKeyset, kLockReadOnly, true, "", true);
      EXPECT_GT(svc->getRecordCount(h), 0);
      svc->closeRecordset(h);
    } catch (const RuntimeError& e) {
      ADD_FAILURE() << e.description();
    }
  }
  EXPECT_EQ(texts.size(), 98u);
}

TEST_F(LibrarySqlTest, EveryTextOpensUpdatable) {
  auto svc = db.service();
  for (const std::string& sql : texts) {
    SCOPED_TRACE(sql);
    EXPECT_NO_THROW(svc->closeRecordset(
        svc->openRecordset(sql, kCursorKeyset, kLockOptimistic, true, "", true)));
  }
}

// The joins that read several tables with `.*` (the remittance recordset and the two task
// joins) must give every column a name of its own, or a lookup by name would read another
// table's column. (The client lists: practice tests.)
TEST_F(LibrarySqlTest, JoinsGiveUniqueColumnNames) {
  auto svc = db.service();
  int joins = 0;
  for (const std::string& sql : texts) {
    if (sql.find(" JOIN ") == std::string::npos || sql.find(".*") == std::string::npos) continue;
    SCOPED_TRACE(sql);
    ++joins;
    Handle h = svc->openRecordset(sql, kCursorKeyset, kLockReadOnly);
    std::set<std::string> seen;
    for (const std::string& name : svc->fieldNames(h)) {
      EXPECT_EQ(name.find('.'), std::string::npos) << name << " is repeated";
      EXPECT_TRUE(seen.insert(sqlite::foldAscii(name)).second) << name;
    }
    svc->closeRecordset(h);
  }
  EXPECT_EQ(joins, 3);
}

}  // namespace
}  // namespace nvwm
