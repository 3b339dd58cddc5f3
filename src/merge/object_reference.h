// Internal: a call on an object reference of clsWordMerge's, as the product's calls go: a
// reference set to nothing raises 91 (object variable not set), naming the reference.
#pragma once

#include "runtime/error.h"

namespace nvwm::merge {

// REQUIRES: Pointer is a shared_ptr or unique_ptr.
template <class Pointer>
auto& required(const Pointer& reference, const char* name) {
  if (!reference) raise(ErrorNumber::kObjectVariableNotSet, name);
  return *reference;
}

}  // namespace nvwm::merge
