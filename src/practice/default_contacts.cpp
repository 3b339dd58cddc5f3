// The default-contact upkeep of modDatabaseFunctions: which link is a company's default, the
// rewrite of the links, and the copies of the default contact's details on the company row.
#include "practice/default_contacts.h"

#include <algorithm>
#include <string>
#include <vector>

#include "addresses/contact_summary.h"
#include "practice/lookup_shape.h"
#include "practice/lookups.h"

namespace nvwm {

using practice::database;
using practice::LookupRoutine;

namespace {

std::string companyLinksSql(int32_t companyID) {
  return "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, ContactLinks.DefaultContact "
         "FROM ContactLinks WHERE ContactLinks.CompanyNum = " +
         std::to_string(companyID) + ";";
}

// Companies whose links are being repaired on this thread. A repair that finds its company here
// could only be asked for again because the marking it wrote didn't take: it is not started
// again, so the cycle through getDefaultContactIDFromCompanyID ends.
thread_local std::vector<int32_t> companiesUnderRepair;

class RepairUnderWay {
 public:
  explicit RepairUnderWay(int32_t companyID) : companyID_(companyID) {
    companiesUnderRepair.push_back(companyID);
  }
  ~RepairUnderWay() {
    auto it = std::find(companiesUnderRepair.rbegin(), companiesUnderRepair.rend(), companyID_);
    if (it != companiesUnderRepair.rend()) companiesUnderRepair.erase(std::next(it).base());
  }
  RepairUnderWay(const RepairUnderWay&) = delete;
  RepairUnderWay& operator=(const RepairUnderWay&) = delete;
  static bool active(int32_t companyID) {
    return std::find(companiesUnderRepair.begin(), companiesUnderRepair.end(), companyID) !=
           companiesUnderRepair.end();
  }

 private:
  int32_t companyID_;
};

}  // namespace

int32_t checkForDefaultContact(int32_t companyID, bool repair) {
  LookupRoutine r("checkForDefaultContact");
  int32_t result = -1;
  if (!r.connected()) return result;
  const Handle h = r.open(companyLinksSql(companyID));
  if (!r.hasRows(h)) {
    // No contacts at all.
    r.step([&] { setNoContactAsDefault(companyID, false); });
    r.close(h);
    return result;
  }
  bool found = false;
  while (!r.atEnd(h)) {
    r.step([&] { found = CBool(database().getField(h, Variant("DefaultContact"))); });
    if (found || !r.moveNext(h)) break;
  }
  if (found) {
    r.readField(h, "ContactIDNum", practice::NullTest::kNotTested, result);
  } else if (repair && !RepairUnderWay::active(companyID)) {
    // The first link in recordset order becomes the default.
    r.hasRows(h);
    r.readField(h, "ContactIDNum", practice::NullTest::kNotTested, result);
    RepairUnderWay underWay(companyID);
    r.step([&] { setContactAsDefault(result, companyID, false); });
  }
  r.close(h);
  return result;
}

Variant setContactAsDefault(int32_t contactID, int32_t companyID, bool skipSummaries) {
  LookupRoutine r("setContactAsDefault");
  if (!r.connected()) return {};
  const Handle h = r.open(companyLinksSql(companyID), kLockOptimistic);
  if (r.hasRows(h)) {
    while (!r.atEnd(h)) {
      r.step([&] {
        const int32_t linked = CLng(database().getField(h, Variant("ContactIDNum")));
        database().setField(h, "DefaultContact", linked == contactID ? "True" : "False");
      });
      if (!skipSummaries) {
        // Once per link row, always for the new default contact: a company of ten links
        // rebuilds the same summaries ten times.
        int32_t position = 0;
        r.step([&] { position = database().getRecordPosition(h); });
        r.step([&] { saveContactBusinessRTF(contactID, -1, companyID, false); });
        r.step([&] { saveCompanyContactRTF(companyID, contactID); });
        r.step([&] { database().setRecordPosition(h, position); });
      }
      if (!r.moveNext(h)) break;
    }
  }
  r.close(h);
  r.step([&] { updateDefaultContactInfo(companyID); });
  r.step([&] { changeDefaultContactChangeLookupFieldValue(contactID); });
  return {};
}

Variant setNoContactAsDefault(int32_t companyID, bool skipSummaries) {
  LookupRoutine r("setNoContactAsDefault");
  if (r.connected()) r.step([&] { updateDefaultContactInfo(companyID); });
  if (!skipSummaries) r.step([&] { saveCompanyContactRTF(companyID, -1); });
  return {};
}

Variant updateDefaultContactInfo(int32_t companyID) {
  LookupRoutine r("updateDefaultContactInfo");
  if (!r.connected()) return {};
  int32_t contactID = -1;
  r.step([&] { contactID = getDefaultContactIDFromCompanyID(companyID); });
  const Handle company = r.open(
      "SELECT Companies.CompanyID, Companies.DefaultContactName, "
      "Companies.DefaultContactPhoneNumber, Companies.DefaultContactFaxNumber, "
      "Companies.DefaultContactEmail FROM Companies WHERE CompanyID = " +
          std::to_string(companyID) + ";",
      kLockOptimistic);
  // Copy column on the company row, column of the contact.
  constexpr std::pair<const char*, const char*> kCopies[] = {
      {"DefaultContactName", "DisplayName"},
      {"DefaultContactPhoneNumber", "BusinessPhone_Main"},
      {"DefaultContactFaxNumber", "BusinessPhone_Fax"},
      {"DefaultContactEmail", "BusinessEmail"},
  };
  bool contactExists = false;
  r.step([&] { contactExists = validContactID(std::to_string(contactID)); });
  if (contactExists) {
    const Handle contact = r.open(
        "SELECT Contacts.ContactID, Contacts.DisplayName, Contacts.BusinessPhone_Main, "
        "Contacts.BusinessPhone_Fax, Contacts.BusinessEmail FROM Contacts WHERE ContactID = " +
        std::to_string(contactID) + ";");
    const bool companyRow = r.hasRows(company);
    if (r.hasRows(contact) && companyRow) {
      for (const auto& [copy, column] : kCopies) {
        // No Null test: a contact without a fax number raises 94 here.
        r.step([&] {
          database().setField(company, copy, CStr(database().getField(contact, column)));
        });
      }
    }
    r.close(contact);
  } else if (r.hasRows(company)) {
    for (const auto& [copy, column] : kCopies) {
      r.step([&] { database().setField(company, copy, ""); });
    }
  }
  r.close(company);
  return {};
}

}  // namespace nvwm
