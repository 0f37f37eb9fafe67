#include "bank/BankingCreditCardQIF.h"
#include "bank/QifDates.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "support/StoredRecords.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

struct QifReading : ::testing::Test {
    test::TestContext t;
    BankingCreditCardQIF reader{t.ctx};
    std::vector<std::string> lines; // the records point into them
    std::size_t read(std::vector<std::string> register_, Date from = kDistantPast,
                     Date to = kDistantFuture) {
        lines = std::move(register_);
        return reader.fromQIFLines(lines, from, to);
    }
};

TEST_F(QifReading, FieldsSplitsAndRecordEnds) {
    ASSERT_EQ(read({"D1/31/2024", "PCORNER GROCERY", "T1,234.56", "N1041", "MWeekly", "LFood", "CX",
                    "^", "D2/1/2024", "PSPLIT", "T-5", "LIgnored", "SFood", "$-2", "SGifts",
                    "EFor Ann", "$-3", "$-1", "^"}),
              0u);
    ASSERT_EQ(test::stored(reader).size(), 2u);
    EXPECT_EQ(reader.records().size(), 2u);
    const Dictionary first = test::stored(reader)[0];
    EXPECT_EQ(textOf(first, "date"), "1/31/2024");
    EXPECT_EQ(textOf(first, "amount"), "1,234.56");
    EXPECT_EQ(textOf(first, "number"), "1041");
    EXPECT_EQ(textOf(first, "cleared"), "X");
    const Dictionary second = test::stored(reader)[1];
    EXPECT_FALSE(has(second, "category")); // splits replace the category
    const Array& splits = second.at("splits").array();
    ASSERT_EQ(splits.size(), 3u);
    EXPECT_EQ(
        splits[0].dictionary(),
        (Dictionary{{"category", Value("Food")}, {"memo", Value("")}, {"amount", Value("-2")}}));
    EXPECT_EQ(textOf(splits[2].dictionary(), "category"), "Gifts"); // a repeated $ keeps its S
    EXPECT_EQ(textOf(splits[2].dictionary(), "memo"), "For Ann");
}

TEST_F(QifReading, EuropeanAmountsOnTLinesOnly) {
    read({"D1/2/2024", "T1.234,56", "SX", "$1.234,56", "^"});
    EXPECT_EQ(textOf(test::stored(reader)[0], "amount"), "1,234.56");
    EXPECT_EQ(textOf(test::stored(reader)[0].at("splits").array()[0].dictionary(), "amount"),
              "1.234,56");
}

TEST_F(QifReading, WithoutCaretsEmptyLinesEndRecords) {
    read({"D1/2/2024", "PA", "T1", "", "D1/3/2024", "PB", "T2", "", "D1/4/2024", "PC", "T3"});
    ASSERT_EQ(test::stored(reader).size(), 2u); // the last group has no blank line after it
    EXPECT_EQ(textOf(test::stored(reader)[1], "description"), "B");

    read({"D1/2/2024", "", "PA", "T1", "^", "  indented", "$5", "^"});
    ASSERT_EQ(test::stored(reader).size(), 1u); // with carets, empty lines are nothing
    EXPECT_EQ(textOf(test::stored(reader)[0], "description"), "A");
    EXPECT_FALSE(has(test::stored(reader)[0], "splits"));
}

TEST_F(QifReading, OutOfRangeRecordsCarryTheirEarlyFieldsOver) {
    Date from = localMidnight(2024, 1, 2), to = localMidnight(2024, 1, 3);
    read({"D1/1/2024", "PTOO EARLY", "T9", "^", // out of range: dropped
          "D1/2/2024", "PFIRST DAY", "T1", "^", // inclusive start
          "T7", "D1/1/2024", "PEARLY", "^",     // out of range; its T before D carries over
          "D1/3/2024", "PLAST DAY", "^"},       // inclusive end, takes T7
         from, to);
    ASSERT_EQ(test::stored(reader).size(), 2u);
    EXPECT_EQ(textOf(test::stored(reader)[0], "description"), "FIRST DAY");
    EXPECT_EQ(textOf(test::stored(reader)[0], "amount"), "1");
    EXPECT_EQ(textOf(test::stored(reader)[1], "description"), "LAST DAY");
    EXPECT_EQ(textOf(test::stored(reader)[1], "amount"), "7");
}

