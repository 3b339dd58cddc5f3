-- The practice of the value tests: a firm, two client companies (one with an empty address),
-- contacts that do and don't inherit their company's details, a client record with every
-- satellite row, software, an appointment, a time entry, schedule entries and tasks.

INSERT INTO Companies (CompanyID, CompanyName, Address, City, Province, PostalCode, Country, OfficeNumber, FaxNumber, AltProvince) VALUES
  (1, 'Bellwood Lane CPA', '210 Princess Street', 'Kingston', 'Ontario', 'K7L 1B2', 'Canada', '(613) 555-0142', '(613) 555-0143', NULL),
  (2, 'Maple Leaf Bakery Inc.', '48 Brock Street', 'Kingston', 'Ontario', 'K7L 1R8', 'Canada', '(613) 555-1000', '(613) 555-1009', 'Nova Scotia'),
  (3, 'Empty Address Co.', NULL, NULL, NULL, NULL, NULL, '(613) 555-3000', NULL, NULL);

INSERT INTO AccountantFirmInfo (CompanyID, CompanyName, City) VALUES (1, 'Bellwood Lane CPA', 'Kingston');

-- 101 inherits and has no business phone of its own; 102 doesn't inherit; 103 inherits from the
-- company without an address.
INSERT INTO Contacts (ContactID, DisplayName, FirstName, LastName, InheritCompanyInfo, BusinessPhone_Main, BusinessPhone_Fax, BusinessAddress, BusinessCity, BusinessProvince, HomeAddress, HomeProvince, Birthday, Anniversary, SpouseFirstName, SpouseLastName, SpouseBirthday, Custom1) VALUES
  (101, 'Ann Brown', 'Ann', 'Brown', 1, NULL, '(613) 555-7777', '1 Own Road', 'Ownville', 'Quebec', '113 Elm Grove' || char(13) || char(10) || 'Apt 4', 'Ontario', '1985-06-18 00:00:00', NULL, 'Samuel', 'BROWN', '1997-10-27 00:00:00', 'Prefers e-mail'),
  (102, 'Robert Wilson', 'Robert', 'Wilson', 0, '(613) 555-2102', NULL, '9 Side Street', 'Napanee', 'Ontario', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),
  (103, 'Chloe Murphy', 'Chloe', 'Murphy', 1, '(613) 555-2103', NULL, '7 Farm Lane', 'Ownville', 'Ontario', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL);

INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact) VALUES (2, 101, 1), (2, 102, 0), (3, 103, 1);

-- Company 2's client record in every satellite; company 3's with numbers outside the lists.
INSERT INTO ClientData (ClientDataID, CompanyIDNum, ShowThisClient, ActiveStatus, BusinessNumber, YearEndDate) VALUES
  (2, 2, 1, 1, '123456789RT0001', '2026-03-31 00:00:00'),
  (3, 3, 1, 1, NULL, NULL);
INSERT INTO ClientOptions (ClientOptionID, RC59Permission, RC59Status) VALUES (2, 1, 3), (3, 7, NULL);
INSERT INTO AccountingServices (AccountingServiceID, GSTNumber, GSTFilingMethod) VALUES (2, '123456789RT0001', 3), (3, NULL, 0);
INSERT INTO CorpTaxInfo (CorpTaxInfoID) VALUES (2), (3);
INSERT INTO LawInfo (LawInfoID) VALUES (2), (3);
INSERT INTO OtherInfo (OtherInfoID) VALUES (2), (3);
INSERT INTO WSIB_EHTInfo (WSIB_EHTInfoID) VALUES (2), (3);
INSERT INTO CompaniesNotes (CompanyNum) VALUES (2), (3);

INSERT INTO SoftwareInfo (CompanyIDNum, ContactIDNum, DefaultSoftware, SoftwareName) VALUES
  (2, NULL, 1, 'Simply Accounting'),
  (2, NULL, 0, 'Old Ledger'),
  (NULL, 102, 1, 'QuickBooks');

INSERT INTO Appointments (AppointmentID, CompanyIDNum, ContactIDNum, Subject, DateFrom, TimeFrom, TimeTo) VALUES
  (1, 2, 101, 'Year-end review', '2026-04-02 00:00:00', '1899-12-30 09:00:00', '1899-12-30 10:30:00'),
  (2, 2, 101, 'Night shift count', '2026-04-03 00:00:00', '1899-12-30 23:00:00', '1899-12-30 01:00:00');

INSERT INTO Dockets (DocketID, CompanyIDNum, ContactIDNum, Subject, DateFrom, TimeFrom, TimeTo, DocketLocked, Invoiced, TotalTimeReal, TotalAmountReal, TotalAmountFinal) VALUES
  (1, 2, 101, 'Bookkeeping', '2026-03-02 00:00:00', '1899-12-30 13:00:00', '1899-12-30 13:31:00', 1, 0, 0.5, 1250.5, -1250),
  (2, 2, 101, 'Unlocked entry', '2026-03-03 00:00:00', NULL, NULL, NULL, 1, NULL, NULL, NULL);

-- Schedule 1 is carried out by task 1; schedule 2 has no task; task 2 belongs to no schedule.
-- Reading task data of schedule 2 or schedule data of task 2 makes the missing half, so both
-- carry what that needs (an in-house due date, the type numbers, notes, no project step).
INSERT INTO Schedule (ScheduleID, ClientNum, ScheduleName, EmployeeAssigned, DueDate, inHouseDueDate, CalendarDate, Year, Amount, totalNum, scheduleNum, CompanyProjectStepIDNum, ScheduleNotes) VALUES
  (1, 2, 'GST return', 'Ms. Accountant', '2026-04-30 00:00:00', '2026-04-23 00:00:00', '2026-04-27 00:00:00', '2026', '$123.50', NULL, NULL, NULL, NULL),
  (2, 2, 'Payroll remittance', 'Ms. Accountant', '2026-05-15 00:00:00', '2026-05-08 00:00:00', NULL, '2026', NULL, 103, 0, -1, 'Quarterly');
INSERT INTO Tasks (TaskID, ScheduleIDNum, CompanyIDNum, ContactIDNum, Subject, DateFrom, TimeFrom, TimeTo, CompanyProjectStepIDNum, notifyType) VALUES
  (1, 1, 2, 101, 'Q1 GST filing', '2026-04-20 00:00:00', '1899-12-30 14:00:00', '1899-12-30 15:15:00', NULL, NULL),
  (2, NULL, 2, 101, 'Loose task', '2026-04-21 00:00:00', NULL, NULL, -1, 0);
