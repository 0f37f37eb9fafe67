#pragma once
// What the output format editor says, word for word.

#include "dialogs/DialogTexts.h"

#include <string_view>

namespace tavvel::text {

inline constexpr std::string_view defineFormatTitle = "Define Format";
inline constexpr std::string_view editOutputFormatTitle = "Edit Output Format: ";
inline constexpr std::string_view createOutputFormatButton = "Create Output Format";
inline constexpr std::string_view acceptChangesButton = "Accept Changes";

// Our own wording for what the form refuses.
inline constexpr std::string_view outputFormatBuiltIn =
    "The QIF output format is built in and cannot be changed or deleted.";
inline constexpr std::string_view outputFormatNeedsName = "An output format needs a name.";
inline constexpr std::string_view outputFormatNeedsColumn = "Tick at least one column to write.";
inline constexpr std::string_view noOutputFormatNamed = "There is no output format named \"%@\".";
inline constexpr std::string_view deleteOutputFormatTitle = "Delete Output Format";
inline constexpr std::string_view deleteOutputFormatText =
    "Delete the output format \"%@\"?  This cannot be undone.";
inline constexpr std::string_view deleteButton = "Delete";

inline constexpr std::string_view outputFormatExportedTitle = "Output Format Exported";
inline constexpr std::string_view outputFormatExportedText =
    "The output format \"%@\" was saved in \"%@\".";
inline constexpr std::string_view outputFormatImportedTitle = "Output Format Imported";
inline constexpr std::string_view outputFormatImportedText =
    "The output format \"%@\" was added to your output formats.";
inline constexpr std::string_view outputFormatFileRefused =
    "The file \"%@\" does not hold an output format.";
inline constexpr std::string_view outputFormatFileExtension = "tvof";
inline constexpr std::string_view outputFormatSaved = "The output format \"%@\" is saved.";
inline constexpr std::string_view outputFormatDeleted = "The output format \"%@\" is deleted.";

} // namespace tavvel::text
