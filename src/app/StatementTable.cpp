#include "app/StatementTable.h"

#include "app/TableTexts.h"
#include "bank/QifInputTypes.h"
#include "context/Context.h"
#include "dialogs/MessageFormat.h"
#include "forms/RunForm.h"
#include "prefs/Settings.h"

#include <limits>

namespace tavvel {

namespace {

constexpr int kMostPlaces = 9;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string counted(std::size_t count, std::string_view one) {
    return std::to_string(count) + " " + std::string(one) + (count == 1 ? "" : "s");
}

// The same flip the walk makes: a leading minus goes, otherwise one is put in front.
std::string flipped(const std::string& amount) {
    if (!amount.empty() && amount.front() == '-')
        return amount.substr(1);
    return "-" + amount;
}

} // namespace

TableFilter tableFilterFor(const RunForm& form, const Context& ctx) {
    TableFilter filter;
    filter.range = dateRangeFor(form.whichTransactions, ctx.clock.now(), form.dateFrom, form.dateTo,
                                ctx.output.longDatePattern(), ctx.output.shortDatePattern());
    filter.decimalPoint = optionOn(ctx.prefs, option::outputEuropeanAmounts) ? ',' : '.';
    if (form.sameDate && !form.outputDate.empty())
        filter.sameDate = form.outputDate;
    int tag = form.textInput  ? 0
              : form.ofxInput ? (form.qfxType == kQfxSwapIndex ? kQifSwapDescriptionAndMemo : 0)
                              : qifInputTypeTag(form.qifType);
    filter.swapDescriptionAndMemo = tag & kQifSwapDescriptionAndMemo;
    filter.reverseSigns = tag & kQifReverseSigns;
    return filter;
}

bool TableFilter::operator==(const TableFilter& other) const {
    auto bounds = [](const std::optional<DateRange>& r) {
        return r ? std::optional(std::pair(r->from, r->to)) : std::nullopt;
    };
    return bounds(range) == bounds(other.range) && sameDate == other.sameDate &&
           swapDescriptionAndMemo == other.swapDescriptionAndMemo &&
           reverseSigns == other.reverseSigns && decimalPoint == other.decimalPoint;
}

bool ExactSum::scaleTo(int places) {
    for (; places_ < places; ++places_)
        if (__builtin_mul_overflow(units_, 10, &units_))
            return false;
    return true;
}

void ExactSum::add(std::string_view amount) {
    bool negative = !amount.empty() && amount.front() == '-';
    amount.remove_prefix(negative ? 1 : 0);
    std::size_t point = amount.find(point_);
    char grouping = point_ == '.' ? ',' : '.';
    std::int64_t units = 0;
    int places = 0;
    bool digits = false;
    for (std::size_t i = 0; i < amount.size() && known_; ++i) {
        char c = amount[i];
        if (isDigit(c)) {
            digits = true;
            places += point != std::string_view::npos && i > point;
            known_ = !__builtin_mul_overflow(units, 10, &units) &&
                     !__builtin_add_overflow(units, c - '0', &units);
        } else if (c != grouping && i != point) {
            known_ = false;
        }
    }
    known_ = known_ && digits && places <= kMostPlaces && scaleTo(places);
    for (int p = places; known_ && p < places_; ++p)
        known_ = !__builtin_mul_overflow(units, 10, &units);
    if (known_)
        known_ = !__builtin_add_overflow(units_, negative ? -units : units, &units_);
}

std::optional<std::string> ExactSum::text(bool negated) const {
    if (!known_ || units_ == std::numeric_limits<std::int64_t>::min())
        return std::nullopt;
    std::int64_t units = negated ? -units_ : units_;
    std::string digits = std::to_string(units < 0 ? -units : units);
    if (places_ > 0) {
        if (digits.size() <= static_cast<std::size_t>(places_))
            digits.insert(0, static_cast<std::size_t>(places_) + 1 - digits.size(), '0');
        digits.insert(digits.size() - static_cast<std::size_t>(places_), ".");
    }
    return (units < 0 ? "-" : "") + digits;
}

void StatementTable::setRows(std::vector<StatementRow> rows) {
    rows_ = std::move(rows);
    refilter();
}

void StatementTable::setFilter(const TableFilter& filter) {
    filter_ = filter;
    refilter();
}

// An error record is always shown: the walk stops on it whatever the range.
bool StatementTable::passes(const StatementRow& row) const {
    if (row.isError() || !filter_.range || !row.date)
        return true;
    return *row.date >= filter_.range->from && *row.date <= filter_.range->to;
}

void StatementTable::refilter() {
    shown_.clear();
    written_ = 0;
    errors_ = 0;
    sum_ = ExactSum(filter_.decimalPoint);
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (!passes(rows_[i]))
            continue;
        shown_.push_back(static_cast<std::uint32_t>(i));
        if (rows_[i].isError()) {
            ++errors_;
            continue;
        }
        ++written_;
        sum_.add(rows_[i].amount);
    }
}

std::string StatementTable::summary() const {
    std::string written = counted(written_, "transaction");
    auto total = writtenSum();
    std::string line = total ? formatMessage(text::tableWillWrite, {written, *total})
                             : formatMessage(text::tableWillWriteUnknownTotal, written);
    if (errors_ > 0)
        line += formatMessage(text::tableErrorRecords, counted(errors_, "record"));
    return line;
}

std::string StatementTable::date(std::size_t shown) const {
    const StatementRow& r = row(shown);
    return filter_.sameDate && !r.isError() ? *filter_.sameDate : r.dateText;
}

std::string StatementTable::amount(std::size_t shown) const {
    const StatementRow& r = row(shown);
    return filter_.reverseSigns && !r.isError() && !r.amount.empty() ? flipped(r.amount) : r.amount;
}

std::string StatementTable::description(std::size_t shown) const {
    return filter_.swapDescriptionAndMemo ? row(shown).memo : row(shown).description;
}

std::string StatementTable::memo(std::size_t shown) const {
    return filter_.swapDescriptionAndMemo ? row(shown).description : row(shown).memo;
}

std::string StatementTable::category(std::size_t shown) const {
    return filter_.swapDescriptionAndMemo ? row(shown).categoryOfMemo : row(shown).category;
}

} // namespace tavvel
