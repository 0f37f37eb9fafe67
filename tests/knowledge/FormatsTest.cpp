#include "knowledge/Formats.h"

#include "KnowledgeFixture.h"
#include "forms/EditFormats.h"
#include "knowledge/FormatFiles.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/Files.h"
#include "prefs/PropertyList.h"
#include "prefs/Settings.h"

namespace tavvel::test {
namespace {

Dictionary format(const char* name, const char* match = "STATEMENT") {
    return record({{"Name", name}, {"Match", match}, {"Fields", "COLUMNS"}});
}

std::vector<std::string> names(const Formats& formats) {
    std::vector<std::string> out;
    for (const Value& entry : formats.getExtractFormatsArray())
        out.push_back(textOf(entry.dictionary(), "Name"));
    return out;
}

using Names = std::vector<std::string>;

class FormatsTest : public KnowledgeTest {
protected:
    Formats formats{prefs()};
};

TEST_F(FormatsTest, FormatsStayInNameOrderAndReplaceInAnyCase) {
    EXPECT_EQ(formats.addFormat(format("Visa")), 0u);
    EXPECT_EQ(formats.addFormat(format("Amex")), 0u);
    EXPECT_EQ(formats.addFormat(format("Checking")), 1u);
    EXPECT_EQ(formats.addFormat(format("Brokerage")), 1u);
    EXPECT_EQ(formats.addFormat(format("checking", "NEW MATCH")), 2u);
    EXPECT_EQ(names(formats), (Names{"Amex", "Brokerage", "checking", "Visa"}));
    EXPECT_EQ(textOf(*formats.formatForName("CHECKING"), "Match"), "NEW MATCH");
    EXPECT_FALSE(formats.formatForName("Savings"));
    TvPrefs again = reopened();
    EXPECT_EQ(names(Formats(again)), names(formats));
    formats.deleteFormatAtIndex(1);
    formats.deleteFormatAtIndex(9);
    TvPrefs later = reopened();
    EXPECT_EQ(names(Formats(later)), (Names{"Amex", "checking", "Visa"}));
}

TEST_F(FormatsTest, OFXLikeFormatsAreKeptApartAndNeverExported) {
    Dictionary ofx = format("OFX");
    ofx.emplace("OFX", Value(true));
    formats.addFormat(format("Visa"));
    EXPECT_EQ(formats.addFormat(ofx), 0u);
    EXPECT_EQ(formats.numberOfFormats(), 1u);
    TvPrefs again = reopened();
    ASSERT_TRUE(again.objectForKey(prefkey::OFXFormat));
    EXPECT_EQ(again.objectForKey(prefkey::OFXFormat)->dictionary(), ofx);
    // An old list may still hold one; the export menu leaves it out all the same.
    formats.setExtractFormatsArray({Value(format("Amex")), Value(ofx), Value(format("Visa"))});
    EXPECT_EQ(formats.exportMenuTitles(), (Names{"Amex", "Visa"}));
}

TEST_F(FormatsTest, NewFormatsTakeTheGlobalMappingsOnlyWhenTheyHaveNone) {
    Array types{Value(record({{"formatType", "BUY"}, {"quickenType", "Buy"}}))};
    prefs().setObject(fmtkey::TypeMappings, Value(types));
    Dictionary own = format("Brokerage");
    own.emplace("SecurityMappings", Value(Array{}));
    formats.addFormat(own);
    Dictionary stored = *formats.formatForName("Brokerage");
    EXPECT_EQ(*find(stored, fmtkey::TypeMappings), Value(types));
    EXPECT_EQ(*find(stored, fmtkey::SecurityMappings), Value(Array{}));
    Dictionary withTypes = format("IRA");
    withTypes.emplace("TypeMappings", Value(Array{}));
    formats.addFormat(withTypes);
    EXPECT_EQ(*find(*formats.formatForName("IRA"), fmtkey::TypeMappings), Value(Array{}));
}

TEST_F(FormatsTest, TheStartUpPassNormalisesInIndexOrder) {
    prefs().setObject(fmtkey::SecurityMappings, Value(Array{Value("global")}));
    Dictionary ofx = format("Investment OFX");
    ofx.emplace("OFX", Value(true));
    formats.setExtractFormatsArray({Value(format("Amex")), Value(ofx), Value(format("Visa"))});
    formats.normalizeAll();
    TvPrefs again = reopened();
    Formats reread(again);
    EXPECT_EQ(find(*reread.formatForName("Visa"), fmtkey::SecurityMappings)->array().size(), 1u);
    EXPECT_EQ(again.objectForKey(prefkey::OFXFormat)->dictionary(), ofx);
    // A second pass finds nothing to change and writes nothing.
    std::filesystem::remove(prefsFile());
    reread.normalizeAll();
    EXPECT_FALSE(std::filesystem::exists(prefsFile()));
}

TEST_F(FormatsTest, DuplicatesAreNamedByExactComparison) {
    formats.addFormat(format("Visa"));
    EditFormats editor(prefs());
    EXPECT_EQ(editor.duplicateSelectedTableEntry(0), 1u);
    EXPECT_EQ(editor.duplicateSelectedTableEntry(0), 2u);
    EXPECT_EQ(names(formats), (Names{"Visa", "Visa copy", "Visa copy 2"}));
    EXPECT_TRUE(editor.extractFormatExistsWithName("Visa copy"));
    EXPECT_FALSE(editor.extractFormatExistsWithName("visa copy"));
    EXPECT_FALSE(editor.duplicateSelectedTableEntry(std::nullopt));
    EXPECT_FALSE(editor.duplicateSelectedTableEntry(7));
    // A name that differs in case only counts as free, and addFormat then replaces it.
    formats.addFormat(format("amex copy", "OLD"));
    formats.addFormat(format("Amex", "NEW"));
    EXPECT_EQ(editor.nameForDuplicateOf("Amex"), "Amex copy");
}

TEST_F(FormatsTest, WarnSwitchAndMappingLists) {
    Dictionary brokerage = format("Brokerage");
    brokerage.emplace("TypeMappings", Value(Array{Value("a"), Value("b"), Value("c")}));
    formats.addFormat(brokerage);
    EditFormats editor(prefs());
    EXPECT_TRUE(editor.warns(0));
    editor.setWarns(0, false);
    EXPECT_EQ(*find(*formats.formatAtIndex(0), fmtkey::dontWarn), Value(true));
    editor.setWarns(0, true);
    EXPECT_FALSE(has(*formats.formatAtIndex(0), fmtkey::dontWarn));
    using Mappings = EditFormats::Mappings;
    EXPECT_EQ(editor.mappingsTitle(0, Mappings::Types), "Delete Types For Input Format: Brokerage");
    EXPECT_EQ(editor.mappingsTitle(0, Mappings::Securities),
              "Delete Securities For Input Format: Brokerage");
    EXPECT_EQ(editor.mappings(0, Mappings::Types).size(), 3u);
    editor.setMappings(0, Mappings::Types, {Value("b")});
    TvPrefs again = reopened();
    EXPECT_EQ(*find(*Formats(again).formatAtIndex(0), fmtkey::TypeMappings),
              Value(Array{Value("b")}));
}

TEST_F(FormatsTest, NameChooserCompletesInStoreOrder) {
    for (const char* name : {"Checking Long Name", "Chase", "Checking"})
        formats.addFormat(format(name));
    EXPECT_EQ(formats.completedString("ch"), (Completion{"Chase", 2}));
    EXPECT_EQ(formats.completedString("checking"), (Completion{"Checking", 8}));
    EXPECT_FALSE(formats.completedString("x"));
}

class FormatFilesTest : public FormatsTest {
protected:
    std::filesystem::path file(const char* name) const { return folder() / name; }
    // The rename form as a user fills it in: the name typed, or cancelled.
    PresentRenameForm answer(std::optional<std::string> name) {
        return [this, name](RenameFormatForm& form) {
            shownName = form.name();
            duplicateShown = form.duplicateNoteShown();
            if (name)
                form.nameChanged(*name);
            return name.has_value();
        };
    }
    std::string shownName;
    bool duplicateShown = false;
};

TEST_F(FormatFilesTest, ExportAndImportRoundTripThroughAFile) {
    Dictionary visa = format("Visa");
    visa.emplace("FieldMatch", Value(record({{"Amount", "$"}})));
    visa.emplace("unknownKey", Value(42));
    formats.addFormat(visa);
    EXPECT_EQ(suggestedFormatFileName("Visa"), "Visa.tvfm");
    EXPECT_TRUE(isFormatFile(file("Visa.tvfm")));
    EXPECT_FALSE(isFormatFile(file("Visa.TVFM"))) << "extensions are compared with their case";
    EXPECT_FALSE(isFormatFile(file("tvfm")));
    dialogs.expectAlert("Input Format Exported");
    ASSERT_TRUE(exportFormat(formats, "VISA", file("Visa.tvfm"), dialogs));
    EXPECT_EQ(dialogs.last().text,
              "Input format \"VISA\" saved in file \"" + file("Visa.tvfm").string() + "'.");

    formats.deleteFormatAtIndex(0);
    dialogs.expectAlert("Input Format Imported");
    EXPECT_EQ(importFormatFile(formats, file("Visa.tvfm"), dialogs, answer("Visa Card")),
              ImportOutcome::Imported);
    EXPECT_EQ(shownName, "Visa");
    EXPECT_FALSE(duplicateShown);
    EXPECT_EQ(dialogs.last().text, "Input format \"Visa Card\" imported from file \"" +
                                       file("Visa.tvfm").string() + "'.");
    visa.insert_or_assign("Name", Value("Visa Card"));
    TvPrefs again = reopened();
    EXPECT_EQ(*Formats(again).formatForName("visa card"), visa);
}

TEST_F(FormatFilesTest, ImportingOverAnExistingNameReplacesItAndCancelChangesNothing) {
    formats.addFormat(format("Visa", "OLD"));
    writeFormatFile(file("new.tvfm"), format("VISA", "NEW"));
    EXPECT_EQ(importFormatFile(formats, file("new.tvfm"), dialogs, answer(std::nullopt)),
              ImportOutcome::Cancelled);
    EXPECT_TRUE(duplicateShown);
    EXPECT_EQ(textOf(*formats.formatForName("Visa"), "Match"), "OLD");
    EXPECT_EQ(importFormatFile(formats, file("new.tvfm"), dialogs, answer("")),
              ImportOutcome::Cancelled);
    dialogs.expectAlert("Input Format Imported");
    importFormatFile(formats, file("new.tvfm"), dialogs, answer("VISA"));
    EXPECT_EQ(names(formats), (Names{"VISA"}));
    EXPECT_EQ(textOf(*formats.formatForName("Visa"), "Match"), "NEW");
}

TEST_F(FormatFilesTest, FilesThatHoldNoFormatAreRefusedWithAReason) {
    writeFileAtomically(file("text.tvfm"), "Date,Amount\n1/2/2024,3.00\n");
    writeFileAtomically(file("list.tvfm"), encodePropertyList(Value(Array{Value("x")})));
    writeFileAtomically(file("prefs.tvfm"), encodePropertyList(Value(record({{"a", 1}}))));
    struct Case {
        const char* file;
        const char* reason;
    } cases[] = {{"text.tvfm", "it is not a property list"},
                 {"list.tvfm", "it does not hold a format record"},
                 {"prefs.tvfm", "it does not hold a format record"},
                 {"missing.tvfm", "the file cannot be read"}};
    for (const Case& c : cases) {
        dialogs.expectAlert("Input Format Not Imported");
        EXPECT_EQ(importFormatFile(formats, file(c.file), dialogs, answer("X")),
                  ImportOutcome::Refused);
        EXPECT_EQ(dialogs.last().text, "The file \"" + file(c.file).string() +
                                           "\" does not hold an input format (" + c.reason +
                                           "), so nothing was imported.");
    }
    EXPECT_EQ(formats.numberOfFormats(), 0u);
    EXPECT_FALSE(exportFormat(formats, "Nothing", file("nothing.tvfm"), dialogs));
    EXPECT_FALSE(std::filesystem::exists(file("nothing.tvfm")));
}

TEST_F(FormatFilesTest, ThePanelsStartInTheLastFolderAndProposeTheName) {
    prefs().setObject(prefkey::LastRootDirectory, Value(folder().string()));
    formats.addFormat(format("Visa"));
    dialogs.expectFile("save", file("Visa.tvfm").string()).expectAlert("Input Format Exported");
    EXPECT_TRUE(exportFormatToChosenFile(formats, "Visa", dialogs));
    const FileChoice& save = dialogs.fileChoices().at(0);
    EXPECT_EQ(save.suggestedName, "Visa.tvfm");
    EXPECT_EQ(save.startFolder, folder().string());
    EXPECT_EQ(save.extensions, std::vector<std::string>{"tvfm"});
    dialogs.expectFile("save", std::nullopt);
    EXPECT_FALSE(exportFormatToChosenFile(formats, "Visa", dialogs));

    dialogs.expectFile("open", file("Visa.tvfm").string()).expectAlert("Input Format Imported");
    EXPECT_EQ(importFormatFromChosenFile(formats, dialogs, answer("Visa 2")),
              ImportOutcome::Imported);
    dialogs.expectFile("open", std::nullopt);
    EXPECT_EQ(importFormatFromChosenFile(formats, dialogs, answer("Visa 3")),
              ImportOutcome::Cancelled);
    EXPECT_EQ(names(formats), (Names{"Visa", "Visa 2"}));
}

} // namespace
} // namespace tavvel::test
