// The fields a merge evaluates, found in a part's tree and cut out of it.
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
// order, wherever they were cut, and the fields nested between them (an IF's operands and
// results). A simple field stands for itself. Of a complex field, its begin run stays to stand
// for it and everything after it up to its end run goes; when that stretch crosses paragraphs
// the rest of the last paragraph joins the first one. Inner fields end first and are planned
// first, so an IF finds the plans of the fields in it; simple fields are planned before any
// complex one for the same reason. Other fields (PAGE, DATE, HYPERLINK...) stay as they are,
// with the fields inside them merged; in an IF's instruction they count as the text they show.
//
// What goes is moved into a scratch element of the document until the search is done, so that
// no node a later step still holds is freed under it.
//
// Malformed input:
//   - An end or separate character without a begin is ignored; a begin without an end leaves
//     that field (and nothing else) untouched.
//   - A field whose stretch crosses containers other than paragraphs (from one table cell into
//     another, out of a text box) is left untouched: no safe merged form exists.
//   - An instruction the merge doesn't evaluate, a MERGEFIELD without a name, an IF without a
//     comparison, and a field nested more than kMaxDepth deep are left alone.
//   - Text of an IF's results keeps the formatting of its runs; paragraph marks inside an
//     instruction are not kept (a result is runs within the field's paragraph).
//   - Elements are recognised under the prefix "w:", as word processors write them; any other
//     element, whatever its name, is content that travels through.
#include "docx/template_fields.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "docx/field_code.h"
#include "docx/xml_tree.h"
#include "docx/xml_writer.h"
#include "runtime/text.h"

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

namespace {

// How many evaluated fields deep a field may nest others (IF in IF in IF...); a deeper one is
// left as it is.
constexpr uint32_t kMaxDepth = 32;

// The text a field shows in the template: the w:t text under a node.
std::string shownText(pugi::xml_node n) {
  std::string out;
  forEachElement(n, [&](pugi::xml_node c) {
    if (named(c, "w:t")) out += c.child_value();
  });
  return out;
}

}  // namespace

namespace {

// Where a field nested in an instruction stands, from the instruction's text before it: in a
// formula (=), inside quotes (an odd number of quotes not escaped), or bare.
InstructionPlace placeIn(std::string_view instructionBefore) {
  if (fieldKeyword(instructionBefore).starts_with("=")) return InstructionPlace::kFormula;
  bool quoted = false;
  for (size_t i = 0; i < instructionBefore.size(); ++i) {
    if (instructionBefore[i] == '\\')
      ++i;
    else if (instructionBefore[i] == '"')
      quoted = !quoted;
  }
  return quoted ? InstructionPlace::kQuoted : InstructionPlace::kBare;
}

}  // namespace

// A complex field as the walk finds it.
struct TemplateFields::Frame {
  // A piece of its own instruction: the text of a w:instrText, or a field nested there.
  struct Piece {
    pugi::xml_node run;
    std::string text;
    int32_t nested = -1;
  };
  pugi::xml_node begin, end;
  pugi::xml_node firstInstructionRun, firstResultRun;
  std::string instruction;  // its own instruction text
  std::vector<Piece> pieces;
  std::string resultText;  // what it shows, kept for a field nested in another's instruction
  uint32_t depth = 1;      // fields nested in its instruction, it included
  bool inResult = false;
  bool insideInstruction = false;  // this field stands in another one's instruction
  InstructionPlace place = InstructionPlace::kBare;  // where, when it does
};

// One find(). Nested fields are named by ids: complex field k of `done` is 2k, simple field j
// of `nestedSimple` is 2j + 1.
struct TemplateFields::Search {
  MergeProgram& program;
  Scratch& scratch;
  std::vector<Frame> done;           // complex fields, in the order they end: inner ones first
  std::vector<int32_t> planOfFrame;  // -1: none
  std::vector<pugi::xml_node> nestedSimple;
  std::unordered_map<const void*, InstructionPlace> simpleInInstruction;

