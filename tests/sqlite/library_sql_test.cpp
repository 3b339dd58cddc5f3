// Every SQL text the library sends to the practice database, completed with an ID or a date,
// runs on the schema through the service and finds the rows seeded for it. The client lists,
// built by their routine, are tested with it (tests/practice/client_list_sql_test.cpp).
#include <gtest/gtest.h>

#include <set>

#include "services/sqlite/recordset.h"
#include "support/practice_db.h"

namespace nvwm {
namespace {

using testing::PracticeDb;

// Two clients with their companies and notes (client 2 inactive), and one row with ID 1 in
// every other table, dated 11/23/2026.
constexpr const char* kSeed = R"sql(
INSERT INTO Companies (CompanyID, CompanyName, DefaultContactName) VALUES
  (1, 'Maple Leaf Bakery', 'Ann Brown'), (2, 'Northern Pines Ltd.', NULL);
INSERT INTO CompaniesNotes (CompanyNum, BusinessNotes, ContactNotes) VALUES (1, 'b', 'c'), (2, 'b', 'c');
INSERT INTO ClientData (ClientDataID, CompanyIDNum, ShowThisClient, ActiveStatus) VALUES
  (1, 1, 1, 1), (2, 2, 1, 0);
INSERT INTO Contacts (ContactID, DisplayName) VALUES (1, 'Ann Brown');
INSERT INTO ContactsNotes (ContactNum, Notes) VALUES (1, 'n');
INSERT INTO Categories (CategoryID, CategoryName) VALUES (1, 'Farm clients');
INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact, CategoryNum) VALUES
  (1, 1, 1, NULL), (NULL, 1, 0, 1);
INSERT INTO SoftwareInfo (CompanyIDNum, ContactIDNum, DefaultSoftware) VALUES (1, NULL, 1), (NULL, 1, 1);
INSERT INTO AccountantFirmInfo (CompanyID, CompanyName) VALUES (1, 'Ledger & Line LLP');
INSERT INTO AccountantEmployeeInfo (ContactID, DisplayName) VALUES (1, 'Ms. Accountant');
INSERT INTO Appointments (AppointmentID, UserIDNum, DateFrom, TimeFrom, TimeTo) VALUES
  (1, 1, '2026-11-23 00:00:00', '1899-12-30 09:00:00', '1899-12-30 10:00:00');
INSERT INTO Dockets (DocketID, UserIDNum, DateFrom, TimeFrom, TimeTo) VALUES
  (1, 1, '2026-11-23 00:00:00', '1899-12-30 11:00:00', '1899-12-30 12:00:00');
INSERT INTO Schedule (ScheduleID, ClientNum, ScheduleName, EmployeeAssigned) VALUES
  (1, 1, 'GST return', 'Ms. Accountant');
INSERT INTO Tasks (TaskID, ScheduleIDNum, UserIDNum, DateFrom, TimeFrom, TimeTo) VALUES
  (1, 1, 1, '2026-11-23 00:00:00', '1899-12-30 13:00:00', '1899-12-30 14:00:00');
INSERT INTO archiveTasks (oldTaskID, ScheduleIDNum) VALUES (7, 2);
INSERT INTO ScheduleTypes (TotalNum, ScheduleNum) VALUES (101, 1), (101, NULL);
INSERT INTO UserBillingScheduleTypeInfo (UserIDNum, ScheduleTypeNum, DefaultEstTime) VALUES (1, 1, 1.5);
INSERT INTO CompanyProjectSteps (CompanyProjectStepID, StepUserID) VALUES (1, 1);
INSERT INTO Holidays (HolidayDate, HolidayType) VALUES ('2026-11-23 00:00:00', 1);
INSERT INTO UserCalendarSettings (UserIDNum) VALUES (1);
INSERT INTO CustomFields (CustomName1) VALUES ('Label');
INSERT INTO CustomAddressFields (ContactLabel1) VALUES ('Label');
INSERT INTO ClientSchedulePopups (UserNum, CompanyIDNum, ContactIDNum) VALUES (1, 1, 1);
INSERT INTO Reminders (ReminderID, UserIDNum, AppointmentIDNum, ToDoIDNum, TaskIDNum, ReminderType)
  VALUES (1, 1, 1, NULL, NULL, 3), (2, 1, NULL, 1, NULL, 4), (3, 1, NULL, NULL, 1, 5);
)sql";

