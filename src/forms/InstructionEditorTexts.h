#pragma once
// What the instruction editor says, word for word ("contines" included, as users have always
// read it). The match labels and the category notes are the new-instruction form's.

#include "forms/InstructionFormTexts.h"

#include <string_view>

namespace tavvel::text {

inline constexpr std::string_view editInstructionTitle = "Edit Instruction";
inline constexpr std::string_view categoryMatchLabel = "  When input QIF has category:";
inline constexpr std::string_view mustMatchHelp =
    "(You can edit this string as long as it matches the description.)";
inline constexpr std::string_view mustMatchWarning =
    "WARNING: the string above no longer matches the description.  The instruction cannot be "
    "saved.";
inline constexpr std::string_view freeMatchHelp =
    "(You can edit the string above, but be careful to make sure it contines to match the QIF "
    "transactions you intend it to match.)";
inline constexpr std::string_view freeMatchWarning =
    "WARNING: The string above does not match the original string; it may not match QIF "
    "transactions as intended.";
inline constexpr std::string_view replaceMatchWarning =
    "WARNING: An instruction with the above match already exists.  If you save changes it will "
    "be replaced.";

// Our own wording.
inline constexpr std::string_view instructionIncomplete =
    "The instruction cannot be saved until its match, new description and amount fields are "
    "filled in.";
inline constexpr std::string_view deleteInstructionTitle = "Delete Instruction";
inline constexpr std::string_view deleteInstructionText =
    "Delete the instruction for \"%@\"?  This cannot be undone.";
inline constexpr std::string_view deleteInstructionButton = "Delete";

} // namespace tavvel::text