  int32_t nestFrame(size_t k) { return static_cast<int32_t>(2 * k); }
  int32_t nestSimple(pugi::xml_node n) {
    nestedSimple.push_back(n);
    return static_cast<int32_t>(2 * (nestedSimple.size() - 1) + 1);
  }
};

std::optional<uint32_t> TemplateFields::planAt(pugi::xml_node n) const {
  // Most nodes are of a kind no field stands in (w:t, w:p, w:rPr...): no lookup for them.
  if (std::none_of(standInNames_.begin(), standInNames_.end(),
                   [&](const std::string& name) { return name == n.name(); })) {
    return std::nullopt;
  }
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
    Search search{program, scratch, {}, {}, {}, {}};
    collectComplexFields(root, search);
    collectVariableNames(root, search);
    // Simple fields first: a complex field around one reads its plan.
    std::vector<pugi::xml_node> simple;
    forEachElement(root, [&](pugi::xml_node n) {
      if (named(n, "w:fldSimple")) simple.push_back(n);
    });
    for (pugi::xml_node n : simple) {
      std::string instruction = n.attribute("w:instr").value();
      pugi::xml_node run = n.find_node([](pugi::xml_node c) { return named(c, "w:r"); });
      auto parts = [&] {
        InstructionPart part;
        part.text = instruction;
        part.runProperties = runPropertiesOf(run);
        return std::vector<InstructionPart>{std::move(part)};
      };
      auto where = search.simpleInInstruction.find(n.internal_object());
      std::optional<InstructionPlace> inInstruction;
      if (where != search.simpleInInstruction.end()) inInstruction = where->second;
      auto plan = planField(search, instruction, parts, {run, run, run}, inInstruction, 1,
                            [] { return true; });
      if (!plan) continue;
      place(n, *plan);
    }
    // Inner complex fields end first, so they are cut before the fields around them.
    search.planOfFrame.assign(search.done.size(), -1);
    for (size_t k = 0; k < search.done.size(); ++k) {
      Frame& f = search.done[k];
      if (!scratch.inTree(f.begin) || !scratch.inTree(f.end)) continue;
      auto parts = [&] {
        std::vector<InstructionPart> out;
        for (const Frame::Piece& piece : f.pieces) {
          InstructionPart part;
          if (piece.nested >= 0) {
            part.nested = piece.nested;
          } else {
            part.text = piece.text;
            part.runProperties = runPropertiesOf(piece.run);
          }
          out.push_back(std::move(part));
        }
        return out;
      };
      auto plan = planField(search, f.instruction, parts,
                            {f.firstInstructionRun, f.firstResultRun, f.begin},
                            f.insideInstruction ? std::optional(f.place) : std::nullopt, f.depth,
                            [&] { return cutStretch(f.begin, f.end, scratch); });
      if (!plan) continue;
      search.planOfFrame[k] = static_cast<int32_t>(*plan);
      place(f.begin, *plan);
    }
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
    removeVariableBookmarks(root, scratch);
  }
  if (suppressBlankLines) groupBlankLines(root, program);
}

void TemplateFields::place(pugi::xml_node n, uint32_t plan) {
  standIns_[n.internal_object()] = plan;
  placed_.push_back(n);
  if (std::find(standInNames_.begin(), standInNames_.end(), n.name()) == standInNames_.end()) {
    standInNames_.emplace_back(n.name());
  }
}

