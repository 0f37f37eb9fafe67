#include "dialogs/RunHelpers.h"

#include "prefs/Settings.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

using test::ScriptedDialogs;

TEST(ErrorWarning, DontWarnAgainMarksTheFormatAndSilencesUntilReset) {
    ScriptedDialogs dialogs;
    std::vector<Dictionary> stored;
    ErrorWarning warning(dialogs, [&](const Dictionary& f) { stored.push_back(f); });
    Dictionary format{{"Name", Value("My Bank")}};

    dialogs.expectErrorWarning("Bad: ", true, false).expectErrorWarning("Bad: ", false, false);
    EXPECT_EQ(warning.warn(&format, "Bad: ", "text", "Skip Transaction"), 1);
    EXPECT_EQ(warning.warn(&format, "Bad: ", "text", "Skip Transaction"), 0);
    EXPECT_EQ(dialogs.last().buttons.front(), "Skip Transaction");

    dialogs.expectErrorWarning("Bad: ", true, true);
    EXPECT_EQ(warning.warn(&format, "Bad: ", "text", "Skip Transaction"), 1);
    ASSERT_EQ(stored.size(), 1u);
    EXPECT_EQ(stored[0].at("dontWarn"), Value(true));
    EXPECT_EQ(warning.warn(nullptr, "Other: ", "x", "Skip Transaction"), 1); // silent now
    warning.reset();
    EXPECT_EQ(warning.warn(&stored[0], "Bad: ", "x", "Skip Transaction"), 1); // format says so
    dialogs.expectErrorWarning("Other: ", false);
    EXPECT_EQ(warning.warn(nullptr, "Other: ", "x", "Skip Transaction"), 0);
}

TEST(CancelConfirm, StandingChoicesAnswerWithoutAsking) {
    ScriptedDialogs dialogs;
    TvPrefs prefs;
    dialogs.expectCancelQuestion(CancelChoice::goOn)
        .expectCancelQuestion(CancelChoice::finishLater, true);
    EXPECT_EQ(cancelConfirm(prefs, dialogs), 2);
    EXPECT_EQ(cancelConfirm(prefs, dialogs), 1);
    EXPECT_TRUE(optionOn(prefs, option::justFinishLater));
    EXPECT_EQ(cancelConfirm(prefs, dialogs), 1); // asked no more

    TvPrefs stopper;
    addOption(stopper, option::justStop);
    EXPECT_EQ(cancelConfirm(stopper, dialogs), 0);
}

} // namespace
} // namespace tavvel
