#include "forms/RunForm.h"

#include "context/Context.h"
#include "dialogs/Chooser.h"
#include "formats/OutputFormatKeys.h"
#include "formats/OutputFormats.h"
#include "forms/RunFormTexts.h"
#include "knowledge/Accounts.h"
#include "knowledge/Formats.h"
#include "prefs/Files.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <unistd.h>

namespace tavvel {

namespace {

bool startsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

bool writable(const std::string& path) {
    return !path.empty() && ::access(path.c_str(), W_OK) == 0;
}

std::string lastComponent(const std::string& path) {
    return std::filesystem::path(path).filename().string();
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
        return std::tolower(x) == std::tolower(y);
    });
}

// Whether the layout writes an "Account" column.
bool writesAccount(const Dictionary& format) {
    const Array& order =
        find(format, outkey::Order) ? find(format, outkey::Order)->array() : Value(Array{}).array();
    const Value* present = find(format, outkey::Present);
    for (std::size_t i = 0; i < order.size(); ++i)
        if (order[i].text() == "Account")
            return present && i < present->array().size() && present->array()[i].toBool();
    return false;
}

} // namespace

std::string RunForm::formatted(const Value* date) const {
    if (date && date->isDate())
        return formatDate(*date->get<Date>(), ctx_.output.longDatePattern());
    if (date && date->isString())
        return date->text();
    return formatDate(ctx_.clock.now(), ctx_.output.longDatePattern());
}

void RunForm::fillInTransactionPart() {
    const Value* stored = ctx_.prefs.objectForKey(prefkey::ControlSettings);
    Dictionary settings = stored ? stored->dictionary() : Dictionary{};
    qifType = static_cast<int>(find(settings, runkey::inputQIFType)
                                   ? find(settings, runkey::inputQIFType)->toInteger()
                                   : 0);
    whichTransactions =
        static_cast<int>(find(settings, runkey::whichTransactions)
                             ? find(settings, runkey::whichTransactions)->toInteger()
                             : 0);
    dateFrom = formatted(find(settings, runkey::dateFrom));
    dateTo = formatted(find(settings, runkey::dateTo));
    outputDate = formatted(find(settings, runkey::outputDate));
    outputNumber = textOf(settings, runkey::outputNumberString);
    rangeFieldsEnabled = whichTransactions == 2;
    std::string stored_format = textOf(settings, runkey::outputFormat, "QIF");
    outputFormat = outputFormats_.formatForName(stored_format) ? stored_format : "QIF";
    previousOutputFile = textOf(settings, runkey::outputFilePath);
}

void RunForm::setInput(const Input& input, int runKind) {
    resuming = false;
    textInput = input.text;
    ofxInput = input.ofx;
    accountType = input.accountType;
    accountKind = input.accountKind;
    inputAccount_ = input.account;
    inputAccounts = input.accounts;
    outputFormatChoices = outputFormats_.namesForKind(runKind);
}

void RunForm::showContinuation(const Fixed& fixed) {
    resuming = true;
    outputFormat = fixed.outputFormat;
    fillInAccountAndOutputPart();
    accountBoxVisible = false;
    accountHint.clear();
    accountText = fixed.account;
    outputDate = fixed.outputDate;
    outputNumber = fixed.outputNumber;
    sameDate = fixed.sameDate;
    sameNumber = fixed.sameNumber;
    qifType = 0;
}

void RunForm::offerAccounts(bool anyName) {
    Accounts accounts(ctx_.prefs);
    ChooserState chooser;
    accounts.comboBoxIncludeOnly(accountKind, chooser);
    accountChoices = accounts.filteredAccountNames();
    accountBoxVisible = true;
    allowAnyAccountName = anyName;
    accountHint.clear();
    accountText = accountChoices.size() == 1 ? accountChoices.front() : std::string();
}

// Whichever account the output would name, the account chosen here decides which of the
// input's accounts is converted: nothing is merged.
void RunForm::offerInputAccounts() {
    accountBoxVisible = true;
    allowAnyAccountName = false;
    accountHint.clear();
    accountChoices = inputAccounts;
    if (std::find(accountChoices.begin(), accountChoices.end(), accountText) ==
        accountChoices.end())
        accountText.clear();
}

void RunForm::fillQifOutputPart(bool appendOption, std::size_t accounts) {
    // Only a file that can be appended to is read: the last output may be large.
    const bool mayAppend = appendOption && accounts > 0 && writable(previousOutputFile);
    auto existing = mayAppend ? readWholeFile(previousOutputFile, 1 << 20) : std::nullopt;
    doAppend = existing && startsWith(*existing, "!Account");
    appendSwitchVisible = appendSwitchOn = outputFileFieldVisible = doAppend;
    outputFileText = doAppend ? lastComponent(previousOutputFile) : std::string();
    appendPopUpVisible = false;
    if (appendOption && accounts > 0) {
        offerAccounts(false);
        return;
    }
    accountBoxVisible = false;
    bool unknown = startsWith(accountType, "Unknown") || startsWith(accountType, "(Enter");
    accountHint = unknown        ? ""
                  : appendOption ? std::string(text::hintNoAccountOfType)
                                 : std::string(text::hintSpecifyAccount);
}

