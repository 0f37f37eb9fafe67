// The run form from the command line. Order matters as it does in the form: the output
// format first (it decides the account and append part), then the range, the input type, the
// fixed date and number, the account and the append switch; last, whether the process
// button would be enabled.

#include "RunFormOptions.h"

#include "CliTexts.h"
#include "DateOption.h"
#include "app/Controller.h"
#include "bank/QifInputTypes.h"
#include "prefs/OutputFormatting.h"
#include "recognize/CaseFold.h"

#include <algorithm>
#include <filesystem>

namespace tavvel {

namespace {

template <typename Names> std::string joined(const Names& names) {
    std::string out;
    for (const auto& name : names)
        out += (out.empty() ? "" : ", ") + std::string(name);
    return out.empty() ? std::string(clitext::noneListed) : out;
}

RunProblem usage(std::string message) {
    return {kExitUsage, std::move(message)};
}

std::vector<std::string_view> qifTypeNames() {
    std::vector<std::string_view> names;
    for (const QifInputType& type : kQifInputTypes)
        names.push_back(type.title);
    return names;
}

std::optional<int> indexIn(const std::vector<std::string_view>& names, std::string_view name) {
    for (std::size_t i = 0; i < names.size(); ++i)
        if (equalIgnoringCase(names[i], name))
            return static_cast<int>(i);
    return std::nullopt;
}

std::optional<std::string> oneLineProblem(std::string_view option, std::string_view text) {
    bool control = std::any_of(text.begin(), text.end(),
                               [](unsigned char c) { return c < 0x20 || c == 0x7f; });
    if (text.empty() || control)
        return formatMessage(clitext::needsOneLine, option);
    return std::nullopt;
}

std::optional<std::string> dateShapeProblem(std::string_view option,
                                            const std::optional<std::string>& text) {
    if (!text || looksLikeDate(*text))
        return std::nullopt;
    return formatMessage(clitext::notADate, {option, *text});
}

} // namespace

std::optional<int> qifTypeIndex(std::string_view name) {
    return indexIn(qifTypeNames(), name);
}

std::optional<int> ofxTypeIndex(std::string_view name) {
    std::vector<std::string_view> names(std::begin(kQfxInputTypes), std::end(kQfxInputTypes));
    return indexIn(names, name);
}

namespace {

std::optional<std::string> learnProblem(const CliOptions& options) {
    if (!options.learn)
        return std::nullopt;
    if (!options.inputFile)
        return std::string(clitext::learnNeedsFile);
    if (options.run.inputFormat)
        return std::string(clitext::learnAndInputFormat);
    return oneLineProblem("--learn", *options.learn);
}

std::optional<std::string> typeProblem(const RunOptions& run) {
    if (run.qifType && !qifTypeIndex(*run.qifType))
        return formatMessage(clitext::notOneOf,
                             {"--qif-type", *run.qifType, joined(qifTypeNames())});
    if (run.ofxType && !ofxTypeIndex(*run.ofxType))
        return formatMessage(clitext::notOneOf,
                             {"--ofx-type", *run.ofxType, joined(kQfxInputTypes)});
    return std::nullopt;
}

std::optional<std::string> outputProblem(const RunOptions& run) {
    if (run.output && run.output->empty())
        return std::string(clitext::outputNeedsName);
    if (run.append && run.output == "-")
        return std::string(clitext::appendNeedsFile);
    return std::nullopt;
}

std::optional<std::string> fixedValueProblem(const RunOptions& run) {
    for (auto [option, text] : {std::pair{"--from", run.dateFrom}, std::pair{"--to", run.dateTo},
                                std::pair{"--same-date", run.sameDate}})
        if (auto problem = dateShapeProblem(option, text))
            return problem;
    if (run.sameNumber)
        return oneLineProblem("--same-number", *run.sameNumber);
    return std::nullopt;
}

} // namespace

// The options' own problems, before any file is read, in the order they are reported.
std::optional<std::string> checkRunOptions(const CliOptions& options) {
    const RunOptions& run = options.run;
    if ((run.setsForm() || run.output) && !options.inputFile)
        return std::string(clitext::needsStatementFile);
    for (auto check :
         {learnProblem(options), typeProblem(run), outputProblem(run), fixedValueProblem(run)})
        if (check)
            return check;
    return std::nullopt;
}

namespace {

// Before the output format: the input format decides the statement's kind, and with it the
// output formats and accounts on offer.
std::optional<RunProblem> setInputFormat(Controller& controller, const RunOptions& run) {
    if (!run.inputFormat)
        return std::nullopt;
    if (!controller.form().textInput)
        return usage(std::string(clitext::inputFormatTextOnly));
    std::vector<std::string> choices = controller.form().inputFormatChoices();
    bool known = std::any_of(choices.begin(), choices.end(), [&](const std::string& name) {
        return equalIgnoringCase(name, *run.inputFormat);
    });
    if (!known)
        return usage(
            formatMessage(clitext::noInputFormatCalled, {*run.inputFormat, joined(choices)}));
    controller.inputFormatSet(*run.inputFormat);
    return std::nullopt;
}

std::optional<RunProblem> setOutputFormat(RunForm& form, const RunOptions& run) {
    std::string name = run.outputFormat.value_or("QIF");
    const auto& choices = form.outputFormatChoices;
    if (std::find(choices.begin(), choices.end(), name) == choices.end())
        return usage(formatMessage(clitext::noOutputFormatCalled, {name, joined(choices)}));
    form.chooseOutputFormat(name);
    return std::nullopt;
}

std::string datePatternOf(const OutputFormatting& output) {
    return std::string(output.datePrefix == "d/M" ? clitext::dayFirst : clitext::monthFirst);
}

std::optional<RunProblem> rangeProblem(const RunForm& form) {
    if (form.dateRangeOK)
        return std::nullopt;
    return usage(formatMessage(clitext::rangeBackwards, {form.dateFrom, form.dateTo}));
}

std::optional<RunProblem> setRange(Controller& controller, const RunOptions& run,
                                   const OutputFormatting& output) {
    using Range = RunOptions::Range;
    RunForm& form = controller.form();
    Range range = run.range.value_or(Range::all);
    if (range == Range::sinceLastRun) {
        controller.continueFromWhereIStoppedLastTime();
        return rangeProblem(form);
    }
    if (range != Range::dates) {
        form.chooseRange(range == Range::all ? 0 : 1);
        return std::nullopt;
    }
    for (auto [option, text] : {std::pair{"--from", run.dateFrom}, std::pair{"--to", run.dateTo}})
        if (text && !readDateOption(*text, output))
            return usage(
                formatMessage(clitext::notADayWritten, {option, *text, datePatternOf(output)}));
    form.chooseRange(2);
    form.setDateFrom(*run.dateFrom);
    form.setDateTo(run.dateTo.value_or("")); // an empty range field is today
    return rangeProblem(form);
}

std::optional<RunProblem> setInputType(Controller& controller, const RunOptions& run) {
    RunForm& form = controller.form();
    const std::string& kind = controller.inputKind();
    if (run.qifType && kind != "QIF")
        return usage(std::string(clitext::qifTypeQifOnly));
    if (run.ofxType && kind != "QFX")
        return usage(std::string(clitext::ofxTypeOfxOnly));
    if (kind == "QIF")
        form.chooseQifType(run.qifType ? *qifTypeIndex(*run.qifType) : 0);
    if (kind == "QFX")
        form.chooseQfxType(run.ofxType ? *ofxTypeIndex(*run.ofxType) : 0);
    return std::nullopt;
}

std::optional<RunProblem> setSameDateAndNumber(RunForm& form, const RunOptions& run,
                                               const OutputFormatting& output) {
    form.setSameDate(run.sameDate.has_value());
    form.setSameNumber(run.sameNumber.has_value());
    if (run.sameNumber)
        form.setOutputNumber(*run.sameNumber);
    if (!run.sameDate)
        return std::nullopt;
    auto date = readDateOption(*run.sameDate, output);
    if (!date)
        return usage(formatMessage(clitext::notADayWritten,
                                   {"--same-date", *run.sameDate, datePatternOf(output)}));
    form.setOutputDate(*date);
    return std::nullopt;
}

bool offers(const RunForm& form, const std::string& name) {
    const auto& choices = form.accountChoices;
    return std::find(choices.begin(), choices.end(), name) != choices.end();
}

// The account box takes only known names; the one the statement named may be none of them
// (an account number), and a QIF account block must not name an unknown account.
std::optional<RunProblem> checkNamedAccount(const RunForm& form) {
    if (!form.accountBoxVisible || form.allowAnyAccountName || form.accountText.empty() ||
        offers(form, form.accountText))
        return std::nullopt;
    return usage(formatMessage(clitext::unknownNamedAccount,
                               {form.accountText, form.accountType, joined(form.accountChoices)}));
}

std::optional<RunProblem> setAccount(RunForm& form, const RunOptions& run, std::ostream& err) {
    if (!run.account)
        return checkNamedAccount(form);
    if (!form.accountBoxVisible) {
        errorLine(err, clitext::accountNotUsed);
        return std::nullopt;
    }
    if (!form.allowAnyAccountName && !offers(form, *run.account))
        return usage(formatMessage(clitext::noAccountCalled,
                                   {form.accountType, *run.account, joined(form.accountChoices)}));
    form.setAccountText(*run.account);
    return std::nullopt;
}

std::optional<RunProblem> setAppend(RunForm& form, const RunOptions& run) {
    if (!run.append || form.appendSwitchVisible) {
        form.setAppendSwitch(run.append);
        return std::nullopt;
    }
    std::error_code ec;
    if (run.output && !std::filesystem::exists(*run.output, ec))
        return std::nullopt; // nothing to append to yet: a new file
    return usage(std::string(clitext::appendRefused));
}

std::optional<RunProblem> checkReady(const RunForm& form) {
    // A file of several accounts without one chosen is refused by the run, which names them.
    if (form.processEnabled() || form.choosesInputAccount())
        return std::nullopt;
    if (form.textInput)
        return RunProblem{kExitRefused, std::string(clitext::noFormatFits)};
    if (form.accountChoices.empty())
        return RunProblem{kExitRefused, std::string(clitext::appendNeedsAccounts)};
    return usage(formatMessage(clitext::chooseAccount, joined(form.accountChoices)));
}

} // namespace

std::optional<RunProblem> fillRunForm(Controller& controller, const RunOptions& run,
                                      const OutputFormatting& output, std::ostream& err) {
    RunForm& form = controller.form();
    // Appending continues the file named on the command line, not the last run's file.
    if (run.append && run.output)
        form.previousOutputFile = std::filesystem::absolute(*run.output).string();
    if (auto problem = setInputFormat(controller, run))
        return problem;
    if (auto problem = setOutputFormat(form, run))
        return problem;
    if (auto problem = setRange(controller, run, output))
        return problem;
    if (auto problem = setInputType(controller, run))
        return problem;
    if (auto problem = setSameDateAndNumber(form, run, output))
        return problem;
    if (auto problem = setAccount(form, run, err))
        return problem;
    if (auto problem = setAppend(form, run))
        return problem;
    return checkReady(form);
}

} // namespace tavvel
