#pragma once
// The bank and credit-card walk: takes the records a reader made of QIF lines, OFX text or
// formatted text (StatementReaders.h), walks them through the instructions and the forms, and
// prepares amounts and splits for output.

#include "bank/TextArena.h"
#include "bank/TransactionRecord.h"
#include "forms/ConfirmForm.h"
#include "forms/NewInstructionForm.h"
#include "prefs/Value.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace tavvel {

struct BankOutput;
class Context;
class Dialogs;
class ErrorWarning;
class Instructions;
class OutputFormats;
class RunDuplicates;
class CategorySuggester;
struct TransactionKey;

// Who watches a long walk from outside: told how far it got, and able to stop it, which ends it
// as the cancel question's Stop Now does, with nothing output.
struct WalkWatch {
    std::stop_token stop;
    std::function<void(std::size_t done, std::size_t total)> progress;
};

// What the run hands the walk (the run form's choices for this run).
struct WalkOptions {
    std::string outputDate;   // a fixed date for every transaction, or ""
    std::string outputNumber; // a fixed number for every transaction, or ""
    bool markAsCleared = false;
    bool markAsUncleared = false;
    bool swapDescriptionAndMemo = false;     // the input-type choice asks for it
    const Dictionary* inputFormat = nullptr; // for text input: error warnings may be silenced
    WalkWatch watch;
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

    // The run's choices that reading and the walk go by.
    // The account whose statements fromOFX reads, when the file holds several: the others'
    // transactions are left out, never merged in.
    void setOfxAccount(std::optional<std::string> account) { ofxAccount_ = std::move(account); }
    // The order of a QIF file's dates, when the run decided it (chooseQifDateOrder).
    void setDayFirstDates(std::optional<bool> dayFirst) { dayFirstDates_ = dayFirst; }
    // The tag of the QIF input-type choice of the run (see QifInputTypes.h).
    void setQifInputType(int tag) { qifInputTypeTag_ = tag; }

    // The readers below keep records that point into the text they are given: it must stay
    // unchanged until the walk is over.

    // fromQIFLines:fromDate:toDate: — 0 on success, otherwise the 1-based number of the line
    // whose date could not be read, or is no real day (records read before it are kept).
    // The dates are read day first when setDayFirstDates says so; unset, in the order the
    // file shows, else as the option europeanDates says.
    std::size_t fromQIFLines(std::span<const std::string_view> lines, Date fromDate, Date toDate);
    std::size_t fromQIFLines(const std::vector<std::string>& lines, Date fromDate, Date toDate);

    // fromOFX:fromDate:toDate: — reads every <STMTTRN> piece; unreadable transactions become
    // error records in their place. Both range ends are inclusive.
    void fromOFX(std::string_view text, Date fromDate, Date toDate);

    // fromFormattedText:usingFormat:fromDate:toDate: — false when the format finds no
    // transaction or the user declines to skip one it cannot read.
    bool fromFormattedText(std::string_view text, const Dictionary& format, Date fromDate,
                           Date toDate, ErrorWarning& warning);

    // Records read elsewhere, the walk to start at `position`.
    void start(std::vector<TransactionRecord> records, std::size_t position = 0);
    // Takes the walk back to an earlier transaction, as Back does.
    void rewindTo(std::size_t position);

    const std::vector<TransactionRecord>& records() const { return records_; }
    std::size_t currentTransactionIndex() const { return current_; }
    // Whether every transaction is confirmed (the input kind's confirm-all option).
    bool mustConfirm() const { return mustConfirm_; }
    // The current transaction's splits as made ready for output.
    const std::optional<Array>& splits() const { return splits_; }

    // normalizeQIFAmountIn: — a split's amount made ready for output (configured characters
    // removed, European separators, parentheses and trailing minus turned into a leading
    // minus, signs reversed by the QIF input type). Marks the split so a second call changes
    // nothing. Nothing when it has no amount.
    std::optional<std::string> normalizeQIFAmountIn(Dictionary& split);
    // A record's stored amount as the walk would write it, the record left as it is.
    std::string normalizedAmount(std::string_view stored) const;

    // processSplits: — rebuilds the splits for output from the current transaction's splits.
    void processSplits(const Array* transactionSplits);

