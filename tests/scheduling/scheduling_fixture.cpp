#include "scheduling_fixture.h"

#include <cstdio>

#include "catalogue/catalogue_test_support.h"
#include "services/folder_locale.h"

namespace nvwm::testing {

SchedulingFixture::SchedulingFixture()
    : db_(std::make_shared<RecordingDatabase>(practice_.service())),
      clock_(std::make_shared<FixedClock>(Date::fromParts({2026, 11, 18, 10, 15, 0}))),
      random_(std::make_shared<ScriptedRandom>()) {
  references().DatabaseReference = db_;
  references().variantUtility = factories().createVariantUtility();
  references().dateUtility = factories().createDateUtility();
  references().LocaleReference = std::make_shared<HostLocale>();
  setClock(clock_);
  setRandomSource(random_);
}

SchedulingFixture::~SchedulingFixture() {
  setClock(nullptr);
  setRandomSource(nullptr);
}

void SchedulingFixture::exec(const std::string& sql) { practice_.exec(sql); }

void SchedulingFixture::addPractice() {
  addUntouchedLabels(practice_);
  exec(
      "INSERT INTO AccountantEmployeeInfo (ContactID, DisplayName) VALUES (7, 'Ann Ledger'), "
      "(8, 'Bo Tally');"
      "INSERT INTO Companies (CompanyID, CompanyName) VALUES (5, 'Maple Leaf Bakery Inc.'), "
      "(6, 'Cedar Books');"
      "INSERT INTO ClientData (ClientDataID, CompanyIDNum) VALUES (9, 5), (10, 6);"
      "INSERT INTO Contacts (ContactID, DisplayName) VALUES (12, 'Sam Baker');");
}

std::string SchedulingFixture::stored(const std::string& sql) { return practice_.stored(sql); }

int SchedulingFixture::count(const std::string& table) {
  return std::stoi(practice_.stored("SELECT count(*) FROM " + table + ";"));
}

std::vector<int32_t> SchedulingFixture::errorNumbers() const {
  std::vector<int32_t> numbers;
  for (const RuntimeError& e : refs_.errors->errors) numbers.push_back(e.number());
  return numbers;
}

std::string SchedulingFixture::describeErrors() const {
  std::string text;
  const auto& e = *refs_.errors;
  for (size_t i = 0; i < e.errors.size(); ++i) {
    text += "\n  " + std::to_string(e.errors[i].number()) + " " + e.errors[i].description();
    if (i < e.shownWithStack.size() && !e.shownWithStack[i].empty())
      text += " in " + e.shownWithStack[i].back();
  }
  return text;
}

std::string storedTime(int hour, int minute) {
  char text[32];
  std::snprintf(text, sizeof text, "1899-12-30 %02d:%02d:00", hour, minute);
  return text;
}

std::string storedDate(int year, int month, int dayOfMonth) {
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d 00:00:00", year, month, dayOfMonth);
  return text;
}

}  // namespace nvwm::testing
