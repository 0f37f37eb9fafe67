#include "recognize/StatementKind.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

TEST(StatementKind, OfxByItsHeaderOrItsRootElement) {
    EXPECT_TRUE(looksLikeOfx("!Type:Bank\nMmemo says OFXHEADER\n^\n"));
    EXPECT_TRUE(looksLikeOfx("<OFX>\n<SIGNONMSGSRSV1>"));
    EXPECT_TRUE(looksLikeOfx("\xEF\xBB\xBF\r\n\r\n<ofx >"));
    EXPECT_TRUE(looksLikeOfx("<?xml version=\"1.0\"?>\n<!-- a <b> comment -->\n"
                             "<!DOCTYPE ofx>\t<Ofx>"));
    EXPECT_TRUE(looksLikeOfx("DATA:OFXSGML\r\nVERSION:102\r\nOLDFILEUID:NONE\r\n\r\n<OFX>"));
    EXPECT_TRUE(looksLikeOfx("<OFX>                <!-- Begin response data -->"));

    EXPECT_FALSE(looksLikeOfx(""));
    EXPECT_FALSE(looksLikeOfx("<OFX"));
    EXPECT_FALSE(looksLikeOfx("<OFC>\n<OFX>"));
    EXPECT_FALSE(looksLikeOfx("<OFXSTUFF>"));
    EXPECT_FALSE(looksLikeOfx("this is totally not an ofx file\n<OFX>"));
    EXPECT_FALSE(looksLikeOfx("Date,Description\n<OFX>"));
    EXPECT_FALSE(looksLikeOfx("<!-- never closed <OFX>"));
    EXPECT_FALSE(looksLikeOfx("<?xml version=\"1.0\" <OFX>"));
    EXPECT_FALSE(looksLikeOfx("NOTE:<OFX>"));
}

TEST(StatementKind, QifClearedLineIsTheLetterWithOneMark) {
    for (const char* line : {"C", "C*", "Cc", "CX", "Cx", "CR", "C* ", "C\t"})
        EXPECT_TRUE(isQifClearedLine(line)) << line;
    for (const char* line : {"", "c", "Card,Amount", "C**", "CXY", "Credit", " C*"})
        EXPECT_FALSE(isQifClearedLine(line)) << line;
}

} // namespace
} // namespace tavvel
