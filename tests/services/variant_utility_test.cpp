#include "services/variant_utility.h"

#include <gtest/gtest.h>

#include <memory>

namespace nvwm {
namespace {

TEST(VariantUtilityTest, IsNullValueForEverythingThatHoldsNothing) {
  StandardVariantUtility utility;
  const struct {
    Variant value;
    bool isNull;
  } cases[] = {
      {Variant::null(), true},
      {Variant(), true},
      {Variant::missing(), true},
      {Variant(""), true},
      {Variant(std::shared_ptr<Object>()), true},  // an object variable set to nothing
      {Variant(std::make_shared<Object>()), false},
      {Variant(" "), false},  // blanks are text; the address blocks trim them
      {Variant("0"), false},
      {Variant(int32_t{0}), false},
      {Variant(false), false},
      {Variant(Date()), false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(debugString(c.value));
    EXPECT_EQ(utility.isNullValue(c.value), c.isNull);
  }
}

TEST(VariantUtilityTest, CleanFieldNameKeepsBlanksAndTakesOutWhatColumnsRefuse) {
  StandardVariantUtility utility;
  const struct {
    const char* title;
    const char* name;
  } cases[] = {
      {"Company Name", "Company Name"},
      {"Federal Corp. Tax Number", "Federal Corp Tax Number"},
      {"P.E.I. Corp. Tax Number", "PEI Corp Tax Number"},
      {"Contact & Spouse Name", "Contact & Spouse Name"},
      {"Contact Business Alt. Phone", "Contact Business Alt Phone"},
      {"Time(hrs/Min) #1", "Time(hrs/Min) #1"},
      {"Hey! [Name] `x`", "Hey Name x"},
      {"Say \"hi\" \\ there", "Say hi  there"},
      {"Tab\there\nnewline", "Tabherenewline"},
      {"  Padded Name  ", "Padded Name"},
      {"Société Générale", "Société Générale"},
      {"«Company»", "«Company»"},
      {"🦆 Duck", "🦆 Duck"},
      {"bad\xff"
       "byte",
       "badbyte"},
      {"...", "Field"},
      {"", "Field"},
      {"Custom Field 1:", "Custom Field 1:"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.title);
    EXPECT_EQ(utility.cleanFieldName(c.title), c.name);
  }
}

}  // namespace
}  // namespace nvwm
