// Amounts and splits made ready for output.

#include "bank/BankingCreditCardQIF.h"
#include "bank/QifInputTypes.h"
#include "context/Context.h"
#include "formats/TransactionKeys.h"
#include "prefs/Settings.h"

#include <algorithm>

namespace tavvel {

namespace {

// TvRemoveFromAmounts is one text of characters, or a list of texts; either way every byte
// of it is removed.
std::string charactersToRemove(const Configuration& config) {
    const Value* v = config.value(config::TvRemoveFromAmounts);
    if (!v)
        return {};
    if (v->isString())
        return v->text();
    std::string all;
    for (const Value& item : v->array())
        all += item.text();
    return all;
}

void removeAll(std::string& text, std::string_view characters) {
    if (characters.empty())
        return;
    std::erase_if(text, [&](char c) { return characters.find(c) != std::string_view::npos; });
}

void toEuropeanSeparators(std::string& amount) {
    std::erase(amount, ',');
    std::replace(amount.begin(), amount.end(), '.', ',');
}

// "(12.50)" and "12.50-" become "-12.50)" and "-12.50": only the opening parenthesis and the
// first minus are moved; a closing parenthesis goes only if it is configured for removal.
void leadingMinus(std::string& amount) {
    if (!amount.empty() && amount.front() == '(')
        amount.front() = '-';
    std::size_t minus = amount.find('-');
    if (minus != std::string::npos && minus != 0) {
        amount.erase(minus, 1);
        amount.insert(amount.begin(), '-');
    }
}

void flipSign(std::string& amount) {
    if (!amount.empty() && amount.front() == '-')
        amount.erase(0, 1);
    else
        amount.insert(amount.begin(), '-');
}

} // namespace

std::string BankingCreditCardQIF::normalizedAmount(std::string_view stored) const {
    std::string amount(stored);
    removeAll(amount, charactersToRemove(ctx_.config));
    if (optionOn(ctx_.prefs, option::outputEuropeanAmounts))
        toEuropeanSeparators(amount);
    leadingMinus(amount);
    if (qifInputTypeTag_ & kQifReverseSigns)
        flipSign(amount);
    return amount;
}

std::optional<std::string> BankingCreditCardQIF::normalizeQIFAmountIn(Dictionary& split) {
    Value* stored = find(split, txkey::amount);
    if (!stored)
        return std::nullopt;
    if (const Value* done = find(split, txkey::amountAlreadyConverted); done && done->toBool())
        return stored->text();
    std::string amount = normalizedAmount(stored->text());
    *stored = Value(amount);
    split.insert_or_assign(std::string(txkey::amountAlreadyConverted), Value(true));
    return amount;
}

std::optional<std::string> BankingCreditCardQIF::amountFor(TransactionRecord& record) {
    if (!record.has(TxField::amount))
        return std::nullopt;
    if (record.amountConverted())
        return std::string(record.text(TxField::amount));
    std::string amount = normalizedAmount(record.text(TxField::amount));
    if (amount != record.text(TxField::amount))
        record.set(TxField::amount, amount);
    record.markAmountConverted();
    return amount;
}

void BankingCreditCardQIF::processSplits(const Array* transactionSplits) {
    if (!transactionSplits) {
        splits_.reset();
        return;
    }
    splits_ = Array{};
    bool firstHasAmount = !transactionSplits->empty() &&
                          !textOf((*transactionSplits)[0].dictionary(), txkey::amount).empty();
    for (std::size_t i = 0; i < transactionSplits->size(); ++i) {
        Dictionary copy = (*transactionSplits)[i].dictionary();
        // A first split without an amount stands for the whole transaction.
        if (i == 0 && !firstHasAmount && current_ < records_.size())
            copy.insert_or_assign(std::string(txkey::amount),
                                  Value(std::string(records_[current_].text(TxField::amount))));
        normalizeQIFAmountIn(copy);
        splits_->emplace_back(std::move(copy));
    }
}

} // namespace tavvel
