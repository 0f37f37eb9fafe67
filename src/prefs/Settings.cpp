#include "prefs/Settings.h"

namespace tavvel {

std::optional<std::size_t> findOption(const TvPrefs& prefs, std::string_view name) {
    const Value* list = prefs.objectForKey(prefkey::Preferences);
    if (!list)
        return std::nullopt;
    const Array& names = list->array();
    for (std::size_t i = 0; i < names.size(); ++i)
        if (names[i].isString() && names[i].text() == name)
            return i;
    return std::nullopt;
}

Array optionList(const TvPrefs& prefs) {
    const Value* list = prefs.objectForKey(prefkey::Preferences);
    return list ? list->array() : Array{};
}

void addOption(TvPrefs& prefs, std::string_view name) {
    if (optionOn(prefs, name))
        return;
    Array names = optionList(prefs);
    names.emplace_back(name);
    prefs.setObject(prefkey::Preferences, Value(std::move(names)));
}

} // namespace tavvel
