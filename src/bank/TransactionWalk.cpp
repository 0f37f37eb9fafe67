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
        pending_.insert(record, txkey::outputLength,
                        Value(static_cast<std::int64_t>(output.size())));
    const TvPrefs& prefs = ctx_.prefs;
    bool alreadySwapped = find(record, txkey::AlreadySwapped) != nullptr;
    if (doSwap || (options.swapDescriptionAndMemo && !alreadySwapped)) {
        swapDescriptionAndMemo(record);
    } else if (textViewOf(record, txkey::description).empty() &&
               optionOn(prefs, option::treatMemoAsDescription) && has(record, txkey::memo)) {
        record.insert_or_assign(std::string(txkey::description),
                                Value(textOf(record, txkey::memo)));
    }
    doSwap = false;
    if (textViewOf(record, txkey::description).empty())
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
    // The memo typed in the new-instruction form, while its switch was left on, wins over the
    // record's: that has always been so.
    BankOutput out{p.date,
                   p.description,
                   formMemo_ ? formMemo_ : p.memo,
                   p.amount,
                   numberFor(record, options),
                   optionalText(record, txkey::category),
                   clearedFor(record, options),
                   splits ? &*splits : nullptr};
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

std::string BankingCreditCardQIF::categoryFor(const Dictionary& record,
                                              const std::string& ruleCategory) const {
    if (optionOn(ctx_.prefs, option::useCategoriesIfPresent) && has(record, txkey::category))
        return textOf(record, txkey::category);
    return ruleCategory;
}

void BankingCreditCardQIF::outputWithInstruction(Walk& walk, const Prepared& p,
                                                 Dictionary& record) {
    BankOutput out;
    out.date = p.date;
    out.number = numberFor(record, walk.options);
    out.cleared = clearedFor(record, walk.options);
    out.splits = splits ? &*splits : nullptr;
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
                                                        Dictionary& record) {
    std::optional<Dictionary> found;
    std::optional<std::string> prompt;
    std::string matched;
    if (optionOn(ctx_.prefs, option::baseCategoriesOnCategories) && has(record, txkey::category)) {
        matched = textOf(record, txkey::category);
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
                                                                   Dictionary& record) {
    const Dictionary* amount = Amounts::amountMatching(p.amount.value_or(""), instruction_);
    amountInstruction_ = amount ? std::optional<Dictionary>(*amount) : std::nullopt;
    const Value* chosen = has(record, txkey::userSplits) ? find(record, txkey::splits)
                          : amountInstruction_           ? find(*amountInstruction_, akey::splits)
                                                         : find(instruction_, ikey::splits);
    processSplits(chosen ? &chosen->array() : nullptr);
    extractedCheckNumber.reset();
    if (flagOf(instruction_, ikey::number))
        extractedCheckNumber = checkNumberIn(p.description.value_or(""));
    bool ask = mustConfirm || redisplayConfirm_ ||
               (amountInstruction_ ? flagOf(*amountInstruction_, akey::amountConfirm)
                                   : flagOf(instruction_, ikey::categoryConfirm));
    if (ask)
        return confirm(walk, p, record);
    outputWithInstruction(walk, p, record);
    return Step::advanced;
}

Dictionary& BankingCreditCardQIF::transactionAt(std::size_t i) {
    if (pending_.pending(i))
        qif[i] = pending_.take(i);
    return qif[i];
}

// When no answer can lead back to a transaction or leave the walk for later, nothing reads
// a walked record again.
void BankingCreditCardQIF::letGo(std::size_t i, const Walk& walk) {
    if (walk.dialogs.acceptsFormsAsShown())
        pending_.recycle(qif[i]);
}

BankingCreditCardQIF::Step BankingCreditCardQIF::step(Walk& walk) {
    Dictionary& record = transactionAt(currentTransactionIndex);
    if (has(record, txkey::errorMessage)) {
        int pressed =
            walk.warning.warn(walk.options.inputFormat, textOf(record, txkey::errorMessage),
                              textOf(record, txkey::errorText), std::string(text::skipTransaction));
        return pressed == 1 ? Step::skipped : Step::stop;
    }
    if (leavesOutDuplicate(walk, record))
        return Step::skipped;
    splitInstructionConfirm = false;
    Prepared p = prepare(record, walk.output, walk.options);
    instruction_.clear();
    amountInstruction_.reset();
    if (keepsInputCategory(record)) {
        const Value* own = find(record, txkey::splits);
        processSplits(own ? &own->array() : nullptr);
        if (mustConfirm || redisplayConfirm_)
            return confirm(walk, p, record);
        outputKept(p, record, walk.output, walk.writer, walk.options);
        return Step::advanced;
    }
    return decide(walk, p, record);
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
    qif.clear();
    if (const Value* records = find(data, "qif"))
        for (const Value& record : records->array())
            qif.push_back(record.dictionary());
    maxTransactionIndex = qif.size();
    auto count = [&data](std::string_view key) {
        const Value* v = find(data, key);
        return static_cast<std::size_t>(std::max<std::int64_t>(0, v ? v->toInteger() : 0));
    };
    currentTransactionIndex = count("currentTransactionIndex");
    numberOfTransactionsAppended = count("numberOfTransactionsAppended");
    mustConfirm = optionOn(ctx_.prefs, option::confirmAllTransactions);
    Walk walk{output, writer, warning, dialogs, instructions, options};
    WalkResult result = walkOn(walk);
    addDescriptionsMet();
    return result;
}

WalkResult BankingCreditCardQIF::walkOn(Walk& walk) {
    std::string& output = walk.output;
    extractedCheckNumber.reset();
    cancelReturnsToConfirm = false;
    while (currentTransactionIndex < maxTransactionIndex) {
        Step taken = step(walk);
        switch (taken) {
        case Step::advanced:
            ++numberOfTransactionsAppended;
            [[fallthrough]];
        case Step::skipped:
            noteWalked(walk, taken == Step::advanced);
            letGo(currentTransactionIndex, walk);
            ++currentTransactionIndex;
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
