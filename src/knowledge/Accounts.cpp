#include "knowledge/Accounts.h"

#include "knowledge/AccountTypes.h"
#include "knowledge/KnowledgeKeys.h"
#include "knowledge/StoredList.h"
#include "prefs/Settings.h"

#include <algorithm>

namespace tavvel {

bool Accounts::exists() const {
    return prefs_.objectForKey(prefkey::Accounts) != nullptr;
}

std::string Accounts::typeForAccount(std::string_view name) const {
    for (const Value& account : listIn(prefs_, prefkey::Accounts))
        if (const std::string* stored = textIn(account, acctkey::Name); stored && *stored == name)
            return textOf(account.dictionary(), acctkey::Type);
    return {};
}

Array Accounts::getAccountsArray() const {
    return listIn(prefs_, prefkey::Accounts);
}

void Accounts::setAccountsArray(Array accounts) {
    writeList(prefs_, prefkey::Accounts, std::move(accounts));
}

void Accounts::comboBoxIncludeOnly(int kind, ChooserState& chooser) {
    chooser.selectedIndex.reset();
    filtered_.clear();
    const Array& accounts = listIn(prefs_, prefkey::Accounts);
    if (kind == 4 || accounts.empty())
        return;
    for (const Value& account : accounts) {
        std::string name = textOf(account.dictionary(), acctkey::Name);
        if (kindOffers(kind, textOf(account.dictionary(), acctkey::Type)))
            filtered_.push_back(std::move(name));
        else if (chooser.text == name)
            chooser.text.clear();
    }
}

bool Accounts::acceptsName(std::string_view name) const {
    return allowAnyName_ || indexOfItemWithStringValue(name).has_value();
}

std::string Accounts::itemAtIndex(std::int64_t position) const {
    if (position < 0 || static_cast<std::size_t>(position) >= filtered_.size())
        return {};
    return filtered_[static_cast<std::size_t>(position)];
}

std::optional<std::size_t> Accounts::indexOfItemWithStringValue(std::string_view name) const {
    auto it = std::find(filtered_.begin(), filtered_.end(), name);
    if (it == filtered_.end())
        return std::nullopt;
    return static_cast<std::size_t>(it - filtered_.begin());
}

std::optional<Completion> Accounts::completedString(std::string_view typed) const {
    auto textAt = [&](std::size_t i) { return std::string_view(filtered_[i]); };
    return shortestCompletion(filtered_.size(), textAt, typed);
}

} // namespace tavvel
