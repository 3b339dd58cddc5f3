#include "default_contacts_fixture.h"

#include <algorithm>

#include "host/references.h"
#include "services/folder_locale.h"

namespace nvwm::testing {

DefaultContactsFixture::DefaultContactsFixture() {
  references().LocaleReference = std::make_shared<HostLocale>(1, 3);
  references().messagePump = pump;
  exec(
      "INSERT INTO Companies (CompanyID, CompanyName, DefaultContactName, "
      "DefaultContactPhoneNumber, DefaultContactFaxNumber, DefaultContactEmail) VALUES "
      "(5, 'Cataraqui Marine Services', 'stale', 'stale', 'stale', 'stale'), "
      "(6, 'Frontenac Organic Farms', 'stale', 'stale', 'stale', 'stale');"
      "INSERT INTO CompaniesNotes (CompanyNum, ContactNotes) VALUES (5, NULL);"
      "INSERT INTO Contacts (ContactID, DisplayName, BusinessPhone_Main, BusinessPhone_Fax, "
      "BusinessEmail) VALUES (11, 'Ann Brown', '(613) 555-0011', '(613) 555-0911', "
      "'ann@cataraqui.example'), (12, 'Bob Chen', '(613) 555-0012', '(613) 555-0912', "
      "'bob@cataraqui.example'), (13, 'Cy Dube', '(613) 555-0013', '(613) 555-0913', "
      "'cy@cataraqui.example');"
      "INSERT INTO ContactsNotes (ContactNum) VALUES (11), (12), (13);");
  // Labels everywhere, so that the catalogue the lookup-field refresh builds reads no Null.
  std::string names, labels;
  for (const char* prefix :
       {"CustomName", "ApptCustomName", "RemittanceLabel", "TaskCustomName", "DocketCustomName"}) {
    for (int i = 1; i <= 5; ++i) {
      names += std::string(names.empty() ? "" : ", ") + prefix + std::to_string(i);
      labels += std::string(labels.empty() ? "'" : ", '") + prefix + " " + std::to_string(i) + "'";
    }
  }
  exec("INSERT INTO CustomFields (" + names + ") VALUES (" + labels + ");");
  exec(
      "INSERT INTO CustomAddressFields (ContactLabel1, ContactLabel2, ContactLabel3, "
      "ContactLabel4, ContactLabel5, CompanyLabel1, CompanyLabel2, CompanyLabel3, CompanyLabel4, "
      "CompanyLabel5) VALUES ('Contact 1', 'Contact 2', 'Contact 3', 'Contact 4', 'Contact 5', "
      "'Company 1', 'Company 2', 'Company 3', 'Company 4', 'Company 5');");
}

std::string DefaultContactsFixture::marks(int companyID) {
  return stored(
      "SELECT group_concat(ifnull(ContactIDNum, 'NULL') || ':' || ifnull(DefaultContact, "
      "'NULL'), ' ') FROM (SELECT * FROM ContactLinks WHERE CompanyNum = " +
      std::to_string(companyID) + " ORDER BY rowid);");
}

std::string DefaultContactsFixture::copies(int companyID) {
  return stored(
      "SELECT ifnull(DefaultContactName, 'NULL') || '|' || ifnull(DefaultContactPhoneNumber, "
      "'NULL') || '|' || ifnull(DefaultContactFaxNumber, 'NULL') || '|' || "
      "ifnull(DefaultContactEmail, 'NULL') FROM Companies WHERE CompanyID = " +
      std::to_string(companyID) + ";");
}

std::string DefaultContactsFixture::companySummary(int companyID) {
  return stored("SELECT ContactNotes FROM CompaniesNotes WHERE CompanyNum = " +
                std::to_string(companyID) + ";");
}

int DefaultContactsFixture::entered(const std::string& routine) {
  const std::string tag = databaseFunctionsTag(routine);
  return static_cast<int>(std::count(errors().entered.begin(), errors().entered.end(), tag));
}

void DefaultContactsFixture::link5(const std::string& values) {
  exec(
      "CREATE TEMP TABLE IF NOT EXISTS l (c INTEGER, d BOOLEAN); DELETE FROM l; INSERT INTO l "
      "VALUES " +
      values +
      "; INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact) SELECT 5, c, d "
      "FROM l ORDER BY rowid;");
}

}  // namespace nvwm::testing
