#include "recognize/YearRules.h"

#include "recognize/TvDate.h"

namespace tavvel {

std::int64_t fourDigitYear(std::int64_t year) {
    if (year > 99)
        return year;
    return year < 74 ? year + 2000 : year + 1900;
}

std::int64_t set4DigitYear(std::int64_t& year) {
    year = fourDigitYear(year);
    return year;
}

void setDefaultYear(std::int64_t& year, std::int64_t month, std::int64_t day, const Clock& clock) {
    const TvDate dates;
    const Date now = clock.now();
    year = dates.yearFromDate(now);
    if (dates.dateWithYear(year, month, day) > now)
        --year;
}

} // namespace tavvel
