#include "support/practice_db.h"

#include <sqlite3.h>

#include "runtime/convert.h"
#include "services/sqlite/practice_schema.h"

namespace nvwm {

void PrintTo(const Variant& v, std::ostream* os) {
  *os << static_cast<int>(v.type()) << ":";
  if (v.isNull()) {
    *os << "Null";
  } else if (v.isObject() || v.isMissing()) {
    *os << "?";
  } else {
    *os << CStr(v);
  }
}

}  // namespace nvwm

namespace nvwm::testing {

PracticeDb::PracticeDb() : path_(dir_.file("practice.db")) {
  createPracticeDatabase(path_);
  if (sqlite3_open_v2(path_.c_str(), &db_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK)
    ADD_FAILURE() << "can't open " << path_ << ": " << sqlite3_errmsg(db_);
  sqlite3_busy_timeout(db_, 5000);
}

PracticeDb::~PracticeDb() {
  service_.reset();
  sqlite3_close(db_);
}

void PracticeDb::exec(const std::string& sql) {
  char* message = nullptr;
  if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
    ADD_FAILURE() << "SQL failed: " << (message ? message : "?") << "\n  in: " << sql;
  }
  sqlite3_free(message);
}

std::string PracticeDb::stored(const std::string& sql) {
  sqlite3_stmt* st = nullptr;
  std::string out;
  if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &st, nullptr) != SQLITE_OK) {
    ADD_FAILURE() << "SQL failed: " << sqlite3_errmsg(db_) << "\n  in: " << sql;
    return out;
  }
  if (sqlite3_step(st) == SQLITE_ROW) {
    if (sqlite3_column_type(st, 0) == SQLITE_NULL) {
      out = "NULL";
    } else {
      out = reinterpret_cast<const char*>(sqlite3_column_text(st, 0));
    }
  }
  sqlite3_finalize(st);
  return out;
}

std::shared_ptr<SqliteDatabase> PracticeDb::service() {
  if (!service_) service_ = std::make_shared<SqliteDatabase>(path_);
  return service_;
}

}  // namespace nvwm::testing

namespace nvwm::testing {

void FailingDatabaseService::beforeCall(const char* operation) {
  if (!operation_.empty() && operation_ != operation) return;
  if (++calls_ == failingCall_) raise(ErrorNumber::kDatabaseError, "injected failure");
}

}  // namespace nvwm::testing
