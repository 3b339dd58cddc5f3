#include "services/sqlite/ado_filter.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <vector>

#include "runtime/ascii.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "services/sqlite/sql_text.h"

namespace nvwm::sqlite {

// AND and OR hold all their operands in one node, so that a long chain of clauses is one level
// deep, not one level per clause: only parentheses nest, and they are bounded.
struct AdoFilter::Node {
  enum Kind { kAnd, kOr, kCompare, kLike, kIsNull, kIsNotNull } kind = kCompare;
  std::vector<std::unique_ptr<Node>> operands;
  int column = -1;
  std::string op;  // "=", "<>", "<", ">", "<=", ">="
  Variant value;   // already in the column's kind where it converts
};

namespace {

[[noreturn]] void bad(std::string_view filter, std::string_view why) {
  raise(ErrorNumber::kDatabaseError,
        "the filter \"" + std::string(filter) + "\" can't be read: " + std::string(why));
}

bool isNameChar(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '.' ||
         static_cast<unsigned char>(c) >= 0x80;
}

class Parser {
 public:
  Parser(std::string_view text, const Recordset& rs) : s_(text), rs_(rs) {}

  std::unique_ptr<AdoFilter::Node> parseAll() {
    auto node = parseOr();
    skip();
    if (i_ < s_.size()) bad(s_, "unexpected \"" + std::string(s_.substr(i_)) + "\"");
    return node;
  }

 private:
  using Node = AdoFilter::Node;

  void skip() {
    while (i_ < s_.size() && std::isspace(static_cast<unsigned char>(s_[i_]))) ++i_;
  }
  bool keyword(std::string_view word) {
    skip();
    if (s_.size() - i_ < word.size()) return false;
    for (size_t k = 0; k < word.size(); ++k) {
      if (asciiUpper(s_[i_ + k]) != word[k]) return false;
    }
    size_t end = i_ + word.size();
    if (end < s_.size() && isNameChar(s_[end])) return false;
    i_ = end;
    return true;
  }
  // operand { word operand }, as one node of `kind` when there is more than one operand.
  template <class Parse>
  std::unique_ptr<Node> parseList(Node::Kind kind, std::string_view word, Parse parse) {
    auto first = (this->*parse)();
    if (!keyword(word)) return first;
    auto list = std::make_unique<Node>();
    list->kind = kind;
    list->operands.push_back(std::move(first));
    do {
      list->operands.push_back((this->*parse)());
    } while (keyword(word));
    return list;
  }
  std::unique_ptr<Node> parseOr() { return parseList(Node::kOr, "OR", &Parser::parseAnd); }
  std::unique_ptr<Node> parseAnd() { return parseList(Node::kAnd, "AND", &Parser::parsePrimary); }
  std::unique_ptr<Node> parsePrimary() {
    skip();
    if (i_ < s_.size() && s_[i_] == '(') {
      // Each level is a few frames of this parser: bound it before the stack is.
      if (++depth_ > kMaxFilterNesting)
        bad(s_, "parentheses are nested more than " + std::to_string(kMaxFilterNesting) + " deep");
      ++i_;
      auto node = parseOr();
      skip();
      if (i_ >= s_.size() || s_[i_] != ')') bad(s_, "a parenthesis is not closed");
      ++i_;
      --depth_;
      return node;
    }
    return parseClause();
  }

  std::string parseField() {
    skip();
    if (i_ < s_.size() && s_[i_] == '[') {
      size_t end = s_.find(']', i_);
      if (end == std::string_view::npos) bad(s_, "a [ is not closed");
      std::string name(s_.substr(i_ + 1, end - i_ - 1));
      i_ = end + 1;
      return name;
    }
    size_t start = i_;
    while (i_ < s_.size() && isNameChar(s_[i_])) ++i_;
    if (i_ == start) bad(s_, "a field name is missing");
    return std::string(s_.substr(start, i_ - start));
  }

