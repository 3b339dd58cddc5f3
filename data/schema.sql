-- The practice database: every table and column the library reads or writes.
--
-- Conventions (the service reads values back by these declared types):
--   INTEGER PRIMARY KEY AUTOINCREMENT  AutoNumber key          -> Long
--   INTEGER PRIMARY KEY                key given by the writer -> Long
--   INTEGER / SMALLINT                 32-bit / 16-bit integer -> Long / Integer
--   TEXT(n) / TEXT COLLATE NOCASE      text of field size n (not enforced) / memo -> String
--   DATE / TIME                        text 'YYYY-MM-DD HH:MM:SS'; a time of day on 1899-12-30 -> Date
--   BOOLEAN DEFAULT 0                  1 / 0 only              -> Boolean
--   FLOAT                              single (hours)          -> Single
--   CURRENCY                           money                   -> Currency
-- Text columns compare without regard to case (ASCII), as the original database did.
-- Tables without a key use the rowid as row identity: none may be WITHOUT ROWID.

-- Client companies and the firm itself.
CREATE TABLE Companies (
  CompanyID INTEGER PRIMARY KEY AUTOINCREMENT,
  CompanyName TEXT(255) COLLATE NOCASE,
  ClientID TEXT(255) COLLATE NOCASE,
  CorporateName TEXT(255) COLLATE NOCASE,
  CompanyType TEXT(50) COLLATE NOCASE,
  IndustryType TEXT(100) COLLATE NOCASE,
  Address TEXT(255) COLLATE NOCASE,
  Address1 TEXT(255) COLLATE NOCASE,
  Address2 TEXT(255) COLLATE NOCASE,
  Address3 TEXT(255) COLLATE NOCASE,
  City TEXT(50) COLLATE NOCASE,
  Province TEXT(50) COLLATE NOCASE,
  PostalCode TEXT(50) COLLATE NOCASE,
  Country TEXT(50) COLLATE NOCASE,
  OfficeNumber TEXT(50) COLLATE NOCASE,
  AltPhoneNumber TEXT(50) COLLATE NOCASE,
  FaxNumber TEXT(50) COLLATE NOCASE,
  Email TEXT(255) COLLATE NOCASE,
  WebSite TEXT(255) COLLATE NOCASE,
  FaceBookURL TEXT(255) COLLATE NOCASE,
  TwitterAccount TEXT(255) COLLATE NOCASE,
  PartnerName TEXT(255) COLLATE NOCASE,
  AccountantName TEXT(255) COLLATE NOCASE,
  AltAddress TEXT(255) COLLATE NOCASE,
  AltAddress1 TEXT(255) COLLATE NOCASE,
  AltAddress2 TEXT(255) COLLATE NOCASE,
  AltAddress3 TEXT(255) COLLATE NOCASE,
  AltCity TEXT(50) COLLATE NOCASE,
  AltProvince TEXT(255) COLLATE NOCASE,
  AltPostalCode TEXT(255) COLLATE NOCASE,
  AltCountry TEXT(255) COLLATE NOCASE,
  Custom1 TEXT(255) COLLATE NOCASE,
  Custom2 TEXT(255) COLLATE NOCASE,
  Custom3 TEXT(255) COLLATE NOCASE,
  Custom4 TEXT(255) COLLATE NOCASE,
  Custom5 TEXT(255) COLLATE NOCASE,
  DefaultContactName TEXT(255) COLLATE NOCASE,
  DefaultContactPhoneNumber TEXT(50) COLLATE NOCASE,
  DefaultContactFaxNumber TEXT(50) COLLATE NOCASE,
  DefaultContactEmail TEXT(255) COLLATE NOCASE
);
CREATE INDEX idx_Companies_CompanyName ON Companies(CompanyName);

-- One row per company; no key of its own (rowid).
CREATE TABLE CompaniesNotes (
  CompanyNum INTEGER,
  BusinessNotes TEXT COLLATE NOCASE,
  ContactNotes TEXT COLLATE NOCASE
);
CREATE INDEX idx_CompaniesNotes_CompanyNum ON CompaniesNotes(CompanyNum);

-- One client record of a company; the satellite tables share its key.
CREATE TABLE ClientData (
  ClientDataID INTEGER PRIMARY KEY AUTOINCREMENT,
  CompanyIDNum INTEGER,
  ShowThisClient BOOLEAN DEFAULT 0,
  ActiveStatus INTEGER,
  BusinessNumber TEXT(50) COLLATE NOCASE,
  YearEndDate DATE,
  ClientCustom1 TEXT(255) COLLATE NOCASE,
  ClientCustom2 TEXT(255) COLLATE NOCASE,
  ClientCustom3 TEXT(255) COLLATE NOCASE,
  ClientCustom4 TEXT(255) COLLATE NOCASE,
  ClientCustom5 TEXT(255) COLLATE NOCASE
);
CREATE INDEX idx_ClientData_CompanyIDNum ON ClientData(CompanyIDNum);

