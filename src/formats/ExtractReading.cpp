// Handing out transactions. Stages, per transaction: passed over when empty; cut into fields
// (an OFX-like one into its date and the rest); the date field read and checked against the
// range; the date field rewritten in the run's long output date format.

#include "context/Context.h"
#include "dialogs/MessageFormat.h"
#include "formats/Extract.h"
#include "formats/ExtractRun.h"
#include "formats/ExtractTexts.h"

namespace tavvel {

namespace {

constexpr std::size_t kOfxDateLength = 8;

} // namespace

extract::RunFormat& Extract::runFormat(const Dictionary& format) {
    if (!run_ || runFor_ != &format) {
        run_ = std::make_unique<extract::RunFormat>(format, ctx_);
        runFor_ = &format;
    }
    return *run_;
}

const std::vector<std::string>* Extract::nextTransactionUsingFormat(const Dictionary& format,
                                                                    Date fromDate, Date toDate) {
    extract::RunFormat& run = runFormat(format);
    for (auto i = static_cast<std::size_t>(transactionIndex + 1); i < transactionsAsLines.size();
         ++i) {
        const std::string_view transaction = transactionsAsLines[i];
        if (i == outputLength.size())
            outputLength.push_back(transaction.empty() ? -1 : 0);
        if (transaction.empty())
            continue;
        if (readTransaction(transaction, run, fromDate, toDate) == Read::outOfRange)
            continue;
        transactionIndex = static_cast<std::int64_t>(i);
        return &transactionAsFields;
    }
    return nullptr;
}

Extract::Read Extract::readTransaction(std::string_view transaction, extract::RunFormat& run,
                                       Date fromDate, Date toDate) {
    transactionAsFields.clear();
    if (run.ofxLike) {
        transactionAsFields.emplace_back(transaction.substr(0, kOfxDateLength));
        transactionAsFields.emplace_back(
            transaction.substr(std::min(kOfxDateLength, transaction.size())));
    } else if (!cutIntoFields(transaction, run)) {
        return Read::handedOut;
    }
    const std::int64_t k = run.dateIndex;
    std::optional<Date> date;
    if (k >= 0 && static_cast<std::uint64_t>(k) < transactionAsFields.size())
        date = run.dates.read(transactionAsFields[static_cast<std::size_t>(k)]);
    if (!date) {
        handOutError(std::string(text::noReadableDate), transaction);
        return Read::handedOut;
    }
    if (*date < fromDate || *date > toDate)
        return Read::outOfRange;
    transactionAsFields[static_cast<std::size_t>(k)] = run.dates.written(*date);
    return Read::handedOut;
}

// False when a field cannot be read: the error is then what is handed out.
bool Extract::cutIntoFields(std::string_view transaction, const extract::RunFormat& run) {
    const std::string_view fields = run.cutter.withoutRecordEnd(transaction);
    work_.assign(fields);
    // A transaction of one line, the usual kind, has no line ends to turn into blanks.
    const bool lineEnds =
        fields.find('\n') != std::string_view::npos || fields.find('\r') != std::string_view::npos;
    std::size_t pos = 0;
    do {
        const extract::Cut cut = run.cutter.cut(work_, pos, lineEnds);
        if (cut.status == extract::CutStatus::unclosedQuote) {
            handOutError(formatMessage(text::invalidSeparatedField, run.cutter.layout()),
                         transaction);
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

void Extract::handOutError(std::string message, std::string_view transaction) {
    transactionAsFields.assign(
        {std::string(text::extractError), std::move(message), std::string(transaction)});
}

} // namespace tavvel
