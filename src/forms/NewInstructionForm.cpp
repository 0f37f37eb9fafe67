#include "forms/NewInstructionForm.h"

#include "formats/TransactionKeys.h"
#include "forms/CategoryWarning.h"
#include "forms/InstructionFormTexts.h"
#include "knowledge/Categories.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/Settings.h"
#include "recognize/CaseFold.h"

#include <algorithm>

namespace tavvel {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::optional<std::string> nonEmptyText(const Dictionary& record, std::string_view key) {
    std::string text = textOf(record, key);
    return text.empty() ? std::nullopt : std::optional<std::string>(std::move(text));
}

} // namespace

std::optional<std::string> NewInstructionForm::checkNumberIn(std::string_view description) {
    auto first = std::find_if(description.begin(), description.end(), isDigit);
    auto last = std::find_if_not(first, description.end(), isDigit);
    if (first == last)
        return std::nullopt;
    return std::string(first, last);
}

void NewInstructionForm::fill(const Setup& setup) {
    setup_ = setup;
    f_ = Fields{};
    if (!setup_.prompt)
        f_.newInstructionForCategory = setup_.category.value_or("");
    fillMatch();
    const Dictionary& instruction = setup_.instruction;
    f_.useDescription = has(instruction, ikey::newDescription);
    f_.newDescription = textOf(instruction, ikey::newDescription);
    f_.useMemo = has(instruction, ikey::newMemo);
    f_.newMemo = textOf(instruction, ikey::newMemo);
    if (setup_.addAmountOnly)
        fillAddAmountOnly();
    else
        fillNormal();
    showNumber();
}

// Starts-with mode keeps the match text a prefix of the description it was taken from.
void NewInstructionForm::fillMatch() {
    if (containsMode())
        matchFormatter_.shortenOnly(std::nullopt);
    else
        matchFormatter_.shortenOnly(setup_.description);
}

void NewInstructionForm::fillAddAmountOnly() {
    const Dictionary& instruction = setup_.instruction;
    f_.matchText = textOf(instruction, ikey::descriptionMatch);
    f_.category = textOf(instruction, ikey::category);
    f_.confirm = flagOf(instruction, ikey::categoryConfirm);
    f_.extractNumber = flagOf(instruction, ikey::number);
    f_.amountSwitch = true;
}

void NewInstructionForm::fillNormal() {
    f_.category = setup_.category.value_or("");
    if (setup_.prompt)
        f_.matchText = setup_.description;
    if (!f_.category.empty() || setup_.suggestedCategory.empty())
        return;
    f_.category = setup_.suggestedCategory;
    f_.categorySuggested = true;
    if (setup_.prompt)
        f_.matchText = suggestedMatchText();
}

// In starts-with mode the match text must stay a start of the description: it then runs to
// the end of the shared words ("POS Shell Oil" for "POS Shell Oil 1234").
std::string NewInstructionForm::suggestedMatchText() const {
    const std::string& description = setup_.description;
    std::size_t at = description.find(setup_.suggestedMatch);
    if (setup_.suggestedMatch.empty() || at == std::string::npos)
        return description;
    if (containsMode())
        return setup_.suggestedMatch;
    return description.substr(0, at + setup_.suggestedMatch.size());
}

// The run's fixed number, else the record's; failing both, the digits of the description
// while the extract-number switch is on.
void NewInstructionForm::showNumber() {
    f_.extracted.reset();
    f_.number = setup_.runOutputNumber.empty() ? nonEmptyText(setup_.transaction, txkey::number)
                                               : std::optional(setup_.runOutputNumber);
    if (f_.number || !f_.extractNumber)
        return;
    f_.extracted = checkNumberIn(setup_.description);
    f_.number = f_.extracted;
}

bool NewInstructionForm::editMatchText(std::string text) {
    if (!matchFormatter_.isPartialStringValid(text))
        return false;
    f_.matchText = std::move(text);
    return true;
}

void NewInstructionForm::setExtractNumber(bool on) {
    f_.extractNumber = on;
    showNumber();
}

void NewInstructionForm::setAmountSwitch(bool on) {
    if (amountSwitchEnabled())
        f_.amountSwitch = on;
}

