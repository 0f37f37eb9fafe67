#include "KnowledgeFixture.h"
#include "knowledge/Amounts.h"
#include "knowledge/Descriptions.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/Settings.h"

namespace tavvel::test {
namespace {

Dictionary amount(const char* value, const char* description) {
    return record({{"amount", value}, {"amountDescription", description}});
}

std::string descriptionFor(const Dictionary& instruction, std::string_view value) {
    const Dictionary* found = Amounts::amountMatching(value, instruction);
    return found ? textOf(*found, akey::amountDescription) : "(none)";
}

TEST(AmountsTest, AmountsAreExactTextInLearningOrder) {
    Dictionary instruction = record({{"descriptionMatch", "NETFLIX"}});
    EXPECT_EQ(descriptionFor(instruction, "12.50"), "(none)");
    Amounts::setAmount(amount("12.50", "Basic plan"), instruction);
    Amounts::setAmount(amount("12.5", "Other plan"), instruction);
    Amounts::setAmount(amount("8.99", "Mobile"), instruction);
    Amounts::setAmount(amount("12.50", "Standard plan"), instruction);
    EXPECT_EQ(descriptionFor(instruction, "12.50"), "Standard plan");
    EXPECT_EQ(descriptionFor(instruction, "12.5"), "Other plan");
    EXPECT_EQ(descriptionFor(instruction, "12.500"), "(none)");
    const Array& amounts = find(instruction, ikey::amounts)->array();
    ASSERT_EQ(amounts.size(), 3u);
    EXPECT_EQ(textOf(amounts[2].dictionary(), akey::amount), "8.99");
}

TEST(AmountsTest, DeletingTheLastAmountRemovesTheKey) {
    Dictionary instruction = record({{"descriptionMatch", "GYM"}});
    Amounts::setAmount(amount("30.00", "Dues"), instruction);
    Amounts::setAmount(amount("5.00", "Towel"), instruction);
    Amounts::deleteAmount("5.0", instruction);
    EXPECT_EQ(find(instruction, ikey::amounts)->array().size(), 2u);
    Amounts::deleteAmount("5.00", instruction);
    EXPECT_EQ(find(instruction, ikey::amounts)->array().size(), 1u);
    Amounts::deleteAmount("30.00", instruction);
    EXPECT_FALSE(has(instruction, ikey::amounts));
    Amounts::deleteAmount("30.00", instruction);
    EXPECT_FALSE(has(instruction, ikey::amounts));
}

TEST(AmountsTest, ChooserCompletesAmongTheInstructionsAmounts) {
    Dictionary instruction = record({{"descriptionMatch", "GYM"}});
    for (const char* value : {"125.00", "12.50", "12.5"})
        Amounts::setAmount(amount(value, "x"), instruction);
    Amounts chooser;
    chooser.initializeComboBoxForInstruction(instruction);
    EXPECT_EQ(chooser.numberOfItems(), 3u);
    EXPECT_EQ(chooser.completedString("12"), (Completion{"12.5", 2}));
    EXPECT_EQ(chooser.completedString("12.50"), (Completion{"12.50", 5}));
    EXPECT_EQ(chooser.completedString("125"), (Completion{"125.00", 3}));
    EXPECT_FALSE(chooser.completedString("13"));
    EXPECT_EQ(chooser.indexOfItemWithStringValue("12.5"), 2u);
}

using DescriptionsTest = KnowledgeTest;

TEST_F(DescriptionsTest, SortedWithoutExactDuplicatesButWithCaseVariants) {
    Descriptions descriptions(prefs());
    EXPECT_FALSE(descriptions.exists());
    for (const char* text : {"Safeway", "amazon", "Costco", "AMAZON", "", "amazon", "Zappos"})
        descriptions.addDescription(text);
    EXPECT_EQ(descriptions.getDescriptionsArray(),
              texts({"amazon", "AMAZON", "Costco", "Safeway", "Zappos"}));
    prefs().synchronize();
    TvPrefs again = reopened();
    EXPECT_EQ(Descriptions(again).getDescriptionsArray(), descriptions.getDescriptionsArray());
}

// A statement may bring thousands of new descriptions: they are saved with the store, not
// one write each.
TEST_F(DescriptionsTest, AddingWritesNothingUntilTheStoreIsSaved) {
    Descriptions descriptions(prefs());
    std::filesystem::remove(prefsFile());
    descriptions.addDescription("Costco");
    descriptions.addDescription("Costco");
    descriptions.addDescription("");
    EXPECT_FALSE(std::filesystem::exists(prefsFile()));
    prefs().synchronize();
    TvPrefs again = reopened();
    EXPECT_EQ(Descriptions(again).getDescriptionsArray(), texts({"Costco"}));
}

// A walk's descriptions join the list together, and end as they would one by one: after the
// entries equal ignoring case, in the order they came, without exact duplicates. A list out
// of order is added to one by one.
TEST_F(DescriptionsTest, AddedTogetherAsIfAddedOneByOne) {
    const std::vector<std::string> batch{"costco", "Zappos", "",     "Costco", "AMAZON",
                                         "zappos", "amazon", "Aldi", "Costco", "Zzz"};
    for (const Array& start : {texts({"amazon", "Costco", "Safeway"}), texts({}),
                               texts({"Safeway", "amazon", "Costco"})}) {
        TestContext together, oneByOne;
        together.ctx.prefs.setObject(prefkey::Descriptions, Value(start));
        oneByOne.ctx.prefs.setObject(prefkey::Descriptions, Value(start));
        Descriptions(together.ctx.prefs).addDescriptions(batch);
        Descriptions each(oneByOne.ctx.prefs);
        for (const std::string& text : batch)
            each.addDescription(text);
        EXPECT_EQ(Descriptions(together.ctx.prefs).getDescriptionsArray(),
                  each.getDescriptionsArray());
    }
}

TEST_F(DescriptionsTest, CreatedFromInstructionsAsIfAddedOneByOne) {
    Dictionary withAmounts = record({{"descriptionMatch", "GYM"}, {"newDescription", "Gym"}});
    Amounts::setAmount(amount("5.00", "gym"), withAmounts);
    Amounts::setAmount(amount("6.00", "Towel"), withAmounts);
    Array instructions{Value(record({{"descriptionMatch", "SHELL"}, {"newDescription", "Shell"}})),
                       Value(withAmounts), Value(record({{"categoryMatch", "Auto"}})),
                       Value(record({{"descriptionMatch", "Gym"}})), Value("not a record")};
    Descriptions created(prefs());
    created.createFromInstructions(instructions);

    TestContext other;
    Descriptions oneByOne(other.ctx.prefs);
    for (const char* text : {"SHELL", "Shell", "GYM", "Gym", "gym", "Towel", "Gym"})
        oneByOne.addDescription(text);
    EXPECT_EQ(created.getDescriptionsArray(), oneByOne.getDescriptionsArray());
    EXPECT_EQ(created.getDescriptionsArray(),
              texts({"GYM", "Gym", "gym", "SHELL", "Shell", "Towel"}));
    TvPrefs again = reopened();
    EXPECT_TRUE(Descriptions(again).exists());
}

TEST_F(DescriptionsTest, ChooserCompletesByLevels) {
    Descriptions descriptions(prefs());
    descriptions.setDescriptionsArray(
        texts({"Food Lion", "Food:Groceries", "Food:Dining", "Foodland", "Fuel"}));
    EXPECT_EQ(descriptions.completedString("foo"), (Completion{"Foodland", 3}));
    EXPECT_EQ(descriptions.completedString("Foo:"), (Completion{"Food:Dining", 5}));
    EXPECT_EQ(descriptions.completedString("food:"), (Completion{"Food:Dining", 5}));
    EXPECT_EQ(descriptions.completedString("Food:D"), (Completion{"Food:Dining", 6}));
    EXPECT_FALSE(descriptions.completedString("Fuel:"));
    EXPECT_FALSE(descriptions.completedString("x"));
    EXPECT_EQ(descriptions.itemAtIndex(-1), "");
    EXPECT_EQ(descriptions.itemAtIndex(4), "Fuel");
}

} // namespace
} // namespace tavvel::test
