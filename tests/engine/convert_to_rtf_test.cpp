// convertToRTF: line breaks in a value become RTF paragraphs, or commas without word wrap; and
// removeBlankLinesFromRTFText, which gives back what it was given.
#include <gtest/gtest.h>

#include "engine/engine_test_support.h"

namespace nvwm::testing {
namespace {

class ConvertToRtfTest : public EngineTest {};

TEST_F(ConvertToRtfTest, LineBreaksByWordWrap) {
  const struct {
    const char* value;
    bool wordWrap;
    const char* expected;
  } cases[] = {
      {"A\r\nB", true, "A\\par \r\nB"},
      {"12 Main St\r\nGuelph\r\nON", true, "12 Main St\\par \r\nGuelph\\par \r\nON"},
      {"\r\n", true, "\\par \r\n"},
      {"A\r\nB", false, "A, \r\nB"},
      {"12 Main St\r\nGuelph\r\nON", false, "12 Main St, \r\nGuelph, \r\nON"},
      // Only carriage return and line feed together make a line break.
      {"A\nB\rC", true, "A\nB\rC"},
      {"A\nB\rC", false, "A\nB\rC"},
      {"no break", true, "no break"},
      {"no break", false, "no break"},
      {"", true, ""},
      {"Société\r\n🦆\xff", true, "Société\\par \r\n🦆\xff"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.value) + (c.wordWrap ? " (wrap)" : " (no wrap)"));
    rtb->UseWordWrap(c.wordWrap);
    EXPECT_EQ(rtb->convertToRTF(c.value), c.expected);
  }
  EXPECT_TRUE(env.refs.errors->errors.empty());
}

TEST_F(ConvertToRtfTest, RemoveBlankLinesGivesBackItsArgument) {
  for (const char* text : {"{\\rtf1 a\\par \r\n\\par \r\nb}", "", "\xff\\par \r\n"}) {
    std::string argument = text;
    EXPECT_EQ(rtb->removeBlankLinesFromRTFText(argument), text);
    EXPECT_EQ(argument, text);
  }
}

}  // namespace
}  // namespace nvwm::testing
