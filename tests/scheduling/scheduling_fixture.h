// One practice database for one scheduling test: made from the schema in a temporary file,
// reached by the library through a recording DatabaseReference, with a recording error
// service, the stand-in variant and date utilities, a frozen clock and a scripted random source.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "runtime/clock.h"
#include "runtime/date.h"
#include "scheduling/random_source.h"
#include "support/practice_db.h"
#include "support/recording_database.h"
#include "support/test_support.h"

namespace nvwm::testing {

// Draws the numbers it was given, in turn (the last one again when they run out), and records
// the clock value of each reseed.
class ScriptedRandom : public RandomSource {
 public:
  std::vector<float> draws{0.0f};
  std::vector<Date> reseeds;
  size_t next = 0;

  void reseed(Date now) override { reseeds.push_back(now); }
  float draw() override {
    const float r = draws[next < draws.size() ? next : draws.size() - 1];
    ++next;
    return r;
  }
};

class SchedulingFixture {
 public:
  // Today is Wednesday 18 November 2026, 10:15 am, unless a test sets the clock.
  SchedulingFixture();
  ~SchedulingFixture();
  SchedulingFixture(const SchedulingFixture&) = delete;
  SchedulingFixture& operator=(const SchedulingFixture&) = delete;

  // Runs SQL straight on the database file, not through the library.
  void exec(const std::string& sql);
  // The practice most cases stand on: employee 7 "Ann Ledger" (the user), employee 8 "Bo
  // Tally", company 5 "Maple Leaf Bakery Inc." with client record 9, company 6 "Cedar Books"
  // with client record 10, contact 12 "Sam Baker", and the custom label rows as a new practice
  // has them.
  void addPractice();
  // The first column of the first row as SQLite stores it ("NULL", "" without a row).
  std::string stored(const std::string& sql);
  // The number of rows of a table.
  int count(const std::string& table);

  RecordingDatabase& db() { return *db_; }
  const std::shared_ptr<RecordingDatabase>& dbService() { return db_; }
  RecordingErrorService& errors() { return *refs_.errors; }
  FixedClock& clock() { return *clock_; }
  ScriptedRandom& random() { return *random_; }
  // The numbers of the errors that reached the error service, in order.
  std::vector<int32_t> errorNumbers() const;
  // The errors with their descriptions and the trace stack each was shown with, for failure
  // messages.
  std::string describeErrors() const;

 private:
  ScopedReferences refs_;
  PracticeDb practice_;
  std::shared_ptr<RecordingDatabase> db_;
  std::shared_ptr<FixedClock> clock_;
  std::shared_ptr<ScriptedRandom> random_;
};

// A time of day (whole part zero) and a date at midnight.
inline Date at(int hour, int minute) { return Date::fromTime(hour, minute, 0); }
inline Date day(int year, int month, int dayOfMonth) {
  return Date::fromYmd(year, month, dayOfMonth);
}
// As the database stores them: '1899-12-30 09:30:00', '2026-11-23 00:00:00'.
std::string storedTime(int hour, int minute);
std::string storedDate(int year, int month, int dayOfMonth);

}  // namespace nvwm::testing
