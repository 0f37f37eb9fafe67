#include "bank/BankTexts.h"
#include "bank/BankingCreditCardQIF.h"
#include "bank/OfxStatements.h"
#include "bank/OfxValues.h"
#include "bank/StatementReaders.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "support/StoredRecords.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

// SGML form: no end tags, as most banks send it.
const char* kBankSgml = "OFXHEADER:100\r\nDATA:OFXSGML\r\n\r\n<OFX><BANKMSGSRSV1><STMTTRNRS>"
                        "<STMTRS><BANKTRANLIST>\r\n"
                        "<STMTTRN>\r\n<TRNTYPE>DEBIT\r\n<DTPOSTED>20240131120000[-5:EST]\r\n"
                        "<TRNAMT>-12.00\r\n<FITID>1\r\n<CHECKNUM>1041\r\n<NAME>CORNER GROCERY  \r\n"
                        "<MEMO>weekly\r\n</STMTTRN>\r\n"
                        "<STMTTRN>\r\n<TRNTYPE>CREDIT\r\n<DTPOSTED>20240201\r\n<TRNAMT>100.00\r\n"
                        "<REFNUM>R77\r\n<CHECKNUM>1042\r\n</STMTTRN>\r\n"
                        "</BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>\r\n";

struct OfxReading : ::testing::Test {
    test::TestContext t;
    BankingCreditCardQIF reader{t.ctx};
    Date from = kDistantPast, to = kDistantFuture;
};

TEST_F(OfxReading, BankStatementInSgmlForm) {
    reader.fromOFX(kBankSgml, from, to);
    ASSERT_EQ(test::stored(reader).size(), 2u);
    EXPECT_EQ(reader.records().size(), 2u);
    const Dictionary first = test::stored(reader)[0];
    EXPECT_EQ(textOf(first, "date"), "1/31/2024");
    EXPECT_EQ(textOf(first, "amount"), "-12.00");
    EXPECT_EQ(textOf(first, "description"), "CORNER GROCERY  "); // trailing blanks kept
    EXPECT_EQ(textOf(first, "memo"), "weekly");
    EXPECT_EQ(textOf(first, "number"), "1041"); // no reference number: the check number
    EXPECT_FALSE(has(first, "trntype"));
    const Dictionary second = test::stored(reader)[1];
    EXPECT_EQ(textOf(second, "number"), "R77");             // the reference number wins
    EXPECT_EQ(textOf(second, "description", "absent"), ""); // no <NAME>: empty, not an error
    EXPECT_FALSE(has(second, "memo"));
}

TEST_F(OfxReading, CreditCardXmlFormTakesReferenceNumbersOnly) {
    std::string xml = "<?xml version=\"1.0\"?><OFX><CREDITCARDMSGSRSV1><CCSTMTRS>"
                      "<STMTTRN><TRNTYPE>DEBIT</TRNTYPE><DTPOSTED>20240315</DTPOSTED>"
                      "<TRNAMT>-5.25</TRNAMT><CHECKNUM>9</CHECKNUM><NAME>CAF\xC9 BLEU</NAME>"
                      "</STMTTRN><STMTTRN><DTPOSTED>20240316</DTPOSTED><TRNAMT>1</TRNAMT>"
                      "<REFNUM>X1</REFNUM><CHECKNUM>10</CHECKNUM></STMTTRN></CCSTMTRS>"
                      "</CREDITCARDMSGSRSV1></OFX>";
    reader.fromOFX(xml, from, to);
    ASSERT_EQ(test::stored(reader).size(), 2u);
    EXPECT_EQ(textOf(test::stored(reader)[0], "description"),
              "CAF\xC9 BLEU"); // stops at the end tag
    EXPECT_FALSE(has(test::stored(reader)[0], "number"));
    EXPECT_EQ(textOf(test::stored(reader)[1], "number"), "X1");
}

