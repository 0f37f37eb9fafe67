#include "forms/SplitTable.h"

#include "bank/BankingCreditCardQIF.h"
#include "prefs/Settings.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

Dictionary split(std::string category, std::string amount) {
    return Dictionary{{"category", Value(std::move(category))},
                      {"memo", Value("")},
                      {"amount", Value(std::move(amount))}};
}

SplitTable tableOf(std::initializer_list<std::string> amounts) {
    SplitTable table;
    for (const std::string& amount : amounts)
        table.appendRow(split("C", amount));
    return table;
}

std::vector<std::string> amountsOf(const SplitTable& table) {
    std::vector<std::string> out;
    for (std::size_t row = 0; row < table.numberOfRows(); ++row)
        out.push_back(table.cellText(row, SplitColumn::amount));
    return out;
}

using Amounts = std::vector<std::string>;

TEST(SplitTable, RowsAddedEditedAndDeletedOnlyWithASelection) {
    SplitTable table(Array{Value(split("Food", "10.00"))});
    table.addBlankRow();
    ASSERT_EQ(table.numberOfRows(), 2u);
    EXPECT_EQ(table.rows()[1], split("", ""));
    table.setCell(1, SplitColumn::memo, "tip");
    table.setCell(5, SplitColumn::memo, "nowhere"); // outside the table: ignored
    EXPECT_EQ(table.cellText(1, SplitColumn::memo), "tip");
    EXPECT_EQ(table.cellText(5, SplitColumn::memo), "");

    EXPECT_FALSE(table.deleteEnabled());
    table.deleteSelectedRow();
    EXPECT_EQ(table.numberOfRows(), 2u);
    table.select(7);
    EXPECT_FALSE(table.deleteEnabled());

    table.select(0);
    EXPECT_TRUE(table.deleteEnabled());
    table.deleteSelectedRow();
    EXPECT_FALSE(table.deleteEnabled());
    ASSERT_EQ(table.numberOfRows(), 1u);
    EXPECT_EQ(table.cellText(0, SplitColumn::memo), "tip");
    EXPECT_EQ(table.splits().size(), 1u);
}

TEST(SplitTable, FirstSplitTakesTheDifferenceOrACreatedSecondOne) {
    SplitBalancing plain;
    SplitTable two = tableOf({"60.00", "30.00"});
    EXPECT_TRUE(two.adjustSplitAmountsCanCreate("100.00", true, plain));
    EXPECT_EQ(amountsOf(two), (Amounts{"70.00", "30.00"}));

    SplitTable single = tableOf({"60.00"});
    EXPECT_TRUE(single.adjustSplitAmountsCanCreate("100.00", true, plain));
    EXPECT_EQ(amountsOf(single), (Amounts{"60.00", "40.00"}));
    EXPECT_EQ(single.cellText(1, SplitColumn::category), "");

    SplitTable notCreating = tableOf({"60.00"});
    EXPECT_TRUE(notCreating.adjustSplitAmountsCanCreate("100.00", false, plain));
    EXPECT_EQ(amountsOf(notCreating), (Amounts{"100.00"}));

    SplitTable none;
    EXPECT_FALSE(none.adjustSplitAmountsCanCreate("100.00", true, plain));
    EXPECT_TRUE(none.empty());
}

TEST(SplitTable, BalancedSplitsAreLeftAloneComparedInSinglePrecision) {
    Dictionary marked = split("A", "0.10");
    marked.emplace("amountAlreadyConverted", Value(true));
    SplitTable table;
    table.appendRow(marked);
    table.appendRow(split("B", "0.20"));
    // 0.1 + 0.2 is 0.3 in single precision, though not in double.
    EXPECT_FALSE(table.adjustSplitAmountsCanCreate("0.30", true, SplitBalancing{}));
    EXPECT_EQ(table.rows()[0], marked);
}

TEST(SplitTable, PrecisionThousandsAndTheMarkRemovedBeforeNormalising) {
    std::vector<Dictionary> normalised;
    SplitBalancing how{3, [&](Dictionary& record) { normalised.push_back(record); }};
    Dictionary marked = split("A", "1,000.00");
    marked.emplace("amountAlreadyConverted", Value(true));
    SplitTable table;
    table.appendRow(marked);
    table.appendRow(split("B", "200"));
    EXPECT_TRUE(table.adjustSplitAmountsCanCreate("1,234.50", false, how));
    EXPECT_EQ(amountsOf(table), (Amounts{"1034.500", "200"}));
    ASSERT_EQ(normalised.size(), 1u);
    EXPECT_EQ(normalised[0], split("A", "1034.500")); // handed over without the mark
}

TEST(SplitTable, EuropeanAmountsAreReadAndTheBalanceNormalisedByTheReader) {
    test::TestContext t;
    addOption(t.ctx.prefs, option::outputEuropeanAmounts);
    t.ctx.prefs.setInteger(prefkey::bccAmountsPrecision, 2);
    BankingCreditCardQIF reader(t.ctx);
    SplitBalancing how{splitAmountPrecision(t.ctx.prefs),
                       [&](Dictionary& record) { reader.normalizeQIFAmountIn(record); }};

    SplitTable two = tableOf({"60,00", "30,00"});
    EXPECT_TRUE(two.adjustSplitAmountsCanCreate("100,00", true, how));
    EXPECT_EQ(amountsOf(two), (Amounts{"70,00", "30,00"}));
    EXPECT_EQ(two.rows()[0].at("amountAlreadyConverted"), Value(true));

    SplitTable single = tableOf({"1.000,00"});
    EXPECT_TRUE(single.adjustSplitAmountsCanCreate("1.250,50", true, how));
    EXPECT_EQ(amountsOf(single), (Amounts{"1.000,00", "250,50"}));
}

TEST(SplitTable, PrecisionComesFromTheStoreWithTwoWhenItHasNone) {
    TvPrefs prefs;
    EXPECT_EQ(splitAmountPrecision(prefs), 2);
    prefs.setInteger(prefkey::bccAmountsPrecision, 0);
    EXPECT_EQ(splitAmountPrecision(prefs), 0);
    SplitTable table = tableOf({"60"});
    table.adjustSplitAmountsCanCreate("99.6", true, SplitBalancing{0, {}});
    EXPECT_EQ(amountsOf(table), (Amounts{"60", "40"}));
}

} // namespace
} // namespace tavvel
