#include "bank/NewInstructionSaving.h"

#include "forms/NewInstructionForm.h"
#include "knowledge/Instructions.h"
#include "prefs/Settings.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

using Splits = NewInstructionForm::Splits;

// A store with its file, a known category and account transfer, and a form on it.
struct NewInstructionSaving : ::testing::Test {
    test::TempFolder folder;
    TvPrefs prefs = TvPrefs::open(folder.path(), "TavvelMain");
    test::ScriptedDialogs dialogs;
    NewInstructionForm form{prefs};

    void SetUp() override {
        prefs.setObject(prefkey::Categories, Value(Array{"Food", "[Checking]"}));
        prefs.synchronize();
    }

    NewInstructionForm::Setup setup() const {
        NewInstructionForm::Setup s;
        s.amount = "-42.17";
        s.prompt = "Please specify how you would like transactions matching this description to "
                   "be handled in the future.";
        s.description = "GROCERY STORE #0815";
        s.category = "Food";
        s.transaction = Dictionary{{"date", Value("6/1/2024")}, {"amount", Value("-42.17")}};
        return s;
    }

    void storeInstruction(Dictionary instruction) {
        Instructions(prefs).setInstruction(instruction);
    }

    const Array& stored(std::string_view key) const {
        static const Array none;
        const Value* list = prefs.objectForKey(key);
        return list ? list->array() : none;
    }
};

TEST_F(NewInstructionSaving, StoresEverythingOnDiskBeforeReturning) {
    form.fill(setup());
    form.editMatchText("GROCERY");
    form.setUseDescription(true);
    form.setNewDescription("Grocery Store");
    form.setUseMemo(true);
    form.setNewMemo("weekly");
    form.setCategory("Food:Groceries");
    form.setConfirm(true);
    form.setExtractNumber(true);
    form.instructionAddRemoveSplits();
    form.setSplitCell(Splits::instruction, 1, SplitColumn::category, "Household");
    form.setSplitCell(Splits::instruction, 1, SplitColumn::amount, "-10.00");

    ASSERT_EQ(saveNewInstruction(form, prefs, dialogs), SaveOutcome::stored);

    TvPrefs reopened = TvPrefs::open(folder.path(), "TavvelMain");
    Instructions instructions(reopened);
    auto instruction = instructions.instructionFor("grocery");
    ASSERT_TRUE(instruction);
    EXPECT_EQ(textOf(*instruction, "descriptionMatch"), "GROCERY");
    EXPECT_FALSE(has(*instruction, "categoryMatch"));
    EXPECT_EQ(textOf(*instruction, "newDescription"), "Grocery Store");
    EXPECT_EQ(textOf(*instruction, "newMemo"), "weekly");
    EXPECT_EQ(textOf(*instruction, "category"), "Food:Groceries");
    EXPECT_EQ(textOf(*instruction, "categoryConfirm"), "Y");
    EXPECT_EQ(textOf(*instruction, "number"), "Y");
    EXPECT_FALSE(has(*instruction, "amounts"));
    const Array& splits = find(*instruction, "splits")->array();
    ASSERT_EQ(splits.size(), 2u);
    EXPECT_EQ(textOf(splits[0].dictionary(), "amount"), "-32.17");
    EXPECT_EQ(textOf(splits[1].dictionary(), "category"), "Household");

    EXPECT_EQ(reopened.objectForKey(prefkey::Categories)->array(),
              (Array{"Food", "Food:Groceries", "Household", "[Checking]"}));
    EXPECT_EQ(reopened.objectForKey(prefkey::Descriptions)->array(), (Array{"Grocery Store"}));
}

TEST_F(NewInstructionSaving, CategoryKeyedInstructionIsKeyedOnTheInputCategory) {
    NewInstructionForm::Setup s = setup();
    s.prompt.reset();
    s.category = "Dining";
    form.fill(s);
    form.setCategory("Food:Dining Out");
    ASSERT_EQ(saveNewInstruction(form, prefs, dialogs), SaveOutcome::stored);
    auto instruction = Instructions(prefs).instructionMatching("Dining", "categoryMatch");
    ASSERT_TRUE(instruction);
    EXPECT_FALSE(has(*instruction, "descriptionMatch"));
    EXPECT_EQ(textOf(*instruction, "category"), "Food:Dining Out");
    EXPECT_FALSE(has(*instruction, "newDescription"));
    EXPECT_FALSE(has(*instruction, "categoryConfirm"));
}

TEST_F(NewInstructionSaving, RefusedBracketedCategoryKeepsTheFormOpenAndStoresNothing) {
    form.fill(setup());
    form.setUseDescription(true);
    form.setNewDescription("Grocery Store");
    form.setCategory("[Savings]");
    dialogs.expectAlert("Bad Category \"[Savings]\"");
    EXPECT_EQ(saveNewInstruction(form, prefs, dialogs), SaveOutcome::keptOpen);
    EXPECT_TRUE(stored(prefkey::Instructions).empty());
    EXPECT_TRUE(stored(prefkey::Descriptions).empty());

    // A refused split category stops before the form's own category is registered.
    form.setCategory("Groceries");
    form.addSplit(Splits::instruction);
    form.setSplitCell(Splits::instruction, 0, SplitColumn::category, "[Nowhere]");
    dialogs.expectAlert("Bad Category \"[Nowhere]\"");
    EXPECT_EQ(saveNewInstruction(form, prefs, dialogs), SaveOutcome::keptOpen);
    EXPECT_EQ(stored(prefkey::Categories), (Array{"Food", "[Checking]"}));
    EXPECT_TRUE(stored(prefkey::Instructions).empty());
}

