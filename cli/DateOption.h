#pragma once
// Dates typed on the command line (--from, --to, --same-date), in the output date format.

#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

struct OutputFormatting;

// Whether the text has the shape of a date: three numbers joined by "/", the year of one, two
// or four digits.
bool looksLikeDate(std::string_view text);

// The date in the long output date format ("1/5/24" gives "1/5/2024" when month comes first),
// read as the run form reads its date fields; nothing when the text is not a real day in the
// output date format (a run form would roll "2/30/2024" over into March; a command line
// should not guess).
std::optional<std::string> readDateOption(std::string_view text, const OutputFormatting& output);

} // namespace tavvel
