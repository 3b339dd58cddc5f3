// The main document compiled for merging, one chapter per kind of part: the body, the headers
// and footers, the notes.
//
// A part is parsed once; its merge fields are found and cut out of that private tree
// (template_fields.h); then one walk over the tree writes the operations: every node that
// stands for nothing is written as XML into the current fixed piece, a node that stands for a
// field becomes a field operation, a blank-line paragraph is bracketed by a group, and an
// attribute that each copy renumbers becomes a reference. The work is linear in the size of
// the part, whatever the number of fields.
#include "docx/compile_template.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "docx/field_code.h"
#include "docx/template_fields.h"
#include "docx/xml_characters.h"
#include "docx/xml_tree.h"
#include "docx/xml_writer.h"
#include "runtime/error.h"

namespace nvwm::docx {
namespace {

using ParagraphIds = std::unordered_map<std::string, uint32_t>;

// A character XML 1.0 forbids would be written out again and spoil the merged document.
void checkCharacters(const std::string& bytes, const std::string& partName) {
  std::optional<ForbiddenCharacter> bad = findForbiddenCharacter(bytes);
  if (!bad) return;
  char code[16];
  std::snprintf(code, sizeof code, "U+%04X", static_cast<unsigned>(bad->codePoint));
  raise(ErrorNumber::kDocumentError, "part " + partName + " holds " + code + " at byte " +
                                         std::to_string(bad->offset) +
                                         ", a character XML 1.0 forbids");
}

pugi::xml_document parse(const std::string& bytes, const std::string& partName) {
  checkCharacters(bytes, partName);
  pugi::xml_document doc;
  pugi::xml_parse_result r =
      doc.load_buffer(bytes.data(), bytes.size(), kParseFlags, pugi::encoding_utf8);
  if (!r) {
    raise(ErrorNumber::kDocumentError,
          "part " + partName + " is not well-formed XML (" + r.description() + ")");
  }
  return doc;
}

// The attributes that a copy renumbers, by element; an element of nullptr: on any element.
struct ReferenceRule {
  const char* element;
  const char* attribute;
  RefKind kind;
};
constexpr ReferenceRule kReferenceRules[] = {
    {"w:headerReference", "r:id", RefKind::kRelationship},
    {"w:footerReference", "r:id", RefKind::kRelationship},
    {"w:footnoteReference", "w:id", RefKind::kFootnote},
    {"w:endnoteReference", "w:id", RefKind::kEndnote},
    {"w:commentReference", "w:id", RefKind::kComment},
    {"w:commentRangeStart", "w:id", RefKind::kComment},
    {"w:commentRangeEnd", "w:id", RefKind::kComment},
    {"wp:docPr", "id", RefKind::kDrawing},
    {"w:bookmarkStart", "w:id", RefKind::kBookmark},
    {"w:bookmarkStart", "w:name", RefKind::kBookmarkName},
    {"w:bookmarkEnd", "w:id", RefKind::kBookmark},
    {"w:hyperlink", "w:anchor", RefKind::kBookmarkName},
    {nullptr, "w14:paraId", RefKind::kParagraphId},
    // The notes themselves, in their own parts.
    {"w:footnote", "w:id", RefKind::kFootnote},
    {"w:endnote", "w:id", RefKind::kEndnote},
    {"w:comment", "w:id", RefKind::kComment},
};

// The kind of reference an attribute of the element is, if it is one.
std::optional<RefKind> referenceKindOf(pugi::xml_node element, const char* attribute) {
  for (const ReferenceRule& rule : kReferenceRules) {
    if (std::strcmp(rule.attribute, attribute) == 0 &&
        (!rule.element || named(element, rule.element))) {
      return rule.kind;
    }
  }
  return std::nullopt;
}

bool hasReference(pugi::xml_node element, bool allKinds) {
  for (pugi::xml_attribute a : element.attributes()) {
    std::optional<RefKind> kind = referenceKindOf(element, a.name());
    if (kind && (allKinds || *kind == RefKind::kParagraphId)) return true;
  }
  return false;
}

// Where the bookmark name of a REF, PAGEREF or NOTEREF instruction stands in it (offset,
// size), when the instruction is whole in this text. A name in quotes or cut over runs is
// left as written.
std::optional<std::pair<size_t, size_t>> bookmarkNameIn(std::string_view instruction) {
  std::string keyword = fieldKeyword(instruction);
  if (keyword != "REF" && keyword != "PAGEREF" && keyword != "NOTEREF") return std::nullopt;
  size_t pos = instruction.find_first_not_of(" \t\r\n");
  pos = instruction.find_first_of(" \t\r\n", pos);
  if (pos == std::string_view::npos) return std::nullopt;
  pos = instruction.find_first_not_of(" \t\r\n", pos);
  if (pos == std::string_view::npos || instruction[pos] == '"' || instruction[pos] == '\\')
    return std::nullopt;
  size_t end = instruction.find_first_of(" \t\r\n\\", pos);
  if (end == std::string_view::npos) end = instruction.size();
  return std::pair{pos, end - pos};
}

// Writes subtrees of a parsed part into a program.
class ProgramWriter {
 public:
  // fields: the places found in the tree (their indices are the program's fields).
  // references: attributes of kReferenceRules become references; else only paragraph ids do.
  // paragraphIds: where each paragraph id met is given its ordinal (CompiledTemplate).
  ProgramWriter(MergeProgram& program, const TemplateFields& fields, bool references,
                std::unordered_map<std::string, uint32_t>& paragraphIds)
      : program_(program), fields_(fields), references_(references), paragraphIds_(paragraphIds) {}

