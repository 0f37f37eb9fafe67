#pragma once
// Keys of the output format record, and the item names of its `Order`.

#include <string_view>

namespace tavvel::outkey {

inline constexpr std::string_view Name = "Name";
inline constexpr std::string_view Type = "Type";
inline constexpr std::string_view Separator = "Separator";
inline constexpr std::string_view Order = "Order";
inline constexpr std::string_view Present = "Present";
inline constexpr std::string_view ReformatDate = "ReformatDate";
inline constexpr std::string_view ReformatDateFormat = "ReformatDateFormat";
inline constexpr std::string_view SplitsOutput = "SplitsOutput";

// The built-in QIF layout.
inline constexpr std::string_view QIF = "QIF";

} // namespace tavvel::outkey

namespace tavvel::outkey {

// The editor's `Amount` key: the title of the amount style chosen.
inline constexpr std::string_view Amount = "Amount";

// The titles of the editor's choices, stored as they are chosen.
inline constexpr std::string_view Bank = "Bank";
inline constexpr std::string_view CreditCard = "Credit Card";
inline constexpr std::string_view Investment = "Investment";
inline constexpr std::string_view Comma = "Comma";
inline constexpr std::string_view Tab = "Tab";
inline constexpr std::string_view AmountColumn = "Amount";
inline constexpr std::string_view CreditDebit = "Credit/Debit";

// SplitsOutput: every split written, three fields each.
inline constexpr int EverySplit = 2;

} // namespace tavvel::outkey
