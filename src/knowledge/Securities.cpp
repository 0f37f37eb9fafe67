#include "knowledge/Securities.h"

#include "knowledge/Formats.h"
#include "knowledge/KnowledgeKeys.h"
#include "knowledge/StoredList.h"
#include "prefs/Settings.h"
#include "recognize/CaseFold.h"

#include <algorithm>
#include <limits>

namespace tavvel {

namespace {

// The position of the first entry whose text under the key equals the text exactly.
std::optional<std::size_t> firstWith(const Array& list, std::string_view key,
                                     std::string_view text) {
    for (std::size_t i = 0; i < list.size(); ++i)
        if (const std::string* value = textIn(list[i], key); value && *value == text)
            return i;
    return std::nullopt;
}

const Array& mappingsOf(const Dictionary& format) {
    static const Array none;
    const Value* mappings = find(format, fmtkey::SecurityMappings);
    return mappings ? mappings->array() : none;
}

} // namespace

bool Securities::exists() const {
    return !listIn(prefs_, prefkey::Securities).empty();
}

Array Securities::getSecuritiesArray() const {
    return listIn(prefs_, prefkey::Securities);
}

void Securities::setSecuritiesArray(Array securities) {
    writeList(prefs_, prefkey::Securities, std::move(securities));
}

std::optional<std::string>
Securities::quickenSecurityForSymbol(std::optional<std::string_view> symbol) {
    if (!symbol)
        return std::nullopt;
    const Array& list = listIn(prefs_, prefkey::Securities);
    auto at = firstWith(list, seckey::Symbol, *symbol);
    quickenSecurityIndex_ = at ? static_cast<std::int64_t>(*at) : -1;
    if (!at)
        return std::nullopt;
    return std::string(textViewIn(list[*at], seckey::Name));
}

bool Securities::securityFound(std::string_view name) const {
    return firstWith(listIn(prefs_, prefkey::Securities), seckey::Name, name).has_value();
}

std::optional<std::string> Securities::quickenSecurityFromMappingFor(std::string_view text,
                                                                     const Dictionary& format) {
    const Array& list = mappingsOf(format);
    auto at = firstWith(list, seckey::formatName, text);
    quickenSecurityIndex_ = at ? static_cast<std::int64_t>(*at) : -1;
    if (!at)
        return std::nullopt;
    return textOf(list[*at].dictionary(), seckey::quickenName);
}

void Securities::addSecurity(std::string_view text, std::string_view quickenName,
                             Dictionary& format) {
    Value* mappings = find(format, fmtkey::SecurityMappings);
    if (!mappings || !mappings->isArray())
        mappings = &(format[std::string(fmtkey::SecurityMappings)] = Value(Array{}));
    mappings->get<Array>()->emplace_back(Dictionary{
        {std::string(seckey::formatName), Value(text)},
        {std::string(seckey::quickenName), Value(quickenName)},
    });
    Formats(prefs_).addFormat(format);
    if (securityFound(quickenName))
        return;
    Value entry(Dictionary{{std::string(seckey::Name), Value(quickenName)},
                           {std::string(seckey::Symbol), Value("")}});
    Array list = insertedInOrder(listIn(prefs_, prefkey::Securities), std::move(entry), quickenName,
                                 seckey::Name);
    setSecuritiesArray(std::move(list));
}

void Securities::deleteSecurityInFormat(Dictionary& format) {
    Value* mappings = find(format, fmtkey::SecurityMappings);
    Array* list = mappings ? mappings->get<Array>() : nullptr;
    if (quickenSecurityIndex_ < 0 || !list ||
        static_cast<std::size_t>(quickenSecurityIndex_) >= list->size())
        return;
    list->erase(list->begin() + quickenSecurityIndex_);
    Formats(prefs_).addFormat(format);
}

std::size_t Securities::numberOfItemsInComboBox() const {
    return listIn(prefs_, prefkey::Securities).size();
}

std::string Securities::objectValueForItemAtIndex(std::int64_t position) const {
    const Array& list = listIn(prefs_, prefkey::Securities);
    if (position < 0 || static_cast<std::size_t>(position) >= list.size())
        return {};
    return std::string(textViewIn(list[static_cast<std::size_t>(position)], seckey::Name));
}

std::int64_t Securities::indexOfItemWithStringValue(std::string_view name) const {
    auto at = firstWith(listIn(prefs_, prefkey::Securities), seckey::Name, name);
    return at ? static_cast<std::int64_t>(*at) : std::numeric_limits<std::int64_t>::max();
}

std::optional<Completion> Securities::completedString(std::string_view typed) const {
    const Array& list = listIn(prefs_, prefkey::Securities);
    auto textAt = [&](std::size_t i) { return textViewIn(list[i], seckey::Name); };
    return shortestCompletion(list.size(), textAt, typed, true);
}

} // namespace tavvel