TEST_F(QifReading, UnreadableDateGivesItsLineNumber) {
    EXPECT_EQ(read({"D1/2/2024", "T1", "^", "Dgarbage", "T2", "^"}), 4u);
    EXPECT_EQ(test::stored(reader).size(), 1u);
    // An account block's D line is its description.
    EXPECT_EQ(read({"!Account", "NSavings", "DMy savings", "TBank", "^", "D1/2/2024", "T2", "^"}),
              0u);
    ASSERT_EQ(test::stored(reader).size(), 1u);
    EXPECT_EQ(textOf(test::stored(reader)[0], "amount"), "2");
    EXPECT_EQ(read({}), 0u);
    EXPECT_TRUE(test::stored(reader).empty());
}

TEST_F(QifReading, DayFirstDatesWhenSet) {
    addOption(t.ctx.prefs, option::europeanDates);
    read({"D3/4/2024", "T1", "^"});
    EXPECT_EQ(textOf(test::stored(reader)[0], "date"), "4/3/2024");
}

TEST_F(QifReading, DatesInTheOrderTheFileShowsAndNeverRolledOver) {
    // The setting gives way to a file that shows its order, in either direction.
    addOption(t.ctx.prefs, option::europeanDates);
    EXPECT_EQ(read({"D3/4/2024", "T1", "^", "D12/31/2024", "T2", "^"}), 0u);
    EXPECT_EQ(textOf(test::stored(reader)[0], "date"), "3/4/2024");
    reader.setDayFirstDates(true); // the run's decision stands over the file's evidence
    EXPECT_EQ(read({"D3/4/2024", "T1", "^", "D12/31/2024", "T2", "^"}), 4u);
    reader.setDayFirstDates(false);
    EXPECT_EQ(read({"D2/30/2024", "T1", "^"}), 1u);
    EXPECT_EQ(read({"D0/1/2024", "T1", "^"}), 1u);
    // Year first stays year, month, day in a day-first file; a month word gives its month.
    reader.setDayFirstDates(true);
    EXPECT_EQ(read({"D2024-01-31", "T1", "^", "DMarch 5, 2024", "T2", "^", "D31/1/24", "T3", "^"}),
              0u);
    EXPECT_EQ(textOf(test::stored(reader)[0], "date"), "1/31/2024");
    EXPECT_EQ(textOf(test::stored(reader)[1], "date"), "3/5/2024");
    EXPECT_EQ(textOf(test::stored(reader)[2], "date"), "1/31/2024");
}

TEST(QifDates, EvidenceOfTheDLines) {
    auto evidence = [](std::vector<std::string> lines) {
        test::TestContext t;
        std::vector<std::string_view> views(lines.begin(), lines.end());
        QifDateEvidence e = qifDateEvidence(views, t.ctx.config, t.ctx.clock);
        return std::tuple{e.dayFirst, e.monthFirst, e.eitherWay};
    };
    EXPECT_EQ(evidence({"D01/01/10", "PX", "D29/12/10"}), std::tuple(true, false, false));
    EXPECT_EQ(evidence({"D12/31/2024", "D1/2'24"}), std::tuple(false, true, true));
    EXPECT_EQ(evidence({"D2024-12-31", "D7/7/24", "DJune 13, 2024", "T13/1"}),
              std::tuple(false, false, false));
    EXPECT_EQ(evidence({"D13/1/24", "D1/13/24"}), std::tuple(true, true, false));
}

} // namespace
} // namespace tavvel
