#include "services/message_services.h"

#include <iostream>

namespace nvwm {

TerminalMessageService::TerminalMessageService() : out_(&std::cerr) {}

void TerminalMessageService::showMessage(const std::string& message, int32_t /*style*/,
                                         const Variant& /*parentForm*/, int32_t /*defaultButton*/,
                                         bool /*option1*/, int32_t /*iconId*/, bool /*option2*/,
                                         const std::string& title, bool /*option3*/) {
  if (!title.empty()) *out_ << "[" << title << "]\n";
  *out_ << message << "\n\n";
  out_->flush();
}

void RecordingMessageService::showMessage(const std::string& message, int32_t style,
                                          const Variant& parentForm, int32_t defaultButton,
                                          bool option1, int32_t iconId, bool option2,
                                          const std::string& title, bool option3) {
  calls_.push_back(
      {message, style, parentForm, defaultButton, option1, iconId, option2, title, option3});
}

std::vector<std::string> RecordingMessageService::messages() const {
  std::vector<std::string> out;
  out.reserve(calls_.size());
  for (const Call& c : calls_) out.push_back(c.message);
  return out;
}

}  // namespace nvwm
