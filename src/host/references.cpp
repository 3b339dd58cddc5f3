#include "host/references.h"

#include <atomic>

namespace nvwm {

LibraryReferences& references() {
  thread_local LibraryReferences refs;
  return refs;
}

namespace {
std::atomic<ServiceFactoriesMaker> installedMaker{nullptr};
}  // namespace

void installDefaultServiceFactories(ServiceFactoriesMaker make) { installedMaker.store(make); }

ServiceFactories& factories() {
  thread_local ServiceFactories f = [] {
    ServiceFactoriesMaker make = installedMaker.load();
    return make ? make() : ServiceFactories{};
  }();
  return f;
}

}  // namespace nvwm
