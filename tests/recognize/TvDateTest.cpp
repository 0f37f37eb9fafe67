#include "recognize/TvDate.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace tavvel {
namespace {

// Runs a test in another time zone and puts the process's zone back afterwards.
class InZone {
public:
    explicit InZone(const char* zone) {
        if (const char* tz = std::getenv("TZ"))
            saved_ = tz;
        ::setenv("TZ", zone, 1);
        useProcessTimeZone();
    }
    ~InZone() {
        if (saved_)
            ::setenv("TZ", saved_->c_str(), 1);
        else
            ::unsetenv("TZ");
        useProcessTimeZone();
    }
    InZone(const InZone&) = delete;
    InZone& operator=(const InZone&) = delete;

private:
    std::optional<std::string> saved_;
};

// Zones whose daylight-saving changes fall at different hours, São Paulo's at midnight itself
// (in 2017 and 2018 some days there had no midnight), Lord Howe's by half an hour.
const char* const kZones[] = {"America/New_York", "Europe/London", "America/Sao_Paulo",
                              "Australia/Lord_Howe", "UTC"};

TEST(TvDate, EveryDayKeepsItsDateInEveryZone) {
    const TvDate dates;
    std::set<double> julyMidnights; // proof that each zone took effect
    for (const char* zone : kZones) {
        InZone in(zone);
        julyMidnights.insert(dates.dateWithYear(2024, 7, 1).seconds);
        for (int day = 1; day <= 3 * 366; ++day) {
            Date date = dates.dateWithYear(2017, 1, day); // rolls over into the later days
            CalendarDate expected = calendarDateOf(date);
            ASSERT_EQ(dates.dayFromDate(dates.dateWithTimeRemovedFrom(date)), expected.day);
            Date noon = dates.dateWithComponents({expected.year, expected.month, expected.day, 12});
            ASSERT_EQ(dates.dateWithTimeRemovedFrom(noon), date) << zone << " day " << day;
            std::string written = formatDate(date, "M/d/yyyy");
            ASSERT_EQ(written, std::to_string(expected.month) + "/" + std::to_string(expected.day) +
                                   "/" + std::to_string(expected.year));
            ASSERT_EQ(parseDateWithPattern(written, "M/d/yyyy"), date) << zone << ' ' << written;
        }
    }
    EXPECT_EQ(julyMidnights.size(), std::size(kZones));
}

TEST(TvDate, ComponentsAndTwoDigitYears) {
    const TvDate dates;
    Date d = dates.dateWithYear(2024, 13, 1); // month 13 rolls into the next year
    EXPECT_EQ(dates.yearFromDate(d), 2025);
    EXPECT_EQ(dates.monthFromDate(d), 1);
    EXPECT_EQ(dates.dayFromDate(d), 1);
    DateComponents c{2024, 2, 29, 13, 45, 10};
    EXPECT_EQ(dates.dateComponentsForDate(dates.dateWithComponents(c)), c);
    // No pivot here, unlike the years read from statements.
    Date ninetyFive = dates.dateWithComponents({95, 7, 4, 10, 30, 0});
    EXPECT_EQ(
        dates.dateComponentsForDate(dates.dateWithTwoDigitYearAdjustedToFourDigitsFrom(ninetyFive)),
        (DateComponents{2095, 7, 4, 10, 30, 0}));
    Date hundred = dates.dateWithYear(100, 1, 1);
    EXPECT_EQ(dates.dateWithTwoDigitYearAdjustedToFourDigitsFrom(hundred), hundred);
    // Numbers straight from a statement must not upset the calendar.
    for (std::int64_t huge : {INT64_MAX, INT64_MIN, std::int64_t{1} << 40})
        dates.dateWithYear(huge, huge, huge);
}

TEST(TvDate, PatternsTheProgramWritesAndReads) {
    const TvDate dates;
    Date d = dates.dateWithYear(2024, 3, 5);
    EXPECT_EQ(formatDate(d, "d/M/yy"), "5/3/24");
    EXPECT_EQ(formatDate(d, "MMM"), "Mar");
    EXPECT_EQ(formatDate(d, "MMMM"), "March");
    EXPECT_EQ(formatDate(d, "yy") + formatDate(d, "yyyy") + formatDate(d, "M") + formatDate(d, "d"),
              "24202435");
    EXPECT_EQ(parseDateWithPattern("5/3/24", "d/M/yy"), d);
    // Leniently, a four-digit-year pattern takes "03" as the year 3.
    std::optional<Date> early = parseDateWithPattern("1/2/03", "M/d/yyyy");
    ASSERT_TRUE(early);
    EXPECT_EQ(calendarDateOf(*early), (CalendarDate{3, 1, 2}));
    EXPECT_EQ(parseDateWithPattern("nonsense", "M/d/yyyy"), std::nullopt);
}

} // namespace
} // namespace tavvel
