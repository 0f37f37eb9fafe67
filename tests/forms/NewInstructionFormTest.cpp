#include "forms/NewInstructionForm.h"

#include "prefs/Settings.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

using Form = NewInstructionForm;
using Splits = NewInstructionForm::Splits;

constexpr std::string_view kPrompt =
    "Please specify how you would like transactions matching this description to be handled "
    "in the future.";

Form::Setup describedSetup() {
    Form::Setup setup;
    setup.amount = "-42.17";
    setup.prompt = std::string(kPrompt);
    setup.description = "GROCERY STORE #0815 BERLIN";
    setup.category = "Food";
    setup.transaction = Dictionary{{"date", Value("6/1/2024")},
                                   {"description", Value("GROCERY STORE #0815 BERLIN")},
                                   {"memo", Value("weekly shop")},
                                   {"amount", Value("-42.17")}};
    return setup;
}

Form::Setup addAmountSetup() {
    Form::Setup setup = describedSetup();
    setup.addAmountOnly = true;
    setup.cancelReturnsToConfirm = true;
    setup.instruction = Dictionary{{"descriptionMatch", Value("GROCERY")},
                                   {"category", Value("Food:Groceries")},
                                   {"categoryConfirm", Value("Y")},
                                   {"number", Value("Y")},
                                   {"newMemo", Value("groceries")}};
    return setup;
}

TEST(NewInstructionForm, FillsADescriptionKeyedInstructionInStartsWithMode) {
    TvPrefs prefs;
    Form form(prefs);
    form.fill(describedSetup());
    EXPECT_EQ(form.title(), "Create New Instruction");
    EXPECT_EQ(form.tab(), Form::Tab::instruction);
    EXPECT_EQ(form.focus(), Form::Focus::matchText);
    EXPECT_EQ(form.prompt(), std::string(kPrompt));
    EXPECT_TRUE(form.descriptionMatchShown());
    EXPECT_FALSE(form.newInstructionForCategory());
    EXPECT_EQ(form.matchLabel(), "When a description starts with:");
    EXPECT_EQ(form.matchHelp(), "(You can shorten the string above for future matches)");
    EXPECT_EQ(form.matchText(), "GROCERY STORE #0815 BERLIN");
    EXPECT_EQ(form.cancelTip(),
              "Stops processing the transactions without changing the output file. (command-.)");
    EXPECT_EQ(form.date(), "6/1/2024");
    EXPECT_EQ(form.memo(), "weekly shop");
    EXPECT_EQ(form.amount(), "-42.17");
    EXPECT_FALSE(form.number());
    EXPECT_EQ(form.category(), "Food");
    EXPECT_TRUE(form.categoryShown());
    EXPECT_FALSE(form.useDescription());
    EXPECT_FALSE(form.useMemoOn());
    EXPECT_TRUE(form.amountPartShown());
    EXPECT_FALSE(form.amountSwitchOn());
    EXPECT_TRUE(form.amountSwitchEnabled());
    EXPECT_TRUE(form.okEnabled());
}

TEST(NewInstructionForm, WorkingInstructionPrefillsTextsAndEveryFillStartsAfresh) {
    TvPrefs prefs;
    Form form(prefs);
    Form::Setup setup = describedSetup();
    setup.instruction = Dictionary{{"descriptionMatch", Value("GROCERY")},
                                   {"newDescription", Value("Grocery Store")},
                                   {"newMemo", Value("")}};
    setup.cancelReturnsToConfirm = true;
    setup.transaction.erase("memo");
    form.fill(setup);
    EXPECT_TRUE(form.useDescription());
    EXPECT_EQ(form.newDescription(), "Grocery Store");
    EXPECT_TRUE(form.useMemoOn()); // an empty new memo still replaces the memo
    EXPECT_EQ(form.newMemo(), "");
    EXPECT_FALSE(form.memo());
    EXPECT_EQ(form.cancelTip(), "Stops adding a new instruction and returns to the confirmation "
                                "dialog. (command-.)");

    form.setAmountSwitch(true);
    form.setConfirm(true);
    form.addSplit(Splits::amount);
    form.fill(describedSetup());
    EXPECT_FALSE(form.amountSwitchOn());
    EXPECT_FALSE(form.confirmOn());
    EXPECT_FALSE(form.useDescription());
    EXPECT_TRUE(form.splits(Splits::amount).empty());
}

TEST(NewInstructionForm, CategoryKeyedInstructionHasNoMatchFieldAndNoAmountPart) {
    TvPrefs prefs;
    Form form(prefs);
    Form::Setup setup = describedSetup();
    setup.prompt.reset();
    setup.category = "Dining";
    form.fill(setup);
    EXPECT_FALSE(form.descriptionMatchShown());
    EXPECT_EQ(form.newInstructionForCategory(), "Dining");
    EXPECT_EQ(form.category(), "Dining");
    EXPECT_EQ(form.focus(), Form::Focus::category);
    EXPECT_FALSE(form.amountPartShown());
    form.setAmountSwitch(true);
    EXPECT_FALSE(form.amountSwitchOn());
}

