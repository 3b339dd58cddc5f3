// Internal: the records of a data source rendered through a compiled main document into a
// sink, one copy of the main document per record.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "docx/compile_template.h"
#include "docx/data_source.h"
#include "docx/merge_program.h"
#include "docx/merge_sink.h"

namespace nvwm::docx {

// The record a merge stands on. Fields read it; a field that moves to the next record moves it.
class RecordCursor {
 public:
  // REQUIRES: data outlives the cursor.
  explicit RecordCursor(const MergeData& data) : data_(data) {}

  bool atEnd() const { return index_ >= data_.rowCount(); }
  // The record's position in the data source, from 0.
  size_t index() const { return index_; }
  // The record under the cursor; nullptr past the last one (every field is then empty).
  const std::vector<Variant>* record() const { return atEnd() ? nullptr : &data_.row(index_); }
  void advance() {
    if (!atEnd()) ++index_;
    ++generation_;
  }
  // Changes whenever the record under the cursor does: the key of values made from it.
  uint64_t generation() const { return generation_; }

 private:
  const MergeData& data_;
  size_t index_ = 0;
  uint64_t generation_ = 0;
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

// A program bound to a data source: the column of each field, and the runs of each field's
// value, made once per record however often the program asks for them.
class BoundProgram {
 public:
  // REQUIRES: program outlives the binding.
  BoundProgram(const MergeProgram& program, const MergeData& data);

  // Appends the program's XML for the record under the cursor.
  void render(const RecordCursor& cursor, const ReferenceResolver& references, std::string& out);

 private:
  const std::string& runs(uint32_t field, const RecordCursor& cursor);

  const MergeProgram& program_;
  std::vector<std::optional<size_t>> columns_;
  std::vector<std::string> runs_;
  std::vector<uint64_t> madeFor_;  // the cursor generation + 1 of runs_[i]; 0: not made
};

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
