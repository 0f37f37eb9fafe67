// The walk over the transaction list. Each step: show an error record (skip or stop); mark
// where the transaction's output starts (so Back can take it away); choose the date; swap or
// fill in the description; capitalise; normalise the amount; then decide. A transaction whose
// input category is kept goes out as read.

#include "bank/BankTexts.h"
#include "bank/BankingCreditCardQIF.h"
#include "bank/TransactionKeys.h"
#include "context/Context.h"
#include "formats/OutputFormats.h"
#include "prefs/Settings.h"
#include "ui/RunHelpers.h"

#include <cctype>

namespace tavvel {

struct BankingCreditCardQIF::Prepared {
    std::string date;
    std::optional<std::string> description;
    std::optional<std::string> memo;
    std::optional<std::string> amount;
};

namespace {

std::optional<std::string> optionalText(const Dictionary& record, std::string_view key) {
    const Value* v = find(record, key);
    return v ? std::optional<std::string>(v->text()) : std::nullopt;
}

void setText(Dictionary& record, std::string_view key, const std::optional<std::string>& text) {
    if (text)
        record.insert_or_assign(std::string(key), Value(*text));
    else if (auto it = record.find(key); it != record.end())
        record.erase(it);
}

// First letter of every word upper case, the rest lower case ("C" locale, bytes above 127
// left alone).
std::string initialCapitals(std::string text) {
    bool wordStart = true;
    for (char& c : text) {
        auto u = static_cast<unsigned char>(c);
        bool letter = u < 128 && std::isalpha(u);
        if (letter)
            c = static_cast<char>(wordStart ? std::toupper(u) : std::tolower(u));
        wordStart = u < 128 && !std::isalnum(u) && c != '\'';
    }
    return text;
}

// Swaps only when there is a memo to swap in; the record is marked swapped either way, so a
// revisit never swaps back.
void swapDescriptionAndMemo(Dictionary& record) {
    std::string memo = textOf(record, txkey::memo);
    if (!memo.empty()) {
        std::string description = textOf(record, txkey::description);
        record.insert_or_assign(std::string(txkey::description), Value(memo));
        record.insert_or_assign(std::string(txkey::memo), Value(description));
    }
    record.insert_or_assign(std::string(txkey::AlreadySwapped), Value(true));
}

} // namespace

BankingCreditCardQIF::Prepared
BankingCreditCardQIF::prepare(Dictionary& record, std::string& output, const WalkOptions& options) {
    if (const Value* length = find(record, txkey::outputLength))
        output.resize(std::min<std::size_t>(output.size(), length->toInteger()));
    else
        record.emplace(std::string(txkey::outputLength),
                       Value(static_cast<std::int64_t>(output.size())));
    const TvPrefs& prefs = ctx_.prefs;
    bool alreadySwapped = find(record, txkey::AlreadySwapped) != nullptr;
    if (doSwap || (options.swapDescriptionAndMemo && !alreadySwapped)) {
        swapDescriptionAndMemo(record);
    } else if (textOf(record, txkey::description).empty() &&
               optionOn(prefs, option::treatMemoAsDescription) && has(record, txkey::memo)) {
        record.insert_or_assign(std::string(txkey::description),
                                Value(textOf(record, txkey::memo)));
    }
    doSwap = false;
    if (textOf(record, txkey::description).empty())
        record.insert_or_assign(std::string(txkey::description),
                                Value(optionOn(prefs, option::leaveBlankDescriptionsBlank)
                                          ? ""
                                          : std::string(text::noDescription)));
    if (optionOn(prefs, option::initialCaps)) {
        setText(record, txkey::description, initialCapitals(textOf(record, txkey::description)));
        if (has(record, txkey::memo))
            setText(record, txkey::memo, initialCapitals(textOf(record, txkey::memo)));
    }
    Prepared p;
    p.date = options.outputDate.empty() ? textOf(record, txkey::date) : options.outputDate;
    p.amount = normalizeQIFAmountIn(record);
    p.description = optionalText(record, txkey::description);
    p.memo = optionalText(record, txkey::memo);
    return p;
}

bool BankingCreditCardQIF::keepsInputCategory(const Dictionary& record) const {
    if (optionOn(ctx_.prefs, option::dontAddCategories))
        return true;
    if (optionOn(ctx_.prefs, option::useCategoriesIfPresent))
        return has(record, txkey::category) || has(record, txkey::splits);
    return false;
}

std::optional<std::string> BankingCreditCardQIF::numberFor(const Dictionary& record,
                                                           const WalkOptions& options) const {
    if (!options.outputNumber.empty())
        return options.outputNumber;
    if (extractedCheckNumber)
        return extractedCheckNumber;
    return optionalText(record, txkey::number);
}

std::optional<std::string> BankingCreditCardQIF::clearedFor(const Dictionary& record,
                                                            const WalkOptions& options) const {
    if (options.markAsCleared)
        return std::string("*");
    if (options.markAsUncleared)
        return std::string();
    return optionalText(record, txkey::cleared);
}

void BankingCreditCardQIF::outputKept(const Prepared& p, Dictionary& record, std::string& output,
                                      OutputFormats& writer, const WalkOptions& options) {
    const Value* ownSplits = find(record, txkey::splits);
    processSplits(ownSplits ? &ownSplits->array() : nullptr);
    BankOutput out{p.date,
                   p.description,
                   p.memo,
                   p.amount,
                   numberFor(record, options),
                   optionalText(record, txkey::category),
                   clearedFor(record, options),
                   splits ? &*splits : nullptr};
    writer.produceBankCCOutput(output, out);
}

WalkResult BankingCreditCardQIF::processInstructionsAndAppendToString(std::string& output,
                                                                      OutputFormats& writer,
                                                                      ErrorWarning& warning,
                                                                      Dialogs& /*dialogs*/,
                                                                      const WalkOptions& options) {
    numberOfTransactionsAppended = 0;
    extractedCheckNumber.reset();
    while (currentTransactionIndex < maxTransactionIndex) {
        Dictionary& record = qif[currentTransactionIndex];
        if (has(record, txkey::errorMessage)) {
            if (warning.warn(options.inputFormat, textOf(record, txkey::errorMessage),
                             textOf(record, txkey::errorText),
                             std::string(text::skipTransaction)) != 1)
                return {numberOfTransactionsAppended, std::nullopt};
            ++currentTransactionIndex;
            continue;
        }
        Prepared p = prepare(record, output, options);
        outputKept(p, record, output, writer, options);
        extractedCheckNumber.reset();
        ++currentTransactionIndex;
        ++numberOfTransactionsAppended;
    }
    return {numberOfTransactionsAppended, std::nullopt};
}

} // namespace tavvel
