#include "app/ImportQuickenExport.h"

#include "app/AppTexts.h"
#include "dialogs/MessageFormat.h"
#include "prefs/Settings.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

using test::ScriptedDialogs;

std::vector<std::string_view> linesOf(std::initializer_list<std::string_view> lines) {
    return std::vector<std::string_view>(lines);
}

struct ListImport : ::testing::Test {
    test::TestContext t;
    ScriptedDialogs dialogs;
    std::size_t start = 99;

    int run(const std::vector<std::string_view>& lines) {
        t.ctx.prefs = TvPrefs::open(t.ctx.places.prefsFolder, "TavvelMain");
        return ImportQuickenExport(t.ctx.prefs, dialogs).process(lines, start, "File \"x.qif\"");
    }
    // What the file holds after the call: changes must be on disk, not only in memory.
    TvPrefs reopened() const { return TvPrefs::open(t.ctx.places.prefsFolder, "TavvelMain"); }
};

TEST_F(ListImport, CategoryListOnlyEndsInsideTheListAtTheEnd) {
    auto lines =
        linesOf({"!Type:Cat", "NFood", "DGroceries and meals", "E", "^", "NAuto:Fuel", "I", "^"});
    dialogs.expectAsk("QIF List Import", 0);
    EXPECT_EQ(run(lines), 10);
    EXPECT_EQ(start, lines.size());
    EXPECT_EQ(dialogs.shown()[0].text,
              "File \"x.qif\" contains a list of CATEGORIES.  Do you want Tavvel to replace the "
              "categories it uses with this list?");
    EXPECT_EQ(reopened().objectForKey(prefkey::Categories)->array(),
              (Array{Value("Food"), Value("Auto:Fuel")}));
}

TEST_F(ListImport, AutoSwitchAccountListThenTransactionsStopsAtTheAccountLine) {
    auto lines = linesOf({"!Option:AutoSwitch", "!Account", "NChecking", "TBank", "^", "NVisa",
                          "TCCard", "^", "!Clear:AutoSwitch", "!Account", "NChecking", "TBank", "^",
                          "!Type:Bank", "D1/2/2024", "T-5.00", "^"});
    dialogs.expectAsk("QIF List Import", 0);
    EXPECT_EQ(run(lines), 9);
    EXPECT_EQ(start, 9u);
    Array accounts = reopened().objectForKey(prefkey::Accounts)->array();
    ASSERT_EQ(accounts.size(), 2u);
    EXPECT_EQ(textOf(accounts[1].dictionary(), "Name"), "Visa");
    EXPECT_EQ(textOf(accounts[1].dictionary(), "Type"), "CCard");
}

TEST_F(ListImport, MalformedRecordsStoreNothingAndAskNothing) {
    t.ctx.prefs.setObject(prefkey::Accounts, Value(Array{Value("old")}));
    EXPECT_EQ(run(linesOf({"!Option:AutoSwitch", "NChecking", "^", "NSavings", "TBank"})), -1);
    EXPECT_EQ(run(linesOf({"!Option:AutoSwitch", "TBank"})), -1);
    EXPECT_EQ(run(linesOf({"!Type:Cat", "NFood", "!Type:Security", "NAcme Corp", "^"})), -1);
    EXPECT_EQ(run(linesOf({"!Type:Security", "NAcme Corp", "NOther", "SOTH"})), -1);
    EXPECT_TRUE(dialogs.shown().empty());
    EXPECT_FALSE(reopened().objectForKey(prefkey::Categories));
}

TEST_F(ListImport, AnswerNoKeepsTheStoredListAndItsBitClear) {
    dialogs.expectAsk("QIF List Import", 0)
        .expectAsk("QIF List Import", 1)
        .expectAsk("QIF List Import", 0);
    t.ctx.prefs = TvPrefs::open(t.ctx.places.prefsFolder, "TavvelMain");
    t.ctx.prefs.setObject(prefkey::Categories, Value(Array{Value("Kept")}));
    t.ctx.prefs.synchronize();
    auto lines = linesOf({"!Option:AutoSwitch", "NChecking", "TBank", "!Clear:AutoSwitch",
                          "!Type:Cat", "NFood", "!Type:Security", "NAcme Corp", "SACME", "^"});
    int result = ImportQuickenExport(t.ctx.prefs, dialogs).process(lines, start, "The clipboard");
    EXPECT_EQ(result, 8 | 1 | 4);
    EXPECT_EQ(reopened().objectForKey(prefkey::Categories)->array(), (Array{Value("Kept")}));
    EXPECT_EQ(
        textOf(reopened().objectForKey(prefkey::Securities)->array()[0].dictionary(), "Symbol"),
        "ACME");
}

TEST_F(ListImport, OrdinaryTransactionFilesAndPricesLists) {
    auto bank = linesOf({"!Type:Bank", "D1/2/2024", "NCheck", "T-5.00", "^"});
    EXPECT_EQ(run(bank), 0);
    EXPECT_EQ(start, bank.size());

    EXPECT_EQ(run({}), 0);
    EXPECT_EQ(start, 0u);

    dialogs.expectAlert("QIF List Import");
    EXPECT_EQ(run(linesOf({"!Type:Prices", "\"ACME\",12.5,\"1/2/24\"", "^"})), 0);
    EXPECT_EQ(dialogs.last().text, formatMessage(text::listImportPrices, "File \"x.qif\""));
}

} // namespace
} // namespace tavvel
