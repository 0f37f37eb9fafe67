#include "dialogs/BatchDialogs.h"
#include "formats/OutputFormats.h"
#include "invest/InvestmentQIF.h"
#include "knowledge/Securities.h"
#include "prefs/Settings.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

InvestmentRecord record(std::string type, double amount, bool negative = false) {
    InvestmentRecord r;
    r.date = "3/1/2024";
    r.type = std::move(type);
    r.amount = amount;
    r.amountWasNegative = negative;
    return r;
}

Dictionary formatMapping(std::string type, std::int64_t code) {
    Array mappings{Value(Dictionary{{"formatType", Value(type)}, {"quickenType", Value(code)}})};
    return Dictionary{
        {"Name", Value("OFX")}, {"OFX", Value(true)}, {"TypeMappings", Value(mappings)}};
}

struct InvestmentWalk : ::testing::Test {
    test::TestContext t;
    std::string output = "!Type:Invst\n";
    Dictionary format = formatMapping("INCOME DIV", 2);
};

// A run without a person never guesses an action: a type no mapping covers is left out,
// counted, and named once in the closing note, while the rest is written.
TEST_F(InvestmentWalk, BatchSkipsTypesWithoutActionAndNamesThem) {
    BatchDialogs dialogs;
    OutputFormats writer{t.ctx, dialogs};
    InvestmentQIF engine(t.ctx, dialogs, writer);
    engine.qif = {record("INCOME MISC", 3), record("INCOME DIV", 1.5), record("INCOME MISC", 4),
                  record("SWAP", 1)};
    engine.qif[1].security = "Birch Fund";
    InvestmentWalkResult walked = engine.processInstructionsAndAppendToString(output, format, {});
    EXPECT_EQ(walked.appended, 1u);
    EXPECT_EQ(output, "!Type:Invst\nD3/1/2024\nNDiv\nMINCOME DIV\nYBirch Fund\nT1.50\n^\n");
    EXPECT_EQ(closingNote(walked),
              "\r\r3 transaction(s) skipped: no action is defined for their type (\"INCOME "
              "MISC\", \"SWAP\").");
    EXPECT_EQ(dialogs.messages()[0].text,
              "No action is defined for the type \"INCOME MISC\" of this transaction "
              "(3/1/2024).  Choose the action it stands for: it is remembered for this input "
              "format.");
    // Batch used the name shown for the unknown security, and learned it.
    EXPECT_EQ(dialogs.messages()[1].text,
              "The security \"Birch Fund\" of this transaction (3/1/2024) is not in your "
              "security list.  Use the name shown: it is added to the list and remembered for "
              "this input format.");
    EXPECT_EQ(dialogs.messages()[1].buttons,
              (std::vector<std::string>{"Use Name Shown Above", "Skip Transaction"}));
    EXPECT_TRUE(Securities(t.ctx.prefs).securityFound("Birch Fund"));
}

// An action chosen for an unknown type is learned into the format: the next transaction of
// that type asks nothing. A cash action is refused without the Quicken 2003 option and
// written as a bank transaction inside the investment account with it.
TEST_F(InvestmentWalk, ChosenActionLearnedAndCashActionsNeedQuicken2003) {
    test::ScriptedDialogs dialogs;
    OutputFormats writer{t.ctx, dialogs};
    InvestmentQIF engine(t.ctx, dialogs, writer);
    engine.qif = {record("WIRE IN", 250), record("WIRE IN", 75.25)};
    engine.qif[1].description = "From savings";
    dialogs
        .expectAsk("Investment Transaction: Unknown Transaction Type", 21) // code 19
        .expectAsk("Investment Transaction: Missing quicken2003 Field", 0)
        .expectAsk("Investment Transaction: Missing quicken2003 Field", 0);
    InvestmentWalkResult refused = engine.processInstructionsAndAppendToString(output, format, {});
    EXPECT_EQ(refused.appended, 0u);
    EXPECT_EQ(dialogs.shown()[1].text,
              "The transaction shown above can be imported only into financial software that "
              "supports Check/Withdrawal/Deposit/POS/ATM trnsactions (such as Quicken "
              "2003-2007).  However, you have not selected the preference to produce QIF for "
              "Quicken 2003 or later.  Therefore, the transaction must be skipped.");
    EXPECT_EQ(closingNote(refused),
              "\r\r2 transaction(s) skipped: a required field is missing or bad.");
    EXPECT_EQ(lookUpType(find(format, "TypeMappings")->array(), "wire in", false).quickenType, 19);

    t.ctx.prefs.setObject(prefkey::Preferences, Value(Array{Value("quicken2003")}));
    engine.qif.erase(engine.qif.begin());
    InvestmentWalkResult written =
        engine.processInstructionsAndAppendToString(output, format, {"", "", true});
    EXPECT_EQ(written.appended, 1u);
    EXPECT_EQ(output, "!Type:Invst\n!InvstBnk\nNDEP\nD3/1/2024\nPFrom savings\nM\nT75.25\nL\n"
                      "C*\n^\n!Type:Invst\n");
}

