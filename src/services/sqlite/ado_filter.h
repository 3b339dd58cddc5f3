// Internal: ADO Recordset.Filter criteria, parsed once and tested against the rows of a
// recordset in memory (so a filtered recordset keeps its base's order and column names).
//
// Grammar (ADO's, with its usual leniencies):
//   filter  := or
//   or      := and { OR and }
//   and     := primary { AND primary }
//   primary := '(' or ')' | clause
//   clause  := field op value | field IS [NOT] NULL
//   field   := name | [name with blanks]
//   op      := = | <> | < | > | <= | >= | LIKE
//   value   := 'text' ('' is a quote) | #date# | [-]$number[e exponent] | True | False | Null
// AND binds tighter than OR (ADO gives them no precedence but refuses the forms where it would
// matter). LIKE patterns take * or % for any run of characters (anywhere), compared without
// regard to case; other characters stand for themselves. `= Null` and `<> Null` test for Null; any
// other comparison with a Null is false.
//
// Malformed input: an unknown field, an unclosed quote, bracket or parenthesis, a missing
// operator or value, parentheses nested deeper than kMaxFilterNesting, or text after the end
// raises RuntimeError 3001 naming the fault.
#pragma once

#include <memory>
#include <string_view>

#include "services/sqlite/recordset.h"

namespace nvwm::sqlite {

// The deepest nesting of parentheses a filter may have.
inline constexpr int kMaxFilterNesting = 256;

class AdoFilter {
 public:
  struct Node;

  // Parses the criteria against the recordset's column names. Raises 3001 on a bad filter.
  static AdoFilter parse(std::string_view text, const Recordset& rs);
  // True when row r of rs passes.
  bool matches(const Recordset& rs, size_t r) const;

  AdoFilter(AdoFilter&&) noexcept;
  AdoFilter& operator=(AdoFilter&&) noexcept;
  ~AdoFilter();

 private:
  AdoFilter();
  std::unique_ptr<Node> root_;
};

// Compares two values as a filter does: numbers with numbers (a text read as a number), dates
// with dates, text with text without regard to case. Nothing when they can't be compared or
// one is Null.
std::optional<int> compareValues(const Variant& a, const Variant& b);
// LIKE with * or % for any run of characters; case-insensitive (ASCII).
bool likeMatch(std::string_view text, std::string_view pattern);

}  // namespace nvwm::sqlite
