// The calendar search of modDatabaseFunctions: a free time in one user's working day, and the
// end time of a piece of work.
//
// Times of day are dates with a zero whole part. The working day is fixed: 9:00 am to 5:00 pm.
// Common contract: each routine pushes "Tallowbrook.exe-modDatabaseFunctions-<routine>"; a
// failing step goes to the error service and the routine returns what its result holds at
// that moment. Services come from the library-wide references (DatabaseReference,
// variantUtility, dateUtility). Nothing raises to the caller. Not thread-safe.
#pragma once

#include <cstdint>

#include "runtime/date.h"

namespace nvwm {

// Which table getBestTimeInCalendarForSpecificDayAndUser searches. DO NOT CHANGE THESE VALUES:
// callers pass the numbers.
enum class CalendarKind : int32_t { kAppointments = 0, kTasks = 1, kDockets = 2 };

// The start of the first free stretch of the user's working day (entries of one kind only,
// in order of their end time) that holds estimatedTime hours:
// - an entry that ends at or before 9:00 am, or at or after 5:00 pm, is not seen at all;
// - touching or overlapping entries leave no gap; the first gap long enough wins (equality is
//   long enough), then the time from the last entry to 5:00 pm;
// - failing that, the start of the first gap of any length;
// - failing that, an hour drawn from randomSource() (reseeded from Now() first) on
//   Int(17 * r + 9): 9 to 11 am, 12 pm, 1 to 5 pm, and 1:00 pm for 18 to 25, so that
//   overbooked days collect at 1:00 pm.
// Without a connection the day counts as empty: 9:00 am for up to 8 hours, a random hour
// beyond. A calendarKind outside 0..2 sends no usable SQL: the error service gets the failure
// and 9:00 am comes back. Nothing is reserved.
Date getBestTimeInCalendarForSpecificDayAndUser(int32_t calendarKind, int32_t userID, Date day,
                                                float estimatedTime);

// startTime plus estimatedTime hours (dateUtility.addHoursToTime); startTime itself for an
// estimate of 0 or less. When the hours from midnight to the start are no more than the
// estimate, the end is 12:00 am (value 0): 9:00 am with 9 hours or more ends at 12:00 am, and
// verifyStartAndEndTime then turns the pair around.
Date determineEndTimeFromEstimatedTime(Date startTime, float estimatedTime);

// Swaps the two when the start is later than the end; equal times stay.
void verifyStartAndEndTime(Date& startTime, Date& endTime);

}  // namespace nvwm
