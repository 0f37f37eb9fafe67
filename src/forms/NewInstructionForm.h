#pragma once
// The new-instruction form as a form model: how transactions like this one are to be handled
// from now on (match text, new description and memo, category or splits, confirmation, check
// number, and optionally a treatment for this amount). The walk fills it; a front end shows
// the state below and forwards each user event to its method; saving is
// saveNewInstruction (bank/NewInstructionSaving.h).

#include "forms/DescriptionMatchFormatter.h"
#include "forms/SplitTable.h"
#include "prefs/Value.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

class TvPrefs;

class NewInstructionForm {
public:
    // What the walk hands the form when it opens it.
    struct Setup {
        std::optional<std::string> amount;   // the transaction's normalised amount
        std::optional<std::string> prompt;   // none: keyed on the input category
        bool addAmountOnly = false;          // adding an amount instruction to `instruction`
        std::string description;             // the text the instruction is to match
        std::optional<std::string> category; // the transaction's category
        Dictionary transaction;              // for date, number, memo shown on the form
        Dictionary instruction;              // the working instruction (empty for a new one)
        bool cancelReturnsToConfirm = false;
        std::string runOutputNumber;      // the run's fixed number, or ""
        AmountNormaliser normalizeAmount; // the reader's, for balanced split amounts
        // A category the history suggests when the transaction has none, and the match text
        // (a part of `description`) it was found by; both empty when there is none.
        std::string suggestedCategory;
        std::string suggestedMatch;
    };

    enum class Tab { instruction, amount };
    // Where the caret starts: at the end of the match text, over the whole category text, or
    // in the (empty) amount description.
    enum class Focus { matchText, category, amountDescription };
    enum class Splits { instruction, amount };

    // The store is read only here (options, the category list); saving writes it.
    explicit NewInstructionForm(TvPrefs& prefs) : prefs_(prefs) {}

    // addNewInstructionForAmount:withDescriptionPrompt:newAmountForInstruction:forDescription:
    // forCategory:
    void fill(const Setup& setup);
    const Setup& setup() const { return setup_; }

    // Events. editMatchText answers false when the field refuses the edit and keeps its text.
    bool editMatchText(std::string text);
    void setUseDescription(bool on) { f_.useDescription = on; }
    void setNewDescription(std::string text) { f_.newDescription = std::move(text); }
    void setUseMemo(bool on) { f_.useMemo = on; }
    void setNewMemo(std::string text) { f_.newMemo = std::move(text); }
    // A category typed over the suggestion replaces it.
    void setCategory(std::string text) {
        f_.categorySuggested = f_.categorySuggested && text == f_.category;
        f_.category = std::move(text);
    }
    void setConfirm(bool on) { f_.confirm = on; }
    void setExtractNumber(bool on); // extractNumberSwitch:
    // Ignored while the switch cannot be changed.
    void setAmountSwitch(bool on);
    void setAmountDescription(std::string text) { f_.amountDescription = std::move(text); }
    void setAmountUseMemo(bool on) { f_.amountUseMemo = on; }
    void setAmountMemo(std::string text) { f_.amountMemo = std::move(text); }
    void setAmountCategory(std::string text) { f_.amountCategory = std::move(text); }
    void setAmountConfirm(bool on) { f_.amountConfirm = on; }

    // instructionAddRemoveSplits: — the first split takes the transaction's amount, the
    // category and the memo, and a blank row follows; with splits, removes them all.
    void instructionAddRemoveSplits();
    // instructionAddSplit: / amountInstructionAddSplit:
    void addSplit(Splits which);
    void selectSplit(Splits which, std::optional<std::size_t> row);
    // instructionDeleteSelectedSplit: / amountInstructionDeleteSelectedSplit: — the first
    // split takes up what the deleted row held.
    void deleteSelectedSplit(Splits which);
    // An edited amount is balanced at once; a single split gains a second with the rest.
    void setSplitCell(Splits which, std::size_t row, SplitColumn column, std::string text);