-- Satellite of ClientData (same key).
CREATE TABLE ClientOptions (
  ClientOptionID INTEGER PRIMARY KEY,
  RC59Permission INTEGER,
  RC59Status INTEGER
);

-- Satellite of ClientData (same key).
CREATE TABLE AccountingServices (
  AccountingServiceID INTEGER PRIMARY KEY,
  GSTNumber TEXT(50) COLLATE NOCASE,
  GSTFilingMethod INTEGER,
  PSTNumber TEXT(50) COLLATE NOCASE,
  PayrollNumber TEXT(50) COLLATE NOCASE,
  PayrollRegisteredAs TEXT(255) COLLATE NOCASE
);

-- Satellite of ClientData (same key), Canadian clients.
CREATE TABLE CorpTaxInfo (
  CorpTaxInfoID INTEGER PRIMARY KEY,
  FederalCorpNumber TEXT(50) COLLATE NOCASE,
  ONCorpNumber TEXT(50) COLLATE NOCASE,
  MCBS TEXT(50) COLLATE NOCASE,
  IncorporationDate DATE,
  CharitableNum TEXT(50) COLLATE NOCASE
);

-- Satellite of ClientData (same key), Canadian clients.
CREATE TABLE LawInfo (
  LawInfoID INTEGER PRIMARY KEY,
  NameRenewalDate DATE,
  LawSocietyMemberNumber TEXT(50) COLLATE NOCASE
);

-- Satellite of ClientData (same key), Canadian clients.
CREATE TABLE OtherInfo (
  OtherInfoID INTEGER PRIMARY KEY
);

-- Satellite of ClientData (same key), Canadian clients.
CREATE TABLE WSIB_EHTInfo (
  WSIB_EHTInfoID INTEGER PRIMARY KEY,
  WSIBNumber TEXT(50) COLLATE NOCASE,
  WSIBFirmNumber TEXT(50) COLLATE NOCASE,
  WSIBPremiumRate TEXT(50) COLLATE NOCASE,
  Coverage TEXT(50) COLLATE NOCASE,
  EHTNumber TEXT(50) COLLATE NOCASE,
  EHTPremiumRate TEXT(50) COLLATE NOCASE
);

-- Satellite of ClientData (same key), US clients.
CREATE TABLE ClientUSInfo (
  ClientUSInfoID INTEGER PRIMARY KEY,
  EIN TEXT(50) COLLATE NOCASE,
  SellersPermitNum TEXT(50) COLLATE NOCASE,
  USYearEndDate DATE,
  SoSFileNum TEXT(50) COLLATE NOCASE,
  USIncorporationDate DATE,
  PropertyTaxNum TEXT(50) COLLATE NOCASE,
  Form637RegNum TEXT(50) COLLATE NOCASE,
  TCN TEXT(50) COLLATE NOCASE,
  TerminalName TEXT(150) COLLATE NOCASE,
  TerminalLocation TEXT(250) COLLATE NOCASE,
  AlcoholNum TEXT(50) COLLATE NOCASE
);

