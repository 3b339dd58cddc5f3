// The rows of the record a calendar merge is about: appointments ("AppointInfo"), tasks
// ("TaskInfo", a schedule entry joined with its task) and time entries ("DocketInfo"; a time
// entry is a docket in the tables). One line per row, in order of adding.
#include "catalogue/field_list_rows.h"
#include "catalogue/field_record.h"

namespace nvwm::catalogue {
namespace {

constexpr const char* T = kFieldTypeText;
constexpr const char* D = kFieldTypeDate;
constexpr const char* CLOCK = kFieldTypeClockTime;
constexpr const char* HRS = kFieldTypeDuration;
constexpr const char* YN = kFieldTypeYesNo;
constexpr const char* USD = kFieldTypeDollars;

constexpr FieldRowSpec kAppointmentRows[] = {
    {"Appointment Name", "Subject", T, 255, text("Client Appointment")},
    {"Appointment Date", "DateFrom", D, -1, thisYear(1, 31)},
    {"Appointment Start Time", "TimeFrom", CLOCK, -1, text("9:00 AM")},
    {"Appointment End Time", "TimeTo", CLOCK, -1, text("9:30 AM")},
    {"Time Duration", "TimeDuration", T, -1, text("1 hr 30 min")},
    {"Appointment Text", "AppointmentText", T, -1, text("Sample appointment description text")},
};

constexpr FieldRowSpec kDocketRows[] = {
    {"Time Entry Name", "Subject", T, -1, text("Client Time Entry")},
    {"Time Entry Date", "DateFrom", D, -1, thisYear(1, 31)},
    {"Time Entry Start Time", "TimeFrom", CLOCK, -1, text("9:00 AM")},
    {"Time Entry End Time", "TimeTo", CLOCK, -1, text("9:30 AM")},
    {"Time Duration", "TimeDuration", T, -1, text("1 hr 30 min")},
    {"Time Entry Text", "AppointmentText", T, 255, text("Sample time entry description text")},
    {"Time Entry Locked", "DocketLocked", YN, -1, text("No")},
    {"Is Invoiced", "Invoiced", YN, -1, text("Yes")},
    {"Used Time Entry Timer", "UsedRealTime", YN, -1, text("Yes")},
    {"Time From (Actual Time)", "RealTimeFrom", CLOCK, -1, text("9:27 am")},
    {"Time To (Actual Time)", "RealTimeTo", CLOCK, -1, text("10:03 am")},
    {"Time From (Original Time)", "OriginalRealTimeFrom", CLOCK, -1, text("9:27 am")},
    {"Time To (Original Time)", "OriginalRealTimeTo", CLOCK, -1, text("10:03 am")},
    {"Time From (Rounded Time)", "RoundedTimeFrom", CLOCK, -1, text("9:30 am")},
    {"Time To (Rounded Time)", "RoundedTimeTo", CLOCK, -1, text("10:00 am")},
    {"Time Entry Notes", "TextBody", T, -1, text("Sample notes")},
    {"Billing Type", "DocketBillingType", T, -1, text("Hourly Billing")},
    {"Billing Rate", "BillingJobRate", T, -1, text("$50/hr")},
    {"Billable Time", "BillableTime", YN, -1, text("Yes")},
    {"Total Time (Actual)", "TotalTimeReal", HRS, -1, text("31 min")},
    {"Total Time (Rounded)", "TotalTimeRounded", HRS, -1, text("30 min")},
    {"Use Adjusted Time", "UseAdjustedTime", YN, -1, text("No")},
    {"Total Time (Adjusted)", "TotalTimeAdjusted", HRS, -1, text("0 min")},
    {"Total Time (Final)", "TotalTimeFinal", HRS, -1, text("30 min")},
    {"Total Amount (Actual)", "TotalAmountReal", USD, -1, text("$25.00")},
    {"Total Amount (Final)", "TotalAmountFinal", USD, -1, text("$25.00")},
    {"Internal Time Entry Description", "DescriptionInternal", T, -1,
     text("Sample internal description text")},
    {"Invoice Time Entry Description", "DescriptionClient", T, -1,
     text("Sample invoice description text")},
};

// The schedule entry. "Task Calendar Date" has no FieldSize at all.
constexpr FieldRowSpec kTaskScheduleRows[] = {
    {"Task Name", "Subject", T, 150, text("1st Quarterly GST Payment")},
    {"Task Due Date", "DueDate", D, -1, thisYear(1, 31)},
    {"Task in-House Due Date", "inHouseDueDate", D, -1, thisYear(1, 27)},
    {"Task Calendar Date", "CalendarDate", D, kSizeAbsent, thisYear(1, 27)},
    {"Employee Assigned", "EmployeeAssigned", T, 50, text("Ms. Accountant")},
    {"Task Year", "Year", T, 12, currentYear()},
    {"Amount Paid", "Amount", T, 15, text("$123.50")},
    {"Completed By", "PersonCompleted", T, 50, text("Chris Counter")},
    {"Date Completed", "DateCompleted", D, -1, textThenYear("01/29/")},
};

// The task joined to it. Its "Task Calendar Date" repeats a name of the first group: the first
// one is found by name.
constexpr FieldRowSpec kTaskRows[] = {
    {"Task Subject", "Subject", T, 255, text("Client Task")},
    {"Task Calendar Date", "DateFrom", D, -1, thisYear(1, 31)},
    {"Task Start Time", "TimeFrom", CLOCK, -1, text("9:00 AM")},
    {"Task End Time", "TimeTo", CLOCK, -1, text("9:30 AM")},
    {"Time Duration", "TimeDuration", T, -1, text("1 hr 30 min")},
    {"Task Text", "AppointmentText", T, 255, text("Sample task description text")},
};

// The stored name of the fifth default row of every calendar custom block; the list shows the
// regular default.
constexpr const char* kRemmit5 = "Custom Remmit Field 5";

}  // namespace

const FieldBlockSpec kAppointmentBlock{kCategoryAppoint, kAppointmentRows};
const FieldBlockSpec kTaskScheduleBlock{kCategoryTask, kTaskScheduleRows};
const FieldBlockSpec kTaskBlock{kCategoryTask, kTaskRows};
const FieldBlockSpec kDocketBlock{kCategoryDocket, kDocketRows};

// Category, label query, label columns, test hasRecords, database fields, default display text,
// sample text, display prefix, stored name of the fifth default row.
// clang-format off
const CustomBlockSpec kAppointmentCustomBlock{kCategoryAppoint, kCustomFieldsQuery, "ApptCustomName", true, "Custom", "Custom Appt Field ", "Custom Appt Info ", "", kRemmit5};
const CustomBlockSpec kTaskScheduleCustomBlock{kCategoryTask, kCustomFieldsQuery, "RemittanceLabel", true, "Custom", "Custom Task Field ", "Custom Task Info ", "", kRemmit5};
const CustomBlockSpec kTaskCustomBlock{kCategoryTask, kCustomFieldsQuery, "TaskCustomName", true, "TaskCustom", "Custom Task Field ", "Custom Task Info ", "", kRemmit5};
const CustomBlockSpec kDocketCustomBlock{kCategoryDocket, kCustomFieldsQuery, "DocketCustomName", true, "Custom", "Custom Time Entry Field ", "Custom Time Entry Info ", "", kRemmit5};
// clang-format on

}  // namespace nvwm::catalogue
