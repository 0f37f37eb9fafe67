#include "app/InputText.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

// The bytes of `text` (ASCII, or code points given as char16_t) in UTF-16 with a byte-order
// mark in the given byte order.
std::string utf16(std::u16string_view text, bool bigEndian) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (char16_t unit : text) {
        char hi = static_cast<char>(unit >> 8), lo = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? hi : lo;
        bytes += bigEndian ? lo : hi;
    }
    return bytes;
}

std::string normalised(std::string bytes) {
    normaliseInputText(bytes);
    return bytes;
}

TEST(InputText, Utf16WithAByteOrderMarkBecomesUtf8InEitherOrder) {
    const std::u16string text = u"D1/2/2024\r\nPCAF\u00C9 \u20AC5 \U0001F600\r\n";
    const std::string utf8 = "D1/2/2024\r\nPCAF\xC3\x89 \xE2\x82\xAC"
                             "5 \xF0\x9F\x98\x80\r\n";
    EXPECT_EQ(normalised(utf16(text, false)), utf8);
    EXPECT_EQ(normalised(utf16(text, true)), utf8);
}

TEST(InputText, BrokenUtf16KeepsWhatCanBeRead) {
    // A lone high surrogate, a lone low surrogate, then an odd last byte.
    std::string bytes = utf16(u"a\xD800"
                              u"b\xDC00",
                              false) +
                        "c";
    EXPECT_EQ(normalised(bytes), "a\xEF\xBF\xBD"
                                 "b\xEF\xBF\xBD");
    EXPECT_EQ(normalised(utf16(u"x\xD83D", true)), "x\xEF\xBF\xBD");
    EXPECT_EQ(normalised("\xFF\xFE"), "");
}

TEST(InputText, Utf8MarkIsDroppedAndOtherBytesStay) {
    EXPECT_EQ(normalised("\xEF\xBB\xBFOFXHEADER:100"), "OFXHEADER:100");
    EXPECT_EQ(normalised("caf\xE9 \xA3"
                         "5"),
              "caf\xE9 \xA3"
              "5"); // 8-bit text is not UTF-16
    EXPECT_EQ(normalised("\xFF"), "\xFF");
    EXPECT_EQ(normalised(""), "");
}

TEST(InputText, BinaryIsWhatHoldsManyControlCharacters) {
    EXPECT_FALSE(looksBinary(""));
    EXPECT_FALSE(looksBinary("D1/2/2024\tT-5.00\r\n\f\v^\x1A"));
    using namespace std::string_literals;
    EXPECT_FALSE(looksBinary("a long line of statement text with one stray NUL:\0 in it"s));
    EXPECT_TRUE(looksBinary(std::string(3, '\0')));
    EXPECT_TRUE(looksBinary("\x7F\x01\x02 binary header of a picture"));
    std::string words(160, 'w');
    EXPECT_FALSE(looksBinary(words + std::string(10, '\x1B')));
    EXPECT_TRUE(looksBinary(words + std::string(12, '\x1B')));
}

// Every byte value, spread over every position within the words the file is looked at in.
TEST(InputText, EachControlByteCountsWhereverItStands) {
    for (int value = 0; value < 256; ++value) {
        std::string text(180, 'w');
        for (std::size_t at = 1; at < text.size(); at += 15)
            text[at] = static_cast<char>(value);
        const bool control =
            (value < 0x20 && (value < '\t' || value > '\r') && value != 0x1A) || value == 0x7F;
        EXPECT_EQ(looksBinary(text), control) << value;
    }
}

} // namespace
} // namespace tavvel
