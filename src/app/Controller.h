#pragma once
// One conversion run at a time: the input arrives (a file, the clipboard), is classified as
// OFX, QIF or free text and refused when it cannot be processed; the run form is prepared;
// then the transactions are read, walked and written to the output file.

#include "bank/BankingCreditCardQIF.h"
#include "context/Context.h"
#include "dialogs/RunHelpers.h"
#include "formats/OutputFormats.h"
#include "forms/RunForm.h"
#include "history/CategorySuggester.h"
#include "history/ConversionHistory.h"
#include "history/RunDuplicates.h"
#include "knowledge/Instructions.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavvel {

class Dialogs;

// Where classification left the run.
enum class Intake {
    refused,   // a message was shown; nothing else happened
    formReady, // the run form waits for the user
    ranAtOnce, // `runAutomatically`: the run already happened
    runAtOnce, // `runAutomatically`, for a front end that starts such runs itself: start it now
    imported,  // an input format file was imported; no run
};

// How a run ended.
enum class RunEnd {
    notStarted,
    cancelled,
    stopped,
    written,
    nothingOutput,
    writeFailed,
    continuationSaved,
    continuationNotSaved,
};

// What the input format box's learn action did.
enum class LearnEnd {
    focusStays, // no name was typed
    existing,   // the name is a stored format, which is now the run's input format
    learned,    // a format was learned, stored, and is now the run's input format
    cancelled,  // the user left the learning dialogue; nothing was stored
};

class Controller {
public:
    Controller(Context& ctx, Dialogs& dialogs);

    // actuallyProcessFile: — reads the file (a read failure is empty text) and classifies it.
    Intake actuallyProcessFile(const std::string& path);
    // processFile: — the open panel, limited to the statement and continuation extensions and
    // starting in LastRootDirectory; nothing when the user cancelled.
    std::optional<Intake> processFile();
    // application:openFile: — a file given on the command line or dropped on the window.
    // Nothing when refused: a run is under way and the application has not just become
    // active.
    std::optional<Intake> applicationOpenFile(const std::string& path);
    // processClipboard: — the clipboard's text on request (nothing: it holds no text).
    Intake processClipboard(const std::optional<std::string>& text);
    // applicationDidBecomeActive: — true when the clipboard holds new text with a date, so
    // the front end should call processInput() once after 1.0 second.
    bool applicationDidBecomeActive(const std::optional<std::string>& clipboard);
    // processInput — classification of the input text.
    Intake processInput();

    // processTheTransactions: — the process button. `mainWindowVisible` is false when the run
    // started by itself (the suggested file name differs then).
    RunEnd processTheTransactions(bool mainWindowVisible = true);
    // Who watches the walks of the runs to come: a front end running them on another thread
    // shows their progress and stops them.
    void watchWalks(WalkWatch watch) { walkWatch_ = std::move(watch); }
    // A front end that runs on another thread: a run that starts by itself is left to it
    // (Intake::runAtOnce), to start as processTheTransactions(false).
    void leaveAutomaticRunsToFrontEnd() { automaticRunsLeft_ = true; }

    // continueFromWhereIStoppedLastTime: — the range from the day after the last run's range
    // ended (or today) to today.
    void continueFromWhereIStoppedLastTime();

    // learn: — the input format box's action with the typed name: a name that is not a stored
    // input format is learned from the run's input text.
    LearnEnd learn(const std::string& name);

    // inputFormatSet — the input format named in the run form (ignoring case), with the
    // account type and kind it implies; a name that names no format leaves the text unknown.
    void inputFormatSet(std::string name);

    // processText — classification of a statement's text that has passed intake, named in
    // messages by `source` (e.g. "File \"statement.qif\"").
    Intake processText(std::string text, std::string source);

    RunForm& form() { return form_; }
    const RunForm& form() const { return form_; }
    OutputFormats& outputFormats() { return writer_; }

