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

std::optional<std::string> BankingCreditCardQIF::normalizeQIFAmountIn(Dictionary& record) {
    Value* stored = find(record, txkey::amount);
    if (!stored)
        return std::nullopt;
    if (const Value* done = find(record, txkey::amountAlreadyConverted); done && done->toBool())
        return stored->text();
    std::string amount = stored->text();
    removeAll(amount, charactersToRemove(ctx_.config));
    if (optionOn(ctx_.prefs, option::outputEuropeanAmounts))
        toEuropeanSeparators(amount);
    leadingMinus(amount);
    if (qifInputTypeTag & kQifReverseSigns)
        flipSign(amount);
    *stored = Value(amount);
    if (Value* done = find(record, txkey::amountAlreadyConverted))
        *done = Value(true);
    else
        pending_.insert(record, txkey::amountAlreadyConverted, Value(true));
    return amount;
}

void BankingCreditCardQIF::processSplits(const Array* transactionSplits) {
    if (!transactionSplits) {
        splits.reset();
        return;
    }
    splits = Array{};
    bool firstHasAmount = !transactionSplits->empty() &&
                          !textOf((*transactionSplits)[0].dictionary(), txkey::amount).empty();
    for (std::size_t i = 0; i < transactionSplits->size(); ++i) {
        Dictionary copy = (*transactionSplits)[i].dictionary();
        // A first split without an amount stands for the whole transaction.
        if (i == 0 && !firstHasAmount && currentTransactionIndex < qif.size())
            copy.insert_or_assign(std::string(txkey::amount),
                                  Value(textOf(qif[currentTransactionIndex], txkey::amount)));
        normalizeQIFAmountIn(copy);
        splits->emplace_back(std::move(copy));
    }
}

} // namespace tavvel
