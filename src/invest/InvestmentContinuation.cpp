#include "invest/InvestmentContinuation.h"

namespace tavvel {

namespace {

struct TextField {
    std::string_view key;
    std::string InvestmentRecord::*field;
};
constexpr TextField kTexts[] = {
    {"Date", &InvestmentRecord::date},           {"Type", &InvestmentRecord::type},
    {"Security", &InvestmentRecord::security},   {"Symbol", &InvestmentRecord::symbol},
    {"Memo", &InvestmentRecord::memo},           {"Description", &InvestmentRecord::description},
    {"Check", &InvestmentRecord::check},         {"errorMessage", &InvestmentRecord::errorMessage},
    {"errorText", &InvestmentRecord::errorText}, {"Category", &InvestmentRecord::category},
    {"badValue", &InvestmentRecord::badValue}};

struct NumberField {
    std::string_view key;
    double InvestmentRecord::*field;
};
constexpr NumberField kNumbers[] = {{"Amount", &InvestmentRecord::amount},
                                    {"Price", &InvestmentRecord::price},
                                    {"Shares", &InvestmentRecord::shares}};

struct FlagField {
    std::string_view key;
    bool InvestmentRecord::*field;
};
constexpr FlagField kFlags[] = {{"amountWasNegative", &InvestmentRecord::amountWasNegative},
                                {"sharesWereNegative", &InvestmentRecord::sharesWereNegative}};

constexpr std::string_view kFees = "Fees";

bool readNumber(const Dictionary& stored, std::string_view key, double& into) {
    const Value* value = find(stored, key);
    if (!value)
        return true;
    if (!value->isReal() && !value->isInteger())
        return false;
    into = value->toDouble();
    return into >= 0;
}

} // namespace

Dictionary investmentRecordAsDictionary(const InvestmentRecord& record) {
    Dictionary stored;
    for (const TextField& text : kTexts)
        if (!(record.*text.field).empty())
            stored.emplace(std::string(text.key), Value(record.*text.field));
    for (const NumberField& number : kNumbers)
        stored.emplace(std::string(number.key), Value(record.*number.field));
    for (const FlagField& flag : kFlags)
        stored.emplace(std::string(flag.key), Value(record.*flag.field));
    if (record.fees)
        stored.emplace(std::string(kFees), Value(*record.fees));
    return stored;
}

std::optional<InvestmentRecord> investmentRecordFrom(const Value& value) {
    if (!value.isDictionary())
        return std::nullopt;
    const Dictionary& stored = value.dictionary();
    InvestmentRecord record;
    for (const TextField& text : kTexts) {
        const Value* found = find(stored, text.key);
        if (found && found->type() != Value::Type::string)
            return std::nullopt;
        record.*text.field = found ? found->text() : std::string();
    }
    for (const NumberField& number : kNumbers)
        if (!readNumber(stored, number.key, record.*number.field))
            return std::nullopt;
    for (const FlagField& flag : kFlags) {
        const Value* found = find(stored, flag.key);
        if (found && !found->isBoolean())
            return std::nullopt;
        record.*flag.field = found && found->toBool();
    }
    if (const Value* fees = find(stored, kFees)) {
        if (!fees->isReal() && !fees->isInteger())
            return std::nullopt;
        record.fees = fees->toDouble();
    }
    // Something must say what the transaction is: a walk shows it, or explains why not.
    if (record.errorMessage.empty() && record.date.empty() && record.type.empty())
        return std::nullopt;
    return record;
}

bool resumableInvestmentContinuation(const Dictionary& record) {
    const Value* records = find(record, icontkey::iqif);
    const Value* output = find(record, icontkey::fileAsString);
    const Value* index = find(record, icontkey::currentTransactionIndex);
    const Value* appended = find(record, icontkey::numberOfTransactionsAppended);
    if (!records || !records->isArray() || !output || output->type() != Value::Type::string ||
        !index || !index->isInteger() || !appended || !appended->isInteger())
        return false;
    const Array& list = records->array();
    for (const Value& stored : list)
        if (!investmentRecordFrom(stored))
            return false;
    // A walk only stops at a transaction it holds, after at most that many outputs.
    return index->toInteger() >= 0 && static_cast<std::size_t>(index->toInteger()) < list.size() &&
           appended->toInteger() >= 0 && appended->toInteger() <= index->toInteger();
}

} // namespace tavvel
