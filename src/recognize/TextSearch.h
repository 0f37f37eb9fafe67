#pragma once
// Finding values in statement text: next to a label, or the earlier of two finds.

#include <cstddef>
#include <optional>
#include <string_view>

namespace tavvel {

// The earlier of two positions, ignoring a missing one.
std::optional<std::size_t> nonNullMin(std::optional<std::size_t> a, std::optional<std::size_t> b);

// The value next to the label's first occurrence. With valueFollows, the first position after
// the label that is not white space (the text's end when only white space follows). Otherwise
// the start of the word before the label, across any non-graphic bytes; nothing when the walk
// would pass the text's start, so a word at the very start of the text is never returned.
std::optional<std::size_t> matchField(std::string_view text, std::string_view label,
                                      bool valueFollows);

// The text up to its first white space after the first byte (all of it when there is none).
std::string_view findSymbol(std::string_view text);

} // namespace tavvel
