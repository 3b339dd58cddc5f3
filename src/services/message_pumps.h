// Public: the message pumps: a no-op one (the default: a library on Linux has no window
// messages to let through) and a counting one for tests.
#pragma once

#include <cstdint>
#include <vector>

#include "host/controls.h"

namespace nvwm {

class NoOpMessagePump : public MessagePump {
 public:
  void processPendingMessages() override {}
  void setMousePointer(int32_t /*pointer*/) override {}
};

// Counts the calls and keeps every pointer set, in order. Not thread-safe.
class CountingMessagePump : public MessagePump {
 public:
  void processPendingMessages() override { ++processed_; }
  void setMousePointer(int32_t pointer) override { pointers_.push_back(pointer); }

  int processedCount() const { return processed_; }
  const std::vector<int32_t>& pointersSet() const { return pointers_; }
  // The pointer last set; 0 (default) when none was.
  int32_t mousePointer() const { return pointers_.empty() ? 0 : pointers_.back(); }

 private:
  int processed_ = 0;
  std::vector<int32_t> pointers_;
};

}  // namespace nvwm
