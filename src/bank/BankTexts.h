#pragma once
// What the bank and credit-card readers and engine say, word for word.

#include <string_view>

namespace tavvel::text {

inline constexpr std::string_view ofxNoDate =
    "The following OFX transaction does not contain a date; it cannot be processed: ";
inline constexpr std::string_view ofxNoAmount =
    "The following OFX transaction has no amount; it cannot be processed: ";
inline constexpr std::string_view ofxNoType =
    "The following OFX transaction has no type; it cannot be processed: ";
inline constexpr std::string_view ofxAmountNotNumber =
    "The following OFX transaction has an amount that is not a number; it cannot be processed: ";
inline constexpr std::string_view ofxCutOff =
    "The following OFX transaction is cut off where the file ends; it cannot be processed: ";

// A QIF file whose dates read both ways (3/4/2024: March 4 or 3 April).
inline constexpr std::string_view qifDateOrderTitle = "Month or Day First?";
inline constexpr std::string_view qifDateOrder =
    "The dates of %@ can be read month first or day first (3/4/2024 is March 4 or 3 April), "
    "and nothing in the file tells which. How does it write them?";
inline constexpr std::string_view monthBeforeDay = "Month First (3/4 is March 4)";
inline constexpr std::string_view dayBeforeMonth = "Day First (3/4 is 3 April)";

inline constexpr std::string_view noInstructionPrompt =
    "The transaction shown above does not match any instruction that Tavvel already knows "
    "about.  Please specify how you would like transactions matching this description to be "
    "handled in the future.";
inline constexpr std::string_view addInstructionPrompt =
    "Please specify how you would like transactions matching this description to be handled in "
    "the future.";
inline constexpr std::string_view skipTransaction = "Skip Transaction";
inline constexpr std::string_view noDescription = "NO DESCRIPTION";

} // namespace tavvel::text
