// Intake and classification. Stages: take the input (file, clipboard); a file that cannot be
// read is refused; its text becomes UTF-8 whatever encoding it was saved in, and bytes that
// are no statement are refused; replace NUL bytes; OFX when "OFXHEADER" occurs anywhere or
// the text is an <OFX> element (its accounts offered when it holds several), else cut into
// lines, offer them to the QIF list importer, find the register among any lists, find the head
// line and decide QIF or free text; refuse what cannot be processed; prepare the run form, or
// run at once when asked to.

#include "app/Controller.h"

#include "app/AppTexts.h"
#include "app/ContinuationRecord.h"
#include "app/ImportQuickenExport.h"
#include "app/InputText.h"
#include "app/OfxAccountChoice.h"
#include "app/QifTransactionPart.h"
#include "app/RunSettings.h"
#include "context/Context.h"
#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "forms/RunFormTexts.h"
#include "knowledge/Accounts.h"
#include "knowledge/Categories.h"
#include "knowledge/Formats.h"
#include "prefs/Files.h"
#include "prefs/PropertyList.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"
#include "recognize/FindDate.h"
#include "recognize/FindLines.h"
#include "recognize/ParseDate.h"
#include "recognize/StatementKind.h"

#include <algorithm>
#include <filesystem>

namespace tavvel {

namespace {

bool startsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

// The account named by <ACCTID>: from 8 bytes past the tag up to white space or "<".
std::optional<std::string> ofxAccount(std::string_view text) {
    std::size_t at = text.find("<ACCTID>");
    if (at == std::string_view::npos)
        return std::nullopt;
    std::size_t begin = at + 8;
    std::size_t end = text.find_first_of(" \t\r\n\f\v<", begin);
    if (end == std::string_view::npos)
        return std::nullopt;
    return std::string(text.substr(begin, end - begin));
}

} // namespace

Controller::Controller(Context& ctx, Dialogs& dialogs)
    : ctx_(ctx), dialogs_(dialogs), writer_(ctx, dialogs), form_(ctx, writer_),
      warning_(dialogs, [&ctx](const Dictionary& format) { Formats(ctx.prefs).addFormat(format); }),
      reader_(ctx), instructions_(ctx.prefs) {}

void Controller::statusAlert(std::string_view title, std::string_view format,
                             std::string_view argument) {
    doneWithFile();
    lastTitle_ = std::string(title);
    // Some refusals name no source: their text is complete as it stands.
    lastMessage_ =
        placeholderCount(format) == 0 ? std::string(format) : formatMessage(format, argument);
    dialogs_.alert(lastTitle_, lastMessage_);
}

Intake Controller::refuse(std::string_view title, std::string_view format) {
    continuationData_.reset(); // a refused continuation is not being resumed
    statusAlert(title, format, source_);
    return Intake::refused;
}

void Controller::doneWithFile() {
    processing_ = false;
}

Intake Controller::actuallyProcessFile(const std::string& path) {
    std::filesystem::path file(path);
    inputPath_ = path;
    ctx_.prefs.setObject(prefkey::LastRootDirectory, Value(file.parent_path().string()));
    ctx_.prefs.synchronize();
    continuationData_.reset();
    if (file.extension() == ".tvcn")
        return openContinuation(file);
    source_ = formatMessage(text::sourceFile, file.filename().string());
    inputFrom_ = file.filename().string();
    auto bytes = readWholeFile(file);
    if (!bytes)
        return refuse(text::unreadableInputTitle, text::unreadableInput);
    if (!takeInStatementText(*bytes))
        return refuse(text::invalidInputTitle, text::notAStatement);
    fileAsString_ = std::move(*bytes);
    return processInput();
}

Intake Controller::openContinuation(const std::filesystem::path& file) {
    source_ = formatMessage(text::sourceContinuation, file.filename().string());
    inputFrom_ = file.filename().string();
    PlistRead read = readPropertyListFile(file);
    if (read.status == PlistReadStatus::Missing || read.status == PlistReadStatus::Unreadable)
        return refuse(text::unreadableInputTitle, text::unreadableInput);
    if (read.status == PlistReadStatus::NotAPropertyList)
        return refuse(text::continuationInvalidTitle, text::continuationUndecodable);
    if (!read.ok() || !resumableContinuation(read.value.dictionary()))
        return refuse(text::continuationInvalidTitle, text::continuationDamaged);
    continuationData_ = read.value.dictionary();
    fileAsString_ = textOf(*continuationData_, contkey::fileAsString);
    return processInput();
}

Intake Controller::processClipboard(const std::optional<std::string>& text) {
    if (!text) {
        dialogs_.alert(std::string(text::clipboardEmptyTitle), std::string(text::clipboardEmpty));
        return Intake::refused;
    }
    doingClipboard_ = true;
    fileAsString_ = clipboardAsGiven_ = *text;
    inputFrom_ = std::string(text::clipboard);
    source_ = std::string(text::sourceClipboard);
    continuationData_.reset();
    return processInput();
}

bool Controller::applicationDidBecomeActive(const std::optional<std::string>& clipboard) {
    justActivated_ = true;
    if (processing_ || !clipboard || clipboard->empty() || *clipboard == lastProcessedClipboard_)
        return false;
    std::int64_t length = 0;
    if (!findDateSlash(*clipboard, length) && !findDateDash(*clipboard, length) &&
        !findDateLong(*clipboard, length, ctx_.config))
        return false;
    fileAsString_ = *clipboard;
    inputFrom_ = std::string(text::clipboard);
    source_ = std::string(text::sourceClipboard);
    continuationData_.reset();
    return true;
}

Intake Controller::processText(std::string text, std::string source) {
    fileAsString_ = std::move(text);
    source_ = std::move(source);
    return processInput();
}

Intake Controller::processInput() {
    justActivated_ = false;
    // Statements hardly ever hold a NUL: finding none costs far less than rewriting every byte.
    if (fileAsString_.find('\0') != std::string::npos)
        std::replace(fileAsString_.begin(), fileAsString_.end(), '\0', ' ');
    account_.reset();
    fileAsLines_.clear();
    skippedLines_ = 0;
    // A continuation holds the run's output so far, which is never OFX, whatever its memos say.
    if (!continuationData_ && looksLikeOfx(fileAsString_))
        return classifyOFX();
    return classifyLines();
}

bool Controller::checkCategories() {
    Categories categories(ctx_.prefs);
    if (categories.exists())
        return true;
    dialogs_.alert(std::string(text::noCategoriesTitle), std::string(text::noCategories));
    categories.createEmpty();
    return false;
}

bool Controller::checkAccountsForAppend() {
    if (!Accounts(ctx_.prefs).getAccountsArray().empty())
        return true;
    dialogs_.alert(std::string(text::noAccountsTitle), std::string(text::noAccounts));
    return false;
}

bool Controller::passesRunChecks() {
    if (!checkCategories())
        return false;
    return !optionOn(ctx_.prefs, option::append) || checkAccountsForAppend();
}

int Controller::accountKindFor(int gType) const {
    if (gType == kTypeInvestment)
        return 2;
    if (gType == kTypeBankOrCreditCard || optionOn(ctx_.prefs, option::showAllAccountNames))
        return 3;
    return gType;
}

Intake Controller::classifyOFX() {
    doingExtract_ = doingClipboard_ = false;
    // Statements of several accounts are never merged: the run form offers their accounts.
    std::vector<std::string> accounts = ofxAccountsToChooseFrom(fileAsString_);
    account_ = accounts.empty() ? ofxAccount(fileAsString_) : std::nullopt;
    if (!passesRunChecks())
        return Intake::refused;
    struct Kind {
        std::string_view marker;
        int gType;
        std::string_view shown;
    };
    constexpr Kind kinds[] = {{"<BANKMSGSRSV", kTypeBank, "Bank"},
                              {"<CREDITCARDMSGSRSV", kTypeCreditCard, "Credit Card"},
                              {"<INVSTMTMSGSRSV", kTypeInvestment, "Investment"}};
    const Kind* found = nullptr;
    for (const Kind& kind : kinds)
        if (!found && contains(fileAsString_, kind.marker))
            found = &kind;
    if (!found)
        return refuse(text::invalidInputTitle, text::ofxNotBankOrCard);
    gType_ = found->gType;
    std::string shown(found->shown);
    // Until an account is chosen, a bank account and a card are either.
    if (!accounts.empty() && ofxKindsDiffer(fileAsString_)) {
        gType_ = kTypeBankOrCreditCard;
        shown = "Bank or Credit Card";
    }
    form_.setInput({false, shown, accountKindFor(gType_), account_, true, std::move(accounts)},
                   gType_);
    form_.qfxType = 0;
    controlHelpAnchor_ = "QFX";
    return endClassification();
}

Intake Controller::classifyLines() {
    lines_ = findLineViews(fileAsString_, linesWithoutCR_);
    Intake intake = classifyLineViews();
    // The views may point into text that has changed since; a QIF register's lines are kept.
    std::vector<std::string_view>().swap(lines_);
    if (fileAsLines_.empty())
        std::string().swap(linesWithoutCR_);
    return intake;
}

Intake Controller::classifyLineViews() {
    if (continuationData_)
        return classifyResumedOutput();
    std::size_t start = 0;
    int result = ImportQuickenExport(ctx_.prefs, dialogs_).process(lines_, start, source_);
    if (result > 0 && (result & (ImportQuickenExport::kAccountsReplaced |
                                 ImportQuickenExport::kCategoriesReplaced)))
        Categories(ctx_.prefs).updateAccounts();
    if (result == ImportQuickenExport::kMalformed)
        dialogs_.alert(std::string(text::listImportTitle),
                       formatMessage(text::listImportCorrupted, source_));
    if (result <= 0)
        start = 0;
    if (auto part = qifTransactionPart(lines_)) {
        if (part->severalAccounts)
            return refuse(text::invalidInputTitle, text::multipleAccounts);
        if (part->skipped > 0)
            dialogs_.alert(
                std::string(text::qifSectionsSkippedTitle),
                formatMessage(text::qifSectionsSkipped, {source_, std::to_string(part->skipped)}));
        // The lines after the register are lists or other registers, never its transactions.
        lines_.resize(part->end);
        start = part->begin;
    }
    std::size_t head = start;
    while (head < lines_.size() && lines_[head].empty())
        ++head;
    if (head >= lines_.size())
        return refuse(text::noTransactionsTitle, text::noQifTransactions);
    return classifyQIF(head);
}

Intake Controller::classifyQIF(std::size_t head) {
    bool recordEnds = std::any_of(lines_.begin() + static_cast<std::ptrdiff_t>(head), lines_.end(),
                                  [](std::string_view l) { return l.empty() || l == "^"; });
    bool resuming = continuationData_.has_value();
    if (lines_[head] == "!Account")
        if (auto refused = enterAccount(head, resuming))
            return *refused;
    if (!isQifHead(lines_[head], recordEnds))
        return continuationData_ ? classifyUndecided() : extract();
    return acceptQIF(head, recordEnds, resuming);
}

// An "!Account" block names the account and leads to the "!Type" line that heads its
// transactions; several accounts, or none with transactions, are refused unless resuming.
// Moves head to that "!Type" line; returns the refusal, if any.
std::optional<Intake> Controller::enterAccount(std::size_t& head, bool resuming) {
    const auto after = lines_.begin() + static_cast<std::ptrdiff_t>(head + 1);
    if (!resuming && std::find(after, lines_.end(), "!Account") != lines_.end())
        return refuse(text::invalidInputTitle, text::multipleAccounts);
    if (head + 1 < lines_.size())
        account_ =
            std::string(lines_[head + 1].substr(std::min<std::size_t>(1, lines_[head + 1].size())));
    auto type = std::find_if(after, lines_.end(), [](std::string_view l) {
        return startsWith(l, "!Type") || startsWith(l, "!TYPE");
    });
    if (type != lines_.end())
        head = static_cast<std::size_t>(type - lines_.begin());
    else if (!resuming)
        return refuse(text::invalidInputTitle, text::noTransactionsInAccount);
    return std::nullopt;
}

// The input is QIF from head on: check the run may go ahead, take the account type from the
// header and keep the lines that follow it.
Intake Controller::acceptQIF(std::size_t head, bool recordEnds, bool resuming) {
    doingExtract_ = doingClipboard_ = false;
    if (!passesRunChecks())
        return Intake::refused;
    // Some exporters leave a blank after the header ("!Type:Bank ").
    std::string_view headLine = lines_[head];
    headLine = headLine.substr(0, headLine.find_last_not_of(" \t") + 1);
    const bool investment = headLine == "!Type:Invst";
    if (investment && !resuming)
        return refuse(text::invalidInputTitle, text::investmentQif);
    const bool bankOrCard = headLine == "!Type:Bank" || headLine == "!Type:CCard";
    std::string shown = investment ? "Investment" : takeQifType(headLine);
    if (resuming)
        form_.qifType = 0;
    int kind = investment ? 2 : accountKindFor(gType_);
    form_.setInput({false, shown, kind, account_}, gType_);
    std::size_t skip = bankOrCard ? head + 1 : head;
    // The register's lines are taken over, not copied: a statement's lines are many.
    fileAsLines_ = std::move(lines_);
    fileAsLines_.erase(fileAsLines_.begin(),
                       fileAsLines_.begin() + static_cast<std::ptrdiff_t>(skip));
    // A header vouches for QIF on its own; its last record then ends where the text ends.
    if (!recordEnds && !resuming)
        fileAsLines_.emplace_back("^");
    skippedLines_ = skip;
    controlHelpAnchor_ = "QIF";
    return endClassification();
}

// Sets the account type a bank or credit card header names (either, without one) and returns
// how the run form shows it.
std::string Controller::takeQifType(std::string_view headLine) {
    if (headLine == "!Type:Bank") {
        gType_ = kTypeBank;
        return "Bank";
    }
    if (headLine == "!Type:CCard") {
        gType_ = kTypeCreditCard;
        return "Credit Card";
    }
    gType_ = kTypeBankOrCreditCard;
    return "Bank or Credit Card";
}

// Whether the head line shows QIF: a header does by itself. Without one, a "^" line or a
// blank line must end a record, and the head line must be a cleared-status line or a "D" line
// holding a QIF date, so that a column heading such as "Date,Description" stays free text.
bool Controller::isQifHead(std::string_view line, bool recordEnds) const {
    for (std::string_view header : {"!Type", "!TYPE", "!Option"})
        if (startsWith(line, header))
            return true;
    if (!recordEnds)
        return false;
    if (startsWith(line, "C*") || isQifClearedLine(line))
        return true;
    std::int64_t month = 0, day = 0, year = 0;
    return startsWith(line, "D") &&
           parseQIFDate(line.substr(1), month, day, year,
                        optionOn(ctx_.prefs, option::europeanDates), ctx_.config, ctx_.clock);
}

// The output so far decides the form's account type when it begins with a QIF header; an
// output without one (no header for "Bank or Credit Card", delimited output, nothing accepted
// yet) leaves the kind undecided, since the stored transactions, not this text, are walked.
Intake Controller::classifyResumedOutput() {
    auto head =
        std::find_if(lines_.begin(), lines_.end(), [](std::string_view l) { return !l.empty(); });
    if (head == lines_.end())
        return classifyUndecided();
    return classifyQIF(static_cast<std::size_t>(head - lines_.begin()));
}

Intake Controller::classifyUndecided() {
    doingExtract_ = doingClipboard_ = false;
    if (!passesRunChecks())
        return Intake::refused;
    gType_ = kTypeBankOrCreditCard;
    form_.qifType = 0;
    form_.setInput({false, "Bank or Credit Card", accountKindFor(gType_), account_}, gType_);
    std::vector<std::string_view>().swap(fileAsLines_);
    skippedLines_ = 0;
    controlHelpAnchor_ = "QIF";
    return endClassification();
}

// fillInTransactionPartOfDialog: the run settings record is made complete first, so the form
// starts from a whole record.
void Controller::fillInTransactionPart() {
    completeRunSettings(ctx_.prefs, ctx_.clock.now());
    form_.fillInTransactionPart();
}

void Controller::continueFromWhereIStoppedLastTime() {
    Dictionary settings = completeRunSettings(ctx_.prefs, ctx_.clock.now());
    std::string longPattern = ctx_.output.longDatePattern();
    form_.chooseRange(kDateRange);
    form_.setDateFrom(formatDate(continueFrom(settings, ctx_.clock.now()), longPattern));
    form_.setDateTo(formatDate(ctx_.clock.now(), longPattern));
}

Intake Controller::endClassification() {
    processing_ = true;
    fillInTransactionPart();
    if (continuationData_) {
        account_ = textOf(*continuationData_, contkey::account);
        const Dictionary& c = *continuationData_;
        form_.showContinuation(
            {*account_, textOf(c, contkey::outputFormatText), textOf(c, contkey::outputDateString),
             textOf(c, contkey::outputNumberString), find(c, contkey::sameDateSwitch)->toBool(),
             find(c, contkey::sameNumberSwitch)->toBool()});
        if (!form_.processEnabled())
            return refuse(text::continuationInvalidTitle, text::continuationFormatGone);
    } else {
        form_.fillInAccountAndOutputPart();
    }
    bool automatic = optionOn(ctx_.prefs, option::runAutomatically) &&
                     !optionOn(ctx_.prefs, option::append) && form_.processEnabled();
    if (!automatic)
        return Intake::formReady;
    if (automaticRunsLeft_)
        return Intake::runAtOnce;
    processTheTransactions(false);
    return Intake::ranAtOnce;
}

} // namespace tavvel