-- People: client contacts and their spouses.
CREATE TABLE Contacts (
  ContactID INTEGER PRIMARY KEY AUTOINCREMENT,
  DisplayName TEXT(255) COLLATE NOCASE,
  ClientID TEXT(50) COLLATE NOCASE,
  NamePrefix TEXT(50) COLLATE NOCASE,
  FirstName TEXT(100) COLLATE NOCASE,
  MiddleName TEXT(100) COLLATE NOCASE,
  LastName TEXT(100) COLLATE NOCASE,
  NameSuffix TEXT(50) COLLATE NOCASE,
  InheritCompanyInfo BOOLEAN DEFAULT 0,
  SocialInsuranceNumber TEXT(20) COLLATE NOCASE,
  EmployeeType TEXT(50) COLLATE NOCASE,
  PercentageOwnership TEXT(10) COLLATE NOCASE,
  BusinessName TEXT(255) COLLATE NOCASE,
  BusinessJobTitle TEXT(150) COLLATE NOCASE,
  BusinessDepartment TEXT(100) COLLATE NOCASE,
  BusinessOffice TEXT(100) COLLATE NOCASE,
  BusinessPhone_Main TEXT(50) COLLATE NOCASE,
  BusinessAltPhoneNumber TEXT(50) COLLATE NOCASE,
  BusinessPhone_Cell TEXT(50) COLLATE NOCASE,
  BusinessPhone_Pager TEXT(50) COLLATE NOCASE,
  BusinessPhone_Fax TEXT(50) COLLATE NOCASE,
  BusinessAddress TEXT(255) COLLATE NOCASE,
  BusinessAddress1 TEXT(255) COLLATE NOCASE,
  BusinessAddress2 TEXT(255) COLLATE NOCASE,
  BusinessAddress3 TEXT(255) COLLATE NOCASE,
  BusinessCity TEXT(50) COLLATE NOCASE,
  BusinessProvince TEXT(50) COLLATE NOCASE,
  BusinessPostalCode TEXT(50) COLLATE NOCASE,
  BusinessCountry TEXT(50) COLLATE NOCASE,
  BusinessWebSite TEXT(255) COLLATE NOCASE,
  BusinessEmail TEXT(255) COLLATE NOCASE,
  BusinessFaceBookURL TEXT(255) COLLATE NOCASE,
  BusinessTwitterAccount TEXT(255) COLLATE NOCASE,
  HomePhone_Main TEXT(50) COLLATE NOCASE,
  HomePhone_Cell TEXT(50) COLLATE NOCASE,
  HomePhone_Pager TEXT(50) COLLATE NOCASE,
  HomePhone_Fax TEXT(50) COLLATE NOCASE,
  PersonalWebSite TEXT(255) COLLATE NOCASE,
  PersonalEmail TEXT(255) COLLATE NOCASE,
  PersonalFaceBookURL TEXT(255) COLLATE NOCASE,
  PersonalTwitterAccount TEXT(255) COLLATE NOCASE,
  HomeAddress TEXT(255) COLLATE NOCASE,
  HomeAddress1 TEXT(255) COLLATE NOCASE,
  HomeAddress2 TEXT(255) COLLATE NOCASE,
  HomeAddress3 TEXT(255) COLLATE NOCASE,
  HomeCity TEXT(50) COLLATE NOCASE,
  HomeProvince TEXT(50) COLLATE NOCASE,
  HomePostalCode TEXT(50) COLLATE NOCASE,
  HomeCountry TEXT(50) COLLATE NOCASE,
  Children TEXT(255) COLLATE NOCASE,
  Gender TEXT(50) COLLATE NOCASE,
  Birthday DATE,
  Anniversary DATE,
  SpokenLanguage TEXT(50) COLLATE NOCASE,
  MaritialStatus TEXT(50) COLLATE NOCASE,
  SpouseNamePrefix TEXT(50) COLLATE NOCASE,
  SpouseFirstName TEXT(100) COLLATE NOCASE,
  SpouseMiddleName TEXT(100) COLLATE NOCASE,
  SpouseLastName TEXT(100) COLLATE NOCASE,
  SpouseNameSuffix TEXT(50) COLLATE NOCASE,
  SpouseName TEXT(150) COLLATE NOCASE,
  SpouseEmail TEXT(255) COLLATE NOCASE,
  SpousePhone_Main TEXT(50) COLLATE NOCASE,
  SpousePhone_Cell TEXT(50) COLLATE NOCASE,
  SpouseAddress TEXT(50) COLLATE NOCASE,
  SpouseAddress1 TEXT(50) COLLATE NOCASE,
  SpouseAddress2 TEXT(50) COLLATE NOCASE,
  SpouseAddress3 TEXT(50) COLLATE NOCASE,
  SpouseCity TEXT(50) COLLATE NOCASE,
  SpouseProvince TEXT(50) COLLATE NOCASE,
  SpousePostalCode TEXT(50) COLLATE NOCASE,
  SpouseCountry TEXT(50) COLLATE NOCASE,
  SpouseGender TEXT(50) COLLATE NOCASE,
  SpouseBirthday DATE,
  SpouseSIN TEXT(20) COLLATE NOCASE,
  AltAddressName TEXT(50) COLLATE NOCASE,
  AltAddress TEXT(255) COLLATE NOCASE,
  AltAddress1 TEXT(255) COLLATE NOCASE,
  AltAddress2 TEXT(255) COLLATE NOCASE,
  AltAddress3 TEXT(255) COLLATE NOCASE,
  AltCity TEXT(50) COLLATE NOCASE,
  AltProvince TEXT(50) COLLATE NOCASE,
  AltPostalCode TEXT(50) COLLATE NOCASE,
  AltCountry TEXT(50) COLLATE NOCASE,
  Custom1 TEXT(255) COLLATE NOCASE,
  Custom2 TEXT(255) COLLATE NOCASE,
  Custom3 TEXT(255) COLLATE NOCASE,
  Custom4 TEXT(255) COLLATE NOCASE,
  Custom5 TEXT(255) COLLATE NOCASE
);
CREATE INDEX idx_Contacts_DisplayName ON Contacts(DisplayName);