    // The input as the run form shows it ("bank.ofx", "Clipboard"), and as messages name it.
    const std::string& inputFrom() const { return inputFrom_; }
    const std::string& source() const { return source_; }
    // The path of the file last opened, whether or not it was taken ("" before any).
    const std::string& inputPath() const { return inputPath_; }
    // The input's text after intake.
    const std::string& inputText() const { return fileAsString_; }
    // A QIF input's lines after its header, and how many lines the header took.
    const std::vector<std::string_view>& inputLines() const { return fileAsLines_; }
    std::size_t skippedLines() const { return skippedLines_; }
    // The kind of input ("QIF", "QFX" or "Text"), which is also its help page's anchor.
    const std::string& inputKind() const { return controlHelpAnchor_; }
    // Whether the input is a continuation file whose stopped run is resumed.
    bool resumesRun() const { return continuationData_.has_value(); }
    // Whether the application became active since the last input: a file opened then is
    // taken even while a run is under way.
    bool justActivated() const { return justActivated_; }
    // The output file of the last run.
    const std::string& outputFile() const { return outputFilePath_; }
    // The closing message of the last run (title and text), for front ends that report it.
    const std::string& closingTitle() const { return lastTitle_; }
    const std::string& closingMessage() const { return lastMessage_; }
    // The kind of the run the input asks for (bank, card, investment...).
    int runKind() const { return gType_; }
    // Whether a run is under way; new inputs are refused meanwhile.
    bool processing() const { return processing_; }
    // --keep-duplicates: this run writes transactions converted before without asking.
    void keepDuplicates() { keepDuplicates_ = true; }
    // --use-suggestions: a transaction left as read takes the category suggested for it.
    void useSuggestions() { useSuggestions_ = true; }
    // For a front end's test: the clipboard's text as if a run had processed it.
    void rememberProcessedClipboard(std::string text) { lastProcessedClipboard_ = std::move(text); }

private:
    Intake refuse(std::string_view title, std::string_view format);
    void statusAlert(std::string_view title, std::string_view format, std::string_view argument);
    void doneWithFile();
    Intake openContinuation(const std::filesystem::path& file);
    Intake classifyResumedOutput();
    Intake classifyUndecided();
    RunEnd resume();
    Intake classifyOFX();
    Intake classifyLines();
    Intake classifyLineViews();
    Intake classifyQIF(std::size_t head);
    std::optional<Intake> enterAccount(std::size_t& head, bool resuming);
    Intake acceptQIF(std::size_t head, bool recordEnds, bool resuming);
    std::string takeQifType(std::string_view headLine);
    bool isQifHead(std::string_view line, bool recordEnds) const;
    Intake extract();
    Intake endClassification();
    bool passesRunChecks();
    void fillInTransactionPart();
    int inputTypeTag() const;
    bool checkCategories();
    bool checkAccountsForAppend();
    int accountKindFor(int gType) const;
    std::optional<std::string> chooseOutputFile(bool mainWindowVisible);
    RunEnd actuallyProcessTheTransactions();
    bool readTransactions(Date from, Date to);
    void recordRunSettings(std::optional<Date> from, std::optional<Date> to);
    RunEnd processInstructionsDidEnd(const WalkResult& result);
    RunEnd processInvestmentOFX(Date from, Date to);
    RunEnd processInvestmentText(Date from, Date to);
    RunEnd resumeInvestment();
    RunEnd saveContinuation(Dictionary record);
    WalkOptions walkOptions() const;
    // The conversion history's part of a run (ControllerHistory.cpp).
    bool startHistory();
    void attachHistory(bool detect);
    void attachSuggester();
    bool convertAllAgain();
    void recordHistory();
    std::string duplicatesLeftOutText() const;
    void showHistoryNotice();
    void keepHistoryIn(Dictionary& record) const;
    void resumeHistory(const Dictionary& data);

    Context& ctx_;
    int gType_ = kTypeBank;
    bool processing_ = false;
    Dialogs& dialogs_;
    // The run's input and what classification found in it.
    std::string fileAsString_;
    // The register's lines, pointing into fileAsString_ or linesWithoutCR_.
    std::vector<std::string_view> fileAsLines_;
    std::size_t skippedLines_ = 0;
    std::string source_;
    std::string inputFrom_;
    std::string inputPath_;
    std::optional<Dictionary> continuationData_;
    bool doingClipboard_ = false;
    bool doingExtract_ = false;
    std::string lastProcessedClipboard_;
    std::string controlHelpAnchor_;
    std::optional<std::string> account_;
    WalkWatch walkWatch_;
    bool automaticRunsLeft_ = false;
    bool justActivated_ = false;
    // The run's output.
    std::string outputFilePath_;
    std::string outputFileAsString_;
    std::string lastTitle_, lastMessage_;
    // What the investment walk left out, told after the count of what it wrote.
    std::string closingNote_;
    OutputFormats writer_;
    RunForm form_;
    ErrorWarning warning_;
    BankingCreditCardQIF reader_;
    Instructions instructions_;
    bool markAsCleared_ = false, markAsUncleared_ = false;
    std::string runOutputDate_, runOutputNumber_;
    ConversionHistory history_;
    std::optional<RunDuplicates> runDuplicates_;
    bool keepDuplicates_ = false;
    std::optional<CategorySuggester> suggester_;
    bool useSuggestions_ = false;
    // The clipboard's text as it was given, before intake trimmed or mended it.
    std::string clipboardAsGiven_;
    // The input's lines while it is classified: views, since a text statement never needs
    // them as strings, and only a QIF file keeps them (in fileAsLines).
    std::vector<std::string_view> lines_;
    std::string linesWithoutCR_;
};

} // namespace tavvel
