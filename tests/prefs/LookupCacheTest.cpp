#include "prefs/Settings.h"
#include "prefs/TvPrefs.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace tavvel {
namespace {

// Answers kept beside the store must follow every change made after they were given.
TEST(LookupCache, AnswersFollowEveryChangeToTheStore) {
    TvPrefs prefs;
    EXPECT_FALSE(optionOn(prefs, option::initialCaps));
    EXPECT_EQ(prefs.objectForKey("DescriptionOutput"), nullptr);

    addOption(prefs, option::initialCaps);
    prefs.setObject("DescriptionOutput", Value("%d"));
    EXPECT_TRUE(optionOn(prefs, option::initialCaps));
    ASSERT_NE(prefs.objectForKey("DescriptionOutput"), nullptr);
    EXPECT_EQ(prefs.objectForKey("DescriptionOutput")->text(), "%d");

    prefs.setObject(prefkey::Preferences,
                    Value(Array{Value(std::int64_t{7}), Value(option::append)}));
    EXPECT_FALSE(optionOn(prefs, option::initialCaps));
    EXPECT_TRUE(optionOn(prefs, option::append));
    prefs.removeObjectForKey(prefkey::Preferences);
    prefs.removeObjectForKey("DescriptionOutput");
    EXPECT_FALSE(optionOn(prefs, option::append));
    EXPECT_EQ(prefs.objectForKey("DescriptionOutput"), nullptr);
}

// A copy answers from its own dictionary, never from the one it was copied from.
TEST(LookupCache, CopiesAnswerFromTheirOwnDictionary) {
    auto original = std::make_unique<TvPrefs>();
    original->setObject("MemoOutput", Value("%m"));
    addOption(*original, option::append);
    ASSERT_TRUE(optionOn(*original, option::append));
    ASSERT_NE(original->objectForKey("MemoOutput"), nullptr);

    TvPrefs copy = *original;
    TvPrefs assigned;
    assigned = *original;
    original.reset();
    for (TvPrefs* prefs : {&copy, &assigned}) {
        EXPECT_TRUE(optionOn(*prefs, option::append));
        ASSERT_NE(prefs->objectForKey("MemoOutput"), nullptr);
        EXPECT_EQ(prefs->objectForKey("MemoOutput")->text(), "%m");
    }
}

// The dictionary's own order must stay byte order, high bytes last: files are written in it.
TEST(LookupCache, DictionaryKeysKeepByteOrder) {
    std::mt19937 draw(7);
    std::vector<std::string> keys{"", "a", "ab", "b", "\xC3\xA9", "Date", "DateEnd", "Datf"};
    // Long shared starts, so that keys also differ past their first eight and sixteen bytes.
    const std::string start = "OutputDateFormatShortYear";
    const std::string bytes("ab\x00\x7F\x80\xFF", 6);
    for (int i = 0; i < 600; ++i) {
        std::string key = i % 2 ? start.substr(0, draw() % start.size()) : "";
        for (std::size_t n = draw() % 6; n > 0; --n)
            key += i % 3 ? bytes[draw() % bytes.size()] : static_cast<char>(draw() % 256);
        keys.push_back(key);
    }
    Dictionary dictionary;
    for (const std::string& key : keys)
        dictionary.emplace(key, Value(key));
    std::vector<std::string> expected = keys;
    std::sort(expected.begin(), expected.end());
    expected.erase(std::unique(expected.begin(), expected.end()), expected.end());
    std::vector<std::string> found;
    for (const auto& [key, value] : dictionary)
        found.push_back(key);
    EXPECT_EQ(found, expected);
}

} // namespace
} // namespace tavvel
