// tavvel-cli: the conversion run in a terminal.

#include "CliOptions.h"
#include "CliTexts.h"
#include "EditorCommands.h"
#include "HistoryCommand.h"
#include "RunCommand.h"
#include "RunFormOptions.h"
#include "SettingsCommand.h"
#include "TerminalDialogs.h"
#include "app/StartUp.h"
#include "context/Context.h"
#include "knowledge/FormatFiles.h"
#include "knowledge/Formats.h"
#include "knowledge/KnowledgeListing.h"

#include <filesystem>
#include <iostream>
#include <sstream>

using namespace tavvel;

namespace {

// --list, --export-format and opening a .tvfm file: the exit status, or nothing when the
// command line asked for none of them.
std::optional<int> knowledgeCommand(const CliOptions& options, Context& ctx,
                                    TerminalDialogs& dialogs) {
    Formats formats(ctx.prefs);
    if (options.list) {
        std::cout << terminalText(listKnowledge(ctx.prefs, *options.list).value_or(""));
        return 0;
    }
    if (options.exportFormat) {
        const auto& [name, file] = *options.exportFormat;
        if (!formats.formatForName(name)) {
            errorLine(std::cerr, formatMessage(clitext::noInputFormatNamed, name));
            return 1;
        }
        if (exportFormat(formats, name, file, dialogs))
            return 0;
        errorLine(std::cerr, formatMessage(clitext::formatNotWritten, file));
        return 1;
    }
    if (options.inputFile && isFormatFile(*options.inputFile)) {
        auto rename = [&](RenameFormatForm& form) { return dialogs.renameFormat(form); };
        ImportOutcome outcome = importFormatFile(formats, *options.inputFile, dialogs, rename);
        return outcome == ImportOutcome::Refused ? 1 : 0;
    }
    return std::nullopt;
}

// What the command line alone shows to be wrong, found before start-up changes anything.
std::optional<std::string> usageProblem(const CliOptions& options) {
    if (auto problem = checkSettingChanges(options.changes))
        return formatMessage(clitext::nothingChanged, *problem);
    return checkRunOptions(options);
}

} // namespace

namespace {

int run(int argc, char** argv) {
    CliParse parse = parseCommandLine(std::vector<std::string>(argv, argv + argc));
    if (!parse.options) {
        (parse.exitCode == kExitOK ? std::cout : std::cerr) << parse.output;
        return parse.exitCode;
    }
    const CliOptions& options = *parse.options;
    if (auto problem = usageProblem(options)) {
        errorLine(std::cerr, *problem);
        return kExitUsage;
    }

    auto configFile = Configuration::locateForRunning(argv[0]);
    auto config = Configuration::load(configFile);
    if (!config) {
        std::ostringstream quoted;
        quoted << configFile; // a path is written quoted
        errorLine(std::cerr, formatMessage(clitext::configurationMissing, quoted.str()));
        return kExitRefused;
    }
    Context ctx(std::move(*config), Clock::system(), Places::forCurrentUser());
    // Every form and message goes to standard error, so standard output carries only what
    // was asked for (-o -, --settings, --show-preferences).
    TerminalDialogs dialogs(std::cin, std::cerr, options.batch);
    awakeFromNib(ctx, dialogs);

    if (int status = applySettingChanges(ctx, options.changes, std::cerr); status != kExitOK)
        return status;
    if (options.printSettings)
        printSettings(ctx, std::cout);
    if (options.showPreferences)
        std::cout << terminalText(ctx.prefs.description()) << "\n";
    if (auto status = editorCommand(options, ctx, dialogs, std::cin, std::cerr))
        return *status;
    if (auto status = knowledgeCommand(options, ctx, dialogs))
        return *status;
    if (auto status = historyCommand(options, ctx, std::cout, std::cerr))
        return *status;
    if (!options.inputFile)
        return kExitOK;
    return runConversion(ctx, dialogs, options, std::cout, std::cerr);
}

} // namespace

// The program's edge: whatever a run meets (a full disk, a folder that vanished, memory) ends
// in a message and status 1, never in an abort. Outputs are written atomically, so a run
// stopped here leaves no half-written file.
int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        errorLine(std::cerr, error.what());
    } catch (...) {
        errorLine(std::cerr, clitext::unexpectedError);
    }
    return kExitRefused;
}
