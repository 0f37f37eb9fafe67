#pragma once
// The account list (`Accounts`): records with `Name` and `Type` (the type word as imported),
// and the account chooser, which offers the names of one kind of account.

#include "dialogs/Chooser.h"
#include "dialogs/Completion.h"
#include "prefs/TvPrefs.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class Accounts {
public:
    explicit Accounts(TvPrefs& prefs) : prefs_(prefs) {}

    bool exists() const;
    // typeForAccount: — the `Type` of the first account named exactly so, or "".
    std::string typeForAccount(std::string_view name) const;
    Array getAccountsArray() const;
    // Replaces the whole list and writes it out.
    void setAccountsArray(Array accounts);

    // comboBoxIncludeOnly:forComboBox: — deselects the chooser and offers the accounts of the
    // kind (see kindOffers) in list order; a chooser showing the name of an account that is
    // not offered is cleared.
    void comboBoxIncludeOnly(int kind, ChooserState& chooser);
    // allowAnyName: — lets the chooser accept names outside the list.
    void allowAnyName(bool allow) { allowAnyName_ = allow; }
    // Whether the chooser accepts the name as the user's choice.
    bool acceptsName(std::string_view name) const;

    const std::vector<std::string>& filteredAccountNames() const { return filtered_; }
    std::size_t numberOfItems() const { return filtered_.size(); }
    std::string itemAtIndex(std::int64_t position) const;
    std::optional<std::size_t> indexOfItemWithStringValue(std::string_view name) const;
    // comboBox:completedString: — the shortest offered name that begins with the typed text
    // ignoring case, the first of equal length.
    std::optional<Completion> completedString(std::string_view typed) const;

private:
    TvPrefs& prefs_;
    std::vector<std::string> filtered_;
    bool allowAnyName_ = false;
};

} // namespace tavvel
