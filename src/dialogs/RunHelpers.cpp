#include "dialogs/RunHelpers.h"

#include "prefs/Settings.h"

namespace tavvel {

namespace {
constexpr std::string_view kDontWarn = "dontWarn";
}

int ErrorWarning::warn(const Dictionary* format, const std::string& message,
                       const std::string& text, const std::string& buttonTitle) {
    if (silenced_)
        return 1;
    if (format) {
        const Value* dontWarn = find(*format, kDontWarn);
        if (dontWarn && dontWarn->toBool())
            return 1;
    }
    ErrorWarningAnswer answer =
        dialogs_.errorWarning(message, text, buttonTitle, format != nullptr);
    if (answer.dontWarnAgain && format) {
        Dictionary marked = *format;
        marked.insert_or_assign(std::string(kDontWarn), Value(true));
        if (storeFormat_)
            storeFormat_(marked);
        silenced_ = true;
    }
    return answer.pressedButton ? 1 : 0;
}

int cancelConfirm(TvPrefs& prefs, Dialogs& dialogs) {
    if (optionOn(prefs, option::justStop))
        return 0;
    if (optionOn(prefs, option::justFinishLater))
        return 1;
    CancelAnswer answer = dialogs.cancelQuestion();
    if (answer.makePermanent && answer.choice == CancelChoice::stopNow)
        addOption(prefs, option::justStop);
    if (answer.makePermanent && answer.choice == CancelChoice::finishLater)
        addOption(prefs, option::justFinishLater);
    if (answer.makePermanent && answer.choice != CancelChoice::goOn)
        prefs.synchronize();
    return static_cast<int>(answer.choice);
}

} // namespace tavvel
