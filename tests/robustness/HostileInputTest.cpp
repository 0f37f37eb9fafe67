// Inputs no bank would send on purpose: each is refused with the program's own message naming
// the file, and nothing is written anywhere.
#include "app/Controller.h"
#include "dialogs/BatchDialogs.h"
#include "knowledge/Categories.h"
#include "knowledge/FormatFiles.h"
#include "knowledge/Formats.h"
#include "prefs/PropertyList.h"
#include "support/TestContext.h"

#include <cstdint>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <unistd.h>

namespace tavvel {
namespace {

using Message = BatchMessage;

// A refusal asks nothing: no question, no error record, no file panel.
void expectNothingAsked(const BatchDialogs& dialogs) {
    EXPECT_EQ(dialogs.questionsAsked(), 0u);
    EXPECT_EQ(dialogs.skippedErrors(), 0u);
    EXPECT_EQ(dialogs.filePanelsOpened(), 0u);
}

// Deterministic junk: every byte value, NULs and line ends included.
std::string junk(std::size_t size) {
    std::string bytes(size, '\0');
    std::uint32_t state = 12345;
    for (char& c : bytes) {
        state = state * 1103515245u + 12345u;
        c = static_cast<char>(state >> 24);
    }
    return bytes;
}

std::set<std::filesystem::path> filesIn(const std::filesystem::path& folder) {
    std::set<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        files.insert(entry.path());
    return files;
}

class HostileInput : public testing::Test {
protected:
    test::TestContext t;
    BatchDialogs dialogs;

    HostileInput() { Categories(t.ctx.prefs).createEmpty(); }
    void TearDown() override { expectNothingAsked(dialogs); }

    std::filesystem::path write(const std::string& name, const std::string& bytes) {
        std::filesystem::path file = t.folder.path() / name;
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }

