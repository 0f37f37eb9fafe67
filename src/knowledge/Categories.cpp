#include "knowledge/Categories.h"

#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "knowledge/KnowledgeKeys.h"
#include "knowledge/KnowledgeTexts.h"
#include "knowledge/StoredList.h"
#include "prefs/Settings.h"
#include "recognize/CaseFold.h"

#include <algorithm>

namespace tavvel {

namespace {

bool isBareTransfer(std::string_view entry) {
    return entry.starts_with('[') && entry.find("]/") == std::string_view::npos;
}

} // namespace

Categories::Categories(TvPrefs& prefs) : TextList(prefs, prefkey::Categories) {}

std::int64_t Categories::indexOfCategory(std::string_view category) const {
    if (category.empty())
        return -2;
    auto at = indexOfItemWithStringValue(category);
    return at ? static_cast<std::int64_t>(*at) : -1;
}

bool Categories::addCategory(std::string_view category, Dialogs& dialogs) {
    return doAddCategory(category, text::transferExplanation, dialogs);
}

// A transfer can only name a known account: "[account]/class" with "[account]" listed.
bool Categories::transferIsKnown(std::string_view category) const {
    std::size_t close = category.find("]/");
    return close != std::string_view::npos && indexOfCategory(category.substr(0, close + 1)) >= 0;
}

bool Categories::doAddCategory(std::string_view category, std::string_view bracketErrorMsg,
                               Dialogs& dialogs) {
    if (category.starts_with('[') && !transferIsKnown(category)) {
        dialogs.alert(formatMessage(text::badCategoryTitle, {category}),
                      formatMessage(bracketErrorMsg, {category}));
        return false;
    }
    if (category.empty() || indexOfCategory(category) >= 0)
        return true;
    Array categories = list();
    auto before = std::find_if(categories.begin(), categories.end(), [&](const Value& entry) {
        return isBareTransfer(entry.text()) || compareIgnoringCase(entry.text(), category) > 0;
    });
    categories.emplace(before, category);
    write(std::move(categories));
    return true;
}

bool Categories::registerCategory(std::string_view category, Dialogs& dialogs) {
    if (category.empty() || indexOfCategory(category) >= 0)
        return true;
    return addCategory(category, dialogs);
}

void Categories::updateAccounts() {
    Array kept;
    for (const Value& entry : list()) {
        const std::string& text = entry.text();
        if (!text.starts_with('[')) {
            kept.push_back(entry);
            continue;
        }
        // The old test compared the account name with whole account records, so it never
        // held: every classed transfer goes, and the first bare one ends the list.
        if (isBareTransfer(text))
            break;
    }
    for (const Value& account : listIn(prefs_, prefkey::Accounts))
        if (const std::string* name = textIn(account, acctkey::Name))
            kept.emplace_back("[" + *name + "]");
    write(std::move(kept));
}

bool Categories::acceptable(std::string_view category) {
    return category.empty() || category.back() != ':';
}

} // namespace tavvel
