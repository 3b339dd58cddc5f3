// Where LibreOffice is installed, the stored summaries must open in it and read as meant.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "addresses/contact_summary.h"
#include "host/references.h"
#include "services/folder_locale.h"
#include "summary_test_support.h"

namespace nvwm {
namespace {

using testing::PracticeFixture;
using testing::TempDir;

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// The lines of a text export, with LibreOffice's spacing evened out: its BOM dropped, its
// narrow spaces (U+2006, which it writes for runs of blanks) and tabs read as blanks, runs of
// blanks made one, lines trimmed, trailing empty lines dropped.
std::vector<std::string> readableLines(std::string text) {
  if (text.rfind("\xEF\xBB\xBF", 0) == 0) text.erase(0, 3);
  std::vector<std::string> lines;
  std::string line;
  const auto endLine = [&] {
    while (!line.empty() && line.back() == ' ') line.pop_back();
    lines.push_back(line);
    line.clear();
  };
  for (size_t i = 0; i < text.size(); ++i) {
    if (text.compare(i, 3, "\xE2\x80\x86") == 0 || text[i] == '\t' || text[i] == ' ') {
      if (!line.empty() && line.back() != ' ') line += ' ';
      if (text[i] != '\t' && text[i] != ' ') i += 2;
    } else if (text[i] == '\n') {
      endLine();
    } else if (text[i] != '\r') {
      line += text[i];
    }
  }
  endLine();
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

class SummaryInLibreOfficeTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (std::system("command -v soffice > /dev/null 2>&1") != 0) {
      GTEST_SKIP() << "LibreOffice (soffice) is not installed";
    }
    references().LocaleReference = std::make_shared<HostLocale>(1, 3);
  }
  // Writes the RTF to a file, has LibreOffice export it as UTF-8 text, and reads that.
  std::vector<std::string> asText(const std::string& rtf, const std::string& name) {
    std::ofstream(dir.file(name + ".rtf"), std::ios::binary) << rtf;
    const std::string command = "cd '" + dir.path().string() + "' && HOME='" + dir.path().string() +
                                "' timeout 120 soffice --headless --norestore --convert-to "
                                "'txt:Text (encoded):UTF8' " +
                                name + ".rtf > soffice.log 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << readFile(dir.file("soffice.log"));
    EXPECT_TRUE(std::filesystem::exists(dir.file(name + ".txt")))
        << readFile(dir.file("soffice.log"));
    return readableLines(readFile(dir.file(name + ".txt")));
  }
  TempDir dir;
  PracticeFixture f;
};

TEST_F(SummaryInLibreOfficeTest, FullSummaryReadsLineByLine) {
  testing::addFullContact(f);
  const std::string rtf = saveContactBusinessRTF(101, -1, 2, true);
  EXPECT_EQ(asText(rtf, "full"),
            readableLines(testing::readSummaryData("full-contact-summary.txt")));
}

TEST_F(SummaryInLibreOfficeTest, EmptySummaryAndNoDefaultTextOpen) {
  f.exec("INSERT INTO Contacts (ContactID) VALUES (7);");
  EXPECT_EQ(asText(saveContactBusinessRTF(7, -1, -1, true), "empty"),
            std::vector<std::string>{"Default Contact: No"});
  EXPECT_EQ(asText(saveNoDefaultComment(), "nodefault"),
            std::vector<std::string>{"No Default Contact Selected."});
}

}  // namespace
}  // namespace nvwm
