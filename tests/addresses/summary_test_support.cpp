#include "summary_test_support.h"

#include <fstream>
#include <sstream>

namespace nvwm::testing {

void addFullContact(PracticeFixture& f) {
  f.exec(
      "INSERT INTO Companies (CompanyID, CompanyName, Address, City, Province, PostalCode, "
      "Country, OfficeNumber) VALUES (2, 'Maple Leaf Bakery Inc.', '48 Brock Street', "
      "'Kingston', 'Ontario', 'K7L 1R8', 'Canada', '(204) 555-1000'), (3, 'Northern Pines "
      "Lumber Ltd.', '1200 Lasalle Boulevard', 'Sudbury', 'Ontario', 'P3A 1Y8', 'Canada', NULL);"
      "INSERT INTO CompaniesNotes (CompanyNum, BusinessNotes, ContactNotes) VALUES "
      "(2, 'Client since 2007.', NULL), (3, 'Client since 2008.', 'old summary');"
      "INSERT INTO Categories (CategoryID, CategoryName) VALUES (1, 'Farm clients'), "
      "(2, 'Corporate');"
      "INSERT INTO CustomAddressFields (ContactLabel1, ContactLabel2, ContactLabel3) VALUES "
      "('Preferred contact', 'Assistant', NULL);"
      "INSERT INTO Contacts (ContactID, DisplayName, ClientID, BusinessName, BusinessJobTitle, "
      "BusinessDepartment, BusinessOffice, BusinessPhone_Main, BusinessAltPhoneNumber, "
      "BusinessPhone_Cell, BusinessPhone_Fax, BusinessPhone_Pager, BusinessEmail, "
      "BusinessWebSite, BusinessFaceBookURL, BusinessTwitterAccount, InheritCompanyInfo, "
      "BusinessAddress, BusinessCity, BusinessProvince, BusinessPostalCode, BusinessCountry, "
      "SocialInsuranceNumber, EmployeeType, AltAddressName, AltAddress, AltCity, AltProvince, "
      "AltPostalCode, AltCountry, Custom1, Custom2, Custom3) VALUES (101, 'Ann Brown', 'P101', "
      "'Maple Leaf Bakery Inc.', 'President', 'Front Office', 'Kingston', '(204) 555-1000', "
      "'(204) 555-1001', '(613) 555-2101', '(204) 555-1009', '(613) 555-4101', "
      "'ann@maple.example', 'www.maple.example', 'facebook.com/mapleleafbakery', "
      "'@mapleleafbakery', 0, '48 Brock Street', 'Kingston', 'Ontario', 'K7L 1R8', 'Canada', "
      "'046 454 286', 'Owner', 'Cottage', 'RR 2, 14 Loon Lake Road', 'Sharbot Lake', 'Ontario', "
      "'K0H 2P0', 'canada', 'Email first', 'Mei Nakamura', 'gate code 4411');"
      "INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact, CategoryNum) VALUES "
      "(2, 101, 1, NULL), (3, 101, 0, NULL), (NULL, 101, 0, 2);"
      "INSERT INTO ContactsNotes (ContactNum, BusinessNotes, Notes) VALUES (101, NULL, "
      "'Send the engagement letter each spring.' || char(13) || char(10) || "
      "'Prefers morning calls.');");
}

std::string readSummaryData(const std::string& name) {
  std::ifstream in(std::string(NVWM_ADDRESSES_TEST_DATA) + "/" + name, std::ios::binary);
  EXPECT_TRUE(in.good()) << "missing test data " << name;
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

std::vector<std::string> summaryLines(const std::string& rtf) {
  std::vector<std::string> lines;
  size_t start = 0;
  for (size_t end; (end = rtf.find("\r\n", start)) != std::string::npos; start = end + 2)
    lines.push_back(rtf.substr(start, end - start));
  lines.push_back(rtf.substr(start));
  return lines;
}

}  // namespace nvwm::testing
