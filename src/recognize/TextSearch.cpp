#include "recognize/TextSearch.h"

#include "recognize/ByteClass.h"

namespace tavvel {

std::optional<std::size_t> nonNullMin(std::optional<std::size_t> a, std::optional<std::size_t> b) {
    if (!b)
        return a;
    if (!a)
        return b;
    return *a < *b ? a : b;
}

std::optional<std::size_t> matchField(std::string_view text, std::string_view label,
                                      bool valueFollows) {
    if (label.empty())
        return std::nullopt;
    const std::size_t at = text.find(label);
    if (at == std::string_view::npos)
        return std::nullopt;
    if (valueFollows) {
        std::size_t p = at + label.size();
        while (p < text.size() && isSpaceByte(text[p]))
            ++p;
        return p;
    }
    std::size_t p = at; // one past the byte looked at
    while (p > 0 && !isGraphByte(text[p - 1]))
        --p;
    if (p == 0)
        return std::nullopt;
    while (p > 0 && isGraphByte(text[p - 1]))
        --p;
    if (p == 0)
        return std::nullopt;
    return p;
}

std::string_view findSymbol(std::string_view text) {
    std::size_t end = 1;
    while (end < text.size() && !isSpaceByte(text[end]))
        ++end;
    return text.substr(0, end);
}

} // namespace tavvel
