#pragma once
// The category list (`Categories`): plain categories in case-insensitive order, then one
// bracketed transfer entry "[account]" per known account, in account order. A category may
// carry a class after a slash; a transfer with a class reads "[account]/class".

#include "knowledge/TextList.h"

#include <cstdint>
#include <string_view>

namespace tavvel {

class Dialogs;

class Categories : public TextList {
public:
    explicit Categories(TvPrefs& prefs);

    Array getCategoriesArray() const { return list(); }
    // Replaces the whole list and writes it out.
    void setCategoriesArray(Array categories) { write(std::move(categories)); }

    // indexOfCategory: — the index of the entry equal to the text exactly; -1 when absent,
    // -2 for an empty text.
    std::int64_t indexOfCategory(std::string_view category) const;

    // addCategory: — doAddCategory with the transfer explanation.
    bool addCategory(std::string_view category, Dialogs& dialogs);
    // doAddCategory:bracketErrorMsg: — a text beginning with "[" must be a transfer with a
    // class whose "[account]" is listed; anything else bracketed is refused with the
    // "Bad Category" alert (explanation filled with the text) and false. A category that is
    // listed already, or an empty one, changes nothing and writes nothing. Otherwise the text
    // goes before the first entry that sorts after it ignoring case, and never after the
    // first bare transfer: a plain category standing among the transfers would be dropped
    // by the next updateAccounts. The list is written out.
    bool doAddCategory(std::string_view category, std::string_view bracketErrorMsg,
                       Dialogs& dialogs);
    // What the output writer and the forms call for a transaction's category: a listed
    // category, bare transfers included, is accepted as it is without a word; anything else
    // goes through addCategory.
    bool registerCategory(std::string_view category, Dialogs& dialogs);

    // Rebuilds the transfer entries from the account list, stores the list and saves.
    void updateAccounts();

    // A category is not accepted ending with ":" (an unfinished subcategory level).
    static bool acceptable(std::string_view category);

private:
    bool transferIsKnown(std::string_view category) const;
};

} // namespace tavvel
