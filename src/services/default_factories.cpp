// The stand-ins the library creates for itself unless a host or a test installs others.
#include "host/references.h"
#include "services/document/word_engine.h"

namespace nvwm {

ServiceFactories makeDefaultServiceFactories() {
  ServiceFactories f;
  f.createWordApplication = [] { return document::createDefaultWordApplication(); };
  return f;
}

}  // namespace nvwm
