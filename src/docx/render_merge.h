// Internal: the records of a data source rendered through a compiled main document into a
// sink, one copy of the main document per record.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "docx/compile_template.h"
#include "docx/data_source.h"
#include "docx/merge_program.h"
#include "docx/merge_sink.h"

namespace nvwm::docx {

// The record a merge stands on. Fields read it; NEXT and NEXTIF move it on.
class RecordCursor {
 public:
  // REQUIRES: data outlives the cursor.
  explicit RecordCursor(const MergeData& data) : data_(&data) {}

  bool atEnd() const { return index_ >= data_->rowCount(); }
  // The record's position in the data source, from 0 (the number of records when at the end).
  size_t index() const { return index_; }
  // The record under the cursor; nullptr past the last one (every field is then empty).
  const std::vector<Variant>* record() const { return atEnd() ? nullptr : &data_->row(index_); }
  void advance() {
    if (!atEnd()) ++index_;
  }

 private:
  const MergeData* data_;
  size_t index_ = 0;
};

// Where the rendering of one copy stands.
struct RenderState {
  RecordCursor cursor;         // moved on by NEXT and NEXTIF
  size_t copyFirstRecord = 0;  // the record the copy began with
  size_t mergedBefore = 0;     // records merged into the copies before this one
  // What SET and ASK gave each name in this copy, by the name in upper case (Word's names
  // match whatever their case).
  std::unordered_map<std::string, std::string> variables;
};

// How the rendering of a program ended.
enum class RenderEnd {
  kDone,
  kSkipped,  // a SKIPIF held: the copy is to be dropped
};

// The value a reference takes in a copy.
class ReferenceResolver {
 public:
  virtual ~ReferenceResolver() = default;
  // Appends the value (escaped for an attribute).
  virtual void append(std::string& out, RefKind kind, std::string_view original) const = 0;
};

// Every reference keeps the value it has in the template.
class KeepReferences : public ReferenceResolver {
 public:
  void append(std::string& out, RefKind kind, std::string_view original) const override;
};

// A program bound to a data source: the column of each field, and the runs of each column
// value, made once per record however often the program asks for them.
class BoundProgram {
 public:
  // REQUIRES: program outlives the binding.
  BoundProgram(const MergeProgram& program, const MergeData& data);

  // Appends the program's XML for the record under the cursor, which NEXT and NEXTIF move on.
  // Stops at a SKIPIF that holds (the output is then of no use).
  RenderEnd render(RenderState& state, const ReferenceResolver& references, std::string& out);

 private:
  // The text of a field's value, its switches applied.
  std::string valueText(uint32_t field, const RenderState& state) const;
  const std::string& runs(uint32_t field, const RenderState& state);
  bool holds(const Condition& condition, const RenderState& state) const;
  std::string operandText(const Operand& operand, const RenderState& state) const;

  const MergeProgram& program_;
  std::vector<std::optional<size_t>> columns_;
  std::vector<std::string> runs_;
  std::vector<size_t> madeFor_;  // the record index + 1 of runs_[i]; 0: not made
};

// The name a bookmark of the template takes in a copy (from 0): the first copy keeps it, the
// others add "_<copy number>" ("Total_2"), cut to Word's 40 characters.
std::string copyBookmarkName(std::string_view name, size_t copy);

// What REF shows for a name that no SET or ASK of the copy has given a value yet, as Word
// words it.
inline constexpr std::string_view kMissingReferenceText = "Error! Reference source not found.";

// Text that a field shows when the data source has no column of its name, as Word words it.
inline constexpr std::string_view kMissingFieldText =
    "Error! MergeField was not found in header record of data source.";

// Renders one copy of the main document per record of data into the sink, then the end of
// each part written in pieces. Layout, as Word's own form-letter merge writes it:
//   body   := copy(1) break(1) ... copy(n) final-sectPr(n)
//   break  := <w:p><w:pPr><w:sectPr>main sectPr, type nextPage, page numbers from 1</w:sectPr>
//             </w:pPr></w:p>
// A header or footer with merge fields becomes one part per copy, named by the relationship
// ids "rIdMerge<copy>h<k>" that the copy's section properties use; one without fields is
// shared. Notes get new ids per copy (one can't be referenced twice), and drawing and bookmark
// ids move on by a stride per copy so that they stay unique. With no records the body is one
// empty paragraph, and headers with fields are written in place with their fields empty.
// Returns the number of copies.
size_t renderMerge(const CompiledTemplate& compiled, const MergeData& data, MergeSink& sink);

}  // namespace nvwm::docx
