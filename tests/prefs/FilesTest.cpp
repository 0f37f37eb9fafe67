// Whole-file writing: what the permissions of a written file are and what a failed write
// leaves behind.
#include "prefs/Files.h"

#include "support/TestContext.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace tavvel {
namespace {

namespace fs = std::filesystem;

mode_t modeOf(const fs::path& file) {
    struct stat st {};
    EXPECT_EQ(0, ::stat(file.c_str(), &st)) << file;
    return st.st_mode & 07777;
}

std::vector<std::string> namesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

// Sets the umask for one test and puts the old one back.
class Umask {
public:
    explicit Umask(mode_t mask) : old_(::umask(mask)) {}
    ~Umask() { ::umask(old_); }
    Umask(const Umask&) = delete;
    Umask& operator=(const Umask&) = delete;

private:
    mode_t old_;
};

TEST(Files, NewFileGetsTheModeTheUmaskLeaves) {
    test::TempFolder folder;
    {
        Umask mask(022);
        ASSERT_TRUE(writeFileAtomically(folder.path() / "shared", "a"));
    }
    {
        Umask mask(027);
        ASSERT_TRUE(writeFileAtomically(folder.path() / "group", "a"));
    }
    EXPECT_EQ(modeOf(folder.path() / "shared"), 0644u);
    EXPECT_EQ(modeOf(folder.path() / "group"), 0640u);
}

TEST(Files, ReplacingAFileKeepsItsPermissions) {
    test::TempFolder folder;
    Umask mask(022);
    fs::path file = folder.path() / "private.prefs";
    ASSERT_TRUE(writeFileAtomically(file, "old"));
    ASSERT_EQ(0, ::chmod(file.c_str(), 0600));
    ASSERT_TRUE(writeFileAtomically(file, "new"));
    EXPECT_EQ(modeOf(file), 0600u);
    for (mode_t mode : {0664u, 0644u, 0640u}) {
        ASSERT_EQ(0, ::chmod(file.c_str(), mode));
        ASSERT_TRUE(writeFileAtomically(file, "newer"));
        EXPECT_EQ(modeOf(file), mode);
    }
    EXPECT_EQ(*readWholeFile(file), "newer");
}

TEST(Files, FailedWriteLeavesNoTemporaryFile) {
    test::TempFolder folder;
    fs::create_directories(folder.path() / "taken" / "inside");
    std::string error;
    EXPECT_FALSE(writeFileAtomically(folder.path() / "taken", "bytes", &error));
    EXPECT_NE(error.find("which is not a regular file"), std::string::npos) << error;
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"taken"});

    EXPECT_FALSE(writeFileAtomically(folder.path() / "absent" / "file", "bytes", &error));
    EXPECT_NE(error.find("cannot create a temporary file"), std::string::npos) << error;
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"taken"});

    // A write that fails half way, here on a file size limit, takes its temporary with it.
    fs::path file = folder.path() / "out.qif";
    ASSERT_TRUE(writeFileAtomically(file, "old"));
    ::signal(SIGXFSZ, SIG_IGN);
    rlimit old{};
    ASSERT_EQ(0, ::getrlimit(RLIMIT_FSIZE, &old));
    rlimit small = old;
    small.rlim_cur = 4096;
    ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &small));
    bool written = writeFileAtomically(file, std::string(100000, 'x'), &error);
    ::setrlimit(RLIMIT_FSIZE, &old);
    EXPECT_FALSE(written);
    EXPECT_EQ(*readWholeFile(file), "old");
    EXPECT_EQ(namesIn(folder.path()), (std::vector<std::string>{"out.qif", "taken"}));
}

