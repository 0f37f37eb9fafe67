#include "recognize/ParseDate.h"

#include "recognize/ByteClass.h"
#include "recognize/EightDigitDate.h"
#include "recognize/InputFormatKeys.h"
#include "recognize/NumericDatePatterns.h"
#include "recognize/ScanPattern.h"
#include "recognize/TvDate.h"
#include "recognize/WordMonthTable.h"
#include "recognize/YearRules.h"

#include <utility>
#include <vector>

namespace tavvel {

namespace {

// A scan fits a date string when it took the whole string or stopped at the end character.
bool fitsUpTo(std::string_view date, const ScanResult& r, char end) {
    auto used = static_cast<std::size_t>(r.consumed.value_or(0));
    return used == date.size() || byteAt(date, used) == end;
}

bool parseWordMonthDate(std::string_view date, char end, std::int64_t& month, std::int64_t& day,
                        std::int64_t& year, const Configuration& config, const Clock& clock) {
    for (const WordMonthFormat& f : readWordMonthFormats(config, config::TvLongDateFormats)) {
        ScanResult r = scan(date, f.format);
        if (r.count != 2 || !fitsUpTo(date, r, end))
            continue;
        day = r.numbers[0];
        year = r.numbers[1];
        // A format that reads the year first finds it where the day should be.
        if (day >= 32)
            std::swap(day, year);
        month = f.month;
        set4DigitYear(year);
        return true;
    }
    for (const WordMonthFormat& f : readWordMonthFormats(config, config::TvLongDateNoYearFormats)) {
        ScanResult r = scan(date, f.format);
        if (r.count != 1 || !fitsUpTo(date, r, end))
            continue;
        day = r.numbers[0];
        month = f.month;
        setDefaultYear(year, month, day, clock);
        return true;
    }
    return false;
}

bool parseNumericDate(std::string_view date, const NumericDatePatterns& patterns, char end,
                      bool dayBeforeMonth, std::int64_t& month, std::int64_t& day,
                      std::int64_t& year, const Clock& clock) {
    ScanResult r = scan(date, patterns.three);
    if (r.count != 3)
        r = scan(date, patterns.two);
    if ((r.count != 2 && r.count != 3) || !fitsUpTo(date, r, end))
        return false;
    const auto& n = r.numbers;
    if (r.count == 2) {
        month = n[0];
        day = n[1];
        if (dayBeforeMonth)
            std::swap(month, day);
        setDefaultYear(year, month, day, clock);
        return true;
    }
    if (n[0] >= 101) {
        year = n[0], month = n[1], day = n[2];
    } else {
        month = n[0], day = n[1], year = n[2];
    }
    set4DigitYear(year);
    // Deliberately after the year-first test: a year-first date under day-before-month has its
    // month and day exchanged too, as formats learned that way have always been read.
    if (dayBeforeMonth)
        std::swap(month, day);
    return true;
}

// The digits' order is fixed, year, month and day, so day-before-month does not apply.
bool parseEightDigitDate(std::string_view date, char end, std::int64_t& month, std::int64_t& day,
                         std::int64_t& year) {
    const std::optional<DateNumbers> read = readEightDigitDate(date, 0);
    if (!read || (date.size() > kEightDigitDateLength && date[kEightDigitDateLength] != end))
        return false;
    year = read->year, month = read->month, day = read->day;
    return true;
}

bool parseShortQIFDate(std::string_view date, std::int64_t& month, std::int64_t& day,
                       std::int64_t& year, bool dayBeforeMonth, const Configuration& config) {
    for (const Value& pattern : config.array(config::TvShortDateFormats)) {
        if (!pattern.isString())
            continue;
        ScanResult r = scan(date, pattern.text());
        auto used = static_cast<std::size_t>(r.consumed.value_or(0));
        if (r.count != 3 || (used != date.size() && !isSpaceByte(date[used])))
            continue;
        const auto& n = r.numbers;
        if (n[0] >= 101) {
            year = n[0], month = n[1], day = n[2];
        } else {
            month = n[0], day = n[1], year = fourDigitYear(n[2]);
        }
        if (dayBeforeMonth)
            std::swap(month, day);
        return true;
    }
    return false;
}

bool readsAfterMonthWord(std::string_view rest, std::int64_t& day, std::int64_t& year,
                         const Configuration& config) {
    for (const Value& pattern : config.array(config::TvAfterLongMonth)) {
        if (!pattern.isString())
            continue;
        ScanResult r = scan(rest, pattern.text());
        if (r.count != 2 || r.consumed != static_cast<std::int64_t>(rest.size()))
            continue;
        day = r.numbers[0];
        year = fourDigitYear(r.numbers[1]);
        return true;
    }
    return false;
}

// The month word only guides the reading: the caller's month stands, as QIF files have always
// been read. After a word whose forms all fail, the search resumes two words on from the same
// month of the first set, which for a word of a later set means going back; the program would
// then go round for ever, so a word that fails a second time ends the search.
bool parseWordMonthQIFDate(std::string_view date, std::int64_t& day, std::int64_t& year,
                           const Configuration& config) {
    const Array& words = config.array(config::TvLongMonths);
    std::vector<bool> failed(words.size(), false);
    for (std::size_t i = 0; i < words.size();) {
        const Value& word = words[i];
        if (!word.isString() || !date.starts_with(word.text())) {
            ++i;
            continue;
        }
        if (readsAfterMonthWord(date.substr(word.text().size()), day, year, config))
            return true;
        if (failed[i])
            return false;
        failed[i] = true;
        i = i % 12 + 2;
    }
    return false;
}

bool parseYearlessQIFDate(std::string_view date, std::int64_t& month, std::int64_t& day,
                          std::int64_t& year, bool dayBeforeMonth, const Clock& clock) {
    ScanResult r = scan(date, "%2ld/%2ld%ln");
    if (r.count != 2 || r.consumed != static_cast<std::int64_t>(date.size()))
        return false;
    month = r.numbers[0];
    day = r.numbers[1];
    if (dayBeforeMonth)
        std::swap(month, day);
    DateComponents today = TvDate().dateComponentsForDate(clock.now());
    year = today.year;
    if (month > today.month || (month == today.month && day > today.day))
        --year;
    return true;
}

} // namespace

bool parseDate(std::string_view date, const Dictionary& format, std::int64_t& month,
               std::int64_t& day, std::int64_t& year, const Configuration& config,
               const Clock& clock) {
    const char end = fmtkey::firstCharOf(format, fmtkey::DateEnd);
    const char delimiter = fmtkey::firstCharOf(format, fmtkey::DateDelimiter);
    if (delimiter == ',')
        return parseWordMonthDate(date, end, month, day, year, config, clock);
    if (delimiter == fmtkey::eightDigitDate)
        return parseEightDigitDate(date, end, month, day, year);
    std::optional<NumericDatePatterns> patterns = numericDatePatterns(delimiter);
    if (!patterns)
        return false;
    const Value* swap = find(format, fmtkey::DayBeforeMonth);
    return parseNumericDate(date, *patterns, end, swap && swap->toBool(), month, day, year, clock);
}

bool parseQIFDate(std::string_view date, std::int64_t& month, std::int64_t& day, std::int64_t& year,
                  bool dayBeforeMonth, const Configuration& config, const Clock& clock) {
    return parseShortQIFDate(date, month, day, year, dayBeforeMonth, config) ||
           parseWordMonthQIFDate(date, day, year, config) ||
           parseYearlessQIFDate(date, month, day, year, dayBeforeMonth, clock);
}

} // namespace tavvel
