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
