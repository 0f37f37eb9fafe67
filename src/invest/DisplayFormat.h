#pragma once
// The display formats of investment numbers ("#,###.00;0.00;(#,##0.00)"): three sections,
// positive, zero and negative. ICU reads two sections and treats a second one as the negative
// pattern, so the section is chosen by the value here and ICU formats the magnitude with it.

#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

// The display format for a number of decimals from 2 to 6 (setPrecision:forNumber:); other
// values leave the format as it was.
std::optional<std::string> displayFormatForPrecision(long long decimals);

// The value through its section of the format. Decimals the value holds beyond the format's
// (up to six) are kept: a fund's 3.125 shares are never written as 3.13.
std::string formatForDisplay(double value, std::string_view format);

} // namespace tavvel
