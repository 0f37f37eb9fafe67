#include "recognize/ParseDate.h"

#include "recognize/InputFormatKeys.h"
#include "recognize/YearRules.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

struct Ymd {
    std::int64_t year = -1, month = -1, day = -1;
    bool operator==(const Ymd&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Ymd& d) {
    return out << d.year << '-' << d.month << '-' << d.day;
}

Dictionary format(std::string_view delimiter, std::string_view end = " ", bool dayFirst = false) {
    return Dictionary{{std::string(fmtkey::DateDelimiter), Value(delimiter)},
                      {std::string(fmtkey::DateEnd), Value(end)},
                      {std::string(fmtkey::DayBeforeMonth), Value(dayFirst)}};
}

// Read on 1 June 2024 unless told otherwise.
std::optional<Ymd> parse(std::string_view date, const Dictionary& f,
                         Clock clock = test::fixedClock(2024, 6, 1)) {
    Ymd d;
    if (!parseDate(date, f, d.month, d.day, d.year, test::shippedConfiguration(), clock))
        return std::nullopt;
    return d;
}

std::optional<Ymd> qif(std::string_view date, bool dayFirst = false,
                       Clock clock = test::fixedClock(2024, 6, 1),
                       const Configuration& config = test::shippedConfiguration()) {
    Ymd d;
    if (!parseQIFDate(date, d.month, d.day, d.year, dayFirst, config, clock))
        return std::nullopt;
    return d;
}

TEST(YearRules, PivotAt74AndYearlessDatesNeverInTheFuture) {
    EXPECT_EQ(fourDigitYear(73), 2073);
    EXPECT_EQ(fourDigitYear(74), 1974);
    EXPECT_EQ(fourDigitYear(0), 2000);
    EXPECT_EQ(fourDigitYear(100), 100);
    std::int64_t year = 95;
    EXPECT_EQ(set4DigitYear(year), 1995);
    EXPECT_EQ(year, 1995);

    auto yearOf = [](std::int64_t month, std::int64_t day, Clock clock) {
        std::int64_t y = 0;
        setDefaultYear(y, month, day, clock);
        return y;
    };
    EXPECT_EQ(yearOf(12, 31, test::fixedClock(2024, 6, 1)), 2023);
    EXPECT_EQ(yearOf(6, 1, test::fixedClock(2024, 6, 1)), 2024);
    EXPECT_EQ(yearOf(6, 2, test::fixedClock(2024, 6, 1)), 2023);
    EXPECT_EQ(yearOf(1, 1, test::fixedClock(2024, 12, 31)), 2024);
    EXPECT_EQ(yearOf(12, 31, test::fixedClock(2025, 1, 1)), 2024);
    // Time of day counts: at the very midnight a date of that day is not yet in the future.
    Clock midnight = Clock::fixed(localMidnight(2025, 1, 1));
    EXPECT_EQ(yearOf(1, 1, midnight), 2025);
    Clock lastSecond = Clock::fixed(Date{localMidnight(2025, 1, 1).seconds - 1});
    EXPECT_EQ(yearOf(1, 1, lastSecond), 2024);
}

TEST(ParseDate, NumericDates) {
    EXPECT_EQ(parse("1/2/73", format("/")), (Ymd{2073, 1, 2}));
    EXPECT_EQ(parse("1/2/74", format("/")), (Ymd{1974, 1, 2}));
    EXPECT_EQ(parse("1/2/100", format("/")), (Ymd{100, 1, 2}));
    EXPECT_EQ(parse("2009/03/04", format("/")), (Ymd{2009, 3, 4}));
    // The swap comes after the year-first reading.
    EXPECT_EQ(parse("2009/03/04", format("/", " ", true)), (Ymd{2009, 4, 3}));
    EXPECT_EQ(parse("31.12.23", format(".", " ", true)), (Ymd{2023, 12, 31}));
    EXPECT_EQ(parse("3/4/2009X", format("/", "X")), (Ymd{2009, 3, 4}));
    EXPECT_EQ(parse("3/4/2009X", format("/", " ")), std::nullopt);
    EXPECT_EQ(parse("12/31", format("/")), (Ymd{2023, 12, 31}));
    EXPECT_EQ(parse("06/01", format("/")), (Ymd{2024, 6, 1}));
    EXPECT_EQ(parse("31-12", format("-", " ", true)), (Ymd{2023, 12, 31}));
    EXPECT_EQ(parse("1/2/x", format("/")), std::nullopt); // stops at "/", not at DateEnd
    EXPECT_EQ(parse("1/2/2024", format("x")), std::nullopt);
    EXPECT_EQ(parse("", format("/")), std::nullopt);
}

TEST(ParseDate, EightDigitDates) {
    EXPECT_EQ(parse("20200213", format("8")), (Ymd{2020, 2, 13}));
    // The digits' order is fixed: day-before-month does not turn it round.
    EXPECT_EQ(parse("20200213", format("8", " ", true)), (Ymd{2020, 2, 13}));
    EXPECT_EQ(parse("20200213\"", format("8", "\"")), (Ymd{2020, 2, 13}));
    EXPECT_EQ(parse("20200213\"", format("8", " ")), std::nullopt);
    for (std::string_view notADate :
         {"20201399", "20200230", "2020021", "202002134", "2020-213", " 20200213", "18991231", ""})
        EXPECT_EQ(parse(notADate, format("8")), std::nullopt) << notADate;
    EXPECT_EQ(parse("20200213", format("/")), std::nullopt);
}

TEST(ParseDate, WordMonthDates) {
    EXPECT_EQ(parse("Jan 15, 2024", format(",")), (Ymd{2024, 1, 15}));
    EXPECT_EQ(parse("15 SEPT 23", format(",")), (Ymd{2023, 9, 15}));
    EXPECT_EQ(parse("2024 Mar 5", format(",")), (Ymd{2024, 3, 5})); // year read first
    EXPECT_EQ(parse("15-Jan-2024;", format(",", ";")), (Ymd{2024, 1, 15}));
    EXPECT_EQ(parse("Dec 25", format(",")), (Ymd{2023, 12, 25}));
    EXPECT_EQ(parse("May 31", format(",")), (Ymd{2024, 5, 31}));
    EXPECT_EQ(parse("Smarch 5, 2024", format(",")), std::nullopt);
}

TEST(ParseQIFDate, ShortForms) {
    EXPECT_EQ(qif("1/2/73"), (Ymd{2073, 1, 2}));
    EXPECT_EQ(qif("1/2/74"), (Ymd{1974, 1, 2}));
    EXPECT_EQ(qif("12/31/2023"), (Ymd{2023, 12, 31}));
    EXPECT_EQ(qif(" 2/ 4'19"), (Ymd{2019, 2, 4}));
    EXPECT_EQ(qif("12/ 1' 5"), (Ymd{2005, 12, 1}));
    EXPECT_EQ(qif("1-2-24"), (Ymd{2024, 1, 2}));
    EXPECT_EQ(qif("2024-01-31"), (Ymd{2024, 1, 31}));
    EXPECT_EQ(qif("0099-01-31"), (Ymd{2031, 99, 1})); // under 101 is a month, digits or not
    EXPECT_EQ(qif("31.01.2024", true), (Ymd{2024, 1, 31}));
    EXPECT_EQ(qif("1/2/2024 trailing"), (Ymd{2024, 1, 2}));
    EXPECT_EQ(qif("1/2/2024x"), std::nullopt);
}

TEST(ParseQIFDate, YearlessDatesAreNotInTheFuture) {
    // No range check: the flag swaps 12/25 into month 25, day 12.
    EXPECT_EQ(qif("12/25", true), (Ymd{2023, 25, 12}));
    EXPECT_EQ(qif("6/1"), (Ymd{2024, 6, 1}));
    EXPECT_EQ(qif("6/2"), (Ymd{2023, 6, 2}));
    EXPECT_EQ(qif("12/31", false, test::fixedClock(2025, 1, 1)), (Ymd{2024, 12, 31}));
    EXPECT_EQ(qif("1/1", false, test::fixedClock(2025, 1, 1)), (Ymd{2025, 1, 1}));
    EXPECT_EQ(qif("1/1", false, test::fixedClock(2024, 12, 31)), (Ymd{2024, 1, 1}));
    EXPECT_EQ(qif("123/4"), std::nullopt); // at most two digits each
}

TEST(ParseQIFDate, MonthWordsLeaveTheMonthAlone) {
    EXPECT_EQ(qif("January 5, 2024"), (Ymd{2024, -1, 5}));
    EXPECT_EQ(qif("JAN 5 24"), (Ymd{2024, -1, 5}));
    EXPECT_EQ(qif("Jan 5, 74"), (Ymd{1974, -1, 5}));
    // A matching word whose forms all fail sends the search back; it must still end.
    EXPECT_EQ(qif("Jan 5 xyz"), std::nullopt);
    EXPECT_EQ(qif("JANUARY"), std::nullopt);
}

Configuration wordsOnly(Array words) {
    return Configuration(Dictionary{{"TvLongMonths", Value(std::move(words))},
                                    {"TvAfterLongMonth", Value(Array{Value(" %ld, %ld%ln")})}});
}

TEST(ParseQIFDate, FailedWordSkipsTheNextOne) {
    // "Ja" matches and fails, so "Jan" right after it is never tried.
    EXPECT_EQ(qif("Jan 5, 2024", false, test::fixedClock(2024, 6, 1),
                  wordsOnly({Value("Ja"), Value("Jan"), Value("Jan")})),
              (Ymd{2024, -1, 5}));
    EXPECT_EQ(qif("Jan 5, 2024", false, test::fixedClock(2024, 6, 1),
                  wordsOnly({Value("Ja"), Value("Jan")})),
              std::nullopt);
    // From the second set the search goes back to the first and would go round for ever.
    Array looping(12, Value("#"));
    looping.push_back(Value("J"));
    EXPECT_EQ(qif("Jan 5, 2024", false, test::fixedClock(2024, 6, 1), wordsOnly(looping)),
              std::nullopt);
}

} // namespace
} // namespace tavvel
