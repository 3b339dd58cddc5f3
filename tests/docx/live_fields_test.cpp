// After a merge, fields of the finished document stay fields (PAGE, NUMPAGES, DATE, TIME, TOC,
// REF to a real bookmark), and a merged value inside one of them is written so that updating
// the field later reads it whole.
#include <gtest/gtest.h>

#include "docx/data_source.h"
#include "docx/docx_test_support.h"
#include "docx/mail_merge.h"
#include "support/temp_dir.h"

namespace nvwm::testing {
namespace {

class LiveFieldsTest : public ::testing::Test {
 protected:
  std::unique_ptr<pugi::xml_document> mergedDoc(const std::string& body) {
    writeDocxBody(body, dir_.file("main.docx"));
    auto main = docx::Package::load(dir_.file("main.docx"));
    docx::mergeDocument(*main, data_)->save(dir_.file("merged.docx"));
    expectConsistentPackage(dir_.file("merged.docx"));
    return loadPart(dir_.file("merged.docx"), "word/document.xml");
  }
  // The instruction text of the complex fields, all of them, one after the other.
  static std::string instructions(const pugi::xml_node& root) {
    std::string out;
    for (const auto& n : root.select_nodes("//w:instrText")) out += n.node().child_value();
    return out;
  }

  docx::MergeData data_{{"Name", "Site", "Fee", "Picture"},
                        {{Variant("Lee \"Jr\" & Co"), Variant("http://example.com/a b"),
                          Variant(250.0), Variant("MMMM d, yyyy")}}};
  TempDir dir_;
};

TEST_F(LiveFieldsTest, FieldsOfTheFinishedDocumentStayFields) {
  const struct {
    const char* instruction;
  } cases[] = {{" PAGE "},
               {" NUMPAGES "},
               {" DATE \\@ \"d MMMM yyyy\" "},
               {" TIME "},
               {" TOC \\o \"1-3\" \\h "},
               {" REF Terms \\h "},
               {" PAGEREF Terms "},
               {" HYPERLINK \"http://example.com\" "}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.instruction);
    std::string body = para("<w:bookmarkStart w:id=\"1\" w:name=\"Terms\"/>" + run("Terms") +
                            "<w:bookmarkEnd w:id=\"1\"/>") +
                       para(simpleField(c.instruction, "shown") + run(" and ") +
                            complexField({c.instruction}, "shown") + mergeFieldOf("Name"));
    auto doc = mergedDoc(body);
    EXPECT_EQ(countXPath(*doc, "//w:fldSimple[@w:instr='" + std::string(c.instruction) + "']"), 1u);
    EXPECT_EQ(instructions(*doc), c.instruction);
    EXPECT_EQ(countXPath(*doc, "//w:fldChar"), 3u);
    // (The dump shows a complex field's instruction in braces, then its result.)
    EXPECT_EQ(dumpBody(*doc),
              "Terms\nshown and {" + std::string(c.instruction) + "}shownLee \"Jr\" & Co\n");
  }
}

TEST_F(LiveFieldsTest, AMergedValueInALiveFieldIsQuotedToBeReadWhole) {
  const struct {
    const char* what;
    std::string instructionXml;
    const char* expected;
  } cases[] = {
      {"bare", instructionRun(" HYPERLINK ") + mergeFieldOf("Site") + instructionRun(" "),
       " HYPERLINK \"http://example.com/a b\" "},
      {"inside quotes",
       instructionRun(" HYPERLINK \"") + mergeFieldOf("Site") + instructionRun("\" "),
       " HYPERLINK \"http://example.com/a b\" "},
      {"quotes in the value", instructionRun(" REF Terms \\b ") + mergeFieldOf("Name"),
       " REF Terms \\b \"Lee \\\"Jr\\\" & Co\""},
      {"a picture", instructionRun(" DATE \\@ ") + mergeFieldOf("Picture") + instructionRun(" "),
       " DATE \\@ \"MMMM d, yyyy\" "},
      {"a formula reads numbers",
       instructionRun(" = ") + mergeFieldOf("Fee") + instructionRun(" * 2 "), " = 250 * 2 "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    auto doc = mergedDoc(para(fieldAround(c.instructionXml, "shown")));
    EXPECT_EQ(instructions(*doc), c.expected);
    EXPECT_EQ(countXPath(*doc, "//w:fldChar"), 3u);
  }
}

}  // namespace
}  // namespace nvwm::testing
