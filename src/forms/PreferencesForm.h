#pragma once
// The preferences dialog as a form model: display() fills the controls from the store, each
// user event goes to one method, ok() writes everything back in one go, cancel() writes
// nothing. Front ends show controls() and the enabled flags, and forward events.

#include "prefs/OutputFormatting.h"
#include "prefs/TvPrefs.h"

#include <string>

namespace tavvel {

class PreferencesForm {
public:
    enum class Switch {
        append,
        showAllAccountNames,
        runAutomatically,
        confirmAllTransactions,
        textConfirmAllTransactions,
        treatMemoAsDescription,
        leaveBlankDescriptionsBlank,
        longestInstructionMatch,
        updateCategoryWhenDescriptionChanged,
        matchDescriptionWithContains,
        quicken2003,
        formatFirstMatch,
        useOFXTRNTYPE,
        initialCaps,
        europeanDates, // shown twice in the dialog; both show this one state
        outputEuropeanDates,
        outputEuropeanAmounts,
        outputDashDates,
        removeLongNumber,
        keepDuplicates,
        automaticUpdateChecks, // SUEnableAutomaticChecks
        count
    };

    // Pop-ups and radio groups, by item index (or radio tag).
    enum class Choice {
        bankCleared,       // 0 neither, 1 cleared, 2 uncleared
        creditCardCleared, // the same items
        investmentCleared,
        unknownCleared,
        matchOrder,       // 0 neither, 1 description then memo, 2 memo then description
        categories,       // tag 0 none, 1 base on categories, 2 use if present, 3 don't add
        cancelBehaviour,  // row 0 just stop, 1 just finish later, 2 ask
        amountsPrecision, // index + 2 decimal places
        pricesPrecision,
        sharesPrecision,
        bccAmountsPrecision,
        count
    };

    PreferencesForm(TvPrefs& prefs, OutputFormatting& output) : prefs_(prefs), output_(output) {}

    // display: — fill every control from the store and disable the main menus.
    void display();
    // ok: — write everything back, apply the output formats, save, enable the menus.
    void ok();
    // cancel: — enable the menus, write nothing.
    void cancel();

    // User events.
    void setSwitch(Switch which, bool on);
    void choose(Choice which, int index);
    void setDescriptionOutput(std::string text) { descriptionOutput_ = std::move(text); }
    void setMemoOutput(std::string text) { memoOutput_ = std::move(text); }

    // State for the front end.
    bool switchOn(Switch which) const { return switches_[index(which)]; }
    bool switchEnabled(Switch which) const;
    // The help text beside showAllAccountNames is greyed while the switch is disabled.
    bool showAllAccountNamesHelpGreyed() const {
        return !switchEnabled(Switch::showAllAccountNames);
    }
    int chosen(Choice which) const { return choices_[index(which)]; }
    const std::string& descriptionOutput() const { return descriptionOutput_; }
    const std::string& memoOutput() const { return memoOutput_; }
    bool menusEnabled() const { return menusEnabled_; }

private:
    static std::size_t index(Switch s) { return static_cast<std::size_t>(s); }
    static std::size_t index(Choice c) { return static_cast<std::size_t>(c); }
    void append(bool on);
    void forgetOutputFileWhenAppendSwitchedOn();
    void categoriesRadioChanged(int tag);
    void readOptions();
    void readValues();
    Array buildOptionList() const;
    void writeValues();

    TvPrefs& prefs_;
    OutputFormatting& output_;
    bool switches_[static_cast<std::size_t>(Switch::count)] = {};
    int choices_[static_cast<std::size_t>(Choice::count)] = {};
    std::string descriptionOutput_;
    std::string memoOutput_;
    bool menusEnabled_ = true;
    bool appendWhenShown_ = false;
};

} // namespace tavvel
