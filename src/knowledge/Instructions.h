#pragma once
// The instruction store (`Instructions`): what the program has learned about the user's
// payees, as one list in the preference store kept in ascending case-insensitive order of
// match text, with no two match texts equal ignoring case. Every change is on disk when the
// call returns.
//
// Lookups go through an index that the preference store keeps for the list, so that every store
// object on it shares one index and a change made through any of them is seen by all. A change
// made behind their backs (a direct setObject of the list) shows in the store's change count
// of the list, and the index is rebuilt when next used; a change of any other entry leaves it
// alone. reload() rebuilds it at once.

#include "dialogs/Completion.h"
#include "knowledge/InstructionIndex.h"
#include "prefs/TvPrefs.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

class Instructions {
public:
    explicit Instructions(TvPrefs& prefs);
    Instructions(const Instructions&) = delete;
    Instructions& operator=(const Instructions&) = delete;

    // instructionMatching:with: — the instruction that applies to the text under the key
    // ("descriptionMatch" or "categoryMatch"), under the settings longestInstructionMatch and
    // matchDescriptionWithContains (see walkForInstruction).
    std::optional<Dictionary> instructionMatching(std::string_view text,
                                                  std::string_view key) const;
    std::optional<std::size_t> indexOfInstructionMatching(std::string_view text,
                                                          std::string_view key) const;
    // instructionFor: — the first instruction whose match text equals the text ignoring case.
    std::optional<Dictionary> instructionFor(std::string_view matchText) const;

    // Replaces the entry with the same match text (ignoring case) where it stands, or inserts
    // a copy in order; returns its index.
    std::size_t setInstruction(const Dictionary& instruction);
    // Removes the first entry whose match text equals the instruction's ignoring case.
    void removeInstruction(const Dictionary& instruction);
    void removeInstructionAtIndex(std::size_t position);

    std::optional<Dictionary> instructionAtIndex(std::size_t position) const;
    std::size_t numberOfInstructions() const;
    Array getInstructionsArray() const;
    void setInstructionsArray(Array instructions);

    // Rebuilds the index from the stored list.
    void reload() const;

    // The instruction chooser: entries are match texts.
    std::size_t numberOfItems() const { return numberOfInstructions(); }
    std::string itemAtIndex(std::int64_t position) const;
    std::optional<std::size_t> indexOfItemWithStringValue(std::string_view text) const;
    std::optional<Completion> completedString(std::string_view typed) const;

private:
    // The index, and the store's change count of the list it was built from.
    struct Shared {
        InstructionIndex index;
        std::optional<std::uint64_t> stamp;
    };
    static std::shared_ptr<Shared> sharedIn(TvPrefs& prefs);

    struct Slot {
        std::size_t position;
        bool replaces;
    };
    static Slot slotFor(const Array& instructions, std::string_view match);

    const Array& list() const;
    std::uint64_t currentStamp() const;
    const InstructionIndex& currentIndex() const;
    void write(Array list);

    TvPrefs& prefs_;
    std::shared_ptr<Shared> shared_;
    InstructionIndex& index_;
    std::optional<std::uint64_t>& stamp_;
};

} // namespace tavvel
