// Handing out transactions. Stages, per transaction: passed over when empty; cut into fields
// (an OFX-like one into its date and the rest); the date field read and checked against the
// range; the date field rewritten in the run's long output date format.

#include "context/Context.h"
#include "formats/Extract.h"
#include "formats/ExtractFieldCut.h"
#include "formats/ExtractKeys.h"
#include "formats/ExtractTexts.h"
#include "recognize/CalendarDate.h"
#include "recognize/InputFormatKeys.h"
#include "recognize/ParseDate.h"

namespace tavvel {

namespace {

constexpr std::size_t kOfxDateLength = 8;

std::int64_t dateIndex(const Dictionary& format) {
    const Value* index = find(format, fmtkey::Date);
    return index ? index->toInteger() : 0;
}

std::string invalidSeparatedMessage(std::string_view layout) {
    std::string message(text::invalidSeparatedField);
    message.replace(message.find("%@"), 2, layout);
    return message;
}

} // namespace

const std::vector<std::string>* Extract::nextTransactionUsingFormat(const Dictionary& format,
                                                                    Date fromDate, Date toDate) {
    for (auto i = static_cast<std::size_t>(transactionIndex + 1); i < transactionsAsLines.size();
         ++i) {
        const std::string_view transaction = transactionsAsLines[i];
        if (i == outputLength.size())
            outputLength.push_back(transaction.empty() ? -1 : 0);
        if (transaction.empty())
            continue;
        if (readTransaction(transaction, format, fromDate, toDate) == Read::outOfRange)
            continue;
        transactionIndex = static_cast<std::int64_t>(i);
        return &transactionAsFields;
    }
    return nullptr;
}

Extract::Read Extract::readTransaction(std::string_view transaction, const Dictionary& format,
                                       Date fromDate, Date toDate) {
    transactionAsFields.clear();
    if (has(format, fmtkey::OFX)) {
        transactionAsFields.emplace_back(transaction.substr(0, kOfxDateLength));
        transactionAsFields.emplace_back(
            transaction.substr(std::min(kOfxDateLength, transaction.size())));
    } else if (!cutIntoFields(transaction, format)) {
        return Read::handedOut;
    }
    Date date;
    if (!readDate(format, date)) {
        handOutError(std::string(text::noReadableDate), transaction);
        return Read::handedOut;
    }
    if (date < fromDate || date > toDate)
        return Read::outOfRange;
    transactionAsFields[static_cast<std::size_t>(dateIndex(format))] = writtenDate(date);
    return Read::handedOut;
}

// False when a field cannot be read: the error is then what is handed out.
bool Extract::cutIntoFields(std::string_view transaction, const Dictionary& format) {
    work_.assign(transaction);
    const extract::FieldCutter cutter(format, ctx_.blanks);
    std::size_t pos = 0;
    do {
        const extract::Cut cut = cutter.cut(work_, pos);
        if (cut.status == extract::CutStatus::unclosedQuote) {
            handOutError(invalidSeparatedMessage(cutter.layout()), transaction);
            return false;
        }
        if (cut.status == extract::CutStatus::endsBeforeStart) {
            handOutError(std::string(text::fieldEndsBeforeStart), transaction);
            return false;
        }
        transactionAsFields.push_back(extract::fieldText(work_, cut));
        pos = cut.next;
    } while (pos < work_.size());
    return true;
}

// Numbers the date leaves out stay 1, as the reading always started.
bool Extract::readDate(const Dictionary& format, Date& date) const {
    const std::int64_t k = dateIndex(format);
    if (k < 0 || static_cast<std::uint64_t>(k) >= transactionAsFields.size())
        return false;
    std::int64_t month = 1, day = 1, year = 1;
    if (!parseDate(transactionAsFields[static_cast<std::size_t>(k)], format, month, day, year,
                   ctx_.config, ctx_.clock))
        return false;
    date = ctx_.gTvDate.dateWithYear(year, month, day);
    return true;
}

// Neighbouring transactions mostly share their date: the last one written is kept.
const std::string& Extract::writtenDate(Date date) {
    const std::string pattern = ctx_.output.longDatePattern();
    if (date != writtenDateOf_ || pattern != writtenDatePattern_ || writtenDate_.empty()) {
        writtenDate_ = formatDate(date, pattern);
        writtenDateOf_ = date;
        writtenDatePattern_ = pattern;
    }
    return writtenDate_;
}

void Extract::handOutError(std::string message, std::string_view transaction) {
    transactionAsFields.assign(
        {std::string(text::extractError), std::move(message), std::string(transaction)});
}

} // namespace tavvel
