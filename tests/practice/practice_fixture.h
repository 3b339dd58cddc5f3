// One practice database for one test case: made from the schema in a temporary file, reached by
// the library through a recording DatabaseReference, with a recording error service.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "support/practice_db.h"
#include "support/recording_database.h"
#include "support/test_support.h"

namespace nvwm::testing {

class PracticeFixture {
 public:
  PracticeFixture();
  PracticeFixture(const PracticeFixture&) = delete;
  PracticeFixture& operator=(const PracticeFixture&) = delete;

  // Runs SQL straight on the database file (the rows a case needs), not through the library.
  void exec(const std::string& sql);
  // The first column of the first row, as SQLite stores it, read straight from the file (see
  // PracticeDb::stored).
  std::string stored(const std::string& sql);

  // The database file (to open a second service on it, read-only for example).
  const std::string& path() const { return practice_.path(); }
  RecordingDatabase& db() { return *db_; }
  RecordingErrorService& errors() { return *refs_.errors; }
  // The numbers of the errors that reached the error service, in order.
  std::vector<int32_t> errorNumbers() const;

 private:
  ScopedReferences refs_;
  PracticeDb practice_;
  std::shared_ptr<RecordingDatabase> db_;
};

// The full log tag of a routine of modDatabaseFunctions.
inline std::string databaseFunctionsTag(const std::string& routine) {
  return "Tallowbrook.exe-modDatabaseFunctions-" + routine;
}

}  // namespace nvwm::testing