-- Notes of a contact or an employee; no key of its own (rowid).
CREATE TABLE ContactsNotes (
  ContactNum INTEGER,
  BusinessNotes TEXT COLLATE NOCASE,
  Notes TEXT COLLATE NOCASE
);
CREATE INDEX idx_ContactsNotes_ContactNum ON ContactsNotes(ContactNum);

-- Links of a contact to a company or a category; no key of its own (rowid).
CREATE TABLE ContactLinks (
  CompanyNum INTEGER,
  ContactIDNum INTEGER,
  DefaultContact BOOLEAN DEFAULT 0,
  CategoryNum INTEGER
);
CREATE INDEX idx_ContactLinks_CompanyNum ON ContactLinks(CompanyNum);
CREATE INDEX idx_ContactLinks_ContactIDNum ON ContactLinks(ContactIDNum);

-- Contact categories.
CREATE TABLE Categories (
  CategoryID INTEGER PRIMARY KEY AUTOINCREMENT,
  CategoryName TEXT(50) COLLATE NOCASE
);

-- Software of a company or a contact; no key of its own (rowid).
-- CompanyID mirrors CompanyIDNum: lookups find a company's software by that name.
CREATE TABLE SoftwareInfo (
  CompanyIDNum INTEGER,
  ContactIDNum INTEGER,
  DefaultSoftware BOOLEAN DEFAULT 0,
  CompanyID INTEGER GENERATED ALWAYS AS (CompanyIDNum) VIRTUAL,
  SoftwareName TEXT(255) COLLATE NOCASE,
  SoftwareSerialNumber TEXT(50) COLLATE NOCASE,
  SoftwareVersion TEXT(50) COLLATE NOCASE,
  SoftwareAccountNumber TEXT(50) COLLATE NOCASE,
  FileSavedAs TEXT(255) COLLATE NOCASE,
  UserName TEXT(255) COLLATE NOCASE,
  Password TEXT(255) COLLATE NOCASE
);
CREATE INDEX idx_SoftwareInfo_CompanyIDNum ON SoftwareInfo(CompanyIDNum);
CREATE INDEX idx_SoftwareInfo_ContactIDNum ON SoftwareInfo(ContactIDNum);

-- The accounting firm; its key is the firm's Companies.CompanyID.
CREATE TABLE AccountantFirmInfo (
  CompanyID INTEGER PRIMARY KEY,
  CompanyName TEXT(255) COLLATE NOCASE,
  CorporateName TEXT(255) COLLATE NOCASE,
  CompanyType TEXT(50) COLLATE NOCASE,
  IndustryType TEXT(100) COLLATE NOCASE,
  Address TEXT(255) COLLATE NOCASE,
  City TEXT(50) COLLATE NOCASE,
  Province TEXT(50) COLLATE NOCASE,
  PostalCode TEXT(50) COLLATE NOCASE,
  Country TEXT(50) COLLATE NOCASE,
  OfficeNumber TEXT(50) COLLATE NOCASE,
  FaxNumber TEXT(50) COLLATE NOCASE,
  Email TEXT(255) COLLATE NOCASE,
  WebSite TEXT(255) COLLATE NOCASE,
  Custom1 TEXT(255) COLLATE NOCASE,
  Custom2 TEXT(255) COLLATE NOCASE,
  Custom3 TEXT(255) COLLATE NOCASE,
  Custom4 TEXT(255) COLLATE NOCASE,
  Custom5 TEXT(255) COLLATE NOCASE
);