  // A node and its subtree.
  void node(pugi::xml_node n) {
    if (enter(n)) walk(n);
    leave(n);
  }
  // The children of a node, but `except`.
  void children(pugi::xml_node parent, pugi::xml_node except = pugi::xml_node()) {
    for (pugi::xml_node c = parent.first_child(); c; c = c.next_sibling()) {
      if (c != except) node(c);
    }
  }

 private:
  void walk(pugi::xml_node n) {
    traverse(
        n, [&](pugi::xml_node c) { return enter(c); }, [&](pugi::xml_node c) { leave(c); });
  }

  // One lookup per node on the way down; the way up reads what it found.
  bool enter(pugi::xml_node n) {
    if (n.type() != pugi::node_element) {
      if (references_ && n.type() == pugi::node_pcdata && named(n.parent(), "w:instrText")) {
        if (auto name = bookmarkNameIn(n.value())) {
          writeInstruction(n.value(), *name, false);
          return false;
        }
      }
      appendOpening(program_.xml(), n, true);
      return false;
    }
    if (named(n, "w:p")) {
      if (auto group = fields_.groupAt(n)) {
        openGroups_.push_back({n, program_.beginGroup(*group)});
      }
    }
    if (auto plan = fields_.planAt(n)) {
      standIn_ = n;
      writePlan(*plan);
      return false;
    }
    if (references_ && named(n, "w:fldSimple")) {
      pugi::xml_attribute instr = n.attribute("w:instr");
      if (auto name = bookmarkNameIn(instr.value())) {
        std::string& out = program_.xml();
        out += '<';
        out += n.name();
        for (pugi::xml_attribute a : n.attributes()) {
          if (a != instr) {
            appendAttribute(out, a);
            continue;
          }
          out += " w:instr=\"";
          writeInstruction(a.value(), *name, true);
          program_.xml() += '"';
        }
        program_.xml() += n.first_child() ? ">" : "/>";
        return static_cast<bool>(n.first_child());
      }
    }
    bool leaf = !n.first_child();
    if (!hasReference(n, references_)) {
      appendOpening(program_.xml(), n, leaf);
      return !leaf;
    }
    std::string& out = program_.xml();
    out += '<';
    out += n.name();
    for (pugi::xml_attribute a : n.attributes()) {
      std::optional<RefKind> kind = referenceKindOf(n, a.name());
      if (!kind || (!references_ && *kind != RefKind::kParagraphId)) {
        appendAttribute(out, a);
        continue;
      }
      out += ' ';
      out += a.name();
      out += "=\"";
      if (*kind == RefKind::kParagraphId) {
        paragraphIds_.emplace(a.value(), static_cast<uint32_t>(paragraphIds_.size()));
      }
      program_.appendReference(*kind, a.value());  // appends to out
      out += '"';
    }
    out += leaf ? "/>" : ">";
    return !leaf;
  }