const char* const kLibrarySql[] = {
    "SELECT ClientData.ClientDataID, ClientData.ShowThisClient, Companies.CompanyName, "
    "Companies.OfficeNumber, Companies.FaxNumber, Companies.Email, "
    "Companies.DefaultContactName, Companies.DefaultContactPhoneNumber, "
    "Companies.DefaultContactFaxNumber, Companies.DefaultContactEmail, Schedule.* FROM "
    "(ClientData INNER JOIN Companies ON ClientData.CompanyIDNum = Companies.CompanyID) "
    "INNER JOIN Schedule ON ClientData.ClientDataID = Schedule.ClientNum WHERE "
    "ClientData.ShowThisClient = True;",
    "SELECT Appointments.* FROM Appointments ORDER BY Appointments.DateFrom, "
    "Appointments.TimeFrom;",
    "SELECT Dockets.* FROM Dockets ORDER BY Dockets.DateFrom, Dockets.TimeFrom;",
    "SELECT Companies.* From Companies;",
    "SELECT Companies.* From Companies WHERE Companies.companyID=1;",
    "SELECT Contacts.* From Contacts;",
    "SELECT Contacts.* From Contacts WHERE Contacts.ContactID=1;",
    "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND "
    "SoftwareInfo.CompanyIDNum=1;",
    "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True;",
    "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND "
    "SoftwareInfo.ContactIDNum=1;",
    "SELECT AccountantFirmInfo.* From AccountantFirmInfo;",
    "SELECT AccountantEmployeeInfo.* From AccountantEmployeeInfo;",
    "SELECT Appointments.* From Appointments;",
    "SELECT Dockets.* From Dockets;",
    "SELECT Appointments.* From Appointments WHERE Appointments.AppointmentID=1;",
    "SELECT Dockets.* From Dockets WHERE Dockets.DocketID=1;",
    "SELECT Schedule.*, Tasks.TaskID, Tasks.EstimatedTime, Tasks.Subject, Tasks.DateFrom, "
    "Tasks.TimeFrom, Tasks.TimeTo, Tasks.AppointmentText, Tasks.TextBody, Tasks.Custom1 AS "
    "TaskCustom1, Tasks.Custom2 AS TaskCustom2, Tasks.Custom3 AS TaskCustom3, "
    "Tasks.Custom4 AS TaskCustom4, Tasks.Custom5 AS TaskCustom5 FROM Schedule INNER JOIN "
    "Tasks ON Schedule.ScheduleID = Tasks.ScheduleIDNum;",
    "SELECT Schedule.*, Tasks.TaskID, Tasks.EstimatedTime, Tasks.Subject, Tasks.DateFrom, "
    "Tasks.TimeFrom, Tasks.TimeTo, Tasks.AppointmentText, Tasks.TextBody, Tasks.Custom1 AS "
    "TaskCustom1, Tasks.Custom2 AS TaskCustom2, Tasks.Custom3 AS TaskCustom3, "
    "Tasks.Custom4 AS TaskCustom4, Tasks.Custom5 AS TaskCustom5 FROM Schedule INNER JOIN "
    "Tasks ON Schedule.ScheduleID = Tasks.ScheduleIDNum WHERE Tasks.TaskID=1;",
    "SELECT CustomFields.* FROM CustomFields;",
    "SELECT CustomAddressFields.* FROM CustomAddressFields;",
    "SELECT UserCalendarSettings.* FROM UserCalendarSettings WHERE UserIDNum = 1;",
    "SELECT Tasks.* From Tasks WHERE Tasks.TaskID=1;",
    "SELECT Appointments.AppointmentID, Appointments.BeforeAppointmentText, "
    "Appointments.AfterAppointmentText FROM Appointments WHERE "
    "Appointments.AppointmentID=1;",
    "SELECT Dockets.DocketID, Dockets.BeforeAppointmentText, Dockets.AfterAppointmentText "
    "FROM Dockets WHERE Dockets.DocketID=1;",
    "SELECT Tasks.TaskID, Tasks.BeforeAppointmentText, Tasks.AfterAppointmentText FROM "
    "Tasks WHERE Tasks.TaskID=1;",
    "SELECT Companies.* From Companies WHERE Companies.CompanyID=1;",
    "SELECT Appointments.* From Appointments WHERE Appointments.appointmentid=1;",
    "SELECT AccountantEmployeeInfo.* FROM AccountantEmployeeInfo WHERE "
    "AccountantEmployeeInfo.ContactID=1;",
    "SELECT AccountantFirmInfo.* FROM AccountantFirmInfo WHERE "
    "AccountantFirmInfo.CompanyID=1;",
    "SELECT Contacts.* FROM Contacts WHERE Contacts.ContactID=1;",
    "SELECT Companies.* FROM Companies WHERE Companies.CompanyID=1;",
    "SELECT ContactsNotes.* FROM ContactsNotes WHERE ContactNum=1;",
    "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, Companies.CompanyName FROM "
    "ContactLinks INNER JOIN Companies ON ContactLinks.CompanyNum = Companies.CompanyID "
    "WHERE ContactLinks.ContactIDNum=1 AND Not ContactLinks.CompanyNum Is Null;",
    "SELECT Categories.CategoryName, ContactLinks.ContactIDNum FROM Categories INNER JOIN "
    "ContactLinks ON Categories.CategoryID = ContactLinks.CategoryNum WHERE "
    "ContactLinks.ContactIDNum=1;",
    "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, "
    "ContactLinks.DefaultContact FROM ContactLinks WHERE ContactLinks.ContactIDNum = 1;",
    "SELECT CompaniesNotes.CompanyNum, CompaniesNotes.ContactNotes FROM CompaniesNotes;",
    "SELECT CompaniesNotes.CompanyNum, CompaniesNotes.ContactNotes FROM CompaniesNotes "
    "WHERE CompanyNum=1;",
    "SELECT ClientData.ClientDataID, ClientData.CompanyIDNum FROM ClientData WHERE "
    "CompanyIDNum=1;",
    "SELECT Schedule.ScheduleID, Schedule.ClientNum FROM Schedule WHERE ScheduleID=1;",
    "SELECT ClientData.ClientDataID, ClientData.CompanyIDNum FROM ClientData WHERE "
    "ClientDataID=1;",
    "SELECT Dockets.DocketID, Dockets.CompanyIDNum FROM Dockets WHERE DocketID=1;",
    "SELECT Tasks.TaskID, Tasks.CompanyIDNum FROM Tasks WHERE TaskID=1;",
    "SELECT Tasks.TaskID, Tasks.ContactIDNum FROM Tasks WHERE TaskID=1;",
    "SELECT Dockets.DocketID, Dockets.ContactIDNum FROM Dockets WHERE DocketID=1;",
    "SELECT Appointments.AppointmentID, Appointments.CompanyIDNum FROM Appointments WHERE "
    "AppointmentID=1;",
    "SELECT Appointments.AppointmentID, Appointments.ContactIDNum FROM Appointments WHERE "
    "AppointmentID=1;",
    "SELECT Contacts.ContactID, Contacts.DisplayName FROM Contacts WHERE ContactID=1;",
    "SELECT Companies.CompanyID, Companies.CompanyName FROM Companies WHERE CompanyID=1;",
    "SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE TaskID=1;",
    "SELECT AccountantEmployeeInfo.ContactID, AccountantEmployeeInfo.DisplayName FROM "
    "AccountantEmployeeInfo WHERE ContactID = 1 ORDER BY "
    "AccountantEmployeeInfo.DisplayName;",
    "SELECT DISTINCT AccountantEmployeeInfo.DisplayName, AccountantEmployeeInfo.ContactID "
    "FROM AccountantEmployeeInfo WHERE DisplayName = 'Ms. Accountant' ORDER BY "
    "AccountantEmployeeInfo.DisplayName;",
    "SELECT Tasks.TaskID, Tasks.DateFrom FROM Tasks WHERE TaskID = 1;",
    "SELECT AccountantFirmInfo.CompanyID From AccountantFirmInfo;",
    "SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=1;",
    "SELECT archiveTasks.oldTaskID, archiveTasks.ScheduleIDNum FROM archiveTasks WHERE "
    "ScheduleIDNum=2;",
    "SELECT ContactLinks.CompanyNum, ContactLinks.ContactIDNum, "
    "ContactLinks.DefaultContact FROM ContactLinks WHERE ContactLinks.CompanyNum = 1;",
    "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, "
    "ContactLinks.DefaultContact FROM ContactLinks WHERE CompanyNum=1 AND "
    "ContactLinks.ContactIDNum = 1;",
    "SELECT Appointments.AppointmentID FROM Appointments WHERE AppointmentID = 1;",
    "SELECT Dockets.DocketID FROM Dockets WHERE DocketID = 1;",
    "SELECT Schedule.ScheduleID FROM Schedule WHERE ScheduleID = 1;",
    "SELECT Tasks.TaskID FROM Tasks WHERE TaskID = 1;",
    "SELECT ClientData.ClientDataID FROM ClientData WHERE ClientDataID = 1;",
    "SELECT Companies.CompanyID FROM Companies WHERE CompanyID = 1;",
    "SELECT Contacts.ContactID FROM Contacts WHERE ContactID = 1;",
    "SELECT AccountantFirmInfo.CompanyID FROM AccountantFirmInfo WHERE CompanyID = 1;",
    "SELECT AccountantEmployeeInfo.ContactID FROM AccountantEmployeeInfo WHERE ContactID = "
    "1;",
    "SELECT ScheduleTypes.* FROM ScheduleTypes WHERE ScheduleTypes.TotalNum=101 AND "
    "ScheduleTypes.ScheduleNum=1;",
    "SELECT ScheduleTypes.* FROM ScheduleTypes WHERE ScheduleTypes.TotalNum=101 AND "
    "ScheduleTypes.ScheduleNum Is Null;",
    "SELECT ScheduleTypes.* FROM ScheduleTypes;",
    "SELECT UserBillingScheduleTypeInfo.UserIDNum, "
    "UserBillingScheduleTypeInfo.ScheduleTypeNum, "
    "UserBillingScheduleTypeInfo.DefaultEstTime FROM UserBillingScheduleTypeInfo WHERE "
    "UserIDNum=1 And ScheduleTypeNum=1;",
    "SELECT Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=1;",
    "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, "
    "ContactLinks.DefaultContact FROM ContactLinks WHERE ContactLinks.CompanyNum = 1;",
    "SELECT Companies.CompanyID, Companies.DefaultContactName, "
    "Companies.DefaultContactPhoneNumber, Companies.DefaultContactFaxNumber, "
    "Companies.DefaultContactEmail FROM Companies WHERE CompanyID = 1;",
    "SELECT Contacts.ContactID, Contacts.DisplayName, Contacts.BusinessPhone_Main, "
    "Contacts.BusinessPhone_Fax, Contacts.BusinessEmail FROM Contacts WHERE ContactID = 1;",
    "SELECT CustomFields.RemittanceCustomInfo1, CustomFields.RemittanceCustomInfo2, "
    "CustomFields.RemittanceCustomInfo3, CustomFields.RemittanceCustomInfo4, "
    "CustomFields.RemittanceCustomInfo5, CustomFields.RemittanceCustomType1, "
    "CustomFields.RemittanceCustomType2, CustomFields.RemittanceCustomType3, "
    "CustomFields.RemittanceCustomType4, CustomFields.RemittanceCustomType5 FROM "
    "CustomFields;",
    "SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, "
    "ContactLinks.DefaultContact FROM ContactLinks WHERE ContactLinks.ContactIDNum = 1 AND "
    "ContactLinks.DefaultContact=True;",
    "SELECT Schedule.ClientNum, Schedule.Custom1, Schedule.Custom2, Schedule.Custom3, "
    "Schedule.Custom4, Schedule.Custom5 FROM Schedule WHERE Schedule.ClientNum = 1;",
    "SELECT Schedule.* FROM Schedule WHERE ScheduleID=1;",
    "SELECT Tasks.* FROM Tasks WHERE ScheduleIDNum=1;",
    "SELECT Tasks.TaskID, Tasks.AppointmentText FROM Tasks WHERE TaskID=1;",
    "SELECT Tasks.* FROM Tasks WHERE TaskID=1;",
    "SELECT Appointments.UserIDNum, Appointments.DateFrom, Appointments.TimeFrom, "
    "Appointments.TimeTo FROM Appointments WHERE Appointments.UserIDNum = 1 AND "
    "Appointments.DateFrom = #11/23/2026# ORDER BY Appointments.TimeTo;",
    "SELECT Dockets.UserIDNum, Dockets.DateFrom, Dockets.TimeFrom, Dockets.TimeTo FROM "
    "Dockets WHERE Dockets.UserIDNum = 1 AND Dockets.DateFrom = #11/23/2026# ORDER BY "
    "Dockets.TimeTo;",
    "SELECT Tasks.UserIDNum, Tasks.DateFrom, Tasks.TimeFrom, Tasks.TimeTo FROM Tasks WHERE "
    "UserIDNum = 1 AND DateFrom = #11/23/2026# ORDER BY Tasks.TimeTo;",
    "SELECT Holidays.HolidayDate, Holidays.HolidayType FROM Holidays WHERE "
    "Holidays.HolidayDate = #11/23/2026# ;",
    "SELECT CompanyProjectSteps.CompanyProjectStepID, CompanyProjectSteps.StepUserID FROM "
    "CompanyProjectSteps WHERE CompanyProjectSteps.CompanyProjectStepID=1;",
    "SELECT CompanyProjectSteps.CompanyProjectStepID, CompanyProjectSteps.Closed, "
    "CompanyProjectSteps.PersonCompletedUserIDNum, CompanyProjectSteps.DateCompleted FROM "
    "CompanyProjectSteps WHERE CompanyProjectSteps.CompanyProjectStepID=1;",
    "SELECT Schedule.ScheduleID, Schedule.EmployeeAssigned FROM Schedule WHERE "
    "ScheduleID=1;",
    "SELECT ClientSchedulePopups.* From ClientSchedulePopups WHERE "
    "ClientSchedulePopups.CompanyIDNum = 1 AND ClientSchedulePopups.UserNum = 1;",
    "SELECT ClientSchedulePopups.* From ClientSchedulePopups WHERE "
    "ClientSchedulePopups.ContactIDNum = 1 AND ClientSchedulePopups.UserNum = 1;",
    "SELECT Schedule.ScheduleID, Schedule.ClientNum, Schedule.ScheduleName  FROM Schedule "
    "WHERE ScheduleID=1;",
    "SELECT Appointments.AppointmentID, Appointments.Subject, Appointments.CompanyIDNum, "
    "Appointments.ContactIDNum, Appointments.ReminderPeriod, Appointments.TimeFrom, "
    "Appointments.AppointmentText FROM Appointments WHERE AppointmentID=1;",
    "SELECT Tasks.TaskID, Tasks.Subject, Tasks.CompanyIDNum, Tasks.ContactIDNum, "
    "Tasks.ReminderPeriod, Tasks.TimeFrom, Tasks.AppointmentText FROM Tasks WHERE TaskID=1;",
    "SELECT Reminders.ReminderID, Reminders.UserIDNum, Reminders.AppointmentIDNum, "
    "Reminders.ReminderType FROM Reminders WHERE UserIDNum = 1 AND AppointmentIDNum = 1 "
    "AND ReminderType = 3;",
    "SELECT Reminders.ReminderID, Reminders.UserIDNum, Reminders.ToDoIDNum, "
    "Reminders.ReminderType FROM Reminders WHERE UserIDNum = 1 AND ToDoIDNum = 1 AND "
    "ReminderType = 4;",
    "SELECT Reminders.ReminderID, Reminders.UserIDNum, Reminders.TaskIDNum, "
    "Reminders.ReminderType FROM Reminders WHERE UserIDNum = 1 AND TaskIDNum = 1 AND "
    "ReminderType = 5;",
    "SELECT Reminders.* FROM Reminders WHERE ReminderID=1;",
    "SELECT Reminders.* FROM Reminders;",
};

