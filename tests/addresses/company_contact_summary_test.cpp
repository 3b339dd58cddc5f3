// The copies of a contact's summary kept by companies, and the text of a company without a
// default contact.
#include <gtest/gtest.h>

#include "addresses/contact_summary.h"
#include "host/references.h"
#include "services/folder_locale.h"
#include "summary_test_support.h"

namespace nvwm {
namespace {

using testing::addFullContact;
using testing::PracticeFixture;
using testing::readSummaryData;

const std::string kNoDefault =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang4105{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}"
    "\\viewkind4\\uc1\\pard\\f0\\fs16\\b No Default Contact Selected.\\b0  \\par\r\n}";

class CompanySummaryTest : public ::testing::Test {
 protected:
  CompanySummaryTest() {
    references().LocaleReference = std::make_shared<HostLocale>(1, 3);
    addFullContact(f);
  }
  std::string contactNotes(int companyID) {
    return f.stored("SELECT ContactNotes FROM CompaniesNotes WHERE CompanyNum = " +
                    std::to_string(companyID) + ";");
  }
  PracticeFixture f;
};

TEST_F(CompanySummaryTest, NoDefaultCommentIsItsOwnSmallDocument) {
  EXPECT_EQ(saveNoDefaultComment(), kNoDefault);
  EXPECT_EQ(f.errors().entered,
            std::vector<std::string>{"Tallowbrook.exe-modFormatAddresses-saveNoDefaultComment"});
}

TEST_F(CompanySummaryTest, CopiesGoToEveryCompanyWhoseDefaultTheContactIs) {
  f.exec(
      "UPDATE ContactLinks SET DefaultContact = 1 WHERE CompanyNum = 3;"
      "INSERT INTO Companies (CompanyID, CompanyName) VALUES (4, 'Lakeshore Family Dental'), "
      "(5, 'Cataraqui Marine Services');"
      // 4: the contact is default there but the company keeps no notes row.
      // 5: a notes row, but the contact isn't its default.
      // 6: a default link to a company that doesn't exist.
      "INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact) VALUES (4, 101, 1), "
      "(5, 101, 0), (6, 101, 1);"
      "INSERT INTO CompaniesNotes (CompanyNum, ContactNotes) VALUES (5, 'five'), (6, 'six');");
  saveContactBusinessRTFForAllCompanies(101, 2, "GIVEN");
  EXPECT_EQ(contactNotes(2), "GIVEN");
  // Made anew for company 3, where she is the default as well; it copies no further.
  const std::string third = contactNotes(3);
  EXPECT_NE(third.find("\\b Default Contact:\\b0  Yes\\par"), std::string::npos) << third;
  EXPECT_EQ(third, f.stored("SELECT BusinessNotes FROM ContactsNotes WHERE ContactNum = 101;"));
  EXPECT_EQ(contactNotes(5), "five");
  EXPECT_EQ(contactNotes(6), "six");
  EXPECT_EQ(f.stored("SELECT COUNT(*) FROM CompaniesNotes;"), "4");
  EXPECT_TRUE(f.errors().errors.empty());
  EXPECT_TRUE(f.db().stillOpen().empty());
}

TEST_F(CompanySummaryTest, ACompanySummaryIsItsDefaultContactsSummary) {
  saveCompanyContactRTF(2, 101);
  const std::string expected = readSummaryData("full-contact-summary.rtf");
  EXPECT_EQ(contactNotes(2), expected);
  EXPECT_EQ(f.stored("SELECT BusinessNotes FROM ContactsNotes WHERE ContactNum = 101;"), expected);
  EXPECT_EQ(contactNotes(3), "old summary");
  EXPECT_TRUE(f.db().stillOpen().empty());
}

TEST_F(CompanySummaryTest, ANegativeContactGivesTheNoDefaultText) {
  saveCompanyContactRTF(3, -1);
  EXPECT_EQ(contactNotes(3), kNoDefault);
  EXPECT_EQ(contactNotes(2), "NULL");
}

TEST_F(CompanySummaryTest, NothingWithoutACompanyNotesRowAValidCompanyOrAConnection) {
  f.exec("INSERT INTO Companies (CompanyID, CompanyName) VALUES (4, 'Lakeshore Family Dental');");
  const struct {
    const char* name;
    int32_t companyID;
    bool connected;
    std::vector<std::string> sql;
  } cases[] = {
      {"no notes row",
       4,
       true,
       {"SELECT Companies.CompanyID FROM Companies WHERE CompanyID = 4;",
        "SELECT CompaniesNotes.CompanyNum, CompaniesNotes.ContactNotes FROM CompaniesNotes WHERE "
        "CompanyNum=4;"}},
      {"company not there",
       9,
       true,
       {"SELECT Companies.CompanyID FROM Companies WHERE CompanyID = 9;"}},
      {"negative company", -1, true, {}},
      {"not connected", 2, false, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    f.db().clear();
    f.db().connected = c.connected;
    saveCompanyContactRTF(c.companyID, 101);
    EXPECT_EQ(f.db().sqlSent(), c.sql);
    EXPECT_EQ(f.stored("SELECT COUNT(*) FROM ContactsNotes WHERE BusinessNotes IS NOT NULL;"), "0");
  }
  EXPECT_EQ(contactNotes(2), "NULL");
}

}  // namespace
}  // namespace nvwm
