#include "scheduling/routine_steps.h"

#include "host/references.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/format.h"

namespace nvwm::scheduling {

DateUtility& dateUtility() {
  DateUtility* utility = references().dateUtility.get();
  if (utility == nullptr) raise(ErrorNumber::kObjectVariableNotSet, "dateUtility");
  return *utility;
}

Variant field(Handle h, std::string_view name) { return database().getField(h, Variant(name)); }

bool fieldIsNull(Handle h, std::string_view name) {
  return variantUtility().isNullValue(field(h, name));
}

std::string idText(int32_t id) { return std::to_string(id); }

std::string textOf(const Variant& value) {
  return value.isNull() || value.isEmpty() ? std::string() : CStr(value);
}

Date throughText(Date value, std::string_view pattern) {
  return CDate(Variant(formatDate(value, pattern)));
}

Date timeOfDayThroughText(const Variant& value) {
  return CDate(Variant(Format(value, "hh:nn am/pm")));
}

std::string booleanText(bool value) { return value ? "True" : "False"; }

}  // namespace nvwm::scheduling
