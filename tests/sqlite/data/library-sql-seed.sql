-- The rows the texts of library-sql.txt find: two clients with their companies and notes
-- (client 2 not active), and one row with ID 1 in every other table, dated 11/23/2026.
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
