#include "app/Controller.h"
#include "knowledge/Categories.h"
#include "prefs/Files.h"
#include "prefs/Settings.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace tavvel {
namespace {

using test::ScriptedDialogs;

// Runs of one statement after another for one account, with the history in the test's folder
// and the clock fixed at 2024-06-01 noon.
struct RunHistory : ::testing::Test {
    test::TestContext t;
    std::filesystem::path in = t.folder.path() / "in";

    void SetUp() override {
        t.ctx.places.dataFolder = t.folder.path() / "data" / "Tavvel";
        Categories(t.ctx.prefs).createEmpty();
        addOption(t.ctx.prefs, option::dontAddCategories);
        std::filesystem::create_directories(in);
    }

    std::string statement(const std::string& name, const std::string& text) {
        std::ofstream(in / name) << text;
        return (in / name).string();
    }

    // Opens and runs the statement, answering as the script says, and returns the output.
    std::string convert(ScriptedDialogs& dialogs, const std::string& path, RunEnd expected,
                        bool keepDuplicates = false) {
        std::string out = (in / (std::filesystem::path(path).stem().string() + ".out")).string();
        Controller controller(t.ctx, dialogs);
        if (keepDuplicates)
            controller.keepDuplicates();
        EXPECT_EQ(controller.actuallyProcessFile(path), Intake::formReady);
        EXPECT_EQ(controller.processTheTransactions(), expected);
        return readWholeFile(out).value_or("(none)");
    }
};

constexpr const char* kFirst = "!Type:Bank\nD1/02/2024\nT-5.00\nPCOFFEE\n^\nD1/02/2024\nT-5.00\n"
                               "PCOFFEE\n^\nD1/03/2024\nT-9.00\nPSHOP\n^\n";
// The test's store writes no payee lines: it has not been through a first start.
constexpr const char* kFirstOut = "!Type:Bank\nD1/2/2024\nT-5.00\n^\nD1/2/2024\n"
                                  "T-5.00\n^\nD1/3/2024\nT-9.00\n^\n";

TEST_F(RunHistory, OverlapIsAskedAboutOneByOneAndTheClosingMessageCountsWhatWasLeftOut) {
    std::string first = statement("first.qif", kFirst);
    ScriptedDialogs one;
    one.expectFile("save", (in / "first.out").string())
        .expectAlert("Finished Processing Transactions");
    EXPECT_EQ(convert(one, first, RunEnd::written), kFirstOut); // equal coffees both kept

    std::string second = statement(
        "second.qif", std::string(kFirst) + "D1/02/2024\nT-5.00\nPCOFFEE\n^\nD1/04/2024\nT-7.00\n"
                                            "PBAKERY\n^\n");
    ScriptedDialogs two;
    two.expectFile("save", (in / "second.out").string())
        .expectAsk("Already converted on 6/1/2024", 0)
        .expectAsk("Already converted on 6/1/2024", 1) // the second coffee is written again
        .expectAsk("Already converted on 6/1/2024", 0)
        .expectAlert("Finished Processing Transactions");
    EXPECT_EQ(convert(two, second, RunEnd::written),
              "!Type:Bank\nD1/2/2024\nT-5.00\n^\nD1/2/2024\nT-5.00\n^\n"
              "D1/4/2024\nT-7.00\n^\n");
    EXPECT_EQ(two.shown()[1].text, "1/2/2024  -5.00  COFFEE");
    EXPECT_EQ(two.shown()[1].buttons,
              (std::vector<std::string>{"Skip Transaction", "Convert Again"}));
    EXPECT_EQ(
        two.last().text,
        "\r\r3 transactions output to file \"second.out\".\r2 duplicate transactions left out.");
}

TEST_F(RunHistory, SameStatementAgainIsAskedOnceAndOnlyWrittenRunsAreRemembered) {
    std::string first = statement("first.qif", kFirst);
    ScriptedDialogs cancelled; // no output file: nothing is remembered
    cancelled.expectFile("save", std::nullopt);
    Controller controller(t.ctx, cancelled);
    ASSERT_EQ(controller.actuallyProcessFile(first), Intake::formReady);
    EXPECT_EQ(controller.processTheTransactions(), RunEnd::cancelled);

    ScriptedDialogs one;
    one.expectFile("save", (in / "first.out").string())
        .expectAlert("Finished Processing Transactions");
    convert(one, first, RunEnd::written);

    ScriptedDialogs leftOut;
    leftOut.expectFile("save", (in / "first.out").string())
        .expectAsk("Converted Before", 1)
        .expectAlert("Finished Processing Transactions");
    std::filesystem::remove(in / "first.out");
    EXPECT_EQ(convert(leftOut, first, RunEnd::nothingOutput), "(none)");
    EXPECT_EQ(leftOut.shown()[1].text,
              "All 3 transactions were converted before (on 6/1/2024). Convert them again?");
    EXPECT_EQ(leftOut.shown()[1].buttons,
              (std::vector<std::string>{"Convert Again", "Leave Them Out"}));
    EXPECT_EQ(leftOut.last().text, "No transactions output.\r3 duplicate transactions left out.");

    ScriptedDialogs again;
    again.expectFile("save", (in / "first.out").string())
        .expectAsk("Converted Before", 0)
        .expectAlert("Finished Processing Transactions");
    EXPECT_EQ(convert(again, first, RunEnd::written), kFirstOut);

    ScriptedDialogs kept; // --keep-duplicates: no question at all
    kept.expectFile("save", (in / "first.out").string())
        .expectAlert("Finished Processing Transactions");
    convert(kept, first, RunEnd::written, true);
}

TEST_F(RunHistory, DamagedHistoryIsReportedAndTheRunCompletes) {
    std::filesystem::create_directories(t.ctx.places.dataFolder);
    std::ofstream(t.ctx.places.dataFolder / "history.sqlite") << std::string(2048, '\x07');
    std::string first = statement("first.qif", kFirst);
    ScriptedDialogs dialogs;
    dialogs.expectFile("save", (in / "first.out").string())
        .expectAlert("Conversion History")
        .expectAlert("Finished Processing Transactions");
    EXPECT_EQ(convert(dialogs, first, RunEnd::written), kFirstOut);
    EXPECT_NE(dialogs.shown()[1].text.find("could not be read, so it was kept aside"),
              std::string::npos);
}

} // namespace
} // namespace tavvel
