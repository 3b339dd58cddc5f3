// Province handling: the normaliser every template goes through first, and the translation of
// a province's text between its short form and its full name.
//
// The normaliser is a fixed sequence of whole-text replacements (engine/text_rules.h): the
// notation rules always, then for a Canadian firm its province's rules and the Canadian address
// names, for a United States firm the United States address names. The text is folded for
// case-insensitive search once and kept folded through the replacements; a rule that can't
// apply costs a look-up, not a scan.
#include <array>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "engine/text_rules.h"
#include "host/references.h"
#include "host/routine.h"
#include "runtime/clock.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace nvwm {
namespace {

LocaleService& locale() {
  LocaleService* service = references().LocaleReference.get();
  if (service == nullptr) raise(ErrorNumber::kObjectVariableNotSet, "LocaleReference");
  return *service;
}

struct ProvinceNames {
  // Compared with the upper-case text, exactly; unused places are null.
  std::array<const char*, 5> words;
  const char* shortForm;
  const char* fullName;
};

// Two words of the Newfoundland row hold small letters and so never equal an upper-case text:
// "Newfoundland and Labrador" and "Nfld." come back as they were. Kept as the product has them.
constexpr std::array<ProvinceNames, 13> kProvinceNames = {{
    {{"ALBERTA", "ALTA.", "ALTA", "AB"}, "AB", "Alberta"},
    {{"BRITISHCOLUMBIA", "BRITISH COLUMBIA", "B.C.", "BC"}, "BC", "British Columbia"},
    {{"MANITOBA", "MAN.", "MAN", "MB"}, "MB", "Manitoba"},
    {{"ONTARIO", "ONT.", "ONT", "ON"}, "ON", "Ontario"},
    {{"SASKATCHEWAN", "SASK.", "SASK", "SK"}, "SK", "Saskatchewan"},
    {{"QUEBEC", "QUE.", "QUE", "QC"}, "QC", "Quebec"},
    {{"NOVASCOTIA", "NOVA SCOTIA", "N.S.", "NS"}, "NS", "Nova Scotia"},
    {{"NEWBRUNSWICK", "NEW BRUNSWICK", "N.B.", "NB"}, "NB", "New Brunswick"},
    {{"NEWFOUNDLAND", "NEWFOUNDLAND And LABRADOR", "NEWFOUNDLAND & LABRADOR", "Nfld.", "NL"},
     "NL",
     "Newfoundland"},
    {{"PRINCE EDWARD ISLAND", "PEI", "P.E.I."}, "PEI", "Prince Edward Island"},
    {{"NORTHWEST TERRITORIES", "N.W.T.", "NWT", "NT"}, "NT", "Northwest Territories"},
    {{"NUNAVUT", "NU"}, "NU", "Nunavut"},
    {{"YUKON", "YT"}, "YT", "Yukon"},
}};

// The row whose words hold the upper-case text, or null.
const ProvinceNames* findProvince(const std::string& province) {
  std::string upper = UCase(province);
  for (const ProvinceNames& row : kProvinceNames) {
    for (const char* word : row.words) {
      if (word != nullptr && upper == word) return &row;
    }
  }
  return nullptr;
}

}  // namespace

std::string clsInsertFieldsInRTB::convertProvinceFields(std::string text) {
  FoldedText work(std::move(text));
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-convertProvinceFields", errorService());
  // Few rules apply to a given template: one that needs a pair of folded bytes the text lacks,
  // as nearly all do, is turned down by a look-up instead of a scan.
  r.step([&] { work.indexPairs(); });
  r.step([&] { engine::applyRules(work, engine::notationRules()); });
  int32_t country = 0;
  r.step([&] { country = locale().getCountryCode(); });
  r.step([&] {
    if (country == static_cast<int32_t>(CountryCode::kCanada)) {
      engine::applyRules(work, engine::provinceRules(locale().getProvinceCode(), Today()));
    }
  });
  r.step([&] { engine::applyRules(work, engine::countryRules(country)); });
  return work.text();
}

std::string clsInsertFieldsInRTB::getAbbreviatedProvince(std::string& province) {
  std::string result = province;
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-getAbbreviatedProvince", errorService());
  r.step([&] {
    if (const ProvinceNames* row = findProvince(province)) result = row->shortForm;
  });
  return result;
}

std::string clsInsertFieldsInRTB::getFullProvinceString(std::string& province) {
  std::string result = province;
  Routine r("Tallowbrook.exe-clsInsertFieldsInRTB-getFullProvinceString", errorService());
  r.step([&] {
    if (const ProvinceNames* row = findProvince(province)) result = row->fullName;
  });
  return result;
}

}  // namespace nvwm
