#include "knowledge/Categories.h"

#include "prefs/Settings.h"

namespace tavvel {

namespace {

bool startsWith(const std::string& text, std::string_view prefix) {
    return text.compare(0, prefix.size(), prefix) == 0;
}

} // namespace

bool Categories::exists() const {
    return prefs_.objectForKey(prefkey::Categories) != nullptr;
}

void Categories::createEmpty() {
    setCategoriesArray({});
}

Array Categories::getCategoriesArray() const {
    const Value* list = prefs_.objectForKey(prefkey::Categories);
    return list ? list->array() : Array{};
}

void Categories::setCategoriesArray(Array categories) {
    prefs_.setObject(prefkey::Categories, Value(std::move(categories)));
}

void Categories::updateAccounts() {
    Array kept;
    for (const Value& entry : getCategoriesArray()) {
        const std::string& text = entry.text();
        if (!startsWith(text, "[")) {
            kept.push_back(entry);
            continue;
        }
        // The old test compared the account name with whole account records, so it never
        // held: every classed transfer goes, and the first bare one ends the list.
        if (text.find("]/") == std::string::npos)
            break;
    }
    const Value* accounts = prefs_.objectForKey(prefkey::Accounts);
    if (accounts)
        for (const Value& account : accounts->array())
            kept.emplace_back("[" + textOf(account.dictionary(), "Name") + "]");
    setCategoriesArray(std::move(kept));
    prefs_.synchronize();
}

} // namespace tavvel
