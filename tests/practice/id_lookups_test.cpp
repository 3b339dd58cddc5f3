// The ID lookups that read one column of the first row: the SQL they send, and what comes back
// with a row, without one, with a Null, and without a connection.
#include <gtest/gtest.h>

#include <functional>

#include "practice/lookups.h"
#include "practice_fixture.h"

namespace nvwm {
namespace {

using testing::PracticeFixture;

constexpr int32_t kId = 7;

struct IdLookupCase {
  const char* routine;
  std::function<Variant(int32_t)> call;
  const char* sqlPrefix;  // the ID and ";" follow
  // Inserts the row of ID 7 whose field holds `value` (an SQL literal: 42, 'Ann', NULL).
  std::function<std::string(const char* value)> insert;
  const char* stored;  // the value stored for the found case
  Variant found;
  bool nullable;    // the field can be Null (a key can't)
  bool nullTested;  // a Null gives the default silently; otherwise 94 reaches the error service
  Variant noRow;
};

std::function<std::string(const char*)> inserting(std::string table, std::string columns,
                                                  std::string before, std::string after = "") {
  return [=](const char* value) {
    return "INSERT INTO " + table + " (" + columns + ") VALUES (" + before + value + after + ");";
  };
}

const IdLookupCase kCases[] = {
    {"getClientDataIDFromCompanyID",
     [](int32_t id) { return Variant(getClientDataIDFromCompanyID(id)); },
     "SELECT ClientData.ClientDataID, ClientData.CompanyIDNum FROM ClientData WHERE CompanyIDNum=",
     inserting("ClientData", "ClientDataID, CompanyIDNum", "", ", 7"), "42", Variant(42), false,
     false, Variant(-1)},
    {"getClientDataIDFromScheduleID",
     [](int32_t id) { return Variant(getClientDataIDFromScheduleID(id)); },
     "SELECT Schedule.ScheduleID, Schedule.ClientNum FROM Schedule WHERE ScheduleID=",
     inserting("Schedule", "ScheduleID, ClientNum", "7, "), "42", Variant(42), true, false,
     Variant(-1)},
    {"getCompanyIDFromClientDataID",
     [](int32_t id) { return Variant(getCompanyIDFromClientDataID(id)); },
     "SELECT ClientData.ClientDataID, ClientData.CompanyIDNum FROM ClientData WHERE ClientDataID=",
     inserting("ClientData", "ClientDataID, CompanyIDNum", "7, "), "42", Variant(42), true, false,
     Variant(-1)},
    {"getCompanyIDFromDocketID", [](int32_t id) { return Variant(getCompanyIDFromDocketID(id)); },
     "SELECT Dockets.DocketID, Dockets.CompanyIDNum FROM Dockets WHERE DocketID=",
     inserting("Dockets", "DocketID, CompanyIDNum", "7, "), "42", Variant(42), true, true,
     Variant(-1)},
    {"getCompanyIDFromTaskID", [](int32_t id) { return Variant(getCompanyIDFromTaskID(id)); },
     "SELECT Tasks.TaskID, Tasks.CompanyIDNum FROM Tasks WHERE TaskID=",
     inserting("Tasks", "TaskID, CompanyIDNum", "7, "), "42", Variant(42), true, true, Variant(-1)},
    {"getContactIDFromTaskID", [](int32_t id) { return Variant(getContactIDFromTaskID(id)); },
     "SELECT Tasks.TaskID, Tasks.ContactIDNum FROM Tasks WHERE TaskID=",
     inserting("Tasks", "TaskID, ContactIDNum", "7, "), "42", Variant(42), true, true, Variant(-1)},
    {"getContactIDFromDocketID", [](int32_t id) { return Variant(getContactIDFromDocketID(id)); },
     "SELECT Dockets.DocketID, Dockets.ContactIDNum FROM Dockets WHERE DocketID=",
     inserting("Dockets", "DocketID, ContactIDNum", "7, "), "42", Variant(42), true, true,
     Variant(-1)},
    {"getCompanyIDFromAppointmentID",
     [](int32_t id) { return Variant(getCompanyIDFromAppointmentID(id)); },
     "SELECT Appointments.AppointmentID, Appointments.CompanyIDNum FROM Appointments WHERE "
     "AppointmentID=",
     inserting("Appointments", "AppointmentID, CompanyIDNum", "7, "), "42", Variant(42), true, true,
     Variant(-1)},
    {"getContactIDFromAppointmentID",
     [](int32_t id) { return Variant(getContactIDFromAppointmentID(id)); },
     "SELECT Appointments.AppointmentID, Appointments.ContactIDNum FROM Appointments WHERE "
     "AppointmentID=",
     inserting("Appointments", "AppointmentID, ContactIDNum", "7, "), "42", Variant(42), true, true,
     Variant(-1)},
    {"getDisplayNameFromContactID",
     [](int32_t id) { return Variant(getDisplayNameFromContactID(id)); },
     "SELECT Contacts.ContactID, Contacts.DisplayName FROM Contacts WHERE ContactID=",
     inserting("Contacts", "ContactID, DisplayName", "7, "), "'Ann O''Neil'", Variant("Ann O'Neil"),
     true, false, Variant("")},
    {"getCompanyNameFromCompanyID",
     [](int32_t id) { return Variant(getCompanyNameFromCompanyID(id)); },
     "SELECT Companies.CompanyID, Companies.CompanyName FROM Companies WHERE CompanyID=",
     inserting("Companies", "CompanyID, CompanyName", "7, "), "'Société Tremblay'",
     Variant("Société Tremblay"), true, false, Variant("")},
    {"getScheduleIDFromTaskID", [](int32_t id) { return Variant(getScheduleIDFromTaskID(id)); },
     "SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE TaskID=",
     inserting("Tasks", "TaskID, ScheduleIDNum", "7, "), "42", Variant(42), true, true,
     Variant(-1)},
};

std::string sqlFor(const IdLookupCase& c, int32_t id) {
  return c.sqlPrefix + std::to_string(id) + ";";
}

TEST(IdLookupsTest, RowFoundReadsTheFieldAndClosesTheRecordset) {
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.routine);
    PracticeFixture f;
    f.exec(c.insert(c.stored));
    EXPECT_EQ(c.call(kId), c.found);
    EXPECT_EQ(f.db().sqlSent(), std::vector<std::string>{sqlFor(c, kId)});
    EXPECT_EQ(f.db().queries.at(0).lockType, 1);
    EXPECT_EQ(f.db().queries.at(0).cursorType, 1);
    EXPECT_TRUE(f.db().stillOpen().empty());
    EXPECT_TRUE(f.errorNumbers().empty());
  }
}

