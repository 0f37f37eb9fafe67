#include "knowledge/Formats.h"

#include "knowledge/KnowledgeKeys.h"
#include "knowledge/StoredList.h"
#include "prefs/Settings.h"
#include "recognize/CaseFold.h"
#include "recognize/InputFormatKeys.h"

namespace tavvel {

bool isOFXLike(const Dictionary& record) {
    return has(record, fmtkey::OFX);
}

std::optional<Dictionary> Formats::formatForName(std::string_view name) const {
    for (const Value& entry : listIn(prefs_, prefkey::Formats))
        if (entry.isDictionary() && equalIgnoringCase(textViewIn(entry, fmtkey::Name), name))
            return entry.dictionary();
    return std::nullopt;
}

std::optional<Dictionary> Formats::formatAtIndex(std::size_t position) const {
    const Array& formats = listIn(prefs_, prefkey::Formats);
    if (position >= formats.size())
        return std::nullopt;
    return formats[position].dictionary();
}

std::size_t Formats::numberOfFormats() const {
    return listIn(prefs_, prefkey::Formats).size();
}

Dictionary Formats::withGlobalMappings(const Dictionary& record) const {
    Dictionary copy = record;
    for (std::string_view key : {fmtkey::TypeMappings, fmtkey::SecurityMappings}) {
        const Value* global = prefs_.objectForKey(key);
        if (!has(copy, key) && global)
            copy.emplace(std::string(key), *global);
    }
    return copy;
}

std::size_t Formats::place(Array& formats, const Dictionary& record) const {
    std::string name = textOf(record, fmtkey::Name);
    std::size_t at = 0;
    for (; at < formats.size(); ++at) {
        int order = compareIgnoringCase(textViewIn(formats[at], fmtkey::Name), name);
        if (order == 0) {
            formats[at] = Value(record);
            return at;
        }
        if (order > 0)
            break;
    }
    formats.emplace(formats.begin() + static_cast<std::ptrdiff_t>(at), record);
    return at;
}

std::size_t Formats::addFormat(const Dictionary& record) {
    if (isOFXLike(record)) {
        prefs_.setObject(prefkey::OFXFormat, Value(record));
        prefs_.synchronize();
        return 0;
    }
    Array formats = listIn(prefs_, prefkey::Formats);
    std::size_t at = place(formats, withGlobalMappings(record));
    writeList(prefs_, prefkey::Formats, std::move(formats));
    return at;
}

void Formats::deleteFormatAtIndex(std::size_t position) {
    Array formats = listIn(prefs_, prefkey::Formats);
    if (position >= formats.size())
        return;
    formats.erase(formats.begin() + static_cast<std::ptrdiff_t>(position));
    writeList(prefs_, prefkey::Formats, std::move(formats));
}

Array Formats::getExtractFormatsArray() const {
    return listIn(prefs_, prefkey::Formats);
}

void Formats::setExtractFormatsArray(Array formats) {
    writeList(prefs_, prefkey::Formats, std::move(formats));
}

void Formats::normalizeAll() {
    const Array before = listIn(prefs_, prefkey::Formats);
    const Value* ofxBefore = prefs_.objectForKey(prefkey::OFXFormat);
    std::optional<Value> ofx = ofxBefore ? std::optional<Value>(*ofxBefore) : std::nullopt;
    Array formats = before;
    for (const Value& entry : before) {
        const Dictionary* record = entry.get<Dictionary>();
        if (!record)
            continue;
        if (isOFXLike(*record))
            ofx = entry;
        else
            place(formats, withGlobalMappings(*record));
    }
    bool ofxChanged = ofx && (!ofxBefore || !(*ofxBefore == *ofx));
    if (formats == before && !ofxChanged)
        return;
    if (ofxChanged)
        prefs_.setObject(prefkey::OFXFormat, *ofx);
    writeList(prefs_, prefkey::Formats, std::move(formats));
}

std::vector<std::string> Formats::exportMenuTitles() const {
    std::vector<std::string> titles;
    for (const Value& entry : listIn(prefs_, prefkey::Formats))
        if (entry.isDictionary() && !isOFXLike(entry.dictionary()))
            titles.emplace_back(textViewIn(entry, fmtkey::Name));
    return titles;
}

std::optional<Completion> Formats::completedString(std::string_view typed) const {
    for (const Value& entry : listIn(prefs_, prefkey::Formats))
        if (entry.isDictionary() && startsWithIgnoringCase(textViewIn(entry, fmtkey::Name), typed))
            return completionTo(textViewIn(entry, fmtkey::Name), typed);
    return std::nullopt;
}

} // namespace tavvel
