#include "app/RunSettings.h"

#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"

namespace tavvel {

Dictionary completeRunSettings(TvPrefs& prefs, Date today) {
    const Value* stored = prefs.objectForKey(prefkey::ControlSettings);
    Dictionary settings = stored ? stored->dictionary() : Dictionary{};
    constexpr std::string_view required[] = {
        runkey::whichTransactions, runkey::dateFrom,       runkey::dateTo,
        runkey::outputDate,        runkey::outputFilePath, runkey::outputFormat};
    bool complete = stored != nullptr;
    for (std::string_view key : required)
        complete = complete && has(settings, key);
    if (complete)
        return settings;
    Date day = startOfDay(today);
    settings = Dictionary{{std::string(runkey::whichTransactions), Value(kAllTransactions)},
                          {std::string(runkey::dateFrom), Value(day)},
                          {std::string(runkey::dateTo), Value(day)},
                          {std::string(runkey::outputDate), Value(day)},
                          {std::string(runkey::outputNumberString), Value("")},
                          {std::string(runkey::outputFilePath), Value("")},
                          {std::string(runkey::outputFormat), Value("QIF")},
                          {std::string(runkey::inputQIFType), Value(0)}};
    prefs.setObject(prefkey::ControlSettings, Value(settings));
    prefs.synchronize();
    return settings;
}

Date continueFrom(const Dictionary& settings, Date now) {
    const Value* to = find(settings, runkey::dateTo);
    Date last = to && to->isDate() && *to->get<Date>() < kDistantFuture ? *to->get<Date>() : now;
    if (calendarDateOf(last) == calendarDateOf(now))
        return startOfDay(now);
    return addDays(last, 1);
}

std::optional<Date> readRangeField(std::string_view text, std::string_view longPattern,
                                   std::string_view shortPattern) {
    auto date = parseDateWithPattern(text, longPattern);
    if (date && calendarDateOf(*date).year <= 999)
        date = parseDateWithPattern(text, shortPattern);
    return date;
}

std::optional<DateRange> dateRangeFor(int which, Date now, std::string_view fromText,
                                      std::string_view toText, std::string_view longPattern,
                                      std::string_view shortPattern) {
    if (which == kAllTransactions)
        return DateRange{kDistantPast, kDistantFuture};
    if (which == kLastMonth) {
        CalendarDate today = calendarDateOf(now);
        Date lastDay = addDays(localMidnight(today.year, today.month, 1), -1);
        CalendarDate last = calendarDateOf(lastDay);
        return DateRange{localMidnight(last.year, last.month, 1), lastDay};
    }
    if (which != kDateRange)
        return std::nullopt;
    auto from = readRangeField(fromText, longPattern, shortPattern);
    auto to = readRangeField(toText, longPattern, shortPattern);
    if (!from || !to)
        return std::nullopt;
    return DateRange{*from, *to};
}

} // namespace tavvel
