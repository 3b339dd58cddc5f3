// The end of a piece of work from its estimate, and the order of start and end.
#include <gtest/gtest.h>

#include "runtime/format.h"
#include "scheduling/calendar_search.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::at;
using testing::SchedulingFixture;

TEST(EndTimeTest, AddsTheEstimateOrEndsAtMidnightMeasuredFromTheMidnightBefore) {
  const struct {
    Date start;
    float estimate;
    const char* expected;
  } cases[] = {
      {at(9, 0), 1.5f, "10:30 am"},  {at(9, 0), 0.0f, "9:00 am"},   {at(9, 0), -1.0f, "9:00 am"},
      {at(9, 0), 8.0f, "5:00 pm"},   {at(9, 0), 8.99f, "5:59 pm"},  {at(9, 0), 9.0f, "12:00 am"},
      {at(9, 0), 24.0f, "12:00 am"}, {at(13, 0), 0.25f, "1:15 pm"}, {at(0, 30), 1.0f, "12:00 am"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(formatDate(c.start, "h:nn am/pm") + " + " + std::to_string(c.estimate));
    SchedulingFixture f;
    const Date end = determineEndTimeFromEstimatedTime(c.start, c.estimate);
    EXPECT_EQ(formatDate(end, "h:nn am/pm"), c.expected);
    EXPECT_TRUE(f.errorNumbers().empty());
  }
}

TEST(EndTimeTest, MidnightIsTheValueZero) {
  SchedulingFixture f;
  EXPECT_EQ(determineEndTimeFromEstimatedTime(at(9, 0), 9.0f).serial(), 0.0);
}

TEST(EndTimeTest, VerifyPutsStartAndEndInOrder) {
  SchedulingFixture f;
  Date start = at(9, 0);
  Date end = determineEndTimeFromEstimatedTime(start, 9.0f);
  verifyStartAndEndTime(start, end);
  EXPECT_EQ(start, at(0, 0));
  EXPECT_EQ(end, at(9, 0));

  Date same1 = at(10, 0), same2 = at(10, 0);
  verifyStartAndEndTime(same1, same2);
  EXPECT_EQ(same1, at(10, 0));
  Date early = at(8, 0), late = at(11, 0);
  verifyStartAndEndTime(early, late);
  EXPECT_EQ(early, at(8, 0));
  EXPECT_EQ(late, at(11, 0));
  EXPECT_EQ(f.errors().entered.back(),
            "Tallowbrook.exe-modDatabaseFunctions-verifyStartAndEndTime");
}

TEST(EndTimeTest, WithoutADateUtilityTheStartComesBack) {
  SchedulingFixture f;
  references().dateUtility = nullptr;
  EXPECT_EQ(determineEndTimeFromEstimatedTime(at(9, 0), 1.0f), at(9, 0));
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{91});
}

}  // namespace
}  // namespace nvwm