-- The firm's employees; the key is the user ID.
CREATE TABLE AccountantEmployeeInfo (
  ContactID INTEGER PRIMARY KEY,
  DisplayName TEXT(255) COLLATE NOCASE,
  ClientID TEXT(50) COLLATE NOCASE,
  InheritCompanyInfo BOOLEAN DEFAULT 0,
  BusinessName TEXT(255) COLLATE NOCASE,
  BusinessJobTitle TEXT(150) COLLATE NOCASE,
  BusinessDepartment TEXT(100) COLLATE NOCASE,
  BusinessOffice TEXT(100) COLLATE NOCASE,
  BusinessPhone_Main TEXT(50) COLLATE NOCASE,
  BusinessAltPhoneNumber TEXT(50) COLLATE NOCASE,
  BusinessPhone_Cell TEXT(50) COLLATE NOCASE,
  BusinessPhone_Pager TEXT(50) COLLATE NOCASE,
  BusinessPhone_Fax TEXT(50) COLLATE NOCASE,
  BusinessEmail TEXT(255) COLLATE NOCASE,
  BusinessWebSite TEXT(255) COLLATE NOCASE,
  BusinessFaceBookURL TEXT(255) COLLATE NOCASE,
  BusinessTwitterAccount TEXT(255) COLLATE NOCASE,
  BusinessAddress TEXT(255) COLLATE NOCASE,
  BusinessCity TEXT(50) COLLATE NOCASE,
  BusinessProvince TEXT(50) COLLATE NOCASE,
  BusinessPostalCode TEXT(50) COLLATE NOCASE,
  BusinessCountry TEXT(50) COLLATE NOCASE,
  SocialInsuranceNumber TEXT(20) COLLATE NOCASE,
  EmployeeType TEXT(50) COLLATE NOCASE,
  AltAddressName TEXT(50) COLLATE NOCASE,
  AltAddress TEXT(255) COLLATE NOCASE,
  AltCity TEXT(50) COLLATE NOCASE,
  AltProvince TEXT(50) COLLATE NOCASE,
  AltPostalCode TEXT(50) COLLATE NOCASE,
  AltCountry TEXT(50) COLLATE NOCASE,
  Custom1 TEXT(255) COLLATE NOCASE,
  Custom2 TEXT(255) COLLATE NOCASE,
  Custom3 TEXT(255) COLLATE NOCASE,
  Custom4 TEXT(255) COLLATE NOCASE,
  Custom5 TEXT(255) COLLATE NOCASE,
  Notes TEXT COLLATE NOCASE,
  BusinessNotes TEXT COLLATE NOCASE
);
CREATE INDEX idx_AccountantEmployeeInfo_DisplayName ON AccountantEmployeeInfo(DisplayName);

-- Calendar appointments.
CREATE TABLE Appointments (
  AppointmentID INTEGER PRIMARY KEY AUTOINCREMENT,
  CompanyIDNum INTEGER,
  ContactIDNum INTEGER,
  UserIDNum INTEGER,
  Subject TEXT(255) COLLATE NOCASE,
  DateFrom DATE,
  TimeFrom TIME,
  TimeTo TIME,
  AppointmentText TEXT COLLATE NOCASE,
  ReminderPeriod TEXT(50) COLLATE NOCASE,
  BeforeAppointmentText TEXT COLLATE NOCASE,
  AfterAppointmentText TEXT COLLATE NOCASE,
  Custom1 TEXT(255) COLLATE NOCASE,
  Custom2 TEXT(255) COLLATE NOCASE,
  Custom3 TEXT(255) COLLATE NOCASE,
  Custom4 TEXT(255) COLLATE NOCASE,
  Custom5 TEXT(255) COLLATE NOCASE
);
CREATE INDEX idx_Appointments_UserDate ON Appointments(UserIDNum, DateFrom);

-- Time entries.
CREATE TABLE Dockets (
  DocketID INTEGER PRIMARY KEY AUTOINCREMENT,
  CompanyIDNum INTEGER,
  ContactIDNum INTEGER,
  UserIDNum INTEGER,
  Subject TEXT COLLATE NOCASE,
  DateFrom DATE,
  TimeFrom TIME,
  TimeTo TIME,
  AppointmentText TEXT(255) COLLATE NOCASE,
  DocketLocked BOOLEAN DEFAULT 0,
  Invoiced BOOLEAN DEFAULT 0,
  UsedRealTime BOOLEAN DEFAULT 0,
  RealTimeFrom TIME,
  RealTimeTo TIME,
  OriginalRealTimeFrom TIME,
  OriginalRealTimeTo TIME,
  RoundedTimeFrom TIME,
  RoundedTimeTo TIME,
  TextBody TEXT COLLATE NOCASE,
  DocketBillingType TEXT COLLATE NOCASE,
  BillingJobRate TEXT COLLATE NOCASE,
  BillableTime BOOLEAN DEFAULT 0,
  TotalTimeReal FLOAT,
  TotalTimeRounded FLOAT,
  UseAdjustedTime BOOLEAN DEFAULT 0,
  TotalTimeAdjusted FLOAT,
  TotalTimeFinal FLOAT,
  TotalAmountReal CURRENCY,
  TotalAmountFinal CURRENCY,
  DescriptionInternal TEXT COLLATE NOCASE,
  DescriptionClient TEXT COLLATE NOCASE,
  BeforeAppointmentText TEXT COLLATE NOCASE,
  AfterAppointmentText TEXT COLLATE NOCASE,
  Custom1 TEXT(255) COLLATE NOCASE,
  Custom2 TEXT(255) COLLATE NOCASE,
  Custom3 TEXT(255) COLLATE NOCASE,
  Custom4 TEXT(255) COLLATE NOCASE,
  Custom5 TEXT(255) COLLATE NOCASE
);
CREATE INDEX idx_Dockets_UserDate ON Dockets(UserIDNum, DateFrom);

