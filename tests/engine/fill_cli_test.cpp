// "nvwordmerge fill", run as a user runs it, on the sample practice.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <fstream>

#include "support/test_support.h"

namespace nvwm {
namespace {

using testing::TempDir;

struct CliRun {
  int exitCode = -1;
  std::string out;
};

// Runs the program with arguments (already quoted for the shell); stdout only unless asked.
CliRun run(const std::string& args, bool withStderr = false) {
  CliRun r;
  std::string command =
      std::string("'") + NVWM_CLI + "' " + args + (withStderr ? " 2>&1" : " 2>/dev/null");
  FILE* p = popen(command.c_str(), "r");
  if (!p) return r;
  char buf[4096];
  size_t n;
  while ((n = fread(buf, 1, sizeof buf, p)) > 0) r.out.append(buf, n);
  int status = pclose(p);
  r.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return r;
}

class FillCliTest : public ::testing::Test {
 protected:
  void SetUp() override {
    db = dir.file("sample.db");
    ASSERT_EQ(run("sample-db '" + db + "'").exitCode, 0);
  }
  // Writes a template file and returns its quoted path.
  std::string templateFile(const std::string& text) {
    std::string path = dir.file("letter-" + std::to_string(++files) + ".txt");
    std::ofstream(path, std::ios::binary) << text;
    return "'" + path + "'";
  }
  TempDir dir;
  std::string db;
  int files = 0;
};

TEST_F(FillCliTest, LetterToACompanyGreetsItsDefaultContact) {
  const std::string letter = templateFile(
      "Dear «Contact First Name»,\n"
      "Re: <<Company Name>>, «City», «Abbreviated Province»\n"
      "Year end: «(Year End Date, mmmm d, yyyy)»\n"
      "«Your Company Name»\n");
  const std::string expected =
      "Dear Ann,\n"
      "Re: Maple Leaf Bakery Inc., Kingston, ON\n"
      "Year end: March 31, 20";
  CliRun r = run("fill --db '" + db + "' --company 2 " + letter);
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out.substr(0, expected.size()), expected) << r.out;
  EXPECT_NE(r.out.find("\nBellwood Lane CPA Professional Corporation\n"), std::string::npos)
      << r.out;
}

TEST_F(FillCliTest, BuiltInSamplePracticeWithoutDb) {
  CliRun r = run("fill --contact 101 " + templateFile("Dear «Contact Display Name»,"));
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, "Dear Ann Brown,");
}

TEST_F(FillCliTest, TaskGivesItsCompanyAndContact) {
  CliRun r = run("fill --db '" + db + "' --task 2 " +
                 templateFile("«Task Name» for «Company Name», attn «Contact Display Name»"));
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, "T2 corporate return 2026 for Maple Leaf Bakery Inc., attn Ann Brown");
}

TEST_F(FillCliTest, TimeEntryTypedFields) {
  CliRun r = run("fill --db '" + db + "' --docket 1 " +
                 templateFile("«Time Entry Name»: locked «Time Entry Locked», «Total Amount "
                              "(Final)», from «Time Entry Start Time»"));
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out.rfind("Bookkeeping", 0), 0u) << r.out;
  EXPECT_NE(r.out.find("locked Yes, $"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find(", from 1:00 pm"), std::string::npos) << r.out;
}

TEST_F(FillCliTest, RtfFromStandardInput) {
  const std::string rtf = templateFile(
      "{\\rtf1 Dear \\'abContact First Name\\'bb,\\par \\b\\'abContact Last Name\\'bb\\b0}\n");
  CliRun r = run("fill --rtf --db '" + db + "' --contact 101 - < " + rtf);
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, "{\\rtf1 Dear Ann,\\par \\b Brown\\b0}\n");
}

TEST_F(FillCliTest, SamplePreview) {
  CliRun r = run("fill --sample " + templateFile("Dear «Contact First Name» of «Company Name»"));
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, "Dear Jane of ABC Consulting");
}

TEST_F(FillCliTest, ContactWithoutCompany) {
  const std::string letter = templateFile("To «Company Name»");
  EXPECT_EQ(run("fill --contact 101 " + letter).out, "To ");
  EXPECT_EQ(run("fill --contact 101 --contact-for-missing-company " + letter).out, "To Ann Brown");
}

TEST_F(FillCliTest, BadInputIsRefusedClearly) {
  CliRun missing = run("fill '" + dir.file("none.txt") + "'", true);
  EXPECT_EQ(missing.exitCode, 2);
  EXPECT_NE(missing.out.find("cannot read the template"), std::string::npos) << missing.out;

  CliRun notUtf8 = run("fill " + templateFile("Dear \xff\xfe«Contact First Name»"), true);
  EXPECT_EQ(notUtf8.exitCode, 2);
  EXPECT_NE(notUtf8.out.find("not UTF-8"), std::string::npos) << notUtf8.out;

  CliRun noDb = run("fill --db '" + dir.file("none.db") + "' " + templateFile("x"), true);
  EXPECT_EQ(noDb.exitCode, 2);
  EXPECT_NE(noDb.out.find("cannot open the practice database"), std::string::npos) << noDb.out;

  EXPECT_NE(run("fill --list-type 9 " + templateFile("x")).exitCode, 0);
  EXPECT_NE(run("fill").exitCode, 0);
}

TEST_F(FillCliTest, EmptyTemplateGivesNothing) {
  CliRun r = run("fill " + templateFile(""));
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, "");
}

}  // namespace
}  // namespace nvwm
