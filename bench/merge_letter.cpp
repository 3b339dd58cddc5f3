#include "merge_letter.h"

#include <fstream>
#include <vector>

#include "docx/package.h"

namespace nvwm::bench {
namespace {

struct LetterField {
  const char* name;
  const char* switches;  // after the field name, as typed in Word
};

// 30 fields; the first is also in the header.
const std::vector<LetterField>& letterFields() {
  static const std::vector<LetterField> fields = {{"ClientID", ""},
                                                  {"CompanyName", "\\* Upper"},
                                                  {"Title", ""},
                                                  {"FirstName", ""},
                                                  {"LastName", ""},
                                                  {"Position", ""},
                                                  {"Address1", ""},
                                                  {"Address2", ""},
                                                  {"City", "\\* Upper"},
                                                  {"County", ""},
                                                  {"PostCode", "\\* Upper"},
                                                  {"Country", ""},
                                                  {"Phone", ""},
                                                  {"Email", ""},
                                                  {"Partner", ""},
                                                  {"Manager", ""},
                                                  {"YearEnd", "\\@ \"d MMMM yyyy\""},
                                                  {"FeeDue", "\\# \"#,##0.00\""},
                                                  {"FeeDate", "\\@ \"dd/MM/yyyy\""},
                                                  {"Balance", "\\# \"0.00\""},
                                                  {"VatNumber", ""},
                                                  {"CompanyNumber", ""},
                                                  {"TaxReference", ""},
                                                  {"Sector", ""},
                                                  {"Salutation", ""},
                                                  {"Reference", ""},
                                                  {"Office", ""},
                                                  {"Signatory", ""},
                                                  {"SignatoryRole", ""},
                                                  {"Notes", ""}};
  return fields;
}

std::string instruction(const LetterField& f) {
  std::string text = " MERGEFIELD " + std::string(f.name) + " ";
  if (*f.switches) text += std::string(f.switches) + " ";
  return text;
}

std::string escaped(const std::string& text) {
  std::string out;
  for (char c : text) out += c == '"' ? std::string("&quot;") : std::string(1, c);
  return out;
}

std::string simpleField(const LetterField& f) {
  return "<w:fldSimple w:instr=\"" + escaped(instruction(f)) +
         "\"><w:r><w:rPr><w:b/></w:rPr>"
         "<w:t>\xc2\xab" +
         std::string(f.name) + "\xc2\xbb</w:t></w:r></w:fldSimple>";
}

std::string complexField(const LetterField& f) {
  std::string instr = instruction(f);
  return "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r><w:r><w:instrText "
         "xml:space=\"preserve\">" +
         escaped(instr.substr(0, 8)) +
         "</w:instrText></w:r><w:r><w:instrText "
         "xml:space=\"preserve\">" +
         escaped(instr.substr(8)) +
         "</w:instrText></w:r><w:r><w:fldChar w:fldCharType=\"separate\"/></w:r><w:r><w:t>"
         "\xc2\xab" +
         std::string(f.name) +
         "\xc2\xbb</w:t></w:r><w:r><w:fldChar "
         "w:fldCharType=\"end\"/></w:r>";
}

constexpr const char* kWordNs = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
constexpr const char* kRelNs =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

}  // namespace

void writeMergeLetter(const std::string& path) {
  const auto& fields = letterFields();
  std::string body;
  // 13 simple fields (even positions up to 24), 17 complex ones.
  for (size_t i = 0; i < fields.size(); ++i) {
    bool simple = i % 2 == 0 && i <= 24;
    body += "<w:p><w:r><w:t xml:space=\"preserve\">" + std::string(fields[i].name) +
            ": </w:t></w:r>" + (simple ? simpleField(fields[i]) : complexField(fields[i])) +
            "</w:p>";
  }
  body +=
      "<w:p><w:r><w:t>Thank you for your continued custom. We look forward to working with "
      "you in the coming year.</w:t></w:r></w:p>";
  auto package = docx::Package::blank();
  std::string doc = package->bytes("word/document.xml");
  doc.insert(doc.find("<w:body>") + 8, body);
  doc.insert(doc.find("<w:pgSz"), "<w:headerReference w:type=\"default\" r:id=\"rIdHeader1\"/>");
  package->setBytes("word/document.xml", doc);
  package->setBytes("word/header1.xml",
                    std::string("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                                "<w:hdr xmlns:w=\"") +
                        kWordNs + "\" xmlns:r=\"" + kRelNs +
                        "\"><w:p><w:r><w:t xml:space=\"preserve\">Client </w:t></w:r>" +
                        simpleField(fields[0]) + "</w:p></w:hdr>");
  package->setContentTypeOverride("word/header1.xml", docx::kTypeHeader);
  pugi::xml_node rel =
      package->xml("word/_rels/document.xml.rels").document_element().append_child("Relationship");
  rel.append_attribute("Id").set_value("rIdHeader1");
  rel.append_attribute("Type").set_value(std::string(docx::kRelHeader).c_str());
  rel.append_attribute("Target").set_value("header1.xml");
  package->save(path);
}

void writeMergeLetterCsv(const std::string& path, int64_t records) {
  std::ofstream out(path, std::ios::binary);
  const auto& fields = letterFields();
  for (size_t i = 0; i < fields.size(); ++i) out << (i ? "," : "") << fields[i].name;
  out << "\n";
  for (int64_t r = 0; r < records; ++r) {
    std::string id = std::to_string(10000 + r);
    out << "C" << id << ",\"Société " << id << " Ltd\",Mr,John,Smith" << r % 97 << ",Director,\""
        << r % 300 << " High Street\",Suite " << r % 12 << ",London,Greater London,"
        << "sw1a " << r % 9 << "aa,United Kingdom,020 7946 " << 1000 + r % 9000 << ",client" << id
        << "@example.com,A. Partner,B. Manager," << 2024 + r % 3 << "-03-31," << (r * 37) % 100000
        << "." << r % 100 << ",2025-0" << 1 + r % 9 << "-15," << (r * 13) % 5000 << ".5,GB"
        << 100000000 + r << ",0" << 1000000 + r << "," << 1000000000 + r
        << ",Services,Dear John,REF/" << id
        << ",London,C. Signer,Partner,\"Notes, with a comma\"\n";
  }
}

}  // namespace nvwm::bench
