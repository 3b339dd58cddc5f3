// Internal: a part of a main document compiled for merging, as a list of operations that a
// record's copy runs from first to last: fixed XML, the places of merge fields, the groups
// that a blank line leaves out, and the references that each copy renumbers.
//
// The list is made straight from the parsed tree (compile_template.h); nothing of ours is ever
// written into the document to find the places again, so no text of a template can be taken
// for an operation. An operation may jump forward (a group whose fields are all blank goes on
// after its end); conditions, record moves and counters are further kinds of the same list.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "docx/field_code.h"

namespace nvwm::docx {

// One merge field of a part.
struct FieldSlot {
  MergeFieldCode code;
  std::string runProperties;   // the w:rPr the result runs take (serialized), may be empty
  bool inInstruction = false;  // stands inside another field's instruction
};

// A paragraph that holds nothing but merge fields: a record leaves it out when all of them
// are empty.
struct SlotGroup {
  std::vector<uint32_t> slots;
};

// The kinds of reference that a record's copy renumbers: relationship ids of headers and
// footers, note ids, and the ids that must stay unique in a document (drawing wp:docPr ids,
// bookmark ids).
enum class RefKind : uint8_t {
  kRelationship,
  kFootnote,  // kFootnote, kEndnote and kComment stay together, in this order
  kEndnote,
  kComment,
  kDrawing,
  kBookmark,
};

enum class OpKind : uint8_t {
  kXml,         // fixed XML: the program's text [offset, offset + size)
  kField,       // the value of field `index` as runs
  kGroupBegin,  // group `index`: when all its fields are blank, go on at op `target`
  kGroupEnd,    // the end of a group (no output)
  kReference,   // a reference of kind `reference`; its value in the template is the text
};

struct Op {
  OpKind kind = OpKind::kXml;
  RefKind reference = RefKind::kRelationship;
  uint32_t index = 0;   // field or group
  uint32_t target = 0;  // the op to go on at
  size_t offset = 0;    // text span
  size_t size = 0;
};

class MergeProgram {
 public:
  // Building, in document order. xml() is where fixed XML is appended; an operation of
  // another kind closes the XML written before it into one kXml op.
  std::string& xml() { return text_; }
  void appendField(uint32_t field);
  // Opens a group and returns its op, for endGroup.
  uint32_t beginGroup(uint32_t group);
  void endGroup(uint32_t beginOp);
  void appendReference(RefKind kind, std::string_view original);
  // Closes the XML written last. REQUIRES: called once, when building is done.
  void finish();

  const std::vector<Op>& ops() const { return ops_; }
  std::string_view text(const Op& op) const {
    return std::string_view(text_).substr(op.offset, op.size);
  }
  bool hasFields() const { return !fields.empty(); }

  std::vector<FieldSlot> fields;
  std::vector<SlotGroup> groups;

 private:
  void closeXml();
  // Closes the XML and adds an op; returns its position.
  uint32_t push(OpKind kind, uint32_t index);

  std::vector<Op> ops_;
  std::string text_;     // every op's text, one after the other
  size_t xmlStart_ = 0;  // where the XML not yet in an op begins
};

}  // namespace nvwm::docx