TEST(IdLookupsTest, NoRowGivesTheDefaultSilently) {
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.routine);
    PracticeFixture f;
    f.exec(c.insert(c.stored));  // the row of ID 7; ID 8 has none
    EXPECT_EQ(c.call(8), c.noRow);
    EXPECT_EQ(f.db().sqlSent(), std::vector<std::string>{sqlFor(c, 8)});
    EXPECT_TRUE(f.db().stillOpen().empty());
    EXPECT_TRUE(f.errorNumbers().empty());
  }
}

TEST(IdLookupsTest, NullGivesTheDefaultOnlyWhereItIsTestedElseError94) {
  for (const auto& c : kCases) {
    if (!c.nullable) continue;
    SCOPED_TRACE(c.routine);
    PracticeFixture f;
    f.exec(c.insert("NULL"));
    EXPECT_EQ(c.call(kId), c.noRow);
    if (c.nullTested) {
      EXPECT_TRUE(f.errorNumbers().empty());
      EXPECT_TRUE(f.db().stillOpen().empty());
    } else {
      EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{94});
      // The error tail leaves at once: the recordset stays open, as nothing cleans it up.
      EXPECT_EQ(f.db().stillOpen().size(), 1u);
    }
  }
}

TEST(IdLookupsTest, WithoutConnectionTheDefaultComesBackAndNothingIsSent) {
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.routine);
    PracticeFixture f;
    f.exec(c.insert(c.stored));
    f.db().connected = false;
    EXPECT_EQ(c.call(kId), c.noRow);
    EXPECT_EQ(f.db().isConnectedCalls, 1);
    EXPECT_TRUE(f.db().queries.empty());
    EXPECT_TRUE(f.errorNumbers().empty());
  }
}

TEST(IdLookupsTest, IdsAreSentInPlainDecimalNegativeOnesToo) {
  PracticeFixture f;
  EXPECT_EQ(getCompanyIDFromDocketID(-5), -1);
  EXPECT_EQ(getClientDataIDFromCompanyID(0), -1);
  EXPECT_EQ(f.db().sqlSent(),
            (std::vector<std::string>{
                "SELECT Dockets.DocketID, Dockets.CompanyIDNum FROM Dockets WHERE DocketID=-5;",
                "SELECT ClientData.ClientDataID, ClientData.CompanyIDNum FROM ClientData WHERE "
                "CompanyIDNum=0;"}));
}

TEST(IdLookupsTest, ScheduleIDFromTaskIDRefusesANegativeTaskWithoutQuery) {
  PracticeFixture f;
  f.exec("INSERT INTO Tasks (TaskID, ScheduleIDNum) VALUES (0, 42);");
  EXPECT_EQ(getScheduleIDFromTaskID(-1), -1);
  EXPECT_TRUE(f.db().queries.empty());
  EXPECT_EQ(getScheduleIDFromTaskID(0), 42);  // 0 is a real ID
}

TEST(IdLookupsTest, OnlyTheFirstRowCounts) {
  PracticeFixture f;
  f.exec("INSERT INTO ClientData (ClientDataID, CompanyIDNum) VALUES (3, 7), (4, 7);");
  EXPECT_EQ(getClientDataIDFromCompanyID(7), 3);
}

TEST(IdLookupsTest, WithoutErrorServiceALookupDoesNothing) {
  PracticeFixture f;
  f.exec("INSERT INTO Dockets (DocketID, CompanyIDNum) VALUES (7, 42);");
  references().errorClass = nullptr;
  EXPECT_EQ(getCompanyIDFromDocketID(kId), -1);
  EXPECT_TRUE(f.db().queries.empty());
}

TEST(IdLookupsTest, WithoutDatabaseReferenceTheErrorServiceHearsOfIt) {
  PracticeFixture f;
  references().DatabaseReference = nullptr;
  EXPECT_EQ(getCompanyNameFromCompanyID(kId), "");
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{91});
}

}  // namespace
}  // namespace nvwm
