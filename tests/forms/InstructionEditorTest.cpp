#include "forms/InstructionEditor.h"

#include "forms/InstructionList.h"
#include "knowledge/Instructions.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/Settings.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

struct InstructionEditing : ::testing::Test {
    test::TestContext t;
    test::ScriptedDialogs dialogs;
    TvPrefs& prefs = t.ctx.prefs;
    Instructions instructions{prefs};

    InstructionEditing() {
        prefs = TvPrefs::open(t.ctx.places.prefsFolder, "TavvelMain");
        instructions.reload();
        prefs.setObject(prefkey::Categories, Value(Array{Value("Auto"), Value("Food")}));
        instructions.setInstruction(payee("ACME STORE", "Food"));
        instructions.setInstruction(payee("BAKERY", "Food"));
        instructions.setInstruction(payee("GARAGE", "Auto"));
    }
    static Dictionary payee(const char* match, const char* category) {
        return Dictionary{{"descriptionMatch", Value(match)}, {"category", Value(category)}};
    }
    Dictionary stored(std::string_view match) { return *instructions.instructionFor(match); }
    std::string storedMatches() {
        std::string all;
        for (const Value& entry : instructions.getInstructionsArray())
            all += textOf(entry.dictionary(), "descriptionMatch") + ";";
        return all;
    }
    Dictionary onDisk(std::string_view match) {
        TvPrefs file = TvPrefs::open(t.ctx.places.prefsFolder, "TavvelMain");
        return *Instructions(file).instructionFor(match);
    }
};

TEST_F(InstructionEditing, OpenedForATransactionTheMatchMustKeepMatchingIt) {
    InstructionEditor editor(prefs, stored("ACME STORE"), "ACME STORE 123");
    EXPECT_EQ(editor.matchLabel(), "When a description starts with:");
    EXPECT_EQ(editor.matchHelp(),
              "(You can edit this string as long as it matches the description.)");
    editor.setMatch("acme store");
    EXPECT_EQ(editor.warning(), "");
    EXPECT_TRUE(editor.canSave());
    editor.setMatch("acme shop");
    EXPECT_EQ(editor.warning(), "WARNING: the string above no longer matches the description.  "
                                "The instruction cannot be saved.");
    EXPECT_FALSE(editor.canSave());
    EXPECT_FALSE(editor.save(dialogs));
    editor.setMatch("BAKERY"); // another instruction's match, which the transaction lacks
    EXPECT_EQ(editor.warning(), "WARNING: An instruction with the above match already exists.  "
                                "If you save changes it will be replaced.");
    EXPECT_FALSE(editor.canSave());
    editor.setMatch("ACME");
    EXPECT_TRUE(editor.save(dialogs));
    EXPECT_EQ(storedMatches(), "ACME;BAKERY;GARAGE;");

    prefs.setObject(prefkey::Preferences, Value(Array{Value("matchDescriptionWithContains")}));
    InstructionEditor contains(prefs, stored("ACME"), "ACME STORE 123");
    EXPECT_EQ(contains.matchLabel(), "When a description contains:");
    contains.setMatch("store 1");
    EXPECT_TRUE(contains.canSave());
}

TEST_F(InstructionEditing, FromTheListAChangedMatchWarnsAndReplacesTheOtherInstruction) {
    InstructionEditor editor(prefs, stored("BAKERY"));
    EXPECT_EQ(editor.matchHelp(),
              "(You can edit the string above, but be careful to make sure it "
              "contines to match the QIF transactions you intend it to match.)");
    editor.setMatch("BAKE");
    EXPECT_EQ(editor.warning(), "");
    editor.setMatch("BAKERY SHOP");
    EXPECT_EQ(editor.warning(), "WARNING: The string above does not match the original string; "
                                "it may not match QIF transactions as intended.");
    EXPECT_TRUE(editor.canSave()); // a warning only
    editor.setMatch("garage");
    EXPECT_EQ(editor.warning(), "WARNING: An instruction with the above match already exists.  If "
                                "you save changes it will be replaced.");
    editor.setCategory("Food:Bread");
    ASSERT_TRUE(editor.save(dialogs));
    EXPECT_EQ(storedMatches(), "ACME STORE;garage;");
    EXPECT_EQ(textOf(onDisk("GARAGE"), "category"), "Food:Bread");
}

TEST_F(InstructionEditing, CategoryNotesAndNamesRegisteredOnSaving) {
    InstructionEditor editor(prefs, stored("GARAGE"));
    editor.setCategory("Auto:");
    EXPECT_EQ(editor.categoryNote(), "WARNING: a category cannot end with a :");
    editor.setCategory("Auto:Fuel");
    EXPECT_EQ(editor.categoryNote(), "NEW Category Above");
    editor.setCategory("Auto");
    EXPECT_EQ(editor.categoryNote(), "");
    editor.setCategory("Auto:Fuel");
    editor.setUseDescription(true);
    EXPECT_FALSE(editor.canSave()); // switched on with nothing in it
    editor.setNewDescription("Fuel Station");
    editor.setConfirm(true);
    editor.setTakeNumber(true);
    ASSERT_TRUE(editor.save(dialogs));
    EXPECT_TRUE(prefs.listHolds(prefkey::Categories, "Auto:Fuel"));
    EXPECT_TRUE(prefs.listHolds(prefkey::Descriptions, "Fuel Station"));
    EXPECT_EQ(onDisk("GARAGE"), (Dictionary{{"descriptionMatch", Value("GARAGE")},
                                            {"category", Value("Auto:Fuel")},
                                            {"newDescription", Value("Fuel Station")},
                                            {"categoryConfirm", Value("Y")},
                                            {"number", Value("Y")}}));
}

