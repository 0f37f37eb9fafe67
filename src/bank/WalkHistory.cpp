// The walk's part in the conversion history: the key each record is known by, the question
// before a duplicate is written again, and what was written or left out.

#include "bank/BankTexts.h"
#include "bank/BankingCreditCardQIF.h"
#include "bank/WalkState.h"
#include "context/Context.h"
#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "formats/OutputFormats.h"
#include "formats/TransactionKeys.h"
#include "history/CategorySuggester.h"
#include "history/HistoryTexts.h"
#include "history/RunDuplicates.h"
#include "knowledge/KnowledgeKeys.h"
#include "recognize/CalendarDate.h"

namespace tavvel {

namespace {

std::optional<std::string_view> pendingText(const PendingRecords::Texts& texts,
                                            std::string_view key) {
    for (std::size_t k = 0; k < PendingRecords::keys.size(); ++k)
        if (PendingRecords::keys[k] == key)
            return texts[k];
    return std::nullopt;
}

} // namespace

// The amount is taken as it will be written, so that "1,234.50" and "1234.50" are one amount.
// A record not made yet is read from its packed texts: a whole record for each of many
// thousands of transactions would cost more than the lookup it is for.
TransactionKey BankingCreditCardQIF::historyKeyAt(std::size_t i) {
    if (!pending_.pending(i))
        return historyKeyOf(qif[i]);
    PendingRecords::Texts texts = pending_.textsAt(i);
    auto text = [&texts](std::string_view key) {
        return std::string(pendingText(texts, key).value_or(""));
    };
    TransactionKey key{text(txkey::date), "", text(txkey::number), text(txkey::description), ""};
    if (auto amount = pendingText(texts, txkey::amount)) {
        Dictionary record{{std::string(txkey::amount), Value(std::string(*amount))}};
        key.amount = normalizeQIFAmountIn(record).value_or("");
    }
    return key;
}

// Only the amount is normalised, on a copy of its own: the record stays as read.
TransactionKey BankingCreditCardQIF::historyKeyOf(const Dictionary& record) {
    TransactionKey key{textOf(record, txkey::date), "", textOf(record, txkey::number),
                       textOf(record, txkey::description), textOf(record, txkey::fitid)};
    if (const Value* amount = find(record, txkey::amount)) {
        Dictionary only{{std::string(txkey::amount), *amount}};
        if (const Value* done = find(record, txkey::amountAlreadyConverted))
            only.emplace(std::string(txkey::amountAlreadyConverted), *done);
        key.amount = normalizeQIFAmountIn(only).value_or("");
    }
    return key;
}

void BankingCreditCardQIF::markDuplicates() {
    if (!duplicates)
        return;
    for (std::size_t i = 0; i < maxTransactionIndex; ++i) {
        bool error = !pending_.pending(i) && has(qif[i], txkey::errorMessage);
        if (!error)
            duplicates->mark(i, historyKeyAt(i));
    }
}

// Skip is the first answer, so a run that never asks leaves duplicates out.
bool BankingCreditCardQIF::leavesOutDuplicate(Walk& walk, const Dictionary& record) {
    if (!duplicates)
        return false;
    auto on = duplicates->duplicateOn(currentTransactionIndex);
    if (!on)
        return false;
    std::string day = formatDate(Date{static_cast<double>(*on)}, ctx_.output.longDatePattern());
    std::string shown = textOf(record, txkey::date) + "  " + textOf(record, txkey::amount) + "  " +
                        textOf(record, txkey::description);
    std::size_t pressed =
        walk.dialogs.ask(formatMessage(text::alreadyConverted, day), shown,
                         {std::string(text::skipTransaction), std::string(text::convertAgain)});
    return pressed == 0;
}

void BankingCreditCardQIF::noteWalked(const Walk& walk, bool written) {
    if (!duplicates)
        return;
    if (written)
        duplicates->written(currentTransactionIndex, walk.writer.lastCategory(),
                            textOf(instruction_, ikey::descriptionMatch));
    else
        duplicates->leftOut(currentTransactionIndex);
}

// Only for a new instruction keyed on the description, and a transaction without a category.
void BankingCreditCardQIF::suggestInto(NewInstructionForm::Setup& setup) const {
    if (!suggester || !setup.prompt || setup.addAmountOnly ||
        (setup.category && !setup.category->empty()))
        return;
    if (auto suggestion = suggester->suggest(setup.description)) {
        setup.suggestedCategory = std::move(suggestion->category);
        setup.suggestedMatch = std::move(suggestion->matchText);
    }
}

void BankingCreditCardQIF::takeSuggestion(const Walk& walk, const NewInstructionForm& form,
                                          Dictionary& record) {
    if (walk.options.writeSuggestions && form.categorySuggested())
        record.insert_or_assign(std::string(txkey::category), Value(form.category()));
}

} // namespace tavvel
