#pragma once
// The keys of an input format record that the scanners read. The record itself belongs to the
// input-format engine; these names are its own.

#include "prefs/Value.h"

#include <string_view>

namespace tavvel::fmtkey {

inline constexpr std::string_view Fields = "Fields";
inline constexpr std::string_view nonUScharacters = "nonUScharacters";
inline constexpr std::string_view DateDelimiter = "DateDelimiter";
inline constexpr std::string_view DateStart = "DateStart";
inline constexpr std::string_view DateEnd = "DateEnd";
inline constexpr std::string_view DistanceFromNewline = "DistanceFromNewline";
inline constexpr std::string_view DayBeforeMonth = "DayBeforeMonth";
inline constexpr std::string_view OFX = "OFX";
inline constexpr std::string_view DateAfter = "DateAfter";

// The DateDelimiter of dates written as eight digits with none, year, month and day
// (20200213). No delimiter of a date is a digit, so no other format holds this one.
inline constexpr char eightDigitDate = '8';

// Only the first character of the one-character entries counts; an empty or missing entry
// stands for the terminator, as it did when these were C strings.
inline char firstCharOf(const Dictionary& format, std::string_view key) {
    const Value* v = find(format, key);
    return v && !v->text().empty() ? v->text().front() : '\0';
}

} // namespace tavvel::fmtkey
