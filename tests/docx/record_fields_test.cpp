// Fields that move through the records within a copy (NEXT, NEXTIF), drop a record (SKIPIF) or
// count them (MERGEREC, MERGESEQ).
#include <gtest/gtest.h>

#include "docx/data_source.h"
#include "docx/docx_test_support.h"
#include "docx/mail_merge.h"
#include "support/temp_dir.h"

namespace nvwm::testing {
namespace {

class RecordFieldsTest : public ::testing::Test {
 protected:
  std::string mergedText(const std::string& body, const docx::MergeData& data) {
    writeDocxBody(body, dir_.file("main.docx"));
    auto main = docx::Package::load(dir_.file("main.docx"));
    docx::mergeDocument(*main, data)->save(dir_.file("merged.docx"));
    expectConsistentPackage(dir_.file("merged.docx"));
    auto doc = loadPart(dir_.file("merged.docx"), "word/document.xml");
    EXPECT_EQ(countXPath(*doc, "//w:fldChar | //w:instrText | //w:fldSimple"), 0u);
    return dumpBody(*doc);
  }

  static docx::MergeData names(int count) {
    std::vector<std::vector<Variant>> rows;
    for (int i = 1; i <= count; ++i) rows.push_back({Variant("R" + std::to_string(i))});
    return docx::MergeData({"Name"}, rows);
  }

  TempDir dir_;
};

// A sheet of four labels per page, the labels after the first beginning with NEXT (as a
// label merge lays them out): ten records fill three pages, the last one half.
TEST_F(RecordFieldsTest, ALabelSheetTakesFourRecordsPerPage) {
  std::string cells;
  for (int label = 0; label < 4; ++label) {
    std::string next = label == 0   ? std::string()
                       : label == 2 ? simpleField(" NEXT ", "")
                                    : fieldAround(instructionRun(" NEXT "), "");
    cells += "<w:tc>" + para(next + mergeFieldOf("Name")) + "</w:tc>";
  }
  // Cells, then the paragraph a table must be followed by; each page ends with a break.
  std::string body = "<w:tbl><w:tr>" + cells + "</w:tr></w:tbl>" + para("");
  EXPECT_EQ(mergedText(body, names(10)),
            "R1\nR2\nR3\nR4\n\n\n==section==\n"
            "R5\nR6\nR7\nR8\n\n\n==section==\n"
            "R9\nR10\n\n\n\n");
}

TEST_F(RecordFieldsTest, NextIfMovesOnOnlyWhenItsComparisonHolds) {
  docx::MergeData data({"Name", "Pair"}, {{Variant("A"), Variant("yes")},
                                          {Variant("B"), Variant("no")},
                                          {Variant("C"), Variant("no")},
                                          {Variant("D"), Variant("yes")},
                                          {Variant("E"), Variant("no")}});
  std::string body = para(mergeFieldOf("Name") + run(" & ") +
                          fieldAround(instructionRun(" NEXTIF ") + mergeFieldOf("Pair") +
                                      instructionRun(" = \"yes\" ")) +
                          mergeFieldOf("Name"));
  EXPECT_EQ(mergedText(body, data), "A & B\n\n==section==\nC & C\n\n==section==\nD & E\n");
}

TEST_F(RecordFieldsTest, SkipIfDropsTheRecordAndTheCountersSeeIt) {
  docx::MergeData data({"Name", "Balance"}, {{Variant("Ann"), Variant(10.0)},
                                             {Variant("Bob"), Variant(0.0)},
                                             {Variant("Cy"), Variant(-5.0)},
                                             {Variant("Dee"), Variant(7.5)}});
  std::string body = para(
      fieldAround(instructionRun(" SKIPIF ") + mergeFieldOf("Balance") + instructionRun(" <= 0 ")) +
      mergeFieldOf("Name") + run(" record ") + fieldAround(instructionRun(" MERGEREC ")) +
      run(" letter ") + simpleField(" MERGESEQ ", "1"));
  EXPECT_EQ(mergedText(body, data),
            "Ann record 1 letter 1\n\n==section==\nDee record 4 letter 2\n");
}

TEST_F(RecordFieldsTest, EveryRecordSkippedGivesAnEmptyDocument) {
  std::string body = para(simpleField(" SKIPIF 1 = 1 ") + run("never ") + mergeFieldOf("Name"));
  EXPECT_EQ(mergedText(body, names(3)), "\n");
}

TEST_F(RecordFieldsTest, CountersFollowNextAndTakeSwitches) {
  std::string label = mergeFieldOf("Name") + run("=") +
                      fieldAround(instructionRun(" MERGESEQ \\# 00 ")) + run("/") +
                      fieldAround(instructionRun(" MERGEREC \\b # "));
  std::string body = para(label + fieldAround(instructionRun(" NEXT ")) + run(" ") + label);
  EXPECT_EQ(mergedText(body, names(3)), "R1=01/#1 R2=02/#2\n\n==section==\nR3=03/#3 =04/#4\n");
}

// A NEXT in a header must not move the body on: headers show the copy's first record.
TEST_F(RecordFieldsTest, HeadersShowTheFirstRecordOfTheirCopy) {
  DocxParts parts;
  parts.body = para(mergeFieldOf("Name") + simpleField(" NEXT ") + mergeFieldOf("Name"));
  parts.headers["default"] =
      para(simpleField(" NEXT ") + mergeFieldOf("Name") + simpleField(" MERGEREC "));
  writeDocx(parts, dir_.file("main.docx"));
  auto main = docx::Package::load(dir_.file("main.docx"));
  docx::mergeDocument(*main, names(4))->save(dir_.file("merged.docx"));
  auto doc = loadPart(dir_.file("merged.docx"), "word/document.xml");
  EXPECT_EQ(dumpBody(*doc), "R1R2\n\n==section==\nR3R4\n");
  auto package = docx::Package::load(dir_.file("merged.docx"));
  std::vector<std::string> headers;
  for (auto ref : doc->select_nodes("//w:headerReference/@r:id")) {
    auto rels = loadPart(dir_.file("merged.docx"), "word/_rels/document.xml.rels");
    std::string target = xpathText(
        *rels, "//Relationship[@Id='" + std::string(ref.attribute().value()) + "']/@Target");
    headers.push_back(
        dumpParagraphs(loadPart(dir_.file("merged.docx"), "word/" + target)->document_element()));
  }
  EXPECT_EQ(headers, (std::vector<std::string>{"R22\n", "R44\n"}));
}

}  // namespace
}  // namespace nvwm::testing
