// Public: the regional settings that name months and days and fix the short date.
#pragma once

#include <array>
#include <memory>
#include <string>

namespace nvwm {

// Names and patterns of one locale. en-US by default. A host may install another.
struct RegionalSettings {
  std::array<std::string, 12> monthNames{"January",   "February", "March",    "April",
                                         "May",       "June",     "July",     "August",
                                         "September", "October",  "November", "December"};
  std::array<std::string, 12> monthAbbreviations{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  // Sunday first, as Weekday() counts.
  std::array<std::string, 7> dayNames{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                      "Thursday", "Friday", "Saturday"};
  std::array<std::string, 7> dayAbbreviations{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  // The "Short Date" of Format and of CStr on a date; also the order CDate reads d/m/y in.
  std::string shortDate = "m/d/yyyy";
  // Named formats of Format: "Long Date", "Medium Date", "Long Time", "Medium Time",
  // "Short Time", "Currency" (positive;negative), and the date and time separators that "/"
  // and ":" stand for.
  std::string longDate = "dddd, mmmm d, yyyy";
  std::string mediumDate = "dd-mmm-yy";
  std::string longTime = "h:nn:ss AM/PM";
  std::string mediumTime = "hh:nn AM/PM";
  std::string shortTime = "hh:nn";
  std::string currencyFormat = "$#,##0.00;($#,##0.00)";
  std::string dateSeparator = "/";
  std::string timeSeparator = ":";
  std::string am = "AM";
  std::string pm = "PM";
  char decimalSeparator = '.';
  char thousandsSeparator = ',';
  std::string currencySymbol = "$";
};

// The settings in force on the calling thread (en-US unless a host installed others).
const RegionalSettings& regionalSettings();
// Installs settings for the calling thread; nullptr goes back to en-US.
void setRegionalSettings(std::shared_ptr<const RegionalSettings> settings);

}  // namespace nvwm
