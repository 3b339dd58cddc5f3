// Internal: the few changes a Jet SQL text needs before SQLite runs it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "runtime/date.h"

namespace nvwm::sqlite {

// Reads the text between the # marks of a Jet date literal: m/d/yyyy (m/d/yy: 00-29 are
// 2000s), yyyy-mm-dd, either with a time, or a time alone ("9:00 AM"). Jet reads these
// month first whatever the regional settings say, and so does this.
std::optional<Date> parseJetDateLiteral(std::string_view text);

// Rewrites every #date# literal outside quotes and brackets as the stored text
// '2026-11-23 00:00:00' (a time alone on 1899-12-30). Raises RuntimeError 3001 for a # with
// no closing mark or a text between the marks that isn't a date.
std::string translateJetSql(std::string_view sql);

// True when the text holds nothing but blanks, semicolons and comments.
bool isBlankSql(std::string_view sql);

// The top level of a statement, read token by token: quoted texts and names ('...', "...",
// [...], `...`), comments and everything inside parentheses are skipped, so a subquery or a
// text holding "GROUP BY" changes nothing.
struct SelectShape {
  bool select = false;     // the statement begins with the keyword SELECT
  size_t afterSelect = 0;  // the offset just past that keyword
  bool distinct = false;   // SELECT DISTINCT (or Jet's DISTINCTROW)
  bool grouped = false;    // a GROUP BY of the top-level SELECT
};
SelectShape selectShape(std::string_view sql);

}  // namespace nvwm::sqlite
