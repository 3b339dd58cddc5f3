// The client list query by country, visibility and status.
#include "practice/client_list_sql.h"

#include <gtest/gtest.h>

#include "services/folder_locale.h"
#include "support/test_support.h"

namespace nvwm {
namespace {

const std::string kSelectCanada =
    "SELECT AccountingServices.*, ClientData.*, ClientOptions.*, Companies.*, CorpTaxInfo.*, "
    "LawInfo.*, OtherInfo.*, WSIB_EHTInfo.*, CompaniesNotes.BusinessNotes, "
    "CompaniesNotes.ContactNotes ";
const std::string kSelectUSVisible =
    "SELECT AccountingServices.*, ClientData.*, ClientOptions.*, Companies.*, ClientUSInfo.*, "
    "CompaniesNotes.BusinessNotes, CompaniesNotes.ContactNotes ";
const std::string kSelectUSAll =
    "SELECT ClientData.*, AccountingServices.*, Companies.*, ClientOptions.*, ClientUSInfo.*, "
    "CompaniesNotes.BusinessNotes, CompaniesNotes.ContactNotes ";
const std::string kFromCanada =
    "FROM (((((Companies INNER JOIN ((ClientData INNER JOIN AccountingServices ON "
    "ClientData.ClientDataID = AccountingServices.AccountingServiceID) INNER JOIN ClientOptions "
    "ON ClientData.ClientDataID = ClientOptions.ClientOptionID) ON Companies.CompanyID = "
    "ClientData.CompanyIDNum) INNER JOIN CorpTaxInfo ON ClientData.ClientDataID = "
    "CorpTaxInfo.CorpTaxInfoID) INNER JOIN LawInfo ON ClientData.ClientDataID = "
    "LawInfo.LawInfoID) INNER JOIN OtherInfo ON ClientData.ClientDataID = OtherInfo.OtherInfoID) "
    "INNER JOIN WSIB_EHTInfo ON ClientData.ClientDataID = WSIB_EHTInfo.WSIB_EHTInfoID) INNER "
    "JOIN CompaniesNotes ON Companies.CompanyID = CompaniesNotes.CompanyNum ";
const std::string kFromUS =
    "FROM (ClientUSInfo INNER JOIN (Companies INNER JOIN ((ClientData INNER JOIN "
    "AccountingServices ON ClientData.ClientDataID = AccountingServices.AccountingServiceID) "
    "INNER JOIN ClientOptions ON ClientData.ClientDataID = ClientOptions.ClientOptionID) ON "
    "Companies.CompanyID = ClientData.CompanyIDNum) ON ClientUSInfo.ClientUSInfoID = "
    "ClientData.ClientDataID) INNER JOIN CompaniesNotes ON Companies.CompanyID = "
    "CompaniesNotes.CompanyNum ";

TEST(ClientListSqlTest, PiecesByCountryVisibilityAndStatus) {
  const std::string visible = "WHERE ClientData.ShowThisClient = True ";
  const std::string order = "ORDER BY Companies.CompanyName;";
  const struct {
    int32_t country;
    bool showOnlyVisible;
    int32_t status;
    std::string sql;
  } cases[] = {
      {1, true, 1,
       kSelectCanada + kFromCanada + visible + "AND ClientData.ActiveStatus=1 " + order},
      {1, true, 2,
       kSelectCanada + kFromCanada + visible + "AND NOT ClientData.ActiveStatus=1 " + order},
      {1, true, 3, kSelectCanada + kFromCanada + visible + order},
      {1, false, 1, kSelectCanada + kFromCanada + "WHERE ClientData.ActiveStatus=1 " + order},
      {1, false, 2, kSelectCanada + kFromCanada + "WHERE NOT ClientData.ActiveStatus=1 " + order},
      {1, false, 3, kSelectCanada + kFromCanada + order},
      {2, true, 1, kSelectUSVisible + kFromUS + visible + "AND ClientData.ActiveStatus=1 " + order},
      {2, true, 3, kSelectUSVisible + kFromUS + visible + order},
      {2, false, 1, kSelectUSAll + kFromUS + "WHERE ClientData.ActiveStatus=1 " + order},
      {2, false, 2, kSelectUSAll + kFromUS + "WHERE NOT ClientData.ActiveStatus=1 " + order},
      {7, false, 3, kSelectUSAll + kFromUS + order},  // any country but 1 is the United States
      {1, false, 0, ""},
      {1, true, 4, ""},
      {2, false, 4, ""},
      {2, true, -1, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.country) + (c.showOnlyVisible ? " visible " : " all ") +
                 std::to_string(c.status));
    testing::ScopedReferences refs;
    references().LocaleReference = std::make_shared<HostLocale>(c.country, 3);
    EXPECT_EQ(getMainBusinessSQLString(c.showOnlyVisible, c.status), c.sql);
    EXPECT_TRUE(refs.errors->errors.empty());
    EXPECT_EQ(refs.errors->entered,
              (std::vector<std::string>{
                  "Tallowbrook.exe-modDatabaseFunctions-getMainBusinessSQLString"}));
  }
}

TEST(ClientListSqlTest, WithoutLocaleEndsInTheHandlerWithNoText) {
  testing::ScopedReferences refs;
  EXPECT_EQ(getMainBusinessSQLString(false, 3), "");
  ASSERT_EQ(refs.errors->errors.size(), 1u);
  EXPECT_EQ(refs.errors->errors[0].number(), 91);
}

}  // namespace
}  // namespace nvwm