TEST_F(OfxReading, UnreadableTransactionsBecomeErrorRecordsInPlace) {
    std::string text = "BANKMSG <STMTTRN><DTPOSTED>2024-01-31<TRNAMT>1.00"
                       "<STMTTRN><TRNAMT>2.00"
                       "<STMTTRN><DTPOSTED>20240102<NAME>no amount"
                       "<STMTTRN><DTPOSTED>20240103<TRNAMT>3.00";
    reader.fromOFX(text, from, to);
    ASSERT_EQ(test::stored(reader).size(), 4u);
    EXPECT_EQ(textOf(test::stored(reader)[0], "errorMessage"), text::ofxNoDate);
    EXPECT_EQ(textOf(test::stored(reader)[0], "errorText"), "<DTPOSTED>2024-01-31<TRNAMT>1.00");
    EXPECT_EQ(textOf(test::stored(reader)[1], "errorMessage"), text::ofxNoDate);
    EXPECT_EQ(textOf(test::stored(reader)[2], "errorMessage"), text::ofxNoAmount);
    EXPECT_EQ(test::stored(reader)[2].size(), 2u);
    EXPECT_EQ(textOf(test::stored(reader)[3], "amount"), "3.00");
}

TEST_F(OfxReading, RangeIsInclusiveAndLeavesOutOfRangeSilently) {
    std::string text = "<STMTTRN><DTPOSTED>20240131<TRNAMT>1"
                       "<STMTTRN><DTPOSTED>20240201<TRNAMT>2"
                       "<STMTTRN><DTPOSTED>20240202"; // out of range and no amount: not reported
    reader.fromOFX(text, localMidnight(2024, 1, 31), localMidnight(2024, 2, 1));
    ASSERT_EQ(test::stored(reader).size(), 2u);
    reader.fromOFX("OFXHEADER:100 no transactions at all", from, to);
    EXPECT_TRUE(test::stored(reader).empty());
}

TEST_F(OfxReading, TransactionTypesWhenAsked) {
    addOption(t.ctx.prefs, option::useOFXTRNTYPE);
    addOption(t.ctx.prefs, option::confirmAllTransactions);
    reader.fromOFX("<STMTTRN><TRNTYPE>DEBIT<DTPOSTED>20240131<TRNAMT>-12"
                   "<STMTTRN><TRNTYPE>CREDIT<DTPOSTED>20240131<TRNAMT>12"
                   "<STMTTRN><DTPOSTED>20240131<TRNAMT>7",
                   from, to);
    ASSERT_EQ(test::stored(reader).size(), 3u);
    EXPECT_EQ(textOf(test::stored(reader)[0], "amount"),
              "--12"); // signed as a debit whatever its sign
    EXPECT_EQ(textOf(test::stored(reader)[0], "trntype"), "DEBIT");
    EXPECT_EQ(textOf(test::stored(reader)[1], "amount"), "12");
    EXPECT_EQ(textOf(test::stored(reader)[2], "errorMessage"), text::ofxNoType);
    EXPECT_TRUE(reader.mustConfirm());
}

TEST_F(OfxReading, AddFieldFindsEmptyValuesAndStopsAtLineEnds) {
    TransactionRecord record;
    EXPECT_TRUE(addOfxField(TxField::memo, "<MEMO>", "<MEMO>\r\n<NAME>x", record));
    EXPECT_TRUE(record.has(TxField::memo));
    EXPECT_EQ(record.text(TxField::memo), "");
    EXPECT_TRUE(addOfxField(TxField::memo, "<MEMO>", "<MEMO>  a b\nc", record));
    EXPECT_EQ(record.text(TxField::memo), "a b");
    EXPECT_FALSE(addOfxField(TxField::description, "<NAME>", "<name>lower", record));
    EXPECT_FALSE(record.has(TxField::description));
    EXPECT_TRUE(addOfxField(TxField::memo, "<MEMO>", "<MEMO>", record));
    // Entities are decoded into the record's own text; plain values are not copied.
    EXPECT_TRUE(addOfxField(TxField::memo, "<MEMO>", "<MEMO>A &amp; B", record));
    const std::string name = "<NAME>PLAIN";
    EXPECT_TRUE(addOfxField(TxField::description, "<NAME>", name, record));
    TransactionRecord moved = std::move(record);
    EXPECT_EQ(moved.text(TxField::memo), "A & B");
    EXPECT_EQ(moved.text(TxField::description).data(), name.data() + 6);
}

