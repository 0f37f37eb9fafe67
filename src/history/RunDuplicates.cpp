#include "history/RunDuplicates.h"

#include "history/HistoryDatabase.h"

#include <algorithm>

namespace tavvel {

namespace {

std::string joined(const TransactionKey& key) {
    if (!key.fitid.empty())
        return "id\x1f" + key.fitid;
    return key.date + '\x1f' + key.amount + '\x1f' + key.number + '\x1f' + key.description;
}

} // namespace

// Only keys the history knows need counting: the others are never duplicates, however often
// they come.
void RunDuplicates::mark(std::size_t index, TransactionKey key) {
    if (db_) {
        KnownKey known = db_->lookUp(account_, key);
        if (known.count > 0 && seen_[joined(key)]++ < known.count)
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

RunDuplicates::Walked& RunDuplicates::walkedAt(std::size_t index) {
    if (walked_.size() <= index)
        walked_.resize(std::max(index + 1, keys_.size()));
    return walked_[index];
}

void RunDuplicates::written(std::size_t index, std::string category, std::string instruction) {
    walkedAt(index) = {Outcome::written, std::move(category), std::move(instruction)};
}

void RunDuplicates::leftOut(std::size_t index) {
    walkedAt(index) = {Outcome::leftOut, {}, {}};
}

std::size_t RunDuplicates::duplicatesLeftOut() const {
    std::size_t n = 0;
    for (const auto& [index, at] : duplicateAt_)
        n += index < walked_.size() && walked_[index].outcome == Outcome::leftOut ? 1 : 0;
    return n;
}

std::vector<HistoryEntry> RunDuplicates::entries() const {
    std::vector<HistoryEntry> out;
    for (std::size_t i = 0; i < walked_.size(); ++i)
        if (walked_[i].outcome == Outcome::written)
            out.push_back({i < keys_.size() ? keys_[i] : TransactionKey{}, walked_[i].category,
                           walked_[i].instruction});
    return out;
}

std::map<std::size_t, HistoryEntry> RunDuplicates::writtenSoFar() const {
    std::map<std::size_t, HistoryEntry> out;
    for (std::size_t i = 0; i < walked_.size(); ++i)
        if (walked_[i].outcome == Outcome::written)
            out.emplace(i, HistoryEntry{{}, walked_[i].category, walked_[i].instruction});
    return out;
}

} // namespace tavvel
