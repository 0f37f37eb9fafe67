#include "formats/OutputFormats.h"
#include "prefs/Settings.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

Array strings(std::initializer_list<const char*> items) {
    Array out;
    for (const char* item : items)
        out.emplace_back(item);
    return out;
}

Array flags(std::initializer_list<bool> items) {
    Array out;
    for (bool item : items)
        out.emplace_back(item);
    return out;
}

struct OutputWriter : ::testing::Test {
    test::TestContext t;
    test::ScriptedDialogs dialogs;
    OutputFormats writer{t.ctx, dialogs};
    std::string out;

    OutputWriter() {
        t.ctx.prefs.setObject(prefkey::DescriptionOutput, Value("%d"));
        t.ctx.prefs.setObject(prefkey::MemoOutput, Value("%m"));
        t.ctx.prefs.setObject(prefkey::Categories, Value(strings({"Food", "Salary"})));
    }
    void addLayout(Dictionary layout) {
        Array formats = writer.getOutputFormatsArray();
        formats.emplace_back(std::move(layout));
        t.ctx.prefs.setObject(prefkey::OutputFormats, Value(formats));
    }
};

TEST_F(OutputWriter, QifRecordLinesInOrderAndOnlyWhatIsThere) {
    writer.produceBankCCOutput(out, {"1/31/2024", "CORNER GROCERY", std::nullopt, "-12.00",
                                     std::nullopt, "Food", std::nullopt, nullptr});
    EXPECT_EQ(out, "D1/31/2024\nPCORNER GROCERY\nT-12.00\nLFood\n^\n");

    out.clear();
    Array splits{Value(Dictionary{
                     {"category", Value("Food")}, {"memo", Value("")}, {"amount", Value("-2")}}),
                 Value(Dictionary{
                     {"category", Value("Gifts")}, {"memo", Value("m")}, {"amount", Value("-3")}})};
    writer.produceBankCCOutput(out,
                               {"2/1/2024", "P", "memo", "-5", "  1041", "Food", "*", &splits});
    EXPECT_EQ(out, "D2/1/2024\nPP\nMmemo\nT-5\nN1041\nSFood\nE\n$-2\nSGifts\nEm\n$-3\nC*\n^\n");
    EXPECT_TRUE(writer.QIFOutput());
}

TEST_F(OutputWriter, LongNumbersDashDatesAndTemplates) {
    addOption(t.ctx.prefs, option::removeLongNumber);
    addOption(t.ctx.prefs, option::outputDashDates);
    t.ctx.prefs.setObject(prefkey::DescriptionOutput, Value("%d (%m)"));
    writer.produceBankCCOutput(
        out, {"1/2/2024", "A", "B", "1", "123456", std::nullopt, std::nullopt, nullptr});
    writer.produceBankCCOutput(
        out, {"1/3/2024", "A", std::nullopt, "1", "12345", std::nullopt, std::nullopt, nullptr});
    EXPECT_EQ(out, "D1-2-2024\nPA (B)\nMB\nT1\n^\nD1-3-2024\nPA ()\nT1\nN12345\n^\n");

    addLayout({{"Name", Value("Sheet")},
               {"Separator", Value("Comma")},
               {"Order", Value(strings({"Number"}))},
               {"Present", Value(flags({true}))}});
    writer.chooseFormat("Sheet");
    out.clear();
    writer.produceBankCCOutput(
        out, {"1/2/2024", "A", "B", "1", " 123456", std::nullopt, std::nullopt, nullptr});
    EXPECT_EQ(out, "123456\n"); // long numbers stay in delimited layouts
}

