#include "recognize/FindDate.h"

#include "recognize/InputFormatKeys.h"
#include "recognize/ScanPattern.h"
#include "recognize/WordMonthTable.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>
#include <random>

namespace tavvel {
namespace {

const Configuration& shipped() {
    return test::shippedConfiguration();
}

Dictionary numericFormat(std::string_view delimiter, std::string_view start, std::string_view end) {
    return Dictionary{{std::string(fmtkey::DateDelimiter), Value(delimiter)},
                      {std::string(fmtkey::DateStart), Value(start)},
                      {std::string(fmtkey::DateEnd), Value(end)}};
}

struct Found {
    std::optional<std::size_t> at;
    std::int64_t length = -99;
    bool operator==(const Found&) const = default;
};

Found slash(std::string_view text) {
    Found f;
    f.at = findDateSlash(text, f.length);
    return f;
}

Found inFormat(std::string_view text, const Dictionary& format, BlankCounts& blanks) {
    Found f;
    f.at = findDate(text, f.length, format, shipped(), blanks);
    return f;
}

Found longDate(std::string_view text) {
    Found f;
    f.at = findDateLong(text, f.length, shipped());
    return f;
}

TEST(FindNumericDate, FirstCandidateDecidesPlausibility) {
    // 55/12 fails and the search stops there, though a real date follows.
    EXPECT_EQ(slash("ref 55/12 on 3/4/09").at, std::nullopt);
    EXPECT_EQ(slash("13/12"), (Found{0, -99})); // day first; two numbers leave the length
    EXPECT_EQ(slash("12/40").at, std::nullopt);
    EXPECT_EQ(slash("Paid 3/4/2009 x"), (Found{5, 8}));
    EXPECT_EQ(slash("on 2009/03/04"), (Found{3, 10}));  // year first
    EXPECT_EQ(slash("on 2009/31/12"), (Found{3, 10}));  // year, day, month
    EXPECT_EQ(slash("on 2009/13/32").at, std::nullopt); // neither order fits
    EXPECT_EQ(slash("a/b and 1/2/3"), (Found{8, 5}));   // no numbers: look further
    Found dash;
    dash.at = findDateDash("value 2024-01-31 ok", dash.length);
    EXPECT_EQ(dash, (Found{6, 10}));
    Found dot;
    dot.at = findDateDot("Datum 31.12.2023 Saldo", dot.length);
    EXPECT_EQ(dot, (Found{6, 10}));
}

TEST(FindDate, DateStartDateEndAndDistanceFromNewline) {
    BlankCounts blanks;
    Dictionary lineStart = numericFormat("/", "\n", " ");
    // The header's 1/2 has no line start before it.
    EXPECT_EQ(inFormat("Header 1/2\n01/15/2024 Shop\n", lineStart, blanks), (Found{11, 10}));
    EXPECT_EQ(inFormat("\n3/4/2009X", numericFormat("/", "\n", "X"), blanks), (Found{1, 8}));
    EXPECT_EQ(inFormat("\n3/4/2009X", lineStart, blanks).at, std::nullopt);

    Dictionary second = numericFormat("/", " ", " ");
    second[std::string(fmtkey::DistanceFromNewline)] = Value(2);
    EXPECT_EQ(inFormat("ab 1/2/2024 x\n 5/6/2024 y", second, blanks).at, 15u);
    EXPECT_EQ(inFormat(" 1/2/2024 x", second, blanks).at, 1u); // offset n - 1 of the text
    second[std::string(fmtkey::DistanceFromNewline)] = Value(1);
    EXPECT_EQ(inFormat("x 1/2/2024 y", second, blanks).at, std::nullopt);

    EXPECT_EQ(inFormat("\n1/2/2024 ", numericFormat("x", "\n", " "), blanks).at, std::nullopt);
}

TEST(FindDate, OFXLikeDatesFollowTheirMarker) {
    BlankCounts blanks;
    Dictionary ofx{{"OFX", Value(true)}, {"DateAfter", Value("<DTPOSTED>")}};
    EXPECT_EQ(inFormat("<STMTTRN><DTPOSTED>20240115<TRNAMT>", ofx, blanks), (Found{19, 8}));
    EXPECT_EQ(inFormat("<STMTTRN><DTUSER>20240115", ofx, blanks).at, std::nullopt);
}

TEST(FindDate, EightDigitDatesOnlyRealAndStandingAlone) {
    auto eight = [](std::string_view text) {
        Found f;
        f.at = findDateEightDigits(text, f.length);
        return f;
    };
    // No month 13, no 30 February, no 29 February 1900, a year out of range, digits running
    // on, a decimal part: none is a date, and none stops the search.
    EXPECT_EQ(eight("20201399 20200230 19000229 18991231 2020021311 120200213 20200213.50 "
                    "1.20200213 on 20240229,"),
              (Found{83, 8}));
    EXPECT_EQ(eight("acct 12345678901234 ref 12345678").at, std::nullopt);
    EXPECT_EQ(eight("20000229"), (Found{0, 8})); // 2000 is a leap year
    EXPECT_EQ(eight("2020021"), (Found{std::nullopt, -99}));

    BlankCounts blanks;
    Dictionary quoted = numericFormat("8", "\"", "\"");
    EXPECT_EQ(inFormat("\"x20200213\",\"19991399\",\"20200214\"", quoted, blanks), (Found{24, 8}));
    EXPECT_EQ(inFormat("\"20200213,\"20200214\"", quoted, blanks), (Found{11, 8}));
    EXPECT_EQ(inFormat("\"19991231 \"", quoted, blanks).at, std::nullopt);
}

TEST(FindDate, MeasuresTheBlankGapOnlyWhileAskedTo) {
    BlankCounts blanks;
    blanks.multipleBlanks = -1;
    Dictionary afterBlank = numericFormat("/", " ", " ");
    inFormat("    1/2/2024 x", afterBlank, blanks); // the gap runs back to the start
    EXPECT_EQ(blanks.multipleBlanks, -1);
    inFormat("Shop    1/2/2024 x", afterBlank, blanks);
    EXPECT_EQ(blanks.multipleBlanks, 4);
    inFormat("Shop  1/2/2024 x", afterBlank, blanks);
    EXPECT_EQ(blanks.multipleBlanks, 4); // measured once
}

TEST(FindDate, WordMonthDatesByTheirTables) {
    EXPECT_EQ(longDate("Statement 31 January 2024 balance"), (Found{10, 15}));
    EXPECT_EQ(longDate("on 15-JAN-24 paid"), (Found{3, 9}));
    EXPECT_EQ(longDate("Date: Jan. 5, 2024"), (Found{6, 12}));
    EXPECT_EQ(longDate("Paid Mar 5 coffee"), (Found{5, 5}));
    EXPECT_EQ(longDate("Paid 31 January"), (Found{5, 10}));
    EXPECT_EQ(longDate("Janet spent 12.00"), (Found{std::nullopt, 0}));
    EXPECT_EQ(longDate("").at, std::nullopt);

    BlankCounts blanks;
    Dictionary words = numericFormat(",", " ", " ");
    EXPECT_EQ(inFormat("Jan 2 header\nPosted Jan 15, 2024 Coffee", words, blanks), (Found{20, 12}));
    EXPECT_EQ(inFormat("Posted Jan 15, 2024", words, blanks).at, std::nullopt); // no DateEnd
}

// The index over the word-month tables only saves work: the search must find what trying
// every format at every position finds.
Found bruteForceLongDate(std::string_view text) {
    const auto withYear = readWordMonthFormats(shipped(), config::TvLongDateFormats);
    const auto noYear = readWordMonthFormats(shipped(), config::TvLongDateNoYearFormats);
    for (std::size_t pos = 0; pos < text.size(); ++pos) {
        if (std::string_view(" \t\n\r").find(text[pos]) != std::string_view::npos)
            continue;
        for (const WordMonthFormat& f : withYear)
            if (ScanResult r = scan(text, pos, f.format); r.count == 2)
                return {pos, r.consumed.value_or(-99)};
        for (const WordMonthFormat& f : noYear)
            if (ScanResult r = scan(text, pos, f.format); r.count == 1 && r.consumed.value_or(0))
                return {pos, *r.consumed};
    }
    return {std::nullopt, noYear.empty() || text.empty() ? -99 : 0};
}

TEST(FindDate, WordMonthIndexFindsWhatTryingEverythingFinds) {
    const std::vector<std::string> pieces = {"Jan", "JAN", "January", "Sept", "May", " ",    "  ",
                                             "-",   ",",   ".",       "5",    "31",  "2024", "x",
                                             "\v",  "+",   "JUNE",    "Jun",  "\t",  "0"};
    std::mt19937 rng(31);
    std::uniform_int_distribution<std::size_t> pick(0, pieces.size() - 1);
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (int i = 0; i < 8; ++i)
            text += pieces[pick(rng)];
        Found expected = bruteForceLongDate(text);
        Found found = longDate(text);
        ASSERT_EQ(found.at, expected.at) << '"' << text << '"';
        if (expected.at) {
            ASSERT_EQ(found.length, expected.length) << '"' << text << '"';
        }
    }
}

} // namespace
} // namespace tavvel
