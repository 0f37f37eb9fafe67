#include "KnowledgeFixture.h"
#include "knowledge/Categories.h"
#include "knowledge/Instructions.h"
#include "knowledge/KnowledgeListing.h"
#include "prefs/Settings.h"

namespace tavvel::test {
namespace {

using ListingTest = KnowledgeTest;

TEST_F(ListingTest, EachListPrintsOneEntryALine) {
    Instructions instructions(prefs());
    instructions.setInstruction(record({{"descriptionMatch", "SHELL"}, {"category", "Auto:Fuel"}}));
    instructions.setInstruction(record({{"categoryMatch", "Dining"}, {"category", "Food"}}));
    prefs().setObject(prefkey::Accounts, Value(Array{account("Visa", "CCard")}));
    Categories(prefs()).setCategoriesArray(texts({"Auto:Fuel", "[Visa]"}));
    EXPECT_EQ(listKnowledge(prefs(), "instructions"),
              "Dining\tcategory\tFood\nSHELL\tdescription\tAuto:Fuel\n");
    EXPECT_EQ(listKnowledge(prefs(), "accounts"), "Visa\tCCard\n");
    EXPECT_EQ(listKnowledge(prefs(), "categories"), "Auto:Fuel\n[Visa]\n");
    EXPECT_EQ(listKnowledge(prefs(), "formats"), "");
    EXPECT_FALSE(listKnowledge(prefs(), "payees"));
    EXPECT_EQ(knowledgeLists().size(), 6u);
}

} // namespace
} // namespace tavvel::test
