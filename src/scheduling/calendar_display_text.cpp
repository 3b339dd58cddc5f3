// clsInsertFieldsInRTB's calendar texts: how an appointment, time entry or task reads on the
// calendar and in its title bar, from each user's templates in UserCalendarSettings.
//
// One settings row per user, with two columns per kind of record: "Template<word>" and
// "TitleBarText<word>", the word being "Appt", "Docket" or "Task". The template is filled by
// the parse pass on the record that the data sets stand on; the display text falls back to a
// default template, the title has none.
#include <string>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "catalogue/field_record.h"
#include "engine/data_sets.h"
#include "practice/lookups.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace nvwm {
namespace {

constexpr const char* kLineBreak = "\r\n";

// What each kind of calendar record is called where the texts are made.
struct CalendarRecordKind {
  const char* table;
  const char* idColumn;
  const char* word;
  const char* defaultTemplate;
  // The data set of the kind, reopened on one record ("...=" the ID ";"), and the test an ID
  // must pass first. For tasks the data set becomes the task alone, without the schedule
  // columns of the join.
  const char* reopenSql;
  bool (*valid)(const std::string&);
};

// With no kind of record there is no table, no word, no default and no data set.
const CalendarRecordKind kNoKind{"", "", "", "", "", nullptr};

const CalendarRecordKind& calendarRecordKind(int32_t listType) {
  static const CalendarRecordKind kAppointment{
      "Appointments",
      "AppointmentID",
      "Appt",
      "«Appointment Name» for «Company Name»\r\n«Appointment Start Time» to «Appointment End "
      "Time»",
      "SELECT Appointments.* From Appointments WHERE Appointments.AppointmentID=",
      validAppointmentID};
  static const CalendarRecordKind kDocket{
      "Dockets",
      "DocketID",
      "Docket",
      "«Docket Start Time» to «Docket End Time»\r\n«Appointment Name» «Task Name» «Company "
      "Name»\r\n«Docket Name»",
      "SELECT Dockets.* From Dockets WHERE Dockets.DocketID=",
      validDocketID};
  static const CalendarRecordKind kTask{
      "Tasks",
      "TaskID",
      "Task",
      "«Task Name» for «Company Name»\r\n«Task Start Time» to «Task End Time»",
      "SELECT Tasks.* From Tasks WHERE Tasks.TaskID=",
      validTaskID};
  switch (listType) {
    case list_type::kAppointmentInfo:
      return kAppointment;
    case list_type::kDocketInfo:
      return kDocket;
    case list_type::kTaskInfo:
      return kTask;
    default:
      return kNoKind;
  }
}

// Of the three record IDs, the one of the list type's kind; -1 for any other list type.
int32_t idOfKind(int32_t listType, int32_t appointmentID, int32_t docketID, int32_t taskID) {
  switch (listType) {
    case list_type::kAppointmentInfo:
      return appointmentID;
    case list_type::kDocketInfo:
      return docketID;
    case list_type::kTaskInfo:
      return taskID;
    default:
      return -1;
  }
}

}  // namespace

bool clsInsertFieldsInRTB::readUserCalendarTemplate(Routine& r, int32_t userID,
                                                    const char* columnPrefix,
                                                    std::string& templateText) {
  const std::string column = columnPrefix + std::string(calendarRecordKind(ListType_).word);
  bool columnHeldText = false;
  bool connected = false;
  r.step([&] { connected = engine::databaseConnected(); });
  if (!connected) return columnHeldText;
  const std::string sql =
      "SELECT UserCalendarSettings.* FROM UserCalendarSettings WHERE "
      "UserIDNum = " +
      std::to_string(userID) + ";";
  DatabaseService* db = nullptr;
  r.step([&] { db = &engine::database(); });
  if (db == nullptr) return columnHeldText;
  Handle h = kNoHandle;
  r.step([&] { h = db->openRecordset(sql, kCursorKeyset, kLockOptimistic, true, "", true); });
  bool rows = false;
  r.step([&] { rows = db->hasRecords(h); });
  if (!rows && r.running()) {
    // A user's first calendar text makes the user's settings row.
    r.step([&] { db->addNewRecord(h); });
    r.step([&] { db->setNewField(h, "UserIDNum", Variant(std::to_string(userID))); });
    r.step([&] { db->updateRecord(h); });
    r.step([&] { db->closeRecordset(h); });
    r.step([&] { h = db->openRecordset(sql, kCursorKeyset, kLockOptimistic, true, "", true); });
    r.step([&] { rows = db->hasRecords(h); });
  }
  r.step([&] {
    if (rows && !engine::isNullValue(db->getField(h, Variant(column)))) {
      templateText = CStr(db->getField(h, Variant(column)));
      columnHeldText = true;
    }
  });
  r.step([&] { db->closeRecordset(h); });
  return columnHeldText;
}

