#pragma once
// What tavvel-cli itself says when it refuses a command line or stops a run, word for word.
// Each is printed as one line, "tavvel-cli: " before it and a full stop after it (errorLine).

#include "dialogs/MessageFormat.h"

#include <ostream>
#include <string>
#include <string_view>

namespace tavvel::clitext {

// The command line alone.

inline constexpr std::string_view needsStatementFile =
    "the run options need a statement FILE to convert";
inline constexpr std::string_view learnNeedsFile =
    "--learn needs the text statement FILE to learn the input format from";
inline constexpr std::string_view learnAndInputFormat =
    "--learn and --input-format both name the run's input format; give one of them";
inline constexpr std::string_view needsOneLine = "%@ needs one line of text";
inline constexpr std::string_view notADate =
    "%@: \"%@\" is not a date; write it as month/day/year (day/month/year for day-first output "
    "dates)";
inline constexpr std::string_view notOneOf = "%@: \"%@\" is not one of %@";
inline constexpr std::string_view outputNeedsName =
    "-o needs a file name, or - for standard output";
inline constexpr std::string_view statementNotAFile =
    "File is a pipe or a device, not a file: %@; save the statement to a file and name that file";
inline constexpr std::string_view appendNeedsFile =
    "--append needs an output file; standard output cannot be appended to";
// An empty list of names.
inline constexpr std::string_view noneListed = "(none)";

// Settings (--set, --unset).

inline constexpr std::string_view nothingChanged = "%@; nothing was changed";
inline constexpr std::string_view notAPrecision =
    "%@ must be a whole number from 2 to 6, not \"%@\"";
inline constexpr std::string_view notABoolean = "%@ must be true or false, not \"%@\"";
inline constexpr std::string_view settingOneLine = "%@ must be one line of text";
inline constexpr std::string_view isAnOption = "%@ is an option: use --set %@ or --unset %@";
inline constexpr std::string_view noSuchSetting =
    "there is no setting called %@ (--settings lists them)";
inline constexpr std::string_view unsetTakesName = "--unset takes an option name, not \"%@\"";
inline constexpr std::string_view takesAValue = "%@ takes a value: use --set %@=VALUE";
inline constexpr std::string_view noSuchOption =
    "there is no option called \"%@\" (--settings lists them)";
inline constexpr std::string_view onlyWhileAppend = "%@ can be switched on only while append is on";
inline constexpr std::string_view onlyWithoutCategoryChoice =
    "%@ can be switched on only while none of baseCategoriesOnCategories, "
    "useCategoriesIfPresent and dontAddCategories is on";

// Start-up and the knowledge commands.

inline constexpr std::string_view configurationMissing =
    "the configuration file %@ is missing or damaged; reinstall Tavvel";
inline constexpr std::string_view noInputFormatNamed = "there is no input format named \"%@\"";
inline constexpr std::string_view historyHeading =
    "Transactions converted for \"%@\" (date, amount, number, description, category, "
    "converted on):";
inline constexpr std::string_view historyEmpty = "No transactions were converted for \"%@\" yet.";
inline constexpr std::string_view historyForgotten =
    "%ld transaction%@ converted for \"%@\" forgotten.";
inline constexpr std::string_view historyNotOpened =
    "the conversion history could not be opened; nothing was listed or forgotten";
inline constexpr std::string_view formatNotWritten = "the input format could not be written to %@";

// The run.

inline constexpr std::string_view nothingConverted = "nothing was converted from \"%@\"";
inline constexpr std::string_view noOutputChosen =
    "no output file was chosen, so nothing was written; name one with -o";
inline constexpr std::string_view runsAutomatically =
    "the option runAutomatically is on, so the run starts with the last run's settings as soon "
    "as the statement is read, and the run options cannot apply; leave them out, or switch the "
    "option off with --unset runAutomatically";
inline constexpr std::string_view resumeFixesRun =
    "\"%@\" is a continuation file: the stopped run it holds fixed the account, the "
    "transactions, the output format, date and number, so the run options cannot apply; leave "
    "them out and name the output file with -o";
inline constexpr std::string_view oneErrorSkipped = "1 error record skipped";
inline constexpr std::string_view errorsSkipped = "%ld error records skipped";
inline constexpr std::string_view firstErrorsShown = "; the first %ld are shown above";
inline constexpr std::string_view temporaryFolderMissing =
    "the temporary folder (TMPDIR) is missing or not a folder, so standard output cannot be "
    "prepared; set TMPDIR to a folder that exists";
inline constexpr std::string_view temporaryFolderNotWritable =
    "cannot create a temporary folder in %@ for standard output; set TMPDIR to a writable folder";
inline constexpr std::string_view unexpectedError = "an unexpected error stopped the run";

// The run form from the command line.

inline constexpr std::string_view learnTextOnly = "--learn applies to text statements only";
inline constexpr std::string_view learnNotInBatch =
    "--learn asks questions, so it cannot run under --batch";
inline constexpr std::string_view nothingLearned =
    "no input format was learned, so nothing was written";
inline constexpr std::string_view inputFormatTextOnly =
    "--input-format applies to text statements only";
inline constexpr std::string_view noInputFormatCalled =
    "--input-format: there is no input format called \"%@\"; the input formats are %@";
inline constexpr std::string_view noOutputFormatCalled =
    "--output-format: there is no output format called \"%@\" for this statement; the choices "
    "are %@";
inline constexpr std::string_view rangeBackwards = "the range %@ to %@ ends before it starts";
inline constexpr std::string_view notADayWritten = "%@: \"%@\" is not a day written %@";
inline constexpr std::string_view monthFirst = "month/day/year";
inline constexpr std::string_view dayFirst = "day/month/year";
inline constexpr std::string_view qifTypeQifOnly = "--qif-type applies to QIF input only";
inline constexpr std::string_view ofxTypeOfxOnly = "--ofx-type applies to OFX and QFX input only";
inline constexpr std::string_view unknownNamedAccount =
    "the statement names the account \"%@\", which is not a known %@ account; choose one with "
    "--account: %@";
inline constexpr std::string_view accountNotUsed =
    "--account has no use here: this output names no account";
inline constexpr std::string_view noAccountCalled =
    "--account: there is no %@ account called \"%@\"; the accounts are %@";
inline constexpr std::string_view appendRefused =
    "--append: QIF output is appended only to a file that begins with \"!Account\", while the "
    "option append is on (--set append) and an account is known";
inline constexpr std::string_view noFormatFits =
    "no stored input format fits this text, so it cannot be read; learn an input format for "
    "this statement, or import one from a .tvfm file (tavvel-cli FORMAT.tvfm), then convert it "
    "again (--input-format NAME chooses a stored one)";
inline constexpr std::string_view appendNeedsAccounts =
    "the option append needs an account of this kind, and none is known; import the accounts "
    "from a QIF export first";
inline constexpr std::string_view chooseAccount =
    "choose the account with --account; the accounts are %@";

} // namespace tavvel::clitext

namespace tavvel {

// One of the texts above as tavvel-cli prints it on standard error.
inline void errorLine(std::ostream& err, std::string_view text) {
    err << "tavvel-cli: " << text << ".\n";
}

} // namespace tavvel
