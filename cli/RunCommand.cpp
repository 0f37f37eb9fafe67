// A conversion from the command line. Stages: refuse options that the option runAutomatically,
// or the continuation file being resumed, would leave unused; point the file panels at -o; read and
// classify the statement; fill in the run form (a command line that cannot apply leaves the store
// as it was); run; report skipped error records; copy the output to standard output for "-o -";
// save the store, so the run's settings record lasts.

#include "RunCommand.h"

#include "CliTexts.h"
#include "LearnCommand.h"
#include "RunFormOptions.h"
#include "StandardOutputFile.h"
#include "TerminalDialogs.h"
#include "app/AppTexts.h"
#include "app/Controller.h"
#include "context/Context.h"
#include "prefs/Settings.h"

#include <filesystem>

namespace tavvel {

namespace {

namespace fs = std::filesystem;

int statusFor(RunEnd end) {
    return end == RunEnd::written || end == RunEnd::nothingOutput ? kExitOK : kExitRefused;
}

// The run that runAutomatically started during classification reports only through its
// closing message.
int statusOfAutomaticRun(const Controller& controller) {
    return controller.closingTitle() == text::finishedTitle ? kExitOK : kExitRefused;
}

bool runsAutomatically(const TvPrefs& prefs) {
    return optionOn(prefs, option::runAutomatically) && !optionOn(prefs, option::append);
}

std::optional<Value> outputFileOf(const TvPrefs& prefs) {
    const Value* settings = prefs.objectForKey(prefkey::ControlSettings);
    const Value* path = settings ? find(settings->dictionary(), runkey::outputFilePath) : nullptr;
    return path ? std::optional(*path) : std::nullopt;
}

// Standard output is no file that a later run could start from or append to: the folder
// and file the output passed through are not remembered.
void forgetPassingFile(TvPrefs& prefs, const TvPrefs& before, const fs::path& input) {
    prefs.setObject(prefkey::LastRootDirectory, Value(input.parent_path().string()));
    const Value* stored = prefs.objectForKey(prefkey::ControlSettings);
    if (!stored)
        return;
    Dictionary settings = stored->dictionary();
    // "" rather than no entry: a record without the entry would be replaced whole at the next
    // run, and the range the next run continues from would be lost with it.
    settings.insert_or_assign(std::string(runkey::outputFilePath),
                              outputFileOf(before).value_or(Value("")));
    prefs.setObject(prefkey::ControlSettings, Value(std::move(settings)));
}

// A command line that cannot apply to this statement leaves the store as it was: the
// statement was only looked at.
int refuseRun(Context& ctx, const TvPrefs& before, const RunProblem& problem, std::ostream& err) {
    if (problem.status == kExitUsage) {
        ctx.prefs = before;
        ctx.prefs.synchronize();
    }
    errorLine(err, problem.message);
    return problem.status;
}

// Some of the program's refusals speak of "the input" only: the last line names the file that
// was left alone.
int notConverted(const fs::path& input, std::ostream& err) {
    errorLine(err, formatMessage(clitext::nothingConverted, input.filename().string()));
    return kExitRefused;
}

int process(Controller& controller, std::ostream& err) {
    RunEnd end = controller.processTheTransactions(true);
    if (end != RunEnd::cancelled)
        return statusFor(end);
    errorLine(err, clitext::noOutputChosen);
    return kExitUsage;
}

int refuseAutomaticRun(std::ostream& err) {
    errorLine(err, clitext::runsAutomatically);
    return kExitUsage;
}

bool resumesRun(const fs::path& input) {
    return input.extension() == ".tvcn";
}

// A continuation file fixes the account, output format, date and number of the run it resumes;
// an option that would change them is a mistake better said than silently dropped.
int refuseResumeOptions(const fs::path& input, std::ostream& err) {
    errorLine(err, formatMessage(clitext::resumeFixesRun, input.filename().string()));
    return kExitUsage;
}

// The file panels answer with the file -o names, or with a private file for standard output.
void pointFilePanels(TerminalDialogs& dialogs, const RunOptions& run,
                     std::optional<StandardOutputFile>& toStandardOutput) {
    if (run.output == "-")
        dialogs.setOutputPath(toStandardOutput.emplace().path().string());
    else if (run.output)
        dialogs.setOutputPath(fs::absolute(*run.output).string());
}

void reportSkipped(const TerminalDialogs& dialogs, bool batch, std::ostream& err) {
    std::size_t skipped = dialogs.skippedErrors();
    if (skipped == 0)
        return;
    std::string line = skipped == 1
                           ? std::string(clitext::oneErrorSkipped)
                           : formatMessage(clitext::errorsSkipped, std::to_string(skipped));
    if (batch && skipped > TerminalDialogs::kErrorsShownInBatch)
        line += formatMessage(clitext::firstErrorsShown,
                              std::to_string(TerminalDialogs::kErrorsShownInBatch));
    errorLine(err, line);
}

} // namespace

int runConversion(Context& ctx, TerminalDialogs& dialogs, const CliOptions& options,
                  std::ostream& out, std::ostream& err) {
    const RunOptions& run = options.run;
    if (runsAutomatically(ctx.prefs) && run.setsForm())
        return refuseAutomaticRun(err);
    if (resumesRun(*options.inputFile) && run.setsForm())
        return refuseResumeOptions(*options.inputFile, err);
    std::optional<StandardOutputFile> toStandardOutput;
    pointFilePanels(dialogs, run, toStandardOutput);
    fs::path input = fs::absolute(*options.inputFile);
    TvPrefs before = ctx.prefs;
    Controller controller(ctx, dialogs);
    if (options.keepDuplicates)
        controller.keepDuplicates();
    if (options.batch && options.useSuggestions)
        controller.useSuggestions();
    Intake intake = controller.actuallyProcessFile(input.string());
    if (intake == Intake::refused)
        return notConverted(input, err);
    if (intake == Intake::imported)
        return kExitOK;
    if (intake == Intake::formReady && !controller.resumesRun()) {
        auto problem = learnWhenWanted(controller, options, dialogs);
        if (!problem)
            problem = fillRunForm(controller, run, ctx.output, err);
        if (problem) {
            int status = refuseRun(ctx, before, *problem, err);
            return status == kExitRefused ? notConverted(input, err) : status;
        }
    }
    int status =
        intake == Intake::ranAtOnce ? statusOfAutomaticRun(controller) : process(controller, err);
    reportSkipped(dialogs, options.batch, err);
    if (toStandardOutput) {
        forgetPassingFile(ctx.prefs, before, input);
        if (status == kExitOK && !toStandardOutput->copyTo(out))
            status = kExitRefused;
    }
    ctx.prefs.synchronize();
    return status;
}

} // namespace tavvel
