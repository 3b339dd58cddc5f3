// Merged documents open in LibreOffice, and the text LibreOffice reads from them is each
// record's text: an IF letter, a ten-record label sheet, a letter with SET, REF, FILLIN and live
// fields. Skipped where LibreOffice (soffice) is not installed.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "docx/data_source.h"
#include "docx/docx_test_support.h"
#include "docx/mail_merge.h"
#include "support/temp_dir.h"

namespace nvwm::testing {
namespace {

namespace fs = std::filesystem;

class LibreOfficeTextTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (std::system("command -v soffice > /dev/null 2>&1") != 0) {
      GTEST_SKIP() << "LibreOffice (soffice) is not installed";
    }
  }
  // Merges the body with the data into <name>.docx.
  void merge(const std::string& name, const std::string& body, const docx::MergeData& data) {
    writeDocxBody(body, dir_.file(name + "-main.docx"));
    auto main = docx::Package::load(dir_.file(name + "-main.docx"));
    docx::mergeDocument(*main, data)->save(dir_.file(name + ".docx"));
    names_.push_back(name);
  }
  // Converts every merged document to text in one run of LibreOffice.
  void convert() {
    std::string files;
    for (const std::string& n : names_) files += " '" + n + ".docx'";
    std::string command = "cd '" + dir_.path().string() + "' && HOME='" + dir_.path().string() +
                          "' timeout 180 soffice --headless --norestore --convert-to txt:Text" +
                          files + " > soffice.log 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0) << readFile(dir_.file("soffice.log"));
  }
  // The text LibreOffice wrote, its byte order mark and carriage returns taken out.
  std::string text(const std::string& name) {
    std::string path = dir_.file(name + ".txt");
    if (!fs::exists(path)) {
      ADD_FAILURE() << name << " was not converted: " << readFile(dir_.file("soffice.log"));
      return {};
    }
    std::string t = readFile(path);
    if (t.rfind("\xEF\xBB\xBF", 0) == 0) t.erase(0, 3);
    std::erase(t, '\r');
    return t;
  }

  TempDir dir_;
  std::vector<std::string> names_;
};

TEST_F(LibreOfficeTextTest, ShowsEachRecordsText) {
  docx::MergeData clients({"Name", "Balance"}, {{Variant("Ann Lee"), Variant(120.0)},
                                                {Variant("Bob Ray"), Variant(0.0)},
                                                {Variant("Cy Tan"), Variant(-5.0)}});
  // The IF letter.
  merge("if-letter",
        para(run("Dear ") + mergeFieldOf("Name") + run(",")) +
            para(fieldAround(instructionRun(" IF ") + mergeFieldOf("Balance") +
                                 instructionRun(" > 0 \"You owe ") + mergeFieldOf("Balance") +
                                 instructionRun(".\" \"Nothing is owed.\" "),
                             "x")),
        clients);
  // The label sheet: four labels a page, NEXT before each but the first, ten records.
  std::string cells;
  for (int label = 0; label < 4; ++label) {
    std::string next = label == 0 ? std::string() : simpleField(" NEXT ", "");
    cells += "<w:tc>" + para(next + mergeFieldOf("Name")) + "</w:tc>";
  }
  std::vector<std::vector<Variant>> rows;
  for (int i = 1; i <= 10; ++i) rows.push_back({Variant("Label " + std::to_string(i))});
  merge("labels", "<w:tbl><w:tr>" + cells + "</w:tr></w:tbl>" + para(""),
        docx::MergeData({"Name"}, rows));
  // SET, REF, FILLIN and a live field (a REF to a real bookmark: page fields depend on
  // LibreOffice's own layout of the restarted page numbers).
  merge("set-ref",
        para(fieldAround(instructionRun(" SET Greeting \"Hello ") + mergeFieldOf("Name") +
                             instructionRun("\" "),
                         "") +
             simpleField(" REF Greeting ", "x") + run(", re ") +
             simpleField(" FILLIN \"Subject?\" \\d \"your account\" ", "x") + run(", terms ") +
             complexField({" REF Terms "}, "net 30")) +
            para("<w:bookmarkStart w:id=\"7\" w:name=\"Terms\"/>" + run("net 30") +
                 "<w:bookmarkEnd w:id=\"7\"/>"),
        clients);
  // Paragraph ids, bookmarks renamed per copy with the cross-references that follow them, and
  // a merged value quoted inside a live HYPERLINK.
  merge("identity",
        std::string("<w:p w14:paraId=\"1A2B3C4D\">") +
            "<w:bookmarkStart w:id=\"0\" w:name=\"Who\"/>" + mergeFieldOf("Name") +
            "<w:bookmarkEnd w:id=\"0\"/></w:p>" +
            para(run("see ") + complexField({" REF Who \\h "}, "x") + run(" at ") +
                 fieldAround(instructionRun(" HYPERLINK ") + mergeFieldOf("Name"), "link")),
        clients);
  convert();

  EXPECT_EQ(text("if-letter"),
            "Dear Ann Lee,\nYou owe 120.\n"
            "Dear Bob Ray,\nNothing is owed.\n"
            "Dear Cy Tan,\nNothing is owed.\n");
  std::string labels = text("labels");
  for (int i = 1; i <= 10; ++i) {
    std::string label = "Label " + std::to_string(i) + "\n";
    EXPECT_NE(labels.find(label), std::string::npos) << label << " in:\n" << labels;
  }
  EXPECT_LT(labels.find("Label 4\n"), labels.find("Label 5\n"));
  EXPECT_LT(labels.find("Label 9\n"), labels.find("Label 10\n"));
  EXPECT_EQ(text("set-ref"),
            "Hello Ann Lee, re your account, terms net 30\nnet 30\n"
            "Hello Bob Ray, re your account, terms net 30\nnet 30\n"
            "Hello Cy Tan, re your account, terms net 30\nnet 30\n");
  EXPECT_EQ(text("identity"),
            "Ann Lee\nsee x at link\nBob Ray\nsee x at link\nCy Tan\nsee x at link\n");
}

}  // namespace
}  // namespace nvwm::testing
