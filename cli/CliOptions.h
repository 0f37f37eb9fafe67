#pragma once
// The terminal front end's command line.

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavvel {

// Exit statuses: a written file (or nothing to output), refused input, wrong usage.
enum ExitStatus : int { kExitOK = 0, kExitRefused = 1, kExitUsage = 2 };

// The run form's fields as the command line gives them; nothing: the plain default.
struct RunOptions {
    std::optional<std::string> output; // -o: a path, or "-" for standard output
    bool append = false;
    std::optional<std::string> account;
    enum class Range { all, lastMonth, dates, sinceLastRun };
    std::optional<Range> range;
    std::optional<std::string> dateFrom, dateTo;
    std::optional<std::string> outputFormat;
    std::optional<std::string> inputFormat; // a text statement's input format, by name
    std::optional<std::string> qifType, ofxType;
    std::optional<std::string> sameDate, sameNumber;

    // Whether any field of the run form is given (beyond the output file).
    bool setsForm() const;
};

// Settings changes in the order given: "NAME" switches an option, "KEY=VALUE" sets a value.
struct SettingChange {
    bool on = true; // --set (true) or --unset (false)
    std::string text;
};

struct CliOptions {
    bool batch = false;
    bool showPreferences = false;
    bool printSettings = false;
    std::vector<SettingChange> changes;
    std::optional<std::string> inputFile;
    RunOptions run;
    // --export-format NAME FILE
    std::optional<std::pair<std::string, std::string>> exportFormat;
    // --list instructions|descriptions|categories|accounts|securities|formats|output-formats
    std::optional<std::string> list;
    // --edit-output-format NAME, --edit-instructions, --export-output-format NAME FILE
    std::optional<std::string> editOutputFormat;
    bool editInstructions = false;
    std::optional<std::pair<std::string, std::string>> exportOutputFormat;
    // --learn NAME: learn the input format NAME from the text statement before the run.
    std::optional<std::string> learn;
    // The conversion history: --history ACCOUNT lists it, --forget-history ACCOUNT clears it;
    // --keep-duplicates writes transactions converted before without asking;
    // --use-suggestions lets a batch run write the categories suggested.
    std::optional<std::string> history, forgetHistory;
    bool keepDuplicates = false;
    bool useSuggestions = false;
};

// The name --list gives the output formats.
inline constexpr const char* kOutputFormatsList = "output-formats";

struct CliParse {
    std::optional<CliOptions> options; // nothing: exit with `exitCode` after printing `output`
    int exitCode = 0;
    std::string output;
};

CliParse parseCommandLine(const std::vector<std::string>& args);

} // namespace tavvel
