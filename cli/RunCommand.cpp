// A conversion from the command line. Stages: refuse options that the option runAutomatically
// would leave unused; point the file panels at -o; read and classify the statement; fill in
// the run form (a command line that cannot apply leaves the store as it was); run; report
// skipped error records; copy the output to standard output for "-o -"; save the store, so
// the run's settings record lasts.

#include "RunCommand.h"

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
    return controller.lastTitle == text::finishedTitle ? kExitOK : kExitRefused;
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
    if (auto previous = outputFileOf(before))
        settings.insert_or_assign(std::string(runkey::outputFilePath), *previous);
    else if (auto it = settings.find(runkey::outputFilePath); it != settings.end())
        settings.erase(it);
    prefs.setObject(prefkey::ControlSettings, Value(std::move(settings)));
}

// A command line that cannot apply to this statement leaves the store as it was: the
// statement was only looked at.
int refuseRun(Context& ctx, const TvPrefs& before, const RunProblem& problem, std::ostream& err) {
    if (problem.status == kExitUsage) {
        ctx.prefs = before;
        ctx.prefs.synchronize();
    }
    err << "tavvel-cli: " << problem.message << ".\n";
    return problem.status;
}

int process(Controller& controller, std::ostream& err) {
    RunEnd end = controller.processTheTransactions(true);
    if (end != RunEnd::cancelled)
        return statusFor(end);
    err << "tavvel-cli: no output file was chosen, so nothing was written; name one with -o.\n";
    return kExitUsage;
}

int refuseAutomaticRun(std::ostream& err) {
    err << "tavvel-cli: the option runAutomatically is on, so the run starts with the last run's "
           "settings as soon as the statement is read, and the run options cannot apply; leave "
           "them out, or switch the option off with --unset runAutomatically.\n";
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

void reportSkipped(const TerminalDialogs& dialogs, std::ostream& err) {
    std::size_t skipped = dialogs.skippedErrors();
    if (skipped > 0)
        err << "tavvel-cli: " << skipped << " error record" << (skipped == 1 ? "" : "s")
            << " skipped.\n";
}

} // namespace

int runConversion(Context& ctx, TerminalDialogs& dialogs, const CliOptions& options,
                  std::ostream& out, std::ostream& err) {
    const RunOptions& run = options.run;
    if (runsAutomatically(ctx.prefs) && run.setsForm())
        return refuseAutomaticRun(err);
    std::optional<StandardOutputFile> toStandardOutput;
    pointFilePanels(dialogs, run, toStandardOutput);
    fs::path input = fs::absolute(*options.inputFile);
    TvPrefs before = ctx.prefs;
    Controller controller(ctx, dialogs);
    Intake intake = controller.actuallyProcessFile(input.string());
    if (intake == Intake::refused || intake == Intake::imported)
        return intake == Intake::refused ? kExitRefused : kExitOK;
    if (intake == Intake::formReady)
        if (auto problem = learnWhenWanted(controller, options, dialogs))
            return refuseRun(ctx, before, *problem, err);
    if (intake == Intake::formReady)
        if (auto problem = fillRunForm(controller, run, ctx.output, err))
            return refuseRun(ctx, before, *problem, err);
    int status =
        intake == Intake::ranAtOnce ? statusOfAutomaticRun(controller) : process(controller, err);
    reportSkipped(dialogs, err);
    if (toStandardOutput) {
        forgetPassingFile(ctx.prefs, before, input);
        if (status == kExitOK && !toStandardOutput->copyTo(out))
            status = kExitRefused;
    }
    ctx.prefs.synchronize();
    return status;
}

} // namespace tavvel
