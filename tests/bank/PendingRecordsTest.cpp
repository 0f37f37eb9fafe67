// Records kept packed until the walk takes them.

#include "bank/PendingRecords.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

TEST(PendingRecords, TakenRecordsHoldExactlyTheTextsAddedInAnyOrder) {
    const std::string longDescription(300, 'x'); // a length that takes more than one byte
    PendingRecords pending;
    pending.add({"1/2/2024", std::nullopt, "ACME", std::nullopt, std::nullopt, "-5.00"});
    pending.add({"1/3/2024", "", longDescription, "memo", "Food:Out", "2.00"});
    pending.add({"1/4/2024", std::nullopt, std::nullopt, std::nullopt, std::nullopt, "0.00"});
    ASSERT_EQ(pending.size(), 3u);

    Dictionary second = pending.take(1);
    EXPECT_EQ(second, (Dictionary{{"date", Value("1/3/2024")},
                                  {"number", Value("")}, // present though empty
                                  {"description", Value(longDescription)},
                                  {"memo", Value("memo")},
                                  {"category", Value("Food:Out")},
                                  {"amount", Value("2.00")}}));
    EXPECT_FALSE(pending.pending(1));
    EXPECT_TRUE(pending.pending(0));

    EXPECT_EQ(pending.take(2),
              (Dictionary{{"date", Value("1/4/2024")}, {"amount", Value("0.00")}}));
    EXPECT_EQ(pending.take(0), PendingRecords::recordOf({"1/2/2024", std::nullopt, "ACME",
                                                         std::nullopt, std::nullopt, "-5.00"}));
    EXPECT_FALSE(pending.pending(0));
    EXPECT_FALSE(pending.pending(3)); // never added

    pending.clear();
    EXPECT_EQ(pending.size(), 0u);
    EXPECT_FALSE(pending.pending(1));
}

// Records built in the entries of walked ones hold exactly their own texts, whatever those
// entries held before: longer or shorter texts, numbers, flags, keys a record lacks.
TEST(PendingRecords, RecycledEntriesCarryNothingOver) {
    PendingRecords pending;
    pending.add({"1/2/2024", "1001", std::string(40, 'd'), "a memo", "Food", "-5.00"});
    pending.add({"1/3/2024", std::nullopt, "B", std::nullopt, std::nullopt, "2.00"});
    pending.add({"1/4/2024", "7", "C", "m", "Cat", "3.00"});

    Dictionary first = pending.take(0);
    first.insert_or_assign("outputLength", Value(std::int64_t{42}));
    first.insert_or_assign("amountAlreadyConverted", Value(true));
    first.insert_or_assign("amount", Value(1.5));
    pending.recycle(first);
    EXPECT_TRUE(first.empty());

    Dictionary second = pending.take(1);
    EXPECT_EQ(second, (Dictionary{{"date", Value("1/3/2024")},
                                  {"description", Value("B")},
                                  {"amount", Value("2.00")}}));
    pending.recycle(second);
    EXPECT_EQ(pending.take(2),
              PendingRecords::recordOf({"1/4/2024", "7", "C", "m", "Cat", "3.00"}));
}

} // namespace
} // namespace tavvel