  std::string parseOperator() {
    skip();
    if (keyword("LIKE")) return "LIKE";
    static const char* const ops[] = {"<=", ">=", "<>", "=", "<", ">"};
    for (const char* op : ops) {
      std::string_view o(op);
      if (s_.substr(i_, o.size()) == o) {
        i_ += o.size();
        return std::string(o);
      }
    }
    bad(s_, "an operator (=, <>, <, >, <=, >=, LIKE) is missing");
  }

  Variant parseValue() {
    skip();
    if (i_ >= s_.size()) bad(s_, "a value is missing");
    char c = s_[i_];
    if (c == '\'' || c == '"') {
      std::string text;
      for (size_t j = i_ + 1; j < s_.size(); ++j) {
        if (s_[j] == c) {
          if (j + 1 < s_.size() && s_[j + 1] == c) {
            text += c;
            ++j;
            continue;
          }
          i_ = j + 1;
          return Variant(text);
        }
        text += s_[j];
      }
      bad(s_, "a quoted text is not closed");
    }
    if (c == '#') {
      size_t end = s_.find('#', i_ + 1);
      if (end == std::string_view::npos) bad(s_, "a date has no closing #");
      std::string_view inner = s_.substr(i_ + 1, end - i_ - 1);
      i_ = end + 1;
      // #'text'# is a text in ADO's grammar.
      if (inner.size() >= 2 && inner.front() == '\'' && inner.back() == '\'')
        return Variant(std::string(inner.substr(1, inner.size() - 2)));
      auto d = parseJetDateLiteral(inner);
      if (!d) bad(s_, "#" + std::string(inner) + "# is not a date");
      return Variant(*d);
    }
    if (keyword("TRUE")) return Variant(true);
    if (keyword("FALSE")) return Variant(false);
    if (keyword("NULL")) return Variant::null();
    size_t start = i_;
    while (i_ < s_.size() && !std::isspace(static_cast<unsigned char>(s_[i_])) && s_[i_] != ')')
      ++i_;
    std::string number(s_.substr(start, i_ - start));
    std::string clean;
    for (char ch : number) {
      if (ch != '$') clean += ch;
    }
    auto n = TryParseNumber(clean);
    if (!n) bad(s_, "\"" + number + "\" is not a value");
    return Variant(*n);
  }

  std::unique_ptr<Node> parseClause() {
    std::string field = parseField();
    int column = rs_.find(field);
    if (column < 0) bad(s_, "no field is named \"" + field + "\"");
    auto node = std::make_unique<Node>();
    node->column = column;
    if (keyword("IS")) {
      node->kind = keyword("NOT") ? Node::kIsNotNull : Node::kIsNull;
      if (!keyword("NULL")) bad(s_, "IS must be followed by NULL or NOT NULL");
      return node;
    }
    std::string op = parseOperator();
    Variant value = parseValue();
    if (value.isNull()) {
      if (op == "=")
        node->kind = Node::kIsNull;
      else if (op == "<>")
        node->kind = Node::kIsNotNull;
      else
        bad(s_, "Null can only be compared with = or <>");
      return node;
    }
    if (op == "LIKE") {
      node->kind = Node::kLike;
      node->value = Variant(CStr(value));
      return node;
    }
    node->op = op;
    node->value = coerceToKind(value, rs_.columns[column].kind);
    return node;
  }

