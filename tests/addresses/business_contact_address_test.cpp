// The address block of a contact or a firm employee read from the practice database.
#include <gtest/gtest.h>

#include "addresses/address_blocks.h"
#include "practice_fixture.h"

namespace nvwm {
namespace {

using testing::PracticeFixture;

// A client company with an office number, and two of its contacts: Ann inherits the company's
// details and has no phone of her own, Robert keeps his own.
void addMapleLeaf(PracticeFixture& f) {
  f.exec(
      "INSERT INTO Companies (CompanyID, CompanyName, Address, City, Province, PostalCode, "
      "Country, OfficeNumber, FaxNumber) VALUES (2, 'Maple Leaf Bakery Inc.', '48 Brock Street', "
      "'Kingston', 'Ontario', 'K7L 1R8', 'Canada', '(204) 555-1000', '(204) 555-1009');"
      "INSERT INTO Contacts (ContactID, DisplayName, BusinessName, InheritCompanyInfo, "
      "BusinessAddress, BusinessCity, BusinessProvince, BusinessPostalCode, BusinessCountry, "
      "BusinessPhone_Cell, BusinessEmail) VALUES (101, 'Ann Brown', 'Maple Leaf Bakery', 1, "
      "'PO Box 9', 'Napanee', 'ON', 'K7R 1A1', 'USA', '(613) 555-2101', 'ann@maple.example');"
      "INSERT INTO Contacts (ContactID, DisplayName, BusinessName, InheritCompanyInfo, "
      "BusinessAddress, BusinessCity, BusinessProvince, BusinessPostalCode, BusinessPhone_Main, "
      "BusinessEmail) VALUES (102, 'Robert Wilson', NULL, 1, '12 Queen Street', 'Kingston', "
      "'Ontario', 'K7K 1A1', '(613) 555-7777', 'robert@maple.example');"
      "INSERT INTO Contacts (ContactID, DisplayName, InheritCompanyInfo, BusinessAddress, "
      "BusinessCity, BusinessEmail) VALUES (103, ' Chloe Murphy ', NULL, '3391 Battersea Road', "
      "'Glenburnie', 'chloe@frontenac.example  ');");
}

std::string block(int32_t contactID, int32_t employeeID, int32_t& companyID, bool asRTF = false,
                  bool address = true, bool phones = true, bool email = true,
                  bool businessName = true) {
  return createBusinessContactAddress(contactID, asRTF, employeeID, companyID, address, phones,
                                      email, businessName);
}

TEST(BusinessContactAddressTest, InheritingContactTakesTheCompanysAddressAndMissingPhones) {
  PracticeFixture f;
  addMapleLeaf(f);
  int32_t companyID = 2;
  EXPECT_EQ(block(101, -1, companyID),
            "Maple Leaf Bakery\r\nAnn Brown\r\n48 Brock Street\r\nKingston, Ontario  K7L 1R8"
            "\r\nPhone: (204) 555-1000\r\nFax: (204) 555-1009\r\nCell: (613) 555-2101"
            "\r\nEmail: ann@maple.example");
  EXPECT_EQ(companyID, 2);
  EXPECT_TRUE(f.db().stillOpen().empty());
  EXPECT_TRUE(f.errors().errors.empty());
}

TEST(BusinessContactAddressTest, OwnPhoneStaysWhenInheriting) {
  PracticeFixture f;
  addMapleLeaf(f);
  int32_t companyID = 2;
  EXPECT_EQ(block(102, -1, companyID, false, true, true, false),
            "Robert Wilson\r\n48 Brock Street\r\nKingston, Ontario  K7L 1R8"
            "\r\nPhone: (613) 555-7777\r\nFax: (204) 555-1009");
}

TEST(BusinessContactAddressTest, WithoutAValidCompanyTheContactsOwnAddressStands) {
  const struct {
    const char* name;
    int32_t companyID;
  } cases[] = {{"no company", -1}, {"company not in the table", 77}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PracticeFixture f;
    addMapleLeaf(f);
    int32_t companyID = c.companyID;
    EXPECT_EQ(block(101, -1, companyID, false, true, false, false),
              "Maple Leaf Bakery\r\nAnn Brown\r\nPO Box 9\r\nNapanee, ON  K7R 1A1\r\nUSA");
    EXPECT_EQ(companyID, -1);
    EXPECT_TRUE(f.db().stillOpen().empty());
  }
}

TEST(BusinessContactAddressTest, IncludeFlagsChooseTheFields) {
  const struct {
    const char* name;
    bool address, phones, email, businessName;
    std::string expected;
  } cases[] = {
      // Only blanks are trimmed at the end: a block of name lines keeps its last line end.
      {"name only", false, false, false, false, "Ann Brown\r\n"},
      {"business name and name", false, false, false, true, "Maple Leaf Bakery\r\nAnn Brown\r\n"},
      {"the address brings the business name too", true, false, false, false,
       "Maple Leaf Bakery\r\nAnn Brown\r\n48 Brock Street\r\nKingston, Ontario  K7L 1R8"},
      {"email only", false, false, true, false, "Ann Brown\r\n\r\nEmail: ann@maple.example"},
      // The name's line keeps its line end, and the contact lines start with one.
      {"phones only: an empty line after the name", false, true, false, false,
       "Ann Brown\r\n\r\nPhone: (204) 555-1000\r\nFax: (204) 555-1009\r\nCell: (613) 555-2101"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PracticeFixture f;
    addMapleLeaf(f);
    int32_t companyID = 2;
    EXPECT_EQ(block(101, -1, companyID, false, c.address, c.phones, c.email, c.businessName),
              c.expected);
  }
}

TEST(BusinessContactAddressTest, NullInheritanceCountsAsFalseAndTheResultIsTrimmed) {
  PracticeFixture f;
  addMapleLeaf(f);
  int32_t companyID = 2;
  EXPECT_EQ(block(103, -1, companyID),
            "Chloe Murphy\r\n3391 Battersea Road\r\nGlenburnie\r\nEmail: chloe@frontenac.example");
}

TEST(BusinessContactAddressTest, RtfBlockWithContactLinesHasDoubledMarksInTheAddress) {
  PracticeFixture f;
  addMapleLeaf(f);
  int32_t companyID = 2;
  EXPECT_EQ(block(102, -1, companyID, true, true, false, true),
            "Robert Wilson\r\n\\par \\par 48 Brock Street\r\n\\par \\par Kingston, Ontario  "
            "K7L 1R8\r\n\\par Email: robert@maple.example");
  EXPECT_EQ(block(102, -1, companyID, true, true, false, false),
            "Robert Wilson\r\n\\par 48 Brock Street\r\n\\par Kingston, Ontario  K7L 1R8");
}

TEST(BusinessContactAddressTest, EmployeeBelongsToTheFirstFirmWhateverFirmWasGiven) {
  PracticeFixture f;
  f.exec(
      "INSERT INTO AccountantFirmInfo (CompanyID, Address, City, Province, PostalCode, "
      "OfficeNumber) VALUES (1, '210 Princess Street', 'Kingston', 'Ontario', 'K7L 1B2', "
      "'(613) 555-0142');"
      "INSERT INTO AccountantFirmInfo (CompanyID, Address, City) VALUES (3, 'Elsewhere', 'Ottawa');"
      "INSERT INTO AccountantEmployeeInfo (ContactID, DisplayName, InheritCompanyInfo, "
      "BusinessPhone_Cell) VALUES (901, 'Margaret Okafor', 1, '(613) 555-0210');"
      "INSERT INTO Contacts (ContactID, DisplayName) VALUES (901, 'Someone Else');");
  int32_t companyID = 3;
  EXPECT_EQ(block(55, 901, companyID, false, true, true, false),
            "Margaret Okafor\r\n210 Princess Street\r\nKingston, Ontario  K7L 1B2"
            "\r\nPhone: (613) 555-0142\r\nCell: (613) 555-0210");
  EXPECT_EQ(companyID, 1);
  EXPECT_EQ(f.db().sqlSent(),
            (std::vector<std::string>{
                "SELECT AccountantEmployeeInfo.ContactID FROM AccountantEmployeeInfo WHERE "
                "ContactID = 901;",
                "SELECT AccountantFirmInfo.CompanyID FROM AccountantFirmInfo WHERE CompanyID = 3;",
                "SELECT AccountantFirmInfo.CompanyID From AccountantFirmInfo;",
                "SELECT AccountantEmployeeInfo.* FROM AccountantEmployeeInfo WHERE "
                "AccountantEmployeeInfo.ContactID=901;",
                "SELECT AccountantFirmInfo.* FROM AccountantFirmInfo WHERE "
                "AccountantFirmInfo.CompanyID=1;"}));
  EXPECT_TRUE(f.db().stillOpen().empty());

  // A company that is no firm: the employee keeps their own (empty) address.
  companyID = 2;
  EXPECT_EQ(block(-1, 901, companyID, false, true, true, false),
            "Margaret Okafor\r\n\r\nCell: (613) 555-0210");
  EXPECT_EQ(companyID, -1);
}

TEST(BusinessContactAddressTest, NoPersonNoBlock) {
  const struct {
    const char* name;
    int32_t contactID;
    bool connected;
    size_t queries;
  } cases[] = {
      {"unknown contact", 500, true, 1},
      {"negative contact", -1, true, 0},
      {"not connected", 101, false, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PracticeFixture f;
    addMapleLeaf(f);
    f.db().connected = c.connected;
    int32_t companyID = 2;
    EXPECT_EQ(block(c.contactID, -1, companyID), "");
    EXPECT_EQ(companyID, 2);
    EXPECT_EQ(f.db().queries.size(), c.queries);
    EXPECT_TRUE(f.errors().errors.empty());
  }
}

TEST(BusinessContactAddressTest, ReadsOnlyAndClosesWhatItOpens) {
  PracticeFixture f;
  addMapleLeaf(f);
  int32_t companyID = 2;
  block(101, -1, companyID);
  for (const auto& q : f.db().queries) {
    SCOPED_TRACE(q.sql);
    EXPECT_EQ(q.cursorType, 1);
    EXPECT_EQ(q.lockType, 1);
  }
  ASSERT_EQ(f.db().queries.size(), 4u);
  EXPECT_EQ(f.db().queries[2].sql, "SELECT Contacts.* FROM Contacts WHERE Contacts.ContactID=101;");
  EXPECT_EQ(f.db().queries[3].sql,
            "SELECT Companies.* FROM Companies WHERE Companies.CompanyID=2;");
  EXPECT_TRUE(f.db().stillOpen().empty());
}

}  // namespace
}  // namespace nvwm
