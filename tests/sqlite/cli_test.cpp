// The nvwordmerge commands of the practice database: sample-db and sql.
#include <gtest/gtest.h>

#include <filesystem>

#include "support/program_run.h"
#include "support/test_support.h"

namespace nvwm {
namespace {

using testing::TempDir;

struct CliRun {
  int exitCode = -1;
  std::string out;
};

// Runs the program with arguments (already quoted for the shell); stdout, then stderr.
CliRun run(const std::string& args) {
  const testing::ProgramRun r = testing::runProgram(NVWM_CLI, args);
  return {r.exitCode, r.out + r.err};
}

class CliTest : public ::testing::Test {
 protected:
  void SetUp() override {
    db = dir.file("sample.db");
    CliRun r = run("sample-db '" + db + "'");
    ASSERT_EQ(r.exitCode, 0) << r.out;
  }
  TempDir dir;
  std::string db;
};

TEST_F(CliTest, SqlPrintsHeaderAndTabSeparatedRows) {
  CliRun r =
      run("sql --db '" + db +
          "' \"SELECT CompanyName, Province, Country FROM Companies WHERE CompanyID <= 2 ORDER "
          "BY CompanyID\"");
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out,
            "CompanyName\tProvince\tCountry\n"
            "Bellwood Lane CPA Professional Corporation\tOntario\tCanada\n"
            "Maple Leaf Bakery Inc.\tOntario\tCanada\n");
}

TEST_F(CliTest, SqlPrintsNullAsNothingAndDatesInStoredForm) {
  CliRun r = run("sql --db '" + db +
                 "' \"SELECT Subject, DateFrom, TimeFrom, Custom5, Invoiced FROM Dockets WHERE "
                 "DocketID = 1\"");
  EXPECT_EQ(r.exitCode, 0);
  ASSERT_NE(r.out.find('\n'), std::string::npos);
  std::string row = r.out.substr(r.out.find('\n') + 1);
  EXPECT_NE(row.find("\t1899-12-30 13:00:00\t\tTrue\n"), std::string::npos) << row;
  EXPECT_NE(row.find("-10-05 00:00:00\t"), std::string::npos) << row;
}

TEST_F(CliTest, SqlTakesJetDateLiterals) {
  CliRun r =
      run("sql --db '" + db + "' \"SELECT HolidayType FROM Holidays WHERE HolidayDate = #7/1/" +
          std::to_string(2000) + "#\"");
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, "HolidayType\n");
}

TEST_F(CliTest, BadSqlGivesOneLineAndNonZeroExit) {
  CliRun r = run("sql --db '" + db + "' \"SELECT * FROM NoSuchTable\"");
  EXPECT_NE(r.exitCode, 0);
  EXPECT_NE(r.out.find("no such table: NoSuchTable"), std::string::npos) << r.out;
  EXPECT_EQ(r.out.find('\n'), r.out.size() - 1) << r.out;
}

TEST_F(CliTest, MissingDatabaseGivesNonZeroExit) {
  CliRun r = run("sql --db '" + dir.file("missing.db") + "' \"SELECT 1\"");
  EXPECT_NE(r.exitCode, 0);
  EXPECT_FALSE(std::filesystem::exists(dir.file("missing.db")));
}

TEST_F(CliTest, SampleDbRefusesToOverwrite) {
  CliRun r = run("sample-db '" + db + "'");
  EXPECT_NE(r.exitCode, 0);
  EXPECT_NE(r.out.find("already exists"), std::string::npos) << r.out;
}

}  // namespace
}  // namespace nvwm
