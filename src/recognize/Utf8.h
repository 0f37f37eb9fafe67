#pragma once
// Writing code points as UTF-8, shared by the readers that decode other encodings.

#include <string>

namespace tavvel {

// Appends the UTF-8 form of a code point (up to U+10FFFF).
void appendUtf8(std::string& out, char32_t codePoint);

} // namespace tavvel