  // An instruction that names a bookmark, the name a reference (each copy points at its own).
  void writeInstruction(std::string_view text, std::pair<size_t, size_t> name, bool attribute) {
    auto escaped = [&](std::string_view piece) {
      if (attribute)
        appendEscapedAttribute(program_.xml(), piece);
      else
        appendEscapedText(program_.xml(), piece);
    };
    escaped(text.substr(0, name.first));
    program_.appendReference(RefKind::kBookmarkName, text.substr(name.first, name.second));
    escaped(text.substr(name.first + name.second));
  }

  // What a field becomes: its value, its record moves, or an IF's test and its two results:
  //   kIf(condition) -> else; result-if-true; kJump -> end; else: result-if-false; end:
  // The nesting is as deep as the template's, which TemplateFields bounds.
  void writePlan(uint32_t index) {
    const FieldPlan& plan = fields_.plan(index);
    switch (plan.kind) {
      case FieldPlan::Kind::kValue:
        program_.appendField(plan.index);
        break;
      case FieldPlan::Kind::kNextRecord:
        program_.appendControl(OpKind::kNextRecord);
        break;
      case FieldPlan::Kind::kNextIf:
        program_.appendControl(OpKind::kNextIf, plan.index);
        break;
      case FieldPlan::Kind::kSkipIf:
        program_.appendControl(OpKind::kSkipIf, plan.index);
        break;
      case FieldPlan::Kind::kSet:
        program_.appendControl(OpKind::kSet, plan.index);
        break;
      case FieldPlan::Kind::kIf: {
        uint32_t test = program_.appendControl(OpKind::kIf, plan.index);
        writePieces(plan.whenTrue);
        uint32_t jump = program_.appendControl(OpKind::kJump);
        program_.landHere(test);
        writePieces(plan.whenFalse);
        program_.landHere(jump);
        break;
      }
    }
  }

  void writePieces(const std::vector<FieldPlan::Piece>& pieces) {
    for (const FieldPlan::Piece& piece : pieces) {
      if (piece.plan >= 0)
        writePlan(static_cast<uint32_t>(piece.plan));
      else
        program_.xml() += piece.runs;
    }
  }

  void leave(pugi::xml_node n) {
    if (n != standIn_) appendClosing(program_.xml(), n, !n.first_child());
    if (!openGroups_.empty() && openGroups_.back().paragraph == n) {
      program_.endGroup(openGroups_.back().beginOp);
      openGroups_.pop_back();
    }
  }