TEST_F(InstructionEditing, RefusedTransferOrCancelStoresNothing) {
    const Value before = *prefs.objectForKey(prefkey::Instructions);
    {
        InstructionEditor editor(prefs, stored("GARAGE"));
        editor.setMatch("GARAGE NORTH");
        editor.setCategory("[Savings]");
        dialogs.expectAlert("Bad Category \"[Savings]\"");
        EXPECT_FALSE(editor.save(dialogs));
        editor.setCategory("Other"); // then the user closes the editor without saving
    }
    EXPECT_EQ(*prefs.objectForKey(prefkey::Instructions), before);
    EXPECT_FALSE(prefs.listHolds(prefkey::Categories, "Other"));
}

TEST_F(InstructionEditing, AmountVariantsSplitsAndDeletion) {
    InstructionEditor editor(prefs, stored("ACME STORE"));
    editor.showAmount("12.50");
    EXPECT_FALSE(editor.canSave());
    editor.setAmountFields({"Acme Club", "Fees", "", false, true});
    EXPECT_EQ(editor.amountCategoryNote(), "NEW Category Above");
    editor.showAmount("12.5"); // a different amount: the first is kept in the working copy
    editor.setAmountFields({"Acme Gift", "Gifts", "card", true, false});
    EXPECT_EQ(editor.amounts(), (std::vector<std::string>{"12.50"}));
    EXPECT_EQ(editor.splitsButtonTitle(), "Add Splits");
    editor.addRemoveSplits();
    EXPECT_EQ(editor.splitsButtonTitle(), "Remove Splits");
    editor.splits().setCell(1, SplitColumn::category, "Auto");
    ASSERT_TRUE(editor.save(dialogs));
    Dictionary saved = onDisk("ACME STORE");
    ASSERT_EQ(find(saved, "amounts")->array().size(), 2u);
    EXPECT_EQ(find(saved, "amounts")->array()[1],
              Value(Dictionary{{"amount", Value("12.5")},
                               {"amountDescription", Value("Acme Gift")},
                               {"amountCategory", Value("Gifts")},
                               {"amountMemo", Value("card")}}));
    EXPECT_EQ(find(saved, "splits")->array().size(), 2u);

    InstructionEditor again(prefs, saved);
    again.showAmount("12.50");
    EXPECT_EQ(again.amountFields().description, "Acme Club");
    again.deleteAmount();
    again.showAmount("12.5");
    again.deleteAmount();
    ASSERT_TRUE(again.save(dialogs));
    EXPECT_FALSE(has(onDisk("ACME STORE"), "amounts"));

    dialogs.expectAsk("Delete Instruction", 1);
    EXPECT_FALSE(again.deleteInstruction(dialogs));
    dialogs.expectAsk("Delete Instruction", 0);
    EXPECT_TRUE(again.deleteInstruction(dialogs));
    EXPECT_EQ(dialogs.last().text, "Delete the instruction for \"ACME STORE\"?  This cannot be "
                                   "undone.");
    EXPECT_EQ(storedMatches(), "BAKERY;GARAGE;");
}

TEST_F(InstructionEditing, TheListSearchesAndSortsAndFollowsEdits) {
    Dictionary byCategory{{"categoryMatch", Value("Dining")}, {"category", Value("Aaa")}};
    instructions.setInstruction(byCategory);
    InstructionList list(prefs);
    auto rows = [&list] {
        std::string all;
        for (std::size_t row = 0; row < list.numberOfRows(); ++row)
            all += list.matchText(row) + "/" + list.categoryText(row) + ";";
        return all;
    };
    EXPECT_EQ(rows(), "ACME STORE/Food;BAKERY/Food;Dining/Aaa;GARAGE/Auto;");
    EXPECT_EQ(list.matchKind(2), "category");
    InstructionEditor byInputCategory(prefs, list.instructionAt(2));
    EXPECT_EQ(byInputCategory.matchLabel(), "  When input QIF has category:");
    EXPECT_EQ(byInputCategory.matchHelp(), "");
    byInputCategory.setMatch("Dining Out");
    ASSERT_TRUE(byInputCategory.save(dialogs));
    EXPECT_EQ(textOf(*instructions.instructionFor("Dining Out"), "categoryMatch"), "Dining Out");
    list.refresh();
    list.sortBy(InstructionList::SortBy::category);
    EXPECT_EQ(rows(), "Dining Out/Aaa;GARAGE/Auto;ACME STORE/Food;BAKERY/Food;");
    list.search("foo");
    EXPECT_EQ(rows(), "ACME STORE/Food;BAKERY/Food;");
    list.search("ery\tf"); // never across fields
    EXPECT_EQ(list.numberOfRows(), 0u);

    list.search("");
    InstructionEditor editor(prefs, list.instructionAt(*list.rowOf("bakery")));
    editor.setCategory("Bread");
    editor.save(dialogs);
    list.refresh();
    EXPECT_EQ(rows(), "Dining Out/Aaa;GARAGE/Auto;BAKERY/Bread;ACME STORE/Food;");
}

} // namespace
} // namespace tavvel
