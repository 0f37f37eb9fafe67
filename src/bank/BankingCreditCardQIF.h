#pragma once
// The bank and credit-card reader: turns QIF lines, OFX text or formatted text into the list
// of transaction records (`qif`) that the instruction engine walks, and prepares amounts and
// splits for output.

#include "prefs/Value.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class Context;

class BankingCreditCardQIF {
public:
    explicit BankingCreditCardQIF(Context& ctx) : ctx_(ctx) {}

    // fromOFX:fromDate:toDate: — reads every <STMTTRN> piece; unreadable transactions become
    // error records in their place. Both range ends are inclusive.
    void fromOFX(std::string_view text, Date fromDate, Date toDate);

    // addField:ofxLabel:fromOFXTransaction:toQIFTransaction: — stores the tag's value under
    // the key; false (record unchanged) when the tag is not in the piece.
    static bool addField(std::string_view key, std::string_view ofxLabel,
                         std::string_view transaction, Dictionary& record);

    // normalizeQIFAmountIn: — the amount made ready for output (configured characters
    // removed, European separators, parentheses and trailing minus turned into a leading
    // minus, signs reversed by the QIF input type). Marks the record so a second call changes
    // nothing. Nothing when the record has no amount.
    std::optional<std::string> normalizeQIFAmountIn(Dictionary& record) const;

    // processSplits: — rebuilds `splits` for output from the current transaction's splits.
    void processSplits(const Array* transactionSplits);

    // The tag of the QIF input-type choice of the run (see QifInputTypes.h).
    int qifInputTypeTag = 0;

    std::vector<Dictionary> qif;
    std::size_t currentTransactionIndex = 0;
    std::size_t maxTransactionIndex = 0;
    bool mustConfirm = false;
    bool doingInvestmentBankingTransaction = false;
    std::optional<Array> splits;
    bool splitsOK = true;

private:
    void startReading();
    void finishReading();
    std::optional<Dictionary> readOFXTransaction(std::string_view piece, std::string_view text,
                                                 Date fromDate, Date toDate) const;

    Context& ctx_;
};

} // namespace tavvel
