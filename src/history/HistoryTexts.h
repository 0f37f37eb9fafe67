#pragma once
// What the conversion history says, word for word.

#include <string_view>

namespace tavvel::text {

inline constexpr std::string_view historyTitle = "Conversion History";
inline constexpr std::string_view historyDamaged =
    "The conversion history could not be read, so it was kept aside as \"%@\" and a new one "
    "was started.  Transactions converted before cannot be recognised as duplicates this time.";
inline constexpr std::string_view historyUnwritable =
    "The conversion history \"%@\" cannot be opened for writing.  The conversion goes ahead, "
    "but duplicates are not looked for and this conversion is not remembered.";
inline constexpr std::string_view historyNotRecorded =
    "The conversion history \"%@\" could not record this conversion; the output file was "
    "written.  These transactions will not be recognised as duplicates later.";

inline constexpr std::string_view alreadyConverted = "Already converted on %@";
inline constexpr std::string_view convertAgain = "Convert Again";
inline constexpr std::string_view leaveThemOut = "Leave Them Out";
inline constexpr std::string_view allConvertedBeforeTitle = "Converted Before";
inline constexpr std::string_view allConvertedBefore =
    "All %ld transactions were converted before (on %@). Convert them again?";
inline constexpr std::string_view duplicatesLeftOut = "\r%ld duplicate transaction%@ left out.";

inline constexpr std::string_view suggestionMark = "(suggested)";

} // namespace tavvel::text
