#include "knowledge/Categories.h"

#include "KnowledgeFixture.h"
#include "forms/ListEditors.h"
#include "knowledge/KnowledgeTexts.h"
#include "prefs/Settings.h"

namespace tavvel::test {
namespace {

class CategoriesTest : public KnowledgeTest {
protected:
    CategoriesTest() { categories.setCategoriesArray(texts({"Auto", "Food", "[Savings]"})); }
    Categories categories{prefs()};
};

TEST_F(CategoriesTest, IndexOfCategoryIsExact) {
    EXPECT_EQ(categories.indexOfCategory("Food"), 1);
    EXPECT_EQ(categories.indexOfCategory("food"), -1);
    EXPECT_EQ(categories.indexOfCategory("Travel"), -1);
    EXPECT_EQ(categories.indexOfCategory(""), -2);
    EXPECT_EQ(categories.indexOfCategory("[Savings]"), 2);
}

TEST_F(CategoriesTest, NewCategoriesGoInOrderAndAreWrittenAtOnce) {
    EXPECT_TRUE(categories.addCategory("bills", dialogs));
    EXPECT_TRUE(categories.addCategory("Groceries:Organic", dialogs));
    // "Groceries" sorts after "[Savings]" ('[' comes before letters) but stays with the plain
    // categories, where the next rebuild of the transfers keeps it.
    EXPECT_EQ(categories.getCategoriesArray(),
              texts({"Auto", "bills", "Food", "Groceries:Organic", "[Savings]"}));
    categories.updateAccounts();
    EXPECT_EQ(categories.getCategoriesArray(),
              texts({"Auto", "bills", "Food", "Groceries:Organic"}));
    TvPrefs again = reopened();
    EXPECT_EQ(Categories(again).getCategoriesArray(), categories.getCategoriesArray());
}

TEST_F(CategoriesTest, AListedCategoryChangesNothingAndWritesNothing) {
    std::filesystem::remove(prefsFile());
    EXPECT_TRUE(categories.addCategory("Food", dialogs));
    EXPECT_TRUE(categories.addCategory("", dialogs));
    EXPECT_TRUE(categories.registerCategory("[Savings]", dialogs));
    EXPECT_TRUE(categories.registerCategory("Auto", dialogs));
    EXPECT_EQ(categories.numberOfItems(), 3u);
    EXPECT_FALSE(std::filesystem::exists(prefsFile()));
    EXPECT_TRUE(dialogs.shown().empty());
}

TEST_F(CategoriesTest, TransfersNeedAKnownAccountAndAClass) {
    EXPECT_TRUE(categories.addCategory("[Savings]/Gift", dialogs));
    // '[' sorts before letters, so the classed transfer goes first.
    EXPECT_EQ(categories.getCategoriesArray(),
              texts({"[Savings]/Gift", "Auto", "Food", "[Savings]"}));
    dialogs.expectAlert("Bad Category \"[Savings]\"");
    EXPECT_FALSE(categories.addCategory("[Savings]", dialogs));
    dialogs.expectAlert("Bad Category \"[Unknown]/Gift\"");
    EXPECT_FALSE(categories.registerCategory("[Unknown]/Gift", dialogs));
    dialogs.expectAlert("Bad Category \"[Savings\"");
    EXPECT_FALSE(categories.addCategory("[Savings", dialogs));
    EXPECT_EQ(categories.numberOfItems(), 4u);
    EXPECT_EQ(dialogs.shown()[1].text,
              "Categories starting with \"[\" represent an account transfer.\r\rIf you were "
              "intending to indicate an account transfer, the account represented by "
              "\"[Unknown]/Gift\"  is not in your list of accounts.  You cannot specify a "
              "transfer to an account that Tavvel does not know about.  You should make sure "
              "this account is created in your financial software, then export your accounts "
              "from your financial software into a QIF file and import them into Tavvel before "
              "processing this transaction.");
    dialogs.expectAlert("Bad Category \"[X]\"");
    EXPECT_FALSE(categories.doAddCategory("[X]", "No %@ here", dialogs));
    EXPECT_EQ(dialogs.last().text, "No [X] here");
}

TEST_F(CategoriesTest, UpdateAccountsRebuildsTheTransfersExactlyAsItAlwaysHas) {
    categories.setCategoriesArray(texts(
        {"Auto", "[Checking]/Rent", "Food", "[Old Visa]", "Zoo", "[Savings]/Gift", "[Brokerage]"}));
    prefs().setObject(
        prefkey::Accounts,
        Value(Array{account("Savings", "Bank"), account("Visa", "CCard"), Value("not a record")}));
    categories.updateAccounts();
    // Classed transfers go even when their account exists; the first bare transfer ends
    // the list, taking "Zoo" with it.
    EXPECT_EQ(categories.getCategoriesArray(), texts({"Auto", "Food", "[Savings]", "[Visa]"}));
    TvPrefs again = reopened();
    EXPECT_EQ(Categories(again).getCategoriesArray(), categories.getCategoriesArray());
}

TEST_F(CategoriesTest, ChooserCompletesAndRefusesAnUnfinishedLevel) {
    categories.setCategoriesArray(texts({"Auto:Fuel", "Auto:Insurance", "Auto", "Bills"}));
    EXPECT_EQ(categories.completedString("au"), (Completion{"Auto", 2}));
    EXPECT_EQ(categories.completedString("Auto:"), (Completion{"Auto:Fuel", 5}));
    EXPECT_EQ(categories.completedString("Auto:I"), (Completion{"Auto:Insurance", 6}));
    EXPECT_TRUE(Categories::acceptable("Auto:Fuel"));
    EXPECT_FALSE(Categories::acceptable("Auto:"));
}

TEST_F(CategoriesTest, TheEditorRefusesNewTransfersAndStoresTheList) {
    EditCategories editor(prefs());
    TableEditor& table = editor.beginEditing();
    EXPECT_FALSE(table.addRow(Value("[Checking]")));
    EXPECT_EQ(table.message(), "Error: You cannot add categories starting with \"[\".");
    EXPECT_TRUE(table.addRow(Value("Travel")));
    EXPECT_TRUE(table.message().empty());
    EXPECT_FALSE(table.setCell(0, {}, Value("[Auto]")));
    EXPECT_TRUE(table.setCell(0, {}, Value("Automobile")));
    table.removeRows({1});
    editor.endEditing();
    EXPECT_EQ(editor.table(), nullptr);
    TvPrefs again = reopened();
    EXPECT_EQ(Categories(again).getCategoriesArray(), texts({"Automobile", "[Savings]", "Travel"}));
}

} // namespace
} // namespace tavvel::test