void TemplateFields::collectComplexFields(pugi::xml_node root, Search& search) {
  std::vector<Frame> open;
  auto inInstruction = [&] { return !open.empty() && !open.back().inResult; };
  forEachElement(root, [&](pugi::xml_node n) {
    if (named(n, "w:fldChar")) {
      std::string_view type = n.attribute("w:fldCharType").value();
      pugi::xml_node run = n.parent();
      if (type == "begin") {
        Frame f;
        f.begin = run;
        f.insideInstruction = inInstruction();
        if (f.insideInstruction) f.place = placeIn(open.back().instruction);
        open.push_back(std::move(f));
      } else if (type == "separate" && !open.empty()) {
        open.back().inResult = true;
      } else if (type == "end" && !open.empty()) {
        Frame f = std::move(open.back());
        open.pop_back();
        f.end = run;
        if (f.insideInstruction && inInstruction()) {
          open.back().pieces.push_back({{}, {}, search.nestFrame(search.done.size())});
          open.back().depth = std::max(open.back().depth, f.depth + 1);
        }
        search.done.push_back(std::move(f));
      }
    } else if (named(n, "w:fldSimple") && inInstruction()) {
      search.simpleInInstruction.emplace(n.internal_object(), placeIn(open.back().instruction));
      open.back().pieces.push_back({{}, {}, search.nestSimple(n)});
    } else if (named(n, "w:instrText") && inInstruction()) {
      Frame& f = open.back();
      f.instruction += n.child_value();
      f.pieces.push_back({n.parent(), n.child_value(), -1});
      if (!f.firstInstructionRun) f.firstInstructionRun = n.parent();
    } else if (named(n, "w:t") && !open.empty() && open.back().inResult) {
      Frame& f = open.back();
      if (!f.firstResultRun && named(n.parent(), "w:r")) f.firstResultRun = n.parent();
      if (f.insideInstruction) f.resultText += n.child_value();
    }
  });
}

