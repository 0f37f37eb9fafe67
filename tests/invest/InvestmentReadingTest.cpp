#include "invest/DisplayFormat.h"
#include "invest/InvestmentOfx.h"
#include "invest/QuickenTypes.h"
#include "recognize/CalendarDate.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

std::string statement(const std::string& transactions, const std::string& securities = "") {
    return "OFXHEADER:100\nDATA:OFXSGML\n\n<OFX><INVSTMTMSGSRSV1><INVSTMTTRNRS><INVSTMTRS>"
           "<INVACCTFROM><ACCTID>A1</INVACCTFROM><INVTRANLIST>\n" +
           transactions + "</INVTRANLIST></INVSTMTRS></INVSTMTTRNRS></INVSTMTMSGSRSV1>" +
           "<SECLISTMSGSRSV1><SECLIST>" + securities + "</SECLIST></SECLISTMSGSRSV1></OFX>\n";
}

std::vector<InvestmentRecord> read(const std::string& text, InvestmentOfxRead how = {}) {
    how.datePattern = "M/d/yyyy";
    return readInvestmentOfx(text, how);
}

struct InvestmentReading : ::testing::Test {
    test::TestContext t; // the test zone for dates
};

// A transaction's type, numbers and security come from its own aggregate: an aggregate whose
// end tag is missing does not take the next one's type, and a comma in a security name later
// in the file leaves amounts alone.
TEST_F(InvestmentReading, EachTransactionReadFromItsOwnAggregate) {
    auto records = read(statement(
        "<INCOME><INVTRAN><DTTRADE>20240108<MEMO>Paid</INVTRAN><SECID><UNIQUEID>C1</SECID>"
        "<INCOMETYPE>DIV<TOTAL>375.50\n"
        "<SELLSTOCK><INVSELL><INVTRAN><DTTRADE>20240109093000.000[-5:EST]</INVTRAN>"
        "<SECID><UNIQUEID>C2</SECID><UNITS>-10<UNITPRICE>20.5<COMMISSION>1.00<FEES>0.50"
        "<TOTAL>203.50</INVSELL><SELLTYPE>SELL</SELLSTOCK>\n",
        "<SECINFO><SECID><UNIQUEID>C1</SECID><SECNAME>Acme Widgets, Inc<TICKER>ACMW</SECINFO>"
        "<SECINFO><SECID><UNIQUEID>C2</SECID><SECNAME>Old name</SECINFO>"
        "<SECINFO><SECID><UNIQUEID>C2</SECID><SECNAME>Birch &amp; Co<TICKER>BRC</SECINFO>"));
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].type, "INCOME DIV");
    EXPECT_EQ(records[0].date, "1/8/2024");
    EXPECT_DOUBLE_EQ(records[0].amount, 375.50);
    EXPECT_EQ(records[0].security, "Acme Widgets, Inc");
    EXPECT_EQ(records[0].symbol, "ACMW");
    EXPECT_EQ(records[0].memo, "Paid");
    EXPECT_EQ(records[0].fees, 0.0); // none stated: none, whatever the total holds
    EXPECT_EQ(records[1].type, "SELLSTOCK SELL");
    EXPECT_EQ(records[1].date, "1/9/2024");
    EXPECT_EQ(records[1].security, "Birch & Co"); // the later entry of an id wins
    EXPECT_DOUBLE_EQ(records[1].shares, 10);
    EXPECT_TRUE(records[1].sharesWereNegative);
    EXPECT_DOUBLE_EQ(records[1].price, 20.5);
    EXPECT_DOUBLE_EQ(*records[1].fees, 1.50);
    EXPECT_FALSE(records[1].amountWasNegative);
}

