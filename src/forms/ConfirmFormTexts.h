#pragma once
// What the confirmation form says, word for word.

#include <string_view>

namespace tavvel::text {

inline constexpr std::string_view confirmTitle = "Confirm Transaction";
inline constexpr std::string_view confirmCategoryPrompt =
    "You asked to confirm %@.  You can change the description, the memo, or the category for "
    "this transaction only.";
inline constexpr std::string_view confirmPrompt =
    "You asked to confirm %@.  You can change the description%@ for this transaction only.";
inline constexpr std::string_view allTransactions = "all transactions";
inline constexpr std::string_view transactionsWithCategory = "transactions with this category";
inline constexpr std::string_view transactionsWithSplitCategory =
    "transactions with the category in one of the splits";
inline constexpr std::string_view transactionsWithDescription =
    "transactions with this description";
inline constexpr std::string_view orInSplits = " or category/memo in the splits";
inline constexpr std::string_view memoOrCategory = ", the memo, or the category";
inline constexpr std::string_view willUse = "%@ (will use %@)";
inline constexpr std::string_view addSplits = "Add Splits";
inline constexpr std::string_view removeSplits = "Remove Splits";

} // namespace tavvel::text
