#pragma once
// The keys of an input format record that the input-format engine and the text readers read,
// beyond those the scanners read (recognize/InputFormatKeys.h).

#include <string_view>

namespace tavvel::fmtkey {

// Set by presence alone, whatever value they hold.
inline constexpr std::string_view OneTransactionPerLine = "OneTransactionPerLine";
inline constexpr std::string_view firstLineStartsWithTransactionDate =
    "firstLineStartsWithTransactionDate";

inline constexpr std::string_view Name = "Name";
inline constexpr std::string_view FormatType = "FormatType";
inline constexpr std::string_view Match = "Match";
inline constexpr std::string_view Investment = "Investment"; // the FormatType of investments

// Item keys: the index of the field that holds the item, counted from 0.
inline constexpr std::string_view Date = "Date";
inline constexpr std::string_view Check = "Check";
inline constexpr std::string_view Description = "Description";
inline constexpr std::string_view Memo = "Memo";
inline constexpr std::string_view Category = "Category";
inline constexpr std::string_view Credit = "Credit";
inline constexpr std::string_view Debit = "Debit";
inline constexpr std::string_view DebitOrCredit = "Debit/Credit";
inline constexpr std::string_view Indicator = "Indicator";

// Texts, not indexes: what marks a debit or a credit in the Indicator field.
inline constexpr std::string_view DebitIndicator = "DebitIndicator";
inline constexpr std::string_view CreditIndicator = "CreditIndicator";

// Investment formats: the security assumed when a transaction names none.
inline constexpr std::string_view AssumedSecurity = "AssumedSecurity";

// Present: every amount is read with the opposite sign.
inline constexpr std::string_view InvertAmount = "InvertAmount";

} // namespace tavvel::fmtkey