// Always Skip asks for confirmation; going back offers the actions again, confirming learns
// the type as one to drop, and the next transaction of that type is dropped without a word.
TEST_F(InvestmentWalk, AlwaysSkipConfirmedAndLearned) {
    test::ScriptedDialogs dialogs;
    OutputFormats writer{t.ctx, dialogs};
    InvestmentQIF engine(t.ctx, dialogs, writer);
    engine.qif = {record("JOURNAL", 10), record("JOURNAL ENTRY", 20), record("INCOME DIV", 1)};
    engine.qif[2].security = "Birch Fund";
    Securities(t.ctx.prefs)
        .setSecuritiesArray(
            Array{Value(Dictionary{{"Name", Value("Birch Fund")}, {"Symbol", Value("")}})});
    dialogs.expectAsk("Investment Transaction: Unknown Transaction Type", 1)
        .expectAsk("Investment Transaction: Always Skip This Transaction Type", 1)
        .expectAsk("Investment Transaction: Unknown Transaction Type", 1)
        .expectAsk("Investment Transaction: Always Skip This Transaction Type", 0);
    InvestmentWalkResult walked = engine.processInstructionsAndAppendToString(output, format, {});
    EXPECT_EQ(walked.appended, 1u);
    EXPECT_EQ(walked.unknownTypeCount, 0u);
    EXPECT_EQ(closingNote(walked), "");
    EXPECT_EQ(dialogs.shown()[0].buttons[1], "Always Skip This Type");
    EXPECT_EQ(dialogs.shown()[1].text, "Transactions of the type \"JOURNAL\" will be left out "
                                       "without asking, for this input format.");
    EXPECT_EQ(dialogs.shown()[1].buttons,
              (std::vector<std::string>{"Confirm Always Skip", "Don't Always Skip"}));
    EXPECT_EQ(lookUpType(find(format, "TypeMappings")->array(), "journal entry", false).quickenType,
              actioncode::alwaysSkip);
}

// The sign-dependent choice is learned as such and acts by each transaction's sign.
TEST_F(InvestmentWalk, SignDependentChoiceFollowsEachSign) {
    test::ScriptedDialogs dialogs;
    OutputFormats writer{t.ctx, dialogs};
    InvestmentQIF engine(t.ctx, dialogs, writer);
    engine.qif = {record("TRADE", 50, true), record("TRADE", 20)};
    for (InvestmentRecord& r : engine.qif) {
        r.security = "Birch Fund";
        r.shares = 2;
    }
    Securities(t.ctx.prefs)
        .setSecuritiesArray(
            Array{Value(Dictionary{{"Name", Value("Birch Fund")}, {"Symbol", Value("")}})});
    dialogs.expectAsk("Investment Transaction: Unknown Transaction Type", 2 + 23);
    engine.processInstructionsAndAppendToString(output, format, {});
    EXPECT_EQ(output, "!Type:Invst\nD3/1/2024\nNBuy\nMTRADE\nYBirch Fund\nQ2.00\nI25.0000\n"
                      "T50.00\n^\nD3/1/2024\nNSell\nMTRADE\nYBirch Fund\nQ2.00\nI10.0000\n"
                      "T20.00\n^\n");
}

