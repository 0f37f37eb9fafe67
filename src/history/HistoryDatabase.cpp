#include "history/HistoryDatabase.h"

#include "history/PayeeTally.h"

#include <algorithm>
#include <array>
#include <sqlite3.h>

namespace tavvel {

namespace {

// Each step brings the schema one version further; a database is at version N when the first
// N steps were applied. Steps are only ever added at the end.
constexpr std::array<std::string_view, 2> kSteps = {
    // 1: the runs and their transactions, with the two lookups a duplicate needs indexed.
    "CREATE TABLE runs(id INTEGER PRIMARY KEY, account TEXT NOT NULL,"
    " converted_at INTEGER NOT NULL);"
    "CREATE TABLE transactions(id INTEGER PRIMARY KEY, run INTEGER NOT NULL REFERENCES runs(id),"
    " account TEXT NOT NULL, date TEXT NOT NULL, amount TEXT NOT NULL, number TEXT NOT NULL,"
    " description TEXT NOT NULL, category TEXT NOT NULL, instruction TEXT NOT NULL,"
    " fitid TEXT NOT NULL);"
    "CREATE INDEX transactions_by_fitid ON transactions(account, fitid) WHERE fitid <> '';"
    "CREATE INDEX transactions_by_fields ON transactions(account, date, amount, description);",
    // 2: the payees filed under each category, by the words of their descriptions, for
    // suggestions; filled in from step 1's rows after.
    "CREATE TABLE payees(id INTEGER PRIMARY KEY, words TEXT NOT NULL, category TEXT NOT NULL,"
    " description TEXT NOT NULL, count INTEGER NOT NULL, last_at INTEGER NOT NULL,"
    " UNIQUE(words, category));"
    "CREATE TABLE payee_words(word TEXT NOT NULL, payee INTEGER NOT NULL,"
    " PRIMARY KEY(word, payee)) WITHOUT ROWID;"
    "CREATE TABLE word_counts(word TEXT PRIMARY KEY, n INTEGER NOT NULL) WITHOUT ROWID;",
};

enum Statement {
    kInsertRun,
    kInsertTransaction,
    kUpsertPayee,
    kInsertPayeeWord,
    kCountWord,
    kLookUpFitid,
    kLookUpFields,
    kList,
    kFiled,
    kWordCount,
    kTransactionCount,
    kFiledCount,
    kStatementCount
};

constexpr std::array<std::string_view, kStatementCount> kSql = {
    "INSERT INTO runs(account, converted_at) VALUES(?1, ?2)",
    "INSERT INTO transactions(run, account, date, amount, number, description, category,"
    " instruction, fitid) VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)",
    "INSERT INTO payees(words, category, description, count, last_at) VALUES(?1, ?2, ?3, ?4, ?5)"
    " ON CONFLICT(words, category) DO UPDATE SET count = count + excluded.count,"
    " description = excluded.description, last_at = excluded.last_at RETURNING id",
    "INSERT OR IGNORE INTO payee_words(word, payee) VALUES(?1, ?2)",
    "INSERT INTO word_counts(word, n) VALUES(?1, ?2)"
    " ON CONFLICT(word) DO UPDATE SET n = n + excluded.n",
    // The last condition lets the partial index on ids serve the lookup.
    "SELECT MAX(c), MIN(at) FROM (SELECT COUNT(*) AS c, MIN(r.converted_at) AS at"
    " FROM transactions t JOIN runs r ON r.id = t.run"
    " WHERE t.account = ?1 AND t.fitid = ?2 AND t.fitid <> '' GROUP BY t.run)",
    // Without an id of its own, a transaction matches any earlier one of the same fields, ids
    // or not: the same statement may have come once as OFX and once as QIF.
    "SELECT MAX(c), MIN(at) FROM (SELECT COUNT(*) AS c, MIN(r.converted_at) AS at"
    " FROM transactions t JOIN runs r ON r.id = t.run"
    " WHERE t.account = ?1 AND t.date = ?2 AND t.amount = ?3 AND t.description = ?4"
    " AND t.number = ?5 GROUP BY t.run)",
    "SELECT t.date, t.amount, t.number, t.description, t.category, t.instruction, t.fitid,"
    " r.converted_at FROM transactions t JOIN runs r ON r.id = t.run WHERE t.account = ?1"
    " ORDER BY t.id",
    "SELECT p.description, p.category, p.last_at FROM payee_words w"
    " JOIN payees p ON p.id = w.payee WHERE w.word = ?1 ORDER BY p.last_at DESC LIMIT ?2",
    "SELECT n FROM word_counts WHERE word = ?1",
    "SELECT COUNT(*) FROM transactions",
    "SELECT COALESCE(SUM(count), 0) FROM payees",
};

void bindText(sqlite3_stmt* s, int at, std::string_view text) {
    sqlite3_bind_text(s, at, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

std::string column(sqlite3_stmt* s, int at) {
    const unsigned char* text = sqlite3_column_text(s, at);
    return text ? std::string(reinterpret_cast<const char*>(text),
                              static_cast<std::size_t>(sqlite3_column_bytes(s, at)))
                : std::string();
}

// Runs a prepared statement to its end and makes it ready for the next use.
bool finish(sqlite3_stmt* s) {
    int rc = sqlite3_step(s);
    sqlite3_reset(s);
    sqlite3_clear_bindings(s);
    return rc == SQLITE_DONE || rc == SQLITE_ROW;
}

} // namespace

HistoryDatabase::HistoryDatabase() = default;
HistoryDatabase::~HistoryDatabase() {
    close();
}

int HistoryDatabase::schemaVersion() {
    return static_cast<int>(kSteps.size());
}

void HistoryDatabase::close() {
    for (sqlite3_stmt* s : statements_)
        sqlite3_finalize(s);
    statements_.clear();
    if (db_)
        sqlite3_close(db_);
    db_ = nullptr;
}

bool HistoryDatabase::execute(std::string_view sql) {
    return sqlite3_exec(db_, std::string(sql).c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

int HistoryDatabase::userVersion() {
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v2(db_, "PRAGMA user_version", -1, &s, nullptr) != SQLITE_OK)
        return -1;
    int version = sqlite3_step(s) == SQLITE_ROW ? sqlite3_column_int(s, 0) : -1;
    sqlite3_finalize(s);
    return version;
}

HistoryDatabase::Opened HistoryDatabase::open(const std::filesystem::path& file) {
    close();
    if (sqlite3_open_v2(file.c_str(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) !=
        SQLITE_OK) {
        close();
        return Opened::unwritable;
    }
    sqlite3_busy_timeout(db_, 2000);
    // SQLite opens a file it may not write read-only without a word: that is no history.
    if (sqlite3_db_readonly(db_, "main") == 1) {
        close();
        return Opened::unwritable;
    }
    // A file that is not a database fails its first read; one we may not write, its first write.
    int version = userVersion();
    if (version < 0 || version > schemaVersion() ||
        !execute("PRAGMA journal_mode=WAL; PRAGMA foreign_keys=ON; PRAGMA synchronous=NORMAL;"
                 " PRAGMA cache_size=-16384; PRAGMA temp_store=MEMORY;")) {
        int code = sqlite3_errcode(db_);
        close();
        return code == SQLITE_READONLY || code == SQLITE_CANTOPEN || code == SQLITE_PERM
                   ? Opened::unwritable
                   : Opened::damaged;
    }
    if (!migrate()) {
        int code = sqlite3_errcode(db_);
        close();
        return code == SQLITE_READONLY ? Opened::unwritable : Opened::damaged;
    }
    if (!prepareAll()) {
        close();
        return Opened::damaged;
    }
    return Opened::ok;
}

// Once the schema is current; a second call finds them made.
bool HistoryDatabase::prepareAll() {
    if (!statements_.empty())
        return true;
    statements_.assign(kStatementCount, nullptr);
    for (int i = 0; i < kStatementCount; ++i)
        if (sqlite3_prepare_v2(db_, kSql[i].data(), static_cast<int>(kSql[i].size()),
                               &statements_[i], nullptr) != SQLITE_OK)
            return false;
    return true;
}

bool HistoryDatabase::migrate() {
    int from = userVersion();
    if (from == schemaVersion())
        return true;
    if (!execute("BEGIN IMMEDIATE"))
        return false;
    bool ok = true;
    for (int step = from; ok && step < schemaVersion(); ++step)
        ok = execute(kSteps[static_cast<std::size_t>(step)]);
    // Rows written before descriptions were split into words get their words now.
    if (ok && from >= 1 && from < 2)
        ok = prepareAll() && rebuildPayees();
    ok = ok && execute("PRAGMA user_version = " + std::to_string(schemaVersion()));
    if (ok && execute("COMMIT"))
        return true;
    execute("ROLLBACK");
    return false;
}

sqlite3_stmt* HistoryDatabase::prepared(int which) {
    return statements_[which];
}

bool HistoryDatabase::writeTally(const PayeeTally& tally) {
    for (const auto& [key, p] : tally.payees()) {
        sqlite3_stmt* s = prepared(kUpsertPayee);
        bindText(s, 1, key.first);
        bindText(s, 2, key.second);
        bindText(s, 3, p.description);
        sqlite3_bind_int64(s, 4, p.count);
        sqlite3_bind_int64(s, 5, p.lastAt);
        if (sqlite3_step(s) != SQLITE_ROW) {
            finish(s);
            return false;
        }
        std::int64_t id = sqlite3_column_int64(s, 0);
        finish(s);
        if (!addPayeeWords(id, key.first))
            return false;
    }
    for (const auto& [word, n] : tally.words()) {
        sqlite3_stmt* c = prepared(kCountWord);
        bindText(c, 1, word);
        sqlite3_bind_int64(c, 2, n);
        if (!finish(c))
            return false;
    }
    return true;
}

bool HistoryDatabase::addPayeeWords(std::int64_t payee, std::string_view words) {
    for (std::size_t at = 0; at < words.size();) {
        std::size_t end = std::min(words.find(' ', at), words.size());
        sqlite3_stmt* s = prepared(kInsertPayeeWord);
        bindText(s, 1, words.substr(at, end - at));
        sqlite3_bind_int64(s, 2, payee);
        if (!finish(s))
            return false;
        at = end + 1;
    }
    return true;
}

// Payees and word counts made again from every transaction kept: after the migration that
// brought them in, and after an account's transactions were forgotten.
bool HistoryDatabase::rebuildPayees() {
    if (!execute("DELETE FROM payee_words; DELETE FROM payees; DELETE FROM word_counts;"))
        return false;
    sqlite3_stmt* rows = nullptr;
    if (sqlite3_prepare_v2(db_,
                           "SELECT t.description, t.category, r.converted_at FROM transactions t"
                           " JOIN runs r ON r.id = t.run",
                           -1, &rows, nullptr) != SQLITE_OK)
        return false;
    PayeeTally tally;
    while (sqlite3_step(rows) == SQLITE_ROW)
        tally.add(column(rows, 0), column(rows, 1), sqlite3_column_int64(rows, 2));
    sqlite3_finalize(rows);
    return writeTally(tally);
}

bool HistoryDatabase::insertEntry(std::int64_t run, std::string_view account,
                                  const HistoryEntry& e) {
    sqlite3_stmt* s = prepared(kInsertTransaction);
    sqlite3_bind_int64(s, 1, run);
    bindText(s, 2, account);
    bindText(s, 3, e.key.date);
    bindText(s, 4, e.key.amount);
    bindText(s, 5, e.key.number);
    bindText(s, 6, e.key.description);
    bindText(s, 7, e.category);
    bindText(s, 8, e.instruction);
    bindText(s, 9, e.key.fitid);
    return finish(s);
}

bool HistoryDatabase::recordRun(std::string_view account, std::int64_t convertedAt,
                                const std::vector<HistoryEntry>& entries) {
    if (!db_ || !execute("BEGIN IMMEDIATE"))
        return false;
    sqlite3_stmt* s = prepared(kInsertRun);
    bindText(s, 1, account);
    sqlite3_bind_int64(s, 2, convertedAt);
    bool ok = finish(s);
    std::int64_t run = sqlite3_last_insert_rowid(db_);
    PayeeTally tally;
    for (std::size_t i = 0; ok && i < entries.size(); ++i) {
        ok = insertEntry(run, account, entries[i]);
        tally.add(entries[i].key.description, entries[i].category, convertedAt);
    }
    ok = ok && writeTally(tally);
    if (ok && execute("COMMIT"))
        return true;
    execute("ROLLBACK");
    return false;
}

KnownKey HistoryDatabase::lookUp(std::string_view account, const TransactionKey& key) {
    if (!db_)
        return {};
    bool byId = !key.fitid.empty();
    sqlite3_stmt* s = prepared(byId ? kLookUpFitid : kLookUpFields);
    bindText(s, 1, account);
    if (byId) {
        bindText(s, 2, key.fitid);
    } else {
        bindText(s, 2, key.date);
        bindText(s, 3, key.amount);
        bindText(s, 4, key.description);
        bindText(s, 5, key.number);
    }
    KnownKey known;
    if (sqlite3_step(s) == SQLITE_ROW) {
        known.count = sqlite3_column_int64(s, 0);
        known.firstConvertedAt = sqlite3_column_int64(s, 1);
    }
    finish(s);
    return known;
}

std::vector<ListedEntry> HistoryDatabase::list(std::string_view account) {
    std::vector<ListedEntry> out;
    if (!db_)
        return out;
    sqlite3_stmt* s = prepared(kList);
    bindText(s, 1, account);
    while (sqlite3_step(s) == SQLITE_ROW) {
        ListedEntry l;
        l.entry.key = {column(s, 0), column(s, 1), column(s, 2), column(s, 3), column(s, 6)};
        l.entry.category = column(s, 4);
        l.entry.instruction = column(s, 5);
        l.convertedAt = sqlite3_column_int64(s, 7);
        out.push_back(std::move(l));
    }
    finish(s);
    return out;
}

bool HistoryDatabase::executeFor(std::string_view sql, std::string_view account) {
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v2(db_, sql.data(), static_cast<int>(sql.size()), &s, nullptr) != SQLITE_OK)
        return false;
    bindText(s, 1, account);
    bool ok = sqlite3_step(s) == SQLITE_DONE;
    sqlite3_finalize(s);
    return ok;
}

std::int64_t HistoryDatabase::forget(std::string_view account) {
    if (!db_ || !execute("BEGIN IMMEDIATE"))
        return -1;
    std::int64_t before = transactionCount();
    bool ok = executeFor("DELETE FROM transactions WHERE account = ?1", account) &&
              executeFor("DELETE FROM runs WHERE account = ?1", account) && rebuildPayees();
    std::int64_t forgotten = before - transactionCount();
    if (ok && execute("COMMIT"))
        return forgotten;
    execute("ROLLBACK");
    return -1;
}

std::vector<HistoryDatabase::Filed>
HistoryDatabase::filedUnder(const std::vector<std::string>& words, std::size_t limit) {
    std::vector<Filed> out;
    if (!db_)
        return out;
    sqlite3_stmt* s = prepared(kFiled);
    for (const std::string& word : words) {
        bindText(s, 1, word);
        sqlite3_bind_int64(s, 2, static_cast<std::int64_t>(limit));
        while (sqlite3_step(s) == SQLITE_ROW)
            out.push_back({column(s, 0), column(s, 1), sqlite3_column_int64(s, 2)});
        finish(s);
    }
    return out;
}

std::int64_t HistoryDatabase::wordCount(std::string_view word) {
    if (!db_)
        return 0;
    sqlite3_stmt* s = prepared(kWordCount);
    bindText(s, 1, word);
    std::int64_t n = sqlite3_step(s) == SQLITE_ROW ? sqlite3_column_int64(s, 0) : 0;
    finish(s);
    return n;
}

std::int64_t HistoryDatabase::filedCount() {
    if (!db_)
        return 0;
    sqlite3_stmt* s = prepared(kFiledCount);
    std::int64_t n = sqlite3_step(s) == SQLITE_ROW ? sqlite3_column_int64(s, 0) : 0;
    finish(s);
    return n;
}

std::int64_t HistoryDatabase::transactionCount() {
    if (!db_)
        return 0;
    sqlite3_stmt* s = prepared(kTransactionCount);
    std::int64_t n = sqlite3_step(s) == SQLITE_ROW ? sqlite3_column_int64(s, 0) : 0;
    finish(s);
    return n;
}

} // namespace tavvel
