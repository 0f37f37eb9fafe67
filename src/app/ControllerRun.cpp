// The processing run. Stages: the categories check; the run's cleared marks and fixed date and
// number; the output file (new, or appended to); the run settings recorded; the QIF header;
// the reader for the input; the walk; then the output file written and the closing message.

#include "app/AppTexts.h"
#include "app/ContinuationRecord.h"
#include "app/Controller.h"
#include "app/OfxAccountChoice.h"
#include "app/OutputFile.h"
#include "app/RunSettings.h"
#include "bank/QifDates.h"
#include "bank/QifInputTypes.h"
#include "context/Context.h"
#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "formats/Extract.h"
#include "formats/ExtractKeys.h"
#include "formats/OutputFormatKeys.h"
#include "invest/InvestmentContinuation.h"
#include "knowledge/Accounts.h"
#include "knowledge/Formats.h"
#include "prefs/Files.h"
#include "prefs/PropertyList.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "recognize/FindDate.h"
#include "recognize/InputFormatKeys.h"
#include "recognize/StatementKind.h"

#include <filesystem>
#include <utility>

namespace tavvel {

namespace {

struct ClearedOptions {
    std::string_view cleared, uncleared;
};

ClearedOptions clearedOptionsFor(int gType) {
    switch (gType) {
    case kTypeBank:
        return {option::markBankTransactionsAsCleared, option::markBankTransactionsAsUncleared};
    case kTypeCreditCard:
        return {option::markCreditCardTransactionsAsCleared,
                option::markCreditCardTransactionsAsUncleared};
    case kTypeInvestment:
        return {option::markInvestmentTransactionsAsCleared,
                option::markInvestmentTransactionsAsUncleared};
    default:
        return {option::markUnknownTransactionsAsCleared,
                option::markUnknownTransactionsAsUncleared};
    }
}

bool startsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

// A suggested file name never holds "/": dates in it are written with "-".
std::string fileNameDate(std::string date) {
    std::replace(date.begin(), date.end(), '/', '-');
    return date;
}

} // namespace

Intake Controller::extract() {
    doingExtract_ = true;
    // Text is read from fileAsString alone; its lines would only hold memory through the run.
    std::vector<std::string_view>().swap(fileAsLines_);
    controlHelpAnchor_ = "Text";
    if (optionOn(ctx_.prefs, option::append) && !checkAccountsForAppend())
        return Intake::refused;
    fileAsString_.erase(0, fileAsString_.find_first_not_of(" \t\r\n\f\v"));
    std::int64_t length = 0;
    if (!findDateSlash(fileAsString_, length) && !findDateDash(fileAsString_, length) &&
        !findDateDot(fileAsString_, length) && !findDateLong(fileAsString_, length, ctx_.config) &&
        !findDateEightDigits(fileAsString_, length))
        return refuse(text::invalidInputTitle, text::textWithoutDate);
    processing_ = true;
    fillInTransactionPart();
    Formats formats(ctx_.prefs);
    std::optional<Dictionary> winner;
    std::size_t bestAt = 0, bestLength = 0;
    bool firstMatch = optionOn(ctx_.prefs, option::formatFirstMatch);
    for (std::size_t i = 0; i < formats.numberOfFormats(); ++i) {
        auto format = formats.formatAtIndex(i);
        std::string match = format ? textOf(*format, "Match") : std::string();
        std::size_t at = match.empty() ? std::string::npos : fileAsString_.find(match);
        if (at == std::string::npos)
            continue;
        bool better = !winner || (firstMatch ? at < bestAt : match.size() > bestLength);
        if (better) {
            winner = format;
            bestAt = at;
            bestLength = match.size();
        }
    }
    inputFormatSet(winner ? textOf(*winner, "Name") : std::string());
    return Intake::formReady;
}

void Controller::inputFormatSet(std::string name) {
    std::optional<Dictionary> format = Formats(ctx_.prefs).formatForName(name);
    if (!format) {
        gType_ = kTypeTextWithoutFormat;
        form_.setInput({true, "Unknown", 4, account_}, gType_);
    } else {
        std::string type = textOf(*format, "FormatType");
        bool showAll = optionOn(ctx_.prefs, option::showAllAccountNames);
        if (type == "Investment")
            gType_ = kTypeInvestment;
        else if (!showAll)
            gType_ = type == "Bank" ? kTypeBank : kTypeCreditCard;
        int kind = type == "Investment" ? 2 : showAll ? 3 : gType_;
        form_.setInput({true, type, kind, account_}, gType_);
        name = textOf(*format, "Name");
    }
    form_.setInputFormatName(std::move(name));
    form_.fillInAccountAndOutputPart();
}

WalkOptions Controller::walkOptions() const {
    WalkOptions options;
    options.outputDate = runOutputDate_;
    options.outputNumber = runOutputNumber_;
    options.markAsCleared = markAsCleared_;
    options.markAsUncleared = markAsUncleared_;
    options.swapDescriptionAndMemo = inputTypeTag() & kQifSwapDescriptionAndMemo;
    options.watch = walkWatch_;
    options.writeSuggestions = useSuggestions_;
    return options;
}

// The input type's choices as one set of bits: each kind of input has its own choice (the QIF
// type for QIF, the QFX type for OFX, none for text), and a resumed run keeps the stopped one's.
int Controller::inputTypeTag() const {
    if (continuationData_) {
        const Value* tag = find(*continuationData_, contkey::inputTypeTag);
        return tag ? static_cast<int>(tag->toInteger()) : 0;
    }
    if (form_.textInput)
        return 0;
    if (form_.ofxInput)
        return form_.qfxType == kQfxSwapIndex ? kQifSwapDescriptionAndMemo : 0;
    return qifInputTypeTag(form_.qifType);
}

RunEnd Controller::processTheTransactions(bool mainWindowVisible) {
    if (!checkCategories())
        return RunEnd::notStarted;
    if (!account_)
        account_ = form_.accountText;
    if (form_.choosesInputAccount()) {
        // The kind of the account chosen decides the header and the cleared marks.
        auto kind = ofxKindOfAccount(fileAsString_, *account_);
        if (!kind) {
            statusAlert(text::invalidInputTitle, "%@",
                        ofxAccountsRefusal(source_, form_.inputAccounts));
            return RunEnd::stopped;
        }
        gType_ = *kind;
    }
    ClearedOptions cleared = clearedOptionsFor(gType_);
    markAsCleared_ = optionOn(ctx_.prefs, cleared.cleared);
    markAsUncleared_ = optionOn(ctx_.prefs, cleared.uncleared);
    runOutputDate_ = form_.sameDate ? form_.outputDate : std::string();
    runOutputNumber_ = form_.sameNumber ? form_.outputNumber : std::string();
    writer_.chooseFormat(form_.outputFormat);
    auto path = chooseOutputFile(mainWindowVisible);
    if (!path) {
        doneWithFile();
        return RunEnd::cancelled;
    }
    if (namesSomethingOtherThanAFile(*path)) {
        statusAlert(text::outputNotWrittenTitle, text::outputNotAFile, *path);
        return RunEnd::stopped;
    }
    outputFilePath_ = *path;
    return actuallyProcessTheTransactions();
}

std::optional<std::string> Controller::chooseOutputFile(bool mainWindowVisible) {
    bool qif = writer_.QIFOutput();
    auto format = qif ? std::nullopt : writer_.formatForName(form_.outputFormat);
    bool comma = format && startsWith(textOf(*format, outkey::Separator), "Comma");
    std::string start = ctx_.prefs.objectForKey(prefkey::LastRootDirectory)
                            ? ctx_.prefs.objectForKey(prefkey::LastRootDirectory)->text()
                            : std::string();
    std::optional<std::string> chosen;
    bool appendItemChosen = form_.appendPopUpIndex == 1 || !form_.appendPopUpVisible;
    if (!qif && form_.doAppend && form_.appendSwitchOn && appendItemChosen) {
        FileChoice choice{comma ? std::vector<std::string>{"csv"}
                                : std::vector<std::string>{"txt", ""},
                          start, "", std::string(text::appendTo)};
        chosen = dialogs_.chooseFileToAppendTo(choice);
    } else if (form_.doAppend && form_.appendSwitchOn) {
        return form_.previousOutputFile;
    } else {
        std::string extension = qif ? "qif" : comma ? "csv" : "txt";
        std::string today =
            fileNameDate(formatDate(ctx_.clock.now(), ctx_.output.longDatePattern()));
        // A run that started by itself always suggests the QIF name; it always has.
        std::string suggested =
            (qif || !mainWindowVisible) ? "QIF Import " + today + ".qif" : "Tavvel." + extension;
        chosen = dialogs_.chooseFileToSave({{extension}, start, suggested, ""});
    }
    if (!chosen)
        return std::nullopt;
    ctx_.prefs.setObject(prefkey::LastRootDirectory,
                         Value(std::filesystem::path(*chosen).parent_path().string()));
    ctx_.prefs.synchronize();
    return chosen;
}

void Controller::recordRunSettings(std::optional<Date> from, std::optional<Date> to) {
    Dictionary settings{{std::string(runkey::whichTransactions), Value(form_.whichTransactions)},
                        {std::string(runkey::outputDate), Value(form_.outputDate)},
                        {std::string(runkey::outputNumberString), Value(form_.outputNumber)},
                        {std::string(runkey::outputFilePath), Value(outputFilePath_)},
                        {std::string(runkey::outputFormat), Value(form_.outputFormat)},
                        {std::string(runkey::inputQIFType), Value(form_.qifType)}};
    if (from)
        settings.emplace(std::string(runkey::dateFrom), Value(*from));
    if (to)
        settings.emplace(std::string(runkey::dateTo), Value(*to));
    ctx_.prefs.setObject(prefkey::ControlSettings, Value(std::move(settings)));
}

bool Controller::readTransactions(Date from, Date to) {
    reader_.setQifInputType(inputTypeTag());
    if (doingExtract_) {
        std::optional<Dictionary> format = Formats(ctx_.prefs).formatForName(form_.inputFormatName);
        if (!format) {
            doneWithFile();
            return false;
        }
        // Investment text never comes here (the investment engine reads it); a format of that
        // kind met here is refused as one that does not fit.
        bool read = textOf(*format, fmtkey::FormatType) != fmtkey::Investment &&
                    reader_.fromFormattedText(textAsRead(fileAsString_, *format), *format, from, to,
                                              warning_);
        if (!read)
            statusAlert(text::invalidFormatTitle, text::invalidFormat, source_);
        return read;
    }
    if (looksLikeOfx(fileAsString_)) {
        if (gType_ == kTypeInvestment) {
            statusAlert(text::invalidOfxTitle, text::invalidOfx, source_);
            return false;
        }
        reader_.setOfxAccount(form_.choosesInputAccount() ? account_ : std::nullopt);
        reader_.fromOFX(fileAsString_, from, to);
        return true;
    }
    reader_.setDayFirstDates(chooseQifDateOrder(fileAsLines_, ctx_, dialogs_, source_));
    std::size_t bad = reader_.fromQIFLines(fileAsLines_, from, to);
    if (bad == 0)
        return true;
    std::string message =
        formatMessage(text::corruptedQif, {source_, std::to_string(bad + skippedLines_)});
    statusAlert(text::invalidInputTitle, "%@", message);
    return false;
}

RunEnd Controller::actuallyProcessTheTransactions() {
    outputFileAsString_.clear();
    if (continuationData_)
        return resume();
    if (gType_ == kTypeInvestment && !ctx_.prefs.objectForKey(prefkey::Securities))
        dialogs_.alert(std::string(text::needSecuritiesTitle), std::string(text::needSecurities));
    auto range =
        dateRangeFor(form_.whichTransactions, ctx_.clock.now(), form_.dateFrom, form_.dateTo,
                     ctx_.output.longDatePattern(), ctx_.output.shortDatePattern());
    recordRunSettings(range ? std::optional(range->from) : std::nullopt,
                      range ? std::optional(range->to) : std::nullopt);
    bool appendOption = optionOn(ctx_.prefs, option::append);
    if (writer_.QIFOutput())
        outputFileAsString_ = qifHeader(appendOption, gType_, form_.accountText,
                                        Accounts(ctx_.prefs).typeForAccount(form_.accountText));
    writer_.setAccount(account_.value_or(""));
    DateRange all{kDistantPast, kDistantFuture};
    if (gType_ == kTypeInvestment && !doingExtract_ && looksLikeOfx(fileAsString_))
        return processInvestmentOFX(range.value_or(all).from, range.value_or(all).to);
    if (gType_ == kTypeInvestment && doingExtract_)
        return processInvestmentText(range.value_or(all).from, range.value_or(all).to);
    if (!readTransactions(range.value_or(all).from, range.value_or(all).to))
        return RunEnd::stopped;
    if (!startHistory())
        return processInstructionsDidEnd({});
    // The walk's error warnings can be silenced for the input format the text was read with.
    std::optional<Dictionary> inputFormat =
        doingExtract_ ? Formats(ctx_.prefs).formatForName(form_.inputFormatName) : std::nullopt;
    WalkOptions options = walkOptions();
    options.inputFormat = inputFormat ? &*inputFormat : nullptr;
    WalkResult result = reader_.processInstructionsAndAppendToString(
        outputFileAsString_, writer_, warning_, dialogs_, instructions_, options);
    return processInstructionsDidEnd(result);
}

// A resumed run was set up, headed and read before it stopped: the walk goes on from the
// stored record, whose output so far already holds the header and the accepted transactions.
RunEnd Controller::resume() {
    writer_.setAccount(account_.value_or(""));
    if (has(*continuationData_, icontkey::iqif))
        return resumeInvestment();
    reader_.setQifInputType(inputTypeTag());
    resumeHistory(*continuationData_);
    WalkResult result = reader_.continueWith(*continuationData_, outputFileAsString_, writer_,
                                             warning_, dialogs_, instructions_, walkOptions());
    return processInstructionsDidEnd(result);
}

// The rest of the continuation record: what the run form held, so a resumed run writes with
// the same settings. Nothing is written to the output file.
RunEnd Controller::saveContinuation(Dictionary record) {
    record.insert_or_assign("outputFormatText", Value(form_.outputFormat));
    record.insert_or_assign("sameDateSwitch", Value(form_.sameDate));
    record.insert_or_assign("sameNumberSwitch", Value(form_.sameNumber));
    record.insert_or_assign("outputDateString", Value(form_.outputDate));
    record.insert_or_assign("outputNumberString", Value(form_.outputNumber));
    record.insert_or_assign("account", Value(account_.value_or(form_.accountText)));
    record.insert_or_assign(std::string(contkey::inputTypeTag), Value(inputTypeTag()));
    keepHistoryIn(record);
    std::string start = ctx_.prefs.objectForKey(prefkey::LastRootDirectory)
                            ? ctx_.prefs.objectForKey(prefkey::LastRootDirectory)->text()
                            : std::string();
    std::string suggested = std::filesystem::path(inputFrom_).stem().string() + ".tvcn";
    auto path = dialogs_.chooseFileToSave({{"tvcn"}, start, suggested, ""});
    doneWithFile();
    if (!path) {
        dialogs_.alert(std::string(text::continuationNotCreatedTitle),
                       std::string(text::continuationCancelled));
        return RunEnd::continuationNotSaved;
    }
    ctx_.prefs.setObject(prefkey::LastRootDirectory,
                         Value(std::filesystem::path(*path).parent_path().string()));
    ctx_.prefs.synchronize();
    if (!writePropertyListFile(*path, Value(std::move(record)))) {
        dialogs_.alert(std::string(text::continuationNotCreatedTitle),
                       std::string(text::continuationFailed));
        return RunEnd::continuationNotSaved;
    }
    dialogs_.alert(std::string(text::continuationCreatedTitle),
                   std::string(text::continuationCreated));
    return RunEnd::continuationSaved;
}

RunEnd Controller::processInstructionsDidEnd(const WalkResult& result) {
    // What the walk learned in passing (the descriptions it met) is saved once, here.
    ctx_.prefs.synchronize();
    if (result.continuation)
        return saveContinuation(*result.continuation);
    RunEnd end = RunEnd::nothingOutput;
    lastTitle_ = std::string(text::finishedTitle);
    if (result.appended < 1) {
        lastMessage_ = std::string(text::noTransactionsOutput) + duplicatesLeftOutText();
    } else {
        if (doingClipboard_)
            lastProcessedClipboard_ = clipboardAsGiven_;
        std::string name = std::filesystem::path(outputFilePath_).filename().string();
        lastMessage_ = "\r\r" + std::to_string(result.appended) + " transaction" +
                       (result.appended == 1 ? "" : "s") + " output to file \"" + name + "\"." +
                       duplicatesLeftOutText();
        OutputTarget target{outputFilePath_, form_.appendSwitchOn,
                            optionOn(ctx_.prefs, option::append), writer_.QIFOutput()};
        end = RunEnd::written;
        if (!writeOutputFile(target, outputFileAsString_)) {
            lastTitle_ = std::string(text::outputNotWrittenTitle);
            lastMessage_ = formatMessage(text::outputNotWritten, name);
            end = RunEnd::writeFailed;
        } else {
            recordHistory();
        }
    }
    lastMessage_ += std::exchange(closingNote_, {});
    doneWithFile();
    dialogs_.alert(lastTitle_, lastMessage_);
    return end;
}

} // namespace tavvel
