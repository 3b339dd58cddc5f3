// "schedule": the calendar routines on a practice database, as a merge would run them.
//
//   nvwordmerge schedule --db FILE [--today YYYY-MM-DD] [--go-on] task-for SCHEDULE-ID
//   nvwordmerge schedule --db FILE [--today YYYY-MM-DD] [--go-on] entry-for TASK-ID
//   nvwordmerge schedule --db FILE best-time --user ID --date YYYY-MM-DD --hours H [--kind K]
//   nvwordmerge schedule --db FILE [--today YYYY-MM-DD] [--go-on] reminders --user ID
//
// task-for gives a schedule entry its task (or moves the one it has) and prints the task: its
// ID, whether it was added or updated, date, times, estimate and calendar text. entry-for
// gives a task its schedule entry (or synchronises the one it has) and prints the entry's
// dates, the employee and the reminders the new entry raised. best-time prints the free time
// the calendar search finds in the user's day (kind 1 tasks, 0 appointments, 2 time entries).
// reminders runs the pop-up check on every schedule entry assigned to the user and prints each
// reminder it stored; as the check does, every run stores them again.
//
// Text values are printed on one line (\r, \n, \t, \\ written out). --today stands for the
// clock's date. An error is logged and ends the routine that met it, as the default error
// service answers; --go-on answers "go on with the next step" instead, as a host's error
// service may (an item with no notes, for one, then still gets its task). Exit 0 when the routine
// did its work, 1 when it made nothing or the error service was told of a failure (logged on
// standard error), 2 for a database that can't be opened or bad arguments.
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "host/references.h"
#include "practice/lookups.h"
#include "runtime/clock.h"
#include "runtime/convert.h"
#include "runtime/format.h"
#include "runtime/text.h"
#include "scheduling/calendar_search.h"
#include "scheduling/popup_reminders.h"
#include "scheduling/task_schedule_links.h"
#include "services/folder_locale.h"
#include "services/logging_error_service.h"
#include "services/sqlite/sqlite_database.h"

namespace nvwm::cli {
namespace {

struct ScheduleOptions {
  std::string db;
  std::string today;
  bool goOn = false;
  int32_t scheduleID = -1;
  int32_t taskID = -1;
  int32_t userID = -1;
  std::string date;
  float hours = 1.0f;
  int32_t kind = 1;
};

// The first row of a query of this command's own, as the library's database service reads it.
class Rows {
 public:
  Rows(DatabaseService& db, const std::string& sql)
      : db_(db), h_(db.openRecordset(sql, kCursorKeyset, kLockReadOnly)) {}
  ~Rows() { db_.closeRecordset(h_); }
  Rows(const Rows&) = delete;
  Rows& operator=(const Rows&) = delete;

  bool atEnd() { return db_.isEOF(h_); }
  void next() { db_.moveNext(h_); }
  Variant operator[](const char* column) { return db_.getField(h_, Variant(column)); }

