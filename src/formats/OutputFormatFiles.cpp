#include "formats/OutputFormatFiles.h"

#include "dialogs/Dialogs.h"
#include "dialogs/MessageFormat.h"
#include "formats/OutputFormatKeys.h"
#include "formats/OutputFormatStore.h"
#include "formats/OutputFormatTexts.h"
#include "prefs/PropertyList.h"

namespace tavvel {

bool isOutputFormatFile(const std::filesystem::path& file) {
    return file.extension() == "." + std::string(text::outputFormatFileExtension);
}

bool exportOutputFormat(const TvPrefs& prefs, std::string_view name,
                        const std::filesystem::path& file) {
    std::optional<Dictionary> record = outputFormatNamed(prefs, name);
    if (!record || isBuiltInOutputFormat(textOf(*record, outkey::Name)))
        return false;
    return writePropertyListFile(file, Value(*record));
}

std::optional<Dictionary> readOutputFormatFile(const std::filesystem::path& file) {
    PlistRead read = readPropertyListFile(file);
    if (!read.ok() || !looksLikeOutputFormat(read.value.dictionary()))
        return std::nullopt;
    return read.value.dictionary();
}

std::optional<std::string> importOutputFormat(TvPrefs& prefs, const std::filesystem::path& file) {
    std::optional<Dictionary> record = readOutputFormatFile(file);
    if (!record)
        return std::nullopt;
    std::string name = uniqueNameForName(prefs, textOf(*record, outkey::Name));
    (*record)[std::string(outkey::Name)] = Value(name);
    addOutputFormat(prefs, *record);
    return name;
}

bool exportOutputFormatTelling(const TvPrefs& prefs, std::string_view name,
                               const std::filesystem::path& file, Dialogs& dialogs) {
    const std::string title(text::outputFormatExportedTitle);
    if (!exportOutputFormat(prefs, name, file)) {
        dialogs.alert(title, formatMessage(text::noOutputFormatNamed, name));
        return false;
    }
    dialogs.alert(title, formatMessage(text::outputFormatExportedText, {name, file.string()}));
    return true;
}

bool importOutputFormatTelling(TvPrefs& prefs, const std::filesystem::path& file,
                               Dialogs& dialogs) {
    const std::string title(text::outputFormatImportedTitle);
    std::optional<std::string> name = importOutputFormat(prefs, file);
    if (!name) {
        dialogs.alert(title, formatMessage(text::outputFormatFileRefused, file.string()));
        return false;
    }
    dialogs.alert(title, formatMessage(text::outputFormatImportedText, *name));
    return true;
}

} // namespace tavvel
