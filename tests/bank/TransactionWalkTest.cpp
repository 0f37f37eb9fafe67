#include "bank/BankTexts.h"
#include "bank/BankingCreditCardQIF.h"
#include "dialogs/RunHelpers.h"
#include "formats/OutputFormats.h"
#include "knowledge/Instructions.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "support/ScriptedDialogs.h"
#include "support/StoredRecords.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

struct TransactionWalk : ::testing::Test {
    test::TestContext t;
    test::ScriptedDialogs dialogs;
    OutputFormats writer{t.ctx, dialogs};
    ErrorWarning warning{dialogs, nullptr};
    BankingCreditCardQIF reader{t.ctx};
    Instructions instructions{t.ctx.prefs};
    WalkOptions options;
    std::string out;

    TransactionWalk() {
        t.ctx.prefs.setObject(prefkey::DescriptionOutput, Value("%d"));
        t.ctx.prefs.setObject(prefkey::MemoOutput, Value("%m"));
        t.ctx.prefs.setObject(prefkey::Categories, Value(Array{}));
        addOption(t.ctx.prefs, option::dontAddCategories);
    }
    void records(const std::vector<Dictionary>& list) { reader.start(test::recordsFrom(list)); }
    WalkResult walk() {
        return reader.processInstructionsAndAppendToString(out, writer, warning, dialogs,
                                                           instructions, options);
    }
};

Dictionary tx(std::initializer_list<std::pair<const char*, const char*>> fields) {
    Dictionary record;
    for (auto [k, v] : fields)
        record.emplace(k, Value(v));
    return record;
}

TEST_F(TransactionWalk, KeptCategoriesGoOutAsReadWithTheRunsChoices) {
    records({tx({{"date", "1/2/2024"},
                 {"description", "ACME"},
                 {"amount", "(5.00)"},
                 {"category", "Food"},
                 {"number", "7"},
                 {"cleared", "X"}}),
             tx({{"date", "1/3/2024"}, {"description", "B"}, {"amount", "2"}})});
    options.outputNumber = "99";
    options.markAsCleared = true;
    WalkResult result = walk();
    EXPECT_EQ(result.appended, 2u);
    EXPECT_FALSE(result.continuation);
    EXPECT_EQ(out, "D1/2/2024\nPACME\nT-5.00)\nN99\nLFood\nC*\n^\n"
                   "D1/3/2024\nPB\nT2\nN99\nC*\n^\n");
}

TEST_F(TransactionWalk, DescriptionsMemosAndCapitals) {
    records({tx({{"date", "1/2/2024"}, {"memo", "CHECK 123"}, {"amount", "1"}}),
             tx({{"date", "1/2/2024"}, {"amount", "1"}}),
             tx({{"date", "1/2/2024"}, {"description", "d"}, {"memo", "m"}, {"amount", "1"}})});
    addOption(t.ctx.prefs, option::treatMemoAsDescription);
    walk();
    EXPECT_EQ(out, "D1/2/2024\nPCHECK 123\nMCHECK 123\nT1\n^\n"
                   "D1/2/2024\nPNO DESCRIPTION\nT1\n^\n"
                   "D1/2/2024\nPd\nMm\nT1\n^\n");

    out.clear();
    records({tx({{"date", "1/2/2024"},
                 {"description", "joe's CAFE-bar 3RD"},
                 {"memo", ""},
                 {"amount", "1"}}),
             tx({{"date", "1/2/2024"}, {"description", "d"}, {"memo", "m"}, {"amount", "1"}})});
    addOption(t.ctx.prefs, option::initialCaps);
    addOption(t.ctx.prefs, option::leaveBlankDescriptionsBlank);
    options.swapDescriptionAndMemo = true;
    walk();
    // An empty memo is not swapped in; the other record's texts trade places.
    EXPECT_EQ(out, "D1/2/2024\nPJoe's Cafe-Bar 3rd\nT1\n^\nD1/2/2024\nPM\nMD\nT1\n^\n");
    EXPECT_EQ(test::stored(reader)[0].at("AlreadySwapped"), Value(true));
}

TEST_F(TransactionWalk, ErrorRecordsAreSkippedOrStopTheWalk) {
    records({tx({{"errorMessage", "Bad: "}, {"errorText", "<STMTTRN>..."}}),
             tx({{"date", "1/2/2024"}, {"description", "A"}, {"amount", "1"}}),
             tx({{"errorMessage", "Worse: "}, {"errorText", "x"}}),
             tx({{"date", "1/3/2024"}, {"description", "B"}, {"amount", "1"}})});
    dialogs.expectErrorWarning("Bad: ", true).expectErrorWarning("Worse: ", false);
    WalkResult result = walk();
    EXPECT_EQ(result.appended, 1u);
    EXPECT_EQ(dialogs.shown()[0].text, "<STMTTRN>...");
    EXPECT_EQ(dialogs.shown()[0].buttons.front(), "Skip Transaction");
    EXPECT_EQ(out, "D1/2/2024\nPA\nT1\n^\n");
}

TEST_F(TransactionWalk, RevisitedTransactionReplacesItsEarlierOutput) {
    records({tx({{"date", "1/2/2024"}, {"description", "A"}, {"amount", "1"}}),
             tx({{"date", "1/3/2024"}, {"description", "B"}, {"amount", "2"}})});
    walk();
    std::string first = out;
    reader.rewindTo(1); // as Back does
    walk();
    EXPECT_EQ(out, first);
    EXPECT_EQ(test::stored(reader)[1].at("outputLength"), Value(std::int64_t{18}));
}

} // namespace
} // namespace tavvel
