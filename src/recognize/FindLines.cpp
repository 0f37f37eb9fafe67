#include "recognize/FindLines.h"

namespace tavvel {

namespace {

struct LineEnds {
    std::size_t crlf = 0;
    std::size_t lf = 0;
    std::size_t cr = 0;
};

// Found by memchr, which looks at many bytes at a time: a large statement is counted at the
// speed of reading memory.
std::size_t countByte(std::string_view text, char byte) {
    std::size_t count = 0;
    for (std::size_t at = text.find(byte); at != std::string_view::npos;
         at = text.find(byte, at + 1))
        ++count;
    return count;
}

LineEnds countLineEnds(std::string_view text) {
    LineEnds ends;
    ends.lf = countByte(text, '\n');
    for (std::size_t at = text.find('\r'); at != std::string_view::npos;
         at = text.find('\r', at + 1)) {
        ++ends.cr;
        if (at + 1 < text.size() && text[at + 1] == '\n')
            ++ends.crlf;
    }
    return ends;
}

std::vector<std::string_view> split(std::string_view text, std::string_view separator,
                                    std::size_t pieces) {
    std::vector<std::string_view> lines;
    lines.reserve(pieces);
    std::size_t from = 0;
    for (std::size_t at = text.find(separator); at != std::string_view::npos;
         at = text.find(separator, from)) {
        lines.push_back(text.substr(from, at - from));
        from = at + separator.size();
    }
    lines.push_back(text.substr(from));
    return lines;
}

} // namespace

std::vector<std::string_view> findLineViews(std::string_view text, std::string& withoutCR) {
    const LineEnds ends = countLineEnds(text);
    if (ends.crlf > 0 && ends.lf == ends.crlf)
        return split(text, "\r\n", ends.crlf + 1);
    if (ends.crlf > 0) {
        // Cut at LF with every CR gone is the same as cutting first and removing them after.
        withoutCR.assign(text);
        std::erase(withoutCR, '\r');
        return split(withoutCR, "\n", ends.lf + 1);
    }
    if (ends.cr > 0)
        return split(text, "\r", ends.cr + 1);
    return split(text, "\n", ends.lf + 1);
}

std::vector<std::string> findLines(std::string_view text) {
    std::string withoutCR;
    const std::vector<std::string_view> views = findLineViews(text, withoutCR);
    return {views.begin(), views.end()};
}

} // namespace tavvel
