// Schedule types and estimated times (hours, single precision).
//
// ScheduleTypes is keyed by two numbers, TotalNum and ScheduleNum; the SQL builder below picks
// the rows of a pair, and three lookups of the common shape read them. Only the per-user
// estimate clamps what it finds: the firm-wide one returns what is stored.
#include "practice/lookup_shape.h"
#include "practice/lookups.h"

namespace nvwm {

using practice::lookupFirstRow;
using practice::LookupRoutine;
using practice::NullTest;

namespace {

// The single float nearest one twelfth of an hour: five minutes.
constexpr float kFiveMinutes = 0.083333336f;
constexpr float kWholeDay = 24.0f;

}  // namespace

std::string getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(int32_t totalNum,
                                                                int32_t scheduleNum) {
  LookupRoutine r("modRemittanceTypes", "getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum");
  std::string result;
  r.step([&] {
    const std::string prefix = "SELECT ScheduleTypes.* FROM ScheduleTypes";
    if (totalNum >= 100 && scheduleNum >= 1) {
      result = prefix + " WHERE ScheduleTypes.TotalNum=" + std::to_string(totalNum) +
               " AND ScheduleTypes.ScheduleNum=" + std::to_string(scheduleNum) + ";";
    } else if (totalNum >= 100) {
      result = prefix + " WHERE ScheduleTypes.TotalNum=" + std::to_string(totalNum) +
               " AND ScheduleTypes.ScheduleNum Is Null;";
    } else if (totalNum == 0) {
      result = prefix + ";";
    }
    // 1 to 99 and negative numbers name no schedule type: "".
  });
  return result;
}

int32_t getScheduleTypeIDFromTotalNumAndScheduleNum(int32_t totalNum, int32_t scheduleNum) {
  return lookupFirstRow<int32_t>(
      {"getScheduleTypeIDFromTotalNumAndScheduleNum", "ScheduleTypeID"}, -1,
      [&] { return getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(totalNum, scheduleNum); });
}

float getDefaultEstTimeFromTotalNumAndScheduleNum(int32_t totalNum, int32_t scheduleNum) {
  // An empty builder result is sent as it is: the database refuses it and the error tail
  // leaves the default.
  return lookupFirstRow<float>(
      {"getDefaultEstTimeFromTotalNumAndScheduleNum", "DefaultEstTime"}, 1.0f,
      [&] { return getScheduleTypesSQLStrFromTotalNumNumAndScheduleNum(totalNum, scheduleNum); });
}

float getDefaultEstTimeFromUserIDAndTotalNumAndScheduleNum(int32_t userID, int32_t totalNum,
                                                           int32_t scheduleNum) {
  LookupRoutine r("getDefaultEstTimeFromUserIDAndTotalNumAndScheduleNum");
  float result = 1.0f;
  r.step([&] { result = getDefaultEstTimeFromTotalNumAndScheduleNum(totalNum, scheduleNum); });
  if (r.connected()) {
    int32_t scheduleTypeID = -1;
    r.step([&] {
      scheduleTypeID = getScheduleTypeIDFromTotalNumAndScheduleNum(totalNum, scheduleNum);
    });
    r.withFirstRow(
        "SELECT UserBillingScheduleTypeInfo.UserIDNum, "
        "UserBillingScheduleTypeInfo.ScheduleTypeNum, "
        "UserBillingScheduleTypeInfo.DefaultEstTime FROM UserBillingScheduleTypeInfo WHERE "
        "UserIDNum=" +
            std::to_string(userID) + " And ScheduleTypeNum=" + std::to_string(scheduleTypeID) + ";",
        [&](Handle h) { r.readField(h, "DefaultEstTime", NullTest::kNotTested, result); });
  }
  r.step([&] {
    if (result < 0.0f) {
      result = kFiveMinutes;
    } else if (result > kWholeDay) {
      result = kWholeDay;
    }
  });
  return result;
}

}  // namespace nvwm
