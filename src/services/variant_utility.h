// Public: the value tests and text helpers (host/utilities.h VariantUtility).
#pragma once

#include <memory>
#include <string>

#include "host/utilities.h"

namespace nvwm {

// Neither member raises. Thread-safe apart from setErrorClass.
class StandardVariantUtility : public VariantUtility {
 public:
  // Kept for the contract; neither helper has anything to report.
  void setErrorClass(std::shared_ptr<ErrorService> errorClass) override;
  // True for Null, Empty, Missing, "" and an object variable set to nothing. A text of blanks is
  // not null: callers that want it empty trim it themselves, as the address blocks do.
  bool isNullValue(const Variant& value) override;
  // The merge table's columns are the catalogue's display names, blanks included ("Company
  // Name"): the merge engine quotes them, and a repeated name gets " 1" appended, so blanks
  // stay. Taken out are the characters that the merge table or a MERGEFIELD instruction can't
  // carry:
  //   . ! ` [ ]   refused in a column name by the merge source engines of old;
  //   "           closes a quoted MERGEFIELD name and an SQL identifier;
  //   \           starts a field switch's escape;
  //   control characters (U+0000..U+001F, U+007F..U+009F) and bytes that are not UTF-8.
  // Blanks at both ends are then trimmed. Letters of any script, digits, blanks and other
  // punctuation ("&", "#", "/", "(", "'") stay: "Federal Corp. Tax Number" gives "Federal Corp
  // Tax Number", "Contact & Spouse Name" stays. A title with nothing left gives "Field", so the
  // result is always a usable column name. The result is not shortened.
  std::string cleanFieldName(const std::string& title) override;

 private:
  std::shared_ptr<ErrorService> errorClass_;
};

}  // namespace nvwm
