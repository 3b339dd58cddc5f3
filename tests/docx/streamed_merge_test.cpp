// A merge written to a file as it is made gives the same document as the merge kept in memory.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "docx/data_source.h"
#include "docx/docx_test_support.h"
#include "docx/mail_merge.h"
#include "runtime/error.h"
#include "support/temp_dir.h"

namespace nvwm::testing {
namespace {

DocxParts letterWithHeaderAndNotes() {
  DocxParts parts;
  parts.body = para(run("Dear ") + simpleField(" MERGEFIELD Name ") + run(", ") +
                    complexField({" MERGEFIELD ", "Amount \\# \"#,##0.00\" "})) +
               para(run("See note") + "<w:r><w:footnoteReference w:id=\"1\"/></w:r>");
  parts.headers["default"] = para(run("For ") + simpleField(" MERGEFIELD Name \\* Upper "));
  parts.footers["default"] = para(run("Page footer without fields"));
  parts.footnotes =
      "<w:footnote w:id=\"1\">" + para(simpleField(" MERGEFIELD Name ")) + "</w:footnote>";
  return parts;
}

docx::MergeData records(int count) {
  std::vector<std::vector<Variant>> rows;
  for (int i = 0; i < count; ++i) {
    rows.push_back({Variant("Client " + std::to_string(i) + " & Sons <Ltd>"),
                    Variant(static_cast<double>(i) * 1234.5)});
  }
  return docx::MergeData({"Name", "Amount"}, std::move(rows));
}

TEST(StreamedMergeTest, TwoThousandRecordsGiveTheDocumentOfTheMergeInMemory) {
  TempDir dir;
  writeDocx(letterWithHeaderAndNotes(), dir.file("main.docx"));
  docx::MergeData data = records(2000);

  auto main = docx::Package::load(dir.file("main.docx"));
  std::unique_ptr<docx::Package> inMemory = docx::mergeDocument(*main, data);
  inMemory->save(dir.file("memory.docx"));
  auto again = docx::Package::load(dir.file("main.docx"));
  EXPECT_EQ(docx::mergeDocumentToFile(*again, data, dir.file("streamed.docx")), 2000u);

  auto memory = docx::Package::load(dir.file("memory.docx"));
  auto streamed = docx::Package::load(dir.file("streamed.docx"));
  EXPECT_EQ(streamed->bytes("word/document.xml"), memory->bytes("word/document.xml"));
  std::vector<std::string> memoryNames = memory->partNames();
  std::vector<std::string> streamedNames = streamed->partNames();
  std::sort(memoryNames.begin(), memoryNames.end());
  std::sort(streamedNames.begin(), streamedNames.end());
  ASSERT_EQ(streamedNames, memoryNames);
  for (const std::string& name : memoryNames) {
    if (name == "[Content_Types].xml" || name.find(".rels") != std::string::npos) continue;
    EXPECT_EQ(streamed->bytes(name), memory->bytes(name)) << name;
  }
  // The same relationships and content types, though not written by the same hand.
  auto& rels = streamed->xml("word/_rels/document.xml.rels");
  auto& memoryRels = memory->xml("word/_rels/document.xml.rels");
  EXPECT_EQ(countXPath(rels, "//*[local-name()='Relationship']"),
            countXPath(memoryRels, "//*[local-name()='Relationship']"));
  EXPECT_EQ(countXPath(streamed->xml("[Content_Types].xml"), "//*[local-name()='Override']"),
            countXPath(memory->xml("[Content_Types].xml"), "//*[local-name()='Override']"));
  expectConsistentPackage(dir.file("streamed.docx"));
  size_t lastCopy = 0;
  for (const std::string& name : streamedNames) {
    if (name.rfind("word/header", 0) == 0 &&
        streamed->bytes(name).find("CLIENT 1999 &amp; SONS "
                                   "&lt;LTD&gt;") != std::string::npos) {
      ++lastCopy;
    }
  }
  EXPECT_EQ(lastCopy, 1u);
}

TEST(StreamedMergeTest, NoRecordsLeavesTheHeaderInPlaceWithItsFieldsEmpty) {
  TempDir dir;
  writeDocx(letterWithHeaderAndNotes(), dir.file("main.docx"));
  auto main = docx::Package::load(dir.file("main.docx"));
  EXPECT_EQ(docx::mergeDocumentToFile(*main, records(0), dir.file("empty.docx")), 0u);
  expectConsistentPackage(dir.file("empty.docx"));
  auto memory = docx::mergeDocument(*main, records(0));
  auto streamed = docx::Package::load(dir.file("empty.docx"));
  EXPECT_EQ(streamed->bytes("word/document.xml"), memory->bytes("word/document.xml"));
}

TEST(StreamedMergeTest, AFailedMergeLeavesTheOldFileAndNoTemporaryFile) {
  TempDir dir;
  writeDocx(letterWithHeaderAndNotes(), dir.file("main.docx"));
  writeFile(dir.file("out.docx"), "old");
  auto main = docx::Package::load(dir.file("main.docx"));
  // A missing folder fails before anything is written.
  EXPECT_THROW(docx::mergeDocumentToFile(*main, records(3), dir.file("no/such/out.docx")),
               RuntimeError);
  EXPECT_EQ(readFile(dir.file("out.docx")), "old");
  size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(dir.path())) {
    (void)entry;
    ++files;
  }
  EXPECT_EQ(files, 2u);  // main.docx and out.docx
}

}  // namespace
}  // namespace nvwm::testing
