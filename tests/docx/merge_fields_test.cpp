// Merge fields where real documents put them, and what the merged copy holds in their place.
#include <gtest/gtest.h>

#include "docx/data_source.h"
#include "docx/docx_test_support.h"
#include "docx/mail_merge.h"
#include "support/runtime_assertions.h"
#include "support/temp_dir.h"

namespace nvwm::testing {
namespace {

using docx::MergeData;

class MergeFieldsTest : public ::testing::Test {
 protected:
  // Merges the parts with the rows and returns the merged package.
  std::unique_ptr<docx::Package> merge(const DocxParts& parts, const MergeData& data) {
    std::string path = dir_.file("main.docx");
    writeDocx(parts, path);
    auto main = docx::Package::load(path);
    auto merged = docx::mergeDocument(*main, data);
    merged->save(dir_.file("merged.docx"));  // every merged package must save and re-open
    expectConsistentPackage(dir_.file("merged.docx"));
    return docx::Package::load(dir_.file("merged.docx"));
  }
  std::unique_ptr<pugi::xml_document> part(docx::Package& p, const std::string& name) {
    auto doc = std::make_unique<pugi::xml_document>();
    std::string bytes = p.bytes(name);
    EXPECT_TRUE(doc->load_buffer(bytes.data(), bytes.size(), docx::kParseFlags)) << name;
    return doc;
  }
  std::string mergedBody(const std::string& body, const MergeData& data) {
    DocxParts parts;
    parts.body = body;
    auto merged = merge(parts, data);
    return dumpBody(*part(*merged, "word/document.xml"));
  }

