// Text no bank would write, through every layout: reading ends, and every transaction handed
// out is either its fields with a date or an "ERROR" triple.

#include "formats/Extract.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

const std::vector<std::string> kLayouts{"INITIAL_BLANKS",
                                        "COLUMNS",
                                        "COUNT",
                                        "TABS_ONLY",
                                        "MULTIPLE_BLANKS",
                                        "CSV",
                                        "SSV",
                                        "OFX",
                                        "XSV",
                                        ""};

std::vector<std::string> hostileTexts() {
    using namespace std::string_literals;
    return {
        "\n1/2/2024"s,
        "\n1/2/2024\""s,
        "\n1/2/2024,\"\"\"\n1/3/2024,\"a\"\"\""s,
        "\n1/2/2024;;;;\";\n\r\n\r1/3/2024;\""s,
        "\n1/2/2024\0,\0\t\0;x"s,
        "\n1/2/2024" + std::string(5000, ' ') + "x\t" + std::string(3000, '\t') + "\n1/3/2024",
        "\n1/2/2024\t \t \t  \t\n  \n   \n1/3/2024\t\xff\xfe\x80"s,
        "1/2/2024\n1/2/2024\n1/2/2024/2024/2024\n/\n//\n1//2"s,
        "\n99999999999999999999/99999999999999999999/99999999999999999999,x"s,
        "\n0/0/0\n-1/-1/-1\n1/2\n12/31\n"s,
    };
}

Dictionary formatFor(const std::string& layout, bool onePerLine, bool firstLine) {
    Dictionary format{{"Fields", Value(layout)},
                      {"DateDelimiter", Value("/")},
                      {"DateStart", Value("\n")},
                      {"DateEnd", Value(layout.ends_with("SV") ? "," : "\t")},
                      {"Date", Value(0)}};
    if (layout == "OFX") {
        format.emplace("OFX", Value(true));
        format.emplace("DateAfter", Value("\n"));
    }
    if (onePerLine)
        format.emplace("OneTransactionPerLine", Value(true));
    if (firstLine)
        format.emplace("firstLineStartsWithTransactionDate", Value(true));
    return format;
}

TEST(ExtractHostileText, EveryLayoutEndsAndHandsOutFieldsOrErrors) {
    test::TestContext t;
    Extract extract(t.ctx);
    for (const std::string& layout : kLayouts)
        for (int shape = 0; shape < 4; ++shape)
            for (const std::string& text : hostileTexts()) {
                const Dictionary format = formatFor(layout, shape & 1, shape & 2);
                t.ctx.blanks.multipleBlanks = shape == 3 ? 3 : 0;
                if (!extract.parseTransactionsForCString(text, format))
                    continue;
                std::size_t handedOut = 0;
                while (const auto* fields = extract.nextTransactionUsingFormat(format, kDistantPast,
                                                                               kDistantFuture)) {
                    ASSERT_FALSE(fields->empty()) << layout;
                    if ((*fields)[0] == "ERROR") {
                        EXPECT_EQ(fields->size(), 3u) << layout;
                    }
                    ASSERT_LE(++handedOut, extract.transactionsAsLines.size()) << layout;
                }
                EXPECT_EQ(extract.outputLength.size(), extract.transactionsAsLines.size());
                LayoutChoice choice{shape * 2, (shape & 1) != 0, (shape & 2) != 0};
                extract.inputCsave = text;
                Dictionary learning = format;
                extract.parseFields(choice, learning);
                EXPECT_EQ(extract.transactionsAsFields.size(), extract.transactionsAsLines.size());
            }
}

} // namespace
} // namespace tavvel
