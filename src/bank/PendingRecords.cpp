#include "bank/PendingRecords.h"

#include "formats/TransactionKeys.h"

#include <algorithm>
#include <iterator>

namespace tavvel {

namespace {

// Seven bits a byte, the high bit set on all but the last: most texts are short.
void appendLength(std::string& into, std::size_t length) {
    while (length >= 0x80) {
        into.push_back(static_cast<char>((length & 0x7f) | 0x80));
        length >>= 7;
    }
    into.push_back(static_cast<char>(length));
}

std::size_t readLength(const std::string& from, std::size_t& at) {
    std::size_t length = 0;
    for (unsigned shift = 0;; shift += 7) {
        auto byte = static_cast<unsigned char>(from[at++]);
        length |= static_cast<std::size_t>(byte & 0x7f) << shift;
        if (!(byte & 0x80))
            return length;
    }
}

} // namespace

const std::array<std::string_view, 6> PendingRecords::keys = {
    txkey::date, txkey::number, txkey::description, txkey::memo, txkey::category, txkey::amount};

namespace {

// The keys' positions in a record's own order: each entry then goes in at the end, with no
// search down the tree.
const std::array<std::size_t, 6> keysInOrder = [] {
    std::array<std::size_t, 6> order{0, 1, 2, 3, 4, 5};
    std::sort(order.begin(), order.end(), [](std::size_t a, std::size_t b) {
        return KeyOrder{}(PendingRecords::keys[a], PendingRecords::keys[b]);
    });
    return order;
}();

} // namespace

Dictionary PendingRecords::recordOf(const Texts& texts) {
    Dictionary record;
    for (std::size_t k : keysInOrder)
        if (texts[k])
            record.emplace_hint(record.end(), std::string(keys[k]), Value(std::string(*texts[k])));
    return record;
}

void PendingRecords::add(const Texts& texts) {
    starts_.push_back(packed_.size());
    unsigned char present = 0;
    for (std::size_t k = 0; k < keys.size(); ++k)
        if (texts[k])
            present = static_cast<unsigned char>(present | (1u << k));
    packed_.push_back(static_cast<char>(present));
    for (const std::optional<std::string_view>& text : texts) {
        if (!text)
            continue;
        appendLength(packed_, text->size());
        packed_.append(*text);
    }
}

PendingRecords::Texts PendingRecords::textsAt(std::size_t i) const {
    std::size_t at = starts_[i];
    auto present = static_cast<unsigned char>(packed_[at++]);
    Texts texts;
    for (std::size_t k = 0; k < keys.size(); ++k) {
        if (!(present & (1u << k)))
            continue;
        std::size_t length = readLength(packed_, at);
        texts[k] = std::string_view(packed_).substr(at, length);
        at += length;
    }
    return texts;
}

Dictionary PendingRecords::take(std::size_t i) {
    Texts texts = textsAt(i);
    starts_[i] = taken;
    Dictionary record = std::move(reusable_);
    reusable_.clear();
    fillIn(record, texts);
    return record;
}

// Records mostly hold the same keys one after another: going through the walked record and
// the keys together, in their shared order, rewrites each text in place and moves out only
// the entries the new record lacks.
void PendingRecords::fillIn(Dictionary& record, const Texts& texts) {
    auto entry = record.begin();
    for (std::size_t k : keysInOrder) {
        while (entry != record.end() && KeyOrder{}(entry->first, keys[k]))
            entry = setAside(record, entry);
        const bool here = entry != record.end() && sameBytes(entry->first, keys[k]);
        if (!texts[k]) {
            if (here)
                entry = setAside(record, entry);
            continue;
        }
        if (!here) {
            put(record, entry, keys[k], *texts[k]);
            continue;
        }
        if (std::string* own = entry->second.get<std::string>())
            own->assign(*texts[k]);
        else
            entry->second = Value(std::string(*texts[k]));
        ++entry;
    }
    while (entry != record.end())
        entry = setAside(record, entry);
}

Dictionary::iterator PendingRecords::setAside(Dictionary& record, Dictionary::iterator entry) {
    auto next = std::next(entry);
    if (spare_.size() < spareLimit)
        spare_.push_back(record.extract(entry));
    else
        record.erase(entry);
    return next;
}

// An entry set aside keeps its key's and text's buffers: assigning into them allocates only
// for a longer text.
void PendingRecords::put(Dictionary& record, Dictionary::iterator before, std::string_view key,
                         std::string_view text) {
    if (spare_.empty()) {
        record.emplace_hint(before, std::string(key), Value(std::string(text)));
        return;
    }
    Dictionary::node_type node = std::move(spare_.back());
    spare_.pop_back();
    node.key().assign(key);
    if (std::string* own = node.mapped().get<std::string>())
        own->assign(text);
    else
        node.mapped() = Value(std::string(text));
    record.insert(before, std::move(node));
}

void PendingRecords::insert(Dictionary& record, std::string_view key, Value value) {
    if (spare_.empty()) {
        record.emplace(std::string(key), std::move(value));
        return;
    }
    Dictionary::node_type node = std::move(spare_.back());
    spare_.pop_back();
    node.key().assign(key);
    node.mapped() = std::move(value);
    record.insert(std::move(node));
}

void PendingRecords::recycle(Dictionary& record) {
    if (reusable_.empty()) {
        reusable_.swap(record);
        return;
    }
    for (auto entry = record.begin(); entry != record.end();)
        entry = setAside(record, entry);
}

void PendingRecords::clear() {
    std::string().swap(packed_);
    std::vector<std::size_t>().swap(starts_);
    std::vector<Dictionary::node_type>().swap(spare_);
    reusable_.clear();
}

} // namespace tavvel
