#pragma once
// A look at the raw binary property-list form before libplist builds nodes from it.

#include <string_view>

namespace tavvel {

// True when a string object of the binary form (ASCII or UTF-16) holds a NUL character.
// libplist keeps such a string's full length but hands keys out as C strings, and asserts
// when the two disagree; such a file must be refused before it is parsed. Objects the
// offset table cannot reach are left to the parser, which refuses them itself.
bool binaryPropertyListHoldsNulInString(std::string_view bytes);

} // namespace tavvel
