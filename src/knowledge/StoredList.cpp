#include "knowledge/StoredList.h"

#include "recognize/CaseFold.h"

#include <algorithm>

namespace tavvel {

const Array* storedList(const TvPrefs& prefs, std::string_view key) {
    const Value* value = prefs.objectForKey(key);
    return value ? value->get<Array>() : nullptr;
}

const Array& listIn(const TvPrefs& prefs, std::string_view key) {
    static const Array none;
    const Array* list = storedList(prefs, key);
    return list ? *list : none;
}

Array copyOfList(const TvPrefs& prefs, std::string_view key) {
    const Array* list = storedList(prefs, key);
    return list ? *list : Array{};
}

bool writeList(TvPrefs& prefs, std::string_view key, Array list) {
    prefs.setObject(key, Value(std::move(list)));
    return prefs.synchronize();
}

} // namespace tavvel

namespace tavvel {

const std::string* textIn(const Dictionary& record, std::string_view key) {
    const Value* value = find(record, key);
    return value ? value->get<std::string>() : nullptr;
}

const std::string* textIn(const Value& entry, std::string_view key) {
    const Dictionary* record = entry.get<Dictionary>();
    return record ? textIn(*record, key) : nullptr;
}

std::string_view textViewIn(const Value& entry, std::string_view key) {
    const std::string* text = textIn(entry, key);
    return text ? std::string_view(*text) : std::string_view();
}

} // namespace tavvel

namespace tavvel {

std::string textAtPosition(const Array& list, std::int64_t position) {
    if (position < 0 || static_cast<std::size_t>(position) >= list.size())
        return {};
    return list[static_cast<std::size_t>(position)].text();
}

std::optional<std::size_t> positionOfText(const Array& list, std::string_view text) {
    for (std::size_t i = 0; i < list.size(); ++i)
        if (list[i].isString() && list[i].text() == text)
            return i;
    return std::nullopt;
}

} // namespace tavvel

namespace tavvel {

Array insertedInOrder(Array list, Value item, std::string_view sortText, std::string_view key) {
    auto greater = std::find_if(list.begin(), list.end(), [&](const Value& entry) {
        std::string_view text =
            key.empty() ? std::string_view(entry.text()) : textViewIn(entry, key);
        return compareIgnoringCase(text, sortText) > 0;
    });
    list.insert(greater, std::move(item));
    return list;
}

} // namespace tavvel
