#pragma once
// The run settings record (`ControlSettings`): what the last run used, so the next run's form
// starts from it.

#include "prefs/TvPrefs.h"

#include <optional>

namespace tavvel {

// Range buttons by tag.
enum WhichTransactions : int { kAllTransactions = 0, kLastMonth = 1, kDateRange = 2 };

// The record, completed and saved when it is missing or lacks any of whichTransactions,
// dateFrom, dateTo, outputDate, outputFilePath or outputFormat.
Dictionary completeRunSettings(TvPrefs& prefs, Date today);

// The first day of a run that continues where the last one stopped: the day after the last
// run's range ended, or today when it ended today or had no end ("all transactions").
Date continueFrom(const Dictionary& settings, Date now);

struct DateRange {
    Date from;
    Date to;
};

// The range for a range tag; `fromText`/`toText` are the range fields for kDateRange, read with
// the long pattern and, when that gives a year of 999 or less, with the short one. Nothing for
// an unknown tag or an unreadable field.
std::optional<DateRange> dateRangeFor(int which, Date now, std::string_view fromText,
                                      std::string_view toText, std::string_view longPattern,
                                      std::string_view shortPattern);

// A date field's text read as the run form reads it: the long pattern first, the short one when
// the long gives a year of 999 or less (so "03" is 2003, not the year 3).
std::optional<Date> readRangeField(std::string_view text, std::string_view longPattern,
                                   std::string_view shortPattern);

} // namespace tavvel