std::optional<uint32_t> TemplateFields::planField(
    Search& search, std::string_view instruction,
    const std::function<std::vector<InstructionPart>()>& instructionParts, FormatRuns runs,
    std::optional<InstructionPlace> inInstruction, uint32_t depth,
    const std::function<bool()>& cut) {
  MergeProgram& program = search.program;
  std::string keyword = fieldKeyword(instruction);
  FieldPlan plan;
  if (keyword == "MERGEFIELD" || keyword == "MERGEREC" || keyword == "MERGESEQ") {
    auto code = keyword == "MERGEFIELD" ? parseMergeField(instruction)
                                        : parseCounterField(instruction, keyword);
    if (!code || !cut()) return std::nullopt;
    FieldSlot slot;
    slot.source = keyword == "MERGEFIELD" ? FieldSource::kColumn
                  : keyword == "MERGEREC" ? FieldSource::kRecordNumber
                                          : FieldSource::kSequenceNumber;
    slot.inInstruction = inInstruction.has_value();
    if (inInstruction) slot.place = *inInstruction;
    pugi::xml_node formatRun = code->charFormat() || !runs.result ? runs.instruction : runs.result;
    slot.runProperties = runPropertiesOf(formatRun ? formatRun : runs.fallback);
    slot.code = std::move(*code);
    plan.kind = FieldPlan::Kind::kValue;
    plan.index = static_cast<uint32_t>(program.fields.size());
    program.fields.push_back(std::move(slot));
  } else if (keyword == "SET" || keyword == "ASK") {
    // SET name value; ASK name prompt \d default, answered with its default.
    std::vector<InstructionWord> words = splitInstruction(instructionParts());
    std::optional<std::string> name = words.size() >= 2 ? words[1].plainText() : std::nullopt;
    if (!name || name->empty() || !cut()) return std::nullopt;
    Assignment assignment;
    assignment.name = *name;
    if (keyword == "ASK")
      assignment.value = defaultOf(search, words);
    else if (words.size() >= 3)
      assignment.value = operandOf(search, words[2]);
    plan.kind = FieldPlan::Kind::kSet;
    plan.index = static_cast<uint32_t>(program.assignments.size());
    program.assignments.push_back(std::move(assignment));
  } else if (keyword == "FILLIN" ||
             ((keyword == "REF" || variableNames_.count(UCase(keyword)) > 0) && [&] {
               // REF stays a field unless SET or ASK gives its name a value here.
               if (keyword != "REF") return true;
               std::vector<InstructionWord> words = splitInstruction(instructionParts());
               std::optional<std::string> name =
                   words.size() >= 2 ? words[1].plainText() : std::nullopt;
               return name && variableNames_.count(UCase(*name)) > 0;
             }())) {
    std::optional<MergeFieldCode> code = keyword == "REF" ? parseNamedField(instruction, keyword)
                                                          : parseCounterField(instruction, keyword);
    if (!code || !cut()) return std::nullopt;
    FieldSlot slot;
    if (keyword == "FILLIN") {
      slot.source = FieldSource::kText;
      slot.text = static_cast<int32_t>(program.texts.size());
      program.texts.push_back(defaultOf(search, splitInstruction(instructionParts())));
    } else {
      slot.source = FieldSource::kVariable;
      if (keyword != "REF") code->name = std::string(fieldName(instruction));
    }
    slot.inInstruction = inInstruction.has_value();
    if (inInstruction) slot.place = *inInstruction;
    pugi::xml_node formatRun = code->charFormat() || !runs.result ? runs.instruction : runs.result;
    slot.runProperties = runPropertiesOf(formatRun ? formatRun : runs.fallback);
    slot.code = std::move(*code);
    plan.kind = FieldPlan::Kind::kValue;
    plan.index = static_cast<uint32_t>(program.fields.size());
    program.fields.push_back(std::move(slot));
  } else if (keyword == "NEXT") {
    if (!cut()) return std::nullopt;
    plan.kind = FieldPlan::Kind::kNextRecord;
  } else if (keyword == "IF" || keyword == "NEXTIF" || keyword == "SKIPIF") {
    std::vector<InstructionWord> words = splitInstruction(instructionParts());
    // The arguments: the words after the keyword, up to a switch.
    size_t count = 0;
    size_t wanted = keyword == "IF" ? 5 : 3;
    while (1 + count < words.size() && count < wanted) {
      const InstructionWord& w = words[1 + count];
      std::optional<std::string> text = w.plainText();
      if (!w.quoted && text && !text->empty() && (*text)[0] == '\\') break;
      ++count;
    }
    if (count < 3) return std::nullopt;
    std::optional<Comparison> comparison = comparisonOf(words[2]);
    if (!comparison) return std::nullopt;
    if (depth > kMaxDepth || !cut()) return std::nullopt;
    plan.kind = keyword == "IF"       ? FieldPlan::Kind::kIf
                : keyword == "NEXTIF" ? FieldPlan::Kind::kNextIf
                                      : FieldPlan::Kind::kSkipIf;
    plan.index = static_cast<uint32_t>(program.conditions.size());
    program.conditions.push_back(
        {operandOf(search, words[1]), *comparison, operandOf(search, words[3])});
    if (count >= 4) plan.whenTrue = resultOf(search, words[4]);
    if (count >= 5) plan.whenFalse = resultOf(search, words[5]);
  } else {
    return std::nullopt;
  }
  plans_.push_back(std::move(plan));
  return static_cast<uint32_t>(plans_.size() - 1);
}

std::optional<uint32_t> TemplateFields::nestedPlan(Search& search, int32_t id) const {
  if (id < 0) return std::nullopt;
  if (id % 2 == 0) {
    int32_t plan = search.planOfFrame[static_cast<size_t>(id / 2)];
    if (plan < 0) return std::nullopt;
    return static_cast<uint32_t>(plan);
  }
  return planAt(search.nestedSimple[static_cast<size_t>(id / 2)]);
}

std::string TemplateFields::nestedText(Search& search, int32_t id) const {
  if (id % 2 == 0) return search.done[static_cast<size_t>(id / 2)].resultText;
  return shownText(search.nestedSimple[static_cast<size_t>(id / 2)]);
}