// Required fields are checked before the security is asked for, with the field named; a
// number that is none, or a statement that names no type, is explained in its own words.
TEST_F(InvestmentWalk, MissingRequiredFieldExplained) {
    test::ScriptedDialogs dialogs;
    OutputFormats writer{t.ctx, dialogs};
    InvestmentQIF engine(t.ctx, dialogs, writer);
    format = formatMapping("BUY", 1);
    engine.qif = {record("BUY", 100, true), record("BUY", 0), record("", 5)};
    engine.qif[0].security = "Unknown Fund";
    engine.qif[1].badValue = "12,3x";
    dialogs.expectAsk("Investment Transaction: Missing SHARES Field", 0)
        .expectAsk("Investment Transaction: Missing badValue Field", 0)
        .expectAsk("Investment Transaction: Missing TYPE Field", 0);
    InvestmentWalkResult walked = engine.processInstructionsAndAppendToString(output, format, {});
    EXPECT_EQ(walked.unwritable, 3u);
    EXPECT_EQ(output, "!Type:Invst\n");
    EXPECT_EQ(dialogs.shown()[1].text,
              "The transaction shown above contains one or more bad or missing values, as shown "
              "above with \"Invalid\".  Therefore, the transaction must be skipped unless you edit "
              "the input to provide correct values.");
    EXPECT_EQ(dialogs.shown()[2].text,
              "The transaction shown above is missing a TYPE.  It is possible that the format "
              "was defined wrong, or that there was a date within the previous "
              "transaction.\r\rAll transactions must have a type.  Therefore, the transaction "
              "must be skipped unless you edit the input to provide a type.");
    EXPECT_EQ(dialogs.shown()[0].text,
              "The transaction shown above is missing the SHARES field, which is required for "
              "this type of transaction.  Therefore, the transaction must be skipped unless you "
              "redefine the type to one that matches the available fields, or edit the input to "
              "provide the missing field.");
}

// Confirmation shows the transaction with its numbers in the display formats; the order of
// the lines and the fees without their sign follow the sale of the written example.
TEST_F(InvestmentWalk, ConfirmedSaleWrittenInOrder) {
    test::ScriptedDialogs dialogs;
    OutputFormats writer{t.ctx, dialogs};
    InvestmentQIF engine(t.ctx, dialogs, writer);
    t.ctx.prefs.setObject(prefkey::Preferences, Value(Array{Value("textConfirmAllTransactions")}));
    t.ctx.prefs.setObject(prefkey::sharesPrecision, Value(3));
    Securities(t.ctx.prefs)
        .setSecuritiesArray(Array{
            Value(Dictionary{{"Name", Value("Acme Widgets, Inc")}, {"Symbol", Value("ACMW")}})});
    format = formatMapping("SELL", 0);
    InvestmentRecord sale = record("SELL", 2540.05);
    sale.symbol = "ACMW";
    sale.shares = 100;
    sale.price = 25.50;
    sale.fees = -9.95;
    sale.memo = "Sold";
    engine.qif = {sale};
    dialogs.expectAsk("Investment Transaction: Confirm", 0);
    engine.processInstructionsAndAppendToString(output, format, {"", "", true});
    EXPECT_EQ(dialogs.shown()[0].text, "3/1/2024  SELL (Sell shares)\rSecurity: Acme Widgets, "
                                       "Inc\rShares: 100.000  Price: 25.5000  Fees: "
                                       "-9.95\rAmount: 2,540.05\rMemo: Sold");
    EXPECT_EQ(dialogs.shown()[0].buttons,
              (std::vector<std::string>{"Extract Transaction", "Skip Transaction", "Skip Remaining",
                                        "Cancel"}));
    EXPECT_EQ(output, "!Type:Invst\nD3/1/2024\nNSell\nMSold\nYAcme Widgets, Inc\nQ100.000\n"
                      "I25.5000\nO9.95\nT2,540.05\nC*\n^\n");
}

// The missing one of amount, price and shares is derived; small fees are not shown.
TEST(InvestmentAmounts, MissingValueDerived) {
    auto derived = [](double amount, double price, double shares) {
        InvestmentRecord r;
        r.amount = amount;
        r.price = price;
        r.shares = shares;
        double fees = 0;
        deriveAmounts(r, fees);
        return std::vector<double>{r.amount, r.price, r.shares, fees};
    };
    EXPECT_EQ(derived(1000, 10, 0), (std::vector<double>{1000, 10, 100, 0}));
    EXPECT_EQ(derived(1000, 10, 99), (std::vector<double>{1000, 10, 99, 10}));
    EXPECT_EQ(derived(0, 10, 5), (std::vector<double>{50, 10, 5, 0}));
    EXPECT_EQ(derived(50, 0, 4), (std::vector<double>{50, 12.5, 4, 0}));
}

} // namespace
} // namespace tavvel
