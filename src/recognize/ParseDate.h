#pragma once
// Reading a date string into month, day and year numbers. No range is checked: a caller that
// builds a date from the numbers gets a lenient calendar's roll-over. On failure the outputs
// may hold partial values.

#include "prefs/Clock.h"
#include "prefs/Configuration.h"
#include "prefs/Value.h"

#include <cstdint>
#include <string_view>

namespace tavvel {

// A date found by findDate with the same input format: numeric by its DateDelimiter ("/", "-",
// "."), eight digits of a real date ("8"), or with a word month (",") by the configuration's
// word-month tables. The scan must take the whole string or stop at the format's DateEnd
// character.
bool parseDate(std::string_view date, const Dictionary& format, std::int64_t& month,
               std::int64_t& day, std::int64_t& year, const Configuration& config,
               const Clock& clock);

// A QIF date: by the configuration's TvShortDateFormats, then a month word of TvLongMonths
// followed by a TvAfterLongMonth form, then a yearless "M/D".
bool parseQIFDate(std::string_view date, std::int64_t& month, std::int64_t& day, std::int64_t& year,
                  bool dayBeforeMonth, const Configuration& config, const Clock& clock);

} // namespace tavvel
