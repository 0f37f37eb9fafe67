#pragma once
// Transaction records read from a text statement, kept packed in one buffer until the walk
// reaches them: a statement of many thousands of transactions then costs a few bytes a
// transaction instead of a map of texts each, for as long as the walk has not reached it.

#include "prefs/Value.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class PendingRecords {
public:
    // A record's texts in the order of `keys`; nothing for a key the record lacks.
    using Texts = std::array<std::optional<std::string_view>, 6>;
    static const std::array<std::string_view, 6> keys;

    // The record the texts make, as the walk reads it.
    static Dictionary recordOf(const Texts& texts);

    void add(const Texts& texts);
    std::size_t size() const { return starts_.size(); }
    // Whether record `i` was added and not taken yet.
    bool pending(std::size_t i) const { return i < starts_.size() && starts_[i] != taken; }
    // Record `i`, which stops being pending. Only for a pending record.
    Dictionary take(std::size_t i);
    // Texts of pending record `i`, which stays pending.
    Texts textsAt(std::size_t i) const;
    // Keeps a record nothing reads any more (which it empties), for the next records taken
    // to be built in: a walk over many thousands of transactions then hardly allocates.
    void recycle(Dictionary& record);
    // Adds an entry the record lacks (the walk's own marks), in one set aside from walked
    // records when there is one.
    void insert(Dictionary& record, std::string_view key, Value value);
    void clear();

private:
    static constexpr std::size_t taken = static_cast<std::size_t>(-1);
    static constexpr std::size_t spareLimit = 16; // more than a record's entries
    void fillIn(Dictionary& record, const Texts& texts);
    Dictionary::iterator setAside(Dictionary& record, Dictionary::iterator entry);
    void put(Dictionary& record, Dictionary::iterator before, std::string_view key,
             std::string_view text);

    Dictionary reusable_; // the last record recycled, rewritten into the next one taken
    std::vector<Dictionary::node_type> spare_;
    std::string packed_; // per record: which keys it has, then each text's length and bytes
    std::vector<std::size_t> starts_; // where each record begins in packed_
};

} // namespace tavvel
