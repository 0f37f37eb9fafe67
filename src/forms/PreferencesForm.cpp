#include "forms/PreferencesForm.h"

#include "prefs/Settings.h"

#include <algorithm>

namespace tavvel {

namespace {

using Switch = PreferencesForm::Switch;
using Choice = PreferencesForm::Choice;

// A switch that stands for one option of the list.
struct SwitchOption {
    Switch control;
    std::string_view name;
};

// A pop-up or radio group whose items stand for options; item k > 0 is names[k - 1].
struct ChoiceOptions {
    Choice control;
    std::string_view names[3];
};

constexpr SwitchOption kSwitchOptions[] = {
    {Switch::append, option::append},
    {Switch::showAllAccountNames, option::showAllAccountNames},
    {Switch::runAutomatically, option::runAutomatically},
    {Switch::confirmAllTransactions, option::confirmAllTransactions},
    {Switch::textConfirmAllTransactions, option::textConfirmAllTransactions},
    {Switch::treatMemoAsDescription, option::treatMemoAsDescription},
    {Switch::leaveBlankDescriptionsBlank, option::leaveBlankDescriptionsBlank},
    {Switch::longestInstructionMatch, option::longestInstructionMatch},
    {Switch::matchDescriptionWithContains, option::matchDescriptionWithContains},
    {Switch::quicken2003, option::quicken2003},
    {Switch::formatFirstMatch, option::formatFirstMatch},
    {Switch::useOFXTRNTYPE, option::useOFXTRNTYPE},
    {Switch::initialCaps, option::initialCaps},
    {Switch::europeanDates, option::europeanDates},
    {Switch::outputEuropeanDates, option::outputEuropeanDates},
    {Switch::outputEuropeanAmounts, option::outputEuropeanAmounts},
    {Switch::outputDashDates, option::outputDashDates},
    {Switch::removeLongNumber, option::removeLongNumber},
    {Switch::updateCategoryWhenDescriptionChanged, option::updateCategoryWhenDescriptionChanged},
    {Switch::keepDuplicates, option::keepDuplicates},
};

constexpr ChoiceOptions kChoiceOptions[] = {
    {Choice::bankCleared,
     {option::markBankTransactionsAsCleared, option::markBankTransactionsAsUncleared}},
    {Choice::creditCardCleared,
     {option::markCreditCardTransactionsAsCleared, option::markCreditCardTransactionsAsUncleared}},
    {Choice::investmentCleared,
     {option::markInvestmentTransactionsAsCleared, option::markInvestmentTransactionsAsUncleared}},
    {Choice::unknownCleared,
     {option::markUnknownTransactionsAsCleared, option::markUnknownTransactionsAsUncleared}},
    {Choice::matchOrder, {option::matchDescriptionThenMemo, option::matchMemoThenDescription}},
    {Choice::categories,
     {option::baseCategoriesOnCategories, option::useCategoriesIfPresent,
      option::dontAddCategories}},
    {Choice::cancelBehaviour, {option::justStop, option::justFinishLater}},
};

// The order in which ok: writes the option list, controls named by switch or choice.
struct ListEntry {
    bool isChoice;
    int control;
};
constexpr ListEntry sw(Switch s) {
    return {false, static_cast<int>(s)};
}
constexpr ListEntry ch(Choice c) {
    return {true, static_cast<int>(c)};
}

constexpr ListEntry kListOrder[] = {
    sw(Switch::append),
    sw(Switch::showAllAccountNames),
    ch(Choice::bankCleared),
    ch(Choice::creditCardCleared),
    ch(Choice::investmentCleared),
    ch(Choice::unknownCleared),
    sw(Switch::runAutomatically),
    sw(Switch::confirmAllTransactions),
    sw(Switch::textConfirmAllTransactions),
    sw(Switch::treatMemoAsDescription),
    sw(Switch::leaveBlankDescriptionsBlank),
    ch(Choice::matchOrder),
    sw(Switch::longestInstructionMatch),
    ch(Choice::categories),
    sw(Switch::matchDescriptionWithContains),
    sw(Switch::quicken2003),
    sw(Switch::formatFirstMatch),
    sw(Switch::useOFXTRNTYPE),
    sw(Switch::initialCaps),
    sw(Switch::europeanDates),
    sw(Switch::outputEuropeanDates),
    sw(Switch::outputEuropeanAmounts),
    sw(Switch::outputDashDates),
    ch(Choice::cancelBehaviour),
    sw(Switch::removeLongNumber),
    sw(Switch::updateCategoryWhenDescriptionChanged),
    sw(Switch::keepDuplicates),
};

std::string_view nameOf(Switch s) {
    for (const SwitchOption& entry : kSwitchOptions)
        if (entry.control == s)
            return entry.name;
    return {};
}

const ChoiceOptions* optionsOf(Choice c) {
    for (const ChoiceOptions& entry : kChoiceOptions)
        if (entry.control == c)
            return &entry;
    return nullptr;
}

struct Precision {
    Choice control;
    std::string_view key;
};
constexpr Precision kPrecisions[] = {
    {Choice::amountsPrecision, prefkey::amountsPrecision},
    {Choice::pricesPrecision, prefkey::pricesPrecision},
    {Choice::sharesPrecision, prefkey::sharesPrecision},
    {Choice::bccAmountsPrecision, prefkey::bccAmountsPrecision},
};

} // namespace

void PreferencesForm::display() {
    readOptions();
    readValues();
    appendWhenShown_ = switchOn(Switch::append);
    append(appendWhenShown_);
    categoriesRadioChanged(chosen(Choice::categories));
    menusEnabled_ = false;
}

void PreferencesForm::readOptions() {
    for (const SwitchOption& entry : kSwitchOptions)
        switches_[index(entry.control)] = optionOn(prefs_, entry.name);
    for (const ChoiceOptions& entry : kChoiceOptions) {
        int item = 0;
        for (int k = 0; k < 3 && item == 0; ++k)
            if (!entry.names[k].empty() && optionOn(prefs_, entry.names[k]))
                item = k + 1;
        // Rows of the cancel matrix count from "just stop"; item 0 of it means ask.
        choices_[index(entry.control)] =
            entry.control == Choice::cancelBehaviour ? (item == 0 ? 2 : item - 1) : item;
    }
}

void PreferencesForm::readValues() {
    switches_[index(Switch::automaticUpdateChecks)] =
        prefs_.boolForKey(prefkey::SUEnableAutomaticChecks);
    for (const Precision& p : kPrecisions)
        choices_[index(p.control)] =
            static_cast<int>(std::max<std::int64_t>(0, prefs_.integerForKey(p.key) - 2));
    auto text = [&](std::string_view key) {
        const Value* v = prefs_.objectForKey(key);
        return v ? v->text() : std::string();
    };
    descriptionOutput_ = text(prefkey::DescriptionOutput);
    memoOutput_ = text(prefkey::MemoOutput);
}

bool PreferencesForm::switchEnabled(Switch which) const {
    if (which == Switch::showAllAccountNames)
        return switchOn(Switch::append);
    if (which == Switch::updateCategoryWhenDescriptionChanged)
        return chosen(Choice::categories) == 0;
    return true;
}

void PreferencesForm::setSwitch(Switch which, bool on) {
    if (!switchEnabled(which))
        return;
    switches_[index(which)] = on;
    if (which == Switch::append)
        append(on);
}

void PreferencesForm::choose(Choice which, int item) {
    choices_[index(which)] = item;
    if (which == Choice::categories)
        categoriesRadioChanged(item);
}

void PreferencesForm::append(bool on) {
    if (!on)
        switches_[index(Switch::showAllAccountNames)] = false;
}

// Switching append on means the next run asks for an output file again, since the last one
// may begin without an account header; a change of anything else keeps it.
void PreferencesForm::forgetOutputFileWhenAppendSwitchedOn() {
    const Value* stored = prefs_.objectForKey(prefkey::ControlSettings);
    if (appendWhenShown_ || !switchOn(Switch::append) || !stored ||
        !has(stored->dictionary(), runkey::outputFilePath))
        return;
    Dictionary settings = stored->dictionary();
    settings.erase(settings.find(runkey::outputFilePath));
    prefs_.setObject(prefkey::ControlSettings, Value(std::move(settings)));
}

void PreferencesForm::categoriesRadioChanged(int tag) {
    if (tag != 0)
        switches_[index(Switch::updateCategoryWhenDescriptionChanged)] = false;
}

Array PreferencesForm::buildOptionList() const {
    Array list;
    for (const ListEntry& entry : kListOrder) {
        if (!entry.isChoice) {
            auto s = static_cast<Switch>(entry.control);
            if (switchOn(s))
                list.emplace_back(nameOf(s));
            continue;
        }
        auto c = static_cast<Choice>(entry.control);
        int item = chosen(c);
        int slot = c == Choice::cancelBehaviour ? item : item - 1;
        if (slot >= 0 && slot < 3 && !optionsOf(c)->names[slot].empty())
            list.emplace_back(optionsOf(c)->names[slot]);
    }
    list.emplace_back(option::converted2_2);
    return list;
}

void PreferencesForm::writeValues() {
    prefs_.setBool(prefkey::SUEnableAutomaticChecks, switchOn(Switch::automaticUpdateChecks));
    for (const Precision& p : kPrecisions)
        prefs_.setInteger(p.key, chosen(p.control) + 2);
    prefs_.setObject(prefkey::DescriptionOutput, Value(descriptionOutput_));
    prefs_.setObject(prefkey::MemoOutput, Value(memoOutput_));
}

void PreferencesForm::ok() {
    writeValues();
    forgetOutputFileWhenAppendSwitchedOn();
    // The whole list is replaced, so the accountsInCategories marker is dropped and the next
    // start merges the accounts into the categories again; that has always been so.
    prefs_.setObject(prefkey::Preferences, Value(buildOptionList()));
    setDateFormatters(prefs_, output_, switchOn(Switch::outputEuropeanDates) ? "d/M" : "M/d");
    output_.decimalSeparator = switchOn(Switch::outputEuropeanAmounts) ? "," : ".";
    prefs_.synchronize();
    menusEnabled_ = true;
}

void PreferencesForm::cancel() {
    menusEnabled_ = true;
}

} // namespace tavvel