  std::string_view s_;
  const Recordset& rs_;
  size_t i_ = 0;
  int depth_ = 0;
};

bool evaluate(const AdoFilter::Node& n, const Recordset& rs, size_t r) {
  using Node = AdoFilter::Node;
  switch (n.kind) {
    case Node::kAnd:
      return std::all_of(n.operands.begin(), n.operands.end(),
                         [&](const auto& o) { return evaluate(*o, rs, r); });
    case Node::kOr:
      return std::any_of(n.operands.begin(), n.operands.end(),
                         [&](const auto& o) { return evaluate(*o, rs, r); });
    case Node::kIsNull:
      return rs.cell(r, n.column).isNull();
    case Node::kIsNotNull:
      return !rs.cell(r, n.column).isNull();
    case Node::kLike: {
      const Variant& v = rs.cell(r, n.column);
      if (v.isNull()) return false;
      return likeMatch(v.isString() ? v.stringValue() : CStr(v), n.value.stringValue());
    }
    case Node::kCompare: {
      auto c = compareValues(rs.cell(r, n.column), n.value);
      if (!c) return false;
      if (n.op == "=") return *c == 0;
      if (n.op == "<>") return *c != 0;
      if (n.op == "<") return *c < 0;
      if (n.op == ">") return *c > 0;
      if (n.op == "<=") return *c <= 0;
      return *c >= 0;
    }
  }
  return false;
}

// As the database's NOCASE: ASCII letters folded, every other byte as it is.
int compareNoCase(std::string_view a, std::string_view b) {
  size_t n = std::min(a.size(), b.size());
  for (size_t i = 0; i < n; ++i) {
    int ca = static_cast<unsigned char>(asciiLower(a[i]));
    int cb = static_cast<unsigned char>(asciiLower(b[i]));
    if (ca != cb) return ca < cb ? -1 : 1;
  }
  return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

int sign(double d) { return d < 0 ? -1 : (d > 0 ? 1 : 0); }

std::optional<double> numberOf(const Variant& v) {
  if (v.isString()) return TryParseNumber(v.stringValue());
  if (v.isDate()) return v.dateValue().serial();
  if (v.isNumber() || v.isBoolean()) return CDbl(v);
  return std::nullopt;
}

}  // namespace

AdoFilter::AdoFilter() = default;
AdoFilter::AdoFilter(AdoFilter&&) noexcept = default;
AdoFilter& AdoFilter::operator=(AdoFilter&&) noexcept = default;
AdoFilter::~AdoFilter() = default;

AdoFilter AdoFilter::parse(std::string_view text, const Recordset& rs) {
  AdoFilter f;
  if (isBlankSql(text)) raise(ErrorNumber::kDatabaseError, "the filter is empty");
  f.root_ = Parser(text, rs).parseAll();
  return f;
}

bool AdoFilter::matches(const Recordset& rs, size_t r) const { return evaluate(*root_, rs, r); }

std::optional<int> compareValues(const Variant& a, const Variant& b) {
  if (a.isNull() || b.isNull() || a.isEmpty() || b.isEmpty()) return std::nullopt;
  if (a.isString() && b.isString()) {
    return compareNoCase(a.stringValue(), b.stringValue());
  }
  if (a.isDate() || b.isDate()) {
    auto da = TryCDate(a);
    auto db = TryCDate(b);
    if (!da || !db) return std::nullopt;
    // Stored dates are whole seconds.
    return sign(std::round(da->serial() * 86400.0) - std::round(db->serial() * 86400.0));
  }
  auto na = numberOf(a);
  auto nb = numberOf(b);
  if (na && nb) return sign(*na - *nb);
  return compareNoCase(CStr(a), CStr(b));
}

bool likeMatch(std::string_view text, std::string_view pattern) {
  auto lower = [](char c) { return asciiLower(c); };
  // Iterative wildcard match with one backtrack point.
  size_t t = 0, p = 0, starP = std::string_view::npos, starT = 0;
  while (t < text.size()) {
    if (p < pattern.size() && (pattern[p] == '*' || pattern[p] == '%')) {
      starP = p++;
      starT = t;
    } else if (p < pattern.size() && lower(pattern[p]) == lower(text[t])) {
      ++p;
      ++t;
    } else if (starP != std::string_view::npos) {
      p = starP + 1;
      t = ++starT;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && (pattern[p] == '*' || pattern[p] == '%')) ++p;
  return p == pattern.size();
}

}  // namespace nvwm::sqlite
