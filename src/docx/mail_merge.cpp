// The form-letter merge.
//
// The main document's parts are parsed once, their merge fields replaced by markers, and
// compiled into chunks (merge_template.h). Each row then costs one pass over the chunks of the
// body (and of any header, footer or note that has fields): the work and the output grow
// linearly with the rows, and nothing already written is copied again.
//
// Output layout, as Word's own form-letter merge writes it:
//   body   := copy(row 1) break(row 1) ... copy(row n) final-sectPr(row n)
//   break  := <w:p><w:pPr><w:sectPr>main sectPr, type nextPage, page numbers from 1</w:sectPr>
//             </w:pPr></w:p>
// A header or footer with merge fields becomes one part per row, named by the relationship
// ids "rIdMerge<row>h<k>" that the row's section properties use; one without fields is shared.
// Footnotes, endnotes and comments get new ids per row (one can't be referenced twice), and
// drawing and bookmark ids move on by a stride per row so that they stay unique.
// With no rows the body is one empty paragraph and the fields of headers and footers empty.
// The body is kept in blocks (Package::setFragments), written to the zip one after the other.
#include "docx/mail_merge.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <unordered_map>

#include "runtime/error.h"
#include "docx/merge_template.h"

namespace nvwm::docx {
namespace {

bool named(pugi::xml_node n, const char* name) { return std::strcmp(n.name(), name) == 0; }

// Children of w:settings that come before w:mailMerge in the schema's sequence.
const char* const kBeforeMailMerge[] = {"w:writeProtection",
                                        "w:view",
                                        "w:zoom",
                                        "w:removePersonalInformation",
                                        "w:removeDateAndTime",
                                        "w:doNotDisplayPageBoundaries",
                                        "w:displayBackgroundShape",
                                        "w:printPostScriptOverText",
                                        "w:printFractionalCharacterWidth",
                                        "w:printFormsData",
                                        "w:embedTrueTypeFonts",
                                        "w:embedSystemFonts",
                                        "w:saveSubsetFonts",
                                        "w:saveFormsData",
                                        "w:mirrorMargins",
                                        "w:alignBordersAndEdges",
                                        "w:bordersDoNotSurroundHeader",
                                        "w:bordersDoNotSurroundFooter",
                                        "w:gutterAtTop",
                                        "w:hideSpellingErrors",
                                        "w:hideGrammaticalErrors",
                                        "w:activeWritingStyle",
                                        "w:proofState",
                                        "w:formsDesign",
                                        "w:attachedTemplate",
                                        "w:linkStyles",
                                        "w:stylePaneFormatFilter",
                                        "w:stylePaneSortMethod",
                                        "w:documentType"};

bool comesBeforeMailMerge(pugi::xml_node n) {
  for (const char* name : kBeforeMailMerge) {
    if (named(n, name)) return true;
  }
  return false;
}

// Inserts child (by name) into parent after every child of the names in `before`.
pugi::xml_node insertInSequence(pugi::xml_node parent, const char* name,
                                std::initializer_list<const char*> before) {
  pugi::xml_node after;
  for (pugi::xml_node c : parent.children()) {
    for (const char* b : before) {
      if (named(c, b)) after = c;
    }
  }
  return after ? parent.insert_child_after(name, after) : parent.prepend_child(name);
}

// Section properties of a row's section: a next-page break, and page numbers from 1 when
// restart is set.
void prepareSection(pugi::xml_node sectPr, bool restart) {
  pugi::xml_node type = sectPr.child("w:type");
  if (!type) {
    type =
        insertInSequence(sectPr, "w:type",
                         {"w:headerReference", "w:footerReference", "w:footnotePr", "w:endnotePr"});
  }
  if (!type.attribute("w:val")) type.append_attribute("w:val");
  type.attribute("w:val").set_value("nextPage");
  if (!restart) return;
  pugi::xml_node numbers = sectPr.child("w:pgNumType");
  if (!numbers) {
    numbers = insertInSequence(
        sectPr, "w:pgNumType",
        {"w:headerReference", "w:footerReference", "w:footnotePr", "w:endnotePr", "w:type",
         "w:pgSz", "w:pgMar", "w:paperSrc", "w:pgBorders", "w:lnNumType"});
  }
  if (!numbers.attribute("w:start")) numbers.append_attribute("w:start");
  numbers.attribute("w:start").set_value("1");
}

pugi::xml_document parse(const std::string& bytes, const std::string& partName) {
  pugi::xml_document doc;
  pugi::xml_parse_result r =
      doc.load_buffer(bytes.data(), bytes.size(), kParseFlags, pugi::encoding_utf8);
  if (!r) {
    raise(ErrorNumber::kDocumentError,
          "part " + partName + " is not well-formed XML (" + r.description() + ")");
  }
  return doc;
}

std::vector<std::optional<size_t>> columnsOf(const std::vector<FieldSlot>& slots,
                                             const MergeData& data) {
  std::vector<std::optional<size_t>> columns;
  columns.reserve(slots.size());
  for (const auto& s : slots) columns.push_back(data.column(s.code.name));
  return columns;
}

// A header or footer of the main document.
struct HeaderTemplate {
  std::string relId;
  std::string part;
  std::string contentType;
  std::string relType;
  FieldMarkup markup;
  CompiledXml xml;
  std::vector<std::optional<size_t>> columns;
  bool perRow = false;
};

// Footnotes, endnotes or comments: the part around the normal notes, and the notes themselves.
struct NotesTemplate {
  bool active = false;
  std::string part;
  std::string head, tail;
  FieldMarkup markup;
  CompiledXml notes;
  std::vector<std::optional<size_t>> columns;
  std::unordered_map<std::string, long> indexOf;  // original id -> position
  long base = 0;
  long count = 0;
  std::string out;

