#pragma once
// The new-instruction form as a form model: how transactions like this one are to be handled
// from now on (match text, new description and memo, category or splits, confirmation, check
// number, and optionally a treatment for this amount).

#include "prefs/Value.h"

#include <optional>
#include <string>

namespace tavvel {

class TvPrefs;

class NewInstructionForm {
public:
    // What the walk hands the form when it opens it.
    struct Setup {
        std::optional<std::string> amount;      // the transaction's normalised amount
        std::optional<std::string> prompt;      // none: keyed on the input category
        bool addAmountOnly = false;             // adding an amount instruction to `instruction`
        std::string description;                // the text the instruction is to match
        std::optional<std::string> category;    // the transaction's category
        Dictionary transaction;                 // for date, number, memo shown on the form
        Dictionary instruction;                 // the working instruction (empty for a new one)
        bool cancelReturnsToConfirm = false;
        std::string runOutputNumber;            // the run's fixed number, or ""
    };

    explicit NewInstructionForm(const TvPrefs& prefs) : prefs_(prefs) {}

    // addNewInstructionForAmount:withDescriptionPrompt:newAmountForInstruction:forDescription:
    // forCategory:
    void fill(const Setup& setup);
    const Setup& setup() const { return setup_; }

    // The memo typed on the form while its use switch is on; the walk uses it for a kept
    // category's output (it always has).
    bool useMemoOn() const { return useMemo_; }
    const std::string& newMemo() const { return newMemo_; }

protected:
    const TvPrefs& prefs_;
    Setup setup_;
    bool useMemo_ = false;
    std::string newMemo_;
};

} // namespace tavvel
