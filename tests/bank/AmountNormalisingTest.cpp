#include "bank/BankingCreditCardQIF.h"
#include "bank/QifInputTypes.h"
#include "prefs/Settings.h"
#include "support/StoredRecords.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

std::string normalised(BankingCreditCardQIF& reader, std::string amount) {
    Dictionary record{{"amount", Value(std::move(amount))}};
    return reader.normalizeQIFAmountIn(record).value_or("<none>");
}

TEST(AmountNormalising, SignsParenthesesAndConfiguredCharacters) {
    Context ctx(Configuration(), Clock::system(), Places{});
    BankingCreditCardQIF reader(ctx);
    EXPECT_EQ(normalised(reader, "(12.50)"), "-12.50)");
    EXPECT_EQ(normalised(reader, "12.50-"), "-12.50");
    EXPECT_EQ(normalised(reader, "1-2-3"), "-12-3"); // only the first minus moves
    EXPECT_EQ(normalised(reader, "-4"), "-4");

    Context removing(Configuration(Dictionary{{"TvRemoveFromAmounts", Value("$)\xA3")}}),
                     Clock::system(), Places{});
    BankingCreditCardQIF reader2(removing);
    EXPECT_EQ(normalised(reader2, "($12.50)"), "-12.50");
    EXPECT_EQ(normalised(reader2, "\xA3"
                                  "3"),
              "3");

    Dictionary none;
    EXPECT_FALSE(reader.normalizeQIFAmountIn(none));
}

TEST(AmountNormalising, EuropeanOutputReverseSignsAndOnlyOnce) {
    Context ctx(Configuration(), Clock::system(), Places{});
    addOption(ctx.prefs, option::outputEuropeanAmounts);
    BankingCreditCardQIF reader(ctx);
    EXPECT_EQ(normalised(reader, "1,234.50"), "1234,50");

    reader.setQifInputType(qifInputTypeTag(3)); // Swap and Reverse Signs
    Dictionary record{{"amount", Value("-1,000.00")}};
    EXPECT_EQ(reader.normalizeQIFAmountIn(record), "1000,00");
    EXPECT_EQ(reader.normalizeQIFAmountIn(record), "1000,00"); // a second call changes nothing
    EXPECT_EQ(record.at("amountAlreadyConverted"), Value(true));
    EXPECT_EQ(normalised(reader, "5"), "-5");
}

TEST(AmountNormalising, FirstSplitWithoutAmountTakesTheTransactions) {
    Context ctx(Configuration(), Clock::system(), Places{});
    BankingCreditCardQIF reader(ctx);
    reader.start(test::recordsFrom({Dictionary{{"amount", Value("(63.45)")}}}));
    Array splits{
        Value(Dictionary{{"category", Value("A")}, {"memo", Value("")}, {"amount", Value("")}}),
        Value(Dictionary{{"category", Value("B")}, {"memo", Value("")}, {"amount", Value("")}}),
        Value(Dictionary{{"category", Value("C")}, {"memo", Value("m")}, {"amount", Value("2-")}})};
    reader.processSplits(&splits);
    ASSERT_TRUE(reader.splits());
    ASSERT_EQ(reader.splits()->size(), 3u);
    EXPECT_EQ(textOf((*reader.splits())[0].dictionary(), "amount"), "-63.45)");
    EXPECT_EQ(textOf((*reader.splits())[1].dictionary(), "amount"), ""); // only the first
    EXPECT_EQ(textOf((*reader.splits())[2].dictionary(), "amount"), "-2");
    EXPECT_EQ(textOf(splits[0].dictionary(), "amount"), ""); // the input is not changed
    reader.processSplits(nullptr);
    EXPECT_FALSE(reader.splits());
}

} // namespace
} // namespace tavvel
