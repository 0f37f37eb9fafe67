#include "history/RunDuplicates.h"

#include "history/HistoryDatabase.h"

namespace tavvel {

namespace {

std::string joined(const TransactionKey& key) {
    if (!key.fitid.empty())
        return "id\x1f" + key.fitid;
    return key.date + '\x1f' + key.amount + '\x1f' + key.number + '\x1f' + key.description;
}

} // namespace

void RunDuplicates::mark(std::size_t index, TransactionKey key) {
    if (db_) {
        std::int64_t before = seen_[joined(key)]++;
        KnownKey known = db_->lookUp(account_, key);
        if (before < known.count)
            duplicateAt_[index] = known.firstConvertedAt;
    }
    ++marked_;
    if (keys_.size() <= index)
        keys_.resize(index + 1);
    keys_[index] = std::move(key);
}

std::optional<std::int64_t> RunDuplicates::duplicateOn(std::size_t index) const {
    auto it = duplicateAt_.find(index);
    return it == duplicateAt_.end() ? std::nullopt : std::optional(it->second);
}

std::int64_t RunDuplicates::firstConvertedAt() const {
    std::int64_t first = 0;
    for (const auto& [index, at] : duplicateAt_)
        if (first == 0 || at < first)
            first = at;
    return first;
}

void RunDuplicates::leaveAllOut() {
    for (const auto& [index, at] : duplicateAt_)
        leftOut(index);
}

void RunDuplicates::written(std::size_t index, std::string category, std::string instruction) {
    HistoryEntry entry{index < keys_.size() ? keys_[index] : TransactionKey{}, std::move(category),
                       std::move(instruction)};
    written_.insert_or_assign(index, std::move(entry));
    leftOut_.erase(index);
}

void RunDuplicates::leftOut(std::size_t index) {
    written_.erase(index);
    leftOut_.insert_or_assign(index, duplicateAt_.contains(index));
}

std::size_t RunDuplicates::duplicatesLeftOut() const {
    std::size_t n = 0;
    for (const auto& [index, duplicate] : leftOut_)
        n += duplicate ? 1 : 0;
    return n;
}

std::vector<HistoryEntry> RunDuplicates::entries() const {
    std::vector<HistoryEntry> out;
    out.reserve(written_.size());
    for (const auto& [index, entry] : written_)
        out.push_back(entry);
    return out;
}

} // namespace tavvel
