// Internal: what the parse pass and the merge data lookup do to a template or an expression
// before any value is read, and how they format the values of the typed fields.
#pragma once

#include <cstdint>
#include <string>

#include "engine/data_sets.h"

namespace nvwm {
class clsInsertFieldsInRTB;
}

namespace nvwm::engine {

// The company-name swap applies to a fill with useContactForMissingCompany, no company (below
// 1, so 0 counts as none here) and a contact (1 or more).
bool companyNameSwapApplies(bool useContactForMissingCompany, int32_t companyID, int32_t contactID);
// "«Company Name»" becomes "«Contact Display Name»" when the text holds the first and not the
// second; otherwise the same in the escaped form. At most one of the two forms is swapped.
void swapCompanyNameForContactName(std::string& text);

// Builds the catalogue of a first call from the IDs: the first that names a record decides,
// appointment, task, time entry, schedule entry, then company or contact (both asked); none
// gives the list type 0, which has only the firm's rows. Each test is a query (validXxxID).
void buildCatalogueForRecordIDs(clsInsertFieldsInRTB& rtb, const RecordIDs& ids);

// The values of the typed fields, from the text getDataField gives:
//   "Dollars": "$#,##0.00;$-#,##0.00" ("$1,250.50", "$-1,250.00"); a text that isn't a number
//              comes back as it is ("" stays "");
//   "Yes/No":  "Yes" or "No"; a text that isn't a truth value raises 13 ("" among them);
//   "Time(hrs/Min)": hours as a Single, times 60, rounded half to even to whole minutes, then
//              the duration text of dateUtility; a text that isn't a number raises 13.
std::string dollarsText(const std::string& value);
std::string yesNoText(const std::string& value);
std::string durationText(const std::string& value);

}  // namespace nvwm::engine