TEST(NewInstructionForm, AddAmountOnlyTakesTheInstructionAndForcesTheAmountSwitch) {
    TvPrefs prefs;
    Form form(prefs);
    form.fill(addAmountSetup());
    EXPECT_EQ(form.title(), "Add Instruction For Amount");
    EXPECT_EQ(form.tab(), Form::Tab::amount);
    EXPECT_EQ(form.focus(), Form::Focus::amountDescription);
    EXPECT_EQ(form.matchText(), "GROCERY");
    EXPECT_EQ(form.category(), "Food:Groceries");
    EXPECT_TRUE(form.confirmOn());
    EXPECT_TRUE(form.extractNumberOn());
    EXPECT_EQ(form.number(), "0815"); // the extract-number switch came on with the instruction
    EXPECT_TRUE(form.useMemoOn());
    EXPECT_EQ(form.newMemo(), "groceries");
    EXPECT_TRUE(form.amountSwitchOn());
    EXPECT_FALSE(form.amountSwitchEnabled());
    form.setAmountSwitch(false);
    EXPECT_TRUE(form.amountSwitchOn());
    EXPECT_FALSE(form.amountUseMemo());
    EXPECT_FALSE(form.amountConfirmOn());

    EXPECT_FALSE(form.okEnabled()); // the amount description is still empty
    form.setAmountDescription("Grocery Delivery");
    EXPECT_TRUE(form.okEnabled());
}

TEST(NewInstructionForm, StartsWithModeOnlyShortensTheMatchText) {
    TvPrefs prefs;
    Form form(prefs);
    form.fill(describedSetup());
    EXPECT_TRUE(form.editMatchText("GROCERY STORE"));
    EXPECT_TRUE(form.editMatchText("grocery"));
    EXPECT_EQ(form.matchText(), "grocery");
    EXPECT_FALSE(form.editMatchText("GROCERY SHOP"));
    EXPECT_FALSE(form.editMatchText("GROCERY STORE #0815 BERLIN 2"));
    EXPECT_FALSE(form.editMatchText(""));
    EXPECT_EQ(form.matchText(), "grocery");
    EXPECT_TRUE(form.editMatchText("GROCERY STORE #0815 BERLIN"));
    EXPECT_EQ(form.matchWarning(), "");
    EXPECT_TRUE(form.okEnabled());
}

TEST(NewInstructionForm, ContainsModeWarnsAndDisablesOkForATextNotInTheDescription) {
    TvPrefs prefs;
    addOption(prefs, option::matchDescriptionWithContains);
    Form form(prefs);
    Form::Setup setup = describedSetup();
    setup.category.reset();
    form.fill(setup);
    EXPECT_EQ(form.matchLabel(), "When a description contains:");
    EXPECT_EQ(form.matchHelp(),
              "(You can edit the string above as long as it matches the description)");
    EXPECT_TRUE(form.editMatchText("store #0815"));
    EXPECT_EQ(form.matchWarning(), "");
    EXPECT_TRUE(form.okEnabled());

    EXPECT_TRUE(form.editMatchText("SUPERMARKET"));
    EXPECT_EQ(form.matchWarning(), "WARNING: the description does not contain this text");
    EXPECT_FALSE(form.okEnabled());
    addOption(prefs, option::baseCategoriesOnCategories);
    EXPECT_FALSE(form.okEnabled()); // the transaction has no category to key on

    form.fill(describedSetup()); // with the category Food
    form.editMatchText("SUPERMARKET");
    EXPECT_TRUE(form.okEnabled());
    form.setAmountSwitch(true);
    EXPECT_FALSE(form.okEnabled());
    form.setAmountDescription("Weekly Shop");
    EXPECT_TRUE(form.okEnabled());
}

TEST(NewInstructionForm, ExtractNumberShowsTheDigitsAfterTheLeadingNonDigits) {
    TvPrefs prefs;
    Form form(prefs);
    Form::Setup setup = describedSetup();
    setup.description = "CHECK #1234 PAID 55";
    form.fill(setup);
    form.setExtractNumber(true);
    EXPECT_EQ(form.number(), "1234");
    EXPECT_EQ(form.extractedNumber(), "1234");
    form.setExtractNumber(false);
    EXPECT_FALSE(form.number());
    EXPECT_FALSE(form.extractedNumber());

    setup.description = "NO DIGITS HERE";
    form.fill(setup);
    form.setExtractNumber(true);
    EXPECT_FALSE(form.number());

    setup.transaction.insert_or_assign("number", Value("987"));
    setup.description = "CHECK 1234";
    form.fill(setup);
    form.setExtractNumber(true);
    EXPECT_EQ(form.number(), "987"); // a number shown already stays
    EXPECT_FALSE(form.extractedNumber());
    setup.runOutputNumber = "100";
    form.fill(setup);
    EXPECT_EQ(form.number(), "100");
}

