#pragma once
// Calendar dates as local-midnight instants, and date patterns ("M/d/yyyy", "d/M/yy", "MMM")
// formatted and parsed through ICU in the process's time zone.

#include "prefs/Value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

// Re-reads the process's time zone (TZ) for every date operation after it. Called once at
// start, and by tests that switch TZ.
void useProcessTimeZone();

struct CalendarDate {
    int year = 0;
    int month = 0; // 1 to 12
    int day = 0;   // 1 to 31
    auto operator<=>(const CalendarDate&) const = default;
};

// A local date and time of day, field by field.
struct DateComponents {
    std::int64_t year = 0;
    std::int64_t month = 1; // 1 to 12
    std::int64_t day = 1;
    std::int64_t hour = 0;
    std::int64_t minute = 0;
    std::int64_t second = 0;
    auto operator<=>(const DateComponents&) const = default;
};

// The local date and time of day that the instant falls on, to the second.
DateComponents componentsOf(Date instant);
// The instant of a local date and time. Out-of-range fields roll over as a lenient calendar
// does; fields too large for any calendar are held to the calendar's limits first.
Date instantOf(const DateComponents& components);

// The instant of the local midnight that starts the day. Out-of-range months and days roll
// over as a lenient calendar does (month 13 is January of the next year).
Date localMidnight(int year, int month, int day);
Date localMidnight(CalendarDate date);
// The calendar day, in local time, that holds the instant.
CalendarDate calendarDateOf(Date instant);
// The local midnight that starts the day holding the instant.
Date startOfDay(Date instant);
// The day `days` after (or before) the instant's day, at local midnight.
Date addDays(Date instant, int days);

// The instant written with an ICU date pattern; English month names.
std::string formatDate(Date instant, std::string_view pattern);
// The text read with an ICU date pattern, leniently (so "yyyy" reads "03" as the year 3), as
// the local midnight of the day read. Nothing when the text does not fit the pattern.
std::optional<Date> parseDateWithPattern(std::string_view text, std::string_view pattern);

// Sentinels for an unbounded date range.
inline constexpr Date kDistantPast{-62135596800.0};  // 0001-01-01 UTC
inline constexpr Date kDistantFuture{64092211200.0}; // 4001-01-01 UTC

} // namespace tavvel
