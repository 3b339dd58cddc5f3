// The rule lists of the template normaliser: old notations and retired field names, the names
// of each province's government numbers, and the country's address names.
//
// Only rules whose text holds a delimiter are tied to placeholders; "Docket" and the named date
// formats are replaced anywhere, in a letter's body as well. The province and country rules exist
// in the plain form only: escaped placeholders get no jurisdiction treatment.
#include <array>
#include <utility>

#include "engine/placeholder_grammar.h"
#include "engine/text_rules.h"
#include "runtime/text.h"

namespace nvwm::engine {
namespace {

using Pair = std::pair<const char*, const char*>;

void addPlain(TextRules& rules, std::initializer_list<Pair> pairs) {
  for (const auto& [from, to] : pairs) rules.push_back({from, to});
}

// The pairs in plain form, then the same pairs with the escaped delimiters.
void addPlainThenEscaped(TextRules& rules, std::initializer_list<Pair> pairs) {
  addPlain(rules, pairs);
  for (const auto& [from, to] : pairs) {
    rules.push_back({toEscapedDelimiters(from), toEscapedDelimiters(to)});
  }
}

TextRules makeNotationRules() {
  TextRules rules;
  addPlain(rules, {{"<<", "«"}, {">>", "»"}});
  // A bracketed "Calendar Date" goes to a name no catalogue row has ("Task Calendar Date" is
  // the row): such a placeholder is told as unknown and blanked. That is how it stands.
  addPlainThenEscaped(rules, {{"«(Due Date", "«(Task Due Date"},
                              {"«(in-House Due Date", "«(Task in-House Due Date"},
                              {"«(Calendar Date", "«(Task Calendar Due Date"}});
  addPlainThenEscaped(rules, {{"«Contact Full Name»", "«Contact Display Name»"}});
  addPlain(rules, {{"Contact Full Name", "Contact Display Name"},
                   {"Docket", "Time Entry"},
                   {"Long Date", "dddd, mmmm d yyyy"},
                   {"Medium Date", "mmm d yyyy"},
                   {"Short Date", "dd/mm/yy"}});
  addPlainThenEscaped(
      rules, {{"«Notified Date»", "«Calendar Date»"}, {"«Weekday Date»", "«Calendar Date»"}});
  addPlainThenEscaped(rules, {{"«Remittance Name»", "«Task Name»"},
                              {"«Remittance Due Date»", "«Task Due Date»"},
                              {"«Remittance in-House Due Date»", "«Task in-House Due Date»"},
                              {"«Remittance Weekday Due Date»", "«Task Calendar Date»"},
                              {"«Task Weekday Due Date»", "«Task Calendar Date»"},
                              {"«Remittance Year»", "«Task Year»"},
                              {"«Custom Remitt Field 1»", "«Custom Task Field 1»"},
                              {"«Custom Remitt Field 2»", "«Custom Task Field 2»"},
                              {"«Custom Remitt Field 3»", "«Custom Task Field 3»"},
                              {"«Custom Remitt Field 4»", "«Custom Task Field 4»"},
                              {"«Custom Remitt Field 5»", "«Custom Task Field 5»"},
                              {"«Contact Full Name»", "«Contact Display Name»"}});
  return rules;
}

// Which board takes the workers' compensation numbers in a province.
enum class Board { kWcb, kQuebec, kWhscc, kWsib };

struct ProvinceBranch {
  int32_t code;
  const char* corporateLabel;  // the province in "«... Corp. Tax Number»"
  Board board;
  bool harmonized;  // "«GST Number»" becomes "«HST Number»"; otherwise the reverse
  bool dateRule;    // opens with the harmonized tax rule of 1 July 2010
};

// Codes 3, 5, 6, 7 and any other number take the Ontario branch, the last row.
constexpr std::array<ProvinceBranch, 10> kBranches = {{
    {0, "Alberta", Board::kWcb, false, false},
    {1, "BC", Board::kWcb, false, true},
    {2, "Manitoba", Board::kWcb, false, false},
    {4, "Sask.", Board::kWcb, false, false},
    {8, "Que.", Board::kQuebec, false, false},
    {9, "N.S.", Board::kWcb, true, false},
    {12, "P.E.I.", Board::kWcb, false, false},
    {10, "N.B.", Board::kWhscc, true, false},
    {11, "Nfld.", Board::kWhscc, true, false},
    {-1, "ON", Board::kWsib, false, true},
}};

const ProvinceBranch& branchOf(int32_t provinceCode) {
  for (const ProvinceBranch& b : kBranches) {
    if (b.code == provinceCode) return b;
  }
  return kBranches.back();
}

// British Columbia and Ontario moved to the harmonized sales tax on this day.
Date harmonizedTaxStart() { return Date::fromYmd(2010, 7, 1); }

void addBoardRules(TextRules& rules, Board board) {
  switch (board) {
    case Board::kWcb:
      addPlain(rules, {{"«WSIB Number»", "«WCB Number»"},
                       {"«NEQ Number»", "«WCB Number»"},
                       {"«WHSCC Number»", "«WCB Number»"},
                       {"«WSIB Premium Rate»", "«WCB Premium Rate»"}});
      break;
    case Board::kQuebec:
      addPlain(rules, {{"«WSIB Number»", "«NEQ Number»"},
                       {"«WHSCC Number»", "«WCB Number»"},
                       {"«WSIB Premium Rate»", "«CSST Premium Rate»"}});
      break;
    case Board::kWhscc:
      addPlain(rules, {{"«WSIB Number»", "«WHSCC Number»"},
                       {"«WCB Number»", "«WHSCC Number»"},
                       {"«NEQ Number»", "«WHSCC Number»"},
                       {"«WSIB Premium Rate»", "«WHSCC Premium Rate»"}});
      break;
    case Board::kWsib:
      addPlain(rules, {{"«WCB Number»", "«WSIB Number»"},
                       {"«NEQ Number»", "«WSIB Number»"},
                       {"«WHSCC Number»", "«WSIB Number»"},
                       {"«WCB Premium Rate»", "«WSIB Premium Rate»"}});
      break;
  }
  // Outside Ontario the firm number keeps its name and only takes this case.
  if (board == Board::kWsib) {
    addPlain(rules, {{"«WCB Firm Number»", "«WSIB Firm Number»"}});
  } else {
    addPlain(rules, {{"«WSIB Firm Number»", "«WSIB Firm Number»"}});
  }
}

std::string corporateTaxName(const char* label) {
  return std::string(kOpenPlain) + label + " Corp. Tax Number" + kClosePlain;
}

TextRules makeCountryRules(bool toCanada) {
  static constexpr std::array<Pair, 12> kUnitedStatesToCanada = {{
      {"«State»", "«Province»"},
      {"«Zip Code»", "«Postal Code»"},
      {"«Contact Business State»", "«Contact Business Province»"},
      {"«Contact Business Zip Code»", "«Contact Business Postal Code»"},
      {"«Contact Home State»", "«Contact Home Province»"},
      {"«Contact Home Zip Code»", "«Contact Home Postal Code»"},
      {"«Spouse Home State»", "«Spouse Home Province»"},
      {"«Spouse Home Zip Code»", "«Spouse Home Postal Code»"},
      {"«Your State»", "«Your Province»"},
      {"«Your Zip Code»", "«Your Postal Code»"},
      {"«Contact SSN»", "«Contact SIN»"},
      {"«Spouse SSN»", "«Spouse SIN»"},
  }};
  TextRules rules;
  for (const auto& [unitedStates, canada] : kUnitedStatesToCanada) {
    if (toCanada) {
      rules.push_back({unitedStates, canada});
    } else {
      rules.push_back({canada, unitedStates});
    }
  }
  return rules;
}

}  // namespace

const TextRules& notationRules() {
  static const TextRules rules = makeNotationRules();
  return rules;
}

namespace {

TextRules makeProvinceRules(const ProvinceBranch& branch, bool harmonizedTaxDay) {
  TextRules rules;
  // The date rule is undone by the branch's own "«HST Number»" rule further down, so both names
  // end as "«GST Number»" on any date. The order is required as it stands.
  if (branch.dateRule && harmonizedTaxDay) {
    addPlain(rules, {{"«GST Number»", "«HST Number»"}});
  }
  addBoardRules(rules, branch.board);
  if (branch.harmonized) {
    addPlain(rules, {{"«GST Number»", "«HST Number»"}});
  } else {
    addPlain(rules, {{"«HST Number»", "«GST Number»"}});
  }
  for (const ProvinceBranch& other : kBranches) {
    if (&other == &branch) continue;
    // Quebec's branch has no rule for Saskatchewan's name and leaves it standing.
    if (branch.board == Board::kQuebec && other.code == 4) continue;
    rules.push_back(
        {corporateTaxName(other.corporateLabel), corporateTaxName(branch.corporateLabel)});
  }
  if (branch.board == Board::kQuebec) {
    addPlain(rules, {{"«ON Corp. MCBS Number»", "«Quebec ID Number»"}});
  } else if (branch.board == Board::kWsib) {
    addPlain(rules, {{"«Quebec ID Number»", "«ON Corp. MCBS Number»"}});
  }
  return rules;
}

}  // namespace

const TextRules& provinceRules(int32_t provinceCode, Date today) {
  // Every template of a fill goes through these: made once per branch, before and after the
  // harmonized tax day.
  static const auto lists = [] {
    std::array<std::array<TextRules, 2>, kBranches.size()> made;
    for (size_t i = 0; i < kBranches.size(); ++i) {
      made[i] = {makeProvinceRules(kBranches[i], false), makeProvinceRules(kBranches[i], true)};
    }
    return made;
  }();
  const ProvinceBranch& branch = branchOf(provinceCode);
  return lists[static_cast<size_t>(&branch - kBranches.data())]
              [today.datePart() >= harmonizedTaxStart() ? 1 : 0];
}

const TextRules& countryRules(int32_t countryCode) {
  static const TextRules toCanada = makeCountryRules(true);
  static const TextRules toUnitedStates = makeCountryRules(false);
  static const TextRules none;
  if (countryCode == 1) return toCanada;
  if (countryCode == 2) return toUnitedStates;
  return none;
}

int32_t applyRules(FoldedText& text, const TextRules& rules) {
  int32_t replaced = 0;
  for (const TextRule& rule : rules) replaced += text.replaceAll(rule.from, rule.to);
  return replaced;
}

}  // namespace nvwm::engine
