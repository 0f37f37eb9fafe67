#pragma once
// Laying out UTF-8 text in a terminal by the characters shown rather than by bytes: "É", "—"
// and "€" take two or three bytes but one column, a combining mark or variation selector none,
// and a wide (East Asian) character two.

#include <cstddef>
#include <string>
#include <string_view>

namespace tavvel {

// The columns the UTF-8 text takes.
std::size_t shownWidth(std::string_view text);

// The UTF-8 text made exactly `width` columns wide: padded with blanks, or cut on a whole
// character and ended with "~" when it is wider.
std::string fittedText(std::string_view text, std::size_t width);

} // namespace tavvel
