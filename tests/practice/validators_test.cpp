// The nine existence tests: their checks before the query, in order, and the text they send.
#include <gtest/gtest.h>

#include <functional>

#include "practice/lookups.h"
#include "practice_fixture.h"

namespace nvwm {
namespace {

using testing::PracticeFixture;

struct ValidatorCase {
  const char* routine;
  std::function<bool(const std::string&)> call;
  const char* sqlPrefix;
  const char* insert12;  // the row of ID 12
  bool sendsNumber;      // the converted number goes into the SQL, not the text
};

const ValidatorCase kValidators[] = {
    {"validAppointmentID", validAppointmentID,
     "SELECT Appointments.AppointmentID FROM Appointments WHERE AppointmentID = ",
     "INSERT INTO Appointments (AppointmentID) VALUES (12);", true},
    {"validDocketID", validDocketID, "SELECT Dockets.DocketID FROM Dockets WHERE DocketID = ",
     "INSERT INTO Dockets (DocketID) VALUES (12);", false},
    {"validScheduleID", validScheduleID,
     "SELECT Schedule.ScheduleID FROM Schedule WHERE ScheduleID = ",
     "INSERT INTO Schedule (ScheduleID) VALUES (12);", false},
    {"validTaskID", validTaskID, "SELECT Tasks.TaskID FROM Tasks WHERE TaskID = ",
     "INSERT INTO Tasks (TaskID) VALUES (12);", false},
    {"validClientID", validClientID,
     "SELECT ClientData.ClientDataID FROM ClientData WHERE ClientDataID = ",
     "INSERT INTO ClientData (ClientDataID) VALUES (12);", false},
    {"validCompanyID", validCompanyID,
     "SELECT Companies.CompanyID FROM Companies WHERE CompanyID = ",
     "INSERT INTO Companies (CompanyID) VALUES (12);", false},
    {"validContactID", validContactID, "SELECT Contacts.ContactID FROM Contacts WHERE ContactID = ",
     "INSERT INTO Contacts (ContactID) VALUES (12);", false},
    {"validFirmID", validFirmID,
     "SELECT AccountantFirmInfo.CompanyID FROM AccountantFirmInfo WHERE CompanyID = ",
     "INSERT INTO AccountantFirmInfo (CompanyID) VALUES (12);", false},
    {"validEmployeeID", validEmployeeID,
     "SELECT AccountantEmployeeInfo.ContactID FROM AccountantEmployeeInfo WHERE ContactID = ",
     "INSERT INTO AccountantEmployeeInfo (ContactID) VALUES (12);", false},
};

TEST(ValidatorsTest, PresentAndAbsentRows) {
  for (const auto& v : kValidators) {
    SCOPED_TRACE(v.routine);
    PracticeFixture f;
    f.exec(v.insert12);
    EXPECT_TRUE(v.call("12"));
    EXPECT_FALSE(v.call("13"));
    EXPECT_FALSE(v.call("0"));  // 0 passes the checks and is asked for
    EXPECT_EQ(f.db().sqlSent(), (std::vector<std::string>{std::string(v.sqlPrefix) + "12;",
                                                          std::string(v.sqlPrefix) + "13;",
                                                          std::string(v.sqlPrefix) + "0;"}));
    EXPECT_TRUE(f.db().stillOpen().empty());
    EXPECT_TRUE(f.errorNumbers().empty());
  }
}

TEST(ValidatorsTest, RefusedTextsSendNothing) {
  const char* refused[] = {"", "abc", "-5", "12abc", "-0.6"};
  for (const auto& v : kValidators) {
    SCOPED_TRACE(v.routine);
    PracticeFixture f;
    f.exec(v.insert12);
    for (const char* text : refused) {
      SCOPED_TRACE(text);
      EXPECT_FALSE(v.call(text));
    }
    EXPECT_TRUE(f.db().queries.empty());
    EXPECT_TRUE(f.errorNumbers().empty());
    f.db().connected = false;
    EXPECT_FALSE(v.call("12"));
    EXPECT_TRUE(f.db().queries.empty());
  }
}

TEST(ValidatorsTest, NumericTextReachesTheSqlAsItStandsExceptForAppointments) {
  const struct {
    const char* text;
    const char* sentAsNumber;  // what validAppointmentID sends
    bool textFindsTheRow;      // the database's own reading of the text as it stands
  } cases[] = {{"1e3", "1000", true}, {" 1000", "1000", true}, {"1000.4", "1000", false}};
  for (const auto& v : kValidators) {
    for (const auto& c : cases) {
      SCOPED_TRACE(std::string(v.routine) + " " + c.text);
      PracticeFixture f;
      std::string insert = v.insert12;
      insert.replace(insert.find("12"), 2, "1000");
      f.exec(insert);
      EXPECT_EQ(v.call(c.text), v.sendsNumber || c.textFindsTheRow);
      const std::string sent = v.sendsNumber ? c.sentAsNumber : c.text;
      EXPECT_EQ(f.db().sqlSent(), std::vector<std::string>{v.sqlPrefix + sent + ";"});
    }
  }
}

TEST(ValidatorsTest, NumericTextTooLargeFor32BitsIsAnOverflowError) {
  for (const auto& v : kValidators) {
    SCOPED_TRACE(v.routine);
    PracticeFixture f;
    EXPECT_FALSE(v.call("2147483648"));
    EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{6});
    EXPECT_TRUE(f.db().queries.empty());
    EXPECT_EQ(f.errors().shownWithStack.at(0),
              std::vector<std::string>{testing::databaseFunctionsTag(v.routine)});
  }
}

TEST(ValidatorsTest, CompanyEdgeCases) {
  PracticeFixture f;
  f.exec("INSERT INTO Companies (CompanyID, CompanyName) VALUES (12, 'Acme');");
  EXPECT_FALSE(validCompanyID(""));
  EXPECT_FALSE(validCompanyID("abc"));
  EXPECT_FALSE(validCompanyID("-5"));
  EXPECT_TRUE(f.db().queries.empty());
  EXPECT_TRUE(validCompanyID("12"));
  EXPECT_FALSE(validCompanyID("2147483647"));  // the largest 32-bit number is asked for
  EXPECT_EQ(f.db().queries.size(), 2u);
}

}  // namespace
}  // namespace nvwm
