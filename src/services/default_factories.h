// The stand-ins' set of factories: the objects the library creates for itself unless a host or
// a test installs others (host/references.h).
#pragma once

#include "host/references.h"

namespace nvwm {

ServiceFactories makeDefaultServiceFactories();

}  // namespace nvwm
