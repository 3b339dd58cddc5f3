// The error tail of the address routines: their log tags, and errorsAreSuppressed asked first.
#include <gtest/gtest.h>

#include <functional>

#include "addresses/address_blocks.h"
#include "host/references.h"
#include "practice_fixture.h"

namespace nvwm {
namespace {

using testing::PracticeFixture;

std::string tag(const std::string& routine) {
  return "Tallowbrook.exe-modFormatAddresses-" + routine;
}

AddressRecord someAddress() {
  AddressRecord r;
  r.city = "Kingston";
  r.phone = "(613) 555-0142";
  return r;
}

TEST(FormatAddressesErrorTailTest, EachRoutineEntersItsOwnTagAndNestsTheOnesItCalls) {
  int32_t companyID = -1;
  const struct {
    const char* routine;
    std::function<void()> call;
    std::vector<std::string> entered;
  } cases[] = {
      {"clearAddressFields",
       [] {
         AddressRecord r;
         clearAddressFields(r);
       },
       {tag("clearAddressFields")}},
      {"createAddress",
       [] { createAddress(someAddress(), true, true); },
       {tag("createAddress"), tag("convertToRTF")}},
      {"createAddressWithContactInfo",
       [] { createAddressWithContactInfo(someAddress(), true, true); },
       {tag("createAddressWithContactInfo"), tag("createAddress"), tag("convertToRTF"),
        tag("convertToRTF")}},
      {"convertToRTF", [] { convertToRTF("a\r\nb"); }, {tag("convertToRTF")}},
      {"createBusinessContactAddress",
       [&] { createBusinessContactAddress(5, false, -1, companyID, true, true, true, true); },
       {tag("createBusinessContactAddress"), tag("clearAddressFields"),
        "Tallowbrook.exe-modDatabaseFunctions-validEmployeeID",
        "Tallowbrook.exe-modDatabaseFunctions-validContactID"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.routine);
    PracticeFixture f;
    c.call();
    EXPECT_EQ(f.errors().entered, c.entered);
    EXPECT_TRUE(f.errors().stack.empty());
    EXPECT_TRUE(f.errors().errors.empty());
  }
}

TEST(FormatAddressesErrorTailTest, SuppressedErrorsLeaveAtOnceWithoutReport) {
  PracticeFixture f;
  references().variantUtility.reset();  // the Null test now fails with 91
  f.errors().suppressed = true;
  EXPECT_EQ(createAddress(someAddress(), true, false), "");
  EXPECT_TRUE(f.errors().errors.empty());
  EXPECT_TRUE(f.errors().shownWithStack.empty());
  EXPECT_TRUE(f.errors().stack.empty());

  f.errors().suppressed = false;
  EXPECT_EQ(createAddress(someAddress(), true, false), "");
  ASSERT_EQ(f.errors().errors.size(), 1u);
  EXPECT_EQ(f.errors().errors[0].number(), 91);
  EXPECT_EQ(f.errors().shownWithStack[0], std::vector<std::string>{tag("createAddress")});
}

TEST(FormatAddressesErrorTailTest, ResumeNextGoesOnWithTheNextLine) {
  PracticeFixture f;
  f.errors().action = 1;
  references().variantUtility.reset();
  // Every test of a field fails and is passed over: nothing is written, nothing raises.
  EXPECT_EQ(createAddress(someAddress(), true, false), "");
  EXPECT_EQ(f.errors().errors.size(), 7u);
}

TEST(FormatAddressesErrorTailTest, WithoutAnErrorServiceNothingIsDone) {
  PracticeFixture f;
  references().errorClass.reset();
  EXPECT_EQ(createAddress(someAddress(), true, false), "");
  EXPECT_EQ(convertToRTF("a\r\nb"), "");
  AddressRecord r = someAddress();
  clearAddressFields(r);
  EXPECT_EQ(r.city, "Kingston");
}

}  // namespace
}  // namespace nvwm
