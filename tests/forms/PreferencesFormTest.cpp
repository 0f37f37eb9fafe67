#include "forms/PreferencesForm.h"

#include "prefs/Settings.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

using Switch = PreferencesForm::Switch;
using Choice = PreferencesForm::Choice;

Array names(std::initializer_list<std::string_view> list) {
    Array out;
    for (auto n : list)
        out.emplace_back(n);
    return out;
}

TEST(PreferencesForm, OkWritesEveryOptionInTheFixedOrder) {
    TvPrefs prefs;
    OutputFormatting output;
    PreferencesForm form(prefs, output);
    form.display();
    EXPECT_FALSE(form.menusEnabled());
    // Switched on in an order unlike the list's, to show the list's order is the form's own.
    form.setSwitch(Switch::updateCategoryWhenDescriptionChanged, true);
    form.setSwitch(Switch::removeLongNumber, true);
    form.choose(Choice::cancelBehaviour, 1);
    form.setSwitch(Switch::outputDashDates, true);
    form.setSwitch(Switch::outputEuropeanAmounts, true);
    form.setSwitch(Switch::outputEuropeanDates, true);
    form.setSwitch(Switch::europeanDates, true);
    form.setSwitch(Switch::initialCaps, true);
    form.setSwitch(Switch::useOFXTRNTYPE, true);
    form.setSwitch(Switch::formatFirstMatch, true);
    form.setSwitch(Switch::quicken2003, true);
    form.setSwitch(Switch::matchDescriptionWithContains, true);
    form.setSwitch(Switch::longestInstructionMatch, true);
    form.choose(Choice::matchOrder, 2);
    form.setSwitch(Switch::leaveBlankDescriptionsBlank, true);
    form.setSwitch(Switch::treatMemoAsDescription, true);
    form.setSwitch(Switch::textConfirmAllTransactions, true);
    form.setSwitch(Switch::confirmAllTransactions, true);
    form.setSwitch(Switch::runAutomatically, true);
    form.choose(Choice::unknownCleared, 2);
    form.choose(Choice::investmentCleared, 1);
    form.choose(Choice::creditCardCleared, 2);
    form.choose(Choice::bankCleared, 1);
    form.setSwitch(Switch::append, true);
    form.setSwitch(Switch::showAllAccountNames, true);
    form.choose(Choice::bccAmountsPrecision, 1);
    form.setDescriptionOutput("%d %m");
    form.ok();

    EXPECT_EQ(prefs.objectForKey(prefkey::Preferences)->array(),
              names({"append",
                     "showAllAccountNames",
                     "markBankTransactionsAsCleared",
                     "markCreditCardTransactionsAsUncleared",
                     "markInvestmentTransactionsAsCleared",
                     "markUnknownTransactionsAsUncleared",
                     "runAutomatically",
                     "confirmAllTransactions",
                     "textConfirmAllTransactions",
                     "treatMemoAsDescription",
                     "leaveBlankDescriptionsBlank",
                     "matchMemoThenDescription",
                     "longestInstructionMatch",
                     "matchDescriptionWithContains",
                     "quicken2003",
                     "formatFirstMatch",
                     "useOFXTRNTYPE",
                     "initialCaps",
                     "europeanDates",
                     "outputEuropeanDates",
                     "outputEuropeanAmounts",
                     "outputDashDates",
                     "justFinishLater",
                     "removeLongNumber",
                     "updateCategoryWhenDescriptionChanged",
                     "converted2.2"}));
    EXPECT_EQ(prefs.integerForKey(prefkey::bccAmountsPrecision), 3);
    EXPECT_EQ(prefs.integerForKey(prefkey::amountsPrecision), 2);
    EXPECT_EQ(prefs.objectForKey(prefkey::DescriptionOutput)->text(), "%d %m");
    EXPECT_EQ(output.datePrefix, "d/M");
    EXPECT_EQ(prefs.objectForKey(prefkey::OutputDateFormat)->text(), "d/M/yyyy");
    EXPECT_EQ(output.decimalSeparator, ",");
    EXPECT_TRUE(form.menusEnabled());
}

