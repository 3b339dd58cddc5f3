// Internal: the merge fields of one part's tree, found and cut out of it (the caller's own
// parsed copy), each leaving its first node as the place where its value goes.
#pragma once

#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "docx/merge_program.h"

namespace nvwm::docx {

// The places that a compile of the tree replaces: nodes that stand for a field, and
// paragraphs that form a blank-line group. Keyed by node: nothing is added to the tree.
class TemplateFields {
 public:
  // Finds every MERGEFIELD (simple and complex) under root, adds it to program.fields and
  // removes what the field spans but its first node, which then stands for it. Other fields
  // stay, with the merge fields inside them found. suppressBlankLines: a paragraph that holds
  // nothing but merge fields becomes a group of program.groups. May be called on several
  // subtrees of one tree for one program.
  void find(pugi::xml_node root, bool suppressBlankLines, MergeProgram& program);

  // The field a node stands for, if it stands for one.
  std::optional<uint32_t> fieldAt(pugi::xml_node n) const;
  // The group a paragraph forms, if it forms one.
  std::optional<uint32_t> groupAt(pugi::xml_node n) const;

  // Where the nodes cut out wait, alive, until a search is done (template_fields.cpp).
  class Scratch;

 private:
  void findComplexFields(pugi::xml_node root, MergeProgram& program, Scratch& scratch);
  void findSimpleFields(pugi::xml_node root, MergeProgram& program);
  void groupBlankLines(pugi::xml_node root, MergeProgram& program);

  std::unordered_map<const void*, uint32_t> standIns_;
  std::unordered_map<const void*, uint32_t> groups_;
  // Simple fields found inside a complex field's instruction (their value is instruction text).
  std::unordered_set<const void*> simpleInInstruction_;
  // The nodes that stand for the fields of the subtree being searched.
  std::vector<pugi::xml_node> placed_;
};

}  // namespace nvwm::docx