void RunForm::fillDelimitedOutputPart(const Dictionary& format) {
    doAppend = true;
    std::string extension = std::filesystem::path(previousOutputFile).extension().string();
    bool comma = startsWith(textOf(format, outkey::Separator), "Comma");
    bool fits = comma ? equalsIgnoringCase(extension, ".csv") : extension == ".txt";
    appendSwitchVisible = true;
    if (writable(previousOutputFile) && fits) {
        appendPopUpItems = {lastComponent(previousOutputFile),
                            std::string(text::fileSelectedAfterProcessItem)};
        appendPopUpIndex = 0;
        appendPopUpVisible = appendSwitchOn = true;
        outputFileFieldVisible = false;
    } else {
        outputFileText = std::string(text::fileSelectedAfterProcessField);
        outputFileFieldVisible = true;
        appendSwitchOn = appendPopUpVisible = false;
    }
    if (writesAccount(format)) {
        offerAccounts(true);
        return;
    }
    accountBoxVisible = false;
    accountHint = std::string(text::hintAccountNotInFormat);
}

void RunForm::fillInAccountAndOutputPart() {
    bool appendOption = optionOn(ctx_.prefs, option::append);
    std::size_t accounts = Accounts(ctx_.prefs).getAccountsArray().size();
    auto format = outputFormat == "QIF" ? std::nullopt : outputFormats_.formatForName(outputFormat);
    if (format)
        fillDelimitedOutputPart(*format);
    else
        fillQifOutputPart(appendOption, accounts);
    if (inputAccount_)
        accountText = *inputAccount_;
    if (choosesInputAccount())
        offerInputAccounts();
}

void RunForm::chooseRange(int tag) {
    whichTransactions = tag;
    rangeFieldsEnabled = tag == 2;
    if (rangeFieldsEnabled)
        checkDateRange();
}

void RunForm::setDateFrom(std::string text) {
    dateFrom = std::move(text);
    checkDateRange();
}

void RunForm::setDateTo(std::string text) {
    dateTo = std::move(text);
    checkDateRange();
}

void RunForm::checkDateRange() {
    std::string longPattern = ctx_.output.longDatePattern();
    std::string today = formatDate(ctx_.clock.now(), longPattern);
    auto read = [&](std::string& field) -> std::optional<Date> {
        if (field.empty())
            field = today;
        auto date = parseDateWithPattern(field, longPattern);
        if (date && calendarDateOf(*date).year <= 999) {
            date = parseDateWithPattern(field, ctx_.output.shortDatePattern());
            if (date)
                field = formatDate(*date, longPattern);
        }
        return date;
    };
    auto from = read(dateFrom);
    auto to = read(dateTo);
    dateRangeOK = from && to && *from <= *to;
    invalidRangeWarningVisible = !dateRangeOK;
}

void RunForm::setAccountText(std::string text) {
    accountText = std::move(text);
}

void RunForm::chooseOutputFormat(std::string name) {
    outputFormat = std::move(name);
    fillInAccountAndOutputPart();
}

void RunForm::setInputFormatName(std::string name) {
    inputFormatName = std::move(name);
    learnEnabled = !inputFormatName.empty() && !inputFormatExists();
}

void RunForm::setAppendSwitch(bool on) {
    appendSwitchOn = on;
}

std::vector<std::string> RunForm::inputFormatChoices() const {
    return Formats(ctx_.prefs).exportMenuTitles();
}

bool RunForm::inputFormatExists() const {
    return Formats(ctx_.prefs).formatForName(inputFormatName).has_value();
}

bool RunForm::processEnabled() const {
    // Resuming asks nothing of the user, but an output format deleted since cannot write.
    if (resuming)
        return outputFormat == "QIF" || outputFormats_.formatForName(outputFormat).has_value();
    if (choosesInputAccount() &&
        std::find(inputAccounts.begin(), inputAccounts.end(), accountText) == inputAccounts.end())
        return false;
    bool ready = (whichTransactions != 2 || dateRangeOK) && (!textInput || inputFormatExists());
    if (outputFormat != "QIF")
        return ready && outputFormats_.formatForName(outputFormat).has_value();
    if (!optionOn(ctx_.prefs, option::append))
        return ready;
    if (accountChoices.empty())
        return false;
    if (accountChoices.size() == 1)
        return ready;
    return !accountText.empty() && ready;
}

} // namespace tavvel
