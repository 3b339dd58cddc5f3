// The stand-ins the library creates for itself unless a host or a test installs others.
#include "host/references.h"
#include "services/date_utility.h"
#include "services/file_utility.h"
#include "services/id_list.h"
#include "services/variant_utility.h"

namespace nvwm {

ServiceFactories makeDefaultServiceFactories() {
  ServiceFactories f;
  f.createIDList = [] { return std::make_shared<IndexedIDList>(); };
  f.createFileUtility = [] { return std::make_shared<PosixFileUtility>(); };
  f.createVariantUtility = [] { return std::make_shared<StandardVariantUtility>(); };
  f.createDateUtility = [] { return std::make_shared<StandardDateUtility>(); };
  return f;
}

}  // namespace nvwm
