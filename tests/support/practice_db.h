// A practice database for one test: a temporary file made from data/schema.sql, rows inserted
// with plain SQL, and the database service over it.
//
//   PracticeDb db;
//   db.exec("INSERT INTO Companies (CompanyID, CompanyName) VALUES (1, 'Maple Leaf Bakery');");
//   std::shared_ptr<SqliteDatabase> svc = db.service();
#pragma once

#include <memory>
#include <ostream>
#include <string>

#include "services/sqlite/sqlite_database.h"
#include "support/test_support.h"

struct sqlite3;

namespace nvwm {
// Shows a Variant in test failures as its type code and text ("8:Guelph", "1:Null").
void PrintTo(const Variant& v, std::ostream* os);
}  // namespace nvwm

namespace nvwm::testing {

class PracticeDb {
 public:
  PracticeDb();
  ~PracticeDb();
  PracticeDb(const PracticeDb&) = delete;
  PracticeDb& operator=(const PracticeDb&) = delete;

  // Runs SQL on the file through a connection of its own (several statements allowed). Fails
  // the test with SQLite's message on an error.
  void exec(const std::string& sql);
  // The first column of the first row as SQLite stores it, as text: "NULL" for Null, numbers
  // as SQLite prints them, "" when there is no row. For checking stored forms.
  std::string stored(const std::string& sql);
  // The service over the file, made at the first call; the same one after.
  std::shared_ptr<SqliteDatabase> service();
  const std::string& path() const { return path_; }

 private:
  TempDir dir_;
  std::string path_;
  sqlite3* db_ = nullptr;
  std::shared_ptr<SqliteDatabase> service_;
};

}  // namespace nvwm::testing

#include "services/sqlite/forwarding_database_service.h"

namespace nvwm::testing {

// A database service that fails on purpose: the Nth call of an operation (or of any
// operation, with an empty name) raises RuntimeError 3001 "Database error: injected failure",
// and the calls are counted. The calls before and after go through to the target.
class FailingDatabaseService : public ForwardingDatabaseService {
 public:
  FailingDatabaseService(std::shared_ptr<DatabaseService> target, std::string operation,
                         int failingCall)
      : ForwardingDatabaseService(std::move(target)),
        operation_(std::move(operation)),
        failingCall_(failingCall) {}

  // Calls of the watched operation so far (every call when the name is empty).
  int calls() const { return calls_; }

 protected:
  void beforeCall(const char* operation) override;

 private:
  std::string operation_;
  int failingCall_;
  int calls_ = 0;
};

}  // namespace nvwm::testing
