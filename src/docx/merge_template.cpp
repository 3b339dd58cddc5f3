// Merge fields found, replaced by markers, and compiled into chunks.
//
// A field in WordprocessingML takes one of two forms:
//
//   simple:   <w:fldSimple w:instr=" MERGEFIELD Name "> result runs </w:fldSimple>
//   complex:  <w:r><w:fldChar w:fldCharType="begin"/></w:r>
//             <w:r><w:instrText> MERGEFIELD </w:instrText></w:r> ... more instruction runs
//             <w:r><w:fldChar w:fldCharType="separate"/></w:r>
//             result runs, possibly over several paragraphs, possibly holding other fields
//             <w:r><w:fldChar w:fldCharType="end"/></w:r>
//
// The instruction of a complex field is the text of its own w:instrText runs, in document
// order, wherever they were cut. A field is replaced by one marker element <nvwmslot i="N"/>
// standing where its first run stood; everything from its begin run to its end run goes, and
// when that stretch crosses paragraphs the rest of the last paragraph joins the first one.
// Other fields (PAGE, IF, DATE...) stay as they are, with the merge fields inside them merged.
//
// Malformed input:
//   - An end or separate character without a begin is ignored; a begin without an end leaves
//     that field (and nothing else) untouched.
//   - A field whose stretch crosses containers other than paragraphs (from one table cell into
//     another, out of a text box) is left untouched: no safe merged form exists.
//   - An instruction that is not a MERGEFIELD, or a MERGEFIELD without a name, is left alone.
//   - Elements are recognised under the prefix "w:", as word processors write them.
#include "docx/merge_template.h"

#include <algorithm>
#include <cstring>
#include <unordered_set>

#include "runtime/error.h"
#include "docx/package.h"

