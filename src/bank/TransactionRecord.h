#pragma once
// One bank or credit-card transaction as read from a statement and walked: fixed fields that
// point into the statement's text, which is read once and must outlive its records. A text
// the walk rewrites (an amount made ready for output, a capitalised description) is kept by
// the record itself. The dictionary form exists only where records are stored (the
// continuation file), and converts both ways without loss.

#include "prefs/Value.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <forward_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

// The text fields of a record, each stored under its key of TransactionKeys.h.
enum class TxField : std::uint8_t {
    date,
    number,
    description,
    memo,
    category,
    cleared,
    amount,
    fitid,
    trntype,
    errorMessage,
    errorText,
};
inline constexpr std::size_t kTxFieldCount = 11;
// The fields every transaction may have (an OFX statement's id for each transaction among
// them, as nearly every OFX transaction has one), before those of OFX types and unreadable
// pieces.
inline constexpr std::size_t kTxCommonFields = 8;

class TransactionRecord {
public:
    TransactionRecord() = default;
    // Views into the record's own texts must follow it, so a copy is made on purpose only.
    TransactionRecord(TransactionRecord&&) noexcept = default;
    TransactionRecord& operator=(TransactionRecord&&) noexcept = default;
    TransactionRecord(const TransactionRecord&) = delete;
    TransactionRecord& operator=(const TransactionRecord&) = delete;
    TransactionRecord copy() const;

    // An unreadable transaction: the message the user is shown and the offending text.
    static TransactionRecord error(std::string_view message, std::string_view text);

    bool has(TxField f) const { return present_ & bit(f); }
    // The field's text; "" when absent. Valid while the record and its statement are.
    std::string_view text(TxField f) const {
        if (index(f) < kTxCommonFields)
            return views_[index(f)];
        return rare_ ? rare_->views[index(f) - kTxCommonFields] : std::string_view();
    }
    std::optional<std::string> optionalText(TxField f) const;
    // Points the field at text that outlives the record (the statement, a constant).
    void point(TxField f, std::string_view text);
    // Keeps a copy of the text in the record.
    void set(TxField f, std::string_view text);
    void erase(TxField f);

    bool isError() const { return has(TxField::errorMessage); }

    const std::optional<Array>& splits() const;
    void setSplits(std::optional<Array> splits);

    // The walk's marks: where the transaction's output began (so Back can take it away), and
    // the changes that must not be made twice when the walk comes back to it.
    std::optional<std::size_t> outputLength() const {
        return hasOutputLength_ ? std::optional(outputLength_) : std::nullopt;
    }
    void setOutputLength(std::optional<std::size_t> length) {
        hasOutputLength_ = length.has_value();
        outputLength_ = length.value_or(0);
    }
    bool alreadySwapped() const { return alreadySwapped_.has_value(); }
    void markSwapped() { alreadySwapped_ = true; }
    bool amountConverted() const { return amountConverted_.value_or(false); }
    void markAmountConverted() { amountConverted_ = true; }
    bool userSplits() const { return rare_ && rare_->userSplits; }
    void setUserSplits(bool on);

    // The stored form, and back. Keys the record has no field for are kept as they were.
    Dictionary toDictionary() const;
    static TransactionRecord fromDictionary(const Dictionary& stored);

private:
    static constexpr std::size_t index(TxField f) { return static_cast<std::size_t>(f); }
    static constexpr std::uint16_t bit(TxField f) {
        return static_cast<std::uint16_t>(1u << index(f));
    }

    std::string_view& view(TxField f);

    std::array<std::string_view, kTxCommonFields> views_{};
    std::uint16_t present_ = 0;
    // Marks keep the stored value they were read with, so a resumed record is stored again
    // as it was.
    std::optional<bool> alreadySwapped_;
    std::optional<bool> amountConverted_;
    bool hasOutputLength_ = false;
    std::size_t outputLength_ = 0;
    // Texts the record keeps itself; a list, so a view into one stays put when more are added.
    std::forward_list<std::string> owned_;
    // What few records hold, out of line to keep every record small: the fields of OFX types
    // and unreadable pieces, splits, the mark of splits the user chose, and keys of a
    // stored record that no field holds.
    struct Rare {
        std::array<std::string_view, kTxFieldCount - kTxCommonFields> views{};
        std::optional<Array> splits;
        std::optional<Value> userSplits;
        Dictionary otherKeys;
    };
    std::unique_ptr<Rare> rare_;
    Rare& rare();
};

} // namespace tavvel
