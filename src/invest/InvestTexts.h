#pragma once
// What the investment engine says to the user, word for word.

#include <string_view>

namespace tavvel::text {

inline constexpr std::string_view investNoDate = "This investment transaction has no date: ";
inline constexpr std::string_view investBadNumber =
    "This investment transaction has a number that cannot be read: ";

// Why a transaction must be skipped (missingBadField:).
inline constexpr std::string_view missingFieldTitle = "Investment Transaction: Missing %@ Field";
inline constexpr std::string_view missingQuicken2003 =
    "The transaction shown above can be imported only into financial software that supports "
    "Check/Withdrawal/Deposit/POS/ATM trnsactions (such as Quicken 2003-2007).  However, you "
    "have not selected the preference to produce QIF for Quicken 2003 or later.  Therefore, the "
    "transaction must be skipped.";
inline constexpr std::string_view missingBadValue =
    "The transaction shown above contains one or more bad or missing values, as shown above "
    "with \"Invalid\".  Therefore, the transaction must be skipped unless you edit the input to "
    "provide correct values.";
inline constexpr std::string_view missingType =
    "The transaction shown above is missing a TYPE.  It is possible that the format was defined "
    "wrong, or that there was a date within the previous transaction.\r\rAll transactions must "
    "have a type.  Therefore, the transaction must be skipped unless you edit the input to "
    "provide a type.";
inline constexpr std::string_view missingField =
    "The transaction shown above is missing the %@ field, which is required for this type of "
    "transaction.  Therefore, the transaction must be skipped unless you redefine the type to "
    "one that matches the available fields, or edit the input to provide the missing field.";

inline constexpr std::string_view unknownTypeTitle =
    "Investment Transaction: Unknown Transaction Type";
inline constexpr std::string_view unknownSecurityTitle = "Investment Transaction: Unknown Security";
inline constexpr std::string_view investConfirmTitle = "Investment Transaction: Confirm";
inline constexpr std::string_view unknownTypeText =
    "No action is defined for the type \"%@\" of this transaction (%@).  Choose the action it "
    "stands for: it is remembered for this input format.";
inline constexpr std::string_view unknownSecurityText =
    "The security \"%@\" of this transaction (%@) is not in your security list.  Use the name "
    "shown: it is added to the list and remembered for this input format.";
inline constexpr std::string_view confirmText =
    "%@  %@\rSecurity: %@\rShares: %@  Price: %@  Fees: %@\rAmount: %@\rMemo: %@";
inline constexpr std::string_view alwaysSkip = "Always Skip This Type";
inline constexpr std::string_view alwaysSkipTitle =
    "Investment Transaction: Always Skip This Transaction Type";
inline constexpr std::string_view alwaysSkipText =
    "Transactions of the type \"%@\" will be left out without asking, for this input format.";
inline constexpr std::string_view confirmAlwaysSkip = "Confirm Always Skip";
inline constexpr std::string_view dontAlwaysSkip = "Don't Always Skip";
inline constexpr std::string_view useNameShown = "Use Name Shown Above";
inline constexpr std::string_view extractTransaction = "Extract Transaction";
inline constexpr std::string_view skipRemaining = "Skip Remaining";

// The closing message's account of what a run without questions left out.
inline constexpr std::string_view skippedUnknownTypes =
    "\r\r%@ transaction(s) skipped: no action is defined for their type (%@).";
inline constexpr std::string_view skippedUnwritable =
    "\r\r%@ transaction(s) skipped: a required field is missing or bad.";

} // namespace tavvel::text
