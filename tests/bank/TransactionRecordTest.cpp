#include "bank/TransactionRecord.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace tavvel {
namespace {

// A record as a continuation file holds it: every field, the walk's marks in the types the
// file gives them, and a key no field stands for.
Dictionary storedRecord() {
    Array splits{Value(
        Dictionary{{"category", Value("Food")}, {"memo", Value("")}, {"amount", Value("-2")}})};
    return Dictionary{{"date", Value("1/31/2024")},
                      {"number", Value("1041")},
                      {"description", Value("CORNER GROCERY")},
                      {"memo", Value("")},
                      {"cleared", Value("X")},
                      {"amount", Value("-2")},
                      {"trntype", Value("DEBIT")},
                      {"splits", Value(splits)},
                      {"outputLength", Value(std::int64_t{-1})},
                      {"AlreadySwapped", Value(false)},
                      {"amountAlreadyConverted", Value(false)},
                      {"userSplits", Value(false)},
                      {"kept by an older version", Value(std::int64_t{7})}};
}

TEST(TransactionRecord, StoredFormComesBackAsItWasRead) {
    const Dictionary stored = storedRecord();
    TransactionRecord record = TransactionRecord::fromDictionary(stored);
    EXPECT_EQ(record.toDictionary(), stored);
    auto original = std::make_unique<TransactionRecord>(TransactionRecord::fromDictionary(stored));
    TransactionRecord copied = original->copy();
    original.reset();
    EXPECT_EQ(copied.toDictionary(), stored);
    // A mark present with a false value still counts as present, as it always has.
    EXPECT_TRUE(record.alreadySwapped());
    EXPECT_TRUE(record.userSplits());
    EXPECT_FALSE(record.amountConverted());
    EXPECT_FALSE(record.has(TxField::category));
    EXPECT_TRUE(record.has(TxField::memo));

    record.markAmountConverted();
    record.setUserSplits(false);
    record.erase(TxField::trntype);
    Dictionary changed = stored;
    changed["amountAlreadyConverted"] = Value(true);
    changed.erase("userSplits");
    changed.erase("trntype");
    EXPECT_EQ(record.toDictionary(), changed);
}

TEST(TransactionRecord, TextsFollowTheRecordWhereverItIsMoved) {
    const std::string statement = "PCORNER GROCERY";
    std::vector<TransactionRecord> records;
    for (int i = 0; i < 100; ++i) {
        TransactionRecord record;
        record.point(TxField::description, std::string_view(statement).substr(1));
        record.set(TxField::amount, std::to_string(i) + ".00 and a text too long to be short");
        record.set(TxField::memo, "m");
        record.point(TxField::memo, record.text(TxField::amount)); // as a swap does
        records.push_back(std::move(record));
    }
    for (int i = 0; i < 100; ++i) {
        std::string amount = std::to_string(i) + ".00 and a text too long to be short";
        EXPECT_EQ(records[i].text(TxField::amount), amount);
        EXPECT_EQ(records[i].text(TxField::memo), amount);
        EXPECT_EQ(records[i].text(TxField::description).data(), statement.data() + 1);
    }
    TransactionRecord copied = records[5].copy();
    records.clear();
    EXPECT_EQ(copied.text(TxField::memo), "5.00 and a text too long to be short");
}

} // namespace
} // namespace tavvel
