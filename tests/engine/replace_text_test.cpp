// replaceText: every occurrence of a placeholder, ignoring case; in RTF a blank keeps the value
// off what stands before the placeholder, decided once at its first occurrence.
#include <gtest/gtest.h>

#include "engine/engine_test_support.h"

namespace nvwm::testing {
namespace {

class ReplaceTextTest : public EngineTest {};

TEST_F(ReplaceTextTest, ReplacesEveryOccurrence) {
  const struct {
    const char* text;
    const char* placeholder;
    const char* value;
    bool isRTF;
    const char* expected;
  } cases[] = {
      // Plain text: every occurrence, ignoring case, nothing added.
      {"Dear «Name»,", "«Name»", "Smith", false, "Dear Smith,"},
      {"«A» and «a»", "«a»", "x", false, "x and x"},
      {"(«Name»)", "«Name»", "Smith", false, "(Smith)"},
      {"«Name» first", "«Name»", "Smith", false, "Smith first"},
      {"no placeholder", "«Name»", "Smith", false, "no placeholder"},
      {"", "«Name»", "Smith", false, ""},
      {"«Société» ok", "«SOCIÉTÉ»", "S", false, "S ok"},
      // RTF: after a blank the value goes in as it is, after anything else with a blank first.
      {"{\\rtf1 Dear «Name»}", "«Name»", "Smith", true, "{\\rtf1 Dear Smith}"},
      {"{\\rtf1 \\b«Name»}", "«Name»", "Smith", true, "{\\rtf1 \\b Smith}"},
      {"{\\rtf1 («Name»)}", "«Name»", "Smith", true, "{\\rtf1 ( Smith)}"},
      {"{\\rtf1 Dear «N»,«N»}", "«N»", "Smith", true, "{\\rtf1 Dear Smith,Smith}"},
      {"{\\rtf1 a,«N» «N»}", "«N»", "Smith", true, "{\\rtf1 a, Smith  Smith}"},
      {"{\\rtf1 «n» «N»}", "«N»", "S", true, "{\\rtf1 S S}"},
      // The plain form given for a text that holds the escaped one, in any case.
      {"{\\rtf1 Dear \\'abName\\'bb}", "«Name»", "Smith", true, "{\\rtf1 Dear Smith}"},
      {"{\\rtf1 Dear \\'ABname\\'BB}", "«Name»", "Smith", true, "{\\rtf1 Dear Smith}"},
      {"{\\rtf1 x\\'abName\\'bb}", "\\'abName\\'bb", "Smith", true, "{\\rtf1 x Smith}"},
      // Both forms in the text: the form found first is the only one replaced.
      {"{\\rtf1 «N» \\'abN\\'bb}", "«N»", "S", true, "{\\rtf1 S \\'abN\\'bb}"},
      {"{\\rtf1 «N» \\'abN\\'bb}", "\\'abN\\'bb", "S", true, "{\\rtf1 «N» S}"},
      // The escaped form is never translated back in plain mode.
      {"\\'abName\\'bb", "«Name»", "Smith", false, "\\'abName\\'bb"},
      {"{\\rtf1 none}", "«Name»", "Smith", true, "{\\rtf1 none}"},
      // A value is put in as it is and never searched again.
      {"{\\rtf1 «N»}", "«N»", "«N»!", true, "{\\rtf1 «N»!}"},
      {"«N»", "«N»", "«N» «N»", false, "«N» «N»"},
      // Characters count as characters: what stands before may be several bytes or bad ones.
      {"é«N»", "«N»", "S", true, "é S"},
      {"🦆 «N»", "«N»", "S", true, "🦆 S"},
      {"\xff«N»\xfe", "«N»", "S", true, "\xff S\xfe"},
      {"\xff«N»\xfe", "«N»", "S", false, "\xffS\xfe"},
      {"{\\rtf1 \\'ab\\'bb «N»}", "«N»", "\xe2\x82", true, "{\\rtf1 \\'ab\\'bb \xe2\x82}"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.text) + " / " + c.placeholder + (c.isRTF ? " (RTF)" : ""));
    std::string text = c.text;
    bool isRTF = c.isRTF;
    EXPECT_FALSE(rtb->replaceText(text, c.placeholder, c.value, isRTF));
    EXPECT_EQ(text, c.expected);
  }
  EXPECT_TRUE(env.refs.errors->errors.empty());
}

TEST_F(ReplaceTextTest, RtfPlaceholderAtTheVeryStartIsAnErrorAndChangesNothing) {
  for (const char* start : {"«Name» here", "\\'abName\\'bb here"}) {
    SCOPED_TRACE(start);
    env.refs.errors->errors.clear();
    std::string text = start;
    bool isRTF = true;
    EXPECT_TRUE(rtb->replaceText(text, "«Name»", "Smith", isRTF));
    EXPECT_EQ(text, start);
    EXPECT_EQ(errorNumbers(), std::vector<int32_t>{5});
  }
  // Going on after the error changes nothing either.
  env.refs.errors->action = 1;
  std::string text = "«Name» here";
  bool isRTF = true;
  EXPECT_TRUE(rtb->replaceText(text, "«Name»", "Smith", isRTF));
  EXPECT_EQ(text, "«Name» here");
}

TEST_F(ReplaceTextTest, ReportsUnderItsOwnTag) {
  std::string text = "«N»";
  bool isRTF = true;
  rtb->replaceText(text, "«N»", "S", isRTF);
  ASSERT_EQ(env.refs.errors->shownWithStack.size(), 1u);
  EXPECT_EQ(env.refs.errors->shownWithStack[0].back(),
            "Tallowbrook.exe-clsInsertFieldsInRTB-replaceText");
  EXPECT_TRUE(env.refs.errors->stack.empty());
}

}  // namespace
}  // namespace nvwm::testing
