#include "history/ConversionHistory.h"
#include "history/DescriptionWords.h"
#include "history/HistoryDatabase.h"
#include "history/RunDuplicates.h"
#include "support/TestContext.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace tavvel {
namespace {

using test::TempFolder;

HistoryEntry entry(std::string date, std::string amount, std::string description,
                   std::string category = "", std::string fitid = "") {
    return {{std::move(date), std::move(amount), "", std::move(description), std::move(fitid)},
            std::move(category),
            ""};
}

// The message with the file's path where it says PATH.
std::string withPath(std::string message, const std::filesystem::path& file) {
    return message.replace(message.find("PATH"), 4, file.string());
}

std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

TEST(HistoryStore, DuplicatesCountRepeatsPerRunAndMatchIdsPerAccount) {
    TempFolder folder;
    {
        HistoryDatabase db;
        ASSERT_EQ(db.open(folder.path() / "h.sqlite"), HistoryDatabase::Opened::ok);
        ASSERT_TRUE(db.recordRun("Checking", 1000,
                                 {entry("1/2/2024", "-5.00", "COFFEE"),
                                  entry("1/2/2024", "-5.00", "COFFEE"),
                                  entry("1/3/2024", "-9.00", "SHOP", "Food", "F1")}));
        // The same statement converted again does not make each coffee count twice.
        ASSERT_TRUE(db.recordRun(
            "Checking", 2000,
            {entry("1/2/2024", "-5.00", "COFFEE"), entry("1/2/2024", "-5.00", "COFFEE")}));
    }
    HistoryDatabase db; // reopened: the runs were kept
    ASSERT_EQ(db.open(folder.path() / "h.sqlite"), HistoryDatabase::Opened::ok);
    EXPECT_EQ(db.userVersion(), HistoryDatabase::schemaVersion());
    RunDuplicates run(&db, "Checking");
    run.mark(0, entry("1/2/2024", "-5.00", "COFFEE").key);
    run.mark(1, entry("1/2/2024", "-5.00", "COFFEE").key);
    run.mark(2, entry("1/2/2024", "-5.00", "COFFEE").key); // a third coffee is new
    run.mark(3, entry("1/3/2024", "-9.00", "SHOP RENAMED", "", "F1").key);
    run.mark(4, entry("1/3/2024", "-9.00", "SHOP", "", "F2").key); // another id: new
    run.mark(5, entry("1/2/2024", "-5.00", "COFFE").key);
    EXPECT_EQ(run.duplicateOn(0), 1000);
    EXPECT_EQ(run.duplicateOn(1), 1000);
    EXPECT_FALSE(run.duplicateOn(2));
    EXPECT_EQ(run.duplicateOn(3), 1000);
    EXPECT_FALSE(run.duplicateOn(4));
    EXPECT_FALSE(run.duplicateOn(5));
    EXPECT_EQ(run.duplicates(), 3u);

    RunDuplicates savings(&db, "Savings");
    savings.mark(0, entry("1/2/2024", "-5.00", "COFFEE").key);
    EXPECT_EQ(savings.duplicates(), 0u);

    EXPECT_EQ(db.list("Checking").size(), 5u);
    EXPECT_EQ(db.wordCount("SHOP"), 1); // only transactions filed under a category count
    EXPECT_EQ(db.forget("Checking"), 5);
    EXPECT_TRUE(db.list("Checking").empty());
    EXPECT_EQ(db.lookUp("Checking", entry("1/2/2024", "-5.00", "COFFEE").key).count, 0);
    EXPECT_EQ(db.wordCount("SHOP"), 0);
    EXPECT_EQ(db.filedCount(), 0);
}

// A transaction walked again after Back is reported again: only its last outcome counts.
TEST(HistoryStore, RunRecordsWhatWasWrittenLastAndCountsDuplicatesLeftOut) {
    TempFolder folder;
    HistoryDatabase db;
    ASSERT_EQ(db.open(folder.path() / "h.sqlite"), HistoryDatabase::Opened::ok);
    ASSERT_TRUE(db.recordRun("A", 10, {entry("1/2/2024", "-5.00", "COFFEE")}));
    RunDuplicates run(&db, "A");
    run.mark(0, entry("1/2/2024", "-5.00", "COFFEE").key);
    run.mark(1, entry("1/4/2024", "-7.00", "BAKERY").key);
    run.leftOut(0);
    run.written(1, "Food", "BAK");
    run.leftOut(1); // Back, then skipped
    run.written(1, "Food:Bread", "BAKERY");
    auto entries = run.entries();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].key.description, "BAKERY");
    EXPECT_EQ(entries[0].category, "Food:Bread");
    EXPECT_EQ(entries[0].instruction, "BAKERY");
    EXPECT_EQ(run.duplicatesLeftOut(), 1u);
    run.written(0, "", "");
    EXPECT_EQ(run.duplicatesLeftOut(), 0u);

    RunDuplicates off(nullptr, "A"); // detection off: keys are kept, nothing is a duplicate
    off.mark(0, entry("1/2/2024", "-5.00", "COFFEE").key);
    off.written(0, "", "");
    EXPECT_FALSE(off.duplicateOn(0));
    EXPECT_EQ(off.entries().at(0).key.amount, "-5.00");
}