    // Classifies the file and expects one message, and no file created or removed.
    Message refusal(const std::filesystem::path& file) {
        auto before = filesIn(t.folder.path());
        Controller controller(t.ctx, dialogs);
        EXPECT_EQ(controller.actuallyProcessFile(file.string()), Intake::refused);
        EXPECT_EQ(filesIn(t.folder.path()), before);
        EXPECT_FALSE(controller.processing());
        EXPECT_EQ(dialogs.messages().size(), 1u);
        return dialogs.messages().empty() ? Message{} : dialogs.messages().back();
    }
};

TEST_F(HostileInput, EmptyFile) {
    Message m = refusal(write("empty.qif", ""));
    EXPECT_EQ(m.title, "No Transactions");
    EXPECT_EQ(m.text, "File \"empty.qif\" contains no QIF transactions to process.");
}

TEST_F(HostileInput, FolderIsUnreadableNotEmpty) {
    std::filesystem::create_directory(t.folder.path() / "folder.qif");
    Message m = refusal(t.folder.path() / "folder.qif");
    EXPECT_EQ(m.title, "Cannot Read File");
    EXPECT_EQ(m.text, "File \"folder.qif\" cannot be read.  Check that it is a file and that you "
                      "may open it.");
}

TEST_F(HostileInput, FileWithoutReadPermission) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "root reads files whatever their mode";
    auto file = write("locked.qif", "!Type:Bank\nD1/2/2024\nT-5.00\n^\n");
    std::filesystem::permissions(file, std::filesystem::perms::none);
    Message m = refusal(file);
    EXPECT_EQ(m.title, "Cannot Read File");
    EXPECT_EQ(m.text, "File \"locked.qif\" cannot be read.  Check that it is a file and that you "
                      "may open it.");
}

TEST_F(HostileInput, OneMegabyteLineWithoutADate) {
    Message m = refusal(write("line.txt", std::string(1 << 20, 'x') + "\n"));
    EXPECT_EQ(m.title, "Invalid Input");
    EXPECT_EQ(m.text, "The input is not in QIF format, and does not appear to contain a date.  It "
                      "cannot be processed.");
}

constexpr const char* kNotText =
    "%s does not appear to be a statement: its bytes are not text, so it cannot be processed.  "
    "Tavvel reads bank statements saved as OFX, QFX, QIF or text.";

std::string notText(const std::string& name) {
    std::string text = kNotText;
    return text.replace(text.find("%s"), 2, "File \"" + name + "\"");
}

// Random bytes of the upper half: no control byte among them, and no text either.
std::string highJunk(std::size_t size) {
    std::string bytes = junk(size);
    for (char& c : bytes)
        c = static_cast<char>(c | 0x80);
    return bytes;
}

// Random bytes used to hold something that read as a date often enough to go on to the run
// form; they, 8-bit junk without control bytes and a statement buried in NUL bytes are no
// statement.
TEST_F(HostileInput, BytesThatAreNoTextAreRefusedAsSuch) {
    for (const auto& [name, bytes] :
         {std::pair<std::string, std::string>{"nul.txt", std::string(4096, '\0')},
          {"junk.bin", junk(1 << 20)},
          {"padded.qif", "!Type:Bank\nD1/2/2024\nT-5.00\n^\n" + std::string(64, '\0')},
          {"high.csv", highJunk(1 << 16)}}) {
        SCOPED_TRACE(name);
        dialogs.forgetMessages();
        Message m = refusal(write(name, bytes));
        EXPECT_EQ(m.title, "Invalid Input");
        EXPECT_EQ(m.text, notText(name));
    }
}

// A stray NUL in a statement is no reason to refuse it: it reads as a blank.
TEST_F(HostileInput, StrayNulInTextIsABlank) {
    std::string text = "!Type:Bank\nD1/2/2024\nT-5.00\nPCORNER\0SHOP\n^\n";
    Controller controller(t.ctx, dialogs);
    EXPECT_NE(controller.actuallyProcessFile(write("stray.qif", text).string()), Intake::refused);
    EXPECT_TRUE(dialogs.messages().empty());
    EXPECT_EQ(controller.inputText().find('\0'), std::string::npos);
}

TEST_F(HostileInput, OfxTruncatedInsideATag) {
    Message m = refusal(write("cut.ofx", "OFXHEADER:100\r\nDATA:OFXSGML\r\n\r\n<OFX><SIGNONMSGS"));
    EXPECT_EQ(m.title, "Invalid Input");
    EXPECT_EQ(m.text, "File \"cut.ofx\" appears to contain QFX/OFX but does not represent Bank or "
                      "Credit Card transactions; it cannot be processed.");
}

// The format-file and continuation-file readers refuse anything that is not a property list
// of the right shape, however deep or broken.
class HostileSavedFile : public testing::Test {
protected:
    test::TempFolder folder;
    std::filesystem::path write(const std::string& name, const std::string& bytes) {
        std::filesystem::path file = folder.path() / name;
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }
};

std::string nestedArrays(int depth) {
    std::string xml = "<?xml version=\"1.0\"?><plist version=\"1.0\">";
    for (int i = 0; i < depth; ++i)
        xml += "<array>";
    for (int i = 0; i < depth; ++i)
        xml += "</array>";
    return xml + "</plist>";
}

TEST_F(HostileSavedFile, FormatFileOfJunkIsNotAPropertyList) {
    FormatFileRead read = readFormatFile(write("junk.tvfm", junk(4096)));
    EXPECT_FALSE(read.record);
    EXPECT_EQ(read.problem, "it is not a property list");
}

TEST_F(HostileSavedFile, FormatFileWithAnArrayRootHoldsNoRecord) {
    FormatFileRead read = readFormatFile(write("list.tvfm", encodePropertyList(Value(Array{}))));
    EXPECT_FALSE(read.record);
    EXPECT_EQ(read.problem, "it does not hold a format record");
}

TEST_F(HostileSavedFile, DeeplyNestedFormatFileIsRefused) {
    FormatFileRead read = readFormatFile(write("deep.tvfm", nestedArrays(100000)));
    EXPECT_FALSE(read.record);
    EXPECT_FALSE(read.problem.empty());
}

TEST_F(HostileSavedFile, ImportingJunkChangesNoFormat) {
    TvPrefs prefs;
    Formats formats(prefs);
    BatchDialogs dialogs;
    auto present = [](RenameFormatForm&) {
        ADD_FAILURE() << "the rename form was shown for junk";
        return false;
    };
    EXPECT_EQ(importFormatFile(formats, write("junk.tvfm", junk(4096)), dialogs, present),
              ImportOutcome::Refused);
    EXPECT_EQ(formats.numberOfFormats(), 0u);
    expectNothingAsked(dialogs);
    ASSERT_EQ(dialogs.messages().size(), 1u);
    EXPECT_NE(dialogs.messages()[0].text.find("junk.tvfm"), std::string::npos);
}

TEST_F(HostileSavedFile, ContinuationFileOfJunkOrWrongRoot) {
    EXPECT_EQ(readPropertyListFile(write("junk.tvcn", junk(4096))).status,
              PlistReadStatus::NotAPropertyList);
    EXPECT_EQ(
        readPropertyListFile(write("list.tvcn", encodePropertyList(Value(Array{1, 2})))).status,
        PlistReadStatus::WrongRoot);
    EXPECT_EQ(readPropertyListFile(write("deep.tvcn", nestedArrays(100000))).status,
              PlistReadStatus::NotAPropertyList);
}

} // namespace
} // namespace tavvel
