#include "LearnCommand.h"

#include "CliTexts.h"
#include "TerminalDialogs.h"
#include "app/Controller.h"

namespace tavvel {

std::optional<RunProblem> learnWhenWanted(Controller& controller, const CliOptions& options,
                                          TerminalDialogs& dialogs) {
    const RunForm& form = controller.form();
    if (!form.textInput) {
        if (options.learn)
            return RunProblem{kExitUsage, std::string(clitext::learnTextOnly)};
        return std::nullopt;
    }
    if (options.learn && options.batch)
        return RunProblem{kExitUsage, std::string(clitext::learnNotInBatch)};
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
        return RunProblem{kExitRefused, std::string(clitext::nothingLearned)};
    return std::nullopt;
}

} // namespace tavvel
