// The lookup-type custom values of schedule items, refreshed for the companies whose default
// contact a contact is.
#include <gtest/gtest.h>

#include "default_contacts_fixture.h"
#include "practice/default_contacts.h"

namespace nvwm {
namespace {

using testing::DefaultContactsFixture;

const std::string kLinksOfDefault =
    "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, ContactLinks.DefaultContact FROM "
    "ContactLinks WHERE ContactLinks.ContactIDNum = 11 AND ContactLinks.DefaultContact=True;";

// Client records of companies 5 and 6 with two schedule items each; contact 11 is the default
// of company 5 only, and carries a custom value labelled "True".
class LookupFieldValuesTest : public ::testing::Test {
 protected:
  LookupFieldValuesTest() {
    f.link5("(11, 1)");
    f.exec(
        "INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact) VALUES (6, 11, 0);"
        "INSERT INTO ClientData (ClientDataID, CompanyIDNum) VALUES (50, 5), (60, 6);"
        "INSERT INTO Schedule (ScheduleID, ClientNum, Custom1, Custom2) VALUES "
        "(1, 50, 'old', 'kept'), (2, 50, NULL, NULL), (3, 60, 'old', 'kept');"
        "UPDATE CustomAddressFields SET ContactLabel1 = 'True';"
        "UPDATE Contacts SET Custom1 = 'Gold client' WHERE ContactID = 11;");
  }
  void customFields(const std::string& info1, const std::string& type1) {
    f.exec("UPDATE CustomFields SET RemittanceCustomInfo1 = " + info1 +
           ", RemittanceCustomType1 = " + type1 + ", RemittanceCustomType2 = 0;");
  }
  std::string customs(int scheduleID) {
    return f.stored(
        "SELECT ifnull(Custom1, 'NULL') || '|' || ifnull(Custom2, 'NULL') FROM "
        "Schedule WHERE ScheduleID = " +
        std::to_string(scheduleID) + ";");
  }
  bool linksAsked() {
    for (const auto& sql : f.db().sqlSent())
      if (sql == kLinksOfDefault) return true;
    return false;
  }
  DefaultContactsFixture f;
};

TEST_F(LookupFieldValuesTest, WithoutALookupTypeNothingIsTouched) {
  customFields("'ClientData.BusinessNumber'", "1");
  changeDefaultContactChangeLookupFieldValue(11);
  EXPECT_EQ(customs(1), "old|kept");
  EXPECT_EQ(customs(2), "NULL|NULL");
  EXPECT_FALSE(linksAsked());
  EXPECT_TRUE(f.errors().errors.empty());
  EXPECT_EQ(f.pump->pointersSet(), (std::vector<int32_t>{11, 0}));
}

TEST_F(LookupFieldValuesTest, AnExpressionHeldAsABooleanRaisesAndThePointerComesBack) {
  customFields("'ClientData.BusinessNumber'", "3");
  changeDefaultContactChangeLookupFieldValue(11);
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{13});
  EXPECT_EQ(customs(1), "old|kept");
  EXPECT_FALSE(linksAsked());
  EXPECT_EQ(f.pump->pointersSet(), (std::vector<int32_t>{11, 0}));
}

TEST_F(LookupFieldValuesTest, ATrueHolderLooksUpTheFieldNamedTrue) {
  // "1" survives the boolean holder as True, and "True" is the label of the contact's Custom1.
  customFields("'1'", "3");
  changeDefaultContactChangeLookupFieldValue(11);
  EXPECT_TRUE(f.errors().errors.empty());
  EXPECT_TRUE(linksAsked());
  EXPECT_EQ(customs(1), "Gold client|kept");
  EXPECT_EQ(customs(2), "Gold client|NULL");
  // Company 6's client isn't one whose default contact 11 is.
  EXPECT_EQ(customs(3), "old|kept");
  EXPECT_EQ(f.pump->pointersSet(), (std::vector<int32_t>{11, 0}));
}

TEST_F(LookupFieldValuesTest, NoRowOfCustomFieldsNoLookup) {
  f.exec("DELETE FROM CustomFields;");
  changeDefaultContactChangeLookupFieldValue(11);
  EXPECT_FALSE(linksAsked());
  EXPECT_EQ(customs(1), "old|kept");
}

TEST_F(LookupFieldValuesTest, WithoutConnectionOnlyThePointerIsReset) {
  customFields("'1'", "3");
  f.db().connected = false;
  changeDefaultContactChangeLookupFieldValue(11);
  EXPECT_TRUE(f.db().queries.empty());
  EXPECT_EQ(f.pump->pointersSet(), std::vector<int32_t>{0});
  EXPECT_EQ(customs(1), "old|kept");
}

}  // namespace
}  // namespace nvwm
