// What a recordset may run and write: a read-only open runs queries only, and an updatable one
// writes back only where each of its rows is one row of its table.
#include <gtest/gtest.h>

#include <filesystem>

#include "support/practice_db.h"

namespace nvwm {
namespace {

using testing::PracticeDb;
using testing::TempDir;

class ReadOnlyStatementsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    db.exec(
        "INSERT INTO Companies (CompanyID, CompanyName, City) VALUES "
        "(1, 'Maple Leaf Bakery', 'Guelph'), (2, 'Northern Pines', 'Guelph'), "
        "(3, 'Lakeshore Dental', 'Oakville');"
        "INSERT INTO CompaniesNotes (CompanyNum, ContactNotes) VALUES (1, 'a'), (1, 'b');");
    svc = db.service();
  }
  PracticeDb db;
  std::shared_ptr<SqliteDatabase> svc;
};

// This was a dropped table: "nvwordmerge sql" opens read-only, and the statement ran anyway.
TEST_F(ReadOnlyStatementsTest, ReadOnlyOpenRefusesStatementsThatWrite) {
  const char* cases[] = {
      "DROP TABLE Companies",
      "DELETE FROM Companies",
      "UPDATE Companies SET City = 'x'",
      "INSERT INTO Companies (CompanyName) VALUES ('x')",
      "CREATE TABLE Extra (a)",
      "ALTER TABLE Companies ADD COLUMN Extra TEXT",
      "PRAGMA user_version = 5",
      "WITH t AS (SELECT 1) DELETE FROM Companies",
  };
  for (const char* sql : cases) {
    SCOPED_TRACE(sql);
    try {
      svc->openRecordset(sql, kCursorKeyset, kLockReadOnly);
      ADD_FAILURE() << "ran";
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), 3001);
      EXPECT_NE(e.description().find("read-only recordset (lock type 1) can't run"),
                std::string::npos)
          << e.description();
    }
  }
  EXPECT_EQ(db.stored("SELECT count(*) FROM Companies"), "3");
  EXPECT_EQ(db.stored("SELECT City FROM Companies WHERE CompanyID = 3"), "Oakville");
  EXPECT_EQ(db.stored("PRAGMA user_version"), "0");
}

TEST_F(ReadOnlyStatementsTest, ReadOnlyOpenRefusesStatementsWithoutRows) {
  TempDir dir;
  for (std::string sql : {std::string("BEGIN IMMEDIATE"),
                          "ATTACH '" + dir.file("made.db") + "' AS made", std::string("COMMIT")}) {
    SCOPED_TRACE(sql);
    EXPECT_RUNTIME_ERROR(svc->openRecordset(sql, kCursorKeyset, kLockReadOnly), 3001);
  }
  EXPECT_FALSE(std::filesystem::exists(dir.file("made.db")));
}

TEST_F(ReadOnlyStatementsTest, ReadOnlyOpenRunsQueries) {
  const struct {
    const char* sql;
    int32_t rows;
  } cases[] = {
      {"SELECT Companies.* FROM Companies", 3},
      {"WITH g AS (SELECT * FROM Companies WHERE City = 'Guelph') SELECT * FROM g", 2},
      {"PRAGMA table_info(Holidays)", 2},
      {"SELECT City, count(*) FROM Companies GROUP BY City", 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.sql);
    EXPECT_EQ(svc->getRecordCount(svc->openRecordset(c.sql, kCursorKeyset, kLockReadOnly)), c.rows);
  }
}

// Whether CompanyName of the first row can be written through an updatable recordset.
// SQLite's own reading decides: quoted text and subqueries don't count, and the way a clause
// is spaced doesn't either (this was a search of the text for " UNION " and "GROUP BY").
TEST_F(ReadOnlyStatementsTest, WriteBackOnlyWhereEachRowIsOneTableRow) {
  const struct {
    const char* sql;
    bool writable;
  } cases[] = {
      {"SELECT CompanyName FROM Companies ORDER BY CompanyID", true},
      {"SELECT CompanyName FROM Companies WHERE CompanyName <> 'A UNION B' ORDER BY 1", true},
      {"SELECT CompanyName FROM Companies WHERE City <> 'GROUP BY' ORDER BY 1", true},
      {"SELECT CompanyName FROM Companies WHERE CompanyID IN "
       "(SELECT CompanyNum FROM CompaniesNotes GROUP BY CompanyNum)",
       true},
      {"SELECT [CompanyName] FROM [Companies] WHERE \"City\" = 'Guelph'", true},
      {"SELECT CompanyName FROM Companies GROUP BY CompanyName", false},
      {"SELECT CompanyName FROM Companies\nGROUP\tBY City", false},
      {"SELECT CompanyName FROM Companies group /* by city */ by City", false},
      {"SELECT DISTINCT CompanyName FROM Companies", false},
      {"SELECT /* every */ DISTINCT CompanyName FROM Companies", false},
      {"SELECT CompanyName FROM Companies UNION SELECT ContactNotes FROM CompaniesNotes", false},
      {"SELECT CompanyName FROM Companies\nUNION ALL\nSELECT City FROM Companies", false},
      {"SELECT CompanyName FROM Companies EXCEPT SELECT 'x'", false},
      {"SELECT g.CompanyName FROM (SELECT CompanyName FROM Companies) AS g", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.sql);
    Handle h = svc->openRecordset(c.sql, kCursorKeyset, kLockOptimistic);
    std::string before = svc->getField(h, "CompanyName").stringValue();
    if (c.writable) {
      EXPECT_NO_THROW(svc->setField(h, "CompanyName", before + "!"));
      EXPECT_EQ(db.stored("SELECT count(*) FROM Companies WHERE CompanyName = '" + before + "!'"),
                "1");
      db.exec("UPDATE Companies SET CompanyName = '" + before + "' WHERE CompanyName = '" + before +
              "!'");
    } else {
      EXPECT_RUNTIME_ERROR(svc->setField(h, "CompanyName", "changed"), 3001);
      EXPECT_EQ(db.stored("SELECT count(*) FROM Companies WHERE CompanyName = 'changed'"), "0");
    }
  }
}

}  // namespace
}  // namespace nvwm
