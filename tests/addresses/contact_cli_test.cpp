// The "contact" command of nvwordmerge, run as a user would run it.
#include <gtest/gtest.h>

#include "support/program_run.h"
#include "support/test_support.h"

namespace nvwm {
namespace {

using testing::TempDir;

class ContactCliTest : public ::testing::Test {
 protected:
  testing::ProgramRun run(const std::string& args) { return testing::runProgram(NVWM_CLI, args); }
  TempDir dir;
};

TEST_F(ContactCliTest, AddressPrintsTheBlockLineByLine) {
  const testing::ProgramRun r = run("contact address 101 --company 2");
  EXPECT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out,
            "Maple Leaf Bakery Inc.\nAnn Brown\n48 Brock Street\nKingston, Ontario  K7L 1R8\n"
            "Phone: (204) 555-1000\nFax: (204) 555-1009\nCell: (613) 555-2101\n"
            "Email: ann@maple.example\n");
}

TEST_F(ContactCliTest, SummaryPrintsTheRtfDocument) {
  const testing::ProgramRun r = run("contact summary 101 --company 2");
  EXPECT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out.rfind("{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang4105", 0), 0u) << r.out;
  EXPECT_NE(r.out.find("\\b\\pard\\fi-1450\\li1450\\ri0 Name:\\b0  Ann Brown\\par\r\n"),
            std::string::npos);
  EXPECT_NE(r.out.find("\\b Default Contact:\\b0  Yes\\par\r\n"), std::string::npos);
  EXPECT_EQ(r.out.back(), '}');
}

TEST_F(ContactCliTest, CheckDefaultWithoutRepairChangesNothing) {
  const testing::ProgramRun r = run("contact check-default 4");
  EXPECT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(r.out, "default contact of company 4: -1\nnothing changed\n");
}

TEST_F(ContactCliTest, CheckDefaultRepairsACompanyWithoutDefaultAndSaysWhatChanged) {
  const testing::ProgramRun r = run("contact check-default 4 --repair");
  EXPECT_EQ(r.out.rfind("default contact of company 4: 104 (Aisha Kowalski)\n", 0), 0u) << r.out;
  for (const char* line : {
           "ContactLinks LinkRow 4, CompanyNum 4, ContactIDNum 104: DefaultContact \"False\" -> "
           "\"True\"\n",
           "Companies CompanyID 4: DefaultContactName Null -> \"Aisha Kowalski\"\n",
           "Companies CompanyID 4: DefaultContactEmail Null -> \"aisha@lakeshore.example\"\n",
           "CompaniesNotes NotesRow 3, CompanyNum 4: ContactNotes Null -> an RTF document of ",
       }) {
    EXPECT_NE(r.out.find(line), std::string::npos) << line << "\nin:\n" << r.out;
  }
  // The sample's lookup-type custom field holds an expression, which the boolean holder of the
  // lookup refresh refuses: the library reports it, and the command says so by its exit code.
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_NE(r.err.find("error 13"), std::string::npos) << r.err;
}

TEST_F(ContactCliTest, SetDefaultKeepsItsChangesInTheGivenDatabase) {
  const std::string db = dir.file("practice.db");
  ASSERT_EQ(run("sample-db '" + db + "'").exitCode, 0);
  const testing::ProgramRun set = run("contact --db '" + db + "' set-default 102 --company 2");
  EXPECT_EQ(set.out.rfind("contact 102 set as the default contact of company 2\n", 0), 0u)
      << set.out;
  EXPECT_NE(set.out.find("Companies CompanyID 2: DefaultContactName \"Ann Brown\" -> \"Robert "
                         "Wilson\"\n"),
            std::string::npos)
      << set.out;
  EXPECT_NE(set.out.find("ContactLinks LinkRow 1, CompanyNum 2, ContactIDNum 101: DefaultContact "
                         "\"True\" -> \"False\"\n"),
            std::string::npos);
  const testing::ProgramRun check = run("contact --db '" + db + "' check-default 2 --repair");
  EXPECT_EQ(check.exitCode, 0) << check.err;
  EXPECT_EQ(check.out, "default contact of company 2: 102 (Robert Wilson)\nnothing changed\n");
}

TEST_F(ContactCliTest, BadInputGivesAMessageAndNonZeroExit) {
  const struct {
    const char* args;
    int exitCode;  // -1: the command line parser's own non-zero code
    const char* message;
  } cases[] = {
      {"contact address 999", 1, "no contact 999"},
      {"contact summary -4", 1, "no contact -4"},
      {"contact --db /nonexistent/practice.db address 101", 2, "cannot open"},
      {"contact set-default 101", -1, "--company is required"},
      {"contact address abc", -1, "contact-id"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args);
    const testing::ProgramRun r = run(c.args);
    if (c.exitCode >= 0) {
      EXPECT_EQ(r.exitCode, c.exitCode);
      EXPECT_EQ(r.out, "");
    } else {
      EXPECT_NE(r.exitCode, 0);
    }
    EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
  }
}

}  // namespace
}  // namespace nvwm
