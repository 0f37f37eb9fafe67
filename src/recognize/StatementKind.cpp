#include "recognize/StatementKind.h"

#include "recognize/ByteClass.h"

namespace tavvel {

namespace {

bool startsWithIgnoringCase(std::string_view text, std::string_view prefix) {
    if (text.size() < prefix.size())
        return false;
    for (std::size_t i = 0; i < prefix.size(); ++i)
        if (asciiLower(text[i]) != asciiLower(prefix[i]))
            return false;
    return true;
}

// The rest of the text after a construct that runs from its start up to and including `end`;
// nothing when the construct is not closed.
std::string_view after(std::string_view text, std::string_view end) {
    std::size_t at = text.find(end);
    return at == std::string_view::npos ? std::string_view() : text.substr(at + end.size());
}

// An OFX 1 header line such as "DATA:OFXSGML": capitals, a colon, a value without tags.
std::size_t headerLineLength(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && text[i] >= 'A' && text[i] <= 'Z')
        ++i;
    if (i == 0 || i >= text.size() || text[i] != ':')
        return 0;
    std::size_t end = text.find_first_of("\r\n<", i);
    if (end == std::string_view::npos || text[end] == '<')
        return 0;
    return end;
}

// The text after what may stand before the root element; nothing when a prolog, comment or
// declaration is left open.
std::string_view skipProlog(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    while (!text.empty()) {
        if (isSpaceByte(text.front()))
            text.remove_prefix(1);
        else if (text.starts_with("<?"))
            text = after(text, "?>");
        else if (text.starts_with("<!--"))
            text = after(text.substr(4), "-->");
        else if (text.starts_with("<!"))
            text = after(text, ">");
        else if (std::size_t line = headerLineLength(text))
            text.remove_prefix(line);
        else
            break;
    }
    return text;
}

} // namespace

bool looksLikeOfx(std::string_view text) {
    if (text.find("OFXHEADER") != std::string_view::npos)
        return true;
    std::string_view root = skipProlog(text);
    return startsWithIgnoringCase(root, "<OFX") && root.size() > 4 &&
           (root[4] == '>' || isSpaceByte(root[4]));
}

bool isQifClearedLine(std::string_view line) {
    if (!line.starts_with('C'))
        return false;
    line.remove_prefix(1);
    if (!line.empty() && std::string_view("*cCxXrR").find(line.front()) != std::string_view::npos)
        line.remove_prefix(1);
    for (char c : line)
        if (c != ' ' && c != '\t')
            return false;
    return true;
}

} // namespace tavvel
