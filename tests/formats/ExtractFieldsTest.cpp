// Handing out transactions: fields by every layout, quoting, dates read, rewritten and ranged,
// and the transactions that cannot be read.

#include "formats/Extract.h"
#include "recognize/CalendarDate.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

using Fields = std::vector<std::string>;
using Transactions = std::vector<Fields>;

Dictionary layout(std::string_view fields, std::string_view start, std::string_view end,
                  bool onePerLine = true) {
    Dictionary format{{"Fields", Value(fields)},
                      {"DateDelimiter", Value("/")},
                      {"DateStart", Value(start)},
                      {"DateEnd", Value(end)}};
    if (onePerLine)
        format.emplace("OneTransactionPerLine", Value(true));
    return format;
}

Fields error(std::string_view message, std::string_view text) {
    return Fields{"ERROR", std::string(message), std::string(text)};
}

const std::string kNoDate = "The following transaction does not contain a date that can be "
                            "interpreted; it cannot be processed: ";
const std::string kEndsBeforeStart =
    "The transaction cannot be interpreted with the specified format.  Try re-defining the "
    "format, paying very close attention to the instructions.";

struct ExtractFields : ::testing::Test {
    test::TestContext t;
    Extract extract{t.ctx};

    Transactions readAll(std::string_view text, const Dictionary& format, Date from = kDistantPast,
                         Date to = kDistantFuture) {
        Transactions out;
        if (!extract.parseTransactionsForCString(text, format))
            return out;
        while (const Fields* fields = extract.nextTransactionUsingFormat(format, from, to))
            out.push_back(*fields);
        return out;
    }
};

TEST_F(ExtractFields, CommaSeparatedQuoting) {
    const std::string text = "Date,Payee,Amount\n"
                             "05/02/2024,\"Smith, J  \",-12.00\n"
                             "05/03/2024, \"Say \"\"hi\"\"\",  7.50 ,\n"
                             "05/04/2024,,\n"
                             "05/05/2024,\"Shop\" \n";
    EXPECT_EQ(readAll(text, layout("CSV", "\n", ",")),
              (Transactions{{"5/2/2024", "Smith, J", "-12.00"},
                            // blanks before a separator stay; a last separator is dropped
                            {"5/3/2024", "Say \"hi\"", "7.50 "},
                            {"5/4/2024", ""},
                            {"5/5/2024", "Shop"}}));
}

TEST_F(ExtractFields, UnclosedQuoteMakesTheTransactionInvalid) {
    const std::string text = "05/02/2024,\"never closed,1\n"
                             "05/03/2024,\"\n"
                             "05/04/2024,\"closed\" late,3\n"
                             "05/05/2024,ok,4";
    const std::string message =
        "The following transaction has invalid CSV format; it cannot be processed: ";
    EXPECT_EQ(readAll("\n" + text, layout("CSV", "\n", ",")),
              (Transactions{error(message, "05/02/2024,\"never closed,1"),
                            error(message, "05/03/2024,\""),
                            error(message, "05/04/2024,\"closed\" late,3"),
                            {"5/5/2024", "ok", "4"}}));
    const std::string ssv = "\n05/02/2024;\"open;1\n";
    EXPECT_EQ(readAll(ssv, layout("SSV", "\n", ";")),
              (Transactions{error("The following transaction has invalid SSV format; it cannot be "
                                  "processed: ",
                                  "05/02/2024;\"open;1")}));
}

TEST_F(ExtractFields, SemicolonSeparatedDayFirst) {
    Dictionary format = layout("SSV", "\n", ";");
    format["DateDelimiter"] = Value(".");
    format["DayBeforeMonth"] = Value(true);
    EXPECT_EQ(readAll("Datum;Text;Betrag;\n02.05.2024;B\xE4"
                      "ckerei;-3,50;\n",
                      format),
              (Transactions{{"5/2/2024",
                             "B\xE4"
                             "ckerei",
                             "-3,50"}}));
    t.ctx.output.datePrefix = "d/M"; // the run's long output date format
    EXPECT_EQ(readAll("\n02.05.2024;x;1;", format)[0][0], "2/5/2024");
}

TEST_F(ExtractFields, TabsOnlyAndColumnsDifferOnLineEnds) {
    const std::string text = "\n05/02/2024\tSHOP  \t\t-4.00\n"
                             "05/03/2024\tCAFE\nDOWNTOWN\t-2.00";
    const Dictionary tabs = layout("TABS_ONLY", "\n", "\t", false);
    EXPECT_EQ(readAll(text, tabs), (Transactions{{"5/2/2024", "SHOP", "", "-4.00"},
                                                 {"5/3/2024", "CAFE DOWNTOWN", "-2.00"}}));
    const Dictionary columns = layout("COLUMNS", "\n", "\t", false);
    EXPECT_EQ(readAll(text, columns), (Transactions{{"5/2/2024", "SHOP", "", "-4.00"},
                                                    {"5/3/2024", "CAFE", "DOWNTOWN", "-2.00"}}));
}

TEST_F(ExtractFields, CountSkipsEmptyColumns) {
    const std::string text = "\n05/02/2024\t\tSHOP\t\t\t-4.00";
    EXPECT_EQ(readAll(text, layout("COUNT", "\n", "\t")),
              (Transactions{{"5/2/2024", "SHOP", "-4.00"}}));
    EXPECT_EQ(readAll(text, layout("COLUMNS", "\n", "\t")),
              (Transactions{{"5/2/2024", "", "SHOP", "", "", "-4.00"}}));
}