std::string clsInsertFieldsInRTB::fillCalendarTemplate(Routine& r, const std::string& templateText,
                                                       int32_t userID, int32_t companyID,
                                                       int32_t contactID, int32_t appointmentID,
                                                       int32_t docketID, int32_t taskID,
                                                       bool useSampleData, bool& isRTF,
                                                       bool& useContactForMissingCompany) {
  // The ID of the kind at hand; a new one that names a record moves the data set onto it.
  const CalendarRecordKind& kind = calendarRecordKind(ListType_);
  const int32_t id = idOfKind(ListType_, appointmentID, docketID, taskID);
  Handle* dataSet = ListType_ == list_type::kAppointmentInfo ? &AppointmentsRST_
                    : ListType_ == list_type::kDocketInfo    ? &DocketsRST_
                    : ListType_ == list_type::kTaskInfo      ? &ScheduleTasksRST_
                                                             : nullptr;
  bool reopen = false;
  r.step([&] { reopen = dataSet && id >= 0 && id != RecordID_ && kind.valid(std::to_string(id)); });
  if (reopen) {
    r.step([&] { RecordID_ = id; });
    r.step([&] {
      if (engine::database().isRecordsetOpen(*dataSet)) engine::database().closeRecordset(*dataSet);
    });
    r.step([&] {
      *dataSet = engine::database().openRecordset(kind.reopenSql + std::to_string(id) + ";",
                                                  kCursorKeyset, kLockReadOnly, true, "", true);
    });
  }
  r.step([&] {
    if (FieldListStructure_->getRowCount() < 1) {
      bool noList = true;
      createDefaultFieldListStructure(ListType_, noList, true);
    }
  });
  std::string text;
  r.step([&] {
    int32_t company = companyID;
    int32_t contact = contactID;
    int32_t schedule = -1;
    int32_t firm = userID;
    int32_t appointment = ListType_ == list_type::kAppointmentInfo ? RecordID_ : -1;
    int32_t docket = ListType_ == list_type::kDocketInfo ? RecordID_ : -1;
    int32_t task = ListType_ == list_type::kTaskInfo ? RecordID_ : -1;
    bool sample = useSampleData;
    text = parseRTBComment(templateText, company, contact, schedule, firm, appointment, docket,
                           task, sample, isRTF, useContactForMissingCompany);
  });
  return text;
}

std::string clsInsertFieldsInRTB::createDisplayTextByID(int32_t& userID, int32_t companyID,
                                                        int32_t contactID, int32_t appointmentID,
                                                        int32_t docketID, int32_t taskID,
                                                        bool& useSampleData, bool& isRTF,
                                                        bool& useContactForMissingCompany) {
  std::string result;
  if (!errorClassRTB_) return result;  // the routine enters errorClassRTB unasked
  Routine r(engine::routineTag("createDisplayTextByID"), errorService());
  const CalendarRecordKind& kind = calendarRecordKind(ListType_);
  std::string templateText;
  const bool columnHeldText = readUserCalendarTemplate(r, userID, "Template", templateText);
  r.step([&] {
    if (!columnHeldText || templateText == "0" || engine::isNullValue(Variant(templateText)) ||
        templateText == "Text Constant")
      templateText = kind.defaultTemplate;
  });
  r.step([&] { templateText = convertProvinceFields(templateText); });
  r.step([&] {
    if (!useSampleData) return;
    bool plain = false;
    bool quiet = false;
    bool skipFieldNameCheck = true;
    if (testRTBComment(templateText, plain, quiet, skipFieldNameCheck))
      templateText = kind.defaultTemplate;
  });
  const std::string filled =
      fillCalendarTemplate(r, templateText, userID, companyID, contactID, appointmentID, docketID,
                           taskID, useSampleData, isRTF, useContactForMissingCompany);

  // The record's own framing texts, above and below.
  const int32_t id = idOfKind(ListType_, appointmentID, docketID, taskID);
  const std::string table = kind.table;
  const std::string sql = "SELECT " + table + "." + kind.idColumn + ", " + table +
                          ".BeforeAppointmentText, " + table + ".AfterAppointmentText FROM " +
                          table + " WHERE " + table + "." + kind.idColumn + "=" +
                          std::to_string(id) + ";";
  Variant before = Variant::null();
  Variant after = Variant::null();
  Handle h = kNoHandle;
  r.step([&] {
    h = engine::database().openRecordset(sql, kCursorKeyset, kLockReadOnly, true, "", true);
  });
  r.step([&] {
    if (engine::database().hasRecords(h)) {
      before = engine::database().getField(h, Variant("BeforeAppointmentText"));
      after = engine::database().getField(h, Variant("AfterAppointmentText"));
    }
  });
  r.step([&] { engine::database().closeRecordset(h); });
  r.step([&] {
    if (!engine::isNullValue(before)) result += CStr(before) + kLineBreak;
    result += filled;
    if (!engine::isNullValue(after)) result += kLineBreak + CStr(after);
  });
  return result;
}

std::string clsInsertFieldsInRTB::createTitleBarTextByID(int32_t& userID, int32_t companyID,
                                                         int32_t contactID, int32_t appointmentID,
                                                         int32_t docketID, int32_t taskID,
                                                         bool& isRTF,
                                                         bool& useContactForMissingCompany) {
  std::string result;
  if (!errorClassRTB_) return result;  // the routine enters errorClassRTB unasked
  Routine r(engine::routineTag("createTitleBarTextByID"), errorService());
  std::string templateText;
  const bool templateRead = readUserCalendarTemplate(r, userID, "TitleBarText", templateText);
  if (templateRead && engine::isNullValue(Variant(templateText))) return result;
  r.step([&] { templateText = convertProvinceFields(templateText); });
  // A bare field name is a template too.
  r.step([&] {
    if (Left(templateText, 1) != "«") templateText = "«" + templateText;
    if (Right(templateText, 1) != "»") templateText += "»";
  });
  // There is no default title.
  if (!templateRead) return result;
  result = fillCalendarTemplate(r, templateText, userID, companyID, contactID, appointmentID,
                                docketID, taskID, false, isRTF, useContactForMissingCompany);
  return result;
}

}  // namespace nvwm
