#include "recognize/FindField.h"

#include "recognize/ByteClass.h"
#include "recognize/InputFormatKeys.h"

#include <string_view>

namespace tavvel {

namespace {

struct Layout {
    std::string_view name;
    bool nonUS = false; // bytes of 128 and more are field characters

    bool is(std::string_view n) const { return name == n; }
    bool graphic(char c) const { return isGraphByte(c) || (nonUS && isHighByte(c)); }
};

// A run of blanks up to the measured gap belongs to the separator; blanks beyond it stay
// with the next field, so right-aligned columns keep their alignment.
std::size_t afterMultipleBlanks(std::string_view text, std::size_t pos, std::int64_t gap) {
    std::size_t pair = text.find("  ", pos);
    if (pair == std::string_view::npos)
        return text.size();
    std::size_t i = pair + 2;
    while (i < text.size() && text[i] == ' ' && static_cast<std::int64_t>(i - pair) != gap)
        ++i;
    return i;
}

// Past a quoted part that starts at pos; a doubled quote inside does not end it. Nothing when
// the text ends inside the quotes.
std::optional<std::size_t> closingQuote(std::string_view text, std::size_t pos) {
    for (std::size_t from = pos + 1;;) {
        std::size_t quote = text.find('"', from);
        if (quote == std::string_view::npos)
            return std::nullopt;
        if (byteAt(text, quote + 1) != '"')
            return quote;
        from = quote + 2;
    }
}

std::size_t afterSeparator(std::string_view text, std::size_t from, char separator) {
    std::size_t at = text.find(separator, from);
    return at == std::string_view::npos ? text.size() : at + 1;
}

std::size_t nextSeparatedField(std::string& text, std::size_t pos, const Layout& layout) {
    std::size_t from = pos;
    const bool quoted = byteAt(text, pos) == '"';
    if (quoted) {
        std::optional<std::size_t> quote = closingQuote(text, pos);
        if (!quote)
            return text.size();
        from = *quote;
    }
    if (layout.is("SSV"))
        return afterSeparator(text, from, ';');
    if (quoted && byteAt(text, from + 1) == ' ' && from + 2 == text.size()) {
        text.resize(from + 1);
        return from + 1;
    }
    return afterSeparator(text, from, ',');
}

std::size_t skipTo(std::string_view text, std::size_t i, bool (*stop)(char, const Layout&),
                   const Layout& layout) {
    while (i < text.size() && !stop(text[i], layout))
        ++i;
    return i;
}

bool columnsStop(char c, const Layout& l) {
    return l.graphic(c) || c == '\t' || c == '\n' || c == '\r';
}
bool countStop(char c, const Layout& l) {
    return l.graphic(c);
}
bool tabsStop(char c, const Layout& l) {
    return l.graphic(c) || c == '\t';
}

// Separators are tabs and line ends; blanks after a separator that number exactly what the
// last field start had make the separator part of a field (a wrapped description, say).
std::size_t nextDelimitedField(std::string_view text, std::size_t pos, const Layout& layout,
                               BlankCounts& blanks) {
    const std::string_view separators = layout.is("TABS_ONLY") ? "\t" : "\t\n\r";
    for (std::size_t from = pos;;) {
        std::size_t sep = text.find_first_of(separators, from);
        if (sep == std::string_view::npos)
            return text.size();
        if (layout.is("COLUMNS"))
            return skipTo(text, sep + 1, columnsStop, layout);
        if (layout.is("COUNT"))
            return skipTo(text, sep + 1, countStop, layout);
        if (layout.is("TABS_ONLY"))
            return skipTo(text, sep + 1, tabsStop, layout);
        std::size_t word = text.find_first_not_of(' ', sep + 1);
        if (word == std::string_view::npos)
            word = text.size();
        const auto count = static_cast<std::int64_t>(word - sep - 1);
        if (count != blanks.initialBlanks) {
            blanks.initialBlanks = count;
            return word;
        }
        from = word;
    }
}

} // namespace

FieldLayout FieldLayout::of(const Dictionary& format) {
    const Value* fields = find(format, fmtkey::Fields);
    return {fields ? fields->text() : std::string(), has(format, fmtkey::nonUScharacters)};
}

std::size_t findField(std::string& text, std::size_t pos, const Dictionary& format,
                      BlankCounts& blanks) {
    return findField(text, pos, FieldLayout::of(format), blanks);
}

std::size_t findField(std::string& text, std::size_t pos, const FieldLayout& fieldLayout,
                      BlankCounts& blanks) {
    const Layout layout{fieldLayout.name, fieldLayout.nonUS};
    if (pos >= text.size())
        return text.size();
    if (layout.is("OFX"))
        return text.size();
    if (layout.is("MULTIPLE_BLANKS"))
        return afterMultipleBlanks(text, pos, blanks.multipleBlanks);
    if (layout.name.ends_with("SV"))
        return nextSeparatedField(text, pos, layout);
    return nextDelimitedField(text, pos, layout, blanks);
}

} // namespace tavvel
