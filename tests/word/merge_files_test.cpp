// The engine's own road (the docx-merge command): main document + data source -> .docx.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "docx/docx_test_support.h"
#include "services/word/word_engine.h"
#include "support/program_run.h"
#include "support/test_support.h"

namespace nvwm::testing {
namespace {

namespace fs = std::filesystem;

class MergeFilesTest : public ::testing::Test {
 protected:
  MergeFilesTest() {
    execSqlite(db_,
               "CREATE TABLE Clients (Name TEXT, Fee REAL);"
               "INSERT INTO Clients VALUES ('Ann', 100), ('Bob', 250.5), ('Cy', 0);");
    DocxParts parts;
    parts.body = para(run("Dear ") + complexField({" MERGEFIELD ", "Name "})) +
                 "<w:tbl><w:tr><w:tc>" + para(run("Fee")) + "</w:tc><w:tc>" +
                 para(simpleField(" MERGEFIELD Fee \\# \"$#,##0.00\" ")) +
                 "</w:tc></w:tr></w:tbl>" + para(run("Regards"));
    parts.headers["default"] = para(run("Ref: ") + simpleField(" MERGEFIELD Name \\* Upper "));
    parts.footers["default"] = para(complexField({" PAGE "}, "1"));
    writeDocx(parts, main_);
  }
  TempDir dir_;
  std::string db_ = dir_.file("clients.db");
  std::string main_ = dir_.file("letter.docx");
  std::string out_ = dir_.file("merged.docx");
};

TEST_F(MergeFilesTest, MergesEveryRecordAndTheOutputReopens) {
  EXPECT_EQ(wordengine::mergeFiles(main_, db_, "Clients", out_), 3u);
  expectConsistentPackage(out_);
  auto app = wordengine::createWordApplication({});
  auto reopened = app->Documents()->Open(Variant(out_));
  EXPECT_EQ(reopened->MailMerge()->State(), 0);
  auto xml = loadPart(out_, "word/document.xml");
  EXPECT_EQ(dumpBody(*xml),
            "Dear Ann\nFee\n$ 100.00\nRegards\n\n==section==\n"
            "Dear Bob\nFee\n$ 250.50\nRegards\n\n==section==\n"
            "Dear Cy\nFee\n$   0.00\nRegards\n");
}

TEST_F(MergeFilesTest, BadInputRaisesAndWritesNothing) {
  writeFile(dir_.file("broken.docx"), "PK\x03\x04 broken");
  const struct {
    std::string templatePath, data, table;
  } cases[] = {
      {dir_.file("missing.docx"), db_, "Clients"},
      {dir_.file("broken.docx"), db_, "Clients"},
      {main_, dir_.file("missing.db"), "Clients"},
      {main_, db_, "NoSuchTable"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.templatePath + " " + c.data + " " + c.table);
    EXPECT_THROW(wordengine::mergeFiles(c.templatePath, c.data, c.table, out_), RuntimeError);
    EXPECT_FALSE(fs::exists(out_));
  }
}

// A data source with its header and no records is refused before anything is written.
TEST_F(MergeFilesTest, ADataSourceWithoutRecordsIsRefusedAndNothingIsWritten) {
  std::string csv = dir_.file("header-only.csv");
  writeFile(csv, "Name,Fee\r\n");
  execSqlite(db_, "CREATE TABLE Nobody (Name TEXT, Fee REAL);");
  for (const auto& [data, table] :
       {std::pair{csv, std::string()}, std::pair{db_, std::string("Nobody")}}) {
    SCOPED_TRACE(data + " " + table);
    try {
      wordengine::mergeFiles(main_, data, table, out_);
      ADD_FAILURE() << "merged";
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), 4198);
      EXPECT_NE(e.description().find("no records"), std::string::npos) << e.description();
    }
    EXPECT_FALSE(fs::exists(out_));
  }
}

// A SKIPIF that drops every record gives an empty document and says so; nothing crashes.
TEST_F(MergeFilesTest, ASkipIfThatDropsEveryRecordGivesAnEmptyDocument) {
  writeDocxBody(para(simpleField(" SKIPIF 1 = 1 ") + simpleField(" MERGEFIELD Name ")), main_);
  EXPECT_EQ(wordengine::mergeFiles(main_, db_, "Clients", out_), 0u);
  expectConsistentPackage(out_);
  EXPECT_EQ(dumpBody(*loadPart(out_, "word/document.xml")), "\n");
  ProgramRun run = runProgram(NVWM_CLI, "docx-merge --template '" + main_ + "' --data '" + db_ +
                                            "' --table Clients --out '" + out_ + "'");
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_NE(run.err.find("docx-merge: SKIPIF dropped every record"), std::string::npos) << run.err;
}

// Where LibreOffice is installed, merged output must convert without complaint.
TEST_F(MergeFilesTest, LibreOfficeConvertsTheMergedOutputToPdf) {
  if (std::system("command -v soffice > /dev/null 2>&1") != 0) {
    GTEST_SKIP() << "LibreOffice (soffice) is not installed";
  }
  ASSERT_EQ(wordengine::mergeFiles(main_, db_, "Clients", out_), 3u);
  std::string command = "cd '" + dir_.path().string() + "' && HOME='" + dir_.path().string() +
                        "' timeout 120 soffice --headless --norestore --convert-to pdf merged.docx"
                        " > soffice.log 2>&1";
  ASSERT_EQ(std::system(command.c_str()), 0) << readFile(dir_.file("soffice.log"));
  ASSERT_TRUE(fs::exists(dir_.file("merged.pdf"))) << readFile(dir_.file("soffice.log"));
  EXPECT_GT(fs::file_size(dir_.file("merged.pdf")), 1000u);
}

}  // namespace
}  // namespace nvwm::testing
