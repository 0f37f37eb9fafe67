#include "recognize/PrintAmount.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace tavvel {

namespace {

constexpr std::array<double, 11> powersOfTen = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5,
                                                1e6, 1e7, 1e8, 1e9, 1e10};

// Below this the scaled amount is off by less than 2e-4 after its one rounding, so a
// fraction farther than `tieMargin` from one half rounds the same way the exact value does.
constexpr double quickLimit = 1e12;
constexpr double tieMargin = 1e-3;

bool printQuickly(std::string& into, double value, int precision) {
    const double scaled = std::fabs(value) * powersOfTen[static_cast<std::size_t>(precision)];
    if (!(scaled < quickLimit)) // also NaN
        return false;
    const double whole = std::floor(scaled);
    const double fraction = scaled - whole;
    if (std::fabs(fraction - 0.5) < tieMargin)
        return false;
    auto units = static_cast<std::uint64_t>(whole) + (fraction > 0.5 ? 1 : 0);
    char digits[24];
    char* end = digits + sizeof digits;
    char* at = end;
    for (int i = 0; i < precision; ++i, units /= 10)
        *--at = static_cast<char>('0' + units % 10);
    if (precision > 0)
        *--at = '.';
    do {
        *--at = static_cast<char>('0' + units % 10);
        units /= 10;
    } while (units != 0);
    if (std::signbit(value))
        *--at = '-';
    into.assign(at, end);
    return true;
}

} // namespace

void printFixed(std::string& into, double value, int precision) {
    if (precision < 0 || precision >= static_cast<int>(powersOfTen.size())) {
        into.clear();
        return;
    }
    if (printQuickly(into, value, precision))
        return;
    char buffer[400]; // the largest double written out in full, and its decimals
    auto [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, precision);
    if (error == std::errc())
        into.assign(buffer, end);
    else
        into.clear();
}

} // namespace tavvel
