#include "LearnCommand.h"

#include "TerminalDialogs.h"
#include "app/Controller.h"

namespace tavvel {

std::optional<RunProblem> learnWhenWanted(Controller& controller, const CliOptions& options,
                                          TerminalDialogs& dialogs) {
    const RunForm& form = controller.form();
    if (!form.textInput) {
        if (options.learn)
            return RunProblem{kExitUsage, "--learn applies to text statements only"};
        return std::nullopt;
    }
    if (options.learn && options.batch)
        return RunProblem{kExitUsage, "--learn asks questions, so it cannot run under --batch"};
    std::optional<std::string> name = options.learn;
    if (!name) {
        // A format named on the command line is chosen when the run form is filled in.
        if (!form.inputFormatName.empty() || options.batch || options.run.inputFormat)
            return std::nullopt;
        name = dialogs.nameForNewFormat();
        if (!name)
            return std::nullopt; // the run form refuses the text without a format
    }
    if (controller.learn(*name) == LearnEnd::cancelled)
        return RunProblem{kExitRefused, "no input format was learned, so nothing was written"};
    return std::nullopt;
}

} // namespace tavvel
