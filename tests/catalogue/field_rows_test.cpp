// The columns of the rows: database field, category, type, size and sample, with the samples
// that carry the current year and the rows that have no size at all.
#include <gtest/gtest.h>

#include "catalogue_test_support.h"

namespace nvwm::testing {
namespace {

constexpr const char* kMissing = "<missing>";

// The first row with that display name.
const DumpedRow* findRow(const std::vector<DumpedRow>& rows, const std::string& name) {
  for (const DumpedRow& row : rows) {
    if (row.columns[1] == name) return &row;
  }
  return nullptr;
}

TEST(FieldRowsTest, ColumnsOfNamedRows) {
  const struct {
    int32_t listType;
    int32_t country;
    const char* display;
    const char* databaseField;
    const char* category;
    const char* fieldType;
    const char* sample;
    const char* size;
  } cases[] = {
      {1, 1, "Contact Display Name", "DisplayName", "ContactInfo", "Text", "Jane Smith", "255"},
      {1, 1, "Contact & Spouse Name", "ContactAndSpouseName", "ContactInfo", "Text",
       "John & Jane Smith", "255"},
      {1, 1, "HST Filing Method", "GSTFilingMethod", "ClientInfo", "Text", "Quick Method", "50"},
      {1, 1, "Year End Date", "YearEndDate", "ClientInfo", "Date", "03/31/2026", "-1"},
      {1, 1, "Incorporation Date", "IncorporationDate", "ClientInfo", "Date", "Nov 1, 2026",
       kMissing},
      {1, 1, "Name Renewal Date", "NameRenewalDate", "ClientInfo", "Date", "05/28/2003", "-1"},
      {1, 1, "Payroll Registered As", "PayrollRegisteredAs", "ClientInfo", "Text", nullptr, "255"},
      {1, 2, "Year End Date", "USYearEndDate", "ClientInfo", "Date", "12/312026", "-1"},
      {1, 2, "Incorporation Date", "USIncorporationDate", "ClientInfo", "Date", "12/31/05", "-1"},
      {1, 2, "Federal Employer Identification Number", "EIN", "ClientInfo", "Text", nullptr, "50"},
      {1, 2, "Terminal Location", "TerminalLocation", "ClientInfo", "Text", nullptr, "250"},
      {1, 1, "Software Name", "SoftwareName", "SoftwareInfo", "Text", nullptr, "255"},
      {1, 1, "Contact SIN", "SocialInsuranceNumber", "ContactInfo", "Text", nullptr, "20"},
      {1, 2, "Contact SSN", "SocialInsuranceNumber", "ContactInfo", "Text", nullptr, "20"},
      {1, 1, "Contact Percentage Ownership", "PercentageOwnership", "ContactInfo", "Text", nullptr,
       "10"},
      {1, 1, "Contact Business Country", "BusinessCountry", "ContactInfo", "Text", "Country", "50"},
      {1, 1, "Contact Home Country", "HomeCountry", "ContactInfo", "Text", "Canada", "50"},
      {1, 1, "Contact Birthday", "Birthday", "ContactInfo", "Date", "Jun 25, 1951", "-1"},
      {1, 1, "Contact Anniversary", "Anniversary", "ContactInfo", "Date", "Apr 25, 1975", "-1"},
      {1, 1, "Contact Marital Status", "MaritialStatus", "ContactInfo", "Text", nullptr, "50"},
      {1, 1, "Spouse Birthday", "SpouseBirthday", "ContactInfo", "Text", "Apr 29, 1950", "-1"},
      {1, 1, "Spouse Home Address", "SpouseAddress", "ContactInfo", "Text", nullptr, "50"},
      {1, 1, "Contact Alternate Address", "AltAddress", "ContactInfo", "Text", nullptr, "255"},
      {1, 1, "Contact Alternate City", "AltCity", "ContactInfo", "Text", nullptr, "50"},
      {3, 1, "Client ID", "ClientID", "ContactInfo", "Text", nullptr, "50"},
      {1, 1, "Client ID", "ClientID", "CompanyInfo", "Text", "B34", "255"},
      {1, 1, "Company Alternate Province", "AltProvince", "CompanyInfo", "Text", "Ontario", "50"},
      {1, 1, "Company Alternate Abbreviated Province", "AltAbbreviatedProvince", "CompanyInfo",
       "Text", "ON", "255"},
      {1, 2, "State", "Province", "CompanyInfo", "Text", "California", "50"},
      {1, 2, "Company Alternate Zip Code", "AltPostalCode", "CompanyInfo", "Text", "90210", "255"},
      {5, 1, "Appointment Date", "DateFrom", "AppointInfo", "Date", "Jan 31, 2026", "-1"},
      {5, 1, "Appointment Start Time", "TimeFrom", "AppointInfo", "Time(h:Nn am/pm)", "9:00 AM",
       "-1"},
      {5, 1, "Appointment Text", "AppointmentText", "AppointInfo", "Text",
       "Sample appointment description text", "-1"},
      {6, 1, "Time Entry Name", "Subject", "DocketInfo", "Text", "Client Time Entry", "-1"},
      {6, 1, "Time Entry Text", "AppointmentText", "DocketInfo", "Text",
       "Sample time entry description text", "255"},
      {6, 1, "Time Entry Locked", "DocketLocked", "DocketInfo", "Yes/No", "No", "-1"},
      {6, 1, "Time To (Actual Time)", "RealTimeTo", "DocketInfo", "Time(h:Nn am/pm)", "10:03 am",
       "-1"},
      {6, 1, "Total Time (Adjusted)", "TotalTimeAdjusted", "DocketInfo", "Time(hrs/min)", "0 min",
       "-1"},
      {6, 1, "Total Amount (Final)", "TotalAmountFinal", "DocketInfo", "Dollars", "$25.00", "-1"},
      {8, 1, "Task Name", "Subject", "TaskInfo", "Text", "1st Quarterly GST Payment", "150"},
      {8, 1, "Task in-House Due Date", "inHouseDueDate", "TaskInfo", "Date", "Jan 27, 2026", "-1"},
      {8, 1, "Task Calendar Date", "CalendarDate", "TaskInfo", "Date", "Jan 27, 2026", kMissing},
      {8, 1, "Task Year", "Year", "TaskInfo", "Text", "2026", "12"},
      {8, 1, "Amount Paid", "Amount", "TaskInfo", "Text", "$123.50", "15"},
      {8, 1, "Date Completed", "DateCompleted", "TaskInfo", "Date", "01/29/2026", "-1"},
      {8, 1, "Task Text", "AppointmentText", "TaskInfo", "Text", "Sample task description text",
       "255"},
      {1, 1, "Your Corporate Name", "CorporateName", "FirmInfo", "Text",
       "ABC Accounting Services LLP", kMissing},
      {1, 1, "Your Postal Code", "PostalCode", "FirmInfo", "Text", "K2G 0Z9", kMissing},
      {1, 2, "Your State", "Province", "FirmInfo", "Text", "California", kMissing},
      {1, 2, "Your Zip Code", "PostalCode", "FirmInfo", "Text", "90210", kMissing},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.display) + " in list type " + std::to_string(c.listType) +
                 ", country " + std::to_string(c.country));
    CatalogueEnvironment env(Date::fromYmd(2026, 8, 20));
    env.locale->setCountryCode(c.country);
    auto catalogue = env.build(c.listType);
    std::vector<DumpedRow> rows = dumpRows(*catalogue->FieldListStructure());
    const DumpedRow* row = findRow(rows, c.display);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->columns[0], c.databaseField);
    EXPECT_EQ(row->columns[2], c.category);
    EXPECT_EQ(row->columns[3], c.fieldType);
    if (c.sample != nullptr) {
      EXPECT_EQ(row->columns[4], c.sample);
    }
    EXPECT_NE(row->columns[4], kMissing);
    EXPECT_EQ(row->columns[5], c.size);
  }
}

TEST(FieldRowsTest, SecondTaskCalendarDateStandsBehindTheFirst) {
  CatalogueEnvironment env;
  auto catalogue = env.build(8);
  std::vector<std::string> fields;
  for (const DumpedRow& row : dumpRows(*catalogue->FieldListStructure())) {
    if (row.columns[1] == "Task Calendar Date") fields.push_back(row.columns[0]);
  }
  EXPECT_EQ(fields, (std::vector<std::string>{"CalendarDate", "DateFrom"}));
  EXPECT_EQ(catalogue->FieldListStructure()->findRow(2, Variant("Task Calendar Date")), 4);
}

TEST(FieldRowsTest, SamplesFollowTheYearOfTheClock) {
  CatalogueEnvironment env(Date::fromYmd(2031, 1, 2));
  auto catalogue = env.build(8);
  std::vector<DumpedRow> rows = dumpRows(*catalogue->FieldListStructure());
  EXPECT_EQ(findRow(rows, "Task Year")->columns[4], "2031");
  EXPECT_EQ(findRow(rows, "Task Due Date")->columns[4], "Jan 31, 2031");
  EXPECT_EQ(findRow(rows, "Year End Date")->columns[4], "03/31/2031");
}

}  // namespace
}  // namespace nvwm::testing
