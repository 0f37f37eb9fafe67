#pragma once
// Character classes of the "C" locale, on bytes. Statement text arrives in whatever 8-bit
// encoding the bank used, so a byte above 127 is never a letter, digit or blank here, and the
// user's locale cannot change how a statement is read.

#include <cstddef>
#include <string_view>

namespace tavvel {

constexpr bool isSpaceByte(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

constexpr bool isDigitByte(char c) {
    return c >= '0' && c <= '9';
}

// Printable and not a blank.
constexpr bool isGraphByte(char c) {
    return c > ' ' && c < '\x7f';
}

constexpr bool isHighByte(char c) {
    return static_cast<unsigned char>(c) >= 0x80;
}

constexpr char asciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The byte at i, or NUL past the end: the scanners were written for NUL-terminated text and
// compare against the terminator in several places.
constexpr char byteAt(std::string_view text, std::size_t i) {
    return i < text.size() ? text[i] : '\0';
}

} // namespace tavvel
