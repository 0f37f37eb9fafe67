#include "prefs/Utf8Text.h"

#include <cstdint>
#include <cstring>
#include <optional>

namespace tavvel {

namespace {

// Windows-1252's 0x80-0x9F; the rest of the upper half is Latin-1.
constexpr char16_t kCp1252High[32] = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

unsigned byteAt(std::string_view s, std::size_t i) {
    return static_cast<unsigned char>(s[i]);
}

// Lead byte: sequence length and the bounds of the second byte that exclude overlong forms,
// surrogates and code points above U+10FFFF.
struct Lead {
    std::size_t length;
    unsigned bits, low, high;
};

std::optional<Lead> leadOf(unsigned b) {
    if (b >= 0xC2 && b <= 0xDF)
        return Lead{2, b & 0x1F, 0x80, 0xBF};
    if (b == 0xE0)
        return Lead{3, b & 0x0F, 0xA0, 0xBF};
    if (b == 0xED)
        return Lead{3, b & 0x0F, 0x80, 0x9F};
    if (b >= 0xE1 && b <= 0xEF)
        return Lead{3, b & 0x0F, 0x80, 0xBF};
    if (b == 0xF0)
        return Lead{4, b & 0x07, 0x90, 0xBF};
    if (b >= 0xF1 && b <= 0xF3)
        return Lead{4, b & 0x07, 0x80, 0xBF};
    if (b == 0xF4)
        return Lead{4, b & 0x07, 0x80, 0x8F};
    return std::nullopt;
}

// Statements are mostly ASCII: eight bytes without a high bit are passed over at once.
bool asciiWord(std::string_view bytes, std::size_t at) {
    std::uint64_t word;
    std::memcpy(&word, bytes.data() + at, sizeof word);
    return (word & 0x8080808080808080u) == 0;
}

} // namespace

Utf8Character utf8MultiByteCharacterAt(std::string_view s, std::size_t at) {
    unsigned b = byteAt(s, at);
    Utf8Character raw{b, 1, false};
    auto lead = leadOf(b);
    if (!lead || at + lead->length > s.size())
        return raw;
    unsigned second = byteAt(s, at + 1);
    if (second < lead->low || second > lead->high)
        return raw;
    char32_t value = lead->bits;
    for (std::size_t k = 1; k < lead->length; ++k) {
        unsigned next = byteAt(s, at + k);
        if ((next & 0xC0) != 0x80)
            return raw;
        value = (value << 6) | (next & 0x3F);
    }
    return {value, lead->length, true};
}

bool isValidUtf8(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        if (i + 8 <= text.size() && asciiWord(text, i)) {
            i += 8;
            continue;
        }
        Utf8Character c = utf8CharacterAt(text, i);
        if (!c.valid)
            return false;
        i += c.length;
    }
    return true;
}

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

std::string windows1252ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 2);
    for (char ch : bytes) {
        auto c = static_cast<unsigned char>(ch);
        if (c < 0x80)
            out += ch;
        else if (c < 0xA0)
            appendUtf8(out, kCp1252High[c - 0x80]);
        else
            appendUtf8(out, c);
    }
    return out;
}

std::string asUtf8(std::string_view bytes) {
    if (isValidUtf8(bytes))
        return std::string(bytes);
    return windows1252ToUtf8(bytes);
}

} // namespace tavvel
