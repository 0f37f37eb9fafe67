#include "knowledge/Accounts.h"

#include "KnowledgeFixture.h"
#include "forms/ListEditors.h"
#include "knowledge/AccountTypes.h"

namespace tavvel::test {
namespace {

class AccountsTest : public KnowledgeTest {
protected:
    AccountsTest() {
        accounts.setAccountsArray({account("Checking", "Bank"), account("Visa", "CCard"),
                                   account("Brokerage", "Port"), account("Fund", "Mutual"),
                                   account("House", "Oth A"), account("Amex", "CCard"),
                                   account("Checking", "CCard")});
    }
    std::vector<std::string> offered(int kind, ChooserState& chooser) {
        accounts.comboBoxIncludeOnly(kind, chooser);
        return accounts.filteredAccountNames();
    }
    Accounts accounts{prefs()};
};

using Names = std::vector<std::string>;

TEST_F(AccountsTest, TypeForAccountTakesTheFirstExactName) {
    EXPECT_EQ(accounts.typeForAccount("Checking"), "Bank");
    EXPECT_EQ(accounts.typeForAccount("checking"), "");
    EXPECT_EQ(accounts.typeForAccount("Fund"), "Mutual");
    TvPrefs again = reopened();
    EXPECT_EQ(Accounts(again).typeForAccount("House"), "Oth A");
}

TEST_F(AccountsTest, EachChooserKindOffersItsTypes) {
    ChooserState chooser;
    EXPECT_EQ(offered(0, chooser), (Names{"Checking"}));
    EXPECT_EQ(offered(1, chooser), (Names{"Visa", "Amex", "Checking"}));
    EXPECT_EQ(offered(2, chooser), (Names{"Brokerage"}));
    EXPECT_EQ(offered(3, chooser), (Names{"Checking", "Visa", "Amex", "Checking"}));
    EXPECT_EQ(offered(4, chooser), Names{});
}

TEST_F(AccountsTest, FilteringDeselectsAndClearsANameNotOffered) {
    ChooserState chooser{"Fund", 3};
    offered(3, chooser);
    EXPECT_EQ(chooser.text, "");
    EXPECT_FALSE(chooser.selectedIndex);
    chooser = {"Visa", 1};
    offered(1, chooser);
    EXPECT_EQ(chooser.text, "Visa");
    // Kind 4 offers nothing but leaves the text alone.
    offered(4, chooser);
    EXPECT_EQ(chooser.text, "Visa");
    EXPECT_EQ(accounts.numberOfItems(), 0u);
}

TEST_F(AccountsTest, ChooserCompletionAndAnyName) {
    ChooserState chooser;
    offered(3, chooser);
    EXPECT_EQ(accounts.completedString("c"), (Completion{"Checking", 1}));
    EXPECT_EQ(accounts.completedString("a"), (Completion{"Amex", 1}));
    EXPECT_FALSE(accounts.completedString("B"));
    EXPECT_EQ(accounts.itemAtIndex(-1), "");
    EXPECT_TRUE(accounts.acceptsName("Visa"));
    EXPECT_FALSE(accounts.acceptsName("Savings"));
    accounts.allowAnyName(true);
    EXPECT_TRUE(accounts.acceptsName("Savings"));
}

TEST_F(AccountsTest, TypeNumbersAndTheirWords) {
    EXPECT_EQ(typeNumberFor("Port"), 2);
    EXPECT_EQ(typeNumberFor("Mutual"), 2);
    EXPECT_EQ(typeNumberFor("Oth L"), 3);
    EXPECT_EQ(typeWordFor(2), "Port");
    EXPECT_EQ(typeWordFor(3), "Oth A");
    EXPECT_EQ(typeTitleFor(1), "Credit Card");
}

TEST_F(AccountsTest, TheEditorKeepsUnchangedWordsAndWritesChangedNumbers) {
    EditAccounts editor(prefs());
    TableEditor& table = editor.beginEditing();
    EXPECT_EQ(table.cell(3, "TypeNumber"), Value(2));
    EXPECT_EQ(table.cell(4, "TypeNumber"), Value(3));
    table.setCell(2, "TypeNumber", Value(3)); // Brokerage: Investment -> Other
    table.setCell(1, "TypeNumber", Value(2)); // Visa: Credit Card -> Investment
    table.setCell(4, "TypeNumber", Value(3)); // House: unchanged
    table.addRow(Value(record({{"Name", "Savings"}, {"TypeNumber", 0}})));
    editor.endEditing();
    TvPrefs again = reopened();
    Accounts reread(again);
    EXPECT_EQ(reread.typeForAccount("Brokerage"), "Oth A");
    EXPECT_EQ(reread.typeForAccount("Visa"), "Port");
    EXPECT_EQ(reread.typeForAccount("Fund"), "Mutual");
    EXPECT_EQ(reread.typeForAccount("House"), "Oth A");
    EXPECT_EQ(reread.typeForAccount("Savings"), "Bank");
    for (const Value& entry : reread.getAccountsArray())
        EXPECT_EQ(entry.dictionary().size(), 2u) << entry.describe();
}

TEST_F(AccountsTest, AStoredOddTypeSurvivesTheEditorUntilChanged) {
    accounts.setAccountsArray({account("Loan", "Oth L"), account("Cash", "Cash")});
    EditAccounts editor(prefs());
    editor.beginEditing().setCell(1, "TypeNumber", Value(0));
    editor.endEditing();
    EXPECT_EQ(accounts.typeForAccount("Loan"), "Oth L");
    EXPECT_EQ(accounts.typeForAccount("Cash"), "Bank");
}

} // namespace
} // namespace tavvel::test
