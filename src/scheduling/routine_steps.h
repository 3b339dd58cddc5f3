// Internal: what the scheduling routines share on top of the lookup shape
// (practice/lookup_shape.h): the date utility, and the reads and conversions their steps make.
//
// The routines here are written with the steps of practice::LookupRoutine, each statement a
// step, under their own module's log tag ("Tallowbrook.exe-<module>-<routine>").
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/database_service.h"
#include "host/utilities.h"
#include "practice/lookup_shape.h"
#include "runtime/date.h"
#include "runtime/variant.h"

namespace nvwm::scheduling {

using practice::database;
using practice::LookupRoutine;
using practice::variantUtility;

// The library-wide dateUtility. An empty reference raises 91 into the calling routine.
DateUtility& dateUtility();

// The column of the recordset's current row.
Variant field(Handle h, std::string_view name);
// variantUtility.isNullValue of the column.
bool fieldIsNull(Handle h, std::string_view name);

// An ID as the validators take it: the number in decimal.
std::string idText(int32_t id);
// A value as text is joined to text: Null and Empty give "". Also how a field reaches a
// validator, which refuses "".
std::string textOf(const Variant& value);

// A date written as text and read back, as the original strips a time of its date ("hh:nn
// am/pm") or a date of its time ("mmm d, yyyy"). Raises 13 when the text can't be read back.
Date throughText(Date value, std::string_view pattern);
// A value of the recordset as a time of day alone: formatted "hh:nn am/pm" and read back.
// A Null raises 13 (the empty text is no date).
Date timeOfDayThroughText(const Variant& value);

// A boolean as the database service takes it in text: "True" or "False".
std::string booleanText(bool value);

}  // namespace nvwm::scheduling
