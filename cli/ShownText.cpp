#include "ShownText.h"

#include <array>
#include <utility>

namespace tavvel {

namespace {

struct Character {
    char32_t code = 0;
    std::size_t bytes = 1;
};

// A byte that does not begin a valid sequence counts as one character of its own.
Character characterAt(std::string_view text, std::size_t i) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const std::size_t bytes = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
    if (bytes == 1 || i + bytes > text.size())
        return {lead, 1};
    char32_t code = lead & (0x3F >> (bytes - 1));
    for (std::size_t k = 1; k < bytes; ++k) {
        const auto next = static_cast<unsigned char>(text[i + k]);
        if ((next & 0xC0) != 0x80)
            return {lead, 1};
        code = (code << 6) | (next & 0x3F);
    }
    return {code, bytes};
}

bool within(char32_t code, const std::pair<char32_t, char32_t>& range) {
    return code >= range.first && code <= range.second;
}

constexpr std::array<std::pair<char32_t, char32_t>, 6> kZeroWidth{{{0x0300, 0x036F},
                                                                   {0x200B, 0x200F},
                                                                   {0x20D0, 0x20FF},
                                                                   {0xFE00, 0xFE0F},
                                                                   {0xFE20, 0xFE2F},
                                                                   {0xE0100, 0xE01EF}}};
constexpr std::array<std::pair<char32_t, char32_t>, 9> kWide{{{0x1100, 0x115F},
                                                              {0x2E80, 0x303E},
                                                              {0x3041, 0xA4CF},
                                                              {0xAC00, 0xD7A3},
                                                              {0xF900, 0xFAFF},
                                                              {0xFE30, 0xFE4F},
                                                              {0xFF00, 0xFF60},
                                                              {0xFFE0, 0xFFE6},
                                                              {0x1F300, 0x3FFFD}}};

std::size_t columnsOf(char32_t code) {
    for (const auto& range : kZeroWidth)
        if (within(code, range))
            return 0;
    for (const auto& range : kWide)
        if (within(code, range))
            return 2;
    return 1;
}

} // namespace

std::size_t shownWidth(std::string_view text) {
    std::size_t width = 0;
    for (std::size_t i = 0; i < text.size();) {
        const Character c = characterAt(text, i);
        width += columnsOf(c.code);
        i += c.bytes;
    }
    return width;
}

std::string fittedText(std::string_view text, std::size_t width) {
    const std::size_t shown = shownWidth(text);
    if (shown <= width)
        return std::string(text) + std::string(width - shown, ' ');
    // Room for the "~" that says the cell goes on; marks that follow the last character kept
    // stay with it.
    const std::size_t room = width == 0 ? 0 : width - 1;
    std::size_t used = 0, cut = 0;
    while (cut < text.size()) {
        const Character c = characterAt(text, cut);
        const std::size_t columns = columnsOf(c.code);
        if (used + columns > room)
            break;
        used += columns;
        cut += c.bytes;
    }
    std::string out(text.substr(0, cut));
    if (width > 0)
        out += '~';
    return out + std::string(room - used, ' ');
}

} // namespace tavvel
