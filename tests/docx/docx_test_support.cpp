#include "docx/docx_test_support.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fstream>
#include <set>
#include <sstream>

namespace nvwm::testing {
namespace {

const char* kNamespaces =
    "xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\" "
    "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\" "
    "xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\" "
    "xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\" "
    "xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\" "
    "xmlns:wps=\"http://schemas.microsoft.com/office/word/2010/wordprocessingShape\" "
    "xmlns:v=\"urn:schemas-microsoft-com:vml\" "
    "xmlns:w14=\"http://schemas.microsoft.com/office/word/2010/wordml\" mc:Ignorable=\"w14\"";

std::string declaration() {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
}

bool named(pugi::xml_node n, const char* name) { return std::string_view(n.name()) == name; }

void dumpNode(pugi::xml_node n, std::string& out, std::string& line) {
  for (pugi::xml_node c : n.children()) {
    if (c.type() != pugi::node_element) continue;
    if (named(c, "mc:Fallback")) continue;
    if (named(c, "w:p")) {
      std::string inner;
      dumpNode(c, out, inner);
      out += inner + "\n";
      if (c.child("w:pPr").child("w:sectPr")) out += "==section==\n";
      continue;
    }
    if (named(c, "w:t"))
      line += c.child_value();
    else if (named(c, "w:br"))
      line += "/";
    else if (named(c, "w:tab"))
      line += "->";
    else if (named(c, "w:instrText"))
      line += "{" + std::string(c.child_value()) + "}";
    else
      dumpNode(c, out, line);
  }
}

}  // namespace

void writeDocx(const DocxParts& parts, const std::string& path) {
  auto package = docx::Package::blank();
  std::string rels = package->bytes("word/_rels/document.xml.rels");
  std::string relEntries;
  std::string references;
  int next = 10;
  auto addPart = [&](const std::string& kind, const std::string& type, const std::string& xml,
                     const char* root) {
    std::string name = kind + std::to_string(next) + ".xml";
    std::string id = "rId" + std::to_string(next++);
    package->setBytes("word/" + name, declaration() + "<w:" + root + " " + kNamespaces + ">" + xml +
                                          "</w:" + root + ">");
    package->setContentTypeOverride(
        "word/" + name,
        "application/vnd.openxmlformats-officedocument.wordprocessingml." + kind + "+xml");
    relEntries += "<Relationship Id=\"" + id +
                  "\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/" +
                  kind + "\" Target=\"" + name + "\"/>";
    if (!type.empty()) {
      references += "<w:" + kind + "Reference w:type=\"" + type + "\" r:id=\"" + id + "\"/>";
    }
  };
  for (const auto& [type, xml] : parts.headers) addPart("header", type, xml, "hdr");
  for (const auto& [type, xml] : parts.footers) addPart("footer", type, xml, "ftr");
  if (!parts.footnotes.empty()) {
    addPart("footnotes", "",
            "<w:footnote w:type=\"separator\" "
            "w:id=\"-1\"><w:p><w:r><w:separator/></w:r></w:p></w:footnote>"
            "<w:footnote w:type=\"continuationSeparator\" "
            "w:id=\"0\"><w:p><w:r><w:continuationSeparator/></w:r></w:p></w:footnote>" +
                parts.footnotes,
            "footnotes");
  }
  if (!parts.comments.empty()) addPart("comments", "", parts.comments, "comments");
  rels.insert(rels.rfind("</Relationships>"), relEntries);
  package->setBytes("word/_rels/document.xml.rels", rels);
  package->setBytes(
      "word/document.xml",
      declaration() + "<w:document " + kNamespaces + "><w:body>" + parts.body + "<w:sectPr>" +
          references + parts.sectPrExtra +
          "<w:pgSz w:w=\"12240\" w:h=\"15840\"/><w:pgMar w:top=\"1440\" w:right=\"1440\" "
          "w:bottom=\"1440\" w:left=\"1440\" w:header=\"708\" w:footer=\"708\" w:gutter=\"0\"/>"
          "</w:sectPr></w:body></w:document>");
  if (!parts.settingsExtra.empty()) {
    std::string settings = package->bytes("word/settings.xml");
    settings.insert(settings.rfind("</w:settings>"), parts.settingsExtra);
    package->setBytes("word/settings.xml", settings);
  }
  package->save(path);
}

void writeDocxBody(const std::string& body, const std::string& path) {
  DocxParts parts;
  parts.body = body;
  writeDocx(parts, path);
}

void execSqlite(const std::string& path, const std::string& sql) {
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
  char* error = nullptr;
  int rc = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &error);
  std::string message = error ? error : "";
  sqlite3_free(error);
  sqlite3_close(db);
  ASSERT_EQ(rc, SQLITE_OK) << message;
}

void writeFile(const std::string& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary);
  out << content;
}

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

