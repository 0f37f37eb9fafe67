#pragma once
// Texts as a property-list file can hold them. The file is XML in UTF-8: a text that is not
// valid UTF-8 (a payee read from an 8-bit statement) is taken as Windows-1252, the rule by
// which the front ends show such bytes, and a control character that XML cannot carry (any
// below a blank but tab, line feed and return; U+FFFE, U+FFFF) becomes U+FFFD. Otherwise the
// file would be malformed: other readers refuse it, and one broken byte could cost the whole
// store.

#include "prefs/Value.h"

#include <string>
#include <string_view>

namespace tavvel {

bool isStorableText(std::string_view text);
std::string storableText(std::string_view text);

// Makes every text in the value, dictionary keys included, storable; whether anything changed.
// Where two keys of a dictionary become one, the entry whose key was already storable is kept.
bool makeTextsStorable(Value& value);

} // namespace tavvel
