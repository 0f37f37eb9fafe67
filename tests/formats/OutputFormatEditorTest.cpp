#include "formats/OutputFormatFiles.h"
#include "formats/OutputFormatForm.h"
#include "formats/OutputFormatKeys.h"
#include "formats/OutputFormatStore.h"
#include "formats/OutputFormats.h"
#include "prefs/PropertyList.h"
#include "prefs/Settings.h"
#include "support/ScriptedDialogs.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

struct OutputFormatEditor : ::testing::Test {
    test::TestContext t;
    test::ScriptedDialogs dialogs;
    TvPrefs& prefs = t.ctx.prefs;

    OutputFormatEditor() {
        prefs = TvPrefs::open(t.ctx.places.prefsFolder, "TavvelMain");
        prefs.setObject(prefkey::DescriptionOutput, Value("%d"));
        prefs.setObject(prefkey::MemoOutput, Value("%m"));
    }
    std::string create(std::string_view name) {
        OutputFormatForm form = OutputFormatForm::newFormat(prefs, name);
        EXPECT_TRUE(form.confirm()) << form.problem();
        return form.name();
    }
    std::string names() {
        std::string all;
        for (const std::string& name : outputFormatNames(prefs))
            all += name + ";";
        return all;
    }
    std::string written(std::string_view name) {
        OutputFormats writer(t.ctx, dialogs);
        writer.chooseFormat(name);
        std::string out;
        writer.produceBankCCOutput(out, {"01/15/2024", "CITY, MARKET", "Weekly", "-54.20", "1041",
                                         "Food", std::nullopt, nullptr});
        return out;
    }
    std::string columns(const OutputFormatForm& form) {
        std::string all;
        for (const auto& c : form.columns())
            all += c.name + (c.present ? "+ " : "- ");
        return all;
    }
    TvPrefs reopened() { return TvPrefs::open(t.ctx.places.prefsFolder, "TavvelMain"); }
};

TEST_F(OutputFormatEditor, NewFormatsAreNamedUniquelyTitledAndWriteTheDefaultColumns) {
    OutputFormatForm form = OutputFormatForm::newFormat(prefs, "Ledger");
    EXPECT_EQ(form.title(), "Define Format");
    EXPECT_EQ(form.confirmButtonTitle(), "Create Output Format");
    EXPECT_EQ(form.confirm(), 0u); // before "QIF", which the name chooser lists apart
    EXPECT_EQ(create("Ledger"), "Ledger2");
    EXPECT_EQ(create("ledger"), "ledger3");
    EXPECT_EQ(create("Zeta"), "Zeta");
    EXPECT_EQ(names(), "Ledger;Ledger2;QIF;Zeta;ledger3;");

    EXPECT_EQ(written("Ledger"), "01/15/2024,1041,\"CITY, MARKET\",Food,-54.20,Weekly\n");
    // Saved at once: the file holds it without any further save.
    EXPECT_EQ(outputFormatNames(reopened()).size(), 5u);
}

TEST_F(OutputFormatEditor, TypeAndAmountStyleChangeTheColumnsOffered) {
    OutputFormatForm form = OutputFormatForm::newFormat(prefs, "Funds");
    EXPECT_EQ(columns(form), "Date+ Number+ Description+ Category+ Amount+ Memo+ blank1- blank2- "
                             "blank3- Account- Splits- ");
    form.moveColumn(5, 0);
    form.setType("Credit Card"); // same columns: the arrangement stays
    EXPECT_EQ(columns(form).substr(0, 12), "Memo+ Date+ ");
    EXPECT_FALSE(form.setType("Savings"));

    ASSERT_TRUE(form.setType("Investment"));
    EXPECT_EQ(columns(form), "Date+ Type+ Description+ Memo+ Amount+ Number+ Category+ Shares+ "
                             "Security+ Price+ Fees+ Account- blank1- blank2- blank3- ");
    form.setPresent(4, false);
    ASSERT_TRUE(form.setAmountStyle("Credit/Debit"));
    EXPECT_EQ(columns(form).substr(0, 48), "Date+ Type+ Description+ Memo+ Credit- Debit- Nu");
    form.setAmountStyle("Amount");
    EXPECT_EQ(columns(form).substr(0, 40), "Date+ Type+ Description+ Memo+ Amount- N");

    // Written by hand, without the editor's Amount key: the columns tell the style.
    Dictionary byHand{{"Name", Value("Hand")},
                      {"Order", Value(Array{Value("Date"), Value("Credit"), Value("Debit")})},
                      {"Present", Value(Array{Value(true), Value(true), Value(false)})}};
    auto edited = OutputFormatForm::editing(prefs, byHand);
    EXPECT_EQ(edited->amountStyle(), "Credit/Debit");
    EXPECT_EQ(columns(*edited).substr(0, 23), "Date+ Credit+ Debit- Nu");
    EXPECT_FALSE(edited->columnIndex("Amount"));
}