// Cash moves have no trade date: they are dated by their posting and come out on their own,
// between the trades around them; the range keeps both ends and drops the rest.
TEST_F(InvestmentReading, CashTransactionsDatedByPostingAndRangeApplied) {
    std::string text = statement(
        "<BUYMF><INVBUY><INVTRAN><DTTRADE>20240102</INVTRAN><SECID><UNIQUEID>F</SECID>"
        "<UNITS>1<UNITPRICE>9<TOTAL>-9</INVBUY></BUYMF>\n"
        "<INVBANKTRAN><STMTTRN><TRNTYPE>INT<DTPOSTED>20240103<TRNAMT>0.07<NAME>Interest"
        "</STMTTRN></INVBANKTRAN>\n"
        "<INVBANKTRAN><STMTTRN><TRNTYPE>DEBIT<DTPOSTED>20240104<TRNAMT>-50<NAME>Out"
        "</STMTTRN></INVBANKTRAN>\n"
        "<MARGININTEREST><INVTRAN><DTTRADE>20240105</INVTRAN><TOTAL>-1</MARGININTEREST>\n");
    auto all = read(text);
    ASSERT_EQ(all.size(), 4u);
    EXPECT_EQ(all[1].type, "INVBANKTRAN INT");
    EXPECT_EQ(all[1].description, "Interest");
    EXPECT_DOUBLE_EQ(all[1].amount, 0.07);
    EXPECT_EQ(all[2].date, "1/4/2024");
    EXPECT_TRUE(all[2].amountWasNegative);
    auto some = read(text, {localMidnight(2024, 1, 3), localMidnight(2024, 1, 4), "", {}});
    ASSERT_EQ(some.size(), 2u);
    EXPECT_EQ(some[0].type, "INVBANKTRAN INT");
    EXPECT_EQ(some[1].type, "INVBANKTRAN DEBIT");
}

TEST_F(InvestmentReading, UnreadableTransactionsBecomeErrorRecords) {
    auto records = read(statement(
        "<INCOME><INVTRAN><DTTRADE>2024</INVTRAN><INCOMETYPE>DIV<TOTAL>1</INCOME>\n"
        "<INCOME><INVTRAN><DTTRADE>20241301</INVTRAN><INCOMETYPE>DIV<TOTAL>1</INCOME>\n"
        "<INCOME><INVTRAN><DTTRADE>20240110</INVTRAN><INCOMETYPE>DIV<TOTAL>1..2</INCOME>\n"
        "<SPLIT><INVTRAN><DTTRADE>20240111</INVTRAN><SECID><UNIQUEID>S</SECID>"
        "<NUMERATOR>3<DENOMINATOR>2</SPLIT>\n"));
    ASSERT_EQ(records.size(), 4u);
    EXPECT_EQ(records[0].errorMessage, "This investment transaction has no date: ");
    EXPECT_EQ(records[1].errorMessage, "This investment transaction has no date: ");
    EXPECT_EQ(records[2].errorMessage,
              "This investment transaction has a number that cannot be read: ");
    EXPECT_NE(records[2].errorText.find("1..2"), std::string::npos);
    EXPECT_TRUE(records[3].errorMessage.empty());
    EXPECT_DOUBLE_EQ(records[3].shares, 15); // new shares for ten old ones
    EXPECT_EQ(records[3].security, "S");     // an id the list lacks stands for itself
}

TEST_F(InvestmentReading, ChosenAccountKeepsItsOwnStatement) {
    std::string one = "<INVSTMTRS><INVACCTFROM><ACCTID>A1</INVACCTFROM><INVTRANLIST>"
                      "<MARGININTEREST><INVTRAN><DTTRADE>20240105</INVTRAN><TOTAL>-1"
                      "</MARGININTEREST></INVTRANLIST></INVSTMTRS>";
    std::string two = "<INVSTMTRS><INVACCTFROM><ACCTID>B2</INVACCTFROM><INVTRANLIST>"
                      "<MARGININTEREST><INVTRAN><DTTRADE>20240106</INVTRAN><TOTAL>-2"
                      "</MARGININTEREST></INVTRANLIST></INVSTMTRS>";
    std::string text = "OFXHEADER:100\n<OFX><INVSTMTMSGSRSV1>" + one + two + "</OFX>";
    InvestmentOfxRead how;
    how.account = "B2";
    auto records = read(text, how);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_DOUBLE_EQ(records[0].amount, 2);
}

