#include "recognize/TextEncoding.h"

#include "recognize/Utf8.h"

#include <cstdint>
#include <cstring>

namespace tavvel {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Windows-1252's 0x80-0x9F; the rest of the upper half is Latin-1.
constexpr char16_t kCp1252High[32] = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    if (lead >= 0xF0 && lead <= 0xF4)
        return 4;
    return 0;
}

// Statements are mostly ASCII: eight bytes without a high bit are passed over at once.
bool asciiWord(std::string_view bytes, std::size_t at) {
    std::uint64_t word;
    std::memcpy(&word, bytes.data() + at, sizeof word);
    return (word & 0x8080808080808080u) == 0;
}

} // namespace

bool isValidUtf8(std::string_view bytes) {
    std::size_t i = 0;
    while (i < bytes.size()) {
        if (i + 8 <= bytes.size() && asciiWord(bytes, i)) {
            i += 8;
            continue;
        }
        std::size_t n = sequenceLength(static_cast<unsigned char>(bytes[i]));
        if (n == 0 || i + n > bytes.size())
            return false;
        for (std::size_t k = 1; k < n; ++k)
            if ((static_cast<unsigned char>(bytes[i + k]) & 0xC0) != 0x80)
                return false;
        i += n;
    }
    return true;
}

std::string windows1252ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    for (char ch : bytes) {
        auto c = static_cast<unsigned char>(ch);
        if (c < 0x80)
            out += ch;
        else if (c < 0xA0)
            appendUtf8(out, kCp1252High[c - 0x80]);
        else
            appendUtf8(out, static_cast<char16_t>(c));
    }
    return out;
}

std::string utf16ToUtf8(std::string_view units, bool bigEndian) {
    auto unitAt = [&](std::size_t i) -> char16_t {
        auto hi = static_cast<unsigned char>(units[bigEndian ? i : i + 1]);
        auto lo = static_cast<unsigned char>(units[bigEndian ? i + 1 : i]);
        return static_cast<char16_t>(hi << 8 | lo);
    };
    std::string out;
    out.reserve(units.size() + units.size() / 2);
    std::size_t count = units.size() / 2 * 2;
    for (std::size_t i = 0; i < count; i += 2) {
        char16_t unit = unitAt(i);
        if (unit < 0xD800 || unit > 0xDFFF) {
            appendUtf8(out, unit);
            continue;
        }
        char16_t next = i + 2 < count ? unitAt(i + 2) : 0;
        if (unit <= 0xDBFF && next >= 0xDC00 && next <= 0xDFFF) {
            appendUtf8(out, 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (next - 0xDC00));
            i += 2;
        } else {
            appendUtf8(out, kReplacement);
        }
    }
    return out;
}

} // namespace tavvel
