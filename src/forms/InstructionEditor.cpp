#include "forms/InstructionEditor.h"

#include "dialogs/DialogTexts.h"
#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "forms/CategoryWarning.h"
#include "forms/InstructionEditorTexts.h"
#include "knowledge/Amounts.h"
#include "knowledge/Categories.h"
#include "knowledge/Descriptions.h"
#include "knowledge/Instructions.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/Settings.h"
#include "recognize/CaseFold.h"

namespace tavvel {

namespace {

void setOrRemove(Dictionary& record, std::string_view key, bool on, const std::string& text) {
    if (on)
        record[std::string(key)] = Value(text);
    else
        record.erase(std::string(key));
}

void setSplits(Dictionary& record, std::string_view key, const SplitTable& splits) {
    if (splits.empty())
        record.erase(std::string(key));
    else
        record[std::string(key)] = Value(splits.splits());
}

SplitTable splitsOf(const Dictionary& record, std::string_view key) {
    const Value* splits = find(record, key);
    return splits ? SplitTable(splits->array()) : SplitTable();
}

} // namespace

InstructionEditor::InstructionEditor(TvPrefs& prefs, Dictionary instruction,
                                     std::optional<std::string> mustMatch)
    : prefs_(prefs), changed_(std::move(instruction)), mustMatch_(std::move(mustMatch)) {
    matchKey_ = has(changed_, ikey::descriptionMatch) || !has(changed_, ikey::categoryMatch)
                    ? ikey::descriptionMatch
                    : ikey::categoryMatch;
    originalMatch_ = match_ = textOf(changed_, matchKey_);
    useDescription_ = has(changed_, ikey::newDescription);
    newDescription_ = textOf(changed_, ikey::newDescription);
    useMemo_ = has(changed_, ikey::newMemo);
    newMemo_ = textOf(changed_, ikey::newMemo);
    category_ = textOf(changed_, ikey::category);
    confirm_ = flagOf(changed_, ikey::categoryConfirm);
    number_ = flagOf(changed_, ikey::number);
    splits_ = splitsOf(changed_, ikey::splits);
}

std::string InstructionEditor::matchLabel() const {
    if (matchKey_ == ikey::categoryMatch)
        return std::string(text::categoryMatchLabel);
    bool contains = optionOn(prefs_, option::matchDescriptionWithContains);
    return std::string(contains ? text::containsMatchLabel : text::startsWithMatchLabel);
}

std::string InstructionEditor::matchHelp() const {
    if (matchKey_ == ikey::categoryMatch)
        return {};
    return std::string(mustMatch_ ? text::mustMatchHelp : text::freeMatchHelp);
}

bool InstructionEditor::matchesTransaction(std::string_view text) const {
    if (text.empty())
        return false;
    if (optionOn(prefs_, option::matchDescriptionWithContains))
        return containsIgnoringCase(*mustMatch_, text);
    return startsWithIgnoringCase(*mustMatch_, text);
}

void InstructionEditor::setMatch(std::string text) {
    markEdited();
    match_ = std::move(text);
    bool fine =
        mustMatch_ ? matchesTransaction(match_) : containsIgnoringCase(originalMatch_, match_);
    // Opened for a transaction, the match must go on matching it whatever else is said.
    if (mustMatch_)
        matchAccepted_ = fine;
    if (!equalIgnoringCase(match_, originalMatch_) && Instructions(prefs_).instructionFor(match_)) {
        warning_ = text::replaceMatchWarning;
        return;
    }
    warning_ = fine ? std::string()
                    : std::string(mustMatch_ ? text::mustMatchWarning : text::freeMatchWarning);
}

void InstructionEditor::setUseDescription(bool on) {
    markEdited(), useDescription_ = on;
}
void InstructionEditor::setNewDescription(std::string text) {
    markEdited(), newDescription_ = std::move(text);
}
void InstructionEditor::setUseMemo(bool on) {
    markEdited(), useMemo_ = on;
}
void InstructionEditor::setNewMemo(std::string text) {
    markEdited(), newMemo_ = std::move(text);
}
void InstructionEditor::setCategory(std::string text) {
    markEdited(), category_ = std::move(text);
}
void InstructionEditor::setConfirm(bool on) {
    markEdited(), confirm_ = on;
}
void InstructionEditor::setTakeNumber(bool on) {
    markEdited(), number_ = on;
}

std::string InstructionEditor::noteFor(std::string_view category) const {
    return std::string(categoryWarning(category, Categories(prefs_)));
}

bool InstructionEditor::canSave() const {
    if (!matchAccepted_ || match_.empty() || (useDescription_ && newDescription_.empty()))
        return false;
    return !amountShown_ ||
           !(amountShown_->empty() || amount_.description.empty() || amount_.category.empty());
}

std::string InstructionEditor::splitsButtonTitle() const {
    return std::string(splits_.empty() ? text::instructionAddSplits
                                       : text::instructionRemoveSplits);
}

void InstructionEditor::addRemoveSplits() {
    markEdited();
    if (!splits_.empty()) {
        category_ = splits_.cellText(0, SplitColumn::category);
        splits_.clear();
        return;
    }
    splits_.appendRow(Dictionary{{"category", Value(category_)},
                                 {"memo", Value(useMemo_ ? newMemo_ : "")},
                                 {"amount", Value("")}});
    splits_.addBlankRow();
}

std::vector<std::string> InstructionEditor::amounts() const {
    std::vector<std::string> all;
    if (const Value* list = find(changed_, ikey::amounts))
        for (const Value& entry : list->array())
            all.push_back(textOf(entry.dictionary(), akey::amount));
    return all;
}

void InstructionEditor::storeShownAmount(Dictionary& instruction) const {
    if (!amountShown_ || amountShown_->empty())
        return;
    Dictionary variant{{std::string(akey::amount), Value(*amountShown_)},
                       {std::string(akey::amountDescription), Value(amount_.description)},
                       {std::string(akey::amountCategory), Value(amount_.category)}};
    setFlag(variant, akey::amountConfirm, amount_.confirm);
    setOrRemove(variant, akey::amountMemo, amount_.useMemo, amount_.memo);
    setSplits(variant, akey::splits, amountSplits_);
    Amounts::setAmount(variant, instruction);
}

void InstructionEditor::showAmount(std::string amount) {
    if (amountShown_ && amount == *amountShown_)
        return;
    storeShownAmount(changed_);
    warning_.clear();
    amountShown_ = std::move(amount);
    const Dictionary* variant = Amounts::amountMatching(*amountShown_, changed_);
    Dictionary none;
    const Dictionary& v = variant ? *variant : none;
    amount_ = {textOf(v, akey::amountDescription), textOf(v, akey::amountCategory),
               textOf(v, akey::amountMemo), has(v, akey::amountMemo),
               flagOf(v, akey::amountConfirm)};
    amountSplits_ = splitsOf(v, akey::splits);
}

void InstructionEditor::hideAmount() {
    storeShownAmount(changed_);
    amountShown_.reset();
}

void InstructionEditor::deleteAmount() {
    if (!amountShown_)
        return;
    markEdited();
    Amounts::deleteAmount(*amountShown_, changed_);
    amountShown_.reset();
}

void InstructionEditor::setAmountFields(AmountFields fields) {
    markEdited();
    amount_ = std::move(fields);
}

Dictionary InstructionEditor::build() const {
    Dictionary built = changed_;
    built.erase(std::string(ikey::descriptionMatch));
    built.erase(std::string(ikey::categoryMatch));
    built[matchKey_] = Value(match_);
    built[std::string(ikey::category)] = Value(category_);
    setOrRemove(built, ikey::newDescription, useDescription_, newDescription_);
    setOrRemove(built, ikey::newMemo, useMemo_, newMemo_);
    setFlag(built, ikey::categoryConfirm, confirm_);
    setFlag(built, ikey::number, number_);
    setSplits(built, ikey::splits, splits_);
    storeShownAmount(built);
    return built;
}

bool InstructionEditor::registerNames(Dialogs& dialogs, const Dictionary& built) {
    Categories categories(prefs_);
    std::vector<std::string> names{textOf(built, ikey::category)};
    for (const Dictionary& split : splits_.rows())
        names.push_back(textOf(split, "category"));
    if (amountShown_)
        names.push_back(amount_.category);
    for (const std::string& name : names)
        if (!categories.registerCategory(name, dialogs))
            return false;
    Descriptions descriptions(prefs_);
    if (useDescription_)
        descriptions.addDescription(newDescription_);
    if (amountShown_)
        descriptions.addDescription(amount_.description);
    return true;
}

bool InstructionEditor::save(Dialogs& dialogs) {
    if (!canSave())
        return false;
    Dictionary built = build();
    if (!registerNames(dialogs, built))
        return false;
    Instructions instructions(prefs_);
    // Stored before the old entry goes, so that no moment leaves the instruction out.
    instructions.setInstruction(built);
    if (!equalIgnoringCase(match_, originalMatch_))
        instructions.removeInstruction(Dictionary{{matchKey_, Value(originalMatch_)}});
    prefs_.synchronize();
    changed_ = built;
    originalMatch_ = match_;
    edited_ = false;
    return true;
}

bool InstructionEditor::deleteInstruction(Dialogs& dialogs) {
    std::size_t answer =
        dialogs.ask(std::string(text::deleteInstructionTitle),
                    formatMessage(text::deleteInstructionText, originalMatch_),
                    {std::string(text::deleteInstructionButton), std::string(text::cancelButton)});
    if (answer != 0)
        return false;
    Instructions(prefs_).removeInstruction(Dictionary{{matchKey_, Value(originalMatch_)}});
    prefs_.synchronize();
    return true;
}

} // namespace tavvel