  bool load(Package& main, const std::string& partName, const char* element, const char* marker,
            bool suppress, const MergeData& data) {
    if (partName.empty() || !main.has(partName)) return false;
    part = partName;
    pugi::xml_document doc = parse(main.bytes(partName), partName);
    pugi::xml_node root = doc.document_element();
    std::vector<pugi::xml_node> normal;
    long maxId = 0;
    for (pugi::xml_node n : root.children(element)) {
      maxId = std::max(maxId, n.attribute("w:id").as_llong() > 0
                                  ? static_cast<long>(n.attribute("w:id").as_llong())
                                  : 0L);
      std::string_view type = n.attribute("w:type").value();
      if (type.empty() || type == "normal") normal.push_back(n);
    }
    if (normal.empty()) return false;
    base = maxId + 1;
    count = static_cast<long>(normal.size());
    markup.markFields(root, suppress);
    FieldMarkup::markReferences(root);
    std::string body;
    std::string prefix = marker;
    for (pugi::xml_node n : normal) {
      std::string id = n.attribute("w:id").value();
      indexOf.emplace(id, static_cast<long>(indexOf.size()));
      n.attribute("w:id").set_value(("~nvwm~" + prefix + id).c_str());
      body += serialize(n);
    }
    pugi::xml_node at = normal.front().previous_sibling();
    for (pugi::xml_node n : normal) root.remove_child(n);
    insertSplitMarker(root, at ? at.next_sibling() : root.first_child());
    auto [h, t] = splitAtMarker(serialize(doc));
    head = std::move(h);
    tail = std::move(t);
    notes = compileXml(body);
    columns = columnsOf(markup.slots(), data);
    return true;
  }

