#include "knowledge/TextList.h"

#include "knowledge/StoredList.h"

namespace tavvel {

bool TextList::exists() const {
    return prefs_.objectForKey(key_) != nullptr;
}

void TextList::createEmpty() {
    write({});
}

const Array& TextList::list() const {
    return listIn(prefs_, key_);
}

void TextList::write(Array list) {
    writeList(prefs_, key_, std::move(list));
}

void TextList::keep(Array list) {
    prefs_.setObject(key_, Value(std::move(list)));
}

std::string TextList::itemAtIndex(std::int64_t position) const {
    return textAtPosition(list(), position);
}

std::optional<std::size_t> TextList::indexOfItemWithStringValue(std::string_view text) const {
    return positionOfText(list(), text);
}

std::optional<Completion> TextList::completedString(std::string_view typed) const {
    const Array& entries = list();
    auto textAt = [&](std::size_t i) { return std::string_view(entries[i].text()); };
    return levelledCompletion(entries.size(), textAt, typed);
}

} // namespace tavvel
