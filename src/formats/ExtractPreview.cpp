// The learning dialogue's preview of a layout: the sample cut the way a reading run would cut
// it, each field made fit for a table cell. A field the run would refuse is still shown.

#include "context/Context.h"
#include "formats/Extract.h"
#include "formats/ExtractKeys.h"
#include "formats/ExtractRun.h"
#include "recognize/InputFormatKeys.h"

#include <array>

namespace tavvel {

namespace {

constexpr std::size_t kCellLength = 255;

constexpr std::array<std::string_view, 8> kLayoutByChoice{
    "INITIAL_BLANKS", "COLUMNS", "COUNT", "TABS_ONLY", "MULTIPLE_BLANKS", "CSV", "COLUMNS", "SSV"};
constexpr int kColumnsFromLineStart = 6;

// Line ends were already turned into blanks by the cut.
std::string cellText(std::string_view field) {
    std::string out;
    out.reserve(std::min(field.size(), kCellLength));
    for (std::size_t i = 0; i < field.size() && out.size() < kCellLength; ++i) {
        const char c = field[i] == '\n' || field[i] == '\r' ? ' ' : field[i];
        if (c == ' ' && !out.empty() && out.back() == ' ')
            continue;
        out += c;
    }
    return out;
}

void storeSwitch(Dictionary& format, std::string_view key, bool on) {
    if (on)
        format.insert_or_assign(std::string(key), Value(true));
    else
        format.erase(std::string(key));
}

} // namespace

void Extract::parseFields(const LayoutChoice& layout, Dictionary& format) {
    format.erase(std::string(fmtkey::DistanceFromNewline));
    if (layout.choice >= 0 && static_cast<std::size_t>(layout.choice) < kLayoutByChoice.size())
        format.insert_or_assign(std::string(fmtkey::Fields),
                                Value(kLayoutByChoice[static_cast<std::size_t>(layout.choice)]));
    if (layout.choice == kColumnsFromLineStart)
        format.insert_or_assign(std::string(fmtkey::DistanceFromNewline),
                                Value(distanceFromNewline));
    storeSwitch(format, fmtkey::OneTransactionPerLine, layout.oneTransactionPerLine);
    storeSwitch(format, fmtkey::nonUScharacters, layout.nonUScharacters);

    splitTextIntoLines(textAsRead(inputCsave, format), format);
    transactionsAsFields.clear();
    transactionsAsFields.reserve(transactionsAsLines.size());
    previewColumns = 0;
    const extract::RunFormat run(format, ctx_);
    for (std::string_view transaction : transactionsAsLines)
        transactionsAsFields.push_back(previewRow(transaction, run));
}

Dictionary Extract::previewRow(std::string_view transaction, const extract::RunFormat& run) {
    std::vector<std::string> fields;
    if (run.ofxLike) {
        fields.emplace_back(transaction.substr(0, 8));
        fields.emplace_back(transaction.substr(std::min<std::size_t>(8, transaction.size())));
    } else if (!transaction.empty()) {
        work_.assign(run.cutter.withoutRecordEnd(transaction));
        for (std::size_t pos = 0; pos < work_.size();) {
            const extract::Cut cut = run.cutter.cut(work_, pos);
            fields.push_back(extract::fieldText(work_, cut));
            pos = cut.next;
        }
    }
    Dictionary row;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        std::string cell = cellText(fields[i]);
        if (!cell.empty())
            previewColumns = std::max(previewColumns, static_cast<std::int64_t>(i) + 1);
        row.emplace(std::to_string(i), Value(std::move(cell)));
    }
    return row;
}

} // namespace tavvel
