#include "scheduling/lead_times.h"

#include <array>

namespace nvwm::scheduling {
namespace {

// clang-format off
constexpr std::array<LeadTime, 18> kLeadTimes{{
    {"5 Min",   "n",  5,  " is due in 5 minutes",  " in 5 minutes"},
    {"10 Min",  "n",  10, " is due in 10 minutes", " in 10 minutes"},
    {"15 Min",  "n",  15, " is due in 15 minutes", " in 15 minutes"},
    {"20 Min",  "n",  20, " is due in 20 minutes", " in 20 minutes"},
    {"30 Min",  "n",  30, " is due in 30 minutes", " in 30 minutes"},
    {"1 Hr",    "h",  1,  " is due in 1 hour",     " in 1 hour"},
    {"2 Hr",    "h",  2,  " is due in 2 hours",    " in 2 hours"},
    {"3 Hr",    "h",  3,  " is due in 3 hours",    " in 3 hours"},
    {"6 Hr",    "h",  6,  " is due in 6 hours",    " in 6 hours"},
    {"12 Hr",   "h",  12, " is due in 12 hours",   " in 12 hours"},
    {"1 Day",   "d",  1,  " is due in 1 day",      " in 1 day"},
    {"2 Days",  "d",  2,  " is due in 2 days",     " in 2 days"},
    {"3 Days",  "d",  3,  " is due in 3 days",     " in 3 days"},
    {"5 Days",  "d",  5,  " is due in 5 days",     ""},
    {"1 Week",  "ww", 1,  " is due in 1 week",     " in 1 week"},
    {"10 Days", "d",  10, " is due in 10 days",    ""},
    {"2 Weeks", "ww", 2,  " is due in 2 weeks",    " in 2 weeks"},
    {"5 Weeks", "ww", 5,  " is due in 5 weeks",    ""},
}};
// clang-format on

}  // namespace

const LeadTime* findLeadTime(std::string_view word) {
  for (const LeadTime& leadTime : kLeadTimes) {
    if (leadTime.word == word) return &leadTime;
  }
  return nullptr;
}

}  // namespace nvwm::scheduling