TEST_F(OutputFormatEditor, EditingKeepsUnknownKeysAndReplacesTheRecordInOneWrite) {
    create("Ledger");
    Dictionary stored = *outputFormatNamed(prefs, "Ledger");
    stored["Comment"] = Value("kept");
    addOutputFormat(prefs, stored);

    auto form = OutputFormatForm::editing(prefs, stored);
    ASSERT_TRUE(form);
    EXPECT_EQ(form->title(), "Edit Output Format: Ledger");
    EXPECT_EQ(form->confirmButtonTitle(), "Accept Changes");
    EXPECT_EQ(form->reformatDateFormat(), "%m/%d/%Y");
    form->setName("Books");
    form->setSeparator("Tab");
    form->setReformatDate(true);
    form->setReformatDateFormat("%d.%m.%Y");
    form->setPresent(*form->columnIndex("Number"), false);
    ASSERT_TRUE(form->confirm());

    EXPECT_EQ(names(), "Books;QIF;");
    EXPECT_EQ(textOf(*outputFormatNamed(prefs, "Books"), "Comment"), "kept");
    EXPECT_EQ(written("Books"), "15.1.2024\tCITY, MARKET\tFood\t-54.20\tWeekly\n");
    EXPECT_EQ(outputFormatNames(reopened()), outputFormatNames(prefs));
}

TEST_F(OutputFormatEditor, RefusalsAndCancelChangeNothing) {
    EXPECT_FALSE(OutputFormatForm::editing(prefs, *outputFormatNamed(prefs, "QIF")));
    EXPECT_FALSE(removeOutputFormat(prefs, "QIF"));
    create("Ledger");
    const Value before = *prefs.objectForKey(prefkey::OutputFormats);

    auto form = OutputFormatForm::editing(prefs, *outputFormatNamed(prefs, "Ledger"));
    form->setName("");
    EXPECT_FALSE(form->confirm());
    EXPECT_EQ(form->problem(), "An output format needs a name.");
    form->setName("QIF");
    EXPECT_FALSE(form->confirm());
    EXPECT_EQ(form->problem(),
              "The QIF output format is built in and cannot be changed or deleted.");
    form->setName("Other");
    for (std::size_t i = 0; i < form->columns().size(); ++i)
        form->setPresent(i, false);
    EXPECT_FALSE(form->confirm());
    EXPECT_EQ(form->problem(), "Tick at least one column to write.");
    form.reset(); // the Cancel
    EXPECT_EQ(*prefs.objectForKey(prefkey::OutputFormats), before);
}

TEST_F(OutputFormatEditor, DuplicatesDeletesAndSharesThroughFiles) {
    create("Ledger");
    EXPECT_EQ(duplicateOutputFormat(prefs, "ledger"), "Ledger copy");
    EXPECT_EQ(duplicateOutputFormat(prefs, "Ledger"), "Ledger copy 2");
    EXPECT_TRUE(removeOutputFormat(prefs, "Ledger copy"));
    EXPECT_EQ(names(), "Ledger;Ledger copy 2;QIF;");

    auto file = t.folder.path() / "Ledger.tvof";
    ASSERT_TRUE(exportOutputFormat(prefs, "Ledger", file));
    EXPECT_FALSE(exportOutputFormat(prefs, "QIF", file));
    EXPECT_EQ(importOutputFormat(prefs, file), "Ledger2");
    EXPECT_EQ(written("Ledger2"), written("Ledger"));

    auto other = t.folder.path() / "other.tvof";
    ASSERT_TRUE(writePropertyListFile(other, Value(Dictionary{{"Name", Value("QIF")}})));
    EXPECT_FALSE(importOutputFormat(prefs, other));
    ASSERT_TRUE(
        writePropertyListFile(other, Value(Dictionary{{"Name", Value("X")},
                                                      {"Order", Value(Array{Value("Date")})},
                                                      {"Present", Value(Array{})}})));
    EXPECT_FALSE(importOutputFormat(prefs, other));
    EXPECT_EQ(names(), "Ledger;Ledger copy 2;Ledger2;QIF;");
}

TEST_F(OutputFormatEditor, PreviewShowsTheLayoutAsItStandsWithoutStoringAnything) {
    prefs.setObject(prefkey::Categories, Value(Array{}));
    OutputFormatForm form = OutputFormatForm::newFormat(prefs, "Ledger");
    form.setEverySplit(true);
    form.setPresent(*form.columnIndex("Splits"), true);
    form.setPresent(*form.columnIndex("Account"), true);
    form.setPresent(*form.columnIndex("Number"), false);
    EXPECT_EQ(form.preview(t.ctx, dialogs),
              "01/15/2024,CITY MARKET,Food:Groceries,-54.20,Weekly shop,Checking\n"
              "01/16/2024,PAYROLL ACME,Salary,\"1,250.00\",,Checking\n"
              "01/18/2024,\"HARDWARE \"\"PAINT\"\" & CO\",,-20.00,,Checking,-15.00,Home,Paint,"
              "-5.00,Garden,\"Seeds, bulbs\"\n");
    form.setType("Investment");
    EXPECT_EQ(form.preview(t.ctx, dialogs),
              "01/15/2024,Buy,ACME FUND,Monthly plan,-250.00,,,10,Acme Fund,25.00,0.00\n");
    EXPECT_EQ(names(), "QIF;");
    EXPECT_TRUE(prefs.objectForKey(prefkey::Categories)->array().empty());
}

} // namespace
} // namespace tavvel
