// Real statements of the shared corpus, read through input formats written for their layouts:
// every transaction is read, none is refused, and the amounts add up to what the file says.
// Skipped when the corpus is absent.

#include "bank/BankingCreditCardQIF.h"
#include "prefs/Files.h"
#include "recognize/CalendarDate.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"
#include "ui/RunHelpers.h"

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
    };
}

TEST(FormattedTextCorpus, StatementsReadWholeAndAddUp) {
    const fs::path folder = fs::path(TAVVEL_CORPUS_DIR) / "csv";
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
        ASSERT_TRUE(
            reader.fromFormattedText(*text, s.format, kDistantPast, kDistantFuture, warning));
        EXPECT_EQ(reader.qif.size(), s.count);
        double sum = 0;
        for (const Dictionary& record : reader.qif)
            sum += std::stod(textOf(record, "amount"));
        EXPECT_NEAR(sum, s.sum, 0.005);
    }
}

} // namespace
} // namespace tavvel
