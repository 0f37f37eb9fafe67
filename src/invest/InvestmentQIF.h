#pragma once
// InvestmentQIF: the investment engine. A statement's transactions are read into `qif`, then
// walked one by one: the statement's type is resolved to an action through the input format's
// type mappings, the security through the security list and the format's security mappings,
// the missing one of amount, price and shares is derived, the required fields are checked,
// and the transaction is written as QIF (`!Type:Invst`) or in the user's delimited layout.
// Where a lookup fails the user is asked, and the answer is learned into the input format.
// Confirming, the user may go back one transaction (its lines are taken back), or cancel:
// stop with nothing written, or finish later with a continuation record.

#include "invest/InvestmentOfx.h"
#include "invest/InvestmentRecord.h"
#include "invest/QuickenTypes.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavvel {

class Context;
class Dialogs;
class OutputFormats;

struct InvestmentWalkOptions {
    std::string outputDate;   // a fixed date for every transaction, or ""
    std::string outputNumber; // a fixed check number, or ""
    bool markAsCleared = false;
};

struct InvestmentWalkResult {
    std::size_t appended = 0;
    // Transactions left out because no action is defined for their type, and those types.
    std::size_t unknownTypeCount = 0;
    std::vector<std::string> unknownTypes;
    // Transactions left out because they cannot be written (a field missing or bad).
    std::size_t unwritable = 0;
    // Set when the user chose to finish later: what a later run resumes from.
    std::optional<Dictionary> continuation;
};

// displayAmounts: the missing one of amount, price and shares derived from the other two, and
// the fees as the statement states them or, failing that, what the amount holds beyond price
// times shares.
void deriveAmounts(InvestmentRecord& record, double& fees);

// What the closing message adds about the transactions left out; "" when none were.
std::string closingNote(const InvestmentWalkResult& walked);

class InvestmentQIF {
public:
    InvestmentQIF(Context& ctx, Dialogs& dialogs, OutputFormats& writer);

    void fromOFX(std::string_view text, const InvestmentOfxRead& read);
    // fromFormattedText:usingFormat:fromDate:toDate: — false when the engine cannot read the
    // text with the format, or the user cancelled at a transaction it could not read.
    bool fromFormattedText(std::string_view text, const Dictionary& format, Date fromDate,
                           Date toDate);

    // processInstructionsAndAppendToString: — walks `qif` and appends what is written; what is
    // learned goes into the format, which is saved as it changes.
    InvestmentWalkResult processInstructionsAndAppendToString(std::string& output,
                                                              Dictionary& format,
                                                              const InvestmentWalkOptions& options);
    // continueWith: — resumes a walk stopped to finish later, at the transaction it showed,
    // with the output it had; the record was checked (resumableInvestmentContinuation).
    InvestmentWalkResult continueWith(const Dictionary& data, std::string& output,
                                      Dictionary& format, const InvestmentWalkOptions& options);

    std::vector<InvestmentRecord> qif;

    struct Working;

private:
    enum class Step { write, skip, skipRemaining, back, cancel };

    InvestmentWalkResult walkFrom(std::size_t index);
    bool goBack();
    bool cancelled();
    Step walkOne(const InvestmentRecord& record);
    std::optional<std::int64_t> resolveType(Working& working);
    std::optional<std::int64_t> askType(const Working& working);
    bool confirmAlwaysSkip(const std::string& type);
    bool resolveSecurity(Working& working);
    std::string missingField(const Working& working) const;
    Step showMissing(const std::string& field);
    Step confirm(const Working& working);
    void write(const Working& working);
    void writeQIF(const Working& working);
    void writeCashQIF(const Working& working);
    void writeDelimited(const Working& working);

    Context& ctx_;
    Dialogs& dialogs_;
    OutputFormats& writer_;
    std::vector<QuickenType> types_;
    // The walk's own state, for one call of processInstructionsAndAppendToString.
    std::string* output_ = nullptr;
    Dictionary* format_ = nullptr;
    InvestmentWalkOptions options_;
    InvestmentWalkResult result_;
    std::size_t index_ = 0;
    std::size_t resumedAt_ = 0; // the first transaction this session walks
    // Where each transaction's lines begin in the output, for those written in this session.
    std::vector<std::optional<std::size_t>> outputLength_;
};

} // namespace tavvel
