// The sample data lives in data/sample_practice.sql (built in), with @YEAR@, @NEXTYEAR@ and
// @LASTYEAR@ for the years around today; the holidays are computed here because half of them
// move every year.
#include "services/sqlite/sample_practice.h"

#include <filesystem>

#include "runtime/clock.h"
#include "runtime/date.h"
#include "runtime/error.h"
#include "services/sqlite/practice_schema.h"
#include "services/sqlite/sqlite_database.h"
#include "services/sqlite/stored_value.h"

namespace nvwm {

std::string_view embeddedSamplePracticeSql();  // generated from data/sample_practice.sql

namespace {

void replaceAll(std::string& text, std::string_view from, const std::string& to) {
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
}

// Easter Sunday of the Gregorian calendar (the anonymous algorithm).
Date easterSunday(int y) {
  int a = y % 19, b = y / 100, c = y % 100, d = b / 4, e = b % 4, f = (b + 8) / 25;
  int g = (b - f + 1) / 3, h = (19 * a + b - d - g + 15) % 30, i = c / 4, k = c % 4;
  int l = (32 + 2 * e + 2 * i - h - k) % 7, m = (a + 11 * h + 22 * l) / 451;
  int month = (h + l - 7 * m + 114) / 31, day = (h + l - 7 * m + 114) % 31 + 1;
  return Date::fromYmd(y, month, day);
}

// The n-th given weekday (1 = Sunday) of a month.
Date nthWeekday(int y, int month, int weekday, int n) {
  Date first = Date::fromYmd(y, month, 1);
  int offset = (weekday - first.weekday() + 7) % 7;
  return first.addDays(offset + 7 * (n - 1));
}

// Ontario's holidays: type 1 statutory, 2 observed by many employers but not statutory.
std::string holidaysSql(int y) {
  constexpr int kMonday = 2;
  Date may25 = Date::fromYmd(y, 5, 25);
  int back = (may25.weekday() - kMonday + 7) % 7;
  const struct {
    Date date;
    int type;
  } days[] = {
      {Date::fromYmd(y, 1, 1), 1},                  // New Year's Day
      {nthWeekday(y, 2, kMonday, 3), 1},            // Family Day
      {easterSunday(y).addDays(-2), 1},             // Good Friday
      {easterSunday(y).addDays(1), 2},              // Easter Monday
      {may25.addDays(-(back == 0 ? 7 : back)), 1},  // Victoria Day
      {Date::fromYmd(y, 7, 1), 1},                  // Canada Day
      {nthWeekday(y, 8, kMonday, 1), 2},            // Civic Holiday
      {nthWeekday(y, 9, kMonday, 1), 1},            // Labour Day
      {nthWeekday(y, 10, kMonday, 2), 1},           // Thanksgiving
      {Date::fromYmd(y, 11, 11), 2},                // Remembrance Day
      {Date::fromYmd(y, 12, 25), 1},                // Christmas Day
      {Date::fromYmd(y, 12, 26), 1},                // Boxing Day
  };
  std::string sql = "INSERT INTO Holidays (HolidayDate, HolidayType) VALUES ";
  bool first = true;
  for (const auto& d : days) {
    if (!first) sql += ", ";
    first = false;
    sql += "('" + sqlite::dateToStoredText(d.date) + "', " + std::to_string(d.type) + ")";
  }
  return sql + ";";
}

}  // namespace

void writeSamplePractice(const std::string& path) {
  createPracticeDatabase(path);
  try {
    int year = Today().year();
    std::string sql(embeddedSamplePracticeSql());
    replaceAll(sql, "@YEAR@", std::to_string(year));
    replaceAll(sql, "@NEXTYEAR@", std::to_string(year + 1));
    replaceAll(sql, "@LASTYEAR@", std::to_string(year - 1));
    SqliteDatabase db(path);
    db.execute("BEGIN;\n" + sql + "\n" + holidaysSql(year) + "\nCOMMIT;");
  } catch (...) {
    std::error_code ec;
    std::filesystem::remove(path, ec);
    throw;
  }
}

}  // namespace nvwm
