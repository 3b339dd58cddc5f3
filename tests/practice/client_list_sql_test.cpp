// The client list query: its text by country, visibility and status, and what every one of its
// texts reads on the practice schema.
#include "practice/client_list_sql.h"

#include <gtest/gtest.h>

#include <set>

#include "services/folder_locale.h"
#include "services/sqlite/recordset.h"
#include "support/practice_db.h"
#include "support/test_support.h"

namespace nvwm {
namespace {

// The golden texts, word for word, one per country.
const std::string kCanadaVisibleActive =
    "SELECT AccountingServices.*, ClientData.*, ClientOptions.*, Companies.*, CorpTaxInfo.*, "
    "LawInfo.*, OtherInfo.*, WSIB_EHTInfo.*, CompaniesNotes.BusinessNotes, "
    "CompaniesNotes.ContactNotes FROM (((((Companies INNER JOIN ((ClientData INNER JOIN "
    "AccountingServices ON ClientData.ClientDataID = AccountingServices.AccountingServiceID) "
    "INNER JOIN ClientOptions ON ClientData.ClientDataID = ClientOptions.ClientOptionID) ON "
    "Companies.CompanyID = ClientData.CompanyIDNum) INNER JOIN CorpTaxInfo ON "
    "ClientData.ClientDataID = CorpTaxInfo.CorpTaxInfoID) INNER JOIN LawInfo ON "
    "ClientData.ClientDataID = LawInfo.LawInfoID) INNER JOIN OtherInfo ON ClientData.ClientDataID "
    "= OtherInfo.OtherInfoID) INNER JOIN WSIB_EHTInfo ON ClientData.ClientDataID = "
    "WSIB_EHTInfo.WSIB_EHTInfoID) INNER JOIN CompaniesNotes ON Companies.CompanyID = "
    "CompaniesNotes.CompanyNum WHERE ClientData.ShowThisClient = True AND "
    "ClientData.ActiveStatus=1 ORDER BY Companies.CompanyName;";
const std::string kUSVisibleActive =
    "SELECT AccountingServices.*, ClientData.*, ClientOptions.*, Companies.*, ClientUSInfo.*, "
    "CompaniesNotes.BusinessNotes, CompaniesNotes.ContactNotes FROM (ClientUSInfo INNER JOIN "
    "(Companies INNER JOIN ((ClientData INNER JOIN AccountingServices ON ClientData.ClientDataID "
    "= AccountingServices.AccountingServiceID) INNER JOIN ClientOptions ON "
    "ClientData.ClientDataID = ClientOptions.ClientOptionID) ON Companies.CompanyID = "
    "ClientData.CompanyIDNum) ON ClientUSInfo.ClientUSInfoID = ClientData.ClientDataID) INNER "
    "JOIN CompaniesNotes ON Companies.CompanyID = CompaniesNotes.CompanyNum WHERE "
    "ClientData.ShowThisClient = True AND ClientData.ActiveStatus=1 ORDER BY "
    "Companies.CompanyName;";
// The United States list of every client names its tables in another order (kept as it is).
const std::string kUSAllSelect =
    "SELECT ClientData.*, AccountingServices.*, Companies.*, ClientOptions.*, ClientUSInfo.*, "
    "CompaniesNotes.BusinessNotes, CompaniesNotes.ContactNotes ";

// Every text is a SELECT, a FROM, then the filter of visibility and status.
std::string selectOf(const std::string& sql) { return sql.substr(0, sql.find("FROM ")); }
std::string fromOf(const std::string& sql) {
  size_t from = sql.find("FROM ");
  return sql.substr(from, sql.find("WHERE ") - from);
}

std::string filter(bool showOnlyVisible, int32_t status) {
  std::vector<std::string> conditions;
  if (showOnlyVisible) conditions.push_back("ClientData.ShowThisClient = True");
  if (status == 1) conditions.push_back("ClientData.ActiveStatus=1");
  if (status == 2) conditions.push_back("NOT ClientData.ActiveStatus=1");
  std::string where;
  for (const std::string& c : conditions) where += (where.empty() ? "WHERE " : "AND ") + c + " ";
  return where + "ORDER BY Companies.CompanyName;";
}

std::string expectedText(int32_t country, bool showOnlyVisible, int32_t status) {
  const std::string& golden = country == 1 ? kCanadaVisibleActive : kUSVisibleActive;
  std::string select = country != 1 && !showOnlyVisible ? kUSAllSelect : selectOf(golden);
  return select + fromOf(golden) + filter(showOnlyVisible, status);
}

struct ClientList {
  int32_t country;
  bool showOnlyVisible;
  int32_t status;
  std::string name() const {
    return "country " + std::to_string(country) + (showOnlyVisible ? ", visible" : ", all") +
           ", status " + std::to_string(status);
  }
};

// Every list a firm of either country can ask for.
std::vector<ClientList> allClientLists() {
  std::vector<ClientList> lists;
  for (int32_t country : {1, 2}) {
    for (bool visible : {true, false}) {
      for (int32_t status : {1, 2, 3}) lists.push_back({country, visible, status});
    }
  }
  return lists;
}

std::string clientListSql(const ClientList& list) {
  testing::ScopedReferences refs;
  references().LocaleReference = std::make_shared<HostLocale>(list.country, 3);
  return getMainBusinessSQLString(list.showOnlyVisible, list.status);
}

TEST(ClientListSqlTest, GoldenTextOfEachCountry) {
  EXPECT_EQ(clientListSql({1, true, 1}), kCanadaVisibleActive);
  EXPECT_EQ(clientListSql({2, true, 1}), kUSVisibleActive);
}

TEST(ClientListSqlTest, FilterByCountryVisibilityAndStatus) {
  std::vector<ClientList> lists = allClientLists();
  lists.push_back({7, false, 3});  // any country but 1 is the United States
  for (const ClientList& list : lists) {
    SCOPED_TRACE(list.name());
    testing::ScopedReferences refs;
    references().LocaleReference = std::make_shared<HostLocale>(list.country, 3);
    EXPECT_EQ(getMainBusinessSQLString(list.showOnlyVisible, list.status),
              expectedText(list.country, list.showOnlyVisible, list.status));
    EXPECT_TRUE(refs.errors->errors.empty());
    EXPECT_EQ(refs.errors->entered,
              (std::vector<std::string>{
                  "Tallowbrook.exe-modDatabaseFunctions-getMainBusinessSQLString"}));
  }
}

TEST(ClientListSqlTest, StatusOutsideOneToThreeGivesNoText) {
  for (const ClientList& list :
       std::vector<ClientList>{{1, false, 0}, {1, true, 4}, {2, false, 4}, {2, true, -1}}) {
    SCOPED_TRACE(list.name());
    EXPECT_EQ(clientListSql(list), "");
  }
}

TEST(ClientListSqlTest, WithoutLocaleEndsInTheHandlerWithNoText) {
  testing::ScopedReferences refs;
  EXPECT_EQ(getMainBusinessSQLString(false, 3), "");
  ASSERT_EQ(refs.errors->errors.size(), 1u);
  EXPECT_EQ(refs.errors->errors[0].number(), 91);
}

// Two clients with every satellite row of both countries' joins; client 2 is not active.
// Client n belongs to company n.
constexpr const char* kTwoClients = R"sql(
INSERT INTO Companies (CompanyID, CompanyName) VALUES
  (1, 'Maple Leaf Bakery'), (2, 'Northern Pines Ltd.');
INSERT INTO CompaniesNotes (CompanyNum, BusinessNotes, ContactNotes) VALUES (1, 'b', 'c'), (2, 'b', 'c');
INSERT INTO ClientData (ClientDataID, CompanyIDNum, ShowThisClient, ActiveStatus) VALUES
  (1, 1, 1, 1), (2, 2, 1, 0);
INSERT INTO ClientOptions (ClientOptionID) VALUES (1), (2);
INSERT INTO AccountingServices (AccountingServiceID) VALUES (1), (2);
INSERT INTO CorpTaxInfo (CorpTaxInfoID) VALUES (1), (2);
INSERT INTO LawInfo (LawInfoID) VALUES (1), (2);
INSERT INTO OtherInfo (OtherInfoID) VALUES (1), (2);
INSERT INTO WSIB_EHTInfo (WSIB_EHTInfoID) VALUES (1), (2);
INSERT INTO ClientUSInfo (ClientUSInfoID) VALUES (1), (2);
)sql";

class ClientListOnSchemaTest : public ::testing::Test {
 protected:
  void SetUp() override { db_.exec(kTwoClients); }
  testing::PracticeDb db_;
};

TEST_F(ClientListOnSchemaTest, EveryListRunsReadOnlyAndUpdatableAndFindsItsClients) {
  auto svc = db_.service();
  for (const ClientList& list : allClientLists()) {
    SCOPED_TRACE(list.name());
    std::string sql = clientListSql(list);
    Handle h = svc->openRecordset(sql, kCursorKeyset, kLockReadOnly);
    EXPECT_EQ(svc->getRecordCount(h), list.status == 3 ? 2 : 1);
    svc->closeRecordset(h);
    EXPECT_NO_THROW(svc->closeRecordset(svc->openRecordset(sql, kCursorKeyset, kLockOptimistic)));
  }
}

// The joins read several tables with `.*`: every column needs a name of its own, or a lookup
// by name would read another table's column.
TEST_F(ClientListOnSchemaTest, EveryColumnHasANameOfItsOwn) {
  auto svc = db_.service();
  for (const ClientList& list : allClientLists()) {
    SCOPED_TRACE(list.name());
    Handle h = svc->openRecordset(clientListSql(list), kCursorKeyset, kLockReadOnly);
    std::set<std::string> seen;
    for (const std::string& name : svc->fieldNames(h)) {
      EXPECT_EQ(name.find('.'), std::string::npos) << name << " is repeated";
      EXPECT_TRUE(seen.insert(sqlite::foldAscii(name)).second) << name;
    }
    svc->closeRecordset(h);
  }
}

TEST_F(ClientListOnSchemaTest, EachTableGivesItsOwnColumns) {
  auto svc = db_.service();
  for (const ClientList& list : allClientLists()) {
    SCOPED_TRACE(list.name());
    Handle h = svc->openRecordset(clientListSql(list), kCursorKeyset, kLockReadOnly);
    ASSERT_FALSE(svc->isEOF(h));
    for (; !svc->isEOF(h); svc->moveNext(h)) {
      int32_t client = svc->getField(h, "ClientDataID").longValue();
      EXPECT_EQ(svc->getField(h, "CompanyIDNum"), Variant(client));
      EXPECT_EQ(svc->getField(h, "CompanyName"),
                Variant(client == 1 ? "Maple Leaf Bakery" : "Northern Pines Ltd."));
      EXPECT_EQ(svc->getField(h, "ContactNotes"), Variant("c"));
    }
    svc->hasRecords(h);
    int32_t first = svc->getField(h, "ClientDataID").longValue();
    EXPECT_TRUE(svc->findRecord(h, "CompanyID", Variant(std::to_string(first))));
    EXPECT_EQ(svc->getField(h, "ClientDataID"), Variant(first));
    svc->closeRecordset(h);
  }
}

TEST_F(ClientListOnSchemaTest, AnUpdatableListWritesThroughToEachTable) {
  auto svc = db_.service();
  int lists = 0;
  for (const ClientList& list : allClientLists()) {
    SCOPED_TRACE(list.name());
    Handle h = svc->openRecordset(clientListSql(list), kCursorKeyset, kLockOptimistic);
    ASSERT_FALSE(svc->isEOF(h));
    int32_t company = svc->getField(h, "CompanyID").longValue();
    std::string text = "notes " + std::to_string(++lists);
    svc->setField(h, "BusinessNotes", text);
    svc->setField(h, "GSTNumber", text);
    EXPECT_EQ(db_.stored("SELECT BusinessNotes FROM CompaniesNotes WHERE CompanyNum = " +
                         std::to_string(company)),
              text);
    EXPECT_EQ(db_.stored("SELECT GSTNumber FROM AccountingServices WHERE AccountingServiceID = " +
                         std::to_string(company)),
              text);
    svc->closeRecordset(h);
  }
}

}  // namespace
}  // namespace nvwm
