#include "recognize/CaseFold.h"

#include "recognize/Utf8.h"

#include <unicode/uchar.h>

namespace tavvel {

namespace {

// A character read from UTF-8; a byte that starts no valid sequence is read alone and
// placed above every code point so that it never equals one.
struct Character {
    char32_t value;
    std::size_t length;
};

constexpr char32_t kRawByte = 0x110000;

unsigned byteAt(std::string_view s, std::size_t i) {
    return static_cast<unsigned char>(s[i]);
}

bool continuation(std::string_view s, std::size_t i) {
    return i < s.size() && (byteAt(s, i) & 0xC0) == 0x80;
}

// Lead byte: sequence length and the bounds that exclude overlong forms and surrogates.
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

Character decodeAt(std::string_view s, std::size_t i) {
    unsigned b = byteAt(s, i);
    if (b < 0x80)
        return {b, 1};
    auto lead = leadOf(b);
    Character raw{kRawByte + b, 1};
    if (!lead || i + lead->length > s.size())
        return raw;
    unsigned second = byteAt(s, i + 1);
    if (second < lead->low || second > lead->high)
        return raw;
    char32_t value = lead->bits;
    for (std::size_t k = 1; k < lead->length; ++k) {
        if (!continuation(s, i + k))
            return raw;
        value = (value << 6) | (byteAt(s, i + k) & 0x3F);
    }
    return {value, lead->length};
}

char32_t fold(char32_t c) {
    if (c < 0x80)
        return (c >= 'A' && c <= 'Z') ? c + ('a' - 'A') : c;
    if (c >= kRawByte)
        return c;
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(c), U_FOLD_CASE_DEFAULT));
}

void append(std::string& out, char32_t c) {
    if (c >= kRawByte)
        out.push_back(static_cast<char>(c - kRawByte));
    else
        appendUtf8(out, c);
}

bool isAscii(std::string_view text) {
    for (char c : text)
        if (static_cast<unsigned char>(c) >= 0x80)
            return false;
    return true;
}

// Walks both texts character by character, folded, until they differ or one ends.
struct Walk {
    std::size_t a = 0, b = 0;
    int order = 0; // set when a character differed
};

Walk walkTogether(std::string_view a, std::string_view b) {
    Walk w;
    while (w.a < a.size() && w.b < b.size()) {
        Character ca = decodeAt(a, w.a), cb = decodeAt(b, w.b);
        char32_t fa = fold(ca.value), fb = fold(cb.value);
        if (fa != fb) {
            w.order = fa < fb ? -1 : 1;
            return w;
        }
        w.a += ca.length;
        w.b += cb.length;
    }
    return w;
}

} // namespace

std::string foldCase(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    if (isAscii(text)) {
        for (char c : text)
            out.push_back((c >= 'A' && c <= 'Z') ? static_cast<char>(c + ('a' - 'A')) : c);
        return out;
    }
    for (std::size_t i = 0; i < text.size();) {
        Character c = decodeAt(text, i);
        append(out, fold(c.value));
        i += c.length;
    }
    return out;
}

int compareIgnoringCase(std::string_view a, std::string_view b) {
    Walk w = walkTogether(a, b);
    if (w.order != 0)
        return w.order;
    bool aLeft = w.a < a.size(), bLeft = w.b < b.size();
    return aLeft == bLeft ? 0 : (aLeft ? 1 : -1);
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return compareIgnoringCase(a, b) == 0;
}

std::optional<std::size_t> prefixIgnoringCase(std::string_view text, std::string_view prefix) {
    Walk w = walkTogether(text, prefix);
    if (w.order != 0 || w.b < prefix.size())
        return std::nullopt;
    return w.a;
}

bool startsWithIgnoringCase(std::string_view text, std::string_view prefix) {
    return prefixIgnoringCase(text, prefix).has_value();
}

bool containsIgnoringCase(std::string_view text, std::string_view part) {
    return foldCase(text).find(foldCase(part)) != std::string::npos;
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++count)
        i += decodeAt(text, i).length;
    return count;
}

} // namespace tavvel
