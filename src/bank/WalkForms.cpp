// The walk's forms: the confirmation form and its actions, the new-instruction form, Back,
// Cancel, and the continuation record kept when the user finishes later.

#include "bank/BankTexts.h"
#include "bank/NewInstructionSaving.h"
#include "bank/WalkState.h"
#include "context/Context.h"
#include "dialogs/Dialogs.h"
#include "dialogs/RunHelpers.h"
#include "formats/OutputFormats.h"
#include "formats/TransactionKeys.h"
#include "forms/ConfirmForm.h"
#include "forms/NewInstructionForm.h"
#include "knowledge/Categories.h"
#include "knowledge/Descriptions.h"
#include "knowledge/Instructions.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/Settings.h"

namespace tavvel {

namespace {

// The confirmation form's description: the amount instruction's, the instruction's new one,
// the one typed before, or the record's.
std::string formDescription(const std::optional<Dictionary>& amount, const Dictionary& instruction,
                            const std::string& changed, const std::optional<std::string>& own) {
    if (amount && has(*amount, akey::amountDescription))
        return textOf(*amount, akey::amountDescription);
    if (has(instruction, ikey::newDescription))
        return textOf(instruction, ikey::newDescription);
    if (!changed.empty())
        return changed;
    return own.value_or("");
}

std::string formMemo(const std::optional<Dictionary>& amount, const Dictionary& instruction,
                     const std::optional<std::string>& own) {
    if (amount && has(*amount, akey::amountMemo))
        return textOf(*amount, akey::amountMemo);
    if (has(instruction, ikey::newMemo))
        return textOf(instruction, ikey::newMemo);
    return own.value_or("");
}

} // namespace

std::string BankingCreditCardQIF::formCategory(const TransactionRecord& record) const {
    if (amountInstruction_)
        return categoryFor(record, textOf(*amountInstruction_, akey::amountCategory));
    if (!instruction_.empty())
        return categoryFor(record, textOf(instruction_, ikey::category));
    bool keepsNone = !optionOn(ctx_.prefs, option::dontAddCategories) &&
                     !optionOn(ctx_.prefs, option::useCategoriesIfPresent);
    return keepsNone ? std::string() : std::string(record.text(TxField::category));
}

ConfirmForm::Setup BankingCreditCardQIF::confirmSetup(const Walk& walk, const Prepared& p,
                                                      const TransactionRecord& record) const {
    ConfirmForm::Setup setup;
    setup.recordDate = record.text(TxField::date);
    setup.date = p.date;
    setup.fixedDate = !walk.options.outputDate.empty();
    setup.datePattern = ctx_.output.longDatePattern();
    setup.amount = p.amount;
    setup.number = numberFor(record, walk.options);
    setup.description =
        formDescription(amountInstruction_, instruction_, changedDescription, p.description);
    if (record.has(TxField::memo))
        setup.memo = formMemo(amountInstruction_, instruction_, p.memo);
    setup.category = formCategory(record);
    setup.splits = splits_;
    setup.recordHasCategory = record.has(TxField::category);
    setup.mustConfirm = mustConfirm_;
    setup.splitInstructionConfirm = splitInstructionConfirm;
    setup.qifOutput = walk.writer.QIFOutput();
    setup.backEnabled = current_ > 0;
    setup.instructionKeyedOnDescription = !has(instruction_, ikey::categoryMatch);
    return setup;
}

BankingCreditCardQIF::Step BankingCreditCardQIF::confirm(Walk& walk, Prepared& p,
                                                         TransactionRecord& record) {
    redisplayConfirm_ = false;
    // A front end that accepts the form as filled would write exactly what the form would be
    // filled with, so neither the form nor its setup is made; a refused category still
    // shows it.
    if (walk.dialogs.acceptsFormsAsShown()) {
        BankOutput out{
            p.date,
            formDescription(amountInstruction_, instruction_, changedDescription, p.description),
            record.has(TxField::memo) ? formMemo(amountInstruction_, instruction_, p.memo) : p.memo,
            p.amount,
            numberFor(record, walk.options),
            formCategory(record),
            clearedFor(record, walk.options),
            splits_ ? &*splits_ : nullptr};
        if (writeAccepted(walk, record, out))
            return Step::advanced;
    }
    ConfirmForm form(ctx_.prefs);
    form.fill(confirmSetup(walk, p, record));
    return confirmed(walk, p, record, form);
}

// A second OK after a refused category replaces what the first one wrote.
bool BankingCreditCardQIF::writeAccepted(Walk& walk, const TransactionRecord& record,
                                         const BankOutput& out) {
    walk.output.resize(record.outputLength().value_or(0));
    walk.writer.produceBankCCOutput(walk.output, out);
    Categories categories(ctx_.prefs);
    bool accepted = true;
    if (out.splits)
        for (const Value& s : *out.splits)
            accepted = accepted && categories.registerCategory(textOf(s.dictionary(), "category"),
                                                               walk.dialogs);
    else
        accepted = categories.registerCategory(out.category.value_or(""), walk.dialogs);
    if (!accepted)
        return false;
    rememberDescription(walk, out.description.value_or(""));
    return true;
}

// A walk nobody answers meets descriptions by the thousand: they join the list together when
// it ends. One that shows its forms adds each at once, for the next form's completion.
void BankingCreditCardQIF::rememberDescription(const Walk& walk, std::string_view description) {
    if (!walk.dialogs.acceptsFormsAsShown()) {
        Descriptions(ctx_.prefs).addDescription(description);
        return;
    }
    if (description.empty() || descriptionsSeen_.contains(description))
        return;
    descriptionsSeen_.emplace(description);
    descriptionsMet_.emplace_back(description);
}

void BankingCreditCardQIF::addDescriptionsMet() {
    if (!descriptionsMet_.empty())
        Descriptions(ctx_.prefs).addDescriptions(descriptionsMet_);
    descriptionsMet_.clear();
    descriptionsSeen_.clear();
}

BankingCreditCardQIF::Step BankingCreditCardQIF::confirmed(Walk& walk, Prepared& p,
                                                           TransactionRecord& record,
                                                           ConfirmForm& form) {
    while (true) {
        ConfirmAction action = walk.dialogs.confirmTransaction(form);
        switch (action) {
        case ConfirmAction::ok: {
            if (form.userSplits()) {
                record.setUserSplits(true);
                record.setSplits(form.splits());
            }
            std::optional<Array> formSplits = form.splits();
            BankOutput out{form.date(),
                           form.description(),
                           form.memoShown() ? std::optional(form.memo()) : p.memo,
                           p.amount,
                           form.number(),
                           form.category(),
                           clearedFor(record, walk.options),
                           formSplits ? &*formSplits : nullptr};
            if (writeAccepted(walk, record, out))
                return Step::advanced;
            if (!walk.dialogs.acceptsFormsAsShown())
                continue;
            // Nobody can correct the category, and asking again would never end. Stopping
            // (rather than finishing later) because such a walk has let its records go.
            return Step::stopNow;
        }
        case ConfirmAction::skip:
            return Step::skipped;
        case ConfirmAction::skipRemaining:
            return Step::stop;
        case ConfirmAction::back:
            return back();
        case ConfirmAction::cancel: {
            Step answer = cancelled(walk);
            if (answer == Step::rerun)
                continue;
            return answer;
        }
        case ConfirmAction::swapDescriptionAndMemo:
            doSwap = true;
            return Step::rerun;
        case ConfirmAction::descriptionChanged:
            changedDescription = form.description();
            return Step::rerun;
        case ConfirmAction::addInstruction:
        case ConfirmAction::addAmountInstruction: {
            bool amountOnly = action == ConfirmAction::addAmountInstruction;
            record.setUserSplits(false);
            cancelReturnsToConfirm = true;
            return newInstruction(walk, p, record, std::string(text::addInstructionPrompt),
                                  p.description.value_or(""), amountOnly);
        }
        }
    }
}

BankingCreditCardQIF::Step BankingCreditCardQIF::back() {
    if (current_ == 0)
        return Step::rerun;
    records_[current_].setOutputLength(std::nullopt);
    --current_;
    if (numberOfTransactionsAppended > 0)
        --numberOfTransactionsAppended;
    return Step::back;
}

// 0 stop now, 1 finish later, anything else: back to the form (rerun).
BankingCreditCardQIF::Step BankingCreditCardQIF::cancelled(Walk& walk) {
    switch (cancelConfirm(ctx_.prefs, walk.dialogs)) {
    case 0:
        return Step::stopNow;
    case 1:
        return Step::finishLater;
    default:
        return Step::rerun;
    }
}

BankingCreditCardQIF::Step BankingCreditCardQIF::newInstruction(Walk& walk, Prepared& p,
                                                                TransactionRecord& record,
                                                                std::optional<std::string> prompt,
                                                                std::string matched,
                                                                bool addAmountOnly) {
    NewInstructionForm form(ctx_.prefs);
    NewInstructionForm::Setup setup;
    setup.amount = p.amount;
    setup.prompt = std::move(prompt);
    setup.addAmountOnly = addAmountOnly;
    setup.description = std::move(matched);
    setup.category = record.optionalText(TxField::category);
    setup.transaction = record.toDictionary();
    setup.instruction = instruction_;
    setup.cancelReturnsToConfirm = cancelReturnsToConfirm;
    setup.runOutputNumber = walk.options.outputNumber;
    setup.normalizeAmount = [this](Dictionary& split) { normalizeQIFAmountIn(split); };
    suggestInto(setup);
    form.fill(setup);
    while (true) {
        NewInstructionAction action = walk.dialogs.newInstruction(form);
        formMemo_ = form.useMemoOn() ? std::optional(form.newMemo()) : std::nullopt;
        switch (action) {
        case NewInstructionAction::useAsRead:
            takeSuggestion(walk, form, record);
            outputKept(p, record, walk.output, walk.writer, walk.options);
            return Step::advanced;
        case NewInstructionAction::cancel: {
            if (cancelReturnsToConfirm) {
                cancelReturnsToConfirm = false;
                redisplayConfirm_ = true;
                return Step::rerun;
            }
            Step answer = cancelled(walk);
            if (answer == Step::rerun)
                continue;
            return answer;
        }
        case NewInstructionAction::save:
            if (saveNewInstruction(form, ctx_.prefs, walk.dialogs) != SaveOutcome::stored)
                continue;
            extractedCheckNumber.reset();
            cancelReturnsToConfirm = false;
            return Step::rerun;
        }
    }
}

Dictionary BankingCreditCardQIF::continuation(const std::string& output) {
    Array records;
    records.reserve(records_.size());
    for (const TransactionRecord& record : records_)
        records.emplace_back(record.toDictionary());
    return Dictionary{{"qif", Value(std::move(records))},
                      {"fileAsString", Value(output)},
                      {"currentTransactionIndex", Value(static_cast<std::int64_t>(current_))},
                      {"numberOfTransactionsAppended",
                       Value(static_cast<std::int64_t>(numberOfTransactionsAppended))}};
}

} // namespace tavvel
