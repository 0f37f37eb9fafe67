#include "knowledge/FoldedTextTable.h"

#include <algorithm>

namespace tavvel {

namespace {

// Sixteen to thirty-two filter bits per text keep false hits to a few in a hundred.
constexpr std::size_t kBitsPerText = 16;
constexpr std::size_t kSmallestFilter = 1024;

std::uint64_t mixed(std::uint64_t hash) {
    hash ^= hash >> 33;
    hash *= 0xff51afd7ed558ccdULL;
    hash ^= hash >> 33;
    return hash;
}

std::size_t shifted(std::size_t position, std::size_t from, bool up) {
    if (position < from)
        return position;
    return up ? position + 1 : position - 1;
}

} // namespace

std::uint64_t rollingHashOf(std::string_view text) {
    RollingHash hash;
    for (char byte : text)
        hash.add(byte);
    return hash.value();
}

void PositionList::insert(std::size_t position) {
    if (position < first_)
        std::swap(position, first_);
    more_.insert(std::upper_bound(more_.begin(), more_.end(), position), position);
}

bool PositionList::contains(std::size_t position) const {
    return position == first_ || std::binary_search(more_.begin(), more_.end(), position);
}

bool PositionList::erase(std::size_t position) {
    if (position == first_) {
        if (more_.empty())
            return false;
        first_ = more_.front();
        more_.erase(more_.begin());
        return true;
    }
    auto found = std::lower_bound(more_.begin(), more_.end(), position);
    if (found != more_.end() && *found == position)
        more_.erase(found);
    return true;
}

void PositionList::shift(std::size_t from, bool up) {
    first_ = shifted(first_, from, up);
    for (std::size_t& position : more_)
        position = shifted(position, from, up);
}

void FoldedTextTable::add(std::string_view folded, std::size_t position) {
    if (lengths_.size() <= folded.size())
        lengths_.resize(folded.size() + 1);
    ++lengths_[folded.size()];
    std::uint64_t hash = rollingHashOf(folded);
    auto [it, inserted] = positions_.try_emplace(hash, position);
    if (!inserted) {
        it->second.insert(position);
        return;
    }
    if (positions_.size() * kBitsPerText > filter_.size() * 64)
        rebuildFilter();
    else
        remember(hash);
}

void FoldedTextTable::remove(std::string_view folded, std::size_t position) {
    auto it = positions_.find(rollingHashOf(folded));
    if (it == positions_.end() || !it->second.contains(position))
        return;
    if (!it->second.erase(position))
        positions_.erase(it);
    --lengths_[folded.size()];
    while (!lengths_.empty() && lengths_.back() == 0)
        lengths_.pop_back();
}

// Positions are kept as list indexes, so an insertion or removal moves every later one; the
// list is written out whole on such a change anyway.
void FoldedTextTable::shift(std::size_t from, bool up) {
    for (auto& [hash, at] : positions_)
        at.shift(from, up);
}

void FoldedTextTable::clear() {
    positions_.clear();
    lengths_.clear();
    filter_.clear();
}

const PositionList* FoldedTextTable::positionsOf(std::uint64_t hash) const {
    auto it = positions_.find(hash);
    return it == positions_.end() ? nullptr : &it->second;
}

// Both bits of a text lie in one word, so a probe reads one word of the filter.
bool FoldedTextTable::mayHold(std::uint64_t hash) const {
    if (filter_.empty())
        return false;
    std::uint64_t bits = mixed(hash);
    std::uint64_t wanted = bitsOf(bits);
    return (filter_[wordOf(bits)] & wanted) == wanted;
}

void FoldedTextTable::remember(std::uint64_t hash) {
    std::uint64_t bits = mixed(hash);
    filter_[wordOf(bits)] |= bitsOf(bits);
}

std::size_t FoldedTextTable::wordOf(std::uint64_t bits) const {
    return static_cast<std::size_t>(bits >> 12) & (filter_.size() - 1);
}

std::uint64_t FoldedTextTable::bitsOf(std::uint64_t bits) {
    return std::uint64_t{1} << (bits & 63) | std::uint64_t{1} << ((bits >> 6) & 63);
}

void FoldedTextTable::rebuildFilter() {
    std::size_t bits = kSmallestFilter;
    while (bits < positions_.size() * kBitsPerText * 2)
        bits *= 2;
    filter_.assign(bits / 64, 0);
    for (const auto& [hash, at] : positions_)
        remember(hash);
}

} // namespace tavvel