TEST(NewInstructionForm, EveryCategoryFieldAndSplitCellWarns) {
    TvPrefs prefs;
    prefs.setObject(prefkey::Categories, Value(Array{"Food", "Food:Groceries", "[Checking]"}));
    Form form(prefs);
    form.fill(describedSetup());
    EXPECT_EQ(form.categoryWarning(), "");
    form.setCategory("Food:");
    EXPECT_EQ(form.categoryWarning(), "WARNING: a category cannot end with a :");
    form.setCategory("Fun");
    EXPECT_EQ(form.categoryWarning(), "NEW Category Above");
    form.setCategory("");
    EXPECT_EQ(form.categoryWarning(), "");

    form.setAmountCategory("[Checking]");
    EXPECT_EQ(form.amountCategoryWarning(), "");
    form.setAmountCategory("[Savings]");
    EXPECT_EQ(form.amountCategoryWarning(), "NEW Category Above");

    form.addSplit(Splits::amount);
    form.setSplitCell(Splits::amount, 0, SplitColumn::category, "Household:");
    EXPECT_EQ(form.splitCategoryWarning(Splits::amount, 0),
              "WARNING: a category cannot end with a :");
    form.addSplit(Splits::instruction);
    form.setSplitCell(Splits::instruction, 0, SplitColumn::category, "Food:Groceries");
    EXPECT_EQ(form.splitCategoryWarning(Splits::instruction, 0), "");
    form.setSplitCell(Splits::instruction, 0, SplitColumn::category, "Food:Snacks");
    EXPECT_EQ(form.splitCategoryWarning(Splits::instruction, 0), "NEW Category Above");
}

TEST(NewInstructionForm, InstructionSplitsStartFromTheTransactionAndBalance) {
    TvPrefs prefs;
    Form form(prefs);
    Form::Setup setup = describedSetup();
    int normalised = 0;
    setup.normalizeAmount = [&](Dictionary& split) {
        split.insert_or_assign("amountAlreadyConverted", Value(true));
        ++normalised;
    };
    form.fill(setup);
    form.setUseMemo(true);
    form.setNewMemo("shop");
    EXPECT_EQ(form.instructionSplitsButtonTitle(), "Add Splits");
    form.instructionAddRemoveSplits();
    EXPECT_EQ(form.instructionSplitsButtonTitle(), "Remove Splits");
    EXPECT_FALSE(form.categoryShown());
    const SplitTable& splits = form.splits(Splits::instruction);
    ASSERT_EQ(splits.numberOfRows(), 2u);
    EXPECT_EQ(splits.rows()[0], (Dictionary{{"category", Value("Food")},
                                            {"memo", Value("shop")},
                                            {"amount", Value("-42.17")},
                                            {"amountAlreadyConverted", Value(true)}}));

    form.setSplitCell(Splits::instruction, 1, SplitColumn::amount, "-12.17");
    EXPECT_EQ(splits.cellText(0, SplitColumn::amount), "-30.00");
    EXPECT_EQ(normalised, 1);

    form.deleteSelectedSplit(Splits::instruction); // nothing selected
    EXPECT_EQ(splits.numberOfRows(), 2u);
    form.selectSplit(Splits::instruction, 1);
    form.deleteSelectedSplit(Splits::instruction);
    EXPECT_EQ(splits.numberOfRows(), 1u);
    EXPECT_EQ(splits.cellText(0, SplitColumn::amount), "-42.17");

    form.instructionAddRemoveSplits();
    EXPECT_TRUE(form.splits(Splits::instruction).empty());
    EXPECT_TRUE(form.categoryShown());
}

TEST(NewInstructionForm, AmountSplitsGainASecondSplitWithTheRest) {
    TvPrefs prefs;
    Form form(prefs);
    Form::Setup setup = describedSetup();
    setup.amount = "100.00";
    form.fill(setup);
    form.addSplit(Splits::amount);
    form.setSplitCell(Splits::amount, 0, SplitColumn::amount, "60.00");
    const SplitTable& splits = form.splits(Splits::amount);
    ASSERT_EQ(splits.numberOfRows(), 2u);
    EXPECT_EQ(splits.cellText(1, SplitColumn::amount), "40.00");
    form.setSplitCell(Splits::amount, 1, SplitColumn::amount, "30.00");
    EXPECT_EQ(splits.cellText(0, SplitColumn::amount), "70.00");
    form.setSplitCell(Splits::amount, 1, SplitColumn::memo, "note"); // not an amount: no change
    EXPECT_EQ(splits.cellText(0, SplitColumn::amount), "70.00");
}

TEST(NewInstructionForm, CheckNumberIsTheFirstRunOfDigits) {
    EXPECT_EQ(Form::checkNumberIn("CHK#00123-45"), "00123");
    EXPECT_EQ(Form::checkNumberIn("789 DEPOSIT"), "789");
    EXPECT_FALSE(Form::checkNumberIn("DEPOSIT"));
    EXPECT_FALSE(Form::checkNumberIn(""));
}

} // namespace
} // namespace tavvel
