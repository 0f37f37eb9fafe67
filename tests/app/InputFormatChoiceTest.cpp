// Which stored input format a text statement gets: the one whose Match text it holds, the
// longest Match winning (the earliest-standing one with formatFirstMatch), ties to the format
// that stands first in the store; and what the chosen format's type makes of the run.

#include "app/Controller.h"
#include "context/Context.h"
#include "knowledge/Formats.h"
#include "prefs/Settings.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

const std::string kStatement = "ACME BANK STATEMENT\n"
                               "Account activity\n"
                               "01/02/2024,PAYROLL,100.00\n";

struct InputFormatChoice : ::testing::Test {
    test::TestContext t;
    test::ScriptedDialogs dialogs;
    Controller controller{t.ctx, dialogs};

    void store(std::string name, std::string match, std::string type = "Bank") {
        Formats(t.ctx.prefs)
            .addFormat({{"Name", Value(std::move(name))},
                        {"FormatType", Value(std::move(type))},
                        {"Match", Value(std::move(match))},
                        {"Fields", Value("CSV")}});
    }

    std::string chosen(bool firstMatch = false) {
        if (firstMatch)
            addOption(t.ctx.prefs, option::formatFirstMatch);
        EXPECT_EQ(controller.processClipboard(kStatement), Intake::formReady);
        return controller.form().inputFormatName;
    }
};

TEST_F(InputFormatChoice, LongestMatchWins) {
    store("Alpha", "Account activity"); // stands later in the text, but longer
    store("Beta", "ACME");
    store("Gamma", "not in this text at all");
    store("Delta", "");
    EXPECT_EQ(chosen(), "Alpha");
}

TEST_F(InputFormatChoice, EarliestMatchWinsWithFormatFirstMatch) {
    store("Alpha", "Account activity");
    store("Beta", "ACME");
    EXPECT_EQ(chosen(true), "Beta");
}

TEST_F(InputFormatChoice, TiesGoToTheFormatStandingFirst) {
    store("Beta", "ACME BAN");  // at 0
    store("Alpha", "activity"); // as long, later in the text, but first in the store
    EXPECT_EQ(chosen(), "Alpha");
}

TEST_F(InputFormatChoice, EarliestTiesGoToTheFormatStandingFirst) {
    store("Beta", "ACME");
    store("Gamma", "ACME BANK"); // longer but no earlier
    store("Alpha", "BANK");
    EXPECT_EQ(chosen(true), "Beta");
}

TEST_F(InputFormatChoice, MatchIsCaseSensitive) {
    store("Alpha", "acme bank");
    EXPECT_EQ(chosen(), "");
    EXPECT_EQ(controller.runKind(), kTypeTextWithoutFormat);
    EXPECT_EQ(controller.form().accountType, "Unknown");
    EXPECT_FALSE(controller.form().processEnabled());
}

TEST_F(InputFormatChoice, TheFormatTypeDecidesTheKindOfRun) {
    store("Card", "ACME BANK", "Credit Card");
    store("Checking", "ACME", "Bank");
    store("Brokerage", "Account", "Investment");
    EXPECT_EQ(chosen(), "Card");
    EXPECT_EQ(controller.runKind(), kTypeCreditCard);
    EXPECT_EQ(controller.form().accountType, "Credit Card");
    EXPECT_TRUE(controller.form().processEnabled());

    // Another format named in the form, in any letter case, brings its own kind.
    controller.inputFormatSet("checking");
    EXPECT_EQ(controller.form().inputFormatName, "Checking");
    EXPECT_EQ(controller.runKind(), kTypeBank);
    controller.inputFormatSet("BROKERAGE");
    EXPECT_EQ(controller.runKind(), kTypeInvestment);
    EXPECT_EQ(controller.form().accountType, "Investment");

    // A name that names no format leaves the text unknown and the run unable to start.
    controller.inputFormatSet("Savings");
    EXPECT_EQ(controller.runKind(), kTypeTextWithoutFormat);
    EXPECT_EQ(controller.form().accountType, "Unknown");
    EXPECT_TRUE(controller.form().learnEnabled);
    EXPECT_FALSE(controller.form().processEnabled());
}

TEST_F(InputFormatChoice, ShowAllAccountNamesKeepsTheKindOpen) {
    addOption(t.ctx.prefs, option::showAllAccountNames);
    store("Card", "ACME BANK", "Credit Card");
    EXPECT_EQ(chosen(), "Card");
    EXPECT_EQ(controller.form().accountKind, 3);
    EXPECT_EQ(controller.form().accountType, "Credit Card");
}

} // namespace
} // namespace tavvel
