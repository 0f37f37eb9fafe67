// The walk over an investment statement's transactions. Per transaction, in order: an error
// record is shown and skipped; the type is looked up (asked when unknown, dropped when always
// skipped); a price of 1.00 is assumed where the mapping says so; amounts are derived; the
// security is resolved (asked when unknown); required fields are checked; the transaction is
// confirmed when the settings ask for it, and written.

#include "invest/InvestmentQIF.h"

#include "bank/BankTexts.h"
#include "context/Context.h"
#include "dialogs/DialogTexts.h"
#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "dialogs/RunHelpers.h"
#include "formats/OutputFormats.h"
#include "invest/DisplayFormat.h"
#include "invest/InvestTexts.h"
#include "invest/InvestmentContinuation.h"
#include "invest/InvestmentWorking.h"
#include "knowledge/Formats.h"
#include "knowledge/Securities.h"
#include "prefs/Settings.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavvel {

namespace {

std::string displayed(double value, const TvPrefs& prefs, std::string_view key,
                      long long fallback) {
    long long decimals = prefs.objectForKey(key) ? prefs.integerForKey(key) : fallback;
    std::string format =
        displayFormatForPrecision(decimals).value_or(*displayFormatForPrecision(fallback));
    return formatForDisplay(value, format);
}

std::string joinedTypes(const std::vector<std::string>& types) {
    std::string joined;
    for (const std::string& type : types)
        joined += (joined.empty() ? "\"" : ", \"") + type + "\"";
    return joined;
}

} // namespace

std::string closingNote(const InvestmentWalkResult& walked) {
    std::string note;
    if (walked.unknownTypeCount > 0)
        note += formatMessage(text::skippedUnknownTypes, {std::to_string(walked.unknownTypeCount),
                                                          joinedTypes(walked.unknownTypes)});
    if (walked.unwritable > 0)
        note += formatMessage(text::skippedUnwritable, std::to_string(walked.unwritable));
    return note;
}

void deriveAmounts(InvestmentRecord& r, double& fees) {
    fees = r.fees.value_or(0);
    if (r.amount > 0 && r.price == 0 && r.shares != 0)
        r.price = r.amount / r.shares;
    else if (r.amount > 0 && r.price > 0 && r.shares > 0 && !r.fees)
        fees = r.amount - r.price * r.shares;
    else if (r.amount > 0 && r.price > 0 && r.shares == 0)
        r.shares = r.amount / r.price;
    else if (r.amount == 0 && r.price != 0 && r.shares != 0)
        r.amount = r.price * r.shares;
}

InvestmentQIF::InvestmentQIF(Context& ctx, Dialogs& dialogs, OutputFormats& writer)
    : ctx_(ctx), dialogs_(dialogs), writer_(writer), types_(quickenTypes(ctx.config)) {}

void InvestmentQIF::fromOFX(std::string_view text, const InvestmentOfxRead& read) {
    qif = readInvestmentOfx(text, read);
}

InvestmentWalkResult
InvestmentQIF::processInstructionsAndAppendToString(std::string& output, Dictionary& format,
                                                    const InvestmentWalkOptions& options) {
    output_ = &output;
    format_ = &format;
    options_ = options;
    result_ = {};
    resumedAt_ = 0;
    return walkFrom(0);
}

InvestmentWalkResult InvestmentQIF::continueWith(const Dictionary& data, std::string& output,
                                                 Dictionary& format,
                                                 const InvestmentWalkOptions& options) {
    output = textOf(data, icontkey::fileAsString);
    qif.clear();
    for (const Value& stored : find(data, icontkey::iqif)->array())
        qif.push_back(*investmentRecordFrom(stored));
    output_ = &output;
    format_ = &format;
    options_ = options;
    result_ = {};
    result_.appended =
        static_cast<std::size_t>(find(data, icontkey::numberOfTransactionsAppended)->toInteger());
    resumedAt_ =
        static_cast<std::size_t>(find(data, icontkey::currentTransactionIndex)->toInteger());
    return walkFrom(resumedAt_);
}

InvestmentWalkResult InvestmentQIF::walkFrom(std::size_t index) {
    outputLength_.assign(qif.size(), std::nullopt);
    for (index_ = index; index_ < qif.size();) {
        Step step = walkOne(qif[index_]);
        if (step == Step::skipRemaining || (step == Step::cancel && cancelled()))
            break;
        if (step == Step::back && goBack())
            continue;
        if (step != Step::cancel && step != Step::back)
            ++index_;
    }
    return result_;
}

// The previous transaction is shown again; lines it wrote are taken back.
bool InvestmentQIF::goBack() {
    if (index_ <= resumedAt_)
        return false;
    --index_;
    if (auto length = std::exchange(outputLength_[index_], std::nullopt)) {
        output_->resize(*length);
        --result_.appended;
    }
    return true;
}

