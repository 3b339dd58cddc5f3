#include "fuzz/inputs/sample_inputs.h"

#include <cmath>
#include <limits>
#include <string>

#include "fuzz/inputs/fuzz_input.h"
#include "fuzz/inputs/zip_writer.h"

namespace nvwm::fuzzing {
namespace {

const std::string kXmlHead = R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)";
const std::string kW = R"(xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main")";
const std::string kR =
    R"(xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships")";
const std::string kRel = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
const std::string kType = "application/vnd.openxmlformats-officedocument.wordprocessingml.";

std::string contentTypes(const std::string& overrides) {
  return kXmlHead +
         R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
         R"(<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>)"
         R"(<Default Extension="xml" ContentType="application/xml"/>)"
         R"(<Override PartName="/word/document.xml" ContentType=")" +
         kType + R"(document.main+xml"/>)" + overrides + "</Types>";
}

std::string relationships(const std::string& items) {
  return kXmlHead +
         R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)" +
         items + "</Relationships>";
}

std::string relationship(const std::string& id, const std::string& type,
                         const std::string& target) {
  return R"(<Relationship Id=")" + id + R"(" Type=")" + kRel + type + R"(" Target=")" + target +
         R"("/>)";
}

std::string documentXml(const std::string& body) {
  return kXmlHead + "<w:document " + kW + " " + kR + "><w:body>" + body + "</w:body></w:document>";
}

// The parts of a main document: body, and optionally more parts with their relationships.
struct DocxParts {
  explicit DocxParts(std::string body) : body(std::move(body)) {}

  std::string body;
  std::string overrides;  // more <Override> elements
  std::string rels;       // relationships of word/document.xml
  std::vector<ZipEntry> more;
};

std::vector<ZipEntry> entriesOf(const DocxParts& parts) {
  std::vector<ZipEntry> entries = {
      {"[Content_Types].xml", contentTypes(parts.overrides)},
      {"_rels/.rels", relationships(relationship("rId1", "officeDocument", "word/document.xml"))},
      {"word/document.xml", documentXml(parts.body)},
  };
  if (!parts.rels.empty())
    entries.push_back({"word/_rels/document.xml.rels", relationships(parts.rels)});
  entries.insert(entries.end(), parts.more.begin(), parts.more.end());
  return entries;
}

std::string run(const std::string& text, const std::string& rPr = "") {
  return "<w:r>" + rPr + R"(<w:t xml:space="preserve">)" + text + "</w:t></w:r>";
}
std::string para(const std::string& runs) { return "<w:p>" + runs + "</w:p>"; }
// A w:fldSimple; the instruction is escaped for its attribute.
std::string simple(const std::string& instr) {
  std::string escaped;
  for (char c : instr) escaped += c == '"' ? std::string("&quot;") : std::string(1, c);
  return R"(<w:fldSimple w:instr=")" + escaped + R"(">)" + run("«x»") + "</w:fldSimple>";
}
std::string complex(const std::vector<std::string>& pieces) {
  std::string out = R"(<w:r><w:fldChar w:fldCharType="begin"/></w:r>)";
  for (const auto& p : pieces)
    out += R"(<w:r><w:instrText xml:space="preserve">)" + p + "</w:instrText></w:r>";
  return out + R"(<w:r><w:fldChar w:fldCharType="separate"/></w:r>)" + run("«x»") +
         R"(<w:r><w:fldChar w:fldCharType="end"/></w:r>)";
}

const std::string kSectPr =
    R"(<w:sectPr><w:pgSz w:w="12240" w:h="15840"/><w:pgMar w:top="1440" w:right="1440" )"
    R"(w:bottom="1440" w:left="1440" w:header="708" w:footer="708" w:gutter="0"/></w:sectPr>)";

std::string docx(const DocxParts& parts) { return writeZip(entriesOf(parts)); }

