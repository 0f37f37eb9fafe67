#include "recognize/EightDigitDate.h"

#include "recognize/ByteClass.h"

namespace tavvel {

namespace {

bool isLeapYear(std::int64_t year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

std::int64_t daysInMonth(std::int64_t year, std::int64_t month) {
    constexpr std::int64_t kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : kDays[month - 1];
}

std::int64_t digitsAt(std::string_view text, std::size_t at, std::size_t count) {
    std::int64_t value = 0;
    for (std::size_t i = at; i < at + count; ++i)
        value = value * 10 + (text[i] - '0');
    return value;
}

std::size_t digitsEnd(std::string_view text, std::size_t at) {
    while (at < text.size() && isDigitByte(text[at]))
        ++at;
    return at;
}

// A decimal point between digits carries a number on past it.
bool joinsDigits(std::string_view text, std::size_t dot) {
    return text[dot] == '.' && dot > 0 && isDigitByte(text[dot - 1]) &&
           isDigitByte(byteAt(text, dot + 1));
}

bool standsAlone(std::string_view text, std::size_t begin, std::size_t end) {
    if (begin > 0 && joinsDigits(text, begin - 1))
        return false;
    return end >= text.size() || !joinsDigits(text, end);
}

} // namespace

std::optional<DateNumbers> readEightDigitDate(std::string_view text, std::size_t at) {
    if (at > text.size() || text.size() - at < kEightDigitDateLength)
        return std::nullopt;
    for (std::size_t i = at; i < at + kEightDigitDateLength; ++i)
        if (!isDigitByte(text[i]))
            return std::nullopt;
    const DateNumbers date{digitsAt(text, at, 4), digitsAt(text, at + 4, 2),
                           digitsAt(text, at + 6, 2)};
    if (date.year < 1900 || date.year > 2099 || date.month < 1 || date.month > 12)
        return std::nullopt;
    if (date.day < 1 || date.day > daysInMonth(date.year, date.month))
        return std::nullopt;
    return date;
}

std::optional<std::size_t> findEightDigitDate(std::string_view text, std::size_t from) {
    // A search that starts inside a number starts after it: its digits are not a number alone.
    const bool insideNumber = from > 0 && from < text.size() && isDigitByte(text[from - 1]);
    for (std::size_t begin = insideNumber ? digitsEnd(text, from) : from; begin < text.size();) {
        const std::size_t end = digitsEnd(text, begin);
        if (end - begin == kEightDigitDateLength && standsAlone(text, begin, end) &&
            readEightDigitDate(text, begin))
            return begin;
        begin = end == begin ? begin + 1 : end;
    }
    return std::nullopt;
}

} // namespace tavvel
