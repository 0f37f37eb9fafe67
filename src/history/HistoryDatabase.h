#pragma once
// The conversion history's SQLite database: every statement the program sends to SQLite is in
// this class and its source file. The schema carries its version (user_version) and is brought
// up to date step by step when opened.

#include "history/HistoryRecords.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace tavvel {

class PayeeTally;

class HistoryDatabase {
public:
    enum class Opened { ok, damaged, unwritable };

    HistoryDatabase();
    ~HistoryDatabase();
    HistoryDatabase(const HistoryDatabase&) = delete;
    HistoryDatabase& operator=(const HistoryDatabase&) = delete;

    // Opens (creating when missing) and migrates; anything but ok leaves it closed.
    Opened open(const std::filesystem::path& file);
    bool isOpen() const { return db_ != nullptr; }
    void close();
    // The number of schema steps this build knows; a database at that version is current.
    static int schemaVersion();
    int userVersion();

    // One run's transactions go in as one transaction, or not at all.
    bool recordRun(std::string_view account, std::int64_t convertedAt,
                   const std::vector<HistoryEntry>& entries);

    KnownKey lookUp(std::string_view account, const TransactionKey& key);
    std::vector<ListedEntry> list(std::string_view account);
    // The number of transactions forgotten, or -1 when the database refused.
    std::int64_t forget(std::string_view account);

    // Known payees (the latest description of each) with their category, most recent first,
    // for the words given: what suggestions are drawn from.
    struct Filed {
        std::string description;
        std::string category;
        std::int64_t convertedAt = 0;
    };
    std::vector<Filed> filedUnder(const std::vector<std::string>& words, std::size_t limit);
    // How many filed transactions hold the word (for its rarity), and how many there are.
    std::int64_t wordCount(std::string_view word);
    std::int64_t transactionCount();
    // How many written transactions had a category and words: what suggestions weigh words
    // against.
    std::int64_t filedCount();

private:
    bool execute(std::string_view sql);
    bool migrate();
    bool prepareAll();
    bool writeTally(const PayeeTally& tally);
    bool addPayeeWords(std::int64_t payee, std::string_view words);
    bool rebuildPayees();
    sqlite3_stmt* prepared(int which);
    bool insertEntry(std::int64_t run, std::string_view account, const HistoryEntry& e);
    bool executeFor(std::string_view sql, std::string_view account);

    sqlite3* db_ = nullptr;
    std::vector<sqlite3_stmt*> statements_;
};

} // namespace tavvel
