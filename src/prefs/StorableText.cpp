#include "prefs/StorableText.h"

#include "prefs/Utf8Text.h"

#include <vector>

namespace tavvel {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool xmlCarries(char32_t c) {
    if (c < 0x20)
        return c == '\t' || c == '\n' || c == '\r';
    return c != 0xFFFE && c != 0xFFFF;
}

std::string withoutForbiddenCharacters(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        Utf8Character c = utf8CharacterAt(utf8, i);
        if (xmlCarries(c.value))
            out.append(utf8.substr(i, c.length));
        else
            appendUtf8(out, kReplacement);
        i += c.length;
    }
    return out;
}

bool makeKeysStorable(Dictionary& record) {
    std::vector<std::string> changing;
    for (const auto& [key, item] : record)
        if (!isStorableText(key))
            changing.push_back(key);
    for (const std::string& key : changing) {
        auto entry = record.extract(key);
        entry.key() = storableText(key);
        record.insert(std::move(entry));
    }
    return !changing.empty();
}

} // namespace

bool isStorableText(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        Utf8Character c = utf8CharacterAt(text, i);
        if (!c.valid || !xmlCarries(c.value))
            return false;
        i += c.length;
    }
    return true;
}

std::string storableText(std::string_view text) {
    if (isValidUtf8(text))
        return withoutForbiddenCharacters(text);
    return withoutForbiddenCharacters(windows1252ToUtf8(text));
}

bool makeTextsStorable(Value& value) {
    if (std::string* text = value.get<std::string>()) {
        if (isStorableText(*text))
            return false;
        *text = storableText(*text);
        return true;
    }
    bool changed = false;
    if (Array* list = value.get<Array>())
        for (Value& item : *list)
            changed = makeTextsStorable(item) || changed;
    if (Dictionary* record = value.get<Dictionary>()) {
        for (auto& [key, item] : *record)
            changed = makeTextsStorable(item) || changed;
        changed = makeKeysStorable(*record) || changed;
    }
    return changed;
}

} // namespace tavvel
