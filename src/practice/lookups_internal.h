// Internal: pieces of the practice lookups that other routines of the module build on.
#pragma once

#include <cstdint>

#include "practice/lookup_shape.h"

namespace nvwm::practice {

// What the company's contact links say about its default contact.
struct DefaultContactLinks {
  int32_t contactID = -1;        // the first link marked default with a contact; -1 when none
  bool companyHasLinks = false;  // the company has at least one link
};

// The read side of getDefaultContactIDFromCompanyID, as steps of the caller's routine: without
// a connection nothing is read; otherwise the company's links are walked in recordset order
// until the first one with a non-Null ContactIDNum and DefaultContact True. A Null
// DefaultContact on a row with a contact raises 94 into the routine's handler.
DefaultContactLinks readDefaultContactLinks(LookupRoutine& r, int32_t companyID);

}  // namespace nvwm::practice
