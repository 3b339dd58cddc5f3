// The settings row of a user and client lives in ClientSchedulePopups, with one on/off column
// and one lead time column per remittance type. A reminder is a row of Reminders; the kinds 3,
// 4 and 5 replace the user's earlier reminder of the same record, any other kind adds a row.
#include "scheduling/popup_reminders.h"

#include <array>
#include <string_view>

#include "practice/lookups.h"
#include "runtime/convert.h"
#include "runtime/datetime_functions.h"
#include "runtime/format.h"
#include "scheduling/lead_times.h"
#include "scheduling/routine_steps.h"

namespace nvwm {

using scheduling::database;
using scheduling::dateUtility;
using scheduling::field;
using scheduling::fieldIsNull;
using scheduling::idText;
using scheduling::LookupRoutine;
using scheduling::textOf;

namespace {

constexpr std::string_view kModule = "modPopUpReminders";
constexpr const char* kLineBreak = "\r\n";

struct PopupColumns {
  std::string_view onOff;
  std::string_view leadTime;
};

// By remittance type, totalNum 101 to 114 in order.
constexpr std::array<PopupColumns, 14> kPopupColumns{{
    {"scheduleGSTPopups", "popupReminderTimeGST"},
    {"schedulePSTPopups", "popupReminderTimePST"},
    {"schedulePayrollRemittPopups", "popupReminderTimePayrollRemitt"},
    {"scheduleYearEndPopups", "popupReminderTimeYearEnd"},
    {"scheduleCorpTaxPopups", "popupReminderTimeCorpTax"},
    {"scheduleWSIBPopups", "popupReminderTimeWSIB"},
    {"scheduleEHTPopups", "popupReminderTimeEHT"},
    {"scheduleLawPopups", "popupReminderTimeLaw"},
    {"scheduleOtherPopups", "popupReminderTimeOther"},
    {"schedulePayrollPopups", "popupReminderTimePayroll"},
    {"scheduleCustomPopups", "popupReminderTimeCustom"},
    {"scheduleFederalPayrollPopups", "popupReminderTimeFederalPayroll"},
    {"scheduleProjectsPopups", "popupReminderTimeProjects"},
    {"scheduleBookkeepingPopups", "popupReminderTimeBookkeeping"},
}};
constexpr int32_t kFirstRemittanceType = 101;

const PopupColumns* popupColumns(int32_t totalNum) {
  const int32_t index = totalNum - kFirstRemittanceType;
  if (index < 0 || index >= static_cast<int32_t>(kPopupColumns.size())) return nullptr;
  return &kPopupColumns[index];
}

// Which ClientSchedulePopups row a check reads: by company or by contact.
struct SettingsRow {
  std::string sql;
  std::string_view idColumn;  // the column a new row is filled with besides UserNum
  int32_t id = -1;
};

}  // namespace

bool checkToSchedulePopup(int32_t clientDataID, int32_t contactID, int32_t scheduleID,
                          int32_t totalNum, Date /*dueDate: plays no part*/) {
  LookupRoutine r(kModule, "checkToSchedulePopup");
  bool result = false;
  int32_t taskID = -1;
  r.step([&] { taskID = getTaskIDFromScheduleID(scheduleID); });
  if (!r.connected()) return result;

  int32_t userID = -1;
  r.withFirstRow(
      "SELECT Schedule.ScheduleID, Schedule.EmployeeAssigned FROM Schedule WHERE ScheduleID=" +
          idText(scheduleID) + ";",
      [&](Handle h) {
        r.step([&] {
          userID = getUserIDFromEmployeeAssignedName(CStr(field(h, "EmployeeAssigned")));
        });
      });
  bool assigned = false;
  r.step([&] { assigned = validEmployeeID(idText(userID)); });
  if (!assigned || !r.running()) return result;  // an unassigned entry gets no pop-up

  SettingsRow settings;
  r.step([&] {
    const std::string user = idText(userID);
    if (clientDataID >= 0) {
      settings.id = getCompanyIDFromClientDataID(clientDataID);
      settings.idColumn = "CompanyIDNum";
      settings.sql =
          "SELECT ClientSchedulePopups.* From ClientSchedulePopups WHERE "
          "ClientSchedulePopups.CompanyIDNum = " +
          idText(settings.id) + " AND ClientSchedulePopups.UserNum = " + user + ";";
    } else if (contactID >= 0) {
      settings.id = contactID;
      settings.idColumn = "ContactIDNum";
      settings.sql =
          "SELECT ClientSchedulePopups.* From ClientSchedulePopups WHERE "
          "ClientSchedulePopups.ContactIDNum = " +
          idText(contactID) + " AND ClientSchedulePopups.UserNum = " + user + ";";
    }
  });
  if (settings.sql.empty()) return result;

  Handle h = r.open(settings.sql, kLockOptimistic);
  if (!r.hasRows(h)) {
    // The check itself gives the user and client a settings row with the table's defaults.
    r.step([&] { database().addNewRecord(h); });
    r.step([&] { database().setNewField(h, "UserNum", Variant(idText(userID))); });
    r.step([&] {
      database().setNewField(h, std::string(settings.idColumn), Variant(idText(settings.id)));
    });
    r.step([&] { database().updateRecord(h); });
    r.close(h);
    h = r.open(settings.sql, kLockOptimistic);
  }
  bool popupsOn = false;
  std::string leadTimeWord;
  if (r.hasRows(h)) {
    if (const PopupColumns* columns = popupColumns(totalNum)) {
      r.step([&] { popupsOn = CBool(field(h, columns->onOff)); });
      r.step([&] { leadTimeWord = CStr(field(h, columns->leadTime)); });
    }
  }
  r.close(h);
  if (!popupsOn || !r.running()) return result;

  r.step([&] {
    if (scheduling::variantUtility().isNullValue(Variant(leadTimeWord))) leadTimeWord = "1 Day";
  });
  // The day of the task, not dueDate, at the midnight that begins it.
  Date reminderDate;
  Date reminderTime;
  r.step([&] { reminderDate = getTaskDateFromTaskID(taskID); });
  r.step([&] { getPopUpReminderTime(leadTimeWord, reminderDate, reminderTime); });
  std::string text;
  r.step([&] {
    text = getPopUpReminderText(static_cast<int32_t>(ReminderKind::kScheduleEntry), scheduleID,
                                leadTimeWord);
  });
  // The client data ID goes in the company's place, and no task: every call adds a row.
  r.step([&] {
    createPopUpReminder(static_cast<int32_t>(ReminderKind::kTask), userID, reminderDate,
                        reminderTime, text, getClientDataIDFromScheduleID(scheduleID), scheduleID,
                        -1, -1, -1, -1);
  });
  r.step([&] { result = true; });
  return result;
}

std::string getPopUpReminderTime(const std::string& leadTimeWord, Date& reminderDate,
                                 Date& reminderTime) {
  LookupRoutine r(kModule, "getPopUpReminderTime");
  const Date incomingDate = reminderDate;
  Date at;
  r.step([&] {
    at = CDate(Variant(formatDate(reminderDate, "Short Date") + " " +
                       formatDate(reminderTime, "hh:nn am/pm")));
  });
  r.step([&] {
    if (const scheduling::LeadTime* lead = scheduling::findLeadTime(leadTimeWord))
      at = DateAdd(lead->interval, -lead->amount, at);
  });
  r.step([&] { reminderDate = scheduling::throughText(at, "mmm d, yyyy"); });
  r.step([&] { reminderTime = scheduling::throughText(at, "hh:nn am/pm"); });
  r.step([&] {
    if (reminderDate < incomingDate) reminderDate = dateUtility().adjustReminderDate(reminderDate);
  });
  return "";
}

namespace {

// Kind 2: "Your upcoming <name> task[ for <company>]" and the schedule text of the word.
void appendScheduleEntryText(LookupRoutine& r, int32_t scheduleID, const std::string& word,
                             std::string& text) {
  bool valid = false;
  r.step([&] { valid = validScheduleID(idText(scheduleID)); });
  if (!valid) return;
  r.withFirstRow(
      "SELECT Schedule.ScheduleID, Schedule.ClientNum, Schedule.ScheduleName  FROM Schedule "
      "WHERE ScheduleID=" +
          idText(scheduleID) + ";",
      [&](Handle h) {
        r.step([&] {
          const Variant clientNum = field(h, "ClientNum");
          text += "Your upcoming " + textOf(field(h, "ScheduleName")) + " task";
          if (validClientID(textOf(clientNum)))
            text += " for " +
                    getCompanyNameFromCompanyID(getCompanyIDFromClientDataID(CLng(clientNum)));
        });
        r.step([&] {
          if (const scheduling::LeadTime* lead = scheduling::findLeadTime(word))
            text += lead->scheduleText;
        });
      });
}

// The record of kinds 3 and 5: where it is read, the test its ID must pass, and the words.
struct RecordReminder {
  const char* sqlPrefix;  // followed by the ID and ";"
  bool (*valid)(const std::string&);
  std::string_view subjectLabel;  // "Appointment: "
  std::string_view forWhom;       // "You have an appointment with "
  std::string_view forNobody;     // "You have an appointment"
};

const RecordReminder kAppointmentReminder{
    "SELECT Appointments.AppointmentID, Appointments.Subject, Appointments.CompanyIDNum, "
    "Appointments.ContactIDNum, Appointments.ReminderPeriod, Appointments.TimeFrom, "
    "Appointments.AppointmentText FROM Appointments WHERE AppointmentID=",
    validAppointmentID, "Appointment: ", "You have an appointment with ",
    "You have an appointment"};
const RecordReminder kTaskReminder{
    "SELECT Tasks.TaskID, Tasks.Subject, Tasks.CompanyIDNum, Tasks.ContactIDNum, "
    "Tasks.ReminderPeriod, Tasks.TimeFrom, Tasks.AppointmentText FROM Tasks WHERE TaskID=",
    validTaskID, "Task: ", "Your task for ", "Your task is due"};

void appendRecordText(LookupRoutine& r, int32_t recordID, const RecordReminder& words,
                      std::string& text) {
  bool valid = false;
  r.step([&] { valid = words.valid(idText(recordID)); });
  if (!valid) return;
  r.withFirstRow(words.sqlPrefix + idText(recordID) + ";", [&](Handle h) {
    r.step([&] {
      if (!fieldIsNull(h, "Subject"))
        text +=
            std::string(words.subjectLabel) + textOf(field(h, "Subject")) + kLineBreak + kLineBreak;
    });
    r.step([&] {
      const Variant company = field(h, "CompanyIDNum");
      const Variant contact = field(h, "ContactIDNum");
      if (!scheduling::variantUtility().isNullValue(company) && validCompanyID(textOf(company))) {
        text += std::string(words.forWhom) + getCompanyNameFromCompanyID(CLng(company));
      } else if (!scheduling::variantUtility().isNullValue(contact) &&
                 validContactID(textOf(contact))) {
        text += std::string(words.forWhom) + getDisplayNameFromContactID(CLng(contact));
      } else {
        text += words.forNobody;
      }
    });
    // The record's own lead time, not the word of the call.
    r.step([&] {
      if (const auto* lead = scheduling::findLeadTime(textOf(field(h, "ReminderPeriod"))))
        text += lead->appointmentText;
    });
    r.step([&] { text += " at " + textOf(field(h, "TimeFrom")) + kLineBreak + kLineBreak; });
    r.step([&] {
      if (!fieldIsNull(h, "AppointmentText"))
        text += "Description: " + textOf(field(h, "AppointmentText"));
    });
  });
}

}  // namespace

std::string getPopUpReminderText(int32_t kind, int32_t recordID, const std::string& leadTimeWord) {
  LookupRoutine r(kModule, "getPopUpReminderText");
  std::string text;
  if (!r.connected()) return text;
  switch (static_cast<ReminderKind>(kind)) {
    case ReminderKind::kScheduleEntry:
      appendScheduleEntryText(r, recordID, leadTimeWord, text);
      break;
    case ReminderKind::kAppointment:
      appendRecordText(r, recordID, kAppointmentReminder, text);
      break;
    case ReminderKind::kTask:
      appendRecordText(r, recordID, kTaskReminder, text);
      break;
    default:
      break;
  }
  return text;
}

namespace {

// The SQL of the user's earlier reminder of the record, by kind; "" for a kind that replaces
// nothing.
std::string earlierReminderSql(ReminderKind kind, int32_t userID, int32_t appointmentID,
                               int32_t toDoID, int32_t taskID) {
  auto sql = [&](std::string_view idColumn, int32_t id, int type) {
    return "SELECT Reminders.ReminderID, Reminders.UserIDNum, Reminders." + std::string(idColumn) +
           ", Reminders.ReminderType FROM Reminders WHERE UserIDNum = " + idText(userID) + " AND " +
           std::string(idColumn) + " = " + idText(id) +
           " AND ReminderType = " + std::to_string(type) + ";";
  };
  switch (kind) {
    case ReminderKind::kAppointment:
      return sql("AppointmentIDNum", appointmentID, 3);
    case ReminderKind::kToDo:
      return sql("ToDoIDNum", toDoID, 4);
    case ReminderKind::kTask:
      return sql("TaskIDNum", taskID, 5);
    default:
      return "";
  }
}

int32_t storedReminderType(ReminderKind kind) {
  switch (kind) {
    case ReminderKind::kAppointment:
    case ReminderKind::kToDo:
    case ReminderKind::kTask:
      return static_cast<int32_t>(kind);
    default:
      return 0;
  }
}

}  // namespace

int32_t createPopUpReminder(int32_t kind, int32_t userID, Date reminderDate, Date reminderTime,
                            const std::string& text, int32_t companyID, int32_t scheduleID,
                            int32_t appointmentID, int32_t toDoID, int32_t contactID,
                            int32_t taskID) {
  LookupRoutine r(kModule, "createPopUpReminder");
  r.step([&] {
    if (kind == static_cast<int32_t>(ReminderKind::kScheduleEntry)) {
      kind = static_cast<int32_t>(ReminderKind::kTask);
      taskID = getTaskIDFromScheduleID(scheduleID);
    }
  });
  const bool companyOrContactGiven = companyID >= 0 || contactID >= 0;
  int32_t result = -1;
  if (!r.connected()) return result;

  const auto reminderKind = static_cast<ReminderKind>(kind);
  int32_t earlierID = -1;
  const std::string earlierSql =
      earlierReminderSql(reminderKind, userID, appointmentID, toDoID, taskID);
  if (!earlierSql.empty()) {
    r.withFirstRow(earlierSql, [&](Handle h) {
      r.readField(h, "ReminderID", practice::NullTest::kNotTested, earlierID);
    });
  }
  // Looked up and never used: the row keeps the record's company and contact out.
  if (!companyOrContactGiven && reminderKind == ReminderKind::kAppointment) {
    r.step([&] { getCompanyIDFromAppointmentID(appointmentID); });
    r.step([&] { getContactIDFromAppointmentID(appointmentID); });
  } else if (!companyOrContactGiven && reminderKind == ReminderKind::kTask) {
    r.step([&] { getCompanyIDFromTaskID(taskID); });
    r.step([&] { getContactIDFromTaskID(taskID); });
  }

  const bool replacing = earlierID != -1;
  const Handle h = r.open(
      replacing ? "SELECT Reminders.* FROM Reminders WHERE ReminderID=" + idText(earlierID) + ";"
                : std::string("SELECT Reminders.* FROM Reminders;"),
      kLockOptimistic);
  bool writing = true;
  if (replacing) {
    writing = r.hasRows(h);
    if (writing) result = earlierID;
  } else {
    r.step([&] { database().addNewRecord(h); });
  }
  if (writing) {
    // An earlier reminder is written through setField, except the company and the contact,
    // which go through setNewField in both branches.
    auto write = [&](const char* column, const std::string& value, bool alwaysNewField = false) {
      r.step([&] {
        if (replacing && !alwaysNewField) {
          database().setField(h, column, value);
        } else {
          database().setNewField(h, column, Variant(value));
        }
      });
    };
    write("UserIDNum", idText(userID));
    if (companyID >= 0) write("CompanyIDNum", idText(companyID), true);
    if (contactID >= 0) write("ContactIDNum", idText(contactID), true);
    bool validAppointment = false;
    r.step([&] {
      validAppointment = appointmentID >= 0 && validAppointmentID(idText(appointmentID));
    });
    if (validAppointment) write("AppointmentIDNum", idText(appointmentID));
    bool validTask = false;
    r.step([&] { validTask = taskID >= 0 && validTaskID(idText(taskID)); });
    if (validTask) write("TaskIDNum", idText(taskID));
    write("ReminderType", std::to_string(storedReminderType(reminderKind)));
    std::string dateText;
    r.step([&] { dateText = CStr(Variant(dateUtility().getDateOnly(reminderDate))); });
    write("ReminderDate", dateText);
    std::string timeText;
    r.step([&] { timeText = formatDate(reminderTime, "hh:nn am/pm"); });
    write("ReminderTime", timeText);
    write("TextBody", text);
    if (!replacing) {
      r.readField(h, "ReminderID", practice::NullTest::kNotTested, result);
      r.step([&] { database().updateRecord(h); });
    }
  }
  r.close(h);
  return result;
}

}  // namespace nvwm
