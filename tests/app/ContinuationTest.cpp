// A run stopped with "finish later" and resumed from its .tvcn file writes, byte for byte, what
// the same run confirmed in one go writes; a .tvcn file that cannot be resumed is refused with
// its message and starts nothing.

#include "app/AppTexts.h"
#include "app/Controller.h"
#include "context/Context.h"
#include "knowledge/Categories.h"
#include "prefs/Files.h"
#include "prefs/PropertyList.h"
#include "prefs/Settings.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

const std::string kStatement = "!Type:Bank\n"
                               "D1/02/2024\nT-10.00\nPCOFFEE HOUSE\n^\n"
                               "D1/03/2024\nT-20.50\nPBOOK SHOP\nMpaperback\n^\n"
                               "D1/04/2024\nT1500.00\nPPAYROLL\n^\n"
                               "D1/05/2024\nT-3.25\nPPARKING\n^\n";

ConfirmAction accept(ConfirmForm&) {
    return ConfirmAction::ok;
}

// One person's machine: a store where every transaction is confirmed.
struct Desk {
    test::TestContext t;
    test::ScriptedDialogs dialogs;

    Desk() {
        Categories(t.ctx.prefs).createEmpty();
        t.ctx.prefs.setObject(prefkey::DescriptionOutput, Value("%d"));
        t.ctx.prefs.setObject(prefkey::MemoOutput, Value("%m"));
        addOption(t.ctx.prefs, option::confirmAllTransactions);
        // Inputs keep their categories, so every transaction comes to the confirmation form.
        addOption(t.ctx.prefs, option::dontAddCategories);
    }
    std::string path(const std::string& name) const { return (t.folder.path() / name).string(); }

    Intake open(const std::string& name) {
        return Controller(t.ctx, dialogs).actuallyProcessFile(path(name));
    }
};

// Opens the file, confirms `confirmed` transactions, and then either stops with "finish later"
// (saving `saveAs`) or lets the walk run to the end into `output`.
RunEnd runConfirming(Desk& desk, const std::string& input, int confirmed, bool finishLater,
                     const std::string& saveAs) {
    Controller controller(desk.t.ctx, desk.dialogs);
    EXPECT_EQ(controller.actuallyProcessFile(desk.path(input)), Intake::formReady);
    EXPECT_TRUE(controller.form().processEnabled());
    desk.dialogs.expectFile("save", desk.path(finishLater ? "unused.qif" : saveAs));
    for (int i = 0; i < confirmed; ++i)
        desk.dialogs.expectConfirm(accept);
    if (finishLater) {
        desk.dialogs.expectConfirm([](ConfirmForm&) { return ConfirmAction::cancel; })
            .expectCancelQuestion(CancelChoice::finishLater)
            .expectFile("save", desk.path(saveAs))
            .expectAlert(std::string(text::continuationCreatedTitle));
    } else {
        desk.dialogs.expectAlert(std::string(text::finishedTitle));
    }
    return controller.processTheTransactions();
}

TEST(Continuation, ResumedRunWritesWhatOneRunWrites) {
    Desk once;
    ASSERT_TRUE(writeFileAtomically(once.path("statement.qif"), kStatement));
    EXPECT_EQ(runConfirming(once, "statement.qif", 4, false, "once.qif"), RunEnd::written);
    auto expected = readWholeFile(once.path("once.qif"));
    ASSERT_TRUE(expected);
    ASSERT_NE(expected->find("PPARKING"), std::string::npos);

    Desk later;
    ASSERT_TRUE(writeFileAtomically(later.path("statement.qif"), kStatement));
    EXPECT_EQ(runConfirming(later, "statement.qif", 2, true, "first.tvcn"),
              RunEnd::continuationSaved);
    EXPECT_FALSE(readWholeFile(later.path("unused.qif"))); // finishing later writes no output
    // Stopped again after one more; the second continuation carries all three.
    EXPECT_EQ(runConfirming(later, "first.tvcn", 1, true, "second.tvcn"),
              RunEnd::continuationSaved);
    EXPECT_EQ(runConfirming(later, "second.tvcn", 1, false, "later.qif"), RunEnd::written);
    EXPECT_EQ(readWholeFile(later.path("later.qif")), expected);
    EXPECT_EQ(later.dialogs.last().text, "\r\r4 transactions output to file \"later.qif\".");
}