  MergeProgram& program_;
  const TemplateFields& fields_;
  bool references_;
  std::unordered_map<std::string, uint32_t>& paragraphIds_;
  struct OpenGroup {
    pugi::xml_node paragraph;
    uint32_t beginOp;
  };
  std::vector<OpenGroup> openGroups_;
  pugi::xml_node standIn_;  // the last node that stood for a field
};

// The XML before and after a node's children: the documents's nodes before it, the start
// tags down to it, and the same after.
void surroundings(pugi::xml_node inner, std::string& before, std::string& after) {
  std::vector<pugi::xml_node> chain;  // the top element first, inner last
  for (pugi::xml_node n = inner; n && n.type() != pugi::node_document; n = n.parent()) {
    chain.push_back(n);
  }
  std::reverse(chain.begin(), chain.end());
  for (pugi::xml_node n : chain) {
    for (pugi::xml_node s = n.parent().first_child(); s != n; s = s.next_sibling()) {
      appendNode(before, s);
    }
    appendOpening(before, n, false);
  }
  for (auto it = chain.rbegin(); it != chain.rend(); ++it) {
    appendClosing(after, *it, false);
    for (pugi::xml_node s = it->next_sibling(); s; s = s.next_sibling()) appendNode(after, s);
  }
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

// Section properties of a copy's section: a next-page break, and page numbers from 1 when
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

// The largest drawing and bookmark ids of a tree, plus one: how far each copy moves them on.
void idStrides(pugi::xml_node root, long& drawing, long& bookmark) {
  forEachElement(root, [&](pugi::xml_node n) {
    if (named(n, "wp:docPr")) {
      drawing = std::max(drawing, static_cast<long>(n.attribute("id").as_llong()) + 1);
    } else if (named(n, "w:bookmarkStart")) {
      bookmark = std::max(bookmark, static_cast<long>(n.attribute("w:id").as_llong()) + 1);
    }
  });
}

// ---- The body ----

CompiledBody compileBody(Package& main, bool suppress, ParagraphIds& paragraphIds) {
  const std::string& mainPart = main.mainPart();
  CompiledBody out;
  pugi::xml_document doc = parse(main.bytes(mainPart), mainPart);
  pugi::xml_node body = doc.document_element().child("w:body");
  if (!body) raise(ErrorNumber::kDocumentError, "the main document has no body");
  TemplateFields fields;
  fields.find(body, suppress, out.content);
  pugi::xml_node finalSect = body.last_child();
  while (finalSect && finalSect.type() != pugi::node_element)
    finalSect = finalSect.previous_sibling();
  if (!finalSect || !named(finalSect, "w:sectPr")) finalSect = body.append_child("w:sectPr");
  pugi::xml_node firstSect = body.find_node(
      [](pugi::xml_node n) { return named(n, "w:sectPr") && named(n.parent(), "w:pPr"); });
  prepareSection(finalSect, !firstSect);
  if (firstSect) prepareSection(firstSect, true);
  idStrides(doc, out.drawingStride, out.bookmarkStride);

  surroundings(body, out.prefix, out.suffix);
  ProgramWriter content(out.content, fields, true, paragraphIds);
  content.children(body, finalSect);
  out.content.finish();
  // Section properties hold no fields; anything that looks like one there stays as it is.
  TemplateFields none;
  ProgramWriter section(out.section, none, true, paragraphIds);
  section.node(finalSect);
  out.section.finish();
  return out;
}

// ---- Headers and footers ----

std::vector<CompiledHeader> compileHeaders(Package& main, bool suppress,
                                           ParagraphIds& paragraphIds) {
  const std::string& mainPart = main.mainPart();
  std::vector<CompiledHeader> headers;
  size_t ordinal = 0;
  for (const auto& rel : main.relationships(mainPart)) {
    bool header = rel.type == kRelHeader;
    if ((!header && rel.type != kRelFooter) || rel.external) continue;
    std::string part = Package::resolveTarget(mainPart, rel.target);
    if (!main.has(part)) continue;
    CompiledHeader h;
    h.ordinal = ordinal++;
    pugi::xml_document doc = parse(main.bytes(part), part);
    TemplateFields fields;
    fields.find(doc.document_element(), suppress, h.program);
    if (!h.program.hasFields()) continue;  // shared by every copy as it is
    ProgramWriter writer(h.program, fields, false, paragraphIds);
    writer.children(doc);
    h.program.finish();
    h.relId = rel.id;
    h.part = part;
    h.relType = rel.type;
    h.contentType = header ? kTypeHeader : kTypeFooter;
    std::string ownRels = Package::relsPartOf(part);
    if (main.has(ownRels)) h.ownRels = main.bytes(ownRels);
    headers.push_back(std::move(h));
  }
  return headers;
}

// ---- Footnotes, endnotes and comments ----

std::optional<CompiledNotes> compileNotes(Package& main, const std::string& part,
                                          const char* element, RefKind kind, bool suppress,
                                          ParagraphIds& paragraphIds) {
  if (part.empty() || !main.has(part)) return std::nullopt;
  pugi::xml_document doc = parse(main.bytes(part), part);
  pugi::xml_node root = doc.document_element();
  std::vector<pugi::xml_node> normal;
  long maxId = 0;
  for (pugi::xml_node n : root.children(element)) {
    maxId = std::max(maxId, std::max(0L, static_cast<long>(n.attribute("w:id").as_llong())));
    std::string_view type = n.attribute("w:type").value();
    if (type.empty() || type == "normal") normal.push_back(n);
  }
  if (normal.empty()) return std::nullopt;
  CompiledNotes out;
  out.kind = kind;
  out.part = part;
  out.base = maxId + 1;
  out.count = static_cast<long>(normal.size());
  TemplateFields fields;
  for (pugi::xml_node n : normal) fields.find(n, suppress, out.notes);
  ProgramWriter writer(out.notes, fields, true, paragraphIds);
  for (pugi::xml_node n : normal) {
    out.indexOf.emplace(n.attribute("w:id").value(), static_cast<long>(out.indexOf.size()));
    writer.node(n);
  }
  out.notes.finish();
  // The separators and other special notes stay where they are, around the copies' notes.
  std::string before, after;
  surroundings(root, before, after);
  out.head = std::move(before);
  std::unordered_set<const void*> normalNodes;
  for (pugi::xml_node n : normal) normalNodes.insert(n.internal_object());
  bool seenNormal = false;
  for (pugi::xml_node c = root.first_child(); c; c = c.next_sibling()) {
    bool isNormal = normalNodes.count(c.internal_object()) > 0;
    seenNormal = seenNormal || isNormal;
    if (!isNormal) appendNode(seenNormal ? out.tail : out.head, c);
  }
  out.tail += after;
  return out;
}

}  // namespace

std::string CompiledNotes::idFor(std::string_view original, size_t copy) const {
  auto it = indexOf.find(std::string(original));
  if (it == indexOf.end()) return std::string(original);
  return std::to_string(base + static_cast<long>(copy) * count + it->second);
}

std::string CompiledTemplate::paragraphIdFor(std::string_view original, size_t copy) const {
  auto it = paragraphIds.find(std::string(original));
  if (it == paragraphIds.end()) return std::string(original);
  // Eight hex digits below 0x80000000, never 0, as Word writes them.
  uint64_t value = 1 + (copy * paragraphIds.size() + it->second) % 0x7FFFFFFE;
  char text[16];
  std::snprintf(text, sizeof text, "%08X", static_cast<unsigned>(value));
  return text;
}

const CompiledNotes* CompiledTemplate::notesOf(RefKind kind) const {
  for (const CompiledNotes& n : notes) {
    if (n.kind == kind) return &n;
  }
  return nullptr;
}

CompiledTemplate compileTemplate(Package& main, bool suppressBlankLines) {
  CompiledTemplate out;
  out.mainPart = main.mainPart();
  for (std::string& name : main.partNames()) out.partNames.insert(std::move(name));
  out.body = compileBody(main, suppressBlankLines, out.paragraphIds);
  out.headers = compileHeaders(main, suppressBlankLines, out.paragraphIds);
  for (const auto& rel : main.relationships(out.mainPart)) {
    if (rel.external) continue;
    std::string part = Package::resolveTarget(out.mainPart, rel.target);
    std::optional<CompiledNotes> notes;
    if (rel.type == kRelFootnotes) {
      notes = compileNotes(main, part, "w:footnote", RefKind::kFootnote, suppressBlankLines,
                           out.paragraphIds);
    } else if (rel.type == kRelEndnotes) {
      notes = compileNotes(main, part, "w:endnote", RefKind::kEndnote, suppressBlankLines,
                           out.paragraphIds);
    } else if (rel.type == kRelComments) {
      notes = compileNotes(main, part, "w:comment", RefKind::kComment, suppressBlankLines,
                           out.paragraphIds);
    }
    if (notes && !out.notesOf(notes->kind)) out.notes.push_back(std::move(*notes));
  }
  return out;
}

}  // namespace nvwm::docx
