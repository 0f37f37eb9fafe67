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