namespace nvwm::docx {
namespace {

constexpr const char* kSlotElement = "nvwmslot";
constexpr const char* kGroupElement = "nvwmgroup";
constexpr const char* kGroupEndElement = "nvwmgroupend";
constexpr const char* kSplitElement = "nvwmsplit";
// Attribute values that become references start with this.
constexpr std::string_view kRefPrefix = "~nvwm~";

bool named(pugi::xml_node n, const char* name) { return std::strcmp(n.name(), name) == 0; }

bool attached(pugi::xml_node n) {
  while (n && n.type() != pugi::node_document) n = n.parent();
  return static_cast<bool>(n);
}

// The elements of a tree in document order (elements only).
template <class Visit>
void walk(pugi::xml_node root, Visit&& visit) {
  pugi::xml_node n = root.first_child();
  while (n) {
    if (n.type() == pugi::node_element) visit(n);
    if (n.type() == pugi::node_element && n.first_child()) {
      n = n.first_child();
      continue;
    }
    while (n && n != root && !n.next_sibling()) n = n.parent();
    if (!n || n == root) break;
    n = n.next_sibling();
  }
}

std::vector<pugi::xml_node> ancestry(pugi::xml_node n) {
  std::vector<pugi::xml_node> chain;
  for (; n; n = n.parent()) chain.push_back(n);
  std::reverse(chain.begin(), chain.end());  // root first
  return chain;
}

// Removes everything from first to last (both included, first before last in document
// order). Returns false, changing nothing, when the stretch crosses containers other than
// paragraphs.
bool removeStretch(pugi::xml_node first, pugi::xml_node last) {
  if (first.parent() == last.parent()) {
    pugi::xml_node parent = first.parent();
    for (pugi::xml_node n = first; n;) {
      pugi::xml_node next = n.next_sibling();
      bool done = n == last;
      parent.remove_child(n);
      if (done) break;
      n = next;
    }
    return true;
  }
  auto a = ancestry(first), b = ancestry(last);
  size_t common = 0;
  while (common < a.size() && common < b.size() && a[common] == b[common]) ++common;
  if (common == 0 || common >= a.size() || common >= b.size()) return false;
  pugi::xml_node aTop = a[common], bTop = b[common];
  bool crossesParagraphs = aTop != first && bTop != last;
  if (crossesParagraphs && !(named(aTop, "w:p") && named(bTop, "w:p"))) return false;
  // Inside aTop: first and what follows it at each level.
  for (size_t level = a.size() - 1; level > common; --level) {
    pugi::xml_node n = a[level];
    pugi::xml_node parent = n.parent();
    for (pugi::xml_node s = n.next_sibling(); s;) {
      pugi::xml_node next = s.next_sibling();
      parent.remove_child(s);
      s = next;
    }
    if (level == a.size() - 1) parent.remove_child(n);
  }
  // Between the two tops.
  pugi::xml_node parent = aTop.parent();
  for (pugi::xml_node s = aTop.next_sibling(); s && s != bTop;) {
    pugi::xml_node next = s.next_sibling();
    parent.remove_child(s);
    s = next;
  }
  // Inside bTop: last and what precedes it at each level.
  for (size_t level = b.size() - 1; level > common; --level) {
    pugi::xml_node n = b[level];
    pugi::xml_node p = n.parent();
    for (pugi::xml_node s = n.previous_sibling(); s;) {
      pugi::xml_node prev = s.previous_sibling();
      if (!(level == common + 1 && named(s, "w:pPr"))) p.remove_child(s);
      s = prev;
    }
    if (level == b.size() - 1) p.remove_child(n);
  }
  if (aTop == first) parent.remove_child(aTop);
  if (bTop == last) {
    parent.remove_child(bTop);
    return true;
  }
  if (aTop == first) return true;  // the rest of bTop stays where it is
  // Both tops are paragraphs: the rest of the last one joins the first.
  for (pugi::xml_node s = bTop.first_child(); s;) {
    pugi::xml_node next = s.next_sibling();
    if (!named(s, "w:pPr")) aTop.append_move(s);
    s = next;
  }
  parent.remove_child(bTop);
  return true;
}

std::string runPropertiesOf(pugi::xml_node run) {
  if (!run) return {};
  pugi::xml_node rPr = run.child("w:rPr");
  return rPr ? serialize(rPr) : std::string();
}

// Elements that make a paragraph more than its merge fields.
bool isContent(pugi::xml_node n) {
  static const std::unordered_set<std::string_view> kContent = {"w:tab",
                                                                "w:br",
                                                                "w:cr",
                                                                "w:drawing",
                                                                "w:pict",
                                                                "w:object",
                                                                "w:sym",
                                                                "w:fldChar",
                                                                "w:instrText",
                                                                "w:fldSimple",
                                                                "w:footnoteReference",
                                                                "w:endnoteReference",
                                                                "w:ptab",
                                                                "w:noBreakHyphen",
                                                                "w:softHyphen",
                                                                "w:dayShort",
                                                                "w:monthShort",
                                                                "w:yearShort",
                                                                "w:dayLong",
                                                                "w:monthLong",
                                                                "w:yearLong",
                                                                "w:pgNum",
                                                                "w:separator",
                                                                "mc:AlternateContent",
                                                                "w:sectPr",
                                                                "m:oMath",
                                                                "m:oMathPara",
                                                                "w:commentReference"};
  if (named(n, "w:t")) return n.first_child() && *n.child_value() != '\0';
  return kContent.count(n.name()) > 0;
}

}  // namespace

uint32_t FieldMarkup::addSlot(FieldSlot slot, pugi::xml_node before) {
  uint32_t index = static_cast<uint32_t>(slots_.size());
  slots_.push_back(std::move(slot));
  pugi::xml_node marker = before.parent().insert_child_before(kSlotElement, before);
  marker.append_attribute("i").set_value(index);
  return index;
}

void FieldMarkup::markFields(pugi::xml_node root, bool suppressBlankLines) {
  markComplexFields(root);
  markSimpleFields(root);
  if (suppressBlankLines) wrapBlankLines(root);
}

void FieldMarkup::markComplexFields(pugi::xml_node root) {
  struct Frame {
    pugi::xml_node begin, end;
    pugi::xml_node firstInstructionRun, firstResultRun;
    std::string instruction;
    bool inResult = false;
    bool insideInstruction = false;  // this field stands in another one's instruction
  };
  std::vector<Frame> open;
  std::vector<Frame> done;
  walk(root, [&](pugi::xml_node n) {
    if (named(n, "w:fldChar")) {
      std::string_view type = n.attribute("w:fldCharType").value();
      pugi::xml_node run = n.parent();
      if (type == "begin") {
        Frame f;
        f.begin = run;
        f.insideInstruction = !open.empty() && !open.back().inResult;
        open.push_back(std::move(f));
      } else if (type == "separate" && !open.empty()) {
        open.back().inResult = true;
      } else if (type == "end" && !open.empty()) {
        open.back().end = run;
        done.push_back(std::move(open.back()));
        open.pop_back();
      }
    } else if (named(n, "w:fldSimple") && !open.empty() && !open.back().inResult) {
      simpleInInstruction_.insert(n.internal_object());
    } else if (named(n, "w:instrText") && !open.empty() && !open.back().inResult) {
      Frame& f = open.back();
      f.instruction += n.child_value();
      if (!f.firstInstructionRun) f.firstInstructionRun = n.parent();
    } else if (named(n, "w:t") && !open.empty() && open.back().inResult &&
               !open.back().firstResultRun && named(n.parent(), "w:r")) {
      open.back().firstResultRun = n.parent();
    }
  });
  for (Frame& f : done) {
    if (!attached(f.begin) || !attached(f.end)) continue;
    auto code = parseMergeField(f.instruction);
    if (!code) continue;
    FieldSlot slot;
    slot.inInstruction = f.insideInstruction;
    pugi::xml_node formatRun =
        code->charFormat() || !f.firstResultRun ? f.firstInstructionRun : f.firstResultRun;
    if (!formatRun) formatRun = f.begin;
    slot.runProperties = runPropertiesOf(formatRun);
    slot.code = std::move(*code);
    // The marker goes in first so that the stretch can be checked and removed around it.
    addSlot(std::move(slot), f.begin);
    pugi::xml_node marker = f.begin.previous_sibling();
    if (!removeStretch(f.begin, f.end)) {
      marker.parent().remove_child(marker);
      slots_.pop_back();
    }
  }
}

void FieldMarkup::markSimpleFields(pugi::xml_node root) {
  std::vector<pugi::xml_node> simple;
  walk(root, [&](pugi::xml_node n) {
    if (named(n, "w:fldSimple")) simple.push_back(n);
  });
  for (pugi::xml_node n : simple) {
    if (!attached(n)) continue;
    auto code = parseMergeField(n.attribute("w:instr").value());
    if (!code) continue;
    FieldSlot slot;
    slot.inInstruction = simpleInInstruction_.count(n.internal_object()) > 0;
    slot.runProperties =
        runPropertiesOf(n.find_node([](pugi::xml_node c) { return named(c, "w:r"); }));
    slot.code = std::move(*code);
    addSlot(std::move(slot), n);
    n.parent().remove_child(n);
  }
}

void FieldMarkup::wrapBlankLines(pugi::xml_node root) {
  std::vector<pugi::xml_node> paragraphs;
  walk(root, [&](pugi::xml_node n) {
    if (named(n, "w:p") && n.find_node([](pugi::xml_node c) { return named(c, kSlotElement); })) {
      paragraphs.push_back(n);
    }
  });
  for (pugi::xml_node p : paragraphs) {
    // A cell, text box, header or note must keep a paragraph at its end: its last one stays.
    if (!named(p.parent(), "w:body")) {
      pugi::xml_node last;
      for (pugi::xml_node s : p.parent().children("w:p")) last = s;
      if (last == p) continue;
    }
    SlotGroup group;
    bool content = false;
    walk(p, [&](pugi::xml_node n) {
      if (named(n, kSlotElement)) {
        group.slots.push_back(n.attribute("i").as_uint());
      } else if (isContent(n)) {
        content = true;
      }
    });
    if (content || group.slots.empty()) continue;
    uint32_t index = static_cast<uint32_t>(groups_.size());
    groups_.push_back(std::move(group));
    p.parent().insert_child_before(kGroupElement, p).append_attribute("i").set_value(index);
    p.parent().insert_child_after(kGroupEndElement, p);
  }
}

void FieldMarkup::markReferences(pugi::xml_node root) {
  walk(root, [&](pugi::xml_node n) {
    auto mark = [&](const char* attributeName, std::string_view kind) {
      pugi::xml_attribute a = n.attribute(attributeName);
      if (!a) return;
      std::string value = std::string(kRefPrefix) + std::string(kind) + ":" + a.value();
      a.set_value(value.c_str());
    };
    if (named(n, "w:headerReference") || named(n, "w:footerReference"))
      mark("r:id", "rel");
    else if (named(n, "w:footnoteReference"))
      mark("w:id", "fn");
    else if (named(n, "w:endnoteReference"))
      mark("w:id", "en");
    else if (named(n, "w:commentReference") || named(n, "w:commentRangeStart") ||
             named(n, "w:commentRangeEnd"))
      mark("w:id", "cm");
    else if (named(n, "wp:docPr"))
      mark("id", "dp");
    else if (named(n, "w:bookmarkStart") || named(n, "w:bookmarkEnd"))
      mark("w:id", "bm");
  });
}

void insertSplitMarker(pugi::xml_node parent, pugi::xml_node before) {
  if (before)
    parent.insert_child_before(kSplitElement, before);
  else
    parent.append_child(kSplitElement);
}

std::pair<std::string, std::string> splitAtMarker(std::string_view xml) {
  std::string open = std::string("<") + kSplitElement;
  size_t at = xml.find(open);
  if (at == std::string_view::npos) raise(ErrorNumber::kInternalError, "split marker lost");
  size_t end = xml.find('>', at);
  return {std::string(xml.substr(0, at)), std::string(xml.substr(end + 1))};
}

CompiledXml compileXml(std::string_view xml) {
  CompiledXml out;
  auto text = [&](std::string_view chunk) {
    if (chunk.empty()) return;
    if (!out.ops.empty() && out.ops.back().kind == CompiledXml::OpKind::kText) {
      out.ops.back().text.append(chunk);
    } else {
      out.ops.push_back(
          {CompiledXml::OpKind::kText, RefKind::kRelationship, 0, std::string(chunk)});
    }
  };
  size_t pos = 0;
  while (pos < xml.size()) {
    size_t element = xml.find("<nvwm", pos);
    size_t ref = xml.find(kRefPrefix, pos);
    size_t next = std::min(element, ref);
    if (next == std::string_view::npos) {
      text(xml.substr(pos));
      break;
    }
    text(xml.substr(pos, next - pos));
    if (next == element) {
      size_t end = xml.find('>', next);
      std::string_view tag = xml.substr(next + 1, end - next - 1);
      auto number = [&] {
        size_t q = tag.find('"');
        return q == std::string_view::npos
                   ? 0u
                   : static_cast<uint32_t>(std::stoul(std::string(tag.substr(q + 1))));
      };
      CompiledXml::Op op{};
      if (tag.rfind(kGroupEndElement, 0) == 0)
        op.kind = CompiledXml::OpKind::kGroupEnd;
      else if (tag.rfind(kGroupElement, 0) == 0)
        op.kind = CompiledXml::OpKind::kGroupBegin, op.index = number();
      else
        op.kind = CompiledXml::OpKind::kSlot, op.index = number();
      out.ops.push_back(std::move(op));
      pos = end + 1;
    } else {
      size_t colon = xml.find(':', next);
      size_t quote = xml.find('"', colon);
      std::string_view kind =
          xml.substr(next + kRefPrefix.size(), colon - next - kRefPrefix.size());
      CompiledXml::Op op{};
      op.kind = CompiledXml::OpKind::kRef;
      op.refKind = kind == "fn"   ? RefKind::kFootnote
                   : kind == "en" ? RefKind::kEndnote
                   : kind == "cm" ? RefKind::kComment
                   : kind == "dp" ? RefKind::kDrawing
                   : kind == "bm" ? RefKind::kBookmark
                                  : RefKind::kRelationship;
      op.text = std::string(xml.substr(colon + 1, quote - colon - 1));
      out.ops.push_back(std::move(op));
      pos = quote;
    }
  }
  return out;
}

void appendRuns(std::string& out, std::string_view runProperties, std::string_view text,
                bool asInstruction) {
  if (text.empty()) return;
  const char* open =
      asInstruction ? "<w:instrText xml:space=\"preserve\">" : "<w:t xml:space=\"preserve\">";
  const char* close = asInstruction ? "</w:instrText>" : "</w:t>";
  out += "<w:r>";
  out += runProperties;
  bool inText = false;
  for (size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (c == '\r' || c == '\n' || c == '\v' || c == '\t') {
      if (inText) out += close, inText = false;
      if (c == '\t') {
        out += "<w:tab/>";
      } else {
        if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
        out += "<w:br/>";
      }
      continue;
    }
    if (!inText) out += open, inText = true;
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      default:
        // Other control characters are not allowed in XML text.
        if (static_cast<unsigned char>(c) >= 0x20) out += c;
    }
  }
  if (inText) out += close;
  out += "</w:r>";
}

