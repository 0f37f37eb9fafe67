#pragma once
// The security list (`Securities`): records with `Name` and `Symbol` ("" when unknown), kept
// in case-insensitive order of name when entries are added here; and the security mappings
// that each input format learns under `SecurityMappings`, from the statement's text (a name
// or a symbol, matched exactly) to a security name of the list.

#include "dialogs/Completion.h"
#include "prefs/TvPrefs.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

class Securities {
public:
    explicit Securities(TvPrefs& prefs) : prefs_(prefs) {}

    // Whether the store holds a non-empty security list.
    bool exists() const;
    Array getSecuritiesArray() const;
    // Replaces the whole list and writes it out.
    void setSecuritiesArray(Array securities);

    // quickenSecurityForSymbol: — the `Name` of the first entry whose `Symbol` equals the
    // symbol exactly. No symbol: nothing, and the index is left alone; no match: index -1.
    std::optional<std::string> quickenSecurityForSymbol(std::optional<std::string_view> symbol);
    // securityFound: — whether an entry's `Name` equals the name exactly.
    bool securityFound(std::string_view name) const;
    // quickenSecurityFromMappingFor:inFormat: — the `quickenName` of the format's first mapping
    // whose `formatName` equals the text exactly; the index then points at that mapping.
    std::optional<std::string> quickenSecurityFromMappingFor(std::string_view text,
                                                             const Dictionary& format);
    // addSecurity:forQuickenSecurity:inFormat: — appends a mapping to the format and saves it
    // (an older mapping of the same text stays, and lookups take the first: callers remove it
    // first when redefining); then lists the security in order unless it is listed already.
    void addSecurity(std::string_view text, std::string_view quickenName, Dictionary& format);
    // deleteSecurityInFormat: — removes the mapping the last mapping lookup found and saves
    // the format.
    void deleteSecurityInFormat(Dictionary& format);

    // The index of the last match, shared by both lookups; -1 when the last lookup failed.
    std::int64_t quickenSecurityIndex() const { return quickenSecurityIndex_; }

    // The security chooser.
    std::size_t numberOfItemsInComboBox() const;
    std::string objectValueForItemAtIndex(std::int64_t position) const;
    // The index of the exact name; the largest 64-bit value when absent.
    std::int64_t indexOfItemWithStringValue(std::string_view name) const;
    // The shortest non-empty name that begins with the typed text ignoring case, the first
    // of equal length.
    std::optional<Completion> completedString(std::string_view typed) const;

private:
    TvPrefs& prefs_;
    std::int64_t quickenSecurityIndex_ = -1;
};

} // namespace tavvel
