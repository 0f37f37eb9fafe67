// The run and the conversion history: opened when a run starts, the statement's transactions
// marked against it before the walk (with one question when all of them were converted
// before), and the run's transactions recorded once the output file is written.

#include "app/ContinuationRecord.h"
#include "app/Controller.h"
#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "formats/TransactionKeys.h"
#include "history/HistoryTexts.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/Settings.h"
#include "recognize/CalendarDate.h"

#include <cmath>

namespace tavvel {

// False when every transaction was converted before and the user leaves them all out.
bool Controller::startHistory() {
    runDuplicates_.reset();
    reader_.duplicates = nullptr;
    reader_.suggester = nullptr;
    if (ctx_.places.dataFolder.empty())
        return true;
    if (!history_.available())
        history_.open(ctx_.places.dataFolder, ctx_.clock.now());
    showHistoryNotice();
    bool detect = !keepDuplicates_ && !optionOn(ctx_.prefs, option::keepDuplicates);
    attachHistory(detect);
    attachSuggester();
    reader_.markDuplicates();
    RunDuplicates& marks = *runDuplicates_;
    if (marks.duplicates() == 0 || marks.duplicates() < marks.marked())
        return true;
    return convertAllAgain();
}

// With detection off the run still takes each transaction's key, so that what it writes is
// recorded all the same.
void Controller::attachHistory(bool detect) {
    HistoryDatabase* db = history_.available() && detect ? &history_.database() : nullptr;
    runDuplicates_.emplace(db, account_.value_or(form_.accountText));
    reader_.duplicates = &*runDuplicates_;
}

// Suggestions draw on the history and on every instruction's match text and category.
void Controller::attachSuggester() {
    suggester_.emplace(history_.available() ? &history_.database() : nullptr);
    for (const Value& v : instructions_.getInstructionsArray())
        if (v.isDictionary())
            suggester_->addInstruction(textOf(v.dictionary(), ikey::descriptionMatch),
                                       textOf(v.dictionary(), ikey::category));
    reader_.suggester = &*suggester_;
}

// The same statement again (or a part of it): asked once rather than transaction by
// transaction, and converted again when the user does not say otherwise.
bool Controller::convertAllAgain() {
    RunDuplicates& marks = *runDuplicates_;
    Date first{static_cast<double>(marks.firstConvertedAt())};
    std::string text =
        formatMessage(text::allConvertedBefore, {std::to_string(marks.marked()),
                                                 formatDate(first, ctx_.output.longDatePattern())});
    std::size_t pressed =
        dialogs_.ask(std::string(text::allConvertedBeforeTitle), text,
                     {std::string(text::convertAgain), std::string(text::leaveThemOut)});
    if (pressed != 0) {
        marks.leaveAllOut();
        return false;
    }
    marks.convertAllAgain();
    return true;
}

void Controller::recordHistory() {
    if (!runDuplicates_ || !history_.available())
        return;
    history_.record(account_.value_or(form_.accountText), ctx_.clock.now(),
                    runDuplicates_->entries());
    showHistoryNotice();
}

std::string Controller::duplicatesLeftOutText() const {
    std::size_t n = runDuplicates_ ? runDuplicates_->duplicatesLeftOut() : 0;
    if (n == 0)
        return {};
    return formatMessage(text::duplicatesLeftOut, {std::to_string(n), n == 1 ? "" : "s"});
}

void Controller::showHistoryNotice() {
    if (auto notice = history_.takeNotice())
        dialogs_.alert(std::string(text::historyTitle), *notice);
}

// A run left for later takes along what it wrote, so the resumed run records the whole.
void Controller::keepHistoryIn(Dictionary& record) const {
    if (!runDuplicates_)
        return;
    Array written;
    for (const auto& [index, entry] : runDuplicates_->writtenSoFar())
        written.emplace_back(Dictionary{{"index", Value(static_cast<std::int64_t>(index))},
                                        {"category", Value(entry.category)},
                                        {"instruction", Value(entry.instruction)}});
    record.insert_or_assign(std::string(contkey::historyWritten), Value(std::move(written)));
    record.insert_or_assign(std::string(contkey::historyConvertAgain),
                            Value(runDuplicates_->convertsAllAgain()));
}

// The resumed run marks the stored transactions as the stopped one did, and takes back what
// that one wrote. A continuation file from before the history records only what is written
// from here on.
void Controller::resumeHistory(const Dictionary& data) {
    runDuplicates_.reset();
    reader_.duplicates = nullptr;
    reader_.suggester = nullptr;
    if (ctx_.places.dataFolder.empty())
        return;
    if (!history_.available())
        history_.open(ctx_.places.dataFolder, ctx_.clock.now());
    showHistoryNotice();
    attachHistory(!keepDuplicates_ && !optionOn(ctx_.prefs, option::keepDuplicates));
    attachSuggester();
    const Value* records = find(data, contkey::qif);
    for (std::size_t i = 0; records && i < records->array().size(); ++i)
        if (const Value& r = records->array()[i];
            r.isDictionary() && !has(r.dictionary(), txkey::errorMessage))
            runDuplicates_->mark(
                i, reader_.historyKeyOf(TransactionRecord::fromDictionary(r.dictionary())));
    if (const Value* again = find(data, contkey::historyConvertAgain); again && again->toBool())
        runDuplicates_->convertAllAgain();
    const Value* written = find(data, contkey::historyWritten);
    for (std::size_t i = 0; written && written->isArray() && i < written->array().size(); ++i) {
        if (!written->array()[i].isDictionary())
            continue;
        const Dictionary& w = written->array()[i].dictionary();
        const Value* index = find(w, "index");
        if (index && index->toInteger() >= 0)
            runDuplicates_->written(static_cast<std::size_t>(index->toInteger()),
                                    textOf(w, "category"), textOf(w, "instruction"));
    }
}

} // namespace tavvel
