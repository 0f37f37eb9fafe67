#pragma once
// The list editors of the knowledge base (`EditCategories`, `EditAccounts`,
// `EditDescriptions`, securities): beginEditing opens a table on a working copy of the list;
// endEditing stores the list back and writes it out. The front end runs the table modally in
// between; the rules of what may be entered live here.

#include "forms/TableEditor.h"
#include "prefs/TvPrefs.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavvel {

class ListEditor {
public:
    virtual ~ListEditor() = default;
    ListEditor(const ListEditor&) = delete;
    ListEditor& operator=(const ListEditor&) = delete;

    // beginEditing: — the table on a copy of the stored list (empty when there is none).
    TableEditor& beginEditing();
    // Stores the table's rows back and writes the store; closes the table.
    void endEditing();
    // The open table, or null.
    TableEditor* table() { return table_ ? &*table_ : nullptr; }

protected:
    ListEditor(TvPrefs& prefs, std::string_view key, std::vector<std::string> columns,
               TableEditor::Check check = {});
    // The rows as the table shows them, and the list as it is stored again.
    virtual Array forEditing(Array stored) const { return stored; }
    virtual Array afterEditing(Array edited) const { return edited; }
    // Headings and choices of the table's columns.
    virtual void shape(TableEditor&) const {}

private:
    TvPrefs& prefs_;
    std::string key_;
    std::vector<std::string> columns_;
    TableEditor::Check check_;
    std::optional<TableEditor> table_;
};

// Refuses a new entry beginning with "[": transfer entries come from the account list.
class EditCategories : public ListEditor {
public:
    explicit EditCategories(TvPrefs& prefs);
};

class EditDescriptions : public ListEditor {
public:
    explicit EditDescriptions(TvPrefs& prefs);
};

// The security list, with the columns `Name` and `Symbol`.
class EditSecurities : public ListEditor {
public:
    explicit EditSecurities(TvPrefs& prefs);
};

// Accounts with the columns `Name` and `TypeNumber`, headed "Type": a choice of 0 "Bank",
// 1 "Credit Card", 2 "Investment" and 3 "Other". The number at opening is kept as
// `OriginalTypeNumber`; on closing a changed number becomes its type word and an unchanged one
// keeps the stored word, so a "Mutual" account stays "Mutual".
class EditAccounts : public ListEditor {
public:
    explicit EditAccounts(TvPrefs& prefs);
    static Array accountsForEditing(Array accounts);
    static Array accountsAfterEditing(Array rows);

protected:
    Array forEditing(Array stored) const override { return accountsForEditing(std::move(stored)); }
    Array afterEditing(Array edited) const override {
        return accountsAfterEditing(std::move(edited));
    }
    void shape(TableEditor& table) const override;
};

} // namespace tavvel
