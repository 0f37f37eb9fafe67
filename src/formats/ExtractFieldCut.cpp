#include "formats/ExtractFieldCut.h"

#include "recognize/FindField.h"
#include "recognize/InputFormatKeys.h"

#include <algorithm>

namespace tavvel::extract {

namespace {

bool isLineEnd(char c) {
    return c == '\n' || c == '\r';
}

// The tab that separated the field, and the line ends turned into blanks, end it as blanks do.
bool isTrailingBlank(char c) {
    return c == ' ' || c == '\t';
}

} // namespace

FieldCutter::FieldCutter(const Dictionary& format, BlankCounts& blanks)
    : fieldLayout_(FieldLayout::of(format)), blanks_(blanks), ofxLike_(has(format, fmtkey::OFX)) {
    const std::string& layout = fieldLayout_.name;
    separated_ = layout.ends_with("SV");
    separator_ = layout == "SSV" ? ';' : layout == "CSV" ? ',' : '\0';
}

std::string_view FieldCutter::withoutRecordEnd(std::string_view transaction) const {
    if (!separated_)
        return transaction;
    while (!transaction.empty() && isLineEnd(transaction.back()))
        transaction.remove_suffix(1);
    return transaction;
}

Cut FieldCutter::cut(std::string& text, std::size_t pos, bool mayHoldLineEnds) const {
    Cut c;
    c.next = std::min(findField(text, pos, fieldLayout_, blanks_), text.size());
    if (c.next <= pos)
        c.next = text.size(); // every field moves the cut on, or ends it
    if (mayHoldLineEnds)
        std::replace_if(text.begin() + static_cast<std::ptrdiff_t>(pos),
                        text.begin() + static_cast<std::ptrdiff_t>(c.next), isLineEnd, ' ');
    c.start = pos;
    while (c.start < c.next && text[c.start] == ' ')
        ++c.start;
    if (separated_) {
        separatedBounds(text, c);
    } else {
        c.end = c.next;
        while (c.end > pos && isTrailingBlank(text[c.end - 1]))
            --c.end;
    }
    if (c.end < c.start && c.status == CutStatus::ok)
        c.status = CutStatus::endsBeforeStart;
    return c;
}

// Blanks before the separator belong to the field. A quoted field loses its quotes and the
// blanks before the closing one.
void FieldCutter::separatedBounds(const std::string& text, Cut& c) const {
    c.end = c.next == text.size() ? c.next : c.next - 1;
    if (separator_ && c.end > c.start && text[c.end - 1] == separator_)
        --c.end;
    if (c.start >= c.end || text[c.start] != '"')
        return;
    c.quoted = true;
    if (c.end - c.start == 1 || text[c.end - 1] != '"') {
        c.status = CutStatus::unclosedQuote;
        ++c.start;
        return;
    }
    ++c.start;
    --c.end;
    while (c.end > c.start && text[c.end - 1] == ' ')
        --c.end;
}

std::string fieldText(std::string_view text, const Cut& cut) {
    if (cut.end <= cut.start)
        return {};
    std::string_view field = text.substr(cut.start, cut.end - cut.start);
    if (!cut.quoted || field.find("\"\"") == std::string_view::npos)
        return std::string(field);
    std::string out;
    out.reserve(field.size());
    for (std::size_t i = 0; i < field.size(); ++i) {
        out += field[i];
        if (field[i] == '"' && i + 1 < field.size() && field[i + 1] == '"')
            ++i;
    }
    return out;
}

} // namespace tavvel::extract
