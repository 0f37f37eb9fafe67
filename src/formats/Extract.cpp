// Cutting a statement into transactions. A transaction runs from one date to the next, or is
// one line when the format says so; the text before the first transaction is left out unless
// the format says the text starts with one. In a comma or semicolon layout a date that opens a
// quoted field takes the field's opening quote into its transaction, so that the field reads as
// quoted rather than as a date followed by a stray quote.

#include "formats/Extract.h"

#include "context/Context.h"
#include "formats/ExtractKeys.h"
#include "formats/ExtractRun.h"
#include "recognize/FindDate.h"
#include "recognize/InputFormatKeys.h"
#include "recognize/WordMonthTable.h"

#include <algorithm>

namespace tavvel {

bool transactionOpensAtQuote(const Dictionary& format) {
    return textOf(format, fmtkey::DateStart) == "\"" &&
           textOf(format, fmtkey::Fields).ends_with("SV");
}

std::string textAsRead(std::string_view text, const Dictionary& format) {
    if (textOf(format, fmtkey::DateStart) == "\n")
        return "\n" + std::string(text);
    return std::string(text);
}

Extract::Extract(Context& ctx) : ctx_(ctx) {}

Extract::~Extract() = default;

void Extract::splitTextIntoLines(std::string_view text, const Dictionary& format) {
    text_.assign(text);
    transactionsAsLines.clear();
    const WordMonthDates tables(ctx_.config);
    std::optional<std::size_t> first = findDate(text_, dateLength, format, tables, ctx_.blanks);
    if (!first)
        return;
    const bool fromStart = has(format, fmtkey::firstLineStartsWithTransactionDate);
    if (!has(format, fmtkey::OneTransactionPerLine)) {
        const bool atQuote = transactionOpensAtQuote(format);
        const bool quoteFirst = atQuote && *first > 0 && text_[*first - 1] == '"';
        cutAtDates(fromStart ? 0 : *first - (quoteFirst ? 1 : 0), format, tables, atQuote);
        return;
    }
    if (fromStart) {
        cutAtLineEnds(0);
        return;
    }
    const std::size_t lineEnd =
        *first == 0 ? std::string::npos : text_.find_last_of("\n\r", *first - 1);
    cutAtLineEnds(lineEnd == std::string::npos ? 0 : lineEnd + 1);
}

// Each search starts one date length after the current transaction's start, so the date that
// opens it is never found again: its start character lies before the search. The character
// before each later date (the format's DateStart) belongs to neither transaction, unless it is
// the opening quote of the date's field: then it begins the date's transaction.
void Extract::cutAtDates(std::size_t begin, const Dictionary& format, const WordMonthDates& tables,
                         bool atQuote) {
    const std::string_view text = text_;
    std::size_t start = begin;
    std::int64_t length = 0;
    for (std::size_t previousFrom = std::string::npos;;) {
        const bool opensAtQuote = atQuote && start < text.size() && text[start] == '"';
        const auto skip =
            static_cast<std::size_t>(std::max<std::int64_t>(length, 0)) + (opensAtQuote ? 1 : 0);
        const std::size_t from = std::min(start + std::min(skip, text.size()), text.size());
        if (from == previousFrom)
            break; // a date of no length at the same place: nothing further can be found
        previousFrom = from;
        std::optional<std::size_t> found =
            findDate(text.substr(from), length, format, tables, ctx_.blanks);
        if (!found || from + *found >= text.size())
            break;
        const std::size_t date = from + *found;
        const std::size_t cut = date > start ? date - 1 : start;
        transactionsAsLines.push_back(text.substr(start, cut - start));
        start = atQuote && date > start + 1 && text[date - 1] == '"' ? date - 1 : date;
        dateLength = length;
    }
    transactionsAsLines.push_back(text.substr(start));
}

// Every line feed and every carriage return ends a line, so CR LF leaves an empty transaction
// between two lines; the reading run passes over it.
void Extract::cutAtLineEnds(std::size_t begin) {
    const std::string_view text = text_;
    std::size_t start = begin;
    // Line feeds and carriage returns are each found by memchr, which looks at many bytes at
    // a time; the next line feed is kept, so text of carriage returns alone is not searched
    // to its end for each line.
    std::size_t lf = text.find('\n', start);
    for (;;) {
        if (lf != std::string_view::npos && lf < start)
            lf = text.find('\n', start);
        const std::size_t cr =
            text.substr(0, lf == std::string_view::npos ? text.size() : lf).find('\r', start);
        const std::size_t end = cr != std::string_view::npos ? cr : lf;
        if (end == std::string_view::npos)
            break;
        transactionsAsLines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    if (start < text.size())
        transactionsAsLines.push_back(text.substr(start));
}

bool Extract::parseTransactionsForCString(std::string_view text, const Dictionary& format) {
    splitTextIntoLines(text, format);
    if (transactionsAsLines.empty())
        return false;
    transactionIndex = -1;
    runFor_ = nullptr;
    outputLength = {};
    outputLength.reserve(transactionsAsLines.size());
    return true;
}

std::string_view Extract::currentTransactionText() const {
    if (transactionIndex < 0 ||
        static_cast<std::size_t>(transactionIndex) >= transactionsAsLines.size())
        return {};
    return transactionsAsLines[static_cast<std::size_t>(transactionIndex)];
}

} // namespace tavvel
