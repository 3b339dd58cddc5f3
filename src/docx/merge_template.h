// Internal: a part of a main document compiled for merging: static XML chunks between the
// places where merge fields stood, so that each record's copy is written by appending chunks
// and values, never by copying or re-parsing a tree.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "docx/data_source.h"
#include "docx/field_code.h"

namespace nvwm::docx {

// One merge field of a part.
struct FieldSlot {
  MergeFieldCode code;
  std::string runProperties;   // the w:rPr the result runs take (serialized), may be empty
  bool inInstruction = false;  // stands inside another field's instruction
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

// A compiled stretch of XML.
struct CompiledXml {
  enum class OpKind : uint8_t { kText, kSlot, kGroupBegin, kGroupEnd, kRef };
  struct Op {
    OpKind kind;
    RefKind refKind = RefKind::kRelationship;
    uint32_t index = 0;  // slot or group
    std::string text;    // text chunk, or the original value of a reference
  };
  std::vector<Op> ops;
};

// What a paragraph-suppression group needs: the slots whose emptiness removes it.
struct SlotGroup {
  std::vector<uint32_t> slots;
};

// The fields of one part, found and replaced by markers in a tree (the caller's copy).
class FieldMarkup {
 public:
  // Finds every MERGEFIELD (simple and complex) under root and puts a marker in its place.
  // suppressBlankLines: a paragraph that holds nothing but merge fields is wrapped in a group
  // that a record leaves out when all its fields are empty.
  void markFields(pugi::xml_node root, bool suppressBlankLines);
  // Replaces header/footer relationship ids, note ids, drawing and bookmark ids under root by
  // markers.
  static void markReferences(pugi::xml_node root);

  const std::vector<FieldSlot>& slots() const { return slots_; }
  const std::vector<SlotGroup>& groups() const { return groups_; }

 private:
  uint32_t addSlot(FieldSlot slot, pugi::xml_node before);
  void markComplexFields(pugi::xml_node root);
  void markSimpleFields(pugi::xml_node root);
  void wrapBlankLines(pugi::xml_node root);

  std::vector<FieldSlot> slots_;
  std::vector<SlotGroup> groups_;
  // Simple fields found inside a complex field's instruction (their value is instruction text).
  std::unordered_set<const void*> simpleInInstruction_;
};

// Splits serialized XML at the markers.
CompiledXml compileXml(std::string_view xml);

// Places a marker that splits a serialized tree in two (see splitAtMarker).
void insertSplitMarker(pugi::xml_node parent, pugi::xml_node before);
// Splits at the marker of insertSplitMarker: {before, after}. Raises 51 when it is absent.
std::pair<std::string, std::string> splitAtMarker(std::string_view xml);

// The values of one record for the slots of a part, as run XML ready to append.
class RecordValues {
 public:
  // Fills the values of record `row` of data (nullptr: every field empty).
  void fill(const std::vector<FieldSlot>& slots, const std::vector<std::optional<size_t>>& columns,
            const std::vector<Variant>* row);
  const std::string& runs(uint32_t slot) const { return runs_[slot]; }
  bool empty(uint32_t slot) const { return runs_[slot].empty(); }

 private:
  std::vector<std::string> runs_;
};

// Text that a field shows when the data source has no column of its name, as Word words it.
inline constexpr std::string_view kMissingFieldText =
    "Error! MergeField was not found in header record of data source.";

// Appends the runs that show text with the given run properties: line breaks become w:br,
// tabs w:tab, and the text is escaped.
void appendRuns(std::string& out, std::string_view runProperties, std::string_view text,
                bool asInstruction);

// Appends a compiled stretch for one record. resolve gives the value of a reference.
void renderXml(std::string& out, const CompiledXml& xml, const RecordValues& values,
               const std::vector<SlotGroup>& groups,
               const std::function<std::string(RefKind, const std::string&)>& resolve);

}  // namespace nvwm::docx
