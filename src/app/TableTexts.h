#pragma once
// The statement table's own texts.

#include <string_view>

namespace tavvel::text {

inline constexpr std::string_view tableWillWrite = "%@ to be written, totalling %@.";
inline constexpr std::string_view tableWillWriteUnknownTotal =
    "%@ to be written; an amount that cannot be read leaves the total unknown.";
inline constexpr std::string_view tableErrorRecords = " %@ cannot be read.";
inline constexpr std::string_view tableReading = "Reading the statement…";
inline constexpr std::string_view tableReadingStopped =
    "Reading the statement was cancelled; the table is empty, and nothing was written.";

} // namespace tavvel::text