TEST(Continuation, FormShowsWhatTheStoppedRunFixed) {
    Desk desk;
    ASSERT_TRUE(writeFileAtomically(desk.path("statement.qif"), kStatement));
    {
        Controller controller(desk.t.ctx, desk.dialogs);
        ASSERT_EQ(controller.actuallyProcessFile(desk.path("statement.qif")), Intake::formReady);
        controller.form().setAccountText("Checking");
        controller.form().setSameNumber(true);
        controller.form().setOutputNumber("77");
        desk.dialogs.expectFile("save", desk.path("unused.qif"))
            .expectConfirm([](ConfirmForm&) { return ConfirmAction::cancel; })
            .expectCancelQuestion(CancelChoice::finishLater)
            .expectFile("save", desk.path("stopped.tvcn"))
            .expectAlert(std::string(text::continuationCreatedTitle));
        ASSERT_EQ(controller.processTheTransactions(), RunEnd::continuationSaved);
    }
    Controller controller(desk.t.ctx, desk.dialogs);
    ASSERT_EQ(controller.actuallyProcessFile(desk.path("stopped.tvcn")), Intake::formReady);
    EXPECT_EQ(controller.source(), "Continuation file \"stopped.tvcn\"");
    EXPECT_EQ(controller.inputFrom(), "stopped.tvcn");
    const RunForm& form = controller.form();
    EXPECT_TRUE(form.resuming);
    EXPECT_FALSE(form.accountBoxVisible);
    EXPECT_EQ(form.accountText, "Checking");
    EXPECT_EQ(form.accountType, "Bank");
    EXPECT_EQ(form.outputFormat, "QIF");
    EXPECT_TRUE(form.sameNumber);
    EXPECT_EQ(form.outputNumber, "77");
    EXPECT_FALSE(form.sameDate);
    EXPECT_TRUE(form.processEnabled());
}

// Each file is refused with its title and message naming it, and no run starts.
TEST(Continuation, FilesThatCannotBeResumedAreRefused) {
    Desk desk;
    Dictionary good{{"qif", Value(Array{Value(Dictionary{{"date", Value("1/2/2024")}})})},
                    {"fileAsString", Value("!Type:Bank\n")},
                    {"currentTransactionIndex", Value(0)},
                    {"numberOfTransactionsAppended", Value(0)},
                    {"outputFormatText", Value("QIF")},
                    {"sameDateSwitch", Value(false)},
                    {"sameNumberSwitch", Value(false)},
                    {"outputDateString", Value("")},
                    {"outputNumberString", Value("")},
                    {"account", Value("Checking")}};
    auto with = [&good](std::string key, Value value) {
        Dictionary record = good;
        record.insert_or_assign(std::move(key), std::move(value));
        return Value(record);
    };
    Dictionary noAccount = good;
    noAccount.erase("account");
    const std::string damaged = " is damaged: it does not hold the run that was stopped, so it "
                                "cannot be resumed.";
    struct Case {
        std::string name, bytes, text;
    } cases[] = {
        {"junk.tvcn", std::string("\x01\x02garbage\xff", 11),
         " cannot be read as a continuation file; it cannot be processed.  Open the .tvcn file "
         "that Tavvel saved when you chose to finish later."},
        {"list.tvcn", encodePropertyList(Value(Array{Value("x")})), damaged},
        {"short.tvcn", encodePropertyList(Value(noAccount)), damaged},
        {"typed.tvcn", encodePropertyList(with("currentTransactionIndex", Value("0"))), damaged},
        {"records.tvcn", encodePropertyList(with("qif", Value(Array{Value("D1/2/2024")}))),
         damaged},
        {"beyond.tvcn", encodePropertyList(with("currentTransactionIndex", Value(1))), damaged},
        {"negative.tvcn", encodePropertyList(with("currentTransactionIndex", Value(-1))), damaged},
        {"counted.tvcn", encodePropertyList(with("numberOfTransactionsAppended", Value(1))),
         damaged},
        {"type.tvcn", encodePropertyList(with("inputTypeTag", Value(2))), damaged},
        {"gone.tvcn", encodePropertyList(with("outputFormatText", Value("Deleted Layout"))),
         " was stopped with an output format that no longer exists, so it cannot be resumed.  "
         "Create the output format again under its old name, then open the file again."},
    };
    ASSERT_TRUE(writeFileAtomically(desk.path("good.tvcn"), encodePropertyList(Value(good))));
    EXPECT_EQ(desk.open("good.tvcn"), Intake::formReady); // the baseline the cases break
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_TRUE(writeFileAtomically(desk.path(c.name), c.bytes));
        desk.dialogs.expectAlert(std::string(text::continuationInvalidTitle));
        Controller controller(desk.t.ctx, desk.dialogs);
        EXPECT_EQ(controller.actuallyProcessFile(desk.path(c.name)), Intake::refused);
        EXPECT_FALSE(controller.resumesRun());
        EXPECT_EQ(desk.dialogs.last().text, "Continuation file \"" + c.name + "\"" + c.text);
        EXPECT_FALSE(controller.processing());
    }
}

} // namespace
} // namespace tavvel
