#pragma once
// The instruction store (`Instructions`): what the program has learned about the user's
// payees, as one list in the preference store kept in ascending case-insensitive order of
// match text, with no two match texts equal ignoring case. Every change is on disk when the
// call returns.
//
// Lookups go through an index kept beside the list. Every store object on the same preference
// store shares one index, so a change made through any of them is seen by all; a change made
// behind their backs (a direct setObject) is noticed when it alters the list's size or
// storage, and reload() rebuilds the index.

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
    // What the index was built from: changes elsewhere show as a different node or buffer.
    struct Stamp {
        const Value* node = nullptr;
        const Value* data = nullptr;
        std::size_t size = 0;
        bool operator==(const Stamp&) const = default;
    };
    struct Shared {
        InstructionIndex index;
        std::optional<Stamp> stamp;
    };
    static std::shared_ptr<Shared> sharedFor(const TvPrefs& prefs);

    struct Slot {
        std::size_t position;
        bool replaces;
    };
    static Slot slotFor(const Array& instructions, std::string_view match);

    const Array& list() const;
    Stamp currentStamp() const;
    const InstructionIndex& currentIndex() const;
    void write(Array list);

    TvPrefs& prefs_;
    std::shared_ptr<Shared> shared_;
    InstructionIndex& index_;
    std::optional<Stamp>& stamp_;
};

} // namespace tavvel
