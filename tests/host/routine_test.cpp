#include "host/routine.h"

#include <gtest/gtest.h>

#include "support/test_support.h"

namespace nvwm {
namespace {

using testing::ScopedReferences;

constexpr const char* kTag = "Tallowbrook.exe-modTest-threeSteps";

// A routine of three steps whose second fails; records which steps ran.
std::vector<int> threeSteps(bool skipFromStart = false,
                            Routine::ExtraHandlerSteps extra = nullptr) {
  std::vector<int> ran;
  Routine r(kTag, std::move(extra));
  if (skipFromStart) r.skipErrors();
  r.step([&] { ran.push_back(1); });
  r.step([&] {
    ran.push_back(2);
    raise(ErrorNumber::kTypeMismatch, "step two");
  });
  r.step([&] { ran.push_back(3); });
  return ran;
}

TEST(RoutineTest, ActionDecidesWhatFollowsTheFailingStep) {
  const struct {
    int32_t action;
    std::vector<int> ran;
  } cases[] = {
      {1, {1, 2, 3}},  // resume next
      {2, {1, 2}},     // exit
      {3, {1, 2}},     // end of program acts as exit
      {0, {1, 2}},     // anything else exits
      {7, {1, 2}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.action);
    ScopedReferences refs;
    refs.errors->action = c.action;
    EXPECT_EQ(threeSteps(), c.ran);
    ASSERT_EQ(refs.errors->errors.size(), 1u);
    EXPECT_EQ(refs.errors->errors[0].number(), 13);
    // The error was shown while the routine's tag was on the stack, and the stack is clean after.
    ASSERT_EQ(refs.errors->shownWithStack.size(), 1u);
    EXPECT_EQ(refs.errors->shownWithStack[0], std::vector<std::string>{kTag});
    EXPECT_TRUE(refs.errors->stack.empty());
  }
}

TEST(RoutineTest, WithoutErrorServiceTheRoutineDoesNothing) {
  ScopedReferences refs;
  references().errorClass = nullptr;
  bool extraRan = false;
  EXPECT_TRUE(threeSteps(false, [&](const RuntimeError& e) {
                extraRan = true;
                EXPECT_EQ(e.number(), 91);
              }).empty());
  // The failure at enterProc still reaches the routine's own handler steps.
  EXPECT_TRUE(extraRan);
  EXPECT_TRUE(refs.errors->entered.empty());
  EXPECT_TRUE(refs.errors->errors.empty());
}

TEST(RoutineTest, SkipErrorsPassesOverEachFailingStepWithoutReporting) {
  ScopedReferences refs;
  refs.errors->action = 2;
  EXPECT_EQ(threeSteps(true), (std::vector<int>{1, 2, 3}));
  EXPECT_TRUE(refs.errors->errors.empty());
  EXPECT_TRUE(refs.errors->stack.empty());
}

TEST(RoutineTest, ExtraHandlerStepsRunBeforeTheErrorServiceIsTold) {
  ScopedReferences refs;
  std::vector<std::string> order;
  auto errors = refs.errors;
  threeSteps(false, [&](const RuntimeError&) {
    order.push_back("extra:" + std::to_string(errors->errors.size()));
  });
  EXPECT_EQ(order, std::vector<std::string>{"extra:0"});
  EXPECT_EQ(refs.errors->errors.size(), 1u);
}

TEST(RoutineTest, SuppressedErrorsLeaveWithoutReporting) {
  ScopedReferences refs;
  refs.errors->suppressed = true;
  std::vector<int> ran;
  {
    Routine r("Tallowbrook.exe-modFormatAddresses-x");
    r.askSuppressionFirst();
    r.step([&] { raise(ErrorNumber::kOverflow); });
    r.step([&] { ran.push_back(2); });
  }
  EXPECT_TRUE(ran.empty());
  EXPECT_TRUE(refs.errors->errors.empty());
  EXPECT_TRUE(refs.errors->stack.empty());
}

TEST(RoutineTest, NestedRoutinesKeepTheTraceStack) {
  ScopedReferences refs;
  std::vector<std::string> seen;
  {
    Routine outer("A-m-outer");
    outer.step([&] {
      Routine inner("A-m-inner");
      inner.step([&] { raise(ErrorNumber::kSubscriptOutOfRange); });
    });
    outer.step([&] { seen = refs.errors->stack; });
  }
  ASSERT_EQ(refs.errors->shownWithStack.size(), 1u);
  EXPECT_EQ(refs.errors->shownWithStack[0], (std::vector<std::string>{"A-m-outer", "A-m-inner"}));
  // The inner routine handled its own error; the outer one went on.
  EXPECT_EQ(seen, std::vector<std::string>{"A-m-outer"});
  EXPECT_TRUE(refs.errors->stack.empty());
}

TEST(RoutineTest, ForeignExceptionsBecomeRuntimeErrors) {
  ScopedReferences refs;
  {
    Routine r("A-m-r");
    r.step([] { throw std::out_of_range("boom"); });
  }
  ASSERT_EQ(refs.errors->errors.size(), 1u);
  EXPECT_EQ(refs.errors->errors[0].number(), 51);
  EXPECT_EQ(refs.errors->errors[0].description(), "boom");
}

}  // namespace
}  // namespace nvwm

namespace nvwm {
namespace {

TEST(RoutineOwnServiceTest, EntersTheObjectsServiceNotTheLibrarys) {
  testing::ScopedReferences refs;
  testing::RecordingErrorService own;
  {
    Routine r("Tallowbrook.exe-clsTest-own", Routine::OwnErrorService{&own});
    r.step([] { raise(ErrorNumber::kTypeMismatch, "x"); });
  }
  EXPECT_EQ(own.entered, (std::vector<std::string>{"Tallowbrook.exe-clsTest-own"}));
  EXPECT_EQ(own.errors.size(), 1u);
  EXPECT_TRUE(own.stack.empty());
  EXPECT_TRUE(refs.errors->entered.empty());
}

TEST(RoutineOwnServiceTest, WithoutServiceTheBodyRunsAndAnErrorGoesToTheExit) {
  testing::ScopedReferences refs;
  std::vector<int> ran;
  {
    Routine r("Tallowbrook.exe-clsTest-none", Routine::OwnErrorService{nullptr});
    r.step([&] { ran.push_back(1); });
    r.step([&] {
      ran.push_back(2);
      raise(ErrorNumber::kTypeMismatch, "x");
    });
    r.step([&] { ran.push_back(3); });
  }
  EXPECT_EQ(ran, (std::vector<int>{1, 2}));
  EXPECT_TRUE(refs.errors->entered.empty());
}

}  // namespace
}  // namespace nvwm
