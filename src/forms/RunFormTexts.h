#pragma once
// What the run form says, word for word.

#include <string_view>

namespace tavvel::text {

inline constexpr std::string_view noAccountsTitle = "No Accounts";
inline constexpr std::string_view noAccounts =
    "You specified in the preferences that you wanted the option to append your transactions to "
    "your previous file. To do this Tavvel must know the account names(s) that will be "
    "meaningful to your financial software. If possible, you should export your Accounts from "
    "your financial software into a QIF file, and then open the resulting file with Tavvel "
    "before proceeding. Alternatively you can use the Edit->Accounts function to enter account "
    "names and types yourself.";
inline constexpr std::string_view fileSelectedAfterProcessItem =
    "File Selected after \"Process Transactions\"";
inline constexpr std::string_view fileSelectedAfterProcessField =
    "File selected after \"Process Transactions\"";
inline constexpr std::string_view hintSpecifyAccount =
    "(Specify proper account in your financial software.)";
inline constexpr std::string_view hintNoAccountOfType = "(ERROR: No account of above type found.)";
inline constexpr std::string_view hintAccountNotInFormat =
    "(Account not specified in output format.)";
// Our own wording: the warning beside a date range that ends before it starts.
inline constexpr std::string_view invalidRangeWarning = "Invalid date range";
inline constexpr std::string_view processButton = "Process Transactions";

} // namespace tavvel::text
