// Learning an input format: the date form's refusals and the keys it learns, the layout guess,
// the question walk with its column and text answers, Yes/No branches, Back, and the ends.

#include "formats/LearnFormat.h"

#include "knowledge/Formats.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

using Stage = LearnFormat::Stage;

const std::string kCsv = "Lakeside Bank statement\n"
                         "Date,Payee,Amount\n"
                         "05/02/2024,CORNER SHOP,-4.00\n"
                         "05/03/2024,SALARY,100.00\n"
                         "05/04/2024,BOOKS,-12.00\n";

const std::string kBadDate = "Bad Date";

Value question(std::initializer_list<std::pair<const std::string, Value>> entries) {
    return Value(Dictionary(entries));
}

// A short table that exercises every kind of answer.
Array smallTable() {
    return Array{
        question({{"Field", Value("Date")}, {"Prompt", Value("date")}}),
        question({{"Field", Value("Description")},
                  {"Prompt", Value("description?")},
                  {"Error", Value("Pick the payee.")}}),
        question({{"Field", Value("Memo")}, {"Prompt", Value("memo?")}}),
        question({{"Prompt", Value("invert?")},
                  {"Yes", Value(Array{question({{"InvertAmount", Value(true)}})})},
                  {"No", Value(Array{question({{"FieldMatch", Value("CreditIndicator")},
                                               {"Prompt", Value("credit text?")}})})}}),
        question({{"Field", Value("Credit")}, {"Prompt", Value("amount?")}}),
        question({{"Done", Value(true)}, {"Prompt", Value("done")}}),
    };
}

struct LearnFormatTest : ::testing::Test {
    test::TestContext t;
    test::ScriptedDialogs dialogs;
    Extract extract{t.ctx};
    LearnFormat learn{t.ctx, dialogs, extract};

    LearnFormatTest() {
        Dictionary tables = t.ctx.config.all();
        tables.insert_or_assign("TvExtractBankCreditCard", Value(smallTable()));
        t.ctx.config = Configuration(tables);
    }

    // The date on the date view's line (0-based) selected and OK pressed.
    void selectDate(std::size_t line, std::string_view date) {
        ASSERT_TRUE(learn.dateForm().selectDateOnLine(line, date)) << date;
        learn.ok1();
    }

    // Through stages 1 and 2 with the CSV sample, on to the first question.
    void toQuestions() {
        learn.start(kCsv, kCsv, "Lakeside");
        ASSERT_TRUE(learn.dateForm().selectMatchText("Lakeside Bank"));
        selectDate(1, "05/03/2024");
        ASSERT_EQ(learn.stage(), Stage::layout);
        learn.layoutForm().chooseLayout(5);
        learn.ok2();
        ASSERT_EQ(learn.stage(), Stage::questions);
    }

    void answerColumn(std::size_t column) {
        learn.questionForm().selectColumn(column);
        learn.ok3();
    }

    std::string titles() {
        std::string out;
        for (const std::string& title : learn.questionForm().columnTitles)
            out += "[" + title + "]";
        return out;
    }
};

TEST_F(LearnFormatTest, DateRefusalsKeepTheDateFormWithTheirTexts) {
    learn.start(kCsv, kCsv, "Lakeside");
    EXPECT_EQ(learn.dateForm().title, "Create Input Format: Lakeside");
    // The date view begins at the line of the earliest date.
    EXPECT_EQ(learn.dateForm().dateView.substr(0, 10), "05/02/2024");

    dialogs.expectAlert(kBadDate).expectAlert(kBadDate).expectAlert(kBadDate).expectAlert(kBadDate);
    learn.ok1();
    EXPECT_EQ(dialogs.last().text,
              "You have not selected a date.  Please try again to select a date that starts a "
              "transaction.  If you cannot find a date by scrolling, then perhaps the input text "
              "does not contain transactions.  You can hit CANCEL to start over.");
    // A valid date, but at the very start of the text shown.
    selectDate(0, "05/02/2024");
    EXPECT_EQ(dialogs.last().text,
              "The text you selected starts at the beginning of the input text.  Please try "
              "again to select a date that starts a transaction, but not the start of the input "
              "text.  You can hit CANCEL to start over.");
    const std::string notJustADate =
        "The text you selected does not appear to contain just a date.  Don't select any "
        "blanks around the date.  Please try again to select a date that starts a transaction.  "
        "If you cannot find a date by scrolling, then perhaps the input text does not contain "
        "transactions.  You can hit CANCEL to start over.";
    learn.dateForm().selectDate({learn.dateForm().dateView.find("SALARY"), 6});
    learn.ok1();
    EXPECT_EQ(dialogs.last().text, notJustADate);

    const std::string spaced = "Header\n05/02/2024 CORNER SHOP -4.00\n05/03/2024 SALARY 100.00\n";
    learn.start(spaced, spaced, "Spaced");
    selectDate(1, "05/03/2024 ");
    EXPECT_EQ(dialogs.last().text, notJustADate);
    EXPECT_EQ(learn.stage(), Stage::date);
    EXPECT_TRUE(learn.format().empty());
    EXPECT_EQ(learn.backStackSize(), 1u);
}

