// The learning dialogue's preview table and the layout choices it stores.

#include "formats/Extract.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

struct ExtractPreview : ::testing::Test {
    test::TestContext t;
    Extract extract{t.ctx};
    Dictionary format{{"DateDelimiter", Value("/")},
                      {"DateStart", Value("\n")},
                      {"DateEnd", Value(",")},
                      {"DistanceFromNewline", Value(4)}};

    std::string cell(std::size_t row, std::string_view column) const {
        return textOf(extract.transactionsAsFields.at(row), column, "(none)");
    }
};

TEST_F(ExtractPreview, LayoutChoicesAreStoredInTheFormat) {
    const std::vector<std::string> layouts{"INITIAL_BLANKS",  "COLUMNS", "COUNT",   "TABS_ONLY",
                                           "MULTIPLE_BLANKS", "CSV",     "COLUMNS", "SSV"};
    extract.distanceFromNewline = 7;
    for (int choice = 0; choice < 8; ++choice) {
        Dictionary f = format;
        extract.parseFields({choice, false, false}, f);
        EXPECT_EQ(textOf(f, "Fields"), layouts[static_cast<std::size_t>(choice)]) << choice;
        const Value* distance = find(f, "DistanceFromNewline");
        if (choice == 6) {
            ASSERT_TRUE(distance);
            EXPECT_EQ(distance->toInteger(), 7);
        } else {
            EXPECT_FALSE(distance) << choice;
        }
    }
}

TEST_F(ExtractPreview, SwitchesAreStoredWhenOnAndRemovedWhenOff) {
    extract.parseFields({5, true, true}, format);
    for (std::string_view key : {"OneTransactionPerLine", "nonUScharacters"}) {
        ASSERT_TRUE(find(format, key)) << key;
        EXPECT_EQ(*find(format, key), Value(true)) << key;
    }
    extract.parseFields({5, false, false}, format);
    EXPECT_FALSE(has(format, "OneTransactionPerLine"));
    EXPECT_FALSE(has(format, "nonUScharacters"));
}

TEST_F(ExtractPreview, CellsAreMadeFitForATable) {
    extract.inputCsave = "Date,Payee,Memo,Amount,Spare\n"
                         "05/02/2024,\"CORNER   SHOP\",\"say \"\"hi\"\"\",-4.00,\n"
                         "05/03/2024," +
                         std::string(300, 'y') +
                         ",,\"open,  x\n"
                         "05/04/2024,a,b,c,d, \n";
    extract.parseFields({5, true, false}, format);
    ASSERT_EQ(extract.transactionsAsFields.size(), 3u);
    EXPECT_EQ(cell(0, "0"), "05/02/2024"); // as written, not rewritten
    EXPECT_EQ(cell(0, "1"), "CORNER SHOP");
    EXPECT_EQ(cell(0, "2"), "say \"hi\"");
    EXPECT_EQ(cell(0, "3"), "-4.00");
    EXPECT_EQ(cell(0, "4"), "(none)"); // the trailing comma ends the row
    EXPECT_EQ(cell(1, "1"), std::string(255, 'y'));
    EXPECT_EQ(cell(1, "2"), "");
    // A quote that nothing closes is still shown, without its quote.
    EXPECT_EQ(cell(1, "3"), "open, x");
    EXPECT_EQ(cell(2, "5"), "");
    EXPECT_EQ(extract.previewColumns, 5); // the highest non-empty field is 4
}

TEST_F(ExtractPreview, LineEndsInsideAFieldBecomeOneBlank) {
    extract.inputCsave = "x\n05/02/2024\tWRAPPED\n   DESCRIPTION\t\t-1.00\n05/03/2024\tB";
    Dictionary tabs{
        {"DateDelimiter", Value("/")}, {"DateStart", Value("\n")}, {"DateEnd", Value("\t")}};
    extract.parseFields({3, false, false}, tabs);
    ASSERT_EQ(extract.transactionsAsFields.size(), 2u);
    EXPECT_EQ(cell(0, "1"), "WRAPPED DESCRIPTION");
    EXPECT_EQ(cell(0, "2"), "");
    EXPECT_EQ(cell(0, "3"), "-1.00");
    EXPECT_EQ(cell(1, "1"), "B");
    EXPECT_EQ(extract.previewColumns, 4);
}

TEST_F(ExtractPreview, ASampleWithoutTransactionsGivesAnEmptyTable) {
    extract.inputCsave = "no dates";
    extract.parseFields({1, false, false}, format);
    EXPECT_TRUE(extract.transactionsAsFields.empty());
    EXPECT_EQ(extract.previewColumns, 0);
}

} // namespace
} // namespace tavvel