  std::string idFor(const std::string& original, size_t row) const {
    auto it = indexOf.find(original);
    if (it == indexOf.end()) return original;
    return std::to_string(base + static_cast<long>(row) * count + it->second);
  }
};

// The largest drawing and bookmark ids of a tree, plus one.
struct IdSpan : pugi::xml_tree_walker {
  IdSpan(long& drawing, long& bookmark) : drawing_(drawing), bookmark_(bookmark) {}
  bool for_each(pugi::xml_node& n) override {
    if (named(n, "wp:docPr")) {
      drawing_ = std::max(drawing_, static_cast<long>(n.attribute("id").as_llong()) + 1);
    } else if (named(n, "w:bookmarkStart")) {
      bookmark_ = std::max(bookmark_, static_cast<long>(n.attribute("w:id").as_llong()) + 1);
    }
    return true;
  }
  long& drawing_;
  long& bookmark_;
};

std::string shifted(const std::string& id, size_t row, long stride) {
  char* end = nullptr;
  long value = std::strtol(id.c_str(), &end, 10);
  if (id.empty() || *end != '\0') return id;
  return std::to_string(value + static_cast<long>(row) * stride);
}

std::string relId(size_t row, size_t k) {
  return "rIdMerge" + std::to_string(row + 1) + "h" + std::to_string(k + 1);
}

// A document without settings (some producers write none) gets an empty settings part.
std::string addSettingsPart(Package& package) {
  std::string part = Package::resolveTarget(package.mainPart(), "settings.xml");
  package.setBytes(
      part,
      "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
      "<w:settings xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\" "
      "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"/>");
  package.setContentTypeOverride(part, kTypeSettings);
  std::string relsName = Package::relsPartOf(package.mainPart());
  if (!package.has(relsName)) {
    package.setBytes(
        relsName,
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
        "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"/>");
  }
  pugi::xml_node rel = package.xml(relsName).document_element().append_child("Relationship");
  rel.append_attribute("Id").set_value("rIdSettings");
  rel.append_attribute("Type").set_value(std::string(kRelSettings).c_str());
  rel.append_attribute("Target").set_value("settings.xml");
  return part;
}

}  // namespace

std::string settingsPart(Package& package) {
  for (const auto& rel : package.relationships(package.mainPart())) {
    if (rel.type == kRelSettings && !rel.external) {
      return Package::resolveTarget(package.mainPart(), rel.target);
    }
  }
  return {};
}

bool isMainDocument(Package& package) {
  std::string part = settingsPart(package);
  if (part.empty() || !package.has(part)) return false;
  return static_cast<bool>(package.xml(part).document_element().child("w:mailMerge"));
}

std::optional<MailMergeLink> readMailMergeLink(Package& package) {
  std::string part = settingsPart(package);
  if (part.empty() || !package.has(part)) return std::nullopt;
  pugi::xml_node mm = package.xml(part).document_element().child("w:mailMerge");
  if (!mm) return std::nullopt;
  std::string id = mm.child("w:dataSource").attribute("r:id").value();
  if (id.empty()) return std::nullopt;
  MailMergeLink link;
  for (const auto& rel : package.relationships(part)) {
    if (rel.id == id) link.sourcePath = rel.target;
  }
  if (link.sourcePath.rfind("file:///", 0) == 0) link.sourcePath.erase(0, 7);
  if (link.sourcePath.empty()) return std::nullopt;
  std::string query = mm.child("w:query").attribute("w:val").value();
  size_t from = query.find("FROM ");
  if (from != std::string::npos) {
    std::string name = query.substr(from + 5);
    while (!name.empty() && (name.back() == ' ' || name.back() == ';')) name.pop_back();
    if (name.size() >= 2 && name.front() == '`' && name.back() == '`')
      name = name.substr(1, name.size() - 2);
    if (std::string_view(mm.child("w:dataType").attribute("w:val").value()) != "textFile") {
      link.table = name;
    }
  }
  return link;
}

void writeMailMergeLink(Package& package, const MailMergeLink& link) {
  std::string part = settingsPart(package);
  if (part.empty() || !package.has(part)) part = addSettingsPart(package);
  pugi::xml_node settings = package.xml(part).document_element();
  if (!settings.attribute("xmlns:r")) {
    settings.append_attribute("xmlns:r").set_value(
        "http://schemas.openxmlformats.org/officeDocument/2006/relationships");
  }
  pugi::xml_node mm = settings.child("w:mailMerge");
  if (!mm) {
    pugi::xml_node after;
    for (pugi::xml_node c : settings.children()) {
      if (comesBeforeMailMerge(c)) after = c;
    }
    mm = after ? settings.insert_child_after("w:mailMerge", after)
               : settings.prepend_child("w:mailMerge");
  }
  // The children this link owns are rewritten; the others (doNotSuppressBlankLines,
  // destination...) keep their place after them.
  for (const char* name : {"w:mainDocumentType", "w:linkToQuery", "w:dataType", "w:connectString",
                           "w:query", "w:dataSource"}) {
    while (pugi::xml_node c = mm.child(name)) mm.remove_child(c);
  }
  std::string relsName = Package::relsPartOf(part);
  if (!package.has(relsName)) {
    package.setBytes(
        relsName,
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
        "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"/>");
  }
  pugi::xml_node rels = package.xml(relsName).document_element();
  for (pugi::xml_node r = rels.first_child(); r;) {
    pugi::xml_node next = r.next_sibling();
    if (std::string_view(r.attribute("Type").value()) == kRelMailMergeSource) rels.remove_child(r);
    r = next;
  }
  std::string id = "rIdMergeSource";
  pugi::xml_node rel = rels.append_child("Relationship");
  rel.append_attribute("Id").set_value(id.c_str());
  rel.append_attribute("Type").set_value(std::string(kRelMailMergeSource).c_str());
  rel.append_attribute("Target").set_value(("file://" + link.sourcePath).c_str());
  rel.append_attribute("TargetMode").set_value("External");

  bool csv = link.table.empty();
  pugi::xml_node first = mm.first_child();
  auto add = [&](const char* name) {
    return first ? mm.insert_child_before(name, first) : mm.append_child(name);
  };
  add("w:mainDocumentType").append_attribute("w:val").set_value("formLetters");
  add("w:linkToQuery");
  add("w:dataType").append_attribute("w:val").set_value(csv ? "textFile" : "native");
  add("w:connectString")
      .append_attribute("w:val")
      .set_value(
          (csv ? std::string() : "Provider=SQLite;Data Source=" + link.sourcePath + ";").c_str());
  add("w:query").append_attribute("w:val").set_value(
      ("SELECT * FROM " + (csv ? link.sourcePath : "`" + link.table + "`")).c_str());
  add("w:dataSource").append_attribute("r:id").set_value(id.c_str());
}

void removeMailMergeLink(Package& package) {
  std::string part = settingsPart(package);
  if (!part.empty() && package.has(part)) {
    pugi::xml_node settings = package.xml(part).document_element();
    while (pugi::xml_node mm = settings.child("w:mailMerge")) settings.remove_child(mm);
  }
  // Relationships to the data source and to recipient data, wherever they hang.
  for (const std::string& source : {part, package.mainPart()}) {
    if (source.empty()) continue;
    std::string relsName = Package::relsPartOf(source);
    if (!package.has(relsName)) continue;
    pugi::xml_node rels = package.xml(relsName).document_element();
    for (pugi::xml_node r = rels.first_child(); r;) {
      pugi::xml_node next = r.next_sibling();
      std::string_view type = r.attribute("Type").value();
      if (type == kRelMailMergeSource || type == kRelRecipientData ||
          type.find("/mailMergeHeaderSource") != std::string_view::npos) {
        if (type == kRelRecipientData) {
          std::string target = Package::resolveTarget(source, r.attribute("Target").value());
          package.remove(target);
          package.remove(Package::relsPartOf(target));
          package.removeContentTypeOverride(target);
        }
        rels.remove_child(r);
      }
      r = next;
    }
  }
}

bool suppressesBlankLines(Package& package) {
  std::string part = settingsPart(package);
  if (part.empty() || !package.has(part)) return true;
  pugi::xml_node keep = package.xml(part).document_element().find_node(
      [](pugi::xml_node n) { return named(n, "w:doNotSuppressBlankLines"); });
  if (!keep) return true;
  std::string_view val = keep.attribute("w:val").value();
  return val == "0" || val == "false" || val == "off";
}

std::unique_ptr<Package> mergeDocument(Package& main, const MergeData& data) {
  const std::string mainPart = main.mainPart();
  const bool suppress = suppressesBlankLines(main);
  const size_t rows = data.rowCount();
  std::unique_ptr<Package> out = main.clone();
  removeMailMergeLink(*out);

  // The body.
  pugi::xml_document doc = parse(main.bytes(mainPart), mainPart);
  pugi::xml_node body = doc.document_element().child("w:body");
  if (!body) raise(ErrorNumber::kDocumentError, "the main document has no body");
  FieldMarkup markup;
  markup.markFields(body, suppress);
  pugi::xml_node finalSect = body.last_child();
  while (finalSect && finalSect.type() != pugi::node_element)
    finalSect = finalSect.previous_sibling();
  if (!finalSect || !named(finalSect, "w:sectPr")) {
    finalSect = body.append_child("w:sectPr");
  }
  pugi::xml_node firstSect = body.find_node(
      [](pugi::xml_node n) { return named(n, "w:sectPr") && named(n.parent(), "w:pPr"); });
  prepareSection(finalSect, !firstSect);
  if (firstSect) prepareSection(firstSect, true);
  // Each copy's drawing and bookmark ids move past the previous copy's.
  long drawingStride = 1, bookmarkStride = 1;
  IdSpan span(drawingStride, bookmarkStride);
  doc.traverse(span);
  FieldMarkup::markReferences(doc);
  CompiledXml sectXml = compileXml(serialize(finalSect));
  body.remove_child(finalSect);
  insertSplitMarker(body, body.first_child());
  insertSplitMarker(body, pugi::xml_node());
  auto [prefix, rest] = splitAtMarker(serialize(doc));
  auto [content, suffix] = splitAtMarker(rest);
  CompiledXml bodyXml = compileXml(content);
  std::vector<std::optional<size_t>> bodyColumns = columnsOf(markup.slots(), data);

  // Headers and footers.
  std::vector<HeaderTemplate> headers;
  for (const auto& rel : main.relationships(mainPart)) {
    bool header = rel.type == kRelHeader;
    if ((!header && rel.type != kRelFooter) || rel.external) continue;
    std::string part = Package::resolveTarget(mainPart, rel.target);
    if (!main.has(part)) continue;
    HeaderTemplate h;
    h.relId = rel.id;
    h.part = part;
    h.relType = rel.type;
    h.contentType = header ? kTypeHeader : kTypeFooter;
    pugi::xml_document hdoc = parse(main.bytes(part), part);
    h.markup.markFields(hdoc.document_element(), suppress);
    h.perRow = !h.markup.slots().empty() && rows > 0;
    if (!h.markup.slots().empty()) {
      h.xml = compileXml(serialize(hdoc));
      h.columns = columnsOf(h.markup.slots(), data);
    }
    if (!h.markup.slots().empty() && rows == 0) {
      // No record: the one header keeps its place, its fields empty, as in the body.
      RecordValues empty;
      empty.fill(h.markup.slots(), h.columns, nullptr);
      std::string xml;
      renderXml(xml, h.xml, empty, h.markup.groups(),
                [](RefKind, const std::string& original) { return original; });
      out->setBytes(part, std::move(xml));
    }
    headers.push_back(std::move(h));
  }
  std::unordered_map<std::string, size_t> perRowHeader;  // relationship id -> template
  for (size_t k = 0; k < headers.size(); ++k) {
    if (headers[k].perRow) perRowHeader.emplace(headers[k].relId, k);
  }

  // Footnotes, endnotes and comments, indexed by RefKind - kFootnote.
  NotesTemplate notes[3];
  if (rows > 0) {
    for (const auto& rel : main.relationships(mainPart)) {
      if (rel.external) continue;
      std::string part = Package::resolveTarget(mainPart, rel.target);
      if (rel.type == kRelFootnotes) {
        notes[0].active = notes[0].load(main, part, "w:footnote", "fn:", suppress, data);
      } else if (rel.type == kRelEndnotes) {
        notes[1].active = notes[1].load(main, part, "w:endnote", "en:", suppress, data);
      } else if (rel.type == kRelComments) {
        notes[2].active = notes[2].load(main, part, "w:comment", "cm:", suppress, data);
      }
    }
  }

  // The rows.
  // The body is written in blocks of about a megabyte: no copy of what is written, and blocks
  // small enough for the allocator to reuse instead of mapping fresh memory each time.
  constexpr size_t kBlockSize = 1 << 20;
  std::vector<std::string> blocks;
  std::string result;
  result.reserve(kBlockSize + kBlockSize / 8);
  result += prefix;
  RecordValues values, noteValues, headerValues;
  size_t row = 0;
  auto resolve = [&](RefKind kind, const std::string& original) -> std::string {
    switch (kind) {
      case RefKind::kRelationship: {
        auto it = perRowHeader.find(original);
        return it == perRowHeader.end() ? original : relId(row, it->second);
      }
      case RefKind::kFootnote:
      case RefKind::kEndnote:
      case RefKind::kComment: {
        const NotesTemplate& n =
            notes[static_cast<int>(kind) - static_cast<int>(RefKind::kFootnote)];
        return n.active ? n.idFor(original, row) : original;
      }
      case RefKind::kDrawing:
        return shifted(original, row, drawingStride);
      case RefKind::kBookmark:
        return shifted(original, row, bookmarkStride);
    }
    return original;
  };
  pugi::xml_node docRels;
  if (!perRowHeader.empty()) docRels = out->xml(Package::relsPartOf(mainPart)).document_element();
  size_t partCounter = 0;
  for (; row < rows; ++row) {
    const std::vector<Variant>& record = data.row(row);
    values.fill(markup.slots(), bodyColumns, &record);
    renderXml(result, bodyXml, values, markup.groups(), resolve);
    if (row + 1 < rows) {
      result += "<w:p><w:pPr>";
      renderXml(result, sectXml, values, markup.groups(), resolve);
      result += "</w:pPr></w:p>";
    } else {
      renderXml(result, sectXml, values, markup.groups(), resolve);
    }
    if (result.size() >= kBlockSize) {
      blocks.push_back(std::move(result));
      result = std::string();
      result.reserve(kBlockSize + kBlockSize / 8);
    }
    for (size_t k = 0; k < headers.size(); ++k) {
      const HeaderTemplate& h = headers[k];
      if (!h.perRow) continue;
      headerValues.fill(h.markup.slots(), h.columns, &record);
      std::string xml;
      renderXml(xml, h.xml, headerValues, h.markup.groups(), resolve);
      std::string name;
      const char* stem = h.relType == kRelHeader ? "word/header" : "word/footer";
      do {
        name = stem + std::to_string(++partCounter) + ".xml";
      } while (out->has(name));
      out->setBytes(name, std::move(xml));
      out->addContentTypeOverride(name, h.contentType);
      std::string ownRels = Package::relsPartOf(h.part);
      if (main.has(ownRels)) out->setBytes(Package::relsPartOf(name), main.bytes(ownRels));
      pugi::xml_node rel = docRels.append_child("Relationship");
      rel.append_attribute("Id").set_value(relId(row, k).c_str());
      rel.append_attribute("Type").set_value(h.relType.c_str());
      rel.append_attribute("Target").set_value(name.substr(5).c_str());
    }
    for (NotesTemplate& n : notes) {
      if (!n.active) continue;
      noteValues.fill(n.markup.slots(), n.columns, &record);
      renderXml(n.out, n.notes, noteValues, n.markup.groups(), resolve);
    }
  }
  if (rows == 0) {
    values.fill(markup.slots(), bodyColumns, nullptr);
    result += "<w:p/>";
    renderXml(result, sectXml, values, markup.groups(), resolve);
  }
  result += suffix;
  blocks.push_back(std::move(result));
  out->setFragments(mainPart, std::move(blocks));

  // The templates of per-row headers are no longer referenced.
  for (const HeaderTemplate& h : headers) {
    if (!h.perRow) continue;
    for (pugi::xml_node r = docRels.first_child(); r; r = r.next_sibling()) {
      if (h.relId == r.attribute("Id").value()) {
        docRels.remove_child(r);
        break;
      }
    }
    out->remove(h.part);
    out->remove(Package::relsPartOf(h.part));
    out->removeContentTypeOverride(h.part);
  }
  for (NotesTemplate& n : notes) {
    if (n.active) out->setBytes(n.part, n.head + n.out + n.tail);
  }
  return out;
}

}  // namespace nvwm::docx
