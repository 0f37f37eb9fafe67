#include "app/StartUp.h"

#include "app/AppTexts.h"
#include "prefs/Files.h"
#include "prefs/PropertyList.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tavvel {
namespace {

namespace fs = std::filesystem;
using test::ScriptedDialogs;

std::vector<std::string> optionNames(const TvPrefs& prefs) {
    std::vector<std::string> names;
    for (const Value& v : prefs.objectForKey(prefkey::Preferences)->array())
        names.push_back(v.text());
    return names;
}

fs::path prefsFile(const Context& ctx) {
    return TvPrefs::pathFor(ctx.places.prefsFolder, "TavvelMain");
}

void writeStore(const fs::path& file, Dictionary entries) {
    ASSERT_TRUE(writePropertyListFile(file, Value(std::move(entries))));
}

TEST(StartUp, FirstStartWithNeitherFileAsksInOrderAndSavesEveryDefault) {
    test::TestContext t;
    ScriptedDialogs dialogs;
    dialogs.expectAlert("Tavvel First Run")
        .expectAsk("Tavvel Primary Usage?", 0)
        .expectAsk("Checking For Updates", 0);
    awakeFromNib(t.ctx, dialogs);

    EXPECT_EQ(dialogs.shown()[0].text, text::firstRunIntroduction);
    EXPECT_EQ(dialogs.shown()[1].buttons,
              (std::vector<std::string>{"Just Convert", "Add Categories"}));
    EXPECT_EQ(dialogs.shown()[2].buttons, (std::vector<std::string>{"YES", "NO"}));

    TvPrefs saved = TvPrefs::open(t.ctx.places.prefsFolder, "TavvelMain");
    EXPECT_EQ(optionNames(saved),
              (std::vector<std::string>{"dontAddCategories", "textConfirmAllTransactions",
                                        "converted2.2", "accountsInCategories"}));
    EXPECT_EQ(saved.integerForKey(prefkey::amountsPrecision), 2);
    EXPECT_EQ(saved.integerForKey(prefkey::pricesPrecision), 4);
    EXPECT_EQ(saved.integerForKey(prefkey::sharesPrecision), 2);
    EXPECT_EQ(saved.integerForKey(prefkey::bccAmountsPrecision), 2);
    EXPECT_EQ(saved.objectForKey(prefkey::OutputDateFormat)->text(), "M/d/yyyy");
    EXPECT_EQ(saved.objectForKey(prefkey::OutputDateFormatShortYear)->text(), "M/d/yy");
    EXPECT_EQ(saved.objectForKey(prefkey::DescriptionOutput)->text(), "%d");
    EXPECT_EQ(saved.objectForKey(prefkey::MemoOutput)->text(), "%m");
    EXPECT_TRUE(saved.boolForKey(prefkey::CheckForUpdates));
    EXPECT_TRUE(saved.boolForKey(prefkey::SUEnableAutomaticChecks));
    EXPECT_EQ(saved.objectForKey(prefkey::LastRootDirectory)->text(),
              t.ctx.places.documents.string());
    EXPECT_EQ(saved.objectForKey(prefkey::ControlSettings)->dictionary(),
              (Dictionary{{"inputQIFType", Value(0)}}));
    EXPECT_EQ(saved.objectForKey(prefkey::Categories)->array().size(), 0u);
}

TEST(StartUp, AddCategoriesAndNoUpdatesLeaveThoseOptionsOff) {
    test::TestContext t;
    ScriptedDialogs dialogs;
    dialogs.expectAlert("Tavvel First Run")
        .expectAsk("Tavvel Primary Usage?", 1)
        .expectAsk("Checking For Updates", 1);
    awakeFromNib(t.ctx, dialogs);
    EXPECT_FALSE(optionOn(t.ctx.prefs, option::dontAddCategories));
    EXPECT_FALSE(t.ctx.prefs.boolForKey(prefkey::CheckForUpdates));
    EXPECT_EQ(t.ctx.prefs.objectForKey(prefkey::SUEnableAutomaticChecks), nullptr);
}

TEST(StartUp, PredecessorFileIsCopiedAndSaidSo) {
    test::TestContext t;
    fs::path theirs = TvPrefs::pathFor(t.ctx.places.prefsFolder, "PelladonMain");
    writeStore(theirs, {{"Preferences", Value(Array{Value("converted2.2"), Value("initialCaps")})},
                        {"CheckForUpdates", Value(false)},
                        {"Instructions",
                         Value(Array{Value(Dictionary{{"descriptionMatch", Value("ACME")}})})}});
    // A private file stays private through the copy and every later save.
    ASSERT_EQ(0, ::chmod(theirs.c_str(), 0600));
    std::string theirBytes = *readWholeFile(theirs);
    ScriptedDialogs dialogs;
    dialogs.expectAlert("Tavvel First Run");
    awakeFromNib(t.ctx, dialogs);
    t.ctx.prefs.synchronize();
    struct stat ours {};
    ASSERT_EQ(0, ::stat(prefsFile(t.ctx).c_str(), &ours));
    EXPECT_EQ(ours.st_mode & 07777, 0600u);

    EXPECT_EQ(dialogs.shown()[0].text, std::string(text::firstRunIntroduction) +
                                           std::string(text::firstRunPredecessorFound));
    EXPECT_TRUE(optionOn(t.ctx.prefs, option::initialCaps));
    EXPECT_FALSE(optionOn(t.ctx.prefs, option::quicken2003));
    EXPECT_TRUE(t.ctx.prefs.objectForKey(prefkey::Instructions));
    EXPECT_EQ(*readWholeFile(theirs), theirBytes);
}

TEST(StartUp, GarbageFileIsKeptAsideAndTheStoreStartsOverWithoutAFirstRunAlert) {
    test::TestContext t;
    ASSERT_TRUE(writeFileAtomically(prefsFile(t.ctx), "garbage"));
    ScriptedDialogs dialogs;
    dialogs.expectAsk("Tavvel Primary Usage?", 0).expectAsk("Checking For Updates", 0);
    awakeFromNib(t.ctx, dialogs);

    EXPECT_TRUE(t.ctx.prefs.boolForKey(prefkey::reconstructedAfterCorruption));
    EXPECT_EQ(readWholeFile(t.ctx.prefs.keptAsidePath()), "garbage");
    EXPECT_TRUE(readPropertyListFile(prefsFile(t.ctx)).ok());
}

TEST(StartUp, LegacyOptionListIsMigrated) {
    test::TestContext t;
    writeStore(prefsFile(t.ctx),
               {{"Preferences", Value(Array{Value("append"), Value("dontConfirmCancel")})},
                {"qifCancelDontAsk", Value(true)},
                {"invCancelDontAsk", Value(true)},
                {"CheckForUpdates", Value(true)},
                {"SUEnableAutomaticChecks", Value(false)}});
    ScriptedDialogs dialogs; // an existing user is asked nothing
    awakeFromNib(t.ctx, dialogs);

    EXPECT_EQ(optionNames(t.ctx.prefs),
              (std::vector<std::string>{"append", "quicken2003", "textConfirmAllTransactions",
                                        "converted2.2", "accountsInCategories"}));
    EXPECT_FALSE(t.ctx.prefs.objectForKey(prefkey::qifCancelDontAsk));
    EXPECT_FALSE(t.ctx.prefs.objectForKey(prefkey::invCancelDontAsk));
    EXPECT_FALSE(t.ctx.prefs.boolForKey(prefkey::SUEnableAutomaticChecks));
}

TEST(StartUp, LegacyRunSettingsStringsBecomeDates) {
    test::TestContext t;
    writeStore(prefsFile(t.ctx),
               {{"Preferences", Value(Array{Value("converted2.2"), Value("accountsInCategories")})},
                {"CheckForUpdates", Value(false)},
                {"OutputDateFormat", Value("d/M/yyyy")},
                {"LastRootDirectory", Value("")},
                {"ControlSettings", Value(Dictionary{{"dateFromString", Value("2/3/2003")},
                                                     {"dateToString", Value("not a date")},
                                                     {"whichTransactions", Value(2)}})}});
    ScriptedDialogs dialogs;
    awakeFromNib(t.ctx, dialogs);

    const Dictionary& settings = t.ctx.prefs.objectForKey(prefkey::ControlSettings)->dictionary();
    EXPECT_FALSE(has(settings, "dateFromString"));
    EXPECT_FALSE(has(settings, "dateToString"));
    ASSERT_TRUE(has(settings, "dateFrom"));
    EXPECT_EQ(*settings.at("dateFrom").get<Date>(), localMidnight(2003, 3, 2)); // day first
    EXPECT_FALSE(has(settings, "dateTo"));
    EXPECT_EQ(settings.at("inputQIFType"), Value(0));
    EXPECT_EQ(settings.at("whichTransactions"), Value(2));
    EXPECT_EQ(t.ctx.prefs.objectForKey(prefkey::LastRootDirectory)->text(),
              t.ctx.places.documents.string());
}

TEST(StartUp, AccountsAreMergedIntoCategoriesOnce) {
    test::TestContext t;
    writeStore(
        prefsFile(t.ctx),
        {{"Preferences", Value(Array{Value("converted2.2")})},
         {"CheckForUpdates", Value(false)},
         {"Categories",
          Value(Array{Value("Food"), Value("[Old]/Gift"), Value("[Old]"), Value("Zoo")})},
         {"Accounts",
          Value(Array{Value(Dictionary{{"Name", Value("Checking")}, {"Type", Value("Bank")}})})}});
    ScriptedDialogs dialogs;
    awakeFromNib(t.ctx, dialogs);
    EXPECT_EQ(t.ctx.prefs.objectForKey(prefkey::Categories)->array(),
              (Array{Value("Food"), Value("[Checking]")}));
    EXPECT_TRUE(optionOn(t.ctx.prefs, option::accountsInCategories));
}

TEST(StartUp, EuropeanOutputDatesFollowTheTopLevelKey) {
    test::TestContext t;
    writeStore(prefsFile(t.ctx),
               {{"Preferences", Value(Array{Value("converted2.2"), Value("outputEuropeanDates")})},
                {"CheckForUpdates", Value(false)},
                {"outputEuropeanDates", Value(true)}});
    ScriptedDialogs dialogs;
    awakeFromNib(t.ctx, dialogs);
    EXPECT_EQ(t.ctx.output.datePrefix, "d/M");
    EXPECT_EQ(t.ctx.prefs.objectForKey(prefkey::OutputDateFormat)->text(), "d/M/yyyy");
}

} // namespace
} // namespace tavvel
