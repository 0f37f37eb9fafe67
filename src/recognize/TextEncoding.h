#pragma once
// Text in the encodings statements are saved in, rewritten as UTF-8, the one form the program
// keeps text in.

#include <string>
#include <string_view>

namespace tavvel {

// Whether the bytes are well-formed UTF-8 sequences throughout.
bool isValidUtf8(std::string_view bytes);

// Each byte read as Windows-1252 (Latin-1 from 0xA0 on, which Windows-1252 extends); the five
// bytes Windows-1252 leaves unassigned become the replacement character.
std::string windows1252ToUtf8(std::string_view bytes);

// UTF-16 code units in the given byte order, without a byte-order mark. A lone surrogate
// becomes the replacement character; an odd last byte is dropped.
std::string utf16ToUtf8(std::string_view units, bool bigEndian);

} // namespace tavvel
