#include "recognize/TextEncoding.h"

#include "recognize/Utf8.h"

namespace tavvel {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

} // namespace

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
