// Internal: a part of a main document compiled for merging, as a list of operations that a
// record's copy runs from first to last: fixed XML, the places of merge fields, the groups
// that a blank line leaves out, and the references that each copy renumbers.
//
// The list is made straight from the parsed tree (compile_template.h); nothing of ours is ever
// written into the document to find the places again, so no text of a template can be taken
// for an operation. Operations only jump forward: a group whose fields are all blank goes on
// after its end, an IF whose condition fails goes on at its second result. Fields may move the
// record cursor (NEXT, NEXTIF) or drop the copy (SKIPIF).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "docx/field_code.h"

namespace nvwm::docx {

// Where a field's value comes from.
enum class FieldSource : uint8_t {
  kColumn,          // MERGEFIELD: the column of its name in the record
  kRecordNumber,    // MERGEREC: the record's position in the data source, from 1
  kSequenceNumber,  // MERGESEQ: how many records have been merged, this one included
  kVariable,        // REF (or a bare name): the text SET or ASK gave the name in this copy
  kText,            // FILLIN: its default text (FieldSlot::text), shown without prompting
};

// Where a field nested in another's instruction stands.
enum class InstructionPlace : uint8_t { kBare, kQuoted, kFormula };

// One field of a part that shows a value.
struct FieldSlot {
  MergeFieldCode code;  // for kVariable, code.name is the variable's name
  FieldSource source = FieldSource::kColumn;
  int32_t text = -1;           // kText: the operand (MergeProgram::texts) it shows
  std::string runProperties;   // the w:rPr the result runs take (serialized), may be empty
  bool inInstruction = false;  // stands inside another field's instruction
  // There, how its value is written so that the field around it, updated later, reads it
  // whole: in quotes of its own (kBare), escaped inside the quotes it stands in (kQuoted), or
  // as it is in a formula (=), which reads numbers.
  InstructionPlace place = InstructionPlace::kBare;
};

// The comparison of IF, NEXTIF and SKIPIF.
enum class Comparison : uint8_t {
  kEqual,
  kNotEqual,
  kLess,
  kGreater,
  kLessOrEqual,
  kGreaterOrEqual,
};

// One side of a comparison: literal text and field values, one after the other.
struct Operand {
  struct Part {
    std::string text;    // literal text, when field is -1
    int32_t field = -1;  // else the value of this field, as text
  };
  std::vector<Part> parts;
  bool quoted = false;  // written in quotes: ? and * are wildcards in = and <>
};

// SET name value, or ASK name with its \d default: the copy's variable takes the text.
struct Assignment {
  std::string name;
  Operand value;
};

struct Condition {
  Operand left;
  Comparison comparison = Comparison::kEqual;
  Operand right;
};

// A paragraph that holds nothing but merge fields: a record leaves it out when all of them
// are empty.
struct SlotGroup {
  std::vector<uint32_t> slots;
};

// The kinds of reference that a record's copy renumbers: relationship ids of headers and
// footers, note ids, and the ids and names that must stay unique in a document (drawing
// wp:docPr ids, bookmark ids and names, paragraph ids).
enum class RefKind : uint8_t {
  kRelationship,
  kFootnote,  // kFootnote, kEndnote and kComment stay together, in this order
  kEndnote,
  kComment,
  kDrawing,
  kBookmark,
  kBookmarkName,  // w:bookmarkStart's name and what points at it (w:hyperlink's anchor)
  kParagraphId,   // w14:paraId of paragraphs and table rows, unique in a document
};

enum class OpKind : uint8_t {
  kXml,         // fixed XML: the program's text [offset, offset + size)
  kField,       // the value of field `index` as runs
  kGroupBegin,  // group `index`: when all its fields are blank, go on at op `target`
  kGroupEnd,    // the end of a group (no output)
  kReference,   // a reference of kind `reference`; its value in the template is the text
  kIf,          // IF: unless condition `index` holds, go on at op `target` (the other result)
  kJump,        // go on at op `target`
  kNextRecord,  // NEXT: the cursor moves to the next record
  kNextIf,      // NEXTIF: the cursor moves to the next record when condition `index` holds
  kSkipIf,      // SKIPIF: the copy is dropped, and the record, when condition `index` holds
  kSet,         // SET, ASK: assignment `index` is made (no output)
};

struct Op {
  OpKind kind = OpKind::kXml;
  RefKind reference = RefKind::kRelationship;
  uint32_t index = 0;   // field, group or condition
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
  // An op without output (kIf, kJump, kNextRecord, kNextIf, kSkipIf, kSet); returns its
  // position.
  uint32_t appendControl(OpKind kind, uint32_t index = 0);
  // The op at `from` goes on here, at the next op appended.
  void landHere(uint32_t from);
  // Closes the XML written last. REQUIRES: called once, when building is done.
  void finish();

  const std::vector<Op>& ops() const { return ops_; }
  std::string_view text(const Op& op) const {
    return std::string_view(text_).substr(op.offset, op.size);
  }
  bool hasFields() const { return !fields.empty(); }

  std::vector<FieldSlot> fields;
  std::vector<SlotGroup> groups;
  std::vector<Condition> conditions;
  std::vector<Assignment> assignments;
  std::vector<Operand> texts;  // what kText fields show

 private:
  void closeXml();
  // Closes the XML and adds an op; returns its position.
  uint32_t push(OpKind kind, uint32_t index);

  std::vector<Op> ops_;
  std::string text_;     // every op's text, one after the other
  size_t xmlStart_ = 0;  // where the XML not yet in an op begins
};

}  // namespace nvwm::docx
