#include "CliOptions.h"

#include "CliTexts.h"
#include "Version.h"
#include "knowledge/KnowledgeListing.h"

#include <CLI/CLI.hpp>
#include <sstream>
#include <sys/stat.h>

namespace tavvel {

namespace {

// A pipe or a device never ends, or waits for a writer that may never come: the statement is
// read whole before anything else, so only a file can be one.
std::string refuseNonFile(const std::string& path) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0 || S_ISREG(st.st_mode) || S_ISDIR(st.st_mode))
        return {};
    return formatMessage(clitext::statementNotAFile, path);
}

constexpr const char* kFooter =
    "Exit status: 0 when the output was written (or there was nothing to output), 1 when the "
    "input was refused or nothing could be written, 2 for wrong usage.\n"
    "Dates are written in the output date format (M/d/yyyy, or d/M/yyyy for day-first output "
    "dates); a two-digit year is read as the run form reads it.\n"
    "Without --batch, each form (confirming a transaction, a new instruction) is printed and "
    "answered with typed commands, one a line, from the terminal, a pipe or a file; type help at "
    "a form for its commands, or see docs/cli.md.";

void addRunOptions(CLI::App& app, RunOptions& run) {
    app.add_option("-o,--output", run.output,
                   "Output file; - writes to standard output (default: the suggested name in "
                   "the current folder)");
    app.add_flag("--append", run.append, "Append to the output file instead of replacing it");
    app.add_option("--account", run.account, "Account name for the run");
    auto* all = app.add_flag_callback(
        "--all", [&run] { run.range = RunOptions::Range::all; }, "All transactions (default)");
    auto* last = app.add_flag_callback(
        "--last-month", [&run] { run.range = RunOptions::Range::lastMonth; },
        "Transactions of the previous calendar month");
    auto* from = app.add_option("--from", run.dateFrom, "First day of the range (inclusive)");
    auto* to =
        app.add_option("--to", run.dateTo, "Last day of the range (inclusive; default today)");
    auto* since = app.add_flag_callback(
        "--continue-from-last", [&run] { run.range = RunOptions::Range::sinceLastRun; },
        "Continue from where I stopped last time: from the day after the last run's range "
        "ended (today when it ended today, or had no end) to today");
    to->needs(from);
    all->excludes(last, from, to, since);
    last->excludes(from, to, since);
    since->excludes(from, to);
    app.add_option("--output-format", run.outputFormat, "Output format by name (default QIF)");
    app.add_option("--input-format", run.inputFormat,
                   "Input format by name for a text statement (default: the stored format whose "
                   "Match text the statement holds)");
    app.add_option("--qif-type", run.qifType,
                   "QIF input type: Normal, Reverse Signs, Swap Description and Memo, Swap and "
                   "Reverse Signs");
    app.add_option("--ofx-type", run.ofxType, "OFX input type: Normal, Swap Description and Memo");
    app.add_option("--same-date", run.sameDate, "Give every transaction this date");
    app.add_option("--same-number", run.sameNumber, "Give every transaction this check number");
}

void addSettingOptions(CLI::App& app, CliOptions& options) {
    auto change = [&options](bool on) {
        return [&options, on](const std::string& text) { options.changes.push_back({on, text}); };
    };
    app.add_option_function<std::string>("--set", change(true),
                                         "Switch an option on, or set KEY=VALUE (saved at once)")
        ->trigger_on_parse()
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    app.add_option_function<std::string>("--unset", change(false),
                                         "Switch an option off (saved at once)")
        ->trigger_on_parse()
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    app.add_flag("--settings", options.printSettings, "Print every option and valued setting");
}

void addEditorOptions(CLI::App& app, CliOptions& options, std::vector<std::string>& exportTo) {
    app.add_option("--edit-output-format", options.editOutputFormat,
                   "Edit the output format NAME, or define it when there is none, as a typed form")
        ->type_name("NAME");
    app.add_flag("--edit-instructions", options.editInstructions,
                 "Search, edit and delete the instructions, as a typed form");
    app.add_option("--export-output-format", exportTo,
                   "Save the output format NAME in FILE (.tvof); open the file to import it")
        ->expected(2)
        ->type_name("NAME FILE");
}

} // namespace

bool RunOptions::setsForm() const {
    return append || account || range || outputFormat || inputFormat || qifType || ofxType ||
           sameDate || sameNumber;
}

CliParse parseCommandLine(const std::vector<std::string>& args) {
    CLI::App app("Converts bank, credit-card and investment statements into QIF.", "tavvel-cli");
    app.footer(kFooter);
    CliOptions options;
    std::string file;
    app.set_version_flag("--version", std::string("tavvel-cli ") + kVersion);
    app.add_flag("--batch", options.batch,
                 "Never ask: questions take their first button, error records are skipped, "
                 "nothing is read from the terminal");
    app.add_flag("--show-preferences", options.showPreferences,
                 "Print the preference store after start-up");
    addSettingOptions(app, options);
    addRunOptions(app, options.run);
    app.add_option("file", file,
                   "Statement to convert (OFX, QFX, QIF or text), or an input format (.tvfm) or "
                   "output format (.tvof) to import")
        ->check(CLI::ExistingFile)
        ->check(CLI::Validator(refuseNonFile, ""));
    std::vector<std::string> exportFormat;
    app.add_option("--export-format", exportFormat, "Save the input format NAME in FILE (.tvfm)")
        ->expected(2)
        ->type_name("NAME FILE");
    app.add_option("--learn", options.learn,
                   "Learn a new input format NAME from the text statement, then convert with it")
        ->type_name("NAME");
    std::string list;
    std::vector<std::string> lists(knowledgeLists().begin(), knowledgeLists().end());
    lists.push_back(kOutputFormatsList);
    app.add_option("--list", list, "Print a list of the knowledge base")
        ->check(CLI::IsMember(lists));
    std::vector<std::string> exportOutputFormat;
    addEditorOptions(app, options, exportOutputFormat);

    app.add_option("--history", options.history, "List the transactions converted for ACCOUNT")
        ->type_name("ACCOUNT");
    app.add_option("--forget-history", options.forgetHistory,
                   "Forget the transactions converted for ACCOUNT")
        ->type_name("ACCOUNT");
    app.add_flag("--keep-duplicates", options.keepDuplicates,
                 "Write transactions converted before again, without asking");
    app.add_flag("--use-suggestions", options.useSuggestions,
                 "With --batch, write the category suggested for a payee no instruction knows");

    std::vector<std::string> reversed(args.rbegin(), args.rend());
    if (!reversed.empty())
        reversed.pop_back(); // the program's own name
    std::ostringstream out, err;
    try {
        app.parse(reversed);
    } catch (const CLI::ParseError& e) {
        CliParse result;
        result.exitCode = app.exit(e, out, err) == 0 ? kExitOK : kExitUsage;
        result.output = out.str() + err.str();
        return result;
    }
    if (options.run.dateFrom)
        options.run.range = RunOptions::Range::dates;
    if (!file.empty())
        options.inputFile = file;
    if (exportFormat.size() == 2)
        options.exportFormat = std::pair(exportFormat[0], exportFormat[1]);
    if (!list.empty())
        options.list = list;
    if (exportOutputFormat.size() == 2)
        options.exportOutputFormat = std::pair(exportOutputFormat[0], exportOutputFormat[1]);
    return {options, 0, {}};
}

} // namespace tavvel
