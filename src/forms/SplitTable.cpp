#include "forms/SplitTable.h"

#include "formats/TransactionKeys.h"
#include "prefs/Settings.h"
#include "recognize/TextRewrite.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace tavvel {

std::string_view keyOf(SplitColumn column) {
    switch (column) {
    case SplitColumn::category:
        return txkey::category;
    case SplitColumn::memo:
        return txkey::memo;
    case SplitColumn::amount:
        return txkey::amount;
    }
    return txkey::amount;
}

namespace {

Dictionary blankSplit() {
    return Dictionary{{std::string(txkey::category), Value("")},
                      {std::string(txkey::memo), Value("")},
                      {std::string(txkey::amount), Value("")}};
}

// An amount as the balancing reads it: European separators turned round, thousands commas
// dropped, and the leading number taken in single precision; no number reads as 0.
float amountValue(std::string_view text) {
    std::string plain = convertEuropeanAmount(text);
    std::erase(plain, ',');
    std::string_view rest(plain);
    while (!rest.empty() && (rest.front() == ' ' || rest.front() == '+'))
        rest.remove_prefix(1);
    float value = 0;
    std::from_chars(rest.data(), rest.data() + rest.size(), value);
    return value;
}

std::string printed(float value, int precision) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*f", precision, static_cast<double>(value));
    return buffer;
}

} // namespace

int splitAmountPrecision(const TvPrefs& prefs) {
    if (!prefs.objectForKey(prefkey::bccAmountsPrecision))
        return 2;
    return static_cast<int>(
        std::clamp<std::int64_t>(prefs.integerForKey(prefkey::bccAmountsPrecision), 0, 10));
}

SplitTable::SplitTable(const Array& splits) {
    for (const Value& split : splits)
        rows_.push_back(split.dictionary());
}

Array SplitTable::splits() const {
    return Array(rows_.begin(), rows_.end());
}

std::string SplitTable::cellText(std::size_t row, SplitColumn column) const {
    if (row >= rows_.size())
        return {};
    return textOf(rows_[row], keyOf(column));
}

void SplitTable::appendRow(Dictionary split) {
    rows_.push_back(std::move(split));
}

void SplitTable::addBlankRow() {
    rows_.push_back(blankSplit());
}

void SplitTable::setCell(std::size_t row, SplitColumn column, std::string text) {
    if (row < rows_.size())
        rows_[row].insert_or_assign(std::string(keyOf(column)), Value(std::move(text)));
}

void SplitTable::clear() {
    rows_.clear();
    selected_.reset();
}

void SplitTable::select(std::optional<std::size_t> row) {
    selected_ = row && *row < rows_.size() ? row : std::nullopt;
}

void SplitTable::deleteSelectedRow() {
    if (!selected_)
        return;
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(*selected_));
    selected_.reset();
}

bool SplitTable::adjustSplitAmountsCanCreate(std::string_view amount, bool canCreate,
                                             const SplitBalancing& how) {
    if (rows_.empty())
        return false;
    const float total = amountValue(amount);
    float sum = 0;
    for (const Dictionary& row : rows_)
        sum += amountValue(textOf(row, txkey::amount));
    if (sum == total)
        return false;
    const bool create = canCreate && rows_.size() == 1;
    if (create)
        addBlankRow();
    Dictionary& chosen = create ? rows_.back() : rows_.front();
    const float own = amountValue(textOf(chosen, txkey::amount));
    chosen.insert_or_assign(std::string(txkey::amount),
                            Value(printed(total - (sum - own), how.precision)));
    chosen.erase(std::string(txkey::amountAlreadyConverted));
    if (how.normalise)
        how.normalise(chosen);
    return true;
}

} // namespace tavvel
