// Real statements of the shared corpus, read through input formats written for their layouts:
// every transaction is read, none is refused, and the amounts add up to what the file says.
// Skipped when the corpus is absent.

#include "bank/BankingCreditCardQIF.h"
#include "dialogs/RunHelpers.h"
#include "prefs/Files.h"
#include "recognize/CalendarDate.h"
#include "support/ScriptedDialogs.h"
#include "support/StoredRecords.h"
#include "support/TestContext.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tavvel {
namespace {

namespace fs = std::filesystem;

struct CorpusStatement {
    std::string file;
    Dictionary format;
    std::size_t count;
    double sum; // credits less debits, worked out from the file by hand
};

Dictionary lineFormat(std::string_view fields, std::string_view delimiter, std::string_view start,
                      std::string_view end, Dictionary columns) {
    columns.insert_or_assign("Fields", Value(fields));
    columns.insert_or_assign("OneTransactionPerLine", Value(true));
    columns.insert_or_assign("DateDelimiter", Value(delimiter));
    columns.insert_or_assign("DateStart", Value(start));
    columns.insert_or_assign("DateEnd", Value(end));
    return columns;
}

std::vector<CorpusStatement> statements() {
    const Value dayFirst(true);
    return {
        {"uk-lloyds-debit-credit-columns.csv",
         lineFormat("CSV", "/", "\n", ",",
                    {{"DayBeforeMonth", dayFirst},
                     {"Description", Value(4)},
                     {"Debit", Value(5)},
                     {"Credit", Value(6)}}),
         12, -3881.99},
        {"us-schwab-checking-preamble.csv",
         lineFormat("CSV", "/", "\"", "\"",
                    {{"Check", Value(2)},
                     {"Description", Value(3)},
                     {"Debit", Value(4)},
                     {"Credit", Value(5)}}),
         12, 22481.17},
        {"at-ingdiba-soll-haben-latin1.csv",
         lineFormat("SSV", ".", ";", ";",
                    {{"DayBeforeMonth", dayFirst},
                     {"Date", Value(2)},
                     {"Description", Value(1)},
                     {"Debit", Value(4)},
                     {"Credit", Value(5)}}),
         6, -992.03},
        {"nl-knab-semicolon-creditdebet.csv",
         lineFormat("SSV", "-", "\"", "\"",
                    {{"DayBeforeMonth", dayFirst},
                     {"Date", Value(1)},
                     {"Description", Value(6)},
                     {"Indicator", Value(3)},
                     {"DebitIndicator", Value("D")},
                     {"Debit/Credit", Value(4)}}),
         28, 7.01},
        {"fr-sample-cp1252-euro.csv",
         lineFormat("CSV", "/", "\"", "\"", {{"Description", Value(1)}, {"Credit", Value(2)}}), 3,
         20.00},
        {"us-paypal-activity-export.csv",
         lineFormat("CSV", "/", "\"", "\"", {{"Description", Value(3)}, {"Credit", Value(7)}}), 7,
         10.00},
        {"nl-asn-no-header.csv",
         lineFormat(
             "CSV", "-", "\n", ",",
             {{"DayBeforeMonth", dayFirst}, {"Description", Value(3)}, {"Credit", Value(10)}}),
         11, -46.20},
        {"at-raiffeisen-elba-noheader.csv",
         lineFormat(
             "SSV", ".", "\n", ";",
             {{"DayBeforeMonth", dayFirst}, {"Description", Value(1)}, {"Credit", Value(3)}}),
         7, -157.89},
        {"at-oberbank-many-empty-fields.csv",
         lineFormat(
             "SSV", ".", "\n", ";",
             {{"DayBeforeMonth", dayFirst}, {"Description", Value(10)}, {"Credit", Value(2)}}),
         5, -9.00},
        // Account number first: the date stands between two semicolons, in the third field.
        {"at-easybank-giro-latin1.csv",
         lineFormat("SSV", ".", ";", ";",
                    {{"DayBeforeMonth", dayFirst},
                     {"Date", Value(2)},
                     {"Description", Value(1)},
                     {"Credit", Value(4)}}),
         10, -1562.86},
        {"at-easybank-creditcard-noheader.csv",
         lineFormat("SSV", ".", ";", ";",
                    {{"DayBeforeMonth", dayFirst},
                     {"Date", Value(2)},
                     {"Description", Value(1)},
                     {"Credit", Value(4)}}),
         3, 2.31},
    };
}

TEST(FormattedTextCorpus, StatementsReadWholeAndAddUp) {
    const fs::path folder = test::corpusFolder() / "csv";
    if (!fs::is_directory(folder))
        GTEST_SKIP() << "no corpus at " << folder;
    for (const CorpusStatement& s : statements()) {
        SCOPED_TRACE(s.file);
        std::optional<std::string> text = readWholeFile(folder / s.file);
        ASSERT_TRUE(text);
        test::TestContext t;
        test::ScriptedDialogs dialogs; // any error warning fails the test
        ErrorWarning warning(dialogs, {});
        BankingCreditCardQIF reader(t.ctx);
        // As the run does: a date on the first line has its line end before it too.
        if (textOf(s.format, "DateStart") == "\n")
            text->insert(0, "\n");
        ASSERT_TRUE(
            reader.fromFormattedText(*text, s.format, kDistantPast, kDistantFuture, warning));
        EXPECT_EQ(test::stored(reader).size(), s.count);
        double sum = 0;
        for (const Dictionary& record : test::stored(reader))
            sum += std::stod(textOf(record, "amount"));
        EXPECT_NEAR(sum, s.sum, 0.005);
    }
}

} // namespace
} // namespace tavvel