// A seed with one part changed by the caller: a lie in its header or its bytes.
std::string lyingDocx(const std::string& body, void (*lie)(ZipEntry&)) {
  std::vector<ZipEntry> entries = entriesOf(DocxParts(body + kSectPr));
  for (ZipEntry& e : entries) {
    if (e.name == "word/document.xml") lie(e);
  }
  return writeZip(entries);
}

const std::string kLetter = para(run("Dear ") + simple(" MERGEFIELD Name ") + run(",")) +
                            para(run("Amount: ") + simple(R"( MERGEFIELD Amount \# "$#,##0.00" )"));

std::string repeat(const std::string& s, size_t n) {
  std::string out;
  out.reserve(s.size() * n);
  for (size_t i = 0; i < n; ++i) out += s;
  return out;
}

}  // namespace

std::string docxWithBody(const std::string& body) { return docx(DocxParts(body + kSectPr)); }

std::vector<NamedInput> docxMergeSeeds() {
  DocxParts headers(kLetter + R"(<w:sectPr><w:headerReference w:type="default" r:id="rIdH"/>)"
                              R"(<w:footerReference w:type="default" r:id="rIdF"/></w:sectPr>)");
  headers.overrides = R"(<Override PartName="/word/header1.xml" ContentType=")" + kType +
                      R"(header+xml"/><Override PartName="/word/footer1.xml" ContentType=")" +
                      kType + R"(footer+xml"/>)";
  headers.rels =
      relationship("rIdH", "header", "header1.xml") + relationship("rIdF", "footer", "footer1.xml");
  headers.more = {
      {"word/header1.xml", kXmlHead + "<w:hdr " + kW + ">" +
                               para(run("For ") + simple(" MERGEFIELD Name \\* Upper ")) +
                               "</w:hdr>"},
      {"word/footer1.xml", kXmlHead + "<w:ftr " + kW + ">" +
                               para(complex({" PAGE "}) + run(" of ") +
                                    complex({" MERGE", "FIELD When \\@ \"d MMMM yyyy\" "})) +
                               "</w:ftr>"},
  };

  DocxParts notes(
      para(run("See note") + R"(<w:r><w:footnoteReference w:id="1"/></w:r>)" +
           R"(<w:commentRangeStart w:id="0"/>)" + simple(" MERGEFIELD Note ") +
           R"(<w:commentRangeEnd w:id="0"/><w:r><w:commentReference w:id="0"/></w:r>)") +
      kSectPr);
  notes.overrides = R"(<Override PartName="/word/footnotes.xml" ContentType=")" + kType +
                    R"(footnotes+xml"/><Override PartName="/word/comments.xml" ContentType=")" +
                    kType + R"(comments+xml"/>)";
  notes.rels = relationship("rIdN", "footnotes", "footnotes.xml") +
               relationship("rIdC", "comments", "comments.xml");
  notes.more = {
      {"word/footnotes.xml", kXmlHead + "<w:footnotes " + kW + R"(><w:footnote w:id="1">)" +
                                 para(simple(" MERGEFIELD Amount ")) +
                                 "</w:footnote></w:footnotes>"},
      {"word/comments.xml", kXmlHead + "<w:comments " + kW + R"(><w:comment w:id="0">)" +
                                para(simple(" MERGEFIELD Member ")) + "</w:comment></w:comments>"},
  };

  DocxParts blankLines(para(simple(" MERGEFIELD Empty ")) + para(simple(" MERGEFIELD Name ")) +
                       para(simple(" MERGEFIELD Empty ") + simple(" MERGEFIELD Empty ")) + kSectPr);
  blankLines.overrides =
      R"(<Override PartName="/word/settings.xml" ContentType=")" + kType + R"(settings+xml"/>)";
  blankLines.rels = relationship("rIdS", "settings", "settings.xml");
  blankLines.more = {
      {"word/settings.xml", kXmlHead + "<w:settings " + kW +
                                R"(><w:mailMerge><w:mainDocumentType w:val="formLetters"/>)"
                                R"(<w:dataType w:val="native"/></w:mailMerge></w:settings>)"}};

  return {
      {"simple-field.docx", docxWithBody(kLetter)},
      {"complex-field-split-over-runs.docx",
       docxWithBody(para(complex({" MERGE", "FIELD ", " \"Na", "me\" "})) +
                    para(complex({" MERGEFIELD Note ", "\\b \"Note: \" \\f \".\""})))},
      {"switches.docx",
       docxWithBody(para(simple(R"( MERGEFIELD When \@ "dddd, MMMM d, yyyy h:mm am/pm" )")) +
                    para(simple(R"( MERGEFIELD Amount \# "#,##0.00;(#,##0.00);'zero'" )")) +
                    para(simple(R"( MERGEFIELD Name \* Caps \* FirstCap )")) +
                    para(simple(R"( MERGEFIELD Amount \# x## )")))},
      {"table-and-textbox.docx",
       docxWithBody("<w:tbl><w:tr><w:tc>" + para(simple(" MERGEFIELD Name ")) + "</w:tc><w:tc>" +
                    para(complex({" MERGEFIELD Amount "})) + "</w:tc></w:tr></w:tbl>" +
                    para(R"(<w:r><w:pict><v:shape xmlns:v="urn:schemas-microsoft-com:vml">)"
                         R"(<v:textbox><w:txbxContent>)" +
                         para(simple(" MERGEFIELD Note ")) +
                         "</w:txbxContent></v:textbox></v:shape></w:pict></w:r>"))},
      {"headers-and-footers.docx", docx(headers)},
      {"footnotes-and-comments.docx", docx(notes)},
      {"blank-line-suppression.docx", docx(blankLines)},
      {"field-inside-if.docx",
       docxWithBody(para(complex({" IF "}) + simple(" MERGEFIELD Member ") +
                         run(" = 1 \"member\" \"guest\" ") +
                         R"(<w:r><w:fldChar w:fldCharType="end"/></w:r>)"))},
      {"field-across-paragraphs.docx",
       docxWithBody(R"(<w:p><w:r><w:fldChar w:fldCharType="begin"/></w:r>)"
                    R"(<w:r><w:instrText> MERGEFIELD Name </w:instrText></w:r>)"
                    R"(<w:r><w:fldChar w:fldCharType="separate"/></w:r>)" +
                    run("one") + "</w:p><w:p>" + run("two") +
                    R"(<w:r><w:fldChar w:fldCharType="end"/></w:r>)" + run(" after") + "</w:p>")},
      {"missing-field-and-bookmarks.docx",
       docxWithBody(para(R"(<w:bookmarkStart w:id="3" w:name="b"/>)" +
                         simple(" MERGEFIELD NoSuchColumn ") + R"(<w:bookmarkEnd w:id="3"/>)"))},
      {"whitespace-and-unknown-parts.docx", writeZip([] {
         std::vector<ZipEntry> e = entriesOf(
             DocxParts(para(R"(<w:r><w:t xml:space="preserve"> </w:t></w:r>)") + kSectPr));
         e.push_back({"customXml/item1.xml", "<root>unknown</root>", false});
         e.push_back({"word/media/image1.png", std::string("\x89PNG\r\n\x1a\n", 8), false});
         return e;
       }())},
  };
}

std::vector<NamedInput> docxMergeBadInputs() {
  std::string seed = docxWithBody(kLetter);
  return {
      // A 2 KB file claiming 2 GB: the reader allocated and zero-filled it all first.
      {"claims-2-gb.docx", lyingDocx(kLetter, [](ZipEntry& e) { e.claimedSize = 0x7fffffffu; })},
      // A part of zeros packed a thousand times over.
      {"zip-bomb-ratio.docx", writeZip([] {
         std::vector<ZipEntry> e = entriesOf(DocxParts(kLetter + kSectPr));
         e.push_back({"word/media/zeros.bin", std::string(4 << 20, '\0')});
         return e;
       }())},
      {"zip-bomb-over-part-limit.docx", writeZip([] {
         std::vector<ZipEntry> e = entriesOf(DocxParts(kLetter + kSectPr));
         e.push_back({"word/media/zeros.bin", std::string(16 << 20, '\0')});
         return e;
       }())},
      // zip64 records that lie: sizes no data can hold, a zip64 field promised and missing
      // (libzip: "No such file"), a size smaller than the data.
      {"zip64-size-lie.docx", lyingDocx(kLetter,
                                        [](ZipEntry& e) {
                                          e.zip64 = true;
                                          e.claimedSize = uint64_t{1} << 40;
                                        })},
      {"zip64-size-near-2-to-64.docx", lyingDocx(kLetter,
                                                 [](ZipEntry& e) {
                                                   e.zip64 = true;
                                                   e.claimedSize = ~uint64_t{0};
                                                 })},
      {"zip64-field-missing.docx",
       lyingDocx(kLetter, [](ZipEntry& e) { e.zip64FieldMissing = true; })},
      {"zip64-size-short.docx", lyingDocx(kLetter,
                                          [](ZipEntry& e) {
                                            e.zip64 = true;
                                            e.claimedSize = 10;
                                          })},
      {"bad-checksum.docx", lyingDocx(kLetter, [](ZipEntry& e) { e.badCrc = true; })},
      {"stored-size-lie.docx", lyingDocx(kLetter,
                                         [](ZipEntry& e) {
                                           e.deflate = false;
                                           e.claimedSize = e.data.size() * 4;
                                         })},
      {"truncated-zip.docx", seed.substr(0, seed.size() / 2)},
      {"not-a-zip.docx", "This is a letter, not a zip file.\n"},
      {"empty.docx", ""},
      {"zip-without-content-types.docx", writeZip({{"word/document.xml", documentXml(kLetter)}})},
      {"main-part-not-xml.docx",
       lyingDocx(kLetter, [](ZipEntry& e) { e.data = "<w:document><w:body><w:p>"; })},
      {"deeply-nested-xml.docx",
       docxWithBody(para(repeat("<w:sdt><w:sdtContent>", 20000) + simple(" MERGEFIELD Name ") +
                         repeat("</w:sdtContent></w:sdt>", 20000)))},
      {"unbalanced-field-characters.docx",
       docxWithBody(para(R"(<w:r><w:fldChar w:fldCharType="end"/></w:r>)" + run("a") +
                         R"(<w:r><w:fldChar w:fldCharType="separate"/></w:r>)") +
                    para(R"(<w:r><w:fldChar w:fldCharType="begin"/></w:r>)"
                         R"(<w:r><w:instrText> MERGEFIELD Name </w:instrText></w:r>)") +
                    para(simple(" MERGEFIELD ") + simple("") + simple(" MERGEFIELD \"unclosed ")))},
      // Text and elements of the template that looked like the merge writer's own markers.
      {"marker-slot-element.docx",
       docxWithBody(para(R"(<nvwmslot i="7"/>)" + simple(" MERGEFIELD Name ")))},
      {"marker-slot-not-a-number.docx",
       docxWithBody(para(R"(<nvwmslot i="seven"/>)" + simple(" MERGEFIELD Name ")))},
      {"marker-split-element.docx",
       docxWithBody(para(run("a") + "<nvwmsplit/>" + simple(" MERGEFIELD Name ")))},
      {"marker-element-prefix.docx",
       docxWithBody(para("<nvwmz/>" + simple(" MERGEFIELD Name ") + "<nvwmgroupend/>"))},
      {"marker-reference-prefix.docx",
       docxWithBody(para(R"(<w:bookmarkStart w:id="~nvwm~rel:9" w:name="x"/>)" +
                         run("~nvwm~5 stays") + simple(" MERGEFIELD Name ")))},
  };
}

std::vector<NamedInput> csvSeeds() {
  return {
      {"header-and-rows.csv",
       "Name,Amount,When\nMaple Leaf Bakery,1234.5,11/23/2026\n"
       "Northern Pines,-3,2026-11-23 09:30:00\n"},
      {"quoted-values.csv",
       "\"First, Name\",\"Note\"\r\n\"Ann \"\"A\"\" Lee\",\"line one\r\n"
       "line two\"\r\nBob,\r\n"},
      {"bom-and-short-rows.csv", "\xEF\xBB\xBFName,City,Province\nSociété,Montréal\n\nÉmile\n"},
  };
}

std::vector<NamedInput> csvBadInputs() {
  return {
      {"unclosed-quote.csv", "Name,Note\nAnn,\"never closed\n"},
      {"row-longer-than-header.csv", "Name\nAnn,Lee,extra\n"},
      {"not-utf-8.csv", "Name\nSoci\xE9t\xE9\n"},
      {"only-a-bom.csv", "\xEF\xBB\xBF"},
      {"empty.csv", ""},
      {"blank-lines-only.csv", "\n\r\n\r\r\n"},
      {"quote-inside-value.csv", "Name\nA\"B\"C,\n"},
      {"twenty-thousand-columns.csv", repeat("c,", 20000) + "\n" + repeat("1,", 20000)},
  };
}

std::vector<NamedInput> adoFilterSeeds() {
  return {
      {"text.txt", "Name = 'O''Malley & Sons'"},
      {"and-or-parentheses.txt",
       "(Due >= #11/23/2026# OR Name LIKE 'Soc*') AND Fee > $10.00 AND Closed = True"},
      {"bracketed-and-null.txt", "[Notes Text] = 5 OR Amount IS NULL OR Hours <> Null"},
      {"numbers.txt", "Small <= -2 AND Count > 1.5E0 AND Amount < 20"},
  };
}

std::vector<NamedInput> adoFilterBadInputs() {
  std::string chain = "Count = 3";
  for (int i = 0; i < 20000; ++i) chain += " AND Name LIKE '*'";
  return {
      // This overflowed the stack: one recursion per parenthesis.
      {"3249-open-parentheses.txt", std::string(3249, '(')},
      {"5000-nested-parentheses.txt",
       std::string(5000, '(') + "Count = 3" + std::string(5000, ')')},
      {"257-nested-parentheses.txt", std::string(257, '(') + "Count = 3" + std::string(257, ')')},
      {"20000-clause-chain.txt", chain},
      // Beyond a Single's range: the conversion was undefined.
      {"single-overflow.txt", "Hours = 1e300 OR Hours < -1e39"},
      {"unclosed-pieces.txt", "Name = 'open"},
      {"unclosed-bracket.txt", "[Notes Text = 1"},
      {"impossible-date.txt", "Due = #99/99/9999#"},
      {"null-comparison.txt", "Count > Null"},
  };
}

std::vector<NamedInput> jetSqlSeeds() {
  return {
      {"select-with-date.sql",
       "SELECT Dockets.* FROM Dockets WHERE DateFrom = #11/23/2026# AND TimeFrom < #9:00 AM#;"},
      {"join.sql",
       "SELECT Companies.CompanyName, CompaniesNotes.ContactNotes FROM Companies INNER JOIN "
       "CompaniesNotes ON Companies.CompanyID = CompaniesNotes.CompanyNum WHERE "
       "Companies.Province = 'Ontario' ORDER BY Companies.CompanyName;"},
      {"quotes-and-brackets.sql",
       "SELECT [CompanyName] FROM Companies WHERE CompanyName = 'it''s #5#' -- #note#\n;"},
      {"group-and-subquery.sql",
       "SELECT City, count(*) FROM Companies WHERE CompanyID IN (SELECT CompanyNum FROM "
       "CompaniesNotes) GROUP BY City"},
  };
}

std::vector<NamedInput> jetSqlBadInputs() {
  return {
      {"stacked-statements.sql", "SELECT * FROM Companies; DROP TABLE Companies"},
      {"date-literal-injection.sql",
       "SELECT * FROM Dockets WHERE DateFrom = #1/1/2026'; DROP TABLE Dockets; --#"},
      {"unclosed-date-literal.sql", "SELECT * FROM Dockets WHERE DateFrom = #1/1/2026"},
      {"drop-table.sql", "DROP TABLE Companies"},
      {"attach.sql", "ATTACH 'elsewhere.db' AS other"},
      {"deep-parentheses.sql", "SELECT " + std::string(20000, '(') + "1" + std::string(20000, ')')},
      {"unclosed-comment.sql", "SELECT 1 /* never closed"},
  };
}

std::vector<NamedInput> formatSeeds() {
  return {
      {"currency.bin", formatInput(FormatKind::kDouble, bytesOf(1234.5), "$#,##0.00;$-#,##0.00")},
      {"long-date.bin",
       formatInput(FormatKind::kDate, bytesOf(46349.5), "dddd, mmmm d, yyyy h:mm AM/PM")},
      {"text-date.bin", formatInput(FormatKind::kString, "11/23/2026", "Short Date")},
      {"long.bin", formatInput(FormatKind::kLong, bytesOf(int32_t{5}), "0000")},
      {"boolean.bin", formatInput(FormatKind::kBoolean, std::string(1, '\1'), "Yes/No")},
      {"single.bin", formatInput(FormatKind::kSingle, bytesOf(2.675f), "0.00")},
      {"currency-type.bin",
       formatInput(FormatKind::kCurrency, bytesOf(int64_t{12345678}), "Currency")},
      {"scientific.bin", formatInput(FormatKind::kDouble, bytesOf(0.00123), "0.00E+00")},
      {"thousands-and-percent.bin",
       formatInput(FormatKind::kDouble, bytesOf(1234567.0), "#,##0,;\"neg\";0.0%")},
  };
}

std::vector<NamedInput> formatBadInputs() {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInf = std::numeric_limits<double>::infinity();
  return {
      {"nan-number.bin", formatInput(FormatKind::kDouble, bytesOf(kNaN), "0.00")},
      {"infinity-number.bin", formatInput(FormatKind::kDouble, bytesOf(kInf), "#,##0")},
      {"minus-infinity-currency.bin",
       formatInput(FormatKind::kDouble, bytesOf(-kInf), "$#,##0.00;$-#,##0.00")},
      {"percent-overflow.bin", formatInput(FormatKind::kDouble, bytesOf(1e308), "0%")},
      // This printed "30 December 1899": a date of 1e300 days.
      {"date-1e300.bin", formatInput(FormatKind::kDate, bytesOf(1e300), "d mmmm yyyy")},
      {"date-nan.bin", formatInput(FormatKind::kDate, bytesOf(kNaN), "General Date")},
      {"smallest-double-exponent.bin",
       formatInput(FormatKind::kDouble, bytesOf(5e-324), "0.00E+00")},
      {"single-infinity.bin",
       formatInput(FormatKind::kSingle, bytesOf(std::numeric_limits<float>::infinity()), "0.0")},
      {"many-decimals.bin",
       formatInput(FormatKind::kDouble, bytesOf(1.5), "0." + repeat("0", 400))},
      {"long-pattern.bin", formatInput(FormatKind::kDouble, bytesOf(-7.0), repeat("#,", 20000))},
      {"text-number-huge.bin", formatInput(FormatKind::kString, "1e308", "0%")},
  };
}

std::vector<NamedInput> textSeeds() {
  return {
      {"placeholder.bin", textInput(0,
                                    "Dear \xC2\xAB"
                                    "Company Name\xC2\xBB, thank you.",
                                    "\xC2\xAB"
                                    "company name\xC2\xBB",
                                    "Maple Leaf Bakery")},
      {"sharp-s.bin", textInput(0,
                                "STRASSE und Stra\xC3\x9F"
                                "e",
                                "stra\xC3\x9F"
                                "e",
                                "Weg")},
      {"rtf-escapes.bin",
       textInput(2, "{\\rtf1 \\'abName\\'bb and \\'ABname\\'BB}", "\\'abname\\'bb", "x")},
      {"duck.bin", textInput(9, "\xF0\x9F\xA6\x86 soci\xC3\x89T\xC3\x89 \xF0\x9F\xA6\x86",
                             "SOCI\xC3\x89T\xC3\x89", "")},
  };
}

std::vector<NamedInput> textBadInputs() {
  return {
      {"invalid-utf-8.bin", textInput(0,
                                      "a\x80"
                                      "b\xE2\x82"
                                      "c\xFF",
                                      "\x82"
                                      "C",
                                      "z")},
      {"s-inside-sharp-s.bin", textInput(0,
                                         "Stra\xC3\x9F"
                                         "e",
                                         "s", "S")},
      {"dotted-capital-i.bin", textInput(0, "\xC4\xB0stanbul \xC4\xB0", "i\xCC\x87", "I")},
      {"empty-needle.bin", textInput(0x3f, "abc", "", "x")},
      {"start-past-end.bin", textInput(7, "ab", "b", "c")},
  };
}

namespace {

// Options of rtb_comment_fuzzer.cpp: bit 0 isRTF, bit 1 skipFieldNameCheck, bit 2 sample data.
std::string templateInput(uint8_t options, const std::string& text) {
  return std::string(1, static_cast<char>(options)) + text;
}

}  // namespace

std::vector<NamedInput> rtbCommentSeeds() {
  return {
      {"letter.bin", templateInput(0,
                                   "Dear \xC2\xAB"
                                   "Contact First Name\xC2\xBB,\r\n\r\nYour "
                                   "\xC2\xAB"
                                   "Company Name\xC2\xBB account, \xC2\xAB"
                                   "(Todays Date, mmmm d, yyyy)\xC2\xBB.")},
      {"rtf-letter.bin", templateInput(1,
                                       "{\\rtf1\\ansi Dear \\'abCompany Name\\'bb,\\par "
                                       "\\'ab(Todays Date, d mmmm yyyy)\\'bb\\par }")},
      {"unknown-field-sample-data.bin", templateInput(4,
                                                      "\xC2\xAB"
                                                      "No Such Field\xC2\xBB and \xC2\xAB"
                                                      "Company City\xC2\xBB")},
      {"provinces-and-blank-lines.bin", templateInput(2,
                                                      "\xC2\xAB"
                                                      "Company Province\xC2\xBB\r\n\xC2\xAB"
                                                      "Company Address 2\xC2\xBB"
                                                      "\r\n\r\n\xC2\xAB"
                                                      "Company Postal Code\xC2\xBB")},
  };
}

std::vector<NamedInput> rtbCommentBadInputs() {
  return {
      {"unclosed-delimiter.bin", templateInput(0,
                                               "Dear \xC2\xAB"
                                               "Company Name")},
      {"close-before-open.bin", templateInput(0, "\xC2\xBB\xC2\xAB\xC2\xBB\xC2\xAB")},
      {"rtf-escape-cut-short.bin", templateInput(1, "{\\rtf1 \\'abCompany Name\\'b")},
      {"bad-bytes.bin", templateInput(0, "\xC2\xAB\xFF\xC3\xBB\xE2\x82\xC2\xBB")},
      {"date-without-format.bin",
       templateInput(0, "\xC2\xAB(Todays Date)\xC2\xBB \xC2\xAB(, )\xC2\xBB")},
      {"many-delimiters.bin",
       templateInput(0, repeat("\xC2\xAB", 5000) + repeat("\xC2\xBB", 5000))},
  };
}

}  // namespace nvwm::fuzzing
