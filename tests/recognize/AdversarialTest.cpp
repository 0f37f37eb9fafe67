// Hostile and degenerate inputs through every scanner: none may read outside its text, and
// none may slow to a crawl on a long line (the sanitizer build runs these too).

#include "recognize/FindAmount.h"
#include "recognize/FindDate.h"
#include "recognize/FindField.h"
#include "recognize/FindLines.h"
#include "recognize/InputFormatKeys.h"
#include "recognize/ParseDate.h"
#include "recognize/TextRewrite.h"
#include "recognize/TextSearch.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

std::string repeated(std::string_view piece, std::size_t bytes) {
    std::string out;
    while (out.size() < bytes)
        out += piece;
    return out;
}

std::vector<std::string> hostileTexts() {
    constexpr std::size_t kMegabyte = 1 << 20;
    constexpr std::size_t kLong = 1 << 18;
    return {"",
            "(",
            "/",
            "-",
            ".",
            ",",
            "\"",
            "Jan",
            "Jan 5,",
            "12/",
            "3/4/",
            "a\t",
            "x  ",
            "\"a\" ",
            std::string(1, '\0') + "1/2/3",
            repeated("no date here ", kMegabyte),
            repeated("7", kLong),
            repeated("0", kLong),
            repeated(" ", kLong),
            repeated("\v", kLong),
            repeated("12/", kLong),
            repeated("1/ ", kLong),
            repeated("1 Jan ", kLong),
            repeated("9", kLong / 2) + " Jan " + repeated("9", kLong / 2),
            repeated("\t ", kLong),
            repeated("\"\"", kLong),
            repeated("20200213 ", kLong)};
}

std::vector<Dictionary> formats() {
    std::vector<Dictionary> out;
    for (std::string_view delimiter : {"/", "-", ",", "8", "", "x"})
        for (std::string_view start : {" ", ""})
            out.push_back(Dictionary{{std::string(fmtkey::DateDelimiter), Value(delimiter)},
                                     {std::string(fmtkey::DateStart), Value(start)},
                                     {std::string(fmtkey::DateEnd), Value(" ")},
                                     {std::string(fmtkey::DistanceFromNewline), Value(3)}});
    return out;
}

TEST(Adversarial, DateScannersStayInsideAnyText) {
    const Configuration& config = test::shippedConfiguration();
    const Clock clock = test::fixedClock(2024, 6, 1);
    const std::vector<Dictionary> all = formats();
    for (const std::string& text : hostileTexts()) {
        std::int64_t length = 0;
        BlankCounts blanks{-1, -1};
        for (const Dictionary& format : all) {
            std::optional<std::size_t> at = findDate(text, length, format, config, blanks);
            ASSERT_TRUE(!at || *at <= text.size());
        }
        findDateLong(text, length, config);
        findDateSlash(text, length);
        findDateDash(text, length);
        findDateDot(text, length);
        findDateEightDigits(text, length);
        if (text.size() > 100)
            continue; // the parsers take one date at a time
        std::int64_t m = 0, d = 0, y = 0;
        for (const Dictionary& format : all)
            parseDate(text, format, m, d, y, config, clock);
        parseQIFDate(text, m, d, y, true, config, clock);
    }
    std::int64_t length = 0;
    EXPECT_EQ(findDateSlash(repeated("no date here ", 1 << 20), length), std::nullopt);
}

TEST(Adversarial, FieldAndAmountScannersStayInsideAnyText) {
    for (const std::string& original : hostileTexts()) {
        for (std::string_view fields : {"OFX", "MULTIPLE_BLANKS", "TABS_ONLY", "CSV", "SSV",
                                        "COLUMNS", "COUNT", "INITIAL_BLANKS"}) {
            std::string text = original;
            BlankCounts blanks;
            const Dictionary format{{std::string(fmtkey::Fields), Value(fields)}};
            for (std::size_t pos = 0; pos < text.size();) {
                std::size_t next = findField(text, pos, format, blanks);
                ASSERT_GT(next, pos) << fields; // always moves on
                ASSERT_LE(next, text.size());
                pos = next;
            }
        }
        findAmount(original);
        findLines(original);
        matchField(original, "Jan", false);
        matchField(original, " ", true);
        findSymbol(original);
        convertEuropeanAmount(original);
        std::string copy = original.substr(0, 4096);
        caseInsensitiveReplace(copy, "\"", "\"\"");
    }
}

} // namespace
} // namespace tavvel
