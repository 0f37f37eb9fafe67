#pragma once
// One run's view of the history: which of the statement's transactions were written before,
// and what the run writes, kept by the transaction's place in the statement until the output
// file is written.

#include "history/HistoryRecords.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace tavvel {

class HistoryDatabase;

class RunDuplicates {
public:
    // Without a database (or with detection off) nothing is ever a duplicate.
    RunDuplicates(HistoryDatabase* db, std::string account)
        : db_(db), account_(std::move(account)) {}

    // In statement order, once each. Equal transactions within the statement are told apart
    // by how many came before: the third equal coffee of a day is a duplicate only when an
    // earlier run wrote three.
    void mark(std::size_t index, TransactionKey key);
    // When the transaction was first written, for one marked a duplicate.
    std::optional<std::int64_t> duplicateOn(std::size_t index) const;
    std::size_t marked() const { return marked_; }
    std::size_t duplicates() const { return duplicateAt_.size(); }
    // The earliest conversion among the duplicates.
    std::int64_t firstConvertedAt() const;
    // Every transaction is to be written whatever the history says.
    void convertAllAgain() {
        duplicateAt_.clear();
        allAgain_ = true;
    }
    bool convertsAllAgain() const { return allAgain_; }
    // None of the duplicates is to be written: all count as left out.
    void leaveAllOut();

    // The walk reports each transaction it wrote or left out (a transaction walked again after
    // Back is reported again). A duplicate left out is counted.
    void written(std::size_t index, std::string category, std::string instruction);
    void leftOut(std::size_t index);
    std::size_t duplicatesLeftOut() const;

    // What the run wrote, in statement order; and (category and instruction only) by place in
    // the statement, for a run left for later to take along.
    std::vector<HistoryEntry> entries() const;
    std::map<std::size_t, HistoryEntry> writtenSoFar() const;

private:
    enum class Outcome : unsigned char { notYet, written, leftOut };
    struct Walked {
        Outcome outcome = Outcome::notYet;
        std::string category, instruction;
    };
    Walked& walkedAt(std::size_t index);

    HistoryDatabase* db_;
    std::string account_;
    std::vector<TransactionKey> keys_;                   // by place in the statement
    std::vector<Walked> walked_;                         // likewise
    std::unordered_map<std::string, std::int64_t> seen_; // equal known keys met so far
    std::unordered_map<std::size_t, std::int64_t> duplicateAt_;
    bool allAgain_ = false;
    std::size_t marked_ = 0;
};

} // namespace tavvel
