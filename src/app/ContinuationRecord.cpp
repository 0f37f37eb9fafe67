#include "app/ContinuationRecord.h"

#include "bank/QifInputTypes.h"

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

} // namespace

bool resumableContinuation(const Dictionary& record) {
    using T = Value::Type;
    constexpr std::pair<std::string_view, T> shape[] = {
        {contkey::qif, T::array},
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
    // An input type the program never offered would change amounts nobody asked to change.
    const Value* tag = find(record, contkey::inputTypeTag);
    constexpr std::int64_t known = kQifSwapDescriptionAndMemo | kQifReverseSigns;
    if (tag && (!tag->get<std::int64_t>() || (*tag->get<std::int64_t>() & ~known)))
        return false;
    const Array& transactions = find(record, contkey::qif)->array();
    if (!std::all_of(transactions.begin(), transactions.end(),
                     [](const Value& v) { return v.isDictionary(); }))
        return false;
    // A walk is only ever stopped at a transaction it holds, after at most that many outputs.
    std::int64_t index = integerOf(record, contkey::currentTransactionIndex);
    std::int64_t appended = integerOf(record, contkey::numberOfTransactionsAppended);
    return index >= 0 && static_cast<std::size_t>(index) < transactions.size() && appended >= 0 &&
           appended <= index;
}

} // namespace tavvel
