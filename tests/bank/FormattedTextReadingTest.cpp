// Reading free text through an input format into bank and credit-card records.

#include "bank/BankingCreditCardQIF.h"
#include "dialogs/RunHelpers.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "support/ScriptedDialogs.h"
#include "support/StoredRecords.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

const std::string kNoDate = "The following transaction does not contain a date that can be "
                            "interpreted; it cannot be processed: ";

// One transaction a line: date, then the columns given, comma-separated.
Dictionary csvFormat(std::initializer_list<std::pair<const std::string, Value>> columns) {
    Dictionary format{{"Name", Value("Test")},
                      {"Fields", Value("CSV")},
                      {"OneTransactionPerLine", Value(true)},
                      {"DateDelimiter", Value("/")},
                      {"DateStart", Value("\n")},
                      {"DateEnd", Value(",")}};
    for (const auto& [key, value] : columns)
        format.insert_or_assign(key, value);
    return format;
}

struct FormattedText : ::testing::Test {
    test::TestContext t;
    test::ScriptedDialogs dialogs;
    std::vector<Dictionary> stored;
    ErrorWarning warning{dialogs, [this](const Dictionary& f) { stored.push_back(f); }};
    BankingCreditCardQIF reader{t.ctx};

    bool read(const std::string& text, const Dictionary& format, Date from = kDistantPast,
              Date to = kDistantFuture) {
        return reader.fromFormattedText(text, format, from, to, warning);
    }

    // The amount of every record read from the lines (each prefixed with a date).
    std::vector<std::string> amounts(const Dictionary& format,
                                     const std::vector<std::string>& rows) {
        std::string text = "Date,...\n";
        for (const std::string& row : rows)
            text += "05/02/2024," + row + "\n";
        EXPECT_TRUE(read(text, format));
        std::vector<std::string> out;
        for (const Dictionary& record : test::stored(reader))
            out.push_back(textOf(record, "amount", "(none)"));
        return out;
    }
};

TEST_F(FormattedText, CreditAndDebitColumns) {
    const Dictionary format = csvFormat({{"Credit", Value(1)}, {"Debit", Value(2)}});
    EXPECT_EQ(amounts(format, {"0.00,12.50", "5.00,12.50", ",-12.50", "-3.00,", "(7.25),"}),
              (std::vector<std::string>{"-12.50", "5.00", "-12.50", "-3.00", "-7.25"}));
    // The Debit column standing first changes nothing: a credit still wins.
    const Dictionary debitFirst = csvFormat({{"Debit", Value(1)}, {"Credit", Value(2)}});
    EXPECT_EQ(amounts(debitFirst, {"12.50,0.00", "12.50,5.00", "12.50,"}),
              (std::vector<std::string>{"-12.50", "5.00", "-12.50"}));
}

TEST_F(FormattedText, EuropeanAmountsAndMissingColumns) {
    const Dictionary format = csvFormat({{"Credit", Value(1)}, {"Debit", Value(3)}});
    // "1.234,56" read as European; a row too short for Debit leaves it out; a text that is
    // no amount reads as -1, and then the Debit column does not count.
    EXPECT_EQ(amounts(format, {"\"1.234,56\",x", "0,x", "x"}),
              (std::vector<std::string>{"1234.56", "0.00", "-1.00"}));
    // A Credit column beyond the fields counts as nothing.
    const Dictionary single = csvFormat({{"Credit", Value(5)}, {"Debit", Value(1)}});
    EXPECT_EQ(amounts(single, {"4.00"}), (std::vector<std::string>{"-4.00"}));
}

TEST_F(FormattedText, IndicatorColumns) {
    const Dictionary credit = csvFormat(
        {{"Debit/Credit", Value(1)}, {"Indicator", Value(2)}, {"CreditIndicator", Value("CR")}});
    EXPECT_EQ(amounts(credit, {"10.00,CR", "10.00,DR", "10.00,cr", "10.00"}),
              (std::vector<std::string>{"10.00", "-10.00", "-10.00", "10.00"}));
    const Dictionary debit = csvFormat(
        {{"Debit/Credit", Value(1)}, {"Indicator", Value(2)}, {"DebitIndicator", Value("DR")}});
    EXPECT_EQ(amounts(debit, {"10.00,CR", "10.00,DR", "10.00,Debit DR"}),
              (std::vector<std::string>{"10.00", "-10.00", "-10.00"}));
    // Without an Indicator column the texts change nothing.
    const Dictionary none =
        csvFormat({{"Debit/Credit", Value(1)}, {"DebitIndicator", Value("DR")}});
    EXPECT_EQ(amounts(none, {"10.00,DR"}), (std::vector<std::string>{"10.00"}));
}

TEST_F(FormattedText, InvertAmountReversesEverySign) {
    Dictionary columns =
        csvFormat({{"Credit", Value(1)}, {"Debit", Value(2)}, {"InvertAmount", Value(true)}});
    EXPECT_EQ(amounts(columns, {"0.00,12.50", "5.00,12.50", ",-12.50"}),
              (std::vector<std::string>{"12.50", "-5.00", "12.50"}));
    Dictionary indicator = csvFormat({{"Debit/Credit", Value(1)},
                                      {"Indicator", Value(2)},
                                      {"CreditIndicator", Value("CR")},
                                      {"InvertAmount", Value(false)}}); // present is enough
    EXPECT_EQ(amounts(indicator, {"10.00,CR", "10.00,DR"}),
              (std::vector<std::string>{"-10.00", "10.00"}));
}