TEST(LibrarySqlTest, EveryTextRunsAndFindsItsRows) {
  PracticeDb db;
  db.exec(kSeed);
  auto svc = db.service();
  int texts = 0;
  for (const char* sql : kLibrarySql) {
    SCOPED_TRACE(sql);
    ++texts;
    try {
      Handle h = svc->openRecordset(sql, kCursorKeyset, kLockReadOnly, true, "", true);
      EXPECT_GT(svc->getRecordCount(h), 0);
      svc->closeRecordset(h);
    } catch (const RuntimeError& e) {
      ADD_FAILURE() << e.description();
    }
  }
  EXPECT_EQ(texts, 98);
}

TEST(LibrarySqlTest, EveryTextOpensUpdatable) {
  PracticeDb db;
  db.exec(kSeed);
  auto svc = db.service();
  for (const char* sql : kLibrarySql) {
    SCOPED_TRACE(sql);
    EXPECT_NO_THROW(svc->closeRecordset(
        svc->openRecordset(sql, kCursorKeyset, kLockOptimistic, true, "", true)));
  }
}

// The joins that read several tables with `.*` must give every column a name of its own, or a
// lookup by name would read another table's column. (The client lists: practice tests.)
TEST(LibrarySqlTest, JoinsGiveUniqueColumnNames) {
  PracticeDb db;
  db.exec(kSeed);
  auto svc = db.service();
  const struct {
    const char* what;
    int index;  // into kLibrarySql
  } joins[] = {{"remittance recordset", 0}, {"task join", 16}, {"task join by ID", 17}};
  std::vector<std::pair<std::string, std::string>> cases;
  for (const auto& j : joins) cases.emplace_back(j.what, kLibrarySql[j.index]);
  for (const auto& [what, sql] : cases) {
    SCOPED_TRACE(what + ": " + sql);
    Handle h = svc->openRecordset(sql, kCursorKeyset, kLockReadOnly);
    std::set<std::string> seen;
    for (const std::string& name : svc->fieldNames(h)) {
      EXPECT_EQ(name.find('.'), std::string::npos) << name << " is repeated";
      EXPECT_TRUE(seen.insert(sqlite::foldAscii(name)).second) << name;
    }
    svc->closeRecordset(h);
  }
}

}  // namespace
}  // namespace nvwm
