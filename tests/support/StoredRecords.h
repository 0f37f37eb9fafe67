#pragma once
// The walk's records in their stored form, and records made from that form: tests state and
// compare whole records as dictionaries.

#include "bank/BankingCreditCardQIF.h"

#include <vector>

namespace tavvel::test {

inline std::vector<Dictionary> stored(const BankingCreditCardQIF& reader) {
    std::vector<Dictionary> all;
    for (const TransactionRecord& record : reader.records())
        all.push_back(record.toDictionary());
    return all;
}

inline std::vector<TransactionRecord> recordsFrom(const std::vector<Dictionary>& list) {
    std::vector<TransactionRecord> records;
    for (const Dictionary& record : list)
        records.push_back(TransactionRecord::fromDictionary(record));
    return records;
}

} // namespace tavvel::test
