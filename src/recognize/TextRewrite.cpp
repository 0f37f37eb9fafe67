#include "recognize/TextRewrite.h"

#include "recognize/ByteClass.h"

#include <algorithm>

namespace tavvel {

namespace {

std::size_t findIgnoringCase(std::string_view text, std::string_view target, std::size_t from) {
    auto same = [](char a, char b) { return asciiLower(a) == asciiLower(b); };
    auto hit = std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(),
                           target.begin(), target.end(), same);
    return hit == text.end() ? std::string_view::npos
                             : static_cast<std::size_t>(hit - text.begin());
}

// The comma that separates decimals, when the text has one.
std::optional<std::size_t> decimalComma(std::string_view amount) {
    for (std::size_t i = amount.size(); i-- > 0;) {
        if (amount[i] == '.')
            return std::nullopt;
        if (amount[i] == ',' && !isDigitByte(byteAt(amount, i + 3)))
            return i;
    }
    return std::nullopt;
}

} // namespace

void caseInsensitiveReplace(std::string& text, std::string_view target,
                            std::string_view replacement) {
    if (target.empty())
        return;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t hit = findIgnoringCase(text, target, start);
        if (hit == std::string::npos)
            return;
        text.replace(hit, target.size(), replacement);
        start += hit + replacement.size();
    }
}

std::string convertEuropeanAmount(std::string_view amount) {
    std::string out(amount);
    const std::optional<std::size_t> comma = decimalComma(amount);
    if (!comma)
        return out;
    for (std::size_t i = 0; i < *comma; ++i) {
        if (out[i] == ',')
            out[i] = '.';
        else if (out[i] == '.')
            out[i] = ',';
    }
    out[*comma] = '.';
    return out;
}

std::string convertOutputForFieldType(const TvPrefs& prefs, std::string_view key,
                                      std::optional<std::string_view> description,
                                      std::optional<std::string_view> memo) {
    const Value* stored = prefs.objectForKey(key);
    const std::string_view pattern = stored ? std::string_view(stored->text()) : "";
    // The patterns almost every user keeps, answered without going through them.
    if (pattern == "%d")
        return std::string(description.value_or(""));
    if (pattern == "%m")
        return std::string(memo.value_or(""));
    std::string out;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != '%') {
            out += pattern[i];
            continue;
        }
        if (++i == pattern.size())
            break;
        if (pattern[i] == 'd')
            out += description.value_or("");
        else if (pattern[i] == 'm')
            out += memo.value_or("");
        else
            out.append({'%', pattern[i]});
    }
    return out;
}

} // namespace tavvel
