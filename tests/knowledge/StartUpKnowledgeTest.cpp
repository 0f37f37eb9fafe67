#include "KnowledgeFixture.h"
#include "app/StartUp.h"
#include "knowledge/Descriptions.h"
#include "knowledge/Formats.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/PropertyList.h"
#include "prefs/Settings.h"

namespace tavvel::test {
namespace {

// A store as an earlier version left it: every question answered, formats without the
// global mapping tables, an OFX-like format among them, instructions but no descriptions.
Dictionary olderStore() {
    Dictionary ofx = record({{"Name", "OFX"}, {"OFX", true}});
    return record({
        {"Preferences", texts({"converted2.2", "accountsInCategories"})},
        {"CheckForUpdates", false},
        {"TypeMappings", Value(Array{Value(record({{"formatType", "BUY"}}))})},
        {"Formats", Value(Array{Value(record({{"Name", "Amex"}})), Value(ofx),
                                Value(record({{"Name", "Visa"}, {"TypeMappings", Array{}}}))})},
        {"Instructions",
         Value(Array{Value(record({{"descriptionMatch", "SHELL"}, {"newDescription", "Shell"}})),
                     Value(record({{"categoryMatch", "Dining"}, {"newDescription", "Cafe"}}))})},
    });
}

TEST(StartUpKnowledgeTest, FormatsAreNormalisedAndDescriptionsLearnedOnce) {
    TestContext t;
    std::filesystem::path file = TvPrefs::pathFor(t.ctx.places.prefsFolder, kApplicationID);
    ASSERT_TRUE(writePropertyListFile(file, Value(olderStore())));
    ScriptedDialogs dialogs;
    awakeFromNib(t.ctx, dialogs);

    TvPrefs saved = TvPrefs::open(t.ctx.places.prefsFolder, kApplicationID);
    Formats formats(saved);
    EXPECT_EQ(find(*formats.formatForName("Amex"), fmtkey::TypeMappings)->array().size(), 1u);
    EXPECT_EQ(find(*formats.formatForName("Visa"), fmtkey::TypeMappings)->array().size(), 0u);
    EXPECT_TRUE(saved.objectForKey(prefkey::OFXFormat));
    EXPECT_EQ(Descriptions(saved).getDescriptionsArray(), texts({"Cafe", "SHELL", "Shell"}));

    // A description list that exists is left as the user edited it.
    saved.setObject(prefkey::Descriptions, Value(texts({"Mine"})));
    saved.synchronize();
    awakeFromNib(t.ctx, dialogs);
    EXPECT_EQ(Descriptions(t.ctx.prefs).getDescriptionsArray(), texts({"Mine"}));
}

} // namespace
} // namespace tavvel::test