TEST(PreferencesForm, DisplayReadsTheStoreAndOkDropsTheAccountsMarker) {
    TvPrefs prefs;
    prefs.setObject(prefkey::Preferences,
                    Value(names({"accountsInCategories", "justStop", "dontAddCategories",
                                 "markBankTransactionsAsUncleared", "converted2.2"})));
    prefs.setInteger(prefkey::pricesPrecision, 4);
    prefs.setBool(prefkey::SUEnableAutomaticChecks, true);
    OutputFormatting output;
    PreferencesForm form(prefs, output);
    form.display();
    EXPECT_EQ(form.chosen(Choice::cancelBehaviour), 0);
    EXPECT_EQ(form.chosen(Choice::categories), 3);
    EXPECT_EQ(form.chosen(Choice::bankCleared), 2);
    EXPECT_EQ(form.chosen(Choice::pricesPrecision), 2);
    EXPECT_TRUE(form.switchOn(Switch::automaticUpdateChecks));
    form.ok();
    EXPECT_EQ(prefs.objectForKey(prefkey::Preferences)->array(),
              names({"markBankTransactionsAsUncleared", "dontAddCategories", "justStop",
                     "converted2.2"}));
}

TEST(PreferencesForm, DependentControlsFollowTheirMasters) {
    TvPrefs prefs;
    const Value lastRun(
        Dictionary{{"outputFilePath", Value("/tmp/out.qif")}, {"inputQIFType", Value(0)}});
    prefs.setObject(prefkey::ControlSettings, lastRun);
    OutputFormatting output;
    PreferencesForm form(prefs, output);
    form.display();

    EXPECT_FALSE(form.switchEnabled(Switch::showAllAccountNames));
    EXPECT_TRUE(form.showAllAccountNamesHelpGreyed());
    form.setSwitch(Switch::append, true);
    EXPECT_TRUE(form.switchEnabled(Switch::showAllAccountNames));
    form.cancel(); // changes nothing, the last output file included
    EXPECT_EQ(*prefs.objectForKey(prefkey::ControlSettings), lastRun);
    form.display();
    form.setSwitch(Switch::append, true);
    form.ok(); // switched on: the next run asks for an output file again
    EXPECT_FALSE(has(prefs.objectForKey(prefkey::ControlSettings)->dictionary(), "outputFilePath"));
    prefs.setObject(prefkey::ControlSettings, lastRun);
    form.display();
    form.setSwitch(Switch::removeLongNumber, true);
    form.ok(); // append stays on: the last output file stays
    EXPECT_EQ(*prefs.objectForKey(prefkey::ControlSettings), lastRun);

    form.display();
    form.setSwitch(Switch::showAllAccountNames, true);
    form.setSwitch(Switch::append, false);
    EXPECT_FALSE(form.switchOn(Switch::showAllAccountNames));

    form.setSwitch(Switch::updateCategoryWhenDescriptionChanged, true);
    form.choose(Choice::categories, 1);
    EXPECT_FALSE(form.switchOn(Switch::updateCategoryWhenDescriptionChanged));
    EXPECT_FALSE(form.switchEnabled(Switch::updateCategoryWhenDescriptionChanged));
    form.setSwitch(Switch::updateCategoryWhenDescriptionChanged, true);
    EXPECT_FALSE(form.switchOn(Switch::updateCategoryWhenDescriptionChanged));
    form.choose(Choice::categories, 0);
    EXPECT_TRUE(form.switchEnabled(Switch::updateCategoryWhenDescriptionChanged));
}

TEST(PreferencesForm, CancelWritesNothing) {
    TvPrefs prefs;
    prefs.setObject(prefkey::Preferences, Value(names({"initialCaps"})));
    Dictionary before = prefs.prefsMutableDictionary();
    OutputFormatting output;
    PreferencesForm form(prefs, output);
    form.display();
    form.setSwitch(Switch::initialCaps, false);
    form.choose(Choice::amountsPrecision, 3);
    form.cancel();
    EXPECT_EQ(prefs.prefsMutableDictionary(), before);
    EXPECT_TRUE(form.menusEnabled());
}

} // namespace
} // namespace tavvel
