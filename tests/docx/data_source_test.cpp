// Data sources: an SQLite table with typed columns in order, and CSV files by RFC 4180.
#include "docx/data_source.h"

#include <gtest/gtest.h>

#include "docx/docx_test_support.h"
#include "support/runtime_assertions.h"
#include "support/temp_dir.h"

namespace nvwm::testing {
namespace {

using docx::MergeData;

TEST(DataSourceTest, SqliteColumnsComeInOrderWithTheirDeclaredTypes) {
  TempDir dir;
  std::string db = dir.file("source.db");
  execSqlite(db, R"(CREATE TABLE T (Zeta TEXT, Alpha INTEGER, Amount REAL, Due DATETIME,
                                    Active BOOLEAN, Big INTEGER, Empty TEXT, Flag YESNO);
                    INSERT INTO T VALUES ('z', 7, 2.5, '2026-11-23 09:30:00', 0, 9000000000, NULL, 1);)");
  MergeData data = MergeData::load(db, "TABLE T");
  EXPECT_EQ(data.columns(), (std::vector<std::string>{"Zeta", "Alpha", "Amount", "Due", "Active",
                                                      "Big", "Empty", "Flag"}));
  ASSERT_EQ(data.rowCount(), 1u);
  const auto& row = data.row(0);
  EXPECT_EQ(row[0], Variant("z"));
  EXPECT_EQ(row[1], Variant(int32_t{7}));
  EXPECT_EQ(row[2], Variant(2.5));
  EXPECT_EQ(row[3], Variant(Date::fromParts({2026, 11, 23, 9, 30, 0})));
  EXPECT_EQ(row[4], Variant(false));
  EXPECT_EQ(row[5], Variant(9000000000.0));
  EXPECT_TRUE(row[6].isNull());
  EXPECT_EQ(row[7], Variant(true));
  EXPECT_EQ(data.column("zeta"), 0u);
  EXPECT_EQ(data.column("ACTIVE"), 4u);
  EXPECT_FALSE(data.column("Missing"));
}

TEST(DataSourceTest, ColumnNamesMatchWhateverTheirCase) {
  MergeData data({"Société Name", "City"}, {});
  EXPECT_EQ(data.column("SOCIÉTÉ NAME"), 0u);
  EXPECT_EQ(data.column("city"), 1u);
  EXPECT_FALSE(data.column("Société"));
}

TEST(DataSourceTest, ConnectionTextsNameTheTable) {
  const struct {
    const char* connection;
    const char* table;
  } cases[] = {
      {"TABLE WordMergeTable", "WordMergeTable"},
      {"table `My Table`", "My Table"},
      {" TABLE [My Table] ", "My Table"},
      {"TABLE \"x\"", "x"},
      {"DSN=MS Access Database", ""},
      {"", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.connection);
    EXPECT_EQ(docx::tableOfConnection(c.connection), c.table);
  }
}

TEST(DataSourceTest, ASqliteFileWithOneTableNeedsNoConnection) {
  TempDir dir;
  std::string db = dir.file("one.db");
  execSqlite(db, "CREATE TABLE Only (A TEXT); INSERT INTO Only VALUES ('a');");
  EXPECT_EQ(MergeData::load(db).row(0)[0], Variant("a"));
  execSqlite(db, "CREATE TABLE Second (B TEXT);");
  EXPECT_RUNTIME_ERROR(MergeData::load(db), 4198);
}

TEST(DataSourceTest, CsvFollowsRfc4180) {
  TempDir dir;
  const struct {
    const char* text;
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;
  } cases[] = {
      {"a,b\n1,2\n", {"a", "b"}, {{"1", "2"}}},
      {"a,b\r\n1,2\r\n", {"a", "b"}, {{"1", "2"}}},
      {"a,b\n1,2", {"a", "b"}, {{"1", "2"}}},
      {"\"First Name\",b\n\"Lee, Ann\",\"say \"\"hi\"\"\"\n",
       {"First Name", "b"},
       {{"Lee, Ann", "say \"hi\""}}},
      {"a,b\n\"two\nlines\",x\n", {"a", "b"}, {{"two\nlines", "x"}}},
      {"a,b,c\n1\n", {"a", "b", "c"}, {{"1", "", ""}}},
      {"a\n\n1\n\n", {"a"}, {{"1"}}},
      {"\xEF\xBB\xBFnom\nSoci\xC3\xA9t\xC3\xA9 \xF0\x9F\xA6\x86\n", {"nom"}, {{"Société 🦆"}}},
      {"a,b\n,\n", {"a", "b"}, {{"", ""}}},
      // A record whose only value is an empty quoted one is a record; a blank line is not.
      {"a\n\"\"\n1\n", {"a"}, {{""}, {"1"}}},
      {"a\r\n\"\"\r\n\r\n\"\"", {"a"}, {{""}, {""}}},
      {"a,b\n\"\"\n", {"a", "b"}, {{"", ""}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    std::string path = dir.file("data.csv");
    writeFile(path, c.text);
    MergeData data = MergeData::load(path);
    EXPECT_EQ(data.columns(), c.columns);
    ASSERT_EQ(data.rowCount(), c.rows.size());
    for (size_t r = 0; r < c.rows.size(); ++r) {
      for (size_t i = 0; i < c.rows[r].size(); ++i)
        EXPECT_EQ(data.row(r)[i], Variant(c.rows[r][i]));
    }
  }
}

TEST(DataSourceTest, MalformedCsvIsRefusedWithItsPlace) {
  TempDir dir;
  const struct {
    const char* text;
    const char* says;  // after "can't be used: "
  } cases[] = {
      {"", "it has no header row"},
      {"a,b\n1,2,3\n", "record 2 has 3 values for 2 columns"},
      {"a,b\n\n1,2\n3,4,5\n", "record 3 has 3 values for 2 columns"},  // blank lines don't count
      {"a\n\"never\nclosed\n", "a quoted value opened on line 2 is never closed"},
      {"a\n\xC3\x28\n", "line 2 is not UTF-8 text"},
      {"a\n\xED\xA0\x80\n", "line 2 is not UTF-8 text"},  // a UTF-16 surrogate written as UTF-8
      {"a,b\nx\xC3,y\r\n", "line 2 is not UTF-8 text"},   // not the last value of its line
      {"a,b\n\"two\nlines\",x\n\xFF,y\n", "line 4 is not UTF-8 text"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    std::string path = dir.file("bad.csv");
    writeFile(path, c.text);
    EXPECT_RUNTIME_ERROR_MSG(
        MergeData::load(path), 4198,
        "Command failed: the data source '" + path + "' can't be used: " + c.says);
  }
}

}  // namespace
}  // namespace nvwm::testing