// A database made by the first schema keeps its rows, and they gain their words.
TEST(HistoryStore, FirstSchemaIsMigratedWithItsRows) {
    TempFolder folder;
    auto file = folder.path() / "old.sqlite";
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &raw), SQLITE_OK);
    const char* v1 =
        "CREATE TABLE runs(id INTEGER PRIMARY KEY, account TEXT NOT NULL,"
        " converted_at INTEGER NOT NULL);"
        "CREATE TABLE transactions(id INTEGER PRIMARY KEY, run INTEGER NOT NULL,"
        " account TEXT NOT NULL, date TEXT NOT NULL, amount TEXT NOT NULL, number TEXT NOT NULL,"
        " description TEXT NOT NULL, category TEXT NOT NULL, instruction TEXT NOT NULL,"
        " fitid TEXT NOT NULL);"
        "INSERT INTO runs VALUES(1, 'A', 77);"
        "INSERT INTO transactions VALUES(1, 1, 'A', '1/2/2024', '-5.00', '', "
        "'GROCERY OUTLET #0412', 'Groceries', '', '');"
        "PRAGMA user_version = 1;";
    ASSERT_EQ(sqlite3_exec(raw, v1, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(raw);

    HistoryDatabase db;
    ASSERT_EQ(db.open(file), HistoryDatabase::Opened::ok);
    EXPECT_EQ(db.userVersion(), 2);
    EXPECT_EQ(db.lookUp("A", entry("1/2/2024", "-5.00", "GROCERY OUTLET #0412").key).count, 1);
    EXPECT_EQ(db.wordCount("OUTLET"), 1);
    auto filed = db.filedUnder({"GROCERY"}, 10);
    ASSERT_EQ(filed.size(), 1u);
    EXPECT_EQ(filed[0].category, "Groceries");
    EXPECT_EQ(filed[0].convertedAt, 77);
}

TEST(HistoryStore, DamagedFileIsKeptAsideAndUnwritablePlaceIsReported) {
    TempFolder folder;
    auto place = folder.path() / "data" / "Tavvel";
    std::filesystem::create_directories(place);
    std::string garbage(4096, 'x');
    std::ofstream(place / ConversionHistory::kFileName, std::ios::binary) << garbage;
    ConversionHistory history;
    history.open(place, Date{1700000000});
    ASSERT_TRUE(history.available());
    auto aside = place / "history.sqlite.corrupt-20231114T221320Z";
    EXPECT_EQ(bytesOf(aside), garbage);
    EXPECT_EQ(history.takeNotice(),
              withPath("The conversion history could not be read, so it was kept aside as "
                       "\"PATH\" and a new one was started.  Transactions converted before "
                       "cannot be recognised as duplicates this time.",
                       aside));
    EXPECT_FALSE(history.takeNotice());
    history.record("A", Date{1700000000}, {entry("1/2/2024", "-5.00", "COFFEE")});
    EXPECT_EQ(history.database().transactionCount(), 1);

    // A file where the folder should be: no history, one message, and nothing thrown.
    auto blocked = folder.path() / "blocked";
    std::ofstream(blocked) << "not a folder";
    ConversionHistory none;
    none.open(blocked / "Tavvel", Date{0});
    EXPECT_FALSE(none.available());
    EXPECT_EQ(none.takeNotice(),
              withPath("The conversion history \"PATH\" cannot be opened for writing.  The "
                       "conversion goes ahead, but duplicates are not looked for and this "
                       "conversion is not remembered.",
                       blocked / "Tavvel" / "history.sqlite"));
    none.record("A", Date{0}, {entry("1/2/2024", "-5.00", "COFFEE")});
    EXPECT_FALSE(none.takeNotice());

    // A database that turns out unable to take the run: the run's file stands, the user is told.
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open((place / "history.sqlite").c_str(), &raw), SQLITE_OK);
    const char* refuse = "CREATE TRIGGER refuse BEFORE INSERT ON transactions"
                         " BEGIN SELECT RAISE(ABORT, 'disk full'); END";
    ASSERT_EQ(sqlite3_exec(raw, refuse, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(raw);
    history.record("A", Date{1700000000}, {entry("1/3/2024", "-1.00", "TEA")});
    EXPECT_EQ(history.takeNotice(),
              withPath("The conversion history \"PATH\" could not record this conversion; the "
                       "output file was written.  These transactions will not be recognised as "
                       "duplicates later.",
                       place / "history.sqlite"));
    EXPECT_EQ(history.database().transactionCount(), 1) << "the failed run left nothing behind";
}

TEST(HistoryStore, DescriptionWordsLeaveOutNumbersAndCardPrefixes) {
    EXPECT_EQ(descriptionWords("SQ *BLUE BOTTLE #0412 blue"),
              (std::vector<std::string>{"BLUE", "BOTTLE"}));
    EXPECT_EQ(descriptionWords("POS 1234 TST* Joe's Pizza 12AB"),
              (std::vector<std::string>{"JOE'S", "PIZZA"}));
    EXPECT_TRUE(descriptionWords("#0412 123").empty());
    EXPECT_EQ(sharedStem("GROCERY OUTLET #0977", "Grocery Outlet #0412"), "GROCERY OUTLET");
    EXPECT_EQ(sharedStem("SQ *GROCERY OUTLET 0977 X", "GROCERY OUTLET"), "GROCERY OUTLET");
    EXPECT_EQ(sharedStem("SHELL OIL 5731", "CHEVRON 12"), "");
}

} // namespace
} // namespace tavvel
