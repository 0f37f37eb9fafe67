#include "knowledge/Securities.h"

#include "KnowledgeFixture.h"
#include "forms/ListEditors.h"
#include "knowledge/Formats.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/Settings.h"

#include <limits>

namespace tavvel::test {
namespace {

Value security(const char* name, const char* symbol) {
    return Value(record({{"Name", name}, {"Symbol", symbol}}));
}

Value mapping(const char* statementText, const char* quickenName) {
    return Value(record({{"formatName", statementText}, {"quickenName", quickenName}}));
}

class SecuritiesTest : public KnowledgeTest {
protected:
    SecuritiesTest() {
        securities.setSecuritiesArray(
            {security("Alcoa", "AA"), security("Boeing", "BA"), security("Boeing Class B", "BA")});
    }
    Securities securities{prefs()};
};

TEST_F(SecuritiesTest, SymbolLookupTakesTheFirstAndSetsTheIndex) {
    EXPECT_EQ(securities.quickenSecurityForSymbol("BA"), "Boeing");
    EXPECT_EQ(securities.quickenSecurityIndex(), 1);
    EXPECT_FALSE(securities.quickenSecurityForSymbol(std::nullopt));
    EXPECT_EQ(securities.quickenSecurityIndex(), 1);
    EXPECT_FALSE(securities.quickenSecurityForSymbol("ba"));
    EXPECT_EQ(securities.quickenSecurityIndex(), -1);
    EXPECT_TRUE(securities.securityFound("Alcoa"));
    EXPECT_FALSE(securities.securityFound("alcoa"));
    EXPECT_TRUE(securities.exists());
}

TEST_F(SecuritiesTest, MappingsAreExactAndTheirDeletionIsSaved) {
    Dictionary brokerage = record({{"Name", "Brokerage"}});
    brokerage.emplace("SecurityMappings",
                      Value(Array{mapping("ACME CORP", "Acme"), mapping("BOEING CO", "Boeing")}));
    Formats(prefs()).addFormat(brokerage);
    EXPECT_FALSE(securities.quickenSecurityFromMappingFor("Acme Corp", brokerage));
    EXPECT_EQ(securities.quickenSecurityIndex(), -1);
    EXPECT_EQ(securities.quickenSecurityFromMappingFor("BOEING CO", brokerage), "Boeing");
    EXPECT_EQ(securities.quickenSecurityIndex(), 1);
    securities.deleteSecurityInFormat(brokerage);
    TvPrefs again = reopened();
    const Dictionary stored = *Formats(again).formatForName("Brokerage");
    EXPECT_EQ(*find(stored, fmtkey::SecurityMappings), Value(Array{mapping("ACME CORP", "Acme")}));
    // After a failed lookup nothing is deleted.
    securities.quickenSecurityFromMappingFor("nothing", brokerage);
    securities.deleteSecurityInFormat(brokerage);
    EXPECT_EQ(find(brokerage, fmtkey::SecurityMappings)->array().size(), 1u);
}

TEST_F(SecuritiesTest, LearningAMappingListsTheSecurityInOrder) {
    Dictionary brokerage = record({{"Name", "Brokerage"}});
    securities.addSecurity("AAPL", "apple inc", brokerage);
    securities.addSecurity("BOEING COMPANY", "Boeing", brokerage);
    securities.addSecurity("AAPL", "Apple Computer", brokerage);
    TvPrefs again = reopened();
    Securities reread(again);
    EXPECT_EQ(
        reread.getSecuritiesArray(),
        (Array{security("Alcoa", "AA"), security("Apple Computer", ""), security("apple inc", ""),
               security("Boeing", "BA"), security("Boeing Class B", "BA")}));
    // The older mapping of the same text stays first, so lookups still find it.
    Dictionary stored = *Formats(again).formatForName("Brokerage");
    EXPECT_EQ(find(stored, fmtkey::SecurityMappings)->array().size(), 3u);
    EXPECT_EQ(reread.quickenSecurityFromMappingFor("AAPL", stored), "apple inc");
}

TEST_F(SecuritiesTest, ChooserCompletesToTheShortestName) {
    securities.setSecuritiesArray(
        {security("ABC Fund", "ABCF"), security("", "X"), security("Abbott", "ABT")});
    EXPECT_EQ(securities.completedString("ab"), (Completion{"Abbott", 2}));
    EXPECT_EQ(securities.completedString("abc"), (Completion{"ABC Fund", 3}));
    EXPECT_EQ(securities.completedString(""), (Completion{"Abbott", 0}));
    EXPECT_FALSE(securities.completedString("abbottt"));
    EXPECT_EQ(securities.numberOfItemsInComboBox(), 3u);
    EXPECT_EQ(securities.objectValueForItemAtIndex(-1), "");
    EXPECT_EQ(securities.objectValueForItemAtIndex(2), "Abbott");
    EXPECT_EQ(securities.indexOfItemWithStringValue("Abbott"), 2);
    EXPECT_EQ(securities.indexOfItemWithStringValue("abbott"),
              std::numeric_limits<std::int64_t>::max());
}

TEST_F(SecuritiesTest, TheEditorStoresTheListBack) {
    prefs().removeObjectForKey(prefkey::Securities);
    EXPECT_FALSE(securities.exists());
    EditSecurities editor(prefs());
    TableEditor& table = editor.beginEditing();
    EXPECT_EQ(table.numberOfRows(), 0u);
    table.addEmptyRow();
    table.setCell(0, "Name", Value("Vanguard 500"));
    table.setCell(0, "Symbol", Value("VFINX"));
    editor.endEditing();
    TvPrefs again = reopened();
    EXPECT_EQ(Securities(again).quickenSecurityForSymbol("VFINX"), "Vanguard 500");
}

} // namespace
} // namespace tavvel::test
