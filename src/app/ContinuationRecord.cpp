#include "app/ContinuationRecord.h"

#include "bank/QifInputTypes.h"
#include "formats/TransactionKeys.h"
#include "invest/InvestmentContinuation.h"

#include <algorithm>

namespace tavvel {

namespace {

bool hasType(const Dictionary& record, std::string_view key, Value::Type type) {
    const Value* value = find(record, key);
    return value && value->type() == type;
}

std::int64_t integerOf(const Dictionary& record, std::string_view key) {
    return *find(record, key)->get<std::int64_t>();
}

// Whether each key of the record that the table names holds its type; other keys are free.
template <std::size_t N>
bool keysHaveTypes(const Dictionary& record,
                   const std::pair<std::string_view, Value::Type> (&types)[N]) {
    return std::all_of(std::begin(types), std::end(types), [&](const auto& entry) {
        const Value* value = find(record, entry.first);
        return !value || value->type() == entry.second;
    });
}

bool isSplit(const Value& split) {
    using T = Value::Type;
    constexpr std::pair<std::string_view, T> types[] = {
        {txkey::amount, T::string}, {txkey::category, T::string}, {txkey::memo, T::string}};
    return split.isDictionary() && keysHaveTypes(split.dictionary(), types);
}

// A field of the wrong type would be written as nothing: a transaction without its amount or
// date, or without its splits, is money silently lost.
bool isTransaction(const Value& transaction) {
    using T = Value::Type;
    constexpr std::pair<std::string_view, T> types[] = {{txkey::date, T::string},
                                                        {txkey::number, T::string},
                                                        {txkey::description, T::string},
                                                        {txkey::memo, T::string},
                                                        {txkey::category, T::string},
                                                        {txkey::cleared, T::string},
                                                        {txkey::amount, T::string},
                                                        {txkey::trntype, T::string},
                                                        {txkey::errorMessage, T::string},
                                                        {txkey::errorText, T::string},
                                                        {txkey::splits, T::array},
                                                        {txkey::amountAlreadyConverted, T::boolean},
                                                        {txkey::AlreadySwapped, T::boolean},
                                                        {txkey::userSplits, T::boolean},
                                                        {txkey::outputLength, T::integer}};
    if (!transaction.isDictionary() || !keysHaveTypes(transaction.dictionary(), types))
        return false;
    const Value* splits = find(transaction.dictionary(), txkey::splits);
    return !splits || std::all_of(splits->array().begin(), splits->array().end(), isSplit);
}

} // namespace

bool resumableContinuation(const Dictionary& record) {
    using T = Value::Type;
    // An investment walk keeps its transactions under their own key, checked by its engine.
    bool investment = has(record, icontkey::iqif);
    if (investment && !resumableInvestmentContinuation(record))
        return false;
    constexpr std::pair<std::string_view, T> shape[] = {
        {contkey::fileAsString, T::string},
        {contkey::currentTransactionIndex, T::integer},
        {contkey::numberOfTransactionsAppended, T::integer},
        {contkey::outputFormatText, T::string},
        {contkey::sameDateSwitch, T::boolean},
        {contkey::sameNumberSwitch, T::boolean},
        {contkey::outputDateString, T::string},
        {contkey::outputNumberString, T::string},
        {contkey::account, T::string}};
    for (auto [key, type] : shape)
        if (!hasType(record, key, type))
            return false;
    if (investment)
        return true;
    if (!hasType(record, contkey::qif, T::array))
        return false;
    // An input type the program never offered would change amounts nobody asked to change.
    const Value* tag = find(record, contkey::inputTypeTag);
    constexpr std::int64_t known = kQifSwapDescriptionAndMemo | kQifReverseSigns;
    if (tag && (!tag->get<std::int64_t>() || (*tag->get<std::int64_t>() & ~known)))
        return false;
    const Array& transactions = find(record, contkey::qif)->array();
    if (!std::all_of(transactions.begin(), transactions.end(), isTransaction))
        return false;
    // A walk is only ever stopped at a transaction it holds, after at most that many outputs.
    std::int64_t index = integerOf(record, contkey::currentTransactionIndex);
    std::int64_t appended = integerOf(record, contkey::numberOfTransactionsAppended);
    return index >= 0 && static_cast<std::size_t>(index) < transactions.size() && appended >= 0 &&
           appended <= index;
}

} // namespace tavvel
