#include "app/InputText.h"

#include "recognize/Utf8.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tavvel {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// The UTF-8 form of UTF-16 code units after the byte-order mark. A lone surrogate becomes
// the replacement character; an odd last byte is dropped.
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

// Tabs, line ends, form feeds and the end-of-file mark are text; other control bytes are not.
constexpr std::array<unsigned char, 256> kControlBytes = [] {
    std::array<unsigned char, 256> table{};
    for (int c = 0; c < 0x20; ++c)
        table[c] = (c < '\t' || c > '\r') && c != 0x1A;
    table[0x7F] = 1;
    return table;
}();

// Whether any of eight bytes lies below 0x20 or is 0x7F (the usual word-at-a-time tests for a
// byte below a bound and for a zero byte, both exact about whether there is one). Text has a
// line end every few dozen bytes, so most words hold neither and need no closer look.
bool mayHoldControl(std::uint64_t word) {
    constexpr std::uint64_t ones = 0x0101010101010101u, highs = 0x8080808080808080u;
    const std::uint64_t below = (word - ones * 0x20) & ~word & highs;
    const std::uint64_t del = word ^ (ones * 0x7F);
    return (below | ((del - ones) & ~del & highs)) != 0;
}

std::size_t controlsIn(std::string_view bytes) {
    std::size_t controls = 0;
    for (char c : bytes)
        controls += kControlBytes[static_cast<unsigned char>(c)];
    return controls;
}

} // namespace

void normaliseInputText(std::string& bytes) {
    std::string_view view(bytes);
    if (view.starts_with("\xFF\xFE"))
        bytes = utf16ToUtf8(view.substr(2), false);
    else if (view.starts_with("\xFE\xFF"))
        bytes = utf16ToUtf8(view.substr(2), true);
    else if (view.starts_with("\xEF\xBB\xBF"))
        bytes.erase(0, 3);
}

bool looksBinary(const std::string& bytes) {
    const std::string_view view(bytes);
    std::size_t controls = 0;
    std::size_t at = 0;
    for (; at + 8 <= view.size(); at += 8) {
        std::uint64_t word;
        std::memcpy(&word, view.data() + at, sizeof word);
        if (mayHoldControl(word))
            controls += controlsIn(view.substr(at, 8));
    }
    controls += controlsIn(view.substr(at));
    // Real statements hold next to none; random bytes about one in ten.
    return controls > bytes.size() / 16;
}

} // namespace tavvel