TEST_F(OutputWriter, DelimitedQuotingPositionsAndSplits) {
    addLayout({{"Name", Value("Sheet")},
               {"Type", Value("Bank")},
               {"Separator", Value("Comma")},
               {"Order", Value(strings({"Date", "Description", "Credit", "Debit", "Splits",
                                        "blank1", "Account"}))},
               {"Present", Value(flags({false, true, true, true, true, true, true}))},
               {"SplitsOutput", Value(2)}});
    writer.chooseFormat("Sheet");
    writer.setAccount("Checking");
    EXPECT_FALSE(writer.QIFOutput());
    Array splits{Value(Dictionary{
        {"category", Value("A,B")}, {"memo", Value("say \"hi\"")}, {"amount", Value("-1")}})};
    writer.produceBankCCOutput(out, {"1/2/2024", "Smith, J", std::nullopt, "-1", std::nullopt,
                                     "Food", std::nullopt, &splits});
    writer.produceBankCCOutput(
        out, {"1/2/2024", "Pay", std::nullopt, "9", std::nullopt, "Salary", std::nullopt, nullptr});
    // The first present item is at position 1, so every line starts with a separator.
    EXPECT_EQ(out, ",\"Smith, J\",,-1,-1,\"A,B\",\"say \"\"hi\"\"\",,Checking\n"
                   ",Pay,9,,,Checking\n");
    EXPECT_EQ(writer.namesForKind(0), (std::vector<std::string>{"QIF", "Sheet"}));
    EXPECT_EQ(writer.namesForKind(1), (std::vector<std::string>{"QIF"}));
}

TEST_F(OutputWriter, TabsBecomeBlanksAndDatesAreReformatted) {
    addLayout({{"Name", Value("Tabbed")},
               {"Separator", Value("Tab")},
               {"Order", Value(strings({"Date", "Memo"}))},
               {"Present", Value(flags({true, true}))},
               {"ReformatDate", Value(true)},
               {"ReformatDateFormat", Value("%d.%m.%Y")}});
    writer.chooseFormat("Tabbed");
    writer.produceBankCCOutput(
        out, {"03/04/2009", "x", "a\tb", "1", std::nullopt, std::nullopt, std::nullopt, nullptr});
    writer.produceBankCCOutput(
        out, {"not a date", "x", "", "1", std::nullopt, std::nullopt, std::nullopt, nullptr});
    EXPECT_EQ(out, "4.3.2009\ta     b\nnot a date\t\n");
    EXPECT_EQ(OutputFormats::reformatPattern("%B %d, %Y %y %b %m"), "MMMM d, yyyy yy MMM M");
}

TEST_F(OutputWriter, NewCategoriesAreRegisteredKnownOnesChangeNothing) {
    writer.produceBankCCOutput(
        out, {"1/2/2024", "x", std::nullopt, "1", std::nullopt, "Food", std::nullopt, nullptr});
    EXPECT_EQ(t.ctx.prefs.objectForKey(prefkey::Categories)->array().size(), 2u);
    writer.produceBankCCOutput(out, {"1/2/2024", "x", std::nullopt, "1", std::nullopt, "Auto:Fuel",
                                     std::nullopt, nullptr});
    EXPECT_EQ(t.ctx.prefs.objectForKey(prefkey::Categories)->array(),
              strings({"Auto:Fuel", "Food", "Salary"}));
}

TEST_F(OutputWriter, InvestmentLinesUseTheValuesAsGiven) {
    addLayout({{"Name", Value("Inv")},
               {"Separator", Value("Comma")},
               {"Order", Value(strings({"Date", "Type", "Security", "Shares", "Price", "Debit",
                                        "Fees", "Memo"}))},
               {"Present", Value(flags({true, true, true, true, true, true, false, true}))}});
    writer.chooseFormat("Inv");
    InvestmentOutput buy;
    buy.date = "1/2/2024";
    buy.type = "Buy";
    buy.security = "Acme, Inc";
    buy.shares = "10";
    buy.price = "1.5";
    buy.amount = "-15";
    writer.produceInvestmentOutput(out, buy);
    EXPECT_EQ(out, "1/2/2024,Buy,\"Acme, Inc\",10,1.5,-15,\n");
}

} // namespace
} // namespace tavvel