TEST_F(FormattedText, AmountPrecisionSetting) {
    const Dictionary format = csvFormat({{"Credit", Value(1)}});
    t.ctx.prefs.setObject("bccAmountsPrecision", Value(3));
    EXPECT_EQ(amounts(format, {"12.5"}), (std::vector<std::string>{"12.500"}));
    t.ctx.prefs.setObject("bccAmountsPrecision", Value(0));
    EXPECT_EQ(amounts(format, {"12.25"}), (std::vector<std::string>{"12"}));
}

TEST_F(FormattedText, RecordTextsFromTheirColumns) {
    Dictionary format = csvFormat({{"Date", Value(1)},
                                   {"Check", Value(0)},
                                   {"Description", Value(2)},
                                   {"Memo", Value(3)},
                                   {"Category", Value(4)},
                                   {"Credit", Value(5)}});
    format.at("DateStart") = Value(",");
    ASSERT_TRUE(
        read("Ref,Date\n101,05/02/2024,SHOP,weekly,Food,-4.00\n102,05/03/2024,PAY", format));
    ASSERT_EQ(test::stored(reader).size(), 2u);
    EXPECT_EQ(test::stored(reader)[0], (Dictionary{{"date", Value("5/2/2024")},
                                                   {"number", Value("101")},
                                                   {"description", Value("SHOP")},
                                                   {"memo", Value("weekly")},
                                                   {"category", Value("Food")},
                                                   {"amount", Value("-4.00")}}));
    // Columns beyond the fields are left out; the amount is always there.
    EXPECT_EQ(test::stored(reader)[1], (Dictionary{{"date", Value("5/3/2024")},
                                                   {"number", Value("102")},
                                                   {"description", Value("PAY")},
                                                   {"amount", Value("0.00")}}));
    EXPECT_EQ(reader.currentTransactionIndex(), 0u);
    EXPECT_EQ(reader.records().size(), 2u);
}

TEST_F(FormattedText, UnreadableTransactionsAreShownWithSkipTransaction) {
    const Dictionary format = csvFormat({{"Credit", Value(1)}});
    const std::string text = "\n05/02/2024,1\n,2\n05/03/2024,\"3\n05/04/2024,4";
    dialogs.expectErrorWarning(kNoDate).expectErrorWarning(
        "The following transaction has invalid CSV format; it cannot be processed: ");
    ASSERT_TRUE(read(text, format));
    EXPECT_EQ(test::stored(reader).size(), 2u);
    ASSERT_EQ(dialogs.shown().size(), 2u);
    EXPECT_EQ(dialogs.shown()[0].text, ",2");
    EXPECT_EQ(dialogs.shown()[0].buttons.at(0), "Skip Transaction");
    EXPECT_EQ(dialogs.shown()[1].text, "05/03/2024,\"3");
    // Declining the skip fails the whole read.
    dialogs.expectErrorWarning(kNoDate, false);
    EXPECT_FALSE(read(text, format));
}

TEST_F(FormattedText, DateColumnBeyondTheFieldsIsReportedLikeAnUnreadableTransaction) {
    const Dictionary format = csvFormat({{"Date", Value(4)}, {"Credit", Value(1)}});
    dialogs.expectErrorWarning(kNoDate);
    ASSERT_TRUE(read("\n05/02/2024,1,2", format));
    EXPECT_TRUE(test::stored(reader).empty());
    EXPECT_EQ(dialogs.last().text, "05/02/2024,1,2");
}

TEST_F(FormattedText, WarningsSilencedForTheFormatOnly) {
    Dictionary format = csvFormat({{"Credit", Value(1)}});
    dialogs.expectErrorWarning(kNoDate, true, true);
    ASSERT_TRUE(read("\n05/02/2024,3\n,1\n,2", format));
    EXPECT_EQ(test::stored(reader).size(), 1u);
    EXPECT_EQ(dialogs.shown().size(), 1u); // the second is silent
    ASSERT_EQ(stored.size(), 1u);
    EXPECT_TRUE(find(stored[0], "dontWarn")->toBool());
    // Each read starts with the warning's memory cleared; the stored format stays silent.
    dialogs.expectErrorWarning(kNoDate);
    ASSERT_TRUE(read("\n05/02/2024,3\n,1", format));
    ASSERT_TRUE(read("\n05/02/2024,3\n,1", stored[0]));
    EXPECT_EQ(dialogs.shown().size(), 2u);
}

TEST_F(FormattedText, TextTheFormatDoesNotFitLeavesTheRecordsAlone) {
    const Dictionary format = csvFormat({{"Credit", Value(1)}});
    ASSERT_TRUE(read("\n05/02/2024,1", format));
    EXPECT_FALSE(read("no date at all", format));
    EXPECT_EQ(test::stored(reader).size(), 1u);
}

TEST_F(FormattedText, TextHasItsOwnConfirmAllSetting) {
    const Dictionary format = csvFormat({{"Credit", Value(1)}});
    addOption(t.ctx.prefs, option::confirmAllTransactions);
    ASSERT_TRUE(read("\n05/02/2024,1", format));
    EXPECT_FALSE(reader.mustConfirm());
    addOption(t.ctx.prefs, option::textConfirmAllTransactions);
    ASSERT_TRUE(read("\n05/02/2024,1", format));
    EXPECT_TRUE(reader.mustConfirm());
}

TEST_F(FormattedText, RangeLeavesTransactionsOut) {
    const Dictionary format = csvFormat({{"Credit", Value(1)}});
    ASSERT_TRUE(read("\n05/01/2024,1\n05/02/2024,2\n05/03/2024,3", format,
                     localMidnight(2024, 5, 2), localMidnight(2024, 5, 2)));
    ASSERT_EQ(test::stored(reader).size(), 1u);
    EXPECT_EQ(textOf(test::stored(reader)[0], "amount"), "2.00");
}

} // namespace
} // namespace tavvel
