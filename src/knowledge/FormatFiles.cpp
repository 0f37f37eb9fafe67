#include "knowledge/FormatFiles.h"

#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "knowledge/Formats.h"
#include "knowledge/KnowledgeKeys.h"
#include "knowledge/KnowledgeTexts.h"
#include "prefs/PropertyList.h"
#include "prefs/Settings.h"

namespace tavvel {

namespace {

bool holdsListOrNothing(const Dictionary& record, std::string_view key) {
    const Value* value = find(record, key);
    return !value || value->isArray();
}

// A format record names itself and keeps its mapping tables as lists; anything else is some
// other property list.
bool looksLikeFormat(const Dictionary& record) {
    const Value* name = find(record, fmtkey::Name);
    return name && name->isString() && holdsListOrNothing(record, fmtkey::TypeMappings) &&
           holdsListOrNothing(record, fmtkey::SecurityMappings);
}

std::string problemWith(PlistReadStatus status) {
    switch (status) {
    case PlistReadStatus::Missing:
    case PlistReadStatus::Unreadable:
        return std::string(text::formatFileMissing);
    case PlistReadStatus::NotAPropertyList:
        return std::string(text::formatFileNotPropertyList);
    default:
        return std::string(text::formatFileNotRecord);
    }
}

FileChoice formatFileChoice(const Formats& formats, std::string suggestedName) {
    FileChoice choice;
    choice.extensions = {std::string(text::formatFileExtension)};
    choice.startFolder = formatFileFolder(formats.prefs()).string();
    choice.suggestedName = std::move(suggestedName);
    return choice;
}

} // namespace

FormatFileRead readFormatFile(const std::filesystem::path& file) {
    PlistRead read = readPropertyListFile(file);
    if (!read.ok())
        return {std::nullopt, problemWith(read.status)};
    Dictionary record = read.value.dictionary();
    if (!looksLikeFormat(record))
        return {std::nullopt, std::string(text::formatFileNotRecord)};
    return {std::move(record), {}};
}

bool writeFormatFile(const std::filesystem::path& file, const Dictionary& record) {
    return writePropertyListFile(file, Value(record));
}

bool isFormatFile(const std::filesystem::path& file) {
    return file.extension() == ".tvfm";
}

std::string suggestedFormatFileName(std::string_view formatName) {
    return formatMessage(text::formatFileName, {formatName});
}

std::filesystem::path formatFileFolder(const TvPrefs& prefs) {
    const Value* folder = prefs.objectForKey(prefkey::LastRootDirectory);
    return folder ? std::filesystem::path(folder->text()) : std::filesystem::path();
}

bool exportFormat(const Formats& formats, std::string_view name, const std::filesystem::path& file,
                  Dialogs& dialogs) {
    std::optional<Dictionary> record = formats.formatForName(name);
    if (!record || !writeFormatFile(file, *record))
        return false;
    dialogs.alert(std::string(text::formatExportedTitle),
                  formatMessage(text::formatExportedText, {name, file.string()}));
    return true;
}

ImportOutcome importFormatFile(Formats& formats, const std::filesystem::path& file,
                               Dialogs& dialogs, const PresentRenameForm& present) {
    FormatFileRead read = readFormatFile(file);
    if (!read.record) {
        dialogs.alert(std::string(text::formatNotImportedTitle),
                      formatMessage(text::formatNotImportedText, {file.string(), read.problem}));
        return ImportOutcome::Refused;
    }
    RenameFormatForm form(textOf(*read.record, fmtkey::Name), [&](std::string_view name) {
        return formats.formatForName(name).has_value();
    });
    if (!present(form) || !form.okEnabled())
        return ImportOutcome::Cancelled;
    read.record->insert_or_assign(std::string(fmtkey::Name), Value(form.name()));
    formats.addFormat(*read.record);
    dialogs.alert(std::string(text::formatImportedTitle),
                  formatMessage(text::formatImportedText, {form.name(), file.string()}));
    return ImportOutcome::Imported;
}

} // namespace tavvel

namespace tavvel {

bool exportFormatToChosenFile(const Formats& formats, std::string_view name, Dialogs& dialogs) {
    auto file = dialogs.chooseFileToSave(formatFileChoice(formats, suggestedFormatFileName(name)));
    return file && exportFormat(formats, name, *file, dialogs);
}

ImportOutcome importFormatFromChosenFile(Formats& formats, Dialogs& dialogs,
                                         const PresentRenameForm& present) {
    auto file = dialogs.chooseFileToOpen(formatFileChoice(formats, {}));
    if (!file)
        return ImportOutcome::Cancelled;
    return importFormatFile(formats, *file, dialogs, present);
}

} // namespace tavvel
