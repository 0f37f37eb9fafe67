#include "bank/OfxValues.h"

#include "recognize/ByteClass.h"

#include <array>
#include <cstdint>

namespace tavvel {

namespace {

bool startsWithNoCase(std::string_view text, std::string_view prefix) {
    if (text.size() < prefix.size())
        return false;
    for (std::size_t i = 0; i < prefix.size(); ++i)
        if (asciiLower(text[i]) != prefix[i])
            return false;
    return true;
}

void appendUtf8(std::string& out, std::uint32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// The code point of "#123" or "#x7B"; nothing when it is none.
std::optional<std::uint32_t> numericEntity(std::string_view name) {
    bool hex = name.size() > 1 && (name[1] == 'x' || name[1] == 'X');
    std::string_view digits = name.substr(hex ? 2 : 1);
    if (digits.empty() || digits.size() > 8)
        return std::nullopt;
    std::uint32_t value = 0;
    for (char c : digits) {
        int digit = isDigitByte(c)                                        ? c - '0'
                    : hex && asciiLower(c) >= 'a' && asciiLower(c) <= 'f' ? asciiLower(c) - 'a' + 10
                                                                          : -1;
        if (digit < 0)
            return std::nullopt;
        value = value * (hex ? 16 : 10) + static_cast<std::uint32_t>(digit);
    }
    if (value == 0 || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
        return std::nullopt;
    return value;
}

// Appends what the entity `name` (between "&" and ";") stands for; false when it is none.
bool appendEntity(std::string& out, std::string_view name, bool utf8) {
    constexpr std::array<std::pair<std::string_view, char>, 5> named{
        {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};
    for (auto [entity, c] : named)
        if (name == entity) {
            out += c;
            return true;
        }
    if (name.empty() || name[0] != '#')
        return false;
    auto code = numericEntity(name);
    if (!code || (!utf8 && *code > 0xFF))
        return false;
    if (utf8)
        appendUtf8(out, *code);
    else
        out += static_cast<char>(*code);
    return true;
}

} // namespace

bool ofxDeclaresUtf8(std::string_view text) {
    std::string_view head = text.substr(0, 1024);
    for (std::size_t at = 0; at < head.size(); ++at) {
        if (startsWithNoCase(head.substr(at), "encoding:utf-8") ||
            startsWithNoCase(head.substr(at), "encoding=\"utf-8\"") ||
            startsWithNoCase(head.substr(at), "encoding='utf-8'"))
            return true;
    }
    std::size_t xml = head.find("<?xml");
    return xml != std::string_view::npos &&
           head.substr(xml, head.find("?>", xml) - xml).find("encoding") == std::string_view::npos;
}

std::string ofxText(std::string_view value, bool utf8) {
    std::string out;
    out.reserve(value.size());
    for (std::size_t at = 0; at < value.size(); ++at) {
        std::size_t end = value[at] == '&' ? value.find(';', at) : std::string_view::npos;
        if (end != std::string_view::npos && end - at <= 10 &&
            appendEntity(out, value.substr(at + 1, end - at - 1), utf8)) {
            at = end;
            continue;
        }
        out += value[at];
    }
    return out;
}

namespace {

// Digits with marks between them: true when every mark stands between groups of three
// digits (the mark of thousands).
bool groupsOfThree(std::string_view digits, char mark) {
    std::size_t first = digits.find(mark);
    if (first == std::string_view::npos)
        return true;
    if (first == 0 || first > 3 || (digits.size() - first) % 4 != 0)
        return false;
    for (std::size_t at = first; at < digits.size(); ++at)
        if ((digits[at] == mark) != ((at - first) % 4 == 0))
            return false;
    return true;
}

bool onlyDigitsAnd(std::string_view text, char mark) {
    for (char c : text)
        if (!isDigitByte(c) && c != mark)
            return false;
    return true;
}

} // namespace

namespace {

std::string_view trimmedSpaces(std::string_view value) {
    while (!value.empty() && isSpaceByte(value.front()))
        value.remove_prefix(1);
    while (!value.empty() && isSpaceByte(value.back()))
        value.remove_suffix(1);
    return value;
}

// A leading sign, taken off the value.
std::string takeSign(std::string_view& value) {
    if (value.empty() || (value.front() != '-' && value.front() != '+'))
        return {};
    std::string sign(1, value.front());
    value.remove_prefix(1);
    return sign;
}

bool amountPartsValid(std::string_view whole, std::string_view fraction, char grouping) {
    return onlyDigitsAnd(whole, grouping) && onlyDigitsAnd(fraction, '\0') &&
           groupsOfThree(whole, grouping) && !(whole.empty() && fraction.empty());
}

} // namespace

std::optional<std::string> ofxAmount(std::string_view value) {
    value = trimmedSpaces(value);
    std::string out = takeSign(value);
    // The last mark is the decimal mark; the other kind may group thousands before it.
    std::size_t decimal = value.find_last_of(".,");
    bool hasDecimal = decimal != std::string_view::npos;
    std::string_view whole = value.substr(0, hasDecimal ? decimal : value.size());
    std::string_view fraction = hasDecimal ? value.substr(decimal + 1) : std::string_view();
    char grouping = !hasDecimal ? '\0' : value[decimal] == '.' ? ',' : '.';
    if (!amountPartsValid(whole, fraction, grouping))
        return std::nullopt;
    for (char c : whole)
        if (c != grouping)
            out += c;
    if (hasDecimal)
        out += "." + std::string(fraction);
    return out;
}

} // namespace tavvel
