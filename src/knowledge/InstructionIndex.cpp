#include "knowledge/InstructionIndex.h"

#include "knowledge/CaseFold.h"
#include "knowledge/KnowledgeKeys.h"
#include "knowledge/StoredList.h"

#include <algorithm>

namespace tavvel {

void InstructionIndex::Table::add(std::string folded, std::size_t position) {
    ++lengths_[folded.size()];
    auto& at = positions_[std::move(folded)];
    at.insert(std::upper_bound(at.begin(), at.end(), position), position);
}

void InstructionIndex::Table::remove(const std::string& folded, std::size_t position) {
    auto it = positions_.find(folded);
    if (it == positions_.end())
        return;
    auto& at = it->second;
    auto found = std::lower_bound(at.begin(), at.end(), position);
    if (found == at.end() || *found != position)
        return;
    at.erase(found);
    if (at.empty())
        positions_.erase(it);
    if (auto length = lengths_.find(folded.size());
        length != lengths_.end() && --length->second == 0)
        lengths_.erase(length);
}

// Positions are kept as list indexes, so an insertion or removal moves every later one; the
// list is written out whole on such a change anyway.
void InstructionIndex::Table::shift(std::size_t from, bool up) {
    for (auto& [text, at] : positions_)
        for (std::size_t& position : at)
            if (position >= from)
                position = up ? position + 1 : position - 1;
}

void InstructionIndex::Table::clear() {
    positions_.clear();
    lengths_.clear();
}

const std::vector<std::size_t>*
InstructionIndex::Table::positionsOf(std::string_view folded) const {
    auto it = positions_.find(folded);
    return it == positions_.end() ? nullptr : &it->second;
}

bool InstructionIndex::covers(std::string_view key) {
    return key == ikey::descriptionMatch || key == ikey::categoryMatch;
}

template <class Visit> void InstructionIndex::forEachKey(const Value& entry, Visit visit) {
    const Dictionary* record = entry.get<Dictionary>();
    if (!record)
        return;
    if (const std::string* match = textIn(entry, ikey::descriptionMatch))
        visit(descriptions_, foldCase(*match));
    if (const std::string* match = textIn(entry, ikey::categoryMatch))
        visit(categories_, foldCase(*match));
    visit(matchTexts_, foldCase(matchTextOf(*record)));
}

void InstructionIndex::add(std::size_t position, const Value& entry) {
    forEachKey(entry,
               [&](Table& table, std::string folded) { table.add(std::move(folded), position); });
}

void InstructionIndex::remove(std::size_t position, const Value& entry) {
    forEachKey(entry,
               [&](Table& table, const std::string& folded) { table.remove(folded, position); });
}

void InstructionIndex::build(const Array& list) {
    descriptions_.clear();
    categories_.clear();
    matchTexts_.clear();
    for (std::size_t i = 0; i < list.size(); ++i)
        add(i, list[i]);
}

void InstructionIndex::inserted(std::size_t position, const Value& entry) {
    for (Table* table : {&descriptions_, &categories_, &matchTexts_})
        table->shift(position, true);
    add(position, entry);
}

void InstructionIndex::erased(std::size_t position, const Value& entry) {
    remove(position, entry);
    for (Table* table : {&descriptions_, &categories_, &matchTexts_})
        table->shift(position + 1, false);
}

void InstructionIndex::replaced(std::size_t position, const Value& old, const Value& now) {
    remove(position, old);
    add(position, now);
}

const InstructionIndex::Table& InstructionIndex::tableFor(std::string_view key) const {
    return key == ikey::categoryMatch ? categories_ : descriptions_;
}

// Entries with equal folded match texts apply alike; the check against the list itself only
// guards bytes that are not UTF-8, where folded bytes and characters part ways.
std::optional<std::size_t> InstructionIndex::firstApplying(const Array& list, const Table& table,
                                                           std::string_view folded,
                                                           std::string_view text,
                                                           std::string_view key,
                                                           MatchRules rules) const {
    const std::vector<std::size_t>* at = table.positionsOf(folded);
    if (!at)
        return std::nullopt;
    for (std::size_t position : *at) {
        if (position >= list.size())
            continue;
        const std::string* match = textIn(list[position], key);
        if (match && (text.empty() ? match->empty() : matchApplies(text, *match, rules)))
            return position;
    }
    return std::nullopt;
}

std::optional<std::size_t> InstructionIndex::find(const Array& list, std::string_view text,
                                                  std::string_view key, MatchRules rules) const {
    const Table& table = tableFor(key);
    if (text.empty())
        return firstApplying(list, table, "", text, key, rules);
    if (rules.contains)
        return findContained(list, table, text, key, rules);
    return findStartsWith(list, table, text, key, rules);
}

std::optional<std::size_t> InstructionIndex::findStartsWith(const Array& list, const Table& table,
                                                            std::string_view text,
                                                            std::string_view key,
                                                            MatchRules rules) const {
    std::string folded = foldCase(text);
    std::string_view whole = folded;
    if (rules.longest) {
        // Prefixes of one text that differ in length differ in characters too, so the first
        // applying length from the top is the longest match.
        for (auto it = table.lengths().rbegin(); it != table.lengths().rend(); ++it) {
            if (it->first == 0 || it->first > whole.size())
                continue;
            if (auto at = firstApplying(list, table, whole.substr(0, it->first), text, key, rules))
                return at;
        }
        return std::nullopt;
    }
    std::optional<std::size_t> best;
    for (auto [length, count] : table.lengths()) {
        if (length > whole.size())
            break;
        auto at = firstApplying(list, table, whole.substr(0, length), text, key, rules);
        if (at && (!best || *at < *best))
            best = at;
    }
    return best;
}

std::optional<std::size_t> InstructionIndex::findContained(const Array& list, const Table& table,
                                                           std::string_view text,
                                                           std::string_view key,
                                                           MatchRules rules) const {
    std::string folded = foldCase(text);
    std::string_view whole = folded;
    std::optional<Hit> best;
    auto better = [&](const Hit& hit) {
        if (!best)
            return true;
        if (rules.longest && hit.length != best->length)
            return hit.length > best->length;
        return hit.position < best->position;
    };
    for (auto [length, count] : table.lengths()) {
        if (length > whole.size())
            break;
        for (std::size_t start = 0; length > 0 && start + length <= whole.size(); ++start) {
            std::string_view part = whole.substr(start, length);
            const std::vector<std::size_t>* at = table.positionsOf(part);
            if (!at || (best && !rules.longest && at->front() >= best->position))
                continue;
            if (auto position = firstApplying(list, table, part, text, key, rules)) {
                Hit hit{*position, characterCount(part)};
                if (better(hit))
                    best = hit;
            }
        }
    }
    return best ? std::optional<std::size_t>(best->position) : std::nullopt;
}

std::optional<std::size_t> InstructionIndex::firstWithMatchText(const Array& list,
                                                                std::string_view matchText) const {
    const std::vector<std::size_t>* at = matchTexts_.positionsOf(foldCase(matchText));
    if (!at)
        return std::nullopt;
    for (std::size_t position : *at) {
        const Dictionary* record =
            position < list.size() ? list[position].get<Dictionary>() : nullptr;
        if (record && equalIgnoringCase(matchTextOf(*record), matchText))
            return position;
    }
    return std::nullopt;
}

} // namespace tavvel
