// What a task carries over to its project step.
#include "scheduling/project_steps.h"

#include <gtest/gtest.h>

#include "scheduling_fixture.h"
#include "services/message_pumps.h"

namespace nvwm {
namespace {

using testing::SchedulingFixture;

std::string stepRow(SchedulingFixture& f, int id) {
  return f.stored(
      "SELECT coalesce(StepUserID, 'N') || '|' || coalesce(Closed, 'N') || '|' || "
      "coalesce(PersonCompletedUserIDNum, 'N') || '|' || coalesce(DateCompleted, 'N') FROM "
      "CompanyProjectSteps WHERE CompanyProjectStepID = " +
      std::to_string(id) + ";");
}

class ProjectStepsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    f.exec(
        "INSERT INTO CompanyProjectSteps (CompanyProjectStepID, StepUserID, Closed) VALUES "
        "(4, 8, 1), (5, 8, 0);");
  }
  SchedulingFixture f;
};

TEST_F(ProjectStepsTest, TheStepTakesTheTasksUser) {
  changeEmployeeAssignedInCompanyProjectStepID(4, 7);
  EXPECT_EQ(stepRow(f, 4), "7|1|N|N");
  EXPECT_EQ(stepRow(f, 5), "8|0|N|N");
  EXPECT_EQ(f.db().sqlSent(),
            std::vector<std::string>{
                "SELECT CompanyProjectSteps.CompanyProjectStepID, CompanyProjectSteps.StepUserID "
                "FROM CompanyProjectSteps WHERE CompanyProjectSteps.CompanyProjectStepID=4;"});
  EXPECT_EQ(f.db().queries[0].lockType, 3);
  EXPECT_EQ(f.errors().entered.front(),
            "Tallowbrook.exe-modProjectsSetupCtrl-changeEmployeeAssignedInCompanyProjectStepID");
}

TEST_F(ProjectStepsTest, ClosingOrReopeningWritesTheCompletionPersonAndDateAlike) {
  changeClosedStatusInCompanyProjectStepID(4, false, 7);
  EXPECT_EQ(stepRow(f, 4), "8|0|7|" + testing::storedDate(2026, 11, 18));
  changeClosedStatusInCompanyProjectStepID(5, true, 7);
  EXPECT_EQ(stepRow(f, 5), "8|1|7|" + testing::storedDate(2026, 11, 18));
  EXPECT_TRUE(f.errorNumbers().empty());
}

TEST_F(ProjectStepsTest, NoRowOrNoConnectionChangesNothing) {
  changeEmployeeAssignedInCompanyProjectStepID(9, 7);
  changeClosedStatusInCompanyProjectStepID(-1, true, 7);
  f.db().connected = false;
  changeEmployeeAssignedInCompanyProjectStepID(4, 7);
  changeClosedStatusInCompanyProjectStepID(4, false, 7);
  EXPECT_EQ(stepRow(f, 4), "8|1|N|N");
  EXPECT_EQ(f.db().queries.size(), 2u);
  EXPECT_TRUE(f.errorNumbers().empty());
}

TEST_F(ProjectStepsTest, AFailureSetsTheMousePointerBackBeforeItIsReported) {
  auto pump = std::make_shared<CountingMessagePump>();
  references().messagePump = pump;
  references().DatabaseReference =
      std::make_shared<testing::FailingDatabaseService>(f.dbService(), "setField", 1);
  changeClosedStatusInCompanyProjectStepID(4, true, 7);
  EXPECT_EQ(pump->pointersSet(), std::vector<int32_t>{0});
  EXPECT_EQ(f.errorNumbers().size(), 1u);
  changeEmployeeAssignedInCompanyProjectStepID(4, 7);  // the second setField passes
  EXPECT_EQ(pump->pointersSet(), std::vector<int32_t>{0});
  EXPECT_EQ(stepRow(f, 4), "7|1|N|N");
}

}  // namespace
}  // namespace nvwm