Operand TemplateFields::operandOf(Search& search, const InstructionWord& word) const {
  Operand operand;
  operand.quoted = word.quoted;
  for (const InstructionPart& part : word.parts) {
    if (part.nested < 0) {
      operand.parts.push_back({part.text, -1});
    } else if (auto nested = nestedPlan(search, part.nested)) {
      // A value counts; a field that shows nothing (NEXT, an IF) adds no text.
      const FieldPlan& plan = plans_[*nested];
      if (plan.kind == FieldPlan::Kind::kValue) {
        operand.parts.push_back({{}, static_cast<int32_t>(plan.index)});
      }
    } else {
      // A field the merge doesn't evaluate counts as the text it shows.
      operand.parts.push_back({nestedText(search, part.nested), -1});
    }
  }
  return operand;
}

std::vector<FieldPlan::Piece> TemplateFields::resultOf(Search& search,
                                                       const InstructionWord& word) {
  std::vector<FieldPlan::Piece> pieces;
  for (const InstructionPart& part : word.parts) {
    FieldPlan::Piece piece;
    if (part.nested < 0) {
      appendRuns(piece.runs, part.runProperties, part.text, false);
    } else if (auto nested = nestedPlan(search, part.nested)) {
      piece.plan = static_cast<int32_t>(*nested);
      // A value in a result is result text, no longer instruction text.
      if (plans_[*nested].kind == FieldPlan::Kind::kValue) {
        search.program.fields[plans_[*nested].index].inInstruction = false;
      }
    } else {
      appendRuns(piece.runs, {}, nestedText(search, part.nested), false);
    }
    pieces.push_back(std::move(piece));
  }
  return pieces;
}

void TemplateFields::collectVariableNames(pugi::xml_node root, const Search& search) {
  auto note = [&](std::string_view instruction) {
    std::string keyword = fieldKeyword(instruction);
    if (keyword != "SET" && keyword != "ASK") return;
    InstructionPart part;
    part.text = std::string(instruction);
    std::vector<InstructionWord> words = splitInstruction({part});
    if (words.size() < 2) return;
    if (std::optional<std::string> name = words[1].plainText()) variableNames_.insert(UCase(*name));
  };
  forEachElement(root, [&](pugi::xml_node n) {
    if (named(n, "w:fldSimple")) note(n.attribute("w:instr").value());
  });
  for (const Frame& f : search.done) note(f.instruction);
}

// Word marks where SET and ASK stand with a bookmark of the name; the merged document has no
// such field left, so the bookmark goes too.
void TemplateFields::removeVariableBookmarks(pugi::xml_node root, Scratch& scratch) const {
  if (variableNames_.empty()) return;
  std::vector<pugi::xml_node> starts, ends;
  forEachElement(root, [&](pugi::xml_node n) {
    if (named(n, "w:bookmarkStart")) starts.push_back(n);
    if (named(n, "w:bookmarkEnd")) ends.push_back(n);
  });
  std::unordered_set<std::string> ids;
  for (pugi::xml_node n : starts) {
    if (!scratch.inTree(n) || variableNames_.count(UCase(n.attribute("w:name").value())) == 0)
      continue;
    ids.insert(n.attribute("w:id").value());
    scratch.discard(n);
  }
  for (pugi::xml_node n : ends) {
    if (scratch.inTree(n) && ids.count(n.attribute("w:id").value()) > 0) scratch.discard(n);
  }
}

Operand TemplateFields::defaultOf(Search& search, const std::vector<InstructionWord>& words) const {
  for (size_t i = 1; i + 1 < words.size(); ++i) {
    std::optional<std::string> text = words[i].plainText();
    if (!words[i].quoted && text && (*text == "\\d" || *text == "\\D")) {
      return operandOf(search, words[i + 1]);
    }
  }
  return {};
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
          if (auto plan = planAt(n)) {
            // Only values can leave a line blank; IF and the record fields make it a line.
            if (plans_[*plan].kind == FieldPlan::Kind::kValue)
              group.slots.push_back(plans_[*plan].index);
            else
              content = true;
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