    // State shown by the front end.
    std::string_view title() const;
    Tab tab() const { return setup_.addAmountOnly ? Tab::amount : Tab::instruction; }
    Focus focus() const;
    const std::optional<std::string>& prompt() const { return setup_.prompt; }
    std::string_view cancelTip() const;

    std::string date() const;
    const std::string& description() const { return setup_.description; }
    const std::optional<std::string>& number() const { return f_.number; }
    std::optional<std::string> memo() const;
    const std::optional<std::string>& amount() const { return setup_.amount; }

    // Keyed on the description (with a prompt) or on the input category.
    bool descriptionMatchShown() const { return setup_.prompt.has_value(); }
    const std::optional<std::string>& newInstructionForCategory() const {
        return f_.newInstructionForCategory;
    }
    std::string_view matchLabel() const;
    std::string_view matchHelp() const;
    const std::string& matchText() const { return f_.matchText; }
    std::string_view matchWarning() const;

    bool useDescription() const { return f_.useDescription; }
    const std::string& newDescription() const { return f_.newDescription; }
    // The memo typed on the form while its use switch is on; the walk uses it for a kept
    // category's output (it always has).
    bool useMemoOn() const { return f_.useMemo; }
    const std::string& newMemo() const { return f_.newMemo; }

    // The single category gives way to the split table while there are instruction splits.
    bool categoryShown() const { return f_.instructionSplits.empty(); }
    const std::string& category() const { return f_.category; }
    // The category shown is the history's suggestion, not yet accepted or replaced.
    bool categorySuggested() const { return f_.categorySuggested; }
    std::string_view categoryWarning() const;
    bool confirmOn() const { return f_.confirm; }
    bool extractNumberOn() const { return f_.extractNumber; }
    // The digits that extractNumberSwitch: showed, for the walk's check number.
    const std::optional<std::string>& extractedNumber() const { return f_.extracted; }

    bool amountPartShown() const { return setup_.prompt.has_value(); }
    bool amountSwitchOn() const { return f_.amountSwitch; }
    bool amountSwitchEnabled() const;
    const std::string& amountDescription() const { return f_.amountDescription; }
    bool amountUseMemo() const { return f_.amountUseMemo; }
    const std::string& amountMemo() const { return f_.amountMemo; }
    const std::string& amountCategory() const { return f_.amountCategory; }
    std::string_view amountCategoryWarning() const;
    bool amountConfirmOn() const { return f_.amountConfirm; }

    const SplitTable& splits(Splits which) const;
    std::string_view instructionSplitsButtonTitle() const;
    std::string_view splitCategoryWarning(Splits which, std::size_t row) const;

    bool okEnabled() const;

    // The leading non-digits of a description skipped, the run of decimal digits that
    // follows; nothing when there is none.
    static std::optional<std::string> checkNumberIn(std::string_view description);

private:
    void fillMatch();
    void fillAddAmountOnly();
    void fillNormal();
    void showNumber();
    void balance(Splits which, bool canCreate);
    bool containsMode() const;
    bool matchContained() const;
    SplitTable& table(Splits which);
    std::string_view warningFor(std::string_view category) const;

    // Everything the user can change, started afresh by every fill.
    struct Fields {
        std::optional<std::string> newInstructionForCategory;
        std::optional<std::string> number;
        std::optional<std::string> extracted;
        std::string matchText;
        bool useDescription = false;
        std::string newDescription;
        bool useMemo = false;
        std::string newMemo;
        std::string category;
        bool categorySuggested = false;
        bool confirm = false;
        bool extractNumber = false;
        bool amountSwitch = false;
        std::string amountDescription;
        bool amountUseMemo = false;
        std::string amountMemo;
        std::string amountCategory;
        bool amountConfirm = false;
        SplitTable instructionSplits;
        SplitTable amountSplits;
    };

    std::string suggestedMatchText() const;

    TvPrefs& prefs_;
    Setup setup_;
    TvDescriptionMatchFormatter matchFormatter_;
    Fields f_;
};

} // namespace tavvel