TEST_F(LearnFormatTest, TheDateAloneTeachesItsSurroundingsAndDelimiter) {
    const std::string spaced = "Header\n05/02/2024 CORNER SHOP -4.00\n  05/03/2024 SALARY 100.00\n";
    learn.start(spaced, spaced, "Spaced");
    learn.dateForm().dayBeforeMonth = true;
    learn.dateForm().chooseType(1);
    selectDate(1, "05/03/2024");
    ASSERT_EQ(learn.stage(), Stage::layout);
    const Dictionary& f = learn.format();
    EXPECT_EQ(textOf(f, "Name"), "Spaced");
    EXPECT_EQ(textOf(f, "FormatType"), "Credit Card");
    EXPECT_EQ(textOf(f, "DateDelimiter"), "/");
    EXPECT_EQ(textOf(f, "DateStart"), " ");
    EXPECT_EQ(textOf(f, "DateEnd"), " ");
    EXPECT_EQ(*find(f, "DayBeforeMonth"), Value(true));
    EXPECT_FALSE(has(f, "firstLineStartsWithTransactionDate"));
    EXPECT_EQ(extract.distanceFromNewline, 3);
    EXPECT_EQ(learn.layoutForm().title, "Create Credit Card Input Format: Spaced");

    const std::string dotted = "Umsaetze\n02.05.2024;A;1\n03.05.2024;B;2";
    learn.start(dotted, dotted, "Dots");
    selectDate(1, "03.05.2024");
    EXPECT_EQ(textOf(learn.format(), "DateDelimiter"), ".");
    EXPECT_EQ(textOf(learn.format(), "DateStart"), "\n");
    EXPECT_EQ(textOf(learn.format(), "DateEnd"), ";");
    EXPECT_EQ(extract.distanceFromNewline, 1);

    const std::string words = "Activity\nJan 5, 2024\nCOFFEE\n-4.50\nJan 6, 2024\nSALARY\n10.00";
    learn.start(words, words, "Words");
    selectDate(4, "Jan 6, 2024");
    EXPECT_EQ(textOf(learn.format(), "DateDelimiter"), ",");
    EXPECT_EQ(textOf(learn.format(), "DateEnd"), "\n");
}

TEST_F(LearnFormatTest, OneTransactionIsEnoughAndNoneIsRefused) {
    const std::string one = "Statement\nPosted 05/02/2024 CORNER SHOP -4.00\n";
    learn.start(one, one, "One");
    selectDate(0, "05/02/2024");
    EXPECT_EQ(learn.stage(), Stage::layout);
    EXPECT_EQ(learn.layoutForm().preview.rows.size(), 1u);

    // An 8-bit copy without the date (as when the text could not be converted) cuts into no
    // transaction at all.
    dialogs.expectAlert("Not Enough Transactions");
    learn.start(one, "", "None");
    selectDate(0, "05/02/2024");
    EXPECT_EQ(dialogs.last().text, "The input text does not appear to contain at least 2 "
                                   "transactions.  Try again with at least 2 transactions.");
    EXPECT_EQ(learn.stage(), Stage::date);
    EXPECT_TRUE(learn.format().empty());
}

