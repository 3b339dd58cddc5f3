// The summary of a contact or a firm employee: its pieces, its sections and where it is stored.
#include "addresses/contact_summary.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "host/references.h"
#include "runtime/text.h"
#include "services/folder_locale.h"
#include "summary_test_support.h"

namespace nvwm {
namespace {

using testing::addFullContact;
using testing::PracticeFixture;
using testing::readSummaryData;
using testing::summaryLines;

const std::string kOpening =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang4105{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}"
    "\\viewkind4\\uc1\\pard\\f0\\fs16";
const std::string kDefaultNo = "\\b Default Contact:\\b0  No\\par\r\n\\par\r\n";

class ContactSummaryTest : public ::testing::Test {
 protected:
  ContactSummaryTest() { references().LocaleReference = locale; }
  // The summary between the opening pieces and the closing brace.
  static std::string body(const std::string& rtf) {
    EXPECT_EQ(rtf.rfind(kOpening, 0), 0u) << rtf;
    if (rtf.size() < kOpening.size() + 1) return "";
    EXPECT_EQ(rtf.back(), '}');
    return rtf.substr(kOpening.size(), rtf.size() - kOpening.size() - 1);
  }
  std::shared_ptr<HostLocale> locale = std::make_shared<HostLocale>(1, 3);
  PracticeFixture f;
};

TEST_F(ContactSummaryTest, EverySectionFilledGivesTheStoredDocumentPieceByPiece) {
  addFullContact(f);
  const std::string expected = readSummaryData("full-contact-summary.rtf");
  const std::string rtf = saveContactBusinessRTF(101, -1, 2, false);
  EXPECT_EQ(summaryLines(rtf), summaryLines(expected));
  EXPECT_EQ(rtf, expected);
  EXPECT_TRUE(f.errors().errors.empty());
  EXPECT_TRUE(f.db().stillOpen().empty());
  // Kept on the contact's notes row, and on the company whose default contact she is.
  EXPECT_EQ(f.stored("SELECT BusinessNotes FROM ContactsNotes WHERE ContactNum = 101;"), expected);
  EXPECT_EQ(f.stored("SELECT ContactNotes FROM CompaniesNotes WHERE CompanyNum = 2;"), expected);
  EXPECT_EQ(f.stored("SELECT ContactNotes FROM CompaniesNotes WHERE CompanyNum = 3;"),
            "old summary");
  EXPECT_EQ(f.stored("SELECT COUNT(*) FROM ContactsNotes;"), "1");
}

TEST_F(ContactSummaryTest, EmptyContactGetsOnlyTheDefaultLine) {
  f.exec("INSERT INTO Contacts (ContactID) VALUES (7);");
  const std::string expected = readSummaryData("empty-contact-summary.rtf");
  const std::string rtf = saveContactBusinessRTF(7, -1, -1, false);
  EXPECT_EQ(summaryLines(rtf), summaryLines(expected));
  EXPECT_EQ(rtf, expected);
  EXPECT_EQ(body(rtf), kDefaultNo);
}

TEST_F(ContactSummaryTest, AContactWithoutNotesRowGetsAnUnattachedRowAtEachSave) {
  f.exec("INSERT INTO Contacts (ContactID, DisplayName) VALUES (7, 'Chloe Murphy');");
  const std::string rtf = saveContactBusinessRTF(7, -1, -1, false);
  EXPECT_EQ(f.stored("SELECT COUNT(*) FROM ContactsNotes WHERE ContactNum IS NULL;"), "1");
  EXPECT_EQ(f.stored("SELECT BusinessNotes FROM ContactsNotes;"), rtf);
  saveContactBusinessRTF(7, -1, -1, false);
  EXPECT_EQ(f.stored("SELECT COUNT(*) FROM ContactsNotes WHERE ContactNum IS NULL;"), "2");
  EXPECT_EQ(f.stored("SELECT COUNT(*) FROM ContactsNotes WHERE ContactNum = 7;"), "0");
}

TEST_F(ContactSummaryTest, AnEmptyLabelsTableGetsItsFirstRow) {
  f.exec("INSERT INTO Contacts (ContactID, Custom2) VALUES (7, 'blue');");
  EXPECT_EQ(f.stored("SELECT COUNT(*) FROM CustomAddressFields;"), "0");
  const std::string rtf = saveContactBusinessRTF(7, -1, -1, false);
  EXPECT_EQ(f.stored("SELECT COUNT(*) FROM CustomAddressFields;"), "1");
  EXPECT_EQ(body(rtf), kDefaultNo + "\\b \\b0  blue\\par\r\n\\par\r\n");
  saveContactBusinessRTF(7, -1, -1, false);
  EXPECT_EQ(f.stored("SELECT COUNT(*) FROM CustomAddressFields;"), "1");
}

TEST_F(ContactSummaryTest, TheHeadingOfLinkedCompaniesGoesByAllRows) {
  const struct {
    const char* name;
    const char* links;  // company numbers linked to contact 7
    std::string expected;
  } cases[] = {
      {"none", "", kDefaultNo},
      {"one", "(2)",
       kDefaultNo +
           "\\b\\pard\\fi0\\li0\\ri0 Associated Company: \\b0 Maple Leaf Bakery Inc.\\par\r\n"
           "\\par\r\n"},
      {"two", "(2), (3)",
       kDefaultNo + "\\b\\pard\\fi0\\li0\\ri0 Other Associated Companies: \\b0\\par\r\n"
                    "Maple Leaf Bakery Inc.\\par\r\nNorthern Pines Lumber Ltd.\\par\r\n\\par\r\n"},
      {"one named and one without a name", "(2), (4)",
       kDefaultNo + "\\b\\pard\\fi0\\li0\\ri0 Other Associated Companies: \\b0\\par\r\n"
                    "Maple Leaf Bakery Inc.\\par\r\n\\par\r\n"},
      {"only one without a name", "(4)", kDefaultNo},
      {"a link to a company that isn't there", "(9)", kDefaultNo},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PracticeFixture g;
    g.exec(
        "INSERT INTO Contacts (ContactID) VALUES (7);"
        "INSERT INTO Companies (CompanyID, CompanyName) VALUES (2, 'Maple Leaf Bakery Inc.'), "
        "(3, 'Northern Pines Lumber Ltd.'), (4, NULL);");
    if (*c.links) {
      g.exec(std::string("CREATE TEMP TABLE n (c INTEGER); INSERT INTO n VALUES ") + c.links +
             "; INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact) SELECT c, 7, "
             "0 FROM n;");
    }
    EXPECT_EQ(body(saveContactBusinessRTF(7, -1, -1, false)), c.expected);
  }
}

TEST_F(ContactSummaryTest, DefaultLineSaysYesOnlyForTheCompanyWhoseDefaultTheContactIs) {
  addFullContact(f);
  const struct {
    int32_t companyID;
    bool isDefault;
  } cases[] = {{2, true}, {3, false}, {-1, false}, {44, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.companyID);
    const std::string rtf = saveContactBusinessRTF(101, -1, c.companyID, true);
    EXPECT_NE(rtf.find(c.isDefault ? "\\b Default Contact:\\b0  Yes\\par\r\n"
                                   : "\\b Default Contact:\\b0  No\\par\r\n"),
              std::string::npos);
  }
}

TEST_F(ContactSummaryTest, OutsideCanadaTheSinIsAnSsnAndNothingElseChanges) {
  addFullContact(f);
  const std::string canadian = saveContactBusinessRTF(101, -1, 2, true);
  locale->setCountryCode(2);
  const std::string american = saveContactBusinessRTF(101, -1, 2, true);
  EXPECT_EQ(american, Replace(canadian, "\\b SIN:", "\\b SSN:"));
  EXPECT_NE(american, canadian);
  locale->setCountryCode(0);
  EXPECT_EQ(saveContactBusinessRTF(101, -1, 2, true), american);
}

TEST_F(ContactSummaryTest, ValuesGoInAsTheyStandAndOnlyNotesBecomeParagraphs) {
  f.exec(
      "INSERT INTO Contacts (ContactID, DisplayName, BusinessOffice) VALUES (7, 'Brace {x} \\b', "
      "'two' || char(13) || char(10) || 'lines');"
      "INSERT INTO ContactsNotes (ContactNum, Notes) VALUES (7, 'a' || char(13) || char(10) || "
      "'{b}');");
  EXPECT_EQ(body(saveContactBusinessRTF(7, -1, -1, false)),
            "\\b\\pard\\fi-1450\\li1450\\ri0 Name:\\b0  Brace {x} \\b\\par\r\n"
            "\\b\\pard\\fi-600\\li600\\ri0 Office:\\b0   two\r\nlines\\par\r\n\\par\r\n" +
                kDefaultNo +
                // The block of a name alone keeps its line end, so its paragraph mark doubles.
                "\\b\\pard\\fi0\\li0\\ri0 Address:\\b0\\par\r\nBrace {x} \\b\r\n\\par\\par\r\n"
                "\\par\r\n\\b Notes:\\b0\\par\r\na\r\n\\par {b}\\par\r\n\\par\r\n");
}

TEST_F(ContactSummaryTest, EmployeeSummaryHasNoDefaultLineNorCompaniesAndIsStoredOnTheirRow) {
  f.exec(
      "INSERT INTO AccountantFirmInfo (CompanyID, Address, City) VALUES (1, '210 Princess "
      "Street', 'Kingston');"
      "INSERT INTO AccountantEmployeeInfo (ContactID, DisplayName, InheritCompanyInfo, "
      "SocialInsuranceNumber, Notes) VALUES (901, 'Margaret Okafor', 1, '527 100 411', "
      "'Partner since 2001.');"
      "INSERT INTO Categories (CategoryID, CategoryName) VALUES (1, 'Farm clients');"
      "INSERT INTO ContactLinks (CompanyNum, ContactIDNum, CategoryNum) VALUES (1, 901, NULL), "
      "(NULL, 55, 1);");
  const std::string rtf = saveContactBusinessRTF(55, 901, 1, false);
  EXPECT_EQ(body(rtf),
            "\\b\\pard\\fi-1450\\li1450\\ri0 Name:\\b0  Margaret Okafor\\par\r\n\\par\r\n"
            "\\b\\pard\\fi0\\li0\\ri0 Address:\\b0\\par\r\nMargaret Okafor\r\n\\par 210 Princess "
            "Street\r\n\\par Kingston\\par\r\n\\par\r\n"
            "\\b SIN:\\b0  \\tab\\tab    527 100 411\\par\r\n\\par\r\n"
            // Categories go by the contact ID given, not the employee's.
            "\\b\\pard\\fi0\\li0\\ri0 Associated Category: \\b0 Farm clients\\par\r\n\\par\r\n"
            "\\b Notes:\\b0\\par\r\nPartner since 2001.\\par\r\n\\par\r\n");
  EXPECT_EQ(f.stored("SELECT BusinessNotes FROM AccountantEmployeeInfo WHERE ContactID = 901;"),
            rtf);
  EXPECT_EQ(f.stored("SELECT COUNT(*) FROM ContactsNotes;"), "0");
}

TEST_F(ContactSummaryTest, NoPersonNoSummaryAndNothingStored) {
  const struct {
    const char* name;
    int32_t contactID;
    int32_t employeeID;
    bool connected;
  } cases[] = {
      {"unknown contact", 12, -1, true},
      {"negative contact", -1, -1, true},
      {"unknown employee and no contact", -1, 900, true},
      {"not connected", 7, -1, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PracticeFixture g;
    g.exec("INSERT INTO Contacts (ContactID, DisplayName) VALUES (7, 'Chloe Murphy');");
    g.db().connected = c.connected;
    EXPECT_EQ(saveContactBusinessRTF(c.contactID, c.employeeID, -1, false), "");
    EXPECT_EQ(g.stored("SELECT COUNT(*) FROM ContactsNotes;"), "0");
    EXPECT_EQ(g.stored("SELECT COUNT(*) FROM CustomAddressFields;"), "0");
    EXPECT_TRUE(g.errors().errors.empty());
  }
}

TEST_F(ContactSummaryTest, OpensItsRecordsetsUpdatableAndClosesThem) {
  addFullContact(f);
  saveContactBusinessRTF(101, -1, 2, true);
  const std::vector<std::string> own{
      "SELECT Contacts.* FROM Contacts WHERE Contacts.ContactID=101;",
      "SELECT CustomAddressFields.* FROM CustomAddressFields;",
      "SELECT ContactsNotes.* FROM ContactsNotes WHERE ContactNum=101;",
      "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, Companies.CompanyName FROM "
      "ContactLinks INNER JOIN Companies ON ContactLinks.CompanyNum = Companies.CompanyID WHERE "
      "ContactLinks.ContactIDNum=101 AND Not ContactLinks.CompanyNum Is Null;",
      "SELECT Categories.CategoryName, ContactLinks.ContactIDNum FROM Categories INNER JOIN "
      "ContactLinks ON Categories.CategoryID = ContactLinks.CategoryNum WHERE "
      "ContactLinks.ContactIDNum=101;"};
  for (const std::string& sql : own) {
    SCOPED_TRACE(sql);
    // The first time each is sent: the address block reads the contact again, read-only.
    const auto q = std::find_if(f.db().queries.begin(), f.db().queries.end(),
                                [&](const auto& query) { return query.sql == sql; });
    ASSERT_NE(q, f.db().queries.end());
    EXPECT_EQ(q->lockType, 3);
  }
  EXPECT_TRUE(f.db().stillOpen().empty());
}

TEST_F(ContactSummaryTest, AnErrorLeavesTheRecordsetsOpenAndGivesNothing) {
  addFullContact(f);
  references().LocaleReference.reset();  // the SIN line fails with 91
  EXPECT_EQ(saveContactBusinessRTF(101, -1, 2, false), "");
  ASSERT_EQ(f.errors().errors.size(), 1u);
  EXPECT_EQ(f.errors().errors[0].number(), 91);
  EXPECT_EQ(f.db().stillOpen().size(), 3u);
  EXPECT_EQ(f.stored("SELECT BusinessNotes FROM ContactsNotes WHERE ContactNum = 101;"), "NULL");
}

}  // namespace
}  // namespace nvwm
