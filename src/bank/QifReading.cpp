// QIF register reading. Stages: decide what ends a record (a "^" line, or empty lines when the
// file has no "^" at all) and the order of the dates (QifDates.h); walk the lines with the skip
// flag of out-of-range records; collect fields and splits; keep each record that a "^" ends once it
// has a date.

#include "bank/BankingCreditCardQIF.h"
#include "bank/DateTexts.h"
#include "bank/QifDates.h"
#include "bank/StatementReaders.h"
#include "context/Context.h"
#include "formats/TransactionKeys.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "recognize/TextRewrite.h"
#include "recognize/TvDate.h"

#include <algorithm>

namespace tavvel {

namespace {

struct PendingSplit {
    std::optional<std::string> category;
    std::optional<std::string> memo;
    std::optional<Array> list;
};

// The plain fields, by their letter.
std::optional<TxField> fieldFor(char letter) {
    switch (letter) {
    case 'N':
        return TxField::number;
    case 'M':
        return TxField::memo;
    case 'L':
        return TxField::category;
    case 'C':
        return TxField::cleared;
    case 'P':
        return TxField::description;
    case 'T':
        return TxField::amount;
    default:
        return std::nullopt;
    }
}

// S starts a split, E gives its memo, $ adds it with an amount. Several $ lines after one S
// repeat its category; a $ before any S adds nothing.
void splitLine(std::string_view line, PendingSplit& split) {
    std::string rest(line.substr(1));
    switch (line.front()) {
    case 'S':
        split.category = rest;
        split.memo.reset();
        if (!split.list)
            split.list = Array{};
        break;
    case 'E':
        split.memo = rest;
        break;
    case '$':
        if (!split.category || !split.list)
            break;
        split.list->emplace_back(Dictionary{{"category", Value(*split.category)},
                                            {"memo", Value(split.memo.value_or(""))},
                                            {"amount", Value(rest)}});
        break;
    }
}

// A "^" keeps the record once it has a date, with its splits in place of its category.
void endRecord(TransactionRecord& record, PendingSplit& split,
               std::vector<TransactionRecord>& records) {
    if (!record.has(TxField::date))
        return;
    if (split.list) {
        record.setSplits(std::move(split.list));
        record.erase(TxField::category);
    }
    records.push_back(std::move(record));
    record = TransactionRecord{};
    split = PendingSplit{};
}

// An account block within the register describes the account, and its D line is a
// description, not a date; it holds no transaction.
bool inAccountBlock(std::string_view line, bool& inAccount) {
    if (!inAccount && line != "!Account")
        return false;
    inAccount = line.front() != '^';
    return true;
}

// What the walk over a register's lines carries from one line to the next.
struct RegisterWalk {
    bool caretEnds = false;
    bool dayFirst = false;
    DateTexts* dates = nullptr;
    Date fromDate, toDate;
    TransactionRecord record;
    PendingSplit split;
    bool skipping = false;
    bool inAccount = false;
};

// An empty line ends a record only in a file with no "^" at all; otherwise it is passed over.
std::optional<std::string_view> lineAsRead(std::string_view line, bool caretEnds) {
    if (!line.empty())
        return line;
    if (caretEnds)
        return std::nullopt;
    return "^";
}

// A D line: false when its date cannot be read. A date out of the range skips its record.
bool readDateLine(std::string_view line, RegisterWalk& walk, const Context& ctx) {
    auto day = readQifDate(line.substr(1), walk.dayFirst, ctx.config, ctx.clock);
    if (!day)
        return false;
    Date date = TvDate().dateWithYear(day->year, day->month, day->day);
    walk.skipping = date < walk.fromDate || date > walk.toDate;
    if (!walk.skipping)
        walk.record.point(TxField::date, walk.dates->of(date));
    return true;
}

// A field, the "^" that ends the record, or a split line.
void collectLine(std::string_view line, RegisterWalk& walk,
                 std::vector<TransactionRecord>& records) {
    if (auto field = fieldFor(line.front())) {
        std::string_view rest = line.substr(1);
        if (*field != TxField::amount) {
            walk.record.point(*field, rest);
            return;
        }
        std::string amount = convertEuropeanAmount(rest);
        if (amount == rest)
            walk.record.point(*field, rest);
        else
            walk.record.set(*field, amount);
        return;
    }
    if (line.front() == '^') {
        endRecord(walk.record, walk.split, records);
        return;
    }
    if (line.front() == 'S' || line.front() == 'E' || line.front() == '$')
        splitLine(line, walk.split);
}

} // namespace

QifRegisterRead readQifRegister(std::span<const std::string_view> lines, Date fromDate, Date toDate,
                                std::optional<bool> dayFirst, const Context& ctx,
                                TextArena& texts) {
    QifRegisterRead read;
    RegisterWalk walk;
    // Records are large next to a line: growing the list by moving them costs more than
    // counting first.
    std::size_t carets = static_cast<std::size_t>(std::count(lines.begin(), lines.end(), "^"));
    walk.caretEnds = carets > 0;
    read.records.reserve(carets);
    walk.dayFirst = dayFirst.value_or(qifDateEvidence(lines, ctx.config, ctx.clock)
                                          .shownDayFirst()
                                          .value_or(optionOn(ctx.prefs, option::europeanDates)));
    DateTexts dates(texts, ctx.output.longDatePattern());
    walk.dates = &dates;
    walk.fromDate = fromDate;
    walk.toDate = toDate;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        auto line = lineAsRead(lines[i], walk.caretEnds);
        if (!line || line->front() == ' ' || inAccountBlock(*line, walk.inAccount))
            continue;
        if (line->front() == 'D') {
            if (!readDateLine(*line, walk, ctx)) {
                read.badLine = i + 1;
                return read;
            }
            continue;
        }
        // An out-of-range record's "^" is passed over too, so whatever it collected before
        // its D line carries into the next record: files have always been read that way.
        if (!walk.skipping)
            collectLine(*line, walk, read.records);
    }
    return read;
}

std::size_t BankingCreditCardQIF::fromQIFLines(std::span<const std::string_view> lines,
                                               Date fromDate, Date toDate) {
    texts_.clear();
    QifRegisterRead read = readQifRegister(lines, fromDate, toDate, dayFirstDates_, ctx_, texts_);
    start(std::move(read.records));
    return read.badLine;
}

std::size_t BankingCreditCardQIF::fromQIFLines(const std::vector<std::string>& lines, Date fromDate,
                                               Date toDate) {
    return fromQIFLines(std::vector<std::string_view>(lines.begin(), lines.end()), fromDate,
                        toDate);
}

} // namespace tavvel
