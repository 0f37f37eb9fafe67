// Files arriving from the open panel, the command line or a drop on the window.

#include "app/Controller.h"
#include "context/Context.h"
#include "dialogs/Dialogs.h"
#include "prefs/Settings.h"

namespace tavvel {

namespace {

// The open panel's extensions in the panel's order; "" stands for files without one.
FileChoice openPanelChoice(const TvPrefs& prefs) {
    const Value* folder = prefs.objectForKey(prefkey::LastRootDirectory);
    return {{"txt", "qif", "QIF", "csv", "jsp", "asp", "qfx", "QFX", "ofx", "OFX", "tvcn", ""},
            folder && folder->isString() ? folder->text() : std::string(),
            "",
            ""};
}

} // namespace

std::optional<Intake> Controller::processFile() {
    justActivated_ = false;
    auto path = dialogs_.chooseFileToOpen(openPanelChoice(ctx_.prefs));
    if (!path)
        return std::nullopt;
    return actuallyProcessFile(*path);
}

std::optional<Intake> Controller::applicationOpenFile(const std::string& path) {
    if (!justActivated_ && processing_)
        return std::nullopt;
    return actuallyProcessFile(path);
}

} // namespace tavvel
