// The walk over the transaction list. Each step: show an error record (skip or stop); mark
// where the transaction's output starts (so Back can take it away); choose the date; swap or
// fill in the description; capitalise; normalise the amount; then decide: keep the input's
// category, or find the instruction (and its amount instruction) and output or confirm; with
// no instruction, ask for a new one. Forms pause the walk; each answer ends in another step.

#include "bank/BankTexts.h"
#include "bank/BankingCreditCardQIF.h"
#include "bank/WalkState.h"
#include "context/Context.h"
#include "dialogs/Dialogs.h"
#include "dialogs/RunHelpers.h"
#include "formats/OutputFormats.h"
#include "formats/TransactionKeys.h"
#include "knowledge/Amounts.h"
#include "knowledge/Instructions.h"
#include "knowledge/KnowledgeKeys.h"
#include "prefs/Settings.h"

#include <algorithm>
#include <cctype>

namespace tavvel {

namespace {

// First letter of every word upper case, the rest lower case ("C" locale, bytes above 127
// left alone).
std::string initialCapitals(std::string_view original) {
    std::string text(original);
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
void swapDescriptionAndMemo(TransactionRecord& record) {
    std::string_view memo = record.text(TxField::memo);
    if (!memo.empty()) {
        std::string_view description = record.text(TxField::description);
        record.point(TxField::description, memo);
        record.point(TxField::memo, description);
    }
    record.markSwapped();
}

// The record's own text, rewritten only when the rule changes it.
void rewrite(TransactionRecord& record, TxField field, std::string_view text) {
    if (!record.has(field) || record.text(field) != text)
        record.set(field, text);
}

} // namespace

BankingCreditCardQIF::Prepared BankingCreditCardQIF::prepare(TransactionRecord& record,
                                                             std::string& output,
                                                             const WalkOptions& options) {
    if (auto length = record.outputLength())
        output.resize(std::min(output.size(), *length));
    else
        record.setOutputLength(output.size());
    const TvPrefs& prefs = ctx_.prefs;
    if (doSwap || (options.swapDescriptionAndMemo && !record.alreadySwapped())) {
        swapDescriptionAndMemo(record);
    } else if (record.text(TxField::description).empty() &&
               optionOn(prefs, option::treatMemoAsDescription) && record.has(TxField::memo)) {
        record.point(TxField::description, record.text(TxField::memo));
    }
    doSwap = false;
    if (record.text(TxField::description).empty())
        record.point(TxField::description, optionOn(prefs, option::leaveBlankDescriptionsBlank)
                                               ? std::string_view("")
                                               : text::noDescription);
    if (optionOn(prefs, option::initialCaps)) {
        rewrite(record, TxField::description, initialCapitals(record.text(TxField::description)));
        if (record.has(TxField::memo))
            rewrite(record, TxField::memo, initialCapitals(record.text(TxField::memo)));
    }
    Prepared p;
    p.date =
        options.outputDate.empty() ? std::string(record.text(TxField::date)) : options.outputDate;
    p.amount = amountFor(record);
    p.description = record.optionalText(TxField::description);
    p.memo = record.optionalText(TxField::memo);
    return p;
}

bool BankingCreditCardQIF::keepsInputCategory(const TransactionRecord& record) const {
    if (optionOn(ctx_.prefs, option::dontAddCategories))
        return true;
    if (optionOn(ctx_.prefs, option::useCategoriesIfPresent))
        return record.has(TxField::category) || record.splits().has_value();
    return false;
}

std::optional<std::string> BankingCreditCardQIF::numberFor(const TransactionRecord& record,
                                                           const WalkOptions& options) const {
    if (!options.outputNumber.empty())
        return options.outputNumber;
    if (extractedCheckNumber)
        return extractedCheckNumber;
    return record.optionalText(TxField::number);
}

std::optional<std::string> BankingCreditCardQIF::clearedFor(const TransactionRecord& record,
                                                            const WalkOptions& options) const {
    if (options.markAsCleared)
        return std::string("*");
    if (options.markAsUncleared)
        return std::string();
    return record.optionalText(TxField::cleared);
}

void BankingCreditCardQIF::outputKept(const Prepared& p, TransactionRecord& record,
                                      std::string& output, OutputFormats& writer,
                                      const WalkOptions& options) {
    processSplits(record.splits() ? &*record.splits() : nullptr);
    // The memo typed in the new-instruction form, while its switch was left on, wins over the
    // record's: that has always been so.
    BankOutput out{p.date,
                   p.description,
                   formMemo_ ? formMemo_ : p.memo,
                   p.amount,
                   numberFor(record, options),
                   record.optionalText(TxField::category),
                   clearedFor(record, options),
                   splits_ ? &*splits_ : nullptr};
    writer.produceBankCCOutput(output, out);
}

namespace {

// The run of decimal digits after the description's leading non-digits: the check number an
// instruction with `number` takes from the description.
std::optional<std::string> checkNumberIn(std::string_view description) {
    std::size_t begin = description.find_first_of("0123456789");
    if (begin == std::string_view::npos)
        return std::nullopt;
    std::size_t end = description.find_first_not_of("0123456789", begin);
    return std::string(
        description.substr(begin, end == std::string_view::npos ? end : end - begin));
}

} // namespace

std::string BankingCreditCardQIF::categoryFor(const TransactionRecord& record,
                                              const std::string& ruleCategory) const {
    if (optionOn(ctx_.prefs, option::useCategoriesIfPresent) && record.has(TxField::category))
        return std::string(record.text(TxField::category));
    return ruleCategory;
}

void BankingCreditCardQIF::outputWithInstruction(Walk& walk, const Prepared& p,
                                                 TransactionRecord& record) {
    BankOutput out;
    out.date = p.date;
    out.number = numberFor(record, walk.options);
    out.cleared = clearedFor(record, walk.options);
    out.splits = splits_ ? &*splits_ : nullptr;
    if (amountInstruction_) {
        const Dictionary& a = *amountInstruction_;
        out.description = textOf(a, akey::amountDescription);
        out.memo = has(a, akey::amountMemo) ? optionalText(a, akey::amountMemo) : p.memo;
        out.amount = textOf(a, akey::amount);
        out.category = categoryFor(record, textOf(a, akey::amountCategory));
    } else {
        const Dictionary& i = instruction_;
        out.description =
            has(i, ikey::newDescription) ? optionalText(i, ikey::newDescription) : p.description;
        out.memo = has(i, ikey::newMemo) ? optionalText(i, ikey::newMemo) : p.memo;
        out.amount = p.amount;
        out.category = categoryFor(record, textOf(i, ikey::category));
    }
    if (!out.splits)
        out.splits = nullptr;
    walk.writer.produceBankCCOutput(walk.output, out);
}

BankingCreditCardQIF::Step BankingCreditCardQIF::decide(Walk& walk, Prepared& p,
                                                        TransactionRecord& record) {
    std::optional<Dictionary> found;
    std::optional<std::string> prompt;
    std::string matched;
    if (optionOn(ctx_.prefs, option::baseCategoriesOnCategories) && record.has(TxField::category)) {
        matched = record.text(TxField::category);
        found = walk.instructions.instructionMatching(matched, ikey::categoryMatch);
    } else {
        matched = descriptionToMatch(p);
        found = matchDescription(walk, matched, p.memo.value_or(""));
        prompt = std::string(text::noInstructionPrompt);
    }
    if (!found)
        return newInstruction(walk, p, record, prompt, matched, false);
    instruction_ = *found;
    return followInstruction(walk, p, record);
}

// The description an instruction is matched against: the one the user changed it to, when
// the preferences say a changed description picks the category.
std::string BankingCreditCardQIF::descriptionToMatch(const Prepared& p) const {
    if (optionOn(ctx_.prefs, option::updateCategoryWhenDescriptionChanged) &&
        !changedDescription.empty())
        return changedDescription;
    return p.description.value_or("");
}

// The instruction matching the description, or the memo, in the order the preferences give;
// the second is tried only when the preferences ask for both.
std::optional<Dictionary> BankingCreditCardQIF::matchDescription(const Walk& walk,
                                                                 const std::string& text,
                                                                 const std::string& memo) const {
    bool descriptionFirst = optionOn(ctx_.prefs, option::matchDescriptionThenMemo);
    bool memoFirst = !descriptionFirst && optionOn(ctx_.prefs, option::matchMemoThenDescription);
    auto found =
        walk.instructions.instructionMatching(memoFirst ? memo : text, ikey::descriptionMatch);
    if (found || !(descriptionFirst || memoFirst))
        return found;
    return walk.instructions.instructionMatching(memoFirst ? text : memo, ikey::descriptionMatch);
}

// With the instruction found: its amount instruction, the splits to use, the check number,
// then output at once or confirm first.
BankingCreditCardQIF::Step BankingCreditCardQIF::followInstruction(Walk& walk, Prepared& p,
                                                                   TransactionRecord& record) {
    const Dictionary* amount = Amounts::amountMatching(p.amount.value_or(""), instruction_);
    amountInstruction_ = amount ? std::optional<Dictionary>(*amount) : std::nullopt;
    const Value* chosen = amountInstruction_ ? find(*amountInstruction_, akey::splits)
                                             : find(instruction_, ikey::splits);
    if (record.userSplits())
        processSplits(record.splits() ? &*record.splits() : nullptr);
    else
        processSplits(chosen ? &chosen->array() : nullptr);
    extractedCheckNumber.reset();
    if (flagOf(instruction_, ikey::number))
        extractedCheckNumber = checkNumberIn(p.description.value_or(""));
    bool ask = mustConfirm_ || redisplayConfirm_ ||
               (amountInstruction_ ? flagOf(*amountInstruction_, akey::amountConfirm)
                                   : flagOf(instruction_, ikey::categoryConfirm));
    if (ask)
        return confirm(walk, p, record);
    outputWithInstruction(walk, p, record);
    return Step::advanced;
}

BankingCreditCardQIF::Step BankingCreditCardQIF::step(Walk& walk) {
    TransactionRecord& record = records_[current_];
    if (record.isError()) {
        int pressed = walk.warning.warn(
            walk.options.inputFormat, std::string(record.text(TxField::errorMessage)),
            std::string(record.text(TxField::errorText)), std::string(text::skipTransaction));
        return pressed == 1 ? Step::skipped : Step::stop;
    }
    if (leavesOutDuplicate(walk, record))
        return Step::skipped;
    splitInstructionConfirm = false;
    Prepared p = prepare(record, walk.output, walk.options);
    instruction_.clear();
    amountInstruction_.reset();
    if (keepsInputCategory(record)) {
        processSplits(record.splits() ? &*record.splits() : nullptr);
        if (mustConfirm_ || redisplayConfirm_)
            return confirm(walk, p, record);
        outputKept(p, record, walk.output, walk.writer, walk.options);
        return Step::advanced;
    }
    return decide(walk, p, record);
}

void BankingCreditCardQIF::start(std::vector<TransactionRecord> records, std::size_t position) {
    records_ = std::move(records);
    current_ = position;
    mustConfirm_ = optionOn(ctx_.prefs, option::confirmAllTransactions);
    splits_.reset();
}

void BankingCreditCardQIF::rewindTo(std::size_t position) {
    current_ = std::min(position, records_.size());
}

WalkResult BankingCreditCardQIF::processInstructionsAndAppendToString(
    std::string& output, OutputFormats& writer, ErrorWarning& warning, Dialogs& dialogs,
    Instructions& instructions, const WalkOptions& options) {
    Walk walk{output, writer, warning, dialogs, instructions, options};
    numberOfTransactionsAppended = 0;
    WalkResult result = walkOn(walk);
    addDescriptionsMet();
    return result;
}

WalkResult BankingCreditCardQIF::continueWith(const Dictionary& data, std::string& output,
                                              OutputFormats& writer, ErrorWarning& warning,
                                              Dialogs& dialogs, Instructions& instructions,
                                              const WalkOptions& options) {
    output = textOf(data, "fileAsString");
    std::vector<TransactionRecord> stored;
    if (const Value* records = find(data, "qif"))
        for (const Value& record : records->array())
            stored.push_back(TransactionRecord::fromDictionary(record.dictionary()));
    auto count = [&data](std::string_view key) {
        const Value* v = find(data, key);
        return static_cast<std::size_t>(std::max<std::int64_t>(0, v ? v->toInteger() : 0));
    };
    start(std::move(stored), count("currentTransactionIndex"));
    numberOfTransactionsAppended = count("numberOfTransactionsAppended");
    Walk walk{output, writer, warning, dialogs, instructions, options};
    WalkResult result = walkOn(walk);
    addDescriptionsMet();
    return result;
}

WalkResult BankingCreditCardQIF::walkOn(Walk& walk) {
    std::string& output = walk.output;
    extractedCheckNumber.reset();
    cancelReturnsToConfirm = false;
    const WalkWatch& watch = walk.options.watch;
    while (current_ < records_.size()) {
        if (watch.stop.stop_requested())
            return {0, std::nullopt};
        // Told every so often only: a report per transaction would cost more than the walk.
        if (watch.progress && current_ % 256 == 0)
            watch.progress(current_, records_.size());
        Step taken = step(walk);
        switch (taken) {
        case Step::advanced:
            ++numberOfTransactionsAppended;
            [[fallthrough]];
        case Step::skipped:
            noteWalked(walk, taken == Step::advanced);
            ++current_;
            extractedCheckNumber.reset();
            changedDescription.clear();
            break;
        case Step::rerun:
        case Step::back:
            break;
        case Step::stop:
            return {numberOfTransactionsAppended, std::nullopt};
        case Step::stopNow:
            return {0, std::nullopt};
        case Step::finishLater:
            return {0, continuation(output)};
        }
    }
    return {numberOfTransactionsAppended, std::nullopt};
}

} // namespace tavvel
