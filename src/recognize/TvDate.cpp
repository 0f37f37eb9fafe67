#include "recognize/TvDate.h"

namespace tavvel {

Date TvDate::dateWithTimeRemovedFrom(Date date) const {
    DateComponents c = componentsOf(date);
    c.hour = c.minute = c.second = 0;
    return instantOf(c);
}

Date TvDate::dateWithTwoDigitYearAdjustedToFourDigitsFrom(Date date) const {
    DateComponents c = componentsOf(date);
    if (c.year > 99)
        return date;
    c.year += 2000;
    return instantOf(c);
}

DateComponents TvDate::dateComponentsForDate(Date date) const {
    return componentsOf(date);
}

Date TvDate::dateWithComponents(const DateComponents& components) const {
    return instantOf(components);
}

std::int64_t TvDate::yearFromDate(Date date) const {
    return componentsOf(date).year;
}

std::int64_t TvDate::monthFromDate(Date date) const {
    return componentsOf(date).month;
}

std::int64_t TvDate::dayFromDate(Date date) const {
    return componentsOf(date).day;
}

Date TvDate::dateWithYear(std::int64_t year, std::int64_t month, std::int64_t day) const {
    return instantOf(DateComponents{year, month, day, 0, 0, 0});
}

} // namespace tavvel
