#include "services/message_services.h"

#include <gtest/gtest.h>

#include <sstream>

namespace nvwm {
namespace {

// One call as "message|style|form|button|option1|icon|option2|title|option3".
std::string describe(const RecordingMessageService::Call& c) {
  auto b = [](bool v) { return v ? "True" : "False"; };
  return c.message + "|" + std::to_string(c.style) + "|" + debugString(c.parentForm) + "|" +
         std::to_string(c.defaultButton) + "|" + b(c.option1) + "|" + std::to_string(c.iconId) +
         "|" + b(c.option2) + "|" + c.title + "|" + b(c.option3);
}

TEST(RecordingMessageServiceTest, KeepsEveryCallWithAllNineArguments) {
  RecordingMessageService service;
  // The template test pass's call, then one with every value changed.
  service.showMessage("Field «X» is unknown", 7, Variant("form"), 0, false, 101, false, "", false);
  service.showMessage("second", 1, Variant(), 2, true, 5, true, "Title", true);
  ASSERT_EQ(service.calls().size(), 2u);
  EXPECT_EQ(describe(service.calls()[0]),
            "Field «X» is unknown|7|String \"form\"|0|False|101|False||False");
  EXPECT_EQ(describe(service.calls()[1]), "second|1|Empty|2|True|5|True|Title|True");
  EXPECT_EQ(service.messages(), (std::vector<std::string>{"Field «X» is unknown", "second"}));
  service.clear();
  EXPECT_TRUE(service.calls().empty());
}

TEST(TerminalMessageServiceTest, WritesTitleAndMessage) {
  std::ostringstream out;
  TerminalMessageService service(out);
  service.showMessage("No title here", 7, Variant(), 0, false, 101, false, "", false);
  service.showMessage("Line one\r\nLine two", 0, Variant(), 0, false, 0, false, "Check", false);
  EXPECT_EQ(out.str(), "No title here\n\n[Check]\nLine one\r\nLine two\n\n");
}

}  // namespace
}  // namespace nvwm
