// The text is SELECT, FROM and WHERE joined with nothing between them; each piece ends in a
// blank where the next follows. The SELECT for the United States without showOnlyVisible lists
// its tables in another order than the others: kept as it is.
#include "practice/client_list_sql.h"

#include "host/references.h"
#include "host/routine.h"
#include "runtime/error.h"

namespace nvwm {
namespace {

constexpr const char* kSelectCanada =
    "SELECT AccountingServices.*, ClientData.*, ClientOptions.*, Companies.*, CorpTaxInfo.*, "
    "LawInfo.*, OtherInfo.*, WSIB_EHTInfo.*, CompaniesNotes.BusinessNotes, "
    "CompaniesNotes.ContactNotes ";
constexpr const char* kSelectOtherVisible =
    "SELECT AccountingServices.*, ClientData.*, ClientOptions.*, Companies.*, ClientUSInfo.*, "
    "CompaniesNotes.BusinessNotes, CompaniesNotes.ContactNotes ";
constexpr const char* kSelectOtherAll =
    "SELECT ClientData.*, AccountingServices.*, Companies.*, ClientOptions.*, ClientUSInfo.*, "
    "CompaniesNotes.BusinessNotes, CompaniesNotes.ContactNotes ";

constexpr const char* kFromCanada =
    "FROM (((((Companies INNER JOIN ((ClientData INNER JOIN AccountingServices ON "
    "ClientData.ClientDataID = AccountingServices.AccountingServiceID) INNER JOIN ClientOptions "
    "ON ClientData.ClientDataID = ClientOptions.ClientOptionID) ON Companies.CompanyID = "
    "ClientData.CompanyIDNum) INNER JOIN CorpTaxInfo ON ClientData.ClientDataID = "
    "CorpTaxInfo.CorpTaxInfoID) INNER JOIN LawInfo ON ClientData.ClientDataID = "
    "LawInfo.LawInfoID) INNER JOIN OtherInfo ON ClientData.ClientDataID = OtherInfo.OtherInfoID) "
    "INNER JOIN WSIB_EHTInfo ON ClientData.ClientDataID = WSIB_EHTInfo.WSIB_EHTInfoID) INNER "
    "JOIN CompaniesNotes ON Companies.CompanyID = CompaniesNotes.CompanyNum ";
constexpr const char* kFromOther =
    "FROM (ClientUSInfo INNER JOIN (Companies INNER JOIN ((ClientData INNER JOIN "
    "AccountingServices ON ClientData.ClientDataID = AccountingServices.AccountingServiceID) "
    "INNER JOIN ClientOptions ON ClientData.ClientDataID = ClientOptions.ClientOptionID) ON "
    "Companies.CompanyID = ClientData.CompanyIDNum) ON ClientUSInfo.ClientUSInfoID = "
    "ClientData.ClientDataID) INNER JOIN CompaniesNotes ON Companies.CompanyID = "
    "CompaniesNotes.CompanyNum ";

// WHERE pieces by statusFilter 1..3, the same for both countries.
constexpr const char* kWhereVisible[] = {
    "WHERE ClientData.ShowThisClient = True AND ClientData.ActiveStatus=1 ORDER BY "
    "Companies.CompanyName;",
    "WHERE ClientData.ShowThisClient = True AND NOT ClientData.ActiveStatus=1 ORDER BY "
    "Companies.CompanyName;",
    "WHERE ClientData.ShowThisClient = True ORDER BY Companies.CompanyName;",
};
constexpr const char* kWhereAll[] = {
    "WHERE ClientData.ActiveStatus=1 ORDER BY Companies.CompanyName;",
    "WHERE NOT ClientData.ActiveStatus=1 ORDER BY Companies.CompanyName;",
    "ORDER BY Companies.CompanyName;",
};

}  // namespace

std::string getMainBusinessSQLString(bool showOnlyVisible, int32_t statusFilter) {
  std::string sql;
  Routine r("Tallowbrook.exe-modDatabaseFunctions-getMainBusinessSQLString");
  r.step([&] {
    if (statusFilter < 1 || statusFilter > 3) return r.exit();
    LocaleService& locale = requireReference(references().LocaleReference, "LocaleReference");
    bool canada = locale.getCountryCode() == 1;
    const char* select = canada            ? kSelectCanada
                         : showOnlyVisible ? kSelectOtherVisible
                                           : kSelectOtherAll;
    const char* where = (showOnlyVisible ? kWhereVisible : kWhereAll)[statusFilter - 1];
    sql = std::string(select) + (canada ? kFromCanada : kFromOther) + where;
  });
  return sql;
}

}  // namespace nvwm
