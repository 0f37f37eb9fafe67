#pragma once
// The confirmation form of one transaction as a form model: the prompt, the date (with a day
// stepper, or the fixed date the run will use), amount, number, the editable description,
// memo and category (with their warnings), and the splits. The walk fills it; the front end
// shows it, forwards edits and returns the action the user chose.

#include "prefs/Value.h"

#include <optional>
#include <string>

namespace tavvel {

class TvPrefs;

class ConfirmForm {
public:
    struct Setup {
        std::string recordDate;  // the transaction's own date
        std::string date;        // the date to output
        bool fixedDate = false;  // the run gives every transaction one date
        std::string datePattern; // the long output date pattern
        std::optional<std::string> amount;
        std::optional<std::string> number;
        std::string description;
        std::optional<std::string> memo; // shown only when the transaction has one
        std::string category;
        std::optional<Array> splits; // the transaction's splits for output
        bool recordHasCategory = false;
        bool mustConfirm = false; // every transaction is confirmed
        bool splitInstructionConfirm = false;
        bool qifOutput = true;
        bool backEnabled = false;
        bool instructionKeyedOnDescription = true;
    };

    // The store is read only (options, the category list).
    explicit ConfirmForm(TvPrefs& prefs) : prefs_(prefs) {}

    // beginConfirmDialog
    void fill(const Setup& setup);

    // Events. setDescription answers true when the front end must return
    // ConfirmAction::descriptionChanged (the walk then matches instructions against it).
    bool setDescription(std::string text);
    void setMemo(std::string text) { memo_ = std::move(text); }
    void setCategory(std::string text) { category_ = std::move(text); }
    // stepDate: — the stepper's value in days.
    void stepDate(int days);
    // addRemoveSplits: — the first split takes the transaction's amount, category and memo,
    // and a blank row follows; with splits, removes them all.
    void addRemoveSplits();
    void addSplitRow();
    void setSplit(std::size_t row, std::string_view key, std::string text);
    void deleteSplitRow(std::size_t row);

    // State.
    std::string title() const;
    const std::string& prompt() const { return prompt_; }
    std::string dateText() const;
    bool stepperShown() const { return !setup_.fixedDate; }
    const std::string& date() const { return date_; }
    const std::optional<std::string>& amount() const { return setup_.amount; }
    const std::optional<std::string>& number() const { return setup_.number; }
    const std::string& description() const { return description_; }
    bool memoShown() const { return setup_.memo.has_value(); }
    const std::string& memo() const { return memo_; }
    const std::string& category() const { return category_; }
    // The warning under a category field ("" when none).
    std::string categoryWarning(std::string_view category) const;
    const std::optional<Array>& splits() const { return splits_; }
    bool userSplits() const { return userSplits_; }
    bool splitsButtonShown() const { return splits_ || setup_.qifOutput; }
    std::string splitsButtonTitle() const;
    bool backShown() const { return setup_.mustConfirm; }
    bool backEnabled() const { return setup_.backEnabled; }
    bool addInstructionOffered() const { return setup_.instructionKeyedOnDescription; }

private:
    void makePrompt();

    TvPrefs& prefs_;
    Setup setup_;
    std::string prompt_, date_, description_, memo_, category_;
    std::optional<Array> splits_;
    bool userSplits_ = false;
};

} // namespace tavvel
