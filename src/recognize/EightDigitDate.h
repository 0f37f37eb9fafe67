#pragma once
// Dates written as eight digits with no delimiter, year, month and day (20200213), as some
// banks' exports write them. Any eight digits could be a reference or an account number, so
// only a real calendar date counts, and only as a number of its own.

#include <cstdint>
#include <optional>
#include <string_view>

namespace tavvel {

inline constexpr std::size_t kEightDigitDateLength = 8;

struct DateNumbers {
    std::int64_t year = 0;
    std::int64_t month = 0;
    std::int64_t day = 0;
};

// The date written by the eight bytes at `at`, when they are digits that make a real day of
// the years 1900 to 2099. What stands around them is not looked at.
std::optional<DateNumbers> readEightDigitDate(std::string_view text, std::size_t at);

// Where the first eight-digit date from `from` begins, counting only eight digits that are a
// number of their own: no digit next to them, and no decimal point joining them to more
// digits. A comma may as well separate fields as decimals, so it does not join numbers.
std::optional<std::size_t> findEightDigitDate(std::string_view text, std::size_t from = 0);

} // namespace tavvel