// Without a heading the first date opens the text, so no line end stands before it; the
// reading run puts one in front, and the preview must show that first transaction too.
TEST_F(LearnFormatTest, ThePreviewOfATextWithoutHeadingHoldsWhatTheReaderReads) {
    const std::string bare = "05/02/2024,CORNER SHOP,-4.00\n"
                             "05/03/2024,SALARY,100.00\n"
                             "05/04/2024,BOOKS,-12.00\n";
    learn.start(bare, bare, "Bare");
    selectDate(1, "05/03/2024");
    ASSERT_EQ(learn.stage(), Stage::layout);
    ASSERT_EQ(textOf(learn.format(), "DateStart"), "\n");
    learn.layoutForm().chooseLayout(5);
    const PreviewTable& preview = learn.layoutForm().preview;
    ASSERT_EQ(preview.rows.size(), 3u);
    EXPECT_EQ(preview.cell(0, 0), "05/02/2024");
    EXPECT_EQ(preview.cell(0, 1), "CORNER SHOP");
    EXPECT_EQ(preview.cell(2, 1), "BOOKS");

    Extract reader(t.ctx);
    ASSERT_TRUE(
        reader.parseTransactionsForCString(textAsRead(bare, learn.format()), learn.format()));
    EXPECT_EQ(reader.transactionsAsLines.size(), preview.rows.size());
    // A format whose dates follow another character reads the text as it stands.
    Dictionary blankBefore{{"DateStart", Value(" ")}};
    EXPECT_EQ(textAsRead(bare, blankBefore), bare);
}

TEST(LearnLayoutGuess, TabsColumnsAndCounts) {
    std::int64_t most = 0;
    // Tab-separated, a tab followed by a blank: fields start after initial blanks.
    EXPECT_EQ(guessLayout({"05/02/2024\t CORNER\t-4.00", "05/03/2024\tSALARY\t100.00"}, most), 0);
    EXPECT_EQ(most, 3);
    // Tab-separated columns without blanks after the tabs.
    EXPECT_EQ(guessLayout({"05/02/2024\tCORNER\t-4.00", "05/03/2024\tSALARY\t100.00"}, most), 1);
    // Same non-empty pieces but different piece counts: count the fields.
    EXPECT_EQ(guessLayout({"Jan 5\nCOFFEE\n-4.50", "Jan 6\nSALARY\n\n10.00\n"}, most), 2);
    EXPECT_EQ(most, 5);
    // Different non-empty pieces: columns again.
    EXPECT_EQ(guessLayout({"Jan 5\nCOFFEE\n-4.50", "Jan 6\nSALARY\n\n10.00\nTotal"}, most), 1);
    // All lines alike in every way: no count layout either.
    EXPECT_EQ(guessLayout({"a\tb", "c\td"}, most), 1);
    // Lines without any piece of text never count.
    EXPECT_EQ(guessLayout({"\n", "\n\n"}, most), 1);
}

TEST(LearnLayoutGuess, RecordsOfQuotedFields) {
    std::int64_t most = 0;
    // The cut left each date's opening quote behind; a doubled quote, a separator and a line
    // end inside a field, empty fields and CR LF between records.
    const std::vector<std::string_view> csv{"01/05/2024\",\"A, \"\"B\"\"\",\"\",,\"-4.50\"\r\n",
                                            "01/06/2024\",\"two\r\nlines\",\"x\",\"\",\"1.00\""};
    EXPECT_EQ(guessLayout(csv, most, true), 5);
    EXPECT_EQ(guessLayout({"\"01.05.2024\";\"A\";\"\"\n\"02.05.2024\";\"B\";\"3,00\""}, most), 7);
    // Not quoted CSV: the quote is not taken as lost; an unquoted field; one field a record;
    // separators mixed; a quote left open.
    EXPECT_NE(guessLayout(csv, most, false), 5);
    EXPECT_EQ(guessLayout({"\"01/05/2024\",A,\"1.00\""}, most), 1);
    EXPECT_EQ(guessLayout({"\"01/05/2024\"\n\"01/06/2024\""}, most), 1);
    EXPECT_EQ(guessLayout({"\"01/05/2024\",\"A\";\"1.00\""}, most), 1);
    EXPECT_EQ(guessLayout({"\"01/05/2024\",\"A"}, most), 1);
}