// True when the walk ends: stopped with nothing to write, or to be finished later.
bool InvestmentQIF::cancelled() {
    int choice = cancelConfirm(ctx_.prefs, dialogs_);
    if (choice != 0 && choice != 1)
        return false;
    if (choice == 0) {
        result_ = {};
        return true;
    }
    Array records;
    for (const InvestmentRecord& record : qif)
        records.push_back(Value(investmentRecordAsDictionary(record)));
    result_.continuation = Dictionary{
        {std::string(icontkey::iqif), Value(std::move(records))},
        {std::string(icontkey::format), Value(*format_)},
        {std::string(icontkey::fileAsString), Value(*output_)},
        {std::string(icontkey::currentTransactionIndex), Value(static_cast<std::int64_t>(index_))},
        {std::string(icontkey::numberOfTransactionsAppended),
         Value(static_cast<std::int64_t>(result_.appended))}};
    result_.appended = 0;
    return true;
}

InvestmentQIF::Step InvestmentQIF::walkOne(const InvestmentRecord& record) {
    if (!record.errorMessage.empty()) {
        if (!dialogs_
                 .errorWarning(record.errorMessage, record.errorText,
                               std::string(text::skipTransaction), false)
                 .pressedButton)
            return Step::cancel;
        ++result_.unwritable;
        return Step::skip;
    }
    if (record.date.empty())
        return showMissing("DATE");
    if (!record.badValue.empty())
        return showMissing("badValue");
    Working working;
    working.record = record;
    auto code = resolveType(working);
    if (!code)
        return Step::skip;
    working.code = *code;
    working.action = types_[static_cast<std::size_t>(working.code)];
    deriveAmounts(working.record, working.fees);
    // A transaction that cannot be written anyway asks nothing about its security.
    if (std::string missing = missingField(working); !missing.empty())
        return showMissing(missing);
    if (!resolveSecurity(working))
        return Step::skip;
    working.date = options_.outputDate.empty() ? record.date : options_.outputDate;
    const InvestmentRecord& r = working.record;
    working.amountString = displayed(r.amount, ctx_.prefs, prefkey::amountsPrecision, 2);
    working.priceString = displayed(r.price, ctx_.prefs, prefkey::pricesPrecision, 4);
    working.sharesString = displayed(r.shares, ctx_.prefs, prefkey::sharesPrecision, 2);
    if (std::fabs(working.fees) >= 0.01)
        working.feesString =
            (working.fees < 0 ? "-" : "") +
            displayed(std::fabs(working.fees), ctx_.prefs, prefkey::amountsPrecision, 2);
    Step step = confirm(working);
    if (step == Step::write)
        write(working);
    return step;
}

// The action code, or nothing when the transaction is dropped (always skipped, or no action
// chosen for an unknown type). A price of 1.00 assumed by the mapping is applied here.
std::optional<std::int64_t> InvestmentQIF::resolveType(Working& working) {
    static const Array none;
    const Value* stored = find(*format_, investkey::TypeMappings);
    TypeLookup found = lookUpType(stored ? stored->array() : none, working.record.type,
                                  working.record.amountWasNegative);
    std::int64_t code = found.quickenType;
    if (code == actioncode::alwaysSkip)
        return std::nullopt;
    if (code != actioncode::none && (code & actioncode::assumeDollar)) {
        code &= ~actioncode::assumeDollar;
        working.record.price = 1.0;
    }
    bool unknown =
        code == actioncode::none || code < 0 || static_cast<std::size_t>(code) >= types_.size();
    // A statement that names no type gives nothing to learn a mapping from.
    if (unknown && working.record.type.empty()) {
        showMissing("TYPE");
        return std::nullopt;
    }
    if (unknown)
        code = askType(working).value_or(actioncode::none);
    if (code == actioncode::none)
        return std::nullopt;
    if (!found.assumedSecurity.empty() && working.record.security.empty())
        working.record.security = found.assumedSecurity;
    return code;
}

// Define Type. The first button skips, so a run that takes first buttons never guesses an
// action: it leaves the transaction out and names its type at the end.
std::optional<std::int64_t> InvestmentQIF::askType(const Working& working) {
    std::vector<std::string> buttons{std::string(text::skipTransaction),
                                     std::string(text::alwaysSkip)};
    for (const QuickenType& type : types_)
        buttons.push_back(type.displayName);
    const std::string& shown = working.record.type;
    std::size_t pick = 1;
    while (pick == 1) {
        pick = dialogs_.ask(std::string(text::unknownTypeTitle),
                            formatMessage(text::unknownTypeText, {shown, working.record.date}),
                            buttons);
        if (pick == 1 && confirmAlwaysSkip(shown))
            return std::nullopt;
    }
    if (pick == 0 || pick >= buttons.size()) {
        ++result_.unknownTypeCount;
        auto& types = result_.unknownTypes;
        if (std::find(types.begin(), types.end(), shown) == types.end())
            types.push_back(shown);
        return std::nullopt;
    }
    auto code = static_cast<std::int64_t>(pick - 2);
    addType(*format_, shown, code, -1, "");
    Formats(ctx_.prefs).addFormat(*format_);
    return bySign(code, working.record.amountWasNegative);
}

