#include "prefs/TvPrefs.h"

#include "prefs/Files.h"
#include "prefs/PropertyList.h"
#include "support/TestContext.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavvel {
namespace {

namespace fs = std::filesystem;

TEST(TvPrefs, NewStoreHoldsOnlyTheConversionMarker) {
    test::TempFolder folder;
    TvPrefs prefs = TvPrefs::open(folder.path(), "TavvelMain");
    EXPECT_EQ(prefs.dictionary().size(), 1u);
    EXPECT_TRUE(prefs.boolForKey(prefkey::convertedFromPlist));
    EXPECT_FALSE(prefs.objectForKey(prefkey::reconstructedAfterCorruption));
    EXPECT_FALSE(fs::exists(prefs.prefsPath())); // nothing written until synchronize
}

TEST(TvPrefs, ValuesSurviveAReopenAndConvertByType) {
    test::TempFolder folder;
    {
        TvPrefs prefs = TvPrefs::open(folder.path(), "TavvelMain");
        prefs.setInteger("count", -3);
        prefs.setDouble("ratio", 2.75);
        prefs.setBool("flag", true);
        prefs.setUInt32("big", 4000000000u);
        prefs.setObject("numberAsText", Value("12.5"));
        prefs.setObject("list", Value(Array{Value("a"), Value(Dictionary{{"k", Value(1)}})}));
        ASSERT_TRUE(prefs.synchronize());
    }
    TvPrefs prefs = TvPrefs::open(folder.path(), "TavvelMain");
    EXPECT_EQ(prefs.integerForKey("count"), -3);
    EXPECT_EQ(prefs.doubleForKey("ratio"), 2.75);
    EXPECT_TRUE(prefs.boolForKey("flag"));
    EXPECT_EQ(prefs.uInt32ForKey("big"), 4000000000u);
    EXPECT_EQ(prefs.integerForKey("numberAsText"), 12);
    EXPECT_FLOAT_EQ(prefs.floatForKey("numberAsText"), 12.5f);
    EXPECT_EQ(prefs.objectForKey("list")->array().size(), 2u);
    EXPECT_EQ(prefs.integerForKey("absent"), 0);
    EXPECT_FALSE(prefs.boolForKey("absent"));
}

TEST(TvPrefs, StoresCopiesAndNoneRemoves) {
    TvPrefs prefs;
    Array list{Value("one")};
    prefs.setObject("list", Value(list));
    list.emplace_back("two");
    EXPECT_EQ(prefs.objectForKey("list")->array().size(), 1u);

    Dictionary copy = prefs.prefsMutableDictionary();
    copy.erase("list");
    EXPECT_TRUE(prefs.objectForKey("list"));

    prefs.setInteger("n", 5);
    prefs.setObject("n", std::optional<Value>());
    EXPECT_EQ(prefs.objectForKey("n"), nullptr);
    EXPECT_EQ(prefs.integerForKey("n"), 0);
}

TEST(TvPrefs, GarbageFileIsKeptAsideAndStoreStartsEmpty) {
    test::TempFolder folder;
    fs::path file = TvPrefs::pathFor(folder.path(), "TavvelMain");
    ASSERT_TRUE(writeFileAtomically(file, "\x01\x02 not a property list"));
    TvPrefs prefs = TvPrefs::open(folder.path(), "TavvelMain", std::nullopt, Date{1700000000});
    EXPECT_TRUE(prefs.boolForKey(prefkey::reconstructedAfterCorruption));
    EXPECT_TRUE(prefs.boolForKey(prefkey::convertedFromPlist));
    EXPECT_EQ(prefs.keptAsidePath().filename(), "TavvelMain.prefs.corrupt-20231114T221320Z");
    EXPECT_EQ(readWholeFile(prefs.keptAsidePath()), "\x01\x02 not a property list");

    prefs.setObject("usable", Value("yes"));
    ASSERT_TRUE(prefs.synchronize());
    EXPECT_EQ(TvPrefs::open(folder.path(), "TavvelMain").objectForKey("usable")->text(), "yes");
    EXPECT_TRUE(fs::exists(prefs.keptAsidePath()));
}

TEST(TvPrefs, NewIdentifierSavesUnderTheNewNameAndLeavesTheOld) {
    test::TempFolder folder;
    TvPrefs old = TvPrefs::open(folder.path(), "OldMain");
    old.setObject("kept", Value("value"));
    ASSERT_TRUE(old.synchronize());
    std::string oldBytes = *readWholeFile(old.prefsPath());

    TvPrefs moved = TvPrefs::open(folder.path(), "OldMain", std::string_view("NewMain"));
    EXPECT_EQ(moved.objectForKey("kept")->text(), "value");
    moved.setObject("added", Value(1));
    ASSERT_TRUE(moved.synchronize());
    EXPECT_EQ(moved.prefsPath(), TvPrefs::pathFor(folder.path(), "NewMain"));
    EXPECT_EQ(*readWholeFile(TvPrefs::pathFor(folder.path(), "OldMain")), oldBytes);
    EXPECT_TRUE(TvPrefs::open(folder.path(), "NewMain").objectForKey("added"));
}

TEST(TvPrefs, FailedWriteIsReportedAndLeavesNoTemporaryFile) {
    test::TempFolder folder;
    fs::path blocked = folder.path() / "blocked";
    fs::create_directories(blocked / "TavvelMain.prefs"); // a folder where the file should be
    TvPrefs prefs = TvPrefs::open(blocked, "TavvelMain");
    prefs.setObject("x", Value(1));
    EXPECT_FALSE(prefs.synchronize());
    int entries = 0;
    for ([[maybe_unused]] auto& e : fs::directory_iterator(blocked))
        ++entries;
    EXPECT_EQ(entries, 1);
    // The changes a failed write could not save are written by the next one.
    fs::remove(blocked / "TavvelMain.prefs");
    EXPECT_TRUE(prefs.synchronize());
    EXPECT_EQ(TvPrefs::open(blocked, "TavvelMain").integerForKey("x"), 1);
}

// Only a change makes the next save write: storing what is already there is none.
TEST(TvPrefs, AnUnchangedStoreIsNotWrittenAgain) {
    test::TempFolder folder;
    TvPrefs prefs = TvPrefs::open(folder.path(), "TavvelMain");
    prefs.setObject("x", Value(1));
    ASSERT_TRUE(prefs.synchronize());
    fs::remove(prefs.prefsPath());
    prefs.setObject("x", Value(1));
    prefs.removeObjectForKey("absent");
    EXPECT_TRUE(prefs.synchronize());
    EXPECT_FALSE(fs::exists(prefs.prefsPath()));
    prefs.removeObjectForKey("x");
    EXPECT_TRUE(prefs.synchronize());
    EXPECT_TRUE(fs::exists(prefs.prefsPath()));

    TvPrefs reopened = TvPrefs::open(folder.path(), "TavvelMain");
    fs::remove(reopened.prefsPath());
    EXPECT_TRUE(reopened.synchronize());
    EXPECT_FALSE(fs::exists(reopened.prefsPath()));
    // A store put back from a copy may differ from the file, whatever changed in between.
    const TvPrefs snapshot = reopened;
    reopened = snapshot;
    EXPECT_TRUE(reopened.synchronize());
    EXPECT_TRUE(fs::exists(reopened.prefsPath()));
}

// A save killed at any moment leaves either the previous file or the new one, whole.
TEST(TvPrefs, InterruptedSavesNeverLeaveATruncatedFile) {
    test::TempFolder folder;
    for (int round = 0; round < 6; ++round) {
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            close(ready[0]);
            TvPrefs prefs = TvPrefs::open(folder.path(), "TavvelMain");
            Array big;
            for (int i = 0; i < 20000; ++i)
                big.emplace_back("instruction number " + std::to_string(i));
            for (int i = 0;; ++i) {
                prefs.setInteger("generation", i);
                prefs.setObject("Instructions", Value(big));
                prefs.synchronize();
                if (i == 1)
                    (void)!write(ready[1], "r", 1);
            }
        }
        close(ready[1]);
        char byte;
        ASSERT_EQ(read(ready[0], &byte, 1), 1);
        close(ready[0]);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);

        PlistRead read = readPropertyListFile(TvPrefs::pathFor(folder.path(), "TavvelMain"));
        ASSERT_TRUE(read.ok()) << "round " << round;
        EXPECT_EQ(read.value.dictionary().at("Instructions").array().size(), 20000u);
        EXPECT_GE(read.value.dictionary().at("generation").toInteger(), 1);
    }
}

} // namespace
} // namespace tavvel