-- A user's pieces of work; a task may carry out a schedule item.
CREATE TABLE Tasks (
  TaskID INTEGER PRIMARY KEY AUTOINCREMENT,
  ScheduleIDNum INTEGER,
  UserIDNum INTEGER,
  CompanyIDNum INTEGER,
  ContactIDNum INTEGER,
  Subject TEXT(255) COLLATE NOCASE,
  DateFrom DATE,
  TimeFrom TIME,
  TimeTo TIME,
  EstimatedTime FLOAT,
  AppointmentText TEXT(255) COLLATE NOCASE,
  TextBody TEXT COLLATE NOCASE,
  NotesFlag BOOLEAN DEFAULT 0,
  hideInTasks BOOLEAN DEFAULT 0,
  RecurAnnually BOOLEAN DEFAULT 0,
  CompanyProjectStepIDNum INTEGER,
  notifyType INTEGER,
  ClientNotifiedFlag BOOLEAN DEFAULT 0,
  ReminderPeriod TEXT(50) COLLATE NOCASE,
  BeforeAppointmentText TEXT COLLATE NOCASE,
  AfterAppointmentText TEXT COLLATE NOCASE,
  Custom1 TEXT(255) COLLATE NOCASE,
  Custom2 TEXT(255) COLLATE NOCASE,
  Custom3 TEXT(255) COLLATE NOCASE,
  Custom4 TEXT(255) COLLATE NOCASE,
  Custom5 TEXT(255) COLLATE NOCASE
);
CREATE INDEX idx_Tasks_ScheduleIDNum ON Tasks(ScheduleIDNum);
CREATE INDEX idx_Tasks_UserDate ON Tasks(UserIDNum, DateFrom);

-- Tasks moved out of Tasks; no key of its own (rowid).
CREATE TABLE archiveTasks (
  oldTaskID INTEGER,
  ScheduleIDNum INTEGER
);
CREATE INDEX idx_archiveTasks_oldTaskID ON archiveTasks(oldTaskID);

-- Schedule items: remittances, filing deadlines, projects.
CREATE TABLE Schedule (
  ScheduleID INTEGER PRIMARY KEY AUTOINCREMENT,
  ClientNum INTEGER,
  ContactIDNum INTEGER,
  ScheduleName TEXT(150) COLLATE NOCASE,
  EmployeeAssigned TEXT(50) COLLATE NOCASE,
  DueDate DATE,
  inHouseDueDate DATE,
  CalendarDate DATE,
  Year TEXT(12) COLLATE NOCASE,
  Amount TEXT(15) COLLATE NOCASE,
  PersonCompleted TEXT(50) COLLATE NOCASE,
  DateCompleted DATE,
  totalNum INTEGER,
  scheduleNum INTEGER,
  individualNum INTEGER,
  Class TEXT(50) COLLATE NOCASE,
  hideInTasks BOOLEAN DEFAULT 0,
  RecurAnnually BOOLEAN DEFAULT 0,
  CompanyProjectStepIDNum INTEGER,
  notifyType INTEGER,
  ScheduleNotes TEXT COLLATE NOCASE,
  NotesFlag BOOLEAN DEFAULT 0,
  Closed BOOLEAN DEFAULT 0,
  Custom1 TEXT(255) COLLATE NOCASE,
  Custom2 TEXT(255) COLLATE NOCASE,
  Custom3 TEXT(255) COLLATE NOCASE,
  Custom4 TEXT(255) COLLATE NOCASE,
  Custom5 TEXT(255) COLLATE NOCASE
);
CREATE INDEX idx_Schedule_ClientNum ON Schedule(ClientNum);
CREATE INDEX idx_Schedule_CompanyProjectStepIDNum ON Schedule(CompanyProjectStepIDNum);

