// The copies of a contact's summary that companies keep (CompaniesNotes.ContactNotes).
//
// Saving a company's summary saves its contact's own summary, which copies it to the contact's
// other companies; those copies are made with skipOtherCompanies, which ends the recursion.
#include <string>

#include "addresses/contact_summary.h"
#include "addresses/format_addresses_internal.h"
#include "practice/lookups.h"
#include "runtime/convert.h"

namespace nvwm {

using addresses::AddressRoutine;
using addresses::isEmptyValue;

namespace {

DatabaseService& db() { return practice::database(); }

}  // namespace

void saveContactBusinessRTFForAllCompanies(int32_t contactID, int32_t companyID,
                                           const std::string& text) {
  AddressRoutine r("saveContactBusinessRTFForAllCompanies");
  if (!r.connected()) return;
  const Handle links = r.open(
      "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, ContactLinks.DefaultContact "
      "FROM ContactLinks WHERE ContactLinks.ContactIDNum = " +
          std::to_string(contactID) + ";",
      kLockOptimistic);
  if (!r.hasRows(links)) {
    r.close(links);
    return;
  }
  const Handle notes =
      r.open("SELECT CompaniesNotes.CompanyNum, CompaniesNotes.ContactNotes FROM CompaniesNotes;",
             kLockOptimistic);
  while (!r.atEnd(links)) {
    r.step([&] {
      // Category links have no company.
      const Variant company = db().getField(links, Variant("CompanyNum"));
      if (isEmptyValue(company) || !validCompanyID(CStr(company))) return;
      if (!CBool(db().getField(links, Variant("DefaultContact")))) return;
      const int32_t number = CLng(company);
      if (!db().findRecord(notes, "CompanyNum", Variant(number))) return;
      const std::string summary =
          number == companyID ? text : saveContactBusinessRTF(contactID, -1, number, true);
      db().setField(notes, "ContactNotes", summary);
    });
    if (!r.moveNext(links)) break;
  }
  r.close(notes);
  r.close(links);
}

void saveCompanyContactRTF(int32_t companyID, int32_t contactID) {
  AddressRoutine r("saveCompanyContactRTF");
  bool validCompany = false;
  r.step([&] { validCompany = validCompanyID(std::to_string(companyID)); });
  if (!validCompany || !r.connected()) return;
  const Handle h = r.open(
      "SELECT CompaniesNotes.CompanyNum, CompaniesNotes.ContactNotes FROM CompaniesNotes WHERE "
      "CompanyNum=" +
          std::to_string(companyID) + ";",
      kLockOptimistic);
  if (r.hasRows(h)) {
    std::string text;
    r.step([&] {
      text = contactID >= 0 ? saveContactBusinessRTF(contactID, -1, companyID, false)
                            : saveNoDefaultComment();
    });
    r.step([&] { db().setField(h, "ContactNotes", text); });
  }
  r.close(h);
}

std::string saveNoDefaultComment() {
  AddressRoutine r("saveNoDefaultComment");
  std::string result;
  r.step([&] {
    result.append(addresses::kSummaryHeader)
        .append(addresses::kSummaryViewKind)
        .append(R"(\b No Default Contact Selected.\b0  )")
        .append(addresses::kSummaryLineEnd)
        .append(addresses::kSummaryEnd);
  });
  return result;
}

}  // namespace nvwm