TEST_F(LearnFormatTest, StageOnePreselectsTheGuessedLayoutAndShowsItsPreview) {
    const std::string tabs =
        "Statement\n05/02/2024\tCORNER\t-4.00\n05/03/2024\tSALARY\n\t100.00\n05/04/2024\tBOOK\t-1";
    learn.start(tabs, tabs, "Tabs");
    selectDate(1, "05/03/2024");
    EXPECT_EQ(learn.layoutForm().layout.choice, 2);
    EXPECT_EQ(textOf(learn.format(), "Fields"), "COUNT");
    EXPECT_EQ(learn.maxFieldCount(), 4);
    EXPECT_EQ(learn.layoutForm().preview.rows.size(), 3u);
    EXPECT_EQ(learn.layoutForm().preview.cell(0, 0), "05/02/2024");

    learn.layoutForm().chooseLayout(3);
    EXPECT_EQ(textOf(learn.format(), "Fields"), "TABS_ONLY");
}

TEST_F(LearnFormatTest, DateQuestionIsPassedOverAndColumnsTakeTheirFields) {
    toQuestions();
    EXPECT_EQ(learn.questionForm().prompt, "description?");
    EXPECT_TRUE(learn.questionForm().expectsColumn);
    EXPECT_EQ(learn.questionForm().title, "Create Bank Input Format: Lakeside");
    ASSERT_EQ(learn.questionForm().columnTitles.size(), 3u);

    // Required: no column is refused with the question's own text.
    dialogs.expectAlert("No Column Selected");
    learn.ok3();
    EXPECT_EQ(dialogs.last().text, "Pick the payee.");
    EXPECT_EQ(learn.questionForm().prompt, "description?");

    answerColumn(1);
    EXPECT_EQ(find(learn.format(), "Description")->toInteger(), 1);
    EXPECT_EQ(titles(), "[][Description][]");
    EXPECT_EQ(learn.questionForm().prompt, "memo?");
    // Optional: passed without a selection, nothing stored.
    learn.ok3();
    EXPECT_FALSE(has(learn.format(), "Memo"));
    EXPECT_TRUE(learn.questionForm().answersYesNo);
}

TEST_F(LearnFormatTest, AColumnAlreadyUsedCannotTakeASecondField) {
    toQuestions();
    answerColumn(1);
    dialogs.expectAlert("Column Already Used");
    answerColumn(1);
    EXPECT_EQ(dialogs.last().text,
              "The column you selected is already used for \"Description\".  If that is wrong, "
              "you need to press CANCEL and start over.  Or, you can select a different column "
              "and proceed.");
    EXPECT_EQ(learn.questionForm().prompt, "memo?");
    EXPECT_FALSE(has(learn.format(), "Memo"));
    answerColumn(0);
    EXPECT_EQ(find(learn.format(), "Memo")->toInteger(), 0);
}

TEST_F(LearnFormatTest, AFieldMatchMarkedColumnCanStillTakeAField) {
    toQuestions();
    answerColumn(1);
    learn.ok3();
    learn.no(); // on to the credit text
    EXPECT_EQ(learn.questionForm().prompt, "credit text?");
    EXPECT_FALSE(learn.questionForm().answersYesNo);
    EXPECT_FALSE(learn.questionForm().selectCellText(1, 2, "-4"));
    ASSERT_TRUE(learn.questionForm().selectCellText(1, 2, "100"));
    learn.ok3();
    EXPECT_EQ(textOf(learn.format(), "CreditIndicator"), "100");
    EXPECT_EQ(learn.questionForm().fieldMatchSummary, "Credit Indicator: 100");
    EXPECT_EQ(titles(), "[][Description][⬇︎]");

    answerColumn(2);
    EXPECT_EQ(find(learn.format(), "Credit")->toInteger(), 2);
    EXPECT_EQ(titles(), "[][Description][⬇︎ & Credit]");
    EXPECT_EQ(learn.questionForm().prompt, "done");
}

