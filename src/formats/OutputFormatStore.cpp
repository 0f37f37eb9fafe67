#include "formats/OutputFormatStore.h"

#include "formats/OutputFormatKeys.h"
#include "prefs/Settings.h"
#include "recognize/CaseFold.h"

#include <algorithm>

namespace tavvel {

namespace {

std::string nameOf(const Value& format) {
    return textOf(format.dictionary(), outkey::Name);
}

void store(TvPrefs& prefs, Array formats) {
    prefs.setObject(prefkey::OutputFormats, Value(std::move(formats)));
    prefs.synchronize();
}

bool allOf(const Value* list, bool (Value::*is)() const) {
    return list && list->isArray() &&
           std::all_of(list->array().begin(), list->array().end(),
                       [is](const Value& v) { return (v.*is)(); });
}

} // namespace

Array storedOutputFormats(const TvPrefs& prefs) {
    const Value* stored = prefs.objectForKey(prefkey::OutputFormats);
    if (stored && stored->isArray())
        return stored->array();
    return Array{Value(Dictionary{{std::string(outkey::Name), Value(outkey::QIF)}})};
}

std::vector<std::string> outputFormatNames(const TvPrefs& prefs) {
    std::vector<std::string> names;
    for (const Value& format : storedOutputFormats(prefs))
        names.push_back(nameOf(format));
    return names;
}

std::optional<std::size_t> outputFormatIndex(const TvPrefs& prefs, std::string_view name) {
    Array formats = storedOutputFormats(prefs);
    for (std::size_t i = 0; i < formats.size(); ++i)
        if (equalIgnoringCase(nameOf(formats[i]), name))
            return i;
    return std::nullopt;
}

std::optional<Dictionary> outputFormatNamed(const TvPrefs& prefs, std::string_view name) {
    auto index = outputFormatIndex(prefs, name);
    if (!index)
        return std::nullopt;
    return storedOutputFormats(prefs)[*index].dictionary();
}

bool outputFormatExistsWithName(const TvPrefs& prefs, std::string_view name) {
    auto names = outputFormatNames(prefs);
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string uniqueNameForName(const TvPrefs& prefs, std::string_view name) {
    std::string candidate(name);
    for (long n = 2; outputFormatIndex(prefs, candidate); ++n)
        candidate = std::string(name) + std::to_string(n);
    return candidate;
}

std::string nameForDuplicateOf(const TvPrefs& prefs, std::string_view name) {
    std::string candidate = std::string(name) + " copy";
    for (long n = 2; outputFormatExistsWithName(prefs, candidate); ++n)
        candidate = std::string(name) + " copy " + std::to_string(n);
    return candidate;
}

bool isBuiltInOutputFormat(std::string_view name) {
    return name == outkey::QIF;
}

std::size_t addOutputFormat(TvPrefs& prefs, const Dictionary& format) {
    return replaceOutputFormat(prefs, std::nullopt, format);
}

std::size_t replaceOutputFormat(TvPrefs& prefs, std::optional<std::string_view> edited,
                                const Dictionary& format) {
    Array formats = storedOutputFormats(prefs);
    auto named = [&formats](std::string_view name) {
        return std::find_if(formats.begin(), formats.end(), [name](const Value& stored) {
            return equalIgnoringCase(nameOf(stored), name);
        });
    };
    if (auto old = edited ? named(*edited) : formats.end();
        old != formats.end() && !isBuiltInOutputFormat(nameOf(*old)))
        formats.erase(old);
    std::string name = textOf(format, outkey::Name);
    auto at = named(name);
    if (at != formats.end())
        *at = Value(format);
    else
        at = formats.insert(std::find_if(formats.begin(), formats.end(),
                                         [&](const Value& stored) {
                                             return compareBytes(nameOf(stored), name) > 0;
                                         }),
                            Value(format));
    std::size_t index = static_cast<std::size_t>(at - formats.begin());
    store(prefs, std::move(formats));
    return index;
}

bool removeOutputFormat(TvPrefs& prefs, std::string_view name) {
    auto index = outputFormatIndex(prefs, name);
    if (!index || isBuiltInOutputFormat(nameOf(storedOutputFormats(prefs)[*index])))
        return false;
    Array formats = storedOutputFormats(prefs);
    formats.erase(formats.begin() + static_cast<std::ptrdiff_t>(*index));
    store(prefs, std::move(formats));
    return true;
}

std::optional<std::string> duplicateOutputFormat(TvPrefs& prefs, std::string_view name) {
    std::optional<Dictionary> format = outputFormatNamed(prefs, name);
    if (!format)
        return std::nullopt;
    std::string copyName = nameForDuplicateOf(prefs, textOf(*format, outkey::Name));
    (*format)[std::string(outkey::Name)] = Value(copyName);
    addOutputFormat(prefs, *format);
    return copyName;
}

bool looksLikeOutputFormat(const Dictionary& record) {
    const Value* name = find(record, outkey::Name);
    if (!name || !name->isString() || name->text().empty() || isBuiltInOutputFormat(name->text()))
        return false;
    const Value* order = find(record, outkey::Order);
    const Value* present = find(record, outkey::Present);
    return allOf(order, &Value::isString) && allOf(present, &Value::isBoolean) &&
           order->array().size() == present->array().size();
}

} // namespace tavvel