// Confirm Always Skip: the type is learned as one to drop without asking; false when the user
// went back to choosing an action.
bool InvestmentQIF::confirmAlwaysSkip(const std::string& type) {
    std::size_t pick =
        dialogs_.ask(std::string(text::alwaysSkipTitle), formatMessage(text::alwaysSkipText, type),
                     {std::string(text::confirmAlwaysSkip), std::string(text::dontAlwaysSkip)});
    if (pick != 0)
        return false;
    addType(*format_, type, actioncode::alwaysSkip, -1, "");
    Formats(ctx_.prefs).addFormat(*format_);
    return true;
}

// The security by symbol, by the format's mapping of the symbol or the name, by the name in
// the list; else asked. False when the transaction is left out.
bool InvestmentQIF::resolveSecurity(Working& working) {
    if (!working.action.securityRequired)
        return true;
    Securities securities(ctx_.prefs);
    const InvestmentRecord& r = working.record;
    std::optional<std::string> found;
    if (!r.symbol.empty()) {
        found = securities.quickenSecurityForSymbol(r.symbol);
        if (!found)
            found = securities.quickenSecurityFromMappingFor(r.symbol, *format_);
    }
    if (!found && !r.security.empty())
        found = securities.quickenSecurityFromMappingFor(r.security, *format_);
    if (!found && !r.security.empty() && securities.securityFound(r.security))
        found = r.security;
    if (!found)
        found = format_->count(std::string(investkey::AssumedSecurity)) && r.security.empty() &&
                        r.symbol.empty()
                    ? std::optional(textOf(*format_, investkey::AssumedSecurity))
                    : std::nullopt;
    if (found) {
        working.quickenSecurity = *found;
        return true;
    }
    std::string shown = r.security.empty() ? r.symbol : r.security;
    if (shown.empty())
        return showMissing("SECURITY") == Step::write;
    std::size_t pick =
        dialogs_.ask(std::string(text::unknownSecurityTitle),
                     formatMessage(text::unknownSecurityText, {shown, r.date}),
                     {std::string(text::useNameShown), std::string(text::skipTransaction)});
    if (pick != 0)
        return false;
    securities.addSecurity(r.symbol.empty() ? r.security : r.symbol, shown, *format_);
    working.quickenSecurity = shown;
    return true;
}

// The reason the transaction cannot be written, or "" (missingBadField:).
std::string InvestmentQIF::missingField(const Working& working) const {
    const InvestmentRecord& r = working.record;
    if (working.cash() && !optionOn(ctx_.prefs, option::quicken2003))
        return "quicken2003";
    if (working.action.amountRequired && r.amount == 0)
        return "AMOUNT";
    if (working.action.sharesRequired && r.shares == 0)
        return "SHARES";
    if (working.action.priceRequired && r.price == 0)
        return "PRICE";
    return {};
}

InvestmentQIF::Step InvestmentQIF::showMissing(const std::string& field) {
    std::string explanation = field == "quicken2003" ? std::string(text::missingQuicken2003)
                              : field == "badValue"  ? std::string(text::missingBadValue)
                              : field == "TYPE"      ? std::string(text::missingType)
                                                     : formatMessage(text::missingField, field);
    dialogs_.ask(formatMessage(text::missingFieldTitle, field), explanation,
                 {std::string(text::skipTransaction)});
    ++result_.unwritable;
    return Step::skip;
}

InvestmentQIF::Step InvestmentQIF::confirm(const Working& working) {
    if (!optionOn(ctx_.prefs, option::textConfirmAllTransactions))
        return Step::write;
    std::string action = working.record.type + " (" + working.action.displayName + ")";
    std::string shown = formatMessage(
        text::confirmText,
        {working.date, action, working.quickenSecurity, working.sharesString, working.priceString,
         working.feesString, working.amountString, working.memoField()});
    std::vector<std::string> buttons{
        std::string(text::extractTransaction), std::string(text::skipTransaction),
        std::string(text::skipRemaining), std::string(text::cancelButton)};
    // A resumed walk cannot take back what the stopped one wrote.
    if (index_ > resumedAt_)
        buttons.emplace_back(text::backButton);
    constexpr Step steps[] = {Step::write, Step::skip, Step::skipRemaining, Step::cancel,
                              Step::back};
    std::size_t pick = dialogs_.ask(std::string(text::investConfirmTitle), shown, buttons);
    return pick < buttons.size() ? steps[pick] : Step::skip;
}

} // namespace tavvel
