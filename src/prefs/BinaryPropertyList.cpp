#include "prefs/BinaryPropertyList.h"

#include <cstdint>
#include <optional>

namespace tavvel {

namespace {

// The trailer closing the binary form: 6 unused bytes, then the width of an offset, the width
// of an object reference, the number of objects, the root object and where the offset table
// starts, all big-endian.
constexpr std::size_t kTrailerSize = 32;
constexpr std::size_t kHeaderSize = 8;

std::optional<std::uint64_t> bigEndian(std::string_view bytes, std::size_t at, std::size_t width) {
    if (width == 0 || width > 8 || at > bytes.size() || bytes.size() - at < width)
        return std::nullopt;
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < width; ++i)
        value = (value << 8) | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

struct Span {
    std::size_t start = 0;
    std::size_t length = 0;
};

// Where the characters of the string object at `at` lie, or nothing when the object is no
// string or does not fit in the bytes. `unitWidth` is 1 for ASCII, 2 for UTF-16.
std::optional<Span> stringAt(std::string_view bytes, std::size_t at, std::size_t& unitWidth) {
    auto marker = static_cast<unsigned char>(bytes[at]);
    unsigned kind = marker >> 4;
    if (kind != 0x5 && kind != 0x6)
        return std::nullopt;
    unitWidth = kind == 0x5 ? 1 : 2;
    std::uint64_t count = marker & 0x0F;
    std::size_t start = at + 1;
    if (count == 0x0F) {
        // The count follows as an integer object: 0x1N, then 2^N bytes.
        auto head = bigEndian(bytes, start, 1);
        if (!head || (*head >> 4) != 0x1 || (*head & 0x0F) > 3)
            return std::nullopt;
        std::size_t width = std::size_t{1} << (*head & 0x0F);
        auto value = bigEndian(bytes, start + 1, width);
        if (!value)
            return std::nullopt;
        count = *value;
        start += 1 + width;
    }
    if (start > bytes.size() || count > (bytes.size() - start) / unitWidth)
        return std::nullopt;
    return Span{start, static_cast<std::size_t>(count * unitWidth)};
}

bool holdsNul(std::string_view text, std::size_t unitWidth) {
    for (std::size_t i = 0; i + unitWidth <= text.size(); i += unitWidth)
        if (text[i] == '\0' && (unitWidth == 1 || text[i + 1] == '\0'))
            return true;
    return false;
}

} // namespace

bool binaryPropertyListHoldsNulInString(std::string_view bytes) {
    if (bytes.size() < kHeaderSize + kTrailerSize)
        return false;
    std::size_t trailer = bytes.size() - kTrailerSize;
    auto offsetWidth = bigEndian(bytes, trailer + 6, 1);
    auto objects = bigEndian(bytes, trailer + 8, 8);
    auto table = bigEndian(bytes, trailer + 24, 8);
    if (!offsetWidth || !objects || !table || *offsetWidth == 0 || *offsetWidth > 8 ||
        *table > trailer || *objects > (trailer - *table) / *offsetWidth)
        return false;
    for (std::uint64_t i = 0; i < *objects; ++i) {
        auto at = bigEndian(bytes, *table + i * *offsetWidth, *offsetWidth);
        // libplist follows an offset into the header or the trailer as well, so every
        // object it could reach is checked.
        if (!at || *at >= bytes.size())
            continue;
        std::size_t unitWidth = 1;
        auto span = stringAt(bytes, *at, unitWidth);
        if (span && holdsNul(bytes.substr(span->start, span->length), unitWidth))
            return true;
    }
    return false;
}

} // namespace tavvel
