#pragma once
// Messages and generated names carry placeholders in the manner of their formats: "%@" for
// a text and "%d" for a number, filled in order of appearance.

#include <initializer_list>
#include <string>
#include <string_view>

namespace tavvel {

// The format with each "%@" or "%d" replaced by the next argument; placeholders left over
// when the arguments run out stay as written.
std::string fillIn(std::string_view format, std::initializer_list<std::string_view> arguments);

} // namespace tavvel
