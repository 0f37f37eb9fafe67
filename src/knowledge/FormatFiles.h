#pragma once
// Input formats moved in and out of the program one at a time, as `.tvfm` files: a property
// list holding the format record. Export writes the record named in the export menu; import
// reads one, lets the user name it in the rename form and stores it with addFormat, so a
// format of the same name (in any letter case) is replaced.

#include "knowledge/RenameFormatForm.h"
#include "prefs/Value.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavvel {

class Dialogs;
class Formats;
class TvPrefs;

// What a `.tvfm` file held: the record, or why there is none (a text for the user).
struct FormatFileRead {
    std::optional<Dictionary> record;
    std::string problem;
};

FormatFileRead readFormatFile(const std::filesystem::path& file);
bool writeFormatFile(const std::filesystem::path& file, const Dictionary& record);

// A file opened or dropped that is an exported input format: its extension is exactly
// "tvfm" (the open rules compare extensions with their case).
bool isFormatFile(const std::filesystem::path& file);

// The file name the save dialogue proposes: "<name>.tvfm".
std::string suggestedFormatFileName(std::string_view formatName);
// The folder the open and save dialogues start in (`LastRootDirectory`).
std::filesystem::path formatFileFolder(const TvPrefs& prefs);

// export: — writes the format of that name to the file and says so ("Input Format
// Exported"). A format that does not exist, or a failed write, shows nothing: false.
bool exportFormat(const Formats& formats, std::string_view name, const std::filesystem::path& file,
                  Dialogs& dialogs);

// export: — the save panel, opened in that folder with "<name>.tvfm" proposed, then
// exportFormat; false when the user cancelled or nothing was written.
bool exportFormatToChosenFile(const Formats& formats, std::string_view name, Dialogs& dialogs);

enum class ImportOutcome { Imported, Cancelled, Refused };

// importFile: — reads the file, shows the rename form through `present`, and on OK stores the
// record under the name typed and says so ("Input Format Imported"). A file that holds no
// format record is refused with a message naming the reason, and nothing changes.
ImportOutcome importFormatFile(Formats& formats, const std::filesystem::path& file,
                               Dialogs& dialogs, const PresentRenameForm& present);
// import: — the open panel for ".tvfm" files in that folder, then importFormatFile.
ImportOutcome importFormatFromChosenFile(Formats& formats, Dialogs& dialogs,
                                         const PresentRenameForm& present);

} // namespace tavvel
