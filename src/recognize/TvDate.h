#pragma once
// The date utility shared by all date code (one instance lives in the context). Calendar dates
// are the instants of their local midnights in the process's time zone.

#include "prefs/Value.h"
#include "recognize/CalendarDate.h"

#include <cstdint>

namespace tavvel {

class TvDate {
public:
    Date dateWithTimeRemovedFrom(Date date) const;
    // Years 0 to 99 become 2000 to 2099. Unlike the two-digit rule statements are read with,
    // there is no pivot here: dates that reach this are the program's own.
    Date dateWithTwoDigitYearAdjustedToFourDigitsFrom(Date date) const;
    DateComponents dateComponentsForDate(Date date) const;
    Date dateWithComponents(const DateComponents& components) const;
    std::int64_t yearFromDate(Date date) const;
    std::int64_t monthFromDate(Date date) const;
    std::int64_t dayFromDate(Date date) const;
    // Local midnight of the day; out-of-range months and days roll over.
    Date dateWithYear(std::int64_t year, std::int64_t month, std::int64_t day) const;
};

} // namespace tavvel