  MergeData oneRow_{{"FirstName", "Company Name", "Amount", "Due", "Note"},
                    {{Variant("Ann"), Variant("Lee & Co"), Variant(1234.5),
                      Variant(Date::fromYmd(2026, 11, 23)), Variant("line one\nline two")}}};
  TempDir dir_;
};

TEST_F(MergeFieldsTest, SimpleAndComplexFieldsBecomePlainText) {
  std::string body = para(run("Dear ") + simpleField(" MERGEFIELD FirstName ") + run(",")) +
                     para(run("From ") + complexField({" MERGEFIELD \"Company Name\" "}));
  EXPECT_EQ(mergedBody(body, oneRow_), "Dear Ann,\nFrom Lee & Co\n");
}

TEST_F(MergeFieldsTest, InstructionCutOverFiveRunsIncludingEmptyOnesAndASwitch) {
  std::string body = para(complexField({" MERGE", "", "FIELD  Amo", "unt \\", "# \"$#,##0.00\" "}));
  EXPECT_EQ(mergedBody(body, oneRow_), "$1,234.50\n");
}

TEST_F(MergeFieldsTest, NamesMatchWhateverTheirCase) {
  std::string body = para(simpleField(" MERGEFIELD firstname ") + run(" ") +
                          simpleField(" MERGEFIELD \"COMPANY NAME\" "));
  EXPECT_EQ(mergedBody(body, oneRow_), "Ann Lee & Co\n");
}

TEST_F(MergeFieldsTest, AFieldTheSourceLacksShowsWordsErrorText) {
  std::string body = para(run("To ") + simpleField(" MERGEFIELD Surname "));
  EXPECT_EQ(mergedBody(body, oneRow_),
            "To Error! MergeField was not found in header record of data source.\n");
}

TEST_F(MergeFieldsTest, ALineBreakInAValueBecomesABreak) {
  DocxParts parts;
  parts.body = para(simpleField(" MERGEFIELD Note "));
  auto merged = merge(parts, oneRow_);
  auto doc = part(*merged, "word/document.xml");
  EXPECT_EQ(dumpBody(*doc), "line one/line two\n");
  EXPECT_EQ(countXPath(*doc, "//w:body/w:p[1]/w:r/w:br"), 1u);
}

TEST_F(MergeFieldsTest, ResultKeepsTheFormattingOfTheFieldResultRun) {
  DocxParts parts;
  parts.body =
      para(complexField({" MERGEFIELD FirstName "}, "«FirstName»", "<w:b/><w:i/>")) +
      para(simpleField(" MERGEFIELD FirstName ", "«FirstName»", "<w:u w:val=\"single\"/>"));
  auto merged = merge(parts, oneRow_);
  auto doc = part(*merged, "word/document.xml");
  EXPECT_EQ(countXPath(*doc, "//w:body/w:p[1]/w:r[w:rPr/w:b and w:rPr/w:i and w:t='Ann']"), 1u);
  EXPECT_EQ(countXPath(*doc, "//w:body/w:p[2]/w:r[w:rPr/w:u and w:t='Ann']"), 1u);
  // No field is left behind.
  EXPECT_EQ(countXPath(*doc, "//w:fldChar | //w:instrText | //w:fldSimple"), 0u);
}

TEST_F(MergeFieldsTest, CharformatTakesTheFormattingOfTheInstruction) {
  DocxParts parts;
  parts.body = para(
      "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r>"
      "<w:r><w:rPr><w:b/></w:rPr><w:instrText> MERGEFIELD FirstName \\* CHARFORMAT "
      "</w:instrText></w:r>"
      "<w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>" +
      run("«FirstName»", "<w:i/>") + "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>");
  auto merged = merge(parts, oneRow_);
  auto doc = part(*merged, "word/document.xml");
  EXPECT_EQ(countXPath(*doc, "//w:r[w:rPr/w:b and not(w:rPr/w:i) and w:t='Ann']"), 1u);
}

TEST_F(MergeFieldsTest, ASimpleFieldInsideAComplexOneGoesWithIt) {
  std::string body = para(
      "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r>"
      "<w:r><w:instrText> MERGEFIELD FirstName </w:instrText></w:r>"
      "<w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>" +
      simpleField(" MERGEFIELD Amount ", "stale") +
      "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>" + run("!"));
  EXPECT_EQ(mergedBody(body, oneRow_), "Ann!\n");
}

// This was a w:t run inside the IF's instruction: a merge field in another field's instruction
// must give instruction text, or the outer field loses its operand. (IF is evaluated by the
// merge now; a HYPERLINK, which is not, keeps its instruction.)
TEST_F(MergeFieldsTest, MergeFieldsInsideAnotherFieldAreMergedAndTheFieldStays) {
  std::string body = para(
      "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r>"
      "<w:r><w:instrText xml:space=\"preserve\"> HYPERLINK \"mailto:</w:instrText></w:r>" +
      simpleField(" MERGEFIELD FirstName ") +
      "<w:r><w:instrText xml:space=\"preserve\">@example.com\" </w:instrText></w:r>"
      "<w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>" +
      run("mail") + "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>");
  EXPECT_EQ(mergedBody(body, oneRow_), "{ HYPERLINK \"mailto:}{Ann}{@example.com\" }mail\n");
}

TEST_F(MergeFieldsTest, AResultSpanningParagraphsIsReplacedAndTheParagraphsJoin) {
  std::string body =
      para(run("Hello ") +
           "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r>"
           "<w:r><w:instrText> MERGEFIELD FirstName </w:instrText></w:r>"
           "<w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>" +
           run("old one")) +
      para(run("old two")) +
      para(run("old three") + "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>" + run(", welcome")) +
      para(run("Next"));
  EXPECT_EQ(mergedBody(body, oneRow_), "Hello Ann, welcome\nNext\n");
}

TEST_F(MergeFieldsTest, FieldsInTablesAndBothBranchesOfATextBox) {
  std::string textbox = [] {
    std::string content =
        "<w:txbxContent>" + para(simpleField(" MERGEFIELD FirstName ")) + "</w:txbxContent>";
    return "<w:r><mc:AlternateContent><mc:Choice Requires=\"wps\"><w:drawing><wp:anchor>"
           "<a:graphic><a:graphicData><wps:wsp><wps:txbx>" +
           content +
           "</wps:txbx></wps:wsp></a:graphicData></a:graphic></wp:anchor></w:drawing></mc:Choice>"
           "<mc:Fallback><w:pict><v:shape><v:textbox>" +
           content + "</v:textbox></v:shape></w:pict></mc:Fallback></mc:AlternateContent></w:r>";
  }();
  DocxParts parts;
  parts.body = "<w:tbl><w:tr><w:tc>" + para(simpleField(" MERGEFIELD FirstName ")) +
               "</w:tc><w:tc>" + para(complexField({" MERGEFIELD Amount \\# 0.0 "})) +
               "</w:tc></w:tr></w:tbl>" + para(textbox);
  auto merged = merge(parts, oneRow_);
  auto doc = part(*merged, "word/document.xml");
  EXPECT_EQ(xpathText(*doc, "//w:tbl/w:tr/w:tc[1]/w:p/w:r/w:t"), "Ann");
  EXPECT_EQ(xpathText(*doc, "//w:tbl/w:tr/w:tc[2]/w:p/w:r/w:t"), "1234.5");
  EXPECT_EQ(xpathText(*doc, "//mc:Choice//w:txbxContent/w:p/w:r/w:t"), "Ann");
  EXPECT_EQ(xpathText(*doc, "//mc:Fallback//w:txbxContent/w:p/w:r/w:t"), "Ann");
}

TEST_F(MergeFieldsTest, ALineOfOnlyEmptyFieldsIsRemoved) {
  MergeData data({"Name", "Line2", "City"}, {{Variant("Ann"), Variant(""), Variant("Ottawa")}});
  std::string body = para(simpleField(" MERGEFIELD Name ")) +
                     para(simpleField(" MERGEFIELD Line2 ") + simpleField(" MERGEFIELD Line2 ")) +
                     para(simpleField(" MERGEFIELD City ")) +
                     para(run("Fixed: ") + simpleField(" MERGEFIELD Line2 "));
  EXPECT_EQ(mergedBody(body, data), "Ann\nOttawa\nFixed: \n");
}

TEST_F(MergeFieldsTest, ACellKeepsItsLastParagraphEvenWhenItsFieldsAreEmpty) {
  MergeData data({"A", "B"}, {{Variant(""), Variant("")}});
  DocxParts parts;
  parts.body = "<w:tbl><w:tr><w:tc>" + para(simpleField(" MERGEFIELD A ")) +
               para(simpleField(" MERGEFIELD B ")) + "</w:tc></w:tr></w:tbl>" + para(run("after"));
  auto merged = merge(parts, data);
  auto doc = part(*merged, "word/document.xml");
  EXPECT_EQ(countXPath(*doc, "//w:tc/w:p"), 1u);
  EXPECT_EQ(dumpBody(*doc), "\nafter\n");
}

TEST_F(MergeFieldsTest, DoNotSuppressBlankLinesKeepsThem) {
  MergeData data({"Name", "Line2"}, {{Variant("Ann"), Variant::null()}});
  DocxParts parts;
  parts.body = para(simpleField(" MERGEFIELD Name ")) + para(simpleField(" MERGEFIELD Line2 ")) +
               para(run("end"));
  parts.settingsExtra = "<w:doNotSuppressBlankLines/>";
  auto merged = merge(parts, data);
  EXPECT_EQ(dumpBody(*part(*merged, "word/document.xml")), "Ann\n\nend\n");
}

TEST_F(MergeFieldsTest, ThreeRecordsGiveThreeSectionsRestartingPageNumbers) {
  MergeData data({"FirstName"}, {{Variant("Ann")}, {Variant("Bob")}, {Variant("Cy")}});
  DocxParts parts;
  parts.body = para(run("Dear ") + simpleField(" MERGEFIELD FirstName "));
  auto merged = merge(parts, data);
  auto doc = part(*merged, "word/document.xml");
  EXPECT_EQ(dumpBody(*doc), "Dear Ann\n\n==section==\nDear Bob\n\n==section==\nDear Cy\n");
  EXPECT_EQ(countXPath(*doc, "//w:sectPr"), 3u);
  EXPECT_EQ(countXPath(*doc,
                       "//w:sectPr[w:type/@w:val='nextPage' and w:pgNumType/@w:start='1' "
                       "and w:pgSz/@w:w='12240' and w:pgMar/@w:top='1440']"),
            3u);
  EXPECT_EQ(countXPath(*doc, "/w:document/w:body/w:sectPr"), 1u);
}

TEST_F(MergeFieldsTest, HeadersWithFieldsAreCopiedPerRecordAndOthersShared) {
  MergeData data({"FirstName"}, {{Variant("Ann")}, {Variant("Bob")}});
  DocxParts parts;
  parts.body = para(run("Body"));
  parts.headers["default"] = para(run("To ") + simpleField(" MERGEFIELD FirstName "));
  parts.headers["first"] = para(complexField({" MERGEFIELD ", "FirstName "}));
  parts.footers["default"] = para(run("Page footer"));
  parts.sectPrExtra = "<w:titlePg/>";
  auto merged = merge(parts, data);
  auto doc = part(*merged, "word/document.xml");
  auto rels = part(*merged, "word/_rels/document.xml.rels");
  auto types = part(*merged, "[Content_Types].xml");
  // Each section names its own default and first headers and the one shared footer.
  std::vector<std::string> headerTexts;
  for (const char* type : {"default", "first"}) {
    for (auto section : doc->select_nodes("//w:sectPr")) {
      std::string id =
          section.node()
              .select_node((std::string("w:headerReference[@w:type='") + type + "']/@r:id").c_str())
              .attribute()
              .value();
      std::string target = xpathText(*rels, "//Relationship[@Id='" + id + "']/@Target");
      ASSERT_FALSE(target.empty()) << id;
      EXPECT_EQ(countXPath(*types, "//Override[@PartName='/word/" + target + "']"), 1u);
      headerTexts.push_back(dumpParagraphs(part(*merged, "word/" + target)->document_element()));
    }
  }
  EXPECT_EQ(headerTexts, (std::vector<std::string>{"To Ann\n", "To Bob\n", "Ann\n", "Bob\n"}));
  std::string footerIds;
  for (auto f : doc->select_nodes("//w:sectPr/w:footerReference/@r:id"))
    footerIds += f.attribute().value() + std::string(" ");
  EXPECT_EQ(footerIds, "rId12 rId12 ");
  // The headers of the main document are gone with their relationships.
  EXPECT_EQ(countXPath(*rels, "//Relationship[@Id='rId10' or @Id='rId11']"), 0u);
}

TEST_F(MergeFieldsTest, EvenPageHeadersAndFootersAreFilledToo) {
  MergeData data({"FirstName"}, {{Variant("Ann")}});
  DocxParts parts;
  parts.body = para(run("Body"));
  parts.headers["even"] = para(simpleField(" MERGEFIELD FirstName \\* Upper "));
  parts.footers["even"] = para(run("By ") + simpleField(" MERGEFIELD FirstName "));
  auto merged = merge(parts, data);
  auto doc = part(*merged, "word/document.xml");
  auto rels = part(*merged, "word/_rels/document.xml.rels");
  std::string header = xpathText(
      *rels, "//Relationship[@Id='" + xpathText(*doc, "//w:headerReference[@w:type='even']/@r:id") +
                 "']/@Target");
  std::string footer = xpathText(
      *rels, "//Relationship[@Id='" + xpathText(*doc, "//w:footerReference[@w:type='even']/@r:id") +
                 "']/@Target");
  EXPECT_EQ(dumpParagraphs(part(*merged, "word/" + header)->document_element()), "ANN\n");
  EXPECT_EQ(dumpParagraphs(part(*merged, "word/" + footer)->document_element()), "By Ann\n");
}

TEST_F(MergeFieldsTest, DrawingAndBookmarkIdsStayUniqueAcrossCopies) {
  MergeData data({"FirstName"}, {{Variant("Ann")}, {Variant("Bob")}});
  DocxParts parts;
  parts.body = para("<w:bookmarkStart w:id=\"0\" w:name=\"Top\"/>" + run("x") +
                    "<w:bookmarkEnd w:id=\"0\"/><w:r><w:drawing><wp:inline><wp:docPr id=\"1\" "
                    "name=\"Picture 1\"/></wp:inline></w:drawing></w:r>");
  auto merged = merge(parts, data);
  auto doc = part(*merged, "word/document.xml");
  auto ids = [&](const char* xpath) {
    std::string out;
    for (auto n : doc->select_nodes(xpath)) out += n.attribute().value() + std::string(" ");
    return out;
  };
  EXPECT_EQ(ids("//wp:docPr/@id"), "1 3 ");
  EXPECT_EQ(ids("//w:bookmarkStart/@w:id"), "0 1 ");
  EXPECT_EQ(ids("//w:bookmarkEnd/@w:id"), "0 1 ");
}

TEST_F(MergeFieldsTest, TheMergedDocumentHoldsNoMailMergeSettingsOrRecipientData) {
  std::string path = dir_.file("main.docx");
  DocxParts parts;
  parts.body = para(simpleField(" MERGEFIELD FirstName "));
  parts.settingsExtra =
      "<w:mailMerge><w:mainDocumentType w:val=\"formLetters\"/><w:dataType w:val=\"native\"/>"
      "<w:dataSource r:id=\"rIdSource\"/></w:mailMerge>";
  writeDocx(parts, path);
  auto main = docx::Package::load(path);
  main->setBytes(
      "word/_rels/settings.xml.rels",
      "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
      "<Relationship Id=\"rIdSource\" Type=\"" +
          std::string(docx::kRelMailMergeSource) +
          "\" Target=\"file:///tmp/source.db\" TargetMode=\"External\"/></Relationships>");
  main->setBytes("word/recipientData.xml", "<w:recipients xmlns:w=\"" + std::string(kW) + "\"/>");
  main->setContentTypeOverride(
      "word/recipientData.xml",
      "application/vnd.openxmlformats-officedocument.wordprocessingml.recipientData+xml");
  std::string rels = main->bytes("word/_rels/document.xml.rels");
  rels.insert(rels.rfind("</Relationships>"), "<Relationship Id=\"rIdRecipients\" Type=\"" +
                                                  std::string(docx::kRelRecipientData) +
                                                  "\" Target=\"recipientData.xml\"/>");
  main->setBytes("word/_rels/document.xml.rels", rels);
  auto merged = docx::mergeDocument(*main, oneRow_);
  EXPECT_EQ(countXPath(*part(*merged, "word/settings.xml"), "//w:mailMerge"), 0u);
  EXPECT_FALSE(merged->has("word/recipientData.xml"));
  EXPECT_EQ(merged->bytes("word/_rels/settings.xml.rels").find("mailMergeSource"),
            std::string::npos);
  EXPECT_EQ(merged->bytes("word/_rels/document.xml.rels").find("recipientData"), std::string::npos);
  EXPECT_EQ(merged->bytes("[Content_Types].xml").find("recipientData"), std::string::npos);
  // The main document itself is not changed by a merge.
  EXPECT_TRUE(main->has("word/recipientData.xml"));
}

TEST_F(MergeFieldsTest, FootnotesAreCopiedPerRecordWithTheirFields) {
  MergeData data({"FirstName"}, {{Variant("Ann")}, {Variant("Bob")}});
  DocxParts parts;
  parts.body = para(run("Text") + "<w:r><w:footnoteReference w:id=\"1\"/></w:r>");
  parts.footnotes = "<w:footnote w:id=\"1\">" +
                    para(run("Note for ") + simpleField(" MERGEFIELD FirstName ")) +
                    "</w:footnote>";
  auto merged = merge(parts, data);
  auto doc = part(*merged, "word/document.xml");
  auto notes = part(*merged, "word/footnotes10.xml");
  std::vector<std::string> ids;
  for (auto r : doc->select_nodes("//w:footnoteReference/@w:id"))
    ids.push_back(r.attribute().value());
  ASSERT_EQ(ids.size(), 2u);
  EXPECT_NE(ids[0], ids[1]);
  EXPECT_EQ(dumpParagraphs(notes->document_element().find_child_by_attribute("w:footnote", "w:id",
                                                                             ids[0].c_str())),
            "Note for Ann\n");
  EXPECT_EQ(dumpParagraphs(notes->document_element().find_child_by_attribute("w:footnote", "w:id",
                                                                             ids[1].c_str())),
            "Note for Bob\n");
  EXPECT_EQ(countXPath(*notes, "//w:footnote[@w:type='separator']"), 1u);
}

TEST_F(MergeFieldsTest, CommentsAreCopiedPerRecordWithTheirOwnIds) {
  MergeData data({"FirstName"}, {{Variant("Ann")}, {Variant("Bob")}});
  DocxParts parts;
  parts.body = para("<w:commentRangeStart w:id=\"0\"/>" + run("Check") +
                    "<w:commentRangeEnd w:id=\"0\"/><w:r><w:commentReference w:id=\"0\"/></w:r>");
  parts.comments = "<w:comment w:id=\"0\" w:author=\"A\">" +
                   para(run("About ") + simpleField(" MERGEFIELD FirstName ")) + "</w:comment>";
  auto merged = merge(parts, data);
  auto doc = part(*merged, "word/document.xml");
  auto comments = part(*merged, "word/comments10.xml");
  std::string ids;
  for (auto r : doc->select_nodes("//w:commentReference/@w:id"))
    ids += r.attribute().value() + std::string(" ");
  EXPECT_EQ(ids, "1 2 ");
  EXPECT_EQ(countXPath(*doc, "//w:commentRangeStart[@w:id='2']"), 1u);
  EXPECT_EQ(dumpParagraphs(comments->document_element()), "About Ann\nAbout Bob\n");
  EXPECT_EQ(xpathText(*comments, "//w:comment[2]/@w:id"), "2");
}

TEST_F(MergeFieldsTest, OtherFieldsAndUnknownElementsTravelThrough) {
  std::string body = para(complexField({" PAGE "}, "1") + "<w14:custom w14:val=\"x\"/>" +
                          simpleField(" DATE \\@ \"yyyy\" ", "2020"));
  DocxParts parts;
  parts.body = body;
  auto merged = merge(parts, oneRow_);
  auto doc = part(*merged, "word/document.xml");
  EXPECT_EQ(countXPath(*doc, "//w:instrText[.=' PAGE ']"), 1u);
  EXPECT_EQ(countXPath(*doc, "//w14:custom[@w14:val='x']"), 1u);
  EXPECT_EQ(countXPath(*doc, "//w:fldSimple[@w:instr=' DATE \\@ \"yyyy\" ']"), 1u);
}

TEST_F(MergeFieldsTest, UnbalancedFieldCharactersAreLeftAlone) {
  std::string body = para("<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>" + run("a") +
                          simpleField(" MERGEFIELD FirstName ")) +
                     para(
                         "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r>"
                         "<w:r><w:instrText> MERGEFIELD FirstName </w:instrText></w:r>" +
                         run("b"));
  EXPECT_EQ(mergedBody(body, oneRow_), "aAnn\n{ MERGEFIELD FirstName }b\n");
}

TEST_F(MergeFieldsTest, NoRecordsGiveAnEmptyDocumentWithoutFields) {
  MergeData data({"FirstName"}, {});
  DocxParts parts;
  parts.body = para(simpleField(" MERGEFIELD FirstName "));
  parts.headers["default"] = para(run("To ") + simpleField(" MERGEFIELD FirstName "));
  auto merged = merge(parts, data);
  EXPECT_EQ(dumpBody(*part(*merged, "word/document.xml")), "\n");
  auto header = part(*merged, "word/header10.xml");
  EXPECT_EQ(dumpParagraphs(header->document_element()), "To \n");
  EXPECT_EQ(countXPath(*header, "//w:fldSimple"), 0u);
}

TEST_F(MergeFieldsTest, WhitespaceOnlyTextIsKeptExactly) {
  std::string body = para(run("A") + "<w:r><w:t xml:space=\"preserve\"> </w:t></w:r>" +
                          simpleField(" MERGEFIELD FirstName ") + run("  "));
  EXPECT_EQ(mergedBody(body, oneRow_), "A Ann  \n");
}

}  // namespace
}  // namespace nvwm::testing
