// An investment run that goes back one transaction, stops to finish later and is resumed from
// its .tvcn file writes, byte for byte, what the same run confirmed in one go writes; a
// continuation whose investment records are damaged is refused.

#include "invest/InvestmentContinuation.h"

#include "app/AppTexts.h"
#include "app/Controller.h"
#include "knowledge/Categories.h"
#include "knowledge/Securities.h"
#include "prefs/Files.h"
#include "prefs/PropertyList.h"
#include "prefs/Settings.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

const std::string kStatement =
    "OFXHEADER:100\nDATA:OFXSGML\n\n<OFX><INVSTMTMSGSRSV1><INVSTMTTRNRS><INVSTMTRS>"
    "<INVACCTFROM><ACCTID>9</INVACCTFROM><INVTRANLIST>\n"
    "<BUYMF><INVBUY><INVTRAN><DTTRADE>20240102</INVTRAN><SECID><UNIQUEID>F1</SECID><UNITS>4"
    "<UNITPRICE>25<TOTAL>-100.00</INVBUY><BUYTYPE>BUY</BUYMF>\n"
    "<INCOME><INVTRAN><DTTRADE>20240103</INVTRAN><SECID><UNIQUEID>F1</SECID>"
    "<INCOMETYPE>DIV<TOTAL>2.50</INCOME>\n"
    "<REINVEST><INVTRAN><DTTRADE>20240104</INVTRAN><SECID><UNIQUEID>F1</SECID>"
    "<INCOMETYPE>DIV<TOTAL>-2.50<UNITS>0.1<UNITPRICE>25</REINVEST>\n"
    "<SELLMF><INVSELL><INVTRAN><DTTRADE>20240105</INVTRAN><SECID><UNIQUEID>F1</SECID>"
    "<UNITS>-1<UNITPRICE>26<COMMISSION>1<TOTAL>25.00</INVSELL><SELLTYPE>SELL</SELLMF>\n"
    "</INVTRANLIST></INVSTMTRS></INVSTMTTRNRS></INVSTMTMSGSRSV1><SECLISTMSGSRSV1><SECLIST>"
    "<SECINFO><SECID><UNIQUEID>F1</SECID><SECNAME>Cedar Growth Fund<TICKER>CDRX</SECINFO>"
    "</SECLIST></SECLISTMSGSRSV1></OFX>\n";

constexpr std::size_t kExtract = 0, kCancel = 3, kBack = 4;
const std::string kConfirm = "Investment Transaction: Confirm";

struct Desk {
    test::TestContext t;
    test::ScriptedDialogs dialogs;

    Desk() {
        Categories(t.ctx.prefs).createEmpty();
        addOption(t.ctx.prefs, option::textConfirmAllTransactions);
        Securities(t.ctx.prefs)
            .setSecuritiesArray(Array{Value(
                Dictionary{{"Name", Value("Cedar Growth Fund")}, {"Symbol", Value("CDRX")}})});
        EXPECT_TRUE(writeFileAtomically(path("statement.ofx"), kStatement));
    }
    std::string path(const std::string& name) const { return (t.folder.path() / name).string(); }

    // Opens the file and runs it through the script given before.
    RunEnd run(const std::string& input) {
        Controller controller(t.ctx, dialogs);
        EXPECT_EQ(controller.actuallyProcessFile(path(input)), Intake::formReady);
        return controller.processTheTransactions();
    }
    void confirmAll(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            dialogs.expectAsk(kConfirm, kExtract);
    }
};

TEST(InvestmentContinuation, BackAndResumeWriteWhatOneRunWrites) {
    Desk once;
    once.dialogs.expectFile("save", once.path("once.qif"));
    once.confirmAll(4);
    once.dialogs.expectAlert(std::string(text::finishedTitle));
    EXPECT_EQ(once.run("statement.ofx"), RunEnd::written);
    auto expected = readWholeFile(once.path("once.qif"));
    ASSERT_TRUE(expected);
    ASSERT_NE(expected->find("NSell"), std::string::npos);

    Desk later;
    later.dialogs.expectFile("save", later.path("unused.qif"));
    later.dialogs.expectAsk(kConfirm, kExtract)
        .expectAsk(kConfirm, kBack) // the buy is shown again, its lines taken back
        .expectAsk(kConfirm, kExtract)
        .expectAsk(kConfirm, kExtract)
        .expectAsk(kConfirm, kCancel)
        .expectCancelQuestion(CancelChoice::finishLater)
        .expectFile("save", later.path("stopped.tvcn"))
        .expectAlert(std::string(text::continuationCreatedTitle));
    EXPECT_EQ(later.run("statement.ofx"), RunEnd::continuationSaved);
    EXPECT_FALSE(readWholeFile(later.path("unused.qif")));

    later.dialogs.expectFile("save", later.path("later.qif"));
    later.confirmAll(2);
    later.dialogs.expectAlert(std::string(text::finishedTitle));
    EXPECT_EQ(later.run("stopped.tvcn"), RunEnd::written);
    EXPECT_EQ(readWholeFile(later.path("later.qif")), expected);
    EXPECT_EQ(later.dialogs.last().text, "\r\r4 transactions output to file \"later.qif\".");
}

TEST(InvestmentContinuation, DamagedRecordsCannotBeResumed) {
    InvestmentRecord record;
    record.date = "1/2/2024";
    record.type = "BUYMF BUY";
    record.amount = 100;
    Dictionary good{{"iqif", Value(Array{Value(investmentRecordAsDictionary(record))})},
                    {"fileAsString", Value("!Type:Invst\n")},
                    {"currentTransactionIndex", Value(0)},
                    {"numberOfTransactionsAppended", Value(0)}};
    EXPECT_TRUE(resumableInvestmentContinuation(good));
    auto with = [&good](std::size_t at, std::string key, Value value) {
        Dictionary changed = good;
        if (at == 0)
            changed.insert_or_assign(key, std::move(value));
        else
            changed.insert_or_assign("iqif", Value(Array{Value(Dictionary{{key, value}})}));
        return resumableInvestmentContinuation(changed);
    };
    EXPECT_FALSE(with(1, "Amount", Value("100"))); // a number kept as text
    EXPECT_FALSE(with(1, "Amount", Value(-5.0)));  // a magnitude below zero
    EXPECT_FALSE(with(1, "Memo", Value("x")));     // no date, type or error: nothing at all
    EXPECT_FALSE(with(0, "currentTransactionIndex", Value(1)));
    EXPECT_FALSE(with(0, "numberOfTransactionsAppended", Value(1)));
    EXPECT_FALSE(with(0, "iqif", Value("records")));
}

} // namespace
} // namespace tavvel
