// The overbooked day: an hour drawn at random, weighted towards 1:00 pm.
#include <gtest/gtest.h>

#include "runtime/format.h"
#include "scheduling/calendar_search.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::SchedulingFixture;

const Date kMonday = testing::day(2026, 11, 23);

TEST(RandomHourTest, DrawsAreTurnedIntoHoursOnSeventeenTimesRPlusNine) {
  const struct {
    float draw;
    const char* expected;
  } cases[] = {
      {0.0f, "9:00 am"},    {0.1f, "10:00 am"}, {0.17f, "11:00 am"},      {0.18f, "12:00 pm"},
      {0.2353f, "1:00 pm"}, {0.3f, "2:00 pm"},  {0.47f, "4:00 pm"},       {0.5f, "5:00 pm"},
      {0.5295f, "1:00 pm"}, {0.75f, "1:00 pm"}, {0.99999994f, "1:00 pm"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.draw);
    SchedulingFixture f;
    f.random().draws = {c.draw};
    // An empty day and an estimate longer than the working day.
    const Date best = getBestTimeInCalendarForSpecificDayAndUser(1, 7, kMonday, 8.5f);
    EXPECT_EQ(formatDate(best, "h:nn am/pm"), c.expected);
  }
}

TEST(RandomHourTest, NineOfEverySeventeenDrawsEndAtOnePm) {
  SchedulingFixture f;
  int onePm = 0;
  constexpr int kDraws = 1700;
  for (int i = 0; i < kDraws; ++i) {
    f.random().draws = {(static_cast<float>(i) + 0.5f) / kDraws};
    f.random().next = 0;
    const Date best = getBestTimeInCalendarForSpecificDayAndUser(1, 7, kMonday, 9.0f);
    if (formatDate(best, "h:nn am/pm") == "1:00 pm") ++onePm;
  }
  EXPECT_EQ(onePm, 900);
}

TEST(RandomHourTest, AFullDayDrawsAndTheGeneratorIsReseededFromTheClockEachCall) {
  SchedulingFixture f;
  f.exec("INSERT INTO Tasks (UserIDNum, DateFrom, TimeFrom, TimeTo) VALUES (7, '" +
         testing::storedDate(2026, 11, 23) + "', '1899-12-30 09:00:00', '1899-12-30 16:30:00');");
  f.random().draws = {0.1f, 0.3f};
  EXPECT_EQ(
      formatDate(getBestTimeInCalendarForSpecificDayAndUser(1, 7, kMonday, 1.0f), "h:nn am/pm"),
      "10:00 am");
  const Date later = Date::fromParts({2026, 11, 18, 16, 0, 0});
  f.clock().set(later);
  EXPECT_EQ(
      formatDate(getBestTimeInCalendarForSpecificDayAndUser(1, 7, kMonday, 1.0f), "h:nn am/pm"),
      "2:00 pm");
  ASSERT_EQ(f.random().reseeds.size(), 2u);
  EXPECT_EQ(f.random().reseeds[0], Date::fromParts({2026, 11, 18, 10, 15, 0}));
  EXPECT_EQ(f.random().reseeds[1], later);
}

TEST(RandomHourTest, TheDefaultSourceRepeatsItsDrawForTheSameClockValue) {
  ClockSeededRandom source;
  const Date now = Date::fromParts({2026, 11, 18, 10, 15, 0});
  source.reseed(now);
  const float first = source.draw();
  source.reseed(now);
  EXPECT_EQ(source.draw(), first);
  for (int i = 0; i < 1000; ++i) {
    const float r = source.draw();
    ASSERT_GE(r, 0.0f);
    ASSERT_LT(r, 1.0f);
  }
}

}  // namespace
}  // namespace nvwm
