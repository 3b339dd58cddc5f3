// Internal: the fields of one part's tree that a merge evaluates, found and cut out of it (the
// caller's own parsed copy), each leaving its first node as the place where its result goes.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "docx/conditional_fields.h"
#include "docx/merge_program.h"

namespace nvwm::docx {

// What a field found in the tree becomes where it stood.
struct FieldPlan {
  enum class Kind : uint8_t {
    kValue,       // MERGEFIELD, MERGEREC, MERGESEQ: the value of field `index`
    kIf,          // IF: condition `index`, then one of the two results
    kNextRecord,  // NEXT
    kNextIf,      // NEXTIF: condition `index`
    kSkipIf,      // SKIPIF: condition `index`
    kSet,         // SET, ASK: assignment `index` (program.assignments)
  };
  // A piece of an IF's result: runs of its text, in the formatting of the runs it was written
  // in, or a field nested there.
  struct Piece {
    std::string runs;
    int32_t plan = -1;
  };
  Kind kind = Kind::kValue;
  uint32_t index = 0;  // the field (program.fields) or the condition (program.conditions)
  std::vector<Piece> whenTrue, whenFalse;
};

// The places that a compile of the tree replaces: nodes that stand for a field, and
// paragraphs that form a blank-line group. Keyed by node: nothing is added to the tree.
class TemplateFields {
 public:
  // Finds the fields under root that the merge evaluates (MERGEFIELD, MERGEREC, MERGESEQ, IF,
  // NEXT, NEXTIF, SKIPIF, SET, ASK, FILLIN, and REF or a bare name when SET or ASK of the same
  // subtree gives it a value; simple and complex), removes the bookmarks of the names SET and
  // ASK give values, adds their fields and conditions to the program
  // and removes what a field spans but its first node, which then stands for it. Other fields
  // stay, with the merge fields inside them found. suppressBlankLines: a paragraph that holds
  // nothing but merge fields becomes a group of program.groups. May be called on several
  // subtrees of one tree for one program.
  void find(pugi::xml_node root, bool suppressBlankLines, MergeProgram& program);

  // The plan of the field a node stands for, if it stands for one.
  std::optional<uint32_t> planAt(pugi::xml_node n) const;
  const FieldPlan& plan(uint32_t index) const { return plans_[index]; }
  // The group a paragraph forms, if it forms one.
  std::optional<uint32_t> groupAt(pugi::xml_node n) const;

  // Where the nodes cut out wait, alive, until a search is done (template_fields.cpp).
  class Scratch;

 private:
  struct Frame;
  struct Search;
  // The runs whose formatting a value takes: its instruction's, its result's (the usual
  // choice), or, when it has neither, the fallback's.
  struct FormatRuns {
    pugi::xml_node instruction, result, fallback;
  };

  void collectComplexFields(pugi::xml_node root, Search& search);
  // Makes n stand for the plan.
  void place(pugi::xml_node n, uint32_t plan);
  // The plan of a field, when the merge evaluates it and cut() takes what it spans out of the
  // tree (cut is called only once the field is known to be one the merge evaluates).
  // inInstruction: where it stands in another field's instruction, if it does. depth:
  // how many fields deep its instruction nests, it included.
  std::optional<uint32_t> planField(
      Search& search, std::string_view instruction,
      const std::function<std::vector<InstructionPart>()>& instructionParts, FormatRuns runs,
      std::optional<InstructionPlace> inInstruction, uint32_t depth,
      const std::function<bool()>& cut);
  std::optional<uint32_t> nestedPlan(Search& search, int32_t id) const;
  std::string nestedText(Search& search, int32_t id) const;
  Operand operandOf(Search& search, const InstructionWord& word) const;
  std::vector<FieldPlan::Piece> resultOf(Search& search, const InstructionWord& word);
  void groupBlankLines(pugi::xml_node root, MergeProgram& program);
  // The names SET and ASK give values under root, upper case.
  void collectVariableNames(pugi::xml_node root, const Search& search);
  void removeVariableBookmarks(pugi::xml_node root, Scratch& scratch) const;
  // The word after a \d switch: the default of ASK and FILLIN.
  Operand defaultOf(Search& search, const std::vector<InstructionWord>& words) const;

  std::vector<FieldPlan> plans_;
  std::unordered_map<const void*, uint32_t> standIns_;
  std::vector<std::string> standInNames_;  // the element names of the nodes in standIns_
  std::unordered_map<const void*, uint32_t> groups_;
  // The nodes that stand for the fields of the subtree being searched.
  std::vector<pugi::xml_node> placed_;
  std::unordered_set<std::string> variableNames_;
};

}  // namespace nvwm::docx
