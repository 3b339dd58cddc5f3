// Internal: the placeholders a work text holds, for the catalogue walk of the parse pass.
//
// The walk asks, for each catalogue row and each form, whether the text holds "«Name»" or
// "«(Name, format)»" anywhere, ignoring case. Searching the text for each would cost a search
// per row and form; instead the text is scanned once for its delimited spans, and each span's
// inner text is kept case-folded in a set, so that a question is a hash look-up.
//
// Exactness: a span runs from an opening delimiter to the first closing delimiter after it,
// and every opening delimiter starts one ("««Name»" holds "«Name»"). A placeholder whose name
// holds no closing delimiter occurs in the text exactly when it is one of these spans, so the
// answers are those of a case-insensitive search (InStr in text mode). The delimiters are
// found byte-wise: "«" and "»" have no other case, "\'ab" and "\'bb" are ASCII and compared
// without regard to ASCII case, and no other character folds to "a" or "b" alone.
//
// The index describes the text it was built from. After a placeholder was replaced in it by a
// value, `replaced` either forgets that placeholder, when that is provably all that changed, or
// says that the index must be rebuilt. Forgetting is safe when no span holds a delimiter
// inside it, no opening delimiter follows a piece of an escaped delimiter ("\", "\'",
// "\'a", "\'b"), and the value holds none of the bytes delimiters are made of: then the
// replacement can neither make nor break another span.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace nvwm::engine {

enum class DelimiterForm { kPlain, kEscaped };

class PlaceholderIndex {
 public:
  explicit PlaceholderIndex(std::string_view text) { rebuild(text); }
  void rebuild(std::string_view text);

  // Whether the text holds the form's opening delimiter, then a text whose case folding is
  // `foldedInner`, then its closing delimiter.
  bool holds(DelimiterForm form, std::string_view foldedInner) const {
    return spans_[index(form)].count(foldedInner) > 0;
  }
  // Whether some span holds "(" + a name whose folding is `foldedName` + one of the date
  // tails: the only names worth trying the date forms for.
  bool holdsDateOf(DelimiterForm form, std::string_view foldedName) const {
    return dateNames_[index(form)].count(foldedName) > 0;
  }
  // After every occurrence of the placeholder `foldedInner` in that form was replaced by
  // `value`: forgets it and returns True, or returns False when the index must be rebuilt.
  bool replaced(DelimiterForm form, std::string_view foldedInner, std::string_view value);
  // No placeholder at all in that form.
  bool empty(DelimiterForm form) const { return spans_[index(form)].empty(); }

 private:
  struct Piece {
    size_t form, offset, length;
    bool dateName;
  };
  static size_t index(DelimiterForm form) { return form == DelimiterForm::kPlain ? 0 : 1; }
  void scan(std::string_view text, DelimiterForm form);

  // The folded texts, one after the other; the sets look into it. Kept between rebuilds so
  // that a rebuild allocates nothing once the buffers have grown.
  std::string folded_;
  bool fragile_ = false;  // forgetting isn't safe for this text
  std::vector<Piece> pieces_;
  std::unordered_set<std::string_view> spans_[2];
  std::unordered_set<std::string_view> dateNames_[2];
};

}  // namespace nvwm::engine
