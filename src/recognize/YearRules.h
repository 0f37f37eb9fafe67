#pragma once
// How a year is completed when a statement writes two digits of it, or none.

#include "prefs/Clock.h"

#include <cstdint>

namespace tavvel {

// Years 0 to 73 become 2000 to 2073, 74 to 99 become 1974 to 1999, and larger years stand.
// The pivot 74 is the same for every date read from a statement.
std::int64_t fourDigitYear(std::int64_t year);

// Applies fourDigitYear to the year in place and returns it.
std::int64_t set4DigitYear(std::int64_t& year);

// The year of a date written without one: the current year, unless the date would then lie
// after now (time of day included), in which case the year before. A yearless date is never
// in the future.
void setDefaultYear(std::int64_t& year, std::int64_t month, std::int64_t day, const Clock& clock);

} // namespace tavvel
