// Text records made when the walk reaches them, and walks whose front end accepts every form
// as shown: what is written and learned is what a walk through the forms writes and learns.

#include "bank/BankingCreditCardQIF.h"
#include "dialogs/RunHelpers.h"
#include "formats/OutputFormats.h"
#include "knowledge/Categories.h"
#include "knowledge/Descriptions.h"
#include "knowledge/Instructions.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "support/ScriptedDialogs.h"
#include "support/StoredRecords.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>
#include <memory>

namespace tavvel {
namespace {

const std::string kStatement = "Date,Number,Payee,Memo,Category,Amount\n"
                               "01/02/2024,7,ACME,lunch,Food,-5.00\n"
                               "01/03/2024,,BEAN CAFE,,Drinks,2.50\n"
                               "01/04/2024,8,KIOSK,,Food,(1.25)\n";

Dictionary format() {
    return {{"Name", Value("Test")},
            {"Fields", Value("CSV")},
            {"OneTransactionPerLine", Value(true)},
            {"DateDelimiter", Value("/")},
            {"DateStart", Value("\n")},
            {"DateEnd", Value(",")},
            {"Check", Value(1)},
            {"Description", Value(2)},
            {"Memo", Value(3)},
            {"Category", Value(4)},
            {"Credit", Value(5)}};
}

// Accepts every form as shown; any form it is still shown must be expected.
struct AcceptingDialogs : test::ScriptedDialogs {
    bool acceptsFormsAsShown() const override { return true; }
};

// One run over kStatement with every transaction confirmed and its category kept.
struct TextRun {
    explicit TextRun(std::unique_ptr<test::ScriptedDialogs> front) : dialogs(std::move(front)) {
        t.ctx.prefs.setObject(prefkey::DescriptionOutput, Value("%d"));
        t.ctx.prefs.setObject(prefkey::MemoOutput, Value("%m"));
        t.ctx.prefs.setObject(prefkey::Categories, Value(Array{}));
        addOption(t.ctx.prefs, option::dontAddCategories);
        addOption(t.ctx.prefs, option::textConfirmAllTransactions);
    }
    WalkResult walk(const std::string& text = kStatement) {
        EXPECT_TRUE(
            reader.fromFormattedText(text, format(), kDistantPast, kDistantFuture, warning));
        return reader.processInstructionsAndAppendToString(out, writer, warning, *dialogs,
                                                           instructions, WalkOptions{});
    }
    Array learned(bool categories) {
        return categories ? Categories(t.ctx.prefs).getCategoriesArray()
                          : Descriptions(t.ctx.prefs).getDescriptionsArray();
    }

    test::TestContext t;
    std::unique_ptr<test::ScriptedDialogs> dialogs;
    OutputFormats writer{t.ctx, *dialogs};
    ErrorWarning warning{*dialogs, nullptr};
    BankingCreditCardQIF reader{t.ctx};
    Instructions instructions{t.ctx.prefs};
    std::string out;
};

ConfirmAction ok(ConfirmForm&) {
    return ConfirmAction::ok;
}

TEST(WalkWithoutAsking, WritesAndLearnsWhatOkOnEachFormWould) {
    TextRun forms(std::make_unique<test::ScriptedDialogs>());
    forms.dialogs->expectConfirm(ok).expectConfirm(ok).expectConfirm(ok);
    TextRun accepting(std::make_unique<AcceptingDialogs>());

    EXPECT_EQ(forms.walk().appended, 3u);
    EXPECT_EQ(accepting.walk().appended, 3u);

    EXPECT_EQ(accepting.out, "D1/2/2024\nPACME\nMlunch\nT-5.00\nN7\nLFood\n^\n"
                             "D1/3/2024\nPBEAN CAFE\nT2.50\nLDrinks\n^\n"
                             "D1/4/2024\nPKIOSK\nT-1.25\nN8\nLFood\n^\n");
    EXPECT_EQ(forms.out, accepting.out);
    EXPECT_EQ(accepting.learned(true), forms.learned(true));
    EXPECT_EQ(accepting.learned(false), forms.learned(false));
    EXPECT_EQ(accepting.learned(false), (Array{Value("ACME"), Value("BEAN CAFE"), Value("KIOSK")}));
    EXPECT_TRUE(accepting.dialogs->shown().empty());
    // Back takes a walked transaction's output away from where it began.
    EXPECT_TRUE(test::stored(forms.reader)[0].contains("outputLength"));
}

TEST(WalkWithoutAsking, RefusedCategoryStillShowsTheFormAndOnlyItsAnswerIsWritten) {
    TextRun accepting(std::make_unique<AcceptingDialogs>());
    accepting.dialogs->expectAlert("Bad Category \"[Nowhere]\"")
        .expectAlert("Bad Category \"[Nowhere]\"")
        .expectConfirm([](ConfirmForm& form) {
            form.setCategory("Food");
            return ConfirmAction::ok;
        });
    accepting.walk("Date\n01/02/2024,,SHOP,,[Nowhere],-3.00\n");
    EXPECT_EQ(accepting.out, "D1/2/2024\nPSHOP\nT-3.00\nLFood\n^\n");
    EXPECT_TRUE(accepting.dialogs->done());
}

// A batch front end answers every form with OK, so a category the list refuses would be
// offered to it for ever: the run stops instead, and nothing is written.
TEST(WalkWithoutAsking, RefusedCategoryWithNobodyToCorrectItStopsTheRun) {
    struct OkOnlyDialogs : AcceptingDialogs {
        ConfirmAction confirmTransaction(ConfirmForm& form) override {
            return Dialogs::confirmTransaction(form);
        }
    };
    TextRun batch(std::make_unique<OkOnlyDialogs>());
    // Not even for later: the walk has let go of the records it passed.
    addOption(batch.t.ctx.prefs, option::justFinishLater);
    for (int twiceForEachOk = 0; twiceForEachOk < 4; ++twiceForEachOk)
        batch.dialogs->expectAlert("Bad Category \"[Nowhere]\"");
    WalkResult result = batch.walk("Date\n01/02/2024,,SHOP,,[Nowhere],-3.00\n"
                                   "01/03/2024,,CAFE,,Food,-1.00\n");
    EXPECT_EQ(result.appended, 0u);
    EXPECT_FALSE(result.continuation);
    EXPECT_TRUE(batch.dialogs->done());
}

TEST(WalkWithoutAsking, EveryRecordIsHandedOverWhenTheWalkIsLeftForLater) {
    auto leaveAtSecond = [](test::ScriptedDialogs& dialogs) {
        dialogs.expectConfirm(ok)
            .expectConfirm([](ConfirmForm&) { return ConfirmAction::cancel; })
            .expectCancelQuestion(CancelChoice::finishLater);
    };
    TextRun run(std::make_unique<test::ScriptedDialogs>());
    leaveAtSecond(*run.dialogs);
    WalkResult made = run.walk();
    ASSERT_TRUE(made.continuation);
    const Array& records = made.continuation->at("qif").array();
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(textOf(records[2].dictionary(), "description"), "KIOSK"); // never reached
    EXPECT_TRUE(records[0].dictionary().contains("outputLength"));
}

} // namespace
} // namespace tavvel
