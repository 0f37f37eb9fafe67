#include "KnowledgeFixture.h"
#include "dialogs/ExistingEntryField.h"
#include "dialogs/TypeAheadField.h"
#include "forms/DescriptionMatchFormatter.h"
#include "knowledge/RenameFormatForm.h"

#include <vector>

namespace tavvel::test {
namespace {

Completer completerOver(std::vector<std::string> entries) {
    return [entries = std::move(entries)](std::string_view typed) {
        auto textAt = [&](std::size_t i) { return std::string_view(entries[i]); };
        return shortestCompletion(entries.size(), textAt, typed, true);
    };
}

FieldState at(std::string text, std::size_t start, std::size_t length = 0) {
    return {std::move(text), {start, length}};
}

FieldState cursorAtEnd(std::string text) {
    std::size_t end = text.size();
    return at(std::move(text), end);
}

// Typing one more piece at the end of what the field shows.
FieldEdit typing(const FieldState& shown, const std::string& typed) {
    return {shown, cursorAtEnd(shown.text.substr(0, shown.selection.start) + typed)};
}

// Delete: the selection goes, or the character before the cursor.
FieldEdit deleting(const FieldState& shown) {
    std::size_t keep = shown.selection.length > 0 ? shown.selection.start : shown.text.size() - 1;
    return {shown, cursorAtEnd(shown.text.substr(0, keep))};
}

TEST(ExistingEntryFieldTest, CompletesToExistingEntriesOnly) {
    Completer complete = completerOver({"AMAZON MKTP", "AMAZON", "COSTCO"});
    FieldOutcome out = editExistingEntry(typing(at("", 0), "am"), complete);
    EXPECT_TRUE(out.accepted);
    EXPECT_EQ(out.shown, at("amAZON", 2, 4));
    out = editExistingEntry(typing(out.shown, "x"), complete);
    EXPECT_FALSE(out.accepted);
    EXPECT_EQ(out.shown, at("amAZON", 2, 4));
    out = editExistingEntry(typing(at("amAZON", 2, 4), "azon "), complete);
    EXPECT_EQ(out.shown, at("amazon MKTP", 7, 4));
}

TEST(ExistingEntryFieldTest, DeleteWidensTheSelectionInsteadOfCompletingAgain) {
    Completer complete = completerOver({"AMAZON", "COSTCO"});
    FieldState shown = at("amAZON", 2, 4);
    FieldOutcome out = editExistingEntry(deleting(shown), complete);
    EXPECT_TRUE(out.accepted);
    EXPECT_EQ(out.shown, at("amAZON", 1, 5));
    out = editExistingEntry(deleting(out.shown), complete);
    EXPECT_EQ(out.shown, at("amAZON", 0, 6));
    out = editExistingEntry(deleting(out.shown), complete);
    EXPECT_FALSE(out.accepted);
    EXPECT_EQ(out.shown, at("amAZON", 0, 6));
    // With no selection Delete takes a character, and the entry completes again.
    out = editExistingEntry(deleting(cursorAtEnd("COSTCO")), complete);
    EXPECT_EQ(out.shown, at("COSTCO", 5, 1));
}

TEST(TypeAheadFieldTest, RestoresWhatWasTypedWhenNothingCompletes) {
    TypeAheadField field(completerOver({"ABC Fund", "Abbott", ""}));
    FieldOutcome out = field.edit(typing(at("", 0), "a"));
    EXPECT_EQ(out.shown, at("Abbott", 1, 5));
    EXPECT_EQ(field.stringAsTyped(), "a");
    out = field.edit(typing(out.shown, "b"));
    EXPECT_EQ(out.shown, at("Abbott", 2, 4));
    out = field.edit(typing(out.shown, "x"));
    EXPECT_EQ(out.shown, cursorAtEnd("abx")); // the user's own letters, not "Abx"
    out = field.edit(deleting(out.shown));
    EXPECT_EQ(field.stringAsTyped(), "ab");
    EXPECT_EQ(out.shown, cursorAtEnd("ab"));
    out = field.edit(typing(out.shown, "c"));
    EXPECT_EQ(out.shown, at("ABC Fund", 3, 5));
    field.entered();
    EXPECT_FALSE(field.stringAsTyped());
}

TEST(TypeAheadFieldTest, AStaleTypedTextIsNeverRestored) {
    TypeAheadField field(completerOver({"Abbott"}));
    FieldOutcome out = field.edit(typing(at("", 0), "a"));
    // The user moves to the end of the completion and types on.
    out = field.edit(typing(cursorAtEnd(out.shown.text), " Labs"));
    EXPECT_EQ(out.shown, cursorAtEnd("Abbott Labs"));
    // Typing in the middle stops tracking and is taken as it is.
    out = field.edit({cursorAtEnd("Abbott Labs"), at("AbbXott Labs", 4)});
    EXPECT_TRUE(out.accepted);
    EXPECT_EQ(out.shown.text, "AbbXott Labs");
    EXPECT_FALSE(field.stringAsTyped());
}

TEST(DescriptionMatchFormatterTest, ShortenOnlyLetsTheUserCutTheEndOnly) {
    TvDescriptionMatchFormatter formatter;
    EXPECT_TRUE(formatter.isPartialStringValid("anything"));
    formatter.shortenOnly("Grocery Store");
    EXPECT_TRUE(formatter.isPartialStringValid("grocery"));
    EXPECT_TRUE(formatter.isPartialStringValid("GROCERY STORE"));
    EXPECT_FALSE(formatter.isPartialStringValid("Grocery Stores"));
    EXPECT_FALSE(formatter.isPartialStringValid("Grocery Shop"));
    EXPECT_FALSE(formatter.isPartialStringValid(""));
    formatter.shortenOnly(std::nullopt);
    EXPECT_TRUE(formatter.isPartialStringValid(""));
}

TEST(RenameFormatFormTest, OkNeedsANameAndADuplicateIsNoted) {
    RenameFormatForm form("Visa", [](std::string_view name) { return name == "Visa"; });
    EXPECT_TRUE(form.okEnabled());
    EXPECT_TRUE(form.duplicateNoteShown());
    form.nameChanged("");
    EXPECT_FALSE(form.okEnabled());
    EXPECT_FALSE(form.duplicateNoteShown());
    form.nameChanged("Visa 2");
    EXPECT_TRUE(form.okEnabled());
    EXPECT_FALSE(form.duplicateNoteShown());
}

} // namespace
} // namespace tavvel::test
