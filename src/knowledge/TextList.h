#pragma once
// A list of texts kept in the preference store, with the chooser that offers it: the
// descriptions and the categories. Entries may have levels separated by ":", which the
// chooser's completion steps through.

#include "dialogs/Completion.h"
#include "prefs/TvPrefs.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

class TextList {
public:
    // Whether the list is stored at all (an empty list counts).
    bool exists() const;
    // Stores an empty list and writes it out.
    void createEmpty();

    std::size_t numberOfItems() const { return list().size(); }
    // "" for a position outside the list, a negative one included.
    std::string itemAtIndex(std::int64_t position) const;
    std::optional<std::size_t> indexOfItemWithStringValue(std::string_view text) const;
    // The shortest entry that begins with the typed text ignoring case (the earlier of equal
    // length), or with a typed ":" at the end the next level (see levelledCompletion).
    std::optional<Completion> completedString(std::string_view typed) const;

protected:
    TextList(TvPrefs& prefs, std::string_view key) : prefs_(prefs), key_(key) {}
    const Array& list() const;
    // Replaces the whole list and writes it out.
    void write(Array list);
    // Replaces the whole list in the store alone: it reaches the disk with the next save.
    void keep(Array list);

    TvPrefs& prefs_;

private:
    std::string_view key_;
};

} // namespace tavvel
