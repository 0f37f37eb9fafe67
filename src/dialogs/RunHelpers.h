#pragma once
// The two questions every engine's walk shares: a record-level error warning that can be
// silenced, and what Cancel means.

#include "dialogs/Dialogs.h"
#include "prefs/TvPrefs.h"

#include <functional>

namespace tavvel {

// ErrorWarning: shows an error record with one button. When the user ticks "don't warn
// again", the input format (if one was passed) is marked `dontWarn`, and the warning stays
// silent until reset(). While silent, every call answers 1 (the button) without asking.
class ErrorWarning {
public:
    // Called with the format marked `dontWarn` when the user ticks the switch; the caller
    // stores it (the input-format store's addFormat).
    using StoreFormat = std::function<void(const Dictionary& format)>;

    ErrorWarning(Dialogs& dialogs, StoreFormat storeFormat)
        : dialogs_(dialogs), storeFormat_(std::move(storeFormat)) {}

    // 1 when the button was pressed (or the warning is silent), 0 when the user cancelled.
    int warn(const Dictionary* format, const std::string& message, const std::string& text,
             const std::string& buttonTitle);
    void reset() { silenced_ = false; }

private:
    Dialogs& dialogs_;
    StoreFormat storeFormat_;
    bool silenced_ = false;
};

// cancelConfirm: 0 stop now, 1 finish later, anything else go on. The options `justStop` and
// `justFinishLater` answer without asking; making a choice permanent adds its option.
int cancelConfirm(TvPrefs& prefs, Dialogs& dialogs);

} // namespace tavvel
