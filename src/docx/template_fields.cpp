// Merge fields found in a part's tree and cut out of it.
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
// order, wherever they were cut. A simple field stands for itself. Of a complex field, its
// begin run stays to stand for it and everything after it up to its end run goes; when that
// stretch crosses paragraphs the rest of the last paragraph joins the first one. Other fields
// (PAGE, IF, DATE...) stay as they are, with the merge fields inside them found.
//
// What goes is moved into a scratch element of the document until the search is done, so that
// no node a later step still holds is freed under it.
//
// Malformed input:
//   - An end or separate character without a begin is ignored; a begin without an end leaves
//     that field (and nothing else) untouched.
//   - A field whose stretch crosses containers other than paragraphs (from one table cell into
//     another, out of a text box) is left untouched: no safe merged form exists.
//   - An instruction that is not a MERGEFIELD, or a MERGEFIELD without a name, is left alone.
//   - Elements are recognised under the prefix "w:", as word processors write them; any other
//     element, whatever its name, is content that travels through.
#include "docx/template_fields.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "docx/xml_tree.h"
#include "docx/xml_writer.h"

namespace nvwm::docx {
namespace {

std::vector<pugi::xml_node> ancestry(pugi::xml_node n) {
  std::vector<pugi::xml_node> chain;
  for (; n; n = n.parent()) chain.push_back(n);
  std::reverse(chain.begin(), chain.end());  // the document first
  return chain;
}

}  // namespace

// Where removed nodes wait, alive, until the search of a tree is done.
class TemplateFields::Scratch {
 public:
  explicit Scratch(pugi::xml_node anyNode)
      : document_(anyNode.root()), holder_(document_.append_child(pugi::node_element)) {}
  ~Scratch() { document_.remove_child(holder_); }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  void discard(pugi::xml_node n) { holder_.append_move(n); }
  // False for a node that was discarded or lies inside one that was.
  bool inTree(pugi::xml_node n) const {
    for (; n; n = n.parent()) {
      if (n == holder_) return false;
    }
    return true;
  }