void RecordValues::fill(const std::vector<FieldSlot>& slots,
                        const std::vector<std::optional<size_t>>& columns,
                        const std::vector<Variant>* row) {
  runs_.resize(slots.size());
  static const Variant kEmpty;
  for (size_t i = 0; i < slots.size(); ++i) {
    runs_[i].clear();
    const FieldSlot& slot = slots[i];
    if (!columns[i]) {
      appendRuns(runs_[i], slot.runProperties, kMissingFieldText, slot.inInstruction);
      continue;
    }
    const Variant& value = row ? (*row)[*columns[i]] : kEmpty;
    appendRuns(runs_[i], slot.runProperties, formatMergeValue(slot.code, value),
               slot.inInstruction);
  }
}

void renderXml(std::string& out, const CompiledXml& xml, const RecordValues& values,
               const std::vector<SlotGroup>& groups,
               const std::function<std::string(RefKind, const std::string&)>& resolve) {
  const auto& ops = xml.ops;
  for (size_t i = 0; i < ops.size(); ++i) {
    const auto& op = ops[i];
    switch (op.kind) {
      case CompiledXml::OpKind::kText:
        out += op.text;
        break;
      case CompiledXml::OpKind::kSlot:
        out += values.runs(op.index);
        break;
      case CompiledXml::OpKind::kGroupEnd:
        break;
      case CompiledXml::OpKind::kRef:
        out += resolve(op.refKind, op.text);
        break;
      case CompiledXml::OpKind::kGroupBegin: {
        const auto& slots = groups[op.index].slots;
        bool blank =
            std::all_of(slots.begin(), slots.end(), [&](uint32_t s) { return values.empty(s); });
        if (blank) {
          while (i + 1 < ops.size() && ops[i + 1].kind != CompiledXml::OpKind::kGroupEnd) ++i;
        }
        break;
      }
    }
  }
}

}  // namespace nvwm::docx
