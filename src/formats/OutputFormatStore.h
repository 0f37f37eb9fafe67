#pragma once
// The list of output format records as the editors change it: looked up by name, added in
// order, renamed, duplicated and removed, each change written to disk before the call returns.
// The built-in "QIF" record is never changed or removed here.

#include "prefs/TvPrefs.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

// The stored records; "QIF" alone when the list was never stored.
Array storedOutputFormats(const TvPrefs& prefs);
// The names in stored order, "QIF" included.
std::vector<std::string> outputFormatNames(const TvPrefs& prefs);
// formatForName: — the index of the record whose name equals the name ignoring case.
std::optional<std::size_t> outputFormatIndex(const TvPrefs& prefs, std::string_view name);
std::optional<Dictionary> outputFormatNamed(const TvPrefs& prefs, std::string_view name);
// outputFormatExistsWithName: — a record's name equals the name exactly.
bool outputFormatExistsWithName(const TvPrefs& prefs, std::string_view name);

// uniqueNameForName: — the name, or the name followed by 2, 3, ... until no record has it
// (ignoring case).
std::string uniqueNameForName(const TvPrefs& prefs, std::string_view name);
// "<name> copy", else "<name> copy 2", 3, ... until no record has the name exactly.
std::string nameForDuplicateOf(const TvPrefs& prefs, std::string_view name);

bool isBuiltInOutputFormat(std::string_view name);

// addFormat: — replaces the record of the same name (ignoring case) where it stands, or
// inserts it in name order; returns its index. Saved at once.
std::size_t addOutputFormat(TvPrefs& prefs, const Dictionary& format);
// The same after taking out the record named `edited` (ignoring case), in one write, so that an
// edit never leaves the list without either record.
std::size_t replaceOutputFormat(TvPrefs& prefs, std::optional<std::string_view> edited,
                                const Dictionary& format);
// Removes the record of that name (ignoring case); false for "QIF" or an unknown name.
bool removeOutputFormat(TvPrefs& prefs, std::string_view name);
// duplicateSelectedTableEntry: — stores a copy under nameForDuplicateOf; its name, or nothing
// for an unknown name.
std::optional<std::string> duplicateOutputFormat(TvPrefs& prefs, std::string_view name);

// Whether a record is one the writer can use: a text name other than "QIF", and an Order of
// texts with a Present flag for each.
bool looksLikeOutputFormat(const Dictionary& record);

} // namespace tavvel