TEST_F(ExtractFields, InitialBlanksJoinWrappedLines) {
    // A line indented like the field before it continues that field.
    const std::string text = "\n05/02/2024\n    COFFEE\n    DOWNTOWN\n  -4.50";
    EXPECT_EQ(readAll(text, layout("INITIAL_BLANKS", "\n", "\n", false)),
              (Transactions{{"5/2/2024", "COFFEE     DOWNTOWN", "-4.50"}}));
    EXPECT_EQ(t.ctx.blanks.initialBlanks, 2); // carried over to the next statement
}

TEST_F(ExtractFields, MultipleBlanksByTheMeasuredGap) {
    t.ctx.blanks.multipleBlanks = 2;
    const Dictionary format = layout("MULTIPLE_BLANKS", "\n", " ");
    EXPECT_EQ(readAll("\n05/02/2024  SHOP  -4.00", format),
              (Transactions{{"5/2/2024", "SHOP", "-4.00"}}));
    // A gap wider than measured leaves a field of blanks only: it ends before it starts.
    EXPECT_EQ(readAll("\n05/02/2024  Shop      12.00\n05/03/2024  Pay  1.00", format),
              (Transactions{error(kEndsBeforeStart, "05/02/2024  Shop      12.00"),
                            {"5/3/2024", "Pay", "1.00"}}));
}

TEST_F(ExtractFields, OfxLikeTransactionsAreTheDateAndTheRest) {
    const Dictionary format{{"OFX", Value(true)},
                            {"DateAfter", Value("<DTPOSTED>")},
                            {"DateDelimiter", Value("/")},
                            {"Fields", Value("OFX")}};
    EXPECT_EQ(readAll("<DTPOSTED>05/02/24 A, b\t c<DTPOSTED>05/03/24", format),
              (Transactions{{"5/2/2024", " A, b\t c<DTPOSTED"}, {"5/3/2024", ""}}));
}

TEST_F(ExtractFields, DateFieldByIndexAndWordMonths) {
    Dictionary format = layout("CSV", "\n", "\n");
    format["Date"] = Value(2);
    format["DateDelimiter"] = Value(",");
    format["DateStart"] = Value(",");
    // "March 6, 2023" is cut at its comma: a date without a year, which is this year's
    // unless that lies ahead (the clock stands at 1 June 2024).
    EXPECT_EQ(readAll("A,1.00,Mar 5 2024\nB,2.00,March 6, 2023\nC,3.00,Dec 24", format),
              (Transactions{{"A", "1.00", "3/5/2024"},
                            {"B", "2.00", "3/6/2024", "2023"},
                            {"C", "3.00", "12/24/2023"}}));
}

TEST_F(ExtractFields, RangeEndsAreInclusive) {
    const std::string text = "\n05/01/2024 a\n05/02/2024 b\n05/03/2024 c\n05/04/2024 d";
    const Dictionary format = layout("MULTIPLE_BLANKS", "\n", " ");
    Transactions read = readAll(text, format, localMidnight(2024, 5, 2), localMidnight(2024, 5, 3));
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(read[0][0], "5/2/2024");
    EXPECT_EQ(read[1][0], "5/3/2024");
    // Every transaction was visited once, the skipped ones too.
    EXPECT_EQ(extract.outputLength, (std::vector<std::int64_t>{0, 0, 0, 0}));
    EXPECT_EQ(extract.transactionIndex, 2);
    EXPECT_EQ(extract.currentTransactionText(), "05/03/2024 c");
}

TEST_F(ExtractFields, UnreadableDatesAreReportedAndReadingGoesOn) {
    Dictionary format = layout("CSV", "\n", ",");
    const std::string text = "\n05/02/2024,A\n,B\n13/45/2024 ,C\n05/03/2024,D";
    // The empty date field; a date followed by a blank where the format expects ",".
    EXPECT_EQ(readAll(text, format), (Transactions{{"5/2/2024", "A"},
                                                   error(kNoDate, ",B"),
                                                   error(kNoDate, "13/45/2024 ,C"),
                                                   {"5/3/2024", "D"}}));
    format["Date"] = Value(2); // too few fields
    EXPECT_EQ(readAll("\n05/02/2024,A", format), (Transactions{error(kNoDate, "05/02/2024,A")}));
    format["Date"] = Value(-1);
    EXPECT_EQ(readAll("\n05/02/2024,A", format), (Transactions{error(kNoDate, "05/02/2024,A")}));
}

TEST_F(ExtractFields, EmptyTransactionsOfCrLfArePassedOver) {
    const Dictionary format = layout("CSV", "\n", ",");
    Transactions read = readAll("Date,Payee\r\n05/02/2024,A\r\n05/03/2024,B\r\n", format);
    EXPECT_EQ(read, (Transactions{{"5/2/2024", "A"}, {"5/3/2024", "B"}}));
    EXPECT_EQ(extract.outputLength, (std::vector<std::int64_t>{0, -1, 0, -1}));
    // A call after the end hands out nothing and records nothing again.
    EXPECT_EQ(extract.nextTransactionUsingFormat(format, kDistantPast, kDistantFuture), nullptr);
    EXPECT_EQ(extract.outputLength.size(), 4u);
}

} // namespace
} // namespace tavvel
