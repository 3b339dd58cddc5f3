#include "library_defaults.h"

#include "host/references.h"
#include "services/default_factories.h"

namespace nvwm {

void installLibraryDefaults() { installDefaultServiceFactories(&makeDefaultServiceFactories); }

namespace {
// Before main, so that a thread's first factories() already sees the defaults.
[[maybe_unused]] const bool kInstalledAtStart = (installLibraryDefaults(), true);
}  // namespace

}  // namespace nvwm
