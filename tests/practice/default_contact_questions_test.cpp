// The default-contact questions: which link of a company is its default, and is this one.
#include <gtest/gtest.h>

#include "practice/lookups.h"
#include "practice/lookups_internal.h"
#include "practice_fixture.h"

namespace nvwm {
namespace {

using testing::PracticeFixture;

std::string link(const char* contact, const char* isDefault) {
  return std::string(
             "INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact) VALUES (5, ") +
         contact + ", " + isDefault + ");";
}

// What the company's links say, read without the repair that getDefaultContactIDFromCompanyID
// goes on to (see default_contact_maintenance_test.cpp).
TEST(DefaultContactIDTest, FirstLinkMarkedDefaultWithAContactWins) {
  const struct {
    const char* name;
    std::vector<std::string> links;
    int32_t expected;
    bool hasLinks;
    std::vector<int32_t> errors;
  } cases[] = {
      {"no links", {}, -1, false, {}},
      {"one default", {link("11", "0"), link("12", "1"), link("13", "1")}, 12, true, {}},
      {"links but none default", {link("11", "0"), link("12", "0")}, -1, true, {}},
      {"a default without contact is passed over",
       {link("NULL", "1"), link("12", "1")},
       12,
       true,
       {}},
      {"a Null flag without contact is passed over",
       {link("NULL", "NULL"), link("12", "1")},
       12,
       true,
       {}},
      {"rows after the default are not reached",
       {link("12", "1"), link("13", "NULL")},
       12,
       true,
       {}},
      {"a Null flag on a contact's link is not tested",
       {link("11", "NULL"), link("12", "1")},
       -1,
       true,
       {94}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PracticeFixture f;
    for (const auto& row : c.links) f.exec(row);
    practice::LookupRoutine r("readDefaultContactLinks");
    const practice::DefaultContactLinks links = practice::readDefaultContactLinks(r, 5);
    EXPECT_EQ(links.contactID, c.expected);
    EXPECT_EQ(links.companyHasLinks, c.hasLinks);
    EXPECT_EQ(f.db().sqlSent(),
              std::vector<std::string>{"SELECT ContactLinks.CompanyNum, "
                                       "ContactLinks.ContactIDNum, ContactLinks.DefaultContact "
                                       "FROM ContactLinks WHERE ContactLinks.CompanyNum = 5;"});
    EXPECT_EQ(f.errorNumbers(), c.errors);
  }
}

TEST(DefaultContactIDTest, AnExistingDefaultIsReadWithoutRepair) {
  PracticeFixture f;
  f.exec("INSERT INTO Contacts (ContactID) VALUES (11), (12);");
  for (const auto& row : {link("11", "0"), link("12", "1")}) f.exec(row);
  EXPECT_EQ(getDefaultContactIDFromCompanyID(5), 12);
  EXPECT_EQ(f.db().sqlSent(),
            (std::vector<std::string>{"SELECT ContactLinks.CompanyNum, ContactLinks.ContactIDNum, "
                                      "ContactLinks.DefaultContact FROM ContactLinks WHERE "
                                      "ContactLinks.CompanyNum = 5;",
                                      "SELECT Contacts.ContactID FROM Contacts WHERE ContactID = "
                                      "12;"}));
  EXPECT_TRUE(f.errors().errors.empty());
}

TEST(DefaultContactIDTest, OtherCompaniesLinksDontCount) {
  PracticeFixture f;
  f.exec("INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact) VALUES (6, 12, 1);");
  EXPECT_EQ(getDefaultContactIDFromCompanyID(5), -1);
}

TEST(DefaultContactIDTest, WithoutConnectionNothingIsSent) {
  PracticeFixture f;
  f.exec(link("12", "1"));
  f.db().connected = false;
  EXPECT_EQ(getDefaultContactIDFromCompanyID(5), -1);
  EXPECT_TRUE(f.db().queries.empty());
}

TEST(IsContactDefaultContactTest, TrueOnlyForALinkMarkedDefault) {
  const struct {
    const char* name;
    std::vector<std::string> links;
    bool expected;
    std::vector<int32_t> errors;
  } cases[] = {
      {"default link", {link("12", "1")}, true, {}},
      {"plain link", {link("12", "0")}, false, {}},
      {"no link", {link("13", "1")}, false, {}},
      {"a second link marked default", {link("12", "0"), link("12", "1")}, true, {}},
      {"Null flag is not tested", {link("12", "NULL")}, false, {94}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PracticeFixture f;
    for (const auto& row : c.links) f.exec(row);
    EXPECT_EQ(isContactDefaultContact(5, 12), c.expected);
    EXPECT_EQ(f.db().sqlSent(),
              std::vector<std::string>{
                  "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, "
                  "ContactLinks.DefaultContact "
                  "FROM ContactLinks WHERE CompanyNum=5 AND ContactLinks.ContactIDNum = 12;"});
    EXPECT_EQ(f.errorNumbers(), c.errors);
  }
  PracticeFixture f;
  f.exec(link("12", "1"));
  f.db().connected = false;
  EXPECT_FALSE(isContactDefaultContact(5, 12));
  EXPECT_TRUE(f.db().queries.empty());
}

}  // namespace
}  // namespace nvwm
