// The stand-ins the library creates for itself unless a host or a test installs others.
#include "host/references.h"

namespace nvwm {

ServiceFactories makeDefaultServiceFactories() {
  ServiceFactories f;
  return f;
}

}  // namespace nvwm
