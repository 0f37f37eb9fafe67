#include "forms/ListEditors.h"

#include "knowledge/AccountTypes.h"
#include "knowledge/KnowledgeKeys.h"
#include "knowledge/KnowledgeTexts.h"
#include "knowledge/StoredList.h"
#include "prefs/Settings.h"

namespace tavvel {

ListEditor::ListEditor(TvPrefs& prefs, std::string_view key, std::vector<std::string> columns,
                       TableEditor::Check check)
    : prefs_(prefs), key_(key), columns_(std::move(columns)), check_(std::move(check)) {}

TableEditor& ListEditor::beginEditing() {
    table_.emplace(forEditing(copyOfList(prefs_, key_)), columns_, check_);
    shape(*table_);
    return *table_;
}

void ListEditor::endEditing() {
    if (!table_)
        return;
    writeList(prefs_, key_, afterEditing(table_->rows()));
    table_.reset();
}

namespace {

std::optional<std::string> noBracketedCategory(const Value& row) {
    if (row.text().starts_with('['))
        return std::string(text::cannotAddBracketCategory);
    return std::nullopt;
}

} // namespace

EditCategories::EditCategories(TvPrefs& prefs)
    : ListEditor(prefs, prefkey::Categories, {}, noBracketedCategory) {}

EditDescriptions::EditDescriptions(TvPrefs& prefs) : ListEditor(prefs, prefkey::Descriptions, {}) {}

EditSecurities::EditSecurities(TvPrefs& prefs)
    : ListEditor(prefs, prefkey::Securities,
                 {std::string(seckey::Name), std::string(seckey::Symbol)}) {}

EditAccounts::EditAccounts(TvPrefs& prefs)
    : ListEditor(prefs, prefkey::Accounts,
                 {std::string(acctkey::Name), std::string(acctkey::TypeNumber)}) {}

void EditAccounts::shape(TableEditor& table) const {
    std::vector<std::string> titles;
    for (int number = kTypeNumberBank; number <= kTypeNumberOther; ++number)
        titles.emplace_back(typeTitleFor(number));
    table.shapeColumn(acctkey::TypeNumber, {std::string(text::accountTypeColumn), titles});
}

Array EditAccounts::accountsForEditing(Array accounts) {
    for (Value& entry : accounts) {
        Dictionary* account = entry.get<Dictionary>();
        if (!account)
            continue;
        int number = typeNumberFor(textOf(*account, acctkey::Type));
        account->insert_or_assign(std::string(acctkey::TypeNumber), Value(number));
        account->insert_or_assign(std::string(acctkey::OriginalTypeNumber), Value(number));
    }
    return accounts;
}

Array EditAccounts::accountsAfterEditing(Array rows) {
    for (Value& entry : rows) {
        Dictionary* account = entry.get<Dictionary>();
        if (!account)
            continue;
        const Value* number = find(*account, acctkey::TypeNumber);
        const Value* original = find(*account, acctkey::OriginalTypeNumber);
        bool changed = !original || (number && number->toInteger() != original->toInteger());
        if (changed)
            account->insert_or_assign(
                std::string(acctkey::Type),
                Value(typeWordFor(static_cast<int>(number ? number->toInteger() : 0))));
        account->erase(std::string(acctkey::TypeNumber));
        account->erase(std::string(acctkey::OriginalTypeNumber));
    }
    return rows;
}

} // namespace tavvel