 private:
  DatabaseService& db_;
  Handle h_;
};

std::string text(const Variant& v) { return v.isNull() || v.isEmpty() ? "" : oneLine(CStr(v)); }
std::string timeText(const Variant& v) {
  return v.isNull() || v.isEmpty() ? "" : formatDate(CDate(v), "h:nn am/pm");
}
int32_t maxReminderID(DatabaseService& db) {
  Rows last(db, "SELECT max(ReminderID) AS LastID FROM Reminders;");
  return last["LastID"].isNull() ? 0 : CLng(last["LastID"]);
}

// Sets up the library-wide references for one run; nullptr (with the message printed) when the
// database or the date can't be used.
std::shared_ptr<LoggingErrorService> setUp(const ScheduleOptions& o) {
  if (!o.today.empty()) {
    std::optional<Date> today = parseIsoDate(o.today);
    if (!today) {
      std::cerr << "schedule: --today wants YYYY-MM-DD, got \"" << o.today << "\"\n";
      return nullptr;
    }
    setClock(std::make_shared<FixedClock>(*today));
  }
  auto db = std::make_shared<SqliteDatabase>(o.db);
  if (!db->isConnected()) {
    std::cerr << "schedule: cannot open the practice database \"" << o.db << "\"\n";
    return nullptr;
  }
  LibraryReferences& refs = references();
  std::shared_ptr<LoggingErrorService> errors = useStderrErrorService("schedule");
  if (o.goOn) errors->setErrorAction(static_cast<int32_t>(ErrorAction::kResumeNext));
  refs.DatabaseReference = db;
  refs.variantUtility = factories().createVariantUtility();
  refs.dateUtility = factories().createDateUtility();
  if (!refs.LocaleReference) refs.LocaleReference = std::make_shared<HostLocale>();
  return errors;
}

int taskFor(const ScheduleOptions& o, LoggingErrorService& errors) {
  DatabaseService& db = *references().DatabaseReference;
  const std::string bySchedule =
      "SELECT TaskID, DateFrom, TimeFrom, TimeTo, EstimatedTime, AppointmentText FROM Tasks "
      "WHERE ScheduleIDNum = " +
      std::to_string(o.scheduleID) + " ORDER BY TaskID;";
  bool hadTask = !Rows(db, bySchedule).atEnd();
  const int32_t taskID = addNewTaskForScheduleItem(o.scheduleID, -1.0f, true);
  if (taskID < 0) {
    std::cout << "schedule entry " << o.scheduleID << ": no task made\n";
    return 1;
  }
  Rows task(db,
            "SELECT TaskID, DateFrom, TimeFrom, TimeTo, EstimatedTime, AppointmentText FROM "
            "Tasks WHERE TaskID = " +
                std::to_string(taskID) + ";");
  std::cout << "task " << taskID << (hadTask ? " updated" : " added") << " for schedule entry "
            << o.scheduleID << "\n";
  if (!task.atEnd()) {
    std::cout << "date " << text(task["DateFrom"]) << "\n"
              << "time " << timeText(task["TimeFrom"]) << " to " << timeText(task["TimeTo"]) << "\n"
              << "estimate " << text(task["EstimatedTime"]) << " hours\n"
              << "text " << text(task["AppointmentText"]) << "\n";
  }
  return errors.lastError() ? 1 : 0;
}

int entryFor(const ScheduleOptions& o, LoggingErrorService& errors) {
  DatabaseService& db = *references().DatabaseReference;
  const bool hadEntry = isThisTaskAssociatedWithScheduleEntry(o.taskID, false);
  const int32_t remindersBefore = maxReminderID(db);
  const int32_t scheduleID = addNewScheduleEntryForTaskItem(o.taskID, -1, -1, -1, false, 10, 1);
  if (scheduleID <= 0) {
    std::cout << "task " << o.taskID << ": no schedule entry made\n";
    return 1;
  }
  std::cout << "schedule entry " << scheduleID << (hadEntry ? " synchronised" : " added")
            << " for task " << o.taskID << "\n";
  Rows entry(db,
             "SELECT DueDate, inHouseDueDate, CalendarDate, EmployeeAssigned FROM Schedule "
             "WHERE ScheduleID = " +
                 std::to_string(scheduleID) + ";");
  if (!entry.atEnd()) {
    std::cout << "due " << text(entry["DueDate"]) << "\n"
              << "in-house due " << text(entry["inHouseDueDate"]) << "\n"
              << "calendar " << text(entry["CalendarDate"]) << "\n"
              << "assigned " << text(entry["EmployeeAssigned"]) << "\n";
  }
  std::cout << "reminders added " << maxReminderID(db) - remindersBefore << "\n";
  return errors.lastError() ? 1 : 0;
}

int bestTime(const ScheduleOptions& o, LoggingErrorService& errors) {
  std::optional<Date> day = parseIsoDate(o.date);
  if (!day) {
    std::cerr << "schedule best-time: --date wants YYYY-MM-DD, got \"" << o.date << "\"\n";
    return 2;
  }
  const Date found = getBestTimeInCalendarForSpecificDayAndUser(o.kind, o.userID, *day, o.hours);
  std::cout << formatDate(found, "h:nn am/pm") << "\n";
  return errors.lastError() ? 1 : 0;
}

int reminders(const ScheduleOptions& o, LoggingErrorService& errors) {
  DatabaseService& db = *references().DatabaseReference;
  const std::string name = getEmployeeAssignedNameFromFirmContactID(o.userID);
  if (!validEmployeeID(std::to_string(o.userID))) {
    std::cerr << "schedule reminders: " << o.userID << " is no employee of the firm\n";
    return 2;
  }
  struct Entry {
    int32_t scheduleID, clientDataID, contactID, totalNum;
    Date dueDate;
  };
  std::vector<Entry> entries;
  {
    Rows rows(db,
              "SELECT ScheduleID, ClientNum, ContactIDNum, totalNum, DueDate FROM Schedule WHERE "
              "EmployeeAssigned = '" +
                  Replace(name, "'", "''") + "' ORDER BY ScheduleID;");
    auto number = [](const Variant& v) { return v.isNull() ? -1 : CLng(v); };
    for (; !rows.atEnd(); rows.next()) {
      const Variant due = rows["DueDate"];
      entries.push_back({CLng(rows["ScheduleID"]), number(rows["ClientNum"]),
                         number(rows["ContactIDNum"]), number(rows["totalNum"]),
                         due.isNull() ? Today() : CDate(due)});
    }
  }
  int added = 0;
  for (const Entry& e : entries) {
    const int32_t before = maxReminderID(db);
    if (!checkToSchedulePopup(e.clientDataID, e.contactID, e.scheduleID, e.totalNum, e.dueDate))
      continue;
    Rows stored(db,
                "SELECT ReminderID, ReminderDate, ReminderTime, TextBody FROM Reminders WHERE "
                "ReminderID > " +
                    std::to_string(before) + " ORDER BY ReminderID;");
    for (; !stored.atEnd(); stored.next(), ++added) {
      std::cout << "reminder " << text(stored["ReminderID"]) << " for schedule entry "
                << e.scheduleID << ": " << text(stored["ReminderDate"]) << " "
                << timeText(stored["ReminderTime"]) << ": " << text(stored["TextBody"]) << "\n";
    }
  }
  std::cout << added << " reminders added for " << entries.size() << " schedule entries of " << name
            << "\n";
  return errors.lastError() ? 1 : 0;
}

int run(const ScheduleOptions& o, int (*job)(const ScheduleOptions&, LoggingErrorService&)) {
  std::shared_ptr<LoggingErrorService> errors = setUp(o);
  if (!errors) return 2;
  int code = 2;
  try {
    code = job(o, *errors);
  } catch (const RuntimeError& e) {
    std::cerr << "schedule: " << e.description() << "\n";
  }
  references().DatabaseReference.reset();
  return code;
}

}  // namespace

void registerSchedule(CLI::App& app) {
  auto o = std::make_shared<ScheduleOptions>();
  auto* cmd = app.add_subcommand(
      "schedule", "Tasks for schedule entries, entries for tasks, free times and reminders");
  cmd->add_option("--db", o->db, "The practice database file")->required();
  cmd->add_option("--today", o->today, "Today's date, YYYY-MM-DD");
  cmd->add_flag("--go-on", o->goOn,
                "After an error, go on with the routine's next step instead of leaving it");
  cmd->require_subcommand(1);
  cmd->fallthrough();

  auto* taskForCmd =
      cmd->add_subcommand("task-for", "Gives a schedule entry its task, or moves the one it has");
  taskForCmd->add_option("schedule-id", o->scheduleID, "The schedule entry (ScheduleID)")
      ->required();
  taskForCmd->callback([o] { setExitCode(run(*o, taskFor)); });

  auto* entryForCmd = cmd->add_subcommand(
      "entry-for", "Gives a task its schedule entry, or synchronises the one it has");
  entryForCmd->add_option("task-id", o->taskID, "The task (TaskID)")->required();
  entryForCmd->callback([o] { setExitCode(run(*o, entryFor)); });

  auto* bestTimeCmd =
      cmd->add_subcommand("best-time", "Prints the free time the calendar search finds");
  bestTimeCmd->add_option("--user", o->userID, "The user (an employee's ContactID)")->required();
  bestTimeCmd->add_option("--date", o->date, "The day, YYYY-MM-DD")->required();
  bestTimeCmd->add_option("--hours", o->hours, "The estimated time in hours")->required();
  bestTimeCmd->add_option("--kind", o->kind, "1 tasks (default), 0 appointments, 2 time entries");
  bestTimeCmd->callback([o] { setExitCode(run(*o, bestTime)); });

  auto* remindersCmd = cmd->add_subcommand(
      "reminders", "Stores the pop-up reminders of the user's schedule entries");
  remindersCmd->add_option("--user", o->userID, "The user (an employee's ContactID)")->required();
  remindersCmd->callback([o] { setExitCode(run(*o, reminders)); });
}

}  // namespace nvwm::cli
