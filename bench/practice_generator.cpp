#include "practice_generator.h"

#include <sqlite3.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "runtime/error.h"
#include "services/sqlite/practice_schema.h"

namespace nvwm::bench {
namespace {

class Writer {
 public:
  explicit Writer(const std::string& path) {
    if (sqlite3_open(path.c_str(), &db_) != SQLITE_OK) fail();
    exec("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; BEGIN;");
  }
  ~Writer() {
    for (auto* s : statements_) sqlite3_finalize(s);
    sqlite3_close(db_);
  }
  void exec(const char* sql) {
    if (sqlite3_exec(db_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) fail();
  }
  sqlite3_stmt* prepare(const char* sql) {
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v2(db_, sql, -1, &s, nullptr) != SQLITE_OK) fail();
    statements_.push_back(s);
    return s;
  }
  // Binds the values (ints, or texts; nullptr for Null) and runs the statement once.
  void run(sqlite3_stmt* s, std::initializer_list<std::string> texts, std::vector<int64_t> ints) {
    int i = 1;
    for (int64_t v : ints) sqlite3_bind_int64(s, i++, v);
    for (const std::string& t : texts) sqlite3_bind_text(s, i++, t.c_str(), -1, SQLITE_TRANSIENT);
    if (sqlite3_step(s) != SQLITE_DONE) fail();
    sqlite3_reset(s);
  }

 private:
  [[noreturn]] void fail() { raise(ErrorNumber::kDatabaseError, sqlite3_errmsg(db_)); }
  sqlite3* db_ = nullptr;
  std::vector<sqlite3_stmt*> statements_;
};

std::string date(int year, int month, int day) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%04d-%02d-%02d 00:00:00", year, month, day);
  return buf;
}

}  // namespace

void generatePractice(const std::string& path, const PracticeSize& size) {
  createPracticeDatabase(path);
  Writer w(path);
  const char* const employees[] = {"Margaret Okafor", "Daniel Fournier", "Priya Raman",
                                   "Tom Whitlock"};
  auto* employee =
      w.prepare("INSERT INTO AccountantEmployeeInfo (ContactID, DisplayName) VALUES (?1, ?2)");
  for (int e = 0; e < 4; ++e) w.run(employee, {employees[e]}, {901 + e});

  auto* company = w.prepare(
      "INSERT INTO Companies (CompanyID, CompanyName, City, Province, PostalCode, Country, "
      "OfficeNumber) VALUES (?1, ?2, ?3, 'Ontario', ?4, 'Canada', ?5)");
  auto* notes = w.prepare("INSERT INTO CompaniesNotes (CompanyNum, BusinessNotes) VALUES (?1, ?2)");
  auto* client = w.prepare(
      "INSERT INTO ClientData (ClientDataID, CompanyIDNum, ShowThisClient, ActiveStatus, "
      "BusinessNumber, YearEndDate) VALUES (?1, ?2, 1, 1, ?3, ?4)");
  const char* const satellites[] = {
      "INSERT INTO ClientOptions (ClientOptionID) VALUES (?1)",
      "INSERT INTO AccountingServices (AccountingServiceID) VALUES (?1)",
      "INSERT INTO CorpTaxInfo (CorpTaxInfoID) VALUES (?1)",
      "INSERT INTO LawInfo (LawInfoID) VALUES (?1)",
      "INSERT INTO OtherInfo (OtherInfoID) VALUES (?1)",
      "INSERT INTO WSIB_EHTInfo (WSIB_EHTInfoID) VALUES (?1)",
      "INSERT INTO ClientUSInfo (ClientUSInfoID) VALUES (?1)",
  };
  std::vector<sqlite3_stmt*> satellite;
  for (const char* sql : satellites) satellite.push_back(w.prepare(sql));
  auto* contact = w.prepare(
      "INSERT INTO Contacts (ContactID, DisplayName, FirstName, LastName, BusinessPhone_Main) "
      "VALUES (?1, ?2, ?3, ?4, ?5)");
  auto* link = w.prepare(
      "INSERT INTO ContactLinks (CompanyNum, ContactIDNum, DefaultContact) VALUES (?1, ?2, ?3)");
  auto* schedule = w.prepare(
      "INSERT INTO Schedule (ScheduleID, ClientNum, totalNum, scheduleNum, ScheduleName, "
      "EmployeeAssigned, DueDate, Class, Closed) VALUES (?1, ?2, ?3, 1, ?4, ?5, ?6, 'Custom', 0)");
  auto* task = w.prepare(
      "INSERT INTO Tasks (TaskID, ScheduleIDNum, UserIDNum, CompanyIDNum, Subject, DateFrom, "
      "TimeFrom, TimeTo, EstimatedTime) VALUES (?1, ?2, ?3, ?4, ?5, ?6, '1899-12-30 09:00:00', "
      "'1899-12-30 10:00:00', 1.5)");

  int64_t contactId = 1000;
  int64_t scheduleId = 1;
  for (int64_t n = 1; n <= size.companies; ++n) {
    std::string name = "Client Company " + std::to_string(n);
    std::string phone = "(613) 555-" + std::to_string(1000 + n % 9000);
    w.run(company, {name, "Kingston", "K7L " + std::to_string(n % 10) + "B2", phone}, {n});
    w.run(notes, {"Synthetic client"}, {n});
    w.run(client, {std::to_string(800000000 + n), date(2025, 12, 31)}, {n, n});
    for (auto* s : satellite) w.run(s, {}, {n});
    for (int k = 0; k < size.contactsPerCompany; ++k) {
      ++contactId;
      std::string first = "First" + std::to_string(contactId);
      std::string last = "Last" + std::to_string(n);
      w.run(contact, {first + " " + last, first, last, phone}, {contactId});
      w.run(link, {}, {n, contactId, k == 0 ? 1 : 0});
    }
    for (int s = 0; s < size.scheduleItemsPerClient; ++s, ++scheduleId) {
      int month = 1 + static_cast<int>((n + s) % 12);
      int64_t user = 901 + (n + s) % 4;
      std::string due = date(2026, month, 28);
      w.run(schedule, {"GST/HST return " + std::to_string(s + 1), employees[user - 901], due},
            {scheduleId, n, 101 + s % 14});
      if (s < size.tasksPerClient)
        w.run(task, {"GST/HST return", date(2026, month, 14)}, {scheduleId, scheduleId, user, n});
    }
  }
  w.exec("COMMIT;");
}

const std::string& cachedPractice(const std::string& name, const PracticeSize& size) {
  static std::map<std::string, std::string> files;
  std::string key = name + "-" + std::to_string(size.companies);
  auto it = files.find(key);
  if (it != files.end()) return it->second;
  std::filesystem::path dir = std::filesystem::temp_directory_path() / "nvwm-bench";
  std::filesystem::create_directories(dir);
  std::string path = (dir / (key + ".db")).string();
  std::filesystem::remove(path);
  generatePractice(path, size);
  return files.emplace(key, path).first->second;
}

}  // namespace nvwm::bench
