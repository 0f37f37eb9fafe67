// Cutting statement text into transactions.

#include "formats/Extract.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

using Lines = std::vector<std::string>;

// Dates written M/D/Y after a line end and before a blank.
Dictionary slashDates(std::string_view start = "\n", std::string_view end = " ") {
    return Dictionary{
        {"DateDelimiter", Value("/")}, {"DateStart", Value(start)}, {"DateEnd", Value(end)}};
}

Dictionary onePerLine(Dictionary format) {
    format.insert_or_assign("OneTransactionPerLine", Value(true));
    return format;
}

Dictionary fromFirstLine(Dictionary format) {
    format.insert_or_assign("firstLineStartsWithTransactionDate", Value(true));
    return format;
}

struct ExtractSplit : ::testing::Test {
    test::TestContext t;
    Extract extract{t.ctx};

    Lines split(std::string_view text, const Dictionary& format) {
        extract.splitTextIntoLines(text, format);
        return Lines(extract.transactionsAsLines.begin(), extract.transactionsAsLines.end());
    }
};

TEST_F(ExtractSplit, MultiLineTransactionsRunFromOneDateToTheNext) {
    const std::string text = "Statement for May\n"
                             "05/02/2024 CORNER SHOP\n  card 1234\n"
                             "05/03/2024 PAYROLL\n";
    // The heading is left out; the line end before each later date belongs to neither.
    EXPECT_EQ(split(text, slashDates()),
              (Lines{"05/02/2024 CORNER SHOP\n  card 1234", "05/03/2024 PAYROLL\n"}));
    EXPECT_EQ(extract.dateLength, 10);
}

TEST_F(ExtractSplit, FirstLineStartsWithTransactionDate) {
    const std::string text = "05/02/2024 SHOP\n05/03/2024 PAY";
    // No line end stands before the first date, so without the flag it is not a date at all.
    EXPECT_EQ(split(text, slashDates()), (Lines{"05/03/2024 PAY"}));
    EXPECT_EQ(split(text, fromFirstLine(slashDates())),
              (Lines{"05/02/2024 SHOP", "05/03/2024 PAY"}));
    // The copy that begins with a line end gives the first date its line end.
    EXPECT_EQ(split("\n" + text, slashDates()), (Lines{"05/02/2024 SHOP", "05/03/2024 PAY"}));
    // With the flag, text before the first date opens the first transaction.
    EXPECT_EQ(split("Heading\n" + text, fromFirstLine(slashDates())),
              (Lines{"Heading", "05/02/2024 SHOP", "05/03/2024 PAY"}));
}

TEST_F(ExtractSplit, OneTransactionPerLine) {
    const Dictionary format = onePerLine(slashDates("\n", ","));
    const std::string text = "Date,Payee\n05/02/2024,A\n05/03/2024,B\n";
    // From the first date's line; nothing after the last line end.
    EXPECT_EQ(split(text, format), (Lines{"05/02/2024,A", "05/03/2024,B"}));
    EXPECT_EQ(split(text, fromFirstLine(format)),
              (Lines{"Date,Payee", "05/02/2024,A", "05/03/2024,B"}));
    EXPECT_EQ(split("Date,Payee\n05/02/2024,A\n05/03/2024,B", format),
              (Lines{"05/02/2024,A", "05/03/2024,B"}));
    // A date inside its line: the transaction still starts where the line does.
    EXPECT_EQ(
        split("Posted\nref 9 on 05/02/2024,A\r05/03/2024,B", onePerLine(slashDates(" ", ","))),
        (Lines{"ref 9 on 05/02/2024,A", "05/03/2024,B"}));
}

TEST_F(ExtractSplit, CrLfLeavesEmptyTransactionsBetweenLines) {
    const Dictionary format = onePerLine(slashDates("\n", ","));
    EXPECT_EQ(split("Date,Payee\r\n05/02/2024,A\r\n05/03/2024,B\r\n", format),
              (Lines{"05/02/2024,A", "", "05/03/2024,B", ""}));
    // Carriage returns alone end lines as line feeds do, and so does each of a mixed pair.
    const Dictionary anyStart = onePerLine(slashDates(" ", ","));
    EXPECT_EQ(split("on 05/02/2024,A\r05/03/2024,B\r05/04/2024,C", anyStart),
              (Lines{"on 05/02/2024,A", "05/03/2024,B", "05/04/2024,C"}));
    EXPECT_EQ(split("on 05/02/2024,A\n\r05/03/2024,B\r05/04/2024,C\n", anyStart),
              (Lines{"on 05/02/2024,A", "", "05/03/2024,B", "05/04/2024,C"}));
}

TEST_F(ExtractSplit, TextWithoutAnAcceptedDateHasNoTransaction) {
    EXPECT_FALSE(extract.parseTransactionsForCString("no dates here", slashDates()));
    EXPECT_TRUE(extract.transactionsAsLines.empty());
    // A date the format does not accept (no line end before it) counts as none.
    EXPECT_FALSE(extract.parseTransactionsForCString("paid 05/02/2024 SHOP", slashDates()));
    EXPECT_FALSE(extract.parseTransactionsForCString("", onePerLine(slashDates())));
    EXPECT_TRUE(extract.parseTransactionsForCString("x\n05/02/2024 SHOP", slashDates()));
    EXPECT_EQ(extract.transactionIndex, -1);
    EXPECT_TRUE(extract.outputLength.empty());
}

TEST_F(ExtractSplit, OfxLikeDatesFollowTheirMarker) {
    const Dictionary format{{"OFX", Value(true)}, {"DateAfter", Value("<DTPOSTED>")}};
    // The marker's last character stands just before each later date and is cut away.
    EXPECT_EQ(split("head<DTPOSTED>20240502 A<DTPOSTED>20240503 B", format),
              (Lines{"20240502 A<DTPOSTED", "20240503 B"}));
    EXPECT_EQ(extract.dateLength, 8);
    EXPECT_TRUE(split("no marker 20240502", format).empty());
}

TEST_F(ExtractSplit, DegenerateFormatsEndTheCut) {
    // An empty marker is found everywhere: the cut must still come to an end.
    const Dictionary emptyMarker{{"OFX", Value(true)}, {"DateAfter", Value("")}};
    Lines lines = split("0123456789abcdefghij", emptyMarker);
    EXPECT_FALSE(lines.empty());
    EXPECT_LE(lines.size(), 4u);
    EXPECT_TRUE(split("x\n05/02/2024 A", Dictionary{}).empty()); // no delimiter, no date
}

TEST_F(ExtractSplit, ASecondSplitReplacesTheFirst) {
    std::string text = "x\n05/02/2024 A\n05/03/2024 B";
    split(text, slashDates());
    text.assign(text.size(), '#'); // the engine keeps its own copy
    EXPECT_EQ(split("x\n05/04/2024 C", slashDates()), (Lines{"05/04/2024 C"}));
}

} // namespace
} // namespace tavvel
