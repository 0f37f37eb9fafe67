#pragma once
// The bank and credit-card reader: turns QIF lines, OFX text or formatted text into the list
// of transaction records (`qif`) that the instruction engine walks, and prepares amounts and
// splits for output.

#include "bank/PendingRecords.h"
#include "forms/ConfirmForm.h"
#include "forms/NewInstructionForm.h"
#include "prefs/Value.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace tavvel {

struct BankOutput;
class Context;
class Dialogs;
class ErrorWarning;
enum class OfxNumbering;
class Instructions;
class OutputFormats;
class RunDuplicates;
class CategorySuggester;
struct TransactionKey;

// What the run hands the walk (the run form's choices for this run).
struct WalkOptions {
    std::string outputDate;   // a fixed date for every transaction, or ""
    std::string outputNumber; // a fixed number for every transaction, or ""
    bool markAsCleared = false;
    bool markAsUncleared = false;
    bool swapDescriptionAndMemo = false;     // the input-type choice asks for it
    const Dictionary* inputFormat = nullptr; // for text input: error warnings may be silenced
    // A transaction left as read by a run that never asks takes the suggested category.
    bool writeSuggestions = false;
};

// How a walk ended: the number of transactions appended, and the continuation record when the
// user chose to finish later.
struct WalkResult {
    std::size_t appended = 0;
    std::optional<Dictionary> continuation;
};

class BankingCreditCardQIF {
public:
    explicit BankingCreditCardQIF(Context& ctx) : ctx_(ctx) {}

    // fromQIFLines:fromDate:toDate: — 0 on success, otherwise the 1-based number of the line
    // whose date could not be read, or is no real day (records read before it stay in `qif`).
    // The dates are read day first when dayFirstDates says so; unset, in the order the file
    // shows, else as the option europeanDates says.
    std::size_t fromQIFLines(const std::vector<std::string>& lines, Date fromDate, Date toDate);

    // fromOFX:fromDate:toDate: — reads every <STMTTRN> piece; unreadable transactions become
    // error records in their place. Both range ends are inclusive.
    void fromOFX(std::string_view text, Date fromDate, Date toDate);

    // fromFormattedText:usingFormat:fromDate:toDate: — false when the format finds no
    // transaction or the user declines to skip one it cannot read.
    bool fromFormattedText(std::string_view text, const Dictionary& format, Date fromDate,
                           Date toDate, ErrorWarning& warning);

    // addField:ofxLabel:fromOFXTransaction:toQIFTransaction: — stores the tag's value under
    // the key, its entities decoded (numeric ones as UTF-8 when `utf8`) or its CDATA as it
    // stands; false (record unchanged) when the tag is not in the piece.
    static bool addField(std::string_view key, std::string_view ofxLabel,
                         std::string_view transaction, Dictionary& record, bool utf8 = false);

    // normalizeQIFAmountIn: — the amount made ready for output (configured characters
    // removed, European separators, parentheses and trailing minus turned into a leading
    // minus, signs reversed by the QIF input type). Marks the record so a second call changes
    // nothing. Nothing when the record has no amount.
    std::optional<std::string> normalizeQIFAmountIn(Dictionary& record);

    // processSplits: — rebuilds `splits` for output from the current transaction's splits.
    void processSplits(const Array* transactionSplits);

    // processInstructionsAndAppendToString:didEndDelegate:didEndSelector: — walks the records
    // from currentTransactionIndex, appending each finished transaction to `output`.
    WalkResult processInstructionsAndAppendToString(std::string& output, OutputFormats& writer,
                                                    ErrorWarning& warning, Dialogs& dialogs,
                                                    Instructions& instructions,
                                                    const WalkOptions& options);

    // continueWith:appendToString:didEndDelegate:didEndSelector: — resumes a walk stopped with
    // "finish later": the list, position, count and output so far come from the record.
    WalkResult continueWith(const Dictionary& data, std::string& output, OutputFormats& writer,
                            ErrorWarning& warning, Dialogs& dialogs, Instructions& instructions,
                            const WalkOptions& options);

    // The account whose statements fromOFX reads, when the file holds several: the others'
    // transactions are left out, never merged in.
    std::optional<std::string> ofxAccount;

    // The order of a QIF file's dates, when the run decided it (chooseQifDateOrder).
    std::optional<bool> dayFirstDates;

    // The tag of the QIF input-type choice of the run (see QifInputTypes.h).
    int qifInputTypeTag = 0;

