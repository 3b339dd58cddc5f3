// Public: the message box service (MsgboxClass) that a host hands the library.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "runtime/variant.h"

namespace nvwm {

// Shows a message to the user. The template test pass calls it with: the message; 7; the
// host's main form; 0; False; 101; False; ""; False. The numeric and boolean options belong to
// the host's dialog library; a stand-in may ignore them. May raise RuntimeError.
class MessageService {
 public:
  virtual ~MessageService() = default;
  virtual void showMessage(const std::string& message, int32_t style, const Variant& parentForm,
                           int32_t defaultButton, bool option1, int32_t iconId, bool option2,
                           const std::string& title, bool option3) = 0;
};

}  // namespace nvwm