std::unique_ptr<pugi::xml_document> loadPart(const std::string& docxPath, const std::string& part) {
  auto package = docx::Package::load(docxPath);
  auto doc = std::make_unique<pugi::xml_document>();
  std::string bytes = package->bytes(part);
  pugi::xml_parse_result r = doc->load_buffer(bytes.data(), bytes.size(), docx::kParseFlags);
  EXPECT_TRUE(r) << part << ": " << r.description();
  return doc;
}

size_t countXPath(const pugi::xml_node& root, const std::string& xpath) {
  return root.select_nodes(xpath.c_str()).size();
}

std::string xpathText(const pugi::xml_node& root, const std::string& xpath) {
  pugi::xpath_node n = root.select_node(xpath.c_str());
  if (n.attribute()) return n.attribute().value();
  return n.node().text().get();
}

void expectConsistentPackage(const std::string& docxPath) {
  auto package = docx::Package::load(docxPath);
  auto types = std::make_unique<pugi::xml_document>();
  std::string typesXml = package->bytes("[Content_Types].xml");
  ASSERT_TRUE(types->load_buffer(typesXml.data(), typesXml.size()));
  for (const std::string& name : package->partNames()) {
    SCOPED_TRACE(name);
    if (name == "[Content_Types].xml") continue;
    std::string extension = name.substr(name.rfind('.') + 1);
    bool typed = countXPath(*types, "//Override[@PartName='/" + name + "']") == 1 ||
                 countXPath(*types, "//Default[@Extension='" + extension + "']") == 1;
    EXPECT_TRUE(typed) << "no content type";
    if (extension != "xml" && extension != "rels") continue;
    pugi::xml_document doc;
    std::string bytes = package->bytes(name);
    ASSERT_TRUE(doc.load_buffer(bytes.data(), bytes.size(), docx::kParseFlags)) << "not XML";
    if (extension == "rels") continue;
    std::set<std::string> ids;
    for (const auto& rel : package->relationships(name)) {
      ids.insert(rel.id);
      if (!rel.external) {
        EXPECT_TRUE(package->has(docx::Package::resolveTarget(name, rel.target)))
            << "missing target " << rel.target;
      }
    }
    for (auto a : doc.select_nodes("//@r:id | //@r:embed | //@r:link")) {
      EXPECT_EQ(ids.count(a.attribute().value()), 1u) << "dangling " << a.attribute().value();
    }
  }
}

std::string dumpBody(const pugi::xml_node& root) {
  return dumpParagraphs(root.first_element_by_path("w:document/w:body"));
}

std::string dumpParagraphs(const pugi::xml_node& root) {
  std::string out, line;
  dumpNode(root, out, line);
  return out;
}

std::string run(const std::string& text, const std::string& rPr) {
  return "<w:r>" + (rPr.empty() ? "" : "<w:rPr>" + rPr + "</w:rPr>") +
         "<w:t xml:space=\"preserve\">" + text + "</w:t></w:r>";
}

std::string para(const std::string& runs, const std::string& pPr) {
  return "<w:p>" + (pPr.empty() ? "" : "<w:pPr>" + pPr + "</w:pPr>") + runs + "</w:p>";
}

std::string simpleField(const std::string& instr, const std::string& shown,
                        const std::string& rPr) {
  std::string escaped;
  for (char c : instr) escaped += c == '"' ? std::string("&quot;") : std::string(1, c);
  return "<w:fldSimple w:instr=\"" + escaped + "\">" + run(shown, rPr) + "</w:fldSimple>";
}

std::string complexField(const std::vector<std::string>& pieces, const std::string& shown,
                         const std::string& resultRPr) {
  std::string xml = "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r>";
  for (const auto& p : pieces) {
    xml += "<w:r><w:instrText xml:space=\"preserve\">" + p + "</w:instrText></w:r>";
  }
  xml += "<w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>";
  xml += run(shown, resultRPr);
  xml += "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>";
  return xml;
}

std::string instructionRun(const std::string& text, const std::string& rPr) {
  std::string escaped;
  for (char c : text) {
    escaped += c == '<' ? std::string("&lt;") : c == '>' ? std::string("&gt;") : std::string(1, c);
  }
  return "<w:r>" + (rPr.empty() ? "" : "<w:rPr>" + rPr + "</w:rPr>") +
         "<w:instrText xml:space=\"preserve\">" + escaped + "</w:instrText></w:r>";
}

std::string fieldAround(const std::string& instructionXml, const std::string& shown,
                        const std::string& shownRPr) {
  return "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r>" + instructionXml +
         "<w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>" + run(shown, shownRPr) +
         "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>";
}

std::string mergeFieldOf(const std::string& name, const std::string& shownRPr) {
  return fieldAround(instructionRun(" MERGEFIELD " + name + " "), "«" + name + "»", shownRPr);
}

}  // namespace nvwm::testing
