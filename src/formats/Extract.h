#pragma once
// The input-format engine: cuts a free-text statement into transactions by where its dates
// stand, cuts each transaction into fields by the format's layout, and hands the transactions
// out one at a time with their date read and rewritten in the run's long output date format.
// It also builds the learning dialogue's preview table of every transaction's fields.
//
// A transaction it cannot read is handed out as three fields: "ERROR", a message and the
// transaction's whole text; the next call goes on with the transaction after it.

#include "prefs/Value.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class Context;
struct WordMonthDates;
namespace extract {
struct RunFormat;
}

// The learning dialogue's layout choices (its layout pop-up and two switches).
struct LayoutChoice {
    // 0 "INITIAL_BLANKS", 1 "COLUMNS", 2 "COUNT", 3 "TABS_ONLY", 4 "MULTIPLE_BLANKS", 5 "CSV",
    // 6 "COLUMNS" at the measured distance from the line start, 7 "SSV".
    int choice = 0;
    bool oneTransactionPerLine = false;
    bool nonUScharacters = false;
};

// In a comma or semicolon layout whose dates follow a double quote, a transaction begins at the
// opening quote of its date's field.
bool transactionOpensAtQuote(const Dictionary& format);

// The text a reading run cuts with this format: a format whose dates follow a line end reads
// the text with one put in front, so that a date on the very first line opens a transaction too.
std::string textAsRead(std::string_view text, const Dictionary& format);

class Extract {
public:
    explicit Extract(Context& ctx);
    ~Extract();
    // The transactions are views into the engine's own copy of the text.
    Extract(const Extract&) = delete;
    Extract& operator=(const Extract&) = delete;

    // splitTextIntoLines:usingFormat: — the text cut into transactions, in text order, into
    // transactionsAsLines (none when the text holds no date the format accepts).
    void splitTextIntoLines(std::string_view text, const Dictionary& format);

    // parseTransactionsForCString:usingFormat: — prepares a reading run; false when the text
    // holds no transaction.
    bool parseTransactionsForCString(std::string_view text, const Dictionary& format);

    // nextTransactionUsingFormat:fromDate:toDate: — the fields of the next transaction dated
    // within the range (both ends inclusive), or null when the statement is used up. The
    // fields are transactionAsFields, valid until the next call.
    const std::vector<std::string>* nextTransactionUsingFormat(const Dictionary& format,
                                                               Date fromDate, Date toDate);

    // The whole text of the transaction last handed out.
    std::string_view currentTransactionText() const;

    // parseFields: — stores the layout choices in the format under construction, cuts
    // inputCsave with it again (as a reading run would read it), and rebuilds the preview table
    // (transactionsAsFields and previewColumns).
    void parseFields(const LayoutChoice& layout, Dictionary& format);

    std::vector<std::string_view> transactionsAsLines;
    std::vector<std::string> transactionAsFields;
    // The preview table: one row a transaction, each field under its index written in decimal.
    std::vector<Dictionary> transactionsAsFields;
    // One more than the highest index of a non-empty field in the preview table.
    std::int64_t previewColumns = 0;
    std::int64_t transactionIndex = -1;
    std::int64_t dateLength = 0;
    // One entry a transaction visited, in order: -1 for an empty one, 0 for any other.
    std::vector<std::int64_t> outputLength;
    std::string inputCsave;
    // Measured by the learning dialogue: one more than the number of characters between the
    // start of the selected date's line and the date.
    std::int64_t distanceFromNewline = 0;

private:
    enum class Read { handedOut, outOfRange };
    void cutAtDates(std::size_t begin, const Dictionary& format, const WordMonthDates& tables,
                    bool atQuote);
    void cutAtLineEnds(std::size_t begin);
    Read readTransaction(std::string_view transaction, extract::RunFormat& run, Date fromDate,
                         Date toDate);
    extract::RunFormat& runFormat(const Dictionary& format);
    bool cutIntoFields(std::string_view transaction, const extract::RunFormat& run);
    void handOutError(std::string message, std::string_view transaction);
    Dictionary previewRow(std::string_view transaction, const extract::RunFormat& run);

    Context& ctx_;
    std::string text_; // the engine's copy, which transactionsAsLines views
    std::string work_; // the transaction being cut into fields
    // Taken from the format of the run once; a run that hands in another format starts anew.
    std::unique_ptr<extract::RunFormat> run_;
    const Dictionary* runFor_ = nullptr;
};

} // namespace tavvel