    // The run's duplicates (none when the history is off): markDuplicates marks every record
    // read, before the walk; the walk asks before writing one and reports what it wrote.
    RunDuplicates* duplicates = nullptr;
    void markDuplicates();
    // Suggests categories in the new-instruction form (none: no suggestions).
    CategorySuggester* suggester = nullptr;
    TransactionKey historyKeyAt(std::size_t i);
    TransactionKey historyKeyOf(const Dictionary& record);

    std::vector<Dictionary> qif;
    // Text statements: a record is made when the walk reaches it (or the walk is left for
    // later); until then its place in `qif` is empty. Off, every record is made while reading.
    bool recordsOnDemand = false;
    std::size_t currentTransactionIndex = 0;
    std::size_t maxTransactionIndex = 0;
    bool mustConfirm = false;
    std::optional<Array> splits;
    bool cancelReturnsToConfirm = false;
    bool splitInstructionConfirm = false;

private:
    // The walk's own state.
    bool doingInvestmentBankingTransaction = false;
    bool splitsOK = true;
    std::size_t numberOfTransactionsAppended = 0;
    // One-shot request to swap description and memo of the current transaction.
    bool doSwap = false;
    std::optional<std::string> extractedCheckNumber;
    // The description typed in the confirmation form, which instructions are matched against
    // while `updateCategoryWhenDescriptionChanged` is on.
    std::string changedDescription;

    struct Prepared; // the current transaction made ready: steps before the decision
    struct Walk;     // what one walk works with
    enum class Step { advanced, skipped, rerun, back, stop, stopNow, finishLater };
    Step step(Walk& walk);
    bool leavesOutDuplicate(Walk& walk, const Dictionary& record);
    void noteWalked(const Walk& walk, bool written);
    void suggestInto(NewInstructionForm::Setup& setup) const;
    void takeSuggestion(const Walk& walk, const NewInstructionForm& form, Dictionary& record);
    WalkResult walkOn(Walk& walk);
    Prepared prepare(Dictionary& record, std::string& output, const WalkOptions& options);
    bool keepsInputCategory(const Dictionary& record) const;
    void outputKept(const Prepared& p, Dictionary& record, std::string& output,
                    OutputFormats& writer, const WalkOptions& options);
    Step decide(Walk& walk, Prepared& p, Dictionary& record);
    std::string descriptionToMatch(const Prepared& p) const;
    std::optional<Dictionary> matchDescription(const Walk& walk, const std::string& text,
                                               const std::string& memo) const;
    Step followInstruction(Walk& walk, Prepared& p, Dictionary& record);
    Step confirm(Walk& walk, Prepared& p, Dictionary& record);
    ConfirmForm::Setup confirmSetup(const Walk& walk, const Prepared& p,
                                    const Dictionary& record) const;
    bool writeAccepted(Walk& walk, const Dictionary& record, const BankOutput& out);
    Step confirmed(Walk& walk, Prepared& p, Dictionary& record, ConfirmForm& form);
    Step newInstruction(Walk& walk, Prepared& p, Dictionary& record,
                        std::optional<std::string> prompt, std::string matched, bool addAmountOnly);
    Step cancelled(Walk& walk);
    Step back();
    void outputWithInstruction(Walk& walk, const Prepared& p, Dictionary& record);
    std::string categoryFor(const Dictionary& record, const std::string& ruleCategory) const;
    // The category the confirmation form starts with.
    std::string formCategory(const Dictionary& record) const;
    Dictionary continuation(const std::string& output);
    void addRecord(const PendingRecords::Texts& texts);
    Dictionary& transactionAt(std::size_t i);
    void letGo(std::size_t i, const Walk& walk);
    void rememberDescription(const Walk& walk, std::string_view description);
    void addDescriptionsMet();

    Dictionary instruction_;
    std::optional<Dictionary> amountInstruction_;
    bool redisplayConfirm_ = false;
    std::optional<std::string> formMemo_; // the new-instruction form's memo, while its switch is on
    std::optional<std::string> numberFor(const Dictionary& record,
                                         const WalkOptions& options) const;
    std::optional<std::string> clearedFor(const Dictionary& record,
                                          const WalkOptions& options) const;

    void startReading();
    void finishReading();
    std::optional<Dictionary> readOFXTransaction(std::string_view piece, OfxNumbering numbering,
                                                 bool utf8, Date fromDate, Date toDate) const;

    PendingRecords pending_;
    // Descriptions a walk without forms met, first occurrences in order, until it ends.
    std::vector<std::string> descriptionsMet_;
    std::unordered_set<std::string, TextHash, SameText> descriptionsSeen_;
    Context& ctx_;
};

} // namespace tavvel
