#include "catalogue/province_words.h"

namespace nvwm::catalogue {
namespace {

struct ProvinceRow {
  int32_t code;
  const char* board;
  const char* shortName;
};

// Province code, board word, short name. Any code not here: "WSIB", "ON".
constexpr ProvinceRow kProvinces[] = {
    {0, "WCB", "Alberta"}, {1, "WCB", "BC"},       {2, "WCB", "Manitoba"},
    {4, "WCB", "Sask."},   {8, "CSST", "Que."},    {9, "WCB", "N.S."},
    {10, "WHSCC", "N.B."}, {11, "WHSCC", "Nfld."}, {12, "WCB", "P.E.I."},
};

// British Columbia and Ontario moved to the harmonized tax on this day.
constexpr int kHarmonizedYear = 2010, kHarmonizedMonth = 7, kHarmonizedDay = 1;

std::string firstTaxWord(int32_t code, Date today) {
  if (code == 9 || code == 10 || code == 11) return "HST";
  if (code == 1 || code == 3) {
    Date harmonized = Date::fromYmd(kHarmonizedYear, kHarmonizedMonth, kHarmonizedDay);
    return today.datePart() >= harmonized ? "HST" : "GST";
  }
  return "GST";
}

}  // namespace

ProvinceWords provinceWords(int32_t provinceCode, Date today) {
  ProvinceWords words{firstTaxWord(provinceCode, today), provinceCode == 8 ? "QST" : "PST", "WSIB",
                      "ON"};
  for (const ProvinceRow& row : kProvinces) {
    if (row.code == provinceCode) {
      words.board = row.board;
      words.shortName = row.shortName;
    }
  }
  return words;
}

}  // namespace nvwm::catalogue
