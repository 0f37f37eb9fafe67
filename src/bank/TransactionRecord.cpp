#include "bank/TransactionRecord.h"

#include "formats/TransactionKeys.h"

namespace tavvel {

namespace {

constexpr std::array<std::string_view, kTxFieldCount> kFieldKeys = {
    txkey::date,     txkey::number,       txkey::description, txkey::memo,
    txkey::category, txkey::cleared,      txkey::amount,      txkey::fitid,
    txkey::trntype,  txkey::errorMessage, txkey::errorText};

bool isFieldOrMark(const std::string& key) {
    for (std::string_view k : kFieldKeys)
        if (key == k)
            return true;
    return key == txkey::splits || key == txkey::outputLength || key == txkey::AlreadySwapped ||
           key == txkey::amountAlreadyConverted || key == txkey::userSplits;
}

} // namespace

TransactionRecord TransactionRecord::error(std::string_view message, std::string_view text) {
    TransactionRecord record;
    record.point(TxField::errorMessage, message);
    record.point(TxField::errorText, text);
    return record;
}

std::optional<std::string> TransactionRecord::optionalText(TxField f) const {
    if (!has(f))
        return std::nullopt;
    return std::string(text(f));
}

void TransactionRecord::point(TxField f, std::string_view text) {
    view(f) = text;
    present_ = static_cast<std::uint16_t>(present_ | bit(f));
}

void TransactionRecord::set(TxField f, std::string_view text) {
    owned_.emplace_front(text);
    point(f, owned_.front());
}

void TransactionRecord::erase(TxField f) {
    if (index(f) < kTxCommonFields || rare_)
        view(f) = {};
    present_ = static_cast<std::uint16_t>(present_ & ~bit(f));
}

std::string_view& TransactionRecord::view(TxField f) {
    if (index(f) < kTxCommonFields)
        return views_[index(f)];
    return rare().views[index(f) - kTxCommonFields];
}

TransactionRecord::Rare& TransactionRecord::rare() {
    if (!rare_)
        rare_ = std::make_unique<Rare>();
    return *rare_;
}

const std::optional<Array>& TransactionRecord::splits() const {
    static const std::optional<Array> none;
    return rare_ ? rare_->splits : none;
}

void TransactionRecord::setSplits(std::optional<Array> splits) {
    if (splits || rare_)
        rare().splits = std::move(splits);
}

void TransactionRecord::setUserSplits(bool on) {
    if (on)
        rare().userSplits = Value("Y");
    else if (rare_)
        rare_->userSplits.reset();
}

TransactionRecord TransactionRecord::copy() const {
    TransactionRecord c;
    // The rare part first: its views are then replaced by views into the copy's own texts.
    if (rare_)
        c.rare_ = std::make_unique<Rare>(*rare_);
    for (std::size_t i = 0; i < kTxFieldCount; ++i)
        if (has(static_cast<TxField>(i)))
            c.set(static_cast<TxField>(i), text(static_cast<TxField>(i)));
    c.alreadySwapped_ = alreadySwapped_;
    c.amountConverted_ = amountConverted_;
    c.setOutputLength(outputLength());
    return c;
}

Dictionary TransactionRecord::toDictionary() const {
    Dictionary stored = rare_ ? rare_->otherKeys : Dictionary{};
    for (std::size_t i = 0; i < kTxFieldCount; ++i)
        if (has(static_cast<TxField>(i)))
            stored.insert_or_assign(std::string(kFieldKeys[i]),
                                    Value(std::string(text(static_cast<TxField>(i)))));
    if (rare_ && rare_->splits)
        stored.insert_or_assign(std::string(txkey::splits), Value(*rare_->splits));
    if (hasOutputLength_)
        stored.insert_or_assign(std::string(txkey::outputLength),
                                Value(static_cast<std::int64_t>(outputLength_)));
    if (alreadySwapped_)
        stored.insert_or_assign(std::string(txkey::AlreadySwapped), Value(*alreadySwapped_));
    if (amountConverted_)
        stored.insert_or_assign(std::string(txkey::amountAlreadyConverted),
                                Value(*amountConverted_));
    if (rare_ && rare_->userSplits)
        stored.insert_or_assign(std::string(txkey::userSplits), *rare_->userSplits);
    return stored;
}

TransactionRecord TransactionRecord::fromDictionary(const Dictionary& stored) {
    TransactionRecord record;
    for (std::size_t i = 0; i < kTxFieldCount; ++i)
        if (tavvel::has(stored, kFieldKeys[i]))
            record.set(static_cast<TxField>(i), textViewOf(stored, kFieldKeys[i]));
    if (const Value* splits = find(stored, txkey::splits); splits && splits->isArray())
        record.rare().splits = splits->array();
    if (const Value* length = find(stored, txkey::outputLength))
        record.setOutputLength(static_cast<std::size_t>(length->toInteger()));
    if (const Value* swapped = find(stored, txkey::AlreadySwapped))
        record.alreadySwapped_ = swapped->toBool();
    if (const Value* converted = find(stored, txkey::amountAlreadyConverted))
        record.amountConverted_ = converted->toBool();
    if (const Value* user = find(stored, txkey::userSplits))
        record.rare().userSplits = *user;
    for (const auto& [key, value] : stored)
        if (!isFieldOrMark(key))
            record.rare().otherKeys.emplace(key, value);
    return record;
}

} // namespace tavvel
