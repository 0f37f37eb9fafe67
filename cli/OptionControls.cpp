#include "OptionControls.h"

#include "prefs/Settings.h"

namespace tavvel {

namespace {

using Switch = PreferencesForm::Switch;
using Choice = PreferencesForm::Choice;

OptionControl sw(std::string_view name, Switch control) {
    return {name, false, control, Choice::count, 1, 0};
}

// Item `item` of a pop-up turns the option on; switching it off goes back to `offItem`
// (neither option of the group, or "ask" for the cancel behaviour).
OptionControl ch(std::string_view name, Choice control, int item, int offItem = 0) {
    return {name, true, Switch::count, control, item, offItem};
}

std::vector<OptionControl> makeOptionControls() {
    return {
        sw(option::append, Switch::append),
        sw(option::showAllAccountNames, Switch::showAllAccountNames),
        ch(option::markBankTransactionsAsCleared, Choice::bankCleared, 1),
        ch(option::markBankTransactionsAsUncleared, Choice::bankCleared, 2),
        ch(option::markCreditCardTransactionsAsCleared, Choice::creditCardCleared, 1),
        ch(option::markCreditCardTransactionsAsUncleared, Choice::creditCardCleared, 2),
        ch(option::markInvestmentTransactionsAsCleared, Choice::investmentCleared, 1),
        ch(option::markInvestmentTransactionsAsUncleared, Choice::investmentCleared, 2),
        ch(option::markUnknownTransactionsAsCleared, Choice::unknownCleared, 1),
        ch(option::markUnknownTransactionsAsUncleared, Choice::unknownCleared, 2),
        sw(option::runAutomatically, Switch::runAutomatically),
        sw(option::confirmAllTransactions, Switch::confirmAllTransactions),
        sw(option::textConfirmAllTransactions, Switch::textConfirmAllTransactions),
        sw(option::treatMemoAsDescription, Switch::treatMemoAsDescription),
        sw(option::leaveBlankDescriptionsBlank, Switch::leaveBlankDescriptionsBlank),
        ch(option::matchDescriptionThenMemo, Choice::matchOrder, 1),
        ch(option::matchMemoThenDescription, Choice::matchOrder, 2),
        sw(option::longestInstructionMatch, Switch::longestInstructionMatch),
        ch(option::baseCategoriesOnCategories, Choice::categories, 1),
        ch(option::useCategoriesIfPresent, Choice::categories, 2),
        ch(option::dontAddCategories, Choice::categories, 3),
        sw(option::matchDescriptionWithContains, Switch::matchDescriptionWithContains),
        sw(option::quicken2003, Switch::quicken2003),
        sw(option::formatFirstMatch, Switch::formatFirstMatch),
        sw(option::useOFXTRNTYPE, Switch::useOFXTRNTYPE),
        sw(option::initialCaps, Switch::initialCaps),
        sw(option::europeanDates, Switch::europeanDates),
        sw(option::outputEuropeanDates, Switch::outputEuropeanDates),
        sw(option::outputEuropeanAmounts, Switch::outputEuropeanAmounts),
        sw(option::outputDashDates, Switch::outputDashDates),
        ch(option::justStop, Choice::cancelBehaviour, 0, 2),
        ch(option::justFinishLater, Choice::cancelBehaviour, 1, 2),
        sw(option::removeLongNumber, Switch::removeLongNumber),
        sw(option::updateCategoryWhenDescriptionChanged,
           Switch::updateCategoryWhenDescriptionChanged),
        sw(option::keepDuplicates, Switch::keepDuplicates),
    };
}

std::vector<ValuedSetting> makeValuedSettings() {
    using Kind = ValuedSetting::Kind;
    return {
        {prefkey::amountsPrecision, Kind::precision, "decimals of investment amounts (2 to 6)",
         Choice::amountsPrecision},
        {prefkey::pricesPrecision, Kind::precision, "decimals of prices (2 to 6)",
         Choice::pricesPrecision},
        {prefkey::sharesPrecision, Kind::precision, "decimals of share quantities (2 to 6)",
         Choice::sharesPrecision},
        {prefkey::bccAmountsPrecision, Kind::precision,
         "decimals of bank and credit-card amounts (2 to 6)", Choice::bccAmountsPrecision},
        {prefkey::DescriptionOutput, Kind::descriptionTemplate,
         "template of the output description (%d description, %m memo)"},
        {prefkey::MemoOutput, Kind::memoTemplate,
         "template of the output memo (%d description, %m memo)"},
        {prefkey::SUEnableAutomaticChecks, Kind::updateChecks,
         "check for program updates (true or false)"},
        // Start-up reads this key, not the option of the same name, to choose the output date
        // order; without it day-first output dates would last only until the program ends.
        {prefkey::outputEuropeanDates, Kind::dayFirstAtStart,
         "output dates day first from every start (true or false)"},
    };
}

} // namespace

namespace {

template <typename Entry>
std::optional<Entry> entryNamed(const std::vector<Entry>& entries, std::string_view Entry::*name,
                                std::string_view wanted) {
    for (const Entry& entry : entries)
        if (entry.*name == wanted)
            return entry;
    return std::nullopt;
}

} // namespace

const std::vector<OptionControl>& optionControls() {
    static const std::vector<OptionControl> controls = makeOptionControls();
    return controls;
}

std::optional<OptionControl> optionControlFor(std::string_view name) {
    return entryNamed(optionControls(), &OptionControl::name, name);
}

const std::vector<ValuedSetting>& valuedSettings() {
    static const std::vector<ValuedSetting> settings = makeValuedSettings();
    return settings;
}

std::optional<ValuedSetting> valuedSettingFor(std::string_view key) {
    return entryNamed(valuedSettings(), &ValuedSetting::key, key);
}

} // namespace tavvel
