// Internal: the words of the tax and payroll rows that change with the firm's province and the
// date. Chosen afresh at each build, so a template written under one name can stop matching
// when the date passes or the firm moves; the old name is kept nowhere.
#pragma once

#include <cstdint>
#include <string>

#include "runtime/date.h"

namespace nvwm::catalogue {

struct ProvinceWords {
  std::string firstTax;   // "GST" or "HST"
  std::string secondTax;  // "PST" or "QST"
  std::string board;      // the compensation board: "WSIB", "WCB", "CSST", "WHSCC"
  std::string shortName;  // the province in "... Corp. Tax Number": "ON", "BC", "Que."...
};

// The words for a province code on a day. Codes without a row of their own (5 to 7, and any
// other) get the Ontario words "WSIB" and "ON", and "GST"/"PST".
ProvinceWords provinceWords(int32_t provinceCode, Date today);

}  // namespace nvwm::catalogue
