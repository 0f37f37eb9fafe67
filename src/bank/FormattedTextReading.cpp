// Reading free text through an input format. The engine cuts the text into transactions and
// fields; per transaction, stages in order: an unreadable one is shown with "Skip Transaction";
// the record's texts from their columns; the amount from the Credit column, else the
// Debit/Credit column signed by its indicator, else the Debit column; the sign reversed by
// InvertAmount; the amount printed at the bank and credit-card precision.

#include "bank/BankTexts.h"
#include "bank/BankingCreditCardQIF.h"
#include "bank/TransactionKeys.h"
#include "context/Context.h"
#include "formats/Extract.h"
#include "formats/ExtractKeys.h"
#include "formats/ExtractTexts.h"
#include "prefs/Settings.h"
#include "recognize/FindAmount.h"
#include "recognize/TextRewrite.h"
#include "ui/RunHelpers.h"

#include <algorithm>
#include <cstdio>

namespace tavvel {

namespace {

using Fields = std::vector<std::string>;

int amountPrecision(const TvPrefs& prefs) {
    if (!prefs.objectForKey(prefkey::bccAmountsPrecision))
        return 2;
    return static_cast<int>(
        std::clamp<std::int64_t>(prefs.integerForKey(prefkey::bccAmountsPrecision), 0, 10));
}

// A column the transaction has: the format names it, and its position is below the number of
// fields. Any other column is missing for this transaction.
std::optional<std::size_t> column(const Dictionary& format, std::string_view name,
                                  const Fields& fields) {
    const Value* position = find(format, name);
    if (!position)
        return std::nullopt;
    const std::int64_t at = position->toInteger();
    if (at < 0 || static_cast<std::uint64_t>(at) >= fields.size())
        return std::nullopt;
    return static_cast<std::size_t>(at);
}

void addColumn(Dictionary& record, std::string_view key, const Dictionary& format,
               std::string_view name, const Fields& fields) {
    if (std::optional<std::size_t> at = column(format, name, fields))
        record.insert_or_assign(std::string(key), Value(fields[*at]));
}

FoundAmount readAmount(std::string_view text) {
    return findAmount(convertEuropeanAmount(text));
}

// A debit text found in the indicator, or a credit text missing from it, makes a debit.
std::string signedByIndicator(const std::string& amount, const Dictionary& format,
                              const Fields& fields) {
    std::optional<std::size_t> at = column(format, fmtkey::Indicator, fields);
    if (!has(format, fmtkey::Indicator) || !at)
        return amount;
    const std::string& indicator = fields[*at];
    if (const Value* debit = find(format, fmtkey::DebitIndicator))
        return indicator.find(debit->text()) != std::string::npos ? "-" + amount : amount;
    if (const Value* credit = find(format, fmtkey::CreditIndicator))
        return indicator.find(credit->text()) == std::string::npos ? "-" + amount : amount;
    return amount;
}

// The Debit column counts only when the other columns gave exactly nothing, whichever column
// stands first; a debit is negative whether or not the bank wrote its minus.
double amountOf(const Dictionary& format, const Fields& fields) {
    FoundAmount found;
    if (has(format, fmtkey::Credit)) {
        if (std::optional<std::size_t> at = column(format, fmtkey::Credit, fields))
            found = readAmount(fields[*at]);
    } else if (std::optional<std::size_t> at = column(format, fmtkey::DebitOrCredit, fields)) {
        found = readAmount(signedByIndicator(fields[*at], format, fields));
    }
    std::optional<std::size_t> debit = column(format, fmtkey::Debit, fields);
    if (found.amount == 0 && debit) {
        std::string text = fields[*debit];
        if (!text.empty() && text.front() != '-')
            text.insert(0, "-");
        found = readAmount(text);
    }
    double value = found.negative ? -found.amount : found.amount;
    return has(format, fmtkey::InvertAmount) ? -value : value;
}

std::string printedAmount(double value, int precision) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*f", precision, value);
    return buffer;
}

// Nothing when the Date column lies beyond the transaction's fields.
std::optional<Dictionary> recordFrom(const Fields& fields, const Dictionary& format,
                                     int precision) {
    std::optional<std::size_t> date = column(format, fmtkey::Date, fields);
    if (!has(format, fmtkey::Date) && !fields.empty())
        date = 0;
    if (!date)
        return std::nullopt;
    Dictionary record{{std::string(txkey::date), Value(fields[*date])}};
    addColumn(record, txkey::number, format, fmtkey::Check, fields);
    addColumn(record, txkey::description, format, fmtkey::Description, fields);
    addColumn(record, txkey::memo, format, fmtkey::Memo, fields);
    addColumn(record, txkey::category, format, fmtkey::Category, fields);
    record.emplace(std::string(txkey::amount),
                   Value(printedAmount(amountOf(format, fields), precision)));
    return record;
}

bool isEngineError(const Fields& fields) {
    return !fields.empty() && fields[0] == text::extractError;
}

std::string fieldOr(const Fields& fields, std::size_t i) {
    return i < fields.size() ? fields[i] : std::string();
}

// What the warning shows for a transaction that gives no record: the engine's message and
// text, or, for a Date column beyond the fields, what the engine says of a transaction
// without a readable date.
std::pair<std::string, std::string> problemOf(const Fields& fields, std::string_view transaction) {
    if (isEngineError(fields))
        return {fieldOr(fields, 1), fieldOr(fields, 2)};
    return {std::string(text::noReadableDate), std::string(transaction)};
}

} // namespace

bool BankingCreditCardQIF::fromFormattedText(std::string_view text, const Dictionary& format,
                                             Date fromDate, Date toDate, ErrorWarning& warning) {
    Extract extract(ctx_);
    if (!extract.parseTransactionsForCString(text, format))
        return false;
    warning.reset();
    startReading();
    // Free text has a confirm-all setting of its own.
    mustConfirm = optionOn(ctx_.prefs, option::textConfirmAllTransactions);
    const int precision = amountPrecision(ctx_.prefs);
    const std::string skip(text::skipTransaction);
    while (const Fields* fields = extract.nextTransactionUsingFormat(format, fromDate, toDate)) {
        std::optional<Dictionary> record =
            isEngineError(*fields) ? std::nullopt : recordFrom(*fields, format, precision);
        if (record) {
            qif.push_back(std::move(*record));
            continue;
        }
        auto [message, offending] = problemOf(*fields, extract.currentTransactionText());
        if (warning.warn(&format, message, offending, skip) == 0)
            return false;
    }
    finishReading();
    return true;
}

} // namespace tavvel
