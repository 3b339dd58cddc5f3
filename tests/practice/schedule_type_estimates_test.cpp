// The schedule-type SQL builder and the estimated-time lookups standing on it.
#include <gtest/gtest.h>

#include "practice/lookups.h"
#include "practice_fixture.h"

namespace nvwm {
namespace {

using testing::PracticeFixture;

TEST(ScheduleTypesSqlTest, ThreeFormsAndNothing) {
  const struct {
    int32_t totalNum;
    int32_t scheduleNum;
    const char* sql;
  } cases[] = {
      {101, 2,
       "SELECT ScheduleTypes.* FROM ScheduleTypes WHERE ScheduleTypes.TotalNum=101 AND "
       "ScheduleTypes.ScheduleNum=2;"},
      {100, 1,
       "SELECT ScheduleTypes.* FROM ScheduleTypes WHERE ScheduleTypes.TotalNum=100 AND "
       "ScheduleTypes.ScheduleNum=1;"},
      {100, 0,
       "SELECT ScheduleTypes.* FROM ScheduleTypes WHERE ScheduleTypes.TotalNum=100 AND "
       "ScheduleTypes.ScheduleNum Is Null;"},
      {114, -3,
       "SELECT ScheduleTypes.* FROM ScheduleTypes WHERE ScheduleTypes.TotalNum=114 AND "
       "ScheduleTypes.ScheduleNum Is Null;"},
      {0, 5, "SELECT ScheduleTypes.* FROM ScheduleTypes;"},
      {0, 0, "SELECT ScheduleTypes.* FROM ScheduleTypes;"},
      {50, 1, ""},
      {1, 1, ""},
      {99, 0, ""},
      {-1, 1, ""},
  };
  testing::ScopedReferences refs;
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.totalNum) + ", " + std::to_string(c.scheduleNum));
    EXPECT_EQ(getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(c.totalNum, c.scheduleNum),
              c.sql);
  }
  EXPECT_EQ(
      refs.errors->entered.at(0),
      "Tallowbrook.exe-modRemittanceTypes-getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum");
}

const char* kTypes =
    "INSERT INTO ScheduleTypes (ScheduleTypeID, TotalNum, ScheduleNum, DefaultEstTime) VALUES "
    "(17, 101, 2, 2.5), (18, 100, NULL, 30), (19, 102, 1, NULL);";

TEST(ScheduleTypeIDTest, FirstRowOfTheBuildersSql) {
  const struct {
    int32_t totalNum, scheduleNum, expected;
    size_t errors;
  } cases[] = {
      {101, 2, 17, 0}, {100, 0, 18, 0}, {101, 3, -1, 0}, {0, 9, 17, 0}, {50, 1, -1, 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.totalNum) + ", " + std::to_string(c.scheduleNum));
    PracticeFixture f;
    f.exec(kTypes);
    EXPECT_EQ(getScheduleTypeIDFromTotalNumAndScheduleNum(c.totalNum, c.scheduleNum), c.expected);
    EXPECT_EQ(f.db().sqlSent(),
              std::vector<std::string>{
                  getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(c.totalNum, c.scheduleNum)});
    EXPECT_EQ(f.errorNumbers().size(), c.errors);
  }
}

