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

// The amount is taken as it will be written, so that "1,234.50" and "1234.50" are one amount;
// the record stays as read.
TransactionKey BankingCreditCardQIF::historyKeyOf(const TransactionRecord& record) const {
    TransactionKey key{
        std::string(record.text(TxField::date)), "", std::string(record.text(TxField::number)),
        std::string(record.text(TxField::description)), std::string(record.text(TxField::fitid))};
    if (!record.has(TxField::amount))
        return key;
    std::string_view amount = record.text(TxField::amount);
    key.amount = record.amountConverted() ? std::string(amount) : normalizedAmount(amount);
    return key;
}

TransactionKey BankingCreditCardQIF::historyKeyAt(std::size_t i) const {
    return historyKeyOf(records_[i]);
}

void BankingCreditCardQIF::markDuplicates() {
    if (!duplicates)
        return;
    for (std::size_t i = 0; i < records_.size(); ++i)
        if (!records_[i].isError())
            duplicates->mark(i, historyKeyAt(i));
}

// Skip is the first answer, so a run that never asks leaves duplicates out.
bool BankingCreditCardQIF::leavesOutDuplicate(Walk& walk, const TransactionRecord& record) {
    if (!duplicates)
        return false;
    auto on = duplicates->duplicateOn(current_);
    if (!on)
        return false;
    std::string day = formatDate(Date{static_cast<double>(*on)}, ctx_.output.longDatePattern());
    std::string shown = std::string(record.text(TxField::date)) + "  " +
                        std::string(record.text(TxField::amount)) + "  " +
                        std::string(record.text(TxField::description));
    std::size_t pressed =
        walk.dialogs.ask(formatMessage(text::alreadyConverted, day), shown,
                         {std::string(text::skipTransaction), std::string(text::convertAgain)});
    return pressed == 0;
}

void BankingCreditCardQIF::noteWalked(const Walk& walk, bool written) {
    if (!duplicates)
        return;
    if (written)
        duplicates->written(current_, walk.writer.lastCategory(),
                            textOf(instruction_, ikey::descriptionMatch));
    else
        duplicates->leftOut(current_);
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
                                          TransactionRecord& record) {
    if (walk.options.writeSuggestions && form.categorySuggested())
        record.set(TxField::category, form.category());
}

} // namespace tavvel
