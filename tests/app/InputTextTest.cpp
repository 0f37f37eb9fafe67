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

TEST(InputText, Utf16WithoutAMarkIsToldByItsNulBytes) {
    const std::string utf8 = "!Type:Bank\r\nPCAF\xC3\x89 \xE2\x82\xAC"
                             "5\r\n";
    const std::u16string text = u"!Type:Bank\r\nPCAF\u00C9 \u20AC5\r\n";
    EXPECT_EQ(normalised(utf16(text, false).substr(2)), utf8);
    EXPECT_EQ(normalised(utf16(text, true).substr(2)), utf8);
    // NUL bytes on both sides of each pair, or too few, are not UTF-16.
    EXPECT_EQ(normalised(std::string(8, '\0')), std::string(8, '\0'));
    using namespace std::string_literals;
    EXPECT_EQ(normalised("a\0bcdefgh"s), "a\0bcdefgh"s);
    EXPECT_EQ(normalised("a\0"s), "a\0"s);
}

TEST(InputText, EightBitTextIsReadAsWindows1252) {
    std::string bytes = "Caf\xE9 M\xFCller \x80 5,00 \x81";
    EXPECT_TRUE(decodeEightBitText(bytes));
    EXPECT_EQ(bytes, "Caf\xC3\xA9 M\xC3\xBCller \xE2\x82\xAC 5,00 \xEF\xBF\xBD");
    std::string utf8 = "Caf\xC3\xA9";
    EXPECT_TRUE(decodeEightBitText(utf8));
    EXPECT_EQ(utf8, "Caf\xC3\xA9");
    // More 8-bit bytes than others: no Western text, so no statement, and left alone.
    std::string junk = "\xE9\xFC\x80\xA3"
                       "ab\xF1";
    EXPECT_FALSE(decodeEightBitText(junk));
    EXPECT_EQ(junk, "\xE9\xFC\x80\xA3"
                    "ab\xF1");
}

TEST(InputText, IntakeDecodesStatementsAndRefusesWhatIsNone) {
    std::string latin1 = "D1/2/2024\nPM\xDCLLER\n^\n";
    EXPECT_TRUE(takeInStatementText(latin1));
    EXPECT_EQ(latin1, "D1/2/2024\nPM\xC3\x9CLLER\n^\n");
    std::string marked = utf16(u"D1/2/2024", true);
    EXPECT_TRUE(takeInStatementText(marked));
    EXPECT_EQ(marked, "D1/2/2024");
    std::string zeros(64, '\0'), controls = "\x01\x02\x03 abc", high = "\xC0\xFF\xFE\xFD\x90";
    EXPECT_FALSE(takeInStatementText(zeros));
    EXPECT_FALSE(takeInStatementText(controls));
    EXPECT_FALSE(takeInStatementText(high));
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
