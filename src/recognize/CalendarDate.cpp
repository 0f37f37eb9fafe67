#include "recognize/CalendarDate.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <unicode/calendar.h>
#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>
#include <unordered_map>

namespace tavvel {

namespace {

// ICU keeps milliseconds; we keep seconds.
constexpr double kMillis = 1000.0;

// A statement holds a few hundred distinct days among its thousands of transactions, and ICU
// formatting costs more than reading the rest of a transaction: each pattern remembers the
// texts it wrote, up to a bound so that a long session cannot grow it without end.
struct Formatter {
    std::unique_ptr<icu::SimpleDateFormat> format;
    std::unordered_map<double, std::string> written;
};
constexpr std::size_t kWrittenKept = 4096;

struct IcuCache {
    std::unique_ptr<icu::Calendar> calendar;
    std::map<std::string, Formatter, std::less<>> formatters;
};

// Calendars and formatters are costly to build and the scanners ask for dates often; the
// program is single-threaded, one cache a thread keeps tests honest too.
IcuCache& cache() {
    thread_local IcuCache instance;
    return instance;
}

icu::Calendar* localCalendar() {
    IcuCache& c = cache();
    if (!c.calendar) {
        UErrorCode status = U_ZERO_ERROR;
        c.calendar.reset(icu::Calendar::createInstance(icu::Locale("en_US_POSIX"), status));
        if (U_FAILURE(status))
            c.calendar.reset();
        else
            c.calendar->setLenient(true);
    }
    return c.calendar.get();
}

Formatter* formatter(std::string_view pattern) {
    IcuCache& c = cache();
    if (auto it = c.formatters.find(pattern); it != c.formatters.end())
        return &it->second;
    UErrorCode status = U_ZERO_ERROR;
    auto fmt = std::make_unique<icu::SimpleDateFormat>(
        icu::UnicodeString::fromUTF8(
            icu::StringPiece(pattern.data(), static_cast<int32_t>(pattern.size()))),
        icu::Locale("en_US_POSIX"), status);
    if (U_FAILURE(status))
        return nullptr;
    fmt->setLenient(true);
    return &c.formatters.emplace(std::string(pattern), Formatter{std::move(fmt), {}}).first->second;
}

// Statement numbers reach here unchecked; ICU's fields are 32-bit.
int32_t calendarField(std::int64_t value) {
    constexpr std::int64_t kLimit = 100'000'000;
    return static_cast<int32_t>(std::clamp(value, -kLimit, kLimit));
}

std::optional<DateComponents> localFields(Date instant) {
    icu::Calendar* cal = localCalendar();
    if (!cal)
        return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    cal->setTime(std::floor(instant.seconds * kMillis), status);
    DateComponents c{cal->get(UCAL_EXTENDED_YEAR, status), cal->get(UCAL_MONTH, status) + 1,
                     cal->get(UCAL_DATE, status),          cal->get(UCAL_HOUR_OF_DAY, status),
                     cal->get(UCAL_MINUTE, status),        cal->get(UCAL_SECOND, status)};
    if (U_FAILURE(status))
        return std::nullopt;
    return c;
}

} // namespace

void useProcessTimeZone() {
    icu::TimeZone::adoptDefault(icu::TimeZone::detectHostTimeZone());
    cache() = IcuCache{};
}

Date localMidnight(int year, int month, int day) {
    return instantOf(DateComponents{year, month, day, 0, 0, 0});
}

DateComponents componentsOf(Date instant) {
    return localFields(instant).value_or(DateComponents{});
}

Date instantOf(const DateComponents& c) {
    icu::Calendar* cal = localCalendar();
    if (!cal)
        return Date{};
    cal->clear();
    cal->set(calendarField(c.year), calendarField(c.month) - 1, calendarField(c.day),
             calendarField(c.hour), calendarField(c.minute), calendarField(c.second));
    UErrorCode status = U_ZERO_ERROR;
    UDate ms = cal->getTime(status);
    return U_FAILURE(status) ? Date{} : Date{ms / kMillis};
}

Date localMidnight(CalendarDate date) {
    return localMidnight(date.year, date.month, date.day);
}

CalendarDate calendarDateOf(Date instant) {
    std::optional<DateComponents> c = localFields(instant);
    if (!c)
        return {};
    return CalendarDate{static_cast<int>(c->year), static_cast<int>(c->month),
                        static_cast<int>(c->day)};
}

Date startOfDay(Date instant) {
    return localMidnight(calendarDateOf(instant));
}

Date addDays(Date instant, int days) {
    CalendarDate date = calendarDateOf(instant);
    return localMidnight(date.year, date.month, date.day + days);
}

std::string formatDate(Date instant, std::string_view pattern) {
    Formatter* fmt = formatter(pattern);
    if (!fmt)
        return {};
    if (auto known = fmt->written.find(instant.seconds); known != fmt->written.end())
        return known->second;
    icu::UnicodeString out;
    fmt->format->format(instant.seconds * kMillis, out);
    std::string text;
    out.toUTF8String(text);
    if (fmt->written.size() >= kWrittenKept)
        fmt->written.clear();
    fmt->written.emplace(instant.seconds, text);
    return text;
}

std::optional<Date> parseDateWithPattern(std::string_view text, std::string_view pattern) {
    Formatter* found = formatter(pattern);
    if (!found || text.empty())
        return std::nullopt;
    icu::UnicodeString input = icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<int32_t>(text.size())));
    icu::ParsePosition pos(0);
    UDate ms = found->format->parse(input, pos);
    if (pos.getErrorIndex() >= 0 || pos.getIndex() == 0)
        return std::nullopt;
    return startOfDay(Date{ms / kMillis});
}

} // namespace tavvel
