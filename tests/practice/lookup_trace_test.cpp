// Each lookup pushes its own log tag and pops it: the trace the error service sees.
#include <gtest/gtest.h>

#include <functional>

#include "practice/lookups.h"
#include "practice_fixture.h"

namespace nvwm {
namespace {

using testing::databaseFunctionsTag;
using testing::PracticeFixture;

const std::string kBuilderTag =
    "Tallowbrook.exe-modRemittanceTypes-getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum";

TEST(LookupTraceTest, EachRoutineEntersItsOwnTagAndLeavesTheStackClean) {
  const struct {
    const char* routine;
    std::function<void()> call;
  } cases[] = {
      {"getCompanyIDFromDocketID", [] { getCompanyIDFromDocketID(1); }},
      {"getCompanyIDFromScheduleID", [] { getCompanyIDFromScheduleID(1); }},
      {"getEmployeeAssignedNameFromFirmContactID",
       [] { getEmployeeAssignedNameFromFirmContactID(-1); }},
      {"getTaskIDFromScheduleID", [] { getTaskIDFromScheduleID(1); }},
      {"getAccountantFirmID", [] { getAccountantFirmID(); }},
      {"getDefaultContactIDFromCompanyID", [] { getDefaultContactIDFromCompanyID(1); }},
      {"isContactDefaultContact", [] { isContactDefaultContact(1, 2); }},
      {"validEmployeeID", [] { validEmployeeID("1"); }},
      {"validAppointmentID", [] { validAppointmentID("x"); }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.routine);
    PracticeFixture f;
    c.call();
    EXPECT_EQ(f.errors().entered, std::vector<std::string>{databaseFunctionsTag(c.routine)});
    EXPECT_TRUE(f.errors().stack.empty());
  }
}

TEST(LookupTraceTest, NestedLookupsStackTheirTags) {
  PracticeFixture f;
  getDefaultEstTimeFromUserIDAndTotalNumAndScheduleNum(4, 101, 2);
  EXPECT_EQ(f.errors().entered,
            (std::vector<std::string>{
                databaseFunctionsTag("getDefaultEstTimeFromUserIDAndTotalNumAndScheduleNum"),
                databaseFunctionsTag("getDefaultEstTimeFromTotalNumAndScheduleNum"), kBuilderTag,
                databaseFunctionsTag("getScheduleTypeIDFromTotalNumAndScheduleNum"), kBuilderTag}));
  EXPECT_TRUE(f.errors().stack.empty());
}

TEST(LookupTraceTest, AnErrorIsShownUnderTheFailingRoutinesTag) {
  PracticeFixture f;
  // The firm-wide estimate fails on the builder's "" inside the per-user estimate.
  getDefaultEstTimeFromUserIDAndTotalNumAndScheduleNum(4, 50, 1);
  ASSERT_EQ(f.errors().shownWithStack.size(), 2u);  // the firm-wide and the type-ID lookups
  EXPECT_EQ(f.errors().shownWithStack[0],
            (std::vector<std::string>{
                databaseFunctionsTag("getDefaultEstTimeFromUserIDAndTotalNumAndScheduleNum"),
                databaseFunctionsTag("getDefaultEstTimeFromTotalNumAndScheduleNum")}));
  EXPECT_EQ(f.errors().shownWithStack[1],
            (std::vector<std::string>{
                databaseFunctionsTag("getDefaultEstTimeFromUserIDAndTotalNumAndScheduleNum"),
                databaseFunctionsTag("getScheduleTypeIDFromTotalNumAndScheduleNum")}));

  PracticeFixture g;
  getUserIDFromEmployeeAssignedName("O'Brien");
  ASSERT_EQ(g.errors().shownWithStack.size(), 1u);
  EXPECT_EQ(g.errors().shownWithStack[0],
            std::vector<std::string>{databaseFunctionsTag("getUserIDFromEmployeeAssignedName")});
}

TEST(LookupTraceTest, ResumeNextGoesOnToTheCloseAndLeavesTheDefault) {
  PracticeFixture f;
  f.errors().action = 1;
  f.exec("INSERT INTO Schedule (ScheduleID, ClientNum) VALUES (7, NULL);");
  EXPECT_EQ(getClientDataIDFromScheduleID(7), -1);
  EXPECT_EQ(f.errorNumbers(), std::vector<int32_t>{94});
  EXPECT_TRUE(f.db().stillOpen().empty());
}

}  // namespace
}  // namespace nvwm
