#pragma once
// Every text the knowledge base shows, used exactly as written (double spaces and the odd
// closing apostrophe included). "%@" is filled by the caller; "\r" is a line break.

#include <string_view>

namespace tavvel::text {

inline constexpr std::string_view badCategoryTitle = "Bad Category \"%@\"";
inline constexpr std::string_view transferExplanation =
    "Categories starting with \"[\" represent an account transfer.\r\rIf you were intending to "
    "indicate an account transfer, the account represented by \"%@\"  is not in your list of "
    "accounts.  You cannot specify a transfer to an account that Tavvel does not know about.  "
    "You should make sure this account is created in your financial software, then export "
    "your accounts from your financial software into a QIF file and import them into Tavvel "
    "before processing this transaction.";
inline constexpr std::string_view cannotAddBracketCategory =
    "Error: You cannot add categories starting with \"[\".";

inline constexpr std::string_view accountTypeBank = "Bank";
inline constexpr std::string_view accountTypeCreditCard = "Credit Card";
inline constexpr std::string_view accountTypeInvestment = "Investment";
inline constexpr std::string_view accountTypeOther = "Other";

inline constexpr std::string_view formatExportedTitle = "Input Format Exported";
inline constexpr std::string_view formatExportedText = "Input format \"%@\" saved in file \"%@'.";
inline constexpr std::string_view formatImportedTitle = "Input Format Imported";
inline constexpr std::string_view formatImportedText =
    "Input format \"%@\" imported from file \"%@'.";
inline constexpr std::string_view formatFileExtension = "tvfm";
inline constexpr std::string_view formatFileName = "%@.tvfm";
inline constexpr std::string_view formatCopyName = "%@ copy";
inline constexpr std::string_view formatNumberedCopyName = "%@ copy %d";
inline constexpr std::string_view deleteTypesTitle = "Delete Types For Input Format: ";
inline constexpr std::string_view deleteSecuritiesTitle = "Delete Securities For Input Format: ";
inline constexpr std::string_view warnColumn = "Warn";

// Texts of our own where the program had none: a file that does not hold an input format
// is refused with a reason instead of being ignored without a word.
// Column headings of the editors' tables.
inline constexpr std::string_view accountTypeColumn = "Type";
inline constexpr std::string_view statementTypeColumn = "Statement Type";
inline constexpr std::string_view actionColumn = "Action";
inline constexpr std::string_view assumedSecurityColumn = "Assumed Security";
inline constexpr std::string_view statementSecurityColumn = "Statement Security";
inline constexpr std::string_view securityColumn = "Security";
inline constexpr std::string_view formatNotImportedTitle = "Input Format Not Imported";
inline constexpr std::string_view formatNotImportedText =
    "The file \"%@\" does not hold an input format (%@), so nothing was imported.";
inline constexpr std::string_view formatFileMissing = "the file cannot be read";
inline constexpr std::string_view formatFileNotPropertyList = "it is not a property list";
inline constexpr std::string_view formatFileNotRecord = "it does not hold a format record";
inline constexpr std::string_view formatDuplicateName =
    "An input format with this name exists already; importing replaces it.";
inline constexpr std::string_view renameFormatPrompt = "Name of the imported input format:";

} // namespace tavvel::text
