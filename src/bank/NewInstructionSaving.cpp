#include "bank/NewInstructionSaving.h"

#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "formats/TransactionKeys.h"
#include "forms/InstructionFormTexts.h"
#include "forms/NewInstructionForm.h"
#include "knowledge/Amounts.h"
#include "knowledge/Categories.h"
#include "knowledge/Descriptions.h"
#include "knowledge/Instructions.h"
#include "knowledge/KnowledgeKeys.h"

namespace tavvel {

namespace {

using Splits = NewInstructionForm::Splits;

std::string_view matchKeyOf(const NewInstructionForm& form) {
    return form.newInstructionForCategory() ? ikey::categoryMatch : ikey::descriptionMatch;
}

std::string matchTextOf(const NewInstructionForm& form) {
    return form.newInstructionForCategory().value_or(form.matchText());
}

void put(Dictionary& record, std::string_view key, const Value& value) {
    record.insert_or_assign(std::string(key), value);
}

void putWhen(bool on, Dictionary& record, std::string_view key, const std::string& text) {
    if (on)
        put(record, key, Value(text));
    else
        record.erase(std::string(key));
}

Dictionary amountInstructionFrom(const NewInstructionForm& form) {
    Dictionary amount{{std::string(akey::amount), Value(form.amount().value_or(""))},
                      {std::string(akey::amountDescription), Value(form.amountDescription())},
                      {std::string(akey::amountCategory), Value(form.amountCategory())}};
    putWhen(form.amountUseMemo(), amount, akey::amountMemo, form.amountMemo());
    setFlag(amount, akey::amountConfirm, form.amountConfirmOn());
    if (const SplitTable& splits = form.splits(Splits::amount); !splits.empty())
        put(amount, akey::splits, Value(splits.splits()));
    return amount;
}

// addCategoriesForSplits: — stops at the first category the user refuses.
bool registerSplitCategories(const SplitTable& splits, Categories& categories, Dialogs& dialogs) {
    for (const Dictionary& split : splits.rows())
        if (!categories.registerCategory(textOf(split, txkey::category), dialogs))
            return false;
    return true;
}

bool registerCategoriesAndDescriptions(const NewInstructionForm& form, TvPrefs& prefs,
                                       Dialogs& dialogs) {
    Categories categories(prefs);
    Descriptions descriptions(prefs);
    if (!categories.registerCategory(form.category(), dialogs))
        return false;
    if (form.useDescription())
        descriptions.addDescription(form.newDescription());
    if (!form.amountSwitchOn())
        return true;
    if (!categories.registerCategory(form.amountCategory(), dialogs))
        return false;
    descriptions.addDescription(form.amountDescription());
    return true;
}

// An amount instruction is meant to join the instruction that already stands, so only a
// plain instruction asks before replacing one.
bool replaceConfirmed(const NewInstructionForm& form, const Instructions& instructions,
                      Dialogs& dialogs) {
    std::string match = matchTextOf(form);
    if (form.amountSwitchOn() || !instructions.instructionMatching(match, matchKeyOf(form)))
        return true;
    std::size_t answer = dialogs.ask(std::string(text::instructionsExistTitle),
                                     formatMessage(text::instructionsExistText, {match, match}),
                                     {std::string(text::yesButton), std::string(text::noButton)});
    return answer == 0;
}

} // namespace

Dictionary instructionFromForm(const NewInstructionForm& form) {
    Dictionary instruction = form.setup().instruction;
    if (const SplitTable& splits = form.splits(Splits::instruction); !splits.empty())
        put(instruction, ikey::splits, Value(splits.splits()));
    instruction.erase(std::string(ikey::descriptionMatch));
    instruction.erase(std::string(ikey::categoryMatch));
    put(instruction, matchKeyOf(form), Value(matchTextOf(form)));
    putWhen(form.useDescription(), instruction, ikey::newDescription, form.newDescription());
    putWhen(form.useMemoOn(), instruction, ikey::newMemo, form.newMemo());
    put(instruction, ikey::category, Value(form.category()));
    setFlag(instruction, ikey::categoryConfirm, form.confirmOn());
    if (form.amountSwitchOn())
        Amounts::setAmount(amountInstructionFrom(form), instruction);
    setFlag(instruction, ikey::number, form.extractNumberOn());
    return instruction;
}

SaveOutcome saveNewInstruction(NewInstructionForm& form, TvPrefs& prefs, Dialogs& dialogs) {
    Categories categories(prefs);
    if (!registerSplitCategories(form.splits(Splits::instruction), categories, dialogs))
        return SaveOutcome::keptOpen;
    if (form.amountSwitchOn() &&
        !registerSplitCategories(form.splits(Splits::amount), categories, dialogs))
        return SaveOutcome::keptOpen;
    if (!registerCategoriesAndDescriptions(form, prefs, dialogs))
        return SaveOutcome::keptOpen;
    Instructions instructions(prefs);
    if (!replaceConfirmed(form, instructions, dialogs))
        return SaveOutcome::keptOpen;
    instructions.setInstruction(instructionFromForm(form));
    return SaveOutcome::stored;
}

} // namespace tavvel
