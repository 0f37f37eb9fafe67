#pragma once
// Output formats shared as files: a property list holding one output format record, the
// extension "tvof". An imported layout never replaces one of the user's own: it is stored
// under its name made unique.

#include "prefs/TvPrefs.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

class Dialogs;

bool isOutputFormatFile(const std::filesystem::path& file);

// Writes the stored format of that name (ignoring case); false for an unknown name, "QIF" or
// a failed write.
bool exportOutputFormat(const TvPrefs& prefs, std::string_view name,
                        const std::filesystem::path& file);

// The record in the file, or nothing when the file holds no output format.
std::optional<Dictionary> readOutputFormatFile(const std::filesystem::path& file);

// Reads and stores the format; the name it was stored under, or nothing (and nothing
// changed) when the file holds no output format.
std::optional<std::string> importOutputFormat(TvPrefs& prefs, const std::filesystem::path& file);

// The same, saying what was done or why nothing was ("Output Format Exported" / "Output
// Format Imported").
bool exportOutputFormatTelling(const TvPrefs& prefs, std::string_view name,
                               const std::filesystem::path& file, Dialogs& dialogs);
bool importOutputFormatTelling(TvPrefs& prefs, const std::filesystem::path& file, Dialogs& dialogs);

} // namespace tavvel
