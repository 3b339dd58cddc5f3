// Internal: a main document compiled for merging: its body, its headers and footers with
// fields, and its notes, each as a MergeProgram made from the parsed parts in one pass.
// Compiling reads the main package and never changes it; the result holds no handle into it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "docx/merge_program.h"
#include "docx/package.h"

namespace nvwm::docx {

// The main document part.
struct CompiledBody {
  std::string prefix;      // from the XML declaration to the body's start tag
  MergeProgram content;    // the body's children but its last section properties
  MergeProgram section;    // those section properties: a next-page break, numbers from 1
  std::string suffix;      // from the body's end tag to the end
  long drawingStride = 1;  // how far one copy's drawing ids move on from the one before
  long bookmarkStride = 1;
};

// A header or footer of the main document that holds merge fields.
struct CompiledHeader {
  std::string relId;   // its relationship from the main document
  size_t ordinal = 0;  // its place among all headers and footers of the main document
  std::string part;
  std::string relType;
  std::string_view contentType;
  MergeProgram program;                // the whole part
  std::optional<std::string> ownRels;  // its own relationships part, which each copy takes
};

// Footnotes, endnotes or comments: the part around its normal notes, and those notes.
struct CompiledNotes {
  RefKind kind = RefKind::kFootnote;
  std::string part;
  std::string head, tail;
  MergeProgram notes;
  std::unordered_map<std::string, long> indexOf;  // id in the template -> position
  long base = 0;                                  // the first id of the copies' notes
  long count = 0;

  // The id of a note of the template in the given copy; ids of other notes as they are.
  std::string idFor(std::string_view original, size_t copy) const;
};

struct CompiledTemplate {
  std::string mainPart;
  CompiledBody body;
  std::vector<CompiledHeader> headers;
  std::vector<CompiledNotes> notes;
  std::unordered_set<std::string> partNames;  // the template's parts: new parts take others
  // The paragraph ids (w14:paraId) of the parts copied per record, each with its ordinal: a
  // copy gives each an id of its own (paragraphIdFor).
  std::unordered_map<std::string, uint32_t> paragraphIds;

  std::string paragraphIdFor(std::string_view original, size_t copy) const;

  const CompiledNotes* notesOf(RefKind kind) const;
};

// Compiles the main document. suppressBlankLines: paragraphs that hold nothing but merge
// fields are left out of a copy where all of them are empty. Raises 4198 when the main
// document part or a header, footer or notes part is not well-formed XML or holds a character
// XML 1.0 forbids (the message names the part), or the main document has
// no body.
CompiledTemplate compileTemplate(Package& main, bool suppressBlankLines);

}  // namespace nvwm::docx
