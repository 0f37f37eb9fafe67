#include "recognize/FindLines.h"
#include "recognize/TextEncoding.h"
#include "recognize/TextRewrite.h"
#include "recognize/TextSearch.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

using Lines = std::vector<std::string>;

TEST(FindLines, ByTheLineEndsTheTextUses) {
    EXPECT_EQ(findLines("a\nb\n"), (Lines{"a", "b", ""}));
    EXPECT_EQ(findLines("a\r\nb\r\nc"), (Lines{"a", "b", "c"}));
    EXPECT_EQ(findLines("a\rb"), (Lines{"a", "b"}));
    // Mixed CR LF and LF: cut at LF, and every CR goes, even inside a line.
    EXPECT_EQ(findLines("a\r\nb\nc\rd"), (Lines{"a", "b", "cd"}));
    EXPECT_EQ(findLines("a\r\nb\rc"), (Lines{"a", "b\rc"}));
    EXPECT_EQ(findLines(""), (Lines{""}));
}

// Sequences checked wherever they stand against the eight-byte steps over ASCII.
TEST(TextEncoding, Utf8IsCheckedAcrossAsciiRuns) {
    const std::string ascii = "0123456789abcdef";
    for (std::size_t at = 0; at <= ascii.size(); ++at) {
        const std::string head = ascii.substr(0, at), tail = ascii.substr(at);
        EXPECT_TRUE(isValidUtf8(head + "\xC3\xA9\xE2\x82\xAC" + tail)) << at;
        EXPECT_FALSE(isValidUtf8(head + "\xE9" + tail)) << at;
        EXPECT_FALSE(isValidUtf8(head + "\xE2\x82")) << at;
    }
    EXPECT_EQ(windows1252ToUtf8("M\xFCller \x80\x9D"), "M\xC3\xBCller \xE2\x82\xAC\xEF\xBF\xBD");
}

TEST(MatchField, ValueBeforeOrAfterTheLabel) {
    EXPECT_EQ(matchField("Amount:   12.00", "Amount:", true), 10u);
    EXPECT_EQ(matchField("Amount:", "Amount:", true), 7u);
    EXPECT_EQ(matchField("Paid 12.00 \t USD", "USD", false), 5u);
    EXPECT_EQ(matchField("12.00 USD", "USD", false), std::nullopt); // word at the text's start
    EXPECT_EQ(matchField("USD 12.00", "USD", false), std::nullopt);
    EXPECT_EQ(matchField("Paid 12.00", "EUR", true), std::nullopt);
    EXPECT_EQ(matchField("Paid 12.00", "", true), std::nullopt);
}

TEST(CaseInsensitiveReplace, ResumesByItsOwnArithmetic) {
    std::string quotes = R"(x"y"z"w"v)";
    caseInsensitiveReplace(quotes, "\"", "\"\"");
    EXPECT_EQ(quotes, R"(x""y""z"w""v)"); // the third quote is passed over
    std::string tabs = "a\tb";
    caseInsensitiveReplace(tabs, "\t", "     ");
    EXPECT_EQ(tabs, "a     b");
    std::string words = "Fee FEE fee fee";
    caseInsensitiveReplace(words, "fEe", "x");
    EXPECT_EQ(words, "x x x fee");
    std::string same = "aaa";
    caseInsensitiveReplace(same, "a", "");
    EXPECT_EQ(same, "");
    caseInsensitiveReplace(words, "", "y");
    EXPECT_EQ(words, "x x x fee");
}

TEST(ConvertEuropeanAmount, OnlyADecimalCommaChangesTheText) {
    EXPECT_EQ(convertEuropeanAmount("1,234"), "1,234");
    EXPECT_EQ(convertEuropeanAmount("12.50"), "12.50");
    EXPECT_EQ(convertEuropeanAmount("12,5"), "12.5");
    EXPECT_EQ(convertEuropeanAmount("1.234,56"), "1,234.56");
    EXPECT_EQ(convertEuropeanAmount("1.234.567,8-"), "1,234,567.8-");
    EXPECT_EQ(convertEuropeanAmount(","), ".");
    EXPECT_EQ(convertEuropeanAmount(""), "");
}

TEST(ConvertOutputForFieldType, FillsTheStoredTemplate) {
    TvPrefs prefs;
    prefs.setObject("DescriptionOutput", Value("%d - %m (%x) 100%"));
    EXPECT_EQ(convertOutputForFieldType(prefs, "DescriptionOutput", "Shop", "lunch"),
              "Shop - lunch (%x) 100");
    EXPECT_EQ(convertOutputForFieldType(prefs, "DescriptionOutput", "Shop", std::nullopt),
              "Shop -  (%x) 100");
    EXPECT_EQ(convertOutputForFieldType(prefs, "MemoOutput", "Shop", "lunch"), "");
}

TEST(TextSearch, SymbolAndEarlierPosition) {
    EXPECT_EQ(findSymbol("IBM  International"), "IBM");
    EXPECT_EQ(findSymbol(" x y"), " x");
    EXPECT_EQ(findSymbol("IBM"), "IBM");
    EXPECT_EQ(findSymbol(""), "");
    EXPECT_EQ(nonNullMin(3, std::nullopt), 3u);
    EXPECT_EQ(nonNullMin(std::nullopt, 4), 4u);
    EXPECT_EQ(nonNullMin(5, 4), 4u);
    EXPECT_EQ(nonNullMin(std::nullopt, std::nullopt), std::nullopt);
}

} // namespace
} // namespace tavvel
