// The upkeep of a company's default contact: the repair a read can start, the rewrite of the
// links, the copies on the company row, the summaries, and the end of the cycle.
#include <gtest/gtest.h>

#include "default_contacts_fixture.h"
#include "host/references.h"
#include "practice/default_contacts.h"
#include "practice/lookups.h"
#include "services/sqlite/sqlite_database.h"

namespace nvwm {
namespace {

using testing::DefaultContactsFixture;

const std::string kAnn = "Ann Brown|(613) 555-0011|(613) 555-0911|ann@cataraqui.example";
const std::string kBob = "Bob Chen|(613) 555-0012|(613) 555-0912|bob@cataraqui.example";
const std::string kStale = "stale|stale|stale|stale";
const std::string kCleared = "|||";

bool summaryOf(const std::string& rtf, const std::string& name, bool isDefault) {
  return rtf.find("Name:\\b0  " + name + "\\par") != std::string::npos &&
         rtf.find(std::string("Default Contact:\\b0  ") + (isDefault ? "Yes" : "No")) !=
             std::string::npos;
}

TEST(DefaultContactRepairTest, LinksWithoutADefaultPromoteTheFirstLink) {
  DefaultContactsFixture f;
  f.link5("(12, 0), (11, 0), (13, 0)");
  EXPECT_EQ(checkForDefaultContact(5, true), 12);
  EXPECT_EQ(f.marks(5), "12:1 11:0 13:0");
  EXPECT_EQ(f.copies(5), kBob);
  EXPECT_TRUE(summaryOf(f.companySummary(5), "Bob Chen", true)) << f.companySummary(5);
  EXPECT_TRUE(summaryOf(f.stored("SELECT BusinessNotes FROM ContactsNotes WHERE ContactNum=12;"),
                        "Bob Chen", true));
  EXPECT_EQ(f.copies(6), kStale);
  EXPECT_TRUE(f.errors().errors.empty());
  EXPECT_TRUE(f.db().stillOpen().empty());
}

TEST(DefaultContactRepairTest, WithoutRepairNothingIsWritten) {
  DefaultContactsFixture f;
  f.link5("(12, 0), (11, 0)");
  EXPECT_EQ(checkForDefaultContact(5, false), -1);
  EXPECT_EQ(f.marks(5), "12:0 11:0");
  EXPECT_EQ(f.copies(5), kStale);
  EXPECT_EQ(f.companySummary(5), "NULL");
  for (const auto& q : f.db().queries) EXPECT_EQ(q.lockType, 1) << q.sql;
}

TEST(DefaultContactRepairTest, AMarkedLinkIsReturnedAsItStands) {
  DefaultContactsFixture f;
  f.link5("(12, 0), (11, 1), (13, 1)");
  EXPECT_EQ(checkForDefaultContact(5, true), 11);
  EXPECT_EQ(f.marks(5), "12:0 11:1 13:1");
  EXPECT_EQ(f.copies(5), kStale);
}

TEST(DefaultContactRepairTest, ACompanyWithoutLinksHasItsCopiesClearedAndTheNoDefaultSummary) {
  DefaultContactsFixture f;
  EXPECT_EQ(checkForDefaultContact(5, true), -1);
  EXPECT_EQ(f.copies(5), kCleared);
  EXPECT_NE(f.companySummary(5).find("\\b No Default Contact Selected.\\b0  \\par"),
            std::string::npos);
  // With repair False all the same: no links is no contacts.
  DefaultContactsFixture g;
  EXPECT_EQ(checkForDefaultContact(5, false), -1);
  EXPECT_EQ(g.copies(5), kCleared);
}

TEST(DefaultContactRepairTest, AReadOfACompanyWithoutLinksChangesNothing) {
  DefaultContactsFixture f;
  EXPECT_EQ(getDefaultContactIDFromCompanyID(5), -1);
  EXPECT_EQ(f.copies(5), kStale);
  EXPECT_EQ(f.companySummary(5), "NULL");
  EXPECT_EQ(f.entered("checkForDefaultContact"), 0);
}

TEST(DefaultContactRepairTest, AReadRepairsACompanyWithLinksAndNoDefault) {
  DefaultContactsFixture f;
  f.link5("(13, 0), (11, 0)");
  EXPECT_EQ(getDefaultContactIDFromCompanyID(5), 13);
  EXPECT_EQ(f.marks(5), "13:1 11:0");
  EXPECT_EQ(f.copies(5), "Cy Dube|(613) 555-0013|(613) 555-0913|cy@cataraqui.example");
  // The cycle ran once round: on the way back the marked link ended it.
  EXPECT_EQ(f.entered("checkForDefaultContact"), 1);
  EXPECT_EQ(f.entered("setContactAsDefault"), 1);
  EXPECT_EQ(f.entered("getDefaultContactIDFromCompanyID"), 2);
  EXPECT_TRUE(f.errors().stack.empty());
  // A second read finds the default and writes nothing.
  f.db().clear();
  EXPECT_EQ(getDefaultContactIDFromCompanyID(5), 13);
  EXPECT_EQ(f.db().queries.size(), 2u);
}

TEST(DefaultContactRepairTest, ADeadDefaultIsReturnedAndClearedByTheNextUpdate) {
  DefaultContactsFixture f;
  f.link5("(11, 0), (500, 1)");
  EXPECT_EQ(getDefaultContactIDFromCompanyID(5), 500);
  EXPECT_EQ(f.marks(5), "11:0 500:1");
  EXPECT_EQ(f.copies(5), kStale);
  EXPECT_EQ(f.entered("setContactAsDefault"), 0);
  updateDefaultContactInfo(5);
  EXPECT_EQ(f.copies(5), kCleared);
  EXPECT_EQ(f.marks(5), "11:0 500:1");
}

TEST(DefaultContactRepairTest, ADeadFirstLinkIsPromotedAndTheCycleStillEnds) {
  DefaultContactsFixture f;
  f.link5("(500, 0), (11, 0)");
  EXPECT_EQ(getDefaultContactIDFromCompanyID(5), 500);
  EXPECT_EQ(f.marks(5), "500:1 11:0");
  EXPECT_EQ(f.copies(5), kCleared);
  EXPECT_EQ(f.companySummary(5), "");
  EXPECT_EQ(f.entered("checkForDefaultContact"), 2);
  EXPECT_EQ(f.entered("setContactAsDefault"), 1);
}

// This was a recursion without end: with the marking refused by the database and an error
// service that says "go on", every way back found no default and repaired again.
TEST(DefaultContactRepairTest, ACycleWhoseMarkingCantBeWrittenEndsAllTheSame) {
  DefaultContactsFixture f;
  f.link5("(12, 0), (11, 0)");
  f.errors().action = 1;
  references().DatabaseReference = std::make_shared<testing::RecordingDatabase>(
      std::make_shared<SqliteDatabase>(f.path(), true));
  // The repair chose the first link; it just couldn't keep it.
  EXPECT_EQ(getDefaultContactIDFromCompanyID(5), 12);
  EXPECT_EQ(f.entered("setContactAsDefault"), 1);
  EXPECT_EQ(f.entered("checkForDefaultContact"), 2);
  EXPECT_FALSE(f.errors().errors.empty());
  EXPECT_EQ(f.marks(5), "12:0 11:0");
  EXPECT_EQ(f.copies(5), kStale);
}

TEST(SetContactAsDefaultTest, RewritesEveryLinkAndRebuildsTheSummariesOncePerLink) {
  DefaultContactsFixture f;
  f.link5("(12, 1), (11, 0), (13, 0)");
  setContactAsDefault(11, 5, false);
  EXPECT_EQ(f.marks(5), "12:0 11:1 13:0");
  EXPECT_EQ(f.copies(5), kAnn);
  EXPECT_TRUE(summaryOf(f.companySummary(5), "Ann Brown", true)) << f.companySummary(5);
  int companySaves = 0;
  for (const auto& sql : f.db().sqlSent()) {
    companySaves += sql ==
                    "SELECT CompaniesNotes.CompanyNum, CompaniesNotes.ContactNotes FROM "
                    "CompaniesNotes WHERE CompanyNum=5;";
  }
  EXPECT_EQ(companySaves, 3);
  EXPECT_EQ(f.entered("updateDefaultContactInfo"), 1);
  EXPECT_EQ(f.entered("changeDefaultContactChangeLookupFieldValue"), 1);
  EXPECT_TRUE(f.errors().errors.empty());
  EXPECT_TRUE(f.db().stillOpen().empty());
}

TEST(SetContactAsDefaultTest, SkippingSummariesStillRewritesAndCopies) {
  DefaultContactsFixture f;
  f.link5("(12, 1), (11, 0)");
  setContactAsDefault(11, 5, true);
  EXPECT_EQ(f.marks(5), "12:0 11:1");
  EXPECT_EQ(f.copies(5), kAnn);
  EXPECT_EQ(f.companySummary(5), "NULL");
}

TEST(SetContactAsDefaultTest, AContactWithoutALinkLeavesTheFirstLinkPromoted) {
  DefaultContactsFixture f;
  f.link5("(12, 1), (11, 0)");
  setContactAsDefault(13, 5, false);
  EXPECT_EQ(f.marks(5), "12:1 11:0");
  EXPECT_EQ(f.copies(5), kBob);
  EXPECT_TRUE(summaryOf(f.companySummary(5), "Bob Chen", true)) << f.companySummary(5);
  EXPECT_EQ(f.entered("setContactAsDefault"), 2);
}

TEST(SetContactAsDefaultTest, ACompanyWithoutLinksGetsItsCopiesUpdatedAnyway) {
  DefaultContactsFixture f;
  setContactAsDefault(11, 6, false);
  EXPECT_EQ(f.copies(6), kCleared);
  EXPECT_EQ(f.entered("changeDefaultContactChangeLookupFieldValue"), 1);
}

TEST(SetNoContactAsDefaultTest, UpdatesTheCopiesAndWritesTheNoDefaultSummary) {
  DefaultContactsFixture f;
  setNoContactAsDefault(5, false);
  EXPECT_EQ(f.copies(5), kCleared);
  EXPECT_NE(f.companySummary(5).find("No Default Contact Selected."), std::string::npos);
  DefaultContactsFixture g;
  setNoContactAsDefault(5, true);
  EXPECT_EQ(g.copies(5), kCleared);
  EXPECT_EQ(g.companySummary(5), "NULL");
}

TEST(UpdateDefaultContactInfoTest, CopiesTheDefaultContactsDetails) {
  DefaultContactsFixture f;
  f.link5("(11, 0), (12, 1)");
  updateDefaultContactInfo(5);
  EXPECT_EQ(f.copies(5), kBob);
  EXPECT_EQ(f.db().queries.back().sql,
            "SELECT Contacts.ContactID, Contacts.DisplayName, Contacts.BusinessPhone_Main, "
            "Contacts.BusinessPhone_Fax, Contacts.BusinessEmail FROM Contacts WHERE ContactID = "
            "12;");
}

TEST(UpdateDefaultContactInfoTest, ANullDetailStopsTheCopyThere) {
  DefaultContactsFixture f;
  f.link5("(11, 1)");
  f.exec("UPDATE Contacts SET BusinessPhone_Fax = NULL WHERE ContactID = 11;");
  updateDefaultContactInfo(5);
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{94});
  EXPECT_EQ(f.copies(5), "Ann Brown|(613) 555-0011|stale|stale");
  // Going on after the error copies the rest.
  DefaultContactsFixture g;
  g.link5("(11, 1)");
  g.exec("UPDATE Contacts SET BusinessPhone_Fax = NULL WHERE ContactID = 11;");
  g.errors().action = 1;
  updateDefaultContactInfo(5);
  EXPECT_EQ(g.copies(5), "Ann Brown|(613) 555-0011|stale|ann@cataraqui.example");
}

TEST(DefaultContactMaintenanceTest, WithoutConnectionNothingHappens) {
  DefaultContactsFixture f;
  f.link5("(12, 0), (11, 0)");
  f.db().connected = false;
  EXPECT_EQ(checkForDefaultContact(5, true), -1);
  setContactAsDefault(11, 5, false);
  setNoContactAsDefault(5, false);
  updateDefaultContactInfo(5);
  changeDefaultContactChangeLookupFieldValue(11);
  EXPECT_TRUE(f.db().queries.empty());
  EXPECT_EQ(f.marks(5), "12:0 11:0");
  EXPECT_EQ(f.copies(5), kStale);
  EXPECT_TRUE(setContactAsDefault(11, 5, false).isEmpty());
}

}  // namespace
}  // namespace nvwm
