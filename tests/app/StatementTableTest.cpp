#include "app/StatementTable.h"

#include "app/Controller.h"
#include "app/StatementRows.h"
#include "bank/QifInputTypes.h"
#include "knowledge/Categories.h"
#include "knowledge/Instructions.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/Settings.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

constexpr const char* kOfx =
    "OFXHEADER:100\n<OFX><BANKMSGSRSV1><STMTRS><BANKACCTFROM><ACCTID>42</BANKACCTFROM>\n"
    "<STMTTRN><DTPOSTED>20240102<TRNAMT>-1,234.50<NAME>CORNER SHOP<MEMO>card 9</STMTTRN>\n"
    "<STMTTRN><DTPOSTED>20240110<TRNAMT>2000.00<NAME>PAYROLL<CHECKNUM>77</STMTTRN>\n"
    "<STMTTRN><TRNAMT>5.00<NAME>NO DATE</STMTTRN>\n"
    "<STMTTRN><DTPOSTED>20240120<TRNAMT>-0.05<NAME>FEE<MEMO>CORNER CAFE</STMTTRN>\n"
    "</BANKTRANLIST></STMTRS></BANKMSGSRSV1></OFX>\n";

struct StatementTableTest : ::testing::Test {
    test::TestContext t;
    test::ScriptedDialogs dialogs;
    Controller controller{t.ctx, dialogs};
    StatementTable table;

    void SetUp() override {
        Categories(t.ctx.prefs).createEmpty();
        Instructions(t.ctx.prefs)
            .setInstruction({{std::string(ikey::descriptionMatch), Value("CORNER")},
                             {std::string(ikey::category), Value("Groceries")}});
    }

    void open(std::string text, std::string name) {
        ASSERT_EQ(controller.processText(std::move(text), name), Intake::formReady);
        auto rows = readStatementRows(t.ctx, statementSourceOf(controller), {});
        ASSERT_TRUE(rows);
        table.setRows(std::move(*rows));
        refilter();
    }
    void refilter() { table.setFilter(tableFilterFor(controller.form(), t.ctx)); }

    std::string shown() const {
        std::string all;
        for (std::size_t i = 0; i < table.size(); ++i)
            all += table.date(i) + "|" + table.amount(i) + "|" + table.row(i).number + "|" +
                   table.description(i) + "|" + table.memo(i) + "|" + table.category(i) + "|" +
                   table.row(i).errorMessage + "\n";
        return all + table.summary();
    }
};

TEST_F(StatementTableTest, OfxRowsFollowTheRunFormLive) {
    open(kOfx, "File \"bank.ofx\"");
    EXPECT_EQ(shown(),
              "1/2/2024|-1234.50||CORNER SHOP|card 9|Groceries|\n"
              "1/10/2024|2000.00|77|PAYROLL|||\n"
              "|||<TRNAMT>5.00<NAME>NO DATE</STMTTRN>|||The following OFX transaction does "
              "not contain a date; it cannot be processed: \n"
              "1/20/2024|-0.05||FEE|CORNER CAFE||\n"
              "3 transactions to be written, totalling 765.45. 1 record cannot be read.");

    RunForm& form = controller.form();
    form.whichTransactions = kDateRange;
    form.dateFrom = "1/5/24"; // the short year is read as the run reads it
    form.dateTo = "1/31/2024";
    form.sameDate = true;
    form.outputDate = "2/1/2024";
    form.qfxType = kQfxSwapIndex;
    refilter();
    EXPECT_EQ(shown(),
              "2/1/2024|2000.00|77||PAYROLL||\n"
              "||||<TRNAMT>5.00<NAME>NO DATE</STMTTRN>||The following OFX transaction does "
              "not contain a date; it cannot be processed: \n"
              "2/1/2024|-0.05||CORNER CAFE|FEE|Groceries|\n"
              "2 transactions to be written, totalling 1999.95. 1 record cannot be read.");

    form.dateFrom = "not a date"; // an unreadable range hides nothing rather than everything
    refilter();
    EXPECT_EQ(table.size(), 4u);
}

TEST_F(StatementTableTest, QifRowsReverseSignsAndStopAtABadDate) {
    open("!Type:Bank\nD1/3/2024\nT-10.00\nPCORNER SHOP\n^\nD1/4/2024\nT2.25\nN101\nLRent\n"
         "PCORNER\n^\nD1/5/2024\nTn/a\n^\nD13/45/2024\nT1.00\n^\n",
         "File \"bank.qif\"");
    controller.form().qifType = 1; // Reverse Signs
    refilter();
    EXPECT_EQ(shown(), "1/3/2024|10.00||CORNER SHOP||Groceries|\n"
                       "1/4/2024|-2.25|101|CORNER||Rent|\n"
                       "1/5/2024|-n/a|||||\n" // shown as the run writes it; no total then
                       "||||||File \"bank.qif\" appears to contain corrupted QIF on line 15; it "
                       "cannot be processed.\n"
                       "3 transactions to be written; an amount that cannot be read leaves the "
                       "total unknown. 1 record cannot be read.");
}

TEST_F(StatementTableTest, StoppedReadingGivesNoRows) {
    ASSERT_EQ(controller.processText(kOfx, "File \"bank.ofx\""), Intake::formReady);
    std::stop_source stop;
    stop.request_stop();
    std::size_t reports = 0;
    RowReading reading{stop.get_token(), [&](std::size_t, std::size_t) { ++reports; }};
    EXPECT_FALSE(readStatementRows(t.ctx, statementSourceOf(controller), reading));
    EXPECT_EQ(reports, 0u);

    Controller idle(t.ctx, dialogs);
    auto none = readStatementRows(t.ctx, statementSourceOf(idle), {});
    ASSERT_TRUE(none);
    EXPECT_TRUE(none->empty()) << "no input, no rows";
}

TEST(ExactSum, ReadsGroupingAndRefusesWhatItCannotRead) {
    ExactSum us;
    for (const char* amount : {"1,000.5", "-0.25", "3", "-1,000.255"})
        us.add(amount);
    EXPECT_EQ(us.text(), "2.995");
    EXPECT_EQ(us.text(true), "-2.995");

    ExactSum european(',');
    european.add("1.234,5");
    european.add("-0,75");
    EXPECT_EQ(european.text(), "1233.75");

    for (const char* bad : {"--5", "12a", "", "1.2.3", "99999999999999999999"}) {
        ExactSum sum;
        sum.add("1");
        sum.add(bad);
        EXPECT_FALSE(sum.text()) << bad;
    }
    ExactSum small;
    small.add("-0.05");
    EXPECT_EQ(small.text(), "-0.05");
}

} // namespace
} // namespace tavvel
