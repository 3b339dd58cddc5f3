// The association checks make the missing half when asked, once: a second call finds it.
#include <gtest/gtest.h>

#include "practice/lookups.h"
#include "scheduling_fixture.h"

namespace nvwm {
namespace {

using testing::SchedulingFixture;
using testing::storedDate;

class AssociationCreationTest : public ::testing::Test {
 protected:
  void SetUp() override {
    f.addPractice();
    f.exec(
        "INSERT INTO Schedule (ScheduleID, ClientNum, ScheduleName, EmployeeAssigned, "
        "inHouseDueDate, totalNum, scheduleNum, CompanyProjectStepIDNum, ScheduleNotes) VALUES "
        "(20, 9, 'GST Return', 'Ann Ledger', '" +
        storedDate(2026, 11, 20) +
        "', 101, 0, -1, 'Call first');"
        "INSERT INTO Tasks (TaskID, UserIDNum, CompanyIDNum, Subject, DateFrom, hideInTasks, "
        "CompanyProjectStepIDNum, notifyType) VALUES (30, 7, 6, 'Review books', '" +
        storedDate(2026, 11, 27) + "', 0, -1, 0);");
  }
  bool onlyRead() {
    for (const auto& q : f.db().queries)
      if (q.lockType != 1) return false;
    return true;
  }
  SchedulingFixture f;
};

TEST_F(AssociationCreationTest, AScheduleEntryWithoutATaskGetsOneOnce) {
  EXPECT_TRUE(isThisScheduleEntryAssociatedWithTask(20, true));
  EXPECT_EQ(f.stored("SELECT count(*) FROM Tasks WHERE ScheduleIDNum = 20;"), "1");
  EXPECT_EQ(f.stored("SELECT Subject || '|' || DateFrom FROM Tasks WHERE ScheduleIDNum = 20;"),
            "GST Return|" + storedDate(2026, 11, 20));
  f.db().clear();
  EXPECT_TRUE(isThisScheduleEntryAssociatedWithTask(20, true));
  EXPECT_EQ(f.count("Tasks"), 2);
  EXPECT_TRUE(onlyRead());
  EXPECT_TRUE(f.errorNumbers().empty());
}

TEST_F(AssociationCreationTest, ATaskWithoutAnEntryGetsOneOnce) {
  EXPECT_TRUE(isThisTaskAssociatedWithScheduleEntry(30, true));
  EXPECT_EQ(f.count("Schedule"), 2);
  const std::string entry = f.stored("SELECT ScheduleIDNum FROM Tasks WHERE TaskID = 30;");
  EXPECT_EQ(f.stored("SELECT ScheduleName || '|' || ClientNum FROM Schedule WHERE ScheduleID = " +
                     entry + ";"),
            "Review books|10");
  f.db().clear();
  EXPECT_TRUE(isThisTaskAssociatedWithScheduleEntry(30, true));
  EXPECT_EQ(f.count("Schedule"), 2);
  EXPECT_TRUE(onlyRead());
}

TEST_F(AssociationCreationTest, EachSideFindsWhatTheOtherMade) {
  ASSERT_TRUE(isThisScheduleEntryAssociatedWithTask(20, true));
  const int32_t task = std::stoi(f.stored("SELECT TaskID FROM Tasks WHERE ScheduleIDNum = 20;"));
  EXPECT_TRUE(isThisTaskAssociatedWithScheduleEntry(task, true));

  ASSERT_TRUE(isThisTaskAssociatedWithScheduleEntry(30, true));
  const int32_t entry = std::stoi(f.stored("SELECT ScheduleIDNum FROM Tasks WHERE TaskID = 30;"));
  EXPECT_TRUE(isThisScheduleEntryAssociatedWithTask(entry, true));

  EXPECT_EQ(f.count("Schedule"), 2);
  EXPECT_EQ(f.count("Tasks"), 2);
}

TEST_F(AssociationCreationTest, ALinkThatPointsNowhereIsRepaired) {
  f.exec("UPDATE Tasks SET ScheduleIDNum = 77 WHERE TaskID = 30;");
  EXPECT_FALSE(isThisTaskAssociatedWithScheduleEntry(30, false));
  EXPECT_TRUE(isThisTaskAssociatedWithScheduleEntry(30, true));
  EXPECT_NE(f.stored("SELECT ScheduleIDNum FROM Tasks WHERE TaskID = 30;"), "77");
  EXPECT_EQ(f.count("Schedule"), 2);
}

TEST_F(AssociationCreationTest, WithoutCreateIfMissingNothingIsWritten) {
  EXPECT_FALSE(isThisTaskAssociatedWithScheduleEntry(30, false));
  EXPECT_FALSE(isThisScheduleEntryAssociatedWithTask(20, false));
  EXPECT_TRUE(onlyRead());
  EXPECT_EQ(f.count("Schedule"), 1);
  EXPECT_EQ(f.count("Tasks"), 1);
}

TEST_F(AssociationCreationTest, WhatDoesNotExistIsNotMade) {
  EXPECT_FALSE(isThisTaskAssociatedWithScheduleEntry(31, true));
  EXPECT_FALSE(isThisScheduleEntryAssociatedWithTask(21, true));
  EXPECT_FALSE(isThisScheduleEntryAssociatedWithTask(-1, true));
  EXPECT_EQ(f.count("Schedule"), 1);
  EXPECT_EQ(f.count("Tasks"), 1);
}

}  // namespace
}  // namespace nvwm
