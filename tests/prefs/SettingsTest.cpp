#include "prefs/Settings.h"

#include "prefs/OutputFormatting.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

TEST(Settings, FindAnswersNotFoundWithoutAnOptionList) {
    TvPrefs prefs;
    for (std::string_view name : {option::append, option::converted2_2, option::justStop})
        EXPECT_FALSE(findOption(prefs, name)) << name;
}

TEST(Settings, AddPutsANameInOnceAndFindGivesItsPosition) {
    TvPrefs prefs;
    addOption(prefs, option::initialCaps);
    addOption(prefs, option::append);
    addOption(prefs, option::initialCaps);
    EXPECT_EQ(prefs.objectForKey(prefkey::Preferences)->array().size(), 2u);
    EXPECT_EQ(findOption(prefs, option::append), 1u);
    EXPECT_FALSE(optionOn(prefs, option::justStop));
}

TEST(Settings, DateFormattersRewriteTheStoredPatterns) {
    TvPrefs prefs;
    OutputFormatting output;
    setDateFormatters(prefs, output, "d/M");
    EXPECT_EQ(prefs.objectForKey(prefkey::OutputDateFormat)->text(), "d/M/yyyy");
    EXPECT_EQ(prefs.objectForKey(prefkey::OutputDateFormatShortYear)->text(), "d/M/yy");
    EXPECT_EQ(output.longDatePattern(), "d/M/yyyy");
}

} // namespace
} // namespace tavvel
