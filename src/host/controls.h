// Public: the host's controls that the library drives late bound, by member name, and the
// outside text inserter.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "runtime/variant.h"

namespace nvwm {

// An object driven by member name, as the host's list and rich-text controls are: the list box
// through "Clear", "AddItem", "NewIndex", "ItemData" and "Refresh", the rich-text control
// through "SelStart". Member names are matched without regard to case. An unknown member
// raises 438.
class LateBoundObject : public Object {
 public:
  // Calls a method or reads a property (with its indices, as ItemData(i)).
  virtual Variant invoke(std::string_view member, std::span<const Variant> args = {}) = 0;
  // Writes a property (with its indices, as ItemData(i) = key).
  virtual void put(std::string_view member, std::span<const Variant> indices,
                   const Variant& value) = 0;
};

// Puts text into a rich-text control at a character position (counting from 0, as SelStart
// does). Created for one insertion and released.
class RTBTextInserter {
 public:
  virtual ~RTBTextInserter() = default;
  virtual void insertTextAt(LateBoundObject& richTextControl, const std::string& text,
                            int32_t position) = 0;
};

// Lets pending window messages through during long loops, and sets the screen's mouse pointer
// (0 default, 11 hourglass). No-op by default.
class MessagePump {
 public:
  virtual ~MessagePump() = default;
  virtual void processPendingMessages() = 0;
  virtual void setMousePointer(int32_t pointer) = 0;
};

}  // namespace nvwm
