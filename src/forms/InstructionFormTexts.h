#pragma once
// What the new-instruction form and its split tables say, word for word (the four spaces in
// the replace question and its closing "?." included).

#include <string_view>

namespace tavvel::text {

inline constexpr std::string_view createNewInstructionTitle = "Create New Instruction";
inline constexpr std::string_view addInstructionForAmountTitle = "Add Instruction For Amount";

inline constexpr std::string_view containsMatchLabel = "When a description contains:";
inline constexpr std::string_view containsMatchHelp =
    "(You can edit the string above as long as it matches the description)";
inline constexpr std::string_view startsWithMatchLabel = "When a description starts with:";
inline constexpr std::string_view startsWithMatchHelp =
    "(You can shorten the string above for future matches)";
// Our own wording: the program showed nothing while the text was not in the description.
inline constexpr std::string_view matchNotContainedWarning =
    "WARNING: the description does not contain this text";

inline constexpr std::string_view cancelReturnsToConfirmTip =
    "Stops adding a new instruction and returns to the confirmation dialog. (command-.)";
inline constexpr std::string_view cancelStopsTip =
    "Stops processing the transactions without changing the output file. (command-.)";

inline constexpr std::string_view categoryColonWarning = "WARNING: a category cannot end with a :";
inline constexpr std::string_view newCategoryWarning = "NEW Category Above";

inline constexpr std::string_view instructionAddSplits = "Add Splits";
inline constexpr std::string_view instructionRemoveSplits = "Remove Splits";

inline constexpr std::string_view instructionsExistTitle = "Instructions Already Exist";
inline constexpr std::string_view instructionsExistText =
    "Instructions for \"%@\" already exist.  If you save these changes, you will replace the "
    "existing instructions for \"%@\".    Do you want to save the changes?.";
inline constexpr std::string_view yesButton = "Yes";
inline constexpr std::string_view noButton = "No";

} // namespace tavvel::text
