// Public: the default message service (the terminal) and a recording one for tests and hosts
// that show messages their own way.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "host/message_service.h"

namespace nvwm {

// Writes each message to a stream (standard error by default) as one block: the title in
// brackets on its own line when there is one, then the message, then an empty line. The style,
// button, icon and option arguments belong to a dialog library and are ignored. Never waits for
// an answer. Not thread-safe.
class TerminalMessageService : public MessageService {
 public:
  TerminalMessageService();
  // REQUIRES: out outlives the service.
  explicit TerminalMessageService(std::ostream& out) : out_(&out) {}

  void showMessage(const std::string& message, int32_t style, const Variant& parentForm,
                   int32_t defaultButton, bool option1, int32_t iconId, bool option2,
                   const std::string& title, bool option3) override;

 private:
  std::ostream* out_;
};

// Keeps every call with all nine arguments, in order. Not thread-safe.
class RecordingMessageService : public MessageService {
 public:
  struct Call {
    std::string message;
    int32_t style = 0;
    Variant parentForm;
    int32_t defaultButton = 0;
    bool option1 = false;
    int32_t iconId = 0;
    bool option2 = false;
    std::string title;
    bool option3 = false;
  };

  void showMessage(const std::string& message, int32_t style, const Variant& parentForm,
                   int32_t defaultButton, bool option1, int32_t iconId, bool option2,
                   const std::string& title, bool option3) override;

  const std::vector<Call>& calls() const { return calls_; }
  // The messages alone, in order.
  std::vector<std::string> messages() const;
  void clear() { calls_.clear(); }

 private:
  std::vector<Call> calls_;
};

}  // namespace nvwm
