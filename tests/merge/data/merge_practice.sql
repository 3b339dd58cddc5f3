-- The practice of the merge tests: the firm, two client companies with a default contact each,
-- a company whose contact isn't its default, schedule entries, a task, appointments and time
-- entries of both clients.

INSERT INTO CustomFields (CustomName1, CustomName2, CustomName3, CustomName4, CustomName5, ApptCustomName1, ApptCustomName2, ApptCustomName3, ApptCustomName4, ApptCustomName5, RemittanceLabel1, RemittanceLabel2, RemittanceLabel3, RemittanceLabel4, RemittanceLabel5, TaskCustomName1, TaskCustomName2, TaskCustomName3, TaskCustomName4, TaskCustomName5, DocketCustomName1, DocketCustomName2, DocketCustomName3, DocketCustomName4, DocketCustomName5) VALUES
  ('Referral source', 'Billing contact', 'Fiscal notes', 'Portal login', 'Other', 'Meeting room', 'Agenda', 'Custom 3', 'Custom 4', 'Custom 5', 'Account', 'Period', 'Method', 'Custom 4', 'Custom 5', 'Checklist', 'Reviewer', 'Custom 3', 'Custom 4', 'Custom 5', 'Work code', 'Custom 2', 'Custom 3', 'Custom 4', 'Custom 5');
INSERT INTO CustomAddressFields (ContactLabel1, ContactLabel2, ContactLabel3, ContactLabel4, ContactLabel5, CompanyLabel1, CompanyLabel2, CompanyLabel3, CompanyLabel4, CompanyLabel5) VALUES
  ('Preferred contact', 'Assistant', 'Custom 3', 'Custom 4', 'Custom 5', 'Referral', 'Bank', 'Custom 3', 'Custom 4', 'Custom 5');

INSERT INTO Companies (CompanyID, CompanyName, ClientID, Address, City, Province, PostalCode, Country, OfficeNumber, AccountantName) VALUES
  (1, 'Bellwood Lane CPA', 'FIRM', '210 Princess Street', 'Kingston', 'Ontario', 'K7L 1B2', 'Canada', '(613) 555-0142', NULL),
  (2, 'Maple Leaf Bakery Inc.', 'C1002', '48 Brock Street', 'Kingston', 'Ontario', 'K7L 1R8', 'Canada', '(613) 555-1000', 'Margaret Okafor'),
  (3, 'Boulangerie Saint-Étienne', 'C1003', '1250 rue Sainte-Catherine Ouest', 'Montréal', 'Quebec', 'H3G 1P1', 'Canada', '(514) 555-1666', 'Daniel Fournier'),
  (4, 'Lakeshore Family Dental', 'C1004', '77 Lakeshore Road East', 'Oakville', 'Ontario', 'L6J 1H3', 'Canada', '(905) 555-1074', 'Margaret Okafor');

INSERT INTO AccountantFirmInfo (CompanyID, CompanyName, City) VALUES (1, 'Bellwood Lane CPA', 'Kingston');

INSERT INTO Contacts (ContactID, DisplayName, NamePrefix, FirstName, LastName, InheritCompanyInfo, Birthday) VALUES
  (101, 'Ann Brown', 'Ms.', 'Ann', 'Brown', 1, '1985-06-18 00:00:00'),
  (102, 'Robert Wilson', 'Mr.', 'Robert', 'Wilson', 0, NULL),
  (103, 'Tyler Mohamed', 'Mr.', 'Tyler', 'Mohamed', 1, '1993-06-14 00:00:00'),
  (104, 'Aisha Kowalski', 'Ms.', 'Aisha', 'Kowalski', 1, NULL);

INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact) VALUES
  (2, 101, 1), (2, 102, 0), (3, 103, 1), (4, 104, 0);

INSERT INTO ClientData (ClientDataID, CompanyIDNum, ShowThisClient, ActiveStatus, BusinessNumber, YearEndDate) VALUES
  (12, 2, 1, 1, '812346117', '2026-03-31 00:00:00'),
  (13, 3, 1, 1, '812366223', '2025-12-31 00:00:00');
INSERT INTO ClientOptions (ClientOptionID, RC59Permission, RC59Status) VALUES (12, 1, 3), (13, 0, 0);
INSERT INTO AccountingServices (AccountingServiceID, GSTNumber, GSTFilingMethod) VALUES (12, '812346117 RT0001', 3), (13, '812366223 RT0001', 1);
INSERT INTO CorpTaxInfo (CorpTaxInfoID) VALUES (12), (13);
INSERT INTO LawInfo (LawInfoID) VALUES (12), (13);
INSERT INTO OtherInfo (OtherInfoID) VALUES (12), (13);
INSERT INTO WSIB_EHTInfo (WSIB_EHTInfoID, WSIBPremiumRate) VALUES (12, '2.15'), (13, NULL);
INSERT INTO CompaniesNotes (CompanyNum) VALUES (2), (3);

INSERT INTO SoftwareInfo (CompanyIDNum, ContactIDNum, DefaultSoftware, SoftwareName) VALUES
  (2, NULL, 1, 'Ledgerly Cloud Accounting');

INSERT INTO Schedule (ScheduleID, ClientNum, ScheduleName, EmployeeAssigned, DueDate, Year, Amount, totalNum, Class) VALUES
  (1, 12, 'GST/HST return 2026', 'Daniel Fournier', '2026-04-30 00:00:00', '2026', '$237.07', 101, 'Custom'),
  (2, 13, 'Payroll remittance 2026', 'Daniel Fournier', '2026-05-15 00:00:00', '2026', '$296.07', 103, 'Payroll'),
  (3, 12, 'Payroll remittance 2026', 'Daniel Fournier', '2026-06-15 00:00:00', '2026', '$310.00', 103, 'Payroll');
INSERT INTO Tasks (TaskID, ScheduleIDNum, CompanyIDNum, ContactIDNum, Subject, DateFrom) VALUES
  (1, 1, 2, 101, 'GST/HST return 2026', '2026-04-20 00:00:00');

INSERT INTO Appointments (AppointmentID, CompanyIDNum, ContactIDNum, Subject, DateFrom, TimeFrom, TimeTo) VALUES
  (1, 2, 101, 'Year-end review', '2026-04-02 00:00:00', '1899-12-30 09:00:00', '1899-12-30 10:30:00'),
  (2, 3, 103, 'Payroll set-up', '2026-04-03 00:00:00', '1899-12-30 14:00:00', '1899-12-30 15:00:00');

INSERT INTO Dockets (DocketID, CompanyIDNum, ContactIDNum, Subject, DateFrom, TimeFrom, TimeTo, TotalAmountReal) VALUES
  (1, 2, 101, 'Bookkeeping', '2026-03-02 00:00:00', '1899-12-30 13:00:00', '1899-12-30 13:30:00', 1250.5),
  (2, 3, 103, 'Payroll review', '2026-03-03 00:00:00', '1899-12-30 10:00:00', '1899-12-30 11:00:00', 80);
