// replaceUnfoundMergeFieldsWithBlanks: what no row filled is cut out, in one form only.
#include <gtest/gtest.h>

#include "engine/engine_test_support.h"

namespace nvwm::testing {
namespace {

class BlankLeftoversTest : public EngineTest {
 protected:
  // The text after blanking, and whether the routine reported an error.
  std::pair<std::string, bool> blank(std::string text) {
    bool failed = rtb->replaceUnfoundMergeFieldsWithBlanks(text);
    return {text, failed};
  }
};

TEST_F(BlankLeftoversTest, CutsEveryLeftover) {
  const struct {
    const char* text;
    const char* expected;
  } cases[] = {
      {"a «x» b «y» c", "a  b  c"},
      {"«x» and «x»", " and "},
      {"«X» «x»", " "},
      {"«(Due Date,d)» left", " left"},
      {"«a «b» c", " c"},
      {"no placeholder", "no placeholder"},
      {"a » b", "a » b"},
      {"", ""},
      {"«»", ""},
      {"Société «x» 🦆", "Société  🦆"},
      {"a «\xff» b\xfe", "a  b\xfe"},
      // The escaped form is cut up to the backslash of its closing delimiter: "'bb" stays.
      {"{\\rtf1 a \\'abx\\'bb b}", "{\\rtf1 a 'bb b}"},
      {"{\\rtf1 \\'ABx\\'BB \\'aby\\'bb}", "{\\rtf1 'BB 'bb}"},
      // Leftovers in both forms: only the plain ones go.
      {"«x» \\'aby\\'bb", " \\'aby\\'bb"},
      {"\\'aby\\'bb «x»", "\\'aby\\'bb "},
      // An unclosed opening delimiter at the very start stays, and the loop ends.
      {"«abc", "«abc"},
      {"«x»«abc", "«abc"},
      {"«abc \\'aby\\'bb", "«abc \\'aby\\'bb"},
      {"\\'ababc", "\\'ababc"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    auto [text, failed] = blank(c.text);
    EXPECT_EQ(text, c.expected);
    EXPECT_FALSE(failed);
  }
  EXPECT_TRUE(env.refs.errors->errors.empty());
}

TEST_F(BlankLeftoversTest, UnclosedDelimiterAfterTheStartIsAnError) {
  const struct {
    const char* text;
    const char* expected;
  } cases[] = {
      {"x «abc", "x «abc"},
      {"«x» then «abc", " then «abc"},
      // RTF cut off inside the closing escape.
      {"{\\rtf1 \\'abName\\'b", "{\\rtf1 \\'abName\\'b"},
  };
  for (int32_t action : {2, 1}) {
    for (const auto& c : cases) {
      SCOPED_TRACE(std::string(c.text) + " with action " + std::to_string(action));
      env.refs.errors->action = action;
      env.refs.errors->errors.clear();
      auto [text, failed] = blank(c.text);
      EXPECT_EQ(text, c.expected);
      EXPECT_TRUE(failed);
      ASSERT_FALSE(errorNumbers().empty());
      EXPECT_EQ(errorNumbers().front(), 5);
    }
  }
}

TEST_F(BlankLeftoversTest, EmptyCatalogueLeavesEverything) {
  auto empty = env.makeCatalogue();
  std::string text = "a «x» \\'aby\\'bb";
  EXPECT_FALSE(empty->replaceUnfoundMergeFieldsWithBlanks(text));
  EXPECT_EQ(text, "a «x» \\'aby\\'bb");
}

TEST_F(BlankLeftoversTest, ManyLeftoversInALongText) {
  std::string text, expected;
  for (int i = 0; i < 500; ++i) {
    text += "line " + std::to_string(i) + " «field " + std::to_string(i) + "»\n";
    expected += "line " + std::to_string(i) + " \n";
  }
  auto [result, failed] = blank(text);
  EXPECT_EQ(result, expected);
  EXPECT_FALSE(failed);
}

}  // namespace
}  // namespace nvwm::testing
