#include "app/InputText.h"

#include "recognize/TextEncoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

namespace tavvel {

namespace {

// The byte order of UTF-16 without a mark, told by where its NUL bytes stand: each character
// of Western text has one NUL byte, on the same side of every pair; text in one byte has next
// to none, and a run of NUL bytes has them on both sides.
std::optional<bool> unmarkedUtf16BigEndian(std::string_view bytes) {
    const std::size_t pairs = std::min<std::size_t>(bytes.size(), 4096) / 2;
    std::size_t evenNul = 0, oddNul = 0;
    for (std::size_t i = 0; i < pairs; ++i) {
        evenNul += bytes[2 * i] == '\0';
        oddNul += bytes[2 * i + 1] == '\0';
    }
    const auto most = [pairs](std::size_t n) { return pairs >= 2 && n * 4 >= pairs * 3; };
    const auto few = [pairs](std::size_t n) { return n * 16 <= pairs; };
    if (most(oddNul) && few(evenNul))
        return false;
    if (most(evenNul) && few(oddNul))
        return true;
    return std::nullopt;
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
    else if (auto bigEndian = unmarkedUtf16BigEndian(view))
        bytes = utf16ToUtf8(view, *bigEndian);
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

bool decodeEightBitText(std::string& bytes) {
    if (isValidUtf8(bytes))
        return true;
    const auto eightBit = std::count_if(
        bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
    // A Western statement has a few accented letters and signs among its digits and words.
    if (static_cast<std::size_t>(eightBit) > bytes.size() / 2)
        return false;
    bytes = windows1252ToUtf8(bytes);
    return true;
}

bool takeInStatementText(std::string& bytes) {
    normaliseInputText(bytes);
    return !looksBinary(bytes) && decodeEightBitText(bytes);
}

} // namespace tavvel
