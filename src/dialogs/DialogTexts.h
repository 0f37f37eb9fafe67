#pragma once
// What the shared dialogs and the buttons of the larger forms say, in every front end that
// shows them as windows: the error warning, the cancel question, the confirmation and
// new-instruction forms' buttons.

#include <string_view>

namespace tavvel::text {

inline constexpr std::string_view okButton = "OK";
inline constexpr std::string_view cancelButton = "Cancel";

inline constexpr std::string_view errorWarningTitle = "Error";
inline constexpr std::string_view dontWarnAgain = "Don't warn again for this input format";

inline constexpr std::string_view cancelQuestionTitle = "Cancel";
inline constexpr std::string_view cancelQuestion =
    "Stop now, or keep what is done so far to finish later?";
inline constexpr std::string_view finishNowButton = "Finish Now";
inline constexpr std::string_view finishLaterButton = "Finish Later";
inline constexpr std::string_view goOnButton = "Go On";
inline constexpr std::string_view alwaysDoThis = "Always do this without asking";

inline constexpr std::string_view skipButton = "Skip";
inline constexpr std::string_view skipRemainingButton = "Skip Remaining";
inline constexpr std::string_view backButton = "Back";
inline constexpr std::string_view swapButton = "Swap Description and Memo";
inline constexpr std::string_view addInstructionButton = "Add Instruction";
inline constexpr std::string_view addAmountInstructionButton = "Add Instruction For Amount";

inline constexpr std::string_view saveButton = "Save";
inline constexpr std::string_view useAsReadButton = "Output As Read";

} // namespace tavvel::text