TEST_F(OfxReading, EachStatementNumbersByItsOwnKind) {
    // A card statement anywhere in the file once took the check numbers of the bank's.
    std::string text = "<OFX><STMTRS><ACCTID>1001<STMTTRN><DTPOSTED>20240105<TRNAMT>-1"
                       "<CHECKNUM>301</STMTTRN></STMTRS><CCSTMTRS><ACCTID> 4111 </ACCTID>"
                       "<STMTTRN><DTPOSTED>20240106<TRNAMT>-2<CHECKNUM>9<REFNUM>R2</STMTTRN>"
                       "<STMTTRN><DTPOSTED>20240107<TRNAMT>-3<CHECKNUM>10</STMTTRN></CCSTMTRS>"
                       "<STMTRS><ACCTID>1001<STMTTRN><DTPOSTED>20240108<TRNAMT>-4";
    reader.fromOFX(text, from, to);
    ASSERT_EQ(test::stored(reader).size(), 4u);
    EXPECT_EQ(textOf(test::stored(reader)[0], "number"), "301");
    EXPECT_EQ(textOf(test::stored(reader)[1], "number"), "R2");
    EXPECT_FALSE(has(test::stored(reader)[2], "number"));
    // The file stops inside its last transaction.
    EXPECT_EQ(textOf(test::stored(reader)[3], "errorMessage"), text::ofxCutOff);
    EXPECT_EQ(ofxAccounts(ofxStatements(text)), (std::vector<std::string>{"1001", "4111"}));
}

TEST(OfxValues, AmountsReadAsNumbersWithEitherDecimalMark) {
    const std::pair<std::string_view, std::optional<std::string>> cases[] = {
        {"-200,00", "-200.00"},
        {" 12.5  ", "12.5"},
        {"+3", "+3"},
        {"-1.234.567,89", "-1234567.89"},
        {"1,234.56", "1234.56"},
        {".75", ".75"},
        {"$120", std::nullopt},
        {"12 50", std::nullopt},
        {"1.2.3", std::nullopt},
        {"12,34.5", std::nullopt},
        {"-", std::nullopt},
        {"", std::nullopt},
        {"1e5", std::nullopt},
        {"--5", std::nullopt},
        {"1.234.5.67", std::nullopt}};
    for (const auto& [value, read] : cases)
        EXPECT_EQ(ofxAmount(value), read) << value;
}

TEST(OfxValues, EntitiesByTheStatementsEncoding) {
    EXPECT_EQ(ofxText("A&amp;B &lt;&gt;&quot;&apos; &#65;&#x42;", false), "A&B <>\"' AB");
    EXPECT_EQ(ofxText("Caf&#233;", true), "Caf\xC3\xA9");
    EXPECT_EQ(ofxText("Caf&#233;", false), "Caf\xE9");
    EXPECT_EQ(ofxText("&#8364; & &x; &#0; &amp", false), "&#8364; & &x; &#0; &amp");
    EXPECT_TRUE(ofxDeclaresUtf8("OFXHEADER:100\r\nENCODING:UTF-8\r\n"));
    EXPECT_TRUE(ofxDeclaresUtf8("<?xml version=\"1.0\"?><OFX>"));
    EXPECT_FALSE(ofxDeclaresUtf8("<?xml version=\"1.0\" encoding=\"windows-1252\"?>"));
    EXPECT_FALSE(ofxDeclaresUtf8("OFXHEADER:100\r\nENCODING:USASCII\r\nCHARSET:1252"));
    TransactionRecord record;
    EXPECT_TRUE(addOfxField(TxField::description, "<NAME>", "<NAME> <![CDATA[a<b&amp;]]>", record));
    EXPECT_EQ(record.text(TxField::description), "a<b&amp;");
}

} // namespace
} // namespace tavvel
