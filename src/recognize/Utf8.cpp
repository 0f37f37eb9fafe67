#include "recognize/Utf8.h"

namespace tavvel {

void appendUtf8(std::string& out, char32_t codePoint) {
    auto byte = [&](char32_t bits) { out += static_cast<char>(bits); };
    if (codePoint < 0x80) {
        byte(codePoint);
    } else if (codePoint < 0x800) {
        byte(0xC0 | (codePoint >> 6));
        byte(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        byte(0xE0 | (codePoint >> 12));
        byte(0x80 | ((codePoint >> 6) & 0x3F));
        byte(0x80 | (codePoint & 0x3F));
    } else {
        byte(0xF0 | (codePoint >> 18));
        byte(0x80 | ((codePoint >> 12) & 0x3F));
        byte(0x80 | ((codePoint >> 6) & 0x3F));
        byte(0x80 | (codePoint & 0x3F));
    }
}

} // namespace tavvel
