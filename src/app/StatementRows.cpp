// Table rows from the bank reader's records. Stages: the reader makes its records from the
// whole input at once (OFX, or QIF lines); then each record becomes a row, slice by slice, so
// that a stop request is heard within a few milliseconds.

#include "app/StatementRows.h"

#include "app/AppTexts.h"
#include "app/Controller.h"
#include "bank/BankingCreditCardQIF.h"
#include "context/Context.h"
#include "dialogs/MessageFormat.h"
#include "knowledge/Instructions.h"
#include "knowledge/KnowledgeKeys.h"
#include "recognize/CalendarDate.h"

#include <unordered_map>

namespace tavvel {

namespace {

constexpr std::size_t kSlice = 1024;

// A QIF file read up to a date it cannot read: the records before it, then the refusal the run
// would show, so the user sees where the file goes wrong.
std::optional<StatementRow> readRecords(BankingCreditCardQIF& reader,
                                        const StatementSource& source) {
    if (source.ofx) {
        reader.setOfxAccount(source.ofxAccount);
        reader.fromOFX(source.text, kDistantPast, kDistantFuture);
        return std::nullopt;
    }
    std::size_t bad = reader.fromQIFLines(source.lines, kDistantPast, kDistantFuture);
    if (bad == 0)
        return std::nullopt;
    StatementRow refused;
    refused.errorMessage =
        formatMessage(text::corruptedQif, {source.name, std::to_string(bad + source.skippedLines)});
    return refused;
}

std::string categoryFor(const Instructions& instructions, const std::string& text) {
    auto found = instructions.instructionMatching(text, ikey::descriptionMatch);
    return found ? textOf(*found, ikey::category) : std::string();
}

// Statements hold far fewer days than transactions, and reading a date back is dear.
class DateReader {
public:
    explicit DateReader(std::string pattern) : pattern_(std::move(pattern)) {}
    std::optional<Date> operator()(const std::string& text) {
        auto [at, added] = read_.try_emplace(text);
        if (added)
            at->second = parseDateWithPattern(text, pattern_);
        return at->second;
    }

private:
    std::string pattern_;
    std::unordered_map<std::string, std::optional<Date>> read_;
};

StatementRow rowOf(const TransactionRecord& record, const BankingCreditCardQIF& reader,
                   const Instructions& instructions, DateReader& dates) {
    auto textOf = [&record](TxField field) { return std::string(record.text(field)); };
    StatementRow row;
    row.errorMessage = textOf(TxField::errorMessage);
    if (row.isError()) {
        std::string piece = textOf(TxField::errorText);
        std::size_t end = piece.find_last_not_of(" \t\r\n");
        row.description = piece.substr(0, end == std::string::npos ? 0 : end + 1);
        return row;
    }
    row.dateText = textOf(TxField::date);
    row.date = dates(row.dateText);
    if (record.has(TxField::amount))
        row.amount = reader.normalizedAmount(record.text(TxField::amount));
    row.number = textOf(TxField::number);
    row.description = textOf(TxField::description);
    row.memo = textOf(TxField::memo);
    // A category the statement carries is kept by the walk; the instructions only fill gaps.
    std::string own = textOf(TxField::category);
    row.category = own.empty() ? categoryFor(instructions, row.description) : own;
    row.categoryOfMemo = own.empty() ? categoryFor(instructions, row.memo) : own;
    return row;
}

} // namespace

StatementSource statementSourceOf(const Controller& controller) {
    StatementSource source;
    if (!controller.processing() || controller.resumesRun() ||
        controller.runKind() == kTypeInvestment)
        return source;
    source.name = controller.source();
    source.ofx = controller.inputKind() == "QFX";
    source.qif = controller.inputKind() == "QIF";
    if (source.ofx)
        source.text = controller.inputText();
    if (source.qif)
        source.lines.assign(controller.inputLines().begin(), controller.inputLines().end());
    source.skippedLines = controller.skippedLines();
    const RunForm& form = controller.form();
    if (form.choosesInputAccount())
        source.ofxAccount = form.accountText;
    return source;
}

std::optional<std::vector<StatementRow>>
readStatementRows(Context& ctx, const StatementSource& source, const RowReading& reading) {
    std::vector<StatementRow> rows;
    if (!source.ofx && !source.qif)
        return rows;
    BankingCreditCardQIF reader(ctx);
    std::optional<StatementRow> refused = readRecords(reader, source);
    Instructions instructions(ctx.prefs);
    DateReader dates(ctx.output.longDatePattern());
    const std::vector<TransactionRecord>& records = reader.records();
    rows.reserve(records.size() + 1);
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (i % kSlice == 0) {
            if (reading.stop.stop_requested())
                return std::nullopt;
            if (reading.progress)
                reading.progress(i, records.size());
        }
        rows.push_back(rowOf(records[i], reader, instructions, dates));
    }
    if (refused)
        rows.push_back(std::move(*refused));
    return rows;
}

} // namespace tavvel
