// Internal: the instructions of the conditional fields of a merge (IF, NEXTIF, SKIPIF), read
// from the text of their runs and the fields nested in them, and the comparison they make.
//
//   IF      operand comparison operand [result-if-true [result-if-false]]
//   NEXTIF  operand comparison operand
//   SKIPIF  operand comparison operand
//   comparison := "=" | "<>" | "<" | ">" | "<=" | ">="     a word of its own, blanks around
//
// An operand or a result is one word: quoted ("Dear Sir") or bare (Ann, 100, or a nested field
// alone). Words after the last argument, and switches (\* MERGEFORMAT), are ignored.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "docx/merge_program.h"

namespace nvwm::docx {

// One part of a field's instruction as it stands in the document: the text of a run, or a
// field nested there.
struct InstructionPart {
  std::string text;
  std::string runProperties;  // the w:rPr of the run the text came from (serialized)
  int32_t nested = -1;        // a nested field (the caller's id for it); text is then unused
};

// A word of an instruction, made of run text and nested fields.
struct InstructionWord {
  std::vector<InstructionPart> parts;
  bool quoted = false;

  // The word's text when it holds no nested field.
  std::optional<std::string> plainText() const;
};

// Splits an instruction into words. Blanks separate words; "..." is one word that keeps its
// blanks, with \" and \\ for a quote and a backslash; a nested field belongs to the word it
// stands in. Consecutive text of one run's formatting is one part.
std::vector<InstructionWord> splitInstruction(const std::vector<InstructionPart>& parts);

// The comparison a word spells, if it spells one.
std::optional<Comparison> comparisonOf(const InstructionWord& word);

// Whether `left comparison right` holds. Both sides that read as numbers compare as numbers;
// otherwise as texts, code point by code point, case counting. With = and <> and wildcards
// set (a quoted right side), ? in right stands for any one character and * for any run of
// them.
bool compareTexts(Comparison comparison, std::string_view left, std::string_view right,
                  bool wildcards);

}  // namespace nvwm::docx
