#include "recognize/FindField.h"

#include "recognize/InputFormatKeys.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

Dictionary layout(std::string_view fields, bool nonUS = false) {
    Dictionary f{{std::string(fmtkey::Fields), Value(fields)}};
    if (nonUS)
        f[std::string(fmtkey::nonUScharacters)] = Value(true);
    return f;
}

// The starts of every field after the first.
std::vector<std::size_t> starts(std::string text, const Dictionary& format, BlankCounts& blanks) {
    std::vector<std::size_t> out;
    for (std::size_t pos = 0; pos < text.size();) {
        pos = findField(text, pos, format, blanks);
        out.push_back(pos);
    }
    return out;
}

TEST(FindField, QuotedSeparatedValues) {
    BlankCounts blanks;
    const Dictionary csv = layout("CSV");
    EXPECT_EQ(starts(R"("Smith, J",12,x)", csv, blanks), (std::vector<std::size_t>{11, 14, 15}));
    EXPECT_EQ(starts(R"("say ""hi"", ok",5)", csv, blanks), (std::vector<std::size_t>{17, 18}));
    EXPECT_EQ(starts(R"("never closed,12)", csv, blanks), (std::vector<std::size_t>{16}));
    EXPECT_EQ(starts(R"(a;"b;c";d)", layout("SSV"), blanks), (std::vector<std::size_t>{2, 8, 9}));

    std::string last = R"(x,"Shop" )";
    EXPECT_EQ(findField(last, 2, csv, blanks), 8u);
    EXPECT_EQ(last, R"(x,"Shop")"); // the one trailing blank is cut off
    std::string two = R"(x,"Shop"  )";
    EXPECT_EQ(findField(two, 2, csv, blanks), two.size());
    EXPECT_EQ(two.size(), 10u);
}

TEST(FindField, MultipleBlanksByTheMeasuredGap) {
    BlankCounts blanks;
    std::string text = "Shop      12.00";
    blanks.multipleBlanks = 4;
    EXPECT_EQ(findField(text, 0, layout("MULTIPLE_BLANKS"), blanks), 8u); // two blanks stay
    blanks.multipleBlanks = -1;
    EXPECT_EQ(findField(text, 0, layout("MULTIPLE_BLANKS"), blanks), 10u);
    std::string single = "a b c";
    EXPECT_EQ(findField(single, 0, layout("MULTIPLE_BLANKS"), blanks), single.size());
}

TEST(FindField, TabAndLineSeparatedLayouts) {
    BlankCounts blanks;
    std::string text = "a\t\n  b";
    EXPECT_EQ(findField(text, 0, layout("COLUMNS"), blanks), 2u);
    EXPECT_EQ(findField(text, 0, layout("COUNT"), blanks), 5u);
    EXPECT_EQ(findField(text, 0, layout("TABS_ONLY"), blanks), 5u);
    std::string tabs = "a\t\tb";
    EXPECT_EQ(findField(tabs, 0, layout("TABS_ONLY"), blanks), 2u);
    std::string high = "a\t\xE9t";
    EXPECT_EQ(findField(high, 0, layout("COUNT", true), blanks), 2u);
    EXPECT_EQ(findField(high, 0, layout("COUNT"), blanks), 3u);
    EXPECT_EQ(findField(high, 0, layout("OFX"), blanks), high.size());
}

TEST(FindField, InitialBlanksJoinFieldsThatStartAlike) {
    BlankCounts blanks;
    std::string text = "a\t  b\t  c\t d";
    const Dictionary f = layout("INITIAL_BLANKS");
    EXPECT_EQ(findField(text, 0, f, blanks), 4u);
    EXPECT_EQ(blanks.initialBlanks, 2);
    // Two blanks again: the separator belongs to the field, which runs on to "d".
    EXPECT_EQ(findField(text, 4, f, blanks), 11u);
    EXPECT_EQ(blanks.initialBlanks, 1);
    std::string tail = "x\t";
    EXPECT_EQ(findField(tail, 0, f, blanks), 2u);
    EXPECT_EQ(blanks.initialBlanks, 0);
}

} // namespace
} // namespace tavvel
