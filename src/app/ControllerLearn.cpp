// The run form's learn action: a new input format is learned from the statement being run,
// and becomes the run's input format.

#include "app/Controller.h"
#include "context/Context.h"
#include "formats/Extract.h"
#include "formats/LearnFormat.h"
#include "knowledge/Formats.h"

namespace tavvel {

LearnEnd Controller::learn(const std::string& name) {
    if (name.empty())
        return LearnEnd::focusStays;
    if (Formats(ctx_.prefs).formatForName(name)) {
        inputFormatSet(name);
        return LearnEnd::existing;
    }
    Extract extract(ctx_);
    LearnFormat learning(ctx_, dialogs_, extract);
    std::optional<Dictionary> learned =
        learning.learnFromString(fileAsString_, fileAsString_, name);
    if (!learned)
        return LearnEnd::cancelled;
    inputFormatSet(textOf(*learned, "Name"));
    return LearnEnd::learned;
}

} // namespace tavvel
