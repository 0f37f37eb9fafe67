#pragma once
// Finding dates in statement text. Each search returns the position where the date starts and
// sets `length` to the number of bytes it takes, or returns nothing; `length` may be changed
// even when nothing is found. A text ends where its view ends (a NUL byte is an ordinary byte).

#include "prefs/Configuration.h"
#include "prefs/Value.h"
#include "recognize/BlankCounts.h"
#include "recognize/WordMonthTable.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tavvel {

// The first date that satisfies the input format: its delimiter, the characters that stand
// just before and after it, its distance from the line start, or for an OFX-like layout the
// text that precedes it. While blanks.multipleBlanks is -1, a date found after a blank also
// measures the gap of blanks before it.
// Word-month dates are found by the configuration's tables, read for this call; a caller
// that searches a statement transaction by transaction reads them once into WordMonthDates.
std::optional<std::size_t> findDate(std::string_view text, std::int64_t& length,
                                    const Dictionary& format, const Configuration& config,
                                    BlankCounts& blanks);
std::optional<std::size_t> findDate(std::string_view text, std::int64_t& length,
                                    const Dictionary& format, const WordMonthDates& tables,
                                    BlankCounts& blanks);

// The first date whose month is a word, by the configuration's TvLongDateFormats and then
// TvLongDateNoYearFormats.
std::optional<std::size_t> findDateLong(std::string_view text, std::int64_t& length,
                                        const Configuration& config);
std::optional<std::size_t> findDateLong(std::string_view text, std::int64_t& length,
                                        const WordMonthDates& tables);

// The first plausible numeric date with that delimiter. Only the first candidate that reads as
// two or three numbers is judged: when it is implausible, nothing is found.
std::optional<std::size_t> findDateSlash(std::string_view text, std::int64_t& length);
std::optional<std::size_t> findDateDash(std::string_view text, std::int64_t& length);
std::optional<std::size_t> findDateDot(std::string_view text, std::int64_t& length);

// The first date written as eight digits, year, month and day (recognize/EightDigitDate.h);
// length 8. Eight digits that are no real date do not stop the search.
std::optional<std::size_t> findDateEightDigits(std::string_view text, std::int64_t& length);

} // namespace tavvel
