#pragma once
// The instruction editor (`EditInstructions`) for one stored instruction: a working copy of
// its match text, new description and memo, category or splits, switches and amount variants,
// checked while the user types. Nothing is stored until save(); dropping the editor is the
// Cancel. Opened for a transaction, the match text must keep matching that transaction's
// description.

#include "forms/SplitTable.h"
#include "prefs/TvPrefs.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class Dialogs;

class InstructionEditor {
public:
    // beginEditingInstruction:mustMatch: — the description of the transaction being confirmed,
    // or nothing when opened from the list.
    InstructionEditor(TvPrefs& prefs, Dictionary instruction,
                      std::optional<std::string> mustMatch = std::nullopt);

    std::string matchLabel() const;
    std::string matchHelp() const;
    // The line under the match text; empty while hidden.
    const std::string& warning() const { return warning_; }
    bool edited() const { return edited_; }
    bool canSave() const;

    const std::string& match() const { return match_; }
    void setMatch(std::string text); // controlTextDidChange: on the match field
    bool usesDescription() const { return useDescription_; }
    const std::string& newDescription() const { return newDescription_; }
    void setUseDescription(bool on);
    void setNewDescription(std::string text);
    bool usesMemo() const { return useMemo_; }
    const std::string& newMemo() const { return newMemo_; }
    void setUseMemo(bool on);
    void setNewMemo(std::string text);
    const std::string& category() const { return category_; }
    void setCategory(std::string text);
    // The note under the category: the colon warning, "NEW Category Above", or "".
    std::string categoryNote() const { return noteFor(category_); }
    bool confirms() const { return confirm_; }
    void setConfirm(bool on);
    bool takesNumber() const { return number_; }
    void setTakeNumber(bool on);

    SplitTable& splits() { return splits_; }
    std::string splitsButtonTitle() const;
    void addRemoveSplits();

    // The amount variants' amounts, in stored order, with the one on show among them.
    std::vector<std::string> amounts() const;
    const std::optional<std::string>& amountShown() const { return amountShown_; }
    // Puts the variant on show back into the instruction and shows the one for this amount
    // (a new, empty one when there is none).
    void showAmount(std::string amount);
    void hideAmount();
    void deleteAmount();
    struct AmountFields {
        std::string description, category, memo;
        bool useMemo = false, confirm = false;
    };
    const AmountFields& amountFields() const { return amount_; }
    void setAmountFields(AmountFields fields);
    std::string amountCategoryNote() const { return noteFor(amount_.category); }
    SplitTable& amountSplits() { return amountSplits_; }

    // buildChangedInstructionDictionary
    Dictionary build() const;
    // Registers new categories and descriptions and stores the instruction in place of the one
    // opened (and of any other with the same match). False, with nothing stored, when saving is
    // not enabled or a category is refused.
    bool save(Dialogs& dialogs);
    // Asks, then removes the instruction as it was opened; false when the user declined.
    bool deleteInstruction(Dialogs& dialogs);

private:
    void markEdited() { edited_ = true; }
    std::string noteFor(std::string_view category) const;
    bool matchesTransaction(std::string_view text) const;
    void storeShownAmount(Dictionary& instruction) const;
    bool registerNames(Dialogs& dialogs, const Dictionary& built);

    TvPrefs& prefs_;
    Dictionary changed_;
    std::string matchKey_, originalMatch_;
    std::optional<std::string> mustMatch_;
    std::string match_, newDescription_, newMemo_, category_, warning_;
    bool useDescription_ = false, useMemo_ = false, confirm_ = false, number_ = false;
    bool edited_ = false, matchAccepted_ = true;
    SplitTable splits_, amountSplits_;
    std::optional<std::string> amountShown_;
    AmountFields amount_;
};

} // namespace tavvel