TEST_F(LearnFormatTest, YesWithInvertAmountSetsItAndReturnsToTheBranchingList) {
    toQuestions();
    answerColumn(1);
    learn.ok3();
    learn.yes();
    EXPECT_EQ(*find(learn.format(), "InvertAmount"), Value(true));
    EXPECT_EQ(learn.questionForm().prompt, "amount?");
    EXPECT_EQ(learn.questionsStackDepth(), 0u);

    answerColumn(2);
    learn.ok3(); // the Done question stores the format
    EXPECT_EQ(learn.stage(), Stage::stored);
    auto stored = Formats(t.ctx.prefs).formatForName("Lakeside");
    ASSERT_TRUE(stored);
    EXPECT_EQ(find(*stored, "Credit")->toInteger(), 2);
    EXPECT_EQ(find(*stored, "Description")->toInteger(), 1);
    EXPECT_EQ(*find(*stored, "InvertAmount"), Value(true));
    EXPECT_EQ(textOf(*stored, "Match"), "Lakeside Bank");
    EXPECT_EQ(textOf(*stored, "Fields"), "CSV");
}

TEST_F(LearnFormatTest, NoWalksTheNoListWithoutInvertingAndKeepsTheBranchOnTheStack) {
    toQuestions();
    answerColumn(1);
    learn.ok3();
    learn.no();
    EXPECT_FALSE(has(learn.format(), "InvertAmount"));
    EXPECT_EQ(learn.questionsStackDepth(), 1u);
    learn.ok3(); // the credit text is optional
    EXPECT_EQ(learn.questionForm().prompt, "amount?");
    EXPECT_EQ(learn.questionsStackDepth(), 0u);
    EXPECT_FALSE(has(learn.format(), "CreditIndicator"));
}

TEST_F(LearnFormatTest, BackFromTheFirstQuestionReturnsToTheLayoutFormWithItsFormat) {
    toQuestions();
    const Dictionary atLayout = learn.format();
    answerColumn(1);
    learn.ok3();
    learn.yes();
    ASSERT_TRUE(has(learn.format(), "InvertAmount"));

    learn.back(); // before Yes
    EXPECT_FALSE(has(learn.format(), "InvertAmount"));
    EXPECT_EQ(learn.questionForm().prompt, "invert?");
    learn.back();
    learn.back(); // the first question again, with its column free
    EXPECT_EQ(learn.questionForm().prompt, "description?");
    EXPECT_EQ(titles(), "[][][]");
    EXPECT_FALSE(has(learn.format(), "Description"));
    learn.back();
    EXPECT_EQ(learn.stage(), Stage::layout);
    EXPECT_EQ(learn.format(), atLayout);
    EXPECT_EQ(learn.layoutForm().layout.choice, 5);

    learn.back();
    EXPECT_EQ(learn.stage(), Stage::date);
    EXPECT_TRUE(learn.format().empty());
    learn.back(); // nothing before the date form
    EXPECT_EQ(learn.stage(), Stage::date);
}

TEST_F(LearnFormatTest, RunningOutOfQuestionsLeavesTheLastOneOnTheForm) {
    Dictionary tables = t.ctx.config.all();
    tables.insert_or_assign(
        "TvExtractBankCreditCard",
        Value(Array{question({{"Field", Value("Description")}, {"Prompt", Value("only")}})}));
    t.ctx.config = Configuration(tables);
    toQuestions();
    answerColumn(1);
    EXPECT_EQ(learn.stage(), Stage::questions);
    EXPECT_EQ(learn.questionForm().prompt, "only");
    EXPECT_EQ(Formats(t.ctx.prefs).numberOfFormats(), 0u);
}

TEST_F(LearnFormatTest, TheDialogueRunsThroughTheFrontEndAndCancelStoresNothing) {
    dialogs.expectLearnDate([](LearnDateForm& form) {
        form.selectDateOnLine(1, "05/03/2024");
        return LearnAction::ok;
    });
    dialogs.expectLearnLayout([](LearnLayoutForm&) { return LearnAction::cancel; });
    EXPECT_FALSE(learn.learnFromString(kCsv, kCsv, "Lakeside"));
    EXPECT_EQ(learn.stage(), Stage::cancelled);
    EXPECT_EQ(Formats(t.ctx.prefs).numberOfFormats(), 0u);

    // A front end that never asks cancels at once.
    struct Batch : test::ScriptedDialogs {
        LearnAction learnDate(LearnDateForm& form) override { return Dialogs::learnDate(form); }
    } batch;
    LearnFormat quiet(t.ctx, batch, extract);
    EXPECT_FALSE(quiet.learnFromString(kCsv, kCsv, "Lakeside"));
}

} // namespace
} // namespace tavvel
