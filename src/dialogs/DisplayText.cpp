#include "dialogs/DisplayText.h"

#include "recognize/Utf8.h"

namespace tavvel {

namespace {

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

} // namespace

bool isValidUtf8(std::string_view bytes) {
    std::size_t i = 0;
    while (i < bytes.size()) {
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

std::string displayText(std::string_view bytes) {
    if (isValidUtf8(bytes))
        return std::string(bytes);
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 2);
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

} // namespace tavvel
