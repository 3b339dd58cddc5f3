// The main job through the command line: the sample client letter over the sample practice,
// read back, and the command's failures. The LibreOffice check runs where soffice is installed.
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

#include "docx/docx_test_support.h"
#include "merge_test_support.h"
#include "runtime/convert.h"
#include "services/sqlite/sample_practice.h"
#include "services/sqlite/sqlite_database.h"

namespace nvwm::testing {
namespace {

namespace fs = std::filesystem;

struct CommandResult {
  int exitCode = -1;
  std::string out;
  std::string err;
};

std::string readAll(const fs::path& path) {
  std::ifstream in(path);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

std::string quoted(const std::string& arg) {
  std::string q = "'";
  for (char c : arg) q += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return q + "'";
}

class MergeCommandTest : public ::testing::Test {
 protected:
  CommandResult run(const std::vector<std::string>& args) {
    std::string command = quoted(NVWM_CLI);
    for (const std::string& a : args) command += " " + quoted(a);
    const fs::path out = dir.path() / "stdout.txt", err = dir.path() / "stderr.txt";
    command += " > " + quoted(out.string()) + " 2> " + quoted(err.string()) + " < /dev/null";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readAll(out), readAll(err)};
  }
  std::vector<std::string> mergeArgs(const std::vector<std::string>& more) {
    std::vector<std::string> args = {"merge", "--working-folder", dir.file("work")};
    args.insert(args.end(), more.begin(), more.end());
    return args;
  }
  // Each letter's text (the merged body cut at its section breaks).
  static std::vector<std::string> letters(const std::string& body) {
    std::vector<std::string> parts;
    size_t start = 0;
    for (size_t at; (at = body.find("==section==\n", start)) != std::string::npos;) {
      parts.push_back(body.substr(start, at - start));
      start = at + 12;
    }
    parts.push_back(body.substr(start));
    return parts;
  }
  const std::string sampleLetter = std::string(NVWM_SOURCE_DIR) + "/data/sample-letter.docx";
  TempDir dir;
};

TEST_F(MergeCommandTest, TheSampleLetterReachesEveryActiveClientAtItsDefaultContact) {
  const std::string practice = dir.file("sample.db");
  writeSamplePractice(practice);
  const std::string out = dir.file("letters.docx");
  CommandResult r = run(mergeArgs(
      {"--db", practice, "--list-type", "company", "--template", sampleLetter, "--out", out}));
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_NE(r.out.find("wrote " + out), std::string::npos) << r.out;
  EXPECT_EQ(r.err.find("Initializing MS Word Merge"), std::string::npos)
      << "no progress line when standard error is no terminal";
  expectConsistentPackage(out);

  // Who should get a letter, asked of the practice directly: the shown, active clients and the
  // first name of the contact their links mark as default, in company name order.
  SqliteDatabase db(practice);
  Handle h = db.openRecordset(
      "SELECT Companies.CompanyName, Contacts.FirstName FROM ((ClientData INNER JOIN Companies ON "
      "ClientData.CompanyIDNum = Companies.CompanyID) INNER JOIN ContactLinks ON "
      "ContactLinks.CompanyNum = Companies.CompanyID) INNER JOIN Contacts ON Contacts.ContactID "
      "= ContactLinks.ContactIDNum WHERE ClientData.ShowThisClient = True AND "
      "ClientData.ActiveStatus = 1 AND ContactLinks.DefaultContact = True ORDER BY "
      "Companies.CompanyName;",
      kCursorKeyset, kLockReadOnly);
  std::vector<std::pair<std::string, std::string>> expected;
  for (; !db.isEOF(h); db.moveNext(h)) {
    expected.emplace_back(CStr(db.getField(h, Variant("CompanyName"))),
                          CStr(db.getField(h, Variant("FirstName"))));
  }
  ASSERT_GT(expected.size(), 10u);

  const std::vector<std::string> written = letters(documentText(out));
  ASSERT_EQ(written.size(), expected.size());
  for (size_t i = 0; i < written.size(); ++i) {
    SCOPED_TRACE(expected[i].first);
    const std::string& letter = written[i];
    EXPECT_NE(letter.find("\nDear " + expected[i].second + ",\n"), std::string::npos) << letter;
    EXPECT_NE(letter.find("\n" + expected[i].first + "\n"), std::string::npos) << letter;
    EXPECT_EQ(letter.find("Dear ,"), std::string::npos);
    EXPECT_EQ(letter.find("Re: Year-end engagement, Bellwood Lane"), std::string::npos)
        << "no letter to the firm itself";
    EXPECT_TRUE(std::regex_search(letter, std::regex("fiscal year end of .* as [A-Z][a-z]+ "
                                                     "[0-9]{1,2}, [0-9]{4}")))
        << letter;
  }
  // Clients without a default contact are named and left out. (Lakeshore Family Dental has
  // links and no default: reading its default contact repairs it, so it gets its letter.)
  EXPECT_NE(r.err.find("left out Rideau Heritage Builders Inc.: no default contact to address"),
            std::string::npos)
      << r.err;
}

TEST_F(MergeCommandTest, LibreOfficeOpensTheLettersWithoutRepair) {
  if (std::system("command -v soffice > /dev/null 2>&1") != 0) {
    GTEST_SKIP() << "LibreOffice (soffice) is not installed";
  }
  const std::string out = dir.file("letters.docx");
  CommandResult r =
      run(mergeArgs({"--list-type", "company", "--template", sampleLetter, "--out", out}));
  ASSERT_EQ(r.exitCode, 0) << r.err;
  const std::string convert =
      "cd " + quoted(dir.path().string()) + " && HOME=" + quoted(dir.path().string()) +
      " timeout 180 soffice --headless --convert-to txt:Text " + quoted(out) + " > /dev/null 2>&1";
  ASSERT_EQ(std::system(convert.c_str()), 0);
  const std::string text = readAll(dir.path() / "letters.txt");
  EXPECT_NE(text.find("Dear Ann,"), std::string::npos);
  EXPECT_NE(text.find("Maple Leaf Bakery Inc."), std::string::npos);
  EXPECT_NE(text.find("$2.15 per $100 of insurable earnings"), std::string::npos);
  EXPECT_EQ(text.find("Dear ,"), std::string::npos);
  EXPECT_EQ(text.find("«"), std::string::npos) << "every field merged";
}

TEST_F(MergeCommandTest, OpenBothWritesTheLinkedMainDocumentBeside) {
  const std::string out = dir.file("letters.docx");
  CommandResult r = run(mergeArgs({"--list-type", "company", "--ids", "2,3", "--template",
                                   sampleLetter, "--open", "both", "--out", out}));
  ASSERT_EQ(r.exitCode, 0) << r.err;
  EXPECT_EQ(letters(documentText(out)).size(), 2u);
  const std::string main = dir.file("letters-main.docx");
  auto settings = loadPart(main, "word/settings.xml");
  ASSERT_TRUE(settings);
  EXPECT_EQ(countXPath(*settings, "//w:mailMerge"), 1u) << "linked to its data source";
}

TEST_F(MergeCommandTest, FailuresGoToStandardError) {
  const struct {
    std::vector<std::string> args;
    int exitCode;
    const char* message;
  } cases[] = {
      {{"--list-type", "docket", "--filter", "Subject = 'nothing like this'", "--out",
        dir.file("x.docx")},
       1,
       "There are no items that match the search criteria you have indicated.  Please try "
       "again."},
      {{"--list-type", "remittance"},
       1,
       "Tallowbrook Pad was unable to open the required items for merge.  Please try again."},
      {{"--list-type", "company", "--ids", "2,x"}, 2, "--ids wants numbers"},
      {{"--list-type", "company", "--template", dir.file("missing.docx")}, 2, "no template at"},
      {{"--list-type", "company", "--db", dir.file("missing.db")},
       2,
       "cannot open the practice database"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.message);
    CommandResult r = run(mergeArgs(c.args));
    EXPECT_EQ(r.exitCode, c.exitCode);
    EXPECT_NE(r.err.find(c.message), std::string::npos) << r.err;
  }
}

}  // namespace
}  // namespace nvwm::testing
