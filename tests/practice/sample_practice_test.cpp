// The sample practice: what a user trying the program expects to find in it.
#include "services/sqlite/sample_practice.h"

#include <gtest/gtest.h>

#include "practice/client_list_sql.h"
#include "runtime/clock.h"
#include "services/folder_locale.h"
#include "support/practice_db.h"
#include "support/test_support.h"

namespace nvwm {
namespace {

using testing::TempDir;

class SamplePracticeTest : public ::testing::Test {
 protected:
  void SetUp() override {
    path = dir.file("sample.db");
    writeSamplePractice(path);
    svc = std::make_unique<SqliteDatabase>(path);
    ASSERT_TRUE(svc->isConnected());
  }
  int32_t count(const std::string& sql) {
    Handle h = svc->openRecordset(sql, kCursorKeyset, kLockReadOnly);
    int32_t n = svc->getRecordCount(h);
    svc->closeRecordset(h);
    return n;
  }
  Variant first(const std::string& sql) {
    Handle h = svc->openRecordset(sql, kCursorKeyset, kLockReadOnly);
    Variant v = svc->isEOF(h) ? Variant::null() : svc->getField(h, Variant(int32_t{0}));
    svc->closeRecordset(h);
    return v;
  }
  TempDir dir;
  std::string path;
  std::unique_ptr<SqliteDatabase> svc;
};

TEST_F(SamplePracticeTest, HoldsWhatTheIssueAsksFor) {
  const struct {
    const char* what;
    const char* sql;
    int32_t atLeast;
  } cases[] = {
      {"the firm", "SELECT AccountantFirmInfo.* FROM AccountantFirmInfo", 1},
      {"employees", "SELECT * FROM AccountantEmployeeInfo", 3},
      {"20 clients", "SELECT * FROM ClientData", 20},
      {"clients outside Ontario",
       "SELECT * FROM Companies INNER JOIN ClientData ON Companies.CompanyID = "
       "ClientData.CompanyIDNum WHERE Province <> 'Ontario'",
       3},
      {"a client without contacts",
       "SELECT * FROM ClientData WHERE CompanyIDNum NOT IN (SELECT CompanyNum FROM ContactLinks "
       "WHERE CompanyNum IS NOT NULL)",
       1},
      {"a client with several contacts and no default",
       "SELECT CompanyNum FROM ContactLinks WHERE CompanyNum IS NOT NULL GROUP BY CompanyNum "
       "HAVING count(*) > 1 AND max(DefaultContact) = 0",
       1},
      {"contacts with spouses", "SELECT * FROM Contacts WHERE SpouseFirstName IS NOT NULL", 5},
      {"category links", "SELECT * FROM ContactLinks WHERE CategoryNum IS NOT NULL", 1},
      {"software", "SELECT * FROM SoftwareInfo WHERE DefaultSoftware = True", 5},
      {"custom labels", "SELECT * FROM CustomFields", 1},
      {"address labels", "SELECT * FROM CustomAddressFields", 1},
      {"schedule items", "SELECT * FROM Schedule", 20},
      {"tasks", "SELECT * FROM Tasks", 10},
      {"an archived task", "SELECT * FROM archiveTasks", 1},
      {"appointments", "SELECT * FROM Appointments", 5},
      {"dockets", "SELECT * FROM Dockets", 5},
      {"schedule types of every remittance kind",
       "SELECT DISTINCT TotalNum FROM ScheduleTypes WHERE TotalNum BETWEEN 101 AND 114", 14},
      {"calendar settings", "SELECT * FROM UserCalendarSettings", 1},
      {"pop-up settings", "SELECT * FROM ClientSchedulePopups", 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_GE(count(c.sql), c.atLeast);
  }
}

TEST_F(SamplePracticeTest, EveryClientIsInBothCountriesClientLists) {
  // The client list joins every table of the firm's country with inner joins: a client missing a
  // satellite row would drop out of the merge.
  int32_t clients = count("SELECT * FROM ClientData");
  testing::ScopedReferences refs;
  auto locale = std::make_shared<HostLocale>();
  references().LocaleReference = locale;
  for (int32_t country : {1, 2}) {
    SCOPED_TRACE(country);
    locale->setCountryCode(country);
    std::string sql = getMainBusinessSQLString(/*showOnlyVisible=*/false, /*statusFilter=*/3);
    ASSERT_FALSE(sql.empty());
    EXPECT_EQ(count(sql), clients);
  }
}

TEST_F(SamplePracticeTest, DatesAreOfTheCurrentYear) {
  int year = Today().year();
  EXPECT_EQ(
      count("SELECT * FROM Holidays WHERE HolidayDate = #12/25/" + std::to_string(year) + "#"), 1);
  EXPECT_EQ(count("SELECT * FROM Holidays WHERE HolidayDate = #7/1/" + std::to_string(year) + "#"),
            1);
  EXPECT_GE(count("SELECT * FROM Schedule WHERE Year = '" + std::to_string(year) + "'"), 20);
}

TEST_F(SamplePracticeTest, EmployeeAssignedNamesAnEmployeeOrNobody) {
  EXPECT_EQ(count("SELECT * FROM Schedule WHERE EmployeeAssigned NOT IN (SELECT DisplayName FROM "
                  "AccountantEmployeeInfo) AND EmployeeAssigned <> 'None Assigned'"),
            0);
  EXPECT_EQ(first("SELECT count(*) FROM Tasks WHERE UserIDNum NOT IN (SELECT ContactID FROM "
                  "AccountantEmployeeInfo)"),
            Variant(int32_t{0}));
}

TEST_F(SamplePracticeTest, DefaultContactCopiesMatchTheContact) {
  EXPECT_EQ(count("SELECT * FROM Companies INNER JOIN ContactLinks ON Companies.CompanyID = "
                  "ContactLinks.CompanyNum INNER JOIN Contacts ON Contacts.ContactID = "
                  "ContactLinks.ContactIDNum WHERE ContactLinks.DefaultContact = True AND "
                  "Companies.DefaultContactName <> Contacts.DisplayName"),
            0);
}

}  // namespace
}  // namespace nvwm
