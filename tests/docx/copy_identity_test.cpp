// What must stay unique in a document stays unique over the copies of a merge: paragraph ids
// (w14:paraId) and bookmark names, so that nothing in one letter points into another.
#include <gtest/gtest.h>

#include <set>

#include "docx/data_source.h"
#include "docx/docx_test_support.h"
#include "docx/mail_merge.h"
#include "docx/render_merge.h"
#include "support/temp_dir.h"

namespace nvwm::testing {
namespace {

class CopyIdentityTest : public ::testing::Test {
 protected:
  std::unique_ptr<pugi::xml_document> merged(const DocxParts& parts, int records) {
    std::vector<std::vector<Variant>> rows;
    for (int i = 1; i <= records; ++i) rows.push_back({Variant("R" + std::to_string(i))});
    writeDocx(parts, dir_.file("main.docx"));
    auto main = docx::Package::load(dir_.file("main.docx"));
    docx::mergeDocument(*main, docx::MergeData({"Name"}, rows))->save(dir_.file("merged.docx"));
    expectConsistentPackage(dir_.file("merged.docx"));
    return loadPart(dir_.file("merged.docx"), "word/document.xml");
  }
  static std::vector<std::string> values(const pugi::xml_node& root, const char* xpath) {
    std::vector<std::string> out;
    for (const auto& n : root.select_nodes(xpath)) out.emplace_back(n.attribute().value());
    return out;
  }
  TempDir dir_;
};

TEST_F(CopyIdentityTest, EveryCopyGetsParagraphIdsOfItsOwn) {
  DocxParts parts;
  parts.body = "<w:p w14:paraId=\"1A2B3C4D\" w14:textId=\"77777777\">" + run("Dear ") +
               simpleField(" MERGEFIELD Name ") + "</w:p>" +
               "<w:tbl><w:tr w14:paraId=\"0000000A\"><w:tc><w:p w14:paraId=\"7FFFFFFF\">" +
               run("cell") + "</w:p></w:tc></w:tr></w:tbl><w:p w14:paraId=\"00000001\"/>";
  parts.footnotes =
      "<w:footnote w:id=\"1\"><w:p w14:paraId=\"5E5E5E5E\">" + run("note") + "</w:p></w:footnote>";
  auto doc = merged(parts, 3);
  std::vector<std::string> ids = values(*doc, "//@w14:paraId");
  ASSERT_EQ(ids.size(), 12u);  // four a copy
  EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size());
  for (const std::string& id : ids) {
    SCOPED_TRACE(id);
    ASSERT_EQ(id.size(), 8u);
    unsigned long value = std::stoul(id, nullptr, 16);
    EXPECT_GT(value, 0u);
    EXPECT_LT(value, 0x80000000u);
  }
  // The notes of each copy too.
  auto notes = loadPart(dir_.file("merged.docx"), "word/footnotes10.xml");
  std::vector<std::string> noteIds = values(*notes, "//w:footnote/w:p/@w14:paraId");
  ASSERT_EQ(noteIds.size(), 3u);
  std::set<std::string> all(ids.begin(), ids.end());
  all.insert(noteIds.begin(), noteIds.end());
  EXPECT_EQ(all.size(), 15u);
}

TEST_F(CopyIdentityTest, EveryCopyGetsBookmarkNamesOfItsOwnAndItsLinksFollow) {
  DocxParts parts;
  parts.body = para("<w:bookmarkStart w:id=\"0\" w:name=\"Total\"/>" + run("Total ") +
                    simpleField(" MERGEFIELD Name ") + "<w:bookmarkEnd w:id=\"0\"/>") +
               para("<w:hyperlink w:anchor=\"Total\">" + run("see the total") + "</w:hyperlink>");
  auto doc = merged(parts, 3);
  EXPECT_EQ(values(*doc, "//w:bookmarkStart/@w:name"),
            (std::vector<std::string>{"Total", "Total_2", "Total_3"}));
  EXPECT_EQ(values(*doc, "//w:hyperlink/@w:anchor"),
            (std::vector<std::string>{"Total", "Total_2", "Total_3"}));
  EXPECT_EQ(values(*doc, "//w:bookmarkStart/@w:id"), (std::vector<std::string>{"0", "1", "2"}));
}

// A cross-reference in a letter points at its own letter's bookmark, not the first letter's.
TEST_F(CopyIdentityTest, CrossReferencesPointAtTheirOwnCopy) {
  DocxParts parts;
  parts.body = para("<w:bookmarkStart w:id=\"0\" w:name=\"Fee\"/>" +
                    simpleField(" MERGEFIELD Name ") + "<w:bookmarkEnd w:id=\"0\"/>") +
               para(run("see ") + simpleField(" REF Fee \\h ", "R") + run(" on page ") +
                    complexField({" PAGEREF Fee \\h "}, "1"));
  auto doc = merged(parts, 3);
  EXPECT_EQ(values(*doc, "//w:fldSimple/@w:instr"),
            (std::vector<std::string>{" REF Fee \\h ", " REF Fee_2 \\h ", " REF Fee_3 \\h "}));
  std::vector<std::string> pagerefs;
  for (const auto& n : doc->select_nodes("//w:instrText"))
    pagerefs.emplace_back(n.node().child_value());
  EXPECT_EQ(pagerefs, (std::vector<std::string>{" PAGEREF Fee \\h ", " PAGEREF Fee_2 \\h ",
                                                " PAGEREF Fee_3 \\h "}));
}

TEST(CopyBookmarkNameTest, StaysWithinWordsFortyCharacters) {
  const struct {
    std::string name;
    size_t copy;
    std::string expected;
  } cases[] = {
      {"Total", 0, "Total"},
      {"Total", 1, "Total_2"},
      {"_Toc123456", 11, "_Toc123456_12"},
      {std::string(40, 'a'), 1, std::string(38, 'a') + "_2"},
      {std::string(36, 'a') + "\xC3\xA9" + "b", 9, std::string(36, 'a') + "_10"},  // é not cut
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(docx::copyBookmarkName(c.name, c.copy), c.expected);
  }
}

}  // namespace
}  // namespace nvwm::testing