// Longest case-insensitive prefix, the earlier of equal lengths; an empty mapping only for an
// empty type; the two sign-dependent codes by the amount's sign.
TEST(TypeMappings, LongestPrefixAndSignDependentCodes) {
    auto mapping = [](std::string type, std::int64_t code) {
        return Value(Dictionary{{"formatType", Value(type)}, {"quickenType", Value(code)}});
    };
    Array mappings{mapping("Div", 2),    mapping("Dividend Reinvest", 6),
                   mapping("div", 9),    mapping("", 12),
                   mapping("Trade", 23), mapping("Move", 24)};
    EXPECT_EQ(lookUpType(mappings, "DIVIDEND REINVESTMENT", false).quickenType, 6);
    TypeLookup paid = lookUpType(mappings, "Div Paid", false);
    EXPECT_EQ(paid.quickenType, 2);
    EXPECT_EQ(paid.quickenTypeIndex, 0);
    EXPECT_EQ(lookUpType(mappings, "Di", false).quickenType, actioncode::none);
    EXPECT_EQ(lookUpType(mappings, "", false).quickenType, 12);
    EXPECT_EQ(lookUpType(mappings, "trade", true).quickenType, 1);
    EXPECT_EQ(lookUpType(mappings, "trade", false).quickenType, 0);
    EXPECT_EQ(lookUpType(mappings, "Move", true).quickenType, 5);
    EXPECT_EQ(lookUpType(mappings, "Move", false).quickenType, 4);

    Dictionary format{{"TypeMappings", Value(mappings)}};
    addType(format, "Div Paid  \r\n", 100, 0, "");
    const Array& learned = find(format, "TypeMappings")->array();
    ASSERT_EQ(learned.size(), 6u); // the matched one replaced
    EXPECT_EQ(textOf(learned.back().dictionary(), "formatType"), "Div Paid");
    EXPECT_EQ(lookUpType(learned, "div paid out", false).quickenType, actioncode::alwaysSkip);
}

TEST(TypeMappings, ShippedTableHasEveryCodeTheLogicUses) {
    auto types = quickenTypes(test::shippedConfiguration());
    ASSERT_GE(types.size(), 25u);
    EXPECT_EQ(types[0].quickenName, "Sell");
    EXPECT_EQ(types[1].quickenName, "Buy");
    EXPECT_EQ(types[4].quickenName, "XIn");
    EXPECT_EQ(types[5].quickenName, "XOut");
    EXPECT_TRUE(types[1].securityRequired && types[1].sharesRequired && types[1].amountRequired);
    EXPECT_FALSE(types[14].amountRequired); // shares in: no cash moves
}

// The section is chosen by the value before ICU formats it: negatives in parentheses, the
// zero section for zero, and digits beyond the precision kept.
TEST(DisplayFormats, ThreeSectionsChosenBySign) {
    std::string two = *displayFormatForPrecision(2);
    EXPECT_EQ(two, "#,###.00;0.00;(#,##0.00)");
    EXPECT_EQ(*displayFormatForPrecision(4), "#,###.0000;0.0000;(#,##0.0000)");
    EXPECT_FALSE(displayFormatForPrecision(1));
    EXPECT_FALSE(displayFormatForPrecision(7));
    EXPECT_EQ(formatForDisplay(2540.05, two), "2,540.05");
    EXPECT_EQ(formatForDisplay(-1234.5, two), "(1,234.50)");
    EXPECT_EQ(formatForDisplay(0, two), "0.00");
    EXPECT_EQ(formatForDisplay(0.25, two), ".25");
    EXPECT_EQ(formatForDisplay(3.125, two), "3.125");
    EXPECT_EQ(formatForDisplay(100, *displayFormatForPrecision(3)), "100.000");
    EXPECT_EQ(formatForDisplay(-5, "#,##0.00"), "-5.00"); // one section: a minus sign
}

} // namespace
} // namespace tavvel
