#include "prefs/StorableText.h"

#include "prefs/PropertyList.h"
#include "prefs/Utf8Text.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

using namespace std::string_literals;

TEST(StorableText, BytesThatAreNotUtf8AreReadAsWindows1252AndForbiddenCharactersReplaced) {
    EXPECT_EQ(storableText("M\xDCLLER \x80 5"), "MÜLLER € 5");
    EXPECT_EQ(storableText("café\tà\r\n"), "café\tà\r\n");
    EXPECT_EQ(storableText("a\x01"
                           "b\0c\xEF\xBF\xBF"s),
              "a\uFFFDb\uFFFDc\uFFFD");
    // Surrogates and overlong forms are not UTF-8: the whole text is read as Windows-1252.
    EXPECT_EQ(storableText("\xED\xA0\x80\xC0\xAF"), "í\u00A0€À¯");
    EXPECT_FALSE(isValidUtf8("\xF4\x90\x80\x80"));
    EXPECT_TRUE(isValidUtf8("\xF4\x8F\xBF\xBF"));
}

// Keys too: a dictionary keyed by a payee; where two keys become one, the one already stored
// clean stays.
TEST(StorableText, EveryTextOfAValueIsMadeStorableAndTheXmlReadsBack) {
    Value value(Dictionary{{"list", Value(Array{Value("caf\xE9"), Value(3),
                                                Value(Dictionary{{"\xC9t\xE9", Value("x")}})})},
                           {"MÜLLER", Value("clean")},
                           {"M\xDCLLER", Value("raw")},
                           {"ok", Value("fine")}});
    Value expected(Dictionary{
        {"list", Value(Array{Value("café"), Value(3), Value(Dictionary{{"Été", Value("x")}})})},
        {"MÜLLER", Value("clean")},
        {"ok", Value("fine")}});
    EXPECT_TRUE(makeTextsStorable(value));
    EXPECT_EQ(value, expected);
    EXPECT_FALSE(makeTextsStorable(value));
    std::string xml = encodePropertyList(value);
    EXPECT_TRUE(isStorableText(xml));
    EXPECT_EQ(decodePropertyList(xml), expected);
}

} // namespace
} // namespace tavvel
