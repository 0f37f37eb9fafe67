#pragma once
// UTF-8, the encoding of the program's own texts: reading it strictly (no overlong forms, no
// surrogates, nothing above U+10FFFF, as XML readers require), writing it, and Windows-1252,
// the encoding taken for 8-bit text that is not UTF-8 (most such statements are in it or in
// Latin-1, of which it is a superset where it matters).

#include <cstddef>
#include <string>
#include <string_view>

namespace tavvel {

struct Utf8Character {
    char32_t value;     // the code point, or the byte itself when not valid
    std::size_t length; // in bytes, at least 1
    bool valid;
};

Utf8Character utf8MultiByteCharacterAt(std::string_view text, std::size_t at);

// The character starting at byte `at` (< text.size()). A byte that starts no valid sequence is
// read alone and is not valid. Inline: case folding reads every character of every lookup.
inline Utf8Character utf8CharacterAt(std::string_view text, std::size_t at) {
    auto byte = static_cast<unsigned char>(text[at]);
    if (byte < 0x80)
        return {byte, 1, true};
    return utf8MultiByteCharacterAt(text, at);
}

bool isValidUtf8(std::string_view text);

// Appends the UTF-8 form of a code point (up to U+10FFFF).
void appendUtf8(std::string& out, char32_t codePoint);

// Every byte decoded as Windows-1252 (its five unassigned bytes become U+FFFD).
std::string windows1252ToUtf8(std::string_view bytes);
// The text itself when it is valid UTF-8, otherwise its bytes decoded as Windows-1252.
std::string asUtf8(std::string_view bytes);

} // namespace tavvel
