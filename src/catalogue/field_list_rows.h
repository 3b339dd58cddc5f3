// Internal: the catalogue's rows as data. Each field list is a static table with one line per
// row, in order of adding, read by the one row-adding mechanism of clsInsertFieldsInRTB; each
// custom block is one line of a custom-block table, run by the one custom-block mechanism.
#pragma once

#include <cstdint>
#include <span>

namespace nvwm::catalogue {

// When a row is offered. Rows without a condition are always added.
enum class Only : uint8_t {
  kAlways,
  kUse2,             // MergeFieldListUse is 2 (the split address lines)
  kNotUse2,          // MergeFieldListUse is not 2
  kCountry1,         // country code 1 (Canada)
  kCountry1NotUse2,  // country code 1 and MergeFieldListUse not 2 (abbreviated provinces)
  kOtherCountry,     // any country code but 1
  kProvince3,        // country code 1 rows only: province code 3 (Ontario)
  kProvince8,        // province code 8 (Quebec)
  kProvinceNot8,     // any province code but 8
};

// The sample value of a row.
struct Sample {
  enum class Kind : uint8_t {
    kText,          // text as it stands
    kTextThenYear,  // text joined directly with the current year ("03/31/2026")
    kDateThisYear,  // month/day of the current year, as "mmm d, yyyy"
    kFixedDate,     // year/month/day, as "mmm d, yyyy"
    kYear,          // the current year
  };
  Kind kind = Kind::kText;
  const char* text = "";
  int16_t year = 0;
  int8_t month = 0;
  int8_t day = 0;
};

constexpr Sample text(const char* t) { return {Sample::Kind::kText, t, 0, 0, 0}; }
constexpr Sample textThenYear(const char* t) { return {Sample::Kind::kTextThenYear, t, 0, 0, 0}; }
constexpr Sample thisYear(int8_t month, int8_t day) {
  return {Sample::Kind::kDateThisYear, "", 0, month, day};
}
constexpr Sample onDate(int16_t year, int8_t month, int8_t day) {
  return {Sample::Kind::kFixedDate, "", year, month, day};
}
constexpr Sample currentYear() { return {Sample::Kind::kYear, "", 0, 0, 0}; }

// FieldSize of a row that has none at all: column 6 is left missing.
inline constexpr int16_t kSizeAbsent = INT16_MIN;

// One field row. The display name may hold the words that change with the firm's province and
// the date: {TAX1} (GST/HST), {TAX2} (PST/QST), {BOARD} (WSIB, WCB...), {SHORT} (ON, BC...).
struct FieldRowSpec {
  const char* displayName;
  const char* databaseField;
  const char* fieldType;
  int16_t fieldSize;
  Sample sample;
  Only only = Only::kAlways;
  // The list entry where it differs from the display name (nullptr: the same).
  const char* listText = nullptr;
};

// One field list: the rows of one block and their Category.
struct FieldBlockSpec {
  const char* category;
  std::span<const FieldRowSpec> rows;
};

// The two label tables of the custom blocks, one row each.
inline constexpr const char* kCustomFieldsQuery = "SELECT CustomFields.* FROM CustomFields;";
inline constexpr const char* kCustomAddressFieldsQuery =
    "SELECT CustomAddressFields.* FROM CustomAddressFields;";

// One custom block: five rows "Custom1".."Custom5" (or another stem), labelled from the database.
struct CustomBlockSpec {
  const char* category;
  const char* labelQuery;
  const char* labelColumnStem;    // label column n is this and n ("CustomName1")
  bool testHasRecords;            // an empty label table gives no custom row at all
  const char* databaseFieldStem;  // DatabaseField of row n is this and n ("ClientCustom1")
  const char* defaultTextStem;    // default display text of row n is this and n
  const char* sampleStem;         // sample of row n is this and n
  const char* displayPrefix;      // put before every display text ("Your " for the firm)
  // The stored display name of the fifth default row where it differs from the list entry
  // ("Custom Remmit Field 5"); nullptr where it doesn't.
  const char* fifthDefaultStoredName;
};

// The tables, one per list (defined in the file named after the list).
// Default field list (client side).
extern const FieldBlockSpec kContactNameBlock;
extern const FieldBlockSpec kAccountingCanadaBlock;
extern const FieldBlockSpec kAccountingOtherCountryBlock;
extern const FieldBlockSpec kSoftwareBlock;
extern const FieldBlockSpec kContactDetailBlock;
extern const CustomBlockSpec kClientCustomBlock;
extern const CustomBlockSpec kContactCustomBlock;
// Company field list.
extern const FieldBlockSpec kCompanyBlock;
extern const CustomBlockSpec kCompanyCustomBlock;
// Appointment, task and docket field lists.
extern const FieldBlockSpec kAppointmentBlock;
extern const CustomBlockSpec kAppointmentCustomBlock;
extern const FieldBlockSpec kTaskScheduleBlock;
extern const CustomBlockSpec kTaskScheduleCustomBlock;
extern const FieldBlockSpec kTaskBlock;
extern const CustomBlockSpec kTaskCustomBlock;
extern const FieldBlockSpec kDocketBlock;
extern const CustomBlockSpec kDocketCustomBlock;
// Accountant field list.
extern const FieldBlockSpec kAccountantBlock;
extern const CustomBlockSpec kAccountantCustomBlock;

}  // namespace nvwm::catalogue