-- Kinds of schedule item, keyed by TotalNum and ScheduleNum.
CREATE TABLE ScheduleTypes (
  ScheduleTypeID INTEGER PRIMARY KEY AUTOINCREMENT,
  TotalNum INTEGER,
  ScheduleNum INTEGER,
  DefaultEstTime FLOAT,
  InHouseDueDatePeriod INTEGER
);
CREATE INDEX idx_ScheduleTypes_Nums ON ScheduleTypes(TotalNum, ScheduleNum);

-- A user's own estimate per schedule type; no key of its own (rowid).
CREATE TABLE UserBillingScheduleTypeInfo (
  UserIDNum INTEGER,
  ScheduleTypeNum INTEGER,
  DefaultEstTime FLOAT
);
CREATE INDEX idx_UserBillingScheduleTypeInfo_User ON UserBillingScheduleTypeInfo(UserIDNum, ScheduleTypeNum);

-- Steps of a client project.
CREATE TABLE CompanyProjectSteps (
  CompanyProjectStepID INTEGER PRIMARY KEY AUTOINCREMENT,
  StepUserID INTEGER,
  Closed BOOLEAN DEFAULT 0,
  PersonCompletedUserIDNum INTEGER,
  DateCompleted DATE
);

-- Statutory and other holidays; HolidayType 1 and 3 are statutory; no key (rowid).
CREATE TABLE Holidays (
  HolidayDate DATE,
  HolidayType SMALLINT
);
CREATE INDEX idx_Holidays_HolidayDate ON Holidays(HolidayDate);

-- Calendar display templates, one row per user.
CREATE TABLE UserCalendarSettings (
  UserIDNum INTEGER PRIMARY KEY,
  TemplateAppt TEXT COLLATE NOCASE,
  TitleBarTextAppt TEXT COLLATE NOCASE,
  TemplateDocket TEXT COLLATE NOCASE,
  TitleBarTextDocket TEXT COLLATE NOCASE,
  TemplateTask TEXT COLLATE NOCASE,
  TitleBarTextTask TEXT COLLATE NOCASE
);

-- One row: labels of the custom fields and the remittance lookups; no key.
CREATE TABLE CustomFields (
  CustomName1 TEXT(50) COLLATE NOCASE,
  CustomName2 TEXT(50) COLLATE NOCASE,
  CustomName3 TEXT(50) COLLATE NOCASE,
  CustomName4 TEXT(50) COLLATE NOCASE,
  CustomName5 TEXT(50) COLLATE NOCASE,
  ApptCustomName1 TEXT(50) COLLATE NOCASE,
  ApptCustomName2 TEXT(50) COLLATE NOCASE,
  ApptCustomName3 TEXT(50) COLLATE NOCASE,
  ApptCustomName4 TEXT(50) COLLATE NOCASE,
  ApptCustomName5 TEXT(50) COLLATE NOCASE,
  RemittanceLabel1 TEXT(50) COLLATE NOCASE,
  RemittanceLabel2 TEXT(50) COLLATE NOCASE,
  RemittanceLabel3 TEXT(50) COLLATE NOCASE,
  RemittanceLabel4 TEXT(50) COLLATE NOCASE,
  RemittanceLabel5 TEXT(50) COLLATE NOCASE,
  TaskCustomName1 TEXT(50) COLLATE NOCASE,
  TaskCustomName2 TEXT(50) COLLATE NOCASE,
  TaskCustomName3 TEXT(50) COLLATE NOCASE,
  TaskCustomName4 TEXT(50) COLLATE NOCASE,
  TaskCustomName5 TEXT(50) COLLATE NOCASE,
  DocketCustomName1 TEXT(50) COLLATE NOCASE,
  DocketCustomName2 TEXT(50) COLLATE NOCASE,
  DocketCustomName3 TEXT(50) COLLATE NOCASE,
  DocketCustomName4 TEXT(50) COLLATE NOCASE,
  DocketCustomName5 TEXT(50) COLLATE NOCASE,
  RemittanceCustomInfo1 TEXT(255) COLLATE NOCASE,
  RemittanceCustomInfo2 TEXT(255) COLLATE NOCASE,
  RemittanceCustomInfo3 TEXT(255) COLLATE NOCASE,
  RemittanceCustomInfo4 TEXT(255) COLLATE NOCASE,
  RemittanceCustomInfo5 TEXT(255) COLLATE NOCASE,
  RemittanceCustomType1 INTEGER,
  RemittanceCustomType2 INTEGER,
  RemittanceCustomType3 INTEGER,
  RemittanceCustomType4 INTEGER,
  RemittanceCustomType5 INTEGER
);

