#pragma once
// Rewriting texts on their way to the output: replacements, European amounts, and the
// description and memo templates of an output format.

#include "prefs/TvPrefs.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

// Replaces the target wherever it is found without regard to (ASCII) case. After a hit at L
// (counted from the string's start) the next search starts at s + L + R, s being where the
// last search started and R the replacement's length: right after the inserted text for the
// first hit, further on for later ones, so some hits may stay. Output has always been written
// that way. An empty target replaces nothing.
void caseInsensitiveReplace(std::string& text, std::string_view target,
                            std::string_view replacement);

// "1.234,56" becomes "1,234.56" and "12,5" becomes "12.5"; a text with a decimal point, or
// whose commas all have a digit three places on (thousands), is returned unchanged.
std::string convertEuropeanAmount(std::string_view amount);

// The template stored in the preferences under the key (DescriptionOutput or MemoOutput), with
// "%d" replaced by the description and "%m" by the memo (nothing when absent). Any other "%x"
// is copied as it stands; a "%" at the very end is dropped.
std::string convertOutputForFieldType(const TvPrefs& prefs, std::string_view key,
                                      std::optional<std::string_view> description,
                                      std::optional<std::string_view> memo);

} // namespace tavvel
