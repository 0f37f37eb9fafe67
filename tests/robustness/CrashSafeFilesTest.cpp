// A writer killed at any moment leaves each file as it was before or as it should be after,
// never truncated, empty or a mix. A child process rewrites the file in a loop, alternating two
// versions, and tells the parent through a pipe whenever a write starts; the parent kills it
// after a varying number of starts, so the kill lands at different points of a write.
#include "app/OutputFile.h"
#include "prefs/Files.h"
#include "prefs/PropertyList.h"
#include "prefs/TvPrefs.h"
#include "support/TestContext.h"

#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavvel {
namespace {

constexpr int kRounds = 25;

// Big enough that a write takes a while, so that many kills land inside one.
std::string version(char fill) {
    return std::string(std::size_t{2} << 20, fill);
}

// Runs `write(round)` forever in a child, announcing each start, and kills it after `starts`
// announcements.
void killWhileWriting(int starts, const std::function<void(int)>& write) {
    int pipeEnds[2];
    ASSERT_EQ(0, ::pipe(pipeEnds));
    pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::close(pipeEnds[0]);
        for (int round = 0;; ++round) {
            if (::write(pipeEnds[1], "w", 1) != 1)
                ::_exit(1);
            write(round);
        }
    }
    ::close(pipeEnds[1]);
    char buffer = 0;
    for (int i = 0; i < starts && ::read(pipeEnds[0], &buffer, 1) == 1; ++i) {
    }
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    ::close(pipeEnds[0]);
    EXPECT_TRUE(WIFSIGNALED(status)) << "the writer ended before it was killed";
}

class CrashSafeFiles : public testing::Test {
protected:
    test::TempFolder folder;
};

TEST_F(CrashSafeFiles, OutputFileIsOldOrNewAfterAKill) {
    const std::string a = version('a'), b = version('b');
    const std::string path = (folder.path() / "statement.qif").string();
    ASSERT_TRUE(writeOutputFile({path}, a));
    for (int round = 0; round < kRounds; ++round) {
        killWhileWriting(1 + round % 4, [&](int n) { writeOutputFile({path}, n % 2 ? a : b); });
        auto bytes = readWholeFile(path);
        ASSERT_TRUE(bytes && (*bytes == a || *bytes == b)) << "round " << round;
    }
}

TEST_F(CrashSafeFiles, ContinuationFileIsOldOrNewAfterAKill) {
    auto record = [](char fill) {
        return Value(
            Dictionary{{"source", Value("statement.qfx")}, {"output", Value(version(fill))}});
    };
    const Value a = record('a'), b = record('b');
    const auto path = folder.path() / "statement.tvcn";
    ASSERT_TRUE(writePropertyListFile(path, a));
    for (int round = 0; round < kRounds; ++round) {
        killWhileWriting(1 + round % 4, [&](int n) { writePropertyListFile(path, n % 2 ? a : b); });
        PlistRead read = readPropertyListFile(path);
        ASSERT_TRUE(read.ok()) << "round " << round;
        ASSERT_TRUE(read.value == a || read.value == b) << "round " << round;
    }
}

TEST_F(CrashSafeFiles, PreferenceFileIsOldOrNewAfterAKill) {
    const std::string a = version('a'), b = version('b');
    {
        TvPrefs prefs = TvPrefs::open(folder.path(), "TavvelMain");
        prefs.setObject("Blob", Value(a));
        ASSERT_TRUE(prefs.synchronize());
    }
    for (int round = 0; round < kRounds; ++round) {
        killWhileWriting(1 + round % 4, [&](int n) {
            TvPrefs prefs = TvPrefs::open(folder.path(), "TavvelMain");
            prefs.setObject("Blob", Value(n % 2 ? a : b));
            prefs.synchronize();
        });
        TvPrefs reopened = TvPrefs::open(folder.path(), "TavvelMain");
        ASSERT_TRUE(reopened.keptAsidePath().empty()) << "round " << round;
        const Value* blob = reopened.objectForKey("Blob");
        ASSERT_TRUE(blob && (blob->text() == a || blob->text() == b)) << "round " << round;
    }
}

} // namespace
} // namespace tavvel
