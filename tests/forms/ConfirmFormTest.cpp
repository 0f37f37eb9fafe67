#include "forms/ConfirmForm.h"

#include "prefs/Settings.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

struct ConfirmFormTest : ::testing::Test {
    TvPrefs prefs;
    ConfirmForm form{prefs};
    ConfirmForm::Setup setup;

    ConfirmFormTest() {
        prefs.setObject(prefkey::Categories, Value(Array{Value("Food"), Value("Auto:Fuel")}));
        setup.recordDate = setup.date = "1/31/2024";
        setup.datePattern = "M/d/yyyy";
        setup.description = "ACME";
        setup.category = "Food";
    }
};

TEST_F(ConfirmFormTest, PromptsByWhatAskedForConfirmation) {
    form.fill(setup);
    EXPECT_EQ(form.prompt(), "You asked to confirm transactions with this description.  You can "
                             "change the description, the memo, or the category for this "
                             "transaction only.");
    setup.mustConfirm = true;
    setup.splits = Array{Value(Dictionary{{"category", Value("Food")}})};
    form.fill(setup);
    EXPECT_EQ(form.prompt(), "You asked to confirm all transactions.  You can change the "
                             "description or category/memo in the splits for this transaction "
                             "only.");
    setup.mustConfirm = false;
    setup.splitInstructionConfirm = true;
    form.fill(setup);
    EXPECT_EQ(form.prompt(), "You asked to confirm transactions with the category in one of the "
                             "splits.  You can change the description or category/memo in the "
                             "splits for this transaction only.");
    setup.splitInstructionConfirm = false;
    addOption(prefs, option::baseCategoriesOnCategories);
    setup.splits.reset();
    setup.mustConfirm = false;
    setup.recordHasCategory = true;
    form.fill(setup);
    EXPECT_EQ(form.prompt(), "You asked to confirm transactions with this category.  You can "
                             "change the description, the memo, or the category for this "
                             "transaction only.");
    EXPECT_EQ(form.title(), "Confirm Transaction");
}

TEST_F(ConfirmFormTest, DateStepperAndFixedDate) {
    form.fill(setup);
    EXPECT_TRUE(form.stepperShown());
    form.stepDate(1);
    EXPECT_EQ(form.date(), "2/1/2024");
    EXPECT_EQ(form.dateText(), "1/31/2024 (will use 2/1/2024)");
    form.stepDate(-1);
    EXPECT_EQ(form.dateText(), "1/31/2024");

    setup.fixedDate = true;
    setup.date = "3/1/2024";
    form.fill(setup);
    EXPECT_FALSE(form.stepperShown());
    form.stepDate(5);
    EXPECT_EQ(form.dateText(), "1/31/2024 (will use 3/1/2024)");
}

TEST_F(ConfirmFormTest, CategoryWarningsAndDescriptionChanges) {
    form.fill(setup);
    EXPECT_EQ(form.categoryWarning("Auto:"), "WARNING: a category cannot end with a :");
    EXPECT_EQ(form.categoryWarning("Travel"), "NEW Category Above");
    EXPECT_EQ(form.categoryWarning("Auto:Fuel"), "");
    EXPECT_EQ(form.categoryWarning(""), "");
    EXPECT_FALSE(form.setDescription("ACME 2")); // typing alone changes nothing else
    addOption(prefs, option::updateCategoryWhenDescriptionChanged);
    EXPECT_TRUE(form.setDescription("ACME 3"));
    EXPECT_FALSE(form.setDescription("ACME 3"));
}

TEST_F(ConfirmFormTest, SplitsOnlyForQifOutput) {
    setup.amount = "-10.00";
    setup.memo = "m";
    form.fill(setup);
    EXPECT_EQ(form.splitsButtonTitle(), "Add Splits");
    form.addRemoveSplits();
    ASSERT_TRUE(form.splits());
    ASSERT_EQ(form.splits()->size(), 2u);
    EXPECT_EQ((*form.splits())[0].dictionary(),
              (Dictionary{
                  {"category", Value("Food")}, {"memo", Value("m")}, {"amount", Value("-10.00")}}));
    EXPECT_EQ(form.splitsButtonTitle(), "Remove Splits");
    EXPECT_TRUE(form.userSplits());
    form.addRemoveSplits();
    EXPECT_FALSE(form.splits());

    setup.qifOutput = false;
    form.fill(setup);
    EXPECT_FALSE(form.splitsButtonShown());
}

} // namespace
} // namespace tavvel
