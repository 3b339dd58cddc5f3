// Internal: the lead time words of the pop-up reminders, and what each one means.
//
// The words are the values of the popupReminderTime... columns and of ReminderPeriod. Matching
// is on the exact word; an unknown word moves nothing and adds nothing. The appointment and
// task texts know three words fewer ("5 Days", "10 Days", "5 Weeks"): with those the sentence
// goes on with nothing added.
#pragma once

#include <string_view>

namespace nvwm::scheduling {

struct LeadTime {
  std::string_view word;
  std::string_view interval;  // of DateAdd: "n" minutes, "h" hours, "d" days, "ww" weeks
  int amount;
  std::string_view scheduleText;     // " is due in 1 day"
  std::string_view appointmentText;  // " in 1 day"; empty where that text knows no such word
};

// The row of the word; nullptr for an unknown word.
const LeadTime* findLeadTime(std::string_view word);

}  // namespace nvwm::scheduling
