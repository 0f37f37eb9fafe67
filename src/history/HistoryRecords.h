#pragma once
// What the conversion history keeps of one written transaction, and what a duplicate is
// looked up by. Plain values, so that every reader and front end can fill them in.

#include <cstdint>
#include <string>

namespace tavvel {

// The fields that say two transactions are the same one: the statement's own id (an OFX
// FITID) when it has one, else date, amount, number and description as read.
struct TransactionKey {
    std::string date;
    std::string amount;
    std::string number;
    std::string description;
    std::string fitid;
};

struct HistoryEntry {
    TransactionKey key;
    std::string category;
    std::string instruction; // the description match of the instruction used, if any
};

// An entry as listed back: the account and when it was converted, in seconds since 1970.
struct ListedEntry {
    HistoryEntry entry;
    std::int64_t convertedAt = 0;
};

// What the history knows of a key: how many equal transactions one earlier run wrote at most,
// and when the first of them was converted.
struct KnownKey {
    std::int64_t count = 0;
    std::int64_t firstConvertedAt = 0;
};

} // namespace tavvel