-- One row: labels of the custom address fields; no key.
CREATE TABLE CustomAddressFields (
  ContactLabel1 TEXT(50) COLLATE NOCASE,
  ContactLabel2 TEXT(50) COLLATE NOCASE,
  ContactLabel3 TEXT(50) COLLATE NOCASE,
  ContactLabel4 TEXT(50) COLLATE NOCASE,
  ContactLabel5 TEXT(50) COLLATE NOCASE,
  CompanyLabel1 TEXT(50) COLLATE NOCASE,
  CompanyLabel2 TEXT(50) COLLATE NOCASE,
  CompanyLabel3 TEXT(50) COLLATE NOCASE,
  CompanyLabel4 TEXT(50) COLLATE NOCASE,
  CompanyLabel5 TEXT(50) COLLATE NOCASE
);

-- Pop-up settings per user and company or contact; kinds in totalNum order 101-114; no key.
CREATE TABLE ClientSchedulePopups (
  UserNum INTEGER,
  CompanyIDNum INTEGER,
  ContactIDNum INTEGER,
  scheduleGSTPopups BOOLEAN DEFAULT 0,
  schedulePSTPopups BOOLEAN DEFAULT 0,
  schedulePayrollRemittPopups BOOLEAN DEFAULT 0,
  scheduleYearEndPopups BOOLEAN DEFAULT 0,
  scheduleCorpTaxPopups BOOLEAN DEFAULT 0,
  scheduleWSIBPopups BOOLEAN DEFAULT 0,
  scheduleEHTPopups BOOLEAN DEFAULT 0,
  scheduleLawPopups BOOLEAN DEFAULT 0,
  scheduleOtherPopups BOOLEAN DEFAULT 0,
  schedulePayrollPopups BOOLEAN DEFAULT 0,
  scheduleCustomPopups BOOLEAN DEFAULT 0,
  scheduleFederalPayrollPopups BOOLEAN DEFAULT 0,
  scheduleProjectsPopups BOOLEAN DEFAULT 0,
  scheduleBookkeepingPopups BOOLEAN DEFAULT 0,
  popupReminderTimeGST TEXT(50) COLLATE NOCASE DEFAULT '1 Day',
  popupReminderTimePST TEXT(50) COLLATE NOCASE DEFAULT '1 Day',
  popupReminderTimePayrollRemitt TEXT(50) COLLATE NOCASE DEFAULT '1 Day',
  popupReminderTimeYearEnd TEXT(50) COLLATE NOCASE DEFAULT '1 Day',
  popupReminderTimeCorpTax TEXT(50) COLLATE NOCASE DEFAULT '1 Day',
  popupReminderTimeWSIB TEXT(50) COLLATE NOCASE DEFAULT '1 Day',
  popupReminderTimeEHT TEXT(50) COLLATE NOCASE DEFAULT '1 Day',
  popupReminderTimeLaw TEXT(50) COLLATE NOCASE DEFAULT '1 Day',
  popupReminderTimeOther TEXT(50) COLLATE NOCASE DEFAULT '1 Day',
  popupReminderTimePayroll TEXT(50) COLLATE NOCASE DEFAULT '1 Day',
  popupReminderTimeCustom TEXT(50) COLLATE NOCASE DEFAULT '1 Day',
  popupReminderTimeFederalPayroll TEXT(50) COLLATE NOCASE DEFAULT '1 Day',
  popupReminderTimeProjects TEXT(50) COLLATE NOCASE DEFAULT '1 Day',
  popupReminderTimeBookkeeping TEXT(50) COLLATE NOCASE DEFAULT '1 Day'
);
CREATE INDEX idx_ClientSchedulePopups_User ON ClientSchedulePopups(UserNum, CompanyIDNum, ContactIDNum);

-- Stored pop-up reminders.
CREATE TABLE Reminders (
  ReminderID INTEGER PRIMARY KEY AUTOINCREMENT,
  UserIDNum INTEGER,
  CompanyIDNum INTEGER,
  ContactIDNum INTEGER,
  AppointmentIDNum INTEGER,
  ToDoIDNum INTEGER,
  TaskIDNum INTEGER,
  ReminderType INTEGER,
  ReminderDate DATE,
  ReminderTime TIME,
  TextBody TEXT COLLATE NOCASE
);
CREATE INDEX idx_Reminders_UserIDNum ON Reminders(UserIDNum);
