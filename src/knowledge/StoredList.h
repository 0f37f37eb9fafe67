#pragma once
// The lists of the knowledge base as the preference store holds them. Each store reads its
// list whole, changes a copy and writes it back whole; a change that must survive is on disk
// before the call that made it returns.

#include "prefs/TvPrefs.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

// The stored list, or null when the key is absent or holds something other than a list.
const Array* storedList(const TvPrefs& prefs, std::string_view key);
// The stored list, or an empty one when there is none.
const Array& listIn(const TvPrefs& prefs, std::string_view key);
// A copy of the stored list; empty when there is none.
Array copyOfList(const TvPrefs& prefs, std::string_view key);
// Stores the list under the key and saves the store; false when the file was not written.
bool writeList(TvPrefs& prefs, std::string_view key, Array list);

} // namespace tavvel

namespace tavvel {

// The text under the key of a record, without a copy; null when the entry is not a record or
// the key is absent or holds something other than text.
const std::string* textIn(const Value& entry, std::string_view key);
const std::string* textIn(const Dictionary& record, std::string_view key);
// The same as a view: empty where textIn finds nothing.
std::string_view textViewIn(const Value& entry, std::string_view key);

} // namespace tavvel

namespace tavvel {

// The list with the item inserted before the first entry that sorts after sortText ignoring
// case (at the end when none does). Entries are compared by their text, or by their text
// under the key when one is given.
Array insertedInOrder(Array list, Value item, std::string_view sortText, std::string_view key = {});

// Chooser helpers over a list of texts: the text at a position ("" outside the list, as for a
// negative index) and the position of an exact text.
std::string textAtPosition(const Array& list, std::int64_t position);
std::optional<std::size_t> positionOfText(const Array& list, std::string_view text);

} // namespace tavvel
