#pragma once
// --set, --unset and --settings: the settings changed as the preferences dialog would change
// them, one change at a time, each saved at once.

#include "CliOptions.h"

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace tavvel {

class Context;

// Whether every change names an option or setting and gives a well-formed value: nothing,
// or the reason it cannot be made. Needs no store, so it can run before start-up.
std::optional<std::string> checkSettingChanges(const std::vector<SettingChange>& changes);

// Applies the changes in order. When any name or value is wrong, or a change is one the
// dialog would not allow at that point, nothing is changed and the status is kExitUsage.
int applySettingChanges(Context& ctx, const std::vector<SettingChange>& changes, std::ostream& err);

// Every option with its state and every valued setting with its value.
void printSettings(const Context& ctx, std::ostream& out);

} // namespace tavvel
