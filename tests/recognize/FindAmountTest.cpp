#include "recognize/FindAmount.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

void expectAmount(std::string_view text, double amount, bool negative) {
    FoundAmount found = findAmount(text);
    EXPECT_DOUBLE_EQ(found.amount, amount) << '"' << text << '"';
    EXPECT_EQ(found.negative, negative) << '"' << text << '"';
}

TEST(FindAmount, SignsSeparatorsAndFractions) {
    expectAmount("USD (1,234.50)", 1234.50, true);
    expectAmount("$12.00-", 12.00, true);
    expectAmount("  -$3.5 ", 3.5, true);
    expectAmount("+ $ 7", 7, false);
    expectAmount("12.00CR", kUnreadableAmount, false);
    expectAmount("12 1/2", 12.5, false);
    expectAmount("12 abc", 12, false); // nothing is checked after a blank
    expectAmount("1.2.3", 1.5, false); // a second point adds tenths again
    expectAmount("12.00<br>", 12, false);
    expectAmount("3/4", kUnreadableAmount, false);
    expectAmount("12 1/0", kUnreadableAmount, false);
    expectAmount("", 0, false);
    expectAmount("(", 0, true);
}

TEST(FindAmount, CurrencySignsAndNoBreakSpacesInEveryEncoding) {
    for (std::string_view pound : {"\xA3", "\xC2\xA3"})
        expectAmount(std::string(pound) + "12.50", 12.50, false);
    for (std::string_view euro : {"\xDB", "\x80", "\xE2\x82\xAC"})
        expectAmount("-" + std::string(euro) + " 3.00", 3.00, true);
    for (std::string_view space : {"\xCA", "\xA0", "\xC2\xA0"})
        expectAmount("9.99" + std::string(space) + "EUR", 9.99, false);
    expectAmount("9.99\xC2", kUnreadableAmount, false);
}

} // namespace
} // namespace tavvel
