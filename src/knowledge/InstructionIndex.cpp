#include "knowledge/InstructionIndex.h"

#include "knowledge/KnowledgeKeys.h"
#include "knowledge/StoredList.h"
#include "recognize/CaseFold.h"

#include <algorithm>

namespace tavvel {

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

namespace {

// The rolling hash of every prefix of the text up to the length, in one pass.
std::vector<std::uint64_t> prefixHashes(std::string_view folded, std::size_t longest) {
    std::vector<std::uint64_t> hashes(longest + 1);
    RollingHash hash;
    for (std::size_t length = 0; length <= longest; ++length) {
        hashes[length] = hash.value();
        if (length < longest)
            hash.add(folded[length]);
    }
    return hashes;
}

} // namespace

// The table knows texts by hash only: a hit is confirmed against the list, where the entry's
// folded match text must be the probed text, and must apply character by character (which
// differs from bytes only where a text is not UTF-8).
std::optional<std::size_t> InstructionIndex::Lookup::probe(std::string_view folded,
                                                           std::uint64_t hash) const {
    if (!table.hasLength(folded.size()) || !table.mayHold(hash))
        return std::nullopt;
    const PositionList* at = table.positionsOf(hash);
    if (!at)
        return std::nullopt;
    return at->firstWhere([&](std::size_t position) {
        const std::string* match = position < list.size() ? textIn(list[position], key) : nullptr;
        if (!match || foldCase(*match) != folded)
            return false;
        return text.empty() || matchApplies(text, *match, rules);
    });
}

bool InstructionIndex::Lookup::better(const Hit& hit, const std::optional<Hit>& best) const {
    if (!best)
        return true;
    if (rules.longest && hit.length != best->length)
        return hit.length > best->length;
    return hit.position < best->position;
}

std::optional<std::size_t> InstructionIndex::find(const Array& list, std::string_view text,
                                                  std::string_view key, MatchRules rules) const {
    Lookup lookup{list, tableFor(key), text, key, rules};
    if (text.empty())
        return lookup.probe("", RollingHash().value());
    return rules.contains ? findContained(lookup) : findStartsWith(lookup);
}

std::optional<std::size_t> InstructionIndex::findStartsWith(const Lookup& lookup) {
    std::string folded = foldCase(lookup.text);
    std::size_t longest = std::min(folded.size(), lookup.table.longest());
    std::vector<std::uint64_t> hashes = prefixHashes(folded, longest);
    auto probe = [&](std::size_t length) {
        return lookup.probe(std::string_view(folded).substr(0, length), hashes[length]);
    };
    if (lookup.rules.longest) {
        // Prefixes of one text that differ in length differ in characters too, so the first
        // applying length from the top is the longest match.
        for (std::size_t length = longest; length > 0; --length)
            if (auto at = probe(length))
                return at;
        return std::nullopt;
    }
    std::optional<std::size_t> best;
    for (std::size_t length = 0; length <= longest; ++length)
        if (auto at = probe(length); at && (!best || *at < *best))
            best = at;
    return best;
}

std::optional<std::size_t> InstructionIndex::findContained(const Lookup& lookup) {
    std::string folded = foldCase(lookup.text);
    std::optional<Hit> best;
    for (std::size_t start = 0; start < folded.size(); ++start)
        findFrom(lookup, folded, start, best);
    return best ? std::optional<std::size_t>(best->position) : std::nullopt;
}

void InstructionIndex::findFrom(const Lookup& lookup, std::string_view folded, std::size_t start,
                                std::optional<Hit>& best) {
    RollingHash hash;
    std::size_t longest = std::min(folded.size() - start, lookup.table.longest());
    for (std::size_t length = 1; length <= longest; ++length) {
        hash.add(folded[start + length - 1]);
        std::string_view part = folded.substr(start, length);
        if (auto position = lookup.probe(part, hash.value())) {
            Hit hit{*position, characterCount(part)};
            if (lookup.better(hit, best))
                best = hit;
        }
    }
}

std::optional<std::size_t> InstructionIndex::firstWithMatchText(const Array& list,
                                                                std::string_view matchText) const {
    const PositionList* at = matchTexts_.positionsOf(rollingHashOf(foldCase(matchText)));
    if (!at)
        return std::nullopt;
    return at->firstWhere([&](std::size_t position) {
        const Dictionary* record =
            position < list.size() ? list[position].get<Dictionary>() : nullptr;
        return record && equalIgnoringCase(matchTextOf(*record), matchText);
    });
}

} // namespace tavvel
