#pragma once
// The input format store (`Formats`): the learned input formats, kept in ascending
// case-insensitive order of `Name` under the preference key `Formats`. The format of OFX-like
// text (a record with the `OFX` key) is kept apart under `OFXFormat` and never listed here.
// Every change is on disk when the call returns.

#include "dialogs/Completion.h"
#include "prefs/TvPrefs.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class Formats {
public:
    explicit Formats(TvPrefs& prefs) : prefs_(prefs) {}

    const TvPrefs& prefs() const { return prefs_; }

    // formatForName: — the first record whose `Name` equals the name ignoring case.
    std::optional<Dictionary> formatForName(std::string_view name) const;
    std::optional<Dictionary> formatAtIndex(std::size_t position) const;
    std::size_t numberOfFormats() const;

    // addFormat: — an OFX-like record replaces `OFXFormat` (result 0). Any other record takes
    // the global `TypeMappings` and `SecurityMappings` when it has none of its own, then
    // replaces the stored format of the same name (ignoring case) where it stands, or goes
    // before the first name that sorts after it; the result is where it now stands.
    std::size_t addFormat(const Dictionary& record);
    void deleteFormatAtIndex(std::size_t position);
    Array getExtractFormatsArray() const;
    void setExtractFormatsArray(Array formats);

    // The start-up pass: every stored format through addFormat once, in index order, with
    // one write at the end (none when nothing changed).
    void normalizeAll();

    // The export menu, rebuilt each time it opens: one title per stored format, in store
    // order. OFX-like records are never offered, even where an old list still holds one.
    std::vector<std::string> exportMenuTitles() const;

    // The format name chooser: the first name in store order that begins with the typed text.
    std::optional<Completion> completedString(std::string_view typed) const;

private:
    std::size_t place(Array& formats, const Dictionary& record) const;
    Dictionary withGlobalMappings(const Dictionary& record) const;

    TvPrefs& prefs_;
};

bool isOFXLike(const Dictionary& record);

} // namespace tavvel
