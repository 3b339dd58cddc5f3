// The field record of the merge-field catalogue: one row of clsInsertFieldsInRTB's
// FieldListStructure (an IDList), and the words its columns hold.
//
// A row's key is the value of FieldCounter when it was added (from 1, unique in one build; also
// the row's ItemData in the list box). Its columns, numbered from 1 as IDList numbers them:
//
//   1 DatabaseField  column of the data set chosen by Category, or a computed field's keyword
//   2 DisplayName    the name a user reads in the list and writes between « and » in a template
//   3 Category       which data set holds the value (kCategory* below)
//   4 FieldType      how the value is formatted (kFieldType* below); only "Date" is tested here
//   5 SampleValue    the text shown instead of a value when a template is previewed
//   6 FieldSize      16-bit width in characters, -1 where no width applies, or missing
//
// The other 18 columns are missing. Neither DatabaseField nor DisplayName is unique: a search by
// name finds the first row in order of adding. A row is never changed after it was added.
#pragma once

#include <cstdint>

namespace nvwm {

// Column numbers of a field row. DO NOT CHANGE THESE VALUES: the engine and the merge read
// rows by these numbers.
enum class FieldColumn : int16_t {
  kDatabaseField = 1,
  kDisplayName = 2,
  kCategory = 3,
  kFieldType = 4,
  kSampleValue = 5,
  kFieldSize = 6,
};

inline constexpr int16_t column(FieldColumn c) { return static_cast<int16_t>(c); }

// Category words, exactly as stored, and the data set each one names.
inline constexpr const char* kCategoryContact = "ContactInfo";    // ContactsRST
inline constexpr const char* kCategoryCompany = "CompanyInfo";    // CompaniesRST
inline constexpr const char* kCategoryClient = "ClientInfo";      // MainClientRST
inline constexpr const char* kCategorySoftware = "SoftwareInfo";  // SoftwareInfoRST
inline constexpr const char* kCategoryFirm = "FirmInfo";          // AccountantFirmRST
inline constexpr const char* kCategoryAppoint = "AppointInfo";    // AppointmentsRST
inline constexpr const char* kCategoryTask = "TaskInfo";          // ScheduleTasksRST
inline constexpr const char* kCategoryDocket = "DocketInfo";      // DocketsRST

// FieldType words, exactly as stored. A field is a date, a time, a currency or a text by this
// word alone, never by the data set's own column type.
inline constexpr const char* kFieldTypeText = "Text";
inline constexpr const char* kFieldTypeDate = "Date";
inline constexpr const char* kFieldTypeClockTime = "Time(h:Nn am/pm)";
inline constexpr const char* kFieldTypeDuration = "Time(hrs/min)";
inline constexpr const char* kFieldTypeYesNo = "Yes/No";
inline constexpr const char* kFieldTypeDollars = "Dollars";

// The values of mergeInfo2 as the list builders read them. DO NOT CHANGE THESE VALUES: hosts
// send them. 4 and 7 select no client rows; any number outside 1..8 (-1 among them) is accepted
// and selects only the firm's rows.
namespace list_type {
inline constexpr int32_t kCompanyInfo = 1;
inline constexpr int32_t kCompanyContactInfo = 2;
inline constexpr int32_t kContactInfo = 3;
inline constexpr int32_t kRemittanceInfo = 4;
inline constexpr int32_t kAppointmentInfo = 5;
inline constexpr int32_t kDocketInfo = 6;
inline constexpr int32_t kNoMergeInfo = 7;
inline constexpr int32_t kTaskInfo = 8;
}  // namespace list_type

// MergeFieldListUse: 1 the full template list (default), 2 the assignment list, 3 as 1 (the
// default-contact upkeep uses it). Only the comparison with 2 is ever made.
inline constexpr int32_t kListUseAssignment = 2;

}  // namespace nvwm
