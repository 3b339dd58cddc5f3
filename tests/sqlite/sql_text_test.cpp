// The Jet SQL the service takes: #date# literals, one statement per call, SQLite's errors.
#include "services/sqlite/sql_text.h"

#include <gtest/gtest.h>

#include "support/practice_db.h"

namespace nvwm {
namespace {

using testing::PracticeDb;

TEST(JetDateLiteralTest, TranslatesToStoredText) {
  const struct {
    const char* jet;
    const char* sqlite;
  } cases[] = {
      {"WHERE d = #11/23/2026#", "WHERE d = '2026-11-23 00:00:00'"},
      {"WHERE d = #11/23/26#", "WHERE d = '2026-11-23 00:00:00'"},
      {"WHERE d = #1/2/99#", "WHERE d = '1999-01-02 00:00:00'"},
      {"WHERE d = #2026-11-23#", "WHERE d = '2026-11-23 00:00:00'"},
      {"WHERE d = #11/23/2026 9:05:00 PM#", "WHERE d = '2026-11-23 21:05:00'"},
      {"WHERE t = #9:00 AM#", "WHERE t = '1899-12-30 09:00:00'"},
      {"WHERE d = #2/29/2028# ;", "WHERE d = '2028-02-29 00:00:00' ;"},
      // Inside quotes and brackets a # is text.
      {"WHERE n = '#1 client' AND [a#b] = 1", "WHERE n = '#1 client' AND [a#b] = 1"},
      {"WHERE n = 'it''s #5#'", "WHERE n = 'it''s #5#'"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.jet);
    EXPECT_EQ(sqlite::translateJetSql(c.jet), c.sqlite);
  }
}

TEST(JetDateLiteralTest, NotADateRaises) {
  EXPECT_RUNTIME_ERROR(sqlite::translateJetSql("WHERE d = #13/45/2026#"), 3001);
  EXPECT_RUNTIME_ERROR(sqlite::translateJetSql("WHERE d = #2/30/2026#"), 3001);
  EXPECT_RUNTIME_ERROR(sqlite::translateJetSql("WHERE d = #tomorrow#"), 3001);
  EXPECT_RUNTIME_ERROR(sqlite::translateJetSql("WHERE d = #11/23/2026"), 3001);
}

class SqlTextTest : public ::testing::Test {
 protected:
  Handle open(const std::string& sql) {
    return db.service()->openRecordset(sql, kCursorKeyset, kLockReadOnly);
  }
  PracticeDb db;
};

TEST_F(SqlTextTest, EmptyTextIsRefused) {
  for (const char* sql : {"", "   ", ";", " -- nothing\n"}) {
    SCOPED_TRACE(sql);
    EXPECT_RUNTIME_ERROR(open(sql), 3001);
  }
}

TEST_F(SqlTextTest, StackedStatementIsRefusedAndNotRun) {
  db.exec("INSERT INTO Tasks (Subject) VALUES ('keep me');");
  EXPECT_RUNTIME_ERROR_MSG(open("SELECT * FROM Tasks; DELETE FROM Tasks;"), 3001,
                           "Database error: only one SQL statement may be sent at a time");
  EXPECT_EQ(db.stored("SELECT count(*) FROM Tasks"), "1");
  // A trailing semicolon, blanks or a comment are not a second statement.
  EXPECT_NO_THROW(open("SELECT * FROM Tasks ;  -- done\n"));
}

TEST_F(SqlTextTest, SqliteErrorCarriesSqlitesMessage) {
  EXPECT_RUNTIME_ERROR_MSG(open("SELECT * FROM NoSuchTable"), 3001,
                           "Database error: no such table: NoSuchTable");
}

TEST_F(SqlTextTest, StatementsThatReturnNoRowsRunUpdatable) {
  db.exec("INSERT INTO Tasks (TaskID, Subject) VALUES (1, 'a'), (2, 'b');");
  Handle h = db.service()->openRecordset("DELETE FROM Tasks WHERE TaskID=1;", kCursorKeyset,
                                         kLockOptimistic);
  EXPECT_TRUE(db.service()->isEmptyRecordset(h));
  EXPECT_EQ(db.stored("SELECT count(*) FROM Tasks"), "1");
}

TEST_F(SqlTextTest, SqlDateStringIsMonthFirst) {
  auto svc = db.service();
  EXPECT_EQ(svc->getSQLDateString(Date::fromYmd(2026, 1, 5)), "1/5/2026");
  EXPECT_EQ(svc->getSQLDateString(Date::fromParts({2026, 11, 23, 14, 30, 0})), "11/23/2026");
  db.exec("INSERT INTO Holidays (HolidayDate, HolidayType) VALUES ('2026-01-05 00:00:00', 1);");
  Handle h = open("SELECT * FROM Holidays WHERE HolidayDate = #" +
                  svc->getSQLDateString(Date::fromYmd(2026, 1, 5)) + "#");
  EXPECT_EQ(svc->getRecordCount(h), 1);
}

}  // namespace
}  // namespace nvwm
