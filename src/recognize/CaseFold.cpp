#include "recognize/CaseFold.h"

#include "prefs/Utf8Text.h"

#include <unicode/uchar.h>

namespace tavvel {

namespace {

// A byte that starts no valid UTF-8 sequence is read alone and placed above every code point
// so that it never equals one.
struct Character {
    char32_t value;
    std::size_t length;
};

constexpr char32_t kRawByte = 0x110000;

Character decodeAt(std::string_view s, std::size_t i) {
    Utf8Character c = utf8CharacterAt(s, i);
    return {c.valid ? c.value : kRawByte + c.value, c.length};
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
