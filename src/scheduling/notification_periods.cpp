#include "scheduling/notification_periods.h"

#include "practice/lookups.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "scheduling/routine_steps.h"

namespace nvwm {

using scheduling::field;
using scheduling::LookupRoutine;

namespace {

constexpr int16_t kDefaultPeriod = 3;
constexpr int16_t kLongestPeriod = 365;

}  // namespace

namespace scheduling {

int16_t parseInHouseDueDatePeriod(const std::string& text) {
  const Variant value{text};
  if (!IsNumeric(value)) return kDefaultPeriod;
  int16_t number = 0;
  try {
    number = CInt(value);
  } catch (const RuntimeError&) {
    // Too large for 16 bits: passed over, and the number stays 0.
  }
  if (number < -kLongestPeriod) return -kDefaultPeriod;
  if (number > kLongestPeriod) return kDefaultPeriod;
  return number;
}

}  // namespace scheduling

int16_t getInHouseDueDatePeriod(int32_t totalNum, int32_t scheduleNum, bool keepSign) {
  LookupRoutine r("modNotifiationPeriods", "getInHouseDueDatePeriod");
  int16_t period = kDefaultPeriod;
  if (r.connected()) {
    std::string sql;
    r.step(
        [&] { sql = getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(totalNum, scheduleNum); });
    r.withFirstRow(sql, [&](Handle h) {
      r.step([&] {
        if (!scheduling::fieldIsNull(h, "InHouseDueDatePeriod"))
          period = scheduling::parseInHouseDueDatePeriod(CStr(field(h, "InHouseDueDatePeriod")));
      });
    });
  }
  r.step([&] {
    if (!keepSign && period > 0) period = static_cast<int16_t>(-period);
  });
  return period;
}

}  // namespace nvwm
