#include "host/references.h"

namespace nvwm {

LibraryReferences& references() {
  thread_local LibraryReferences refs;
  return refs;
}

ServiceFactories& factories() {
  thread_local ServiceFactories f = makeDefaultServiceFactories();
  return f;
}

}  // namespace nvwm
