#include "recognize/PrintAmount.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>

namespace tavvel {
namespace {

std::string viaPrintf(double value, int precision) {
    char buffer[512];
    std::snprintf(buffer, sizeof buffer, "%.*f", precision, value);
    return buffer;
}

void expectAsPrintf(double value) {
    std::string printed = "left over";
    for (int precision = 0; precision <= 10; ++precision) {
        printFixed(printed, value, precision);
        ASSERT_EQ(printed, viaPrintf(value, precision)) << value << " at " << precision;
    }
}

// Ties and near-ties are where a shortcut through the scaled value goes wrong: 0.125 is an
// exact tie (printf rounds it to even), 2.675 and 1.005 lie just below their halves.
TEST(PrintAmount, MatchesPrintfOnTiesSignsAndLargeValues) {
    for (double value : {0.0,   -0.0,       0.125,      -0.125,
                         0.375, 2.5,        3.5,        2.675,
                         1.005, -1.005,     0.045,      -0.001,
                         1e-11, 999999.995, 1e11 + 0.5, 123456789012.345,
                         1e15,  -1e22,      1e300,      std::numeric_limits<double>::denorm_min()})
        expectAsPrintf(value);
}

// Amounts as statements write them (up to three decimals, read back as doubles), and
// arbitrary doubles over many magnitudes, from a fixed seed.
TEST(PrintAmount, MatchesPrintfOverManyAmounts) {
    std::uint64_t seed = 20240101;
    auto draw = [&seed] {
        seed = seed * 6364136223846793005u + 1442695040888963407u;
        return seed >> 11;
    };
    for (int i = 0; i < 20000; ++i) {
        auto cents = static_cast<double>(draw() % 100000000);
        expectAsPrintf(cents / 100);
        expectAsPrintf(-cents / 1000);
        double bits = std::ldexp(static_cast<double>(draw()), static_cast<int>(draw() % 80) - 90);
        expectAsPrintf(i % 2 ? bits : -bits);
    }
}

} // namespace
} // namespace tavvel
