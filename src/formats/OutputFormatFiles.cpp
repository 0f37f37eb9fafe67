#include "formats/OutputFormatFiles.h"

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

} // namespace tavvel