TEST_F(NewInstructionSaving, AmountCategoryIsRegisteredAfterTheCategoryAndTheNewDescription) {
    form.fill(setup());
    form.setUseDescription(true);
    form.setNewDescription("Grocery Store");
    form.setCategory("Groceries");
    form.setAmountSwitch(true);
    form.setAmountDescription("Grocery Delivery");
    form.setAmountCategory("[Savings]");
    dialogs.expectAlert("Bad Category \"[Savings]\"");
    EXPECT_EQ(saveNewInstruction(form, prefs, dialogs), SaveOutcome::keptOpen);
    EXPECT_EQ(stored(prefkey::Categories), (Array{"Food", "Groceries", "[Checking]"}));
    EXPECT_EQ(stored(prefkey::Descriptions), (Array{"Grocery Store"}));
    EXPECT_TRUE(stored(prefkey::Instructions).empty());
}

TEST_F(NewInstructionSaving, ReplacingAnInstructionAsksAndNoStoresNothing) {
    storeInstruction(
        Dictionary{{"descriptionMatch", Value("GROCERY")}, {"category", Value("Food")}});
    form.fill(setup());
    form.editMatchText("grocery");
    form.setCategory("Groceries");
    dialogs.expectAsk("Instructions Already Exist", 1);
    EXPECT_EQ(saveNewInstruction(form, prefs, dialogs), SaveOutcome::keptOpen);
    EXPECT_EQ(dialogs.last().text,
              "Instructions for \"grocery\" already exist.  If you save these changes, you will "
              "replace the existing instructions for \"grocery\".    Do you want to save the "
              "changes?.");
    EXPECT_EQ(dialogs.last().buttons, (std::vector<std::string>{"Yes", "No"}));
    ASSERT_EQ(stored(prefkey::Instructions).size(), 1u);
    EXPECT_EQ(textOf(stored(prefkey::Instructions)[0].dictionary(), "category"), "Food");

    dialogs.expectAsk("Instructions Already Exist", 0);
    EXPECT_EQ(saveNewInstruction(form, prefs, dialogs), SaveOutcome::stored);
    ASSERT_EQ(stored(prefkey::Instructions).size(), 1u);
    const Dictionary& replaced = stored(prefkey::Instructions)[0].dictionary();
    EXPECT_EQ(textOf(replaced, "descriptionMatch"), "grocery");
    EXPECT_EQ(textOf(replaced, "category"), "Groceries");
}

TEST_F(NewInstructionSaving, AmountInstructionJoinsTheStandingInstructionWithoutAsking) {
    Dictionary standing{{"descriptionMatch", Value("GROCERY")},
                        {"category", Value("Food")},
                        {"newMemo", Value("groceries")},
                        {"amounts", Value(Array{Value(Dictionary{{"amount", Value("-5.00")}})})}};
    storeInstruction(standing);
    NewInstructionForm::Setup s = setup();
    s.addAmountOnly = true;
    s.instruction = standing;
    form.fill(s);
    form.setUseMemo(false);
    form.setAmountDescription("Grocery Delivery");
    form.setAmountCategory("Delivery");
    form.setAmountUseMemo(true);
    form.setAmountMemo("fee");
    form.setAmountConfirm(true);
    form.addSplit(Splits::amount);
    form.setSplitCell(Splits::amount, 0, SplitColumn::category, "Tips");
    form.setSplitCell(Splits::amount, 0, SplitColumn::amount, "-2.17");

    ASSERT_EQ(saveNewInstruction(form, prefs, dialogs), SaveOutcome::stored);
    ASSERT_EQ(stored(prefkey::Instructions).size(), 1u);
    const Dictionary& instruction = stored(prefkey::Instructions)[0].dictionary();
    EXPECT_FALSE(has(instruction, "newMemo")); // its use switch was turned off
    const Array& amounts = find(instruction, "amounts")->array();
    ASSERT_EQ(amounts.size(), 2u);
    const Dictionary& added = amounts[1].dictionary();
    EXPECT_EQ(textOf(added, "amount"), "-42.17");
    EXPECT_EQ(textOf(added, "amountDescription"), "Grocery Delivery");
    EXPECT_EQ(textOf(added, "amountCategory"), "Delivery");
    EXPECT_EQ(textOf(added, "amountMemo"), "fee");
    EXPECT_EQ(textOf(added, "amountConfirm"), "Y");
    const Array& splits = find(added, "splits")->array();
    ASSERT_EQ(splits.size(), 2u);
    EXPECT_EQ(textOf(splits[1].dictionary(), "amount"), "-40.00");
    EXPECT_EQ(stored(prefkey::Categories), (Array{"Delivery", "Food", "Tips", "[Checking]"}));
    EXPECT_EQ(stored(prefkey::Descriptions), (Array{"Grocery Delivery"}));
}

} // namespace
} // namespace tavvel
