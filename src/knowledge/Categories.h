#pragma once
// The category list (`Categories`): plain categories in case-insensitive order, then one
// bracketed transfer entry per known account, in account order.

#include "prefs/TvPrefs.h"

namespace tavvel {

class Categories {
public:
    explicit Categories(TvPrefs& prefs) : prefs_(prefs) {}

    bool exists() const;
    void createEmpty();
    Array getCategoriesArray() const;
    void setCategoriesArray(Array categories);

    // Rebuilds the transfer entries from the account list, stores the list and saves the store.
    void updateAccounts();

private:
    TvPrefs& prefs_;
};

} // namespace tavvel
