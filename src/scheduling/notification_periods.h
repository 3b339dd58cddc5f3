// modNotifiationPeriods (the module's name as it is spelled): how many days before a due date
// the firm's own, in-house due date lies.
#pragma once

#include <cstdint>
#include <string>

namespace nvwm {

// The InHouseDueDatePeriod of the ScheduleTypes row of totalNum and scheduleNum (scheduleNum
// -1: the type's row whose ScheduleNum is Null), read through parseInHouseDueDatePeriod; 3
// without a row, a Null or a connection. Unless keepSign, the period is made negative (0
// stays 0), so that it can be added to a due date: by default 3 days earlier.
// Pushes "Tallowbrook.exe-modNotifiationPeriods-getInHouseDueDatePeriod"; a failing step goes
// to the error service and the period as it stands comes back. Not thread-safe.
int16_t getInHouseDueDatePeriod(int32_t totalNum, int32_t scheduleNum, bool keepSign);

namespace scheduling {

// The period of a stored text: 3 for a text that is not numeric, 0 for a number too large for
// 16 bits (the failed conversion is passed over), -3 below -365, 3 above 365, the number
// itself (rounded half to even) from -365 to 365. Private to getInHouseDueDatePeriod; no log
// tag, never raises.
int16_t parseInHouseDueDatePeriod(const std::string& text);

}  // namespace scheduling
}  // namespace nvwm
