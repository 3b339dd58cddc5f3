// "nvwordmerge check", run as a template author would run it.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "support/test_support.h"

namespace nvwm::testing {
namespace {

struct CheckRun {
  int exitCode = -1;
  std::string out;  // standard output
  std::string err;  // standard error
};

class CheckCommandTest : public ::testing::Test {
 protected:
  std::string write(const std::string& name, const std::string& text) {
    std::ofstream(dir.file(name), std::ios::binary) << text;
    return dir.file(name);
  }

  // Runs "nvwordmerge check <args>" with the template as standard input.
  CheckRun check(const std::string& args, const std::string& input = "") {
    std::string in = write("stdin.txt", input);
    std::string command = std::string("'") + NVWM_CLI + "' check " + args + " <'" + in + "' 2>'" +
                          dir.file("stderr.txt") + "'";
    CheckRun r;
    FILE* p = popen(command.c_str(), "r");
    if (p == nullptr) return r;
    char buffer[4096];
    for (size_t n; (n = fread(buffer, 1, sizeof buffer, p)) > 0;) r.out.append(buffer, n);
    int status = pclose(p);
    r.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    std::ostringstream err;
    err << std::ifstream(dir.file("stderr.txt")).rdbuf();
    r.err = err.str();
    return r;
  }

  TempDir dir;
};

const std::string kUnknownNonsense =
    "The Tallowbrook Pad did not recognize: «Nonsense» as a valid placeholder field name.\n\n";
const std::string kMissingOpening =
    "You are missing your opening brackets, '«' in one of your expressions\n\n";

TEST_F(CheckCommandTest, GoodTemplatePrintsNothing) {
  std::string file = write("letter.txt", "Dear «Contact Display Name» of <<Company Name>>,");
  CheckRun r = check("'" + file + "'");
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, "");
}

TEST_F(CheckCommandTest, FirstFaultInTheUsersWords) {
  const struct {
    const char* args;
    std::string input;
    std::string out;
  } cases[] = {
      {"-", "«Nonsense» and «Other»", kUnknownNonsense},
      {"--skip-names -", "«Nonsense» and «Company Name", kMissingOpening},
      {"-", "«Nonsense» x» «Company Name»", kUnknownNonsense + kMissingOpening},
      {"-", "«(Todays Date, MMMM d)»",
       "The date format of: 'MMMM d' is not valid.  Please see help for valid date formats.\n\n"},
      {"--rtf -", "{\\rtf1 \\'abNonsense\\'bb}", kUnknownNonsense},
      {"--rtf -", "{\\rtf1 \\'abCompany Name}", kMissingOpening},
      // The name check uses the catalogue of the list type: no task fields in list type 1.
      {"-", "«(Due Date, mmmm d yyyy)»",
       "The Tallowbrook Pad did not recognize: «Task Due Date» as a valid placeholder field "
       "name.\n\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.args) + " " + c.input);
    CheckRun r = check(c.args, c.input);
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, c.out);
    EXPECT_EQ(r.err, "");
  }
}

TEST_F(CheckCommandTest, OptionsChangeWhatIsChecked) {
  const struct {
    const char* args;
    const char* input;
  } passing[] = {
      {"--skip-names -", "«Nonsense»"},
      {"--list-type 8 -", "«(Due Date, mmmm d yyyy)» «Task Name»"},
      {"-", "{\\rtf1 \\'abNonsense\\'bb}"},
      {"--rtf -", "{\\rtf1 «Nonsense» \\'ABCompany Name\\'BB}"},
      {"-", ""},
  };
  for (const auto& c : passing) {
    SCOPED_TRACE(std::string(c.args) + " " + c.input);
    CheckRun r = check(c.args, c.input);
    EXPECT_EQ(r.exitCode, 0) << r.out << r.err;
    EXPECT_EQ(r.out, "");
  }
}

TEST_F(CheckCommandTest, DatePlaceholderWithoutFormatIsToldByTheErrorService) {
  CheckRun r = check("-", "«(Task Due Date)»");
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_NE(r.err.find("error 9 \"Subscript out of range"), std::string::npos) << r.err;
  EXPECT_NE(r.err.find("Tallowbrook.exe-clsInsertFieldsInRTB-testRTBComment"), std::string::npos);
}

TEST_F(CheckCommandTest, InvalidUtf8IsCheckedWithAWarning) {
  // « and » in Windows-1252 are single bytes: not delimiters here.
  CheckRun r = check("-",
                     "\xab"
                     "Nonsense\xbb");
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, "");
  EXPECT_NE(r.err.find("not valid UTF-8"), std::string::npos) << r.err;
  r = check("-", "\xff«Nonsense»");
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, kUnknownNonsense);
}

TEST_F(CheckCommandTest, UnreadableTemplateExitsTwo) {
  CheckRun r = check("'" + dir.file("missing.txt") + "'");
  EXPECT_EQ(r.exitCode, 2);
  EXPECT_EQ(r.out, "");
  EXPECT_NE(r.err.find("cannot read the template"), std::string::npos) << r.err;
}

TEST_F(CheckCommandTest, UnclosedDelimiterAtTheStartEnds) {
  CheckRun r = check("-", "«abc");
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, kMissingOpening);
}

}  // namespace
}  // namespace nvwm::testing
