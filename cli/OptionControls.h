#pragma once
// Which control of the preferences dialog stands for each option name and valued setting, so
// that the command line changes settings exactly as the dialog would.

#include "forms/PreferencesForm.h"

#include <optional>
#include <string_view>
#include <vector>

namespace tavvel {

// An option of the option list: a switch, or one item of a pop-up or radio group.
struct OptionControl {
    std::string_view name;
    bool isChoice = false;
    PreferencesForm::Switch switchControl = PreferencesForm::Switch::count;
    PreferencesForm::Choice choiceControl = PreferencesForm::Choice::count;
    int item = 0;    // the item that switches the option on
    int offItem = 0; // the item chosen when the option is switched off while it is on
};

// A setting with a value of its own.
struct ValuedSetting {
    enum class Kind { precision, descriptionTemplate, memoTemplate, updateChecks, dayFirstAtStart };
    std::string_view key;
    Kind kind;
    std::string_view meaning;
    PreferencesForm::Choice precision = PreferencesForm::Choice::count; // for Kind::precision
};

// Every option the dialog can switch, in the dialog's order.
const std::vector<OptionControl>& optionControls();
std::optional<OptionControl> optionControlFor(std::string_view name);

const std::vector<ValuedSetting>& valuedSettings();
std::optional<ValuedSetting> valuedSettingFor(std::string_view key);

} // namespace tavvel
