// Whatever a template holds is the user's: text and elements that look like a merge's own
// bookkeeping merge as the text and elements they are.
//
// This was a merge that put marker elements and "~nvwm~" prefixes into the template, serialized
// it and searched the text for them: "~nvwm~" in the text lost a value and left a raw
// <nvwmslot> (exit 0), "~nvwm~rel:9" changed, an element named nvwm... with an attribute threw
// out of std::stoul, and <nvwmz/> read past the end of the fields.
#include <gtest/gtest.h>

#include "docx/data_source.h"
#include "docx/docx_test_support.h"
#include "docx/mail_merge.h"
#include "support/temp_dir.h"

namespace nvwm::testing {
namespace {

TEST(TemplateTextKeptTest, TextAndElementsLikeMarkersMergeAsThemselves) {
  const struct {
    const char* what;
    std::string kept;   // XML of the template that must come out byte for byte
    const char* text;   // the merged body as dumpBody shows it
    bool field = true;  // a merge field follows the kept XML
  } cases[] = {
      {"the marker prefix in the text", run("Code ~nvwm~ and &lt;nvwmslot i=\"0\"/&gt; as text"),
       "Code ~nvwm~ and <nvwmslot i=\"0\"/> as text Ann\n"},
      {"a reference-like text", run("See ~nvwm~rel:9 and ~nvwm~fn:1\""),
       "See ~nvwm~rel:9 and ~nvwm~fn:1\" Ann\n"},
      {"an element named like a marker, with an attribute",
       "<nvwmslot i=\"x\"/><nvwmgroup i=\"99999999999999999999\"/>" + run("a"), "a Ann\n"},
      {"an element named like a marker, without attributes", "<nvwmz/><nvwmsplit/>" + run("b"),
       "b Ann\n"},
      {"an element named like a marker in a template without fields", "<nvwmz/>" + run("d"), "d \n",
       false},
      {"an attribute value like a reference",
       "<w:bookmarkStart w:id=\"~nvwm~bm:1\" w:name=\"~nvwm~rel:2\"/>" + run("c") +
           "<w:bookmarkEnd w:id=\"~nvwm~bm:1\"/>",
       "c Ann\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    TempDir dir;
    std::string paragraph =
        para(c.kept + run(" ") + (c.field ? simpleField(" MERGEFIELD Name ") : std::string()));
    writeDocxBody(paragraph, dir.file("main.docx"));
    auto main = docx::Package::load(dir.file("main.docx"));
    docx::MergeData data({"Name"}, {{Variant("Ann")}});
    auto merged = docx::mergeDocument(*main, data);
    merged->save(dir.file("merged.docx"));
    expectConsistentPackage(dir.file("merged.docx"));  // every part well-formed XML
    std::string xml = merged->bytes("word/document.xml");
    EXPECT_NE(xml.find(c.kept), std::string::npos) << xml;
    auto doc = loadPart(dir.file("merged.docx"), "word/document.xml");
    EXPECT_EQ(dumpBody(*doc), c.text);
    EXPECT_EQ(countXPath(*doc, "//w:fldSimple"), 0u);
  }
}

// Markers once stood in notes and in section properties too.
TEST(TemplateTextKeptTest, NotesAndHeadersKeepTheirText) {
  TempDir dir;
  DocxParts parts;
  parts.body = para(run("Text ~nvwm~fn:1") + "<w:r><w:footnoteReference w:id=\"1\"/></w:r>");
  parts.footnotes = "<w:footnote w:id=\"1\">" +
                    para(run("~nvwm~en:1 for ") + simpleField(" MERGEFIELD Name ")) +
                    "</w:footnote>";
  parts.headers["default"] =
      para(run("&lt;nvwmslot i=\"0\"/&gt; ") + simpleField(" MERGEFIELD Name "));
  writeDocx(parts, dir.file("main.docx"));
  auto main = docx::Package::load(dir.file("main.docx"));
  docx::MergeData data({"Name"}, {{Variant("Ann")}, {Variant("Bob")}});
  docx::mergeDocument(*main, data)->save(dir.file("merged.docx"));
  expectConsistentPackage(dir.file("merged.docx"));
  auto doc = loadPart(dir.file("merged.docx"), "word/document.xml");
  EXPECT_EQ(dumpBody(*doc), "Text ~nvwm~fn:1\n\n==section==\nText ~nvwm~fn:1\n");
  auto notes = loadPart(dir.file("merged.docx"), "word/footnotes11.xml");
  EXPECT_EQ(countXPath(*notes, "//w:footnote[.//w:t='~nvwm~en:1 for ']"), 2u);
  EXPECT_EQ(xpathText(*notes, "(//w:footnote[last()]//w:t)[last()]"), "Bob");
  auto package = docx::Package::load(dir.file("merged.docx"));
  int headers = 0;
  for (const std::string& name : package->partNames()) {
    if (name.rfind("word/header", 0) != 0) continue;
    ++headers;
    EXPECT_NE(package->bytes(name).find("&lt;nvwmslot i=\"0\"/&gt; </w:t>"), std::string::npos)
        << name;
  }
  EXPECT_EQ(headers, 2);
}

// Deep nesting must neither run the stack out nor lose the field inside it.
TEST(TemplateTextKeptTest, DeeplyNestedContentMerges) {
  TempDir dir;
  std::string open, close;
  for (int i = 0; i < 20000; ++i) {
    open += "<w:sdtContent>";
    close = "</w:sdtContent>" + close;
  }
  writeDocxBody(open + para(simpleField(" MERGEFIELD Name ")) + close, dir.file("main.docx"));
  auto main = docx::Package::load(dir.file("main.docx"));
  docx::MergeData data({"Name"}, {{Variant("Ann")}});
  std::string xml = docx::mergeDocument(*main, data)->bytes("word/document.xml");
  EXPECT_NE(xml.find(open + "<w:p><w:r><w:t xml:space=\"preserve\">Ann</w:t></w:r></w:p>" + close),
            std::string::npos);
}

}  // namespace
}  // namespace nvwm::testing
