#include "knowledge/Instructions.h"

#include "KnowledgeFixture.h"
#include "knowledge/InstructionMatch.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/Settings.h"
#include "recognize/CaseFold.h"

#include <random>

namespace tavvel::test {
namespace {

Dictionary byDescription(const char* match, const char* category = "Misc") {
    return record({{"descriptionMatch", match}, {"category", category}});
}

Dictionary byCategory(const char* match, const char* category = "Misc") {
    return record({{"categoryMatch", match}, {"category", category}});
}

std::string matchOf(const std::optional<Dictionary>& instruction) {
    return instruction ? matchTextOf(*instruction) : std::string("(none)");
}

class InstructionsTest : public KnowledgeTest {
protected:
    std::string matching(std::string_view text, std::string_view key = ikey::descriptionMatch) {
        return matchOf(store.instructionMatching(text, key));
    }
    Instructions store{prefs()};
};

TEST_F(InstructionsTest, FirstMatchTakesListOrderLongestTakesTheLongest) {
    store.setInstruction(byDescription("AMAZON MKTP", "Shopping"));
    store.setInstruction(byDescription("AMAZON", "Books"));
    EXPECT_EQ(matching("Amazon Mktp 123"), "AMAZON");
    addOption(prefs(), option::longestInstructionMatch);
    EXPECT_EQ(matching("Amazon Mktp 123"), "AMAZON MKTP");
    EXPECT_EQ(matching("Amazon.com"), "AMAZON");
    EXPECT_EQ(matching("AMAZO"), "(none)");
}

TEST_F(InstructionsTest, ContainsModeAppliesToDescriptionsOnly) {
    store.setInstruction(byDescription("MKTP"));
    store.setInstruction(byCategory("Food"));
    EXPECT_EQ(matching("Amazon Mktp 123"), "(none)");
    addOption(prefs(), option::matchDescriptionWithContains);
    EXPECT_EQ(matching("Amazon Mktp 123"), "MKTP");
    EXPECT_EQ(matching("Fast Food", ikey::categoryMatch), "(none)");
    EXPECT_EQ(matching("Food:Dining", ikey::categoryMatch), "Food");
}

// Letter case is ignored beyond ASCII, in every mode and in the chooser; bytes that are not
// UTF-8 stand for themselves and are neither lost nor matched to a letter.
TEST_F(InstructionsTest, AccentedLettersMatchInEitherCase) {
    store.setInstruction(byDescription("CAFÉ"));
    store.setInstruction(byDescription("MÜLLER GMBH"));
    store.setInstruction(byDescription("ΣΟΦΊΑ"));
    store.setInstruction(byDescription("M\xDCLLER"));
    EXPECT_EQ(matching("café royal"), "CAFÉ");
    EXPECT_EQ(matching("Müller GmbH Berlin"), "MÜLLER GMBH");
    EXPECT_EQ(matching("σοφία 7"), "ΣΟΦΊΑ");
    EXPECT_EQ(matching("m\xDCller"), "M\xDCLLER");
    EXPECT_EQ(matching("CAFE"), "(none)");
    EXPECT_EQ(matching("M\xFCLLER"), "(none)");
    EXPECT_EQ(store.completedString("mü"), (Completion{"MÜLLER GMBH", 3}));
    addOption(prefs(), option::longestInstructionMatch);
    EXPECT_EQ(matching("müller gmbh"), "MÜLLER GMBH");
    addOption(prefs(), option::matchDescriptionWithContains);
    EXPECT_EQ(matching("POS Café Royal"), "CAFÉ");
    EXPECT_EQ(matching("x müller gmbh"), "MÜLLER GMBH");
    EXPECT_EQ(foldCase("CAF\xC9 \xFF\xC3"), "caf\xC9 \xFF\xC3");
}

TEST_F(InstructionsTest, EmptyMatchTextRules) {
    store.setInstruction(byDescription("", "Uncategorised"));
    store.setInstruction(byDescription("SHELL"));
    // First-match mode: the empty match text stands first and applies to every text.
    EXPECT_EQ(matching("Shell Oil"), "");
    EXPECT_EQ(matching(""), "");
    // Longest mode: never chosen for a non-empty text, still taken for an empty one.
    addOption(prefs(), option::longestInstructionMatch);
    EXPECT_EQ(matching("Shell Oil"), "SHELL");
    EXPECT_EQ(matching("Texaco"), "(none)");
    EXPECT_EQ(matching(""), "");
    // Contains mode: an empty match text applies to nothing but the empty text.
    addOption(prefs(), option::matchDescriptionWithContains);
    EXPECT_EQ(matching("Texaco"), "(none)");
    EXPECT_EQ(matching(""), "");
    // Without an empty match text, an empty text finds nothing, not SHELL.
    store.removeInstruction(byDescription(""));
    EXPECT_EQ(matching(""), "(none)");
}

TEST_F(InstructionsTest, CategoryAndDescriptionMatchesShareOneList) {
    store.setInstruction(byDescription("Groceries", "Food"));
    store.setInstruction(byCategory("Gas", "Auto:Fuel"));
    store.setInstruction(byDescription("Gasco", "Utilities"));
    EXPECT_EQ(matching("Gasco Energy"), "Gasco");
    EXPECT_EQ(matching("Gas Station", ikey::categoryMatch), "Gas");
    EXPECT_EQ(matching("Groceries", ikey::categoryMatch), "(none)");
    // The same text as a category match replaces the description match: one entry per text.
    std::size_t at = store.setInstruction(byCategory("GROCERIES", "Food:Market"));
    EXPECT_EQ(store.numberOfInstructions(), 3u);
    EXPECT_EQ(matching("Groceries Inc"), "(none)");
    EXPECT_EQ(textOf(*store.instructionAtIndex(at), ikey::category), "Food:Market");
}

TEST_F(InstructionsTest, ReplacingIgnoresCaseAndKeepsThePlace) {
    EXPECT_EQ(store.setInstruction(byDescription("Costco")), 0u);
    EXPECT_EQ(store.setInstruction(byDescription("amazon")), 0u);
    EXPECT_EQ(store.setInstruction(byDescription("Zappos")), 2u);
    EXPECT_EQ(store.setInstruction(byDescription("COSTCO", "Groceries")), 1u);
    ASSERT_EQ(store.numberOfInstructions(), 3u);
    EXPECT_EQ(matchTextOf(*store.instructionAtIndex(1)), "COSTCO");
    EXPECT_EQ(textOf(*store.instructionFor("costco"), ikey::category), "Groceries");

    TvPrefs again = reopened();
    Instructions reread(again);
    ASSERT_EQ(reread.numberOfInstructions(), 3u);
    EXPECT_EQ(matchTextOf(*reread.instructionAtIndex(0)), "amazon");
    EXPECT_EQ(textOf(*reread.instructionAtIndex(1), ikey::category), "Groceries");
}

TEST_F(InstructionsTest, RemovalIsWrittenAndLookupsFollow) {
    store.setInstruction(byDescription("AMAZON"));
    store.setInstruction(byDescription("AMAZON MKTP"));
    store.removeInstruction(byDescription("amazon"));
    EXPECT_EQ(matching("Amazon Mktp 1"), "AMAZON MKTP");
    EXPECT_EQ(matching("Amazon Prime"), "(none)");
    store.removeInstruction(byDescription("not there"));
    store.removeInstructionAtIndex(7);
    EXPECT_EQ(store.numberOfInstructions(), 1u);
    TvPrefs again = reopened();
    EXPECT_EQ(Instructions(again).numberOfInstructions(), 1u);
    store.removeInstructionAtIndex(0);
    EXPECT_EQ(matching("Amazon Mktp 1"), "(none)");
    TvPrefs last = reopened();
    EXPECT_EQ(Instructions(last).numberOfInstructions(), 0u);
}

TEST_F(InstructionsTest, UnsortedStoredListKeepsListOrder) {
    // An older list that was never sorted: ties still go to the earlier entry.
    store.setInstructionsArray({Value(byDescription("WAL")), Value(byDescription("walmart")),
                                Value(byDescription("W")), Value(byDescription("WALMART"))});
    EXPECT_EQ(matching("Walmart #12"), "WAL");
    addOption(prefs(), option::longestInstructionMatch);
    EXPECT_EQ(matching("Walmart #12"), "walmart");
    EXPECT_EQ(matchOf(store.instructionFor("WALMART")), "walmart");
    // Storing walks from the front: "X" sorts after every entry, so it goes to the end.
    EXPECT_EQ(store.setInstruction(byDescription("X")), 4u);
}

TEST_F(InstructionsTest, EveryStoreObjectSeesTheOthersChanges) {
    store.setInstruction(byDescription("AMAZON"));
    store.setInstruction(byDescription("Target"));
    EXPECT_EQ(matching("Amazon"), "AMAZON");
    // Replaced in place, the list keeping its size: only a shared index can know.
    Instructions other(prefs());
    other.setInstruction(byCategory("amazon"));
    EXPECT_EQ(matching("Amazon"), "(none)");
    EXPECT_EQ(matching("Amazon", ikey::categoryMatch), "amazon");
    other.setInstruction(byDescription("AMAZON MKTP"));
    addOption(prefs(), option::longestInstructionMatch);
    EXPECT_EQ(matching("Amazon Mktp"), "AMAZON MKTP");
    // A list replaced behind every store object's back, with another size, is noticed too.
    prefs().setObject(prefkey::Instructions, Value(Array{Value(byDescription("Zappos"))}));
    EXPECT_EQ(matching("Zappos shoes"), "Zappos");
    EXPECT_EQ(matching("Target 55"), "(none)");
    // So is a list of the same size, and a whole store put back as it was, or replaced.
    prefs().setObject(prefkey::Instructions, Value(Array{Value(byDescription("Target"))}));
    EXPECT_EQ(matching("Target 55"), "Target");
    TvPrefs before;
    before.setObject(prefkey::Instructions, Value(Array{Value(byDescription("Costco"))}));
    prefs() = before;
    EXPECT_EQ(matching("Costco 9"), "Costco");
    TvPrefs replacing;
    replacing.setObject(prefkey::Instructions, Value(Array{Value(byDescription("Walmart"))}));
    prefs() = std::move(replacing);
    EXPECT_EQ(matching("Walmart 9"), "Walmart");
}

TEST_F(InstructionsTest, ChooserCompletesToTheShortestMatchText) {
    store.setInstruction(byDescription("AMAZON MKTP"));
    store.setInstruction(byDescription("AMAZON"));
    store.setInstruction(byCategory("Amex"));
    EXPECT_EQ(store.completedString("am"), (Completion{"Amex", 2}));
    EXPECT_EQ(store.completedString("ama"), (Completion{"AMAZON", 3}));
    EXPECT_EQ(store.completedString("amazon m"), (Completion{"AMAZON MKTP", 8}));
    EXPECT_EQ(store.completedString("ame"), (Completion{"Amex", 3}));
    EXPECT_FALSE(store.completedString("b"));
    EXPECT_EQ(store.itemAtIndex(-1), "");
    EXPECT_EQ(store.indexOfItemWithStringValue("Amex"), 2u);
    EXPECT_FALSE(store.indexOfItemWithStringValue("amex"));
}

// The index must give the walk's answer on any list: unsorted, with duplicates ignoring case,
// empty match texts, both kinds of match, and records that are not instructions.
TEST_F(InstructionsTest, IndexAgreesWithTheWalkOnRandomLists) {
    std::mt19937 random(20240601);
    int found = 0;
    const char* pieces[] = {"", "a", "A", "ab", "AB", "abc", "b", "ba", "bab", "é", "É", "ém"};
    auto pick = [&] { return std::string(pieces[random() % std::size(pieces)]); };
    for (int round = 0; round < 60; ++round) {
        Array list;
        for (int i = 0, n = static_cast<int>(random() % 12); i < n; ++i) {
            std::string match = pick() + pick();
            int shape = static_cast<int>(random() % 8);
            if (shape == 0)
                list.emplace_back("not a record");
            else if (shape < 4)
                list.emplace_back(record({{"categoryMatch", Value(match)}}));
            else
                list.emplace_back(record({{"descriptionMatch", Value(match)}}));
        }
        store.setInstructionsArray(list);
        for (int edit = 0; edit < 3; ++edit) {
            if (random() % 2)
                store.setInstruction(record({{"descriptionMatch", Value(pick())}}));
            else
                store.removeInstructionAtIndex(random() % (list.size() + 1));
        }
        Array now = store.getInstructionsArray();
        for (int mode = 0; mode < 4; ++mode) {
            MatchRules rules{(mode & 1) != 0, (mode & 2) != 0};
            Array options;
            if (rules.longest)
                options.emplace_back(option::longestInstructionMatch);
            if (rules.contains)
                options.emplace_back(option::matchDescriptionWithContains);
            prefs().setObject(prefkey::Preferences, Value(options));
            for (int probe = 0; probe < 20; ++probe) {
                std::string text = pick() + pick() + pick();
                for (std::string_view key : {ikey::descriptionMatch, ikey::categoryMatch}) {
                    MatchRules keyRules = matchRulesFor(prefs(), key);
                    auto walked = walkForInstruction(now, text, key, keyRules);
                    EXPECT_EQ(store.indexOfInstructionMatching(text, key), walked)
                        << "text '" << text << "' key " << key << " mode " << mode;
                    found += walked.has_value();
                }
            }
        }
    }
    EXPECT_GT(found, 1000); // the lists are not so sparse that every answer is "nothing"
}

} // namespace
} // namespace tavvel::test
