#include "app/OutputFile.h"
#include "app/RunSettings.h"
#include "prefs/Files.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

TEST(RunSettings, LastMonthAndTypedRanges) {
    Date march15 = test::fixedClock(2024, 3, 15).now();
    auto last = dateRangeFor(kLastMonth, march15, "", "", "M/d/yyyy", "M/d/yy");
    ASSERT_TRUE(last);
    EXPECT_EQ(last->from, localMidnight(2024, 2, 1));
    EXPECT_EQ(last->to, localMidnight(2024, 2, 29)); // a leap year
    auto january = dateRangeFor(kLastMonth, test::fixedClock(2025, 1, 1).now(), "", "", "", "");
    EXPECT_EQ(january->from, localMidnight(2024, 12, 1));
    EXPECT_EQ(january->to, localMidnight(2024, 12, 31));

    auto typed = dateRangeFor(kDateRange, march15, "5/1/03", "12/31/2003", "M/d/yyyy", "M/d/yy");
    ASSERT_TRUE(typed);
    EXPECT_EQ(typed->from, localMidnight(2003, 5, 1)); // two-digit year read with the short form
    EXPECT_EQ(typed->to, localMidnight(2003, 12, 31));
    EXPECT_FALSE(dateRangeFor(kDateRange, march15, "soon", "12/31/2003", "M/d/yyyy", "M/d/yy"));
    EXPECT_EQ(dateRangeFor(kAllTransactions, march15, "", "", "", "")->from, kDistantPast);
    EXPECT_FALSE(dateRangeFor(7, march15, "", "", "", ""));
}

TEST(RunSettings, IncompleteRecordIsReplacedAndSaved) {
    test::TestContext t;
    t.ctx.prefs = TvPrefs::open(t.ctx.places.prefsFolder, "TavvelMain");
    t.ctx.prefs.setObject(prefkey::ControlSettings,
                          Value(Dictionary{{"whichTransactions", Value(2)}}));
    Dictionary settings = completeRunSettings(t.ctx.prefs, t.ctx.clock.now());
    EXPECT_EQ(settings.at("whichTransactions"), Value(0));
    EXPECT_EQ(settings.at("outputFormat"), Value("QIF"));
    EXPECT_EQ(*settings.at("dateFrom").get<Date>(), localMidnight(2024, 6, 1));
    TvPrefs reopened = TvPrefs::open(t.ctx.places.prefsFolder, "TavvelMain");
    EXPECT_EQ(reopened.objectForKey(prefkey::ControlSettings)->dictionary(), settings);

    settings.insert_or_assign("whichTransactions", Value(1));
    t.ctx.prefs.setObject(prefkey::ControlSettings, Value(settings));
    EXPECT_EQ(completeRunSettings(t.ctx.prefs, t.ctx.clock.now()), settings); // complete: kept
}

// Continuing from the last run: the day after its range ended, by the calendar (the night the
// clocks go back is 25 hours long), or today when it ended today or had no end.
TEST(RunSettings, ContinueFromTheDayAfterTheLastRange) {
    auto endedOn = [](Date to) { return Dictionary{{"dateTo", Value(to)}}; };
    Date now = test::fixedClock(2024, 11, 20).now();
    Date today = localMidnight(2024, 11, 20);
    EXPECT_EQ(continueFrom(endedOn(localMidnight(2024, 11, 2)), now), localMidnight(2024, 11, 3));
    EXPECT_EQ(continueFrom(endedOn(localMidnight(2024, 11, 19)), now), today);
    EXPECT_EQ(continueFrom(endedOn(today), now), today);
    EXPECT_EQ(continueFrom(endedOn(kDistantFuture), now), today);
    EXPECT_EQ(continueFrom(Dictionary{{"dateTo", Value("11/1/2024")}}, now), today);
}

TEST(OutputFile, HeadersByAccountTypeAndRunKind) {
    EXPECT_EQ(qifHeader(true, kTypeBank, "Checking", "Bank"),
              "!Account\nNChecking\nTBank\n^\n!Type:Bank\n");
    EXPECT_EQ(qifHeader(true, kTypeBank, "Brokerage", "Port"),
              "!Account\nNBrokerage\nTPort\n^\n!Type:Invst\n");
    EXPECT_EQ(qifHeader(false, kTypeCreditCard, "x", "Bank"), "!Type:CCard\n");
    EXPECT_EQ(qifHeader(false, kTypeInvestment, "", ""), "!Type:Invst\n");
    EXPECT_EQ(qifHeader(false, kTypeBankOrCreditCard, "", ""), "");
}

TEST(OutputFile, AppendingKeepsOldTextExceptForHeaderlessQif) {
    test::TempFolder folder;
    std::string path = (folder.path() / "out").string();
    ASSERT_TRUE(writeFileAtomically(path, "old\n"));

    ASSERT_TRUE(writeOutputFile({path, true, false, false}, "new\n")); // delimited, appended
    EXPECT_EQ(readWholeFile(path), "old\nnew\n");
    ASSERT_TRUE(writeOutputFile({path, true, false, true}, "qif\n")); // QIF without `append`
    EXPECT_EQ(readWholeFile(path), "qif\n");
    ASSERT_TRUE(writeOutputFile({path, true, true, true}, "more\n")); // QIF with `append`
    EXPECT_EQ(readWholeFile(path), "qif\nmore\n");
    ASSERT_TRUE(writeOutputFile({path, false, true, false}, "fresh\n")); // switch off
    EXPECT_EQ(readWholeFile(path), "fresh\n");

    std::string fresh = (folder.path() / "new.csv").string();
    ASSERT_TRUE(writeOutputFile({fresh, true, true, false}, "a\n")); // nothing to append to
    EXPECT_EQ(readWholeFile(fresh), "a\n");
    EXPECT_FALSE(
        writeOutputFile({(folder.path() / "no/such/dir").string(), false, false, true}, "x"));
}

} // namespace
} // namespace tavvel
