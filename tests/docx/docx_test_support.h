// Helpers of the document engine's tests: .docx files built from XML snippets, data sources
// built with sqlite3, XPath checks and a readable dump of a merged body.
#pragma once

#include <map>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "docx/package.h"

namespace nvwm::testing {

inline constexpr const char* kW = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";

// A .docx main document written from pieces of WordprocessingML.
struct DocxParts {
  std::string body;         // children of w:body before the final sectPr
  std::string sectPrExtra;  // children added to the final sectPr (references are added)
  std::map<std::string, std::string> headers;  // "default"/"first"/"even" -> children of w:hdr
  std::map<std::string, std::string> footers;  // same, children of w:ftr
  std::string footnotes;                       // normal w:footnote elements (ids from 1)
  std::string comments;                        // w:comment elements
  std::string settingsExtra;                   // children appended to w:settings
};

// Writes the pieces as a .docx file at path.
void writeDocx(const DocxParts& parts, const std::string& path);
// Shorthand: a document whose body is the given paragraphs' XML.
void writeDocxBody(const std::string& body, const std::string& path);

// Runs SQL on a new (or existing) SQLite file; fails the test on an error.
void execSqlite(const std::string& path, const std::string& sql);
void writeFile(const std::string& path, const std::string& content);
std::string readFile(const std::string& path);

// A part of a .docx file on disk, parsed (fails the test when missing or not XML).
std::unique_ptr<pugi::xml_document> loadPart(const std::string& docxPath, const std::string& part);
// Number of nodes an XPath (with the w, r, mc, wp prefixes bound) selects.
size_t countXPath(const pugi::xml_node& root, const std::string& xpath);
std::string xpathText(const pugi::xml_node& root, const std::string& xpath);

// The body as text: one line per paragraph (tables, text boxes included, in document order),
// w:br as "/", w:tab as "->", a paragraph ending a section adds the line "==section==".
// Text inside mc:Fallback is left out (it repeats mc:Choice).
std::string dumpBody(const pugi::xml_node& root);
// Same for any part's root (headers, footnotes).
std::string dumpParagraphs(const pugi::xml_node& root);

// Checks what a word processor checks before it offers a repair: every part is well-formed
// XML (but media), has a content type, every internal relationship target exists, and every
// r:id used in a part is one of that part's relationships. Adds test failures.
void expectConsistentPackage(const std::string& docxPath);

// Common run XML.
std::string run(const std::string& text, const std::string& rPr = "");
std::string para(const std::string& runs, const std::string& pPr = "");
std::string simpleField(const std::string& instr, const std::string& shown = "«x»",
                        const std::string& rPr = "");
// A complex field whose instruction is cut into the given pieces, one w:instrText run each.
std::string complexField(const std::vector<std::string>& pieces, const std::string& shown = "«x»",
                         const std::string& resultRPr = "");

// A run of instruction text (escaped) and a complex field around instruction XML, for fields
// that nest other fields in their instruction.
std::string instructionRun(const std::string& text, const std::string& rPr = "");
std::string fieldAround(const std::string& instructionXml, const std::string& shown = "x",
                        const std::string& shownRPr = "");
// A complex MERGEFIELD of the name, showing «name».
std::string mergeFieldOf(const std::string& name, const std::string& shownRPr = "");

}  // namespace nvwm::testing