    // processInstructionsAndAppendToString:didEndDelegate:didEndSelector: — walks the records
    // from the current one, appending each finished transaction to `output`.
    WalkResult processInstructionsAndAppendToString(std::string& output, OutputFormats& writer,
                                                    ErrorWarning& warning, Dialogs& dialogs,
                                                    Instructions& instructions,
                                                    const WalkOptions& options);

    // continueWith:appendToString:didEndDelegate:didEndSelector: — resumes a walk stopped with
    // "finish later": the list, position, count and output so far come from the record.
    WalkResult continueWith(const Dictionary& data, std::string& output, OutputFormats& writer,
                            ErrorWarning& warning, Dialogs& dialogs, Instructions& instructions,
                            const WalkOptions& options);

    // The run's duplicates (none when the history is off): markDuplicates marks every record
    // read, before the walk; the walk asks before writing one and reports what it wrote.
    RunDuplicates* duplicates = nullptr;
    void markDuplicates();
    // Suggests categories in the new-instruction form (none: no suggestions).
    CategorySuggester* suggester = nullptr;
    TransactionKey historyKeyAt(std::size_t i) const;
    TransactionKey historyKeyOf(const TransactionRecord& record) const;

private:
    // The walk's own state.
    std::optional<std::string> ofxAccount_;
    std::optional<bool> dayFirstDates_;
    int qifInputTypeTag_ = 0;
    std::vector<TransactionRecord> records_;
    TextArena texts_; // what records of free text point into
    std::size_t current_ = 0;
    bool mustConfirm_ = false;
    std::optional<Array> splits_;
    bool cancelReturnsToConfirm = false;
    bool splitInstructionConfirm = false;
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
    bool leavesOutDuplicate(Walk& walk, const TransactionRecord& record);
    void noteWalked(const Walk& walk, bool written);
    void suggestInto(NewInstructionForm::Setup& setup) const;
    void takeSuggestion(const Walk& walk, const NewInstructionForm& form,
                        TransactionRecord& record);
    WalkResult walkOn(Walk& walk);
    Prepared prepare(TransactionRecord& record, std::string& output, const WalkOptions& options);
    bool keepsInputCategory(const TransactionRecord& record) const;
    void outputKept(const Prepared& p, TransactionRecord& record, std::string& output,
                    OutputFormats& writer, const WalkOptions& options);
    Step decide(Walk& walk, Prepared& p, TransactionRecord& record);
    std::string descriptionToMatch(const Prepared& p) const;
    std::optional<Dictionary> matchDescription(const Walk& walk, const std::string& text,
                                               const std::string& memo) const;
    Step followInstruction(Walk& walk, Prepared& p, TransactionRecord& record);
    Step confirm(Walk& walk, Prepared& p, TransactionRecord& record);
    ConfirmForm::Setup confirmSetup(const Walk& walk, const Prepared& p,
                                    const TransactionRecord& record) const;
    bool writeAccepted(Walk& walk, const TransactionRecord& record, const BankOutput& out);
    Step confirmed(Walk& walk, Prepared& p, TransactionRecord& record, ConfirmForm& form);
    Step newInstruction(Walk& walk, Prepared& p, TransactionRecord& record,
                        std::optional<std::string> prompt, std::string matched, bool addAmountOnly);
    Step cancelled(Walk& walk);
    Step back();
    void outputWithInstruction(Walk& walk, const Prepared& p, TransactionRecord& record);
    std::string categoryFor(const TransactionRecord& record, const std::string& ruleCategory) const;
    // The category the confirmation form starts with.
    std::string formCategory(const TransactionRecord& record) const;
    Dictionary continuation(const std::string& output);
    // The record's amount made ready for output, once: the record is marked.
    std::optional<std::string> amountFor(TransactionRecord& record);
    void rememberDescription(const Walk& walk, std::string_view description);
    void addDescriptionsMet();

    Dictionary instruction_;
    std::optional<Dictionary> amountInstruction_;
    bool redisplayConfirm_ = false;
    std::optional<std::string> formMemo_; // the new-instruction form's memo, while its switch is on
    std::optional<std::string> numberFor(const TransactionRecord& record,
                                         const WalkOptions& options) const;
    std::optional<std::string> clearedFor(const TransactionRecord& record,
                                          const WalkOptions& options) const;

    // Descriptions a walk without forms met, first occurrences in order, until it ends.
    std::vector<std::string> descriptionsMet_;
    std::unordered_set<std::string, TextHash, SameText> descriptionsSeen_;
    Context& ctx_;
};

} // namespace tavvel
