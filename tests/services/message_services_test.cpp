#include "services/message_services.h"

#include <gtest/gtest.h>

#include <sstream>

namespace nvwm {
namespace {

TEST(RecordingMessageServiceTest, KeepsEveryCallWithAllNineArguments) {
  RecordingMessageService service;
  auto form = std::make_shared<Object>();
  // The template test pass's call, then one with every value changed.
  service.showMessage("Field «X» is unknown", 7, Variant(form), 0, false, 101, false, "", false);
  service.showMessage("second", 1, Variant(), 2, true, 5, true, "Title", true);
  ASSERT_EQ(service.calls().size(), 2u);
  const auto& first = service.calls()[0];
  EXPECT_EQ(first.message, "Field «X» is unknown");
  EXPECT_EQ(first.style, 7);
  EXPECT_EQ(first.parentForm.objectValue(), form);
  EXPECT_EQ(first.defaultButton, 0);
  EXPECT_FALSE(first.option1);
  EXPECT_EQ(first.iconId, 101);
  EXPECT_FALSE(first.option2);
  EXPECT_EQ(first.title, "");
  EXPECT_FALSE(first.option3);
  const auto& second = service.calls()[1];
  EXPECT_EQ(second.style, 1);
  EXPECT_TRUE(second.parentForm.isEmpty());
  EXPECT_EQ(second.defaultButton, 2);
  EXPECT_TRUE(second.option1);
  EXPECT_EQ(second.iconId, 5);
  EXPECT_TRUE(second.option2);
  EXPECT_EQ(second.title, "Title");
  EXPECT_TRUE(second.option3);
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