// Temporaries a killed write left beside a target go on the next write to it; those of a
// running writer, of another target, or only looking like ours stay.
TEST(Files, AbandonedTemporariesAreRemovedOnTheNextWrite) {
    test::TempFolder folder;
    fs::path file = folder.path() / "out.qif";
    std::string running = "out.qif.tmp-" + std::to_string(::getpid()) + "-0-12";
    std::vector<std::string> kept = {"out.qif.tmp-999999999-0-x", "out.qif.tmp-notes", running,
                                     "other.qif.tmp-999999999-3-12"};
    for (const std::string& name : kept)
        ASSERT_TRUE(writeFileAtomically(folder.path() / name, "left"));
    for (const char* name : {"out.qif.tmp-999999999-0-123456", "out.qif.tmp-999999998-7-0"})
        ASSERT_TRUE(writeFileAtomically(folder.path() / name, "left"));
    ASSERT_TRUE(writeFileAtomically(file, "new"));
    kept.push_back("out.qif");
    std::sort(kept.begin(), kept.end());
    EXPECT_EQ(namesIn(folder.path()), kept);
    EXPECT_EQ(*readWholeFile(file), "new");
}

// A link is written through to its target, which keeps its mode; what is not a regular file
// (a pipe here, as a device would be) is refused and left as it was, directly or by a link.
TEST(Files, LinksAreWrittenThroughAndOtherThingsAreRefused) {
    test::TempFolder folder;
    Umask mask(022);
    fs::path real = folder.path() / "real.qif";
    ASSERT_TRUE(writeFileAtomically(real, "old"));
    ASSERT_EQ(0, ::chmod(real.c_str(), 0640));
    fs::create_directory(folder.path() / "links");
    fs::create_symlink("../real.qif", folder.path() / "links" / "out.qif");
    ASSERT_TRUE(writeFileAtomically(folder.path() / "links" / "out.qif", "new"));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "links" / "out.qif"));
    EXPECT_EQ(*readWholeFile(real), "new");
    EXPECT_EQ(modeOf(real), 0640u);
    EXPECT_EQ(namesIn(folder.path() / "links"), std::vector<std::string>{"out.qif"});
    fs::create_symlink("made.qif", folder.path() / "dangling");
    ASSERT_TRUE(writeFileAtomically(folder.path() / "dangling", "made"));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "dangling"));
    EXPECT_EQ(*readWholeFile(folder.path() / "made.qif"), "made");

    ASSERT_EQ(0, ::mkfifo((folder.path() / "pipe").c_str(), 0644));
    fs::create_symlink("pipe", folder.path() / "to-pipe");
    fs::create_symlink("loop", folder.path() / "loop");
    for (const char* name : {"pipe", "to-pipe", "loop"}) {
        EXPECT_FALSE(writeFileAtomically(folder.path() / name, "bytes")) << name;
        EXPECT_EQ(namesSomethingOtherThanAFile(folder.path() / name), name[0] != 'l') << name;
    }
    EXPECT_TRUE(fs::is_fifo(folder.path() / "pipe"));
    EXPECT_FALSE(namesSomethingOtherThanAFile(real));
    EXPECT_FALSE(namesSomethingOtherThanAFile(folder.path() / "absent"));
    EXPECT_EQ(namesIn(folder.path()),
              (std::vector<std::string>{"dangling", "links", "loop", "made.qif", "pipe", "real.qif",
                                        "to-pipe"}));
}

TEST(Files, CopyIsWholeWithTheOriginalsPermissions) {
    test::TempFolder folder;
    Umask mask(022);
    fs::path theirs = folder.path() / "theirs";
    ASSERT_TRUE(writeFileAtomically(theirs, std::string("a\0b", 3)));
    ASSERT_EQ(0, ::chmod(theirs.c_str(), 0600));
    ASSERT_TRUE(copyFileAtomically(theirs, folder.path() / "ours"));
    EXPECT_EQ(*readWholeFile(folder.path() / "ours"), std::string("a\0b", 3));
    EXPECT_EQ(modeOf(folder.path() / "ours"), 0600u);

    EXPECT_FALSE(copyFileAtomically(folder.path() / "missing", folder.path() / "none"));
    EXPECT_EQ(namesIn(folder.path()), (std::vector<std::string>{"ours", "theirs"}));
}

TEST(Files, AFolderIsNotReadAsAnEmptyFile) {
    test::TempFolder folder;
    EXPECT_FALSE(readWholeFile(folder.path()));
    ASSERT_TRUE(writeFileAtomically(folder.path() / "empty", ""));
    EXPECT_EQ(readWholeFile(folder.path() / "empty"), std::string());
}

} // namespace
} // namespace tavvel
