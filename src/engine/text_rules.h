// Internal: the whole-text rewriting rules of the template normaliser, and the delimiter
// translation they share with the passes.
//
// A rule replaces every occurrence of `from`, ignoring case, by `to` as written. Rules run in
// the order of their list and each sees the text the one before left, so the order is part of
// the behaviour: a list is never sorted or merged.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/date.h"

namespace nvwm {
class FoldedText;
}

namespace nvwm::engine {

struct TextRule {
  std::string from;
  std::string to;
  friend bool operator==(const TextRule&, const TextRule&) = default;
};
using TextRules = std::vector<TextRule>;

// The text with every "«" replaced by "\'ab" and every "»" by "\'bb"; nothing else changes.
std::string toEscapedDelimiters(std::string_view text);

// Always, whatever the firm's locale: "<<" and ">>" to the plain delimiters, the retired field
// names to the current ones, the old named date formats to their patterns.
const TextRules& notationRules();

// The firm's province (a LocaleReference province code) in a Canadian firm: each jurisdiction's
// names of the workers' board, tax and corporation numbers to the names valid in this one. The
// harmonized sales tax rule looks at `today`.
const TextRules& provinceRules(int32_t provinceCode, Date today);

// The address and identity names of the firm's country: country code 1 turns the United States
// names into the Canadian ones, 2 the reverse, any other code has no rules.
const TextRules& countryRules(int32_t countryCode);

// Applies the rules in order to the text. Returns the number of replacements made.
int32_t applyRules(FoldedText& text, const TextRules& rules);

}  // namespace nvwm::engine
