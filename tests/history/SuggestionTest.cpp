#include "history/CategorySuggester.h"
#include "history/HistoryDatabase.h"
#include "support/LabelledPayees.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>
#include <iostream>

namespace tavvel {
namespace {

HistoryEntry filed(std::string description, std::string category) {
    return {{"1/2/2024", "-1.00", "", std::move(description), ""}, std::move(category), ""};
}

struct Suggestions : ::testing::Test {
    test::TempFolder folder;
    HistoryDatabase db;
    void SetUp() override {
        ASSERT_EQ(db.open(folder.path() / "h.sqlite"), HistoryDatabase::Opened::ok);
    }
};

TEST_F(Suggestions, StoreNumbersPrefixesAndRareWordsDecide) {
    ASSERT_TRUE(db.recordRun("A", 100,
                             {filed("GROCERY OUTLET #0412 SEATTLE WA", "Groceries"),
                              filed("SHELL OIL 57442213 SEATTLE WA", "Auto:Fuel"),
                              filed("SHELL OIL 57442999", "Auto:Fuel"),
                              filed("SHELLFISH HOUSE SEATTLE WA", "Dining"),
                              filed("CITY CAFE SEATTLE WA", "Dining"), filed("UNFILED SHOP", "")}));
    CategorySuggester s(&db);
    auto grocery = s.suggest("SQ *GROCERY OUTLET #0977 SEATTLE WA");
    ASSERT_TRUE(grocery);
    EXPECT_EQ(grocery->category, "Groceries");
    EXPECT_EQ(grocery->matchText, "GROCERY OUTLET");
    auto fuel = s.suggest("POS Shell Oil 1234");
    ASSERT_TRUE(fuel);
    EXPECT_EQ(fuel->category, "Auto:Fuel");
    EXPECT_EQ(fuel->matchText, "Shell Oil");
    EXPECT_EQ(s.suggest("SHELLFISH HOUSE #2")->category, "Dining");
    // The place every line carries says nothing; a payee never seen gets no suggestion.
    EXPECT_FALSE(s.suggest("NEW PLACE SEATTLE WA"));
    EXPECT_FALSE(s.suggest("UNFILED SHOP"));
    EXPECT_FALSE(s.suggest("#1234 5678"));
}

TEST_F(Suggestions, TiesGoToTheMostRecentAndInstructionsCount) {
    ASSERT_TRUE(db.recordRun("A", 100, {filed("CORNER STORE", "Groceries")}));
    ASSERT_TRUE(db.recordRun("A", 200, {filed("CORNER STORE", "Household")}));
    CategorySuggester s(&db);
    EXPECT_EQ(s.suggest("CORNER STORE 12")->category, "Household");
    s.addInstruction("CORNER STORE", "Gifts"); // the user's own rule is newer than any run
    EXPECT_EQ(s.suggest("CORNER STORE 12")->category, "Gifts");

    CategorySuggester instructionsOnly(nullptr);
    instructionsOnly.addInstruction("BLUE BOTTLE #0412", "Dining");
    auto coffee = instructionsOnly.suggest("BLUE BOTTLE 0977");
    ASSERT_TRUE(coffee);
    EXPECT_EQ(coffee->category, "Dining");
    EXPECT_EQ(coffee->matchText, "BLUE BOTTLE");
}

// Four fifths of the labelled set filed, the held-out fifth suggested for.
TEST_F(Suggestions, FirstSuggestionsOfAHeldOutFifthAreMostlyRight) {
    auto set = test::labelledPayees(2500);
    std::size_t train = set.size() * 4 / 5;
    std::vector<HistoryEntry> entries;
    for (std::size_t i = 0; i < train; ++i)
        entries.push_back(filed(set[i].description, set[i].category));
    ASSERT_TRUE(db.recordRun("A", 100, entries));
    CategorySuggester s(&db);
    std::size_t right = 0;
    for (std::size_t i = train; i < set.size(); ++i) {
        auto suggestion = s.suggest(set[i].description);
        right += suggestion && suggestion->category == set[i].category ? 1 : 0;
    }
    double share = static_cast<double>(right) / static_cast<double>(set.size() - train);
    std::cout << "first suggestions right: " << right << " of " << set.size() - train << " ("
              << share * 100 << "%)\n";
    EXPECT_GE(share, 0.8);
}

} // namespace
} // namespace tavvel
