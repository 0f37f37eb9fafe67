// Reading free text through an input format. The engine cuts the text into transactions and
// fields; per transaction, stages in order: an unreadable one is shown with "Skip Transaction";
// the record's texts from their columns; the amount from the Credit column, else the
// Debit/Credit column signed by its indicator, else the Debit column; the sign reversed by
// InvertAmount; the amount printed at the bank and credit-card precision.

#include "bank/BankTexts.h"
#include "bank/BankingCreditCardQIF.h"
#include "context/Context.h"
#include "dialogs/RunHelpers.h"
#include "formats/Extract.h"
#include "formats/ExtractKeys.h"
#include "formats/ExtractTexts.h"
#include "prefs/Settings.h"
#include "recognize/FindAmount.h"
#include "recognize/PrintAmount.h"
#include "recognize/TextRewrite.h"

#include <algorithm>

namespace tavvel {

namespace {

using Fields = std::vector<std::string>;

int amountPrecision(const TvPrefs& prefs) {
    if (!prefs.objectForKey(prefkey::bccAmountsPrecision))
        return 2;
    return static_cast<int>(
        std::clamp<std::int64_t>(prefs.integerForKey(prefkey::bccAmountsPrecision), 0, 10));
}

// The format's columns, read once for the whole statement. A position is kept as the format
// gives it; whether a transaction has that column depends on its number of fields.
struct Columns {
    explicit Columns(const Dictionary& format);

    std::int64_t date = 0; // the first field when the format names none
    std::optional<std::int64_t> check, description, memo, category, credit, debitOrCredit,
        indicator, debit;
    std::optional<std::string> debitIndicator, creditIndicator;
    bool invert = false;
};

std::optional<std::int64_t> position(const Dictionary& format, std::string_view name) {
    const Value* value = find(format, name);
    return value ? std::optional(value->toInteger()) : std::nullopt;
}

std::optional<std::string> textUnder(const Dictionary& format, std::string_view name) {
    const Value* value = find(format, name);
    return value ? std::optional(value->text()) : std::nullopt;
}

Columns::Columns(const Dictionary& format)
    : date(position(format, fmtkey::Date).value_or(0)), check(position(format, fmtkey::Check)),
      description(position(format, fmtkey::Description)), memo(position(format, fmtkey::Memo)),
      category(position(format, fmtkey::Category)), credit(position(format, fmtkey::Credit)),
      debitOrCredit(position(format, fmtkey::DebitOrCredit)),
      indicator(position(format, fmtkey::Indicator)), debit(position(format, fmtkey::Debit)),
      debitIndicator(textUnder(format, fmtkey::DebitIndicator)),
      creditIndicator(textUnder(format, fmtkey::CreditIndicator)),
      invert(has(format, fmtkey::InvertAmount)) {}

// The field of a column the transaction has: its position lies below the number of fields.
// Any other column is missing for this transaction.
const std::string* field(std::optional<std::int64_t> at, const Fields& fields) {
    if (!at || *at < 0 || static_cast<std::uint64_t>(*at) >= fields.size())
        return nullptr;
    return &fields[static_cast<std::size_t>(*at)];
}

std::optional<std::string_view> column(std::optional<std::int64_t> at, const Fields& fields) {
    const std::string* value = field(at, fields);
    return value ? std::optional<std::string_view>(*value) : std::nullopt;
}

FoundAmount readAmount(std::string_view amount) {
    return findAmount(convertEuropeanAmount(amount));
}

// A debit text found in the indicator, or a credit text missing from it, makes a debit.
std::string signedByIndicator(const std::string& amount, const Columns& columns,
                              const Fields& fields) {
    const std::string* indicator = field(columns.indicator, fields);
    if (!indicator)
        return amount;
    if (columns.debitIndicator)
        return indicator->find(*columns.debitIndicator) != std::string::npos ? "-" + amount
                                                                             : amount;
    if (columns.creditIndicator)
        return indicator->find(*columns.creditIndicator) == std::string::npos ? "-" + amount
                                                                              : amount;
    return amount;
}

// The Debit column counts only when the other columns gave exactly nothing, whichever column
// stands first; a debit is negative whether or not the bank wrote its minus.
double amountOf(const Columns& columns, const Fields& fields) {
    FoundAmount found;
    if (columns.credit) {
        if (const std::string* credit = field(columns.credit, fields))
            found = readAmount(*credit);
    } else if (const std::string* amount = field(columns.debitOrCredit, fields)) {
        found = readAmount(signedByIndicator(*amount, columns, fields));
    }
    const std::string* debit = field(columns.debit, fields);
    if (found.amount == 0 && debit) {
        std::string minus = *debit;
        if (!minus.empty() && minus.front() != '-')
            minus.insert(0, "-");
        found = readAmount(minus);
    }
    double value = found.negative ? -found.amount : found.amount;
    return columns.invert ? -value : value;
}

// The record the transaction's fields make, its texts kept in `texts`; nothing when the Date
// column lies beyond the transaction's fields. The amount is printed into `amount` first.
std::optional<TransactionRecord> recordFrom(const Fields& fields, const Columns& columns,
                                            int precision, std::string& amount, TextArena& texts) {
    std::optional<std::string_view> date = column(columns.date, fields);
    if (!date)
        return std::nullopt;
    printFixed(amount, amountOf(columns, fields), precision);
    TransactionRecord record;
    auto keep = [&](TxField f, std::optional<std::string_view> text) {
        if (text)
            record.point(f, texts.keep(*text));
    };
    keep(TxField::date, date);
    keep(TxField::number, column(columns.check, fields));
    keep(TxField::description, column(columns.description, fields));
    keep(TxField::memo, column(columns.memo, fields));
    keep(TxField::category, column(columns.category, fields));
    keep(TxField::amount, amount);
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
    start({});
    texts_.clear();
    std::vector<TransactionRecord> records;
    records.reserve(extract.transactionsAsLines.size());
    const int precision = amountPrecision(ctx_.prefs);
    const Columns columns(format);
    const std::string skip(text::skipTransaction);
    std::string amount;
    while (const Fields* fields = extract.nextTransactionUsingFormat(format, fromDate, toDate)) {
        std::optional<TransactionRecord> record =
            isEngineError(*fields) ? std::nullopt
                                   : recordFrom(*fields, columns, precision, amount, texts_);
        if (record) {
            records.push_back(std::move(*record));
            continue;
        }
        auto [message, offending] = problemOf(*fields, extract.currentTransactionText());
        if (warning.warn(&format, message, offending, skip) == 0)
            return false;
    }
    start(std::move(records));
    // Free text has a confirm-all setting of its own.
    mustConfirm_ = optionOn(ctx_.prefs, option::textConfirmAllTransactions);
    return true;
}

} // namespace tavvel
