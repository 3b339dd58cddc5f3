// The client-side rows of the default field list: contact name, company accounting (Canada and
// other countries), software, contact details, and the client and contact custom blocks.
// One line per row, in order of adding. Samples of rows whose sample the product doesn't fix
// are plain made-up text in the form of the field.
#include "catalogue/field_list_rows.h"
#include "catalogue/field_record.h"

namespace nvwm::catalogue {
namespace {

constexpr const char* T = kFieldTypeText;
constexpr const char* D = kFieldTypeDate;
constexpr Only use2 = Only::kUse2;
constexpr Only notUse2 = Only::kNotUse2;
constexpr Only ca = Only::kCountry1;
constexpr Only caNotUse2 = Only::kCountry1NotUse2;
constexpr Only us = Only::kOtherCountry;

constexpr FieldRowSpec kContactNameRows[] = {
    {"Contact Full Name", "DisplayName", T, 255, text("Jane Smith"), use2},
    {"Contact Display Name", "DisplayName", T, 255, text("Jane Smith"), notUse2},
    {"Contact & Spouse Name", "ContactAndSpouseName", T, 255, text("John & Jane Smith"), notUse2},
    {"Client ID", "ClientID", T, 50, text("S102")},
    {"Contact Name Prefix", "NamePrefix", T, 50, text("Mrs.")},
    {"Contact First Name", "FirstName", T, 100, text("Jane")},
    {"Contact Middle Name", "MiddleName", T, 100, text("Anne")},
    {"Contact Last Name", "LastName", T, 100, text("Smith")},
    {"Contact Name Suffix", "NameSuffix", T, 50, text("CPA")},
};

// Country code 1. {TAX1}, {TAX2}, {BOARD} and {SHORT} follow the province and the date.
constexpr FieldRowSpec kAccountingCanadaRows[] = {
    {"Business Number", "BusinessNumber", T, 50, text("123456789")},
    {"RC59 Permission Level", "RC59Permission", T, 50, text("Level 2")},
    {"RC59 Form Status", "RC59Status", T, 50, text("Filed")},
    {"{TAX1} Number", "GSTNumber", T, 50, text("123456789RT0001")},
    {"{TAX1} Filing Method", "GSTFilingMethod", T, 50, text("Quick Method")},
    {"{TAX2} Number", "PSTNumber", T, 50, text("1234-5678")},
    {"Payroll Number", "PayrollNumber", T, 50, text("123456789RP0001")},
    {"Payroll Registered As", "PayrollRegisteredAs", T, 255, text("ABC Consulting Corp.")},
    {"Year End Date", "YearEndDate", D, -1, textThenYear("03/31/")},
    {"Federal Corp. Tax Number", "FederalCorpNumber", T, 50, text("123456789RC0001")},
    {"{SHORT} Corp. Tax Number", "ONCorpNumber", T, 50, text("1234567")},
    {"Quebec ID Number", "MCBS", T, 50, text("1234567890"), Only::kProvince8},
    {"ON Corp. MCBS Number", "MCBS", T, 50, text("1234567"), Only::kProvince3},
    {"Incorporation Date", "IncorporationDate", D, kSizeAbsent, thisYear(11, 1)},
    {"Charitable Number", "CharitableNum", T, 50, text("123456789RR0001")},
    {"NEQ Number", "WSIBNumber", T, 50, text("1234567890"), Only::kProvince8},
    {"{BOARD} Number", "WSIBNumber", T, 50, text("1234567"), Only::kProvinceNot8},
    {"{BOARD} Firm Number", "WSIBFirmNumber", T, 50, text("7654321"), Only::kProvince3},
    {"{BOARD} Premium Rate", "WSIBPremiumRate", T, 50, text("2.45")},
    {"{BOARD} Coverage", "Coverage", T, 50, text("Full Coverage")},
    {"EHT Number", "EHTNumber", T, 50, text("1234567")},
    {"EHT Premium Rate", "EHTPremiumRate", T, 50, text("1.95")},
    {"Name Renewal Date", "NameRenewalDate", D, -1, text("05/28/2003")},
    {"Law Society Member Number", "LawSocietyMemberNumber", T, 50, text("12345")},
};

// Any other country code. The list entry of the first row has a double blank on purpose.
constexpr FieldRowSpec kAccountingOtherCountryRows[] = {
    {"Federal Employer Identification Number", "EIN", T, 50, text("12-3456789"), Only::kAlways,
     "Federal Employer Identification  Number"},
    {"Sellers Permit Number", "SellersPermitNum", T, 50, text("SR 12-345678")},
    {"Year End Date", "USYearEndDate", D, -1, textThenYear("12/31")},
    {"Secretary of State File Number", "SoSFileNum", T, 50, text("C1234567")},
    {"Incorporation Date", "USIncorporationDate", D, -1, text("12/31/05")},
    {"Property Tax Number", "PropertyTaxNum", T, 50, text("123-456-789")},
    {"Form 637 Registration Number", "Form637RegNum", T, 50, text("12-3456789-AB")},
    {"Terminal Control Number", "TCN", T, 50, text("T-95-CA-1234")},
    {"Terminal Name", "TerminalName", T, 150, text("Harbor Terminal")},
    {"Terminal Location", "TerminalLocation", T, 250, text("Long Beach, California")},
    {"Alcohol Number", "AlcoholNum", T, 50, text("47-123456")},
};

constexpr FieldRowSpec kSoftwareRows[] = {
    {"Software Name", "SoftwareName", T, 255, text("Simply Accounting")},
    {"Software Serial Number", "SoftwareSerialNumber", T, 50, text("SN-4471-2209")},
    {"Software Version", "SoftwareVersion", T, 50, text("2.1")},
    {"Software Account Number", "SoftwareAccountNumber", T, 50, text("ACC-10023")},
    {"Data File Saved As", "FileSavedAs", T, 255, text("ABCConsulting.sai")},
    {"User Name", "UserName", T, 255, text("jsmith")},
    {"Password", "Password", T, 255, text("secret")},
};

constexpr FieldRowSpec kContactDetailRows[] = {
    {"Contact SIN", "SocialInsuranceNumber", T, 20, text("123 456 789"), ca},
    {"Contact SSN", "SocialInsuranceNumber", T, 20, text("123-45-6789"), us},
    {"Contact Employee Type", "EmployeeType", T, 50, text("Owner")},
    {"Contact Percentage Ownership", "PercentageOwnership", T, 10, text("50%")},
    {"Contact Business Name", "BusinessName", T, 255, text("ABC Consulting")},
    {"Contact Job Title", "BusinessJobTitle", T, 150, text("President")},
    {"Contact Business Department", "BusinessDepartment", T, 100, text("Administration")},
    {"Contact Business Office", "BusinessOffice", T, 100, text("Head Office")},
    {"Contact Business Phone", "BusinessPhone_Main", T, 50, text("(555) 453-2947")},
    {"Contact Business Alt. Phone", "BusinessAltPhoneNumber", T, 50, text("(555) 453-2948")},
    {"Contact Business Cell", "BusinessPhone_Cell", T, 50, text("(555) 231-8812")},
    {"Contact Business Pager", "BusinessPhone_Pager", T, 50, text("(555) 231-8813")},
    {"Contact Business Fax", "BusinessPhone_Fax", T, 50, text("(555) 453-3756")},
    // The business address.
    {"Contact Business Address 1", "BusinessAddress1", T, 255, text("100 Sussex Drive"), use2},
    {"Contact Business Address 2", "BusinessAddress2", T, 255, text("Suite 200"), use2},
    {"Contact Business Address 3", "BusinessAddress3", T, 255, text("P.O. Box 12"), use2},
    {"Contact Business Address", "BusinessAddress", T, 255, text("100 Sussex Drive"), notUse2},
    {"Contact Business City", "BusinessCity", T, 50, text("Ottawa")},
    {"Contact Business Province", "BusinessProvince", T, 50, text("Ontario"), ca},
    {"Contact Business Abbreviated Province", "BusinessAbbreviatedProvince", T, 50, text("ON"),
     caNotUse2},
    {"Contact Business Postal Code", "BusinessPostalCode", T, 50, text("K2G 0Z1"), ca},
    {"Contact Business State", "BusinessProvince", T, 50, text("California"), us},
    {"Contact Business Zip Code", "BusinessPostalCode", T, 50, text("90210"), us},
    {"Contact Business Country", "BusinessCountry", T, 50, text("Country")},
    {"Contact Business Web Site", "BusinessWebSite", T, 255, text("www.abcconsulting.example")},
    {"Contact Business Email", "BusinessEmail", T, 255, text("jane@abcconsulting.example")},
    {"Contact Business FaceBook URL", "BusinessFaceBookURL", T, 255,
     text("www.facebook.com/abcconsulting.example")},
    {"Contact Business Twitter Account", "BusinessTwitterAccount", T, 255, text("@abcconsulting")},
    {"Contact Personal Phone", "HomePhone_Main", T, 50, text("(555) 722-1045")},
    {"Contact Personal Cell", "HomePhone_Cell", T, 50, text("(555) 722-1046")},
    {"Contact Personal Pager", "HomePhone_Pager", T, 50, text("(555) 722-1047")},
    {"Contact Personal Fax", "HomePhone_Fax", T, 50, text("(555) 722-1048")},
    {"Contact Personal Web Site", "PersonalWebSite", T, 255, text("www.janesmith.example")},
    {"Contact Personal Email", "PersonalEmail", T, 255, text("jane.smith@mail.example")},
    {"Contact Personal FaceBook URL", "PersonalFaceBookURL", T, 255,
     text("www.facebook.com/janesmith.example")},
    {"Contact Personal Twitter Account", "PersonalTwitterAccount", T, 255, text("@janesmith")},
    // The home address.
    {"Contact Home Address 1", "HomeAddress1", T, 255, text("25 Maple Crescent"), use2},
    {"Contact Home Address 2", "HomeAddress2", T, 255, text("Unit 4"), use2},
    {"Contact Home Address 3", "HomeAddress3", T, 255, text("R.R. 1"), use2},
    {"Contact Home Address", "HomeAddress", T, 255, text("25 Maple Crescent"), notUse2},
    {"Contact Home City", "HomeCity", T, 50, text("Nepean")},
    {"Contact Home Province", "HomeProvince", T, 50, text("Ontario"), ca},
    {"Contact Home Abbreviated Province", "HomeAbbreviatedProvince", T, 50, text("ON"), caNotUse2},
    {"Contact Home Postal Code", "HomePostalCode", T, 50, text("K2H 7B3"), ca},
    {"Contact Home State", "HomeProvince", T, 50, text("California"), us},
    {"Contact Home Zip Code", "HomePostalCode", T, 50, text("90210"), us},
    {"Contact Home Country", "HomeCountry", T, 50, text("Canada")},
    {"Contact Children", "Children", T, 255, text("Emily, Jack")},
    {"Contact Gender", "Gender", T, 50, text("Female")},
    {"Contact Birthday", "Birthday", D, -1, onDate(1951, 6, 25)},
    {"Contact Anniversary", "Anniversary", D, -1, onDate(1975, 4, 25)},
    {"Contact Spoken Language", "SpokenLanguage", T, 50, text("English")},
    {"Contact Marital Status", "MaritialStatus", T, 50, text("Married")},
    {"Spouse Name Prefix", "SpouseNamePrefix", T, 50, text("Mr.")},
    {"Spouse First Name", "SpouseFirstName", T, 100, text("John")},
    {"Spouse Middle Name", "SpouseMiddleName", T, 100, text("Robert")},
    {"Spouse Last Name", "SpouseLastName", T, 100, text("Smith")},
    {"Spouse Name Suffix", "SpouseNameSuffix", T, 50, text("Sr.")},
    {"Spouse Display Name", "SpouseName", T, 150, text("John Smith")},
    {"Spouse Personal Email", "SpouseEmail", T, 255, text("john.smith@mail.example")},
    {"Spouse Home Phone", "SpousePhone_Main", T, 50, text("(555) 722-1045")},
    {"Spouse Personal Cell", "SpousePhone_Cell", T, 50, text("(555) 722-1049")},
    // The spouse address: 50 on every row.
    {"Spouse Home Address 1", "SpouseAddress1", T, 50, text("25 Maple Crescent"), use2},
    {"Spouse Home Address 2", "SpouseAddress2", T, 50, text("Unit 4"), use2},
    {"Spouse Home Address 3", "SpouseAddress3", T, 50, text("R.R. 1"), use2},
    {"Spouse Home Address", "SpouseAddress", T, 50, text("25 Maple Crescent"), notUse2},
    {"Spouse Home City", "SpouseCity", T, 50, text("Nepean")},
    {"Spouse Home Province", "SpouseProvince", T, 50, text("Ontario"), ca},
    {"Spouse Home Abbreviated Province", "SpouseAbbreviatedProvince", T, 50, text("ON"), caNotUse2},
    {"Spouse Home Postal Code", "SpousePostalCode", T, 50, text("K2H 7B3"), ca},
    {"Spouse Home State", "SpouseProvince", T, 50, text("California"), us},
    {"Spouse Home Zip Code", "SpousePostalCode", T, 50, text("90210"), us},
    {"Spouse Home Country", "SpouseCountry", T, 50, text("Canada")},
    {"Spouse Gender", "SpouseGender", T, 50, text("Male")},
    {"Spouse Birthday", "SpouseBirthday", T, -1, onDate(1950, 4, 29)},  // "Text" on purpose
    {"Spouse SIN", "SpouseSIN", T, 20, text("987 654 321"), ca},
    {"Spouse SSN", "SpouseSIN", T, 20, text("987-65-4321"), us},
    // The alternate address: 255 on the address lines, 50 on the rest.
    {"Contact Alternate Address 1", "AltAddress1", T, 255, text("12 Lakeshore Road"), use2},
    {"Contact Alternate Address 2", "AltAddress2", T, 255, text("Cottage 3"), use2},
    {"Contact Alternate Address 3", "AltAddress3", T, 255, text("P.O. Box 7"), use2},
    {"Contact Alternate Address", "AltAddress", T, 255, text("12 Lakeshore Road"), notUse2},
    {"Contact Alternate City", "AltCity", T, 50, text("Kingston")},
    {"Contact Alternate Province", "AltProvince", T, 50, text("Ontario"), ca},
    {"Contact Alternate Abbreviated Province", "AltAbbreviatedProvince", T, 50, text("ON"),
     caNotUse2},
    {"Contact Alternate Postal Code", "AltPostalCode", T, 50, text("K7L 4V1"), ca},
    {"Contact Alternate State", "AltProvince", T, 50, text("California"), us},
    {"Contact Alternate Zip Code", "AltPostalCode", T, 50, text("90210"), us},
    {"Contact Alternate Country", "AltCountry", T, 50, text("Canada")},
};

}  // namespace

const FieldBlockSpec kContactNameBlock{kCategoryContact, kContactNameRows};
const FieldBlockSpec kAccountingCanadaBlock{kCategoryClient, kAccountingCanadaRows};
const FieldBlockSpec kAccountingOtherCountryBlock{kCategoryClient, kAccountingOtherCountryRows};
const FieldBlockSpec kSoftwareBlock{kCategorySoftware, kSoftwareRows};
const FieldBlockSpec kContactDetailBlock{kCategoryContact, kContactDetailRows};

// Category, label query, label columns, test hasRecords, database fields, default display text,
// sample text, display prefix, stored name of the fifth default row.
// clang-format off
const CustomBlockSpec kClientCustomBlock{kCategoryClient, kCustomFieldsQuery, "CustomName", true, "ClientCustom", "Custom Field ", "Custom Info ", "", nullptr};
const CustomBlockSpec kContactCustomBlock{kCategoryContact, kCustomAddressFieldsQuery, "ContactLabel", false, "Custom", "Contact Custom Field ", "Contact Custom Info ", "", nullptr};
// clang-format on

}  // namespace nvwm::catalogue