 private:
  pugi::xml_node document_;
  pugi::xml_node holder_;
};

namespace {

// Takes out what follows first up to last, last included (first before last in document
// order); first stays. Returns false, changing nothing, when the stretch crosses containers
// other than paragraphs.
bool cutStretch(pugi::xml_node first, pugi::xml_node last, TemplateFields::Scratch& scratch) {
  if (first == last) return true;
  auto discardFollowing = [&](pugi::xml_node n) {
    for (pugi::xml_node s = n.next_sibling(); s;) {
      pugi::xml_node next = s.next_sibling();
      scratch.discard(s);
      s = next;
    }
  };
  if (first.parent() == last.parent()) {
    for (pugi::xml_node n = first.next_sibling(); n;) {
      pugi::xml_node next = n.next_sibling();
      bool done = n == last;
      scratch.discard(n);
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
  // Inside aTop: what follows first, at each level.
  for (size_t level = a.size() - 1; level > common; --level) discardFollowing(a[level]);
  // Between the two tops.
  for (pugi::xml_node s = aTop.next_sibling(); s && s != bTop;) {
    pugi::xml_node next = s.next_sibling();
    scratch.discard(s);
    s = next;
  }
  // Inside bTop: last and what precedes it at each level (the paragraph keeps its properties
  // until it is joined).
  for (size_t level = b.size() - 1; level > common; --level) {
    pugi::xml_node n = b[level];
    for (pugi::xml_node s = n.previous_sibling(); s;) {
      pugi::xml_node prev = s.previous_sibling();
      if (!(level == common + 1 && named(s, "w:pPr"))) scratch.discard(s);
      s = prev;
    }
    if (level == b.size() - 1) scratch.discard(n);
  }
  if (bTop == last) {
    scratch.discard(bTop);
    return true;
  }
  if (aTop == first) return true;  // the rest of bTop stays where it is
  // Both tops are paragraphs: the rest of the last one joins the first.
  for (pugi::xml_node s = bTop.first_child(); s;) {
    pugi::xml_node next = s.next_sibling();
    if (!named(s, "w:pPr")) aTop.append_move(s);
    s = next;
  }
  scratch.discard(bTop);
  return true;
}

std::string runPropertiesOf(pugi::xml_node run) {
  std::string out;
  if (pugi::xml_node rPr = run.child("w:rPr")) appendNode(out, rPr);
  return out;
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

std::optional<uint32_t> TemplateFields::fieldAt(pugi::xml_node n) const {
  if (standIns_.empty()) return std::nullopt;
  auto it = standIns_.find(n.internal_object());
  if (it == standIns_.end()) return std::nullopt;
  return it->second;
}

std::optional<uint32_t> TemplateFields::groupAt(pugi::xml_node n) const {
  if (groups_.empty()) return std::nullopt;
  auto it = groups_.find(n.internal_object());
  if (it == groups_.end()) return std::nullopt;
  return it->second;
}

void TemplateFields::find(pugi::xml_node root, bool suppressBlankLines, MergeProgram& program) {
  placed_.clear();
  {
    Scratch scratch(root);
    findComplexFields(root, program, scratch);
    findSimpleFields(root, program);
    // Fields cut out with an enclosing one no longer stand anywhere; their nodes go with the
    // scratch, so nothing may keep their addresses.
    std::vector<pugi::xml_node> kept;
    for (pugi::xml_node n : placed_) {
      if (scratch.inTree(n))
        kept.push_back(n);
      else
        standIns_.erase(n.internal_object());
    }
    placed_ = std::move(kept);
  }
  simpleInInstruction_.clear();
  if (suppressBlankLines) groupBlankLines(root, program);
}

void TemplateFields::findComplexFields(pugi::xml_node root, MergeProgram& program,
                                       Scratch& scratch) {
  struct Frame {
    pugi::xml_node begin, end;
    pugi::xml_node firstInstructionRun, firstResultRun;
    std::string instruction;
    bool inResult = false;
    bool insideInstruction = false;  // this field stands in another one's instruction
  };
  std::vector<Frame> open;
  std::vector<Frame> done;
  forEachElement(root, [&](pugi::xml_node n) {
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
  // Inner fields end first, so they are cut before the fields around them.
  for (Frame& f : done) {
    if (!scratch.inTree(f.begin) || !scratch.inTree(f.end)) continue;
    auto code = parseMergeField(f.instruction);
    if (!code) continue;
    FieldSlot slot;
    slot.inInstruction = f.insideInstruction;
    pugi::xml_node formatRun =
        code->charFormat() || !f.firstResultRun ? f.firstInstructionRun : f.firstResultRun;
    if (!formatRun) formatRun = f.begin;
    slot.runProperties = runPropertiesOf(formatRun);
    slot.code = std::move(*code);
    if (!cutStretch(f.begin, f.end, scratch)) continue;
    standIns_[f.begin.internal_object()] = static_cast<uint32_t>(program.fields.size());
    program.fields.push_back(std::move(slot));
    placed_.push_back(f.begin);
  }
}

void TemplateFields::findSimpleFields(pugi::xml_node root, MergeProgram& program) {
  std::vector<pugi::xml_node> simple;
  forEachElement(root, [&](pugi::xml_node n) {
    if (named(n, "w:fldSimple")) simple.push_back(n);
  });
  for (pugi::xml_node n : simple) {
    auto code = parseMergeField(n.attribute("w:instr").value());
    if (!code) continue;
    FieldSlot slot;
    slot.inInstruction = simpleInInstruction_.count(n.internal_object()) > 0;
    slot.runProperties =
        runPropertiesOf(n.find_node([](pugi::xml_node c) { return named(c, "w:r"); }));
    slot.code = std::move(*code);
    standIns_[n.internal_object()] = static_cast<uint32_t>(program.fields.size());
    program.fields.push_back(std::move(slot));
    placed_.push_back(n);
  }
}

void TemplateFields::groupBlankLines(pugi::xml_node root, MergeProgram& program) {
  // The paragraphs around the fields placed, each once.
  std::vector<pugi::xml_node> paragraphs;
  std::unordered_set<const void*> seen;
  for (pugi::xml_node n : placed_) {
    for (pugi::xml_node p = n.parent(); p && p != root; p = p.parent()) {
      if (named(p, "w:p") && seen.insert(p.internal_object()).second) paragraphs.push_back(p);
    }
  }
  for (pugi::xml_node p : paragraphs) {
    // A cell, text box, header or note must keep a paragraph at its end: its last one stays.
    if (!named(p.parent(), "w:body") && !p.next_sibling("w:p")) continue;
    SlotGroup group;
    bool content = false;
    traverse(
        p,
        [&](pugi::xml_node n) {
          if (auto field = fieldAt(n)) {
            group.slots.push_back(*field);
            return false;
          }
          if (n.type() != pugi::node_element) return false;
          if (isContent(n)) content = true;
          return !content;
        },
        [](pugi::xml_node) {});
    if (content || group.slots.empty()) continue;
    groups_[p.internal_object()] = static_cast<uint32_t>(program.groups.size());
    program.groups.push_back(std::move(group));
  }
}

}  // namespace nvwm::docx
