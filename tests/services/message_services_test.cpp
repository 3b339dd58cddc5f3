#include "services/message_services.h"

#include <gtest/gtest.h>

#include <sstream>

namespace nvwm {
namespace {

TEST(TerminalMessageServiceTest, WritesTitleAndMessage) {
  std::ostringstream out;
  TerminalMessageService service(out);
  service.showMessage("No title here", 7, Variant(), 0, false, 101, false, "", false);
  service.showMessage("Line one\r\nLine two", 0, Variant(), 0, false, 0, false, "Check", false);
  EXPECT_EQ(out.str(), "No title here\n\n[Check]\nLine one\r\nLine two\n\n");
}

}  // namespace
}  // namespace nvwm
