// getContactAndSpouseName: both truth tables, the record finding, no connection.
#include <gtest/gtest.h>

#include "engine/engine_test_support.h"
#include "engine/values_test_support.h"

namespace nvwm::testing {
namespace {

class ContactSpouseNameTest : public ValuesTest {
 protected:
  std::string name(int32_t contactID, bool lastNameFirst) {
    return rtb->getContactAndSpouseName(contactID, lastNameFirst);
  }
  std::unique_ptr<clsInsertFieldsInRTB> rtb = closedCatalogue(list_type::kCompanyInfo);
};

std::string sqlText(const std::string& cell) {
  if (cell == "-") return "NULL";
  return "'" + cell + "'";
}

TEST_F(ContactSpouseNameTest, BothTables) {
  const std::vector<TableRow> rows = readTable("contact_spouse_names.tsv", 7);
  int32_t id = 500;
  for (const TableRow& row : rows) {
    const auto& c = row.cells;
    practice.exec(
        "INSERT INTO Contacts (ContactID, FirstName, LastName, DisplayName, "
        "SpouseFirstName, SpouseLastName) VALUES (" +
        std::to_string(++id) + ", " + sqlText(c[0]) + ", " + sqlText(c[1]) + ", " + sqlText(c[2]) +
        ", " + sqlText(c[3]) + ", " + sqlText(c[4]) + ");");
  }
  id = 500;
  for (const TableRow& row : rows) {
    SCOPED_TRACE("contact_spouse_names.tsv:" + std::to_string(row.line));
    ++id;
    EXPECT_EQ(name(id, false), row.cells[5]);
    EXPECT_EQ(name(id, true), row.cells[6]);
  }
  EXPECT_TRUE(errorNumbers().empty()) << errorLog();
}

TEST_F(ContactSpouseNameTest, EmptyTextCountsAsAbsent) {
  practice.exec(
      "INSERT INTO Contacts (ContactID, FirstName, LastName, DisplayName, "
      "SpouseFirstName) VALUES (600, '', 'Smith', 'D', '');");
  EXPECT_EQ(name(600, false), "Smith");
}

TEST_F(ContactSpouseNameTest, FiltersTheContactsOnceAndReusesThem) {
  EXPECT_EQ(name(101, false), "Ann & Samuel Brown");
  EXPECT_EQ(name(101, true), "Brown, Ann & Samuel");
  EXPECT_EQ(db->sqlSent(), (std::vector<std::string>{
                               "SELECT Contacts.ContactID FROM Contacts WHERE ContactID = 101;",
                               "SELECT Contacts.* From Contacts WHERE Contacts.ContactID=101;",
                           }));
}

TEST_F(ContactSpouseNameTest, MissingContactGivesNothing) {
  // A negative ID opens every contact and finds none.
  EXPECT_EQ(name(-1, false), "");
  EXPECT_EQ(db->sqlSent(), std::vector<std::string>{"SELECT Contacts.* From Contacts;"});
  // An unknown ID is rejected and searched for in what stands.
  db->clear();
  EXPECT_EQ(name(999, false), "");
  EXPECT_EQ(db->sqlSent(), std::vector<std::string>{
                               "SELECT Contacts.ContactID FROM Contacts WHERE ContactID = 999;"});
  EXPECT_TRUE(errorNumbers().empty()) << errorLog();
}

TEST_F(ContactSpouseNameTest, NoConnectionGivesNothing) {
  db->connected = false;
  EXPECT_EQ(name(101, false), "");
  EXPECT_TRUE(db->queries.empty());
}

}  // namespace
}  // namespace nvwm::testing
