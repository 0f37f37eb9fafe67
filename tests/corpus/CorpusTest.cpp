// Real statements from the shared corpus (skipped when it is absent): every file goes through
// the whole conversion without a crash or sanitizer report; bank and card OFX statements give
// one record per <STMTTRN> whose date and amount are the file's own; list exports are
// recognised as lists.

#include "app/Controller.h"
#include "app/ImportQuickenExport.h"
#include "bank/BankTexts.h"
#include "bank/BankingCreditCardQIF.h"
#include "dialogs/BatchDialogs.h"
#include "formats/TransactionKeys.h"
#include "prefs/Files.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "recognize/FindLines.h"
#include "support/StoredRecords.h"
#include "support/TestContext.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <regex>

namespace tavvel {
namespace {

namespace fs = std::filesystem;

const fs::path kCorpus = test::corpusFolder();

std::vector<fs::path> corpusFiles(const std::string& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(kCorpus / folder))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

std::string bytesOf(const fs::path& file) {
    auto text = readWholeFile(file);
    EXPECT_TRUE(text) << file;
    return text.value_or("");
}

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

#define SKIP_WITHOUT_CORPUS()                                                                      \
    if (!fs::is_directory(kCorpus))                                                                \
    GTEST_SKIP() << "no corpus at " << kCorpus

// The whole run as tavvel-cli --batch makes it, for one file.
void convertWholly(const fs::path& file) {
    test::TestContext t;
    t.ctx.prefs.setObject(prefkey::Categories, Value(Array{}));
    addOption(t.ctx.prefs, option::dontAddCategories);
    fs::path output = t.folder.path() / "output.qif";
    BatchDialogs dialogs(output.string());
    Controller controller(t.ctx, dialogs);
    Intake intake = controller.actuallyProcessFile(file.string());
    RunEnd end = RunEnd::notStarted;
    if (intake == Intake::formReady && controller.form().processEnabled())
        end = controller.processTheTransactions();
    EXPECT_EQ(fs::exists(output), end == RunEnd::written) << controller.closingMessage();
    if (end == RunEnd::written) {
        EXPECT_GT(fs::file_size(output), 0u);
    }
}

TEST(Corpus, EveryStatementGoesThroughTheWholeConversion) {
    SKIP_WITHOUT_CORPUS();
    for (const std::string folder : {"ofx", "qif", "csv"})
        for (const fs::path& file : corpusFiles(folder)) {
            SCOPED_TRACE(file.string());
            convertWholly(file);
        }
}

// Every piece of the statement from one <STMTTRN> to the next, as the file has it.
std::vector<std::string> transactionPieces(const std::string& text) {
    constexpr std::string_view tag = "<STMTTRN>";
    std::vector<std::string> pieces;
    for (std::size_t at = text.find(tag); at != std::string::npos;) {
        std::size_t next = text.find(tag, at + tag.size());
        std::size_t end = next == std::string::npos ? text.size() : next;
        pieces.push_back(text.substr(at + tag.size(), end - at - tag.size()));
        at = next;
    }
    return pieces;
}

struct PostedDay {
    int year, month, day;
    // A real calendar day; banks' malformed days (February 31, month 20) are rolled over as a
    // lenient calendar does, which this test does not second-guess.
    bool real() const {
        using namespace std::chrono;
        return year_month_day{std::chrono::year(year), std::chrono::month(month),
                              std::chrono::day(day)}
            .ok();
    }
    // As the output writes dates.
    std::string written() const {
        return std::to_string(month) + "/" + std::to_string(day) + "/" + std::to_string(year);
    }
};

// The posting day from the tag's first eight digits.
std::optional<PostedDay> postedDay(const std::string& piece) {
    static const std::regex posted(R"(<DTPOSTED>\s*(\d{4})(\d{2})(\d{2}))");
    std::smatch m;
    if (!std::regex_search(piece, m, posted))
        return std::nullopt;
    return PostedDay{std::stoi(m[1]), std::stoi(m[2]), std::stoi(m[3])};
}

std::optional<std::string> amountText(const std::string& piece) {
    static const std::regex amount(R"(<TRNAMT>[ \t\f\v\r\n]*([^<\r\n]*?)[ \t]*(?:<|\r|\n|$))");
    std::smatch m;
    if (!std::regex_search(piece, m, amount))
        return std::nullopt;
    return m[1].str();
}

// The amount as the output writes it: a decimal comma (as European banks send) becomes a point;
// nothing when the text is no plain number.
std::optional<std::string> writtenAmount(std::string text) {
    static const std::regex number(R"([-+]?[0-9]*[.,]?[0-9]+)");
    if (!std::regex_match(text, number))
        return std::nullopt;
    std::replace(text.begin(), text.end(), ',', '.');
    return text;
}

void expectRecordAgrees(const Dictionary& record, const std::string& piece) {
    std::string error = textOf(record, txkey::errorMessage);
    if (error == text::ofxNoDate) {
        EXPECT_FALSE(postedDay(piece)) << piece;
        return;
    }
    ASSERT_TRUE(postedDay(piece)) << "a record without the file's date: " << piece;
    if (error == text::ofxNoAmount) {
        EXPECT_FALSE(amountText(piece)) << piece;
        return;
    }
    std::optional<std::string> amount = writtenAmount(amountText(piece).value_or(""));
    if (!amount) {
        EXPECT_EQ(error, text::ofxAmountNotNumber) << piece;
        return;
    }
    EXPECT_EQ(error, "");
    if (postedDay(piece)->real())
        EXPECT_EQ(textOf(record, txkey::date), postedDay(piece)->written());
    else
        EXPECT_NE(textOf(record, txkey::date), "");
    EXPECT_EQ(textOf(record, txkey::amount), *amount);
}

TEST(Corpus, BankAndCardStatementsGiveOneRecordPerTransaction) {
    SKIP_WITHOUT_CORPUS();
    std::size_t statements = 0;
    for (const fs::path& file : corpusFiles("ofx")) {
        std::string text = bytesOf(file);
        if (!contains(text, "<BANKMSGSRSV") && !contains(text, "<CREDITCARDMSGSRSV"))
            continue;
        SCOPED_TRACE(file.string());
        ++statements;
        test::TestContext t;
        BankingCreditCardQIF reader(t.ctx);
        reader.fromOFX(text, kDistantPast, kDistantFuture);
        std::vector<std::string> pieces = transactionPieces(text);
        ASSERT_EQ(test::stored(reader).size(), pieces.size());
        for (std::size_t i = 0; i < pieces.size(); ++i)
            expectRecordAgrees(test::stored(reader)[i], pieces[i]);
    }
    EXPECT_GT(statements, 0u) << "the corpus holds no bank or card statement";
}

TEST(Corpus, QifFilesReadWholeWithoutHarm) {
    SKIP_WITHOUT_CORPUS();
    for (const fs::path& file : corpusFiles("qif")) {
        SCOPED_TRACE(file.string());
        test::TestContext t;
        BankingCreditCardQIF reader(t.ctx);
        std::vector<std::string> lines = findLines(bytesOf(file));
        std::size_t badLine = reader.fromQIFLines(lines, kDistantPast, kDistantFuture);
        EXPECT_LE(badLine, lines.size());
    }
}

// A QIF export that holds a list section before any account's transactions.
bool startsWithLists(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
        if (line == "!Option:AutoSwitch" || line == "!Type:Cat" || line == "!Type:Security")
            return true;
        if (line == "!Account")
            return false;
    }
    return false;
}

TEST(Corpus, ListExportsAreRecognised) {
    SKIP_WITHOUT_CORPUS();
    std::size_t exports = 0;
    for (const fs::path& file : corpusFiles("qif")) {
        std::vector<std::string> lines = findLines(bytesOf(file));
        if (!startsWithLists(lines))
            continue;
        SCOPED_TRACE(file.string());
        ++exports;
        test::TestContext t;
        BatchDialogs dialogs((t.folder.path() / "unused").string());
        std::vector<std::string_view> views(lines.begin(), lines.end());
        std::size_t start = 0;
        int result = ImportQuickenExport(t.ctx.prefs, dialogs).process(views, start, "File");
        EXPECT_GT(result, 0) << "not recognised as a list export";
        EXPECT_FALSE(dialogs.messages().empty());
    }
    EXPECT_GT(exports, 0u) << "the corpus holds no list export";
}

} // namespace
} // namespace tavvel
