#include "knowledge/Instructions.h"

#include "knowledge/KnowledgeKeys.h"
#include "knowledge/StoredList.h"
#include "prefs/Settings.h"
#include "recognize/CaseFold.h"

#include <any>
#include <utility>

namespace tavvel {

namespace {

// The match text of a stored entry, without a copy.
std::string_view matchTextOfEntry(const Value& entry) {
    const Dictionary* record = entry.get<Dictionary>();
    if (!record)
        return {};
    const Value* match = find(*record, ikey::descriptionMatch);
    if (!match)
        match = find(*record, ikey::categoryMatch);
    return match ? std::string_view(match->text()) : std::string_view();
}

} // namespace

Instructions::Instructions(TvPrefs& prefs)
    : prefs_(prefs), shared_(sharedIn(prefs)), index_(shared_->index), stamp_(shared_->stamp) {}

// The index the preference store keeps for the list, made by the first store object on it.
std::shared_ptr<Instructions::Shared> Instructions::sharedIn(TvPrefs& prefs) {
    std::any& kept = prefs.derivedFrom(prefkey::Instructions);
    if (auto* shared = std::any_cast<std::shared_ptr<Shared>>(&kept))
        return *shared;
    auto shared = std::make_shared<Shared>();
    kept = shared;
    return shared;
}

const Array& Instructions::list() const {
    return listIn(prefs_, prefkey::Instructions);
}

std::uint64_t Instructions::currentStamp() const {
    return prefs_.changeCount(prefkey::Instructions);
}

const InstructionIndex& Instructions::currentIndex() const {
    if (stamp_ != currentStamp())
        reload();
    return index_;
}

void Instructions::reload() const {
    index_.build(list());
    stamp_ = currentStamp();
}

void Instructions::write(Array instructions) {
    writeList(prefs_, prefkey::Instructions, std::move(instructions));
    stamp_ = currentStamp();
}

std::optional<std::size_t> Instructions::indexOfInstructionMatching(std::string_view text,
                                                                    std::string_view key) const {
    MatchRules rules = matchRulesFor(prefs_, key);
    if (!InstructionIndex::covers(key))
        return walkForInstruction(list(), text, key, rules);
    return currentIndex().find(list(), text, key, rules);
}

std::optional<Dictionary> Instructions::instructionMatching(std::string_view text,
                                                            std::string_view key) const {
    auto at = indexOfInstructionMatching(text, key);
    return at ? instructionAtIndex(*at) : std::nullopt;
}

std::optional<Dictionary> Instructions::instructionFor(std::string_view matchText) const {
    auto at = currentIndex().firstWithMatchText(list(), matchText);
    return at ? instructionAtIndex(*at) : std::nullopt;
}

// Where storing the match text goes: the walk from the front stops at an equal match text
// (replace it) or at the first that sorts after it (insert there).
Instructions::Slot Instructions::slotFor(const Array& instructions, std::string_view match) {
    for (std::size_t at = 0; at < instructions.size(); ++at) {
        int order = compareIgnoringCase(matchTextOfEntry(instructions[at]), match);
        if (order >= 0)
            return {at, order == 0};
    }
    return {instructions.size(), false};
}

std::size_t Instructions::setInstruction(const Dictionary& instruction) {
    const Array* stored = storedList(prefs_, prefkey::Instructions);
    if (!stored) {
        write(Array{Value(instruction)});
        reload();
        return 0;
    }
    currentIndex(); // in step with the list before it changes
    Array instructions = *stored;
    Slot slot = slotFor(instructions, matchTextOf(instruction));
    auto at = instructions.begin() + static_cast<std::ptrdiff_t>(slot.position);
    if (!slot.replaces) {
        instructions.emplace(at, instruction);
        write(std::move(instructions));
        index_.inserted(slot.position, Value(instruction));
        return slot.position;
    }
    Value old = std::exchange(*at, Value(instruction));
    write(std::move(instructions));
    index_.replaced(slot.position, old, Value(instruction));
    return slot.position;
}

void Instructions::removeInstruction(const Dictionary& instruction) {
    if (auto at = currentIndex().firstWithMatchText(list(), matchTextOf(instruction)))
        removeInstructionAtIndex(*at);
}

void Instructions::removeInstructionAtIndex(std::size_t position) {
    if (position >= numberOfInstructions())
        return;
    currentIndex();
    Array instructions = list();
    Value old = std::move(instructions[position]);
    instructions.erase(instructions.begin() + static_cast<std::ptrdiff_t>(position));
    write(std::move(instructions));
    index_.erased(position, old);
}

std::optional<Dictionary> Instructions::instructionAtIndex(std::size_t position) const {
    const Array& instructions = list();
    if (position >= instructions.size())
        return std::nullopt;
    return instructions[position].dictionary();
}

std::size_t Instructions::numberOfInstructions() const {
    return list().size();
}

Array Instructions::getInstructionsArray() const {
    return list();
}

void Instructions::setInstructionsArray(Array instructions) {
    write(std::move(instructions));
    reload();
}

std::string Instructions::itemAtIndex(std::int64_t position) const {
    const Array& instructions = list();
    if (position < 0 || static_cast<std::size_t>(position) >= instructions.size())
        return {};
    return std::string(matchTextOfEntry(instructions[static_cast<std::size_t>(position)]));
}

std::optional<std::size_t> Instructions::indexOfItemWithStringValue(std::string_view text) const {
    const Array& instructions = list();
    for (std::size_t i = 0; i < instructions.size(); ++i)
        if (matchTextOfEntry(instructions[i]) == text)
            return i;
    return std::nullopt;
}

std::optional<Completion> Instructions::completedString(std::string_view typed) const {
    const Array& instructions = list();
    auto textAt = [&](std::size_t i) { return matchTextOfEntry(instructions[i]); };
    return shortestCompletion(instructions.size(), textAt, typed);
}

} // namespace tavvel
