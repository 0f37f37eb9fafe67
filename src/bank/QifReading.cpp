// QIF register reading. Stages: decide what ends a record (a "^" line, or empty lines when the
// file has no "^" at all) and the order of the dates (QifDates.h); walk the lines with the skip
// flag of out-of-range records; collect fields and splits; keep each record that a "^" ends once it
// has a date.

#include "bank/BankingCreditCardQIF.h"
#include "bank/QifDates.h"
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
std::optional<std::string_view> keyFor(char letter) {
    switch (letter) {
    case 'N':
        return txkey::number;
    case 'M':
        return txkey::memo;
    case 'L':
        return txkey::category;
    case 'C':
        return txkey::cleared;
    case 'P':
        return txkey::description;
    case 'T':
        return txkey::amount;
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
void endRecord(Dictionary& record, PendingSplit& split, std::vector<Dictionary>& qif) {
    if (!has(record, txkey::date))
        return;
    if (split.list) {
        record.insert_or_assign(std::string(txkey::splits), Value(std::move(*split.list)));
        record.erase(std::string(txkey::category));
    }
    qif.push_back(std::move(record));
    record = Dictionary{};
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
    std::string pattern;
    Date fromDate, toDate;
    Dictionary record;
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
        walk.record.insert_or_assign(std::string(txkey::date),
                                     Value(formatDate(date, walk.pattern)));
    return true;
}

// A field, the "^" that ends the record, or a split line.
void collectLine(std::string_view line, RegisterWalk& walk, bool splitsOK,
                 std::vector<Dictionary>& qif) {
    if (auto key = keyFor(line.front())) {
        std::string rest(line.substr(1));
        if (*key == txkey::amount)
            rest = convertEuropeanAmount(rest);
        walk.record.insert_or_assign(std::string(*key), Value(std::move(rest)));
        return;
    }
    if (line.front() == '^') {
        endRecord(walk.record, walk.split, qif);
        return;
    }
    if (splitsOK && (line.front() == 'S' || line.front() == 'E' || line.front() == '$'))
        splitLine(line, walk.split);
}

} // namespace

std::size_t BankingCreditCardQIF::fromQIFLines(const std::vector<std::string>& lines, Date fromDate,
                                               Date toDate) {
    startReading();
    RegisterWalk walk;
    walk.caretEnds = std::find(lines.begin(), lines.end(), "^") != lines.end();
    walk.dayFirst =
        dayFirstDates.value_or(qifDateEvidence(lines, ctx_.config, ctx_.clock)
                                   .shownDayFirst()
                                   .value_or(optionOn(ctx_.prefs, option::europeanDates)));
    walk.pattern = ctx_.output.longDatePattern();
    walk.fromDate = fromDate;
    walk.toDate = toDate;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        auto line = lineAsRead(lines[i], walk.caretEnds);
        if (!line || line->front() == ' ' || inAccountBlock(*line, walk.inAccount))
            continue;
        if (line->front() == 'D') {
            if (!readDateLine(*line, walk, ctx_))
                return i + 1;
            continue;
        }
        // An out-of-range record's "^" is passed over too, so whatever it collected before
        // its D line carries into the next record: files have always been read that way.
        if (!walk.skipping)
            collectLine(*line, walk, splitsOK, qif);
    }
    finishReading();
    return 0;
}

} // namespace tavvel