void NewInstructionForm::instructionAddRemoveSplits() {
    if (!f_.instructionSplits.empty()) {
        f_.instructionSplits.clear();
        return;
    }
    Dictionary first{{std::string(txkey::category), Value(f_.category)},
                     {std::string(txkey::memo), Value(f_.useMemo ? f_.newMemo : "")},
                     {std::string(txkey::amount), Value(setup_.amount.value_or(""))}};
    // The amount the walk handed over is normalised already.
    if (setup_.amount)
        first.emplace(std::string(txkey::amountAlreadyConverted), Value(true));
    f_.instructionSplits.appendRow(std::move(first));
    f_.instructionSplits.addBlankRow();
}

void NewInstructionForm::addSplit(Splits which) {
    table(which).addBlankRow();
}

void NewInstructionForm::selectSplit(Splits which, std::optional<std::size_t> row) {
    table(which).select(row);
}

void NewInstructionForm::deleteSelectedSplit(Splits which) {
    if (!table(which).deleteEnabled())
        return;
    table(which).deleteSelectedRow();
    balance(which, false);
}

void NewInstructionForm::setSplitCell(Splits which, std::size_t row, SplitColumn column,
                                      std::string text) {
    table(which).setCell(row, column, std::move(text));
    if (column == SplitColumn::amount)
        balance(which, true);
}

void NewInstructionForm::balance(Splits which, bool canCreate) {
    if (!setup_.amount)
        return;
    SplitBalancing how{splitAmountPrecision(prefs_), setup_.normalizeAmount};
    table(which).adjustSplitAmountsCanCreate(*setup_.amount, canCreate, how);
}

SplitTable& NewInstructionForm::table(Splits which) {
    return which == Splits::instruction ? f_.instructionSplits : f_.amountSplits;
}

const SplitTable& NewInstructionForm::splits(Splits which) const {
    return which == Splits::instruction ? f_.instructionSplits : f_.amountSplits;
}

std::string_view NewInstructionForm::title() const {
    return setup_.addAmountOnly ? text::addInstructionForAmountTitle
                                : text::createNewInstructionTitle;
}

NewInstructionForm::Focus NewInstructionForm::focus() const {
    if (setup_.addAmountOnly)
        return Focus::amountDescription;
    return setup_.prompt ? Focus::matchText : Focus::category;
}

std::string_view NewInstructionForm::cancelTip() const {
    return setup_.cancelReturnsToConfirm ? text::cancelReturnsToConfirmTip : text::cancelStopsTip;
}

std::string NewInstructionForm::date() const {
    return textOf(setup_.transaction, txkey::date);
}

std::optional<std::string> NewInstructionForm::memo() const {
    return nonEmptyText(setup_.transaction, txkey::memo);
}

std::string_view NewInstructionForm::matchLabel() const {
    return containsMode() ? text::containsMatchLabel : text::startsWithMatchLabel;
}

std::string_view NewInstructionForm::matchHelp() const {
    return containsMode() ? text::containsMatchHelp : text::startsWithMatchHelp;
}

std::string_view NewInstructionForm::matchWarning() const {
    if (!containsMode() || !descriptionMatchShown() || matchContained())
        return {};
    return text::matchNotContainedWarning;
}

bool NewInstructionForm::containsMode() const {
    return optionOn(prefs_, option::matchDescriptionWithContains);
}

bool NewInstructionForm::matchContained() const {
    return containsIgnoringCase(setup_.description, f_.matchText);
}

std::string_view NewInstructionForm::warningFor(std::string_view category) const {
    return tavvel::categoryWarning(category, Categories(prefs_));
}

std::string_view NewInstructionForm::categoryWarning() const {
    return warningFor(f_.category);
}

std::string_view NewInstructionForm::amountCategoryWarning() const {
    return warningFor(f_.amountCategory);
}

std::string_view NewInstructionForm::splitCategoryWarning(Splits which, std::size_t row) const {
    return warningFor(splits(which).cellText(row, SplitColumn::category));
}

std::string_view NewInstructionForm::instructionSplitsButtonTitle() const {
    return f_.instructionSplits.empty() ? text::instructionAddSplits
                                        : text::instructionRemoveSplits;
}

// An amount instruction needs the transaction's amount, and adding one is the whole point of
// the add-amount-only form.
bool NewInstructionForm::amountSwitchEnabled() const {
    return !setup_.addAmountOnly && amountPartShown() && setup_.amount.has_value();
}

bool NewInstructionForm::okEnabled() const {
    if (f_.amountSwitch && f_.amountDescription.empty())
        return false;
    if (!containsMode() || matchContained())
        return true;
    return setup_.category && !setup_.category->empty() &&
           optionOn(prefs_, option::baseCategoriesOnCategories);
}

} // namespace tavvel
