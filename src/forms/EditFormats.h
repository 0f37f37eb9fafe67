#pragma once
// The input format editor (`EditFormats`) over the format store: duplicating a format,
// deleting one, the match text and "Warn" switch of each, and trimming a format's mapping
// tables.

#include "forms/TableEditor.h"
#include "knowledge/Formats.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class EditFormats {
public:
    explicit EditFormats(TvPrefs& prefs) : formats_(prefs) {}

    Formats& formats() { return formats_; }

    // extractFormatExistsWithName: — a record's `Name` equals the name exactly, case
    // included (unlike formatForName).
    bool extractFormatExistsWithName(std::string_view name) const;
    // "<name> copy", else "<name> copy 2", 3, ... until no format has the name exactly.
    std::string nameForDuplicateOf(std::string_view name) const;
    // duplicateSelectedTableEntry: — stores a copy of the selected format under the name for
    // a duplicate; the index of the new row to select, or nothing without a selection.
    std::optional<std::size_t> duplicateSelectedTableEntry(std::optional<std::size_t> selected);

    // The "Warn" column: ticked while the format does not carry `dontWarn`.
    bool warns(std::size_t position) const;
    void setWarns(std::size_t position, bool warn);

    // The "Match" column: the text that picks the format for a statement.
    std::string match(std::size_t position) const;
    void setMatch(std::size_t position, std::string_view match);

    enum class Mappings { Types, Securities };
    // deleteTypes: / deleteSecurities: — the title of the list and its entries.
    std::string mappingsTitle(std::size_t position, Mappings which) const;
    Array mappings(std::size_t position, Mappings which) const;
    // The list as a table of which entries can only be removed, with its columns headed.
    TableEditor mappingsTable(std::size_t position, Mappings which) const;
    // Stores what is left of the list after the user removed entries.
    void setMappings(std::size_t position, Mappings which, Array remaining);

private:
    Formats formats_;
};

} // namespace tavvel