TEST(DefaultEstTimeTest, FirmWideValueUnclampedOrOneHour) {
  const struct {
    const char* name;
    int32_t totalNum, scheduleNum;
    float expected;
    std::vector<int32_t> errors;
  } cases[] = {
      {"stored 2.5", 101, 2, 2.5f, {}},
      {"stored 30 stays 30", 100, 0, 30.0f, {}},
      {"no matching row", 101, 3, 1.0f, {}},
      {"Null is not tested", 102, 1, 1.0f, {94}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PracticeFixture f;
    f.exec(kTypes);
    EXPECT_EQ(getDefaultEstTimeFromTotalNumAndScheduleNum(c.totalNum, c.scheduleNum), c.expected);
    EXPECT_EQ(f.errorNumbers(), c.errors);
  }
}

TEST(DefaultEstTimeTest, EmptySqlForTotalNumBelow100IsSentAndFails) {
  PracticeFixture f;
  f.exec(kTypes);
  EXPECT_EQ(getDefaultEstTimeFromTotalNumAndScheduleNum(50, 1), 1.0f);
  EXPECT_EQ(f.db().sqlSent(), std::vector<std::string>{""});
  EXPECT_EQ(f.errorNumbers().size(), 1u);
  f.db().clear();
  f.db().connected = false;
  EXPECT_EQ(getDefaultEstTimeFromTotalNumAndScheduleNum(101, 2), 1.0f);
  EXPECT_TRUE(f.db().queries.empty());
}

TEST(UserDefaultEstTimeTest, UsersOwnValueThenTheClamp) {
  const struct {
    const char* name;
    const char* userValue;  // nullptr: the user has no row of their own
    float expected;
  } cases[] = {
      {"own value", "3.25", 3.25f},
      {"above 24", "30", 24.0f},
      {"24 stays", "24", 24.0f},
      {"0 stays", "0", 0.0f},
      {"below 0 is five minutes", "-2", 0.083333336f},
      {"no own row: the firm-wide value", nullptr, 2.5f},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PracticeFixture f;
    f.exec(kTypes);
    if (c.userValue) {
      f.exec(std::string("INSERT INTO UserBillingScheduleTypeInfo (UserIDNum, ScheduleTypeNum, "
                         "DefaultEstTime) "
                         "VALUES (4, 17, ") +
             c.userValue + "), (5, 17, 9), (4, 18, 9);");
    }
    EXPECT_EQ(getDefaultEstTimeFromUserIDAndTotalNumAndScheduleNum(4, 101, 2), c.expected);
    const std::string types = getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(101, 2);
    EXPECT_EQ(
        f.db().sqlSent(),
        (std::vector<std::string>{
            types, types,
            "SELECT UserBillingScheduleTypeInfo.UserIDNum, "
            "UserBillingScheduleTypeInfo.ScheduleTypeNum, "
            "UserBillingScheduleTypeInfo.DefaultEstTime FROM UserBillingScheduleTypeInfo WHERE "
            "UserIDNum=4 And ScheduleTypeNum=17;"}));
    EXPECT_TRUE(f.errorNumbers().empty());
  }
}

TEST(UserDefaultEstTimeTest, TheClampAppliesToTheFirmWideValueToo) {
  PracticeFixture f;
  f.exec(kTypes);
  EXPECT_EQ(getDefaultEstTimeFromTotalNumAndScheduleNum(100, 0), 30.0f);
  EXPECT_EQ(getDefaultEstTimeFromUserIDAndTotalNumAndScheduleNum(4, 100, 0), 24.0f);
}

TEST(UserDefaultEstTimeTest, WithoutConnectionOneHour) {
  PracticeFixture f;
  f.exec(kTypes);
  f.db().connected = false;
  EXPECT_EQ(getDefaultEstTimeFromUserIDAndTotalNumAndScheduleNum(4, 101, 2), 1.0f);
  EXPECT_TRUE(f.db().queries.empty());
}

TEST(UserDefaultEstTimeTest, NullOwnValueIsNotTested) {
  PracticeFixture f;
  f.exec(kTypes);
  f.exec(
      "INSERT INTO UserBillingScheduleTypeInfo (UserIDNum, ScheduleTypeNum, DefaultEstTime) VALUES "
      "(4, 17, NULL);");
  // The firm-wide value was taken before the error; the clamp is skipped with the exit.
  EXPECT_EQ(getDefaultEstTimeFromUserIDAndTotalNumAndScheduleNum(4, 101, 2), 2.5f);
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{94});
}

}  // namespace
}  // namespace nvwm
